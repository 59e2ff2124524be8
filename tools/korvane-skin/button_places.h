#pragma once

#include <algorithm>
#include <array>
#include <string_view>

#include "screens/menu_buttons.h"

namespace korvane {

/// A button as a screen of the game shows it.
struct ButtonPlace {
    std::string_view name;
    std::string_view view;  ///< the screen, or the part of the menu, that shows it
    std::string_view picture;
    std::string_view disabledPicture;  ///< empty: the button is never disabled
    POINT at;
};

constexpr std::string_view ViewOf(MenuButton button) {
    if (button < MenuButton::CreditsBack) return "menu";
    return button == MenuButton::CreditsBack ? "credits" : "keys";
}

constexpr ButtonPlace PlaceOf(const ButtonRow& row, std::string_view view) {
    return {row.name, view, row.picture, row.disabledPicture ? row.disabledPicture : "", row.at};
}

/// The slots of the key configuration in the order of data/keys.dat.
inline constexpr std::array<std::string_view, 2 * kActionCount> kSlotNames = {
    "RightRotateKey", "RightDropKey", "RightLeftKey", "RightRightKey", "RightPauseKey",
    "LeftRotateKey",  "LeftDropKey",  "LeftLeftKey",  "LeftRightKey",  "LeftPauseKey"};

/// All buttons of all screens.
inline constexpr auto kButtonPlaces = [] {
    std::array<ButtonPlace, kMenuButtons.size() + kHighScoreButtons.size() + kSlotNames.size()>
        places;
    std::size_t next = 0;
    for (std::size_t i = 0; i < kMenuButtons.size(); ++i)
        places[next++] = PlaceOf(kMenuButtons[i], ViewOf(static_cast<MenuButton>(i)));
    for (const ButtonRow& row : kHighScoreButtons)
        places[next++] = PlaceOf(row, "high scores");
    for (std::size_t i = 0; i < kSlotNames.size(); ++i) {
        const Side side = i < kActionCount ? Side::Right : Side::Left;
        const POINT at = KeySlotPlace(static_cast<Action>(i % kActionCount), side);
        places[next++] = {kSlotNames[i], "keys", kKeySlotFile, "", at};
    }
    return places;
}();

constexpr bool ShowsPicture(const ButtonPlace& place, std::string_view file) {
    return place.picture == file || place.disabledPicture == file;
}

/// The greatest x and the greatest y at which buttons show a picture. A picture that no button
/// shows does not compile.
constexpr POINT FarthestPlace(std::string_view file) {
    POINT farthest{-1, -1};
    for (const ButtonPlace& place : kButtonPlaces)
        if (ShowsPicture(place, file))
            farthest = {std::max(farthest.x, place.at.x), std::max(farthest.y, place.at.y)};
    if (farthest.x < 0) throw "no button shows this picture";
    return farthest;
}

/// The picture of the button that shows a file while it is disabled; empty for any other file.
constexpr std::string_view EnabledPicture(std::string_view file) {
    for (const ButtonPlace& place : kButtonPlaces)
        if (place.disabledPicture == file) return place.picture;
    return {};
}

}  // namespace korvane
