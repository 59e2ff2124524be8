#include <algorithm>
#include <limits>

#include "audio/module_text.h"
#include "gfx/skin.h"
#include "platform/base/ascii.h"
#include "platform/host/host.h"
#include "platform/sound/module_header.h"
#include "platform/sound/music_stream.h"
#include "platform/sound/wav.h"
#include "tools/korvane-skin/catalogue.h"
#include "tools/korvane-skin/checks.h"

namespace korvane {
namespace {

constexpr std::string_view kFolder = "Audio\\";

/// Values that no file can hold: what still has them was not given in module.txt.
const ModuleChoice kNotGiven = {.fileName = "\n",
                                .menuPosition = std::numeric_limits<std::int32_t>::min(),
                                .gamePosition = std::numeric_limits<std::int32_t>::min(),
                                .highScorePosition = std::numeric_limits<std::int32_t>::min()};

struct Entry {
    std::string_view keyword;
    std::int32_t ModuleChoice::*position;  ///< null for the file name
};

constexpr std::array kEntries = {
    Entry{"FILENAME:", nullptr},
    Entry{"MENU START POSITION:", &ModuleChoice::menuPosition},
    Entry{"GAME START POSITION:", &ModuleChoice::gamePosition},
    Entry{"HIGH SCORE START POSITION:", &ModuleChoice::highScorePosition},
};

bool IsGiven(const ModuleChoice& choice, const Entry& entry) {
    return entry.position ? choice.*entry.position != kNotGiven.*entry.position
                          : choice.fileName != kNotGiven.fileName;
}

std::vector<std::string> LinesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line); lines.push_back(line)) {
        if (line.ends_with('\r')) line.pop_back();
    }
    return lines;
}

/// Whether a line begins with a keyword. Blanks may precede it and anything may follow.
bool Mentions(const std::string& line, std::string_view keyword) {
    const std::size_t start = line.find_first_not_of(" \t");
    return start != std::string::npos &&
           AsciiEqualsIgnoringCase(std::string_view(line).substr(start, keyword.size()), keyword);
}

bool IsModule(const std::string& file) {
    constexpr std::string_view kEndings[] = {".xm", ".it", ".s3m", ".mod", ".mtm"};
    const std::size_t dot = std::min(file.rfind('.'), file.size());
    return AsciiEqualsIgnoringCase(std::string_view(file).substr(0, kFolder.size()), kFolder) &&
           std::ranges::any_of(kEndings, [&](std::string_view ending) {
               return AsciiEqualsIgnoringCase(std::string_view(file).substr(dot), ending);
           });
}

void CheckMissing(const std::vector<std::string>& lines, const Entry& entry, Report& report) {
    const auto mention = std::ranges::find_if(
        lines, [&](const std::string& line) { return Mentions(line, entry.keyword); });
    if (mention == lines.end()) {
        report.Add(Severity::Warning, kModuleTextFile,
                   Text("says nothing under ", entry.keyword,
                        ", so that what was there before stays; add the keyword and its value as "
                        "two lines"));
    } else if (!AsciiEqualsIgnoringCase(*mention, entry.keyword)) {
        report.Add(Severity::Warning, kModuleTextFile,
                   Text("line ", mention - lines.begin() + 1, " is not read: ", entry.keyword,
                        " stands alone on its line, without blanks, and its value on the next"));
    } else {
        report.Add(Severity::Warning, kModuleTextFile,
                   Text(entry.keyword, " in line ", mention - lines.begin() + 1,
                        " is not read: the four entries stand on the first eight lines, with no "
                        "other line between"));
    }
}

/// The value of an entry as it is written; nothing without one.
std::optional<std::string> WrittenValue(const std::vector<std::string>& lines, const Entry& entry) {
    const auto keyword = std::ranges::find_if(lines, [&](const std::string& line) {
        return AsciiEqualsIgnoringCase(line, entry.keyword);
    });
    if (keyword == lines.end() || keyword + 1 == lines.end()) return std::nullopt;
    return *(keyword + 1);
}

void CheckPosition(const std::vector<std::string>& lines, const Entry& entry, std::int32_t position,
                   int orders, Report& report) {
    const std::string written = WrittenValue(lines, entry).value_or("");
    if (written.find_first_of("0123456789") == std::string::npos) {
        report.Add(Severity::Warning, kModuleTextFile,
                   Text(entry.keyword, " is followed by \"", written,
                        "\", which counts as 0; write a number"));
    } else if (position < 0) {
        report.Add(Severity::Warning, kModuleTextFile,
                   Text(entry.keyword, " ", position,
                        " is below 0: the music goes on where it was; write 0 or more"));
    } else if (orders > 0 && position >= orders) {
        report.Add(Severity::Warning, kModuleTextFile,
                   Text(entry.keyword, " ", position, " is beyond the module's ", orders,
                        " positions (0 to ", orders - 1, "), so that it starts from 0"));
    }
}

