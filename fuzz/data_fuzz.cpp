// The four data files, a skin's module.txt and its key colours. The input's first byte says which
// it is.

#include <algorithm>
#include <array>
#include <memory>
#include <string>
#include <vector>

#include "app/state/settings.h"
#include "audio/module_text.h"
#include "fuzz/expect.h"
#include "fuzz/memory_files.h"
#include "game/rules/key_bindings.h"
#include "game/rules/level_table.h"
#include "gfx/skin.h"
#include "platform/headless/headless_host.h"
#include "screens/high_score_table.h"

namespace korvane::fuzz {
namespace {

using Bytes = std::vector<std::byte>;

MemoryFiles::Contents& Disk() {
    static const auto contents = [] {
        auto made = std::make_shared<MemoryFiles::Contents>();
        Headless().UseFiles(std::make_unique<MemoryFiles>(made));
        return made;
    }();
    return *contents;
}

/// Loads a file of any content and saves it. What was saved must not change when it is loaded and
/// saved again. The same content beside that file is taken up once and is gone then.
template <class LoadAndSave>
void CheckSettles(const std::string& path, const Bytes& content, LoadAndSave loadAndSave) {
    Disk().insert_or_assign(path, content);
    loadAndSave();
    const Bytes saved = Disk()[path];
    Expect(!saved.empty());
    loadAndSave();
    Expect(Disk()[path] == saved);
    Disk().insert_or_assign(path + ".new", content);
    loadAndSave();
    Expect(!Disk().contains(path + ".new") && !Disk()[path].empty());
}

void TryModuleText(std::span<const std::byte> input) {
    ModuleChoice choice;
    ApplyModuleText({reinterpret_cast<const char*>(input.data()), input.size()}, choice);
    Expect(choice.fileName.size() <= 254);
}

/// Each key is black or stands in the file: blue, green, red.
void TryColorKeys(Bytes content) {
    SkinColorKeys keys;
    Disk().insert_or_assign("Skins\\Original\\colorkey.bmp", content);
    keys.Load();
    for (int i = 0; i < 3; ++i) {
        const COLORREF key = keys.Key(i);
        const std::array stored = {std::byte(key >> 16), std::byte(key >> 8 & 0xFF),
                                   std::byte(key & 0xFF)};
        const auto found =
            std::search(content.begin(), content.end(), stored.begin(), stored.end());
        Expect(key == 0 || found != content.end());
    }
}

void Try(std::span<const std::byte> input) {
    if (input.empty()) return;
    const std::span<const std::byte> rest = input.subspan(1);
    Bytes content(rest.begin(), rest.end());
    switch (std::to_integer<int>(input.front()) % 6) {
        case 0:
            return CheckSettles("data\\menu.dat", content, [] {
                const Settings settings;  // saves when it ends
            });
        case 1:
            return CheckSettles("data\\sync.dat", content, [] {
                const LevelTable table;  // saves when it ends
            });
        case 2:
            return CheckSettles("data\\hs.dat", content, [] { HighScoreTable().Save(); });
        case 3:
            return CheckSettles("data\\keys.dat", content, [] {
                KeyBindings bindings;
                bindings.Load();
                bindings.Save();
            });
        case 4:
            return TryModuleText(rest);
        default:
            return TryColorKeys(std::move(content));
    }
}

}  // namespace
}  // namespace korvane::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    korvane::fuzz::Try(korvane::fuzz::InputBytes(data, size));
    return 0;
}
