#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <initializer_list>
#include <memory>
#include <numeric>
#include <optional>
#include <span>
#include <string>
#include <string_view>
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

/// Sizes of the fields that follow each other in a file.
using FieldSizes = std::vector<std::size_t>;

FieldSizes Repeated(std::size_t times, const FieldSizes& fields) {
    FieldSizes all;
    for (std::size_t i = 0; i < times; ++i)
        all.insert(all.end(), fields.begin(), fields.end());
    return all;
}

/// The settings' fields when the skin's name has eight letters.
FieldSizes SettingsFields() {
    FieldSizes fields = {1, 4, 4};
    for (const std::size_t size : Repeated(13, {1}))
        fields.push_back(size);
    for (const std::size_t size : {4, 4, 4, 1, 1, 11, 1, 1, 1, 4})
        fields.push_back(size);
    return fields;
}

/// One of the four files and the object that reads it when it is made and can write it.
struct DataFile {
    const char* name;
    FieldSizes fields;
    /// A file with fewer bytes counts as none.
    std::size_t fewest;
    /// Fields behind the end have their defaults; those of the other files are zero.
    bool missingAreDefaults;
    void (*loadAndSave)();
    /// A session in which the user does something (0 or 1).
    void (*change)(int what);

    std::size_t Size() const { return std::reduce(fields.begin(), fields.end()); }
};

const std::vector<DataFile> kDataFiles = {
    {"data/menu.dat", SettingsFields(), 1, true, [] { Settings settings; },
     [](int what) {
         Settings settings;
         what == 0 ? settings.dropMagnitude = 77 : settings.sfxMask = 5;
         if (what == 0) settings.skinName = "Daylight";
     }},
    {"data/sync.dat", Repeated(81, {4}), 4, false, [] { LevelTable table; },
     [](int what) {
         LevelTable table;
         (what == 0 ? table.figuresForLevel[9] : table.normalMs[3][1]) = 4711;
     }},
    {"data/hs.dat", Repeated(10, {14, 4, 4, 4}), 14, false, [] { HighScoreTable().Save(); },
     [](int what) {
         HighScoreTable table;
         table.Insert(*table.FindRank(5000 - what), {.score = 5000 - what});
         table.Save();
     }},
    {"data/keys.dat", Repeated(10, {1}), 1, false,
     [] {
         KeyBindings bindings;
         bindings.Load();
         bindings.Save();
     },
     [](int what) {
         KeyBindings bindings;
         bindings.Load();
         bindings.Bind(Action::Rotate, what == 0 ? Side::Right : Side::Left, what == 0 ? 'J' : '2');
         bindings.Save();
     }},
};

/// The files of a folder, of which some cannot be used.
class FaultyFiles final : public Files {
  public:
    enum Operation : std::uint8_t { kRead, kReplace };
    using Faults = std::function<bool(Operation, std::string_view path)>;

    FaultyFiles(const std::string& folder, Faults fails)
        : files_(OpenDiskFiles(folder)), fails_(std::move(fails)) {}
    ReadResult TryRead(std::string_view path, std::size_t cap) override {
        if (fails_(kRead, path)) return {ReadStatus::Unreadable, {}};
        return files_->TryRead(path, cap);
    }
    bool Replace(std::string_view path, std::span<const std::byte> bytes) override {
        return !fails_(kReplace, path) && files_->Replace(path, bytes);
    }
    bool Delete(std::string_view path, std::span<const std::byte> bytes) override {
        return files_->Delete(path, bytes);
    }
    std::optional<std::vector<FolderEntry>> List(std::string_view path) override {
        return files_->List(path);
    }

  private:
    const std::unique_ptr<Files> files_;
    const Faults fails_;
};

class DataFilesTest : public testing::Test {
  protected:
    void SetUp() override {
        Headless().Reset();
        Headless().UseFolder(folder.Path());
    }
    void TearDown() override { Headless().Reset(); }  // of a test's own faults

    std::filesystem::path PathOf(const DataFile& file) const {
        return std::filesystem::path(folder.Path()) / file.name;
    }

    /// What the object that has read these bytes writes.
    Bytes Rewritten(const DataFile& file, const Bytes& bytes) const {
        folder.Write(file.name, bytes);
        file.loadAndSave();
        return folder.Read(file.name);
    }

    Bytes ReadBeside(const DataFile& file) const {
        return folder.Read(std::string(file.name) + ".new");
    }
    bool StandsBeside(const DataFile& file) const {
        return std::filesystem::exists(PathOf(file).string() + ".new");
    }
    void UseFaults(FaultyFiles::Faults fails) const {
        Headless().UseFiles(std::make_unique<FaultyFiles>(folder.Path(), std::move(fails)));
    }
    /// What is in the file when the user has done both things.
    Bytes Changed(const DataFile& file) const {
        Headless().UseFolder(folder.Path());
        folder.Write(file.name, Unusual(file));
        file.change(0);
        file.change(1);
        return folder.Read(file.name);
    }

