#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

#include "app/state/data_file_session.h"

namespace korvane {

inline constexpr std::size_t kHighScoreRows = 10;
inline constexpr std::size_t kNameBytes = 14;

struct HighScoreEntry {
    /// Text up to the first zero; all of it when there is none, as only a file can make it.
    std::array<char, kNameBytes> name{};
    std::int32_t lines = 0;
    std::int32_t score = 0;
    std::int32_t level = 0;

    std::string_view Name() const;
    void SetName(std::string_view text);

    bool operator==(const HighScoreEntry&) const = default;
};

/// The ten best results, the best on top. It is loaded from data\hs.dat when it is made and goes
/// back there only by `Save` and `SaveSoFar`: what was done to it since the last time is done to
/// the table that the file holds by then. So the results of programs that run side by side all
/// stay, each once, as far as there are rows.
class HighScoreTable {
  public:
    HighScoreTable();

    /// The row that a score would take, above those that it equals; nothing when it is below all.
    std::optional<std::size_t> FindRank(std::int32_t score) const;
    /// Puts an entry in a row; those from there on move down and the last one drops out.
    void Insert(std::size_t row, const HighScoreEntry& entry);

    /// Replaces the file; a failure goes unnoticed.
    void Save();
    /// Saves while the program goes on, without waiting for other programs; false when it must be
    /// tried again.
    bool SaveSoFar();
    /// Takes the table that `SaveSoFar` has left in the file, with other programs' results.
    void TakeUpSaved();

    HighScoreEntry& Row(std::size_t row) { return rows_[row]; }
    const HighScoreEntry& Row(std::size_t row) const { return rows_[row]; }

  private:
    DataFileSession file_;
    std::array<HighScoreEntry, kHighScoreRows> rows_;
};

}  // namespace korvane
