"""korvane-skin, the program for skins: it knows every picture that the game shows, and judges
finished skins."""

import json
import subprocess
from functools import lru_cache

from . import sources

PROGRAM = sources.ART.parent / "build" / "korvane-skin"


def _run(*arguments):
    if not PROGRAM.exists():
        raise FileNotFoundError(f"{PROGRAM} is missing; ./play --build-only builds it")
    return subprocess.run([PROGRAM, *arguments], capture_output=True, text=True, check=False)


@lru_cache(maxsize=None)
def catalogue():
    """The pictures and buttons of the game, and the least contrast of text."""
    return json.loads(_run("catalogue", "--json").stdout)


def check(skin):
    """Raises ValueError with all that is wrong in the finished pictures of a skin."""
    told = _run("check", sources.results(skin))
    faults = [line for line in told.stdout.splitlines()[:-1] if not line.startswith("note ")]
    if faults or told.stderr:
        raise ValueError("\n".join([f"{skin} is not as it should be:", *faults, told.stderr]))
