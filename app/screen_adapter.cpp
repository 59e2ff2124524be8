#include "app/screen_adapter.h"

#include "screens/high_score_screen.h"
#include "screens/menu_screen.h"

namespace korvane {

void ScreenAdapter::DrawMenu() {
    theMenuScreen->Draw();
}

void ScreenAdapter::DrawHighScores() {
    theHighScoreScreen->Draw();
}

int ScreenAdapter::Submit(Side side, int score, int lines, int level) {
    return theHighScoreScreen->Submit(side, score, lines, level);
}

}  // namespace korvane
