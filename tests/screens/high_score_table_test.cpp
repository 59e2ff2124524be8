#include "screens/high_score_table.h"

#include <limits>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/program_fixture.h"

namespace korvane {
namespace {

using Bytes = std::vector<std::byte>;

constexpr const char* kFile = "data/hs.dat";
constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();

void AppendRecord(Bytes& file, std::string name, std::int32_t lines, std::int32_t level,
                  std::int32_t score) {
    name.resize(kNameBytes, '\0');
    for (const char letter : name)
        file.push_back(static_cast<std::byte>(letter));
    for (const std::int32_t value : {lines, level, score})
        for (int shift = 0; shift < 32; shift += 8)
            file.push_back(static_cast<std::byte>(static_cast<std::uint32_t>(value) >> shift));
}

using HighScoreTableTest = ProgramFixture;

TEST_F(HighScoreTableTest, AScoreGoesAboveThoseThatItEquals) {
    HighScoreTable table;
    constexpr std::pair<std::int32_t, std::size_t> kRanks[] = {{kMost, 0}, {1001, 0}, {1000, 0},
                                                               {999, 1},   {500, 5},  {100, 9}};
    for (const auto& [score, row] : kRanks)
        EXPECT_EQ(table.FindRank(score), row) << score;
    for (const std::int32_t score : {99, -1, kLeast})
        EXPECT_EQ(table.FindRank(score), std::nullopt) << score;
    for (int i = 0; i < 10; ++i)
        table.Row(static_cast<std::size_t>(i)).score = i < 5 ? kMost : kLeast;
    EXPECT_EQ(table.FindRank(kMost), 0U);
    EXPECT_EQ(table.FindRank(kMost - 1), 5U);
    EXPECT_EQ(table.FindRank(kLeast), 5U);
    for (int i = 0; i < 10; ++i)
        table.Row(static_cast<std::size_t>(i)).score = kMost;
    EXPECT_EQ(table.FindRank(kMost - 1), std::nullopt);
}

TEST_F(HighScoreTableTest, AnEntryPushesThoseBelowItDownAndTheLastOut) {
    for (const std::size_t row : {0U, 4U, 9U}) {
        const HighScoreTable before;
        HighScoreTable after;
        const HighScoreEntry entry{.lines = 1, .score = 2, .level = 3};
        after.Insert(row, entry);
        for (std::size_t i = 0; i < kHighScoreRows; ++i) {
            const HighScoreEntry want = i < row   ? before.Row(i)
                                        : i > row ? before.Row(i - 1)
                                                  : entry;
            EXPECT_EQ(after.Row(i), want) << "inserted at " << row << ", looking at " << i;
        }
    }
}

TEST_F(HighScoreTableTest, TheFileHoldsTenRecordsOfTwentySixBytes) {
    Bytes usual;
    Bytes unusual;  // every field is another number
    for (int row = 0; row < 10; ++row) {
        AppendRecord(usual, "MORLAX", 10 - row, 10 - row, 1000 - 100 * row);
        AppendRecord(unusual, std::string("NAME ") + static_cast<char>('A' + row), 0x01020304 + row,
                     -5 - row, 0x7A000000 - row);
    }
    HighScoreTable().Save();
    EXPECT_EQ(folder.Read(kFile), usual);
    folder.Write(kFile, unusual);
    HighScoreTable table;
    EXPECT_EQ(table.Row(1).Name(), "NAME B");
    EXPECT_EQ(table.Row(1).lines, 0x01020305);
    EXPECT_EQ(table.Row(1).level, -6);
    EXPECT_EQ(table.Row(1).score, 0x79FFFFFF);
    folder.Write(kFile, {});
    table.Save();
    EXPECT_EQ(folder.Read(kFile), unusual);
}

/// Ten records, one for each letter; a dot is the default table's row at that place. From A to J
/// each has one point less than the one before.
Bytes TableOf(const std::string& rows) {
    const std::map<char, std::int32_t> kOthers = {{'K', 1}, {'L', 1}, {'M', 10}, {'N', 0}};
    Bytes file;
    for (std::int32_t i = 0; i < 10; ++i) {
        const char name = rows[static_cast<std::size_t>(i)];
        const auto other = kOthers.find(name);
        if (name == '.') {
            AppendRecord(file, "MORLAX", 10 - i, 10 - i, 1000 - 100 * i);
        } else {
            AppendRecord(file, {name}, 1, 1, other == kOthers.end() ? 'K' - name : other->second);
        }
    }
    return file;
}

TEST_F(HighScoreTableTest, RowsKeptBesideTheFileAreTakenUpByTheirRank) {
    const struct {
        const char* had;
        const char* kept;
        const char* want;
    } kCases[] = {
        {"ABCDEFGHIJ", "..........", "ABCDEFGHIJ"},  // nothing was earned
        {"ABCDEFGHIJ", "K.........", "ABCDEFGHIK"},  // above the one that it equals
        {"ABCDEFGHIJ", "KL........", "ABCDEFGHIK"},  // both equal the last one
        {"ABCDEFGHIJ", "...M......", "MABCDEFGHI"}, {"ABCDEFGHIJ", "M........K", "MABCDEFGHI"},
        {"ABCDEFGHIJ", "N.........", "ABCDEFGHIJ"},  // below all
        {"ABCDEFGHIJ", "A.C.......", "ABCDEFGHIJ"},  // they are there already
        {"ABCDEFGHIJ", "A...A.....", "AABCDEFGHI"},  // one of them is
        {"AABCDEFGHI", ".....A....", "AABCDEFGHI"},
    };
    for (const auto& [had, kept, want] : kCases) {
        folder.Write(kFile, TableOf(had));
        for (int times = 1; times <= 2; ++times) {  // the second time changes nothing
            folder.Write(std::string(kFile) + ".new", TableOf(kept));
            HighScoreTable().Save();
            EXPECT_EQ(folder.Read(kFile), TableOf(want)) << kept << ", " << times;
        }
    }
}

}  // namespace
}  // namespace korvane
