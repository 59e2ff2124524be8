#include "app/autosave.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>

#include "app/state/process_state.h"
#include "app/state/settings.h"
#include "game/rules/key_bindings.h"
#include "game/rules/level_table.h"
#include "platform/host/kernel.h"
#include "screens/high_score_screen.h"
#include "screens/menu_screen.h"

namespace korvane {
namespace {

/// The least time between two saves of a file, and between two tries.
constexpr std::uint32_t kPauseMs = 1000;
constexpr WPARAM kTimer = 5;

/// One of the data files.
struct SavedFile {
    bool (*hasChanged)();
    bool (*save)();
    bool isUrgent;  ///< waits only after a try that failed

    std::optional<std::uint32_t> lastTry = std::nullopt;
    bool failed = false;

    /// Milliseconds until the next try.
    std::uint32_t TimeLeft(std::uint32_t now) const {
        if (!lastTry || (isUrgent && !failed)) return 0;
        return kPauseMs - std::min(now - *lastTry, kPauseMs);
    }
    void Save(std::uint32_t now) {
        failed = !save();
        lastTry = now;
    }
};

constinit std::array theSavedFiles = {
    SavedFile{[] { return theHighScoreScreen && theHighScoreScreen->HasUnsaved(); },
              [] { return theHighScoreScreen->SaveSoFar(); }, true},
    SavedFile{[] { return theMenuScreen && keyBindings.HasChanged(); },
              [] { return keyBindings.SaveSoFar(); }, false},
    SavedFile{[] { return theLevelTable.HasChanged(); }, [] { return theLevelTable.SaveSoFar(); },
              false},
    SavedFile{[] { return theSettings.HasChanged(); }, [] { return theSettings.SaveSoFar(); },
              false},
};

}  // namespace

void BeginAutosave() {
    for (SavedFile& file : theSavedFiles) {
        file.lastTry.reset();
        file.failed = false;
    }
}

void SaveChanges() {
    std::optional<std::uint32_t> soonest;
    for (SavedFile& file : theSavedFiles) {
        if (!file.hasChanged()) continue;
        const std::uint32_t now = GetTickCount();
        const std::uint32_t left = file.TimeLeft(now);
        if (left == 0) {
            file.Save(now);
        } else if (!file.failed) {  // a failing disk does not wake a waiting program every second
            soonest = std::min(left, soonest.value_or(left));
        }
    }
    if (soonest) SetTimer(mainWindow, kTimer, *soonest);
}

bool OnAutosaveTimer(HWND window, WPARAM id) {
    if (id != kTimer) return false;
    KillTimer(window, kTimer);
    SaveChanges();
    return true;
}

}  // namespace korvane
