"""What the game shows at one moment: its menu, its boards, its high scores."""

import numpy

from .buttons import SLOTS
from .pictures import Skin

PAPER_COLOUR = bytes.fromhex("262d42")  # of dialogs and popups
FOCUS_COLOUR, DARK = (255, 220, 80), (0, 0, 0)
NEED_SOUND = {"Music", "SoundEffects"}

# The boards' insides: ten columns of 16 pixels, twenty-two rows.
CELL, COLUMNS, ROWS = 16, 10, 22
BOARD_X = {"left": 45, "right": 365}
BOARD_Y = 50
STACK_ROWS = 6  # the lowest rows, where tiles may lie; a falling figure is looked for above them
TILES = 8
FIGURES = ("bar", "Z", "square", "L", "S", "J", "T")  # as the tiles stand in their picture
OVERLAYS = {"pause": (40, 144), "looser": (35, 144), "winner": (0, 144), "join1": (0, 132)}
GAME_KEY = 1
SCORE, WINS = (193, 355), (193, 296)

SLOT_GLYPH, SLOT_GLYPH_KEY = (18, 10), 2
ARROWS = {37: 0, 40: 1, 38: 2, 39: 3}

FIRST_SCORE_Y, SCORE_PITCH = 138, 28
TITLE_DEPTH = 100  # of the title; texts lie on the rest of its picture
NAME_X, LINES_X, LEVEL_X, SCORE_X = 64, 272, 393, 496


def glyph_of(key):
    """Where a key's glyph is: the picture, the number of glyphs in it, and the glyph's index."""
    if key in ARROWS:
        return "keys1", 20, ARROWS[key]
    letter = key - ord("A")
    return ("alpha1", 20, letter) if letter < 20 else ("alpha2", 6, letter - 20)


class View:
    """What the game shows at one moment."""

    def __init__(self, picture, skin, buttons):
        self.picture, self.skin, self.buttons = picture, skin, buttons

    def shows(self, name, x, y, **frame):
        return self.picture.shows(self.skin.sprite(name, **frame), x, y)

    def has_button(self, name, pressed=False, enabled=True):
        button = self.buttons[name]
        return self.shows(button.picture if enabled else button.disabledPicture,
                          button.x, button.y, frame=int(pressed), frames=2)

    def has_focus(self, name):
        """Whether the keyboard's frame stands round a button: light between dark lines."""
        button = self.buttons[name]
        sides = [self.picture.part(button.x + 2, button.y - 2, button.width - 4, 4).pixels,
                 self.picture.part(button.x - 2, button.y + 2, 4, button.height - 4)
                 .pixels.swapaxes(0, 1)]
        line = numpy.array([DARK, FOCUS_COLOUR, FOCUS_COLOUR, DARK])[:, None]
        return all((side == line).all() for side in sides)

    def wrong_buttons(self, settings, has_sound):
        """The main menu's buttons that do not look as these settings need."""
        pressed = settings.pressed_buttons()

        def is_enabled(name):
            needs_two = name.startswith("Left") or name == "Battle"
            return ((settings.players == 2 or not needs_two)
                    and (has_sound or name not in NEED_SOUND))
        return [name for name, button in self.buttons.items() if button.view == "menu"
                and not self.has_button(name, name in pressed, is_enabled(name))]

    def has_popup(self):
        """Whether a popup of the window menu is open. Nothing else there has its colour."""
        return any(PAPER_COLOUR * 15 in self.picture.row(y) for y in range(3, 60))

    def has_dialog(self):
        """Whether a dialog is in the middle of the picture."""
        return any(PAPER_COLOUR * 30 in self.picture.row(y) for y in range(200, 260))

    def frame_rate(self):
        return self.skin.number(self.picture, 0, 0)

    def slot_is_armed(self, slot):
        return self.has_button(SLOTS[slot], pressed=True)

    def slots_show(self, keys):
        return all(self.slot_shows(slot, key) for slot, key in enumerate(keys))

    def slot_shows(self, slot, key):
        """For letters and arrows only."""
        sheet, cells, cell = glyph_of(key)
        button = self.buttons[SLOTS[slot]]
        return self.shows(f"KeyConfig/{sheet}.bmp", button.x + SLOT_GLYPH[0],
                          button.y + SLOT_GLYPH[1],
                          frame=cell, frames=cells, key=SLOT_GLYPH_KEY)

    def board(self, side):
        return self.picture.part(BOARD_X[side], BOARD_Y, COLUMNS * CELL, ROWS * CELL)

    def overlay(self, side, name):
        dx, dy = OVERLAYS[name]
        return self.shows(f"Game/{name}.bmp", BOARD_X[side] + dx, BOARD_Y + dy, key=GAME_KEY)

    def offers_battle(self):
        return self.shows("Game/battleagain.bmp", 20, 432, key=GAME_KEY)

    def score(self, side):
        return self.skin.number(self.picture, BOARD_X[side] + SCORE[0], BOARD_Y + SCORE[1])

    def wins(self, side):
        return self.skin.number(self.picture, BOARD_X[side] + WINS[0], BOARD_Y + WINS[1])

    def columns(self, side):
        """The columns that hold tiles in the upper rows, where nothing lies: tiles are bright."""
        rows = self.board(side).pixels[: (ROWS - STACK_ROWS) * CELL : 4].max(axis=2)

        def bright_spots(column):
            return (rows[:, column * CELL + 2 : (column + 1) * CELL : 4] > 110).sum()
        return {column for column in range(COLUMNS) if bright_spots(column) >= 6}

    def figure(self, side):
        """The kind of the falling figure, or none before it has come in. Figures can glide, so a
        tile may begin at any line of pixels."""
        tiles = [self.skin.sprite("Game/blocks.bmp", kind, TILES, GAME_KEY)
                 for kind in range(len(FIGURES))]
        places = ((BOARD_X[side] + column * CELL, BOARD_Y + y)
                  for y in range((ROWS - STACK_ROWS - 1) * CELL) for column in range(COLUMNS))
        return next((figure for x, y in places for figure, tile in zip(FIGURES, tiles)
                     if self.picture.shows(tile, x, y)), None)

    def has_scores(self, can_leave):
        title = self.skin.sprite("HighScore/highscore.bmp").above(TITLE_DEPTH)
        return (self.picture.shows(title, 54, 0)
                and all(self.has_button(name, enabled=can_leave)
                        for name in ("ScoresMenu", "ScoresPlay")))

    def has_name(self, row, name):
        return self.skin.shows_text(self.picture, name, NAME_X, FIRST_SCORE_Y + SCORE_PITCH * row,
                                    Skin.WIDE)

    def has_cursor(self, row, column):
        return self.shows("HighScore/cursor.bmp", NAME_X + Skin.WIDE * column,
                          FIRST_SCORE_Y + SCORE_PITCH * row)

    def numbers(self, row):
        """Lines, level and score of a row."""
        return tuple(self.skin.number(self.picture, x, FIRST_SCORE_Y + SCORE_PITCH * row)
                     for x in (LINES_X, LEVEL_X, SCORE_X))
