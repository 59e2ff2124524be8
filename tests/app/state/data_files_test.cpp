#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <string>
#include <vector>

#include "app/state/settings.h"
#include "game/rules/key_bindings.h"
#include "game/rules/level_table.h"
#include "platform/headless/headless_host.h"
#include "screens/high_score_table.h"
#include "tests/support/temporary_folder.h"

namespace korvane {
namespace {

/// One of the four files and the object that reads it when it is made and can write it.
struct DataFile {
    const char* name;
    std::size_t size;
    void (*loadAndSave)();
};

const std::vector<DataFile> kDataFiles = {
    {"data/menu.dat", 54, [] { Settings settings; }},
    {"data/sync.dat", 324, [] { LevelTable table; }},
    {"data/hs.dat", 260,
     [] {
         HighScoreTable table;
         table.Save();
     }},
    {"data/keys.dat", 10,
     [] {
         KeyBindings bindings;
         bindings.Load();
         bindings.Save();
     }},
};

class DataFilesTest : public testing::Test {
  protected:
    void SetUp() override {
        Headless().Reset();
        Headless().UseFolder(folder.Path());
    }

    std::filesystem::path PathOf(const DataFile& file) const {
        return std::filesystem::path(folder.Path()) / file.name;
    }

    TemporaryFolder folder;
};

TEST_F(DataFilesTest, AreMadeWithDefaultsWhereThereAreNone) {
    folder.Write("data/other", {});
    for (const DataFile& file : kDataFiles) {
        file.loadAndSave();
        EXPECT_EQ(std::filesystem::file_size(PathOf(file)), file.size) << file.name;
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

/// Any bytes give an object that writes a whole file again; those of a file it wrote stay as they
/// were.
TEST_F(DataFilesTest, AnyBytesAreTakenAndWrittenBackWhole) {
    for (const DataFile& file : kDataFiles) {
        for (const std::size_t length : {std::size_t{1}, file.size, std::size_t{5000}}) {
            SCOPED_TRACE(testing::Message() << file.name << ", " << length << " bytes");
            folder.Write(file.name, std::vector<std::byte>(length, std::byte{0xFF}));
            file.loadAndSave();
            const std::vector<std::byte> first = folder.Read(file.name);
            EXPECT_EQ(first.size(), file.size);
            file.loadAndSave();
            EXPECT_EQ(folder.Read(file.name), first);
        }
    }
}

}  // namespace
}  // namespace korvane
