#include "platform/host/files.h"

#include <fcntl.h>
#include <grp.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <functional>
#include <memory>
#include <set>
#include <span>
#include <string>
#include <vector>

#include "platform/files/descriptor.h"
#include "tests/support/stopped_child.h"
#include "tests/support/temporary_folder.h"

namespace korvane {
namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;

constexpr std::size_t kNoCap = 1 << 20;

using Names = std::multiset<std::string>;

/// Runs something in a process of its own and returns what it returned.
bool InChild(const std::function<bool()>& work) {
    const pid_t child = fork();
    if (child == 0) _exit(work() ? 0 : 1);
    int status = 0;
    return waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

/// The superuser may write everything; permissions only mean something to others.
bool AsNobody(const std::function<bool()>& work) {
    constexpr unsigned kNobody = 65534;
    return InChild([&] {
        if (geteuid() != 0) return work();
        return setgroups(0, nullptr) == 0 && setgid(kNobody) == 0 && setuid(kNobody) == 0 && work();
    });
}

/// A folder with the game's folder in it, so that there is something outside to escape to.
class FilesTest : public testing::Test {
  protected:
    FilesTest() {
        fs::create_directories(root_ / "data");
        for (const fs::path& folder : {top_, root_, root_ / "data"})
            fs::permissions(folder, fs::perms::all);
    }

    void WriteFile(const std::string& path, const std::string& text) {
        temporary_.Write("game/" + path, std::as_bytes(std::span(text)));
    }
    void Link(const std::string& path, const std::string& target) {
        fs::create_directories((root_ / path).parent_path());
        fs::create_symlink(target, root_ / path);
    }

    /// The content, or why there is none.
    std::string Read(std::string_view path, std::size_t cap = kNoCap) {
        const auto [status, bytes] = files_->TryRead(path, cap);
        if (status == ReadStatus::Missing) return "(missing)";
        if (status == ReadStatus::Unreadable) return "(unreadable)";
        return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
    }
    bool Replace(std::string_view path, const std::string& text) {
        return files_->Replace(path, std::as_bytes(std::span(text)));
    }
    bool Delete(std::string_view path, std::string_view text) {
        return files_->Delete(path, std::as_bytes(std::span(text)));
    }
    /// The names in a folder, those of folders with a slash behind.
    Names List(std::string_view folder) {
        Names names;
        const auto entries = files_->List(folder);
        for (const FolderEntry& entry : entries.value())
            names.insert(entry.name + (entry.isFolder ? "/" : ""));
        return names;
    }

    const TemporaryFolder temporary_;
    const fs::path top_ = temporary_.Path();
    const fs::path root_ = top_ / "game";
    const std::unique_ptr<Files> files_ = OpenDiskFiles(root_.string());
};

TEST_F(FilesTest, ReadsWhatLiesBeneathTheFolderAndNothingElse) {
    const std::string longName(255, 'n');
    const std::string longerName(256, 'n');
    const std::string dots(2000, '.');
    for (const std::string& path :
         {"../secret"s, "data/menu.dat"s, "Skins/Original/Game/blocks.bmp"s, "Skins/Two/a.TXT"s,
          "Skins/Two/A.txT"s, "Skins/Two/A.Txt"s, "Skins/Two/a.Txt"s, "Skins/Two/A.txt"s,
          "Skins/Two/a.tXt"s, "Skins/Two/a.txt "s, "Skins/Two/B"s, "Skins/Two/b"s,
          "c:data/menu.dat"s, longName})
        WriteFile(path, path);
    Link("Graphics/Original", "../Skins/Original");
    Link("Graphics/Chain", "original/../Original//Game/.");
    Link("Graphics/file", "../data/menu.dat");
    Link("Graphics/up", "../..");
    Link("Graphics/secret", "../../secret");
    Link("Graphics/absolute", root_ / "data/menu.dat");
    Link("Graphics/rooted", "/data/menu.dat");
    Link("Graphics/device", "/dev/zero");
    Link("Graphics/circle", "circle");
    Link("Graphics/dangling", "missing");
    ASSERT_EQ(mkfifo((root_ / "pipe").c_str(), 0666), 0);

    const struct {
        std::string_view want;
        std::vector<std::string_view> paths;
    } kCases[] = {
        {"data/menu.dat",
         {"data\\menu.dat", "data/menu.dat", "DATA\\Menu.Dat", ".\\data\\\\.//menu.dat",
          "graphics\\FILE"}},
        {"Skins/Original/Game/blocks.bmp",
         {"skins\\ORIGINAL\\game\\BLOCKS.BMP", "Graphics\\Original\\Game\\blocks.bmp",
          "graphics\\original\\game\\blocks.bmp", "Graphics\\Chain\\blocks.bmp"}},
        {"Skins/Two/b", {"skins\\two\\b"}},
        {"Skins/Two/B", {"skins\\two\\B"}},
        {"Skins/Two/A.Txt", {"skins\\two\\A.TXT"}},
        {"Skins/Two/a.txt ", {"skins\\two\\a.txt "}},
        {longName, {longName}},
        {"(unreadable)",
         {// Links that lead out or in circles, and things that are no file.
          "Graphics\\up\\secret", "Graphics\\up\\game\\data\\menu.dat", "Graphics\\secret",
          "Graphics\\absolute", "Graphics\\rooted", "Graphics\\device", "Graphics\\circle", "", ".",
          "data", "pipe"}},
        {"(missing)",
         {"Graphics\\dangling", "data\\missing", "missing\\menu.dat", "data\\menu.dat\\x",
          "skins\\two\\b ",
          // Other ways out, and names that are too long.
          "..\\secret", "data\\..\\data\\menu.dat", "data/../../secret", "/etc/passwd",
          "\\data\\menu.dat", "c:data\\menu.dat", std::string_view("data\\menu.dat\0", 14),
          std::string_view("data\0\\menu.dat", 14), longerName, dots}},
    };
    for (const auto& [want, paths] : kCases)
        for (const std::string_view path : paths)
            EXPECT_EQ(Read(path), want) << path;
}

TEST_F(FilesTest, ReadsUpToTheCap) {
    WriteFile("ten", "0123456789");
    EXPECT_EQ(Read("ten", 10), "0123456789");
    EXPECT_EQ(Read("ten", 9), "(unreadable)");
    WriteFile("empty", "");
    EXPECT_EQ(Read("empty", 0), "");
    WriteFile("huge", "");
    fs::resize_file(root_ / "huge", std::uintmax_t{1} << 42);  // a hole; no disk holds it in full
    EXPECT_EQ(Read("huge", kNoCap), "(unreadable)");
    // The kernel says 0 bytes of this one, and then tells more.
    const auto growing = OpenDiskFiles("/proc/self");
    EXPECT_TRUE(growing->Read("status", kNoCap));
    EXPECT_FALSE(growing->Read("status", 10));
}

TEST_F(FilesTest, WhatCannotBeReadIsNotMissing) {
    WriteFile("data/HS.DAT", "scores");
    for (rlim_t files = 0; files < 20; ++files) {
        EXPECT_TRUE(InChild([&] {
            const rlimit limit{files, files};
            if (setrlimit(RLIMIT_NOFILE, &limit) != 0) return false;
            const std::string read = Read("data\\hs.dat");
            return read == "scores" || read == "(unreadable)";
        })) << files
            << " open files";
    }
    fs::permissions(root_ / "data/HS.DAT", fs::perms(0222));
    EXPECT_TRUE(AsNobody([&] { return Read("data\\hs.dat") == "(unreadable)"; }));
    // A folder that can be entered but not listed, and one that cannot be entered.
    for (const auto& [mode, result] : {std::pair{0333, "(missing)"}, {0000, "(unreadable)"}}) {
        const std::string want = result;
        fs::permissions(root_ / "data", fs::perms(mode));
        EXPECT_TRUE(AsNobody([&] { return Read("data\\none") == want; })) << mode;
    }
    fs::permissions(root_ / "data", fs::perms::all);
    // Reading it fails at its beginning.
    EXPECT_EQ(OpenDiskFiles("/proc/self")->TryRead("mem", kNoCap).status, ReadStatus::Unreadable);
}

TEST_F(FilesTest, ReplaceMakesOrRewritesAFileUnderItsOwnName) {
    for (const char* path : {"data\\hs.dat", "DATA\\HS.DAT", "data/hs.dat"})
        for (const char* text : {"first", "", "third"})
            EXPECT_TRUE(Replace(path, text) && Read("data\\hs.dat") == text) << path << text;
    EXPECT_EQ(List("data"), Names{"hs.dat"});

    WriteFile("real", "old");
    Link("data/link", "../real");
    for (const fs::perms mode : {fs::perms(0640), fs::perms(0604)}) {
        fs::permissions(root_ / "real", mode);
        EXPECT_TRUE(Replace("data\\link", "new"));
        EXPECT_EQ(fs::status(root_ / "real").permissions(), mode);
    }
    EXPECT_EQ(Read("real"), "new");
    EXPECT_TRUE(fs::is_symlink(root_ / "data/link"));
}

TEST_F(FilesTest, ASaveDeletesWhatKilledProgramsHaveLeftAndNothingElse) {
    Names names = {"hs.dat",      ".keys.dat.1-0.tmp", ".hs.datx.1-0.tmp",   "hs.dat.1-0.tmp",
                   ".hs.dat.1-0", ".hs.dat.held.tmp",  ".hs.dat.folder.tmp/"};
    for (const std::string& name : names)
        if (name.back() != '/') WriteFile("data/" + name, "");
    fs::create_directory(root_ / "data/.hs.dat.folder.tmp");
    for (const char* litter : {".hs.dat.tmp", ".hs.dat.1-0.tmp", ".hs.dat.new.1-0.tmp"})
        WriteFile(std::string("data/") + litter, "litter");
    const Names withLitter = List("data");
    const Descriptor folder(open((root_ / "data").c_str(), O_RDONLY));
    ASSERT_TRUE(folder.Lock());
    const auto files = OpenDiskFiles(root_.string(), /*folderWaitMs=*/10);
    EXPECT_TRUE(files->Replace("data\\hs.dat", {})) << "another program hangs";
    EXPECT_FALSE(files->Delete("data\\hs.dat", {}));
    EXPECT_EQ(List("data"), withLitter);
    flock(folder.Number(), LOCK_UN);

    const Descriptor held(open((root_ / "data/.hs.dat.held.tmp").c_str(), O_WRONLY));
    ASSERT_TRUE(held.Lock());
    EXPECT_TRUE(Replace("data\\hs.dat", "new"));
    EXPECT_EQ(List("data"), names);
    flock(held.Number(), LOCK_UN);
    EXPECT_TRUE(Replace("data\\hs.dat", "new"));
    names.erase(".hs.dat.held.tmp");
    EXPECT_EQ(List("data"), names);
}

TEST_F(FilesTest, ReplaceAndDeleteRefuseWhatIsNoWritableFileBeneathTheFolder) {
    for (const char* path : {"../secret", "data/locked", "data/one"})
        WriteFile(path, "old");
    for (const char* path : {"data/folder", "closed"})
        fs::create_directory(root_ / path);
    Link("data/out", "../../secret");
    Link("data/new", "../../new");
    ASSERT_EQ(mkfifo((root_ / "data/pipe").c_str(), 0666), 0);
    for (const char* path : {"data/pipe", "data/folder", "data/one"})
        fs::permissions(root_ / path, fs::perms(0777));
    for (const char* path : {"data/locked", "closed"})
        fs::permissions(root_ / path, fs::perms(0555));
    EXPECT_TRUE(AsNobody([&] { return Replace("data\\fresh", "new"); }));
    Names names = List("data");

    for (const std::string_view path :
         {"data\\folder", "data\\pipe", "data\\out", "data\\new", "data\\locked", "closed\\file",
          "missing\\file", "data\\locked\\file", "..\\secret", "..\\game\\data\\one", "", "data"}) {
        EXPECT_FALSE(AsNobody([&] { return Replace(path, "new"); })) << path;
        EXPECT_FALSE(AsNobody([&] { return Delete(path, "old"); })) << path;
    }
    for (const char* others : {"", "ol", "new", "older"})
        EXPECT_FALSE(Delete("data\\one", others)) << others;
    EXPECT_EQ(List("data"), names);
    EXPECT_EQ(List("closed"), Names{});
    EXPECT_EQ(Read("data\\locked"), "old");
    EXPECT_EQ(List(""), (Names{"closed/", "data/"}));
    EXPECT_FALSE(fs::exists(top_ / "new"));

    EXPECT_FALSE(AsNobody([&] { return Delete("data\\none", "old"); }));
    EXPECT_TRUE(AsNobody([&] { return Delete("DATA\\ONE", "old"); }));
    names.erase("one");
    EXPECT_EQ(List("data"), names);
}

TEST_F(FilesTest, AWriteThatFailsHalfwayLeavesTheOldFileAndNothingElse) {
    WriteFile("data/hs.dat", "old");
    EXPECT_FALSE(InChild([&] {
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{1000, 1000};
        return setrlimit(RLIMIT_FSIZE, &limit) != 0 ||
               Replace("data\\hs.dat", std::string(1001, 'x')) ||
               !Replace("data\\fits", std::string(1000, 'x'));
    }));
    EXPECT_EQ(Read("data\\hs.dat"), "old");
    EXPECT_EQ(List("data"), (Names{"fits", "hs.dat"}));
}

TEST_F(FilesTest, AStopAtAnyMomentLeavesTheOldOrTheNewBytes) {
    const std::string older(50'000, 'o');
    const std::string newer(70'000, 'n');
    const std::string others(60'000, 'x');
    const auto files = OpenDiskFiles(root_.string(), /*folderWaitMs=*/0);
    const auto replace = [&](const std::string& text) {
        return files->Replace("data\\hs.dat", std::as_bytes(std::span(text)));
    };
    const struct {
        const char* what;
        bool hasNoLock;     ///< it has given up waiting for the folder
        bool anotherSaves;  ///< while it is stopped
        bool isKilled;
    } kCases[] = {
        {"killed", false, false, true},
        {"killed after another save", false, true, true},
        {"goes on after another save", false, true, false},
        {"goes on without a lock after another save", true, true, false},
    };
    for (const auto& [what, hasNoLock, anotherSaves, isKilled] : kCases) {
        SCOPED_TRACE(what);
        int before = 0, after = 0;
        for (int stop = 1; stop < 500; ++stop) {
            ASSERT_TRUE(replace(older));
            ASSERT_EQ(List("data"), Names{"hs.dat"}) << "litter of stop " << stop - 1;
            const Descriptor lock(hasNoLock ? open((root_ / "data").c_str(), O_RDONLY) : -1);
            ASSERT_EQ(lock && lock.Lock(), hasNoLock);
            StoppedChild child(stop, [&] { return replace(newer); });
            if (hasNoLock) flock(lock.Number(), LOCK_UN);  // closing would not do: the child has it
            if (child.HasEnded()) break;
            const bool isDone = Read("data\\hs.dat") != older;
            ++(isDone ? after : before);
            ASSERT_TRUE(!anotherSaves || replace(others)) << "beside stop " << stop;
            if (isKilled) child.Kill();
            ASSERT_TRUE(isKilled || child.GoesOn()) << "failed after stop " << stop;
            const bool itWrote = isKilled ? isDone && !anotherSaves : !isDone;
            const std::string& otherwise = anotherSaves ? others : older;
            ASSERT_EQ(Read("data\\hs.dat"), itWrote ? newer : otherwise) << "stop " << stop;
        }
        // At least ten stops come before the file is replaced, and the flush of the folder after.
        EXPECT_GE(before, 10);
        EXPECT_GE(after, 3);
    }
}

}  // namespace
}  // namespace korvane
