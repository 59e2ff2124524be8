#include "tools/korvane-skin/checks.h"

namespace korvane {
namespace {

constexpr SIZE kScreen{640, 480};

std::string SizeOf(SIZE size) {
    return Text(size.cx, " x ", size.cy);
}

bool IsLarger(SIZE size, SIZE room) {
    return size.cx > room.cx || size.cy > room.cy;
}

bool IsSmaller(SIZE size, SIZE room) {
    return size.cx < room.cx || size.cy < room.cy;
}

/// Whether one view of a picture fits its place.
void CheckRoom(const PictureRow& row, SIZE view, Report& report) {
    if (IsLarger(view, {kScreen.cx - row.at.x, kScreen.cy - row.at.y})) {
        report.Add(Severity::Error, row.file,
                   Text(SizeOf(view), " leaves the screen and is not drawn at all; keep it within ",
                        SizeOf(row.room)));
    } else if (IsLarger(view, row.room)) {
        report.Add(Severity::Warning, row.file,
                   Text(SizeOf(view), " covers what is beside it; its room is ", SizeOf(row.room)));
    }
}

void CheckExact(const PictureRow& row, SIZE size, Report& report) {
    CheckRoom(row, size, report);
    if (IsSmaller(size, row.room))
        report.Add(
            Severity::Warning, row.file,
            Text(SizeOf(size), " does not fit round what lies in it; make it ", SizeOf(row.room)));
}

void CheckCells(const PictureRow& row, SIZE size, Report& report) {
    const SIZE wanted = row.FileSize();
    const std::string cells = Text(row.cells, " cells of ", SizeOf(row.room));
    if (IsSmaller(size, wanted)) {
        report.Add(Severity::Error, row.file,
                   Text(SizeOf(size), " has no room for ", cells,
                        ", and what it lacks is not drawn; make it ", SizeOf(wanted)));
    } else if (IsLarger(size, wanted)) {
        report.Add(Severity::Warning, row.file,
                   Text(SizeOf(size), " is more than ", cells, "; what is beyond ", SizeOf(wanted),
                        " never shows"));
    }
}

void CheckButton(const CheckedSkin& skin, const PictureRow& row, SIZE size, Report& report) {
    if (size.cx % 2 != 0)
        report.Add(Severity::Error, row.file,
                   Text("two views side by side cannot be ", size.cx,
                        " pixels wide together; make them equally wide"));
    CheckRoom(row, {size.cx / 2, size.cy}, report);
    if (row.standsFor.empty()) return;
    const auto& button = skin.Picture(RowOf(row.standsFor)).bitmap;
    if (button && (button->size.cx != size.cx || button->size.cy != size.cy))
        report.Add(Severity::Error, row.file,
                   Text(SizeOf(size), " is cut like ", ShownName(row.standsFor), ", which is ",
                        SizeOf(button->size), "; make both the same"));
}

void CheckSize(const CheckedSkin& skin, const PictureRow& row, SIZE size, Report& report) {
    switch (row.kind) {
        case PictureKind::Single:
            return CheckRoom(row, size, report);
        case PictureKind::Exact:
            return CheckExact(row, size, report);
        case PictureKind::Button:
            return CheckButton(skin, row, size, report);
        case PictureKind::Cells:
            return CheckCells(row, size, report);
        case PictureKind::Tile:
        case PictureKind::Keys:
            return;
    }
}

}  // namespace

void CheckSizes(const CheckedSkin& skin, Report& report) {
    for (const PictureRow& row : kPictures) {
        const SkinPicture& picture = skin.Picture(row);
        if (picture.isOwn) CheckSize(skin, row, picture.bitmap->size, report);
    }
}

}  // namespace korvane
