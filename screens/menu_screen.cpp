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

using enum MenuButton;

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

/// The main view's buttons in the order of Tab: column by column as they stand, Start first seen.
constexpr std::array kTabOrder = {
    OnePlayer,
    TwoPlayers,
    ConfigureKeys,
    Music,
    SoundEffects,
    About,
    Start,
    LeftEasy,
    LeftMedium,
    LeftHard,
    LeftCounterClockwise,
    LeftClockwise,
    LeftTime,
    Quakes,
    RightEasy,
    RightMedium,
    RightHard,
    RightCounterClockwise,
    RightClockwise,
    RightTime,
    Battle,
    Quit,
};
static_assert(kTabOrder.size() == static_cast<std::size_t>(CreditsBack));

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
      buttons_(MakeButtons()),
      mainFocus_(MakeMainFocus()),
      keyConfigFocus_(MakeKeyConfigFocus()),
      creditsFocus_({&At(CreditsBack)}) {
    LoadButtonSound();
    ApplySettings();
}

MenuScreen::Buttons MenuScreen::MakeButtons() {
    Buttons buttons;
    std::ranges::transform(kMenuButtons, buttons.begin(), [](const ButtonRow& row) {
        return row.disabledPicture
                   ? std::make_unique<Button>(row.picture, row.disabledPicture, row.at.x, row.at.y)
                   : std::make_unique<Button>(row.picture, row.at.x, row.at.y);
    });
    return buttons;
}

KeyboardFocus MenuScreen::MakeMainFocus() const {
    std::vector<const Button*> stops;
    for (const MenuButton button : kTabOrder)
        stops.push_back(&At(button));
    const auto start = std::ranges::find(kTabOrder, Start) - kTabOrder.begin();
    return KeyboardFocus(std::move(stops), static_cast<std::size_t>(start));
}

KeyboardFocus MenuScreen::MakeKeyConfigFocus() const {
    std::vector<const Button*> stops = keyConfig_.Slots();
    stops.push_back(&At(KeyConfigBack));
    stops.push_back(&At(Reset));
    return KeyboardFocus(std::move(stops));
}

KeyboardFocus& MenuScreen::Focus() {
    return keyConfigView_ ? keyConfigFocus_ : creditsView_ ? creditsFocus_ : mainFocus_;
}

const Button* MenuScreen::BackButton() const {
    return keyConfigView_ ? &At(KeyConfigBack) : creditsView_ ? &At(CreditsBack) : nullptr;
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

bool MenuScreen::OnKeyConfigKey(std::uint8_t key) {
    const bool waiting = keyConfig_.IsSlotArmed();
    if (keyConfig_.CaptureKey(key)) SetKeyConfigEnabled(true);
    return waiting;
}

bool MenuScreen::DisarmSlot() {
    if (!keyConfig_.DisarmSlot()) return false;
    SetKeyConfigEnabled(true);
    return true;
}

void MenuScreen::SetKeyConfigEnabled(bool enabled) {
    At(KeyConfigBack).SetEnabled(enabled);
    At(Reset).SetEnabled(enabled);
}

void MenuScreen::ToggleKeyConfigView() {
    keyConfigView_ = !keyConfigView_;
    keyConfigFocus_.Restart();
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
    Focus().Draw();
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
