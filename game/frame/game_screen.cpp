#include "game/frame/game_screen.h"

#include <string>
#include <string_view>

#include "app/state/settings.h"
#include "game/frame/game_art.h"
#include "game/frame/statistics_chart.h"
#include "game/rules/quake.h"
#include "gfx/bitmap_font.h"

namespace korvane {
namespace {

constexpr int kHalfWidth = 320;
constexpr int kHalfHeight = 372;
constexpr int kPanelX = 554;  // of the right half, as every x below that has no board to go by
constexpr int kBattleAgainY = 432;
constexpr int kScreenWidth = 640;
constexpr int kBoardWidth = kBoardColumns * kCellPixels;

// From the board's column 0 and row 0.
constexpr int kValueX = 193;
constexpr POINT kOverlayPause{40, 144};
constexpr POINT kOverlayLoser{35, 144};
constexpr POINT kOverlayGameOver{9, 144};
constexpr int kOverlayWinnerY = 144;
constexpr int kOverlayJoinY = 132;
constexpr POINT kPreviewFigure{198, 0};
constexpr POINT kChart{203, 75};

void DrawKeyed(Art art, int x, int y) {
    theGameArt.Picture(art).DrawKeyed({x, y});
}

int WidthOf(Art art) {
    return theGameArt.Picture(art).Width();
}

void DrawBattleAgain() {
    DrawKeyed(Art::BattleAgain, kScreenWidth / 2 - WidthOf(Art::BattleAgain) / 2, kBattleAgainY);
}

std::string TwoDigits(int value) {
    std::string digits = std::to_string(value);
    if (value < 10) digits.insert(digits.begin(), '0');
    return digits;
}

/// One half of the screen while it is drawn.
class HalfScreen {
  public:
    HalfScreen(Player& player, int top)
        : player_(player),
          side_(IndexOf(player.PlayerSide())),
          boardX_(player.BoardScreenX()),
          shift_(static_cast<int>(side_) * kHalfWidth),
          top_(top) {}

    void Draw();

  private:
    void DrawFrames() const;
    void DrawLabels() const;
    void DrawCells() const;
    void DrawFigures() const;
    void DrawGameState() const;
    void DrawTime();
    void DrawJoin() const;
    void DrawStatistics() const;
    void DrawScore();
    void DrawBattle() const;

    void Label(std::string_view text, int y) const {
        theFont->DrawTextWide(text, kPanelX - shift_, top_ + y);
    }
    void Value(const std::string& text, int y) const {
        theFont->DrawTextWithin(text, boardX_ + kValueX, kScreenWidth - shift_, top_ + y);
    }
    void Overlay(Art art, POINT at) const { DrawKeyed(art, boardX_ + at.x, top_ + at.y); }
    /// Over the board's middle column.
    void CentredOverlay(Art art, int y) const {
        Overlay(art, {kBoardWidth / 2 - WidthOf(art) / 2, y});
    }

    Player& player_;
    std::size_t side_;
    int boardX_;
    int shift_;  ///< how far the half lies left of the right one
    int top_;
};

void HalfScreen::Draw() {
    DrawFrames();
    DrawLabels();
    DrawCells();
    DrawFigures();
    DrawGameState();
    if (player_.IsTimedGame() && player_.IsJoined()) DrawTime();
    if (!player_.IsJoined()) DrawJoin();
    Value(std::to_string(player_.Level()), 152);
    Value(std::to_string(player_.Lines()), 200);
    if (theSettings.statistics[side_]) DrawStatistics();
    DrawScore();
    if (theSettings.battle) DrawBattle();
}

void HalfScreen::DrawFrames() const {
    theGameArt.Picture(Art::GameBackground)
        .DrawTiled(kHalfWidth - shift_, top_, kHalfWidth, kHalfHeight);
    DrawKeyed(Art::Playboard, 336 - shift_, top_);
    if (theSettings.preview[side_]) DrawKeyed(Art::PreviewFrame, kPanelX - shift_, top_ + 2);
    if (theSettings.statistics[side_]) DrawKeyed(Art::StatisticsFrame, kPanelX - shift_, top_ + 63);
}

void HalfScreen::DrawLabels() const {
    Label("LEVEL", 133);
    Label("LINES", 181);
    Label("SCORE", 336);
    if (theSettings.battle) Label("WINS", 277);
}

void HalfScreen::DrawCells() const {
    const Board& board = player_.GameBoard();
    for (int row = 0; row < kBoardRows; ++row)
        for (int column = 0; column < kBoardColumns; ++column)
            DrawBlockCell(boardX_ + kCellPixels * column, top_ + kCellPixels * row,
                          board.At(row, column));
}

void HalfScreen::DrawFigures() const {
    if (const Figure* current = player_.CurrentFigure()) DrawFigure(*current, top_);
    const Figure* next = player_.NextFigure();
    if (next && theSettings.preview[side_])
        DrawFigureAt(*next, boardX_ + kPreviewFigure.x, top_ + kPreviewFigure.y);
}

void HalfScreen::DrawGameState() const {
    if (player_.HasWon()) return;
    if (player_.IsRunning()) {
        if (player_.IsPaused()) Overlay(Art::Pause, kOverlayPause);
        return;
    }
    if (!player_.IsJoined()) return;
    if (theSettings.battle) {
        Overlay(Art::Loser, kOverlayLoser);
        DrawBattleAgain();
    } else {
        Overlay(Art::GameOver, kOverlayGameOver);
    }
}

void HalfScreen::DrawTime() {
    constexpr int kColonX = 585;
    constexpr int kSecondsEndX = 627;
    Label("TIME", 229);
    player_.UpdatePlayingTime();
    const int y = top_ + 248;
    theFont->DrawTextRight(TwoDigits(player_.Minutes()), kColonX - shift_, y);
    theFont->DrawText(":", kColonX - shift_, y);
    theFont->DrawTextRight(TwoDigits(player_.Seconds()), kSecondsEndX - shift_, y);
}

void HalfScreen::DrawJoin() const {
    CentredOverlay(player_.PlayerSide() == Side::Right ? Art::Join2 : Art::Join1, kOverlayJoinY);
}

void HalfScreen::DrawStatistics() const {
    DrawChart(player_.Statistics(), {boardX_ + kChart.x, top_ + kChart.y});
    Value(std::to_string(player_.FigureCount()), 107);
}

void HalfScreen::DrawScore() {
    player_.StepShownScore();
    Value(std::to_string(player_.ShownScore()), 355);
}

void HalfScreen::DrawBattle() const {
    if (player_.HasWon()) CentredOverlay(Art::Winner, kOverlayWinnerY);
    Value(std::to_string(player_.Wins()), 296);
}

}  // namespace

void DrawFigure(const Figure& figure, int boardTop) {
    const int glide = theSettings.scrollingPieces ? figure.PixelOffset() : 0;
    DrawFigureAt(figure, figure.BoardScreenX() + kCellPixels * figure.Column(),
                 boardTop + kCellPixels * figure.Row() + glide);
}

void DrawFigureAt(const Figure& figure, int x, int y) {
    for (const FigureCell& cell : figure.Cells())
        DrawBlockCell(x + kCellPixels * cell.dx, y + kCellPixels * cell.dy, figure.Type());
}

void DrawPlayer(Player& player, int boardTop) {
    HalfScreen(player, boardTop).Draw();
}

void DrawTie(Player& right, Player& left) {
    const BoardTops atRest;
    DrawPlayer(right, atRest.right);
    DrawPlayer(left, atRest.left);
    DrawBattleAgain();
}

}  // namespace korvane
