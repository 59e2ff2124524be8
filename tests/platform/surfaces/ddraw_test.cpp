#include "platform/surfaces/ddraw.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <initializer_list>
#include <utility>

#include "platform/draw/pixel_buffer.h"
#include "platform/headless/headless_host.h"
#include "tests/support/bmp_writer.h"
#include "tests/support/temporary_folder.h"

namespace korvane {
namespace {

constexpr std::int32_t kWidth = 64;
constexpr std::int32_t kHeight = 48;

enum : std::uint32_t { kBlack = 0, kRed = 0xFF0000, kGreen = 0x00FF00, kBlue = 0x0000FF };
using Colours = std::vector<std::uint32_t>;
using UniqueSurface = UniqueInterface<IDirectDrawSurface7>;

constexpr std::uint32_t kSides = DDSD_WIDTH | DDSD_HEIGHT;

/// A display of 64 x 48 pixels with a red picture of 8 x 8, in a window (0) or in full screen with
/// so many bits per pixel.
class DisplayTest : public testing::TestWithParam<int> {
  protected:
    void SetUp() override {
        Headless().Reset();
        RegisterClass({"Ignoring", DefWindowProc});
        window = CreateWindowEx(0, "Ignoring", "", 0, {0, 0}, {kWidth, kHeight});
        IDirectDraw7* created = nullptr;
        ASSERT_EQ(DirectDrawCreateEx(created), S_OK);
        directDraw.reset(created);
        IsWindowed() ? OpenWindowed() : OpenFullScreen();
        picture = MakePicture();
    }
    void TearDown() override {
        for (UniqueSurface* surface : {&picture, &back, &front})
            surface->reset();
        directDraw.reset();
        DestroyWindow(window);
    }

    static bool IsWindowed() { return GetParam() == 0; }

    UniqueSurface Make(std::uint32_t caps, std::uint32_t width = 0, std::uint32_t height = 0) {
        DDSURFACEDESC2 description;
        description.flags = DDSD_CAPS | (width == 0 ? DDSD_BACKBUFFERCOUNT : kSides);
        description.caps = caps;
        description.width = width;
        description.height = height;
        description.backBufferCount = 1;
        IDirectDrawSurface7* surface = nullptr;
        EXPECT_EQ(directDraw->CreateSurface(description, surface), S_OK);
        return UniqueSurface(surface);
    }

    void OpenWindowed() {
        ASSERT_EQ(directDraw->SetCooperativeLevel(window, DDSCL_NORMAL), S_OK);
        front = Make(DDSCAPS_PRIMARYSURFACE);
        back = Make(DDSCAPS_OFFSCREENPLAIN | DDSCAPS_3DDEVICE, kWidth, kHeight);
        IDirectDrawClipper* clipper = nullptr;
        ASSERT_EQ(directDraw->CreateClipper(0, clipper), S_OK);
        ASSERT_EQ(clipper->SetHWnd(0, window), S_OK);
        ASSERT_EQ(front->SetClipper(clipper), S_OK);
        clipper->Release();
    }

    void OpenFullScreen() {
        const auto bits = static_cast<std::uint32_t>(GetParam());
        ASSERT_EQ(directDraw->SetCooperativeLevel(window, DDSCL_EXCLUSIVE | DDSCL_FULLSCREEN),
                  S_OK);
        ASSERT_EQ(directDraw->SetDisplayMode(kWidth, kHeight, bits, 0, 0), S_OK);
        front = Make(DDSCAPS_PRIMARYSURFACE | DDSCAPS_FLIP);
        IDirectDrawSurface7* attached = nullptr;
        ASSERT_EQ(front->GetAttachedSurface({DDSCAPS_BACKBUFFER}, attached), S_OK);
        attached->AddRef();
        back.reset(attached);
    }

    UniqueSurface MakePicture() {
        auto surface = Make(DDSCAPS_OFFSCREENPLAIN, 8, 8);
        Paint(*surface, {0, 0, 8, 8}, RGB(255, 0, 0));
        return surface;
    }

