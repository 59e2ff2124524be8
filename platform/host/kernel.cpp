#include "platform/host/kernel.h"

#include <utility>

#include "platform/host/host.h"

namespace korvane {

std::uint32_t GetTickCount() {
    return TheHost().Milliseconds();
}

bool QueryPerformanceCounter(std::uint64_t& count) {
    if (TheHost().CounterFrequency() == 0) return false;
    count = TheHost().Counter();
    return true;
}

bool QueryPerformanceFrequency(std::uint64_t& countsPerSecond) {
    countsPerSecond = TheHost().CounterFrequency();
    return countsPerSecond != 0;
}

std::uint32_t timeGetTime() {
    return TheHost().Milliseconds();
}

std::int64_t SecondsSinceEpoch() {
    return TheHost().UnixSeconds();
}

void Sleep(std::uint32_t milliseconds) {
    TheHost().Sleep(milliseconds);
}

void SetEmergencySave(std::function<void()> save) {
    TheHost().SetEmergencySave(std::move(save));
}

void TellOnTerminal(const std::string& text) {
    TheHost().Report("Korvane", text);
}

Files& GameFiles() {
    return TheHost().GameFiles();
}

}  // namespace korvane
