#include <functional>

#include "tools/korvane-skin/checks.h"
#include "tools/korvane-skin/colour.h"
#include "tools/korvane-skin/limits.h"
#include "tools/korvane-skin/text_places.h"

namespace korvane {
namespace {

/// The pixels for which a condition holds: how many there are, and the first one.
struct Spots {
    int count = 0;
    POINT first{};
    std::uint32_t colour = 0;

    explicit operator bool() const { return count > 0; }
};

Spots FindSpots(const DecodedBitmap& bitmap, const std::function<bool(int x, int y)>& isOne) {
    Spots spots;
    for (int y = 0; y < bitmap.size.cy; ++y) {
        for (int x = 0; x < bitmap.size.cx; ++x) {
            if (!isOne(x, y)) continue;
            if (spots.count++ == 0) spots = {1, {x, y}, PixelOf(bitmap, x, y)};
        }
    }
    return spots;
}

/// "3 pixels (the first at 5, 7: #FF00FE)".
std::string SpotText(const Spots& spots) {
    const bool isOne = spots.count == 1;
    return Text(spots.count, isOne ? " pixel (at " : " pixels (the first at ", spots.first.x, ", ",
                spots.first.y, ": ", ColourName(spots.colour), ")");
}

bool TouchesKey(const DecodedBitmap& bitmap, int x, int y, std::uint32_t key) {
    constexpr POINT kBeside[] = {{-1, 0}, {1, 0}, {0, -1}, {0, 1}};
    for (const POINT& step : kBeside) {
        const POINT at{x + step.x, y + step.y};
        const bool isInside =
            at.x >= 0 && at.y >= 0 && at.x < bitmap.size.cx && at.y < bitmap.size.cy;
        if (isInside && PixelOf(bitmap, at.x, at.y) == key) return true;
    }
    return false;
}

void CheckCollisions(const PictureRow& row, const DecodedBitmap& bitmap, std::uint32_t key,
                     Report& report) {
    const Spots spots = FindSpots(bitmap, [&](int x, int y) {
        const std::uint32_t pixel = PixelOf(bitmap, x, y);
        return pixel != key && ReducedTo565(pixel) == ReducedTo565(key);
    });
    if (spots)
        report.Add(Severity::Warning, row.file,
                   Text(SpotText(spots), " too close to the key colour ", ColourName(key),
                        ": full screen of 16 bits shows holes; choose another colour"));
}

void CheckFringes(const PictureRow& row, const DecodedBitmap& bitmap, std::uint32_t key,
                  Report& report) {
    const Spots spots = FindSpots(bitmap, [&](int x, int y) {
        const std::uint32_t pixel = PixelOf(bitmap, x, y);
        return ReducedTo565(pixel) != ReducedTo565(key) &&
               ChannelDistance(pixel, key) <= kFringeDistance && TouchesKey(bitmap, x, y, key);
    });
    if (spots)
        report.Add(Severity::Warning, row.file,
                   Text(SpotText(spots), " in a fringe round the key colour ", ColourName(key),
                        "; make each either that or a colour of the art, with a hard brush"));
}

/// Finds pixels in a key colour that is not the picture's own, and so is not transparent.
void CheckWrongKey(const CheckedSkin& skin, const PictureRow& row, const DecodedBitmap& bitmap,
                   Report& report) {
    for (int other = 0; other < 3; ++other) {
        const std::uint32_t colour = skin.Key(other);
        if (row.key != kNoKey && colour == skin.Key(row.key)) continue;
        const Spots spots =
            FindSpots(bitmap, [&](int x, int y) { return PixelOf(bitmap, x, y) == colour; });
        if (!spots) continue;
        const std::string own =
            row.key == kNoKey ? std::string("nothing is transparent here; take another colour")
                              : Text("here key colour ", row.key + 1, " (",
                                     ColourName(skin.Key(row.key)), ") is transparent; take that");
        report.Add(
            Severity::Warning, row.file,
            Text(SpotText(spots), " in key colour ", other + 1, ", which shows as it is: ", own));
    }
}

bool NeedsTransparency(const PictureRow& row) {
    return row.kind == PictureKind::Cells && row.key != 1;
}

void CheckTransparency(const PictureRow& row, const DecodedBitmap& bitmap, std::uint32_t key,
                       Report& report) {
    if (NeedsTransparency(row) &&
        !FindSpots(bitmap, [&](int x, int y) { return PixelOf(bitmap, x, y) == key; }))
        report.Add(Severity::Warning, row.file,
                   Text("has no pixel of its key colour ", ColourName(key),
                        ", so that characters are drawn as boxes; fill the ground with it"));
}

/// Finds a picture that lies on a background and leaves nothing of it to be seen.
void CheckCover(const PictureRow& row, const DecodedBitmap& bitmap, std::uint32_t key,
                Report& report) {
    if (!LiesOnBackground(row.file) || bitmap.size.cy < row.room.cy) return;
    if (!FindSpots(bitmap, [&](int x, int y) { return PixelOf(bitmap, x, y) == key; }))
        report.Add(Severity::Warning, row.file,
                   Text("hides the whole background; fill what shall show Background.bmp with ",
                        ColourName(key)));
}

}  // namespace

void CheckKeys(const CheckedSkin& skin, Report& report) {
    for (const PictureRow& row : kPictures) {
        const SkinPicture& picture = skin.Picture(row);
        if (!picture.isOwn || row.kind == PictureKind::Keys) continue;
        CheckWrongKey(skin, row, *picture.bitmap, report);
        if (row.key == kNoKey) continue;
        const std::uint32_t key = skin.Key(row.key);
        CheckCollisions(row, *picture.bitmap, key, report);
        CheckFringes(row, *picture.bitmap, key, report);
        CheckTransparency(row, *picture.bitmap, key, report);
        CheckCover(row, *picture.bitmap, key, report);
    }
}

}  // namespace korvane
