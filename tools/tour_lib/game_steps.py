"""Steps through a battle, a game alone and the high scores after it."""

from .hearing import GAME, HIGH_SCORES, MENU
from .tour import check, see_menu
from .view import BOARD_X, COLUMNS
from .waiting import TourFailure

LEFT_KEYS = {"left": "a", "right": "d", "drop": "s", "turn": "w", "pause": "t"}
# The pause key is the one that the key configuration has bound.
RIGHT_KEYS = {"left": "Left", "right": "Right", "drop": "Down", "turn": "Up", "pause": "o"}
NAME = "TOUR 7"
BESIDE_BUTTONS = (100, 460)
MOST_SQUARES = 30  # one figure in seven is a square


def start_battle(tour):
    """Without music, so that every effect is heard alone."""
    with tour.hearing.effect("Button"):
        tour.game.click_button("Start")
    tour.game.see("two boards with a figure each",
                  lambda view: all(view.score(side) == 0 and 0 < len(view.columns(side)) <= 4
                                   for side in BOARD_X))
    tour.keep_picture("battle")


def score_of(game, side):
    return game.see(f"{side} score", lambda view: view.score(side) is not None).score(side)


def drop(game, side, keys):
    """Drops a figure and waits until it has landed. By itself it would fall for minutes. The key is
    held, as a key that goes up again within the same frame moves nothing."""
    score = score_of(game, side)
    with game.held(keys["drop"]):
        game.see(f"score for the {side} figure on the ground",
                 lambda view: view.score(side) not in (None, score))


def steer(side, keys):
    def step(tour):
        game = tour.game
        with game.held(keys["left"]):
            game.see(f"{side} figure at the left wall", lambda view: 0 in view.columns(side))
        with game.held(keys["right"]):
            game.see(f"{side} figure at the right wall",
                     lambda view: COLUMNS - 1 in view.columns(side))
        with tour.hearing.effect("Landed"):
            drop(game, side, keys)
    return step


def figure_that_turns(game, side, keys):
    """Returns a view of a figure that looks different when it is turned. A square does not: then a
    new battle brings another figure. The square is dropped before that for its points: that the
    score is 0 again shows that the new battle has begun."""
    for _ in range(MOST_SQUARES):
        view = game.see(f"{side} figure", lambda view: view.figure(side))
        if view.figure(side) != "square":
            return view
        drop(game, side, keys)
        game.press("F3")
        game.see("new battle", lambda view: all(view.score(side) == 0 for side in BOARD_X))
    raise TourFailure(f"{MOST_SQUARES} squares one after the other")


def turn(side, keys):
    """A figure comes in three or four columns wide; turned it is one or two columns wide."""
    def step(tour):
        game = tour.game
        figure_that_turns(game, side, keys)
        game.see(f"{side} figure as it comes", lambda view: len(view.columns(side)) > 2)
        with tour.hearing.effect("Rotate"):
            game.press(keys["turn"])
            game.see(f"{side} figure turned", lambda view: len(view.columns(side)) in (1, 2))
        tour.keep_picture(f"{side}-turned")
    return step


def pause_both(tour):
    """In battle each player's pause key pauses both boards, and resumes both."""
    game = tour.game
    game.press(RIGHT_KEYS["pause"])
    game.see("both boards paused",
             lambda view: all(view.overlay(side, "pause") for side in BOARD_X))
    paused = game.see_rest()
    tour.keep_picture("both-paused")
    game.press(*10 * [RIGHT_KEYS["left"], LEFT_KEYS["right"]])
    rested = game.view()
    check("A paused figure moved",
          all(rested.board(side) == paused.board(side) for side in BOARD_X))
    game.press(LEFT_KEYS["pause"])
    resumed = game.see("no board paused",
                       lambda view: not any(view.overlay(side, "pause") for side in BOARD_X))
    for side in BOARD_X:
        game.see(f"{side} board goes on", lambda view: view.board(side) != resumed.board(side))


