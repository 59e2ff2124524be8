#include "app/state/settings.h"

#include <string_view>

#include "app/state/data_file.h"
#include "app/state/static_room.h"

namespace korvane {
namespace {

/// data\menu.dat.
struct SettingsFile {
    using Record = SettingsValues;
    static constexpr std::string_view kPath = "data\\menu.dat";
    static constexpr std::size_t kFewestBytes = 1;
    static constexpr bool kIsShared = false;

    static Record Defaults() { return {}; }
    static Record Unreached() { return {}; }
    static void Visit(auto& values, auto& visit) {
        const auto visitBoth = [&visit](auto& pair) {
            visit(pair[0]);
            visit(pair[1]);
        };
        visit(values.players);
        visitBoth(values.difficulty);
        visitBoth(values.clockwise);
        visitBoth(values.timeBased);
        visit(values.music);
        visit(values.soundEffects);
        visit(values.quakes);
        visit(values.battle);
        visit(values.windowed);
        visit(values.countUpScore);
        visitBoth(values.preview);
        visit(values.individualQuakes);
        visit(values.dropDelayMs);
        visit(values.fullscreenBpp);
        visit(values.fullscreenRefresh);
        visitBoth(values.statistics);
        visit(StoredText{values.skinName, kSkinNameLimit});
        visit(values.showAdvancedAtStart);
        visit(values.scrollingPieces);
        visit(values.sfxMask);
        visit(values.dropMagnitude);
    }
    static Record Merged(const Record& base, const Record& added, const Record& known) {
        return MergedFields<SettingsFile>(base, added, known);
    }
};

/// With a skin name that can be stored: up to its first zero, the default one for one that is too
/// long.
SettingsValues Storable(SettingsValues values) {
    values.skinName = values.skinName.substr(0, values.skinName.find('\0'));
    if (values.skinName.size() > kSkinNameLimit) values.skinName = SettingsValues().skinName;
    return values;
}

constinit StaticRoom<Settings> room;

}  // namespace

constinit Settings& theSettings = room.object;

Settings::Settings() {
    Load();
}

Settings::~Settings() {
    Save();
}

bool Settings::Load() {
    const auto values = LoadDataFile<SettingsFile>(file_);
    if (values) static_cast<SettingsValues&>(*this) = *values;
    saved_ = *this;
    return values.has_value();
}

void Settings::Save() {
    SaveDataFile<SettingsFile>(file_, Storable(*this));
}

bool Settings::SaveSoFar() {
    if (!SaveDataFileSoFar<SettingsFile>(file_, Storable(*this))) return false;
    saved_ = *this;
    return true;
}

void Settings::SetDefaults() {
    static_cast<SettingsValues&>(*this) = {};
}

}  // namespace korvane
