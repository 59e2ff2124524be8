#include "app/state/settings.h"

#include <string_view>

#include "app/state/static_room.h"
#include "platform/base/byte_stream.h"
#include "platform/host/kernel.h"

namespace korvane {
namespace {

constexpr std::string_view kSettingsPath = "data\\menu.dat";

/// The one description of the file, for reading and writing alike.
template <typename Values, typename Visitor>
void VisitInFileOrder(Values& values, Visitor& visit) {
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
    visit(values.skinName);
    visit(values.showAdvancedAtStart);
    visit(values.scrollingPieces);
    visit(values.sfxMask);
    visit(values.dropMagnitude);
}

/// The characters in front of the first zero.
std::string_view UpToZero(std::string_view text) {
    return text.substr(0, text.find('\0'));
}

class FieldReader {
  public:
    explicit FieldReader(std::span<const std::byte> bytes) : reader_(bytes) {}

    bool NameWasTooLong() const { return nameWasTooLong_; }

    void operator()(auto& field) { reader_.Read(field); }

    void operator()(std::string& name) {
        std::uint16_t length = 0;
        reader_.Read(length);
        nameWasTooLong_ = length > kSkinNameLimit + 1;
        const std::span<const std::byte> bytes = reader_.Take(length);
        if (bytes.empty()) return;
        const std::string_view stored(reinterpret_cast<const char*>(bytes.data()), bytes.size());
        name = UpToZero(stored).substr(0, kSkinNameLimit);
    }

  private:
    ByteReader reader_;
    bool nameWasTooLong_ = false;
};

class FieldWriter {
  public:
    std::span<const std::byte> Bytes() const { return writer_.Bytes(); }

    void operator()(const auto& field) { writer_.Write(field); }

    void operator()(const std::string& name) {
        std::string stored(UpToZero(name));
        if (stored.size() > kSkinNameLimit) stored = SettingsValues().skinName;
        stored.push_back('\0');
        writer_.Write(static_cast<std::uint16_t>(stored.size()));
        writer_.Write(std::string_view(stored));
    }

  private:
    ByteWriter writer_;
};

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
    const auto bytes = GameFiles().Read(kSettingsPath, kDataFileCap);
    if (!bytes || bytes->empty()) return false;
    SettingsValues values;
    FieldReader reader(*bytes);
    VisitInFileOrder(values, reader);
    if (reader.NameWasTooLong()) return false;
    static_cast<SettingsValues&>(*this) = values;
    return true;
}

void Settings::Save() const {
    FieldWriter writer;
    VisitInFileOrder(*this, writer);
    GameFiles().Replace(kSettingsPath, writer.Bytes());
}

void Settings::SetDefaults() {
    static_cast<SettingsValues&>(*this) = {};
}

}  // namespace korvane
