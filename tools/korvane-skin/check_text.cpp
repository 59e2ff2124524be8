#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>

#include "tools/korvane-skin/checks.h"
#include "tools/korvane-skin/colour.h"
#include "tools/korvane-skin/limits.h"

namespace korvane {
namespace {

// Where text stands on the game screen, from the left top of its half.
constexpr RECT kPanelText{234, 133, 320, 372};
constexpr POINT kStatisticsFrame{234, 63};
constexpr RECT kCountInFrame{4, 44, 60, 60};

/// The column of a cell from which the next character may cover it.
constexpr int kFirstSpareColumn = 14;

/// What text stands on: the darkest and the lightest that counts.
struct Ground {
    std::string_view file;
    double darkest;
    double lightest;
};

Ground GroundOf(std::string_view file, const RECT& area,
                const std::function<std::uint32_t(int x, int y)>& pixel) {
    std::vector<double> luminances;
    for (int y = area.top; y < area.bottom; ++y)
        for (int x = area.left; x < area.right; ++x)
            luminances.push_back(Luminance(pixel(x, y)));
    std::ranges::sort(luminances);
    const auto spare =
        static_cast<std::size_t>(kGroundShare * static_cast<double>(luminances.size()));
    return {file, luminances[spare], luminances[luminances.size() - 1 - spare]};
}

std::uint32_t TiledPixel(const DecodedBitmap& tile, int x, int y) {
    return PixelOf(tile, x % tile.size.cx, y % tile.size.cy);
}

/// The contrast that enough of a character's pixels reach; nothing for an empty cell.
std::optional<double> InkContrast(const DecodedBitmap& sheet, int cell, SIZE size,
                                  std::uint32_t key, const Ground& ground) {
    std::vector<double> contrasts;
    for (int y = 0; y < size.cy; ++y) {
        for (int x = cell * size.cx; x < (cell + 1) * size.cx; ++x) {
            const std::uint32_t pixel = PixelOf(sheet, x, y);
            if (pixel == key) continue;
            const double ink = Luminance(pixel);
            contrasts.push_back(
                std::min(Contrast(ink, ground.darkest), Contrast(ink, ground.lightest)));
        }
    }
    if (contrasts.empty()) return std::nullopt;
    std::ranges::sort(contrasts, std::greater());
    const double count = std::ceil(kInkShare * static_cast<double>(contrasts.size()));
    return contrasts[static_cast<std::size_t>(count) - 1];
}

/// A sheet of characters with its table row.
struct Sheet {
    const PictureRow& row;
    const SkinPicture& picture;
    std::uint32_t key;
    char first;

    bool HasCells() const {
        return picture.bitmap && picture.bitmap->size.cx >= row.FileSize().cx &&
               picture.bitmap->size.cy >= row.FileSize().cy;
    }
};

void CheckContrast(const Sheet& sheet, const Ground& ground, Report& report) {
    double worst = std::numeric_limits<double>::max();
    int worstCell = 0;
    int tooLow = 0;
    for (int cell = 0; cell < sheet.row.cells; ++cell) {
        const auto contrast =
            InkContrast(*sheet.picture.bitmap, cell, sheet.row.room, sheet.key, ground);
        if (!contrast) continue;
        if (*contrast < kLeastContrast) ++tooLow;
        if (*contrast < worst) {
            worst = *contrast;
            worstCell = cell;
        }
    }
    if (tooLow == 0) return;
    report.Add(Severity::Warning, sheet.row.file,
               Text(tooLow, " of ", sheet.row.cells, " characters are hard to read on ",
                    ShownName(ground.file), " (", static_cast<char>(sheet.first + worstCell),
                    " has a contrast of ", std::floor(worst * 10) / 10, " to 1, ", kLeastContrast,
                    " to 1 is wanted); make them lighter or the ground darker, or the reverse"));
}

/// The characters that reach into columns where the next one may be drawn over them.
void CheckSpareColumns(const Sheet& sheet, Report& report) {
    std::string wide;
    for (int cell = 0; cell < sheet.row.cells; ++cell) {
        bool isWide = false;
        for (int y = 0; y < sheet.row.room.cy; ++y)
            for (int x = kFirstSpareColumn; x < sheet.row.room.cx; ++x)
                isWide |=
                    PixelOf(*sheet.picture.bitmap, cell * sheet.row.room.cx + x, y) != sheet.key;
        if (isWide) wide += static_cast<char>(sheet.first + cell);
    }
    if (!wide.empty())
        report.Add(Severity::Warning, sheet.row.file,
                   Text("the characters ", wide,
                        " use the right two columns of their cells, where "
                        "the next character begins; keep these columns transparent"));
}

/// The backgrounds and the frame that text stands on, as far as they can be had. Those that are
/// the skin's own are told from the others.
struct Grounds {
    std::vector<std::pair<Ground, bool>> ofAll;
    std::vector<std::pair<Ground, bool>> ofNumbers;
};

Grounds GroundsOf(const CheckedSkin& skin) {
    Grounds grounds;
    const PictureRow& menuRow = RowOf("Background.bmp");
    const PictureRow& gameRow = RowOf("Game\\Background.bmp");
    const PictureRow& frameRow = RowOf("Game\\statisticsframe.bmp");
    const SkinPicture& menu = skin.Picture(menuRow);
    const SkinPicture& game = skin.Picture(gameRow);
    const SkinPicture& frame = skin.Picture(frameRow);
    if (menu.bitmap) {
        const RECT all{0, 0, menu.bitmap->size.cx, menu.bitmap->size.cy};
        grounds.ofAll.emplace_back(
            GroundOf(menuRow.file, all, [&](int x, int y) { return PixelOf(*menu.bitmap, x, y); }),
            menu.isOwn);
    }
    if (!game.bitmap) return grounds;
    const auto gamePixel = [&](int x, int y) { return TiledPixel(*game.bitmap, x, y); };
    grounds.ofAll.emplace_back(GroundOf(gameRow.file, kPanelText, gamePixel), game.isOwn);
    if (!frame.bitmap) return grounds;
    const auto framePixel = [&](int x, int y) {
        const bool isInside = x < frame.bitmap->size.cx && y < frame.bitmap->size.cy;
        const std::uint32_t pixel =
            isInside ? PixelOf(*frame.bitmap, x, y) : skin.Key(frameRow.key);
        if (pixel != skin.Key(frameRow.key)) return pixel;
        return gamePixel(kStatisticsFrame.x + x, kStatisticsFrame.y + y);
    };
    grounds.ofNumbers.emplace_back(GroundOf(frameRow.file, kCountInFrame, framePixel),
                                   frame.isOwn || game.isOwn);
    return grounds;
}

}  // namespace

void CheckText(const CheckedSkin& skin, Report& report) {
    const Grounds grounds = GroundsOf(skin);
    for (const auto& [file, first] :
         {std::pair("Letters.bmp", 'A'), std::pair("Numbers.bmp", '0')}) {
        const PictureRow& row = RowOf(file);
        const Sheet sheet{row, skin.Picture(row), skin.Key(row.key), first};
        if (!sheet.HasCells()) continue;
        if (sheet.picture.isOwn) CheckSpareColumns(sheet, report);
        const auto check = [&](const auto& list) {
            for (const auto& [ground, isOwn] : list)
                if (isOwn || sheet.picture.isOwn) CheckContrast(sheet, ground, report);
        };
        check(grounds.ofAll);
        if (first == '0') check(grounds.ofNumbers);
    }
}

}  // namespace korvane
