// seeds FOLDER: writes small good files of every kind, one folder for each target, for the fuzzer
// to begin with.

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <span>
#include <string>
#include <string_view>

#include "tests/support/bmp_writer.h"
#include "tests/support/wav_writer.h"
#include "tests/support/xm_writer.h"

namespace {

using namespace korvane;

bool Write(const std::filesystem::path& path, std::span<const std::byte> bytes) {
    std::filesystem::create_directories(path.parent_path());
    std::ofstream file(path, std::ios::binary);
    file.write(reinterpret_cast<const char*>(bytes.data()),
               static_cast<std::streamsize>(bytes.size()));
    return static_cast<bool>(file);
}

bool WriteAll(const std::filesystem::path& folder) {
    bool good = true;
    for (const int bits : {1, 4, 8, 24, 32}) {
        for (const int height : {9, -9}) {
            BmpRecipe recipe{.width = 13, .height = height, .bits = bits};
            if (bits <= 8) recipe.palette.assign(std::size_t{1} << bits, 0x123456);
            recipe.pixel = [](int x, int y) { return static_cast<std::uint32_t>(x * y % 2); };
            const std::string name = std::to_string(bits) + (height < 0 ? "-down" : "-up");
            good = Write(folder / "picture" / name, MakeBmp(recipe)) && good;
        }
    }
    good = Write(folder / "sound/wav8", MakeWav({.bits = 8, .unknownBytes = 4})) && good;
    good = Write(folder / "sound/wav16", MakeWav({.channels = 2, .rate = 22050})) && good;
    good = Write(folder / "sound/xm", MakeXm({.orders = 3, .rows = 4, .jump = 0})) && good;
    constexpr std::string_view kModuleText = "\4FILENAME:\na.xm\nMENU START POSITION:\n7\n";
    return Write(folder / "data/module", std::as_bytes(std::span(kModuleText))) && good;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc == 2 && WriteAll(argv[1])) return 0;
    std::fputs("usage: seeds FOLDER\n", stderr);
    return 1;
}
