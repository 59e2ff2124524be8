#pragma once

#include <cstdint>
#include <string_view>

namespace korvane {

/// The whole number at the start of a text: leading blanks and a sign are allowed, reading stops at
/// the first character that is no digit. 0 without a digit; limited to what 32 bits hold.
std::int32_t ReadDecimal(std::string_view text);

}  // namespace korvane
