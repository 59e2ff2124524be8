#include "platform/surfaces/ddraw.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "platform/headless/headless_host.h"

namespace korvane {
namespace {

constexpr std::int32_t kWidth = 64;
constexpr std::int32_t kHeight = 48;

LRESULT IgnoringProc(HWND window, std::uint32_t message, WPARAM wParam, LPARAM lParam) {
    return DefWindowProc(window, message, wParam, lParam);
}

/// A display of 64 x 48 pixels with one picture of 8 x 8, in a window or in full screen.
class DisplayTest : public testing::TestWithParam<int> {
  protected:
    void SetUp() override {
        Headless().Reset();
        RegisterClass({"Ignoring", IgnoringProc});
        window = CreateWindowEx(0, "Ignoring", "", 0, {0, 0}, {kWidth, kHeight});
        IDirectDraw7* created = nullptr;
        ASSERT_EQ(DirectDrawCreateEx(created), S_OK);
        directDraw.reset(created);
        bits = GetParam();
        IsWindowed() ? OpenWindowed() : OpenFullScreen();
        picture = MakePicture(8, 8);
    }

    void TearDown() override {
        picture.reset();
        back.reset();
        front.reset();
        directDraw->SetCooperativeLevel(window, DDSCL_NORMAL);
        directDraw.reset();
        DestroyWindow(window);
    }

    /// 0 stands for a window, else the bits per pixel of full screen.
    bool IsWindowed() const { return bits == 0; }

    UniqueInterface<IDirectDrawSurface7> Make(std::uint32_t flags, std::uint32_t caps,
                                              std::int32_t width = 0, std::int32_t height = 0) {
        DDSURFACEDESC2 description;
        description.flags = flags;
        description.caps = caps;
        description.width = static_cast<std::uint32_t>(width);
        description.height = static_cast<std::uint32_t>(height);
        description.backBufferCount = 1;
        IDirectDrawSurface7* surface = nullptr;
        EXPECT_EQ(directDraw->CreateSurface(description, surface), S_OK);
        return UniqueInterface<IDirectDrawSurface7>(surface);
    }

    void OpenWindowed() {
        ASSERT_EQ(directDraw->SetCooperativeLevel(window, DDSCL_NORMAL), S_OK);
        front = Make(DDSD_CAPS, DDSCAPS_PRIMARYSURFACE);
        back = Make(DDSD_CAPS | DDSD_WIDTH | DDSD_HEIGHT, DDSCAPS_OFFSCREENPLAIN | DDSCAPS_3DDEVICE,
                    kWidth, kHeight);
        IDirectDrawClipper* clipper = nullptr;
        ASSERT_EQ(directDraw->CreateClipper(0, clipper), S_OK);
        ASSERT_EQ(clipper->SetHWnd(0, window), S_OK);
        ASSERT_EQ(front->SetClipper(clipper), S_OK);
        clipper->Release();
    }

    void OpenFullScreen() {
        ASSERT_EQ(directDraw->SetCooperativeLevel(window, DDSCL_EXCLUSIVE | DDSCL_FULLSCREEN),
                  S_OK);
        ASSERT_EQ(
            directDraw->SetDisplayMode(kWidth, kHeight, static_cast<std::uint32_t>(bits), 0, 0),
            S_OK);
        front = Make(DDSD_CAPS | DDSD_BACKBUFFERCOUNT, DDSCAPS_PRIMARYSURFACE | DDSCAPS_FLIP);
        IDirectDrawSurface7* attached = nullptr;
        ASSERT_EQ(front->GetAttachedSurface({DDSCAPS_BACKBUFFER}, attached), S_OK);
        attached->AddRef();
        back.reset(attached);
    }

