#include "audio/module_text.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <optional>
#include <vector>

#include "platform/base/ascii.h"
#include "platform/host/kernel.h"

namespace korvane {
namespace {

constexpr int kKeywordLines = 4;
constexpr std::size_t kLineLimit = 254;

/// Takes the next line from the front of a text, without its end; empty when there is none left.
std::string TakeLine(std::string_view& text) {
    const std::size_t feed = std::min(text.find('\n'), text.size());
    const std::size_t end = feed - (text.substr(0, feed).ends_with('\r') ? 1 : 0);
    const std::string line(text.substr(0, std::min(end, kLineLimit)));
    text.remove_prefix(std::min(text.size(), end <= kLineLimit ? feed + 1 : kLineLimit));
    return line.substr(0, line.find('\0'));
}

/// The number at the start of a text; limited to what a position holds.
std::int32_t ReadPosition(const std::string& text) {
    using Limits = std::numeric_limits<std::int32_t>;
    const long number = std::strtol(text.c_str(), nullptr, 10);
    return static_cast<std::int32_t>(std::clamp<long>(number, Limits::min(), Limits::max()));
}

struct Keyword {
    std::string_view text;
    void (*store)(ModuleChoice& choice, const std::string& value);
};

constexpr Keyword kKeywords[] = {
    {"FILENAME:", [](ModuleChoice& choice, const std::string& value) { choice.fileName = value; }},
    {"MENU START POSITION:",
     [](ModuleChoice& choice, const std::string& value) {
         choice.menuPosition = ReadPosition(value);
     }},
    {"GAME START POSITION:",
     [](ModuleChoice& choice, const std::string& value) {
         choice.gamePosition = ReadPosition(value);
     }},
    {"HIGH SCORE START POSITION:",
     [](ModuleChoice& choice, const std::string& value) {
         choice.highScorePosition = ReadPosition(value);
     }},
};

}  // namespace

void ApplyModuleText(std::string_view text, ModuleChoice& choice) {
    // Some editors begin a UTF-8 text with a mark.
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
    if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
    for (int i = 0; i < kKeywordLines; ++i) {
        const std::string line = TakeLine(text);
        const auto* keyword = std::ranges::find_if(kKeywords, [&](const Keyword& known) {
            return AsciiEqualsIgnoringCase(known.text, line);
        });
        if (keyword != std::end(kKeywords)) keyword->store(choice, TakeLine(text));
    }
}

bool ReadModuleText(const std::string& folder, ModuleChoice& choice) {
    const std::optional<std::vector<std::byte>> file =
        GameFiles().Read(folder + "module.txt", kMaxModuleTextBytes);
    if (!file) return false;
    ApplyModuleText({reinterpret_cast<const char*>(file->data()), file->size()}, choice);
    return true;
}

}  // namespace korvane
