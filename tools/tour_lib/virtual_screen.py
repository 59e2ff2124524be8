"""An X server without a monitor: its picture, windows, keyboard and mouse."""

import contextlib
import os
import re
import shutil
import signal
import subprocess
import tempfile
from pathlib import Path

import numpy

from .pictures import Picture
from .waiting import PATIENCE, TourFailure, wait_for

WIDTH, HEIGHT = 1280, 1024


class VirtualScreen:
    """An X server of its own, with a window manager when there is one."""

    def __init__(self):
        self.processes = []
        self.environment = dict(os.environ)
        for name in ("WAYLAND_DISPLAY", "SDL_VIDEODRIVER"):
            self.environment.pop(name, None)
        self.has_manager = shutil.which("openbox") is not None
        self.folder = tempfile.TemporaryDirectory(prefix="korvane-screen-")

    def open(self):
        reader, writer = os.pipe()
        # Without -noreset the server resets itself whenever its last client leaves. The mouse
        # cursor would spoil the pictures.
        self.start(["Xvfb", "-displayfd", str(writer), "-noreset", "-nolisten", "tcp", "-nocursor",
                    "-fbdir", self.folder.name, "-screen", "0", f"{WIDTH}x{HEIGHT}x24"],
                   pass_fds=[writer], stderr=subprocess.DEVNULL)
        os.close(writer)
        with os.fdopen(reader) as numbers:
            number = numbers.readline().strip()
        if not number:
            raise TourFailure("Xvfb did not start")
        self.environment["DISPLAY"] = f":{number}"
        self.map_memory()
        if self.has_manager:
            self.start_manager()

    def start_manager(self):
        # A window that appears while openbox starts can stay unmapped for ever. Openbox runs this
        # command when it has started.
        ready = Path(self.folder.name, "ready")
        self.start(["openbox", "--startup", f"touch {ready}"],
                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        wait_for("window manager", ready.exists)

    def start(self, command, environment=None, **options):
        """`environment` is what the process has besides its own variables."""
        process = subprocess.Popen(command, env=self.environment | (environment or {}), **options)
        self.processes.append(process)
        return process

    @contextlib.contextmanager
    def halted(self):
        """The server takes what it is sent and does not answer."""
        server = self.processes[0]
        server.send_signal(signal.SIGSTOP)
        try:
            yield
        finally:
            server.send_signal(signal.SIGCONT)

    def close(self):
        for process in reversed(self.processes):
            process.terminate()
            try:
                process.wait(PATIENCE)
            except subprocess.TimeoutExpired:
                process.kill()
                process.wait()
        self.folder.cleanup()

    def map_memory(self):
        """The server keeps its screen in a file: a header of big-endian numbers, the colour map,
        the rows of pixels."""
        file = Path(self.folder.name, "Xvfb_screen0")
        header = numpy.fromfile(file, ">u4", 25)
        header_bytes, bits, row_bytes, colours = (int(header[i]) for i in (0, 11, 12, 19))
        if bits != 32:
            raise TourFailure(f"Xvfb has {bits} bits per pixel")
        self.memory = numpy.memmap(file, numpy.uint8, "r", header_bytes + 12 * colours,
                                   (HEIGHT, row_bytes // 4, 4))

    def grab_all(self):
        return self.grab(0, 0, WIDTH, HEIGHT)

    def grab(self, left, top, width, height):
        bgrx = self.memory[top : top + height, left : left + width]
        return Picture(numpy.array(bgrx[:, :, 2::-1]))

    def xdotool(self, *arguments):
        return self.run("xdotool", *arguments)

    def run(self, *command):
        return subprocess.run([str(part) for part in command], env=self.environment,
                              capture_output=True, timeout=PATIENCE).stdout.decode().strip()

    def place_of(self, window):
        """x, y, width and height of a window without its frame; none if there is no such window."""
        # xdotool counts the window manager's frame twice.
        told = self.run("xwininfo", "-id", window)
        values = [re.search(rf"{name}: *(-?\d+)$", told, re.MULTILINE) for name in
                  ("Absolute upper-left X", "Absolute upper-left Y", "Width", "Height")]
        return tuple(int(value[1]) for value in values) if all(values) else None

    def press(self, *keys):
        self.xdotool("key", "--clearmodifiers", *keys)

    @contextlib.contextmanager
    def held(self, key):
        self.xdotool("keydown", key)
        try:
            yield
        finally:
            self.xdotool("keyup", key)

    def click(self, x, y):
        self.xdotool("mousemove", x, y, "click", 1)
