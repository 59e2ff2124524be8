"""Installs the build into a folder and looks at what stands there. usage: install_test.py BUILD"""

import configparser
import fnmatch
import os
import re
import struct
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

BUILD = sys.argv.pop()
ROOT = Path(__file__).resolve().parents[2]
COMPLETE = """source "$1"; COMP_WORDS=("${@:2}"); COMP_CWORD=$(($# - 2))
_korvane_skin; printf '%s\\n' "${COMPREPLY[@]}" """


def patterns(file):
    return file.read_text().split()


def items(page, kind):
    """The words of a kind that a manual explains in lists."""
    return {word for line in page.splitlines() if line.startswith(".It ")
            for word in re.findall(kind + r" (\w+)", line)}


class InstalledTree(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        temporary = tempfile.TemporaryDirectory()
        cls.addClassCleanup(temporary.cleanup)
        place = Path(temporary.name).resolve()
        subprocess.run(["cmake", "--install", BUILD], check=True, stdout=subprocess.DEVNULL,
                       env=os.environ | {"DESTDIR": str(place / "a place")})
        # The programs find what belongs to them by the way from where they are.
        cls.prefix = (place / "a place").rename(place / "moved")
        cls.programs = next(path.parent for path in cls.prefix.rglob("korvane-skin")
                            if os.access(path, os.X_OK))
        cls.game = cls.folder_of("Skins")
        cls.share = cls.folder_of("applications")

    @classmethod
    def folder_of(cls, name):
        return next(cls.prefix.rglob(name)).parent

    def setUp(self):
        temporary = tempfile.TemporaryDirectory()
        self.addCleanup(temporary.cleanup)
        self.place = Path(temporary.name).resolve()
        self.home = self.place / "home"

    def start(self, program, *arguments):
        environment = os.environ | {"HOME": str(self.home), "SDL_VIDEODRIVER": "x11"}
        for name in ("XDG_DATA_HOME", "DISPLAY"):
            environment.pop(name, None)
        return subprocess.run([self.programs / program, *arguments], env=environment, check=True,
                              capture_output=True, text=True, cwd=self.place)

    def test_answers_at_a_terminal_and_writes_nothing(self):
        (self.place / "data").mkdir()
        version = self.start("korvane", "--version").stdout
        self.assertRegex(version.split("\n")[0], r"^Korvane \d+\.\d+$")
        folders = self.start("korvane", "--help").stdout.split("\n")[-3:-1]
        self.assertEqual(folders, [f"  {self.place}", f"  {self.game}"])
        self.assertEqual(list((self.place / "data").iterdir()), [])
        self.assertFalse(self.home.exists())

    def test_keeps_settings_in_the_home_and_copies_nothing_there(self):
        self.assertIn("There is no display", self.start("korvane").stderr)
        kept = {path.name for path in (self.home / ".local/share/korvane").rglob("*")}
        self.assertEqual(kept, {"data", "menu.dat", "sync.dat"})
        self.assertTrue((self.game / "Skins" / "Original" / "colorkey.bmp").is_file())
        fallback = self.game / "Graphics" / "Original"
        self.assertEqual(fallback.resolve(), self.game / "Skins" / "Original")

    def test_begins_a_skin_in_the_home_and_lends_it_the_original(self):
        skin = self.home / ".local/share/korvane/Skins/Dusk"
        self.assertIn(str(skin), self.start("korvane-skin", "new", "Dusk").stdout)
        (skin / "Letters.bmp").unlink()
        self.assertIn("Letters.bmp", self.start("korvane-skin", "check", skin).stdout)

    def test_tells_desktops_of_the_game(self):
        entry = configparser.ConfigParser()
        entry.read(self.share / "applications" / "korvane.desktop")
        entry = entry["Desktop Entry"]
        self.assertTrue(os.access(self.programs / entry["Exec"], os.X_OK))
        icons = list((self.share / "icons" / "hicolor").glob(f"*/apps/{entry['Icon']}.png"))
        self.assertIn("512x512", {icon.parts[-3] for icon in icons})
        for icon in icons:
            size = "{}x{}".format(*struct.unpack(">II", icon.read_bytes()[16:24]))
            self.assertEqual(size, icon.parts[-3])

    def as_packaged(self, path):
        """Where Debian has what a packager may have put anywhere."""
        for folder, packaged in ((self.programs, "games"), (self.game, "share/games/korvane"),
                                 (self.folder_of("LICENSE"), "share/doc/korvane"),
                                 (self.folder_of("man6"), "share/man"), (self.share, "share")):
            if path.is_relative_to(folder):
                return f"usr/{packaged}/{path.relative_to(folder)}"
        return str(path)

    def test_each_file_is_in_one_package(self):
        debian = ROOT / "packaging" / "debian"
        lists = [pattern for file in (*debian.glob("*.install"), debian / "not-installed")
                 for pattern in patterns(file)]
        used = set()
        for path in self.prefix.rglob("*"):
            if path.is_dir() and not path.is_symlink():
                continue
            packaged = self.as_packaged(path)
            found = [pattern for pattern in lists if fnmatch.fnmatch(packaged, pattern)
                     or packaged.startswith(pattern + "/")]
            self.assertEqual(len(found), 1, f"{packaged} is in the lists {found}")
            used.update(found)
        self.assertEqual(used, set(lists))

    def options(self, *command):
        return set(re.findall(r"--(\w+)", self.start(*command, "--help").stdout))

    def test_manuals_tell_what_the_programs_and_the_readme_tell(self):
        manual = {path.stem: path.read_text() for path in self.prefix.rglob("man?/*")}
        self.assertEqual(items(manual["korvane"], "Fl Fl"), self.options("korvane"))
        told = self.start("korvane-skin", "--help").stdout.partition("Subcommands:\n")[2]
        commands = set(re.findall(r"^  (\w+)", told, re.MULTILINE))
        self.assertEqual(items(manual["korvane-skin"], "Cm"), commands)
        options = set.union(*(self.options("korvane-skin", command) for command in commands),
                            self.options("korvane-skin"))
        self.assertEqual(items(manual["korvane-skin"], "Fl Fl"), options)
        table = (ROOT / "README.md").read_text().partition("| key | does |\n")[2].split("\n\n")[0]
        for row in table.splitlines()[1:]:
            self.assertIn(f"\n.It {row.split('|')[1].strip()}\n", manual["korvane"])

    def test_bash_completes_commands_options_and_folders(self):
        script = self.share / "bash-completion" / "completions" / "korvane-skin"
        original = str(self.game / "Skins" / "Original")
        for words, found in ((["ch"], ["check"]), (["--v"], ["--version"]),
                             (["check", "--s"], ["--strict"]), (["new", ""], [""]),
                             (["sheet", "--original", original[:-3]], [original])):
            completed = subprocess.run(
                ["bash", "-c", COMPLETE, "bash", script, self.programs / "korvane-skin", *words],
                check=True, capture_output=True, text=True)
            self.assertEqual(completed.stdout.splitlines(), found, words)


unittest.main()
