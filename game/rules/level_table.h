#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "app/state/data_file_session.h"
#include "game/rules/side.h"

namespace korvane {

inline constexpr std::size_t kLevelCount = 10;

using LevelSpeeds = std::array<std::array<std::uint32_t, kDifficultyCount>, kLevelCount>;
using LevelThresholds = std::array<std::uint32_t, kLevelCount>;

/// Speeds and thresholds of the levels 0 to 9, all zero at first. Any value may stand in a table
/// from a file. The thresholds of level 0 are not used.
struct LevelTableValues {
    std::uint32_t version = 0;           ///< kept and shown, without meaning for the game
    LevelSpeeds normalMs{};              ///< [level][difficulty]: milliseconds a row takes
    LevelSpeeds scrollingPxPerSecond{};  ///< [level][difficulty]: speed of the glide
    LevelThresholds figuresForLevel{};   ///< more figures than this
    LevelThresholds secondsForLevel{};   ///< at least this many seconds of play

    bool operator==(const LevelTableValues&) const = default;
};

/// The one level table, loaded from data\sync.dat when it is made (the defaults when that fails)
/// and written back when it is destroyed.
class LevelTable : public LevelTableValues {
  public:
    LevelTable();
    virtual ~LevelTable();
    LevelTable(const LevelTable&) = delete;
    LevelTable& operator=(const LevelTable&) = delete;

    /// False, with nothing changed, when the file is missing, unreadable or holds not even the
    /// version, and nothing stands beside it. Fields behind the end of a short file become 0.
    bool LoadTable();
    /// Replaces the file; a failure goes unnoticed.
    void SaveTable();
    /// Whether anything differs from what was loaded or saved last.
    bool HasChanged() const { return *this != saved_; }
    /// Saves while the program goes on, without waiting for other programs; false when it must be
    /// tried again.
    bool SaveSoFar();
    void SetDefaults();

  private:
    DataFileSession file_;
    LevelTableValues saved_;
};

/// The level table of this process; app/static_objects.cpp makes it before `main` runs.
extern LevelTable& theLevelTable;

}  // namespace korvane
