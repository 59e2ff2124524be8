#pragma once

#include <cstddef>
#include <ostream>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace korvane {

/// Error: the game does not show or play something. Warning: it looks or sounds wrong. Note: worth
/// knowing.
enum class Severity { Error, Warning, Note };

struct Finding {
    Severity severity;
    std::string file;  ///< relative to the skin, with slashes
    std::string text;  ///< what is wrong, and how to mend it

    bool operator==(const Finding&) const = default;
};

/// The findings of a check.
class Report {
  public:
    /// `file` may have backslashes.
    void Add(Severity severity, std::string_view file, std::string text);
    std::size_t Count(Severity severity) const;
    const std::vector<Finding>& Findings() const { return findings_; }
    /// One line for each finding, sorted by file, errors first; a last line with the counts.
    void Print(std::ostream& out) const;
    /// {"errors": 1, "warnings": 0, "notes": 0, "findings": [{"severity": "error", "file": "a.bmp",
    /// "text": "..."}]}, in the same order.
    void PrintJson(std::ostream& out) const;

  private:
    std::vector<Finding> Sorted() const;

    std::vector<Finding> findings_;
};

/// Texts from files may hold control characters, which would break a line or steer a terminal. They
/// become question marks.
std::string Printable(std::string text);

/// The values as a stream prints them, one after the other.
template <typename... Parts>
std::string Text(const Parts&... parts) {
    std::ostringstream text;
    (text << ... << parts);
    return text.str();
}

}  // namespace korvane
