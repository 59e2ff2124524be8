"""Plays figures as a person would: looks at the board, chooses turn and place, and drops."""

from .view import BOARD_X, BOARD_Y, CELL, COLUMNS, GAME_KEY, ROWS, TILES
from .waiting import TourFailure, wait_for

SKY = 8  # rows from the top in which only the falling figure may be

# Each figure's four turns, counter-clockwise, as columns and rows from its origin; types 1 to 7.
BAR = ("01 11 21 31", "10 11 12 13")
Z = ("01 11 12 22", "10 01 11 02")
SQUARE = ("01 11 02 12",)
L = ("01 11 21 02", "01 02 03 13", "21 02 12 22", "01 11 12 13")
S = ("11 21 02 12", "00 01 11 12")
J = ("01 11 21 22", "01 11 02 03", "01 02 12 22", "11 12 03 13")
T = ("01 11 21 12", "10 11 21 12", "10 01 11 21", "10 01 11 12")
FIGURES = [[[(int(cell[0]), int(cell[1])) for cell in turn.split()] for turn in turns]
           for turns in (BAR, Z, SQUARE, L, S, J, T)]


def cells_of(view, side):
    """The value of each cell that is not empty, by row and column."""
    tiles = [view.skin.sprite("Game/blocks.bmp", tile, TILES, GAME_KEY) for tile in range(TILES)]
    found = {}
    for row in range(ROWS):
        for column in range(COLUMNS):
            x, y = BOARD_X[side] + CELL * column, BOARD_Y + CELL * row
            value = next((i + 1 for i, tile in enumerate(tiles) if view.picture.shows(tile, x, y)),
                         None)
            if value:
                found[row, column] = value
    return found


def cost_of(stack):
    """How bad a board is: high stacks, holes and an uneven surface count. To complete rows is no
    aim, as a board with tiles on it makes the better picture."""
    tops = [min((row for row, column in stack if column == at), default=ROWS)
            for at in range(COLUMNS)]
    height = sum(ROWS - top for top in tops)
    holes = sum((row, at) not in stack for at, top in enumerate(tops) for row in range(top, ROWS))
    steps = sum(abs(one - other) for one, other in zip(tops, tops[1:]))
    return 5 * height + 8 * holes + 2 * steps


def landed(cells, stack):
    """The cells of a figure after it has fallen on a stack, as (row, column)."""
    while all(row + 1 < ROWS and (row + 1, column) not in stack for row, column in cells):
        cells = [(row + 1, column) for row, column in cells]
    return cells


def best_plan(kind, origin, stack):
    """How often to turn a figure whose origin is in that column, and how far to go then."""
    plans = []
    for turns, shape in enumerate(FIGURES[kind - 1]):
        for shift in range(-COLUMNS, COLUMNS):
            cells = [(row, origin + shift + column) for column, row in shape]
            if all(0 <= column < COLUMNS for _, column in cells):
                cost = cost_of(stack.union(landed(cells, stack)))
                plans.append((cost, turns + abs(shift), turns, shift))
    return min(plans)[2:]


class Planner:
    """Plays one board. Figures must turn counter-clockwise, and fall slowly and row by row."""

    def __init__(self, game, side, keys):
        self.game, self.side, self.keys = game, side, keys

    def look(self):
        return cells_of(self.game.view(), self.side)

    def figure(self):
        """The falling figure's cells, once all four are on the board, and everything that lies."""
        def see():
            cells = self.look()
            figure = sorted(cell for cell in cells if cell[0] < SKY)
            return (figure, cells) if len(figure) == 4 else None
        return wait_for(f"{self.side} figure", see)

    def press(self, *names):
        """Holds each key for some frames, but not so long that it repeats."""
        keys = [self.keys[name] for name in names]
        self.game.screen.xdotool("key", "--clearmodifiers", "--delay", 100, *keys)

    def score(self):
        return self.game.view().score(self.side)

    def play_figure(self):
        figure, cells = self.figure()
        score, kind = self.score(), cells[figure[0]]
        origin = min(column for _, column in figure) - min(x for x, _ in FIGURES[kind - 1][0])
        turns, shift = best_plan(kind, origin, {cell for cell in cells if cell not in figure})
        self.press(*["turn"] * turns, *["right" if shift > 0 else "left"] * abs(shift))
        self.drop(score)

    def drop(self, score):
        for _ in range(5):
            self.press("drop")
            try:
                return wait_for(f"score for the {self.side} figure",
                                lambda: self.score() not in (None, score), seconds=4)
            except TourFailure as failure:
                last = failure  # a busy machine may have missed the key
        raise last
