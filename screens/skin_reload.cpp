#include "screens/skin_reload.h"

#include "audio/music_player.h"
#include "game/frame/game_art.h"
#include "game/frame/game_frame.h"
#include "gfx/bitmap_font.h"
#include "gfx/display.h"
#include "gfx/missing_skin.h"
#include "gfx/skin.h"
#include "screens/high_score_screen.h"
#include "screens/menu_screen.h"

namespace korvane {

void ReloadSkinGraphics() {
    if (currentDisplay) {
        currentDisplay->FrontBuffer()->Restore();
        currentDisplay->BackBuffer()->Restore();
    }
    pictureBudget.Begin();
    if (theFont) theFont->Reload();
    if (theMenuScreen) theMenuScreen->ReloadPictures();
    if (theHighScoreScreen) theHighScoreScreen->ReloadPictures();
    theGameArt.Reload();
    missingSkinNotice.Refresh();
}

void ReloadSkinAudio() {
    rightPlayer->LoadPlayerSounds();
    leftPlayer->LoadPlayerSounds();
    theMenuScreen->LoadButtonSound();
    theGameArt.LoadLevelSound();
    theMusic.Load();
    theMusic.Play();
}

}  // namespace korvane
