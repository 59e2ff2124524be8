#pragma once

#include "tools/korvane-skin/catalogue.h"

namespace korvane {

inline constexpr SIZE kWideButton{118, 36};
inline constexpr SIZE kColumnButton{109, 32};
inline constexpr SIZE kLeftArrow{46, 32};
inline constexpr SIZE kRightArrow{63, 32};
inline constexpr SIZE kScoreButton{116, 36};
inline constexpr SIZE kFontCell{16, 16};
inline constexpr SIZE kKeyGlyph{29, 44};

/// Every picture of a skin. A quake moves a board by up to 56 pixels: the places of what lies on a
/// board are those with the board at its lowest.
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

    Single("menu\\logo.bmp", 0, {624, 480}, {8, 0},
           "all views of the menu, below the rest, at (8, 0)"),
    Single("menu\\LeftPlayer.bmp", 0, {109, 214}, {278, 128},
           "menu, below its buttons, at (278, 128)"),
    Single("menu\\RightPlayer.bmp", 0, {109, 214}, {391, 128},
           "menu, below its buttons, at (391, 128)"),
    TwoViews("menu\\1playerbutt.bmp", kWideButton),
    TwoViews("menu\\2playerbutt.bmp", kWideButton),
    TwoViews("menu\\confbutt.bmp", kWideButton),
    TwoViews("menu\\musicbutt.bmp", kWideButton),
    TwoViews("menu\\musicbutt2.bmp", kWideButton),
    TwoViews("menu\\sfxbutt.bmp", kWideButton),
    TwoViews("menu\\sfxbutt2.bmp", kWideButton),
    TwoViews("menu\\aboutbutt.bmp", kWideButton),
    TwoViews("menu\\startbutt.bmp", kWideButton),
    TwoViews("menu\\easybutt.bmp", kColumnButton),
    TwoViews("menu\\easybutt2.bmp", kColumnButton),
    TwoViews("menu\\mediumbutt.bmp", kColumnButton),
    TwoViews("menu\\mediumbutt2.bmp", kColumnButton),
    TwoViews("menu\\hardbutt.bmp", kColumnButton),
    TwoViews("menu\\hardbutt2.bmp", kColumnButton),
    TwoViews("menu\\ccwrotbutt.bmp", kLeftArrow),
    TwoViews("menu\\ccwrotbutt2.bmp", kLeftArrow),
    TwoViews("menu\\cwrotbutt.bmp", kRightArrow),
    TwoViews("menu\\cwrotbutt2.bmp", kRightArrow),
    TwoViews("menu\\timebutt.bmp", kColumnButton),
    TwoViews("menu\\timebutt2.bmp", kColumnButton),
    TwoViews("menu\\quakebutt.bmp", kWideButton),
    TwoViews("menu\\battlebutt.bmp", kWideButton),
    TwoViews("menu\\battlebutt2.bmp", kWideButton),
    TwoViews("menu\\quitbutt.bmp", kWideButton),
    TwoViews("menu\\backbutt.bmp", kWideButton),
    TwoViews("menu\\backbutt2.bmp", kWideButton),
    TwoViews("menu\\resetbutt.bmp", kWideButton),
    TwoViews("menu\\resetbutt2.bmp", kWideButton),

    Single("HighScore\\highscore.bmp", 0, {532, 480}, {54, 0},
           "high scores, below the rest, at (54, 0)"),
    Single("HighScore\\cursor.bmp", 0, {16, 18}, {256, 390}, "on the name that is typed"),
    TwoViews("HighScore\\menubutt.bmp", kScoreButton),
    TwoViews("HighScore\\menuButt2.bmp", kScoreButton),
    TwoViews("HighScore\\playButt.bmp", kScoreButton),
    TwoViews("HighScore\\playButt2.bmp", kScoreButton),

    TwoViews("KeyConfig\\keybuttongrey.bmp", {65, 64},
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

/// The row of a picture, which must be in the table.
constexpr const PictureRow& RowOf(std::string_view file) {
    std::size_t i = 0;
    while (kPictures[i].file != file)
        ++i;
    return kPictures[i];
}
/// The index of a row of the table.
constexpr std::size_t IndexOf(const PictureRow& row) {
    return static_cast<std::size_t>(&row - kPictures.data());
}

}  // namespace korvane