    static void Paint(IDirectDrawSurface7& surface, const RECT& area, COLORREF colour) {
        HDC context = nullptr;
        ASSERT_EQ(surface.GetDC(context), S_OK);
        for (int y = area.top; y < area.bottom; ++y)
            for (int x = area.left; x < area.right; ++x)
                SetPixel(context, x, y, colour);
        ASSERT_EQ(surface.ReleaseDC(context), S_OK);
    }

    HRESULT Copy(POINT at, const RECT& part = {0, 0, 8, 8}, std::uint32_t flags = 0) {
        return back->BltFast(static_cast<std::uint32_t>(at.x), static_cast<std::uint32_t>(at.y),
                             picture.get(), part, flags);
    }

    /// Begins a frame: the picture on black.
    void Begin(POINT at) {
        const DDBLTFX effects;
        EXPECT_EQ(back->Blt(nullptr, nullptr, nullptr, DDBLT_COLORFILL, &effects), S_OK);
        EXPECT_EQ(Copy(at), S_OK);
    }

    HRESULT Show(std::int32_t moved = 0) {
        if (!IsWindowed()) return front->Flip(nullptr, 0);
        RECT client = Headless().ClientArea();
        client.left += moved;
        client.right += moved;
        return front->Blt(&client, back.get(), nullptr, DDBLT_WAIT, nullptr);
    }

    static Colours Seen(std::initializer_list<POINT> points) {
        Colours seen;
        for (const POINT point : points)
            seen.push_back(Headless().PixelAt(point.x, point.y));
        return seen;
    }

