#include <algorithm>
#include <cmath>
#include <functional>
#include <utility>
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

double ColourDistance(const SeenTile& one, const SeenTile& other) {
    return std::sqrt(SquaredDifference(MeanOf(one), MeanOf(other)));
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
    const double colours = ColourDistance(one, other);
    if (sight != Sight::Greyscale && colours < kLeastColourDistance)
        return tell("differ only in their marks ", colours, kLeastColourDistance,
                    "give one of them another colour, or make it lighter");
    return {};
}

std::vector<SeenTile> SeeTiles(const CheckedSkin& skin, Sight sight) {
    const PictureRow& row = RowOf("Game\\blocks.bmp");
    std::vector<SeenTile> tiles;
    for (int tile = 0; tile < row.cells; ++tile)
        tiles.push_back(
            SeeTile(*skin.Picture(row).bitmap, tile, row.room, skin.Key(row.key), sight));
    return tiles;
}

/// The darkest and the lightest luminance of the inside of the board.
std::pair<double, double> BoardLuminances(const CheckedSkin& skin) {
    const PictureRow& row = RowOf("Game\\playboard.bmp");
    const DecodedBitmap& board = *skin.Picture(row).bitmap;
    constexpr RECT kInside{29, 0, 189, 352};
    std::pair<double, double> found{1, 0};
    for (int y = kInside.top; y < kInside.bottom; ++y) {
        for (int x = kInside.left; x < kInside.right; ++x) {
            const double luminance = Luminance(PixelOf(board, x, y));
            found = {std::min(found.first, luminance), std::max(found.second, luminance)};
        }
    }
    return found;
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
        CheckSight(row, SeeTiles(skin, sight), sight, report);
    }
}

TileDistances LeastTileDistances(const CheckedSkin& skin, Sight sight) {
    const std::vector<SeenTile> tiles = SeeTiles(skin, sight);
    TileDistances least;
    for (int one = 0; one < static_cast<int>(tiles.size()); ++one) {
        for (int other = 0; other < one; ++other) {
            const SeenTile& first = tiles[static_cast<std::size_t>(other)];
            const SeenTile& second = tiles[static_cast<std::size_t>(one)];
            least.tiles = std::min(least.tiles, {Distance(first, second), other + 1, one + 1});
            least.colours =
                std::min(least.colours, {ColourDistance(first, second), other + 1, one + 1});
        }
    }
    return least;
}

double LeastTileContrast(const CheckedSkin& skin) {
    const auto [darkest, lightest] = BoardLuminances(skin);
    const PictureRow& row = RowOf("Game\\blocks.bmp");
    double least = kHighestContrast;
    for (int tile = 0; tile < row.cells - 1; ++tile) {
        std::vector<double> contrasts;
        for (int i = 0; i < row.room.cx * row.room.cy; ++i) {
            const double luminance = Luminance(PixelOf(
                *skin.Picture(row).bitmap, tile * row.room.cx + i % row.room.cx, i / row.room.cx));
            contrasts.push_back(
                std::min(Contrast(luminance, darkest), Contrast(luminance, lightest)));
        }
        std::ranges::sort(contrasts, std::greater());
        least = std::min(least, contrasts[contrasts.size() / 4]);
    }
    return least;
}

}  // namespace korvane
