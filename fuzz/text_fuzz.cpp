// Text from outside: a pasted one, with keys pressed before and after it, and an entry of the list
// of display modes. The input's first byte says how many keys come before the pasted text; 0xFF
// means an entry.

#include <algorithm>
#include <iterator>
#include <string>
#include <string_view>

#include "app/dialogs/mode_text.h"
#include "fuzz/expect.h"
#include "platform/base/utf8.h"
#include "platform/base/virtual_keys.h"
#include "platform/dialogs/edit_box.h"
#include "platform/headless/headless_host.h"

namespace korvane::fuzz {
namespace {

/// A dialog that hears what an edit box tells it and does nothing.
class NoDialog final : public ControlParent {
    void Changed() override {}
    void Pressed(Control&) override {}
    void Chosen(Control&) override {}
    void Scrolled(Control&, ScrollRequest, int) override {}
    void Disabled(Control&) override {}
};

/// No control characters, nothing but whole characters, and no more bytes than may be typed.
void CheckText(std::string_view text) {
    Expect(text.size() <= EditText::kLimit);
    while (!text.empty()) {
        const char32_t character = TakeCharacter(text);
        Expect(character >= 0x20 && character != 0x7F && character != kReplacement);
    }
}

class EditedBox {
  public:
    EditedBox() { box_.SetPlace({3, 5, 63, 25}, 1); }

    void Press(std::uint8_t key, std::uint8_t modifiers) {
        box_.OnKeyDown({.key = key, .modifiers = modifiers});
        CheckText(box_.Text());
    }

    /// Does what one byte of the input stands for.
    void Do(unsigned byte) {
        constexpr std::uint8_t kKeys[] = {VK_LEFT,   VK_RIGHT, VK_HOME, VK_END, VK_BACK, VK_DELETE,
                                          VK_INSERT, 'A',      'C',     'X',    'V',     VK_F1};
        const unsigned what = byte & 15;
        const int x = static_cast<int>(byte >> 4) * 5;
        if (what < std::size(kKeys)) return Press(kKeys[what], byte >> 4 & 7);
        if (what == 12) box_.OnCharacter(U" a\u00E4\u20AC\U0001F600\x7F\xFFFD\0"[byte >> 4 & 7]);
        if (what == 13) box_.OnPress({x, 10}, byte >> 4 & 1);
        if (what == 14) box_.OnDrag({x, 10});
        if (what == 15) box_.OnTabbedTo();
        CheckText(box_.Text());
    }

    /// What was pasted, copied and pasted again stays as it is.
    void CheckCopies() {
        const std::string text = box_.Text();
        for (const char key : {'A', 'C', 'V'})
            Press(static_cast<std::uint8_t>(key), kModControl);
        Expect(box_.Text() == text);
    }

    void Paint() const {
        Canvas canvas({70, 30}, 1);
        box_.Paint(canvas, {.focused = true});
    }

  private:
    NoDialog dialog_;
    EditBox box_{dialog_, {.kind = ControlKind::Edit}};
};

void TryPaste(std::string_view acts, std::string_view pasted) {
    Headless().SetClipboardText(std::string(pasted));
    EditedBox box;
    for (const char act : acts)
        box.Do(static_cast<unsigned char>(act));
    box.Press('V', kModControl);
    box.CheckCopies();
    box.Paint();
}

void TryModeText(std::string_view entry) {
    const ModeChoice mode = ReadModeText(entry);
    Expect(mode.bitsPerPixel <= INT32_MAX && mode.refreshHz <= INT32_MAX);
    Expect(ReadModeText(ModeText(mode)) == mode);
}

void Try(std::string_view input) {
    if (input.empty()) return;
    const auto first = static_cast<unsigned char>(input.front());
    const std::string_view rest = input.substr(1);
    if (first == 0xFF) return TryModeText(rest);
    const std::size_t acts = std::min<std::size_t>(first % 32, rest.size());
    TryPaste(rest.substr(0, acts), rest.substr(acts));
}

}  // namespace
}  // namespace korvane::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    korvane::fuzz::Try(korvane::fuzz::InputText(data, size));
    return 0;
}
