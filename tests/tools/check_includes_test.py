#!/usr/bin/env python3
"""Runs tools/check-includes on small trees that each hold one offence, and on one that holds none."""

import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

CHECK = Path(__file__).resolve().parents[2] / "tools" / "check-includes"

GOOD = {
    "platform/host.h": "#include <string>\n",
    "platform/files.cpp": '#include <unistd.h>\n#include "platform/host.h"\n',
    "platform/sdl/keys.h": "#include <SDL_keycode.h>\n",
    "platform/sdl/host.cpp": '#include <chrono>\n#include <SDL.h>\n#include "platform/sdl/keys.h"\n',
    "platform/headless/host.h": '#include "platform/host.h"\n',
    "platform/kernel.h": '#include "platform/host.h"\n',
    "app/settings.h": '#include "platform/kernel.h"\n',
    "gfx/surface.h": '#include "app/settings.h"\n',
    "gfx/font.cpp": "#include <ft2build.h>\n",
    "game/board.cpp": '#include <cstdio>\n#include "game/board.h"\n'
    '#include "gfx/surface.h"\n// fopen( and "app/main.h"\nconst char* text = "fread(";\n',
    "game/board.h": "",
    "screens/menu.h": '#include "game/board.h"\n#include "res/dialogs.h"\n',
    "res/dialogs.h": '#include "platform/kernel.h"\n',
    "app/main.cpp": '#include "screens/menu.h"\n#include "res/dialogs.h"\n',
    "tests/board_test.cpp": '#include <fstream>\n#include "platform/headless/host.h"\n'
    '#include "platform/sdl/keys.h"\n#include <freetype/x.h>\n',
    "tools/korvane-skin/sheet.cpp": '#include <filesystem>\n#include "screens/menu.h"\n'
    '#include "platform/headless/host.h"\n#include "tools/korvane-skin/sheet.h"\n',
    "tools/korvane-skin/sheet.h": "",
    "tests/sheet_test.cpp": '#include "tools/korvane-skin/sheet.h"\n',
    "bench/present.cpp": "#include <SDL.h>\n#include <chrono>\n",
    "build-dev/made.cpp": '#include "nowhere.h"\n',
}

# What is added to the good tree or put in its place, and what the check must say of it.
BAD = [
    ("platform/new.h", '#include "gfx/surface.h"\n', "platform/new.h: includes gfx/surface.h"),
    ("platform/host.h", '#include "platform/sdl/keys.h"\n', "only the link step"),
    ("platform/headless/host.h", '#include "platform/sdl/keys.h"\n', "only the link step"),
    ("app/main.cpp", '#include "platform/headless/host.h"\n', "only the link step"),
    ("app/settings.cpp", '#include "gfx/surface.h"\n', "lies above it"),
    ("app/settings.cpp", '#include "platform/host.h"\n', "not the machine"),
    ("app/settings.h", '#include "app/window.h"\n', "no file of the project"),
    ("gfx/surface.h", '#include "game/board.h"\n', "lies above it"),
    ("game/new.h", '#include "screens/menu.h"\n', "lies above it"),
    ("screens/menu.h", '#include "tests/board_test.cpp"\n', "lies above it"),
    ("res/dialogs.h", '#include "game/board.h"\n', "builds on platform/ alone"),
    ("platform/new.h", '#include "res/dialogs.h"\n', "lies above it"),
    ("game/board.h", "#include <SDL.h>\n", "only platform/sdl/ knows SDL"),
    ("platform/files.cpp", "#include <SDL2/SDL_events.h>\n", "only platform/sdl/ knows SDL"),
    ("tests/other.cpp", "#include <SDL_keycode.h>\n", "only platform/sdl/ knows SDL"),
    ("gfx/other.cpp", "#include <ft2build.h>\n", "includes FreeType, as gfx/font.cpp does"),
    ("game/board.h", "#  include <chrono>\n", "belong to platform/"),
    ("game/board.h", "#include <sys/stat.h>\n", "belong to platform/"),
    ("game/board.h", 'inline auto f = std::fopen ("x", "r");\n', "calls fopen"),
    ("game/board.h", "inline auto now = std::time(nullptr);\n", "calls std::time"),
    ("game/board.h", '#include "game/board.h"\n', "includes itself by way of itself"),
    ("game/board.h", '#include "game/rows.h"\n', "includes itself by way of game/rows.h"),
    ("tools/korvane-skin/sheet.h", '#include "app/main.cpp"\n', "lies above it"),
    ("tools/korvane-skin/sheet.h", '#include "platform/sdl/keys.h"\n', "only the link step"),
    ("tools/korvane-skin/sheet.h", "#include <SDL.h>\n", "only platform/sdl/ knows SDL"),
    ("app/main.cpp", '#include "tools/korvane-skin/sheet.h"\n', "stands by itself"),
    ("other/new.cpp", "", "has no rank"),
]


def run_check(tree):
    with tempfile.TemporaryDirectory() as root:
        for path, text in tree.items():
            file = Path(root, path)
            file.parent.mkdir(parents=True, exist_ok=True)
            file.write_text(text)
        return subprocess.run([sys.executable, CHECK, root], capture_output=True, text=True)


class CheckIncludesTest(unittest.TestCase):
    def test_a_tree_in_order_passes(self):
        result = run_check(GOOD)
        self.assertEqual((result.stdout, result.returncode), ("", 0))

    def test_each_offence_is_named(self):
        for path, text, want in BAD:
            with self.subTest(path=path, text=text):
                rows = {"game/rows.h": '#include "game/board.h"\n'} if "rows.h" in text else {}
                result = run_check(GOOD | rows | {path: text})
                self.assertEqual(result.returncode, 1)
                self.assertIn(want, result.stdout)
                self.assertEqual(result.stdout.count("\n"), 1, result.stdout)


if __name__ == "__main__":
    unittest.main()
