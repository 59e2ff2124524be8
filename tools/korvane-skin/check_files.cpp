#include <algorithm>
#include <array>

#include "app/state/settings.h"
#include "gfx/skin.h"
#include "platform/base/ascii.h"
#include "platform/host/host.h"
#include "tools/korvane-skin/catalogue.h"
#include "tools/korvane-skin/checks.h"
#include "tools/korvane-skin/colour.h"

namespace korvane {
namespace {

constexpr std::size_t kDepthField = 28;

/// Why the game cannot read a picture file.
std::string WhatIsWrong(const std::string& file) {
    const auto bytes = TheHost().GameFiles().Read(SkinPath(file), kMaxBitmapBytes);
    if (!bytes) return "cannot be opened, or is larger than 16 MB";
    const auto starts = [&](std::string_view magic) {
        return bytes->size() >= magic.size() &&
               std::ranges::equal(magic, std::span(*bytes).first(magic.size()), {},
                                  [](char c) { return static_cast<std::byte>(c); });
    };
    if (starts("\x89PNG")) return "is a PNG file by another name";
    if (starts("\xFF\xD8")) return "is a JPEG file by another name";
    if (!starts("BM")) return "is no BMP file";
    return "is a BMP file of a kind that the game does not read, or a damaged one";
}

/// The same picture in a format that the game does not read; empty when there is none.
std::string OtherFormatOf(const CheckedSkin& skin, const PictureRow& row) {
    const std::string stem(row.file.substr(0, row.file.rfind('.')));
    const auto isOther = [&](const std::string& name) {
        constexpr const char* kEndings[] = {".png", ".jpg", ".jpeg", ".gif", ".webp", ".tga"};
        return std::ranges::any_of(kEndings, [&](const char* ending) {
            return AsciiEqualsIgnoringCase(name, stem + ending);
        });
    };
    const auto found = std::ranges::find_if(skin.FileNames(), isOther);
    return found == skin.FileNames().end() ? std::string() : *found;
}

void CheckPicture(const CheckedSkin& skin, const PictureRow& row, Report& report) {
    const SkinPicture& picture = skin.Picture(row);
    if (picture.isOwn) return;
    const std::string other = picture.isThere ? std::string() : OtherFormatOf(skin, row);
    if (!other.empty()) {
        report.Add(Severity::Warning, other,
                   Text("is not read: the game takes BMP files alone; save it as ",
                        ShownName(row.file), " too (the Original's shows until then)"));
    } else if (picture.isTooMuch) {
        report.Add(
            Severity::Error, row.file,
            Text("finds no room: the pictures of a skin take at most ", PictureBudget::kMost >> 20,
                 " MiB together, four bytes a pixel; make them smaller"));
    } else if (picture.isThere) {
        report.Add(Severity::Error, row.file,
                   Text(WhatIsWrong(std::string(row.file)),
                        "; save it as an uncompressed BMP of 24 bits (the Original's shows until "
                        "then)"));
    } else if (!picture.bitmap) {
        report.Add(Severity::Error, row.file,
                   "neither this skin nor the Original has it; draw it or repair the Original");
    } else if (row.key != kNoKey && skin.Key(row.key) != skin.OriginalKey(row.key)) {
        report.Add(
            Severity::Warning, row.file,
            Text("not there, and the Original's shows its key colour ",
                 ColourName(skin.OriginalKey(row.key)), " here, where key ", row.key + 1, " is ",
                 ColourName(skin.Key(row.key)), "; draw it, or take the Original's colorkey.bmp"));
    } else {
        report.Add(Severity::Note, row.file, "not there; the Original's shows instead");
    }
}

/// The game takes the key colours from the bytes of the file, three bytes for each, whatever its
/// depth.
void CheckKeyFile(const CheckedSkin& skin, Report& report) {
    const PictureRow& row = RowOf("colorkey.bmp");
    if (!skin.Picture(row).isOwn) return;
    const auto file = TheHost().GameFiles().Read(SkinPath(std::string(row.file)), kMaxBitmapBytes);
    const bool has24Bits = file && std::to_integer<int>((*file)[kDepthField]) == 24;
    if (!has24Bits)
        report.Add(Severity::Error, row.file,
                   "has not 24 bits for a pixel, so that other colours become key colours; save it "
                   "with 24 bits");
    else if (skin.Picture(row).bitmap->size.cx < row.FileSize().cx)
        report.Add(Severity::Error, row.file,
                   "is narrower than three pixels; its lowest row holds the three key colours");
}

bool EndsWith(std::string_view name, std::string_view ending) {
    return name.size() >= ending.size() &&
           AsciiEqualsIgnoringCase(name.substr(name.size() - ending.size()), ending);
}

bool IsKnown(const std::string& name) {
    const auto isIt = [&name](const auto& row) { return AsciiEqualsIgnoringCase(row.file, name); };
    return std::ranges::any_of(kPictures, isIt) || std::ranges::any_of(kSoundFiles, isIt);
}

void CheckStrangers(const CheckedSkin& skin, Report& report) {
    for (const std::string& name : skin.FileNames()) {
        const bool isOfSkins = EndsWith(name, ".bmp") || EndsWith(name, ".wav");
        if (isOfSkins && !IsKnown(name))
            report.Add(Severity::Warning, name,
                       "no place of the game shows or plays it; is its name misspelt?");
    }
}

}  // namespace

void CheckFiles(const CheckedSkin& skin, Report& report) {
    for (const PictureRow& row : kPictures)
        CheckPicture(skin, row, report);
    CheckKeyFile(skin, report);
    CheckStrangers(skin, report);
}

}  // namespace korvane
