#pragma once

#include <array>
#include <string_view>

#include "platform/base/types.h"

namespace korvane {

inline constexpr std::string_view kBackground = "Background.bmp";

// The pictures that texts stand on. The first two lie on the background.
inline constexpr std::string_view kMenuGround = "menu\\logo.bmp";
inline constexpr std::string_view kScoreGround = "HighScore\\highscore.bmp";
inline constexpr std::string_view kGameGround = "Game\\Background.bmp";
inline constexpr std::string_view kCountGround = "Game\\statisticsframe.bmp";

constexpr bool LiesOnBackground(std::string_view file) {
    return file == kMenuGround || file == kScoreGround;
}

/// The kinds of characters, as bits.
inline constexpr unsigned kLetters = 1;
inline constexpr unsigned kDigits = 2;
inline constexpr unsigned kSigns = 4;  ///< : ; < = > ? @
inline constexpr unsigned kAll = kLetters | kDigits | kSigns;

/// Texts of one kind on the screen, row under row.
struct TextPlace {
    std::string_view ground;
    unsigned kinds;
    POINT at;    ///< of the first row's first cell
    int length;  ///< in characters
    int step;    ///< from character to character, in pixels
    int rows = 1;
    int pitch = 0;  ///< from row to row, in pixels

    /// The area of a row of text, of the lines from `from` to before `to` in its cells.
    constexpr RECT Row(int row, int from, int to) const {
        const int top = at.y + row * pitch;
        return {at.x, top + from, at.x + step * (length - 1) + 16, top + to};
    }
};

constexpr TextPlace Wide(unsigned kinds, POINT at, int length) {
    return {kMenuGround, kinds, at, length, 16};
}
constexpr TextPlace KeyNames(POINT at) {
    return {kMenuGround, kLetters, at, 6, 14, 5, 66};
}
constexpr TextPlace Heading(POINT at, int length) {
    return {kScoreGround, kLetters, at, length, 16};
}
constexpr TextPlace Scores(unsigned kinds, int x, int length, int step) {
    return {kScoreGround, kinds, {x, 138}, length, step, 10, 28};
}
/// Beside the left board. The right board's texts stand 320 pixels further on, on the same picture.
constexpr TextPlace Label(int y, int length) {
    return {kGameGround, kLetters, {234, y}, length, 16};
}
constexpr TextPlace Value(int y) {
    return {kGameGround, kDigits, {238, y}, 5, 14};
}

/// Every place where a screen of the game writes. Numbers count with five digits.
inline constexpr std::array kTextPlaces = {
    // Credits.
    Wide(kAll, {110, 116}, 20),
    Wide(kDigits | kSigns, {225, 148}, 10),
    Wide(kLetters, {225, 196}, 11),
    Wide(kLetters, {225, 212}, 6),
    Wide(kLetters, {225, 244}, 17),
    Wide(kAll, {225, 260}, 14),
    Wide(kLetters, {225, 292}, 14),
    Wide(kLetters, {225, 308}, 6),
    Wide(kAll, {165, 372}, 15),
    // Keys.
    KeyNames({235, 129}),
    KeyNames({410, 129}),
    // High scores.
    Heading({64, 104}, 4),
    Heading({272, 104}, 5),
    Heading({393, 104}, 5),
    Heading({491, 104}, 5),
    Scores(kAll, 64, 13, 16),
    Scores(kDigits, 272, 5, 14),
    Scores(kDigits, 393, 5, 14),
    Scores(kDigits, 496, 5, 14),
    TextPlace{kScoreGround, kLetters, {117, 415}, 28, 14},
    // Game: LEVEL, LINES, TIME, WINS and SCORE with their values.
    Label(183, 5),
    Value(202),
    Label(231, 5),
    Value(250),
    Label(279, 4),
    TextPlace{kGameGround, kDigits | kSigns, {237, 298}, 5, 14},
    Label(327, 4),
    Value(346),
    Label(386, 5),
    Value(405),
    TextPlace{kCountGround, kDigits, {238, 157}, 5, 14},
};

}  // namespace korvane
