#include "app/keyboard_input.h"

#include <algorithm>

#include "app/state/process_state.h"
#include "app/state/settings.h"
#include "game/frame/game_frame.h"
#include "game/rules/key_bindings.h"
#include "platform/base/virtual_keys.h"
#include "screens/high_score_screen.h"
#include "screens/menu_screen.h"

namespace korvane {
namespace {

/// A name that is being typed takes every key, the right player's name first.
bool HandleNameKey(std::uint8_t key) {
    const auto players = BothPlayers();
    const auto typing = std::ranges::find_if(players, &Player::HighScoreEntered);
    if (typing == players.end()) return false;
    if (theHighScoreScreen->OnNameKey(key)) (*typing)->SetHighScoreEntered(false);
    return true;
}

/// A pause key stops its player's game or lets it go on, in battle both games.
void TogglePauses(Player& owner) {
    for (Player* player : BothPlayers()) {
        const bool concerned = theSettings.battle ? player->IsJoined() : player == &owner;
        if (concerned) player->TogglePause();
    }
}

bool HandlePauseKey(std::uint8_t key) {
    for (Player* player : {leftPlayer.get(), rightPlayer.get()}) {
        if (!player->IsJoined()) continue;
        if (!keyBindings.IsKeyOf(Action::Pause, player->PlayerSide(), key)) continue;
        TogglePauses(*player);
        return true;
    }
    return false;
}

/// True when the key was a pause key and is done with.
bool HandleGameKey(std::uint8_t key) {
    if (HandlePauseKey(key)) return true;
    for (Player* player : BothPlayers())
        if (player->IsJoined()) player->KeyDown(key);
    return false;
}

}  // namespace

void OnKeyDown(std::uint8_t key) {
    if (!BothPlayersExist() || HandleNameKey(key)) return;
    if (!menuShowing && HandleGameKey(key)) return;
    if (theMenuScreen->IsKeyConfigView()) {
        theMenuScreen->OnKeyConfigKey(key);
    } else if (key == VK_HOME) {
        nextFigureCheat = !nextFigureCheat;
    }
}

void OnKeyUp(std::uint8_t key) {
    if (menuShowing || !BothPlayersExist()) return;
    for (Player* player : BothPlayers())
        player->KeyUp(key);
}

}  // namespace korvane
