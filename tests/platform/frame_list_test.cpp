#include "platform/frame_list.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <vector>

#include "tests/platform/test_pictures.h"

namespace korvane {
namespace {

constexpr SIZE kScreen = {160, 120};
constexpr RECT kWholeScreen = {0, 0, kScreen.cx, kScreen.cy};
constexpr std::uint32_t kKey = 0;

/// A picture with its key and the version that names its present contents.
struct Picture {
    PixelBuffer pixels;
    OpaqueRuns runs;
    std::uint64_t version;

    Picture(Random& random, SIZE size, int depth, std::uint64_t contents)
        : pixels(RandomPicture(random, size, depth, kKey)), runs(pixels, kKey), version(contents) {}
};

/// One drawing call: a fill, or a copy of `part` of the picture to the area's corner.
struct Call {
    RECT area;
    std::uint32_t fill = 0;
    const Picture* picture = nullptr;
    POINT from = {};
    bool keyed = false;

    RECT Part() const { return {from.x, from.y, from.x + area.Width(), from.y + area.Height()}; }
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

/// A whole fill, and cells of 10 x 10 in a row at y 20.
class FrameListTest : public testing::Test {
  protected:
    FrameListTest() : random_(5), picture_(random_, {40, 10}, 4, 1), target_(kScreen, 4) {
        frame_.push_back({.area = kWholeScreen, .fill = 3});
        for (int cell = 0; cell < 8; ++cell)
            frame_.push_back(Cell(10 + 16 * cell, 20));
    }

    Call Cell(int x, int y) const {
        return {.area = {x, y, x + 10, y + 10}, .picture = &picture_, .keyed = true};
    }

