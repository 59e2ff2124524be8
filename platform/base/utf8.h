#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace korvane {

/// Stands for each byte that is not part of valid UTF-8.
inline constexpr char32_t kReplacement = 0xFFFD;

/// Takes the first character off a text that is not empty.
char32_t TakeCharacter(std::string_view& utf8);
/// The character's bytes; empty for a number that is no character.
std::string InUtf8(char32_t character);
/// Where the next character begins; the size of the text at its end.
std::size_t NextCharacter(std::string_view utf8, std::size_t at);
/// Where the character before begins; 0 at the beginning.
std::size_t PreviousCharacter(std::string_view utf8, std::size_t at);

}  // namespace korvane
