#include "platform/surfaces/frame_list.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <vector>

#include "tests/platform/draw/test_pictures.h"

namespace korvane {
namespace {

/// Large enough for pictures with a core.
constexpr SIZE kScreen = {280, 200};
constexpr RECT kWholeScreen = {0, 0, kScreen.cx, kScreen.cy};
constexpr std::uint32_t kKey = 0;

/// A picture that is large enough has a large part without transparent pixels.
PixelBuffer PictureWithSlab(Random& random, SIZE size, int depth) {
    PixelBuffer pixels = RandomPicture(random, size, depth, kKey);
    if (size.cx < 140 || size.cy < 130) return pixels;
    for (int y = 1; y < size.cy - 1; ++y)
        for (int x = 5; x < size.cx - 2; ++x)
            pixels.SetPixel({x, y}, 1 + static_cast<std::uint32_t>(x ^ y) % 251);
    return pixels;
}

/// A picture with its key and the version that names its present contents.
struct Picture {
    PixelBuffer pixels;
    OpaqueRuns runs;
    std::uint64_t version;

    Picture(Random& random, SIZE size, int depth, std::uint64_t contents)
        : pixels(PictureWithSlab(random, size, depth)), runs(pixels, kKey), version(contents) {}
};

/// One drawing call: a fill, or a copy of `part` of the picture to the area's corner.
struct Call {
    RECT area;
    std::uint32_t fill = 0;
    const Picture* picture = nullptr;
    POINT from = {};
    bool keyed = false;

    RECT Part() const { return RectAt(from, area.Size()); }
    void Record(FrameList& list) const {
        if (picture == nullptr) return list.Fill(area, fill);
        list.Copy({&picture->pixels, keyed ? &picture->runs : nullptr, picture->version},
                  {area.left, area.top}, Part());
    }
    void DrawNaively(PixelBuffer& target) const {
        if (picture == nullptr) return NaiveFill(target, area, fill);
        NaiveCopy(target, {area.left, area.top}, picture->pixels, Part(),
                  keyed ? std::optional<std::uint32_t>(kKey) : std::nullopt);
    }
};

std::span<const RECT> Show(FrameList& list, PixelBuffer& target, const std::vector<Call>& frame) {
    for (const Call& call : frame)
        call.Record(list);
    return list.Compose(target);
}

/// Draws random frames through a FrameList and pixel by pixel, side by side.
class RandomFrames {
  public:
    RandomFrames(unsigned seed, int depth)
        : random_(seed),
          depth_(depth),
          target_(kScreen, depth),
          wanted_(kScreen, depth),
          shown_(kScreen, depth) {
        for (int i = 0; i < 5; ++i)
            pictures_.push_back(NewPicture());
        frame_.push_back({.area = kWholeScreen, .fill = 1});
        for (int i = 0; i < 40; ++i)
            frame_.push_back(RandomCall());
        AddTiles();
    }

    /// Mostly the frame with a few changes, sometimes a few calls on top of what is shown.
    void ShowNext() {
        ChangeFrame();
        calls_ = frame_;
        if (Between(random_, 0, 5) == 0) {
            calls_.clear();
            for (int count = Between(random_, 0, 4); count > 0; --count)
                calls_.push_back(RandomCall());
        }
        firstWaiting_ = 0;
        for (std::size_t i = 0; i < calls_.size(); ++i) {
            if (Between(random_, 0, 300) == 0) Interrupt(i);
            calls_[i].Record(list_);
            calls_[i].DrawNaively(wanted_);
        }
        Check(list_.Compose(target_));
    }

    void ShowSameTwice() {
        Show(list_, target_, frame_);
        EXPECT_TRUE(Show(list_, target_, frame_).empty());
        for (const Call& call : frame_)
            call.DrawNaively(wanted_);
        NaiveCopy(shown_, {0, 0}, target_, kWholeScreen, std::nullopt);
    }

    bool HasCore() const {
        return std::ranges::any_of(
            pictures_, [](const auto& picture) { return !picture->runs.Core().IsEmpty(); });
    }

  private:
    std::unique_ptr<Picture> NewPicture() {
        const bool large = Between(random_, 0, 3) == 0;
        const SIZE size = {Between(random_, large ? 140 : 1, kScreen.cx * 3 / 4),
                           Between(random_, large ? 130 : 1, kScreen.cy)};
        return std::make_unique<Picture>(random_, size, depth_, ++versions_);
    }

    Call RandomCall() {
        if (Between(random_, 0, 9) == 0) {
            return {.area = RandomPart(random_, kScreen),
                    .fill = static_cast<std::uint32_t>(random_())};
        }
        const Picture& picture = *pictures_[Pick(pictures_.size())];
        const RECT part = Between(random_, 0, 1) == 0 ? picture.pixels.Bounds()
                                                      : RandomPart(random_, picture.pixels.Size());
        const int x = Between(random_, 0, kScreen.cx - part.Width());
        const int y = Between(random_, 0, kScreen.cy - part.Height());
        return {.area = RectAt({x, y}, part.Size()),
                .picture = &picture,
                .from = {part.left, part.top},
                .keyed = Between(random_, 0, 3) != 0};
    }

    /// Tiles too small to hide anything alone, with calls between their rows.
    void AddTiles() {
        constexpr SIZE kTile = {60, 45};
        for (int y = 10; y + kTile.cy <= kScreen.cy; y += kTile.cy) {
            frame_.push_back(RandomCall());
            for (int x = 10; x + kTile.cx <= kScreen.cx; x += kTile.cx)
                frame_.push_back(
                    {.area = RectAt({x, y}, kTile), .fill = static_cast<std::uint32_t>(random_())});
        }
    }

