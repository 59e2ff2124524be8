#include "app/state/skin_presence.h"

#include <algorithm>
#include <cstddef>
#include <initializer_list>
#include <string>
#include <string_view>

#include "app/state/settings.h"
#include "platform/base/ascii.h"
#include "platform/host/kernel.h"

namespace korvane {
namespace {

/// Enough for any picture or sound: the greatest that a skin may hold.
constexpr std::size_t kCap = std::size_t{64} << 20;

bool IsReadable(const std::string& path) {
    return GameFiles().TryRead(path, kCap).status == ReadStatus::Read;
}

bool IsPictureOrSound(std::string_view name) {
    const std::string_view end = name.substr(name.size() - std::min<std::size_t>(name.size(), 4));
    return AsciiEqualsIgnoringCase(end, ".bmp") || AsciiEqualsIgnoringCase(end, ".wav");
}

/// Looks into a folder and, if asked to, into those in it.
bool HoldsAny(const std::string& folder, bool looksDeeper) {
    const auto entries = GameFiles().List(folder);
    return entries && std::ranges::any_of(*entries, [&](const FolderEntry& entry) {
               const std::string path = folder + "\\" + entry.name;
               if (entry.isFolder) return looksDeeper && HoldsAny(path, /*looksDeeper=*/false);
               return IsPictureOrSound(entry.name) && IsReadable(path);
           });
}

}  // namespace

bool IsAnySkinReadable() {
    const std::string skin = "Skins\\" + theSettings.skinName;
    // A small file that every whole skin has: nearly always nothing else is looked at.
    if (IsReadable(skin + "\\colorkey.bmp")) return true;
    return std::ranges::any_of(
        std::initializer_list<std::string>{skin, "Skins\\Original", "Graphics\\Original"},
        [](const std::string& folder) { return HoldsAny(folder, /*looksDeeper=*/true); });
}

}  // namespace korvane
