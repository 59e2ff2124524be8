#include "screens/screen_background.h"

#include "game/frame/game_art.h"

namespace korvane {

void DrawScreenBackground() {
    theGameArt.Picture(Art::Background).DrawTiled(55, 0, 520, 480);
}

}  // namespace korvane
