"""Steps through the dialogs and full screen."""

from .hearing import MENU
from .tour import check, see_menu

TITLE_ADVANCED = "Advanced settings"
MOST_COLOURS = 32  # bits per pixel, as the first mode has
ROTATE = 8  # the bit of the sound
NEXT_SKIN = "Daylight"


def open_dialog(tour, *keys):
    tour.game.press(*keys)
    tour.game.see("dialog", lambda view: view.has_dialog())


def change_dialog(tour, *keys):
    before = tour.game.view().picture
    tour.game.press(*keys)
    tour.game.see("change in the dialog", lambda view: view.picture != before)
    tour.game.see_rest()


def leave_dialog(tour, key):
    tour.game.press(key)
    tour.game.see("no dialog", lambda view: not view.has_dialog())


def accept_first_settings(tour):
    """At the first start the settings are a window of their own, which only OK closes."""
    tour.start_program()
    tour.save("first-start", tour.game.see_box(TITLE_ADVANCED))
    tour.game.press("Escape")
    tour.game.see_box(TITLE_ADVANCED)
    tour.game.press("Return")
    tour.settings.asks_at_start = False
    tour.game.see_start()
    tour.hearing.start_of_music(MENU)
    tour.game.press("ctrl+shift+x")
    tour.game.end("after Ctrl+Shift+X")
    tour.settings.take_full_screen(tour.data("menu.dat").read_bytes())


def cancel_advanced_settings(tour):
    open_dialog(tour, "ctrl+shift+a")
    change_dialog(tour, "d", "Tab", "Tab", "Right")
    tour.keep_picture("settings-to-be-cancelled")
    leave_dialog(tour, "Escape")
    see_menu(tour)


def change_advanced_settings(tour):
    """Changes the skin, the mode, the delay and the magnitude, in this order."""
    open_dialog(tour, "alt+s", "d")
    change_dialog(tour, NEXT_SKIN[0].lower(), "Tab", "Home", "Tab", *5 * ["Right"], "Tab", "Right")
    tour.keep_picture("advanced-settings")
    tour.wear(NEXT_SKIN)
    with tour.hearing.music(MENU):
        leave_dialog(tour, "Return")
    tour.settings.drop_delay, tour.settings.drop_magnitude = 5, 16
    tour.settings.full_screen = (MOST_COLOURS, tour.settings.full_screen[1])
    see_menu(tour)
    tour.keep_picture("menu-in-another-skin")


def change_sound_effects(tour):
    """Unchecks the fifth and the last box."""
    open_dialog(tour, "ctrl+shift+s")
    change_dialog(tour, *4 * ["Tab"], "space", "Tab", "space")
    tour.keep_picture("sound-effects")
    leave_dialog(tour, "Return")
    tour.settings.sounds &= ~ROTATE
    tour.settings.sound_effects = False
    see_menu(tour)


def read_about(tour):
    open_dialog(tour, "alt+h", "a")
    tour.keep_picture("about")
    tour.game.press("Escape")
    check("The about box is gone", tour.game.view().has_dialog())
    leave_dialog(tour, "Return")
    see_menu(tour)


def fill_screen(tour):
    tour.game.press("alt+Return")
    tour.game.fills_screen = True
    see_menu(tour)
    tour.game.click_button("Quakes")
    tour.settings.quakes = not tour.settings.quakes
    see_menu(tour)


def cancel_dialog_in_full_screen(tour):
    open_dialog(tour, "ctrl+shift+a")
    tour.keep_picture("full-screen")
    leave_dialog(tour, "Escape")


def leave_full_screen(tour):
    place = tour.game.place
    tour.game.press("alt+Return")
    tour.game.fills_screen = False
    tour.game.see_start()
    tour.game.wait_for(f"window back at {place}",
                       lambda: tour.screen.place_of(tour.game.window) == place)
    see_menu(tour)