    HWND window = nullptr;
    UniqueInterface<IDirectDraw7> directDraw;
    UniqueSurface front;
    UniqueSurface back;
    UniqueSurface picture;
};

std::string NameOfMode(const testing::TestParamInfo<int>& mode) {
    return mode.param == 0 ? "Window" : "FullScreen" + std::to_string(mode.param);
}

INSTANTIATE_TEST_SUITE_P(Modes, DisplayTest, testing::Values(0, 8, 16, 32), NameOfMode);

TEST_P(DisplayTest, ShowsWhatWasDrawnInTheOrderOfDrawing) {
    Begin({10, 0});
    Paint(*picture, {0, 0, 8, 8}, RGB(0, 255, 0));  // what was drawn stays red
    EXPECT_EQ(Copy({14, 0}, {0, 0, 2, 8}), S_OK);
    picture.reset();
    picture = MakePicture();  // where the one that was drawn may have been
    EXPECT_EQ(Show(), S_OK);
    EXPECT_EQ(Seen({{9, 0}, {10, 0}, {10, 8}, {14, 7}, {16, 7}, {18, 0}}),
              (Colours{kBlack, kRed, kBlack, kGreen, kRed, kBlack}));
}

TEST_P(DisplayTest, PixelsOfTheKeyAreNotDrawn) {
    Paint(*picture, {0, 0, 4, 8}, RGB(0, 0, 255));
    DDSURFACEDESC2 locked;
    ASSERT_EQ(picture->Lock(locked, DDLOCK_WAIT), S_OK);
    EXPECT_EQ(locked.format.bits, IsWindowed() ? 32 : GetParam());
    const int bytes = locked.format.BytesPerPixel();
    const std::uint32_t blue = LoadPixel(locked.pixels, bytes);
    const std::uint32_t red = LoadPixel(locked.pixels + 7 * bytes, bytes);
    ASSERT_EQ(picture->Unlock(), S_OK);
    for (const auto& [key, wanted] : {std::pair(blue, Colours{kBlack, kRed, kBlue, kBlack, kRed}),
                                      {red, {kBlue, kBlack, kBlue, kBlue, kBlack}}}) {
        ASSERT_EQ(picture->SetColorKey(DDCKEY_SRCBLT, {key, key}), S_OK);
        Begin({20, 0});
        EXPECT_EQ(Copy({0, 0}, {0, 0, 8, 8}, DDBLTFAST_SRCCOLORKEY), S_OK);
        EXPECT_EQ(Copy({40, 0}, {3, 0, 8, 8}, DDBLTFAST_SRCCOLORKEY), S_OK);
        EXPECT_EQ(Show(), S_OK);
        EXPECT_EQ(Seen({{3, 0}, {4, 0}, {20, 0}, {40, 0}, {41, 0}}), wanted);
    }
}

TEST_P(DisplayTest, CopiesThatDoNotFitAreRefusedWhole) {
    for (const POINT at : {POINT{0, 0}, POINT{kWidth - 8, kHeight - 8}})
        EXPECT_EQ(Copy(at), S_OK) << at.x;
    for (const POINT at : {POINT{kWidth - 7, 0}, POINT{0, kHeight - 7}, POINT{-1, 0}, POINT{0, -4}})
        EXPECT_EQ(Copy(at), DDERR_INVALIDRECT) << at.x << ", " << at.y;
    for (const RECT& part : {RECT{-1, 0, 8, 8}, RECT{0, 0, 9, 8}, RECT{0, 4, 8, 12},
                             RECT{4, 0, 4, 8}, RECT{6, 0, 2, 8}})
        EXPECT_EQ(Copy({0, 0}, part), DDERR_INVALIDRECT) << part.left << ", " << part.top;
    EXPECT_TRUE(Failed(back->BltFast(0, 0, back.get(), {0, 0, 1, 1}, 0))) << "no picture";
    EXPECT_TRUE(Failed(back->BltFast(0, 0, nullptr, {0, 0, 1, 1}, 0)));
}

TEST_P(DisplayTest, OnlyWhatChangedIsSent) {
    for (const POINT at : {POINT{0, 0}, POINT{0, 0}, POINT{56, 40}}) {
        Begin(at);
        EXPECT_EQ(Show(), S_OK);
    }
    EXPECT_EQ(Headless().Presents(), 2) << "nothing for a frame that is the same";
    EXPECT_LE(Headless().PresentedPixels(), kWidth * kHeight + 2u * 8u * 8u);
    EXPECT_EQ(Seen({{0, 0}, {56, 40}}), (Colours{kBlack, kRed}));
    EXPECT_EQ(Show(/*moved=*/-8), S_OK);
    EXPECT_EQ(Seen({{48, 40}}), Colours{IsWindowed() ? kRed : kBlack}) << "at its new place";
}

TEST_P(DisplayTest, WhatCouldNotBeSentIsSentWithTheNextFrameAndAfterALossInFull) {
    Begin({0, 0});
    EXPECT_EQ(Show(), S_OK);
    Begin({8, 0});
    Headless().FailPresents({DDERR_WASSTILLDRAWING, DDERR_WASSTILLDRAWING});
    for (const HRESULT result : {DDERR_WASSTILLDRAWING, DDERR_WASSTILLDRAWING, S_OK})
        EXPECT_EQ(Show(), result);
    EXPECT_EQ(Seen({{0, 0}, {8, 0}}), (Colours{kBlack, kRed}));
    Begin({0, 0});
    Headless().FailPresents({DDERR_SURFACELOST});
    EXPECT_EQ(Show(), DDERR_SURFACELOST);
    EXPECT_EQ(Copy({0, 0}), DDERR_SURFACELOST) << "until it is restored";
    EXPECT_EQ(Show(), DDERR_SURFACELOST);
    EXPECT_EQ(directDraw->RestoreAllSurfaces(), S_OK);
    const std::uint64_t before = Headless().PresentedPixels();
    Begin({0, 0});
    EXPECT_EQ(Show(), S_OK);
    EXPECT_EQ(Headless().PresentedPixels() - before, std::uint64_t{kWidth * kHeight});
    EXPECT_EQ(Seen({{0, 0}}), Colours{kRed});
}

/// Pixels in memory, row by row.
class Grid final : public DeviceContext {
  public:
    Grid(SIZE size, Colours cells) : pixels(std::move(cells)), size_(size) {}
    SIZE Size() const override { return size_; }
    void ReadRow(int y, std::span<std::uint32_t> row) const override {
        std::copy_n(pixels.begin() + y * size_.cx, row.size(), row.begin());
    }
    void WriteRow(int y, std::span<const std::uint32_t> row) override {
        std::ranges::copy(row, pixels.begin() + y * size_.cx);
    }

