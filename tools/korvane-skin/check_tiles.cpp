#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <limits>
#include <tuple>
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

double MeanDistance(const SeenTile& one, const SeenTile& other) {
    return std::sqrt(SquaredDifference(MeanOf(one), MeanOf(other)));
}

/// All tiles for each kind of sight.
using SeenTiles = std::array<std::vector<SeenTile>, static_cast<std::size_t>(Sight::Count)>;

SeenTiles SeeTiles(const DecodedBitmap& strip, const PictureRow& row, std::uint32_t key) {
    SeenTiles seen;
    for (std::size_t sight = 0; sight < seen.size(); ++sight)
        for (int tile = 0; tile < row.cells; ++tile)
            seen[sight].push_back(SeeTile(strip, tile, row.room, key, static_cast<Sight>(sight)));
    return seen;
}

/// Two tiles, how far they are apart, and for which sight that is least.
struct Pair {
    std::size_t one;
    std::size_t other;
    double distance;
    Sight sight;
};

Pair Nearest(const SeenTiles& seen, std::size_t one, std::size_t other, Sight firstSight,
             double (*distance)(const SeenTile&, const SeenTile&)) {
    Pair nearest{one, other, std::numeric_limits<double>::max(), firstSight};
    for (auto i = static_cast<std::size_t>(firstSight); i < seen.size(); ++i) {
        const double apart = distance(seen[i][one], seen[i][other]);
        if (apart < nearest.distance) nearest = {one, other, apart, static_cast<Sight>(i)};
    }
    return nearest;
}

std::string NameOf(const Pair& pair) {
    return Text(pair.one + 1, " and ", pair.other + 1);
}

/// One finding for all pairs with a fault.
void Tell(const PictureRow& row, std::vector<Pair> pairs, const char* fault, double wanted,
          const char* advice, Report& report) {
    if (pairs.empty()) return;
    constexpr std::size_t kShown = 4;
    std::ranges::sort(pairs, {}, [](const Pair& pair) {
        return std::tuple(pair.distance, pair.one, pair.other);
    });
    std::string names = NameOf(pairs[0]);
    for (std::size_t i = 1; i < std::min(pairs.size(), kShown); ++i)
        names += Text(", ", NameOf(pairs[i]));
    if (pairs.size() > kShown) names += Text(" and ", pairs.size() - kShown, " more pairs");
    const Pair& worst = pairs.front();
    report.Add(
        Severity::Warning, row.file,
        Text("tiles ", names, ' ', fault, ' ', kSightNames[static_cast<std::size_t>(worst.sight)],
             " (", std::floor(worst.distance * 10) / 10, " apart, ", wanted, " is wanted); ",
             advice));
}

/// The darkest and the lightest luminance of the inside of the board.
std::pair<double, double> BoardLuminances(const CheckedSkin& skin) {
    const DecodedBitmap& board = *skin.Picture(RowOf("Game\\playboard.bmp")).bitmap;
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

}  // namespace

void CheckTiles(const CheckedSkin& skin, Report& report) {
    const PictureRow& row = RowOf("Game\\blocks.bmp");
    const SkinPicture& picture = skin.Picture(row);
    const SIZE wanted = row.FileSize();
    if (!picture.isOwn || picture.bitmap->size.cx < wanted.cx ||
        picture.bitmap->size.cy < wanted.cy)
        return;
    const SeenTiles seen = SeeTiles(*picture.bitmap, row, skin.Key(row.key));
    std::vector<Pair> alike;
    std::vector<Pair> sameColour;
    for (std::size_t one = 0; one < seen[0].size(); ++one) {
        for (std::size_t other = one + 1; other < seen[0].size(); ++other) {
            const Pair whole = Nearest(seen, one, other, Sight::Greyscale, Distance);
            const Pair mean = Nearest(seen, one, other, Sight::Protanopia, MeanDistance);
            if (whole.distance < kLeastTileDistance) {
                alike.push_back(whole);
            } else if (mean.distance < kLeastColourDistance) {
                sameColour.push_back(mean);
            }
        }
    }
    Tell(row, std::move(alike), "look alike", kLeastTileDistance,
         "make one of them lighter, or give it another mark", report);
    Tell(row, std::move(sameColour), "differ only in their marks", kLeastColourDistance,
         "give one of them another colour, or make it lighter", report);
}

TileDistances LeastTileDistances(const CheckedSkin& skin, Sight sight) {
    const PictureRow& row = RowOf("Game\\blocks.bmp");
    const SeenTiles seen = SeeTiles(*skin.Picture(row).bitmap, row, skin.Key(row.key));
    const std::vector<SeenTile>& tiles = seen[static_cast<std::size_t>(sight)];
    TileDistances least;
    for (std::size_t one = 0; one < tiles.size(); ++one) {
        for (std::size_t other = one + 1; other < tiles.size(); ++other) {
            const auto measured = [&](double distance) {
                return TileDistances::Pair{distance, static_cast<int>(one + 1),
                                           static_cast<int>(other + 1)};
            };
            least.tiles = std::min(least.tiles, measured(Distance(tiles[one], tiles[other])));
            least.colours =
                std::min(least.colours, measured(MeanDistance(tiles[one], tiles[other])));
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
