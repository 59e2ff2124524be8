"""Steps through the menu, its sound, the window's menu, the key configuration and the credits."""

from .buttons import SLOTS
from .data_files import DEFAULT_KEYS, LEFT, RIGHT, RIGHT_PAUSE
from .hearing import MENU
from .tour import check, see_menu

BOUND_KEYS = DEFAULT_KEYS.replace(b"P", b"O")
TITLE_MAIN = (20, -10)  # in the window's menu bar, above the picture


def open_menu(picture):
    def step(tour):
        tour.start_program()
        tour.game.see_start()
        see_menu(tour)
        tour.keep_picture(picture)
        tour.hearing.start_of_music(MENU)
    return step


def open_menu_without_sound(tour):
    tour.start_program_without_sound()
    tour.game.see_start()
    see_menu(tour)
    tour.keep_picture("menu-without-sound")


def choose_two_players(tour):
    tour.game.click_button("TwoPlayers")
    tour.settings.players = 2
    see_menu(tour)


def choose_settings(tour):
    tour.game.click_button("LeftMedium")
    tour.settings.difficulty[LEFT] = 1
    see_menu(tour)
    tour.game.click_button("RightClockwise")
    tour.settings.clockwise[RIGHT] = True
    see_menu(tour)
    tour.game.click_button("Quakes")
    tour.settings.quakes = False
    see_menu(tour)


def choose_battle(tour):
    tour.game.click_button("Battle")
    tour.settings.battle = True
    see_menu(tour)


def choose_one_player(tour):
    tour.game.click_button("OnePlayer")
    tour.settings.players, tour.settings.battle = 1, False  # alone nobody can battle
    see_menu(tour)


def switch_music_off(tour):
    tour.game.click_button("Music")
    tour.settings.music = False
    see_menu(tour)
    tour.hearing.silence()


def switch_music_on(tour):
    with tour.hearing.music(MENU):
        tour.game.click_button("Music")
        tour.settings.music = True
        see_menu(tour)


def show_frame_rate(tour):
    """Opens a popup with the mouse. Two of its items have the letter that is pressed."""
    game = tour.game
    check("There is a frame rate at the start", game.view().frame_rate() is None)
    game.click(*TITLE_MAIN)
    game.see("popup under the mouse", lambda view: view.has_popup())
    tour.keep_picture("window-menu")
    game.press("h")
    game.press("Return")
    game.see("frame rate", lambda view: view.frame_rate() and not view.has_popup())
    tour.keep_picture("frame-rate")


def hide_frame_rate(tour):
    """Opens the popup with its letter."""
    tour.game.press("alt+m")
    tour.game.see("popup by its letter", lambda view: view.has_popup())
    tour.keep_picture("window-menu-by-letter")
    tour.game.press("h")
    tour.game.press("Return")
    tour.game.see("no frame rate",
                  lambda view: view.frame_rate() is None and not view.has_popup())
    see_menu(tour)


def choose_difficulty_by_arrows(tour):
    """Goes from the first item of the right player's popup to the third, and back to the second."""
    tour.game.press("alt+r")
    tour.game.see("right player's popup", lambda view: view.has_popup())
    tour.game.press("Down", "Down", "Down", "Up", "Return")
    tour.settings.difficulty[RIGHT] = 1
    see_menu(tour)
    tour.keep_picture("menu-for-battle")


def open_key_configuration(tour):
    tour.game.click_button("ConfigureKeys")
    tour.game.see("keys", lambda view: view.has_button("KeyConfigBack")
                  and view.slots_show(tour.keys))


def bind_pause_key(tour):
    tour.game.click_button(SLOTS[RIGHT_PAUSE])
    tour.game.see("slot that waits for a key", lambda view: view.slot_is_armed(RIGHT_PAUSE)
                  and view.has_button("KeyConfigBack", enabled=False))
    tour.keep_picture("slot-armed")
    tour.game.press("o")
    tour.keys = BOUND_KEYS
    tour.game.see("new key", lambda view: view.has_button("KeyConfigBack")
                  and view.slots_show(tour.keys))
    tour.keep_picture("key-bound")


def close_key_configuration(tour):
    tour.game.click_button("KeyConfigBack")
    see_menu(tour)


def read_credits(tour):
    tour.game.click_button("About")
    tour.game.see("credits", lambda view: view.has_button("CreditsBack")
                  and view.skin.shows_text(view.picture, "PROGRAMMING", 225, 196, view.skin.WIDE))
    tour.keep_picture("credits")
    tour.game.click_button("CreditsBack")
    see_menu(tour)
