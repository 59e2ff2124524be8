#include <algorithm>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "tests/game/rules/rules_test.h"

namespace korvane {
namespace {

using Sounds = std::vector<GameSound>;

class RecordedSounds final : public PlayerSounds {
  public:
    explicit RecordedSounds(Sounds& played) : played_(played) {}
    void Load() override {}
    void Play(GameSound sound) override { played_.push_back(sound); }

  private:
    Sounds& played_;
};

class RuleSoundTest : public RulesTest {
  protected:
    /// What was to be heard since the last call.
    Sounds Heard() { return std::exchange(played_, {}); }

    Sounds played_;
    Player player_{Side::Right, std::make_unique<RecordedSounds>(played_)};
};

TEST_F(RuleSoundTest, TheNumberOfRowsPicksTheSound) {
    // Five rows are the four of a bar and one that was full already; nothing sounds for them.
    const Sounds sounds[] = {
        {}, {GameSound::Single}, {GameSound::Double}, {GameSound::Triple}, {GameSound::Tetris}, {}};
    for (std::size_t rows = 0; rows < std::size(sounds); ++rows) {
        StartWith(player_, {kBar, kSquare, kSquare});
        std::vector<std::string> board(std::min(rows, std::size_t{4}), "12345.7123");
        if (rows == 5) board.push_back("1111111111");
        player_.SetBoard(BoardEndingIn(board));
        player_.KeyDown(kTurnKey);
        DropAndLock(player_);
        EXPECT_EQ(player_.RowsLastLock(), static_cast<int>(rows));
        Sounds wanted = {GameSound::Rotate, GameSound::Landed};
        wanted.insert(wanted.end(), sounds[rows].begin(), sounds[rows].end());
        EXPECT_EQ(Heard(), wanted) << rows;
    }
}

TEST_F(RuleSoundTest, ATurnIsHeardWhenItSucceeds) {
    Board walls;
    for (int row = 1; row < kBoardRows; ++row)
        walls.FillRow(row, 1);
    for (const bool gliding : {false, true}) {
        theSettings.scrollingPieces = gliding;
        for (const auto& [board, wanted] :
             {std::pair{Board(), Sounds{GameSound::Rotate}}, {walls, Sounds{}}}) {
            StartWith(player_, {kBar, kSquare});
            player_.SetBoard(board);
            player_.KeyDown(kTurnKey);
            EXPECT_EQ(Heard(), wanted) << gliding;
        }
    }
}

TEST_F(RuleSoundTest, ALandingIsHeardOnceForEachRest) {
    for (const bool gliding : {false, true}) {
        theSettings.scrollingPieces = gliding;
        StartWith(player_, {kSquare, kSquare, kSquare});
        DropAndLock(player_);
        EXPECT_EQ(Heard(), Sounds{GameSound::Landed}) << gliding;
    }
}

TEST_F(RuleSoundTest, ANewLevelIsHeardWhenItDiffers) {
    theLevelTable.figuresForLevel[1] = 1;
    theLevelTable.figuresForLevel[2] = 3;
    StartWith(player_, {kSquare, kSquare, kSquare, kSquare, kSquare});
    for (const bool changes : {false, true, false, true}) {
        const Sounds heard = Heard();
        EXPECT_EQ(std::ranges::count(heard, GameSound::NewLevel), changes ? 1 : 0)
            << player_.FigureCount();
        player_.SetBoard(Board());
        DropAndLock(player_);
    }
}

}  // namespace
}  // namespace korvane
