#include <algorithm>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "app/state/process_state.h"
#include "game/rules/level_table.h"
#include "platform/headless/headless_host.h"
#include "platform/sound/bass.h"
#include "tests/game/rules/rules_test.h"
#include "tests/support/globals_for_rules.h"
#include "tests/support/heard.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/wav_writer.h"

namespace korvane {
namespace {

/// The sounds of a player's field; each has a loudness that tells it.
constexpr const char* kFiles[] = {"Landed.wav", "Rotate.wav", "Single.wav",
                                  "Double.wav", "Triple.wav", "Tetris.wav"};
constexpr std::size_t kSoundFrames = 200;
constexpr int kLoudnessStep = 2048;

class FieldSoundTest : public RulesTest {
  protected:
    void SetUp() override {
        RulesTest::SetUp();
        Headless().UseFolder(folder_.Path());
        int loudness = 0;
        for (const char* file : kFiles) {
            loudness += kLoudnessStep;
            WavRecipe recipe{.frames = kSoundFrames};
            recipe.wave = [=](std::size_t, int) { return loudness / 32768.0; };
            folder_.Write(std::string("Skins/Original/Audio/") + file, MakeWav(recipe));
        }
        audioReady = BASS_Init(-1, kSoundRate, 0, nullptr) > 0;
        player_ = std::make_unique<Player>(Side::Right);
    }
    void TearDown() override {
        player_.reset();
        BASS_Free();
        audioReady = false;
    }

    /// A turn, a landing, a full row and a new level; listens after each frame.
    template <typename Listen>
    void PlayThroughEveryEvent(Listen listen) {
        player_->ResetPlayer();
        StartWith(*player_, {kBar, kSquare, kSquare});
        player_->SetBoard(BoardEndingIn({"12345.7123"}));
        player_->KeyDown(kTurnKey);
        listen();
        player_->KeyDown(kDropKey);
        for (int i = 0; i < 200 && player_->FigureCount() < 2; ++i) {
            Frame(*player_);
            listen();
        }
        EXPECT_EQ(player_->RowsLastLock(), 1);
    }

    /// The file of the one sound that sounds, "" for silence; it is over afterwards.
    static std::string Heard() {
        const int peak = PeakOf(Headless().Hear(kSoundFrames));
        const auto index = static_cast<std::size_t>((peak + kLoudnessStep / 2) / kLoudnessStep);
        if (index == 0) return "";
        return index <= std::size(kFiles) ? kFiles[index - 1] : "several";
    }

    TemporaryFolder folder_;
    std::unique_ptr<Player> player_;
};

TEST_F(FieldSoundTest, TheNumberOfRowsPicksTheSound) {
    theSettings.sfxMask = kSfxRowsDone;
    const char* const sounds[] = {"", "Single.wav", "Double.wav", "Triple.wav", "Tetris.wav", ""};
    for (std::size_t rows = 0; rows < std::size(sounds); ++rows) {
        StartWith(*player_, {kBar, kSquare, kSquare});
        // The fifth row is full already.
        std::vector<std::string> board(std::min(rows, std::size_t{4}), "12345.7123");
        if (rows == 5) board.push_back("1111111111");
        player_->SetBoard(BoardEndingIn(board));
        player_->KeyDown(kTurnKey);
        DropAndLock(*player_);
        EXPECT_EQ(player_->RowsLastLock(), static_cast<int>(rows));
        EXPECT_EQ(Heard(), sounds[rows]) << rows;
    }
}

TEST_F(FieldSoundTest, ATurnIsHeardWhenItSucceeds) {
    for (const bool gliding : {false, true}) {
        theSettings.scrollingPieces = gliding;
        StartWith(*player_, {kBar, kSquare});
        player_->KeyDown(kTurnKey);
        EXPECT_EQ(Heard(), "Rotate.wav");
        // One that has no room: the bar lies in a row that is full round it.
        StartWith(*player_, {kBar, kSquare});
        Board walls;
        for (int row = 1; row < kBoardRows; ++row)
            walls.FillRow(row, 1);
        player_->SetBoard(walls);
        player_->KeyDown(kTurnKey);
        EXPECT_EQ(Heard(), "");
    }
}

TEST_F(FieldSoundTest, EveryEventAsksSwitchAndMask) {
    theLevelTable.figuresForLevel[1] = 0;
    for (const auto& [event, sound] : {std::pair{kSfxRowsDone, "Single.wav"},
                                       {kSfxLevelChange, "NewLevel.wav"},
                                       {kSfxRotate, "Rotate.wav"},
                                       {kSfxFigureLanding, "Landed.wav"}}) {
        for (const bool enabled : {true, false}) {
            for (const bool masked : {false, true}) {
                SCOPED_TRACE(testing::Message() << int{event} << enabled << masked);
                theSettings.soundEffects = enabled;
                theSettings.sfxMask = static_cast<std::uint8_t>(masked ? 31 & ~event : +event);
                levelSoundsPlayed = 0;
                std::set<std::string> heard;
                PlayThroughEveryEvent([&] { heard.insert(Heard()); });
                if (levelSoundsPlayed > 0) heard.insert("NewLevel.wav");
                EXPECT_EQ(heard.contains(sound), enabled && !masked);
                EXPECT_EQ(heard.size() > 1, enabled) << "the others";
            }
        }
    }
}

TEST_F(FieldSoundTest, ALandingIsHeardOnceForEachRest) {
    for (const bool gliding : {false, true}) {
        theSettings.scrollingPieces = gliding;
        StartWith(*player_, {kSquare, kSquare, kSquare});
        player_->KeyDown(kDropKey);
        int landings = 0;
        for (int i = 0; i < 200 && player_->FigureCount() < 2; ++i) {
            Frame(*player_);
            const std::string heard = Heard();
            if (heard.empty()) continue;
            EXPECT_EQ(heard, "Landed.wav");
            ++landings;
        }
        EXPECT_EQ(landings, 1) << gliding;
    }
}

TEST_F(FieldSoundTest, EachPlayerHasItsOwnSounds) {
    Player left(Side::Left);
    StartWith(left, {kBar, kSquare});
    StartWith(*player_, {kBar, kSquare});
    player_->KeyDown(kTurnKey);
    left.KeyDown('W');
    EXPECT_EQ(Heard(), "Double.wav") << "twice as loud as one turn";
}

TEST_F(FieldSoundTest, ANewLevelIsHeardWhenItDiffers) {
    theLevelTable.figuresForLevel[1] = 1;
    theLevelTable.figuresForLevel[2] = 3;
    levelSoundsPlayed = 0;
    StartWith(*player_, {kSquare, kSquare, kSquare, kSquare, kSquare});
    const int kWanted[] = {0, 1, 1, 2};
    for (const int wanted : kWanted) {
        EXPECT_EQ(levelSoundsPlayed, wanted) << player_->FigureCount();
        player_->SetBoard(Board());
        DropAndLock(*player_);
    }
}

}  // namespace
}  // namespace korvane
