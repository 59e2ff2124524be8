#pragma once

#include <chrono>

namespace korvane {

/// Whether a Wayland compositor says that it has no seat: neither keyboard nor mouse. SDL 2.26
/// follows a null pointer there while it starts, which nothing but not starting it prevents. False
/// when there is a seat, and when nothing could be learnt in time.
bool LacksSeat(int socket, std::chrono::milliseconds patience);

/// The same of the compositor that SDL would use.
bool WaylandLacksSeat();

}  // namespace korvane
