#include "tools/korvane-skin/text_grounds.h"

#include <algorithm>

#include "tools/korvane-skin/colour.h"
#include "tools/korvane-skin/limits.h"
#include "tools/korvane-skin/text_places.h"

namespace korvane {
namespace {

constexpr RECT kScreen{0, 0, 640, 480};
constexpr RECT kMenuArea{55, 0, 575, 480};
constexpr RECT kLeftHalf{0, 50, 320, 422};

/// A screen of the game without its text.
class Scenery {
  public:
    explicit Scenery(const CheckedSkin& skin) : skin_(skin), pixels_(kScreen.PixelCount()) {}

    /// Covers an area with copies of a background, beginning at its left top corner.
    void Tile(std::string_view file, const RECT& area) {
        const auto& tile = skin_.Picture(RowOf(file)).bitmap;
        if (!tile) return;
        for (int y = area.top; y < area.bottom; ++y)
            for (int x = area.left; x < area.right; ++x)
                At({x, y}) =
                    PixelOf(*tile, (x - area.left) % tile->size.cx, (y - area.top) % tile->size.cy);
    }
    /// Draws the first of a picture's equal views from the left, all but its key colour.
    void Draw(std::string_view file, POINT at, int views = 1) {
        const PictureRow& row = RowOf(file);
        const auto& picture = skin_.Picture(row).bitmap;
        if (!picture) return;
        const SIZE view{picture->size.cx / views, picture->size.cy};
        const RECT seen = Intersect(RectAt(at, view), kScreen);
        for (int y = seen.top; y < seen.bottom; ++y) {
            for (int x = seen.left; x < seen.right; ++x) {
                const std::uint32_t pixel = PixelOf(*picture, x - at.x, y - at.y);
                if (pixel != skin_.Key(row.key)) At({x, y}) = pixel;
            }
        }
    }

    /// Widens the range of a ground by the pixels of an area.
    void Measure(const RECT& area, TextGround& ground) {
        std::vector<double> luminances;
        for (int y = area.top; y < area.bottom; ++y)
            for (int x = area.left; x < area.right; ++x)
                luminances.push_back(Luminance(At({x, y})));
        if (luminances.empty()) return;
        std::ranges::sort(luminances);
        const std::size_t last = luminances.size() - 1;
        const auto spare = static_cast<std::size_t>(kGroundShare * static_cast<double>(last));
        ground.darkest = std::min(ground.darkest, luminances[spare]);
        ground.lightest = std::max(ground.lightest, luminances[last - spare]);
    }

  private:
    std::uint32_t& At(POINT point) {
        return pixels_[static_cast<std::size_t>(point.y * kScreen.right + point.x)];
    }

    const CheckedSkin& skin_;
    std::vector<std::uint32_t> pixels_;
};

/// A screen of the background and the picture that lies on it.
Scenery OnBackground(const CheckedSkin& skin, std::string_view file) {
    Scenery scenery(skin);
    scenery.Tile(kBackground, kMenuArea);
    scenery.Draw(file, RowOf(file).at);
    return scenery;
}

Scenery EmptyGame(const CheckedSkin& skin) {
    Scenery game(skin);
    game.Tile(kGameGround, kLeftHalf);
    game.Draw("Game\\playboard.bmp", {16, 50});
    game.Draw("Game\\previewframe.bmp", {234, 52});
    game.Draw("Game\\statisticsframe.bmp", {234, 113});
    return game;
}

}  // namespace

TextGround KeySlotGround(const CheckedSkin& skin, int width, const InkRows& rows) {
    const POINT slot = KeySlotPlace(Action::Rotate, Side::Right);
    const POINT glyph{slot.x + kGlyphInSlot.x, slot.y + kGlyphInSlot.y};
    Scenery menu = OnBackground(skin, kMenuGround);
    constexpr int kNormalAndPressed = 2;
    menu.Draw(kKeySlotFile, slot, kNormalAndPressed);
    TextGround ground{kKeySlotFile, skin.Picture(RowOf(kKeySlotFile)).isOwn, 1, 0};
    menu.Measure({glyph.x, glyph.y + rows.top, glyph.x + width, glyph.y + rows.bottom}, ground);
    return ground;
}

std::vector<TextGround> TextGroundsOf(const CheckedSkin& skin, unsigned kind, const InkRows& rows) {
    Scenery menu = OnBackground(skin, kMenuGround);
    Scenery scores = OnBackground(skin, kScoreGround);
    Scenery game = EmptyGame(skin);

    std::vector<TextGround> grounds;
    for (const TextPlace& place : kTextPlaces) {
        if ((place.kinds & kind) == 0) continue;
        const std::string_view below = LiesOnBackground(place.ground) ? kBackground : kGameGround;
        const bool isOwn =
            skin.Picture(RowOf(place.ground)).isOwn || skin.Picture(RowOf(below)).isOwn;
        TextGround ground{place.ground, isOwn, 1, 0};
        Scenery& scenery = place.ground == kMenuGround    ? menu
                           : place.ground == kScoreGround ? scores
                                                          : game;
        for (int row = 0; row < place.rows; ++row)
            scenery.Measure(place.Row(row, rows.top, rows.bottom), ground);
        grounds.push_back(ground);
    }
    return grounds;
}

}  // namespace korvane
