#include "screens/high_score_screen.h"

#include <string>
#include <string_view>
#include <utility>

#include "app/state/process_state.h"
#include "platform/base/virtual_keys.h"
#include "tests/support/program_fixture.h"

namespace korvane {
namespace {

class HighScoreScreenTest : public ProgramFixture {
  protected:
    void SetUp() override {
        ProgramFixture::SetUp();
        Start();
        menuShowing = false;
        highScoresShowing = true;
        Frame();
    }

    static bool Type(std::string_view keys) {
        bool ended = false;
        for (const char key : keys)
            ended = theHighScoreScreen->OnNameKey(static_cast<std::uint8_t>(key));
        return ended;
    }
};

constexpr char kLeft = VK_LEFT;
constexpr char kRight = VK_RIGHT;

TEST_F(HighScoreScreenTest, ANameIsTypedWithLettersDigitsAndArrows) {
    const std::string arrows(13, kRight);
    // \b is the key Backspace.
    const std::pair<std::string, const char*> kCases[] = {
        {"AB C19Z", "AB C19Z      "},
        {"ABCDEFGHIJKLM", "ABCDEFGHIJKL "},  // the thirteenth is dropped
        {"ABCDEFGHIJKLMN\b", "ABCDEFGHIJK  "},
        {"AB\b", "A            "},
        {"AB\bC", "AC           "},
        {std::string("\bX") + kLeft + "\b" + kLeft, "             "},
        {std::string("A") + kRight + kRight + "B", "A  B         "},
        {std::string("AB") + kLeft + kLeft + kLeft + "X", "XB           "},
        {arrows + "X" + kLeft + "Y", "           Y "},
        {std::string("A\t\x10\x14\x26\x28") + "B", "AB           "},  // Tab, Shift, Caps, Up, Down
        {std::string("A0\x60\x69\x2D\x2E\x70\x1B\x5B\xBA\xFF") + "B", "AB           "},
        {"1:@", "1:@          "},
    };
    for (const auto& [keys, name] : kCases) {
        ASSERT_EQ(theHighScoreScreen->Submit(Side::Right, 5000, 1, 1), 0);
        EXPECT_FALSE(Type(keys));
        EXPECT_TRUE(Type("\r"));
        EXPECT_FALSE(Type("Q"));
        EXPECT_EQ(theHighScoreScreen->Table().Row(0).Name(), name) << keys;
    }
}

TEST_F(HighScoreScreenTest, ButtonsAreOutOfUseWhileANameIsTyped) {
    EXPECT_EQ(theHighScoreScreen->ClickHighScore(209, 440), kHighScoreToMenu);
    EXPECT_EQ(theHighScoreScreen->ClickHighScore(329, 440), kHighScorePlayAgain);
    Frame();
    EXPECT_EQ(Seen(210, 445), "HighScore/menubutt 1");
    EXPECT_EQ(Seen(330, 445), "HighScore/playButt 1");
    theHighScoreScreen->ReleaseButtons();
    theHighScoreScreen->Submit(Side::Right, 650, 12, 3);
    Frame();
    EXPECT_EQ(Seen(210, 445), "HighScore/menuButt2 0");
    EXPECT_EQ(Seen(330, 445), "HighScore/playButt2 0");
    for (const int x : {209, 329})
        EXPECT_EQ(theHighScoreScreen->ClickHighScore(x, 440), kHighScoreNothing);
    Type("\r");
    Frame();
    EXPECT_EQ(theHighScoreScreen->ClickHighScore(326, 445), kHighScoreNothing) << "between them";
    EXPECT_EQ(theHighScoreScreen->ClickHighScore(208 + 115, 439 + 35), kHighScoreToMenu);
}

TEST_F(HighScoreScreenTest, LongScoresEndWithTheGround) {
    for (const auto& [score, x] : {std::pair{99'999, 496}, {123'456, 489}, {1'987'654'321, 433}}) {
        theHighScoreScreen->Submit(Side::Right, score, 0, 0);
        Frame();
        const std::string digits = std::to_string(score);
        EXPECT_EQ(Text(x, 138, static_cast<int>(digits.size()), 14), digits);
    }
}

}  // namespace
}  // namespace korvane
