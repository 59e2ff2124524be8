#include "tools/korvane-skin/png_file.h"

#include <png.h>

#include <vector>

namespace korvane {

bool WritePng(const std::string& file, SIZE size,
              const std::function<std::uint32_t(POINT)>& pixelAt) {
    std::vector<png_byte> bytes;
    bytes.reserve(static_cast<std::size_t>(size.cx) * static_cast<std::size_t>(size.cy) * 3);
    for (int y = 0; y < size.cy; ++y) {
        for (int x = 0; x < size.cx; ++x) {
            const std::uint32_t pixel = pixelAt({x, y});
            for (const int shift : {16, 8, 0})
                bytes.push_back(static_cast<png_byte>(pixel >> shift & 0xFF));
        }
    }
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<png_uint_32>(size.cx);
    image.height = static_cast<png_uint_32>(size.cy);
    image.format = PNG_FORMAT_RGB;
    return png_image_write_to_file(&image, file.c_str(), 0, bytes.data(), 0, nullptr) != 0;
}

}  // namespace korvane
