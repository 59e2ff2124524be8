#pragma once

#include <algorithm>
#include <string>
#include <string_view>

namespace korvane {

// Letter case of the 26 ASCII letters, whatever the user's language. All other bytes, those of
// UTF-8 sequences among them, stay as they are.

constexpr char AsciiLower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

constexpr char AsciiUpper(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

inline std::string AsciiLower(std::string text) {
    std::ranges::transform(text, text.begin(), [](char c) { return AsciiLower(c); });
    return text;
}

constexpr bool AsciiEqualsIgnoringCase(std::string_view a, std::string_view b) {
    return std::ranges::equal(a, b, [](char x, char y) { return AsciiLower(x) == AsciiLower(y); });
}

}  // namespace korvane
