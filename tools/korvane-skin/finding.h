#pragma once

#include <cstddef>
#include <ostream>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace korvane {

/// An error is lost on the screen or to the ear; a warning looks or sounds wrong; a note is worth
/// knowing.
enum class Severity { Error, Warning, Note };

struct Finding {
    Severity severity;
    std::string file;  ///< relative to the skin, with slashes
    std::string text;  ///< what is wrong, and what to do

    bool operator==(const Finding&) const = default;
};

/// All that a check has found.
class Report {
  public:
    /// `file` may have backslashes.
    void Add(Severity severity, std::string_view file, std::string text);
    std::size_t Count(Severity severity) const;
    const std::vector<Finding>& Findings() const { return findings_; }
    /// One line for each finding, sorted by file, errors first; a last line with the counts.
    void Print(std::ostream& out) const;

  private:
    std::vector<Finding> findings_;
};

/// Puts values together as they are written to a stream.
template <typename... Parts>
std::string Text(const Parts&... parts) {
    std::ostringstream text;
    (text << ... << parts);
    return text.str();
}

}  // namespace korvane
