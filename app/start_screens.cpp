#include "app/start_screens.h"

#include <string>
#include <string_view>

#include "game/game_art.h"
#include "gfx/bitmap_font.h"

namespace korvane {

std::unique_ptr<StartScreens> startScreens;

namespace {

constexpr std::uint32_t kScreenWidth = 640;
constexpr std::uint32_t kScreenHeight = 480;
constexpr std::uint32_t kCharacter = 16;

void DrawBackground() {
    theGameArt.Picture(Art::Background).DrawTiled(0, 0, kScreenWidth, kScreenHeight);
}

void DrawCentred(std::string_view text, std::uint32_t y) {
    const auto width = kCharacter * static_cast<std::uint32_t>(text.size());
    theFont->DrawTextWide(text, (kScreenWidth - width) / 2, y);
}

void DrawScore(std::string_view label, const Player& player, std::uint32_t y) {
    DrawCentred(std::string(label) + " " + std::to_string(player.Score()), y);
    DrawCentred(
        "LINES " + std::to_string(player.Lines()) + "  LEVEL " + std::to_string(player.Level()),
        y + 24);
}

}  // namespace

StartScreens::StartScreens() : players_(theSettings.players == 2 ? 2 : 1) {}

void StartScreens::DrawMenu() {
    DrawBackground();
    DrawCentred("KORVANE", 96);
    DrawCentred("F2 : ONE PLAYER", 176);
    DrawCentred("F3 : TWO PLAYERS", 208);
    DrawCentred("RIGHT: ARROWS; PAUSE P", 272);
    DrawCentred("LEFT: W A S D; PAUSE T", 304);
    DrawCentred("ESC : BACK HERE", 368);
}

void StartScreens::DrawHighScores() {
    DrawBackground();
    DrawCentred("GAME OVER", 96);
    DrawScore(theSettings.players == 2 ? "RIGHT PLAYER" : "SCORE", *rightPlayer, 176);
    if (theSettings.players == 2) DrawScore("LEFT PLAYER", *leftPlayer, 256);
    DrawCentred("F2 : ONE PLAYER", 352);
    DrawCentred("F3 : TWO PLAYERS", 384);
}

int StartScreens::Submit(Side, int, int, int) {
    return -1;  // nothing keeps results yet
}

}  // namespace korvane
