#include "platform/base/utf8.h"

#include <algorithm>

namespace korvane {
namespace {

/// The length of the sequence that begins with this byte; 0 for a byte that begins none.
std::size_t SequenceLength(unsigned char first) {
    if (first < 0x80) return 1;
    if (first >= 0xC2 && first < 0xE0) return 2;
    if (first >= 0xE0 && first < 0xF0) return 3;
    if (first >= 0xF0 && first < 0xF5) return 4;
    return 0;
}

}  // namespace

char32_t TakeCharacter(std::string_view& utf8) {
    const auto first = static_cast<unsigned char>(utf8.front());
    const std::size_t length = SequenceLength(first);
    char32_t character = length == 1 ? first : first & (0x7Fu >> length);
    bool whole = length != 0 && length <= utf8.size();
    for (std::size_t i = 1; whole && i < length; ++i) {
        const auto next = static_cast<unsigned char>(utf8[i]);
        whole = (next & 0xC0) == 0x80;
        character = character << 6 | (next & 0x3F);
    }
    utf8.remove_prefix(whole ? length : 1);
    return whole ? character : kReplacement;
}

std::string InUtf8(char32_t character) {
    if (character > 0x10FFFF || (character >= 0xD800 && character < 0xE000)) return {};
    if (character < 0x80) return std::string(1, static_cast<char>(character));
    const int following = character < 0x800 ? 1 : character < 0x10000 ? 2 : 3;
    const unsigned mark = 0xFF00u >> (following + 1) & 0xFF;
    std::string bytes(1, static_cast<char>(mark | character >> (6 * following)));
    for (int i = following - 1; i >= 0; --i)
        bytes += static_cast<char>(0x80 | (character >> (6 * i) & 0x3F));
    return bytes;
}

std::size_t NextCharacter(std::string_view utf8, std::size_t at) {
    if (at >= utf8.size()) return utf8.size();
    std::string_view rest = utf8.substr(at);
    TakeCharacter(rest);
    return utf8.size() - rest.size();
}

std::size_t PreviousCharacter(std::string_view utf8, std::size_t at) {
    at = std::min(at, utf8.size());
    // A character has at most four bytes. The longest sequence that ends here is tried first.
    for (std::size_t length = std::min<std::size_t>(at, 4); length > 1; --length)
        if (NextCharacter(utf8, at - length) == at) return at - length;
    return at == 0 ? 0 : at - 1;
}

}  // namespace korvane
