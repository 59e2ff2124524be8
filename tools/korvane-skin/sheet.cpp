#include "tools/korvane-skin/sheet.h"

#include <algorithm>
#include <cstring>

#include "app/state/settings.h"
#include "platform/draw/typeface.h"
#include "tools/korvane-skin/finding.h"
#include "tools/korvane-skin/png_file.h"
#include "tools/korvane-skin/screens.h"
#include "tools/korvane-skin/skin_text.h"
#include "tools/korvane-skin/stage.h"

namespace korvane {
namespace {

constexpr int kColumns = 3;
constexpr int kGap = 12;
constexpr int kTitleHeight = 40;
constexpr int kCaptionHeight = 22;
constexpr std::uint32_t kPaper = 0x2B2D33;
constexpr std::uint32_t kInk = 0xE8E8E8;

/// The place of a screen on the sheet by its index. Its caption stands above it.
POINT PlaceOf(int index) {
    return {kGap + index % kColumns * (kFrame.cx + kGap),
            kTitleHeight + kCaptionHeight + index / kColumns * (kFrame.cy + kCaptionHeight + kGap)};
}

SIZE SheetSize(int count) {
    const int rows = (count + kColumns - 1) / kColumns;
    return {kGap + kColumns * (kFrame.cx + kGap),
            kTitleHeight + rows * (kFrame.cy + kCaptionHeight + kGap)};
}

void Fill(PixelBuffer& sheet, std::uint32_t colour) {
    for (int y = 0; y < sheet.Size().cy; ++y)
        for (int x = 0; x < sheet.Size().cx; ++x)
            sheet.SetPixel({x, y}, colour);
}

void DrawScreen(PixelBuffer& sheet, const ScreenPicture& screen, POINT at) {
    constexpr auto kRow = static_cast<std::size_t>(kFrame.cx);
    for (int y = 0; y < kFrame.cy; ++y)
        std::memcpy(sheet.At({at.x, at.y + y}),
                    screen.pixels.data() + static_cast<std::size_t>(y) * kRow, kRow * 4);
    TypefaceOf(1).Draw(sheet, {at.x, at.y - 6}, screen.caption, kInk);
}

}  // namespace

bool WriteSheet(const std::string& file) {
    const std::string told = TitleOf(LoadSkinText());
    const std::string title =
        Text("Korvane skin: ", theSettings.skinName, told.empty() ? "" : " - ", told);
    const std::vector<ScreenPicture> screens = DrawScreens();
    if (std::ranges::any_of(screens, [](const auto& screen) { return screen.pixels.empty(); }))
        return false;
    PixelBuffer sheet(SheetSize(static_cast<int>(screens.size())), 4);
    Fill(sheet, kPaper);
    TypefaceOf(2).Draw(sheet, {kGap, kTitleHeight - 10}, title, kInk);
    for (std::size_t i = 0; i < screens.size(); ++i)
        DrawScreen(sheet, screens[i], PlaceOf(static_cast<int>(i)));
    return WritePng(file, sheet.Size(), [&](POINT at) { return sheet.Pixel(at); });
}

}  // namespace korvane
