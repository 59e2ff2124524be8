#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <initializer_list>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

#include "app/state/settings.h"
#include "game/rules/key_bindings.h"
#include "game/rules/level_table.h"
#include "platform/base/byte_stream.h"
#include "platform/headless/headless_host.h"
#include "screens/high_score_table.h"
#include "tests/support/temporary_folder.h"

namespace korvane {
namespace {

using Bytes = std::vector<std::byte>;

Bytes BytesOf(std::initializer_list<int> values) {
    Bytes bytes;
    for (const int value : values)
        bytes.push_back(static_cast<std::byte>(value));
    return bytes;
}

Bytes First(const Bytes& bytes, std::size_t count) {
    return {bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(count)};
}

/// Bytes that differ from those of any defaults.
Bytes Counted(std::size_t size) {
    Bytes bytes(size);
    for (std::size_t i = 0; i < size; ++i)
        bytes[i] = static_cast<std::byte>(i * 7 + 1);
    return bytes;
}

/// What the user does in a session.
enum Deed : std::uint8_t { kNothing, kOneThing, kAnother };

/// What is looked at while the session goes on.
using Look = std::function<void()>;

void SaveSoFar(auto& record, const Look& look) {
    if (!look) return;
    record.SaveSoFar();
    look();
}

/// One of the four files and the object that reads it when it is made and can write it.
struct DataFile {
    const char* name;
    /// Whole, with fields that all differ from the defaults.
    Bytes unusual;
    /// The sizes of its fields, from the first on again until its end. A file with less than the
    /// first counts as none.
    std::vector<std::size_t> fields;
    void (*run)(Deed deed, const Look& look);

    void session(Deed deed, const Look& look = {}) const { run(deed, look); }
    void LoadAndSave() const { session(kNothing); }
    std::string Beside() const { return std::string(name) + ".new"; }
};

const std::vector<DataFile> kDataFiles = {
    {"data/menu.dat",
     BytesOf({2,   1,   0,   0,   0, 2, 0, 0,    0,    1,    1,    1,    1,   0,
              0,   0,   1,   0,   0, 0, 0, 1,    0x44, 0x33, 0x22, 0x11, 32,  0,
              0,   0,   75,  0,   0, 0, 0, 0,    9,    0,    'M',  'i',  'd', 'n',
              'i', 'g', 'h', 't', 0, 0, 0, 0xE3, 0xFE, 0xFF, 0xFF, 0xFF}),
     {1, 4, 4, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 4, 4, 4, 1, 1, 11, 1, 1, 1, 4},
     [](Deed deed, const Look& look) {
         Settings settings;
         if (deed == kAnother) settings.sfxMask = 5;
         if (deed == kOneThing) settings.dropMagnitude = 77;
         if (deed == kOneThing) settings.skinName = "Daylight";
         SaveSoFar(settings, look);
     }},
    {"data/sync.dat",
     Counted(324),
     {4},
     [](Deed deed, const Look& look) {
         LevelTable table;
         if (deed == kOneThing) table.figuresForLevel[9] = 4711;
         if (deed == kAnother) table.normalMs[3][1] = 4711;
         SaveSoFar(table, look);
     }},
    {"data/hs.dat",
     Counted(260),
     {14, 4, 4, 4},
     [](Deed deed, const Look& look) {
         HighScoreTable table;
         const int score = 5000 - deed;
         if (deed != kNothing) table.Insert(*table.FindRank(score), {.score = score});
         SaveSoFar(table, look);
         table.Save();
     }},
    {"data/keys.dat",
     Counted(10),
     {1},
     [](Deed deed, const Look& look) {
         KeyBindings bindings;
         bindings.Load();
         if (deed == kOneThing) bindings.Bind(Action::Rotate, Side::Right, 'J');
         if (deed == kAnother) bindings.Bind(Action::Rotate, Side::Left, '2');
         SaveSoFar(bindings, look);
         bindings.Save();
     }},
};

/// How many calls fail from now on.
struct Faults {
    int goodReads = 0;  ///< before that
    int reads = 0;
    int replaces = 0;
    bool besideToo = true;  ///< of the files beside, too
};
constexpr int kAll = 1000;

/// The files of a folder, of which some cannot be used.
class FaultyFiles final : public Files {
  public:
    FaultyFiles(const std::string& folder, Faults faults)
        : files_(OpenDiskFiles(folder)), faults_(faults) {}
    ReadResult TryRead(std::string_view path, std::size_t cap) override {
        const bool mayFail = faults_.besideToo || !path.ends_with(".new");
        if (mayFail && faults_.goodReads-- <= 0 && faults_.reads-- > 0)
            return {ReadStatus::Unreadable, {}};
        return files_->TryRead(path, cap);
    }
    bool Replace(std::string_view path, std::span<const std::byte> bytes) override {
        return faults_.replaces-- <= 0 && files_->Replace(path, bytes);
    }
    bool Delete(std::string_view path, std::span<const std::byte> bytes) override {
        return files_->Delete(path, bytes);
    }
    std::optional<std::vector<FolderEntry>> List(std::string_view) override { return {}; }

