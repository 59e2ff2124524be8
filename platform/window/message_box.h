#pragma once

#include <cstdint>
#include <string>

#include "platform/base/types.h"

namespace korvane {

inline constexpr std::uint32_t MB_OK = 0x00;
inline constexpr std::uint32_t MB_ICONERROR = 0x10;

/// Shows a message over the window's picture and returns when the user has closed it. The owner is
/// deactivated meanwhile; other messages still reach it, keys and mouse do not. A request to end
/// the program closes the box, too. Of a window that was never shown only the box is seen.
void MessageBox(HWND owner, const std::string& text, const std::string& caption,
                std::uint32_t flags);

}  // namespace korvane
