"""The buttons of all screens, from the game's own table."""

import json
import subprocess
from typing import NamedTuple, Optional

# The key slots in the order of data/keys.dat.
SLOTS = [f"{side}{action}Key" for side in ("Right", "Left")
         for action in ("Rotate", "Drop", "Left", "Right", "Pause")]


class Button(NamedTuple):
    """One that is never disabled has no picture for that."""

    name: str
    view: str
    picture: str
    disabledPicture: Optional[str]
    x: int
    y: int
    width: int
    height: int


def read_buttons(tool):
    """All buttons by their names, as korvane-skin prints them."""
    catalogue = subprocess.run([tool, "catalogue", "--json"], check=True, capture_output=True)
    return {row["name"]: Button(**row) for row in json.loads(catalogue.stdout)["buttons"]}
