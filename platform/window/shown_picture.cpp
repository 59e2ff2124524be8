#include "platform/window/shown_picture.h"

#include <algorithm>
#include <utility>

namespace korvane {
namespace {

constexpr RECT kEverywhere = {INT16_MIN, INT16_MIN, INT16_MAX, INT16_MAX};

/// The same place counted from another point.
RECT CountedFrom(const RECT& place, POINT origin) {
    return RectAt({place.left - origin.x, place.top - origin.y}, place.Size());
}

POINT CornerOf(const RECT& place) {
    return {place.left, place.top};
}

/// Adds to `rest` what `area` has outside `hole`: at most four rectangles.
void AddWithout(std::vector<RECT>& rest, const RECT& area, const RECT& hole) {
    const RECT covered = Intersect(area, hole);
    if (covered.IsEmpty()) return rest.push_back(area);
    const RECT pieces[] = {
        {area.left, area.top, area.right, covered.top},
        {area.left, covered.top, covered.left, covered.bottom},
        {covered.right, covered.top, area.right, covered.bottom},
        {area.left, covered.bottom, area.right, area.bottom},
    };
    for (const RECT& piece : pieces)
        if (!piece.IsEmpty()) rest.push_back(piece);
}

bool IsStretched(const PictureView& picture, const RECT& target) {
    return target.Width() != picture.width || target.Height() != picture.height;
}

}  // namespace

HRESULT ShownPicture::ShowGame(const PictureView& picture, const RECT& target,
                               std::span<const RECT> changed) {
    // Parts of a stretched picture have no exact edges in the client area: they are sent whole, and
    // the overlays once more over them.
    const bool stretched = IsStretched(picture, target);
    std::vector<RECT> parts(changed.begin(), changed.end());
    if (!stretched) parts = Uncovered(std::move(parts), CornerOf(target));
    if (!parts.empty()) {
        const HRESULT result = TheHost().Present(picture, target, parts);
        if (result == DDERR_SURFACELOST) ResendSheets(kEverywhere);
        if (Failed(result)) return result;
    }
    game_ = picture;
    kept_ = {};
    gameTarget_ = target;
    if (stretched) ResendSheets(target);
    Update();
    return S_OK;
}

void ShownPicture::ForgetGame(const std::uint32_t* pixels) {
    if (game_.pixels != pixels || pixels == nullptr) return;
    kept_.resize(static_cast<std::size_t>(game_.pitch) * static_cast<std::size_t>(game_.height));
    std::copy_n(pixels, kept_.size(), kept_.begin());
    game_.pixels = kept_.data();
}

void ShownPicture::SetOverlay(Overlay overlay, Canvas canvas, POINT corner) {
    auto& sheet = sheets_[static_cast<std::size_t>(overlay)];
    const RECT place = RectAt(corner, canvas.Size());
    if (sheet && sheet->place != place) RemoveOverlay(overlay);
    sheet.emplace(Sheet{std::move(canvas), place});
}

void ShownPicture::RemoveOverlay(Overlay overlay) {
    auto& sheet = sheets_[static_cast<std::size_t>(overlay)];
    if (!sheet) return;
    const RECT place = sheet->place;
    sheet.reset();
    Expose(place);
}

void ShownPicture::Expose(const RECT& area) {
    exposed_.push_back(area);
    ResendSheets(area);
}

void ShownPicture::SetFullScreen(std::optional<SIZE> pictureSize) {
    fullScreen_ = pictureSize;
    if (!kept_.empty()) game_ = {};
    kept_ = {};
    exposed_.clear();
    ResendSheets(kEverywhere);
}

bool ShownPicture::HasUnsent() const {
    return lost_ || !exposed_.empty() ||
           std::ranges::any_of(sheets_, [](const auto& sheet) { return sheet && !sheet->sent; });
}

void ShownPicture::Update() {
    if (std::exchange(lost_, false) && game_.pixels) exposed_.push_back(gameTarget_);
    std::erase_if(exposed_, [this](const RECT& area) { return SendExposed(area); });
    for (std::size_t i = 0; i < kOverlayCount; ++i) {
        auto& sheet = sheets_[i];
        if (!sheet || sheet->sent) continue;
        sheet->sent = WasSent(SendSheet(*sheet));
        // What lies over a sheet that was sent must be sent after it.
        for (std::size_t above = i + 1; above < kOverlayCount; ++above)
            if (sheets_[above] && !Intersect(sheets_[above]->place, sheet->place).IsEmpty())
                sheets_[above]->sent = false;
    }
}

/// What no overlay covers of some areas, which count from `origin` in the client area.
std::vector<RECT> ShownPicture::Uncovered(std::vector<RECT> areas, POINT origin) const {
    for (const auto& sheet : sheets_) {
        if (!sheet) continue;
        std::vector<RECT> outside;
        for (const RECT& area : areas)
            AddWithout(outside, area, CountedFrom(sheet->place, origin));
        areas = std::move(outside);
    }
    return areas;
}

void ShownPicture::ResendSheets(const RECT& area) {
    for (auto& sheet : sheets_)
        if (sheet && !Intersect(sheet->place, area).IsEmpty()) sheet->sent = false;
}

/// True when nothing of the area is left to send.
bool ShownPicture::SendExposed(const RECT& area) {
    std::vector<RECT> background{area};
    if (game_.pixels) {
        const POINT origin = CornerOf(gameTarget_);
        const RECT ofGame = CountedFrom(Intersect(area, gameTarget_), origin);
        const std::vector<RECT> parts = Uncovered({ofGame}, origin);
        if (!ofGame.IsEmpty() && !parts.empty() && !WasSent(SendGame(parts))) return false;
        background.clear();
        AddWithout(background, area, gameTarget_);
    }
    for (const RECT& part : Uncovered(std::move(background), {0, 0}))
        if (!WasSent(SendBlack(part))) return false;
    return true;
}

HRESULT ShownPicture::SendGame(std::span<const RECT> parts) {
    if (!IsStretched(game_, gameTarget_)) return TheHost().Present(game_, gameTarget_, parts);
    const RECT all{0, 0, game_.width, game_.height};
    ResendSheets(gameTarget_);
    return TheHost().Present(game_, gameTarget_, std::span(&all, 1));
}

HRESULT ShownPicture::SendBlack(const RECT& area) {
    return SendSheet({Canvas(area.Size(), 1), area});
}

HRESULT ShownPicture::SendSheet(const Sheet& sheet) {
    const RECT& place = sheet.place;
    PictureView view = sheet.canvas.View();
    if (!fullScreen_) {
        const RECT all{0, 0, view.width, view.height};
        return TheHost().Present(view, place, std::span(&all, 1));
    }
    // In full screen a picture always fills the whole screen. So the overlay is sent as the changed
    // part of a picture of that size.
    Canvas whole(*fullScreen_, 1);
    whole.Paste(sheet.canvas, {place.left, place.top});
    const RECT part = Intersect(place, {0, 0, fullScreen_->cx, fullScreen_->cy});
    return TheHost().Present(whole.View(), {0, 0, fullScreen_->cx, fullScreen_->cy},
                             std::span(&part, 1));
}

/// True when the host has shown what was sent. When it has lost everything that it showed, all of
/// that must be sent again.
bool ShownPicture::WasSent(HRESULT result) {
    if (result == DDERR_SURFACELOST) {
        lost_ = true;
        ResendSheets(kEverywhere);
    }
    isBroken_ = Failed(result) && result != DDERR_SURFACELOST && result != DDERR_WASSTILLDRAWING;
    return !Failed(result);
}

}  // namespace korvane
