#include <algorithm>
#include <cmath>
#include <functional>
#include <iterator>
#include <span>

#include "tools/korvane-skin/checks.h"
#include "tools/korvane-skin/colour.h"
#include "tools/korvane-skin/limits.h"
#include "tools/korvane-skin/text_grounds.h"
#include "tools/korvane-skin/text_places.h"

namespace korvane {
namespace {

/// The next character begins 14 pixels further on and covers the rest of the cell.
constexpr int kFirstSpareColumn = 14;

/// Characters of one kind, side by side in one picture.
struct Characters {
    unsigned kind;
    const PictureRow& row;
    const SkinPicture& picture;
    std::uint32_t key;
    std::string_view names;  ///< one letter for each; empty: their cells are numbered instead
    int firstCell;
    int count;

    bool HasCells() const {
        return picture.bitmap && picture.bitmap->size.cx >= row.FileSize().cx &&
               picture.bitmap->size.cy >= row.FileSize().cy;
    }
    RECT Cell(int number) const {
        const int left = (firstCell + number) * row.room.cx;
        return {left, 0, left + row.room.cx, row.room.cy};
    }
    std::string Name(int number) const {
        if (names.empty()) return Text("cell ", number + 1);
        return std::string(1, names[static_cast<std::size_t>(number)]);
    }
    bool IsInk(int x, int y) const { return PixelOf(*picture.bitmap, x, y) != key; }
    bool HasInk(const RECT& area) const {
        for (int y = area.top; y < area.bottom; ++y)
            for (int x = area.left; x < area.right; ++x)
                if (IsInk(x, y)) return true;
        return false;
    }
};

/// The rows of the cells in which any of the characters has ink.
InkRows InkRowsOf(const Characters& characters) {
    RECT all = characters.Cell(0);
    all.right = characters.Cell(characters.count - 1).right;
    const auto hasInk = [&](int y) { return characters.HasInk({all.left, y, all.right, y + 1}); };
    while (all.top < all.bottom && !hasInk(all.top))
        ++all.top;
    while (all.top < all.bottom && !hasInk(all.bottom - 1))
        --all.bottom;
    return {all.top, all.bottom};
}

/// The contrast that the share kInkShare of a character's pixels reaches. An empty cell has the
/// highest.
double InkContrast(const Characters& characters, int number, const TextGround& ground) {
    const RECT cell = characters.Cell(number);
    std::vector<double> contrasts;
    for (int y = cell.top; y < cell.bottom; ++y) {
        for (int x = cell.left; x < cell.right; ++x) {
            if (!characters.IsInk(x, y)) continue;
            const double ink = Luminance(PixelOf(*characters.picture.bitmap, x, y));
            contrasts.push_back(
                std::min(Contrast(ink, ground.darkest), Contrast(ink, ground.lightest)));
        }
    }
    if (contrasts.empty()) return kHighestContrast;
    std::ranges::sort(contrasts, std::greater());
    const double count = std::ceil(kInkShare * static_cast<double>(contrasts.size()));
    return contrasts[static_cast<std::size_t>(count) - 1];
}

/// The least contrast of a character in some places.
double LeastContrast(const Characters& characters, int number, std::span<const TextGround> places) {
    double least = kHighestContrast;
    for (const TextGround& place : places)
        least = std::min(least, InkContrast(characters, number, place));
    return least;
}

std::string GroundText(std::string_view file) {
    if (!LiesOnBackground(file)) return ShownName(file);
    return Text(ShownName(kBackground), " with ", ShownName(file));
}

/// Checks the characters in all places on one picture.
void CheckContrast(const Characters& characters, std::span<const TextGround> places,
                   Report& report) {
    double worst = kLeastContrast;
    int worstNumber = 0;
    int tooLow = 0;
    for (int number = 0; number < characters.count; ++number) {
        const double lowest = LeastContrast(characters, number, places);
        if (lowest < kLeastContrast) ++tooLow;
        if (lowest < worst) {
            worst = lowest;
            worstNumber = number;
        }
    }
    if (tooLow == 0) return;
    report.Add(Severity::Warning, characters.row.file,
               Text(tooLow, " of ", characters.count, " characters are hard to read on ",
                    GroundText(places.front().file), " (", characters.Name(worstNumber),
                    " has a contrast of ", std::floor(worst * 10) / 10, " to 1, ", kLeastContrast,
                    " to 1 is wanted); make them lighter or the ground darker, or the reverse"));
}

/// Finds characters that reach into the columns that the next one covers.
void CheckSpareColumns(const Characters& characters, Report& report) {
    std::string wide;
    for (int number = 0; number < characters.count; ++number) {
        RECT spare = characters.Cell(number);
        spare.left += kFirstSpareColumn;
        if (characters.HasInk(spare)) wide += characters.Name(number);
    }
    if (!wide.empty())
        report.Add(Severity::Warning, characters.row.file,
                   Text("the characters ", wide,
                        " use the right two columns of their cells, where "
                        "the next character begins; keep these columns transparent"));
}

/// The letters, the digits and the signs of the font.
std::array<Characters, 3> FontCharacters(const CheckedSkin& skin) {
    const PictureRow& letters = RowOf("Letters.bmp");
    const PictureRow& numbers = RowOf("Numbers.bmp");
    const SkinPicture& sheet = skin.Picture(numbers);
    const std::uint32_t key = skin.Key(0);
    return {Characters{kLetters, letters, skin.Picture(letters), key, "ABCDEFGHIJKLMNOPQRSTUVWXYZ",
                       0, 26},
            Characters{kDigits, numbers, sheet, key, "0123456789", 0, 10},
            Characters{kSigns, numbers, sheet, key, ":;<=>?@", 10, 7}};
}

/// The sheets of the keys' glyphs that have all their cells.
std::vector<Characters> KeyGlyphs(const CheckedSkin& skin) {
    std::vector<Characters> sheets;
    for (const PictureRow& row : kPictures) {
        if (row.kind != PictureKind::Cells || row.room != kKeyGlyph) continue;
        const Characters glyphs{0, row, skin.Picture(row), skin.Key(row.key), {}, 0, row.cells};
        if (glyphs.HasCells()) sheets.push_back(glyphs);
    }
    return sheets;
}

TextGround SlotGround(const CheckedSkin& skin, const Characters& glyphs) {
    return KeySlotGround(skin, glyphs.row.room.cx, InkRowsOf(glyphs));
}

void CheckKeyGlyphs(const CheckedSkin& skin, Report& report) {
    for (const Characters& glyphs : KeyGlyphs(skin)) {
        const TextGround slot = SlotGround(skin, glyphs);
        if (slot.isOwn || glyphs.picture.isOwn) CheckContrast(glyphs, {&slot, 1}, report);
    }
}

double LeastContrast(const Characters& characters, std::span<const TextGround> places) {
    double least = kHighestContrast;
    for (int number = 0; number < characters.count; ++number)
        least = std::min(least, LeastContrast(characters, number, places));
    return least;
}

}  // namespace

void CheckText(const CheckedSkin& skin, Report& report) {
    for (const Characters& characters : FontCharacters(skin)) {
        if (!characters.HasCells()) continue;
        if (characters.picture.isOwn) CheckSpareColumns(characters, report);
        const std::vector<TextGround> grounds =
            TextGroundsOf(skin, characters.kind, InkRowsOf(characters));
        for (const std::string_view file : {kMenuGround, kScoreGround, kGameGround, kCountGround}) {
            std::vector<TextGround> places;
            std::ranges::copy_if(grounds, std::back_inserter(places), [&](const auto& ground) {
                return ground.file == file && (ground.isOwn || characters.picture.isOwn);
            });
            CheckContrast(characters, places, report);
        }
    }
    CheckKeyGlyphs(skin, report);
}

double LeastTextContrast(const CheckedSkin& skin) {
    double least = kHighestContrast;
    for (const Characters& characters : FontCharacters(skin)) {
        if (!characters.HasCells()) continue;
        const auto grounds = TextGroundsOf(skin, characters.kind, InkRowsOf(characters));
        least = std::min(least, LeastContrast(characters, grounds));
    }
    for (const Characters& glyphs : KeyGlyphs(skin)) {
        const TextGround slot = SlotGround(skin, glyphs);
        least = std::min(least, LeastContrast(glyphs, {&slot, 1}));
    }
    return least;
}

}  // namespace korvane
