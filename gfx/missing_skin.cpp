#include "gfx/missing_skin.h"

#include <cstddef>
#include <string>
#include <vector>

#include "app/state/settings.h"
#include "app/state/skin_presence.h"
#include "gfx/display.h"
#include "platform/draw/canvas.h"
#include "platform/host/kernel.h"

namespace korvane {
namespace {

constexpr SIZE kScreen = {640, 480};
constexpr int kMargin = 32;
constexpr int kLinePitch = 20;

bool IsInsideCharacter(char byte) {
    return (byte & 0xC0) == 0x80;
}

/// Adds a text, in as many lines as its width takes: a path has no blanks to break it at.
void AddBroken(std::vector<std::string>& lines, const std::string& text) {
    lines.emplace_back();
    for (std::size_t i = 0, next = 1; i < text.size(); i = next++) {
        while (next < text.size() && IsInsideCharacter(text[next]))
            ++next;
        const std::string character = text.substr(i, next - i);
        if (TextWidth(lines.back() + character, 1) > kScreen.cx - 2 * kMargin) lines.emplace_back();
        lines.back() += character;
    }
}

std::vector<std::string> Words() {
    std::vector<std::string> lines = {
        "No skin can be read, so the game has neither pictures nor sounds.", ""};
    const std::string& skin = theSettings.skinName;
    AddBroken(lines, "Looked for Skins/Original" +
                         (skin == "Original" ? "" : " and Skins/" + skin) + " in:");
    for (const std::string& folder : GameFiles().Folders())
        AddBroken(lines, folder);
    for (const char* line :
         {"", "Install the game again, or copy its folder Skins there.",
          "Then press Ctrl+Shift+A, choose a skin and press OK.", "", "Alt+F4 ends the game."})
        lines.emplace_back(line);
    return lines;
}

}  // namespace

MissingSkinNotice missingSkinNotice;

void MissingSkinNotice::Refresh() {
    words_ = OffscreenSurface();
    if (!currentDisplay || !currentDisplay->DirectDraw() || IsAnySkinReadable()) return;
    DDSURFACEDESC2 description;
    description.flags = DDSD_CAPS | DDSD_HEIGHT | DDSD_WIDTH;
    description.caps = DDSCAPS_OFFSCREENPLAIN;
    description.width = kScreen.cx;
    description.height = kScreen.cy;
    if (Failed(words_.Create(currentDisplay->DirectDraw(), description))) return;
    HDC context = nullptr;
    if (Failed(words_.Get()->GetDC(context))) return;
    int y = kMargin;
    for (const std::string& line : Words()) {
        TextOutA(context, kMargin, y, line);
        y += kLinePitch;
    }
    words_.Get()->ReleaseDC(context);
}

void MissingSkinNotice::Draw() const {
    if (words_.Get())
        currentDisplay->CopyToBackBuffer(0, 0, words_.Get(), RectAt({}, kScreen),
                                         DDBLTFAST_NOCOLORKEY);
}

}  // namespace korvane