    Random random_;
    Picture picture_;
    PixelBuffer target_;
    std::vector<Call> frame_;
    FrameList list_;
};

TEST_F(FrameListTest, ReportsExactlyWhatASmallChangeTouches) {
    using Frame = std::vector<Call>;
    const struct {
        const char* what;
        std::function<void(Frame&)> change;
        std::vector<RECT> changed;
    } cases[] = {
        {"nothing", [](Frame&) {}, {}},
        {"a cell moved",
         [](Frame& frame) {
             frame[2].area = {30, 24, 40, 34};
         },
         {{26, 20, 40, 34}}},
        {"a cell more", [&](Frame& frame) { frame.push_back(Cell(5, 90)); }, {{5, 90, 15, 100}}},
        {"a cell less", [](Frame& frame) { frame.erase(frame.begin() + 4); }, {{58, 20, 68, 30}}},
        {"a fill more",
         [](Frame& frame) {
             frame.insert(frame.begin() + 1, {.area = {0, 60, 4, 64}});
         },
         {{0, 60, 4, 64}}},
        {"another part",
         [](Frame& frame) {
             frame[1].from = {10, 0};
         },
         {{10, 20, 20, 30}}},
        {"without key", [](Frame& frame) { frame[1].keyed = false; }, {{10, 20, 20, 30}}},
        {"another fill", [](Frame& frame) { frame[0].fill = 4; }, {kWholeScreen}},
        {"a cell moved far",
         [](Frame& frame) {
             frame[1].area = {70, 110, 80, 120};
         },
         {{10, 20, 20, 30}, {70, 110, 80, 120}}},
    };
    for (const auto& [what, change, changed] : cases) {
        Show(list_, target_, frame_);
        Frame next = frame_;
        change(next);
        const auto rects = Show(list_, target_, next);
        EXPECT_TRUE(std::is_permutation(rects.begin(), rects.end(), changed.begin(), changed.end()))
            << what << ": " << rects.size() << " rectangles";
    }
}

TEST_F(FrameListTest, NewContentsOfAPictureChangeItsCopies) {
    Picture other(random_, {40, 10}, 4, 2);
    frame_[3].picture = &other;
    Show(list_, target_, frame_);
    other = Picture(random_, {40, 10}, 4, 3);
    const auto rects = Show(list_, target_, frame_);
    ASSERT_EQ(rects.size(), 1u);
    EXPECT_EQ(rects[0], frame_[3].area);
}

/// One half of the screen that changes beyond the reach of the comparison must not drag the other
/// half along, whether it is drawn before or after.
TEST_F(FrameListTest, ManyChangesInOneHalfLeaveTheOtherAlone) {
    std::vector<Call> before = frame_;
    std::vector<Call> after = frame_;
    for (int cell = 0; cell < 60; ++cell)
        before.push_back(Cell(cell, 40 + cell % 3));
    for (int cell = 0; cell < 8; ++cell) {
        before.push_back(Cell(10 + 16 * cell, 100));
        after.push_back(Cell(10 + 16 * cell, 100));
    }
    Show(list_, target_, before);
    for (const RECT& rect : Show(list_, target_, after)) {
        EXPECT_GE(rect.top, 40);
        EXPECT_LE(rect.bottom, 60);
    }
}

TEST_F(FrameListTest, EverythingIsNewAtFirstAndAfterLosingTheBuffer) {
    for (int time = 0; time < 2; ++time) {
        const auto rects = Show(list_, target_, frame_);
        ASSERT_EQ(rects.size(), 1u) << time;
        EXPECT_EQ(rects[0], kWholeScreen) << time;
        list_.Invalidate();
    }
}

TEST_F(FrameListTest, NeedsTheSourcesOfWhatWasNotDrawnYet) {
    const Picture other(random_, {10, 10}, 4, 2);
    EXPECT_FALSE(list_.Needs(picture_.pixels));
    frame_[1].Record(list_);
    EXPECT_TRUE(list_.Needs(picture_.pixels));
    EXPECT_FALSE(list_.Needs(other.pixels));
    list_.Flush(target_);
    EXPECT_FALSE(list_.Needs(picture_.pixels));
    frame_[2].Record(list_);
    EXPECT_TRUE(list_.Needs(picture_.pixels));
    list_.Compose(target_);
    EXPECT_FALSE(list_.Needs(picture_.pixels));
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

  private:
    std::unique_ptr<Picture> NewPicture() {
        const SIZE size = {Between(random_, 1, kScreen.cx * 3 / 4),
                           Between(random_, 1, kScreen.cy)};
        return std::make_unique<Picture>(random_, size, depth_, ++versions_);
    }

    Call RandomCall() {
        if (Between(random_, 0, 9) == 0) {
            return {.area = RandomPart(random_, kScreen),
                    .fill = static_cast<std::uint32_t>(random_())};
        }
        const Picture& picture = *pictures_[Pick(pictures_.size())];
        const RECT part = RandomPart(random_, picture.pixels.Size());
        const int x = Between(random_, 0, kScreen.cx - part.Width());
        const int y = Between(random_, 0, kScreen.cy - part.Height());
        return {.area = {x, y, x + part.Width(), y + part.Height()},
                .picture = &picture,
                .from = {part.left, part.top},
                .keyed = Between(random_, 0, 3) != 0};
    }

    std::size_t Pick(std::size_t count) { return random_() % count; }

    /// A place in the frame behind the fill that it begins with.
    std::vector<Call>::iterator Place() {
        return frame_.begin() + 1 + static_cast<std::ptrdiff_t>(Pick(frame_.size() - 1));
    }

    void ChangeFrame() {
        for (int count = Between(random_, 0, 4); count > 0; --count) {
            switch (Between(random_, 0, 5)) {
                case 0:
                    frame_.insert(Place(), RandomCall());
                    break;
                case 1:
                    if (frame_.size() > 30) frame_.erase(Place());
                    break;
                case 2:
                    *Place() = RandomCall();
                    break;
                case 3:
                    std::iter_swap(Place(), Place());
                    break;
                case 4:
                    std::rotate(frame_.begin() + 1, Place(), frame_.end());
                    break;
                default:
                    ReplacePicture();
            }
        }
        if (Between(random_, 0, 20) == 0) frame_[0].fill = static_cast<std::uint32_t>(random_());
    }

    /// Gives one picture new contents; its size stays, so that the calls remain good.
    bool ReplacePicture() {
        Picture& picture = *pictures_[Pick(pictures_.size())];
        const bool needed = list_.Needs(picture.pixels);
        if (needed) list_.Flush(target_);
        picture = Picture(random_, picture.pixels.Size(), depth_, ++versions_);
        return needed;
    }

    /// What may happen in the middle of a frame, before its call `next` is recorded.
    void Interrupt(std::size_t next) {
        switch (Between(random_, 0, 3)) {
            case 0:
                list_.Flush(target_);
                EXPECT_EQ(FirstDifference(target_, wanted_), std::nullopt);
                firstWaiting_ = next;
                break;
            case 1:
                if (ReplacePicture()) firstWaiting_ = next;
                break;
            case 2:
                LoseBuffer(next);
                break;
            default:
                list_.Flush(target_);
                firstWaiting_ = next;
                LoseBuffer(next);
        }
    }

    /// The calls that wait are carried out on what the buffer holds from now on.
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
        }
        ASSERT_EQ(FirstDifference(target_, wanted_), std::nullopt);
        ASSERT_EQ(FirstDifference(target_, shown_, changed), std::nullopt);
        NaiveCopy(shown_, {0, 0}, target_, kWholeScreen, std::nullopt);
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

/// Large pictures split the screen into parts that begin at different operations of the list.
TEST(FrameListLarge, PicturesThatHideMuchLeaveARightPicture) {
    constexpr SIZE kLarge = {640, 480};
    constexpr RECT kCorner = {320, 180, 640, 480};
    Random random(6);
    const Picture picture(random, {320, 300}, 4, 1);
    const struct {
        const char* what;
        std::vector<POINT> places;
    } cases[] = {
        {"in the middle", {{100, 90}}},
        {"in a corner", {{320, 180}}},
        {"side by side", {{320, 50}, {0, 50}}},
        {"overlapping", {{10, 20}, {200, 100}, {300, 10}}},
    };
    for (const auto& [what, places] : cases) {
        std::vector<Call> frame = {{.area = {0, 0, kLarge.cx, kLarge.cy}, .fill = 5}};
        for (const POINT at : places) {
            frame.push_back({.area = {at.x + 7, at.y + 7, at.x + 27, at.y + 27}, .fill = 6});
            frame.push_back({.area = {at.x, at.y, at.x + 320, at.y + 300}, .picture = &picture});
            frame.push_back({.area = {at.x + 5, at.y + 5, at.x + 25, at.y + 25},
                             .picture = &picture,
                             .keyed = true});
        }
        frame.push_back({.area = kCorner, .picture = &picture, .keyed = true});
        PixelBuffer target(kLarge, 4);
        PixelBuffer wanted(kLarge, 4);
        FrameList list;
        Show(list, target, frame);
        for (const Call& call : frame)
            call.DrawNaively(wanted);
        EXPECT_EQ(FirstDifference(target, wanted), std::nullopt) << what;
    }
}

TEST(FrameListRandomly, EveryFrameEqualsAFullRedraw) {
    for (const int depth : {1, 2, 4}) {
        for (unsigned seed = 0; seed < 10; ++seed) {
            SCOPED_TRACE(testing::Message() << "depth " << depth << ", seed " << seed);
            RandomFrames screen(seed, depth);
            for (int frame = 0; frame < 60; ++frame) {
                screen.ShowNext();
                if (frame % 7 == 0) screen.ShowSameTwice();
                if (testing::Test::HasFailure()) return;
            }
        }
    }
}

}  // namespace
}  // namespace korvane
