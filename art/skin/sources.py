"""Where the text sources and the results lie, and how the text sources are read."""

from pathlib import Path

ART = Path(__file__).resolve().parent.parent
SKIN = ART.parent / "Skins" / "Original"


def lines(name):
    """The lines of a source that say something: no remarks, no empty ones.

    Indentation is kept, for it says what belongs to what; a "#" is a remark only at the start of a
    line and before a space, for the character grids draw with it.
    """
    for line in (ART / name).read_text(encoding="ascii").splitlines():
        if line.strip() and not line.startswith("# "):
            yield line.rstrip()


def grids(name):
    """The character grids of a source: a dictionary from the name to a list of rows."""
    found = {}
    for line in lines(name):
        if set(line) <= {"#", "."}:
            rows.append(line)
        else:
            rows = found.setdefault(line.split()[0], [])
    return found
