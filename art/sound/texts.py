"""The places of the texts and of the sounds, and the parsing of the texts."""

from skin import sources

SOUND, SKINS = sources.ART / "sound", sources.ART.parent / "Skins"


def folders():
    """The folders that hold the texts of a skin, one each, by name."""
    return sorted(path.parent.name for path in SOUND.glob("*/effects.txt"))


def has_tune(folder):
    """Whether a folder has a tune, and not effects alone."""
    return (SOUND / folder / "score.txt").exists()


def audio(skin):
    """Where the sounds of a skin belong; skin is the name that players see."""
    return SKINS / skin / "Audio"


class Mistake(Exception):
    """A fault in a text, described so that its writer can find it."""


def stanzas(folder, name):
    """The stanzas of a text in a folder.

    Each is a pair: the words of its head, and the indented lines below it.
    """
    head, body = None, []
    for line in sources.lines(SOUND / folder / name):
        if line.startswith(" "):
            body.append(line.strip())
            continue
        if head is not None:
            yield head, body
        head, body = line.split(), []
    if head is not None:
        yield head, body


def settings(words):
    """The words "name=value" as a dictionary; a value that is a number becomes one."""
    found = {}
    for word in words:
        name, _, value = word.partition("=")
        try:
            found[name] = float(value)
        except ValueError:
            found[name] = value
    return found


def pairs(words):
    """The words "name value name value" as a dictionary of numbers."""
    return {name: int(value) for name, value in zip(words[::2], words[1::2])}