def drop_until(tour, what, is_over):
    """Drops one figure after the other on the right board."""
    for _ in range(30):
        score = score_of(tour.game, "right")
        with tour.game.held(RIGHT_KEYS["drop"]):
            view = tour.game.see(f"{what}, or a figure on the ground", lambda view: is_over(view)
                                 or view.score("right") not in (None, score))
        if is_over(view):
            return
    raise TourFailure(f"{what}: not seen after 30 figures")


def lose_battle(tour):
    with tour.hearing.effect("NewLevel"):
        drop_until(tour, "loser, winner and the way to another battle",
                   lambda view: view.overlay("right", "looser") and view.overlay("left", "winner")
                   and view.offers_battle() and view.wins("left") == 1)
    tour.keep_picture("left-has-won")


def back_to_menu(tour):
    tour.game.press("Escape")
    see_menu(tour)


def see_game_alone(tour):
    tour.game.see("a figure on the right board alone",
                  lambda view: view.score("right") == 0 and view.columns("right")
                  and view.overlay("left", "join1"))


def focus(tour, name, *keys):
    tour.game.press(*keys)
    tour.game.see(f"focus on {name}", lambda view: view.has_focus(name))


def choose_one_player_by_arrows(tour):
    focus(tour, "Start", "Tab")
    focus(tour, "OnePlayer", *6 * ["Up"])
    tour.keep_picture("focus-on-one-player")
    tour.game.press("Return")
    tour.settings.players, tour.settings.battle = 1, False
    tour.game.see("left player out of use",
                  lambda view: view.has_button("LeftHard", enabled=False))
    focus(tour, "Start", "Down", "shift+Tab", *6 * ["Down"])


def start_by_keys(tour):
    focus(tour, "Start", "Tab")
    press_start(tour)


def press_start(tour):
    with tour.hearing.music(GAME):
        tour.game.press("space")
    see_game_alone(tour)
    tour.keep_picture("one-player")


def restart(tour):
    drop(tour.game, "right", RIGHT_KEYS)
    tour.game.press("F2")
    tour.game.see("score of a new game", lambda view: view.score("right") == 0)


def lose_alone(tour):
    with tour.hearing.music(HIGH_SCORES):
        drop_until(tour, "high scores after the game",
                   lambda view: view.has_scores(can_leave=False) and row_typed(tour, view) >= 0)


def row_typed(tour, view, column=0):
    """The row with the cursor, -1 for none. Only the tour's own scores can be above a new one."""
    return next((row for row in range(len(tour.scores) + 1) if view.has_cursor(row, column)), -1)


def type_name(tour):
    game = tour.game
    row = row_typed(tour, game.view())
    game.press("t", "o", "u", "r", "x", "BackSpace", "space", "7")
    game.see("typed name",
             lambda view: view.has_name(row, NAME) and view.has_cursor(row, len(NAME)))
    tour.keep_picture("name-typed")
    game.press("Return")
    view = game.see("end of the typing", lambda view: view.has_scores(can_leave=True)
                    and row_typed(tour, view, len(NAME)) < 0)
    numbers = view.numbers(row)
    check(f"These are no numbers of a game: {numbers}",
          None not in numbers and numbers[-1] >= 4)
    tour.scores.insert(row, numbers)


def play_again_by_keys(tour):
    focus(tour, "ScoresPlay", "Tab")
    tour.keep_picture("focus-on-play")
    with tour.hearing.music(GAME):
        tour.game.press("Return")
    see_game_alone(tour)
    with tour.hearing.music(MENU):
        tour.game.press("Escape")
    see_menu(tour)


def leave_scores_by_keys(tour):
    focus(tour, "ScoresMenu", "Tab", "Left")
    with tour.hearing.music(MENU):
        focus(tour, "Start", "Return")
    tour.game.click(*BESIDE_BUTTONS)  # hides the focus
    see_menu(tour)
