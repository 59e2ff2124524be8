#pragma once

#include <functional>
#include <string>
#include <vector>

namespace korvane::bench {

/// Times several ways to do the same work against each other: they take turns in short spells, so
/// that a slow second of the machine hits all of them, and the median spell of each counts.
class Contest {
  public:
    /// The first contestant is number 0.
    void Enter(std::function<void()> frame);

    /// One spell of each contestant: a frame to warm the caches, then a number of timed ones.
    void Round();

    /// Seconds per frame in the contestant's median spell; at least one round was run.
    double Median(std::size_t contestant) const;
    /// Seconds per frame in the last round.
    double Last(std::size_t contestant) const { return contestants_[contestant].spells.back(); }

  private:
    struct Contestant {
        std::function<void()> frame;
        std::vector<double> spells;
    };

    std::vector<Contestant> contestants_;
};

}  // namespace korvane::bench
