#pragma once

#include <cstdint>

namespace korvane {

/// A colour as 0x00RRGGBB.
using Colour = std::uint32_t;

// The colours of all that the layer draws itself: menus, dialogs and boxes. Night slate, so that
// they sit quietly before pictures of any skin; amber is where the keyboard is.

inline constexpr Colour kFaceColour = 0x262D42;  ///< the ground of menus, dialogs and boxes
inline constexpr Colour kTextColour = 0xEEF1F8;
inline constexpr Colour kGreyedColour = 0x8B95B0;  ///< text and marks that are out of use

inline constexpr Colour kFieldColour = 0x161B2A;   ///< the ground of lists, edit boxes and marks
inline constexpr Colour kTroughColour = 0x1C2233;  ///< what a scroll bar's thumb moves in
inline constexpr Colour kHeldTroughColour = 0x0E121D;

inline constexpr Colour kButtonColour = 0x3A4567;
inline constexpr Colour kHeldButtonColour = 0x2B3350;

inline constexpr Colour kCaptionColour = 0x46527A;
inline constexpr Colour kCaptionTextColour = 0xFFFFFF;

inline constexpr Colour kSelectionColour = 0xF2B84B;
inline constexpr Colour kSelectedTextColour = 0x1A1406;
inline constexpr Colour kIdleSelectionColour =
    0x46527A;  ///< without the keyboard, with kTextColour

inline constexpr Colour kEdgeColour = 0x5C688F;
inline constexpr Colour kDarkEdgeColour = 0x0E121D;
inline constexpr Colour kDefaultEdgeColour = 0xB4BFDD;  ///< round the button that Return presses
inline constexpr Colour kFocusColour = 0xF2B84B;

}  // namespace korvane
