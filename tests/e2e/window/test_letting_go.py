# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""What the window lets go of while the medium does not answer: files that only a dialog still has,
and all at once at the end, which waits for several things but not for one after the other. See
hanging_case.py.
"""

import unittest

from hanging_case import HangingCase, noise  # first: it knows where the others are
from gi.repository import Gio


class LettingGoTest(HangingCase):
    def begin_in_takes(self):
        """The program, to which every file of the folder of takes may hang."""
        self.make_home(self.takes)
        self.show_window()
        self.wait_takes()

    def begin_with_a_take_without_frames(self):
        self.make_home(self.takes)
        self.take("R0002.WAV", noise(0, 24))
        self.show_window()
        self.wait_takes()
        self.open(self.window, "R0002.WAV")
        self.window.wait_label("R0002.WAV")

    def assert_closes_elsewhere(self, what):
        """The file was closed, but not by the interface thread."""
        self.window.wait(lambda: self.medium.calls()["close"] > 0, f"{what}: the close")
        self.assert_answers(what)

    def play_next(self):
        """As media keys do, which reach the window behind a dialog too."""
        flags = (Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT
                 | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION)
        bus = Gio.DBusConnection.new_for_address_sync(self.desktop.address, flags, None, None)
        self.addCleanup(bus.close_sync, None)
        bus.call_sync("org.mpris.MediaPlayer2.mixdeck", "/org/mpris/MediaPlayer2",
                      "org.mpris.MediaPlayer2.Player", "Next", None, None, 0, 10000, None)

    def test_what_the_information_was_about(self):
        self.begin_in_takes()
        x, y = self.window.find("list item", "R0002.WAV").at()
        self.window.hands("mousemove", str(x), str(y), "click", "3")
        self.window.find("menu item", "Information")
        self.medium.hang("close")
        self.window.find("menu item", "Information").act("Press")
        dialog = self.dialog("Information")
        self.window.wait(lambda: any(item.name == "True peak" for item in dialog.walk()),
                         "the figures")
        self.press_in(dialog, "Close")
        self.wait_no_dialog("Information")
        self.assert_closes_elsewhere("information")

    def test_what_an_export_dialog_alone_still_has(self):
        self.begin_in_takes()
        self.open_and_hear()
        self.press("Export")
        dialog = self.dialog("Export")
        self.window.wait(lambda: any("LUFS" in text for text in self.window.labels()), "the levels")
        self.play_next()
        self.window.wait_label("R0002.WAV")
        self.medium.hang("close")
        self.press_in(dialog, "Cancel")
        self.wait_no_dialog("Export")
        self.assert_closes_elsewhere("export dialog")

    def test_a_take_without_frames(self):
        self.begin_with_a_take_without_frames()
        self.medium.hang("close")
        self.open(self.window, "R0001.WAV")
        self.window.wait_label("R0001.WAV")
        self.assert_closes_elsewhere("a take without frames")

    def test_the_end_with_a_take_without_frames(self):
        self.begin_with_a_take_without_frames()
        self.assert_ends("a take without frames", kinds=("close",))

    def test_the_end_with_all_that_it_waits_for(self):
        self.begin()
        self.open_and_hear()
        self.window.key("space")
        self.ask_for_export()
        self.save("write")
        self.window.find("dial", "Stereo width").value = 75
        self.press("Go up")
        self.window.wait(lambda: self.folder(self.window) == self.home.name, "the folder above")
        self.window.wait(lambda: self.medium.calls()["write"] >= 3,
                         "the export, what is remembered of the take, and the settings")
        self.window.find("list", "Files").click(y=0.9)  # the key is the window's, not the progress's
        self.assert_ends("all that is waited for", lambda: self.press("Cancel export and quit"))


if __name__ == "__main__":
    unittest.main()
