#include "platform/host/files.h"

#include <fcntl.h>
#include <grp.h>
#include <gtest/gtest.h>
#include <sys/ptrace.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <functional>
#include <memory>
#include <set>
#include <span>
#include <string>
#include <vector>

#include "tests/support/temporary_folder.h"

namespace korvane {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kNoCap = 1 << 20;

using Names = std::multiset<std::string>;

/// Runs something in a process of its own and returns what it returned.
bool InChild(const std::function<bool()>& work) {
    const pid_t child = fork();
    if (child == 0) _exit(work() ? 0 : 1);
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_TRUE(WIFEXITED(status)) << "the child was killed by signal " << WTERMSIG(status);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

/// The superuser may write everything; permissions only mean something to others.
bool BecomeNobody() {
    constexpr unsigned kNobody = 65534;
    if (geteuid() != 0) return true;
    return setgroups(0, nullptr) == 0 && setgid(kNobody) == 0 && setuid(kNobody) == 0;
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

    /// The content, or "(none)" when it could not be read.
    std::string Read(std::string_view path, std::size_t cap = kNoCap) {
        const auto bytes = files_->Read(path, cap);
        if (!bytes) return "(none)";
        return {reinterpret_cast<const char*>(bytes->data()), bytes->size()};
    }
    bool Replace(std::string_view path, const std::string& text) {
        return files_->Replace(path, std::as_bytes(std::span(text)));
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
    WriteFile("../secret", "secret");
    WriteFile("data/menu.dat", "menu");
    WriteFile("Skins/Original/Game/blocks.bmp", "blocks");
    for (const char* name : {"a.TXT", "A.txT", "A.Txt", "a.Txt", "A.txt", "a.tXt"})
        WriteFile(std::string("Skins/Two/") + name, name);
    WriteFile("Skins/Two/a.txt ", "blank");
    WriteFile("c:data/menu.dat", "drive");
    WriteFile("Skins/Two/B", "B");
    WriteFile("Skins/Two/b", "b");
    Link("Graphics/Original", "../Skins/Original");
    Link("Graphics/Chain", "original/../Original//Game/.");
    Link("Graphics/file", "../data/menu.dat");
    Link("Graphics/up", "../..");
    Link("Graphics/secret", "../../secret");
    Link("Graphics/absolute", root_ / "data/menu.dat");
    Link("rooted", "/data/menu.dat");
    Link("Graphics/device", "/dev/zero");
    Link("Graphics/circle", "circle");
    Link("Graphics/dangling", "missing");
    ASSERT_EQ(mkfifo((root_ / "pipe").c_str(), 0666), 0);

    const std::string longName(255, 'n');
    const std::string longerName(256, 'n');
    const std::string dots(2000, '.');
    WriteFile(longName, "long");

    const struct {
        std::string_view want;
        std::vector<std::string_view> paths;
    } kCases[] = {
        {"menu",
         {"data\\menu.dat", "data/menu.dat", "DATA\\Menu.Dat", ".\\data\\\\.//menu.dat",
          "graphics\\FILE"}},
        {"blocks",
         {"skins\\ORIGINAL\\game\\BLOCKS.BMP", "Graphics\\Original\\Game\\blocks.bmp",
          "graphics\\original\\game\\blocks.bmp", "Graphics\\Chain\\blocks.bmp"}},
        {"b", {"skins\\two\\b"}},
        {"B", {"skins\\two\\B"}},
        {"A.Txt", {"skins\\two\\A.TXT"}},
        {"blank", {"skins\\two\\a.txt "}},
        {"long", {longName}},
        {"(none)",
         {// Links that lead out or nowhere.
          "Graphics\\up\\secret", "Graphics\\up\\game\\data\\menu.dat", "Graphics\\secret",
          "Graphics\\absolute", "rooted", "Graphics\\device", "Graphics\\circle",
          "Graphics\\dangling",
          // Other ways out, names that are too long, and things that are no file.
          "..\\secret", "data\\..\\data\\menu.dat", "data/../../secret", "/etc/passwd",
          "\\data\\menu.dat", "c:data\\menu.dat", std::string_view("data\\menu.dat\0", 14),
          std::string_view("data\0\\menu.dat", 14), "", ".", "data", "pipe", "data\\missing",
          "missing\\menu.dat", "data\\menu.dat\\x", "skins\\two\\b ", longerName, dots}},
    };
    for (const auto& [want, paths] : kCases)
        for (const std::string_view path : paths)
            EXPECT_EQ(Read(path), want) << path;
}

TEST_F(FilesTest, ReadsUpToTheCap) {
    WriteFile("ten", "0123456789");
    EXPECT_EQ(Read("ten", 10), "0123456789");
    EXPECT_EQ(Read("ten", 9), "(none)");
    WriteFile("empty", "");
    EXPECT_EQ(Read("empty", 0), "");
    WriteFile("huge", "");
    fs::resize_file(root_ / "huge", std::uintmax_t{1} << 42);  // a hole; no disk holds it in full
    EXPECT_EQ(Read("huge", kNoCap), "(none)");
}

TEST_F(FilesTest, ReplaceMakesOrRewritesAFileUnderItsOwnName) {
    EXPECT_TRUE(Replace("data\\hs.dat", "first"));
    EXPECT_TRUE(Replace("DATA\\HS.DAT", "2nd"));
    EXPECT_TRUE(Replace("data\\empty", ""));
    WriteFile("data/.hs.dat.tmp", "left by a killed program");
    EXPECT_TRUE(Replace("data\\hs.dat", "third"));
    EXPECT_EQ(Read("data\\hs.dat"), "third");
    EXPECT_EQ(Read("data\\empty"), "");
    EXPECT_EQ(List("data"), (Names{"empty", "hs.dat"}));

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

TEST_F(FilesTest, ReplaceRefusesWhatIsNoWritableFileBeneathTheFolder) {
    WriteFile("../secret", "secret");
    WriteFile("data/old", "old");
    WriteFile("data/locked", "locked");
    fs::create_directory(root_ / "data/folder");
    fs::create_directory(root_ / "data/.old.tmp");
    Link("data/out", "../../secret");
    Link("data/new", "../../new");
    ASSERT_EQ(mkfifo((root_ / "data/pipe").c_str(), 0666), 0);
    for (const char* writable : {"data/pipe", "data/folder", "data/old"})
        fs::permissions(root_ / writable, fs::perms(0777));
    fs::permissions(root_ / "data/locked", fs::perms(0444));
    fs::create_directory(root_ / "closed");
    fs::permissions(root_ / "closed", fs::perms(0555));
    EXPECT_TRUE(InChild([&] { return BecomeNobody() && Replace("data\\fresh", "new"); }));
    const Names before = List("data");

    for (const std::string_view path :
         {"data\\folder", "data\\pipe", "data\\out", "data\\new", "data\\old", "data\\locked",
          "closed\\file", "missing\\file", "data\\locked\\file", "..\\secret", "", "data"}) {
        EXPECT_FALSE(InChild([&] { return BecomeNobody() && Replace(path, "new"); })) << path;
    }
    EXPECT_EQ(List("data"), before);
    EXPECT_EQ(List("closed"), Names{});
    for (const std::string name : {"old", "locked"})
        EXPECT_EQ(Read("data\\" + name), name);
    EXPECT_EQ(List(""), (Names{"closed/", "data/"}));
    EXPECT_FALSE(fs::exists(top_ / "new"));
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

/// Starts `work` in a child and kills it when it is about to enter, or has just left, its n-th
/// system call. False when it came to its end before that.
bool KilledAtStop(int n, const std::function<void()>& work) {
    const pid_t child = fork();
    if (child == 0) {
        ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
        raise(SIGSTOP);
        work();
        _exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    for (int i = 0; i < n && WIFSTOPPED(status); ++i) {
        ptrace(PTRACE_SYSCALL, child, nullptr, nullptr);
        waitpid(child, &status, 0);
    }
    if (WIFEXITED(status)) return false;
    kill(child, SIGKILL);
    waitpid(child, &status, 0);
    return true;
}

TEST_F(FilesTest, AKillAtAnyMomentLeavesTheOldOrTheNewBytes) {
    const std::string older(50'000, 'o');
    const std::string newer(70'000, 'n');
    int oldSeen = 0;
    int newSeen = 0;
    for (int stop = 1; stop < 500; ++stop) {
        ASSERT_TRUE(Replace("data\\hs.dat", older));
        ASSERT_EQ(List("data"), Names{"hs.dat"}) << "what the last kill left was not deleted";
        const bool killed = KilledAtStop(stop, [&] { Replace("data\\hs.dat", newer); });
        const std::string now = Read("data\\hs.dat");
        ASSERT_TRUE(now == older || now == newer) << "torn at stop " << stop;
        ++(now == older ? oldSeen : newSeen);
        if (!killed) break;
    }
    // At least ten stops come before the file is replaced, and the flush of the folder after that.
    EXPECT_GE(oldSeen, 10);
    EXPECT_GE(newSeen, 3);
}

TEST_F(FilesTest, AFileThatGrowsWhileItIsReadKeepsTheCap) {
    // The kernel says 0 bytes of these, and then tells more.
    const auto files = OpenDiskFiles("/proc/self");
    EXPECT_TRUE(files->Read("status", kNoCap));
    EXPECT_FALSE(files->Read("status", 10));
}

}  // namespace
}  // namespace korvane
