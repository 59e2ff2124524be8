#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "game/rules/level_table.h"
#include "platform/base/byte_stream.h"
#include "platform/headless/headless_host.h"
#include "tests/game/rules/rules_test.h"
#include "tests/support/temporary_folder.h"

namespace korvane {
namespace {

using Bytes = std::vector<std::byte>;

constexpr const char* kSettingsFile = "data/menu.dat";
constexpr const char* kLevelFile = "data/sync.dat";

Bytes BytesOf(std::initializer_list<int> values) {
    Bytes bytes;
    for (const int value : values)
        bytes.push_back(static_cast<std::byte>(value));
    return bytes;
}

Bytes First(const Bytes& bytes, std::size_t count) {
    return {bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(count)};
}

Bytes PaddedTo(std::size_t size, Bytes bytes) {
    bytes.resize(size);
    return bytes;
}

class DataFileTest : public RulesTest {
  protected:
    void SetUp() override {
        RulesTest::SetUp();
        theSettings.SetDefaults();
        Headless().UseFolder(folder_.Path());
        folder_.Write("data/other", {});
    }

    Bytes SavedSettings() const {
        theSettings.Save();
        return folder_.Read(kSettingsFile);
    }

    bool LoadSettings(const Bytes& bytes) const {
        folder_.Write(kSettingsFile, bytes);
        theSettings.SetDefaults();
        return theSettings.Load();
    }

