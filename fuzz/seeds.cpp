// seeds FOLDER: writes small good files of every kind, one folder for each target, for the fuzzer
// to begin with.

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "fuzz/module_seeds.h"
#include "platform/sound/music_stream.h"
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

bool Write(const std::filesystem::path& path, std::string_view text) {
    return Write(path, std::as_bytes(std::span(text)));
}

bool WritePictures(const std::filesystem::path& folder) {
    bool good = true;
    for (const int bits : {1, 4, 8, 24, 32}) {
        for (const int height : {9, -9}) {
            BmpRecipe recipe{.width = 13, .height = height, .bits = bits};
            if (bits <= 8) recipe.palette.assign(std::size_t{1} << bits, 0x123456);
            recipe.pixel = [](int x, int y) { return static_cast<std::uint32_t>(x * y % 2); };
            const std::string name = std::to_string(bits) + (height < 0 ? "-down" : "-up");
            good = Write(folder / name, MakeBmp(recipe)) && good;
        }
    }
    const BmpRecipe kRarer[] = {
        {.width = 5, .bits = 16, .compression = 3, .masks = {0xF800, 0x07E0, 0x001F}},
        {.width = 5, .bits = 8, .infoSize = 12, .palette = {0x123456, 0x654321}},
        {.width = 6,
         .height = 3,
         .bits = 8,
         .compression = 1,
         .palette = {0, 1, 2},
         .code = {"\2\1\0\2\1\1\0\3\1\2\1\0\0\0\3\2\0\1", 18}},
        {.width = 6,
         .height = 2,
         .bits = 4,
         .compression = 2,
         .palette = {0, 1, 2},
         .code = {"\6\x12\0\0\0\3\x12\x10\0\1", 10}},
    };
    for (std::size_t i = 0; i < std::size(kRarer); ++i)
        good = Write(folder / ("rarer-" + std::to_string(i)), MakeBmp(kRarer[i])) && good;
    return good;
}

bool WriteSounds(const std::filesystem::path& folder) {
    return Write(folder / "wav8", MakeWav({.bits = 8, .unknownBytes = 4})) &&
           Write(folder / "wav16", MakeWav({.channels = 2, .rate = 22050}));
}

/// False also when the module player does not take a module: then it is no good file.
bool WriteModules(const std::filesystem::path& folder) {
    std::vector<fuzz::ModuleSeed> modules = fuzz::MakeModuleSeeds();
    modules.push_back({"xm", MakeXm({.orders = 3, .rows = 4, .jump = 0})});
    return std::ranges::all_of(modules, [&](const fuzz::ModuleSeed& module) {
        return OpenModule(module.file) && Write(folder / module.name, module.file);
    });
}

/// The first byte says which file it is.
bool WriteData(const std::filesystem::path& folder) {
    const auto zeros = [](char kind, std::size_t count) {
        return std::string(1, kind) + std::string(count, '\0');
    };
    const std::vector<std::byte> keys =
        MakeBmp({.width = 3, .pixel = [](int x, int) { return 0x102030u << x; }});
    const std::string keyText(reinterpret_cast<const char*>(keys.data()), keys.size());
    return Write(folder / "menu", zeros(0, 60)) && Write(folder / "sync", zeros(1, 324)) &&
           Write(folder / "scores", zeros(2, 260)) && Write(folder / "keys", zeros(3, 10)) &&
           Write(folder / "module", "\4FILENAME:\na.xm\nMENU START POSITION:\n7\n") &&
           Write(folder / "colorkey", "\5" + keyText);
}

/// A link's text, a line feed and the path that is asked for.
bool WritePaths(const std::filesystem::path& folder) {
    constexpr std::string_view kPaths[] = {
        "x\ndata\\menu.dat",
        "x\nskins/ORIGINAL/Logo.bmp",
        "x\nGraphics\\.\\",
        "Original\nSkins\\link\\logo.bmp",
        "original\nSkins",
        "../data/menu.dat\nSkins\\link",
        "../../secret\nSkins\\link",
        "link\nSkins\\link\\logo.bmp",
        "/etc/hosts\nSkins\\link",
        "x\n..\\secret",
        "x\nc:\\secret",
    };
    bool good = true;
    for (std::size_t i = 0; i < std::size(kPaths); ++i)
        good = Write(folder / std::to_string(i), kPaths[i]) && good;
    return good;
}

/// Mode entries begin with 0xFF, others with the number of acts before the text is pasted.
bool WriteTexts(const std::filesystem::path& folder) {
    using namespace std::string_view_literals;
    return Write(folder / "mode",
                 "\xFF"
                 "640 x 480 x 16 - 75 Hz"sv) &&
           Write(folder / "paste", "\0first line\nsecond"sv) &&
           Write(folder / "long", "\0\u00E4\u20AC 0123456789012345678901234567890"sv) &&
           // The keys, each plain and with Shift, and what comes from the mouse.
           Write(folder / "acts",
                 "\x1C\x0C\x1C\x2C\x3C\x00\x01\x02\x03\x10\x11\x12\x04\x05\x15\x16\x26\x27\x28"
                 "\x29\x2A\x20\x21\x0D\x4E\x0F\x04\x18\x1Bpasted"sv);
}

bool WriteAll(const std::filesystem::path& folder) {
    return WritePictures(folder / "picture") && WriteSounds(folder / "sound") &&
           WriteModules(folder / "sound") && WriteModules(folder / "module") &&
           WriteData(folder / "data") && WritePaths(folder / "path") && WriteTexts(folder / "text");
}

}  // namespace

int main(int argc, char** argv) {
    if (argc == 2 && WriteAll(argv[1])) return 0;
    std::fputs("usage: seeds FOLDER\n", stderr);
    return 1;
}
