#include "platform/surfaces/ddraw.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <initializer_list>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "platform/headless/headless_host.h"
#include "tests/support/bmp_writer.h"
#include "tests/support/temporary_folder.h"

namespace korvane {
namespace {

constexpr std::int32_t kWidth = 64;
constexpr std::int32_t kHeight = 48;

LRESULT IgnoringProc(HWND window, std::uint32_t message, WPARAM wParam, LPARAM lParam) {
    return DefWindowProc(window, message, wParam, lParam);
}

constexpr std::uint32_t kBlack = 0;
constexpr std::uint32_t kRed = 0xFF0000;
constexpr std::uint32_t kGreen = 0x00FF00;
constexpr std::uint32_t kBlue = 0x0000FF;
using Colours = std::vector<std::uint32_t>;
using UniqueSurface = UniqueInterface<IDirectDrawSurface7>;

constexpr std::uint32_t kSized = DDSD_CAPS | DDSD_WIDTH | DDSD_HEIGHT;

/// A display object and its window.
class DirectDrawTest : public testing::Test {
  protected:
    void SetUp() override {
        Headless().Reset();
        RegisterClass({"Ignoring", IgnoringProc});
        window = CreateWindowEx(0, "Ignoring", "", 0, {0, 0}, {kWidth, kHeight});
        IDirectDraw7* created = nullptr;
        ASSERT_EQ(DirectDrawCreateEx(created), S_OK);
        directDraw.reset(created);
    }
    void TearDown() override { DestroyWindow(window); }

    UniqueSurface Make(std::uint32_t flags, std::uint32_t caps, std::uint32_t width = 0,
                       std::uint32_t height = 0) {
        DDSURFACEDESC2 description;
        description.flags = flags;
        description.caps = caps;
        description.width = width;
        description.height = height;
        description.backBufferCount = 1;
        IDirectDrawSurface7* surface = nullptr;
        EXPECT_EQ(directDraw->CreateSurface(description, surface), S_OK);
        return UniqueSurface(surface);
    }

    HWND window = nullptr;
    UniqueInterface<IDirectDraw7> directDraw;
};

/// A display of 64 x 48 pixels with a red picture of 8 x 8, in a window (0) or in full screen with
/// so many bits per pixel.
class DisplayTest : public DirectDrawTest, public testing::WithParamInterface<int> {
  protected:
    void SetUp() override {
        DirectDrawTest::SetUp();
        IsWindowed() ? OpenWindowed() : OpenFullScreen();
        picture = MakePicture();
    }

    void TearDown() override {
        for (UniqueSurface* surface : {&picture, &back, &front})
            surface->reset();
        directDraw->SetCooperativeLevel(window, DDSCL_NORMAL);
        directDraw.reset();
        DirectDrawTest::TearDown();
    }

    static bool IsWindowed() { return GetParam() == 0; }

    void OpenWindowed() {
        ASSERT_EQ(directDraw->SetCooperativeLevel(window, DDSCL_NORMAL), S_OK);
        front = Make(DDSD_CAPS, DDSCAPS_PRIMARYSURFACE);
        back = Make(kSized, DDSCAPS_OFFSCREENPLAIN | DDSCAPS_3DDEVICE, kWidth, kHeight);
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
        front = Make(DDSD_CAPS | DDSD_BACKBUFFERCOUNT, DDSCAPS_PRIMARYSURFACE | DDSCAPS_FLIP);
        IDirectDrawSurface7* attached = nullptr;
        ASSERT_EQ(front->GetAttachedSurface({DDSCAPS_BACKBUFFER}, attached), S_OK);
        attached->AddRef();
        back.reset(attached);
    }

