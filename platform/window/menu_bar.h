#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "platform/draw/canvas.h"
#include "platform/host/host.h"
#include "platform/window/menu.h"
#include "platform/window/menu_layout.h"

namespace korvane {

/// Whom a menu bar tells what the user does with it.
class MenuOwner {
  public:
    /// The bar is about to leave its rest and to take the keyboard.
    virtual void OnMenuEntered() = 0;
    /// A popup is about to open: the moment to check and grey its items, or to replace the menu.
    virtual void OnPopupOpening(std::size_t popup) = 0;
    virtual void OnCommandChosen(std::uint16_t command) = 0;

  protected:
    ~MenuOwner() = default;
};

/// A menu bar along the top of the client area, used by mouse and keyboard.
///
/// It is at rest, or its titles have the keyboard, or one popup is open. It does not show itself:
/// its user asks what has changed, and for pictures of it.
class MenuBar {
  public:
    explicit MenuBar(MenuOwner& owner) : owner_(owner) {}

    /// Uses this menu (null: none) from now on, in a client area of this size, which includes the
    /// bar. An open popup closes.
    void Attach(const Menu* menu, SIZE area, int scale);
    void Close();
    bool IsActive() const { return lit_ != kNoEntry; }

    /// Handles an event. True when nobody else may get it; releases of keys go to everybody.
    bool Takes(const HostEvent& event);

    const Menu* Attached() const { return menu_; }
    /// True once after the bar's look has changed; likewise for the popup's, or whether one is
    /// open.
    bool TakeBarChange();
    bool TakePopupChange();
    Canvas PaintBar() const;
    bool IsPopupOpen() const { return popupOpen_; }
    /// Only while a popup is open.
    const RECT& PopupPlace() const { return layout_.place; }
    Canvas PaintOpenPopup() const;

  private:
    enum class Highlight { Nothing, FirstItem };

    bool OnKeyDown(const HostEvent& event);
    bool OnKeyAtRest(const HostEvent& event);
    void OnKeyInUse(const HostEvent& event);
    void OnLetter(std::uint8_t key);
    bool OnPress(POINT at);
    void OnRelease(POINT at);
    void OnMove(POINT at);

    void FocusTitle(std::size_t title);
    void Open(std::size_t popup, Highlight highlight);
    void ClosePopup();
    void StepTitle(int step);
    void StepItem(int step);
    void Light(std::size_t item);
    void Choose(std::size_t item);

    const std::vector<MenuItem>& Items() const { return menu_->popups[lit_].items; }
    std::size_t TitleAt(POINT at) const;
    std::size_t TitleOf(std::uint8_t mnemonic) const;
    std::size_t ItemAt(POINT at) const;

    MenuOwner& owner_;
    const Menu* menu_ = nullptr;
    SIZE area_;
    int scale_ = 1;
    std::vector<RECT> titles_;

    std::size_t lit_ = kNoEntry;      ///< the title in use; none at rest
    bool popupOpen_ = false;          ///< the popup of the title in use
    PopupLayout layout_;              ///< of the open popup
    std::size_t item_ = kNoEntry;     ///< highlighted in the open popup
    std::size_t pointed_ = kNoEntry;  ///< under the pointer when it last moved
    bool pressed_ = false;            ///< the button went down on the menu and is held
    bool altAlone_ = false;           ///< Alt is held, and nothing happened since it went down
    bool barChanged_ = false;
    bool popupChanged_ = false;
};

}  // namespace korvane
