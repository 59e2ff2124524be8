#pragma once

namespace korvane {

// What the checks call too little or too much; all of it stands here.

/// The least contrast of text on its ground, as a ratio of relative luminances: what the Web
/// Content Accessibility Guidelines ask of small text.
inline constexpr double kLeastContrast = 4.5;
/// That of black and white.
inline constexpr double kHighestContrast = 21.0;
/// The share of a character's pixels that has to reach it; outlines and shades make up the rest. A
/// dot of 2 x 2 pixels with an outline of one pixel has just this share.
inline constexpr double kInkShare = 0.25;
/// The darkest and lightest of what lies under a text do not count beyond these shares of its
/// pixels: a star in the sky makes no text unreadable.
inline constexpr double kGroundShare = 0.05;

/// How far the tiles of two figures have to be apart, pixel by pixel in CIELAB (root of the mean
/// square), for an eye that sees all colours or few. Two flat colours are just told apart at 2.3;
/// four times that is seen at a glance on small moving tiles.
inline constexpr double kLeastTileDistance = 9.0;

/// How far the mean colours of two tiles have to be apart besides, for an eye that sees colours:
/// twice what is just told apart. Marks alone are too small to be seen while figures fall.
inline constexpr double kLeastColourDistance = 5.0;

/// A pixel at a transparent edge that is no farther from the key colour than this (in 8-bit steps
/// of red, green and blue) is what a soft brush or a smaller picture leaves behind: black, white
/// and most art are twice as far, so that this one is half key colour at least.
inline constexpr double kFringeDistance = 128.0;

/// Tiles smaller than this are copied so often in each frame that it takes time.
inline constexpr int kLeastTileSide = 16;

}  // namespace korvane
