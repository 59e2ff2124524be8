#include "app/dialogs/sfx_dialog.h"

#include <array>

#include "app/state/settings.h"
#include "platform/dialogs/dialog_items.h"
#include "res/dialog_ids.h"
#include "screens/menu_screen.h"

namespace korvane {
namespace {

struct SfxEvent {
    DialogItem box;
    std::uint8_t bit;
};

constexpr std::array kEvents = {
    SfxEvent{kItemSfxMenuButtons, kSfxMenuButtons},     SfxEvent{kItemSfxRowsDone, kSfxRowsDone},
    SfxEvent{kItemSfxLevelChange, kSfxLevelChange},     SfxEvent{kItemSfxRotate, kSfxRotate},
    SfxEvent{kItemSfxFigureLanding, kSfxFigureLanding},
};

void ShowSettings(HDLG dialog) {
    for (const SfxEvent& event : kEvents)
        CheckDlgButton(dialog, event.box, (theSettings.sfxMask & event.bit) != 0);
    CheckDlgButton(dialog, kItemSfxEnabled, theSettings.soundEffects);
}

void TakeSettings(HDLG dialog) {
    theSettings.sfxMask = 0;
    for (const SfxEvent& event : kEvents)
        if (IsDlgButtonChecked(dialog, event.box)) theSettings.sfxMask |= event.bit;
    const bool enabled = IsDlgButtonChecked(dialog, kItemSfxEnabled);
    if (enabled == theSettings.soundEffects) return;
    theMenuScreen->ToggleSfxButton();
    theSettings.soundEffects = enabled;
}

}  // namespace

bool SfxDlg(HDLG dialog, std::uint32_t message, WPARAM wParam, LPARAM /*lParam*/) {
    if (message == WM_INITDIALOG) {
        ShowSettings(dialog);
        return true;
    }
    if (message != WM_COMMAND) return false;
    const std::uint16_t button = LOWORD(wParam);
    if (button != IDOK && button != IDCANCEL) return false;
    if (button == IDOK) TakeSettings(dialog);
    EndDialog(dialog, 1);
    return true;
}

}  // namespace korvane
