#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <vector>

#include "game/rules/key_bindings.h"
#include "game/rules/side.h"
#include "gfx/button.h"
#include "gfx/surface.h"

namespace korvane {

/// The pictures of keys: strips of 29 x 44 cells, one key a cell.
enum class GlyphSheet : std::uint8_t {
    LettersAToT,
    LettersUToZ,
    DigitsAndArrows,
    NamedKeys,
    Count,
};

using GlyphSheets = std::array<Surface, static_cast<std::size_t>(GlyphSheet::Count)>;

/// The button of one player's key for one action. Its selected look means armed: it waits for the
/// key that is to be bound. Button picture and glyph sheets belong to the screen.
class KeySlot final : public Button {
  public:
    KeySlot(const Surface& picture, const GlyphSheets& sheets, Action action, Side side);

    /// The button, with the key's glyph on it unless it is armed.
    void DrawSlot() const;
    bool IsArmed() const { return IsSelected(); }
    void Arm() { SetSelected(true); }
    void Disarm() { SetSelected(false); }

    std::uint8_t Key() const { return keyBindings.Key(action_, side_); }
    void Bind(std::uint8_t key) const { keyBindings.Bind(action_, side_, key); }

  private:
    const GlyphSheets& sheets_;
    const Action action_;
    const Side side_;
};

/// The key-configuration view of the menu: ten slots, of which one at a time can wait for a key.
class KeyConfigScreen {
  public:
    /// Loads the key bindings as well as the pictures.
    KeyConfigScreen();
    virtual ~KeyConfigScreen() = default;

    void Draw() const;
    /// A press at a point of the frame; true when it armed a slot. While a slot is armed, presses
    /// on slots do nothing.
    bool ClickSlot(std::int32_t x, std::int32_t y);
    /// Binds a pressed key to the armed slot; another slot that had the key takes the armed slot's
    /// old one. False, with nothing changed, when no slot is armed or the key cannot be bound.
    bool CaptureKey(std::uint8_t key);
    bool IsSlotArmed() { return ArmedSlot() != nullptr; }
    /// The armed slot keeps its key; false when none is armed.
    bool DisarmSlot();
    /// All slots, line by line as they stand.
    std::vector<const Button*> Slots() const;
    /// The default keys; an armed slot stays armed.
    void ResetToDefaults() { keyBindings.ResetToDefaults(); }
    void ReloadPictures();

  private:
    KeySlot* ArmedSlot();

    Surface slotPicture_;
    GlyphSheets sheets_;
    /// Action by action, the right player's slot in front of the left player's.
    std::array<std::unique_ptr<KeySlot>, kActionCount * 2> slots_;
};

}  // namespace korvane
