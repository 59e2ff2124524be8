#include "app/menu_states.h"

#include <array>

#include "app/state/process_state.h"
#include "app/state/settings.h"
#include "game/frame/game_frame.h"
#include "res/commands.h"

namespace korvane {
namespace {

/// One player's popup. The difficulties stand in their order.
struct PlayerItems {
    Side side;
    std::array<Command, kDifficultyCount> difficulties;
    Command clockwise;
    Command timeBased;
};

constexpr PlayerItems kRightItems = {Side::Right,
                                     {kCmdRightEasy, kCmdRightMedium, kCmdRightHard},
                                     kCmdRightClockwise,
                                     kCmdRightTimeBased};
constexpr PlayerItems kLeftItems = {
    Side::Left, {kCmdLeftEasy, kCmdLeftMedium, kCmdLeftHard}, kCmdLeftClockwise, kCmdLeftTimeBased};

void Check(HMENU menu, Command command, bool checked) {
    CheckMenuItem(menu, command, checked ? MF_CHECKED : MF_UNCHECKED);
}

void Enable(HMENU menu, Command command, bool enabled) {
    EnableMenuItem(menu, command, enabled ? MF_ENABLED : MF_GRAYED);
}

bool HasJoined(const Player* player) {
    return player && player->IsJoined();
}

void CheckPlayerItems(HMENU menu, const PlayerItems& items) {
    const std::size_t side = IndexOf(items.side);
    for (std::size_t i = 0; i < items.difficulties.size(); ++i)
        Check(menu, items.difficulties[i],
              theSettings.difficulty[side] == static_cast<std::int32_t>(i));
    Check(menu, items.timeBased, theSettings.timeBased[side]);
    Check(menu, items.clockwise, theSettings.clockwise[side]);
}

/// What decides how a game goes can only be chosen before it.
void EnableGameItems(HMENU menu, const PlayerItems& items, bool enabled) {
    for (const Command difficulty : items.difficulties)
        Enable(menu, difficulty, enabled);
    Enable(menu, items.timeBased, enabled);
}

void SetPlayersStates(HMENU menu) {
    const bool alone = theSettings.players == 1;
    Check(menu, kCmdOnePlayer, alone);
    Check(menu, kCmdTwoPlayers, !alone);
    Enable(menu, kCmdBattle, !alone && menuShowing);
    EnableGameItems(menu, kRightItems, !HasJoined(rightPlayer.get()));
    EnableGameItems(menu, kLeftItems, !alone && !HasJoined(leftPlayer.get()));
    Enable(menu, kCmdLeftClockwise, !alone);
}

void EnableScreenItems(HMENU menu) {
    for (const Command command : {kCmdLeftRestart, kCmdRightRestart, kCmdGotoMenu})
        Enable(menu, command, !menuShowing);
    for (const Command command : {kCmdHighScores, kCmdOnePlayer, kCmdTwoPlayers})
        Enable(menu, command, menuShowing);
}

}  // namespace

void SetMenuStates(HMENU menu) {
    Check(menu, kCmdShowFps, showFps);
    Check(menu, kCmdQuakes, theSettings.quakes);
    Check(menu, kCmdBattle, theSettings.battle);
    Check(menu, kCmdMusic, theSettings.music);
    Check(menu, kCmdSoundEffects, theSettings.soundEffects);
    SetPlayersStates(menu);
    EnableScreenItems(menu);
    CheckPlayerItems(menu, kRightItems);
    CheckPlayerItems(menu, kLeftItems);
    Enable(menu, kCmdMusic, audioReady);
    Enable(menu, kCmdSoundEffects, audioReady);
    Enable(menu, kCmdToggleFullScreen, theSettings.fullscreenBpp != 0);
}

}  // namespace korvane
