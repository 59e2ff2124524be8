#pragma once

#include <string>

#include "platform/base/types.h"
#include "platform/window/user.h"

namespace korvane {

/// The size of a frame, and so of the window's client area, in pixels.
inline constexpr int kFrameWidth = 640;
inline constexpr int kFrameHeight = 480;

/// The outer size of the main window, with a menu bar.
SIZE MainWindowSize();

/// Makes the hidden main window; E_FAIL when it cannot be had.
HRESULT CreateMainWindow(HWND& window);

/// A fatal error's message over the main window; returns when it has been read.
void ShowError(const std::string& text);

}  // namespace korvane
