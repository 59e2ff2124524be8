#include "platform/window/shown_picture.h"

#include <algorithm>
#include <utility>

namespace korvane {
namespace {

constexpr RECT kEverywhere = {INT16_MIN, INT16_MIN, INT16_MAX, INT16_MAX};

RECT Moved(const RECT& rect, int dx, int dy) {
    return {rect.left + dx, rect.top + dy, rect.right + dx, rect.bottom + dy};
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

ShownPicture& TheShownPicture() {
    static ShownPicture picture;
    return picture;
}

// The game's side. -------------------------------------------------------------------------------

HRESULT ShownPicture::ShowGame(const PictureView& picture, const RECT& target,
                               std::span<const RECT> changed) {
    // A stretched picture's changes have no sharp edges in the client area: it is sent whole where
    // it changed, and the overlays over it once more.
    const bool stretched = IsStretched(picture, target);
    std::vector<RECT> parts(changed.begin(), changed.end());
    if (!stretched) {
        for (RECT& part : parts)
            part = Moved(part, target.left, target.top);
        parts = Uncovered(parts);
        for (RECT& part : parts)
            part = Moved(part, -target.left, -target.top);
    }
    if (!parts.empty()) {
        const HRESULT result = TheHost().Present(picture, target, parts);
        if (result == DDERR_SURFACELOST) ResendSheets(kEverywhere);
        if (Failed(result)) return result;
    }
    game_ = picture;
    gameTarget_ = target;
    if (stretched) ResendSheets(target);
    Update();
    return S_OK;
}

void ShownPicture::ForgetGame(const std::uint32_t* pixels) {
    if (game_.pixels == pixels) game_ = {};
}

// The layer's side. ------------------------------------------------------------------------------

void ShownPicture::Put(Overlay overlay, Canvas canvas, POINT corner) {
    auto& sheet = sheets_[static_cast<std::size_t>(overlay)];
    const SIZE size = canvas.Size();
    const RECT place{corner.x, corner.y, corner.x + size.cx, corner.y + size.cy};
    if (sheet && sheet->place != place) Remove(overlay);
    sheet.emplace(Sheet{std::move(canvas), place});
}

void ShownPicture::Remove(Overlay overlay) {
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
    exposed_.clear();
    ResendSheets(kEverywhere);
}

void ShownPicture::Update() {
    if (std::exchange(lost_, false) && game_.pixels) exposed_.push_back(gameTarget_);
    std::erase_if(exposed_, [this](const RECT& area) { return SendExposed(area); });
    for (std::size_t i = 0; i < kOverlayCount; ++i) {
        auto& sheet = sheets_[i];
        if (!sheet || sheet->sent) continue;
        sheet->sent = !Failed(Note(SendSheet(*sheet)));
        // What lies over a sheet that was sent must be sent after it.
        for (std::size_t above = i + 1; above < kOverlayCount; ++above)
            if (sheets_[above] && !Intersect(sheets_[above]->place, sheet->place).IsEmpty())
                sheets_[above]->sent = false;
    }
}

// Sending. ---------------------------------------------------------------------------------------

std::vector<RECT> ShownPicture::Uncovered(std::span<const RECT> areas) const {
    std::vector<RECT> rest(areas.begin(), areas.end());
    for (const auto& sheet : sheets_) {
        if (!sheet) continue;
        std::vector<RECT> outside;
        for (const RECT& area : rest)
            AddWithout(outside, area, sheet->place);
        rest = std::move(outside);
    }
    return rest;
}

void ShownPicture::ResendSheets(const RECT& area) {
    for (auto& sheet : sheets_)
        if (sheet && !Intersect(sheet->place, area).IsEmpty()) sheet->sent = false;
}

/// True when nothing of the area is left to send.
bool ShownPicture::SendExposed(const RECT& area) {
    std::vector<RECT> background{area};
    if (game_.pixels) {
        const RECT ofGame = Intersect(area, gameTarget_);
        const std::vector<RECT> parts = Uncovered(std::span(&ofGame, ofGame.IsEmpty() ? 0 : 1));
        if (!parts.empty() && Failed(Note(SendGame(parts)))) return false;
        background.clear();
        AddWithout(background, area, gameTarget_);
    }
    for (const RECT& part : Uncovered(background))
        if (Failed(Note(SendBlack(part)))) return false;
    return true;
}

HRESULT ShownPicture::SendGame(std::span<const RECT> clientAreas) {
    if (IsStretched(game_, gameTarget_)) {
        const RECT all{0, 0, game_.width, game_.height};
        ResendSheets(gameTarget_);
        return TheHost().Present(game_, gameTarget_, std::span(&all, 1));
    }
    std::vector<RECT> parts;
    for (const RECT& area : clientAreas)
        parts.push_back(Moved(area, -gameTarget_.left, -gameTarget_.top));
    return TheHost().Present(game_, gameTarget_, parts);
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
    // Full screen knows but one place for a picture, the whole: so the sheet goes there as the
    // changed part of a picture of that size.
    Canvas whole(*fullScreen_, 1);
    whole.Paste(sheet.canvas, {place.left, place.top});
    const RECT part = Intersect(place, {0, 0, fullScreen_->cx, fullScreen_->cy});
    return TheHost().Present(whole.View(), {0, 0, fullScreen_->cx, fullScreen_->cy},
                             std::span(&part, 1));
}

/// Passes on the host's answer. When it has lost everything, all that was shown is due again.
HRESULT ShownPicture::Note(HRESULT result) {
    if (result == DDERR_SURFACELOST) {
        lost_ = true;
        ResendSheets(kEverywhere);
    }
    return result;
}

}  // namespace korvane
