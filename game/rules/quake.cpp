#include "game/rules/quake.h"

#include <algorithm>
#include <cmath>

#include "platform/host/kernel.h"

namespace korvane {
namespace {

constexpr std::uint32_t kStepMs = 25;
constexpr int kAmplitudePerRow = 7;
// An eighth of a turn, with 3.14159 for pi. A finer value would move some boards by a pixel, since
// their place is cut to whole pixels.
constexpr double kRadiansPerStep = 3.14159 / 4;
constexpr int kRestTop = 50;
constexpr int kLowestTop = 106;

// Minutes of shaking. No match completes rows fast enough to come near, but the sum must not grow
// beyond an int either.
constexpr int kAmplitudeLimit = 1 << 16;

void AddRows(Shake& shake, int rows) {
    rows = std::clamp(rows, 0, kAmplitudeLimit / kAmplitudePerRow);
    if (shake.amplitude == 0) shake.phase = 0;
    shake.amplitude = std::min(shake.amplitude + kAmplitudePerRow * rows, kAmplitudeLimit);
}

int TopOf(const Shake& shake) {
    const double top = std::sin(shake.phase * kRadiansPerStep) * shake.amplitude + kRestTop;
    return std::clamp(static_cast<int>(top), 0, kLowestTop);
}

}  // namespace

QuakeMode QuakeModeOf(const SettingsValues& settings) {
    if (!settings.quakes) return QuakeMode::Off;
    return settings.individualQuakes ? QuakeMode::Individual : QuakeMode::Together;
}

BoardTops QuakeState::Step(QuakeMode mode, int rightRows, int leftRows) {
    if (mode == QuakeMode::Off) return {kRestTop, kRestTop};
    TakeStep(right_);
    if (mode == QuakeMode::Together) {
        if (rightRows > 0 || leftRows > 0) AddRows(right_, rightRows + leftRows);
        return {TopOf(right_), TopOf(right_)};
    }
    // The right board feels the left player's rows too when both complete rows in one frame.
    if (rightRows > 0) AddRows(right_, rightRows + leftRows);
    TakeStep(left_);
    if (leftRows > 0) AddRows(left_, leftRows);
    return {TopOf(right_), TopOf(left_)};
}

/// Both boards share the clock, so in one frame at most one of them moves on.
void QuakeState::TakeStep(Shake& shake) {
    const std::uint32_t now = GetTickCount();
    if (now - stepTick_ <= kStepMs || shake.amplitude == 0) return;
    --shake.amplitude;
    shake.phase = (shake.phase + 1) & 0xFF;
    stepTick_ = now;
}

}  // namespace korvane
