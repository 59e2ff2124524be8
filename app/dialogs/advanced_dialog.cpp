#include "app/dialogs/advanced_dialog.h"

#include <algorithm>
#include <array>
#include <string>

#include "app/dialogs/mode_text.h"
#include "app/state/settings.h"
#include "gfx/display.h"
#include "platform/dialogs/dialog_items.h"
#include "platform/host/kernel.h"
#include "res/dialog_ids.h"
#include "screens/skin_reload.h"

namespace korvane {
namespace {

struct Choice {
    DialogItem box;
    bool& (*setting)();
};

constexpr std::array kChoices = {
    Choice{kItemRightPreview, []() -> bool& { return theSettings.preview[0]; }},
    Choice{kItemLeftPreview, []() -> bool& { return theSettings.preview[1]; }},
    Choice{kItemRightStatistics, []() -> bool& { return theSettings.statistics[0]; }},
    Choice{kItemLeftStatistics, []() -> bool& { return theSettings.statistics[1]; }},
    Choice{kItemCountUpScore, []() -> bool& { return theSettings.countUpScore; }},
    Choice{kItemIndividualQuakes, []() -> bool& { return theSettings.individualQuakes; }},
    Choice{kItemScrollingPieces, []() -> bool& { return theSettings.scrollingPieces; }},
};

struct Magnitude {
    DialogItem button;
    std::int32_t pixels;
};

constexpr std::array kMagnitudes = {Magnitude{kItemMagnitude2, 2}, Magnitude{kItemMagnitude4, 4},
                                    Magnitude{kItemMagnitude8, 8}, Magnitude{kItemMagnitude16, 16}};

/// The last position of a scroll bar is a page short of the end of its range, so that the end of
/// its thumb reaches it: a range up to 159 lets the drop delay go up to 150.
constexpr int kLongestDelay = 150;
constexpr int kDelayPage = 10;
constexpr int kDelayRange = kLongestDelay + kDelayPage - 1;

void ShowDelay(HDLG dialog, std::int64_t delay) {
    SetDlgItemText(dialog, kItemDropDelayText, std::to_string(delay));
}

int PositionAfter(ScrollRequest request, int thumb, const SCROLLINFO& bar) {
    switch (request) {
        case SB_LINELEFT:
            return bar.position - 1;
        case SB_LINERIGHT:
            return bar.position + 1;
        case SB_PAGELEFT:
            return bar.position - bar.page;
        case SB_PAGERIGHT:
            return bar.position + bar.page;
        case SB_THUMBTRACK:
            return thumb;
        default:
            return bar.position;
    }
}

/// The text shows the position asked for, up to the end of the range. The bar, whose position OK
/// takes, stops at the longest delay.
void OnScroll(HDLG dialog, WPARAM wParam) {
    const HCTL bar = GetDlgItem(dialog, kItemDropDelay);
    const auto request = static_cast<ScrollRequest>(LOWORD(wParam));
    const int position =
        std::clamp(PositionAfter(request, HIWORD(wParam), GetScrollInfo(bar)), 0, kDelayRange);
    SetScrollInfo(bar, {.mask = SIF_POS, .position = position});
    ShowDelay(dialog, position);
}

void ShowDropSpeed(HDLG dialog) {
    ShowDelay(dialog, theSettings.dropDelayMs);
    const auto position =
        static_cast<int>(std::min<std::uint32_t>(theSettings.dropDelayMs, kDelayRange));
    SetScrollInfo(GetDlgItem(dialog, kItemDropDelay),
                  {.max = kDelayRange, .page = kDelayPage, .position = position});
    for (const Magnitude& magnitude : kMagnitudes)
        CheckDlgButton(dialog, magnitude.button, magnitude.pixels == theSettings.dropMagnitude);
}

bool AddMode(const DDSURFACEDESC2& mode, void* context) {
    const auto list = static_cast<HCTL>(context);
    if (mode.width != kModeWidth || mode.height != kModeHeight) return true;
    const ModeChoice offered{static_cast<std::uint32_t>(mode.format.bits), mode.refreshRate};
    const std::string text = ModeText(offered);
    ListBox_AddString(list, text);
    if (offered == ModeChoice{theSettings.fullscreenBpp, theSettings.fullscreenRefresh})
        ListBox_SetCurSel(list, ListBox_FindStringExact(list, text));
    return true;
}

void ShowModes(HDLG dialog) {
    const HCTL list = GetDlgItem(dialog, kItemDisplayModes);
    ListBox_ResetContent(list);
    currentDisplay->DirectDraw()->EnumDisplayModes(DDEDM_REFRESHRATES, nullptr, list, AddMode);
    if (ListBox_GetCurSel(list) == LB_ERR) ListBox_SetCurSel(list, 0);
}

/// Every folder is a skin but a hidden one and one whose name would be a path or is too long for
/// the settings file.
bool IsSkin(const FolderEntry& entry) {
    return entry.isFolder && !entry.name.starts_with('.') && entry.name.size() <= kSkinNameLimit &&
           entry.name.find('\\') == std::string::npos;
}

/// The list finds names whatever their case. Two skins can have names that differ in nothing else:
/// among them the one spelled exactly so is taken.
int FindSkin(HCTL list, const std::string& name) {
    const int first = ListBox_FindStringExact(list, name);
    for (int entry = first; entry != LB_ERR && !ListBox_GetText(list, entry).empty(); ++entry)
        if (ListBox_GetText(list, entry) == name) return entry;
    return first;
}

void ShowSkins(HDLG dialog) {
    const auto entries = GameFiles().List("Skins");
    if (!entries || entries->empty())
        MessageBox(dialog, "Fatal Error! No skins found!", "Korvane", MB_OK);
    const HCTL list = GetDlgItem(dialog, kItemSkins);
    if (entries)
        for (const FolderEntry& entry : *entries)
            if (IsSkin(entry)) ListBox_AddString(list, entry.name);
    int chosen = FindSkin(list, theSettings.skinName);
    if (chosen == LB_ERR) chosen = FindSkin(list, "Original");
    ListBox_SetCurSel(list, chosen);
}

void Open(HDLG dialog) {
    ShowDropSpeed(dialog);
    ShowModes(dialog);
    for (const Choice& choice : kChoices)
        CheckDlgButton(dialog, choice.box, choice.setting());
    ShowSkins(dialog);
    if (theSettings.showAdvancedAtStart) EnableWindow(GetDlgItem(dialog, IDCANCEL), false);
}

void TakeSkin(HDLG dialog) {
    const HCTL list = GetDlgItem(dialog, kItemSkins);
    const int chosen = ListBox_GetCurSel(list);
    if (chosen != LB_ERR) theSettings.skinName = ListBox_GetText(list, chosen);
}

void TakeMode(HDLG dialog) {
    const HCTL list = GetDlgItem(dialog, kItemDisplayModes);
    const int chosen = ListBox_GetCurSel(list);
    if (chosen == LB_ERR) {
        MessageBox(dialog, "It'll not be possible to play this game in full screen mode!", "Error!",
                   MB_OK);
        theSettings.windowed = true;
        return;
    }
    const ModeChoice mode = ReadModeText(ListBox_GetText(list, chosen));
    theSettings.fullscreenBpp = mode.bitsPerPixel;
    theSettings.fullscreenRefresh = mode.refreshHz;
}

void Accept(HDLG dialog) {
    theSettings.dropDelayMs =
        static_cast<std::uint32_t>(GetScrollInfo(GetDlgItem(dialog, kItemDropDelay)).position);
    for (const Choice& choice : kChoices)
        choice.setting() = IsDlgButtonChecked(dialog, choice.box);
    theSettings.showAdvancedAtStart = false;
    TakeSkin(dialog);
    for (const Magnitude& magnitude : kMagnitudes)
        if (IsDlgButtonChecked(dialog, magnitude.button))
            theSettings.dropMagnitude = magnitude.pixels;
    TakeMode(dialog);
    ReloadSkinGraphics();
    ReloadSkinAudio();
    EndDialog(dialog, 1);
}

}  // namespace

bool AdvancedDlg(HDLG dialog, std::uint32_t message, WPARAM wParam, LPARAM /*lParam*/) {
    switch (message) {
        case WM_INITDIALOG:
            Open(dialog);
            return true;
        case WM_HSCROLL:
            OnScroll(dialog, wParam);
            return true;
        case WM_COMMAND:
            if (LOWORD(wParam) == IDOK) Accept(dialog);
            if (LOWORD(wParam) == IDCANCEL) EndDialog(dialog, 1);
            return LOWORD(wParam) == IDOK || LOWORD(wParam) == IDCANCEL;
        default:
            return false;
    }
}

}  // namespace korvane
