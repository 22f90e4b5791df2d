# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""The window over a real medium that stands still: the folder of takes is a file system of the
kernel's (FUSE), whose other side stops answering.

The verdicts are as in test_hanging.py: a click is answered, and the window gone, in far less time than
a medium takes that people call broken. Nothing is lost: what was asked for comes when the medium goes
on.
"""

import time
import unittest

from window import TITLE, SoundingCase, noise  # first: it knows where the others are
from sound import RATE
from stalling import StallingMedium

FAR_BELOW = 10  # seconds


class StallingTest(SoundingCase):
    def setUp(self):
        super().setUp()
        self.card = self.home / "card"  # what is really on it
        (self.card / "Bells").mkdir(parents=True)
        self.take("R0001.WAV", noise(RATE * 60, 24), folder=self.card)
        self.take("R0002.WAV", noise(RATE * 20, 24), folder=self.card)
        self.medium = StallingMedium(self.card, self.takes)
        self.medium.__enter__()
        self.addCleanup(self.medium.__exit__)
        self.window = self.start()
        self.addCleanup(self.medium.go_on)
        self.wait_files(self.window, "Bells", "R0001.WAV", "R0002.WAV")

    def press(self, name):
        self.window.find("push button", name).act("Press")

    def press_in(self, dialog, name):
        panel = self.window.find("dialog", dialog)
        next(item for item in panel.walk() if item.name == name).act("Press")

    def stall(self):
        self.before = self.medium.held
        self.medium.stall()

    def wait_held(self):
        """Until something waits for the medium."""
        self.window.wait(lambda: self.medium.held > self.before, "a request that stands still")

    def assert_answers(self, state):
        """A click on the speaker mutes or unmutes at once."""
        took = self.seconds_to_mute(self.window)
        print(f"{state}: a click took {1000 * took:.0f} ms", flush=True)
        self.assertLess(took, FAR_BELOW, state)

    def assert_ends(self, state):
        """The window goes at once. The kernel keeps the process until the medium goes on."""
        begun = time.monotonic()
        self.window.key("alt+F4")
        while TITLE in self.desktop.run("xwininfo", "-root", "-tree"):
            time.sleep(0.005)
        took = time.monotonic() - begun
        print(f"{state}: the window was gone after {1000 * took:.0f} ms", flush=True)
        self.assertLess(took, FAR_BELOW, state)
        self.medium.go_on()
        self.assertEqual(self.window.wait_end(), 0, self.window.output())

    def test_listing_and_opening(self):
        self.stall()
        self.open(self.window, "Bells")
        self.window.wait_label("Looking for “Bells”… (Esc gives up)")
        self.assert_answers("looking")
        self.open(self.window, "R0002.WAV")
        self.window.wait_label("Looking for “R0002.WAV”… (Esc gives up)")
        self.wait_held()
        self.assert_answers("opening")
        self.medium.go_on()
        self.window.find("push button", "Pause")
        self.stall()
        self.open(self.window, "Bells")
        self.wait_held()
        self.assert_ends("opening")

    def test_playing_and_seeking(self):
        self.open(self.window, "R0001.WAV")
        self.window.find("push button", "Pause")
        self.stall()
        self.window.find("slider", "Position").value = 40
        self.wait_held()
        self.assert_answers("seeking")
        self.medium.go_on()
        self.window.wait(lambda: self.window.find("slider", "Position").value > 40.5, "the sound")
        self.stall()
        self.window.find("slider", "Position").value = 10
        self.wait_held()
        self.assert_ends("playing")

    def test_the_panels(self):
        self.stall()
        self.press("Open folder")
        self.window.wait_label("Reading “takes”…")
        self.wait_held()
        self.assert_answers("folder panel")
        self.press_in("Choose a file", "Cancel")
        self.window.wait_gone("dialog", "Choose a file")
        self.assert_ends("folder panel")

    def test_exporting(self):
        self.open(self.window, "R0001.WAV")
        self.window.find("push button", "Pause")
        self.window.key("space")
        self.press("Export")
        self.press_in("Export", "Save")
        self.window.find("dialog", "Saving checkboard...")
        self.stall()
        self.press_in("Saving checkboard...", "Save")
        self.window.wait_label("Looking for “R0001_Decode.WAV”…")
        self.assert_answers("save panel")
        self.medium.go_on()
        self.window.wait_gone("dialog", "Saving checkboard...")
        self.window.wait_gone("progress bar", "Progress")
        self.wait_files(self.window, "Bells", "R0001.WAV", "R0001_Decode.WAV", "R0002.WAV")
        size = (self.card / "R0001.WAV").stat().st_size
        self.assertGreaterEqual((self.card / "R0001_Decode.WAV").stat().st_size, size)


if __name__ == "__main__":
    unittest.main()
