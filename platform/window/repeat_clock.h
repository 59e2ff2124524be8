#pragma once

#include <algorithm>
#include <cstdint>
#include <optional>

#include "platform/host/kernel.h"

namespace korvane {

/// Says when a held mouse button acts again: first after 300 ms, then every 50 ms.
class RepeatClock {
  public:
    void Start() { Schedule(kFirstDelay); }
    void Stop() { scheduled_ = false; }
    /// Milliseconds until then; nothing while the clock does not run.
    std::optional<std::uint32_t> TimeLeft() const {
        if (!scheduled_) return std::nullopt;
        return delay_ - std::min(delay_, GetTickCount() - start_);
    }
    /// True once each time the button is to act.
    bool TakeDue() {
        if (!scheduled_ || GetTickCount() - start_ < delay_) return false;
        Schedule(kDelay);
        return true;
    }

  private:
    static constexpr std::uint32_t kFirstDelay = 300;
    static constexpr std::uint32_t kDelay = 50;

    void Schedule(std::uint32_t delay) {
        scheduled_ = true;
        start_ = GetTickCount();
        delay_ = delay;
    }

    bool scheduled_ = false;
    std::uint32_t start_ = 0;
    std::uint32_t delay_ = 0;
};

}  // namespace korvane
