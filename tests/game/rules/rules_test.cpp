#include "tests/game/rules/rules_test.h"

#include <algorithm>

#include "app/state/process_state.h"
#include "app/state/static_room.h"
#include "game/rules/key_bindings.h"
#include "game/rules/level_table.h"
#include "game/rules/random.h"
#include "platform/headless/headless_host.h"

namespace korvane {
namespace {

// Of the program's static objects the rules need these two.
const MadeInRoom<Settings> settings(theSettings);
const MadeInRoom<LevelTable> levelTable(theLevelTable);

}  // namespace

Board BoardEndingIn(const std::vector<std::string>& rows) {
    Board board;
    int row = kBoardRows - static_cast<int>(rows.size());
    for (const std::string& text : rows) {
        EXPECT_EQ(text.size(), static_cast<std::size_t>(kBoardColumns));
        for (int column = 0; column < kBoardColumns; ++column) {
            const char cell = text[static_cast<std::size_t>(column)];
            if (cell != '.') board.Set(row, column, static_cast<std::uint8_t>(cell - '0'));
        }
        ++row;
    }
    return board;
}

std::vector<std::string> RowsFrom(const Board& board, int first) {
    std::vector<std::string> rows;
    for (int row = first; row < kBoardRows; ++row) {
        std::string text;
        for (int column = 0; column < kBoardColumns; ++column) {
            const std::uint8_t cell = board.At(row, column);
            text += cell == kEmptyCell ? '.' : static_cast<char>('0' + cell);
        }
        rows.push_back(text);
    }
    return rows;
}

std::int64_t TimeThatDeals(std::initializer_list<int> types) {
    for (std::uint32_t seed = 1;; ++seed) {
        SeedRandom(seed);
        if (std::ranges::all_of(types, [](int type) { return RandomFigureType() == type; })) {
            return seed;
        }
    }
}

void RulesTest::SetUp() {
    Headless().Reset();
    Headless().SetMilliseconds(kStartTick);
    theSettings.SetDefaults();
    theSettings.scrollingPieces = false;
    theSettings.dropDelayMs = 0;
    theLevelTable.SetDefaults();
    keyBindings.ResetToDefaults();
    nextFigureCheat = false;
}

void RulesTest::Frame(Player& player, std::uint32_t milliseconds) {
    Headless().Advance(milliseconds);
    player.UpdatePlayer(milliseconds / 1000.0);
}

void RulesTest::Frames(Player& player, int count, std::uint32_t milliseconds) {
    for (int i = 0; i < count; ++i)
        Frame(player, milliseconds);
}

void RulesTest::DropAndLock(Player& player) {
    const Figure* falling = player.CurrentFigure();
    const Figure* following = player.NextFigure();
    player.KeyDown(kDropKey);
    for (int i = 0; i < 200 && player.CurrentFigure() == falling; ++i)
        Frame(player);
    ASSERT_EQ(player.CurrentFigure(), following);
}

void RulesTest::StartWith(Player& player, std::initializer_list<int> types) {
    Headless().SetUnixSeconds(TimeThatDeals(types));
    ASSERT_TRUE(player.StartGame(false));
}

}  // namespace korvane
