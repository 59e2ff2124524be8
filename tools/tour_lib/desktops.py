"""Desktops that need no monitor: X servers, with and without a window manager, and Wayland
compositors. Each can be pressed keys on, and gives its picture."""

import contextlib
import json
import os
import pwd
import re
import shutil
import subprocess
import tempfile
import time
from pathlib import Path

import numpy

from .pictures import Picture, read_picture
from .waiting import TourFailure, wait_for
from .wayland import WaylandKeyboard

HOLD = 0.06  # seconds that a key is down: longer than a frame
X_NAMES = {"Control": "ctrl", "Alt": "alt", "Shift": "shift"}


class Desktop:
    """What all have in common: processes that end with it, in a folder of its own."""

    needs = ()  # programs
    environment_names = ("DISPLAY", "WAYLAND_DISPLAY", "XDG_RUNTIME_DIR", "SDL_VIDEODRIVER",
                         "GDK_SCALE")

    def __init__(self):
        self.processes = []
        self.environment = {name: value for name, value in os.environ.items()
                            if name not in self.environment_names}
        self.folder = Path(tempfile.mkdtemp(prefix="korvane-desktop-"))

    @classmethod
    def missing(cls):
        return [name for name in cls.needs if shutil.which(name) is None]

    def start(self, command, **options):
        with open(self.folder / "log", "ab") as log:
            process = subprocess.Popen([str(part) for part in command], env=self.environment,
                                       stdout=log, stderr=log, **options)
        self.processes.append(process)
        return process

    def run(self, *command):
        return subprocess.run([str(part) for part in command], env=self.environment,
                              capture_output=True, timeout=20).stdout.decode()

    def close(self):
        for process in reversed(self.processes):
            process.terminate()
            try:
                process.wait(10)
            except subprocess.TimeoutExpired:
                process.kill()
                process.wait()
        shutil.rmtree(self.folder, ignore_errors=True)


