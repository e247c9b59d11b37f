# SPDX-FileCopyrightText: 2026 The Pallistrom authors
# SPDX-License-Identifier: MIT
"""The hands on the emulated machine: its keyboard, its sockets, its screen."""
import json
import os
import socket
import threading
import time

_KEY_OF_CHARACTER = {
    " ": "spc", "\n": "ret", "\t": "tab", "-": "minus", "=": "equal", "[": "bracket_left",
    "]": "bracket_right", ";": "semicolon", "'": "apostrophe", "`": "grave_accent",
    "\\": "backslash", ",": "comma", ".": "dot", "/": "slash"}
_SHIFTED = dict(zip('!@#$%^&*()_+{}:"~|<>?', "1234567890-=[];'`\\,./"))
_NAMES = {
    "rctrl": "ctrl_r", "ralt": "alt_r", "rshift": "shift_r", "super": "meta_l",
    "rsuper": "meta_r", "space": "spc", "enter": "ret", "escape": "esc", "bs": "backspace",
    "caps": "caps_lock", "num": "num_lock", "del": "delete"}

_BETWEEN_KEYS = 0.01


class Hardware:
    """Obeys commands, a line each; guest/vm-hw lists them. Pictures go to a folder."""

    def __init__(self, control_socket, pictures):
        self._pictures = pictures
        self._lock = threading.Lock()
        self._file = self._connect(control_socket)
        self._file.readline()
        self._control("qmp_capabilities")

    @staticmethod
    def _connect(path):
        connection = socket.socket(socket.AF_UNIX)
        for _ in range(200):
            try:
                connection.connect(path)
                return connection.makefile("rw")
            except OSError:
                time.sleep(0.05)
        raise OSError("the emulator does not take commands")

    def _control(self, command, **arguments):
        with self._lock:
            self._file.write(json.dumps({"execute": command, "arguments": arguments}) + "\n")
            self._file.flush()
            for line in self._file:
                answer = json.loads(line)
                if "error" in answer:
                    raise ValueError(answer["error"]["desc"])
                if "return" in answer:
                    return
        raise OSError("the machine is gone")

    def _press(self, key, is_down):
        name = key.lower()
        code = _NAMES.get(name, _KEY_OF_CHARACTER.get(name, name))
        self._control("input-send-event", events=[
            {"type": "key", "data": {"down": is_down, "key": {"type": "qcode", "data": code}}}])

    def _chord(self, keys, hold):
        for key in keys:
            self._press(key, True)
            time.sleep(_BETWEEN_KEYS)
        time.sleep(hold)
        for key in reversed(keys):
            self._press(key, False)
            time.sleep(_BETWEEN_KEYS)

    def _type(self, text):
        for character in text:
            key = _SHIFTED.get(character, character.lower())
            with_shift = character in _SHIFTED or character.isupper()
            self._chord(["shift", key] if with_shift else [key], _BETWEEN_KEYS)

    def obey(self, line):
        """Does what a line says; raises ValueError, IndexError or OSError where it cannot."""
        command, _, rest = line.strip().partition(" ")
        words = rest.split()
        if command == "key":
            hold = float(words[1]) / 1000 if len(words) > 1 else 0.03
            self._chord(words[0].split("+"), hold)
        elif command in ("down", "up"):
            for key in words:
                self._press(key, command == "down")
        elif command == "type":
            self._type(rest)
        elif command == "plug":
            self._control("device_add", driver="usb-kbd", id=words[0])
        elif command == "unplug":
            self._control("device_del", id=words[0])
        elif command == "picture":
            file = os.path.join(self._pictures, os.path.basename(words[0]))
            self._control("screendump", filename=file, format="png")
        else:
            raise ValueError(f"there is no command {command!r}")

    def serve(self, connection):
        """Obeys what comes in, and answers each line, until the other side is gone."""
        file = connection.makefile("rw", errors="replace")
        try:
            for line in file:
                try:
                    self.obey(line)
                    answer = "ok"
                except (ValueError, IndexError) as error:
                    answer = f"error {error}"
                file.write(answer + "\n")
                file.flush()
        except OSError:
            pass