/// The number of the module's positions. When it cannot be played: 0, and a finding is added.
int CheckModule(const CheckedSkin& skin, const std::string& name, Report& report) {
    const std::string file = std::string(kFolder) + name;
    if (!skin.Has(file)) {
        report.Add(Severity::Error, kModuleTextFile,
                   Text("names the module \"", name,
                        "\", which is not in Audio; the Original's "
                        "music plays instead (put it there or correct the name)"));
        return 0;
    }
    const auto bytes = TheHost().GameFiles().Read(SkinPath(file), kMaxModuleBytes);
    if (!bytes || !CheckModuleHeader(*bytes)) {
        report.Add(Severity::Error, file,
                   bytes ? Text("is no module that the game takes: XM, IT, S3M, MOD or MTM with at "
                                "most ",
                                kMaxModuleChannels, " channels and ", kMaxModuleParts,
                                " of each kind of part, and ", kMaxModuleMemory >> 20,
                                " MB unpacked; save it as one of these")
                         : Text("cannot be opened, or is larger than ", kMaxModuleBytes >> 20,
                                " MB; make it smaller"));
        return 0;
    }
    const std::unique_ptr<MusicStream> stream = OpenModule(*bytes);
    if (!stream)
        report.Add(Severity::Error, file, "is damaged and cannot be played; save it again");
    return stream ? stream->Orders() : 0;
}

void CheckMissingText(const CheckedSkin& skin, Report& report) {
    const auto module = std::ranges::find_if(skin.FileNames(), IsModule);
    if (module == skin.FileNames().end()) {
        report.Add(Severity::Note, kModuleTextFile, "not there; the Original's music plays");
        return;
    }
    std::string entries;
    for (const Entry& entry : kEntries)
        entries += Text(entries.empty() ? "" : ", ", entry.keyword);
    report.Add(Severity::Warning, *module,
               Text("does not play without ", ShownName(kModuleTextFile),
                    "; write that file, with the module's name and three numbers, each on the line "
                    "after its keyword: ",
                    entries));
}

void CheckMusic(const CheckedSkin& skin, Report& report) {
    const auto bytes =
        TheHost().GameFiles().Read(SkinPath(std::string(kModuleTextFile)), kMaxModuleTextBytes);
    if (!bytes) return CheckMissingText(skin, report);
    const std::string text(reinterpret_cast<const char*>(bytes->data()), bytes->size());
    ModuleChoice choice = kNotGiven;
    ApplyModuleText(text, choice);
    const std::vector<std::string> lines = LinesOf(text);
    const int orders =
        IsGiven(choice, kEntries[0]) ? CheckModule(skin, choice.fileName, report) : 0;
    for (const Entry& entry : kEntries) {
        if (!IsGiven(choice, entry)) {
            CheckMissing(lines, entry, report);
        } else if (entry.position) {
            CheckPosition(lines, entry, choice.*entry.position, orders, report);
        }
    }
}

void CheckSound(const CheckedSkin& skin, const SoundRow& row, Report& report) {
    const std::string file(row.file);
    if (!skin.Has(file)) {
        report.Add(Severity::Note, file, "not there; the Original's is heard instead");
        return;
    }
    const auto bytes = TheHost().GameFiles().Read(SkinPath(file), kMaxWavBytes);
    if (!bytes || !ReadWav(*bytes))
        report.Add(
            Severity::Error, file,
            Text("is no sound that the game takes; save it as an uncompressed WAV file of 8 "
                 "or 16 bits, mono or stereo, ",
                 kMinWavRate, " to ", kMaxWavRate, " Hz, of at most ", kMaxWavSeconds, " seconds"));
}

}  // namespace

void CheckAudio(const CheckedSkin& skin, Report& report) {
    if (!skin.Has("Audio")) {
        report.Add(Severity::Note, "Audio", "not there; the Original's music and sounds are heard");
        return;
    }
    CheckMusic(skin, report);
    for (const SoundRow& row : kSoundFiles)
        CheckSound(skin, row, report);
}

Report CheckSkin() {
    Report report;
    const CheckedSkin skin;
    for (const auto check : {CheckFiles, CheckSizes, CheckKeys, CheckText, CheckTiles, CheckAudio})
        check(skin, report);
    return report;
}

}  // namespace korvane
