#pragma once

#include <optional>

#include "platform/base/types.h"

namespace korvane {

struct DesktopDensity;
struct HostEvent;

/// The scales that somebody can choose.
inline constexpr int kLargestScale = 16;

/// The whole number of screen pixels for a pixel that the desktop asks for: by its own scale, else
/// by its fonts, else by the monitor. 1 when it says nothing that makes sense.
int ScaleFor(const DesktopDensity& density);
/// The nearest scale, from 1, at which a client area fits into a limit in screen pixels.
int LimitedScale(int scale, SIZE clientArea, SIZE limit);
/// The scale for a window whose edge was dragged to this size: the nearest; the largest where the
/// desktop insists.
int DraggedScale(SIZE dragged, bool insists, SIZE clientArea, SIZE limit);

/// The scale that the user has chosen; nothing: the desktop's.
std::optional<int> ChosenWindowScale();
/// Gives the window this scale, or the one nearest to it that the screen holds.
void ChooseWindowScale(std::optional<int> scale);
/// Chooses the scale so many steps above or below the window's; does nothing in full screen.
void StepWindowScale(int steps);

/// The window's edge was dragged, see HostEventType::EdgeDragged.
void OnEdgeDragged(const HostEvent& event);

}  // namespace korvane
