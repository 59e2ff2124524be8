#include "screens/high_score_table.h"

#include <algorithm>
#include <span>

#include "platform/base/byte_stream.h"
#include "platform/host/kernel.h"

namespace korvane {
namespace {

constexpr std::string_view kTablePath = "data\\hs.dat";
constexpr std::string_view kDefaultName = "MORLAX";

/// The one description of the file, for reading and writing alike. Its numbers stand in another
/// order than in memory.
template <typename Rows, typename Visitor>
void VisitInFileOrder(Rows& rows, Visitor& visit) {
    for (auto& row : rows) {
        visit(row.name);
        visit(row.lines);
        visit(row.level);
        visit(row.score);
    }
}

class FieldReader {
  public:
    explicit FieldReader(std::span<const std::byte> bytes) : reader_(bytes) {}

    void operator()(std::int32_t& field) { reader_.Read(field); }

    void operator()(std::array<char, kNameBytes>& name) {
        std::ranges::transform(reader_.Take(name.size()), name.begin(),
                               [](std::byte byte) { return static_cast<char>(byte); });
    }

  private:
    ByteReader reader_;
};

class FieldWriter {
  public:
    std::span<const std::byte> Bytes() const { return writer_.Bytes(); }

    void operator()(std::int32_t field) { writer_.Write(field); }

    void operator()(const std::array<char, kNameBytes>& name) {
        writer_.Write(std::string_view(name.data(), name.size()));
    }

  private:
    ByteWriter writer_;
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
    const auto bytes = GameFiles().Read(kTablePath, kDataFileCap);
    // A file without even the first name is none; one that ends later leaves its rows empty.
    if (!bytes || bytes->size() < kNameBytes) return false;
    FieldReader reader(*bytes);
    VisitInFileOrder(rows_, reader);
    return true;
}

void HighScoreTable::Save() const {
    FieldWriter writer;
    VisitInFileOrder(rows_, writer);
    GameFiles().Replace(kTablePath, writer.Bytes());
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
