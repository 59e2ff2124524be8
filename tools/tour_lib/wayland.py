"""A keyboard for a Wayland compositor, which has none when it runs without a monitor."""

import array
import os
import socket
import struct
import time

# Places of keys, as the kernel numbers them.
KEYS = {"Escape": 1, "0": 11, "minus": 12, "equal": 13, "Tab": 15, "w": 17, "p": 25, "Return": 28,
        "Control": 29, "x": 45, "Shift": 42, "a": 30, "s": 31, "d": 32, "Alt": 56, "F1": 59, "F2": 60, "F3": 61,
        "F11": 87, "Up": 103, "Left": 105, "Right": 106, "Down": 108}
MODIFIERS = {"Shift": 1, "Control": 4, "Alt": 8}  # bits that are held while these keys are down

KEYMAP = b"""xkb_keymap {
xkb_keycodes { include "evdev" };
xkb_types { include "complete" };
xkb_compat { include "complete" };
xkb_symbols { include "pc+us+inet(evdev)" };
};\0"""

DISPLAY, REGISTRY, SYNC, SEAT, MANAGER, KEYBOARD = range(1, 7)


class WaylandKeyboard:
    """Speaks the protocol itself: a message is an object, its size and number, and arguments."""

    def __init__(self, path):
        self.socket = socket.socket(socket.AF_UNIX)
        self.socket.connect(str(path))
        self.send(DISPLAY, 1, struct.pack("=I", REGISTRY))
        offers = self.offers()
        self.bind(offers, b"wl_seat", SEAT)
        self.bind(offers, b"zwp_virtual_keyboard_manager_v1", MANAGER)
        self.send(MANAGER, 0, struct.pack("=II", SEAT, KEYBOARD))
        self.send_keymap()

    def send(self, to, number, arguments=b"", descriptors=()):
        message = struct.pack("=II", to, (8 + len(arguments)) << 16 | number) + arguments
        ancillary = [(socket.SOL_SOCKET, socket.SCM_RIGHTS, array.array("i", descriptors))]
        self.socket.sendmsg([message], ancillary if descriptors else [])

    def offers(self):
        """The numbers of all that the compositor offers."""
        self.send(DISPLAY, 0, struct.pack("=I", SYNC))
        found = {}
        while True:
            sender, size = struct.unpack("=II", self.read(8))
            arguments = self.read((size >> 16) - 8)
            if sender == SYNC:
                return found
            if sender == REGISTRY and size & 0xFFFF == 0:
                number, length = struct.unpack_from("=II", arguments)
                found[arguments[8 : 8 + length - 1]] = number

    def read(self, count):
        data = self.socket.recv(count, socket.MSG_WAITALL)
        if len(data) < count:
            raise OSError("the compositor has closed the connection")
        return data

    def bind(self, offers, interface, as_object):
        if interface not in offers:
            raise OSError(f"the compositor has no {interface.decode()}")
        text = interface + b"\0" * (4 - len(interface) % 4)
        self.send(REGISTRY, 0, struct.pack("=II", offers[interface], len(interface) + 1) + text
                  + struct.pack("=II", 1, as_object))

    def send_keymap(self):
        file = os.memfd_create("keymap")
        os.write(file, KEYMAP)
        self.send(KEYBOARD, 0, struct.pack("=II", 1, len(KEYMAP)), [file])
        os.close(file)

    def key(self, name, is_down):
        now = int(time.monotonic() * 1000) & 0xFFFFFFFF
        self.send(KEYBOARD, 1, struct.pack("=III", now, KEYS[name], int(is_down)))

    def hold_modifiers(self, names):
        held = sum(MODIFIERS.get(name, 0) for name in names)
        self.send(KEYBOARD, 2, struct.pack("=IIII", held, 0, 0, 0))

    def press(self, *names, hold):
        """Presses keys together, and lets them go after so many seconds."""
        for name in names:
            self.key(name, True)
            self.hold_modifiers(names)
        time.sleep(hold)
        for name in reversed(names):
            self.key(name, False)
        self.hold_modifiers(())
