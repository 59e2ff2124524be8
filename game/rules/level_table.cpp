#include "game/rules/level_table.h"

#include <string_view>

#include "app/state/data_file.h"
#include "app/state/static_room.h"

namespace korvane {
namespace {

constexpr LevelTableValues kDefaultTable = {
    .version = 151,
    .normalMs = {{{250, 200, 150},
                  {225, 180, 135},
                  {200, 160, 120},
                  {175, 140, 105},
                  {150, 120, 90},
                  {125, 100, 75},
                  {100, 80, 60},
                  {75, 60, 45},
                  {50, 40, 30},
                  {25, 20, 15}}},
    .scrollingPxPerSecond = {{{40, 50, 60},
                              {50, 60, 70},
                              {60, 70, 80},
                              {70, 80, 90},
                              {80, 90, 100},
                              {95, 105, 115},
                              {110, 120, 130},
                              {140, 150, 160},
                              {175, 185, 195},
                              {215, 225, 235}}},
    .figuresForLevel = {0, 12, 25, 50, 100, 150, 200, 250, 300, 350},
    .secondsForLevel = {0, 45, 120, 180, 240, 330, 420, 510, 600, 720},
};

static_assert(kDefaultTable.normalMs.back().back() == 15 &&
                  kDefaultTable.scrollingPxPerSecond.back().back() == 235 &&
                  kDefaultTable.figuresForLevel.back() == 350 &&
                  kDefaultTable.secondsForLevel.back() == 720,
              "a row of the table is missing");

/// data\sync.dat.
struct LevelFile {
    using Record = LevelTableValues;
    static constexpr std::string_view kPath = "data\\sync.dat";
    static constexpr std::size_t kFewestBytes = sizeof(Record::version);
    static constexpr bool kIsShared = false;

    static Record Defaults() { return kDefaultTable; }
    static Record Unreached() { return {}; }
    static void Visit(auto& table, auto& visit) {
        visit(table.version);
        for (std::size_t level = 0; level < kLevelCount; ++level) {
            for (std::size_t difficulty = 0; difficulty < kDifficultyCount; ++difficulty) {
                visit(table.normalMs[level][difficulty]);
                visit(table.scrollingPxPerSecond[level][difficulty]);
            }
            visit(table.figuresForLevel[level]);
            visit(table.secondsForLevel[level]);
        }
    }
    static Record Merged(const Record& base, const Record& added, const Record& known) {
        return MergedFields<LevelFile>(base, added, known);
    }
};

constinit StaticRoom<LevelTable> room;

}  // namespace

constinit LevelTable& theLevelTable = room.object;

LevelTable::LevelTable() {
    if (!LoadTable()) SetDefaults();
    saved_ = *this;
}

LevelTable::~LevelTable() {
    SaveTable();
}

bool LevelTable::LoadTable() {
    const auto table = LoadDataFile<LevelFile>(file_);
    if (table) static_cast<LevelTableValues&>(*this) = saved_ = *table;
    return table.has_value();
}

void LevelTable::SaveTable() {
    SaveDataFile<LevelFile>(file_, *this);
}

bool LevelTable::SaveSoFar() {
    if (!SaveDataFileSoFar<LevelFile>(file_, *this)) return false;
    saved_ = *this;
    return true;
}

void LevelTable::SetDefaults() {
    static_cast<LevelTableValues&>(*this) = kDefaultTable;
}

}  // namespace korvane