    std::size_t Pick(std::size_t count) { return random_() % count; }

    /// Any call of the frame but the fill that it begins with.
    std::vector<Call>::iterator AnyCall() {
        return frame_.begin() + 1 + static_cast<std::ptrdiff_t>(Pick(frame_.size() - 1));
    }

    void ChangeFrame() {
        for (int count = Between(random_, 0, 4); count > 0; --count) {
            const int change = Between(random_, 0, 6);
            if (change == 0) frame_.insert(AnyCall(), RandomCall());
            if (change == 1 && frame_.size() > 30) frame_.erase(AnyCall());
            if (change == 2) *AnyCall() = RandomCall();
            if (change == 3) std::iter_swap(AnyCall(), AnyCall());
            if (change == 4) std::rotate(frame_.begin() + 1, AnyCall(), frame_.end());
            if (change == 5) ReplacePicture();
            if (change == 6) AnyCall()->keyed ^= true;
        }
        if (Between(random_, 0, 20) == 0) frame_[0].fill = static_cast<std::uint32_t>(random_());
    }

    /// Gives one picture new contents; its size stays, so that the calls remain good.
    void ReplacePicture() {
        Picture& picture = *pictures_[Pick(pictures_.size())];
        picture = Picture(random_, picture.pixels.Size(), depth_, ++versions_);
    }

    /// Flushes the list, replaces a picture or loses the buffer before the call `next` is recorded.
    void Interrupt(std::size_t next) {
        const bool isFlushed = Between(random_, 0, 3) != 0;
        if (isFlushed) {
            list_.Flush(target_);
            EXPECT_EQ(FirstDifference(target_, wanted_), std::nullopt);
            firstWaiting_ = next;
            if (Between(random_, 0, 1) == 0) ReplacePicture();
        }
        if (!isFlushed || Between(random_, 0, 2) == 0) LoseBuffer(next);
    }

    /// Gives the buffer other contents. The calls that wait will be drawn on these.
    void LoseBuffer(std::size_t next) {
        target_ = RandomPicture(random_, kScreen, depth_, kKey);
        NaiveCopy(wanted_, {0, 0}, target_, kWholeScreen, std::nullopt);
        for (std::size_t i = firstWaiting_; i < next; ++i)
            calls_[i].DrawNaively(wanted_);
        list_.Invalidate();
    }

    void Check(std::span<const RECT> changed) {
        ASSERT_LE(changed.size(), DirtyRegion::kMaxRects);
        for (const RECT& rect : changed) {
            ASSERT_FALSE(rect.IsEmpty());
            ASSERT_EQ(Intersect(rect, kWholeScreen), rect);
            NaiveCopy(shown_, {rect.left, rect.top}, target_, rect, std::nullopt);
        }
        ASSERT_EQ(FirstDifference(target_, wanted_), std::nullopt);
        ASSERT_EQ(FirstDifference(target_, shown_), std::nullopt) << "unreported change";
    }

    Random random_;
    int depth_;
    std::uint64_t versions_ = 0;
    std::vector<std::unique_ptr<Picture>> pictures_;
    std::vector<Call> frame_;
    std::vector<Call> calls_;       ///< what is drawn at present: frame_, or calls on top of it
    std::size_t firstWaiting_ = 0;  ///< the first of calls_ that was not flushed
    FrameList list_;
    PixelBuffer target_;
    PixelBuffer wanted_;  ///< what the target must hold when all recorded calls were carried out
    PixelBuffer shown_;   ///< the target after the last Compose
};

TEST(FrameListTest, WhatIsNotHiddenIsDrawn) {
    Random random(1);
    const Picture letters(random, {200, 120}, 4, 1);  // without a core
    const Picture slab(random, {270, 150}, 4, 2);     // its core ends two columns before its edge
    const std::vector<Call> frames[] = {
        // Between two tiles, which hide together only what was drawn before both.
        {{.area = {0, 0, kScreen.cx, 120}, .fill = 2},
         {.area = {40, 0, 240, 120}, .picture = &letters, .keyed = true},
         {.area = {0, 120, kScreen.cx, kScreen.cy}, .fill = 3}},
        // Beside the lower of two areas of different widths.
        {{.area = {0, 100, 100, 200}, .fill = 2}, {.area = {0, 0, 200, 100}, .fill = 3}},
        // At the edge of a part of a picture.
        {{.area = {0, 0, 170, 150}, .picture = &slab, .from = {100, 0}, .keyed = true}},
    };
    for (std::vector<Call> frame : frames) {
        frame.insert(frame.begin(), {.area = kWholeScreen, .fill = 1});
        PixelBuffer wanted(kScreen, 4);
        for (const Call& call : frame)
            call.DrawNaively(wanted);
        FrameList list;
        PixelBuffer target(kScreen, 4);
        Show(list, target, frame);
        EXPECT_EQ(FirstDifference(target, wanted), std::nullopt) << frame.size();
    }
}

TEST(FrameListTest, EveryRandomFrameEqualsAFullRedraw) {
    for (const int depth : {1, 2, 4}) {
        int withCore = 0;
        for (unsigned seed = 0; seed < 8; ++seed) {
            SCOPED_TRACE(testing::Message() << "depth " << depth << ", seed " << seed);
            RandomFrames screen(seed, depth);
            withCore += screen.HasCore() ? 1 : 0;
            for (int frame = 0; frame < 40; ++frame) {
                screen.ShowNext();
                if (frame % 7 == 0) screen.ShowSameTwice();
                if (testing::Test::HasFailure()) return;
            }
        }
        EXPECT_GE(withCore, 4) << "too few pictures hide anything";
    }
}

}  // namespace
}  // namespace korvane
