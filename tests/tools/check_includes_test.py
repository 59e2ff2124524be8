#!/usr/bin/env python3
"""Runs tools/check-includes on small trees that each hold one offence, and on one that holds none."""

import json
import os
import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

CHECK = Path(__file__).resolve().parents[2] / "tools" / "check-includes"
COMPILER = os.environ.get("CXX", "c++")

GOOD = {
    "platform/base/types.h": "#include <string>\n",
    "platform/host/host.h": '#include "platform/base/types.h"\n',
    "platform/host/kernel.h": '#include "platform/host/host.h"\n',
    "platform/files/disk.cpp": '#include <unistd.h>\n#include "platform/host/host.h"\n',
    "platform/draw/font.cpp": "#include <ft2build.h>\n",
    "platform/sdl/keys.h": "#include <SDL_keycode.h>\n",
    "platform/sdl/host.cpp": '#include <chrono>\n#include <SDL.h>\n#include "platform/sdl/keys.h"\n',
    "platform/headless/host.h": '#include "platform/host/host.h"\n',
    "app/state/settings.h": '#include "platform/host/kernel.h"\n',
    "gfx/surface.h": '#include "app/state/settings.h"\n',
    "game/rules/board.cpp": '#include <cstdio>\n#include "game/rules/board.h"\n'
    '// fopen( and "app/main.h"\nconst char* text = "fread(";\n',
    "game/rules/board.h": "",
    "game/frame/half.cpp": '#include "game/rules/board.h"\n#include "gfx/surface.h"\n',
    "screens/menu.h": '#include "game/rules/board.h"\n',
    "res/dialogs.h": '#include "platform/base/types.h"\n',
    "app/main.cpp": '#include "screens/menu.h"\n#include "res/dialogs.h"\n',
    "tests/board_test.cpp": '#include <fstream>\n#include "platform/headless/host.h"\n'
    '#include "platform/sdl/keys.h"\n#include <freetype/x.h>\n',
    "tools/korvane-skin/sheet.cpp": '#include <filesystem>\n#include "screens/menu.h"\n'
    '#include "platform/headless/host.h"\n#include "tools/korvane-skin/sheet.h"\n',
    "tools/korvane-skin/sheet.h": "",
    "tests/sheet_test.cpp": '#include "tools/korvane-skin/sheet.h"\n',
    "bench/present.cpp": "#include <SDL.h>\n#include <chrono>\n",
    "obj-here/CMakeCache.txt": "",
    "obj-here/made.cpp": '#include "nowhere.h"\n',
}

# What is added to the good tree or put in its place, and what the check must say of it.
BAD = [
    ("platform/draw/new.h", '#include "gfx/surface.h"\n', "platform/draw/ does not know gfx/"),
    ("platform/base/types.h", '#include "platform/draw/font.cpp"\n', "does not know platform/draw"),
    ("platform/host/host.h", '#include "platform/sdl/keys.h"\n', "only the link step"),
    ("platform/headless/host.h", '#include "platform/sdl/keys.h"\n', "only the link step"),
    ("app/main.cpp", '#include "platform/headless/host.h"\n', "only the link step"),
    ("app/state/settings.cpp", '#include "gfx/surface.h"\n', "app/state/ does not know gfx/"),
    ("app/state/settings.cpp", '#include "platform/host/host.h"\n', "not the machine"),
    ("app/state/settings.h", '#include "app/window.h"\n', "no file of the project"),
    ("game/rules/board.h", '#include "gfx/surface.h"\n', "game/rules/ does not know gfx/"),
    ("gfx/surface.h", '#include "game/rules/board.h"\n', "does not know game/rules/"),
    ("screens/menu.h", '#include "tests/board_test.cpp"\n', "does not know tests/"),
    ("res/dialogs.h", '#include "game/rules/board.h"\n', "res/ does not know game/rules/"),
    ("game/rules/board.h", "#include <SDL.h>\n", "only platform/sdl/ knows SDL"),
    ("platform/files/disk.cpp", "#include <SDL2/SDL_events.h>\n", "only platform/sdl/ knows SDL"),
    ("tests/other.cpp", "#include <SDL_keycode.h>\n", "only platform/sdl/ knows SDL"),
    ("gfx/other.cpp", "#include <ft2build.h>\n", "includes FreeType, as gfx/other.cpp does"),
    ("game/rules/board.h", "#  include <chrono>\n", "belong to platform/"),
    ("game/rules/board.h", "#include <sys/stat.h>\n", "belong to platform/"),
    ("game/rules/board.h", 'inline auto f = std::fopen ("x", "r");\n', "calls fopen"),
    ("game/rules/board.h", "inline auto now = std::time(nullptr);\n", "calls std::time"),
    ("game/rules/board.h", '#include "game/rules/board.h"\n', "itself by way of itself"),
    ("game/rules/board.h", '#include "game/rules/rows.h"\n', "itself by way of game/rules/rows.h"),
    ("tools/korvane-skin/sheet.h", '#include "app/main.cpp"\n', "does not know app/"),
    ("tools/korvane-skin/sheet.h", '#include "platform/sdl/keys.h"\n', "only the link step"),
    ("tools/korvane-skin/sheet.h", "#include <SDL.h>\n", "only platform/sdl/ knows SDL"),
    ("app/main.cpp", '#include "tools/korvane-skin/sheet.h"\n', "stands by itself"),
    ("other/new.cpp", "", "no room"),
    ("game/new.cpp", "", "no room"),
]

