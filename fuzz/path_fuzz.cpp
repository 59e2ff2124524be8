// A path that the game asks for, and the text of a link that stands in the game's folder. The input
// is the link's text, a line feed and the path.

#include <fcntl.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "fuzz/expect.h"
#include "platform/files/folder_walk.h"
#include "platform/host/files.h"
#include "tests/support/temporary_folder.h"

namespace korvane::fuzz {
namespace {

constexpr std::string_view kInside = "inside";
/// Every name beneath the game's folder.
constexpr std::array<std::string_view, 8> kNames = {"data",  "menu.dat", "Skins",    "Original",
                                                    "SKINS", "logo.bmp", "Graphics", "link"};

/// A game's folder with a file beside it that no path may lead to.
class GameTree {
  public:
    GameTree() {
        const auto write = [&](const char* name, std::string_view text) {
            folder_.Write(name, std::as_bytes(std::span(text)));
        };
        write("secret", "outside");
        for (const char* name : {"game/data/menu.dat", "game/Skins/Original/logo.bmp",
                                 "game/SKINS/logo.bmp", "game/Graphics/Original/logo.bmp"})
            write(name, kInside);
    }

    Files& GameFiles() { return *files_; }

    /// False when there can be no such link.
    bool SetLink(const std::string& text) {
        std::error_code failed;
        std::filesystem::remove(link_, failed);
        if (text.find('\0') != text.npos) return false;
        std::filesystem::create_symlink(text, link_, failed);
        return !failed;
    }

  private:
    TemporaryFolder folder_;
    std::string game_ = folder_.Path() + "/game";
    std::string link_ = game_ + "/Skins/link";
    std::unique_ptr<Files> files_ = OpenDiskFiles(game_);
};

void CheckNames(std::string_view path) {
    const auto names = SplitGamePath(path);
    if (!names) return;
    std::string joined;
    for (const std::string& name : *names) {
        Expect(!name.empty() && name != "." && name != "..");
        Expect(name.find_first_of(std::string_view("/\\\0", 3)) == name.npos);
        joined += (joined.empty() ? "" : "\\") + name;
    }
    // A drive letter can come to the front when the names before it are left out.
    if (joined.size() < 2 || joined[1] != ':') Expect(SplitGamePath(joined) == names);
}

void CheckFiles(Files& files, std::string_view path) {
    if (const auto bytes = files.Read(path, 100))
        Expect(std::ranges::equal(*bytes, std::as_bytes(std::span(kInside))));
    if (const auto entries = files.List(path))
        for (const FolderEntry& entry : *entries)
            Expect(std::ranges::find(kNames, entry.name) != kNames.end());
}

/// How many of the lowest descriptors are open.
int OpenDescriptors() {
    int count = 0;
    for (int number = 0; number < 32; ++number)
        count += fcntl(number, F_GETFD) != -1;
    return count;
}

void Try(std::string_view input) {
    static GameTree tree;
    const std::size_t feed = input.find('\n');
    if (feed == input.npos || !tree.SetLink(std::string(input.substr(0, feed)))) return;
    const std::string_view path = input.substr(feed + 1);
    const int before = OpenDescriptors();
    CheckNames(path);
    CheckFiles(tree.GameFiles(), path);
    Expect(OpenDescriptors() == before);
}

}  // namespace
}  // namespace korvane::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    korvane::fuzz::Try(korvane::fuzz::InputText(data, size));
    return 0;
}
