#include "platform/files/game_folders.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <set>
#include <span>
#include <string>
#include <vector>

#include "tests/support/temporary_folder.h"

namespace korvane {
namespace {

namespace fs = std::filesystem;
using Names = std::multiset<std::string>;

/// A place with an installation under `usr`, a home and a folder that the game is started in; every
/// file holds its own path.
class GameFoldersTest : public testing::Test {
  protected:
    GameFoldersTest() {
        for (const char* file :
             {"usr/bin/korvane", "usr/share/korvane/Skins/Original/a.bmp",
              "usr/share/korvane/Skins/Original/b.bmp", "usr/share/korvane/Skins/Plain/a.bmp",
              "usr/share/korvane/data/hs.dat", "tree/build/korvane", "tree/Skins/Original/a.bmp",
              "beside/korvane", "beside/Skins/Original/a.bmp", "else/mine/a.bmp", "start/other"})
            Write(file);
        fs::create_directory_symlink("../Skins/Original",
                                     Made("usr/share/korvane/Graphics/Original"));
        fs::current_path(top_ / "start");
    }
    ~GameFoldersTest() override { fs::current_path(before_); }

    void Write(const std::string& path) { folder_.Write(path, std::as_bytes(std::span(path))); }
    fs::path Made(const std::string& path) const {
        fs::create_directories((top_ / path).parent_path());
        return top_ / path;
    }
    /// A link to something elsewhere in the place.
    void Link(const std::string& path, const std::string& target) const {
        fs::create_symlink(top_ / target, Made(path));
    }
    /// Surroundings with the place's own paths.
    std::unique_ptr<Files> Open(const std::string& program = "usr/bin/korvane") const {
        return OpenGameFiles({(top_ / program).string(), dataHome, home});
    }
    static std::string Read(Files& files, const std::string& path) {
        const auto bytes = files.Read(path, 1000);
        return bytes ? std::string(reinterpret_cast<const char*>(bytes->data()), bytes->size())
                     : "-";
    }
    static Names List(Files& files, const std::string& folder) {
        Names names;
        const auto entries = files.List(folder);
        for (const FolderEntry& entry : entries.value())
            names.insert(entry.name + (entry.isFolder ? "/" : ""));
        return names;
    }

