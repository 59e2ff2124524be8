#include "tools/korvane-skin/screens.h"

#include <array>
#include <initializer_list>
#include <span>
#include <utility>

#include "app/state/process_state.h"
#include "app/state/settings.h"
#include "game/frame/game_screen.h"
#include "game/rules/key_bindings.h"
#include "gfx/bitmap_font.h"
#include "gfx/skin.h"
#include "platform/headless/headless_host.h"
#include "screens/high_score_screen.h"
#include "screens/menu_screen.h"
#include "screens/screen_background.h"
#include "tools/korvane-skin/stage.h"

namespace korvane {
namespace {

constexpr int kBoardTop = 50;
/// The lowest place that a quake moves a board to.
constexpr int kLowestTop = 106;

using Rows = std::span<const std::string_view>;

// Boards in the middle of a game: a digit is a tile, the last row lies on the floor.
constexpr std::array<std::string_view, 9> kRightRows = {"1.........", "1.......4.", "1.77...44.",
                                                        "177.5664..", "22335566.8", ".2233556.1",
                                                        "7.4466.221", "7744.66221", "57.4433881"};
constexpr std::array<std::string_view, 7> kLeftRows = {"......3...", "55....33..", "5566.1443.",
                                                       "766..144.7", "77223.4477", ".7.2233.71",
                                                       "8442.66881"};
constexpr std::array<std::string_view, 3> kFewRows = {".......4..", "33.....4..", "33..66.44."};

Board BoardOf(Rows rows) {
    Board board;
    int row = kBoardRows - static_cast<int>(rows.size());
    for (const std::string_view& cells : rows) {
        for (int column = 0; column < kBoardColumns; ++column) {
            const char cell = cells[static_cast<std::size_t>(column)];
            if (cell != '.') board.Set(row, column, static_cast<std::uint8_t>(cell - '0'));
        }
        ++row;
    }
    return board;
}

/// A board with four complete rows, for some lines and points.
Board FourFullRows() {
    Board board;
    for (int row = kBoardRows - 4; row < kBoardRows; ++row)
        board.FillRow(row, kMarkerCell);
    return board;
}

void Run(Player& player, std::uint32_t milliseconds) {
    constexpr std::uint32_t kFrameMs = 20;
    for (std::uint32_t i = 0; i < milliseconds / kFrameMs && player.IsRunning(); ++i) {
        Headless().Advance(kFrameMs);
        player.UpdatePlayer(kFrameMs / 1000.0);
    }
}

/// Lets some figures fall and completes rows on the way.
void Play(Player& player, int figures) {
    const std::uint8_t drop = keyBindings.Key(Action::Drop, player.PlayerSide());
    for (int i = 0; i < figures; ++i) {
        player.SetBoard(i % 4 == 0 ? FourFullRows() : Board());
        player.KeyDown(drop);
        Run(player, 100);
        player.KeyUp(drop);
        Run(player, 900);
    }
}

/// Starts a game, plays some figures and leaves it on that board with a figure in the air.
void PlayInto(Player& player, bool timed, int figures, Rows rows) {
    player.StartGame(timed);
    Play(player, figures);
    player.SetBoard(BoardOf(rows));
    Run(player, 2000);
}

void EndGame(Player& player) {
    Board full;
    for (int row = 0; row < kBoardRows; ++row) {
        full.FillRow(row, static_cast<std::uint8_t>(row % 8 + 1));
        full.Set(row, row % kBoardColumns, kEmptyCell);
    }
    player.SetBoard(full);
    Run(player, 5000);
}

void DrawPlayers(Player& right, Player& left, int rightTop = kBoardTop, int leftTop = kBoardTop) {
    for (const auto& [player, top] : {std::pair(&right, rightTop), std::pair(&left, leftTop)}) {
        // Each frame lets the shown score climb a step: take all steps at once.
        while (player->ShownScore() != player->Score())
            player->StepShownScore();
        DrawPlayer(*player, top);
    }
}

/// A picture of a new menu with the present settings, after a change was made to it.
template <typename Change>
std::vector<std::uint32_t> ShowMenu(Stage& stage, Change change) {
    theMenuScreen = std::make_unique<MenuScreen>();
    change(*theMenuScreen);
    // Not before: with audio ready, the menu would load its sound.
    audioReady = theSettings.players == 2;
    const auto picture = stage.Show([] { theMenuScreen->Draw(); });
    audioReady = false;
    return picture;
}

/// Presses a button whose left top corner stands there.
void ClickAt(MenuScreen& menu, POINT corner) {
    menu.Click(corner.x + 10, corner.y + 10);
}

void ClickAll(MenuScreen& menu, std::initializer_list<MenuButton> buttons) {
    for (const MenuButton button : buttons)
        ClickAt(menu, kMenuButtons[static_cast<std::size_t>(button)].at);
}

void AddMainViews(Stage& stage, std::vector<ScreenPicture>& screens) {
    using enum MenuButton;
    const auto nothing = [](MenuScreen&) {};
    screens.push_back({"Menu, one player, without sound", ShowMenu(stage, nothing)});
    theSettings.players = 2;
    theSettings.difficulty = {1, 2};
    theSettings.clockwise = {true, false};
    theSettings.timeBased = {false, true};
    screens.push_back({"Menu, two players", ShowMenu(stage, nothing)});
    theSettings.battle = true;
    theSettings.difficulty = {2, 1};
    theSettings.clockwise = {false, true};
    theSettings.timeBased = {true, false};
    screens.push_back({"Menu, the lower buttons pressed", ShowMenu(stage, [&](MenuScreen& menu) {
                           ClickAll(menu, {ConfigureKeys, About, Start, Quit});
                       })});
    theSettings.battle = false;
    theSettings.timeBased = {false, false};
    theSettings.difficulty = {0, 0};
}

void AddOtherViews(Stage& stage, std::vector<ScreenPicture>& screens) {
    screens.push_back(
        {"Credits", ShowMenu(stage, [](MenuScreen& menu) { menu.ToggleCreditsView(); })});
    screens.push_back({"Keys, reset pressed", ShowMenu(stage, [&](MenuScreen& menu) {
                           menu.ToggleKeyConfigView();
                           ClickAll(menu, {MenuButton::Reset});
                       })});
    screens.push_back({"Keys, one waiting", ShowMenu(stage, [&](MenuScreen& menu) {
                           menu.ToggleKeyConfigView();
                           ClickAt(menu, KeySlotPlace(Action::Drop, Side::Right));
                       })});
}

/// Games as they begin, without the displays, and with rows that are about to go.
void AddMoments(Stage& stage, std::vector<ScreenPicture>& screens) {
    Player right{Side::Right};
    Player left{Side::Left};
    const auto show = [&] { DrawPlayers(right, left); };
    PlayInto(right, /*timed=*/false, 3, kFewRows);
    screens.push_back({"Game, one player, just begun", stage.Show(show)});
    Board complete = BoardOf(kRightRows);
    for (const int row : {16, 18, 19})
        complete.FillRow(row, kMarkerCell);
    right.SetBoard(complete);
    PlayInto(left, /*timed=*/false, 3, kLeftRows);
    screens.push_back({"Rows that go", stage.Show(show)});
    theSettings.preview = theSettings.statistics = {false, false};
    screens.push_back({"Game without its displays", stage.Show(show)});
    theSettings.preview = theSettings.statistics = {true, true};
}

void AddGames(Stage& stage, std::vector<ScreenPicture>& screens) {
    const auto show = [&stage](Player& right, Player& left) {
        return stage.Show([&] { DrawPlayers(right, left); });
    };
    Player right{Side::Right};
    Player left{Side::Left};
    PlayInto(right, /*timed=*/false, 9, kRightRows);
    screens.push_back({"Game, one player", show(right, left)});
    PlayInto(right, /*timed=*/true, 14, kRightRows);
    PlayInto(left, /*timed=*/false, 11, kLeftRows);
    screens.push_back({"Game, two players", show(right, left)});
    right.TogglePause();
    EndGame(left);
    screens.push_back({"Game over, and paused", show(right, left)});

    theSettings.battle = true;
    PlayInto(right, /*timed=*/false, 6, kRightRows);
    PlayInto(left, /*timed=*/false, 5, kLeftRows);
    EndGame(right);
    left.DeclareWinner();
    screens.push_back({"Battle, won and lost", show(right, left)});
    theSettings.battle = false;
    Player nobody{Side::Right};
    PlayInto(left, /*timed=*/false, 3, kLeftRows);
    screens.push_back({"The right player has not joined", show(nobody, left)});
    PlayInto(right, /*timed=*/false, 3, kRightRows);
    screens.push_back(
        {"Boards apart in a quake", stage.Show([&] { DrawPlayers(right, left, kLowestTop, 0); })});
}

void AddHighScores(Stage& stage, std::vector<ScreenPicture>& screens) {
    const auto draw = [] { theHighScoreScreen->Draw(); };
    screens.push_back({"High scores", stage.Show(draw)});
    theHighScoreScreen->Submit(Side::Right, 650, 21, 3);
    for (const char key : {'M', 'E'})
        theHighScoreScreen->OnNameKey(static_cast<std::uint8_t>(key));
    screens.push_back({"High scores, a name being typed", stage.Show(draw)});
}

/// All key signs, sixteen in a row from a point down.
void DrawKeySigns(int left, int top) {
    constexpr std::array kSheets = {"KeyConfig\\alpha1.bmp", "KeyConfig\\alpha2.bmp",
                                    "KeyConfig\\keys1.bmp", "KeyConfig\\keys2.bmp"};
    constexpr SIZE kSign{29, 44};
    constexpr int kInRow = 16;
    int place = 0;
    for (const char* file : kSheets) {
        Surface sheet(file);
        sheet.SetColorKey(ColorKey(2));
        const int signs = sheet.Width() / kSign.cx;
        for (int sign = 0; sign < signs; ++sign, ++place)
            sheet.DrawKeyed({left + place % kInRow * 29, top + place / kInRow * 54},
                            RectAt({sign * kSign.cx, 0}, kSign));
    }
}

void DrawCharacters() {
    constexpr const char* kLetters = "ABCDEFGHIJKLMNOPQRSTUVWXYZ";
    constexpr const char* kNumbers = "0123456789:;<=>?@";
    constexpr int kLeft = 88;
    DrawScreenBackground();
    theFont->DrawTextWide(kLetters, kLeft, 40);
    theFont->DrawText(kLetters, kLeft, 68);
    theFont->DrawTextWide(kNumbers, kLeft, 104);
    theFont->DrawText(kNumbers, kLeft, 132);
    DrawKeySigns(kLeft, 176);
}

}  // namespace

std::vector<ScreenPicture> DrawScreens() {
    Headless().SetMilliseconds(100'000);
    theSettings.scrollingPieces = false;
    theSettings.dropDelayMs = 0;
    std::vector<ScreenPicture> screens;
    Stage stage;
    AddMainViews(stage, screens);
    AddOtherViews(stage, screens);
    AddMoments(stage, screens);
    AddGames(stage, screens);
    AddHighScores(stage, screens);
    screens.push_back({"Letters, numbers and key signs", stage.Show(DrawCharacters)});
    return screens;
}

}  // namespace korvane
