"""What the steps of the tour share."""

from pathlib import Path

from .data_files import DEFAULT_KEYS, Settings
from .game import Game
from .hearing import Hearing
from .waiting import TourFailure

ROOT = Path(__file__).resolve().parent.parent.parent
PICTURES = ROOT / "build" / "tour"


class Tour:
    """The state that the steps share."""

    def __init__(self, screen, program, folder):
        self.screen, self.program, self.folder = screen, program, folder
        self.settings = Settings()
        self.keys = DEFAULT_KEYS
        self.shots = 0
        self.game = self.hearing = None
        self.scores = []  # the numbers of the tour's games, as seen in the high scores
        self.files = None  # as the first run left them

    def start_program(self):
        recording = self.folder / "heard.raw"
        self.game = Game(self.screen, self.program, self.folder,
                         {"SDL_AUDIODRIVER": "disk", "SDL_DISKAUDIOFILE": str(recording)},
                         self.settings.skin)
        self.hearing = Hearing(self.game.skin.folder / "Audio", recording)

    def start_program_without_sound(self):
        self.game = Game(self.screen, self.program, self.folder, {"SDL_AUDIODRIVER": "missing"},
                         self.settings.skin)
        self.save("no-sound", self.game.see_box("Error"))
        self.game.press("Return")
        self.game.has_sound = False

    def wear(self, skin):
        """Tells what skin the program shows and plays from now on."""
        self.settings.skin = skin
        self.game.wear(skin)
        self.hearing.folder = self.game.skin.folder / "Audio"

    def data(self, name):
        return self.folder / "data" / name

    def keep_picture(self, name):
        game = self.game
        self.save(name, self.screen.grab_all() if game.fills_screen
                  else self.screen.grab(*game.place))

    def save(self, name, picture):
        self.shots += 1
        file = PICTURES / f"{self.shots:02}-{name}.png"
        picture.save(file)
        print(f"  {file.relative_to(ROOT)}")


def check(what, is_true):
    if not is_true:
        raise TourFailure(what)


def wrong_buttons(tour, view):
    return view.wrong_buttons(tour.settings, tour.game.has_sound)


def see_menu(tour):
    try:
        tour.game.see("menu", lambda view: not wrong_buttons(tour, view))
    except TourFailure as failure:
        wrong = ", ".join(wrong_buttons(tour, tour.game.view()))
        raise TourFailure(f"{failure}; {tour.settings} is not what these show: {wrong}") from None
