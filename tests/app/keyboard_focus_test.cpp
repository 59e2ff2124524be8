#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "app/state/process_state.h"
#include "app/state/settings.h"
#include "game/frame/game_frame.h"
#include "game/rules/key_bindings.h"
#include "platform/base/virtual_keys.h"
#include "platform/headless/headless_host.h"
#include "res/commands.h"
#include "screens/high_score_screen.h"
#include "screens/keyboard_focus.h"
#include "screens/menu_screen.h"
#include "tests/support/program_fixture.h"

namespace korvane {
namespace {

class FocusTest : public ProgramFixture {
  protected:
    void SetUp() override {
        ProgramFixture::SetUp();
        theSettings.players = 2;
    }

    /// Up, Down, Left and Right; Tab and Back (Shift+Tab); Enter, Space and Quit the view (Esc).
    void Type(std::string_view keys) {
        for (const char key : keys)
            key == 'B' ? Press(VK_TAB, kModShift) : Press(KeyOf(key));
    }

    static std::uint8_t KeyOf(char key) {
        const std::map<char, std::uint8_t> kKeys = {
            {'U', VK_UP},  {'D', VK_DOWN},   {'L', VK_LEFT},  {'R', VK_RIGHT},
            {'T', VK_TAB}, {'E', VK_RETURN}, {'S', VK_SPACE}, {'Q', VK_ESCAPE}};
        return kKeys.at(key);
    }

