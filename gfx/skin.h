#pragma once

#include <array>
#include <string>

#include "platform/base/types.h"

namespace korvane {

/// The path of a file of the current skin: its name may contain one subfolder.
std::string SkinPath(const std::string& fileName);
/// Where a picture is looked for when the skin lacks it.
std::string FallbackPicturePath(const std::string& fileName);

/// What the pictures of a skin may take together in the display's format, in bytes. Beyond it a
/// picture counts as missing, so that a small archive cannot take all memory. What comes from the
/// fallback folder has a budget of its own.
class PictureBudget {
  public:
    static constexpr std::size_t kMost = std::size_t{64} << 20;

    /// To be called before the pictures of a skin are loaded.
    void Begin() { used_ = {}; }
    /// False, with nothing taken, when there is not so much left.
    bool Take(std::size_t bytes, bool fromSkin);

  private:
    std::array<std::size_t, 2> used_{};
};

/// The budget of the pictures that are loaded now.
extern PictureBudget pictureBudget;

/// The three transparent colours of a skin.
class SkinColorKeys {
  public:
    /// Takes the first three stored pixels of the skin's colorkey.bmp (of the Original's when the
    /// skin has none). Keys that the file does not reach keep their value, 0 before the first load.
    void Load();
    /// Key 0, 1 or 2; 0 for any other index.
    COLORREF Key(int index) const;

  private:
    std::array<COLORREF, 3> keys_{};
};

/// The keys of the skin that was in use at start. They hold until the program ends, also for
/// another skin.
extern SkinColorKeys skinColorKeys;

/// Key 0, 1 or 2 of `skinColorKeys`; 0 for any other index.
COLORREF ColorKey(int index);

}  // namespace korvane
