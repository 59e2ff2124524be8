#include "screens/high_score_table.h"

#include <algorithm>
#include <vector>

#include "app/state/data_file.h"

namespace korvane {
namespace {

using Rows = std::array<HighScoreEntry, kHighScoreRows>;

Rows DefaultRows() {
    Rows rows;
    std::int32_t left = kHighScoreRows;
    for (HighScoreEntry& row : rows) {
        row.SetName("MORLAX");
        row.score = 100 * left;
        row.lines = row.level = left;
        --left;
    }
    return rows;
}

/// The first row that a score does not fall short of.
auto RankIn(const auto& rows, std::int32_t score) {
    return std::ranges::find_if(
        rows, [score](const HighScoreEntry& entry) { return entry.score <= score; });
}

/// Takes out of `rows` one for each that is in `others`.
void Subtract(std::vector<HighScoreEntry>& rows, const auto& others) {
    for (const HighScoreEntry& other : others) {
        const auto found = std::ranges::find(rows, other);
        if (found != rows.end()) rows.erase(found);
    }
}

/// data\hs.dat; the numbers stand in another order than in memory.
struct ScoresFile {
    using Record = Rows;
    static constexpr std::string_view kPath = "data\\hs.dat";
    /// A file without even the first name is none; one that ends later leaves its rows empty.
    static constexpr std::size_t kFewestBytes = kNameBytes;

    static Record Defaults() { return DefaultRows(); }
    static Record Unreached() { return {}; }
    static void Visit(auto& rows, auto& visit) {
        for (auto& row : rows) {
            visit(row.name);
            visit(row.lines);
            visit(row.level);
            visit(row.score);
        }
    }
    /// Every row of `added` that is not known goes in by its rank. Those that stand in `base`
    /// already go in anew, so that adding them twice gives the same table.
    static Record Merged(const Record& base, const Record& added, const Record& known) {
        std::vector<HighScoreEntry> earned(added.begin(), added.end());
        Subtract(earned, known);
        std::vector<HighScoreEntry> rows(base.begin(), base.end());
        Subtract(rows, earned);
        // From the lowest up: of equal scores each goes above the one before.
        for (auto row = earned.rbegin(); row != earned.rend(); ++row)
            rows.insert(RankIn(rows, row->score), *row);
        Record merged;
        std::copy_n(rows.begin(), merged.size(), merged.begin());
        return merged;
    }
};

}  // namespace

std::string_view HighScoreEntry::Name() const {
    const std::string_view all(name.data(), name.size());
    return all.substr(0, all.find('\0'));
}

void HighScoreEntry::SetName(std::string_view text) {
    name.fill('\0');
    std::ranges::copy(text.substr(0, kNameBytes - 1), name.begin());
}

HighScoreTable::HighScoreTable() : rows_(LoadDataFile<ScoresFile>(file_).value_or(DefaultRows())) {}

void HighScoreTable::Save() const {
    SaveDataFile<ScoresFile>(file_, rows_);
}

std::optional<std::size_t> HighScoreTable::FindRank(std::int32_t score) const {
    const auto row = RankIn(rows_, score);
    if (row == rows_.end()) return std::nullopt;
    return static_cast<std::size_t>(row - rows_.begin());
}

void HighScoreTable::Insert(std::size_t row, const HighScoreEntry& entry) {
    const auto place = rows_.begin() + static_cast<std::ptrdiff_t>(row);
    std::shift_right(place, rows_.end(), 1);
    *place = entry;
}

}  // namespace korvane