    UniqueSurface MakePicture() {
        auto surface = Make(kSized, DDSCAPS_OFFSCREENPLAIN, 8, 8);
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

    HRESULT Copy(std::uint32_t x, std::uint32_t y, RECT part = {0, 0, 8, 8},
                 std::uint32_t flags = DDBLTFAST_NOCOLORKEY) {
        return back->BltFast(x, y, picture.get(), part, flags);
    }

    /// Begins a frame: the picture on black.
    void Begin(std::uint32_t x, std::uint32_t y = 0) {
        const DDBLTFX effects;
        EXPECT_EQ(back->Blt(nullptr, nullptr, nullptr, DDBLT_COLORFILL, &effects), S_OK);
        EXPECT_EQ(Copy(x, y), S_OK);
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

    UniqueSurface front;
    UniqueSurface back;
    UniqueSurface picture;
};

std::string NameOfMode(const testing::TestParamInfo<int>& mode) {
    return mode.param == 0 ? "Window" : "FullScreen" + std::to_string(mode.param);
}

INSTANTIATE_TEST_SUITE_P(Modes, DisplayTest, testing::Values(0, 8, 16, 32), NameOfMode);

TEST_P(DisplayTest, ShowsWhatWasDrawnInTheOrderOfDrawing) {
    Begin(10);
    Paint(*picture, {0, 0, 8, 8}, RGB(0, 255, 0));  // what was drawn stays red
    EXPECT_EQ(Copy(14, 0, {0, 0, 2, 8}), S_OK);
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
    const auto bytes = static_cast<std::size_t>(locked.format.BytesPerPixel());
    std::uint32_t blue = 0;
    std::uint32_t red = 0;
    std::memcpy(&blue, locked.pixels, bytes);
    std::memcpy(&red, locked.pixels + 7 * bytes, bytes);
    ASSERT_EQ(picture->Unlock(), S_OK);
    for (const auto& [key, wanted] : {std::pair(blue, Colours{kBlack, kRed, kBlue, kBlack, kRed}),
                                      {red, {kBlue, kBlack, kBlue, kBlue, kBlack}}}) {
        ASSERT_EQ(picture->SetColorKey(DDCKEY_SRCBLT, {key, key}), S_OK);
        Begin(20);
        EXPECT_EQ(Copy(0, 0, {0, 0, 8, 8}, DDBLTFAST_SRCCOLORKEY), S_OK);
        EXPECT_EQ(Copy(40, 0, {3, 0, 8, 8}, DDBLTFAST_SRCCOLORKEY), S_OK);
        EXPECT_EQ(Show(), S_OK);
        EXPECT_EQ(Seen({{3, 0}, {4, 0}, {20, 0}, {40, 0}, {41, 0}}), wanted);
    }
}

TEST_P(DisplayTest, CopiesThatDoNotFitAreRefusedWhole) {
    EXPECT_EQ(Copy(0, 0), S_OK);
    EXPECT_EQ(Copy(kWidth - 8, kHeight - 8), S_OK);
    for (const POINT at : {POINT{kWidth - 7, 0}, POINT{0, kHeight - 7}, POINT{-1, 0}, POINT{0, -4}})
        EXPECT_EQ(Copy(static_cast<std::uint32_t>(at.x), static_cast<std::uint32_t>(at.y)),
                  DDERR_INVALIDRECT)
            << at.x << ", " << at.y;
    for (const RECT& part : {RECT{-1, 0, 8, 8}, RECT{0, 0, 9, 8}, RECT{0, 4, 8, 12},
                             RECT{4, 0, 4, 8}, RECT{6, 0, 2, 8}})
        EXPECT_EQ(Copy(0, 0, part), DDERR_INVALIDRECT) << part.left << ", " << part.top;
    EXPECT_TRUE(Failed(back->BltFast(0, 0, back.get(), {0, 0, 1, 1}, 0))) << "no picture";
    EXPECT_TRUE(Failed(back->BltFast(0, 0, nullptr, {0, 0, 1, 1}, 0)));
}

TEST_P(DisplayTest, OnlyWhatChangedIsSent) {
    for (const POINT at : {POINT{0, 0}, POINT{0, 0}, POINT{56, 40}}) {
        Begin(static_cast<std::uint32_t>(at.x), static_cast<std::uint32_t>(at.y));
        EXPECT_EQ(Show(), S_OK);
    }
    EXPECT_EQ(Headless().Presents(), 2) << "nothing for a frame that is the same";
    EXPECT_LE(Headless().PresentedPixels(), kWidth * kHeight + 2u * 8u * 8u);
    EXPECT_EQ(Seen({{0, 0}, {56, 40}}), (Colours{kBlack, kRed}));
    EXPECT_EQ(Show(/*moved=*/-8), S_OK);
    EXPECT_EQ(Seen({{48, 40}}), Colours{IsWindowed() ? kRed : kBlack}) << "at its new place";
}

TEST_P(DisplayTest, ALostPictureIsSentAgainInFull) {
    Begin(0);
    EXPECT_EQ(Show(), S_OK);
    Headless().FailPresents({DDERR_SURFACELOST});
    Begin(8);
    EXPECT_EQ(Show(), DDERR_SURFACELOST);
    EXPECT_EQ(Copy(0, 0), DDERR_SURFACELOST) << "until it is restored";
    EXPECT_EQ(Show(), DDERR_SURFACELOST);
    EXPECT_EQ(directDraw->RestoreAllSurfaces(), S_OK);
    const std::uint64_t before = Headless().PresentedPixels();
    Begin(8);
    EXPECT_EQ(Show(), S_OK);
    EXPECT_EQ(Headless().PresentedPixels() - before, std::uint64_t{kWidth * kHeight});
    EXPECT_EQ(Seen({{8, 0}}), Colours{kRed});
}

TEST_P(DisplayTest, WhatCouldNotBeSentIsSentWithTheNextFrame) {
    Begin(0);
    EXPECT_EQ(Show(), S_OK);
    Begin(8);
    Headless().FailPresents({DDERR_WASSTILLDRAWING, DDERR_WASSTILLDRAWING});
    for (const HRESULT result : {DDERR_WASSTILLDRAWING, DDERR_WASSTILLDRAWING, S_OK})
        EXPECT_EQ(Show(), result);
    EXPECT_EQ(Seen({{0, 0}, {8, 0}}), (Colours{kBlack, kRed}));
}

/// Pixels in memory, row by row.
class Grid final : public DeviceContext {
  public:
    Grid(SIZE size, std::vector<std::uint32_t> cells) : pixels(std::move(cells)), size_(size) {}
    SIZE Size() const override { return size_; }
    void ReadRow(int y, std::span<std::uint32_t> row) const override {
        std::copy_n(pixels.begin() + y * size_.cx, row.size(), row.begin());
    }
    void WriteRow(int y, std::span<const std::uint32_t> row) override {
        std::ranges::copy(row, pixels.begin() + y * size_.cx);
    }

    std::vector<std::uint32_t> pixels;

  private:
    SIZE size_;
};

TEST(GdiTest, APartIsStretchedByNearestPixels) {
    Grid source({3, 3}, {0, 1, 2, 3, 4, 5, 6, 7, 8});
    Grid target({5, 3}, Colours(15, 9));
    EXPECT_TRUE(StretchBlt(&target, {1, 0, 5, 3}, &source, {1, 1, 3, 3}));
    EXPECT_EQ(target.pixels, (Colours{9, 4, 4, 5, 5, 9, 4, 4, 5, 5, 9, 7, 7, 8, 8}));
    EXPECT_FALSE(StretchBlt(&target, {1, 0, 6, 3}, &source, {1, 1, 3, 3}));
    EXPECT_FALSE(StretchBlt(&target, {1, 0, 5, 3}, &source, {1, 1, 3, 4}));
}

TEST(GdiTest, SinglePixelsAreReadAndWrittenAsColours) {
    Grid pixel({1, 1}, {0x112233});
    EXPECT_EQ(GetPixel(&pixel, 0, 0), RGB(0x11, 0x22, 0x33));
    EXPECT_EQ(GetPixel(&pixel, 1, 0), CLR_INVALID);
    SetPixel(&pixel, 0, 0, RGB(4, 5, 6));
    EXPECT_EQ(pixel.pixels, Colours{0x040506});
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

TEST_F(DirectDrawTest, SurfacesOutliveTheirDisplayObject) {
    ASSERT_EQ(directDraw->SetCooperativeLevel(window, DDSCL_NORMAL), S_OK);
    const UniqueSurface kept = Make(kSized, DDSCAPS_OFFSCREENPLAIN, 4, 4);
    directDraw.reset();
    EXPECT_EQ(kept->Restore(), S_OK);
    DDSURFACEDESC2 description;
    EXPECT_EQ(kept->GetSurfaceDesc(description), S_OK);
    EXPECT_EQ(description.width, 4u);
    description.size = 1;
    EXPECT_EQ(kept->GetSurfaceDesc(description), E_INVALIDARG);
}

TEST_F(DirectDrawTest, FullScreenNeedsTheExclusiveLevelAndAKnownDepth) {
    const auto enters = [this](std::uint32_t width, std::uint32_t height, std::uint32_t depth) {
        const bool entered = !Failed(directDraw->SetDisplayMode(width, height, depth, 75, 0));
        EXPECT_EQ(Headless().IsFullScreen(), entered);
        return entered;
    };
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
