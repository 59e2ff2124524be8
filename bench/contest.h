#pragma once

#include <functional>
#include <string>
#include <vector>

namespace korvane::bench {

/// Compares the times of several ways to do the same work. They take turns in short runs, so that a
/// slow second of the machine hits all of them, and the median run of each counts.
class Contest {
  public:
    /// Adds a contestant; the first is number 0.
    void Enter(std::function<void()> frame);

    /// One run of each contestant: a frame to warm the caches, then some timed ones.
    void Round();

    /// Seconds per frame in the contestant's median run; only after a round.
    double Median(std::size_t contestant) const;
    /// Seconds per frame in the last round.
    double Last(std::size_t contestant) const { return contestants_[contestant].runs.back(); }

  private:
    struct Contestant {
        std::function<void()> frame;
        std::vector<double> runs;
    };

    std::vector<Contestant> contestants_;
};

}  // namespace korvane::bench
