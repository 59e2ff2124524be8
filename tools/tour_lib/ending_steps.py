"""Steps that end the program, and see in a second run what the first one has kept."""

import signal

from .data_files import LOW_SCORES, NAME_BYTES, SLOW_LEVELS, read_score
from .game_steps import NAME
from .menu_steps import close_key_configuration, open_key_configuration
from .tour import check

DATA_FILES = {"menu.dat": 54, "sync.dat": 324, "hs.dat": 260, "keys.dat": 10}


def quit_program(tour):
    # Some were there at the start: only without them is it sure that the program writes them.
    for name in DATA_FILES:
        tour.data(name).unlink(missing_ok=True)
    tour.game.click_button("Quit")
    tour.game.end("after Quit")


def see_data_files(tour):
    for name, size in DATA_FILES.items():
        file = tour.data(name)
        check(f"{name} was not written with {size} bytes",
              file.exists() and file.stat().st_size == size)
    check("menu.dat holds other settings",
          tour.data("menu.dat").read_bytes() == tour.settings.record())
    check("sync.dat holds other levels", tour.data("sync.dat").read_bytes() == SLOW_LEVELS)
    check("keys.dat holds other keys", tour.data("keys.dat").read_bytes() == tour.keys)
    table = tour.data("hs.dat").read_bytes()
    typed = len(tour.scores)
    check("hs.dat does not begin with the new scores",
          [read_score(table, row) for row in range(typed)]
          == [(NAME.ljust(NAME_BYTES - 1), *numbers) for numbers in tour.scores])
    check("hs.dat lacks the scores from before",
          [read_score(table, row) for row in range(typed, 10)]
          == [read_score(LOW_SCORES, row) for row in range(10 - typed)])
    tour.files = {name: tour.data(name).read_bytes() for name in DATA_FILES}


def see_keys_again(tour):
    open_key_configuration(tour)
    tour.keep_picture("key-kept")
    close_key_configuration(tour)


def see_scores_again(tour):
    tour.game.press("ctrl+shift+h")
    tour.game.see("scores of the first run", lambda view: view.has_scores(can_leave=True)
                  and all(view.has_name(row, NAME) and view.numbers(row) == numbers
                          for row, numbers in enumerate(tour.scores)))
    tour.keep_picture("score-kept")


def end_by_signal(tour):
    tour.game.process.send_signal(signal.SIGTERM)
    tour.game.end("after SIGTERM")
    see_same_files(tour)


def end_while_screen_hangs(tour):
    for name in DATA_FILES:
        tour.data(name).unlink()
    with tour.screen.halted():
        # The second signal may come before the first one is taken and be one with it. The program
        # then ends later.
        tour.game.process.send_signal(signal.SIGTERM)
        tour.game.process.send_signal(signal.SIGTERM)
        tour.game.end("after SIGTERM to a program without a screen", -signal.SIGTERM)
    see_same_files(tour)


def see_same_files(tour):
    for name, bytes_before in tour.files.items():
        check(f"{name} is not what the first run left",
              tour.data(name).exists() and tour.data(name).read_bytes() == bytes_before)
