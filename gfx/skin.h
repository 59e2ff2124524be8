#pragma once

#include <array>
#include <string>

#include "platform/base/types.h"

namespace korvane {

/// The path of a file of the current skin: its name may contain one subfolder.
std::string SkinPath(const std::string& fileName);
/// Where a picture is looked for when the skin lacks it.
std::string FallbackPicturePath(const std::string& fileName);

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