    const TemporaryFolder folder_;
    const fs::path before_ = fs::current_path();
    const fs::path top_ = fs::canonical(folder_.Path());
    std::string home = (top_ / "home").string();
    std::string dataHome;
};

TEST_F(GameFoldersTest, TheGameIsFoundAndSavesWhereverItIsStarted) {
    const std::string inHome = "home/.local/share/korvane/data/hs.dat";
    const std::string absolute = (top_ / "xdg").string();
    const std::string ownHome = home;
    const struct {
        const char* what;
        std::string dataHome, home;
        std::vector<std::string> makes;  ///< folders in the one that it is started in
        const char* program;
        std::string skin;   ///< the folder that the Original comes from; "-": from none
        std::string saved;  ///< "-": nothing can be
    } kCases[] = {
        {"a home", "", ownHome, {}, "usr/bin/korvane", "usr/share/korvane", inHome},
        {"a data home",
         absolute,
         ownHome,
         {},
         "usr/bin/korvane",
         "usr/share/korvane",
         "xdg/korvane/data/hs.dat"},
        {"a relative one", "xdg", ownHome, {}, "usr/bin/korvane", "usr/share/korvane", inHome},
        {"no home", "", "", {}, "usr/bin/korvane", "usr/share/korvane", "-"},
        {"a relative home", "", "home", {}, "usr/bin/korvane", "usr/share/korvane", "-"},
        {"nothing can be made in it",
         "",
         "/proc/self",
         {},
         "usr/bin/korvane",
         "usr/share/korvane",
         "-"},
        {"a file in its place",
         "",
         absolute + "/../start/other",
         {},
         "usr/bin/korvane",
         "usr/share/korvane",
         "-"},
        {"a data folder here",
         "",
         ownHome,
         {"data"},
         "usr/bin/korvane",
         "usr/share/korvane",
         "start/data/hs.dat"},
        {"skins here, nothing for data",
         "",
         ownHome,
         {"SKINS"},
         "usr/bin/korvane",
         "usr/share/korvane",
         "-"},
        {"both here",
         "",
         "",
         {"Skins", "Data"},
         "usr/bin/korvane",
         "usr/share/korvane",
         "start/Data/hs.dat"},
        {"a source tree", "", ownHome, {}, "tree/build/korvane", "tree", inHome},
        {"skins beside the program", "", ownHome, {}, "beside/korvane", "beside", inHome},
        {"a program alone", "", ownHome, {}, "start/other", "-", inHome},
        {"a program that nobody knows", "", ownHome, {}, "", "-", inHome},
    };
    for (const auto& c : kCases) {
        SCOPED_TRACE(c.what);
        for (const char* folder : {"home", "xdg", "start"})
            fs::remove_all(top_ / folder);
        Write("start/other");
        fs::current_path(top_ / "start");
        for (const std::string& made : c.makes)
            fs::create_directory(made);
        dataHome = c.dataHome;
        home = c.home;
        const auto files = *c.program ? Open(c.program) : OpenGameFiles({"", dataHome, home});
        const std::string a = "/Skins/Original/a.bmp";
        EXPECT_EQ(Read(*files, "skins\\original\\A.BMP"), c.skin == "-" ? "-" : c.skin + a);
        EXPECT_EQ(Read(*files, "data\\hs.dat"), "-") << "an installation has no scores";
        EXPECT_FALSE(fs::exists(top_ / "home")) << "nothing is made before the first save";
        const std::string score = "score";
        EXPECT_EQ(files->Replace("data\\hs.dat", std::as_bytes(std::span(score))), c.saved != "-");
        EXPECT_EQ(Read(*files, "data\\hs.dat"), c.saved == "-" ? "-" : score);
        EXPECT_TRUE(c.saved == "-" || fs::exists(top_ / c.saved));
    }
    const fs::path there = Made("home/.local/share/korvane/DATA/hs.dat");
    fs::remove_all(there.parent_path().parent_path() / "data");
    dataHome.clear();
    home = ownHome;
    EXPECT_TRUE(Open()->Replace("data\\hs.dat", {}));
    EXPECT_TRUE(fs::exists(there)) << "no second folder beside one in other letter case";
}

TEST_F(GameFoldersTest, TheUsersFilesComeFirstAndTheInstalledStayAsTheyAre) {
    for (const char* file :
         {"data/hs.dat", "Skins/original/A.bmp", "Skins/Mine/c.bmp", "Skins/Plain"})
        Write(std::string("start/") + file);
    const auto files = Open();
    for (const auto& [path, want] : std::vector<std::pair<std::string, std::string>>{
             {"data\\hs.dat", "start/data/hs.dat"},
             {"Skins\\Original\\a.bmp", "start/Skins/original/A.bmp"},
             {"Skins\\Original\\b.bmp", "usr/share/korvane/Skins/Original/b.bmp"},
             {"Graphics\\Original\\a.bmp", "usr/share/korvane/Skins/Original/a.bmp"},
             {"Skins\\Plain\\a.bmp", "usr/share/korvane/Skins/Plain/a.bmp"},
             {"Skins\\Mine\\c.bmp", "start/Skins/Mine/c.bmp"}})
        EXPECT_EQ(Read(*files, path), want);
    EXPECT_EQ(List(*files, "Skins"), (Names{"original/", "Mine/", "Plain/"}));
    EXPECT_EQ(List(*files, "data"), Names{"hs.dat"});
    EXPECT_EQ(files->Folders(),
              (std::vector{(top_ / "start").string(), (top_ / "usr/share/korvane").string()}));
    EXPECT_FALSE(files->Replace("Skins\\Plain\\a.bmp", {}));
    EXPECT_FALSE(files->Delete("Skins\\Original\\b.bmp", std::as_bytes(std::span("x"))));
    EXPECT_EQ(Read(*files, "Skins\\Original\\b.bmp"), "usr/share/korvane/Skins/Original/b.bmp");
}

TEST_F(GameFoldersTest, LinksOfTheUsersLeadAnywhereAndThoseBehindThemNowhereElse) {
    fs::create_symlink("../../start/other", Made("else/mine/out.bmp"));
    fs::create_symlink("a.bmp", Made("else/mine/within.bmp"));
    Link("start/data", "else/saved");
    fs::create_directory(top_ / "else/saved");
    const std::string mine = "else/mine/a.bmp";
    for (const auto& [link, target] :
         {std::pair{"start/Skins/Mine", "else/mine"}, {"start/Skins", "else/all"}}) {
        SCOPED_TRACE(link);
        fs::remove_all(top_ / "start/Skins");
        Link("else/all/Mine", "else/mine");
        Link(link, target);
        fs::create_directory(top_ / "else/all/Bare");
        const auto files = Open();
        EXPECT_EQ(Read(*files, "SKINS\\mine\\A.bmp"), mine);
        EXPECT_EQ(Read(*files, "Skins\\Mine\\within.bmp"), mine);
        EXPECT_EQ(Read(*files, "Skins\\Mine\\out.bmp"), "-");
        EXPECT_TRUE(List(*files, "Skins").contains("Mine/"));
        EXPECT_EQ(List(*files, "Skins\\Mine"), (Names{"a.bmp", "out.bmp", "within.bmp"}));
        EXPECT_TRUE(files->Replace("data\\hs.dat", {}));
        EXPECT_TRUE(fs::exists(top_ / "else/saved/hs.dat"));
        fs::remove_all(top_ / "else/all");
    }
    // One that leads nowhere hides nothing, and what others linked is not followed.
    fs::remove(top_ / "start/Skins");
    Link("start/Skins/Original", "else/gone");
    EXPECT_EQ(Read(*Open(), "Skins\\Original\\a.bmp"), "usr/share/korvane/Skins/Original/a.bmp");
    constexpr unsigned kNobody = 65534;
    if (lchown((top_ / "start/data").c_str(), kNobody, kNobody) == 0) {
        EXPECT_FALSE(Open()->Replace("data\\keys.dat", {}));
    }
}

TEST(ProgramFileTest, IsKnownWithoutTheSystemsLinkToIt) {
    const std::string known = ProgramFile();
    EXPECT_TRUE(fs::is_regular_file(known)) << known;
    EXPECT_EQ(ProgramFile("/no such link"), known);
}

}  // namespace
}  // namespace korvane
