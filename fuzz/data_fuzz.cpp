// The four data files and a skin's module.txt. The input's first byte says which it is.

#include <memory>
#include <string>
#include <vector>

#include "app/state/settings.h"
#include "audio/module_text.h"
#include "fuzz/expect.h"
#include "fuzz/memory_files.h"
#include "game/rules/key_bindings.h"
#include "game/rules/level_table.h"
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
/// saved again.
template <class LoadAndSave>
void CheckSettles(const std::string& path, Bytes content, LoadAndSave loadAndSave) {
    Disk().insert_or_assign(path, std::move(content));
    loadAndSave();
    const Bytes saved = Disk()[path];
    Expect(!saved.empty());
    loadAndSave();
    Expect(Disk()[path] == saved);
}

void TryModuleText(std::span<const std::byte> input) {
    ModuleChoice choice;
    ApplyModuleText({reinterpret_cast<const char*>(input.data()), input.size()}, choice);
    Expect(choice.fileName.size() <= 254);
}

void Try(std::span<const std::byte> input) {
    if (input.empty()) return;
    const std::span<const std::byte> rest = input.subspan(1);
    Bytes content(rest.begin(), rest.end());
    switch (std::to_integer<int>(input.front()) % 5) {
        case 0:
            return CheckSettles("data\\menu.dat", std::move(content), [] {
                const Settings settings;  // saves when it ends
            });
        case 1:
            return CheckSettles("data\\sync.dat", std::move(content), [] {
                const LevelTable table;  // saves when it ends
            });
        case 2:
            return CheckSettles("data\\hs.dat", std::move(content),
                                [] { HighScoreTable().Save(); });
        case 3:
            return CheckSettles("data\\keys.dat", std::move(content), [] {
                KeyBindings bindings;
                bindings.Load();
                bindings.Save();
            });
        default:
            return TryModuleText(rest);
    }
}

}  // namespace
}  // namespace korvane::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    korvane::fuzz::Try(korvane::fuzz::InputBytes(data, size));
    return 0;
}
