#pragma once

namespace korvane {

/// The quotient rounded down, also where `/` would round a negative one up; `divisor` is above 0.
constexpr int FloorDivide(int value, int divisor) {
    return value / divisor - (value % divisor < 0 ? 1 : 0);
}

}  // namespace korvane
