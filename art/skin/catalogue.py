"""Who paints each picture of a skin. The pictures, their keys and sizes come from the game."""

from typing import Callable, NamedTuple, Optional

from . import boards, columns, fontsheets, invitations, keycaps, tiles, titles, tool
from .buttons import named, signed, started
from .overlays import AMBER, CORAL, WHITE, Words, over
from .plates import LIT, OFF, REST


# Pictures with more pixels than this get a palette.
LARGE = 20000


class Entry(NamedTuple):
    """One picture. One without a key is used as a whole."""

    file: str
    key: Optional[int]
    width: int
    height: int
    paint: Callable

    @property
    def is_large(self):
        """Whether its colours are made fewer, so that its file has a palette."""
        return self.width * self.height > LARGE


DARK = (LIT.ink, LIT.ink)


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
    "Game/pause.bmp": over(REST, Words("PAUSE", "middle", WHITE), emblem="pause"),
    "Game/gameover.bmp": over(REST, Words("GAME", "huge", AMBER), Words("OVER", "huge", AMBER)),
    "Game/looser.bmp": over(OFF, Words("LOSER", "middle", CORAL), emblem="loser"),
    "Game/winner.bmp": over(LIT, Words("WINNER", "huge", DARK), emblem="winner"),
    "Game/join1.bmp": invitations.to_join("F1"),
    "Game/join2.bmp": invitations.to_join("F2"),
    "Game/battleagain.bmp": over(REST, Words("PRESS F3 TO BATTLE AGAIN", "large", AMBER)),

    "menu/logo.bmp": titles.logo,
    "menu/LeftPlayer.bmp": columns.column("LEFT PLAYER", "left"),
    "menu/RightPlayer.bmp": columns.column("RIGHT PLAYER", "right"),

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
    "menu/startbutt.bmp": (started, "START", "play"),
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
    "Game/pause.bmp": (80, 92),
    "Game/gameover.bmp": (142, 92),
    "Game/looser.bmp": (90, 112),
    "Game/winner.bmp": (160, 140),
    "Game/battleagain.bmp": (600, 46),
    "menu/battlebutt.bmp": (200, 36),
    "menu/battlebutt2.bmp": (200, 36),
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
