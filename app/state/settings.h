#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

#include "app/state/data_file_session.h"

namespace korvane {

/// Bits of `sfxMask`: the events whose sound effects play.
enum : std::uint8_t {
    kSfxMenuButtons = 1,
    kSfxRowsDone = 2,
    kSfxLevelChange = 4,
    kSfxRotate = 8,
    kSfxFigureLanding = 16,
};

/// The longest skin name in characters.
inline constexpr std::size_t kSkinNameLimit = 254;

/// All user choices, initially the defaults. Pairs hold the right player's value first.
///
/// The numbers come from a file and may hold anything: whoever uses one as an index or a count
/// limits it there (for `difficulty` that is `PlayedDifficulty`).
struct SettingsValues {
    std::uint8_t players = 1;
    std::array<std::int32_t, 2> difficulty{0, 0};
    std::array<bool, 2> clockwise{false, false};
    std::array<bool, 2> timeBased{false, false};
    bool music = true;
    bool soundEffects = true;
    bool quakes = true;
    bool battle = false;
    bool windowed = true;
    std::array<bool, 2> preview{true, true};
    bool countUpScore = true;
    bool individualQuakes = false;
    bool showAdvancedAtStart = true;
    bool scrollingPieces = true;
    std::string skinName = "Original";
    std::uint8_t sfxMask = 31;
    std::int32_t dropMagnitude = 8;       ///< pixels per soft-drop step of gliding figures
    std::uint32_t dropDelayMs = 10;       ///< between soft-drop steps; 0: straight down at once
    std::uint32_t fullscreenBpp = 16;     ///< 0: full screen cannot be chosen
    std::uint32_t fullscreenRefresh = 0;  ///< Hz; 0: the display picks
    std::array<bool, 2> statistics{true, true};

    bool operator==(const SettingsValues&) const = default;
};

/// The one record of user choices, loaded from data\menu.dat when it is made (the defaults when
/// that fails) and written back when it is destroyed.
class Settings : public SettingsValues {
  public:
    Settings();
    virtual ~Settings();
    Settings(const Settings&) = delete;
    Settings& operator=(const Settings&) = delete;

    /// False, with nothing changed, when the file is missing, unreadable, empty or holds a skin
    /// name that is too long, and nothing stands beside it. Fields behind the end of a short file
    /// get their defaults.
    bool Load();

    /// Replaces the file; a failure goes unnoticed. A skin name beyond kSkinNameLimit cannot be
    /// stored: the default name is written in its place.
    void Save();

    /// Whether anything differs from what was loaded or saved last.
    bool HasChanged() const { return *this != saved_; }
    /// Saves while the program goes on, without waiting for other programs; false when it must be
    /// tried again.
    bool SaveSoFar();

    void SetDefaults();

  private:
    DataFileSession file_;
    SettingsValues saved_;
};

/// The settings of this process; app/static_objects.cpp makes them before `main` runs.
extern Settings& theSettings;

}  // namespace korvane
