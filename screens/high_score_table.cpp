#include "screens/high_score_table.h"

#include <algorithm>
#include <iterator>
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

/// Takes one that is alike out of `rows`, if there is one.
void TakeOut(std::vector<HighScoreEntry>& rows, const HighScoreEntry& row) {
    const auto found = std::ranges::find(rows, row);
    if (found != rows.end()) rows.erase(found);
}

/// data\hs.dat; the numbers stand in another order than in memory.
struct ScoresFile {
    using Record = Rows;
    static constexpr std::string_view kPath = "data\\hs.dat";
    /// A file without even the first name is none; one that ends later leaves its rows empty.
    static constexpr std::size_t kFewestBytes = kNameBytes;
    static constexpr bool kIsShared = true;

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
    /// Rows that `added` has more often than `known` were earned and go in by their rank. All that
    /// are alike go in anew, so that adding them twice gives the same table. Rows that it has less
    /// often have got their name or were beaten: they go out where there are rows enough.
    static Record Merged(const Record& base, const Record& added, const Record& known) {
        std::vector<HighScoreEntry> earned;
        std::ranges::copy_if(added, std::back_inserter(earned), [&](const HighScoreEntry& row) {
            return std::ranges::count(added, row) > std::ranges::count(known, row);
        });
        std::vector<HighScoreEntry> rows(base.begin(), base.end());
        for (const HighScoreEntry& row : earned)
            TakeOut(rows, row);
        // From the lowest up: of equal scores each goes above the one before.
        for (auto row = earned.rbegin(); row != earned.rend(); ++row)
            rows.insert(RankIn(rows, row->score), *row);
        std::vector<HighScoreEntry> gone(known.begin(), known.end());
        for (const HighScoreEntry& row : added)
            TakeOut(gone, row);
        for (auto row = gone.begin(); row != gone.end() && rows.size() > kHighScoreRows; ++row)
            TakeOut(rows, *row);
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

void HighScoreTable::Save() {
    SaveDataFile<ScoresFile>(file_, rows_);
}

bool HighScoreTable::SaveSoFar() {
    return SaveDataFileSoFar<ScoresFile>(file_, rows_);
}

void HighScoreTable::TakeUpSaved() {
    const auto saved = Decoded<ScoresFile>(file_.written);
    if (!saved) return;
    rows_ = *saved;
    file_.known = file_.written;
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
