#pragma once

#include <gtest/gtest.h>

#include "app/state/settings.h"
#include "gfx/display.h"
#include "tests/support/temporary_folder.h"

namespace korvane {

/// A window with an open display on the headless machine, in a folder of its own.
class DisplayFixture : public testing::Test {
  protected:
    void SetUp() override;
    void TearDown() override;

    /// Presents what was drawn and tells a pixel of it, 0x00RRGGBB.
    static std::uint32_t Shown(int x, int y);
    /// Cleared, so that each check sees only its own drawing.
    static void Clear() { currentDisplay->ClearBackBuffer(0); }

    TemporaryFolder folder;
    HWND window = nullptr;
};

}  // namespace korvane
