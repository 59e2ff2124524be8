#pragma once

namespace korvane {

// The limits of the checks, each with its reason.

/// The least contrast of text on its ground, as a ratio of relative luminances: what the Web
/// Content Accessibility Guidelines ask of small text.
inline constexpr double kLeastContrast = 4.5;
/// The contrast of black and white.
inline constexpr double kHighestContrast = 21.0;
/// The share of a character's pixels that must reach the least contrast. The rest may be outline
/// and shade: a dot of 2 x 2 pixels with an outline of one pixel has exactly this share.
inline constexpr double kInkShare = 0.25;
/// This share of the pixels under a text is left out at the dark end, and as much at the light end:
/// a star in the sky makes no text unreadable.
inline constexpr double kGroundShare = 0.05;

/// How far the tiles of two figures have to be apart, pixel by pixel in CIELAB (root of the mean
/// square), for an eye that sees all colours or few. Two flat colours are just told apart at 2.3;
/// four times that is seen at a glance on small moving tiles.
inline constexpr double kLeastTileDistance = 9.0;

/// How far the mean colours of two tiles have to be apart besides, for an eye that sees colours:
/// twice what is just told apart. Marks alone are too small to be seen while figures fall.
inline constexpr double kLeastColourDistance = 5.0;

/// A pixel beside a transparent one must be farther from the key colour than this, in 8-bit steps.
/// Black, white and most art are twice as far away: a nearer pixel is at least half key colour, as
/// a soft brush or scaling leaves it.
inline constexpr double kFringeDistance = 128.0;

}  // namespace korvane