    /// A file whose fields all differ from the defaults.
    static Bytes Unusual(const DataFile& file) {
        if (file.missingAreDefaults)
            return BytesOf({2,   1,   0,   0,   0, 2, 0, 0,    0,    1,    1,    1,    1,   0,
                            0,   0,   1,   0,   0, 0, 0, 1,    0x44, 0x33, 0x22, 0x11, 32,  0,
                            0,   0,   75,  0,   0, 0, 0, 0,    9,    0,    'M',  'i',  'd', 'n',
                            'i', 'g', 'h', 't', 0, 0, 0, 0xE3, 0xFE, 0xFF, 0xFF, 0xFF});
        Bytes bytes(file.Size());
        for (std::size_t i = 0; i < bytes.size(); ++i)
            bytes[i] = static_cast<std::byte>(i * 7 + 1);
        return bytes;
    }

    TemporaryFolder folder;
};

TEST_F(DataFilesTest, AreMadeWithDefaultsWhereThereAreNone) {
    folder.Write("data/other", {});
    for (const DataFile& file : kDataFiles) {
        file.loadAndSave();
        EXPECT_EQ(std::filesystem::file_size(PathOf(file)), file.Size()) << file.name;
    }
}

TEST_F(DataFilesTest, AnythingElseInTheirPlaceStays) {
    for (const DataFile& file : kDataFiles) {
        const std::filesystem::path path = PathOf(file);
        std::filesystem::create_directories(path);
        file.loadAndSave();
        EXPECT_TRUE(std::filesystem::is_directory(path)) << file.name;
        std::filesystem::remove(path);
        ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
        file.loadAndSave();
        EXPECT_TRUE(std::filesystem::is_fifo(path)) << file.name;
    }
}

TEST_F(DataFilesTest, WithoutTheirFolderNothingIsMade) {
    for (const DataFile& file : kDataFiles)
        file.loadAndSave();
    EXPECT_TRUE(std::filesystem::is_empty(folder.Path()));
}

/// Bytes that mean nothing give an object that writes a whole file again, which then stays.
TEST_F(DataFilesTest, AnyBytesAreTakenAndWrittenBackWhole) {
    for (const DataFile& file : kDataFiles) {
        for (const std::size_t length : {std::size_t{1}, file.Size(), std::size_t{5000}}) {
            SCOPED_TRACE(testing::Message() << file.name << ", " << length << " bytes");
            folder.Write(std::string(file.name) + ".new", Bytes(length, std::byte{0x7F}));
            const Bytes first = Rewritten(file, Bytes(length, std::byte{0xFF}));
            EXPECT_EQ(first.size(), file.Size());
            EXPECT_EQ(Rewritten(file, first), first);
        }
    }
}

