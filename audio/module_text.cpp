#include "audio/module_text.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <optional>
#include <vector>

#include "platform/host.h"

namespace korvane {
namespace {

constexpr int kKeywordLines = 4;
constexpr std::size_t kLineLimit = 254;
/// No module.txt of eight lines is larger by far.
constexpr std::size_t kFileCap = 64 * 1024;

/// Takes the next line from the front of a text, without its end; empty when there is none left.
std::string TakeLine(std::string_view& text) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    const std::size_t length = std::min(end, kLineLimit);
    std::string line(text.substr(0, length));
    const bool isWhole = length == end;
    text.remove_prefix(std::min(text.size(), isWhole ? end + 1 : length));
    if (isWhole && line.ends_with('\r')) line.pop_back();
    return line.substr(0, line.find('\0'));
}

char ToUpper(char character) {
    const bool isLower = character >= 'a' && character <= 'z';
    return isLower ? static_cast<char>(character - 'a' + 'A') : character;
}

std::int32_t ToNumber(const std::string& line) {
    constexpr std::int64_t kMax = std::numeric_limits<std::int32_t>::max();
    constexpr std::int64_t kMin = std::numeric_limits<std::int32_t>::min();
    const std::size_t start = line.find_first_not_of(" \t\v\f\r");
    if (start == std::string::npos) return 0;
    std::string_view rest = std::string_view(line).substr(start);
    const bool isNegative = rest.front() == '-';
    if (isNegative || rest.front() == '+') rest.remove_prefix(1);
    std::int64_t value = 0;
    for (const char character : rest) {
        if (character < '0' || character > '9') break;
        value = std::min(value * 10 + (character - '0'), kMax + 1);
    }
    return static_cast<std::int32_t>(std::clamp(isNegative ? -value : value, kMin, kMax));
}

struct Keyword {
    std::string_view text;
    void (*store)(ModuleChoice& choice, const std::string& value);
};

constexpr Keyword kKeywords[] = {
    {"FILENAME:", [](ModuleChoice& choice, const std::string& value) { choice.fileName = value; }},
    {"MENU START POSITION:",
     [](ModuleChoice& choice, const std::string& value) { choice.menuPosition = ToNumber(value); }},
    {"GAME START POSITION:",
     [](ModuleChoice& choice, const std::string& value) { choice.gamePosition = ToNumber(value); }},
    {"HIGH SCORE START POSITION:",
     [](ModuleChoice& choice, const std::string& value) {
         choice.highScorePosition = ToNumber(value);
     }},
};

}  // namespace

void ApplyModuleText(std::string_view text, ModuleChoice& choice) {
    for (int i = 0; i < kKeywordLines; ++i) {
        std::string line = TakeLine(text);
        std::ranges::transform(line, line.begin(), ToUpper);
        const auto* keyword = std::ranges::find(kKeywords, line, &Keyword::text);
        if (keyword != std::end(kKeywords)) keyword->store(choice, TakeLine(text));
    }
}

bool ReadModuleText(const std::string& folder, ModuleChoice& choice) {
    const std::optional<std::vector<std::byte>> file =
        TheHost().GameFiles().Read(folder + "module.txt", kFileCap);
    if (!file) return false;
    ApplyModuleText({reinterpret_cast<const char*>(file->data()), file->size()}, choice);
    return true;
}

}  // namespace korvane
