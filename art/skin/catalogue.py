"""Every picture of a skin: its file, its colour key, its size and who paints it."""

from typing import Callable, NamedTuple, Optional

from . import boards, fontsheets, keycaps, overlays, tiles, titles
from .buttons import named, signed
from .overlays import AMBER, CORAL, WHITE, Words, over
from .plates import LIT, OFF, REST


class Entry(NamedTuple):
    """One picture. A picture without a key is used as a whole."""

    file: str
    key: Optional[int]
    width: int
    height: int
    paint: Callable


DARK = (LIT.ink, LIT.ink)
FIRST, SECOND, THIRD = 0, 1, 2
WIDE, NARROW, SCORE = (2 * 118, 36), (2 * 109, 32), (2 * 116, 36)


def _join(key):
    """The invitation to a side of the board, with the key that starts it."""
    return over(REST, Words(f"PRESS {key}", "middle", AMBER), Words("TO JOIN", "small", WHITE))


ROOT = [
    Entry("Background.bmp", None, 520, 480, boards.ground),
    Entry("Letters.bmp", FIRST, 416, 16, fontsheets.capitals),
    Entry("Numbers.bmp", FIRST, 272, 16, fontsheets.numbers),
]

GAME = [
    Entry("Game/Background.bmp", None, 320, 372, boards.half),
    Entry("Game/previewframe.bmp", FIRST, 82, 60, boards.preview_frame),
    Entry("Game/playboard.bmp", FIRST, 218, 372, boards.playboard),
    Entry("Game/statisticsframe.bmp", FIRST, 82, 66, boards.statistics_frame),
    Entry("Game/blocks.bmp", SECOND, 128, 16, tiles.blocks),
    Entry("Game/statistics.bmp", SECOND, 56, 20, tiles.bars),
    Entry("Game/pause.bmp", SECOND, 80, 48, over(REST, Words("PAUSE", "middle", WHITE))),
    Entry("Game/gameover.bmp", SECOND, 142, 48, over(REST, Words("GAME OVER", "middle", AMBER))),
    Entry("Game/looser.bmp", SECOND, 90, 48, over(OFF, Words("LOSER", "middle", CORAL))),
    Entry("Game/winner.bmp", SECOND, 150, 64,
          over(LIT, Words("***", "stars", DARK), Words("WINNER", "huge", DARK))),
    Entry("Game/join1.bmp", SECOND, 150, 64, _join("F1")),
    Entry("Game/join2.bmp", SECOND, 150, 64, _join("F2")),
    Entry("Game/battleagain.bmp", SECOND, 600, 46,
          over(REST, Words("PRESS F3 TO BATTLE AGAIN", "large", AMBER))),
]


def _button(folder, file, size, painter, *arguments, disabled=""):
    """A button, and the look that it has while it is disabled if there is a file for that."""
    yield Entry(f"{folder}/{file}.bmp", FIRST, *size, painter(*arguments))
    if disabled:
        yield Entry(f"{folder}/{disabled}.bmp", FIRST, *size, painter(*arguments, False))


def _menu_buttons():
    for file, size, painter, *arguments in (
            ("1playerbutt", WIDE, named, "1 PLAYER", "one-player"),
            ("2playerbutt", WIDE, named, "2 PLAYERS", "two-players"),
            ("confbutt", WIDE, named, "KEYS", "keyboard"),
            ("aboutbutt", WIDE, named, "ABOUT", "about"),
            ("startbutt", WIDE, named, "START", "play"),
            ("quakebutt", WIDE, named, "QUAKES", "quake"),
            ("quitbutt", WIDE, named, "QUIT", "door")):
        yield from _button("menu", file, size, painter, *arguments)
    for file, size, painter, *arguments in (
            ("easybutt", NARROW, named, "EASY", "easy"),
            ("mediumbutt", NARROW, named, "MEDIUM", "medium"),
            ("hardbutt", NARROW, named, "HARD", "hard"),
            ("timebutt", NARROW, named, "TIMED", "clock"),
            ("ccwrotbutt", (2 * 44, 32), signed, "counter-clockwise", 17),
            ("cwrotbutt", (2 * 44, 32), signed, "clockwise", 17),
            ("musicbutt", WIDE, named, "MUSIC", "note"),
            ("sfxbutt", WIDE, named, "SOUNDS", "speaker"),
            ("battlebutt", WIDE, named, "BATTLE", "swords"),
            ("backbutt", WIDE, named, "BACK", "back"),
            ("resetbutt", WIDE, named, "RESET", "counter-clockwise")):
        yield from _button("menu", file, size, painter, *arguments, disabled=f"{file}2")


MENU = [
    Entry("menu/logo.bmp", FIRST, 624, 100, titles.logo),
    Entry("menu/LeftPlayer.bmp", FIRST, 109, 12, titles.heading("LEFT PLAYER")),
    Entry("menu/RightPlayer.bmp", FIRST, 109, 12, titles.heading("RIGHT PLAYER")),
    *_menu_buttons(),
]

HIGH_SCORE = [
    Entry("HighScore/highscore.bmp", FIRST, 532, 100, titles.high_scores),
    Entry("HighScore/cursor.bmp", FIRST, 16, 18, titles.cursor),
    *_button("HighScore", "menubutt", SCORE, named, "MENU", "list", disabled="menuButt2"),
    *_button("HighScore", "playButt", SCORE, named, "PLAY", "play", disabled="playButt2"),
]

KEY_CONFIG = [
    Entry("KeyConfig/keybuttongrey.bmp", FIRST, 2 * 65, 64, keycaps.slot),
    *(Entry(f"KeyConfig/{sheet}.bmp", THIRD, len(cells) * keycaps.CELL, 44, keycaps.legends(sheet))
      for sheet, cells in keycaps.LEGENDS.items()),
]

ALL = [*ROOT, *GAME, *MENU, *HIGH_SCORE, *KEY_CONFIG]
