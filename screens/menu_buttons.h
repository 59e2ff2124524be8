#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "app/state/settings.h"
#include "game/rules/key_bindings.h"
#include "platform/base/types.h"

namespace korvane {

/// The menu's buttons: first those of the main view in the order in which it draws them.
enum class MenuButton : std::uint8_t {
    OnePlayer,
    TwoPlayers,
    RightEasy,
    RightMedium,
    RightHard,
    LeftEasy,
    LeftMedium,
    LeftHard,
    RightTime,
    LeftTime,
    RightCounterClockwise,
    RightClockwise,
    LeftCounterClockwise,
    LeftClockwise,
    Battle,
    Quakes,
    Music,
    SoundEffects,
    ConfigureKeys,
    Start,
    Quit,
    About,
    CreditsBack,
    KeyConfigBack,
    Reset,
    Count,
};

/// A button of a screen. All places of buttons stand in the tables below: the screens, the tool for
/// skins, the sources of the pictures and the tour read them from here.
struct ButtonRow {
    const char* name;
    const char* picture;
    const char* disabledPicture;  ///< null: the button is never disabled
    POINT at;                     ///< its left top corner in the frame
};

/// The menu's buttons, in the order of MenuButton.
inline constexpr std::array kMenuButtons = {
    ButtonRow{"OnePlayer", "menu\\1playerbutt.bmp", nullptr, {156, 143}},
    ButtonRow{"TwoPlayers", "menu\\2playerbutt.bmp", nullptr, {156, 183}},
    ButtonRow{"RightEasy", "menu\\easybutt.bmp", nullptr, {391, 140}},
    ButtonRow{"RightMedium", "menu\\mediumbutt.bmp", nullptr, {391, 174}},
    ButtonRow{"RightHard", "menu\\hardbutt.bmp", nullptr, {391, 208}},
    ButtonRow{"LeftEasy", "menu\\easybutt.bmp", "menu\\easybutt2.bmp", {278, 140}},
    ButtonRow{"LeftMedium", "menu\\mediumbutt.bmp", "menu\\mediumbutt2.bmp", {278, 174}},
    ButtonRow{"LeftHard", "menu\\hardbutt.bmp", "menu\\hardbutt2.bmp", {278, 208}},
    ButtonRow{"RightTime", "menu\\timebutt.bmp", nullptr, {391, 293}},
    ButtonRow{"LeftTime", "menu\\timebutt.bmp", "menu\\timebutt2.bmp", {278, 293}},
    ButtonRow{"RightCounterClockwise", "menu\\ccwrotbutt.bmp", nullptr, {391, 259}},
    ButtonRow{"RightClockwise", "menu\\cwrotbutt.bmp", nullptr, {437, 259}},
    ButtonRow{"LeftCounterClockwise", "menu\\ccwrotbutt.bmp", "menu\\ccwrotbutt2.bmp", {278, 259}},
    ButtonRow{"LeftClockwise", "menu\\cwrotbutt.bmp", "menu\\cwrotbutt2.bmp", {324, 259}},
    ButtonRow{"Battle", "menu\\battlebutt.bmp", "menu\\battlebutt2.bmp", {400, 343}},
    ButtonRow{"Quakes", "menu\\quakebutt.bmp", nullptr, {278, 343}},
    ButtonRow{"Music", "menu\\musicbutt.bmp", "menu\\musicbutt2.bmp", {156, 263}},
    ButtonRow{"SoundEffects", "menu\\sfxbutt.bmp", "menu\\sfxbutt2.bmp", {156, 303}},
    ButtonRow{"ConfigureKeys", "menu\\confbutt.bmp", nullptr, {156, 223}},
    ButtonRow{"Start", "menu\\startbutt.bmp", nullptr, {156, 403}},
    ButtonRow{"Quit", "menu\\quitbutt.bmp", nullptr, {278, 403}},
    ButtonRow{"About", "menu\\aboutbutt.bmp", nullptr, {156, 343}},
    ButtonRow{"CreditsBack", "menu\\backbutt.bmp", nullptr, {269, 435}},
    ButtonRow{"KeyConfigBack", "menu\\backbutt.bmp", "menu\\backbutt2.bmp", {180, 440}},
    ButtonRow{"Reset", "menu\\resetbutt.bmp", "menu\\resetbutt2.bmp", {324, 440}},
};
static_assert(kMenuButtons.size() == static_cast<std::size_t>(MenuButton::Count));

enum class HighScoreButton : std::uint8_t { Menu, Play, Count };

/// The buttons of the high-score screen, in the order of HighScoreButton.
inline constexpr std::array kHighScoreButtons = {
    ButtonRow{"ScoresMenu", "HighScore\\menubutt.bmp", "HighScore\\menuButt2.bmp", {208, 439}},
    ButtonRow{"ScoresPlay", "HighScore\\playButt.bmp", "HighScore\\playButt2.bmp", {328, 439}},
};
static_assert(kHighScoreButtons.size() == static_cast<std::size_t>(HighScoreButton::Count));

/// The picture of all slots of the key configuration.
inline constexpr const char* kKeySlotFile = "KeyConfig\\keybuttongrey.bmp";
/// Where the glyph of the bound key stands in a slot.
inline constexpr POINT kGlyphInSlot{18, 10};

/// Where the slot for one player's key stands. The right player's column is the right one.
constexpr POINT KeySlotPlace(Action action, Side side) {
    constexpr std::int32_t kFirstSlotY = 105;
    constexpr std::int32_t kSlotPitch = 66;
    return {side == Side::Right ? 335 : 165, kFirstSlotY + kSlotPitch * static_cast<int>(action)};
}

}  // namespace korvane
