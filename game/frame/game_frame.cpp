#include "game/frame/game_frame.h"

#include "app/state/process_state.h"
#include "audio/music_player.h"
#include "game/frame/game_art.h"
#include "game/frame/game_screen.h"
#include "gfx/bitmap_font.h"
#include "gfx/display.h"
#include "gfx/missing_skin.h"
#include "platform/host/kernel.h"

namespace korvane {

MatchState theMatch;
std::unique_ptr<Player> rightPlayer;
std::unique_ptr<Player> leftPlayer;

namespace {

Player& PlayerOf(Side side) {
    return side == Side::Right ? *rightPlayer : *leftPlayer;
}

/// Seconds since the last reading of the game clock.
double ReadGameClock() {
    std::uint64_t reading = timeGetTime();
    if (hiResClock) QueryPerformanceCounter(reading);
    const std::uint64_t counts = reading - lastCount;
    lastCount = reading;
    return static_cast<double>(counts) * secondsPerCount;
}

void DrawRunningGame() {
    const BoardTops tops = theMatch.quake.Step(
        QuakeModeOf(theSettings), rightPlayer->RowsLastLock(), leftPlayer->RowsLastLock());
    if (theSettings.battle) {
        rightPlayer->ReceiveRows(leftPlayer->RowsLastLock());
        leftPlayer->ReceiveRows(rightPlayer->RowsLastLock());
    }
    rightPlayer->SetRowsLastLock(0);
    leftPlayer->SetRowsLastLock(0);
    DrawPlayer(*rightPlayer, tops.right);
    DrawPlayer(*leftPlayer, tops.left);
}

/// The first frame after a match without battle in which no player runs: who enters the high-score
/// table first. Of equal scores the left player's.
void EndMatch() {
    theMatch.firstEntry = Side::Right;
    if (theSettings.players == 2) {
        const bool rightFirst = rightPlayer->Score() > leftPlayer->Score();
        theMatch.firstEntry = rightFirst ? Side::Right : Side::Left;
        theMatch.secondEntry = OtherSide(*theMatch.firstEntry);
    }
    highScoresShowing = true;
    theMusic.SetScreen(MusicScreen::HighScores);
}

/// Offers a side's result; true when it was accepted and its name is now being typed.
bool SubmitResult(FrameScreens& screens, Side side) {
    Player& player = PlayerOf(side);
    if (screens.Submit(side, player.Score(), player.Lines(), player.Level()) < 0) return false;
    player.SetHighScoreEntered(true);
    return true;
}

void SubmitResults(FrameScreens& screens) {
    if (theSettings.players == 1) {
        if (theMatch.firstEntry) SubmitResult(screens, Side::Right);
        theMatch.firstEntry.reset();
        theMatch.secondEntry.reset();
    } else if (theMatch.firstEntry) {
        // A refused result is offered again in every frame and so keeps the lower one out too.
        if (SubmitResult(screens, *theMatch.firstEntry)) theMatch.firstEntry.reset();
    } else if (theMatch.secondEntry) {
        if (PlayerOf(OtherSide(*theMatch.secondEntry)).HighScoreEntered()) return;
        if (SubmitResult(screens, *theMatch.secondEntry)) theMatch.secondEntry.reset();
    }
}

void ShowHighScores(FrameScreens& screens) {
    for (Player* player : BothPlayers()) {
        player->ReleaseHeldKeys();
        player->SetJoined(false);
    }
    SubmitResults(screens);
    screens.DrawHighScores();
}

void DrawScreen(FrameScreens& screens) {
    if (menuShowing) {
        screens.DrawMenu();
    } else if (rightPlayer->IsRunning() || leftPlayer->IsRunning()) {
        DrawRunningGame();
    } else if (!highScoresShowing) {
        theSettings.battle ? DrawTie(*rightPlayer, *leftPlayer) : EndMatch();
    } else {
        ShowHighScores(screens);
    }
}

void DrawFrameRate() {
    // A period ends when more than 1000 ms have passed.
    constexpr std::uint32_t kPeriodMs = 1001;
    const std::uint32_t now = GetTickCount();
    // The first period begins with the first frame that is counted.
    if (theMatch.frameRateText.empty() && theMatch.frameCount == 0) theMatch.frameRateTick = now;
    if (now - theMatch.frameRateTick >= kPeriodMs) {
        theMatch.frameRateText = std::to_string(theMatch.frameCount);
        theMatch.frameRateTick = now;
        theMatch.frameCount = 0;
    } else {
        ++theMatch.frameCount;
    }
    theGameArt.Picture(Art::Background).DrawTiled(0, 0, 64, 16);
    theFont->DrawText(theMatch.frameRateText, 0, 0);
}

}  // namespace

void AdvanceGame() {
    const double seconds = ReadGameClock();
    const bool rightRunning = rightPlayer->IsRunning();
    const bool leftRunning = leftPlayer->IsRunning();
    if (theSettings.battle) {
        if (!rightRunning) leftPlayer->DeclareWinner();
        if (!leftRunning) rightPlayer->DeclareWinner();
    }
    if (rightRunning) rightPlayer->UpdatePlayer(seconds);
    if (leftRunning) leftPlayer->UpdatePlayer(seconds);
}

HRESULT DrawGameFrame(FrameScreens& screens) {
    currentDisplay->ClearBackBuffer(0);
    DrawScreen(screens);
    missingSkinNotice.Draw();
    if (showFps) DrawFrameRate();
    return currentDisplay->ShowFrame();
}

}  // namespace korvane
