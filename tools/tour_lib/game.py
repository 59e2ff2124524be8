"""The running program: its window, and what can be pressed there."""

import time

from .buttons import read_buttons
from .pictures import Skin
from .view import PAPER_COLOUR, View
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
        """Tells what skin the program shows from now on."""
        self.skin = Skin(self.folder / "Skins" / skin)

    def see_window(self, title):
        self.window = self.wait_for(f"window titled {title}", lambda: self.screen.xdotool(
            "search", "--onlyvisible", "--name", f"^{title}$"))
        self.wait_for("keyboard focus", lambda: self.window == self.screen.xdotool(
            "getwindowfocus", "-f"))

    def see_box(self, title):
        """Returns the picture of a message box that has a window of its own."""
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
        """Returns the first view for which a condition holds."""
        def check():
            view = self.view()
            if condition(view):
                return view
            self.find_place()
            return None
        return self.wait_for(what, check)

    def see_rest(self, seconds=0.2):
        """Returns a view once it has stayed the same for a while."""
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

    def end(self, what, expected=0):
        """Waits for the program to end with an exit code (below 0: by that signal)."""
        wait_for(f"end of the program {what}", lambda: self.process.poll() is not None)
        if self.process.returncode != expected:
            raise TourFailure(f"{what} the program ended with {self.process.returncode}")
