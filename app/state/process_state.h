#pragma once

#include <cstdint>

#include "platform/base/types.h"

namespace korvane {

/// The main window, known from its first message on.
extern HWND mainWindow;

// What the screen shows. `menuShowing` comes before `highScoresShowing`; with neither it is the
// game.
extern bool menuShowing;
extern bool highScoresShowing;
extern bool showFps;

/// Frames are drawn only while the window is active.
extern bool appActive;

/// Whether music and sound effects can be heard; without, their menu buttons are out of use.
extern bool audioReady;

/// The keys F5 and F9 turn the next figure into a bar.
extern bool nextFigureCheat;

/// What the last press hit, -1 for nothing; the timer that lets a pressed button be seen acts on
/// it.
extern std::int32_t pendingClick;

// The game clock.
extern bool hiResClock;          ///< the high-resolution counter drives it, not milliseconds
extern double secondsPerCount;   ///< length of one count
extern std::uint64_t lastCount;  ///< the last reading

/// The tick at which the last frame was finished.
extern std::uint32_t lastFrameTick;

}  // namespace korvane
