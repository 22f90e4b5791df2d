# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""A display that nobody sees, an accessibility bus, and eyes.

Less than tests/support/desktop.py has, which is made for real processors: no window manager, no
hands, and few looks.
"""

import os
import subprocess
import tempfile

from harness import PATIENCE, until


def _first_line(command):
    """The first line that a program prints; it goes on running."""
    program = subprocess.Popen(command, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                               text=True)
    return program, program.stdout.readline().strip()


class Desktop:
    """Its programs see it through the environment of this process."""

    def __init__(self):
        self._folder = tempfile.TemporaryDirectory()
        os.environ["HOME"] = os.environ["XDG_RUNTIME_DIR"] = self._folder.name
        self._bus, address = _first_line(["dbus-daemon", "--session", "--nofork", "--nopidfile",
                                          "--print-address"])
        os.environ["DBUS_SESSION_BUS_ADDRESS"] = address
        self._server, number = _first_line(["Xvfb", "-displayfd", "1", "-screen", "0",
                                            "1280x800x24", "-nolisten", "tcp"])
        os.environ["DISPLAY"] = f":{number}"
        os.environ["QT_QPA_PLATFORM"] = "xcb"
        os.environ["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"] = "1"

    def end(self):
        for program in (self._server, self._bus):
            program.terminate()
            program.wait(PATIENCE)
            program.stdout.close()
        self._folder.cleanup()


class Window:
    """A program's widgets, as a screen reader sees them."""

    def __init__(self, *command):
        self._process = subprocess.Popen(command, stdout=subprocess.DEVNULL)
        import pyatspi  # it asks for the bus at once
        self._registry = pyatspi.Registry
        self._labels = []
        self._name = os.path.basename(command[0])
        until("the window is there", self._is_there, 2 * PATIENCE, pause=0.5)

    def _is_there(self):
        assert self._process.poll() is None, f"{self._name} ended with {self._process.returncode}"
        return self.texts()

    def _find_labels(self):
        waiting = [each for each in self._registry.getDesktop(0)
                   if each is not None and each.name == self._name]
        labels = []
        while waiting:
            widget = waiting.pop()
            if widget.getRoleName() == "label":
                labels.append(widget)
            waiting += [child for child in widget if child is not None]
        return labels

    def texts(self):
        """The texts of all labels; none as long as there is no window."""
        # Looked for once: each look is a message to the window and back.
        try:
            self._labels = self._labels or self._find_labels()
            return {label.name for label in self._labels}
        except Exception:  # pylint: disable=broad-except
            # What is looked at may go while it is looked at.
            self._labels = []
            return set()

    def shows(self, *texts):
        until(f"the window shows {texts}", lambda: set(texts) <= self.texts(), pause=0.2)

    def end(self):
        self._process.terminate()
        self._process.wait(PATIENCE)
