#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "platform/base/types.h"
#include "platform/draw/pixel_buffer.h"
#include "platform/surfaces/dirty_region.h"
#include "platform/surfaces/keyed_copy.h"

namespace korvane {

/// What a copy takes its pixels from. Both objects must exist and keep their contents until the
/// copy is carried out (FrameList::Compose or Flush).
struct PictureSource {
    const PixelBuffer* pixels = nullptr;
    /// Null: a copy without colour key.
    const OpaqueRuns* runs = nullptr;
    /// Names the contents: never the same for different pixels or another key. Below 2^63.
    std::uint64_t version = 0;
};

/// The recorded drawing of one buffer that is drawn anew for every frame.
///
/// A game clears the buffer, copies some hundred pictures and shows the result, although most
/// frames differ from the one before in a few places. So drawing is only recorded, and Compose
/// draws what differs: a frame that begins by filling the whole buffer is a function of its list
/// of operations alone, and when two such lists have a common subsequence, their pictures can only
/// differ within the areas of the operations outside it. (A pixel outside all those areas is made
/// by the same operations in the same order in both.) So everything within these areas is drawn
/// again, from the whole list. A long common subsequence saves work; any common subsequence gives
/// the right picture.
///
/// A frame that does not begin with such a fill is drawn in full on what the buffer holds. All
/// areas that it touches count as changed, then and in the next frame that begins with a fill.
///
/// All areas lie within the target, which is the same at every call or announced by Invalidate.
class FrameList {
  public:
    void Fill(const RECT& area, std::uint32_t value);
    /// Copies `part` of the source to `at`, keyed when the source has runs.
    void Copy(const PictureSource& source, POINT at, const RECT& part);

    /// Ends the frame: brings the target up to date with what was recorded since the last call and
    /// returns where it may differ from what the last call left: at most DirtyRegion::kMaxRects
    /// rectangles within the target, none when nothing changed. Valid until the next Compose.
    std::span<const RECT> Compose(PixelBuffer& target);

    /// Carries out what was recorded so far, in full, in the middle of a frame: for readers of the
    /// buffer, and before a source changes or is destroyed.
    void Flush(PixelBuffer& target);

    /// One operation as it was recorded.
    struct Recorded {
        RECT area;                  ///< in the target
        const PixelBuffer* pixels;  ///< null: a fill with `value`
        const OpaqueRuns* runs;     ///< null: not keyed
        POINT from;                 ///< the source's pixel that goes to the area's corner
        std::uint32_t value;
    };
    /// What was recorded since the last Compose, for measurements.
    std::vector<Recorded> RecordedOperations() const;

    /// Says that the contents of the target are lost, with all that was flushed in this frame.
    /// Every Compose reports the whole target until a frame that begins by filling it.
    void Invalidate();

  private:
    /// What an operation draws, and nothing else: compared byte by byte.
    struct Effect {
        RECT area;               ///< in the target
        POINT from;              ///< the source's pixel that goes to the area's corner, or kFill
        std::uint64_t contents;  ///< version and whether keyed; of a fill the value
    };
    struct Operation {
        Effect effect;
        const PixelBuffer* pixels;  ///< null: a fill. Valid until the operation is carried out
        const OpaqueRuns* runs;     ///< null: not keyed. Valid as long

        /// True when both have the same effect.
        bool operator==(const Operation& other) const;
    };
    /// An area in which an operation hides all operations before it.
    struct Cover {
        RECT area;
        std::size_t operation;
    };
    struct Skip {
        std::size_t before;
        std::size_t now;
    };

    bool FillsAll(const PixelBuffer& target) const;
    /// Adds to changed_ the areas of all operations that shown_ and frame_ do not share.
    void AddDifferences();
    /// How many operations to skip in two lists that begin differently, so that both begin with the
    /// same operation; one of each when there is none within kLookAhead.
    static Skip ToNextAgreement(std::span<const Operation> before, std::span<const Operation> now);
    /// Adds the areas of the first `count` operations to changed_ and returns the rest.
    std::span<const Operation> AddAreas(std::span<const Operation> operations, std::size_t count);
    /// Draws what the frame shows of an area, without most of what later operations hide.
    void ComposeArea(PixelBuffer& target, const RECT& area);
    /// Adds an area that an operation hides. It is joined with the area added before when both make
    /// up a rectangle, so that the tiles of a background hide together what lies under them.
    void AddCover(RECT area, std::size_t operation);
    /// Where an operation hides everything drawn before it. For a keyed copy this is only the core
    /// of its picture.
    static RECT HiddenBy(const Operation& operation);
    static void DrawVisible(PixelBuffer& target, const Operation& operation, const RECT& clip,
                            std::span<const Cover> covers);
    static void Draw(PixelBuffer& target, const Operation& operation, const RECT& clip);

    std::vector<Operation> frame_;  ///< recorded since the last Compose
    std::size_t drawn_ = 0;         ///< how many of frame_ were carried out by Flush
    std::vector<Operation> shown_;  ///< the last frame that began by filling the whole target
    DirtyRegion drawnOver_;         ///< where later frames were drawn over the picture of shown_
    bool invalid_ = true;           ///< the target does not hold the picture of shown_ at all
    DirtyRegion changed_;
    std::vector<Cover> covers_;  ///< for the area that is composed; the last operation comes first
};

}  // namespace korvane
