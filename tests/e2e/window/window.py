# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""What the tests of the window share: a desktop, the program on it, and a home of its own a test.

MIXDECK_BIN names the folder of the tool, MIXDECK_WINDOW the program with the window.
"""

import os
import subprocess
import sys
import tempfile
import time
import unittest
from pathlib import Path

HERE = Path(__file__).resolve().parent
sys.path[:0] = [str(HERE.parents[1] / "support"), str(HERE.parent / "playback")]
from desktop import Desktop, Program  # noqa: E402
from playing import CLI, noise, recording  # noqa: E402
from sound import SoundServer, wait_for  # noqa: E402

WINDOW = os.environ["MIXDECK_WINDOW"]
TITLE = "TARN J4 Mixdeck"


class Case(unittest.TestCase):
    """With one desktop for all, and a home with a Desktop folder and a folder of takes a test."""

    desktop = None
    maxDiff = None

    @classmethod
    def setUpClass(cls):
        if Case.desktop is None:  # the bindings know one desktop a process
            Case.desktop = Desktop().__enter__()
            unittest.addModuleCleanup(Case.desktop.__exit__)

    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="mixdeck-window-")
        self.addCleanup(folder.cleanup)
        self.home = Path(folder.name)
        self.takes = self.home / "takes"
        for path in (self.takes, self.home / "Desktop"):
            path.mkdir()
        self.settings = self.home / ".config/mixdeck/settings"

    def take(self, name="R0001.WAV", frames=None, bits=24, folder=None, **words):
        path = (folder or self.takes) / name
        path.write_bytes(recording(noise(4800, bits) if frames is None else frames, bits, **words))
        return path

    def long_take(self, name, seconds):
        """Silence that takes next to no room on the disk."""
        path = self.take(name, noise(0, 24))
        count = seconds * 288000
        head = path.read_bytes()[:-4] + count.to_bytes(4, "little")
        path.write_bytes(head[:4] + (len(head) - 8 + count).to_bytes(4, "little") + head[8:])
        os.truncate(path, len(head) + count)
        return path

    def version(self):
        """As the program tells it: "1.2.34"."""
        done = subprocess.run([WINDOW, "--version"], capture_output=True, text=True, check=True)
        return done.stdout.split()[-1]

    def know_introduction(self):
        """As if somebody had ticked it away."""
        self.settings.parent.mkdir(parents=True, exist_ok=True)
        self.settings.write_text(f"mixdeck-settings 1\nUD_DO_NOT_SHOW_AGAIN={self.version()}\n")

    def sound(self):
        """The environment that leads to a sound server: none."""
        return {"PULSE_SERVER": f"unix:{self.home}/no-server"}

    def program(self, *arguments, environment=None, log=("--log",), around=()):
        """The program, its window on the desktop; it ends with the test. `around` becomes it."""
        own = {"HOME": str(self.home)} | self.sound()
        program = Program(self.desktop, *around, WINDOW, *log, *arguments,
                          environment=own | (environment or {}))
        program.start()
        self.addCleanup(program.stop)
        self.assertEqual(program.windows()[0].name, TITLE)
        return program

    def start(self, *arguments, environment=None):
        """The same, without the introduction."""
        self.know_introduction()
        return self.program(*(arguments or (self.takes,)), environment=environment)

    @staticmethod
    def files(program):
        """The names in the list, in its order."""
        return [item.name for item in program.find("list", "Files").children()]

    def wait_files(self, program, *names):
        program.wait(lambda: self.files(program) == list(names), f"the files {names}")

    @staticmethod
    def selected(program):
        return [item.name for item in program.find("list", "Files").children()
                if item.has("selected")]

    @staticmethod
    def folder(program):
        """The name of the folder that is shown."""
        return program.find("push button", "Current folder").description

    def open(self, program, name):
        """Opens an entry of the list with a double click."""
        program.find("list item", name).double_click()

    @staticmethod
    def choose(program, item):
        """An entry of the menu, as assistive software does."""
        program.find("push button", "Menu").act("Press")
        program.find("menu item", item).act("Press")

    def open_known(self, program, name):
        """Opens a take, and returns when it is there."""
        program.find("list item", name).act("Press")
        program.wait_label(name)
        program.wait(lambda: program.find("push button", "Export").has("enabled"), "the take")

    @staticmethod
    def give(program, place, folder):
        """Names a folder where a button asks for one."""
        button = program.find("push button", place)
        button.act("Press")
        program.find("text", "Name").text = str(folder)
        program.find("push button", "Choose").act("Press")
        program.wait(lambda: button.description == str(folder), f"the folder of {place}")

    def remembered(self, name):
        """What the tool tells of how a take was heard last."""
        done = subprocess.run([CLI, "export", "--remembered", "--dry-run", self.takes / name],
                              env=os.environ | {"HOME": str(self.home)}, capture_output=True, text=True,
                              check=True)
        return done.stdout

    def quit(self, program):
        """Closes the window as a window manager does, and expects a clean end."""
        program.key("alt+F4")
        self.assertEqual(program.wait_end(), 0, program.output())

    @staticmethod
    def seconds_to_mute(program):
        """How long a click on the speaker takes to be answered: it mutes or unmutes."""
        volume = program.find("slider", "Volume")
        speaker = program.find("check box", "Mute")
        before = volume.value
        begun = time.monotonic()
        speaker.act("Toggle")
        program.wait(lambda: volume.value != before, "the answer to a click")
        return time.monotonic() - begun


class SoundingCase(Case):
    """The same with one sound server for all."""

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.server = SoundServer("pulse").__enter__()
        cls.addClassCleanup(cls.server.__exit__)

    def sound(self):
        return self.server.addresses