# The files of a program in order: a room needs symbols of itself, of one that it knows, of the
# machine and of a library.
OBJECTS = {
    "platform/host/kernel.cpp": "namespace korvane { void TheHost(); void Ask() { TheHost(); } }",
    "platform/headless/host.cpp": "namespace korvane { void TheHost() {} }",
    "platform/sdl/host.cpp": "namespace korvane { void TheHost() {} }",
    "gfx/surface.cpp": "int Inner(); void Draw() { Inner(); }",
    "gfx/inner.cpp": "int Inner() { return 0; }",
    "game/frame/half.cpp": '#include <cstdio>\nvoid Draw(); void Half() { Draw(); std::puts(""); }',
}
UPWARD = [
    ("game/rules/board.cpp", "void Draw(); void Fall() { Draw(); }",
     "game/rules/board.cpp: needs Draw() of gfx/surface.cpp"),
    ("gfx/inner.cpp", "extern int tops; int Inner() { return tops; }",
     "gfx/inner.cpp: needs tops of game/frame/tops.cpp"),
]


def write(root, tree):
    for path, text in tree.items():
        file = Path(root, path)
        file.parent.mkdir(parents=True, exist_ok=True)
        file.write_text(text)


def check(root, *arguments):
    return subprocess.run([sys.executable, CHECK, root, *arguments], capture_output=True, text=True)


class CheckIncludesTest(unittest.TestCase):
    def setUp(self):
        temporary = tempfile.TemporaryDirectory()
        self.addCleanup(temporary.cleanup)
        self.root = temporary.name

    def run_check(self, tree):
        with tempfile.TemporaryDirectory() as root:
            write(root, tree)
            return check(root)

    def test_a_tree_in_order_passes(self):
        result = self.run_check(GOOD)
        self.assertEqual((result.stdout, result.returncode), ("", 0))

    def test_each_offence_is_named(self):
        for path, text, want in BAD:
            with self.subTest(path=path, text=text):
                rows = {"game/rules/rows.h": '#include "game/rules/board.h"\n'}
                result = self.run_check(GOOD | (rows if "rows.h" in text else {}) | {path: text})
                self.assertEqual(result.returncode, 1)
                self.assertIn(want, result.stdout)
                self.assertEqual(result.stdout.count("\n"), 1, result.stdout)

    @unittest.skipUnless(shutil.which("git"), "there is no git")
    def test_git_tells_what_belongs_to_the_project(self):
        write(self.root, GOOD | {".gitignore": "made/\nobj-here/\n",
                                 "made/new.cpp": '#include "nowhere.h"\n'})
        subprocess.run(["git", "init", "-q", self.root], check=True)
        result = check(self.root)
        self.assertEqual((result.stdout, result.returncode), ("", 0))

    def test_without_git_cmake_tells_what_belongs_to_the_project(self):
        stray = {".pc/fix.patch/app/main.cpp": "", "debian/scratch/made.cpp": ""}
        write(self.root, GOOD | OBJECTS | stray | {"gfx/inner.h": "#include <SDL.h>\n",
                                           "gfx/inner.cpp": '#include "gfx/inner.h"\n'})
        commands = [{"file": os.path.join(self.root, path)} for path in OBJECTS]
        write(self.root, {"obj-here/compile_commands.json": json.dumps(commands)})
        result = check(self.root, "--objects", os.path.join(self.root, "obj-here"))
        self.assertEqual(result.stdout.split(": ", 1)[1].split("\n")[0],
                         "includes <SDL.h>: only platform/sdl/ knows SDL")
        self.assertEqual(result.stdout.count("\n"), 2, result.stdout)  # and that no object is there

    def compile(self, tree):
        write(self.root, tree)
        for path in tree:
            folder, name = os.path.split(path)
            made = Path(self.root, "build", folder, "CMakeFiles", "room.dir", name + ".o")
            made.parent.mkdir(parents=True, exist_ok=True)
            subprocess.run([COMPILER, "-c", Path(self.root, path), "-o", made], check=True)
        return check(self.root, "--objects", os.path.join(self.root, "build"))

    def test_symbols_of_rooms_in_order_pass(self):
        result = self.compile(OBJECTS)
        self.assertEqual((result.stdout, result.returncode), ("", 0))

    def test_a_symbol_from_above_is_named(self):
        for path, text, want in UPWARD:
            with self.subTest(path=path):
                result = self.compile(OBJECTS | {"game/frame/tops.cpp": "int tops = 0;", path: text})
                self.assertEqual(result.returncode, 1)
                self.assertIn(want, result.stdout)

    def test_a_folder_without_objects_is_no_proof(self):
        write(self.root, OBJECTS)
        self.assertIn("no object file", check(self.root, "--objects", self.root).stdout)


if __name__ == "__main__":
    unittest.main()
