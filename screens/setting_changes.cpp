#include "screens/setting_changes.h"

#include "audio/music_player.h"

namespace korvane {

void ChooseOnePlayer() {
    theSettings.players = 1;
    theMenuScreen->SelectOnePlayer();
}

void ChooseTwoPlayers() {
    theSettings.players = 2;
    theMenuScreen->SelectTwoPlayers();
}

void ToggleQuakes() {
    theSettings.quakes = !theSettings.quakes;
    theMenuScreen->ToggleQuakesButton();
}

void ToggleBattle() {
    theSettings.battle = !theSettings.battle;
    theMenuScreen->ToggleBattleButton();
}

void ToggleMusic() {
    theMenuScreen->ToggleMusicButton();
    theSettings.music = !theSettings.music;
    if (theSettings.music) {
        theMusic.Play();
    } else {
        theMusic.Stop();
    }
}

void ToggleSoundEffects() {
    theSettings.soundEffects = !theSettings.soundEffects;
    theMenuScreen->ToggleSfxButton();
}

}  // namespace korvane
