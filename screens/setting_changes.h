#pragma once

#include "app/state/settings.h"
#include "screens/menu_screen.h"

namespace korvane {

// What the buttons of the menu, the window menu and the accelerator keys change: each operation
// changes a setting, the button that shows it, and what the setting governs.

void ChooseOnePlayer();
void ChooseTwoPlayers();
void ToggleQuakes();
void ToggleBattle();
/// Music begins or ends at once.
void ToggleMusic();
void ToggleSoundEffects();

template <Side side, Difficulty difficulty>
void SetDifficulty() {
    constexpr auto kLevel = static_cast<std::int32_t>(difficulty);
    theSettings.difficulty[IndexOf(side)] = kLevel;
    theMenuScreen->SetDifficultyButtons(side, kLevel);
}

/// Which way a player's figures turn.
template <Side side, bool clockwise>
void SetRotation() {
    theSettings.clockwise[IndexOf(side)] = clockwise;
    theMenuScreen->SetRotationButtons(side, clockwise);
}

template <Side side>
void ToggleRotation() {
    theSettings.clockwise[IndexOf(side)] ? SetRotation<side, false>() : SetRotation<side, true>();
}

/// Whether a player's levels go by playing time.
template <Side side>
void ToggleTimeBased() {
    bool& timeBased = theSettings.timeBased[IndexOf(side)];
    timeBased = !timeBased;
    theMenuScreen->ToggleTimeButton(side);
}

}  // namespace korvane