    Colours pixels;

  private:
    SIZE size_;
};

TEST(GdiTest, PixelsAreStretchedByTheNearestReadAndWritten) {
    Grid source({3, 3}, {0, 1, 2, 3, 4, 5, 6, 7, 8});
    Grid target({5, 3}, Colours(15, 9));
    EXPECT_TRUE(StretchBlt(&target, {1, 0, 5, 3}, &source, {1, 1, 3, 3}));
    EXPECT_EQ(target.pixels, (Colours{9, 4, 4, 5, 5, 9, 4, 4, 5, 5, 9, 7, 7, 8, 8}));
    EXPECT_FALSE(StretchBlt(&target, {1, 0, 6, 3}, &source, {1, 1, 3, 3}));
    EXPECT_FALSE(StretchBlt(&target, {1, 0, 5, 3}, &source, {1, 1, 3, 4}));
    SetPixel(&source, 1, 0, RGB(4, 5, 6));
    EXPECT_EQ(source.pixels[1], 0x040506U);
    EXPECT_EQ(GetPixel(&source, 1, 0), RGB(4, 5, 6));
    EXPECT_EQ(GetPixel(&source, 3, 0), CLR_INVALID);
}

TEST(GdiTest, PathsHaveALimit) {
    Headless().Reset();
    const TemporaryFolder folder;
    Headless().UseFolder(folder.Path());
    for (const auto& [length, isLoaded] : {std::pair(254, true), {255, false}}) {
        const std::string path(static_cast<std::size_t>(length), 'x');
        folder.Write(path, MakeBmp({}));
        EXPECT_EQ(UniqueBitmap(LoadImageA(path)) != nullptr, isLoaded) << length;
    }
}

TEST_P(DisplayTest, SurfacesOutliveTheirDisplayObject) {
    directDraw.reset();
    EXPECT_EQ(picture->Restore(), S_OK);
    DDSURFACEDESC2 description;
    EXPECT_EQ(picture->GetSurfaceDesc(description), S_OK);
    EXPECT_EQ(description.width, 8u);
    description.size = 1;
    EXPECT_EQ(picture->GetSurfaceDesc(description), E_INVALIDARG);
}

TEST_P(DisplayTest, FullScreenNeedsTheExclusiveLevelAndAKnownDepth) {
    const auto enters = [this](std::uint32_t width, std::uint32_t height, std::uint32_t depth) {
        const bool entered = !Failed(directDraw->SetDisplayMode(width, height, depth, 75, 0));
        EXPECT_EQ(Headless().IsFullScreen(), entered);
        return entered;
    };
    ASSERT_EQ(directDraw->SetCooperativeLevel(window, DDSCL_NORMAL), S_OK);
    EXPECT_FALSE(enters(640, 480, 16)) << "not exclusive";
    ASSERT_EQ(directDraw->SetCooperativeLevel(window, DDSCL_EXCLUSIVE | DDSCL_FULLSCREEN), S_OK);
    for (const std::uint32_t depth : {0u, 1u, 15u, 24u, 64u, 0xFFFFFFFFu})
        EXPECT_FALSE(enters(640, 480, depth)) << depth;
    EXPECT_FALSE(enters(0, 480, 16) || enters(4097, 480, 16) || enters(640, 4097, 16));
    Headless().RefuseFullScreen(true);
    EXPECT_FALSE(enters(640, 480, 16));
    Headless().RefuseFullScreen(false);
    EXPECT_TRUE(enters(4096, 480, 16) && enters(640, 480, 16));
    EXPECT_EQ(directDraw->SetCooperativeLevel(window, DDSCL_NORMAL), S_OK);
    EXPECT_FALSE(Headless().IsFullScreen());
}

}  // namespace
}  // namespace korvane
