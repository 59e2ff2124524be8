#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <initializer_list>
#include <string>
#include <vector>

#include "game/rules/level_table.h"
#include "game/rules/player.h"

namespace korvane {

/// The right player's default keys.
inline constexpr std::uint8_t kTurnKey = 38;
inline constexpr std::uint8_t kDropKey = 40;
inline constexpr std::uint8_t kLeftKey = 37;
inline constexpr std::uint8_t kRightKey = 39;

/// A board whose lowest rows are given from top to bottom; '.' is empty, a digit the cell's value.
Board BoardEndingIn(const std::vector<std::string>& rows);

/// The rows of a board from `first` down in the same form.
std::vector<std::string> RowsFrom(const Board& board, int first);

/// A time at whose second a game starts with these figure types in this order.
std::int64_t TimeThatDeals(std::initializer_list<int> types);

/// Every rule test starts with default settings, levels and keys and a set clock, in plain mode
/// with hard drops.
class RulesTest : public testing::Test {
  protected:
    static constexpr std::uint32_t kStartTick = 1'000'000;
    static constexpr std::uint32_t kFrameMs = 16;

    void SetUp() override;

    /// The clock moves on and the player has one frame.
    static void Frame(Player& player, std::uint32_t milliseconds = kFrameMs);
    static void Frames(Player& player, int count, std::uint32_t milliseconds = kFrameMs);
    /// Hard drop, then frames until the figure has locked.
    static void DropAndLock(Player& player);
    static void StartWith(Player& player, std::initializer_list<int> types);
};

}  // namespace korvane
