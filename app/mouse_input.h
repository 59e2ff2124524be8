#pragma once

#include "platform/window/user.h"

namespace korvane {

/// A press of the left mouse button, `position` as its message carries it. What it hits on the menu
/// or the high-score screen takes effect at once, or a moment later so that the pressed button is
/// seen. Another press within that moment takes its place; a press on nothing cancels it. During a
/// game presses do nothing.
void OnLeftButtonDown(LPARAM position);

/// A press at a point of the frame by whatever means, on the menu or the high-score screen.
void PressAt(POINT at);

/// A timer's message; false when the timer is not the one of the delayed presses.
bool OnTimer(HWND window, WPARAM id);

}  // namespace korvane
