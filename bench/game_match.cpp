#include "bench/game_match.h"

#include <cstring>

#include "app/state/process_state.h"
#include "app/state/settings.h"
#include "game/frame/game_frame.h"
#include "game/frame/game_screen.h"
#include "game/rules/key_bindings.h"
#include "gfx/display.h"
#include "gfx/skin.h"
#include "platform/headless/headless_host.h"
#include "platform/surfaces/ddraw_surfaces.h"

namespace korvane::bench {
namespace {

constexpr std::uint32_t kFrameMs = 10;
constexpr int kFramesPlayedBefore = 3000;
constexpr int kBoardTop = 50;

PixelBuffer CopyOf(const PixelBuffer& pixels) {
    PixelBuffer copy(pixels.Size(), pixels.BytesPerPixel());
    for (int y = 0; y < pixels.Size().cy; ++y)
        std::memcpy(copy.Row(y), pixels.Row(y), static_cast<std::size_t>(pixels.Pitch()));
    return copy;
}

bool Contains(const PixelBuffer& pixels, std::uint32_t value) {
    for (int y = 0; y < pixels.Size().cy; ++y)
        for (int x = 0; x < pixels.Size().cx; ++x)
            if (pixels.Pixel({x, y}) == value) return true;
    return false;
}

/// The skin's key that stands in a picture; each picture holds at most one of them.
std::uint32_t KeyIn(const PixelBuffer& pixels) {
    for (int index = 0; index < 3; ++index) {
        const COLORREF key = ColorKey(index);
        const std::uint32_t value = (key & 0xFF) << 16 | (key & 0xFF00) | (key >> 16 & 0xFF);
        if (Contains(pixels, value)) return value;
    }
    return 0xFF000000;  // no pixel has it
}

void PressRandomKey(Player& player, std::mt19937& random) {
    const auto action = static_cast<Action>(random() % 4);
    const std::uint8_t key = keyBindings.Key(action, player.PlayerSide());
    if (random() % 2 == 0) {
        player.KeyDown(key);
    } else {
        player.KeyUp(key);
    }
}

}  // namespace

GameMatch::GameMatch() {
    Headless().Reset();
    Headless().UseFolder("");
    theSettings.SetDefaults();
    stage_ = std::make_unique<Stage>();
    hiResClock = true;
    secondsPerCount = 1.0 / static_cast<double>(Headless().CounterFrequency());
    for (int i = 0; i < kFramesPlayedBefore; ++i)
        Advance();
}

void GameMatch::Advance() {
    Headless().Advance(kFrameMs);
    for (Player* player : {rightPlayer.get(), leftPlayer.get()}) {
        if (!player->IsRunning()) player->StartGame(/*timed=*/true);
        if (random_() % 16 == 0) PressRandomKey(*player, random_);
    }
    AdvanceGame();
}

RecordedFrame GameMatch::Capture() {
    currentDisplay->ClearBackBuffer(0);
    DrawPlayer(*rightPlayer, kBoardTop);
    DrawPlayer(*leftPlayer, kBoardTop);
    const BackSurface& back = *static_cast<SurfaceBase*>(currentDisplay->BackBuffer())->AsBack();
    RecordedFrame frame;
    for (const FrameList::Recorded& drawn : back.Frame().RecordedOperations()) {
        if (drawn.pixels) {
            frame.push_back({.area = drawn.area,
                             .picture = &PictureOf(*drawn.pixels),
                             .from = drawn.from,
                             .keyed = drawn.runs != nullptr});
        } else {
            frame.push_back({.area = drawn.area, .fill = drawn.value});
        }
    }
    currentDisplay->ShowFrame();
    return frame;
}

const KeyedPicture& GameMatch::PictureOf(const PixelBuffer& pixels) {
    auto& picture = pictures_[&pixels];
    if (!picture) picture = std::make_unique<KeyedPicture>(CopyOf(pixels), KeyIn(pixels));
    return *picture;
}

}  // namespace korvane::bench
