#include "gfx/skin.h"

#include <cstddef>

#include "app/state/settings.h"
#include "platform/draw/bmp.h"
#include "platform/host/kernel.h"

namespace korvane {

SkinColorKeys skinColorKeys;
PictureBudget pictureBudget;

bool PictureBudget::Take(std::size_t bytes, bool fromSkin) {
    std::size_t& used = used_[fromSkin ? 1 : 0];
    if (bytes > kMost - used) return false;
    used += bytes;
    return true;
}

std::string SkinPath(const std::string& fileName) {
    return "Skins\\" + theSettings.skinName + "\\" + fileName;
}

std::string FallbackPicturePath(const std::string& fileName) {
    return "Graphics\\Original\\" + fileName;
}

void SkinColorKeys::Load() {
    constexpr std::size_t kPixelOffsetField = 10;
    Files& files = GameFiles();
    auto file = files.Read(SkinPath("colorkey.bmp"), kMaxBitmapBytes);
    if (!file) file = files.Read("Skins\\Original\\colorkey.bmp", kMaxBitmapBytes);
    if (!file || file->size() < kPixelOffsetField + 4) return;
    const auto byte = [&](std::size_t at) { return std::to_integer<std::uint32_t>((*file)[at]); };
    std::size_t pixel = 0;
    for (std::size_t i = 0; i < 4; ++i)
        pixel |= static_cast<std::size_t>(byte(kPixelOffsetField + i)) << (8 * i);
    for (COLORREF& key : keys_) {
        if (pixel + 3 > file->size()) return;
        key = RGB(byte(pixel + 2), byte(pixel + 1), byte(pixel));
        pixel += 3;
    }
}

COLORREF SkinColorKeys::Key(int index) const {
    if (index < 0 || index >= static_cast<int>(keys_.size())) return 0;
    return keys_[static_cast<std::size_t>(index)];
}

COLORREF ColorKey(int index) {
    return skinColorKeys.Key(index);
}

}  // namespace korvane
