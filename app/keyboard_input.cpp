#include "app/keyboard_input.h"

#include "app/mouse_input.h"
#include "app/state/process_state.h"
#include "app/state/settings.h"
#include "game/frame/game_frame.h"
#include "game/rules/key_bindings.h"
#include "platform/base/virtual_keys.h"
#include "platform/window/messages.h"
#include "screens/high_score_screen.h"
#include "screens/keyboard_focus.h"
#include "screens/menu_screen.h"

namespace korvane {
namespace {

/// The key that pressed what has the focus, until another press; 0 for none. Its automatic repeat
/// must not act on what the press has opened: bind itself to a slot, or steer.
std::uint8_t focusPressKey = 0;

/// Who types a name, the right player first; null when nobody does.
Player* TypingPlayer() {
    for (Player* player : BothPlayers())
        if (player->HighScoreEntered()) return player;
    return nullptr;
}

/// A name that is being typed takes every key.
bool HandleNameKey(std::uint8_t key) {
    Player* const typing = TypingPlayer();
    if (!typing) return false;
    if (theHighScoreScreen->OnNameKey(key)) typing->SetHighScoreEntered(false);
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

void HandleFocusKey(std::uint8_t key, bool repeated) {
    if ((!menuShowing && !highScoresShowing) || GetKeyState(VK_CONTROL)) return;
    // A key that was steering when its game ended must not show the focus.
    if (repeated && !focusShowing) return;
    KeyboardFocus& focus = menuShowing ? theMenuScreen->Focus() : theHighScoreScreen->Focus();
    if (focus.Move(key, /*backwards=*/GetKeyState(VK_SHIFT))) return;
    if (repeated || !focusShowing || (key != VK_RETURN && key != VK_SPACE)) return;
    focusPressKey = key;
    PressAt(focus.Centre());
}

}  // namespace

void OnKeyDown(std::uint8_t key, bool repeated) {
    if (repeated && key == focusPressKey) return;
    focusPressKey = 0;
    if (!BothPlayersExist() || HandleNameKey(key)) return;
    if (!menuShowing && HandleGameKey(key)) return;
    if (theMenuScreen->IsKeyConfigView()) {
        if (theMenuScreen->OnKeyConfigKey(key)) return;
    } else if (key == VK_HOME) {
        nextFigureCheat = !nextFigureCheat;
    }
    HandleFocusKey(key, repeated);
}

void OnEscape() {
    if (!menuShowing || !BothPlayersExist() || TypingPlayer() || theMenuScreen->DisarmSlot())
        return;
    if (const Button* back = theMenuScreen->BackButton()) PressAt(back->Centre());
}

void OnKeyUp(std::uint8_t key) {
    if (menuShowing || !BothPlayersExist()) return;
    for (Player* player : BothPlayers())
        player->KeyUp(key);
}

}  // namespace korvane
