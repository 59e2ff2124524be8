#include "screens/high_score_screen.h"

#include <string>
#include <string_view>
#include <utility>

#include "app/process_state.h"
#include "platform/virtual_keys.h"
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

    static std::string NameIn(std::size_t row) {
        return std::string(theHighScoreScreen->Table().Row(row).Name());
    }
};

constexpr char kBack = VK_BACK;
constexpr char kEnter = VK_RETURN;
constexpr char kLeft = VK_LEFT;
constexpr char kRight = VK_RIGHT;

TEST_F(HighScoreScreenTest, AResultTakesItsRowWithABlankNameOrNone) {
    EXPECT_EQ(theHighScoreScreen->Submit(Side::Left, 99, 7, 7), -1);
    EXPECT_FALSE(Type("A")) << "nothing to name";
    EXPECT_EQ(theHighScoreScreen->Submit(Side::Left, 100, 3, 2), 9);
    const HighScoreEntry& entry = theHighScoreScreen->Table().Row(9);
    EXPECT_EQ(entry.Name(), std::string(13, ' '));
    EXPECT_EQ(entry.score, 100);
    EXPECT_EQ(entry.lines, 3);
    EXPECT_EQ(entry.level, 2);
    EXPECT_TRUE(Type(std::string(1, kEnter)));
    EXPECT_EQ(theHighScoreScreen->Submit(Side::Left, 1000, 3, 2), 0);
}

TEST_F(HighScoreScreenTest, NamesAreTypedColumnByColumn) {
    struct Case {
        std::string keys;
        std::string name;
    };
    const std::string arrows(13, kRight);
    const Case kCases[] = {
        {"AB C19Z", "AB C19Z      "},
        {"ABCDEFGHIJKLM", "ABCDEFGHIJKL "},  // the thirteenth has no room
        {"ABCDEFGHIJKLMN" + std::string(1, kBack), "ABCDEFGHIJK  "},
        {std::string("AB") + kBack, "A            "},
        {std::string("AB") + kBack + "C", "AC           "},
        {std::string(1, kBack) + "X" + kLeft + kBack + kLeft, "             "},
        {std::string("A") + kRight + kRight + "B", "A  B         "},
        {std::string("AB") + kLeft + kLeft + kLeft + "X", "XB           "},
        {arrows + "X" + kLeft + "Y", "           Y "},
        {std::string("A\t\x10\x14\x26\x28") + "B", "AB           "},  // Tab, Shift, Caps, Up, Down
        {std::string("A0\x60\x69\x2D\x2E\x70\x1B\x5B\xBA\xFF") + "B", "AB           "},
        {"1:@", "1:@          "},
    };
    for (const Case& c : kCases) {
        const int row = theHighScoreScreen->Submit(Side::Right, 5000, 1, 1);
        ASSERT_EQ(row, 0);
        EXPECT_FALSE(Type(c.keys));
        EXPECT_EQ(NameIn(0), c.name) << c.keys;
        EXPECT_TRUE(Type(std::string(1, kEnter)));
        EXPECT_FALSE(Type("Q"));
        EXPECT_EQ(NameIn(0), c.name) << "after Enter";
    }
}

TEST_F(HighScoreScreenTest, TheTableIsDrawnWithTheCursorAndTheCongratulations) {
    theHighScoreScreen->Submit(Side::Right, 650, 12, 3);
    Type("ZOE");
    Frame();
    EXPECT_EQ(Text(64, 104, 4, 16), "NAME");
    EXPECT_EQ(Text(491, 104, 5, 16), "SCORE");
    EXPECT_EQ(Text(64, 138 + 28 * 4, 4, 16), "ZOE ");
    EXPECT_EQ(Text(272, 138 + 28 * 4, 3, 14), "12 ");
    EXPECT_EQ(Text(393, 138 + 28 * 4, 2, 14), "3 ");
    EXPECT_EQ(Text(496, 138 + 28 * 4, 4, 14), "650 ");
    EXPECT_EQ(Text(496, 138, 4, 14), "1000");
    EXPECT_EQ(Text(64, 138 + 28 * 9, 6, 16), "MORLAX");
    EXPECT_EQ(Seen(64 + 16 * 3, 138 + 28 * 4), "HighScore/cursor 0");
    EXPECT_EQ(Text(117, 415, 28, 14), "CONGRATULATIONS RIGHT PLAYER");
    EXPECT_EQ(Seen(54, 0), "HighScore/highscore 0");
    EXPECT_EQ(Seen(54, 479), "-");
    EXPECT_EQ(Seen(55, 479), "Background 0");
    Type(std::string(1, kEnter));
    theHighScoreScreen->Submit(Side::Left, 1, 1, 1);
    Frame();
    EXPECT_EQ(Text(117, 415, 4, 14), "    ");
    EXPECT_EQ(Seen(64 + 16 * 3, 138 + 28 * 4), "Background 0");
    theHighScoreScreen->Submit(Side::Left, 650, 12, 3);
    Frame();
    EXPECT_EQ(Text(124, 415, 27, 14), "CONGRATULATIONS LEFT PLAYER");
}

TEST_F(HighScoreScreenTest, TheButtonsWaitForTheNameToBeTyped) {
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
    Type(std::string(1, kEnter));
    Frame();
    for (const auto& [x, y] :
         {std::pair{208, 445}, {208 + 116, 445}, {215, 439}, {215, 475}, {326, 445}})
        EXPECT_EQ(theHighScoreScreen->ClickHighScore(x, y), kHighScoreNothing) << x << ", " << y;
    EXPECT_EQ(theHighScoreScreen->ClickHighScore(208 + 115, 439 + 35), kHighScoreToMenu);
}

}  // namespace
}  // namespace korvane
