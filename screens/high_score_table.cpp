#include "screens/high_score_table.h"

#include <algorithm>

#include "app/state/data_file.h"

namespace korvane {
namespace {

constexpr std::string_view kTablePath = "data\\hs.dat";
constexpr std::string_view kDefaultName = "MORLAX";

using Rows = std::array<HighScoreEntry, kHighScoreRows>;

/// The layout of data\hs.dat; the numbers stand in another order than in memory.
constexpr auto kVisitRows = [](auto& rows, auto& visit) {
    for (auto& row : rows) {
        visit(row.name);
        visit(row.lines);
        visit(row.level);
        visit(row.score);
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

HighScoreTable::HighScoreTable() {
    if (!Load()) SetDefaults();
}

bool HighScoreTable::Load() {
    // A file without even the first name is none; one that ends later leaves its rows empty.
    const auto rows = ReadDataFile(kTablePath, kNameBytes, Rows(), kVisitRows);
    if (rows) rows_ = *rows;
    return rows.has_value();
}

void HighScoreTable::Save() const {
    WriteDataFile(kTablePath, rows_, kVisitRows);
}

void HighScoreTable::SetDefaults() {
    std::int32_t left = kHighScoreRows;
    for (HighScoreEntry& row : rows_) {
        row.SetName(kDefaultName);
        row.score = 100 * left;
        row.lines = row.level = left;
        --left;
    }
}

std::optional<std::size_t> HighScoreTable::FindRank(std::int32_t score) const {
    const auto row = std::ranges::find_if(
        rows_, [score](const HighScoreEntry& entry) { return entry.score <= score; });
    if (row == rows_.end()) return std::nullopt;
    return static_cast<std::size_t>(row - rows_.begin());
}

void HighScoreTable::Insert(std::size_t row, const HighScoreEntry& entry) {
    const auto place = rows_.begin() + static_cast<std::ptrdiff_t>(row);
    std::shift_right(place, rows_.end(), 1);
    *place = entry;
}

}  // namespace korvane
