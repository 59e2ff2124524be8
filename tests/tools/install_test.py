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
STAND_IN = "#!/bin/sh\npwd\nls -d Skins/Original/colorkey.bmp Graphics/Original/colorkey.bmp data\n"


class InstalledTree(unittest.TestCase):
    def setUp(self):
        self.temporary = tempfile.TemporaryDirectory()
        self.addCleanup(self.temporary.cleanup)
        self.home = Path(self.temporary.name, "home")
        self.prefix = Path(self.temporary.name, "a place")
        subprocess.run(["cmake", "--install", BUILD, "--prefix", self.prefix], check=True,
                       stdout=subprocess.DEVNULL)

    def start(self, *arguments):
        environment = os.environ | {"HOME": str(self.home)}
        environment.pop("XDG_DATA_HOME", None)
        return subprocess.run([self.prefix / "bin" / "korvane", *arguments], env=environment,
                              check=True, capture_output=True, text=True,
                              cwd=self.temporary.name).stdout.split("\n")

    def test_answers_at_a_terminal_and_writes_nothing(self):
        Path(self.temporary.name, "data").mkdir()
        self.assertRegex(self.start("--version")[0], r"^Korvane \d+\.\d+$")
        self.assertIn("--version", self.start("--help")[0])
        self.assertEqual(list(Path(self.temporary.name, "data").iterdir()), [])
        self.assertFalse(self.home.exists())

    def test_starts_the_game_in_a_folder_of_the_user(self):
        program = self.prefix / "libexec" / "korvane" / "korvane"
        self.assertEqual(program.read_bytes()[:4], b"\x7fELF")
        program.write_text(STAND_IN)
        folder = self.home / ".local" / "share" / "korvane"
        first = self.start()
        self.assertEqual(Path(first[0]).resolve(), folder.resolve())
        self.assertEqual(len(first), 5, first)
        kept = [folder / "data" / "hs.dat", folder / "Skins" / "Mine" / "Letters.bmp",
                folder / "Skins" / "Original" / "Letters.bmp"]
        for file in kept:
            file.parent.mkdir(exist_ok=True)
            file.write_text("the user's")
        (folder / "Skins" / "Original" / "Numbers.bmp").unlink()
        self.assertEqual(self.start(), first)
        self.assertEqual({file.read_text() for file in kept}, {"the user's"})
        self.assertTrue((folder / "Skins" / "Original" / "Numbers.bmp").exists())

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
