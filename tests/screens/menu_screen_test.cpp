#include "screens/menu_screen.h"

#include <algorithm>
#include <initializer_list>
#include <utility>

#include "app/state/process_state.h"
#include "app/state/settings.h"
#include "game/rules/key_bindings.h"
#include "platform/base/virtual_keys.h"
#include "platform/headless/headless_host.h"
#include "tests/support/program_fixture.h"
#include "tests/support/shown_box.h"

namespace korvane {
namespace {

using enum MenuButton;

struct Place {
    MenuButton button;
    MenuAction action;
    const char* picture;
    int x, y, width, height;
    bool needsTwoPlayers = false;
    bool isPressed = false;  ///< a hit flips its look
};

// The main view for two players with audio, in which every button is in use.
const Place kMainView[] = {
    {OnePlayer, kMenuOnePlayer, "menu/1playerbutt", 156, 143, 118, 36},
    {TwoPlayers, kMenuTwoPlayers, "menu/2playerbutt", 156, 183, 118, 36},
    {ConfigureKeys, kMenuConfigureKeys, "menu/confbutt", 156, 223, 118, 36, false, true},
    {Music, kMenuMusic, "menu/musicbutt", 156, 263, 118, 36},
    {SoundEffects, kMenuSoundEffects, "menu/sfxbutt", 156, 303, 118, 36},
    {About, kMenuCredits, "menu/aboutbutt", 156, 343, 118, 36, false, true},
    {MenuButton::Start, kMenuStart, "menu/startbutt", 156, 403, 118, 36, false, true},
    {Quit, kMenuQuit, "menu/quitbutt", 278, 403, 118, 36, false, true},
    {Quakes, kMenuQuakes, "menu/quakebutt", 278, 343, 118, 36},
    {Battle, kMenuBattle, "menu/battlebutt", 400, 343, 118, 36, true},
    {RightEasy, kMenuRightEasy, "menu/easybutt", 391, 140, 109, 32},
    {RightMedium, kMenuRightMedium, "menu/mediumbutt", 391, 174, 109, 32},
    {RightHard, kMenuRightHard, "menu/hardbutt", 391, 208, 109, 32},
    {LeftEasy, kMenuLeftEasy, "menu/easybutt", 278, 140, 109, 32, true},
    {LeftMedium, kMenuLeftMedium, "menu/mediumbutt", 278, 174, 109, 32, true},
    {LeftHard, kMenuLeftHard, "menu/hardbutt", 278, 208, 109, 32, true},
    {RightCounterClockwise, kMenuRightCounterClockwise, "menu/ccwrotbutt", 391, 259, 44, 32},
    {RightClockwise, kMenuRightClockwise, "menu/cwrotbutt", 437, 259, 44, 32},
    {LeftCounterClockwise, kMenuLeftCounterClockwise, "menu/ccwrotbutt", 278, 259, 44, 32, true},
    {LeftClockwise, kMenuLeftClockwise, "menu/cwrotbutt", 324, 259, 44, 32, true},
    {RightTime, kMenuRightTime, "menu/timebutt", 391, 293, 109, 32},
    {LeftTime, kMenuLeftTime, "menu/timebutt", 278, 293, 109, 32, true},
};
static_assert(std::size(kMainView) == static_cast<std::size_t>(CreditsBack));

class MenuScreenTest : public ProgramFixture {
  protected:
    /// With every button of the main view in use.
    void StartWithEverything() {
        theSettings.players = 2;
        Start();
        audioReady = true;
        Frame();
    }

    static MenuAction At(const Place& place, int dx, int dy) {
        return theMenuScreen->Click(place.x + dx, place.y + dy);
    }

