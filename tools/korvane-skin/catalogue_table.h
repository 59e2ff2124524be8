#pragma once

#include "tools/korvane-skin/catalogue.h"

namespace korvane {

inline constexpr SIZE kWideButton{118, 36};
inline constexpr SIZE kColumnButton{109, 32};
inline constexpr SIZE kArrowButton{44, 32};
inline constexpr SIZE kScoreButton{116, 36};
inline constexpr SIZE kFontCell{16, 16};
inline constexpr SIZE kKeyGlyph{29, 44};

// Buttons that have a look for when they are disabled.
inline constexpr PictureRow kEasy =
    TwoViews("menu\\easybutt.bmp", kColumnButton, {391, 140}, "menu, at (278, 140) and (391, 140)");
inline constexpr PictureRow kMedium = TwoViews("menu\\mediumbutt.bmp", kColumnButton, {391, 174},
                                               "menu, at (278, 174) and (391, 174)");
inline constexpr PictureRow kHard =
    TwoViews("menu\\hardbutt.bmp", kColumnButton, {391, 208}, "menu, at (278, 208) and (391, 208)");
inline constexpr PictureRow kTime =
    TwoViews("menu\\timebutt.bmp", kColumnButton, {391, 293}, "menu, at (278, 293) and (391, 293)");
inline constexpr PictureRow kCounterClockwise = TwoViews(
    "menu\\ccwrotbutt.bmp", kArrowButton, {391, 259}, "menu, at (278, 259) and (391, 259)");
inline constexpr PictureRow kClockwise =
    TwoViews("menu\\cwrotbutt.bmp", kArrowButton, {437, 259}, "menu, at (324, 259) and (437, 259)");
inline constexpr PictureRow kBattle =
    TwoViews("menu\\battlebutt.bmp", kWideButton, {400, 343}, "menu, at (400, 343)");
inline constexpr PictureRow kMusic =
    TwoViews("menu\\musicbutt.bmp", kWideButton, {156, 263}, "menu, at (156, 263)");
inline constexpr PictureRow kSounds =
    TwoViews("menu\\sfxbutt.bmp", kWideButton, {156, 303}, "menu, at (156, 303)");
inline constexpr PictureRow kBack = TwoViews("menu\\backbutt.bmp", kWideButton, {269, 440},
                                             "credits at (269, 435), keys at (180, 440)");
inline constexpr PictureRow kReset =
    TwoViews("menu\\resetbutt.bmp", kWideButton, {324, 440}, "keys, at (324, 440)");
inline constexpr PictureRow kScoreMenu =
    TwoViews("HighScore\\menubutt.bmp", kScoreButton, {208, 439}, "high scores, at (208, 439)");
inline constexpr PictureRow kScorePlay =
    TwoViews("HighScore\\playButt.bmp", kScoreButton, {328, 439}, "high scores, at (328, 439)");

/// Every picture of a skin. Boards swing by 56 pixels when they quake, which the lowest place of
/// what lies on them allows for.
inline constexpr std::array kPictures = {
    PictureRow{
        "colorkey.bmp", PictureKind::Keys, kNoKey, 3, {1, 1}, {0, 0}, "nowhere: key colours"},
    Tile("Background.bmp", {64, 64}, "behind menu and high scores"),
    Cells("Letters.bmp", 0, 26, kFontCell, "every text: A to Z"),
    Cells("Numbers.bmp", 0, 17, kFontCell, "every number: 0 to 9 and : ; < = > ? @"),

    Tile("Game\\Background.bmp", {320, 372}, "behind each half of the game"),
    PictureRow{"Game\\playboard.bmp",
               PictureKind::Exact,
               0,
               1,
               {218, 372},
               {336, 106},
               "round each board; the cells lie 29 from its left, from its very top"},
    Single("Game\\previewframe.bmp", 0, {86, 60}, {554, 108}, "round the next figure"),
    Single("Game\\statisticsframe.bmp", 0, {86, 66}, {554, 169}, "round the chart"),
    Cells("Game\\blocks.bmp", 1, 8, kFontCell, "the tiles: seven figures, garbage"),
    Cells("Game\\statistics.bmp", 1, 7, {8, 20}, "the full bars of the chart"),
    Single("Game\\pause.bmp", 1, {80, 208}, {405, 250}, "board, 40 right and 144 down"),
    Single("Game\\gameover.bmp", 1, {142, 208}, {374, 250}, "board, 9 right and 144 down"),
    Single("Game\\looser.bmp", 1, {90, 208}, {400, 250}, "board, 35 right and 144 down"),
    Single("Game\\winner.bmp", 1, {160, 208}, {389, 250}, "board, centred, 144 down"),
    Single("Game\\join1.bmp", 1, {160, 220}, {389, 238}, "left board, centred, 132 down"),
    Single("Game\\join2.bmp", 1, {160, 220}, {389, 238}, "right board, centred, 132 down"),
    Single("Game\\battleagain.bmp", 1, {640, 48}, {0, 432}, "below a lost battle, centred, at 432"),

    Single("menu\\logo.bmp", 0, {624, 105}, {8, 0}, "menu, at (8, 0)"),
    Single("menu\\LeftPlayer.bmp", 0, {109, 12}, {278, 128}, "menu, at (278, 128)"),
    Single("menu\\RightPlayer.bmp", 0, {109, 12}, {391, 128}, "menu, at (391, 128)"),
    TwoViews("menu\\1playerbutt.bmp", kWideButton, {156, 143}, "menu, at (156, 143)"),
    TwoViews("menu\\2playerbutt.bmp", kWideButton, {156, 183}, "menu, at (156, 183)"),
    TwoViews("menu\\confbutt.bmp", kWideButton, {156, 223}, "menu, at (156, 223)"),
    kMusic,
    Disabled("menu\\musicbutt2.bmp", kMusic),
    kSounds,
    Disabled("menu\\sfxbutt2.bmp", kSounds),
    TwoViews("menu\\aboutbutt.bmp", kWideButton, {156, 343}, "menu, at (156, 343)"),
    TwoViews("menu\\startbutt.bmp", kWideButton, {156, 403}, "menu, at (156, 403)"),
    kEasy,
    Disabled("menu\\easybutt2.bmp", kEasy),
    kMedium,
    Disabled("menu\\mediumbutt2.bmp", kMedium),
    kHard,
    Disabled("menu\\hardbutt2.bmp", kHard),
    kCounterClockwise,
    Disabled("menu\\ccwrotbutt2.bmp", kCounterClockwise),
    kClockwise,
    Disabled("menu\\cwrotbutt2.bmp", kClockwise),
    kTime,
    Disabled("menu\\timebutt2.bmp", kTime),
    TwoViews("menu\\quakebutt.bmp", kWideButton, {278, 343}, "menu, at (278, 343)"),
    kBattle,
    Disabled("menu\\battlebutt2.bmp", kBattle),
    TwoViews("menu\\quitbutt.bmp", kWideButton, {278, 403}, "menu, at (278, 403)"),
    kBack,
    Disabled("menu\\backbutt2.bmp", kBack),
    kReset,
    Disabled("menu\\resetbutt2.bmp", kReset),

    Single("HighScore\\highscore.bmp", 0, {532, 100}, {54, 0}, "high scores, at (54, 0)"),
    Single("HighScore\\cursor.bmp", 0, {16, 18}, {256, 390}, "on the name that is typed"),
    kScoreMenu,
    Disabled("HighScore\\menuButt2.bmp", kScoreMenu),
    kScorePlay,
    Disabled("HighScore\\playButt2.bmp", kScorePlay),

    TwoViews("KeyConfig\\keybuttongrey.bmp", {65, 64}, {335, 369},
             "keys, ten times; pressed: waiting for a key"),
    Cells("KeyConfig\\alpha1.bmp", 2, 20, kKeyGlyph, "keys A to T, 18 right and 10 down in a slot"),
    Cells("KeyConfig\\alpha2.bmp", 2, 6, kKeyGlyph, "keys U to Z"),
    Cells("KeyConfig\\keys1.bmp", 2, 20, kKeyGlyph,
          "keys: 4 arrows, 0 to 9, . , &lt; ] ' and the grave accent"),
    Cells("KeyConfig\\keys2.bmp", 2, 20, kKeyGlyph, "keys with names, and \\ - Shift [ / ; Enter"),
};

inline constexpr std::array kSoundFiles = {
    SoundRow{"Audio\\Button.wav", "a press in the menu"},
    SoundRow{"Audio\\Rotate.wav", "a figure turns"},
    SoundRow{"Audio\\Landed.wav", "a figure lands"},
    SoundRow{"Audio\\Single.wav", "one row at once"},
    SoundRow{"Audio\\Double.wav", "two rows"},
    SoundRow{"Audio\\Triple.wav", "three rows"},
    SoundRow{"Audio\\Tetris.wav", "four rows"},
    SoundRow{"Audio\\NewLevel.wav", "the next level"},
};

/// The longest name that a skin may have: the paths of its pictures go up to 254 characters.
constexpr std::size_t LongestSkinName() {
    std::size_t longest = 0;
    for (const PictureRow& row : kPictures)
        longest = row.file.size() > longest ? row.file.size() : longest;
    return 254 - std::string_view("Skins\\\\").size() - longest;
}

/// The row of a picture that is known to be in the table.
constexpr const PictureRow& RowOf(std::string_view file) {
    std::size_t i = 0;
    while (kPictures[i].file != file)
        ++i;
    return kPictures[i];
}
/// Where a row stands in the table.
constexpr std::size_t IndexOf(const PictureRow& row) {
    return static_cast<std::size_t>(&row - kPictures.data());
}

}  // namespace korvane