    void Repeat(std::uint8_t key) {
        Headless().Push({.type = HostEventType::KeyDown, .key = key, .repeat = true});
        Frame();
    }
};

TEST_F(FocusTest, TabGoesRoundAndArrowsGoToTheNearestButton) {
    // By column: the way from one button to the next, each then pressed.
    const std::tuple<std::string_view, int> kWays[] = {
        {"E", -1},  // nothing has the focus yet
        {"TE", kMenuStart},
        {"DE", kMenuStart},
        {"DRE", kMenuQuit},
        {"DRRE", kMenuBattle},
        {"DUE", kMenuCredits},
        {"DURE", kMenuQuakes},
        {"DUUE", kMenuSoundEffects},
        {"DUURE", kMenuLeftTime},
        {"DUURUE", kMenuLeftClockwise},
        {"DUURULE", kMenuLeftCounterClockwise},
        {"DUURULUE", kMenuLeftHard},
        {"DUURULUUUUE", kMenuLeftEasy},
        {"DUURULUUUURE", kMenuRightEasy},
        {"DUURULUUUURDDLLE", kMenuConfigureKeys},
        {"DUURRRE", kMenuRightTime},
        {"DDDDDE", kMenuStart},
        {"TTE", kMenuLeftEasy},
        {"TBE", kMenuCredits},
        {"TBBBBBBBS", kMenuQuit},
        {"TTTTTTTTTTTTTTTTE", kMenuQuit},
        {"TTTTTTTTTTTTTTTTTS", kMenuOnePlayer},
    };
    for (const auto& [keys, pressed] : kWays) {
        Start();
        pendingClick = -1;
        Type(keys);
        EXPECT_EQ(pendingClick, pressed) << keys;
    }
}

TEST_F(FocusTest, AButtonOutOfUseCanHaveTheFocusButNotBePressed) {
    theSettings.players = 1;
    Start();
    Type("TE");
    EXPECT_EQ(pendingClick, kMenuStart);
    Type("TE");
    EXPECT_EQ(pendingClick, -1) << "as a press of the mouse beside it";
    Run(kPressedLookPassed);
    EXPECT_EQ(Shows(), "menu");
}

TEST_F(FocusTest, ViewsOpenAndCloseByTheKeyboard) {
    // What is typed one after another, with the pressed look's time between, and what shows then.
    for (const auto& [keys, shows, armed] :
         {std::tuple{"TUE", "credits", false},
          {"Q", "menu", false},
          {"E", "credits", false},  // the focus has stayed on its button
          {"TE", "menu", false},
          {"UUUE", "keys", false},
          {"E", "keys", true},
          {"T", "keys", true},   // no key to bind, and nothing for the focus
          {"Q", "keys", false},  // the slot first
          {"E", "keys", true},
          {"U", "keys", false},  // bound
          {"Q", "menu", false},
          {"E", "keys", false},
          {"LUDDDDDE", "menu", false}}) {
        if (!IsRunning()) Start();
        Type(keys);
        Run(kPressedLookPassed);
        EXPECT_EQ(Shows(), shows) << keys;
        EXPECT_EQ(!theMenuScreen->IsEnabled(MenuButton::Reset), armed) << keys;
    }
    EXPECT_EQ(keyBindings.Key(Action::Rotate, Side::Left), VK_UP);
    EXPECT_EQ(keyBindings.Key(Action::Rotate, Side::Right), 'W') << "they have changed places";
}

TEST_F(FocusTest, AHeldKeyMovesButPressesOnlyOnce) {
    Start();
    Repeat(VK_DOWN);
    EXPECT_FALSE(focusShowing) << "it was held for something else";
    Type("TUUUUE");
    Run(kPressedLookPassed);
    ASSERT_EQ(Shows(), "keys");
    Repeat(VK_RETURN);
    EXPECT_TRUE(theMenuScreen->IsEnabled(MenuButton::Reset));
    Type("E");
    Repeat(VK_RETURN);
    EXPECT_FALSE(theMenuScreen->IsEnabled(MenuButton::Reset)) << "it waits for another press";
    Type("E");
    EXPECT_EQ(keyBindings.Key(Action::Rotate, Side::Left), VK_RETURN);
    Repeat(VK_DOWN);
    Type("E");
    Type("S");
    EXPECT_EQ(keyBindings.Key(Action::Drop, Side::Left), VK_SPACE);
}

TEST_F(FocusTest, TheMouseAndAGameHideTheFocus) {
    Start();
    Type("T");
    EXPECT_TRUE(focusShowing);
    Click(60, 470);
    EXPECT_FALSE(focusShowing);
    Type("TU");
    Command(kCmdNewGame);
    EXPECT_FALSE(focusShowing);
    Type("TE");
    EXPECT_FALSE(focusShowing) << "keys of the game";
}

TEST_F(FocusTest, OnePlayerNeedsNoMouseFromGameToGame) {
    theSettings.players = 1;
    for (const bool windowed : {true, false}) {
        theSettings.windowed = windowed;
        theSettings.fullscreenBpp = 32;
        folder.Write("data/hs.dat", std::vector<std::byte>(14));  // rows without points
        Start();
        Type("TE");
        Run(kPressedLookPassed);
        ASSERT_EQ(Shows(), "game right");
        EndGame(*rightPlayer, 2);
        Frame();
        ASSERT_EQ(Shows(), "scores");
        Press('K');
        Type("TE");
        EXPECT_EQ(theHighScoreScreen->Table().Row(0).Name().substr(0, 2), "K ");
        EXPECT_FALSE(focusShowing) << "Tab was the name's";
        Frame();
        Type("TE");
        Run(kPressedLookPassed);
        EXPECT_EQ(Shows(), "game right");
        Command(kCmdGotoMenu);
        Command(kCmdHighScores);
        Type("TLS");
        Run(kPressedLookPassed);
        EXPECT_EQ(Shows(), "menu");
    }
}

TEST_F(FocusTest, AGameWaitsWhileTheWindowMenuHasTheKeyboard) {
    for (const bool popup : {true, false}) {
        Start();
        Command(kCmdNewGame);
        Frame();
        EXPECT_FALSE(rightPlayer->IsPaused());
        popup ? Press('M', kModAlt) : Press(VK_F10);
        EXPECT_TRUE(rightPlayer->IsPaused() && leftPlayer->IsPaused());
        Type(popup ? "QQ" : "Q");
        EXPECT_EQ(Shows(), "game right left");
        EXPECT_TRUE(rightPlayer->IsPaused()) << "the player says when it goes on";
    }
}

}  // namespace
}  // namespace korvane
