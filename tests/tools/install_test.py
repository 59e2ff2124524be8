"""Installs the build into a folder and looks at what stands there. usage: install_test.py BUILD"""

import configparser
import os
import struct
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

BUILD = sys.argv.pop()


class InstalledTree(unittest.TestCase):
    def setUp(self):
        self.temporary = tempfile.TemporaryDirectory()
        self.addCleanup(self.temporary.cleanup)
        self.place = Path(self.temporary.name).resolve()
        self.home = self.place / "home"
        self.prefix = self.place / "moved"
        subprocess.run(["cmake", "--install", BUILD, "--prefix", self.place / "a place"],
                       check=True, stdout=subprocess.DEVNULL)
        (self.place / "a place").rename(self.prefix)

    def start(self, *arguments):
        environment = os.environ | {"HOME": str(self.home), "SDL_VIDEODRIVER": "x11"}
        for name in ("XDG_DATA_HOME", "DISPLAY"):
            environment.pop(name, None)
        return subprocess.run([self.prefix / "bin" / "korvane", *arguments], env=environment,
                              check=True, capture_output=True, text=True, cwd=self.place)

    def test_answers_at_a_terminal_and_writes_nothing(self):
        (self.place / "data").mkdir()
        self.assertRegex(self.start("--version").stdout.split("\n")[0], r"^Korvane \d+\.\d+$")
        folders = self.start("--help").stdout.split("\n")[-3:-1]
        self.assertEqual(folders, [f"  {self.place}", f"  {self.prefix}/share/korvane"])
        self.assertEqual(list((self.place / "data").iterdir()), [])
        self.assertFalse(self.home.exists())

    def test_keeps_settings_in_the_home_and_copies_nothing_there(self):
        self.assertIn("There is no display", self.start().stderr)
        kept = {path.name for path in (self.home / ".local/share/korvane").rglob("*")}
        self.assertEqual(kept, {"data", "menu.dat", "sync.dat"})
        skins = self.prefix / "share" / "korvane" / "Skins"
        self.assertTrue((skins / "Original" / "colorkey.bmp").is_file())
        fallback = self.prefix / "share" / "korvane" / "Graphics" / "Original"
        self.assertEqual(fallback.resolve(), skins / "Original")

    def test_tells_desktops_of_the_game(self):
        share = self.prefix / "share"
        entry = configparser.ConfigParser()
        entry.read(share / "applications" / "korvane.desktop")
        entry = entry["Desktop Entry"]
        self.assertTrue(os.access(self.prefix / "bin" / entry["Exec"], os.X_OK))
        icons = list((share / "icons" / "hicolor").glob(f"*/apps/{entry['Icon']}.png"))
        self.assertIn("256x256", {icon.parts[-3] for icon in icons})
        for icon in icons:
            size = "{}x{}".format(*struct.unpack(">II", icon.read_bytes()[16:24]))
            self.assertEqual(size, icon.parts[-3])


unittest.main()