class XDesktop(Desktop):
    needs = ("Xvfb", "xdotool", "xprop", "xwininfo")

    def __init__(self, width, height, dpi=96, font_dpi=None, manager=None):
        super().__init__()
        self.width, self.height, self.dpi = width, height, dpi
        self.font_dpi, self.manager = font_dpi, manager

    def open(self):
        reader, writer = os.pipe()
        self.start(["Xvfb", "-displayfd", writer, "-noreset", "-nolisten", "tcp", "-nocursor",
                    "-fbdir", self.folder, "-dpi", self.dpi, "-screen", 0,
                    f"{self.width}x{self.height}x24"], pass_fds=[writer])
        os.close(writer)
        with os.fdopen(reader) as numbers:
            number = numbers.readline().strip()
        if not number:
            raise TourFailure("Xvfb did not start")
        self.environment["DISPLAY"] = f":{number}"
        if self.font_dpi:
            self.run("xprop", "-root", "-f", "RESOURCE_MANAGER", "8s", "-set", "RESOURCE_MANAGER",
                     f"Xft.dpi:\t{self.font_dpi}\n")
        if self.manager:
            ready = self.folder / "ready"
            self.start([self.manager, "--startup", f"touch {ready}"])
            wait_for("window manager", ready.exists)

    def grab(self):
        """The server keeps its screen in a file: a header of big-endian numbers, the colour map,
        the rows of pixels."""
        file = self.folder / "Xvfb_screen0"
        header = numpy.fromfile(file, ">u4", 25)
        header_bytes, row_bytes, colours = (int(header[i]) for i in (0, 12, 19))
        pixels = numpy.memmap(file, numpy.uint8, "r", header_bytes + 12 * colours,
                              (self.height, row_bytes // 4, 4))
        return Picture(numpy.array(pixels[:, : self.width, 2::-1]))

    def place_of(self, title):
        """x, y, width and height of a window without its frame; none if it is not seen."""
        told = self.run("xwininfo", "-name", title)
        values = [re.search(rf"{name}: *(-?\d+)$", told, re.MULTILINE) for name in
                  ("Absolute upper-left X", "Absolute upper-left Y", "Width", "Height")]
        return tuple(int(value[1]) for value in values) if all(values) else None

    def await_focus(self):
        wait_for("keyboard focus", lambda: self.run("xdotool", "getwindowfocus", "getwindowname")
                 .strip() in ("Korvane", "Error"))

    def press(self, *names, hold=HOLD):
        keys = [X_NAMES.get(name, name) for name in names]
        self.run("xdotool", "keydown", *keys)
        time.sleep(hold)
        self.run("xdotool", "keyup", *reversed(keys))


class WaylandDesktop(Desktop):
    """A compositor and a keyboard for it. A superuser runs it as nobody: some refuse the former."""

    def __init__(self):
        super().__init__()
        self.folder.chmod(0o700)
        self.environment |= {"XDG_RUNTIME_DIR": str(self.folder)}
        self.as_user = {}
        if os.getuid() == 0:
            nobody = pwd.getpwnam("nobody")
            os.chown(self.folder, nobody.pw_uid, nobody.pw_gid)
            self.as_user = {"user": nobody.pw_uid, "group": nobody.pw_gid, "extra_groups": []}
        self.keyboard = None

    def socket(self):
        found = [name for name in self.folder.glob("wayland-*") if name.suffix != ".lock"]
        return found[0] if found else None

    def await_socket(self):
        self.environment["WAYLAND_DISPLAY"] = wait_for("compositor", self.socket).name

    def press(self, *names, hold=HOLD):
        self.keyboard.press(*names, hold=hold)


class Sway(WaylandDesktop):
    needs = ("sway", "swaymsg", "grim")

    def __init__(self, width, height, scale=1, tiled=False, xwayland=False):
        super().__init__()
        self.needs_x = xwayland
        self.configuration = [f"xwayland {'force' if xwayland else 'disable'}",
                              "default_border none",
                              f"output HEADLESS-1 resolution {width}x{height} scale {scale}"]
        # The program may run as another user than the server of X, which has to know that first.
        user = pwd.getpwuid(os.getuid()).pw_name
        admit = f"xhost +si:localuser:{user} && " if xwayland else ""
        self.configuration.append(f"exec {admit}printenv DISPLAY > {self.folder}/display")
        if not tiled:
            self.configuration.append("for_window [title=.*] floating enable")

    def open(self):
        file = self.folder / "configuration"
        file.write_text("\n".join(self.configuration) + "\n")
        file.chmod(0o644)
        self.environment |= {"WLR_BACKENDS": "headless", "WLR_LIBINPUT_NO_DEVICES": "1",
                             "WLR_RENDERER": "pixman"}
        self.start(["sway", "-c", file], **self.as_user)
        self.await_socket()
        ipc = wait_for("sway", lambda: next(self.folder.glob("sway-ipc.*"), None))
        self.environment["SWAYSOCK"] = str(ipc)
        wait_for("output", lambda: "HEADLESS-1" in self.run("swaymsg", "-t", "get_outputs"))
        # Without a keyboard the compositor gives nobody the keyboard's focus.
        self.keyboard = WaylandKeyboard(self.folder / self.environment["WAYLAND_DISPLAY"])
        if self.needs_x:
            display = self.folder / "display"
            self.environment["DISPLAY"] = wait_for(
                "XWayland", lambda: display.exists() and display.read_text().strip())
            del self.environment["WAYLAND_DISPLAY"]

    def grab(self):
        file = self.folder / "screen.png"
        environment = self.environment | {"WAYLAND_DISPLAY": self.socket().name}
        subprocess.run(["grim", file], env=environment, check=True, timeout=20)
        return read_picture(file)

    def await_focus(self):
        def is_focused(node):
            if node.get("focused") and node.get("name") == "Korvane":
                return True
            return any(is_focused(child) for child in node["nodes"] + node["floating_nodes"])
        wait_for("keyboard focus",
                 lambda: is_focused(json.loads(self.run("swaymsg", "-t", "get_tree"))))


class WestonWithoutSeat(WaylandDesktop):
    needs = ("weston",)

    def open(self):
        self.start(["weston", "--backend=headless-backend.so", "--use-pixman"], **self.as_user)
        self.await_socket()


class WestonOnX(XDesktop):
    """Weston in a window that fills an X server's screen, from which it has keyboard and mouse."""

    needs = (*XDesktop.needs, "weston")

    def open(self):
        super().open()
        self.folder.chmod(0o700)
        self.environment["XDG_RUNTIME_DIR"] = str(self.folder)
        self.start(["weston", "--backend=x11-backend.so", "--use-pixman", f"--width={self.width}",
                    f"--height={self.height}", "--socket=wayland-9"])
        wait_for("compositor", (self.folder / "wayland-9").exists)
        self.display = self.environment.pop("DISPLAY")
        self.environment["WAYLAND_DISPLAY"] = "wayland-9"

    def run(self, *command):
        environment = self.environment | {"DISPLAY": self.display}
        return subprocess.run([str(part) for part in command], env=environment,
                              capture_output=True, timeout=20).stdout.decode()

    def await_focus(self):
        """Weston gives a new window the focus. It has the keys when the mouse is over its own."""
        self.run("xdotool", "mousemove", self.width // 2, self.height - 5)


@contextlib.contextmanager
def opened(desktop):
    try:
        desktop.open()
        yield desktop
    finally:
        desktop.close()
