"""The places of the text sources and of the results, and the reading of the sources."""

from pathlib import Path

ART = Path(__file__).resolve().parent.parent
SKINS = ART.parent / "Skins"


def results(skin):
    """The folder that the pictures of a skin go to."""
    return SKINS / skin


def own(skin, name):
    """The path of a source that belongs to one skin."""
    return ART / "skins" / skin / name


def lines(path):
    """The lines of a source without comments and empty lines.

    Indentation is kept, as it has a meaning. A "#" begins a comment only at the start of a line and
    before a space: character grids use it too.
    """
    for line in path.read_text(encoding="ascii").splitlines():
        if line.strip() and not line.startswith("# "):
            yield line.rstrip()


def grids(path):
    """The character grids of a source: a dictionary from the name to a list of rows.

    A name begins with a capital or a digit; the rows below it consist of signs and small letters.
    """
    found = {}
    for line in lines(path):
        if line[0].isupper() or line[0].isdigit():
            rows = found.setdefault(line.split()[0], [])
        else:
            rows.append(line)
    return found
