#include "tools/korvane-skin/skin_text.h"

#include <algorithm>
#include <array>

#include "gfx/skin.h"
#include "platform/base/ascii.h"
#include "platform/host/host.h"
#include "tools/korvane-skin/finding.h"

namespace korvane {
namespace {

struct Entry {
    std::string_view word;
    std::string SkinText::*value;
};

constexpr std::array kEntries = {
    Entry{"name", &SkinText::name},
    Entry{"author", &SkinText::author},
    Entry{"licence", &SkinText::licence},
    Entry{"license", &SkinText::licence},
};

std::string_view Trimmed(std::string_view text) {
    constexpr std::string_view kBlanks = " \t\r";
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == text.npos) return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

/// At most so many bytes, without a part of a character at its end.
std::string Cut(std::string_view text) {
    if (text.size() <= kMaxSkinTextValue) return Printable(std::string(text));
    std::size_t end = kMaxSkinTextValue;
    while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80)
        --end;
    return Printable(std::string(text.substr(0, end)));
}

void ReadLine(std::string_view line, SkinText& text) {
    const std::size_t colon = line.find(':');
    if (colon == line.npos) return;
    for (const Entry& entry : kEntries) {
        std::string& value = text.*entry.value;
        if (value.empty() && AsciiEqualsIgnoringCase(Trimmed(line.substr(0, colon)), entry.word))
            value = Cut(Trimmed(line.substr(colon + 1)));
    }
}

}  // namespace

SkinText ReadSkinText(std::string_view text) {
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
    if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
    SkinText read;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        ReadLine(text.substr(0, end), read);
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return read;
}

std::string TitleOf(const SkinText& text) {
    std::string title = text.name;
    if (!text.author.empty()) title += Text(title.empty() ? "" : " ", "by ", text.author);
    if (!text.licence.empty()) title += Text(title.empty() ? "" : ", ", text.licence);
    return title;
}

SkinText LoadSkinText() {
    const auto bytes = TheHost().GameFiles().Read(SkinPath(kSkinTextFile), kMaxSkinTextBytes);
    if (!bytes) return {};
    return ReadSkinText({reinterpret_cast<const char*>(bytes->data()), bytes->size()});
}

}  // namespace korvane
