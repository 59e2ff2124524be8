#include "tests/support/golden.h"

#include <png.h>

#include <bit>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <vector>

#include "platform/headless/headless_host.h"
#include "tools/korvane-skin/png_file.h"

namespace korvane {
namespace {

struct Picture {
    SIZE size;
    std::vector<std::uint32_t> pixels;  ///< 0x00RRGGBB

    bool operator==(const Picture&) const = default;
};

std::optional<Picture> ReadPng(const std::string& file) {
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    if (!png_image_begin_read_from_file(&image, file.c_str())) return std::nullopt;
    // In memory the lowest byte comes first or last, as the processor has it.
    image.format = std::endian::native == std::endian::little ? PNG_FORMAT_BGRA : PNG_FORMAT_ARGB;
    Picture picture{{static_cast<int>(image.width), static_cast<int>(image.height)},
                    std::vector<std::uint32_t>(image.width * image.height)};
    if (!png_image_finish_read(&image, nullptr, picture.pixels.data(), 0, nullptr))
        return std::nullopt;
    for (std::uint32_t& pixel : picture.pixels)
        pixel &= 0xFFFFFF;
    return picture;
}

bool Write(const std::string& file, const Picture& picture) {
    return WritePng(file, picture.size, [&](POINT at) {
        return picture.pixels[static_cast<std::size_t>(at.y * picture.size.cx + at.x)];
    });
}

}  // namespace

testing::AssertionResult MatchesGolden(const std::string& name) {
    return MatchesGolden(name, RectAt({}, Headless().PictureSize()));
}

testing::AssertionResult MatchesGolden(const std::string& name, const RECT& part) {
    Picture now{part.Size(), {}};
    for (int y = part.top; y < part.bottom; ++y)
        for (int x = part.left; x < part.right; ++x)
            now.pixels.push_back(Headless().PixelAt(x, y));
    const std::string golden = std::string(KORVANE_GOLDEN_FOLDER) + "/" + name + ".png";
    const char* rewrite = std::getenv("KORVANE_REWRITE_GOLDEN");
    if (rewrite && std::string(rewrite) == "1")
        return Write(golden, now) ? testing::AssertionSuccess()
                                  : testing::AssertionFailure() << "cannot write " << golden;
    const std::optional<Picture> wanted = ReadPng(golden);
    if (wanted == now) return testing::AssertionSuccess();
    const std::string actual = name + ".actual.png";
    Write(actual, now);
    return testing::AssertionFailure()
           << (wanted ? "differs from " : "there is no ") << golden << "; see " << actual;
}

}  // namespace korvane