  private:
    const std::unique_ptr<Files> files_;
    Faults faults_;
};

class DataFilesTest : public testing::Test {
  protected:
    void SetUp() override {
        Headless().Reset();
        Headless().UseFolder(folder.Path());
    }
    void TearDown() override { Headless().Reset(); }  // of a test's own faults

    /// What the object that has read these bytes writes.
    Bytes Rewritten(const DataFile& file, const Bytes& bytes) const {
        folder.Write(file.name, bytes);
        file.LoadAndSave();
        return folder.Read(file.name);
    }

    bool StandsBeside(const DataFile& file) const {
        return std::filesystem::exists(folder.Path() + "/" + file.Beside());
    }
    void UseFaults(Faults faults) const {
        Headless().UseFiles(std::make_unique<FaultyFiles>(folder.Path(), faults));
    }
    /// What is in the file when the user has done both things.
    Bytes Changed(const DataFile& file) const {
        Headless().UseFolder(folder.Path());
        folder.Write(file.name, file.unusual);
        file.session(kOneThing);
        file.session(kAnother);
        return folder.Read(file.name);
    }

    TemporaryFolder folder;
};

TEST_F(DataFilesTest, AreMadeWithDefaultsInTheirFolderOnly) {
    for (const DataFile& file : kDataFiles)
        file.LoadAndSave();
    EXPECT_TRUE(std::filesystem::is_empty(folder.Path()));
    folder.Write("data/other", {});
    for (const DataFile& file : kDataFiles) {
        file.LoadAndSave();
        EXPECT_EQ(folder.Read(file.name).size(), file.unusual.size());
    }
}

/// Bytes that mean nothing give an object that writes a whole file again, which then stays.
TEST_F(DataFilesTest, AnyBytesAreTakenAndWrittenBackWhole) {
    for (const DataFile& file : kDataFiles) {
        for (const std::size_t length : {std::size_t{1}, file.unusual.size(), std::size_t{5000}}) {
            SCOPED_TRACE(testing::Message() << file.name << ", " << length << " bytes");
            folder.Write(file.Beside(), Bytes(length, std::byte{0x7F}));
            const Bytes first = Rewritten(file, Bytes(length, std::byte{0xFF}));
            EXPECT_EQ(first.size(), file.unusual.size());
            EXPECT_EQ(Rewritten(file, first), first);
        }
    }
}

TEST_F(DataFilesTest, CutAnywhereTheyGiveTheWholeFieldsThatAreThere) {
    for (const DataFile& file : kDataFiles) {
        const Bytes defaults = Rewritten(file, {});
        // Settings behind the end have their defaults; the other files' fields are zero there.
        Bytes want = &file == kDataFiles.data() ? defaults : Bytes(file.unusual.size());
        std::size_t fieldBegin = 0;
        auto field = file.fields.begin();
        for (std::size_t length = 0; length <= file.unusual.size(); ++length) {
            if (length == fieldBegin + *field) {
                std::copy_n(&file.unusual[fieldBegin], *field, &want[fieldBegin]);
                fieldBegin = length;
                if (++field == file.fields.end()) field = file.fields.begin();
            }
            EXPECT_EQ(Rewritten(file, First(file.unusual, length)),
                      length < file.fields[0] ? defaults : want)
                << file.name << ", " << length << " bytes";
        }
    }
}

TEST_F(DataFilesTest, OneThatCannotBeReadStaysAndLosesNothing) {
    for (const DataFile& file : kDataFiles) {
        SCOPED_TRACE(file.name);
        Headless().Reset();
        const Bytes want = Changed(file);
        EXPECT_TRUE(Headless().Reports().empty());
        Bytes tooLong = file.unusual;
        tooLong.resize(kDataFileCap + 1);
        EXPECT_EQ(Rewritten(file, tooLong), tooLong);
        EXPECT_FALSE(StandsBeside(file)) << "there was nothing to keep";
        ASSERT_EQ(Headless().Reports().size(), 1U);
        EXPECT_EQ(Headless().Reports()[0],
                  "Korvane: " + std::string(file.name) +
                      " is there but cannot be read, so it stays as it is. What changes now is "
                      "kept in " +
                      file.name + ".new until a start that can read both.");
        file.session(kOneThing);
        file.session(kAnother);
        file.LoadAndSave();
        EXPECT_EQ(folder.Read(file.name), tooLong);
        EXPECT_EQ(Headless().Reports().size(), 4U);
        const Bytes kept = folder.Read(file.Beside());

        // A start that can read both, and one to which it looks as if it were the first such.
        for (const Bytes& old : {file.unusual, want}) {
            folder.Write(file.Beside(), kept);
            EXPECT_EQ(Rewritten(file, old), want);
            EXPECT_FALSE(StandsBeside(file));
        }
    }
}

TEST_F(DataFilesTest, WhatStandsBesideThemGoesOnlyWhenItIsTakenUp) {
    for (const DataFile& file : kDataFiles) {
        SCOPED_TRACE(file.name);
        const Bytes want = Changed(file);
        UseFaults({.reads = kAll, .besideToo = false});
        file.session(kOneThing);
        const Bytes kept = folder.Read(file.Beside());
        folder.Write(file.name, file.unusual);

        UseFaults({.replaces = kAll});
        file.LoadAndSave();
        EXPECT_EQ(folder.Read(file.Beside()), kept) << "the file was not replaced";

        UseFaults({.reads = kAll});
        const std::size_t told = Headless().Reports().size();
        file.session(kAnother);
        EXPECT_EQ(folder.Read(file.Beside()), kept) << "it could not be read";
        EXPECT_EQ(Headless().Reports().size(), told + 2) << "a change was lost";

        UseFaults({.reads = 2});  // both files at the start
        file.session(kAnother);
        EXPECT_EQ(folder.Read(file.name), file.unusual);

        UseFaults({.replaces = 1});
        file.LoadAndSave();
        EXPECT_EQ(folder.Read(file.name), want) << "a write that fails once is tried again";
        EXPECT_FALSE(StandsBeside(file));
    }
}

TEST_F(DataFilesTest, ASaveWhileTheSessionGoesOnHeedsTheSameRules) {
    for (const DataFile& file : kDataFiles) {
        SCOPED_TRACE(file.name);
        Headless().Reset();
        const Bytes want = Changed(file);
        folder.Write(file.name, file.unusual);
        UseFaults({.reads = kAll, .besideToo = false});
        file.session(kOneThing, [&] { EXPECT_TRUE(StandsBeside(file)); });
        EXPECT_EQ(folder.Read(file.name), file.unusual) << "unreadable from the start";

        Headless().UseFolder(folder.Path());
        file.session(kAnother, [&] {
            EXPECT_EQ(folder.Read(file.name), want);
            EXPECT_FALSE(StandsBeside(file)) << "it would be taken up again";
        });

        folder.Write(file.name, file.unusual);
        file.session(kOneThing);
        const Bytes old = folder.Read(file.name);
        UseFaults({.goodReads = 1, .reads = kAll, .besideToo = false});
        const std::size_t told = Headless().Reports().size();
        file.session(kAnother, [&] {
            EXPECT_EQ(folder.Read(file.name), old) << "unreadable since the start";
            EXPECT_FALSE(StandsBeside(file));
        });
        EXPECT_EQ(folder.Read(file.name), old);
        EXPECT_EQ(Headless().Reports().size(), told + 1);
        Headless().UseFolder(folder.Path());
        file.LoadAndSave();
        // Made-up scores do not stand in their order; those that are taken up do.
        const bool isMadeUp = file.fields[0] == kNameBytes;
        const Bytes now = folder.Read(file.name);
        EXPECT_TRUE(now == want || (isMadeUp && now != old)) << "it is lost";
    }
}

class SettingsFileTest : public DataFilesTest {
  protected:
    SettingsValues Loaded(const Bytes& bytes) const {
        folder.Write("data/menu.dat", bytes);
        return Settings();
    }
    const Bytes unusual = kDataFiles[0].unusual;
};

TEST_F(SettingsFileTest, EveryFlagHasItsByte) {
    const auto listed = [](auto... flags) { return std::vector<bool>{flags...}; };
    const std::vector<std::size_t> kOffsets = {9,  10, 11, 12, 13, 14, 15, 16, 17,
                                               18, 19, 20, 21, 34, 35, 47, 48};
    for (const std::size_t set : kOffsets) {
        Bytes bytes = unusual;
        std::vector<bool> want;
        for (const std::size_t offset : kOffsets) {
            bytes[offset] = offset == set ? std::byte{1} : std::byte{2};  // only 1 is true
            want.push_back(offset == set);
        }
        const SettingsValues s = Loaded(bytes);
        EXPECT_EQ(listed(s.clockwise[0], s.clockwise[1], s.timeBased[0], s.timeBased[1], s.music,
                         s.soundEffects, s.quakes, s.battle, s.windowed, s.countUpScore,
                         s.preview[0], s.preview[1], s.individualQuakes, s.statistics[0],
                         s.statistics[1], s.showAdvancedAtStart, s.scrollingPieces),
                  want)
            << set;
    }
}

TEST_F(SettingsFileTest, EveryNumberHasItsBytes) {
    const SettingsValues s = Loaded(unusual);
    EXPECT_EQ(std::tuple(s.players, s.difficulty, s.dropDelayMs, s.fullscreenBpp,
                         s.fullscreenRefresh, s.skinName, s.sfxMask, s.dropMagnitude),
              std::tuple(2, std::array{1, 2}, 0x11223344U, 32U, 75U, "Midnight", 0xE3, -2));
}

TEST_F(SettingsFileTest, StoredSkinNamesOfEveryLength) {
    const std::string kLetters(300, 'n');
    const struct {
        std::string stored;
        std::size_t length;
        bool loads;
        std::string name;
    } kCases[] = {
        {"", 0, true, "Original"},
        {std::string(1, '\0'), 1, true, ""},
        {std::string("A\0", 2), 2, true, "A"},
        {"AB", 2, true, "AB"},                     // the final zero is missing
        {std::string("A\0B\0", 4), 4, true, "A"},  // a zero within
        {kLetters.substr(0, 254) + '\0', 255, true, kLetters.substr(0, 254)},
        {kLetters.substr(0, 255), 255, true, kLetters.substr(0, 254)},
        {kLetters.substr(0, 255) + '\0', 256, false, "Original"},
        {"short", 40'000, false, "Original"},
    };
    for (const auto& c : kCases) {
        Bytes bytes = First(unusual, 36);
        const std::string length = {static_cast<char>(c.length), static_cast<char>(c.length >> 8)};
        for (const char next : length + c.stored + std::string("\0\0\7\x10\0\0\0", 7))
            bytes.push_back(static_cast<std::byte>(next));
        SettingsValues want = c.loads ? Loaded(First(unusual, 36)) : SettingsValues();
        want.skinName = c.name;
        if (c.loads) {
            want.showAdvancedAtStart = want.scrollingPieces = false;
            want.sfxMask = 7;
            want.dropMagnitude = 16;
        }
        EXPECT_EQ(Loaded(bytes), want) << c.length;
    }
}

TEST_F(SettingsFileTest, ANameThatCannotBeStoredIsWrittenAsTheDefault) {
    folder.Write("data/other", {});
    for (const auto& [name, want] : {std::pair{std::string(254, 'n'), std::string(254, 'n')},
                                     {std::string(255, 'n'), "Original"},
                                     {std::string("A\0B", 3), "A"}}) {
        Settings().skinName = name;
        EXPECT_EQ(Settings().skinName, want) << name.size();
    }
}

TEST_F(DataFilesTest, EveryLevelValueHasItsPlace) {
    ByteWriter numbers;  // value i is i + 1
    for (std::uint32_t i = 1; i <= 81; ++i)
        numbers.Write(i);
    folder.Write("data/sync.dat", numbers.Bytes());
    const LevelTable table;
    EXPECT_EQ(table.version, 1U);
    for (std::uint32_t level = 0; level < kLevelCount; ++level) {
        const std::uint32_t first = 2 + 8 * level;
        EXPECT_EQ(table.normalMs[level], (std::array{first, first + 2, first + 4}));
        EXPECT_EQ(table.scrollingPxPerSecond[level], (std::array{first + 1, first + 3, first + 5}));
        EXPECT_EQ(table.figuresForLevel[level], first + 6);
        EXPECT_EQ(table.secondsForLevel[level], first + 7);
    }
}

}  // namespace
}  // namespace korvane
