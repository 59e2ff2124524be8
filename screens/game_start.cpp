#include "screens/game_start.h"

#include "app/state/process_state.h"
#include "app/state/settings.h"
#include "audio/music_player.h"
#include "game/frame/game_frame.h"
#include "screens/high_score_screen.h"
#include "screens/keyboard_focus.h"
#include "screens/menu_screen.h"

namespace korvane {
namespace {

void Start(Player& player) {
    player.StartGame(theMenuScreen->IsTimeBased(player.PlayerSide()));
}

}  // namespace

void StartPlayers(Starters starters) {
    highScoresShowing = false;
    menuShowing = false;
    focusShowing = false;  // the keys that move it are the players' now
    if (starters != Starters::Left) Start(*rightPlayer);
    if (starters != Starters::Right) Start(*leftPlayer);
}

void StartMatch() {
    theMusic.SetScreen(MusicScreen::Game);
    if (theSettings.players == 1) StartPlayers(Starters::Right);
    if (theSettings.players == 2) {
        rightPlayer->ResetWins();
        leftPlayer->ResetWins();
        StartPlayers(Starters::Both);
    }
    theMenuScreen->ReleaseStartButton();
    theHighScoreScreen->ReleaseButtons();
}

void ShowMenu() {
    theMusic.SetScreen(MusicScreen::Menu);
    theSettings.players = theMenuScreen->PlayersFromButtons();
    rightPlayer->SetJoined(false);
    leftPlayer->SetJoined(false);
    menuShowing = true;
    highScoresShowing = false;
}

}  // namespace korvane
