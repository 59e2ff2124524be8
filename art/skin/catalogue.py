"""Who paints each picture of a skin. The pictures, their keys and sizes come from the game."""

from typing import Callable, NamedTuple, Optional

from . import boards, fontsheets, keycaps, overlays, tiles, titles, tool
from .buttons import named, signed
from .overlays import AMBER, CORAL, WHITE, Words, over
from .plates import LIT, OFF, REST


class Entry(NamedTuple):
    """One picture. One without a key is used as a whole."""

    file: str
    key: Optional[int]
    width: int
    height: int
    paint: Callable


DARK = (LIT.ink, LIT.ink)


def _join(key):
    """The invitation to a side of the board, with the key that starts it."""
    return over(REST, Words(f"PRESS {key}", "middle", AMBER), Words("TO JOIN", "small", WHITE))


PAINTERS = {
    "Background.bmp": boards.ground,
    "Letters.bmp": fontsheets.capitals,
    "Numbers.bmp": fontsheets.numbers,

    "Game/Background.bmp": boards.half,
    "Game/previewframe.bmp": boards.preview_frame,
    "Game/playboard.bmp": boards.playboard,
    "Game/statisticsframe.bmp": boards.statistics_frame,
    "Game/blocks.bmp": tiles.blocks,
    "Game/statistics.bmp": tiles.bars,
    "Game/pause.bmp": over(REST, Words("PAUSE", "middle", WHITE)),
    "Game/gameover.bmp": over(REST, Words("GAME OVER", "middle", AMBER)),
    "Game/looser.bmp": over(OFF, Words("LOSER", "middle", CORAL)),
    "Game/winner.bmp": over(LIT, Words("***", "stars", DARK), Words("WINNER", "huge", DARK)),
    "Game/join1.bmp": _join("F1"),
    "Game/join2.bmp": _join("F2"),
    "Game/battleagain.bmp": over(REST, Words("PRESS F3 TO BATTLE AGAIN", "large", AMBER)),

    "menu/logo.bmp": titles.logo,
    "menu/LeftPlayer.bmp": titles.heading("LEFT PLAYER"),
    "menu/RightPlayer.bmp": titles.heading("RIGHT PLAYER"),

    "HighScore/highscore.bmp": titles.high_scores,
    "HighScore/cursor.bmp": titles.cursor,

    "KeyConfig/keybuttongrey.bmp": keycaps.slot,
    **{f"KeyConfig/{sheet}.bmp": keycaps.legends(sheet) for sheet in keycaps.LEGENDS},
}
# A button's painter and what stands on it; the same paints its look while it is disabled.
BUTTONS = {
    "menu/1playerbutt.bmp": (named, "1 PLAYER", "one-player"),
    "menu/2playerbutt.bmp": (named, "2 PLAYERS", "two-players"),
    "menu/confbutt.bmp": (named, "KEYS", "keyboard"),
    "menu/aboutbutt.bmp": (named, "ABOUT", "about"),
    "menu/startbutt.bmp": (named, "START", "play"),
    "menu/quakebutt.bmp": (named, "QUAKES", "quake"),
    "menu/quitbutt.bmp": (named, "QUIT", "door"),
    "menu/easybutt.bmp": (named, "EASY", "easy"),
    "menu/mediumbutt.bmp": (named, "MEDIUM", "medium"),
    "menu/hardbutt.bmp": (named, "HARD", "hard"),
    "menu/timebutt.bmp": (named, "TIMED", "clock"),
    "menu/ccwrotbutt.bmp": (signed, "counter-clockwise", 17),
    "menu/cwrotbutt.bmp": (signed, "clockwise", 17),
    "menu/musicbutt.bmp": (named, "MUSIC", "note"),
    "menu/sfxbutt.bmp": (named, "SOUNDS", "speaker"),
    "menu/battlebutt.bmp": (named, "BATTLE", "swords"),
    "menu/backbutt.bmp": (named, "BACK", "back"),
    "menu/resetbutt.bmp": (named, "RESET", "counter-clockwise"),
    "HighScore/menubutt.bmp": (named, "MENU", "list"),
    "HighScore/playButt.bmp": (named, "PLAY", "play"),
}
# The sizes of pictures that need not fill their room.
SIZES = {
    "Background.bmp": (520, 480),
    "Game/previewframe.bmp": (82, 60),
    "Game/statisticsframe.bmp": (82, 66),
    "Game/pause.bmp": (80, 48),
    "Game/gameover.bmp": (142, 48),
    "Game/looser.bmp": (90, 48),
    "Game/winner.bmp": (150, 64),
    "Game/join1.bmp": (150, 64),
    "Game/join2.bmp": (150, 64),
    "Game/battleagain.bmp": (600, 46),
    "menu/logo.bmp": (624, 100),
}


def _painter(file, stands_for):
    if file in PAINTERS:
        return PAINTERS[file]
    painter, *arguments = BUTTONS[stands_for or file]
    return painter(*arguments, not stands_for)


def entries():
    """Every picture of a skin but the one with the keys."""
    for row in tool.catalogue()["pictures"]:
        if row["kind"] != "keys":
            size = SIZES.get(row["file"], (row["width"], row["height"]))
            key = row["key"] and row["key"] - 1
            yield Entry(row["file"], key, *size, _painter(row["file"], row["standsFor"]))
