"""Finds music and sound effects in what the program plays."""

import contextlib

from .sounds import RATE, Recording, effect, likeness, music
from .waiting import wait_for

# The least likeness of a sound that counts as heard. Over another sound it is about 0.8; where the
# sound is missing, the likeness stays far lower.
LIKE = 0.7
MENU, GAME, HIGH_SCORES = (f"{screen} START POSITION:" for screen in ("MENU", "GAME", "HIGH SCORE"))
MUSIC_SECONDS = 1
SILENCE = RATE // 2  # frames


class Hearing:
    """The program's sounds and the recording of what it played since it was started."""

    def __init__(self, folder, recording):
        self.folder, self.recording = folder, Recording(recording)

    def tune(self, screen):
        lines = (self.folder / "module.txt").read_text().splitlines()
        entries = dict(zip(lines[0::2], lines[1::2]))
        return music(self.folder / entries["FILENAME:"], int(entries[screen]), MUSIC_SECONDS)

    def start_of_music(self, screen):
        """Waits for the music that begins when the program starts."""
        self.wait_for(f"{screen} music", self.tune(screen), 0)

    def music(self, screen):
        """The music of a screen must begin during this block, or soon afterwards."""
        return self.sound(f"{screen} music", self.tune(screen))

    def effect(self, name):
        """An effect must be heard during this block, or soon afterwards."""
        return self.sound(name, effect(self.folder / f"{name}.wav"))

    @contextlib.contextmanager
    def sound(self, what, sound):
        # The previous step may have made the same sound.
        first = wait_for(f"end of {what} from before", lambda: self.end_without(sound))
        yield
        self.wait_for(what, sound, first)

    def end_without(self, sound):
        """The length of the recording if the sound is not near its end, else none."""
        last = self.recording.length()
        return None if self.has(sound, max(0, last - 2 * len(sound)), last) else last

    def wait_for(self, what, sound, first):
        wait_for(f"{what}, heard", lambda: self.has(sound, first, self.recording.length()))

    def has(self, sound, first, last):
        return likeness(self.recording.part(first, last), sound).max() > LIKE

    def silence(self):
        """Waits until nothing has sounded for a while."""
        def is_silent():
            last = self.recording.length()
            return not self.recording.part(last - SILENCE, last).any()
        wait_for("silence", is_silent)
