#include "screens/menu_screen.h"

#include <algorithm>
#include <string_view>

#include "app/state/process_state.h"
#include "gfx/bitmap_font.h"
#include "screens/menu_press.h"
#include "screens/screen_background.h"

namespace korvane {

std::unique_ptr<MenuScreen> theMenuScreen;

namespace {

constexpr const char* kLogoFile = "menu\\logo.bmp";
constexpr const char* kLeftHeadingFile = "menu\\LeftPlayer.bmp";
constexpr const char* kRightHeadingFile = "menu\\RightPlayer.bmp";

struct ButtonRow {
    MenuButton button;
    const char* picture;
    const char* disabledPicture;  ///< null: the button is never disabled
    std::int32_t x;
    std::int32_t y;
};

using enum MenuButton;

constexpr std::array kButtonRows = {
    ButtonRow{OnePlayer, "menu\\1playerbutt.bmp", nullptr, 156, 143},
    ButtonRow{TwoPlayers, "menu\\2playerbutt.bmp", nullptr, 156, 183},
    ButtonRow{RightEasy, "menu\\easybutt.bmp", nullptr, 391, 140},
    ButtonRow{RightMedium, "menu\\mediumbutt.bmp", nullptr, 391, 174},
    ButtonRow{RightHard, "menu\\hardbutt.bmp", nullptr, 391, 208},
    ButtonRow{LeftEasy, "menu\\easybutt.bmp", "menu\\easybutt2.bmp", 278, 140},
    ButtonRow{LeftMedium, "menu\\mediumbutt.bmp", "menu\\mediumbutt2.bmp", 278, 174},
    ButtonRow{LeftHard, "menu\\hardbutt.bmp", "menu\\hardbutt2.bmp", 278, 208},
    ButtonRow{RightTime, "menu\\timebutt.bmp", nullptr, 391, 293},
    ButtonRow{LeftTime, "menu\\timebutt.bmp", "menu\\timebutt2.bmp", 278, 293},
    ButtonRow{RightCounterClockwise, "menu\\ccwrotbutt.bmp", nullptr, 391, 259},
    ButtonRow{RightClockwise, "menu\\cwrotbutt.bmp", nullptr, 437, 259},
    ButtonRow{LeftCounterClockwise, "menu\\ccwrotbutt.bmp", "menu\\ccwrotbutt2.bmp", 278, 259},
    ButtonRow{LeftClockwise, "menu\\cwrotbutt.bmp", "menu\\cwrotbutt2.bmp", 324, 259},
    ButtonRow{Battle, "menu\\battlebutt.bmp", "menu\\battlebutt2.bmp", 400, 343},
    ButtonRow{Quakes, "menu\\quakebutt.bmp", nullptr, 278, 343},
    ButtonRow{Music, "menu\\musicbutt.bmp", "menu\\musicbutt2.bmp", 156, 263},
    ButtonRow{SoundEffects, "menu\\sfxbutt.bmp", "menu\\sfxbutt2.bmp", 156, 303},
    ButtonRow{ConfigureKeys, "menu\\confbutt.bmp", nullptr, 156, 223},
    ButtonRow{Start, "menu\\startbutt.bmp", nullptr, 156, 403},
    ButtonRow{Quit, "menu\\quitbutt.bmp", nullptr, 278, 403},
    ButtonRow{About, "menu\\aboutbutt.bmp", nullptr, 156, 343},
    ButtonRow{CreditsBack, "menu\\backbutt.bmp", nullptr, 269, 435},
    ButtonRow{KeyConfigBack, "menu\\backbutt.bmp", "menu\\backbutt2.bmp", 180, 440},
    ButtonRow{Reset, "menu\\resetbutt.bmp", "menu\\resetbutt2.bmp", 324, 440},
};

constexpr bool RowsStandInOrder() {
    for (std::size_t i = 0; i < kButtonRows.size(); ++i)
        if (kButtonRows[i].button != static_cast<MenuButton>(i)) return false;
    return kButtonRows.size() == static_cast<std::size_t>(MenuButton::Count);
}
static_assert(RowsStandInOrder());

struct CreditsLine {
    std::string_view text;
    std::int32_t x;
    std::int32_t y;
};

// The font has no dot: a colon stands for it.
constexpr std::array kCredits = {
    CreditsLine{"KORVANE VERSION 1:53", 110, 116}, CreditsLine{"11:05:2002", 225, 148},
    CreditsLine{"PROGRAMMING", 225, 196},          CreditsLine{"MORLAX", 225, 212},
    CreditsLine{"ORIGINAL GRAPHICS", 225, 244},    CreditsLine{"MORLAX; TIBREN", 225, 260},
    CreditsLine{"ORIGINAL MUSIC", 225, 292},       CreditsLine{"OSKIVE", 225, 308},
    CreditsLine{"KORVANE:EXAMPLE", 165, 372},
};

/// The buttons that only a game for two needs, besides Battle.
constexpr std::array kLeftColumn = {LeftEasy,      LeftMedium, LeftHard, LeftCounterClockwise,
                                    LeftClockwise, LeftTime};

// By side, the right player's first.
constexpr std::array<std::array<MenuButton, kDifficultyCount>, 2> kDifficultyButtons = {
    {{RightEasy, RightMedium, RightHard}, {LeftEasy, LeftMedium, LeftHard}}};
constexpr std::array kTimeButtons = {RightTime, LeftTime};
constexpr std::array kClockwiseButtons = {RightClockwise, LeftClockwise};
constexpr std::array kCounterClockwiseButtons = {RightCounterClockwise, LeftCounterClockwise};

}  // namespace

MenuScreen::MenuScreen()
    : logo_(kLogoFile),
      leftHeading_(kLeftHeadingFile),
      rightHeading_(kRightHeadingFile),
      buttons_(MakeButtons()) {
    LoadButtonSound();
    ApplySettings();
}

MenuScreen::Buttons MenuScreen::MakeButtons() {
    Buttons buttons;
    std::ranges::transform(kButtonRows, buttons.begin(), [](const ButtonRow& row) {
        return row.disabledPicture
                   ? std::make_unique<Button>(row.picture, row.disabledPicture, row.x, row.y)
                   : std::make_unique<Button>(row.picture, row.x, row.y);
    });
    return buttons;
}

void MenuScreen::ApplySettings() {
    SetPlayerButtons(/*two=*/theSettings.players == 2);
    for (const Side side : {Side::Right, Side::Left}) {
        const std::size_t i = IndexOf(side);
        SetDifficultyButtons(side, theSettings.difficulty[i]);
        SetRotationButtons(side, theSettings.clockwise[i]);
        Select(kTimeButtons[i], theSettings.timeBased[i]);
    }
    Select(Music, theSettings.music);
    Select(SoundEffects, theSettings.soundEffects);
    Select(Quakes, theSettings.quakes);
    Select(Battle, theSettings.battle && theSettings.players != 1);
}

void MenuScreen::SetPlayerButtons(bool two) {
    Select(OnePlayer, !two);
    Select(TwoPlayers, two);
    for (const MenuButton button : kLeftColumn)
        At(button).SetEnabled(two);
    At(Battle).SetEnabled(two);
}

void MenuScreen::SelectOnePlayer() {
    if (IsSelected(OnePlayer)) return;
    SetPlayerButtons(/*two=*/false);
    Release(Battle);
    theSettings.battle = false;
}

void MenuScreen::SelectTwoPlayers() {
    if (!IsSelected(TwoPlayers)) SetPlayerButtons(/*two=*/true);
}

std::uint8_t MenuScreen::PlayersFromButtons() const {
    return IsSelected(OnePlayer) ? 1 : 2;
}

bool MenuScreen::IsTimeBased(Side side) const {
    return IsSelected(kTimeButtons[IndexOf(side)]);
}

void MenuScreen::ToggleTimeButton(Side side) {
    At(kTimeButtons[IndexOf(side)]).Toggle();
}

void MenuScreen::SetRotationButtons(Side side, bool clockwise) {
    Select(kClockwiseButtons[IndexOf(side)], clockwise);
    Select(kCounterClockwiseButtons[IndexOf(side)], !clockwise);
}

void MenuScreen::SetDifficultyButtons(Side side, std::int32_t level) {
    const auto& buttons = kDifficultyButtons[IndexOf(side)];
    if (level < 0 || level >= static_cast<std::int32_t>(buttons.size())) return;
    for (const MenuButton button : buttons)
        Release(button);
    Select(buttons[static_cast<std::size_t>(level)], true);
}

void MenuScreen::ReloadPictures() {
    logo_.Load(kLogoFile);
    leftHeading_.Load(kLeftHeadingFile);
    rightHeading_.Load(kRightHeadingFile);
    for (const auto& button : buttons_)
        button->Reload();
    keyConfig_.ReloadPictures();
}

void MenuScreen::LoadButtonSound() {
    buttonSound_.reset();
    buttonSound_ = std::make_unique<SoundEffect>("Button.wav");
}

/// Every press is heard but those on Quit and on nothing.
MenuAction MenuScreen::Click(std::int32_t x, std::int32_t y) {
    const MenuAction action = ClickView(x, y);
    if (action > kMenuQuit && MayPlay(kSfxMenuButtons)) buttonSound_->Play();
    return action;
}

MenuAction MenuScreen::ClickView(std::int32_t x, std::int32_t y) {
    if (keyConfigView_) return ClickKeyConfigView(x, y);
    if (creditsView_) return ClickCreditsView(x, y);
    return ClickMainView(x, y);
}

bool MenuScreen::Press(MenuButton button, std::int32_t x, std::int32_t y) {
    return At(button).HitTest(x, y, /*toggle=*/true);
}

MenuAction MenuScreen::ClickMainView(std::int32_t x, std::int32_t y) {
    const auto presses = MainViewPresses();
    const auto hit = std::ranges::find_if(presses, [&](const MenuPress& press) {
        return At(press.button).HitTest(x, y, /*toggle=*/press.effect == Effect::Delayed);
    });
    if (hit == presses.end()) return kMenuNothing;
    if (hit->button == ConfigureKeys) Release(KeyConfigBack);
    return hit->action;
}

MenuAction MenuScreen::ClickCreditsView(std::int32_t x, std::int32_t y) {
    return Press(CreditsBack, x, y) ? kMenuCredits : kMenuNothing;
}

MenuAction MenuScreen::ClickKeyConfigView(std::int32_t x, std::int32_t y) {
    if (Press(KeyConfigBack, x, y)) {
        Release(Reset);
        Release(ConfigureKeys);
        return kMenuKeyConfigBack;
    }
    if (keyConfig_.ClickSlot(x, y)) {
        Release(Reset);
        SetKeyConfigEnabled(false);
        return kMenuSlotArmed;
    }
    return Press(Reset, x, y) ? PressReset() : kMenuNothing;
}

/// Reset keeps its pressed look, a sign that the keys are the defaults, until a slot or Back is
/// pressed. Another press on it changes nothing.
MenuAction MenuScreen::PressReset() {
    const bool wasPressed = !IsSelected(Reset);
    Select(Reset, true);
    if (wasPressed) return kMenuNothing;
    keyConfig_.ResetToDefaults();
    return kMenuKeysReset;
}

void MenuScreen::OnKeyConfigKey(std::uint8_t key) {
    if (keyConfig_.CaptureKey(key)) SetKeyConfigEnabled(true);
}

void MenuScreen::SetKeyConfigEnabled(bool enabled) {
    At(KeyConfigBack).SetEnabled(enabled);
    At(Reset).SetEnabled(enabled);
}

void MenuScreen::ToggleCreditsView() {
    creditsView_ = !creditsView_;
    Release(About);
    Release(CreditsBack);
}

void MenuScreen::Draw() {
    At(Music).SetEnabled(audioReady);
    At(SoundEffects).SetEnabled(audioReady);
    DrawScreenBackground();
    logo_.DrawKeyed({8, 0});
    if (keyConfigView_) {
        DrawKeyConfigView();
    } else if (creditsView_) {
        DrawCreditsView();
    } else {
        DrawMainView();
    }
}

void MenuScreen::DrawKeyConfigView() const {
    keyConfig_.Draw();
    DrawButton(KeyConfigBack);
    DrawButton(Reset);
}

void MenuScreen::DrawCreditsView() const {
    for (const CreditsLine& line : kCredits)
        theFont->DrawTextWide(line.text, line.x, line.y);
    DrawButton(CreditsBack);
}

void MenuScreen::DrawMainView() const {
    DrawButton(OnePlayer);
    DrawButton(TwoPlayers);
    leftHeading_.DrawKeyed({278, 128});
    rightHeading_.DrawKeyed({391, 128});
    for (auto i = static_cast<std::size_t>(RightEasy); i <= static_cast<std::size_t>(About); ++i)
        buttons_[i]->Draw();
}

}  // namespace korvane