    UniqueInterface<IDirectDrawSurface7> MakePicture(std::int32_t width, std::int32_t height) {
        auto surface =
            Make(DDSD_CAPS | DDSD_WIDTH | DDSD_HEIGHT, DDSCAPS_OFFSCREENPLAIN, width, height);
        Paint(*surface, {0, 0, width, height}, RGB(255, 0, 0));
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

    void Clear() {
        DDBLTFX effects;
        EXPECT_EQ(back->Blt(nullptr, nullptr, nullptr, DDBLT_COLORFILL, &effects), S_OK);
    }

    HRESULT Show() {
        if (!IsWindowed()) return front->Flip(nullptr, 0);
        const RECT client = Headless().ClientArea();
        return front->Blt(&client, back.get(), nullptr, DDBLT_WAIT, nullptr);
    }

    HRESULT Copy(std::uint32_t x, std::uint32_t y, RECT part = {0, 0, 8, 8},
                 std::uint32_t flags = DDBLTFAST_NOCOLORKEY) {
        return back->BltFast(x, y, picture.get(), part, flags);
    }

    HWND window = nullptr;
    int bits = 0;
    UniqueInterface<IDirectDraw7> directDraw;
    UniqueInterface<IDirectDrawSurface7> front;
    UniqueInterface<IDirectDrawSurface7> back;
    UniqueInterface<IDirectDrawSurface7> picture;
};

std::string NameOfMode(const testing::TestParamInfo<int>& mode) {
    return mode.param == 0 ? "Window" : "FullScreen" + std::to_string(mode.param);
}

INSTANTIATE_TEST_SUITE_P(Modes, DisplayTest, testing::Values(0, 8, 16, 32), NameOfMode);

TEST_P(DisplayTest, ShowsWhatWasDrawnInTheOrderOfDrawing) {
    Clear();
    EXPECT_EQ(Copy(10, 20), S_OK);
    Paint(*picture, {0, 0, 8, 8}, RGB(0, 255, 0));  // what was drawn stays red
    EXPECT_EQ(Copy(14, 20, {0, 0, 2, 8}), S_OK);
    EXPECT_EQ(Show(), S_OK);
    EXPECT_EQ(Headless().PixelAt(9, 20), 0u);
    EXPECT_EQ(Headless().PixelAt(10, 20), 0xFF0000u);
    EXPECT_EQ(Headless().PixelAt(14, 27), 0x00FF00u);
    EXPECT_EQ(Headless().PixelAt(16, 20), 0xFF0000u);
    EXPECT_EQ(Headless().PixelAt(18, 20), 0u);
}

TEST_P(DisplayTest, AKeyLetsThroughWhatLiesBelow) {
    Paint(*picture, {0, 0, 4, 8}, RGB(0, 0, 255));
    HDC context = nullptr;
    ASSERT_EQ(picture->GetDC(context), S_OK);
    picture->ReleaseDC(context);
    DDSURFACEDESC2 locked;
    ASSERT_EQ(picture->Lock(locked, DDLOCK_WAIT), S_OK);
    EXPECT_EQ(locked.format.bits, IsWindowed() ? 32 : bits);
    std::uint32_t blue = 0;
    std::copy_n(locked.pixels, locked.format.BytesPerPixel(), reinterpret_cast<std::byte*>(&blue));
    ASSERT_EQ(picture->Unlock(), S_OK);
    ASSERT_EQ(picture->SetColorKey(DDCKEY_SRCBLT, {blue, blue}), S_OK);

    Clear();
    EXPECT_EQ(Copy(0, 0, {0, 0, 8, 8}, DDBLTFAST_SRCCOLORKEY), S_OK);
    EXPECT_EQ(Copy(20, 0, {0, 0, 8, 8}, DDBLTFAST_NOCOLORKEY), S_OK);
    EXPECT_EQ(Copy(40, 0, {3, 0, 8, 8}, DDBLTFAST_SRCCOLORKEY), S_OK);
    EXPECT_EQ(Show(), S_OK);
    EXPECT_EQ(Headless().PixelAt(3, 0), 0u);
    EXPECT_EQ(Headless().PixelAt(4, 0), 0xFF0000u);
    EXPECT_EQ(Headless().PixelAt(20, 0), 0x0000FFu);
    EXPECT_EQ(Headless().PixelAt(40, 0), 0u);
    EXPECT_EQ(Headless().PixelAt(41, 0), 0xFF0000u);
}

TEST_P(DisplayTest, CopiesThatDoNotFitAreRefusedWhole) {
    struct Case {
        std::uint32_t x, y;
        RECT part;
        bool fits;
    };
    constexpr auto kMinusOne = static_cast<std::uint32_t>(-1);
    for (const Case& c : {
             Case{0, 0, {0, 0, 8, 8}, true},
             Case{kWidth - 8, kHeight - 8, {0, 0, 8, 8}, true},
             Case{kWidth - 7, 0, {0, 0, 8, 8}, false},
             Case{0, kHeight - 7, {0, 0, 8, 8}, false},
             Case{kMinusOne, 0, {0, 0, 8, 8}, false},
             Case{0, kMinusOne - 3, {0, 0, 8, 8}, false},
             Case{0, 0, {-1, 0, 8, 8}, false},
             Case{0, 0, {0, 0, 9, 8}, false},
             Case{0, 0, {0, 4, 8, 12}, false},
             Case{0, 0, {4, 0, 4, 8}, false},
             Case{0, 0, {6, 0, 2, 8}, false},
         }) {
        EXPECT_EQ(Copy(c.x, c.y, c.part), c.fits ? S_OK : DDERR_INVALIDRECT)
            << c.x << "," << c.y << " part " << c.part.left << "," << c.part.top;
    }
    EXPECT_TRUE(Failed(back->BltFast(0, 0, back.get(), {0, 0, 1, 1}, 0))) << "no picture";
    EXPECT_TRUE(Failed(back->BltFast(0, 0, nullptr, {0, 0, 1, 1}, 0)));
}

TEST_P(DisplayTest, NothingIsSentWhenNothingChanged) {
    const auto frame = [this](std::uint32_t x) {
        Clear();
        EXPECT_EQ(Copy(x, 0), S_OK);
        EXPECT_EQ(Show(), S_OK);
    };
    frame(0);
    frame(0);
    EXPECT_EQ(Headless().Presents(), 1);
    const std::uint64_t before = Headless().PresentedPixels();
    frame(8);
    EXPECT_EQ(Headless().Presents(), 2);
    EXPECT_LE(Headless().PresentedPixels() - before, 2u * 8u * 8u) << "only what moved";
    EXPECT_EQ(Headless().PixelAt(0, 0), 0u);
    EXPECT_EQ(Headless().PixelAt(8, 0), 0xFF0000u);
}

TEST_P(DisplayTest, APictureThatDiesBeforeItWasShownIsShown) {
    Clear();
    EXPECT_EQ(Copy(0, 0), S_OK);
    picture = MakePicture(8, 8);
    Paint(*picture, {0, 0, 8, 8}, RGB(0, 255, 0));
    EXPECT_EQ(Show(), S_OK);
    EXPECT_EQ(Headless().PixelAt(0, 0), 0xFF0000u);
}

TEST_P(DisplayTest, ALostPictureComesBackWhole) {
    Clear();
    EXPECT_EQ(Copy(0, 0), S_OK);
    EXPECT_EQ(Show(), S_OK);
    Headless().FailPresents({DDERR_SURFACELOST});
    Clear();
    EXPECT_EQ(Copy(8, 0), S_OK);
    EXPECT_EQ(Show(), DDERR_SURFACELOST);
    EXPECT_EQ(Copy(0, 0), DDERR_SURFACELOST) << "until it is restored";
    EXPECT_EQ(Show(), DDERR_SURFACELOST);
    EXPECT_EQ(directDraw->RestoreAllSurfaces(), S_OK);
    const std::uint64_t before = Headless().PresentedPixels();
    Clear();
    EXPECT_EQ(Copy(8, 0), S_OK);
    EXPECT_EQ(Show(), S_OK);
    EXPECT_EQ(Headless().PresentedPixels() - before, std::uint64_t{kWidth * kHeight});
    EXPECT_EQ(Headless().PixelAt(8, 0), 0xFF0000u);
}

TEST_P(DisplayTest, WhatCouldNotBeSentAtOnceIsSentAtTheNextTry) {
    Clear();
    EXPECT_EQ(Copy(0, 0), S_OK);
    Headless().FailPresents({DDERR_WASSTILLDRAWING, DDERR_WASSTILLDRAWING});
    EXPECT_EQ(Show(), DDERR_WASSTILLDRAWING);
    EXPECT_EQ(Show(), DDERR_WASSTILLDRAWING);
    EXPECT_EQ(Show(), S_OK);
    EXPECT_EQ(Headless().PixelAt(0, 0), 0xFF0000u);
}

class DisplayModeTest : public testing::Test {
  protected:
    void SetUp() override {
        Headless().Reset();
        IDirectDraw7* created = nullptr;
        ASSERT_EQ(DirectDrawCreateEx(created), S_OK);
        directDraw.reset(created);
        RegisterClass({"Ignoring", IgnoringProc});
        window = CreateWindowEx(0, "Ignoring", "", 0, {0, 0}, {kWidth, kHeight});
    }
    void TearDown() override { DestroyWindow(window); }

