#include "screens/stage.h"

#include "game/frame/game_art.h"
#include "game/frame/game_frame.h"
#include "game/frame/skin_sounds.h"
#include "gfx/bitmap_font.h"
#include "gfx/display.h"
#include "gfx/missing_skin.h"
#include "gfx/skin.h"
#include "screens/high_score_screen.h"
#include "screens/menu_screen.h"

namespace korvane {

void SetStage() {
    pictureBudget.Begin();
    theGameArt.Load();
    theGameArt.LoadLevelSound();
    theFont = std::make_unique<BitmapFont>();
    theMenuScreen = std::make_unique<MenuScreen>();
    rightPlayer = std::make_unique<Player>(Side::Right, std::make_unique<SkinSounds>());
    leftPlayer = std::make_unique<Player>(Side::Left, std::make_unique<SkinSounds>());
    theHighScoreScreen = std::make_unique<HighScoreScreen>();
    missingSkinNotice.Refresh();
}

void ClearStage() {
    theHighScoreScreen.reset();
    theMenuScreen.reset();
    rightPlayer.reset();
    leftPlayer.reset();
    missingSkinNotice = {};
    currentDisplay.reset();
}

}  // namespace korvane
