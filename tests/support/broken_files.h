#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <random>
#include <span>
#include <vector>

namespace korvane {

/// Calls `check` with the beginning of a file, for each length shorter than the file.
template <typename Check>
void ForEachCut(std::span<const std::byte> file, Check check) {
    for (std::size_t length = 0; length < file.size(); ++length) {
        SCOPED_TRACE(testing::Message() << "cut to " << length << " bytes");
        check(file.first(length));
    }
}

/// Calls `check` with copies of a file, in each of which up to eight of the first `reach` bytes
/// have random values. The random numbers are the same in every run.
template <typename Check>
void ForDamagedCopies(const std::vector<std::byte>& file, std::size_t reach, int count,
                      Check check) {
    std::minstd_rand random(7);
    for (int copy = 0; copy < count && !testing::Test::HasFailure(); ++copy) {
        std::vector<std::byte> damaged = file;
        for (auto changes = 1 + random() % 8; changes > 0; --changes)
            damaged[random() % reach] = static_cast<std::byte>(random() & 0xFF);
        check(damaged);
    }
}

}  // namespace korvane
