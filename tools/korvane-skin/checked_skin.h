#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/draw/bmp.h"
#include "tools/korvane-skin/catalogue_table.h"

namespace korvane {

/// A picture as the game would get it.
struct SkinPicture {
    bool isThere = false;    ///< the skin has a file for it
    bool isOwn = false;      ///< the picture is the skin's, not the Original's
    bool isTooMuch = false;  ///< the skin's other pictures leave no room for it
    /// Nothing when neither skin has one that can be read.
    std::optional<DecodedBitmap> bitmap;
};

/// What the checks look at: files, pictures and key colours of the skin that theSettings name.
/// Everything is read through the GameFiles of the host.
class CheckedSkin {
  public:
    CheckedSkin();

    /// Relative names with backslashes, spelled as on the disk.
    const std::vector<std::string>& FileNames() const { return fileNames_; }
    /// Whether there is such a file or folder. Letter case does not matter.
    bool Has(std::string_view name) const;
    const SkinPicture& Picture(const PictureRow& row) const { return pictures_[IndexOf(row)]; }
    /// 0x00RRGGBB.
    std::uint32_t Key(int index) const { return keys_[static_cast<std::size_t>(index)]; }
    std::uint32_t OriginalKey(int index) const {
        return originalKeys_[static_cast<std::size_t>(index)];
    }

  private:
    using Keys = std::array<std::uint32_t, 3>;

    void ListFolder(const std::string& folder);
    static Keys LoadKeys();

    std::vector<std::string> fileNames_;
    std::vector<std::string> folders_;
    std::array<SkinPicture, kPictures.size()> pictures_;
    Keys keys_{};
    Keys originalKeys_{};
};

/// A pixel of a decoded picture; x and y lie inside.
inline std::uint32_t PixelOf(const DecodedBitmap& bitmap, int x, int y) {
    return bitmap.pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(bitmap.size.cx) +
                         static_cast<std::size_t>(x)];
}

}  // namespace korvane