TEST_F(DataFilesTest, CutAnywhereTheyGiveTheWholeFieldsThatAreThere) {
    for (const DataFile& file : kDataFiles) {
        const Bytes defaults = Rewritten(file, {});
        const Bytes unusual = Unusual(file);
        ASSERT_EQ(unusual.size(), file.Size());
        Bytes want = file.missingAreDefaults ? defaults : Bytes(file.Size());
        std::size_t fieldBegin = 0;
        auto field = file.fields.begin();
        for (std::size_t length = 0; length <= file.Size(); ++length) {
            if (field != file.fields.end() && length == fieldBegin + *field) {
                std::copy_n(&unusual[fieldBegin], *field, &want[fieldBegin]);
                fieldBegin += *field++;
            }
            EXPECT_EQ(Rewritten(file, First(unusual, length)),
                      length < file.fewest ? defaults : want)
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
        Bytes tooLong = Unusual(file);
        tooLong.resize(kDataFileCap + 1);
        EXPECT_EQ(Rewritten(file, tooLong), tooLong);
        EXPECT_FALSE(StandsBeside(file)) << "there was nothing to keep";
        ASSERT_EQ(Headless().Reports().size(), 1U);
        EXPECT_EQ(Headless().Reports()[0],
                  "Korvane: " + std::string(file.name) +
                      " is there but cannot be read, so it stays as it is. What changes now is "
                      "kept in " +
                      file.name + ".new until a start that can read both.");
        file.change(0);
        file.change(1);
        file.loadAndSave();
        EXPECT_EQ(folder.Read(file.name), tooLong);
        EXPECT_EQ(Headless().Reports().size(), 4U);
        const Bytes kept = ReadBeside(file);

        // A start that can read both, and one to which it looks as if it were the first such.
        for (const bool first : {true, false}) {
            if (!first) folder.Write(std::string(file.name) + ".new", kept);
            EXPECT_EQ(Rewritten(file, first ? Unusual(file) : want), want) << first;
            EXPECT_FALSE(StandsBeside(file)) << first;
        }
    }
}

TEST_F(DataFilesTest, WhatStandsBesideThemGoesOnlyWhenItIsTakenUp) {
    for (const DataFile& file : kDataFiles) {
        SCOPED_TRACE(file.name);
        const Bytes want = Changed(file);
        UseFaults([&](auto operation, std::string_view path) {
            return operation == FaultyFiles::kRead && !path.ends_with(".new");
        });
        file.change(0);
        const Bytes kept = ReadBeside(file);
        folder.Write(file.name, Unusual(file));

        UseFaults([](auto operation, auto) { return operation == FaultyFiles::kReplace; });
        file.loadAndSave();
        EXPECT_EQ(ReadBeside(file), kept) << "the file was not replaced";

        UseFaults([](auto operation, auto) { return operation == FaultyFiles::kRead; });
        const std::size_t told = Headless().Reports().size();
        file.change(1);
        EXPECT_EQ(ReadBeside(file), kept) << "it could not be read";
        EXPECT_EQ(Headless().Reports().size(), told + 2) << "a change was lost";

        int reads = 0;
        UseFaults([&](auto operation, auto) {
            return operation == FaultyFiles::kRead && ++reads <= 2;  // both files at the start
        });
        file.change(1);
        EXPECT_EQ(folder.Read(file.name), Unusual(file));

        int writes = 0;
        UseFaults([&](auto operation, auto) {
            return operation == FaultyFiles::kReplace && ++writes == 1;
        });
        file.loadAndSave();
        EXPECT_EQ(folder.Read(file.name), want) << "a write that fails once is tried again";
        EXPECT_FALSE(StandsBeside(file));
    }
}

class SettingsFileTest : public DataFilesTest {
  protected:
    SettingsValues Loaded(const Bytes& bytes) const {
        folder.Write(kDataFiles[0].name, bytes);
        const Settings settings;
        return settings;
    }
};

TEST_F(SettingsFileTest, EveryFlagHasItsByte) {
    struct Flag {
        std::size_t offset;
        std::function<bool(const SettingsValues&)> isSet;
    };
    using S = SettingsValues;
    const Flag kFlags[] = {
        {9, [](const S& s) { return s.clockwise[0]; }},
        {10, [](const S& s) { return s.clockwise[1]; }},
        {11, [](const S& s) { return s.timeBased[0]; }},
        {12, [](const S& s) { return s.timeBased[1]; }},
        {13, &S::music},
        {14, &S::soundEffects},
        {15, &S::quakes},
        {16, &S::battle},
        {17, &S::windowed},
        {18, &S::countUpScore},
        {19, [](const S& s) { return s.preview[0]; }},
        {20, [](const S& s) { return s.preview[1]; }},
        {21, &S::individualQuakes},
        {34, [](const S& s) { return s.statistics[0]; }},
        {35, [](const S& s) { return s.statistics[1]; }},
        {47, &S::showAdvancedAtStart},
        {48, &S::scrollingPieces},
    };
    Bytes noFlag = Unusual(kDataFiles[0]);
    for (const Flag& flag : kFlags)
        noFlag[flag.offset] = std::byte{2};  // only 1 is true
    for (const Flag& written : kFlags) {
        Bytes bytes = noFlag;
        bytes[written.offset] = std::byte{1};
        const SettingsValues settings = Loaded(bytes);
        for (const Flag& read : kFlags)
            EXPECT_EQ(read.isSet(settings), read.offset == written.offset)
                << written.offset << ", " << read.offset;
    }
}

TEST_F(SettingsFileTest, EveryNumberHasItsBytes) {
    const SettingsValues settings = Loaded(Unusual(kDataFiles[0]));
    EXPECT_EQ(settings.players, 2);
    EXPECT_EQ(settings.difficulty, (std::array{1, 2}));
    EXPECT_EQ(settings.dropDelayMs, 0x11223344U);
    EXPECT_EQ(settings.fullscreenBpp, 32U);
    EXPECT_EQ(settings.fullscreenRefresh, 75U);
    EXPECT_EQ(settings.skinName, "Midnight");
    EXPECT_EQ(settings.sfxMask, 0xE3);
    EXPECT_EQ(settings.dropMagnitude, -2);
}

TEST_F(SettingsFileTest, StoredSkinNamesOfEveryLength) {
    struct Case {
        std::string stored;
        std::size_t length;
        bool loads;
        std::string name;
    };
    const std::string kLetters(300, 'n');
    const Case kCases[] = {
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
    const Bytes unusual = Unusual(kDataFiles[0]);
    for (const Case& c : kCases) {
        Bytes bytes = First(unusual, 36);
        bytes.push_back(static_cast<std::byte>(c.length & 0xFF));
        bytes.push_back(static_cast<std::byte>(c.length >> 8));
        for (const char letter : c.stored)
            bytes.push_back(static_cast<std::byte>(letter));
        for (const int tail : {0, 0, 7, 16, 0, 0, 0})
            bytes.push_back(static_cast<std::byte>(tail));
        SettingsValues want = Loaded(First(unusual, 36));
        if (!c.loads) want = {};
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
        {
            Settings settings;
            settings.skinName = name;
        }
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
        for (std::uint32_t difficulty = 0; difficulty < kDifficultyCount; ++difficulty) {
            EXPECT_EQ(table.normalMs[level][difficulty], first + 2 * difficulty);
            EXPECT_EQ(table.scrollingPxPerSecond[level][difficulty], first + 2 * difficulty + 1);
        }
        EXPECT_EQ(table.figuresForLevel[level], first + 6);
        EXPECT_EQ(table.secondsForLevel[level], first + 7);
    }
}

}  // namespace
}  // namespace korvane
