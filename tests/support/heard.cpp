#include "tests/support/heard.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <utility>

#include "platform/headless/headless_host.h"
#include "tests/support/xm_writer.h"

namespace korvane {

int PeakOf(const std::vector<std::int16_t>& heard) {
    int peak = 0;
    for (const std::int16_t sample : heard)
        peak = std::max(peak, std::abs(int{sample}));
    return peak;
}

double PitchOf(const std::vector<std::int16_t>& side) {
    const int threshold = PeakOf(side) / 4;
    if (threshold == 0) return 0;
    // A wave goes from well below zero to well above it.
    std::vector<std::size_t> waves;
    bool below = false;
    for (std::size_t i = 0; i < side.size(); ++i) {
        if (side[i] < -threshold) below = true;
        if (side[i] > threshold && std::exchange(below, false)) waves.push_back(i);
    }
    if (waves.size() < 2) return 0;
    return kSoundRate * static_cast<double>(waves.size() - 1) /
           static_cast<double>(waves.back() - waves.front());
}

int HeardOrder() {
    Headless().Hear(2 * kSoundBufferFrames);
    const std::vector<std::int16_t> heard = Headless().Hear(kSoundRate / 5);
    std::vector<std::int16_t> left;
    for (std::size_t i = 0; i < heard.size(); i += kSoundChannels)
        left.push_back(heard[i]);
    const double pitch = PitchOf(left);
    if (pitch == 0) return -1;
    return static_cast<int>(std::lround(4 * std::log2(pitch / kXmLowestTone)));
}

}  // namespace korvane