    UniqueInterface<IDirectDraw7> directDraw;
    HWND window = nullptr;
};

TEST_F(DisplayModeTest, SurfacesOutliveTheirDisplayObject) {
    DDSURFACEDESC2 description;
    description.flags = DDSD_CAPS | DDSD_WIDTH | DDSD_HEIGHT;
    description.caps = DDSCAPS_OFFSCREENPLAIN;
    description.width = description.height = 4;
    IDirectDrawSurface7* created = nullptr;
    ASSERT_EQ(directDraw->SetCooperativeLevel(window, DDSCL_NORMAL), S_OK);
    ASSERT_EQ(directDraw->CreateSurface(description, created), S_OK);
    const UniqueInterface<IDirectDrawSurface7> kept(created);
    directDraw.reset();
    EXPECT_EQ(kept->Restore(), S_OK);
    description = {};
    EXPECT_EQ(kept->GetSurfaceDesc(description), S_OK);
    EXPECT_EQ(description.width, 4u);
    description.size = 1;
    EXPECT_EQ(kept->GetSurfaceDesc(description), E_INVALIDARG);
}

TEST_F(DisplayModeTest, FullScreenNeedsTheExclusiveLevelAndAKnownDepth) {
    EXPECT_TRUE(Failed(directDraw->SetDisplayMode(640, 480, 16, 0, 0))) << "not exclusive";
    ASSERT_EQ(directDraw->SetCooperativeLevel(window, DDSCL_EXCLUSIVE | DDSCL_FULLSCREEN), S_OK);
    for (const std::uint32_t depth : {0u, 1u, 15u, 24u, 64u, 0xFFFFFFFFu})
        EXPECT_TRUE(Failed(directDraw->SetDisplayMode(640, 480, depth, 0, 0))) << depth;
    EXPECT_TRUE(Failed(directDraw->SetDisplayMode(0, 480, 16, 0, 0)));
    EXPECT_TRUE(Failed(directDraw->SetDisplayMode(640, 100'000, 16, 0, 0)));
    EXPECT_FALSE(Headless().IsFullScreen());
    Headless().RefuseFullScreen(true);
    EXPECT_TRUE(Failed(directDraw->SetDisplayMode(640, 480, 16, 0, 0)));
    Headless().RefuseFullScreen(false);
    EXPECT_EQ(directDraw->SetDisplayMode(640, 480, 16, 75, 0), S_OK);
    EXPECT_TRUE(Headless().IsFullScreen());
    EXPECT_EQ(directDraw->SetCooperativeLevel(window, DDSCL_NORMAL), S_OK);
    EXPECT_FALSE(Headless().IsFullScreen());
}

}  // namespace
}  // namespace korvane
