#include "tools/korvane-skin/checked_skin.h"

#include <algorithm>

#include "app/state/settings.h"
#include "gfx/skin.h"
#include "platform/base/ascii.h"
#include "platform/host/host.h"

namespace korvane {
namespace {

using File = std::vector<std::byte>;

File Read(const std::string& path) {
    return TheHost().GameFiles().Read(path, kMaxBitmapBytes).value_or(File());
}

/// Whether the budget has room for a picture on a display of 32 bits a pixel. A file that is no
/// picture needs none.
bool HasRoom(PictureBudget& budget, const File& file) {
    const auto bmp = BmpFile::Open(file);
    if (!bmp) return true;
    const RECT area = RectAt({0, 0}, bmp->Size());
    return budget.Take(static_cast<std::size_t>(area.PixelCount()) * sizeof(std::uint32_t),
                       /*fromSkin=*/true);
}

std::uint32_t FromGdi(COLORREF colour) {
    return (colour & 0xFF) << 16 | (colour & 0xFF00) | (colour >> 16 & 0xFF);
}

}  // namespace

CheckedSkin::CheckedSkin() {
    ListFolder("");
    PictureBudget budget;
    for (const PictureRow& row : kPictures) {
        const std::string file(row.file);
        SkinPicture& picture = pictures_[IndexOf(row)];
        picture.isThere = Has(file);
        const File own = Read(SkinPath(file));
        picture.isTooMuch = !HasRoom(budget, own);
        if (!picture.isTooMuch) picture.bitmap = DecodeBmp(own);
        picture.isOwn = picture.bitmap.has_value();
        if (!picture.isOwn) picture.bitmap = DecodeBmp(Read(FallbackPicturePath(file)));
    }
    keys_ = LoadKeys();
    const std::string name = theSettings.skinName;
    theSettings.skinName = "Original";
    originalKeys_ = LoadKeys();
    theSettings.skinName = name;
}

CheckedSkin::Keys CheckedSkin::LoadKeys() {
    SkinColorKeys keys;
    keys.Load();
    return {FromGdi(keys.Key(0)), FromGdi(keys.Key(1)), FromGdi(keys.Key(2))};
}

/// One level is enough: a skin's folders hold no folders.
void CheckedSkin::ListFolder(const std::string& folder) {
    const auto entries = TheHost().GameFiles().List(SkinPath(folder));
    if (!entries) return;
    for (const FolderEntry& entry : *entries) {
        std::string name = folder.empty() ? entry.name : folder + '\\' + entry.name;
        if (!entry.isFolder) {
            fileNames_.push_back(std::move(name));
        } else if (folder.empty()) {
            ListFolder(name);
            folders_.push_back(std::move(name));
        }
    }
}

bool CheckedSkin::Has(std::string_view name) const {
    const auto isIt = [name](const std::string& other) {
        return AsciiEqualsIgnoringCase(name, other);
    };
    return std::ranges::any_of(fileNames_, isIt) || std::ranges::any_of(folders_, isIt);
}

}  // namespace korvane
