# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""The window while the medium does not answer, from its start to its end; see hanging_case.py.
test_hanging_exports.py does the same for exports.
"""

import os
import unittest

from hanging_case import HangingCase, noise  # first: it knows where the others are
from hanging import KINDS, HangingMedium
from sound import RATE, wait_for


class HangingTest(HangingCase):
    def show_window(self):
        super().show_window()
        self.wait_takes()

    def test_idle(self):
        self.begin()
        is_used = False

        def go_back():
            if is_used:
                self.window.wait(lambda: self.folder(self.window) != "takes", "the folder above")
                self.open(self.window, "takes")
            self.wait_takes()

        def use():
            nonlocal is_used
            is_used = True
            self.open(self.window, "R0002.WAV")
            self.open(self.window, "R0001.WAV")
            self.press("Go up")
        self.answer_each("idle", use, go_back)
        self.assertGreater(sum(self.medium.calls().values()), 0, "or nothing hung")
        self.assert_ends("idle")

    def test_the_start(self):
        """What the command line names is on the medium: the window is there all the same."""
        take = self.take("R0001.WAV", noise(RATE, 24))
        self.medium = HangingMedium(self.takes, self.desktop.folder / f"board-{self.id()}")
        self.medium.hang(*KINDS)
        self.addCleanup(self.medium.hang)
        self.window = self.start(take, environment=self.medium.environment)
        self.assert_answers("the start")
        self.assertGreater(self.medium.calls()["stat"], 0, "or nothing hung")
        self.medium.hang()
        self.window.find("push button", "Pause")
        self.assertEqual(self.selected(self.window), ["R0001.WAV"])

    def test_opening(self):
        self.begin()
        self.medium.hang("open")
        self.open(self.window, "R0001.WAV")
        self.window.wait_label("R0001.WAV is being opened… (Esc gives up)")
        self.assert_answers("opening")
        self.assert_ends("opening")

    def test_playing(self):
        self.begin()
        self.open_and_hear()
        self.answer_each("playing", lambda: self.window.key("space", "space"))
        self.assert_ends("playing")

    def test_the_end_of_playing(self):
        """With one kind of call hanging at a time, each of which is made."""
        self.make_home()
        for kind in KINDS:
            self.medium.hang()
            self.show_window()
            self.open_and_hear()
            self.medium.hang(kind)
            before = self.medium.calls()[kind]
            self.window.find("slider", "Position").value = 12  # seconds
            self.open(self.window, "R0002.WAV")
            self.press("Go up")
            wait_for(lambda: self.medium.calls()[kind] > before, f"a {kind} that hangs")
            self.assert_ends(f"playing, {kind} hanging", kinds=(kind,))

    def test_seeking(self):
        self.begin()
        self.open_and_hear()
        position = self.window.find("slider", "Position")
        places = iter([18, 2, 10] * len(KINDS))  # seconds

        def seek():
            position.value = next(places)
        self.answer_each("seeking", seek)
        self.assert_ends("seeking")

    def test_folder_to_be_remembered(self):
        self.begin()
        kinds = ("open", "write", "rename", "sync", "lock")
        self.medium.hang(*kinds)
        self.press("Go up")
        self.window.wait(lambda: self.folder(self.window) == self.home.name, "the folder above")
        self.assert_answers("remembering the folder")
        self.assert_ends("remembering the folder", kinds=kinds)
        self.assertGreater(sum(self.medium.calls().values()), 0, "or it was remembered already")

    def test_the_help(self):
        """Programs, as the one that opens it, may be in the home folder too."""
        self.make_home()
        programs = self.home / "bin"
        programs.mkdir()
        environment = {"PATH": f"{programs}:{os.environ['PATH']}"}
        self.window = self.start(environment={**self.medium.environment, **environment})
        self.wait_takes()
        self.press("Menu")
        help_item = self.window.find("menu item", "Online help")
        self.medium.hang("stat")
        before = self.medium.calls()["stat"]
        help_item.act("Press")
        self.window.wait(lambda: self.medium.calls()["stat"] > before, "a look for the program")
        self.assert_answers("the help")
        self.assert_ends("the help")

    def test_choosing_a_folder(self):
        self.begin()
        name = "Choose a file"

        def use():
            self.use_panel(lambda: self.press("Open folder"), name, "none", "Choose")
        self.answer_each("folder panel", use, lambda: self.close(name))
        self.assertIsNotNone(self.look_dialog(name), "or nothing hung")
        self.close(name)
        self.assert_ends("folder panel")

    def test_a_folder_that_is_not_read_is_told_of(self):
        self.begin()
        self.medium.hang("list")
        self.press("Open folder")
        self.window.wait_label("Reading “takes”…")
        self.medium.hang()
        panel = self.dialog("Choose a file")
        self.window.wait(lambda: any(item.name == "Bells" for item in panel.walk()), "the rows")
        self.assertNotIn("Reading “takes”…", self.window.labels())


if __name__ == "__main__":
    unittest.main()