    static void ExpectSelected(std::initializer_list<MenuButton> selected) {
        for (int i = 0; i < static_cast<int>(Count); ++i) {
            const auto button = static_cast<MenuButton>(i);
            const bool want = std::find(selected.begin(), selected.end(), button) != selected.end();
            EXPECT_EQ(theMenuScreen->IsSelected(button), want) << "button " << i;
        }
    }
};

TEST_F(MenuScreenTest, AButtonIsHitInsideItsFrameAndNotOnItsBorder) {
    StartWithEverything();
    for (const Place& place : kMainView) {
        SCOPED_TRACE(place.picture);
        const int w = place.width;
        const int h = place.height;
        for (const auto& [dx, dy] : {std::pair{0, 1}, {w, 1}, {1, 0}, {1, h}, {0, 0}, {w, h}})
            EXPECT_EQ(At(place, dx, dy), kMenuNothing) << dx << ", " << dy;
        const bool before = theMenuScreen->IsSelected(place.button);
        EXPECT_EQ(At(place, 1, 1), place.action);
        EXPECT_EQ(theMenuScreen->IsSelected(place.button), before != place.isPressed);
        EXPECT_EQ(At(place, w - 1, h - 1), place.action);
        EXPECT_EQ(theMenuScreen->IsSelected(place.button), before);
    }
}

TEST_F(MenuScreenTest, WhatOnePlayerDoesNotNeedIsOutOfUse) {
    Start();
    audioReady = true;
    Frame();
    for (const Place& place : kMainView) {
        EXPECT_EQ(theMenuScreen->IsEnabled(place.button), !place.needsTwoPlayers) << place.picture;
        const MenuAction want = place.needsTwoPlayers ? kMenuNothing : place.action;
        EXPECT_EQ(At(place, 5, 5), want) << place.picture;
    }
}

TEST_F(MenuScreenTest, MusicAndSoundEffectsAreOutOfUseWithoutAudio) {
    Headless().RefuseSound(true);
    const BoxAnswerer boxes({"Can't initialize digital sound system\n(error code: 3)"});
    Start();
    EXPECT_EQ(theMenuScreen->Click(160, 270), kMenuNothing);
    EXPECT_EQ(theMenuScreen->Click(160, 310), kMenuNothing);
    EXPECT_EQ(Seen(160, 270), "menu/musicbutt2 1") << "on, and out of use";
    theMenuScreen->ToggleSfxButton();
    Frame();
    EXPECT_EQ(Seen(160, 310), "menu/sfxbutt2 0");
    audioReady = true;
    Frame();
    EXPECT_EQ(theMenuScreen->Click(160, 270), kMenuMusic);
    EXPECT_EQ(Seen(160, 270), "menu/musicbutt 1");
}

TEST_F(MenuScreenTest, NonsenseInTheSettingsGivesOnePlayerAndNoDifficulty) {
    theSettings.players = 7;
    theSettings.difficulty = {3, -1};
    Start();
    ExpectSelected(
        {OnePlayer, RightCounterClockwise, LeftCounterClockwise, Music, SoundEffects, Quakes});
    EXPECT_FALSE(theMenuScreen->IsEnabled(LeftEasy));
    EXPECT_EQ(theMenuScreen->PlayersFromButtons(), 1);
}

TEST_F(MenuScreenTest, OnePlayerEndsBattleForGood) {
    theSettings.players = 2;
    theSettings.battle = true;
    Start();
    theMenuScreen->SelectOnePlayer();
    EXPECT_FALSE(theSettings.battle);
    theMenuScreen->SelectTwoPlayers();
    EXPECT_FALSE(theMenuScreen->IsSelected(Battle));
    EXPECT_TRUE(theMenuScreen->IsEnabled(Battle));
    EXPECT_EQ(theMenuScreen->PlayersFromButtons(), 2);
}

TEST_F(MenuScreenTest, WhileASlotWaitsThereIsNoWayBackAndNoReset) {
    Start();
    theMenuScreen->ToggleKeyConfigView();
    EXPECT_EQ(theMenuScreen->Click(340, 110), kMenuSlotArmed);
    Frame();
    EXPECT_EQ(Seen(185, 445), "menu/backbutt2 0");
    EXPECT_EQ(Seen(330, 445), "menu/resetbutt2 0");
    EXPECT_EQ(theMenuScreen->Click(185, 445), kMenuNothing);
    EXPECT_EQ(theMenuScreen->Click(330, 445), kMenuNothing);
    theMenuScreen->OnKeyConfigKey('I');
    Frame();
    EXPECT_EQ(Seen(185, 445), "menu/backbutt 0");
    EXPECT_EQ(keyBindings.Key(Action::Rotate, Side::Right), 'I');
    EXPECT_EQ(theMenuScreen->Click(330, 445), kMenuKeysReset);
    EXPECT_EQ(keyBindings.Key(Action::Rotate, Side::Right), VK_UP);
}

}  // namespace
}  // namespace korvane
