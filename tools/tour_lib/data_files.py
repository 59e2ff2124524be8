"""The files in which the game remembers things."""

import struct
from dataclasses import dataclass, field

RIGHT, LEFT = 0, 1
NAME_BYTES = 14
FULL_SCREEN_OFFSET = 26  # in data/menu.dat
DIFFICULTIES = ("Easy", "Medium", "Hard")


@dataclass
class Settings:
    """data/menu.dat. Pairs have the right player first."""

    players: int = 1
    difficulty: list = field(default_factory=lambda: [0, 0])
    clockwise: list = field(default_factory=lambda: [False, False])
    quakes: bool = True
    battle: bool = False
    music: bool = True
    sound_effects: bool = True
    scrolling: bool = True
    asks_at_start: bool = False
    drop_delay: int = 0
    full_screen: tuple = (16, 0)  # bits per pixel and refresh rate
    skin: str = "Original"
    sounds: int = 31
    drop_magnitude: int = 8

    def record(self):
        """The bytes of the file. Everything else has its default, except that the score does not
        count up."""
        skin = self.skin.encode() + b"\0"
        return (struct.pack("<Bii", self.players, *self.difficulty)
                + bytes([*self.clockwise, 0, 0])                   # time based
                + bytes([self.music, self.sound_effects, self.quakes, self.battle, 1])  # windowed
                + bytes([0, 1, 1, 0])                              # score, previews, quakes
                + struct.pack("<III", self.drop_delay, *self.full_screen)
                + bytes([1, 1])                                    # statistics
                + struct.pack("<H", len(skin)) + skin
                + bytes([self.asks_at_start, self.scrolling, self.sounds])
                + struct.pack("<i", self.drop_magnitude))

    def take_full_screen(self, record):
        """Takes the full-screen mode from a file: which modes there are depends on the display."""
        self.full_screen = struct.unpack_from("<II", record, FULL_SCREEN_OFFSET)

    def pressed_buttons(self):
        """The buttons of the menu that are pressed with these settings."""
        pressed = {"OnePlayer" if self.players == 1 else "TwoPlayers"}
        for side, name in ((RIGHT, "Right"), (LEFT, "Left")):
            pressed.add(name + DIFFICULTIES[self.difficulty[side]])
            pressed.add(name + ("Clockwise" if self.clockwise[side] else "CounterClockwise"))
        pressed |= {name for name, is_on in (("Music", self.music), ("Quakes", self.quakes),
                                             ("SoundEffects", self.sound_effects),
                                             ("Battle", self.battle)) if is_on}
        return pressed


def score_record(name, lines, level, score):
    """One of the ten rows of data/hs.dat."""
    return struct.pack("<14siii", name.encode(), lines, level, score)


def read_score(table, row):
    """The name, as it is stored up to its end, and the three numbers of a row of data/hs.dat."""
    name, *numbers = struct.unpack_from("<14siii", table, row * (NAME_BYTES + 12))
    return name.split(b"\0")[0].decode("latin-1"), *numbers


# Scores that every game beats.
LOW_SCORES = b"".join(score_record("NOBODY", 0, 0, score) for score in range(10, 0, -1))

# data/keys.dat: turn, drop, left, right and pause of the right player, then of the left one.
DEFAULT_KEYS = bytes([38, 40, 37, 39, ord("P")]) + b"WSADT"
RIGHT_PAUSE = 4  # in the file

# data/sync.dat: a version, then for ten levels the speeds of the three difficulties (milliseconds
# for a row, pixels per second) and when the level begins (figures, seconds). So slow a figure needs
# two minutes to the ground, twice as long as a step may take: what comes down sooner was dropped.
# Only one other level is ever reached.
SLOW_LEVELS = struct.pack("<I", 151) + b"".join(
    struct.pack("<8I", *3 * [2000, 3], figures, 1000) for figures in [0, 3, *8 * [1000]])
