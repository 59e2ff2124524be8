#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace korvane {

/// What stands for bytes that are no UTF-8, each by itself.
inline constexpr char32_t kReplacement = 0xFFFD;

/// Takes the first character off a text that is not empty.
char32_t TakeCharacter(std::string_view& utf8);
/// The character's bytes; none for what is no character.
std::string InUtf8(char32_t character);
/// Where the characters after and before a place of the text begin; its ends lead nowhere.
std::size_t NextCharacter(std::string_view utf8, std::size_t at);
std::size_t PreviousCharacter(std::string_view utf8, std::size_t at);

}  // namespace korvane
