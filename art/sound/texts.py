"""Where the texts and the results of the sounds lie, and how the texts are cut up."""

from skin import sources

AUDIO = sources.SKIN / "Audio"


class Mistake(Exception):
    """Something in a text that cannot be played, said so that its writer finds it."""


def stanzas(name):
    """The stanzas of a text: pairs of the words of the head and the indented lines below it."""
    head, body = None, []
    for line in sources.lines(f"sound/{name}"):
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