    TemporaryFolder folder_;
};

/// A record in which every field differs from its default, with a name as long as the default's.
Bytes UnusualSettings() {
    return BytesOf({2,                                          // players
                    1,    0,    0,    0,    2,   0,    0,   0,  // difficulty
                    1,    1,    1,    1,                        // clockwise, timeBased
                    0,    0,    0,    1,    0,                  // music to windowed
                    0,    0,    0,    1,                        // countUpScore to individual
                    0x44, 0x33, 0x22, 0x11,                     // dropDelayMs
                    32,   0,    0,    0,    75,  0,    0,   0,  // full screen
                    0,    0,                                    // statistics
                    9,    0,    'M',  'i',  'd', 'n',  'i', 'g',
                    'h',  't',  0,    0,    0,   0xE3,  // dialog, gliding, sounds
                    0xFE, 0xFF, 0xFF, 0xFF});           // dropMagnitude
}

/// Where each of the record's fields ends when the name has eight letters.
constexpr std::size_t kSettingsFieldEnds[] = {1,  5,  9,  10, 11, 12, 13, 14, 15, 16, 17, 18, 19,
                                              20, 21, 22, 26, 30, 34, 35, 36, 47, 48, 49, 50, 54};

TEST_F(DataFileTest, EverySettingHasItsPlaceInTheFile) {
    ASSERT_TRUE(LoadSettings(UnusualSettings()));
    EXPECT_EQ(theSettings.difficulty, (std::array{1, 2}));
    EXPECT_EQ(theSettings.dropDelayMs, 0x11223344U);
    EXPECT_EQ(theSettings.fullscreenRefresh, 75U);
    EXPECT_EQ(theSettings.skinName, "Midnight");
    EXPECT_EQ(theSettings.sfxMask, 0xE3);
    EXPECT_EQ(theSettings.dropMagnitude, -2);
    EXPECT_TRUE(theSettings.individualQuakes);
    EXPECT_FALSE(theSettings.countUpScore);
    EXPECT_EQ(SavedSettings(), UnusualSettings());
}

TEST_F(DataFileTest, ASettingsFileCutAnywhereKeepsTheDefaultsOfWhatIsMissing) {
    theSettings.SetDefaults();
    const Bytes defaults = SavedSettings();
    const Bytes unusual = UnusualSettings();
    ASSERT_EQ(defaults.size(), unusual.size());
    EXPECT_FALSE(LoadSettings({}));
    for (std::size_t length = 1; length <= unusual.size(); ++length) {
        ASSERT_TRUE(LoadSettings(First(unusual, length)));
        Bytes want = defaults;
        for (std::size_t begin = 0; const std::size_t end : kSettingsFieldEnds) {
            for (; begin < end; ++begin) {
                if (end <= length) want[begin] = unusual[begin];
            }
        }
        EXPECT_EQ(SavedSettings(), want) << length;
    }
}

TEST_F(DataFileTest, NoSettingsFileOrNonsenseGivesTheDefaults) {
    EXPECT_FALSE(theSettings.Load());
    EXPECT_FALSE(LoadSettings(Bytes(54, std::byte{0xFF})));  // a name of 65535 characters
    EXPECT_EQ(static_cast<const SettingsValues&>(theSettings), SettingsValues());
    EXPECT_TRUE(theSettings.windowed && theSettings.showAdvancedAtStart);
    EXPECT_EQ(SavedSettings().size(), 54U);
}

TEST_F(DataFileTest, StoredSkinNamesOfEveryLength) {
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
    for (const Case& c : kCases) {
        SCOPED_TRACE(c.length);
        Bytes bytes = First(UnusualSettings(), 36);
        bytes.push_back(static_cast<std::byte>(c.length & 0xFF));
        bytes.push_back(static_cast<std::byte>(c.length >> 8));
        for (const char letter : c.stored)
            bytes.push_back(static_cast<std::byte>(letter));
        for (const int tail : {0, 0, 7, 16, 0, 0, 0})
            bytes.push_back(static_cast<std::byte>(tail));
        EXPECT_EQ(LoadSettings(bytes), c.loads);
        EXPECT_EQ(theSettings.skinName, c.name);
        EXPECT_EQ(theSettings.dropMagnitude, c.loads ? 16 : 8);
        EXPECT_EQ(theSettings.sfxMask, c.loads ? 7 : 31);
    }
}

/// Value i of the level file is i + 1, in the order of the file.
Bytes NumberedLevels() {
    ByteWriter writer;
    for (std::uint32_t i = 1; i <= 81; ++i)
        writer.Write(i);
    return {writer.Bytes().begin(), writer.Bytes().end()};
}

TEST_F(DataFileTest, EveryLevelValueHasItsPlaceInTheFile) {
    folder_.Write(kLevelFile, NumberedLevels());
    ASSERT_TRUE(theLevelTable.LoadTable());
    EXPECT_EQ(theLevelTable.version, 1U);
    for (std::uint32_t level = 0; level < kLevelCount; ++level) {
        const std::uint32_t first = 2 + 8 * level;
        for (std::uint32_t difficulty = 0; difficulty < kDifficultyCount; ++difficulty) {
            EXPECT_EQ(theLevelTable.normalMs[level][difficulty], first + 2 * difficulty);
            EXPECT_EQ(theLevelTable.scrollingPxPerSecond[level][difficulty],
                      first + 2 * difficulty + 1);
        }
        EXPECT_EQ(theLevelTable.figuresForLevel[level], first + 6);
        EXPECT_EQ(theLevelTable.secondsForLevel[level], first + 7);
    }
    theLevelTable.SaveTable();
    EXPECT_EQ(folder_.Read(kLevelFile), NumberedLevels());
}

TEST_F(DataFileTest, ALevelFileCutAnywhereLeavesZeroesBehindItsEnd) {
    const LevelTableValues before = theLevelTable;
    const Bytes whole = NumberedLevels();
    for (std::size_t length = 0; length <= whole.size(); ++length) {
        folder_.Write(kLevelFile, First(whole, length));
        EXPECT_EQ(theLevelTable.LoadTable(), length >= 4) << length;
        if (length < 4) {
            EXPECT_EQ(static_cast<const LevelTableValues&>(theLevelTable), before) << length;
            continue;
        }
        // A value that is only partly there is not there at all.
        folder_.Write(kLevelFile, PaddedTo(whole.size(), First(whole, length - length % 4)));
        const LevelTableValues loaded = theLevelTable;
        ASSERT_TRUE(theLevelTable.LoadTable());
        EXPECT_EQ(static_cast<const LevelTableValues&>(theLevelTable), loaded) << length;
    }
}

}  // namespace
}  // namespace korvane
