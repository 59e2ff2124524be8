"""The running program: its window, what it shows and what can be pressed there."""

import time

from .buttons import SLOTS, read_buttons
from .pictures import Skin
from .virtual_screen import HEIGHT as SCREEN_HEIGHT
from .virtual_screen import WIDTH as SCREEN_WIDTH
from .waiting import TourFailure, wait_for

WIDTH, HEIGHT = 640, 480
MENU_BAR = 19  # pixels above the picture
# Full screen shows the picture in the middle, as large as whole pixels allow.
FULL_SCREEN_SCALE = min(SCREEN_WIDTH // WIDTH, SCREEN_HEIGHT // HEIGHT)
FULL_SCREEN_PLACE = ((SCREEN_WIDTH - FULL_SCREEN_SCALE * WIDTH) // 2,
                     (SCREEN_HEIGHT - FULL_SCREEN_SCALE * HEIGHT) // 2,
                     FULL_SCREEN_SCALE * WIDTH, FULL_SCREEN_SCALE * HEIGHT)
PAPER_COLOUR = bytes.fromhex("d4d0c8")

NEED_SOUND = {"Music", "SoundEffects"}

# The boards' insides: ten columns of 16 pixels, twenty-two rows.
CELL, COLUMNS, ROWS = 16, 10, 22
BOARD_X = {"left": 45, "right": 365}
BOARD_Y = 50
STACK_ROWS = 6  # that may hold tiles on the ground while a figure is looked for
TILES = 8
FIGURES = ("bar", "Z", "square", "L", "S", "J", "T")  # as the tiles stand in their picture
OVERLAYS = {"pause": (40, 144), "looser": (35, 144), "winner": (5, 144), "join1": (5, 132)}
GAME_KEY = 1
SCORE, WINS = (193, 355), (193, 296)

SLOT_GLYPH, SLOT_GLYPH_KEY = (18, 10), 2
ARROWS = {37: 0, 40: 1, 38: 2, 39: 3}

FIRST_SCORE_Y, SCORE_PITCH = 138, 28
NAME_X, LINES_X, LEVEL_X, SCORE_X = 64, 272, 393, 496


def glyph_of(key):
    """The picture with a key's glyph, how many glyphs stand in it, and which one it is."""
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

    # Menu. ----------------------------------------------------------------------------------------

    def has_button(self, name, pressed=False, enabled=True):
        button = self.buttons[name]
        return self.shows(button.picture if enabled else button.disabledPicture,
                          button.x, button.y, frame=int(pressed), frames=2)

    def wrong_buttons(self, settings, has_sound):
        """The main menu's buttons that do not look as the settings want it."""
        pressed = settings.pressed_buttons()

        def is_enabled(name):
            needs_two = name.startswith("Left") or name == "Battle"
            return ((settings.players == 2 or not needs_two)
                    and (has_sound or name not in NEED_SOUND))
        return [name for name, button in self.buttons.items() if button.view == "menu"
                and not self.has_button(name, name in pressed, is_enabled(name))]

    def has_popup(self):
        """Whether a popup of the window menu is open: its paper has a colour of its own."""
        return any(PAPER_COLOUR * 15 in self.picture.row(y) for y in range(3, 60))

    def has_dialog(self):
        """Whether one stands in the middle of the picture."""
        return any(PAPER_COLOUR * 30 in self.picture.row(y) for y in range(200, 260))

    def frame_rate(self):
        return self.skin.number(self.picture, 0, 0)

    # Key configuration. ---------------------------------------------------------------------------

    def slot_is_armed(self, slot):
        return self.has_button(SLOTS[slot], pressed=True)

    def slots_show(self, keys):
        return all(self.slot_shows(slot, key) for slot, key in enumerate(keys))

    def slot_shows(self, slot, key):
        """Letters and arrows only."""
        sheet, cells, cell = glyph_of(key)
        button = self.buttons[SLOTS[slot]]
        return self.shows(f"KeyConfig/{sheet}.bmp", button.x + SLOT_GLYPH[0],
                          button.y + SLOT_GLYPH[1],
                          frame=cell, frames=cells, key=SLOT_GLYPH_KEY)

    # Game. ----------------------------------------------------------------------------------------

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
        """The kind of the falling figure; none before it has come in. It can glide, so that its
        tiles may begin at any line."""
        tiles = [self.skin.sprite("Game/blocks.bmp", kind, TILES, GAME_KEY)
                 for kind in range(len(FIGURES))]
        places = ((BOARD_X[side] + column * CELL, BOARD_Y + y)
                  for y in range((ROWS - STACK_ROWS - 1) * CELL) for column in range(COLUMNS))
        return next((figure for x, y in places for figure, tile in zip(FIGURES, tiles)
                     if self.picture.shows(tile, x, y)), None)

    # High scores. ---------------------------------------------------------------------------------

    def has_scores(self, can_leave):
        return (self.shows("HighScore/highscore.bmp", 54, 0)
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


class Game:
    """The running program, its folder and its window."""

    def __init__(self, screen, program, folder, environment, skin="Original"):
        self.screen, self.folder = screen, folder
        self.buttons = read_buttons(program.with_name("korvane-skin"))
        self.wear(skin)
        self.process = screen.start([program], environment, cwd=folder)
        self.window = self.place = None
        self.fills_screen = False
        self.has_sound = True

    def wear(self, skin):
        """The program shows this skin from now on."""
        self.skin = Skin(self.folder / "Skins" / skin)

    def see_window(self, title):
        self.window = self.wait_for(f"window titled {title}", lambda: self.screen.xdotool(
            "search", "--onlyvisible", "--name", f"^{title}$"))
        self.wait_for("keyboard focus", lambda: self.window == self.screen.xdotool(
            "getwindowfocus", "-f"))

    def see_box(self, title):
        """Returns the picture of a message box that stands alone as the window."""
        self.see_window(title)
        return self.wait_for(f"box titled {title}", self.finds_box)

    def finds_box(self):
        place = self.screen.place_of(self.window)
        if not place:
            return None
        picture = self.screen.grab(*place)
        lowest = picture.row(picture.height - 4)
        return picture if lowest.count(PAPER_COLOUR) > 0.9 * picture.width else None

    def see_start(self):
        self.see_window("Korvane")
        self.wait_for("menu", self.finds_menu)

    def find_place(self):
        """The window manager can still move a window that has just come up."""
        if not self.fills_screen:
            self.place = self.screen.place_of(self.window) or self.place

    def finds_menu(self):
        self.find_place()
        return (self.place and self.place[2:] == (WIDTH, MENU_BAR + HEIGHT)
                and self.view().has_button("Start"))

    def view(self):
        if self.fills_screen:
            picture = self.screen.grab(*FULL_SCREEN_PLACE).shrunk(FULL_SCREEN_SCALE)
        else:
            picture = self.screen.grab(*self.place).part(0, MENU_BAR, WIDTH, HEIGHT)
        return View(picture, self.skin, self.buttons)

    def wait_for(self, what, condition):
        def check():
            if self.process.poll() is not None:
                raise TourFailure(f"{what}: the program ended with {self.process.returncode}")
            return condition()
        return wait_for(what, check)

    def see(self, what, condition):
        """Returns the first view that a condition is true of."""
        def check():
            view = self.view()
            if condition(view):
                return view
            self.find_place()
            return None
        return self.wait_for(what, check)

    def see_rest(self, seconds=0.2):
        """Returns a view that stayed the same for a while."""
        def check():
            view = self.view()
            time.sleep(seconds)
            return view if self.view().picture == view.picture else None
        return self.wait_for("picture at rest", check)

    def press(self, *keys):
        self.screen.press(*keys)

    def held(self, key):
        return self.screen.held(key)

    def click(self, x, y):
        """Clicks at a point of the picture."""
        if self.fills_screen:
            left, top, *_ = FULL_SCREEN_PLACE
            self.screen.click(left + FULL_SCREEN_SCALE * x, top + FULL_SCREEN_SCALE * y)
        else:
            self.screen.click(self.place[0] + x, self.place[1] + MENU_BAR + y)

    def click_button(self, name):
        button = self.buttons[name]
        self.click(button.x + button.width // 2, button.y + button.height // 2)

    def end(self, what):
        """The program is to end by itself, successfully."""
        wait_for(f"end of the program {what}", lambda: self.process.poll() is not None)
        if self.process.returncode != 0:
            raise TourFailure(f"{what} the program ended with {self.process.returncode}")
