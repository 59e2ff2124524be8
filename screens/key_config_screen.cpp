#include "screens/key_config_screen.h"

#include <algorithm>
#include <cstddef>
#include <optional>

#include "gfx/bitmap_font.h"
#include "gfx/skin.h"
#include "platform/base/virtual_keys.h"
#include "screens/menu_buttons.h"

namespace korvane {
namespace {

constexpr std::array kSheetFiles = {
    "KeyConfig\\alpha1.bmp",
    "KeyConfig\\alpha2.bmp",
    "KeyConfig\\keys1.bmp",
    "KeyConfig\\keys2.bmp",
};
static_assert(kSheetFiles.size() == static_cast<std::size_t>(GlyphSheet::Count));

constexpr int kGlyphColorKey = 2;
constexpr SIZE kGlyph{29, 44};

constexpr std::array kActionNames = {"ROTATE", "DROP", "LEFT", "RIGHT", "PAUSE"};
static_assert(kActionNames.size() == kActionCount);
constexpr std::array<std::int32_t, 2> kNameColumns = {235, 410};
constexpr std::int32_t kFirstNameY = 129;
constexpr std::int32_t kNamePitch = 66;

struct KeyRange {
    std::uint8_t first;
    std::uint8_t last;

    constexpr bool Contains(std::uint8_t key) const { return key >= first && key <= last; }
};

/// The keys that can be bound. Tab and the function keys are among those that cannot: commands and
/// the window manager have them.
constexpr std::array kBindableKeys = {
    KeyRange{VK_BACK, VK_BACK},
    KeyRange{VK_RETURN, VK_RETURN},
    KeyRange{VK_SHIFT, VK_CONTROL},
    KeyRange{VK_SPACE, VK_DOWN},  // Space, Page Up and Down, End, Home, the arrows
    KeyRange{VK_INSERT, VK_DELETE},
    KeyRange{'0', '9'},
    KeyRange{'A', 'Z'},
    KeyRange{VK_NUMPAD0, VK_NUMPAD9},
    KeyRange{VK_OEM_1, VK_OEM_3},  // ; = , - . / `
    KeyRange{VK_OEM_4, VK_OEM_7},  // [ \ ] '
    KeyRange{VK_OEM_102, VK_OEM_102},
};

bool IsBindable(std::uint8_t key) {
    return std::ranges::any_of(kBindableKeys,
                               [key](const KeyRange& range) { return range.Contains(key); });
}

/// Where the glyphs of a run of keys stand, in neighbouring cells of one sheet.
struct GlyphRun {
    KeyRange keys;
    GlyphSheet sheet;
    int firstCell;
};

constexpr GlyphRun OneGlyph(std::uint8_t key, GlyphSheet sheet, int cell) {
    return {{key, key}, sheet, cell};
}

constexpr std::array kGlyphRuns = {
    GlyphRun{{'A', 'T'}, GlyphSheet::LettersAToT, 0},
    GlyphRun{{'U', 'Z'}, GlyphSheet::LettersUToZ, 0},
    GlyphRun{{'0', '9'}, GlyphSheet::DigitsAndArrows, 4},
    GlyphRun{{VK_NUMPAD0, VK_NUMPAD9}, GlyphSheet::DigitsAndArrows, 4},
    OneGlyph(VK_LEFT, GlyphSheet::DigitsAndArrows, 0),
    OneGlyph(VK_DOWN, GlyphSheet::DigitsAndArrows, 1),
    OneGlyph(VK_UP, GlyphSheet::DigitsAndArrows, 2),
    OneGlyph(VK_RIGHT, GlyphSheet::DigitsAndArrows, 3),
    OneGlyph(VK_OEM_PERIOD, GlyphSheet::DigitsAndArrows, 14),
    OneGlyph(VK_OEM_COMMA, GlyphSheet::DigitsAndArrows, 15),
    OneGlyph(VK_OEM_102, GlyphSheet::DigitsAndArrows, 16),
    OneGlyph(VK_OEM_6, GlyphSheet::DigitsAndArrows, 17),
    OneGlyph(VK_OEM_7, GlyphSheet::DigitsAndArrows, 18),
    OneGlyph(VK_OEM_3, GlyphSheet::DigitsAndArrows, 19),
    OneGlyph(VK_INSERT, GlyphSheet::NamedKeys, 0),
    OneGlyph(VK_HOME, GlyphSheet::NamedKeys, 1),
    OneGlyph(VK_PRIOR, GlyphSheet::NamedKeys, 2),
    OneGlyph(VK_DELETE, GlyphSheet::NamedKeys, 3),
    OneGlyph(VK_END, GlyphSheet::NamedKeys, 4),
    OneGlyph(VK_NEXT, GlyphSheet::NamedKeys, 5),
    OneGlyph(VK_BACK, GlyphSheet::NamedKeys, 6),
    OneGlyph(VK_OEM_5, GlyphSheet::NamedKeys, 7),
    OneGlyph(VK_OEM_MINUS, GlyphSheet::NamedKeys, 8),
    OneGlyph(VK_CONTROL, GlyphSheet::NamedKeys, 10),
    OneGlyph(VK_SHIFT, GlyphSheet::NamedKeys, 11),
    OneGlyph(VK_OEM_PLUS, GlyphSheet::NamedKeys, 11),  // one cell serves both
    OneGlyph(VK_OEM_4, GlyphSheet::NamedKeys, 12),
    OneGlyph(VK_OEM_2, GlyphSheet::NamedKeys, 14),
    OneGlyph(VK_OEM_1, GlyphSheet::NamedKeys, 15),
    OneGlyph(VK_RETURN, GlyphSheet::NamedKeys, 19),
};

void DrawGlyph(const GlyphSheets& sheets, std::uint8_t key, POINT at) {
    const auto* run = std::ranges::find_if(
        kGlyphRuns, [key](const GlyphRun& candidate) { return candidate.keys.Contains(key); });
    if (run == kGlyphRuns.end()) return;
    const int cell = run->firstCell + key - run->keys.first;
    sheets[static_cast<std::size_t>(run->sheet)].DrawKeyed(at,
                                                           RectAt({cell * kGlyph.cx, 0}, kGlyph));
}

}  // namespace

KeySlot::KeySlot(const Surface& picture, const GlyphSheets& sheets, Action action, Side side)
    : Button(picture, KeySlotPlace(action, side).x, KeySlotPlace(action, side).y),
      sheets_(sheets),
      action_(action),
      side_(side) {}

void KeySlot::DrawSlot() const {
    Draw();
    if (!IsArmed()) DrawGlyph(sheets_, Key(), {X() + kGlyphInSlot.x, Y() + kGlyphInSlot.y});
}

KeyConfigScreen::KeyConfigScreen()
    : slotPicture_(kKeySlotFile),
      sheets_{Surface(kSheetFiles[0]), Surface(kSheetFiles[1]), Surface(kSheetFiles[2]),
              Surface(kSheetFiles[3])} {
    keyBindings.Load();
    for (Surface& sheet : sheets_)
        sheet.SetColorKey(ColorKey(kGlyphColorKey));
    for (std::size_t i = 0; i < slots_.size(); ++i) {
        const Side side = i % 2 == 0 ? Side::Right : Side::Left;
        slots_[i] =
            std::make_unique<KeySlot>(slotPicture_, sheets_, static_cast<Action>(i / 2), side);
    }
}

void KeyConfigScreen::Draw() const {
    for (const std::size_t side : {IndexOf(Side::Right), IndexOf(Side::Left)}) {
        for (std::size_t action = 0; action < kActionCount; ++action)
            slots_[action * 2 + side]->DrawSlot();
    }
    for (const std::int32_t x : kNameColumns) {
        std::int32_t y = kFirstNameY;
        for (const char* name : kActionNames) {
            theFont->DrawText(name, x, y);
            y += kNamePitch;
        }
    }
}

bool KeyConfigScreen::ClickSlot(std::int32_t x, std::int32_t y) {
    const auto hit = std::ranges::find_if(
        slots_, [x, y](const auto& slot) { return slot->HitTest(x, y, /*toggle=*/false); });
    if (hit == slots_.end() || ArmedSlot()) return false;
    (*hit)->Arm();
    return true;
}

KeySlot* KeyConfigScreen::ArmedSlot() {
    const auto armed =
        std::ranges::find_if(slots_, [](const auto& slot) { return slot->IsArmed(); });
    return armed == slots_.end() ? nullptr : armed->get();
}

bool KeyConfigScreen::CaptureKey(std::uint8_t key) {
    KeySlot* const armed = ArmedSlot();
    if (!armed || !IsBindable(key)) return false;
    armed->Bind(key);
    armed->Disarm();
    return true;
}

bool KeyConfigScreen::DisarmSlot() {
    KeySlot* const armed = ArmedSlot();
    if (armed) armed->Disarm();
    return armed != nullptr;
}

std::vector<const Button*> KeyConfigScreen::Slots() const {
    std::vector<const Button*> slots;
    for (std::size_t action = 0; action < kActionCount; ++action)
        for (const Side side : {Side::Left, Side::Right})
            slots.push_back(slots_[action * 2 + IndexOf(side)].get());
    return slots;
}

void KeyConfigScreen::ReloadPictures() {
    slotPicture_.Load(kKeySlotFile);
    for (std::size_t i = 0; i < sheets_.size(); ++i) {
        sheets_[i].Load(kSheetFiles[i]);
        sheets_[i].SetColorKey(ColorKey(kGlyphColorKey));
    }
}

}  // namespace korvane
