#include "tools/korvane-skin/finding.h"

#include <algorithm>
#include <array>
#include <tuple>

#include "tools/korvane-skin/catalogue.h"
#include "tools/korvane-skin/json.h"

namespace korvane {
namespace {

constexpr std::array kNames = {"error", "warning", "note"};

const char* NameOf(Severity severity) {
    return kNames[static_cast<std::size_t>(severity)];
}

std::string Counted(std::size_t count, Severity severity) {
    return Text(count, ' ', NameOf(severity), count == 1 ? "" : "s");
}

}  // namespace

std::string Printable(std::string text) {
    const auto isControl = [](char character) {
        return static_cast<unsigned char>(character) < ' ' || character == '\x7F';
    };
    std::ranges::replace_if(text, isControl, '?');
    return text;
}

void Report::Add(Severity severity, std::string_view file, std::string text) {
    findings_.push_back({severity, Printable(ShownName(file)), Printable(std::move(text))});
}

std::size_t Report::Count(Severity severity) const {
    return static_cast<std::size_t>(std::ranges::count(findings_, severity, &Finding::severity));
}

std::vector<Finding> Report::Sorted() const {
    std::vector<Finding> sorted;
    const auto key = [](const Finding& finding) {
        return std::tie(finding.file, finding.severity);
    };
    for (const Finding& finding : findings_)
        sorted.insert(std::ranges::upper_bound(sorted, key(finding), {}, key), finding);
    return sorted;
}

void Report::PrintJson(std::ostream& out) const {
    out << "{\"errors\": " << Count(Severity::Error)
        << ", \"warnings\": " << Count(Severity::Warning)
        << ", \"notes\": " << Count(Severity::Note) << ", \"findings\": "
        << List(Sorted(),
                [](const Finding& finding) {
                    return Object({{"severity", Quoted(NameOf(finding.severity))},
                                   {"file", Quoted(finding.file)},
                                   {"text", Quoted(finding.text)}});
                })
        << "}\n";
}

void Report::Print(std::ostream& out) const {
    for (const Finding& finding : Sorted())
        out << NameOf(finding.severity) << "  " << finding.file << ": " << finding.text << '\n';
    out << Counted(Count(Severity::Error), Severity::Error) << ", "
        << Counted(Count(Severity::Warning), Severity::Warning) << ", "
        << Counted(Count(Severity::Note), Severity::Note) << '\n';
}

}  // namespace korvane
