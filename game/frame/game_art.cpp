#include "game/frame/game_art.h"

#include "app/state/static_room.h"
#include "gfx/skin.h"

namespace korvane {
namespace {

struct ArtFile {
    const char* name;
    int colorKey;
    Surface::Use use = Surface::Use::Single;
};

// In the order of `Art`, which is the order of loading.
constexpr std::array<ArtFile, static_cast<std::size_t>(Art::Count)> kArtFiles = {{
    {"Background.bmp", 0, Surface::Use::Tile},
    {"Game\\Background.bmp", 0, Surface::Use::Tile},
    {"Game\\previewframe.bmp", 0},
    {"Game\\playboard.bmp", 0},
    {"Game\\gameover.bmp", 1},
    {"Game\\winner.bmp", 1},
    {"Game\\looser.bmp", 1},
    {"Game\\pause.bmp", 1},
    {"Game\\blocks.bmp", 1},
    {"Game\\join2.bmp", 1},
    {"Game\\join1.bmp", 1},
    {"Game\\battleagain.bmp", 1},
    {"Game\\statistics.bmp", 1},
    {"Game\\statisticsframe.bmp", 0},
}};

void ApplyOwnColorKey(Surface& picture, const ArtFile& file) {
    // Key 0 comes with loading.
    if (file.colorKey != 0) picture.SetColorKey(ColorKey(file.colorKey));
}

constinit StaticRoom<GameArt> room;

}  // namespace

constinit GameArt& theGameArt = room.object;

void GameArt::Load() {
    skinColorKeys.Load();
    for (std::size_t i = 0; i < kArtFiles.size(); ++i) {
        pictures_[i] = std::make_unique<Surface>(kArtFiles[i].name, kArtFiles[i].use);
        ApplyOwnColorKey(*pictures_[i], kArtFiles[i]);
    }
    loaded_ = true;
}

void GameArt::Reload() {
    if (!loaded_) return;
    for (std::size_t i = 0; i < kArtFiles.size(); ++i) {
        pictures_[i]->Load(kArtFiles[i].name, kArtFiles[i].use);
        ApplyOwnColorKey(*pictures_[i], kArtFiles[i]);
    }
}

void GameArt::LoadLevelSound() {
    levelSound_.reset();
    levelSound_ = std::make_unique<SoundEffect>("NewLevel.wav");
}

void DrawBlockCell(int x, int y, int value) {
    constexpr int kCell = 16;
    if (value <= 0) return;
    theGameArt.Picture(Art::Blocks)
        .DrawKeyed({x, y}, RectAt({(value - 1) * kCell, 0}, {kCell, kCell}));
}

}  // namespace korvane
