#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "platform/host/files.h"

namespace korvane {

/// Milliseconds of the system's tick counter; wraps around, so tests are unsigned differences.
std::uint32_t GetTickCount();
/// The high-resolution counter; false when the machine has none.
bool QueryPerformanceCounter(std::uint64_t& count);
/// Counts per second; false when the machine has no high-resolution counter.
bool QueryPerformanceFrequency(std::uint64_t& countsPerSecond);
/// Milliseconds of the multimedia timer.
std::uint32_t timeGetTime();
/// Seconds since 1970-01-01 UTC.
std::int64_t SecondsSinceEpoch();
void Sleep(std::uint32_t milliseconds);

/// Names what saves the program's data when the display keeps its thread for ever; see
/// Host::SetEmergencySave.
void SetEmergencySave(std::function<void()> save);
/// One line on the terminal that the program was started from; never a window.
void TellOnTerminal(const std::string& text);

/// All files are read and written through this: the game's own and those of skins.
Files& GameFiles();

}  // namespace korvane
