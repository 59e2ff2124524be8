#include <cmath>
#include <vector>

#include "tools/korvane-skin/checks.h"
#include "tools/korvane-skin/colour.h"
#include "tools/korvane-skin/limits.h"

namespace korvane {
namespace {

/// A tile's pixels as an eye sees them. Transparent ones are black, nearly as boards are.
using SeenTile = std::vector<Lab>;

SeenTile SeeTile(const DecodedBitmap& strip, int tile, SIZE size, std::uint32_t key, Sight sight) {
    SeenTile seen;
    for (int y = 0; y < size.cy; ++y) {
        for (int x = 0; x < size.cx; ++x) {
            const std::uint32_t pixel = PixelOf(strip, tile * size.cx + x, y);
            seen.push_back(SeenAs(pixel == key ? 0 : pixel, sight));
        }
    }
    return seen;
}

double Distance(const SeenTile& one, const SeenTile& other) {
    double sum = 0;
    for (std::size_t i = 0; i < one.size(); ++i)
        sum += SquaredDifference(one[i], other[i]);
    return std::sqrt(sum / static_cast<double>(one.size()));
}

Lab MeanOf(const SeenTile& tile) {
    Lab mean{};
    const auto count = static_cast<double>(tile.size());
    for (const Lab& pixel : tile) {
        mean.lightness += pixel.lightness / count;
        mean.a += pixel.a / count;
        mean.b += pixel.b / count;
    }
    return mean;
}

/// Why two tiles are too much alike, and what to do; empty when they are not.
std::string CheckPair(const SeenTile& one, const SeenTile& other, Sight sight) {
    const auto tell = [&](const char* fault, double distance, double least, const char* advice) {
        return Text(fault, kSightNames[static_cast<std::size_t>(sight)], " (",
                    std::floor(distance * 10) / 10, " apart, ", least, " is wanted); ", advice);
    };
    const double distance = Distance(one, other);
    if (distance < kLeastTileDistance)
        return tell("look alike ", distance, kLeastTileDistance,
                    "make one of them lighter, or give it another mark");
    const double colours = std::sqrt(SquaredDifference(MeanOf(one), MeanOf(other)));
    if (sight != Sight::Greyscale && colours < kLeastColourDistance)
        return tell("differ only in their marks ", colours, kLeastColourDistance,
                    "give one of them another colour, or make it lighter");
    return {};
}

void CheckSight(const PictureRow& row, const std::vector<SeenTile>& tiles, Sight sight,
                Report& report) {
    for (std::size_t one = 0; one < tiles.size(); ++one) {
        for (std::size_t other = one + 1; other < tiles.size(); ++other) {
            const std::string fault = CheckPair(tiles[one], tiles[other], sight);
            if (!fault.empty())
                report.Add(Severity::Warning, row.file,
                           Text("tiles ", one + 1, " and ", other + 1, " ", fault));
        }
    }
}

}  // namespace

void CheckTiles(const CheckedSkin& skin, Report& report) {
    const PictureRow& row = RowOf("Game\\blocks.bmp");
    const SkinPicture& picture = skin.Picture(row);
    const SIZE wanted = row.FileSize();
    if (!picture.isOwn || picture.bitmap->size.cx < wanted.cx ||
        picture.bitmap->size.cy < wanted.cy)
        return;
    for (std::size_t i = 0; i < static_cast<std::size_t>(Sight::Count); ++i) {
        const auto sight = static_cast<Sight>(i);
        std::vector<SeenTile> tiles;
        for (int tile = 0; tile < row.cells; ++tile)
            tiles.push_back(SeeTile(*picture.bitmap, tile, row.room, skin.Key(row.key), sight));
        CheckSight(row, tiles, sight, report);
    }
}

}  // namespace korvane
