#pragma once

#include "gfx/offscreen_surface.h"

namespace korvane {

/// Words in place of the pictures where nothing of a skin can be read: what is missing, where it
/// was looked for and what to do.
class MissingSkinNotice {
  public:
    /// Looks whether there is a skin, and writes the words when there is none. To be called
    /// whenever pictures are loaded into the current display.
    void Refresh();
    /// Covers the back buffer with the words; does nothing while there is a skin.
    void Draw() const;

  private:
    OffscreenSurface words_;
};

extern MissingSkinNotice missingSkinNotice;

}  // namespace korvane
