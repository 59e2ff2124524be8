#include "audio/module_text.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <vector>

#include "platform/base/ascii.h"
#include "platform/base/decimal.h"
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

struct Keyword {
    std::string_view text;
    void (*store)(ModuleChoice& choice, const std::string& value);
};

constexpr Keyword kKeywords[] = {
    {"FILENAME:", [](ModuleChoice& choice, const std::string& value) { choice.fileName = value; }},
    {"MENU START POSITION:",
     [](ModuleChoice& choice, const std::string& value) {
         choice.menuPosition = ReadDecimal(value);
     }},
    {"GAME START POSITION:",
     [](ModuleChoice& choice, const std::string& value) {
         choice.gamePosition = ReadDecimal(value);
     }},
    {"HIGH SCORE START POSITION:",
     [](ModuleChoice& choice, const std::string& value) {
         choice.highScorePosition = ReadDecimal(value);
     }},
};

}  // namespace

void ApplyModuleText(std::string_view text, ModuleChoice& choice) {
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
