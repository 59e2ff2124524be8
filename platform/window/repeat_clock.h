#pragma once

#include <algorithm>
#include <cstdint>
#include <optional>

#include "platform/host/kernel.h"

namespace korvane {

/// When something that the mouse holds happens once more: first after a while, then often.
class RepeatClock {
  public:
    void Start() { Schedule(kFirstDelay); }
    void Stop() { scheduled_ = false; }
    /// Milliseconds until it is due; nothing while it does not run.
    std::optional<std::uint32_t> TimeLeft() const {
        if (!scheduled_) return std::nullopt;
        return delay_ - std::min(delay_, GetTickCount() - start_);
    }
    /// True once every time that it is due.
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
