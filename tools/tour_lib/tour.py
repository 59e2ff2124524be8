"""What the steps of the tour share."""

from pathlib import Path

from .data_files import DEFAULT_KEYS, Settings
from .game import Game
from .waiting import TourFailure

ROOT = Path(__file__).resolve().parent.parent.parent
PICTURES = ROOT / "build" / "tour"


class Tour:
    """What one step leaves to the next ones."""

    def __init__(self, screen, program, folder):
        self.screen, self.program, self.folder = screen, program, folder
        self.settings = Settings()
        self.keys = DEFAULT_KEYS
        self.shots = 0
        self.game = None
        self.scores = None  # the high scores' numbers, seen on the screen
        self.files = None  # as the first run left them

    def start_program(self):
        self.game = Game(self.screen, self.program, self.folder)

    def data(self, name):
        return self.folder / "data" / name

    def keep_picture(self, name):
        self.save(name, self.screen.grab(*self.game.place))

    def save(self, name, picture):
        self.shots += 1
        file = PICTURES / f"{self.shots:02}-{name}.png"
        picture.save(file)
        print(f"  {file.relative_to(ROOT)}")


def check(what, is_true):
    if not is_true:
        raise TourFailure(what)


def see_menu(tour):
    try:
        tour.game.see("menu", lambda view: not view.wrong_buttons(tour.settings))
    except TourFailure as failure:
        wrong = ", ".join(tour.game.view().wrong_buttons(tour.settings))
        raise TourFailure(f"{failure}; {tour.settings} is not what these show: {wrong}") from None
