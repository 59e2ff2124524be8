#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>

#include "audio/sound_effect.h"
#include "game/rules/side.h"
#include "gfx/button.h"
#include "gfx/surface.h"
#include "screens/key_config_screen.h"
#include "screens/keyboard_focus.h"
#include "screens/menu_action.h"
#include "screens/menu_buttons.h"

namespace korvane {

/// The graphical main menu: its main view, the credits and the key configuration.
///
/// Each button keeps for itself whether it is selected. The menu reads `theSettings` only when it
/// is made; from then on whoever changes a setting also changes its button
/// (`screens/setting_changes.h`). The two can differ: F1 brings in the left player and leaves the
/// buttons at one player. Buttons and view stay as they are while the game or the high scores show.
class MenuScreen {
  public:
    /// Loads the key bindings and all pictures; the buttons show the settings.
    MenuScreen();
    virtual ~MenuScreen() = default;

    void Draw();
    /// A press at a point of the frame: changes the looks of what was pressed, and in the
    /// key-configuration view arms slots and resets keys. The caller does what the press is for
    /// (`FindMenuPress`).
    MenuAction Click(std::int32_t x, std::int32_t y);

    void ToggleCreditsView();
    void ToggleKeyConfigView();
    bool IsKeyConfigView() const { return keyConfigView_; }
    /// A key press in the key-configuration view; true when a slot was waiting for a key.
    bool OnKeyConfigKey(std::uint8_t key);
    /// The slot that waits for a key keeps the one it has; false when none waits.
    bool DisarmSlot();

    /// What the keyboard presses in the view that shows.
    KeyboardFocus& Focus();
    /// The button that leads from the view that shows to the main view; null in the main view.
    const Button* BackButton() const;

    /// 1 or 2.
    std::uint8_t PlayersFromButtons() const;
    bool IsTimeBased(Side side) const;

    /// Also ends battle mode, which needs two.
    void SelectOnePlayer();
    void SelectTwoPlayers();
    void ToggleMusicButton() { At(MenuButton::Music).Toggle(); }
    void ToggleSfxButton() { At(MenuButton::SoundEffects).Toggle(); }
    void ToggleQuakesButton() { At(MenuButton::Quakes).Toggle(); }
    void ToggleBattleButton() { At(MenuButton::Battle).Toggle(); }
    void ToggleTimeButton(Side side);
    void SetRotationButtons(Side side, bool clockwise);
    /// Levels 0 to 2; any other, as a settings file can hold, changes nothing.
    void SetDifficultyButtons(Side side, std::int32_t level);
    void ReleaseStartButton() { Release(MenuButton::Start); }

    void ReloadPictures();
    /// The sound of a press, from the current skin.
    void LoadButtonSound();

    bool IsSelected(MenuButton button) const { return At(button).IsSelected(); }
    bool IsEnabled(MenuButton button) const { return At(button).IsEnabled(); }

  private:
    using Buttons =
        std::array<std::unique_ptr<Button>, static_cast<std::size_t>(MenuButton::Count)>;

    static Buttons MakeButtons();
    KeyboardFocus MakeMainFocus() const;
    KeyboardFocus MakeKeyConfigFocus() const;
    Button& At(MenuButton button) { return *buttons_[static_cast<std::size_t>(button)]; }
    const Button& At(MenuButton button) const {
        return *buttons_[static_cast<std::size_t>(button)];
    }
    void Select(MenuButton button, bool selected) { At(button).SetSelected(selected); }
    void Release(MenuButton button) { Select(button, false); }
    void ApplySettings();
    void SetPlayerButtons(bool two);
    void SetKeyConfigEnabled(bool enabled);

    MenuAction ClickView(std::int32_t x, std::int32_t y);
    MenuAction ClickMainView(std::int32_t x, std::int32_t y);
    MenuAction ClickKeyConfigView(std::int32_t x, std::int32_t y);
    MenuAction ClickCreditsView(std::int32_t x, std::int32_t y);
    /// Hits and flips a button.
    bool Press(MenuButton button, std::int32_t x, std::int32_t y);
    MenuAction PressReset();

    void DrawButton(MenuButton button) const { At(button).Draw(); }
    void DrawMainView() const;
    void DrawKeyConfigView() const;
    void DrawCreditsView() const;

    KeyConfigScreen keyConfig_;
    Surface logo_;
    Surface leftHeading_;
    Surface rightHeading_;
    Buttons buttons_;
    KeyboardFocus mainFocus_;
    KeyboardFocus keyConfigFocus_;
    KeyboardFocus creditsFocus_;
    std::unique_ptr<SoundEffect> buttonSound_;
    bool creditsView_ = false;
    bool keyConfigView_ = false;
};

/// The one menu; null before the start-up has made it and after the window is gone.
extern std::unique_ptr<MenuScreen> theMenuScreen;

}  // namespace korvane
