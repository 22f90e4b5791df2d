# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""Start, introduction, the list of files, the small dialogs and the end, from outside."""

import re
import shutil
import unittest

from window import TITLE, Case, wait_for


class StartTest(Case):
    def test_the_first_start(self):
        self.take("D1.WAV", folder=self.home / "Desktop")
        program = self.program()
        self.wait_files(program, "D1.WAV")
        self.assertEqual(self.folder(program), "Desktop")
        program.find("dialog", "Introduction")
        self.assertIn("What mid-side is", program.labels())
        box = program.find("check box", "Do not show this again")
        self.assertFalse(box.has("checked"))
        box.click(x=0.1)
        program.wait(lambda: box.has("checked"), "the tick")
        program.find("push button", "OK").click()
        program.wait_gone("dialog", "Introduction")
        self.quit(program)
        stored = self.settings.read_text()
        self.assertIn(f"UD_DO_NOT_SHOW_AGAIN={self.version()}\n", stored)
        self.assertIn(f"UD_LAST_OPEN_FOLDER={self.home}/Desktop\n", stored)
        program = self.program()
        self.wait_files(program, "D1.WAV")
        self.assertIsNone(program.look("dialog"))
        self.quit(program)  # it stores what it has opened at a time of its own
        self.settings.write_text(stored.replace(self.version(), "0.0.1"))
        program = self.program()
        program.find("dialog", "Introduction")

    def test_the_last_folder_is_opened_again(self):
        self.take()
        program = self.start()
        self.wait_files(program, "R0001.WAV")
        self.quit(program)
        program = self.program()
        self.wait_files(program, "R0001.WAV")
        self.assertEqual(self.folder(program), "takes")

    def test_a_file_is_shown_and_opened(self):
        self.take("R0001.WAV")
        program = self.start(self.take("R0002.WAV"))
        self.wait_files(program, "R0001.WAV", "R0002.WAV")
        program.wait_label("R0002.WAV")
        program.wait(lambda: self.selected(program) == ["R0002.WAV"], "the selection")

    def test_the_window_stands_in_the_middle(self):
        program = self.start()
        shown = self.desktop.run("xwininfo", "-name", TITLE)
        left, top, width, height = (
            int(re.search(rf"{name}: +(-?\d+)", shown)[1])
            for name in ("Absolute upper-left X", "Absolute upper-left Y", "Width", "Height"))
        self.assertEqual((width, height), (1050, 668))
        self.assertAlmostEqual(left, (self.desktop.size[0] - width) / 2, delta=30)  # frames
        self.assertAlmostEqual(top, (self.desktop.size[1] - height) / 2, delta=30)
        self.quit(program)


class ListTest(Case):
    def test_into_a_folder_and_up_again(self):
        inner = self.takes / "Ambience"
        inner.mkdir()
        self.take("A1.WAV", folder=inner)
        self.take("R0002.WAV")
        self.take("R0001.WAV")
        (self.takes / "notes.txt").write_text("no recording")
        program = self.start()
        self.wait_files(program, "Ambience", "R0001.WAV", "R0002.WAV")
        self.open(program, "Ambience")
        self.wait_files(program, "A1.WAV")
        self.assertEqual(self.folder(program), "Ambience")
        program.find("push button", "Go up").click()
        self.wait_files(program, "Ambience", "R0001.WAV", "R0002.WAV")
        self.assertEqual(self.folder(program), "takes")
        program.find("list item", "Ambience").click()
        program.key("Return")
        self.wait_files(program, "A1.WAV")

    def test_it_follows_the_disk(self):
        self.take("R0001.WAV")
        self.take("R0002.WAV")
        self.take("D1.WAV", folder=self.home / "Desktop")
        program = self.start()
        self.wait_files(program, "R0001.WAV", "R0002.WAV")
        program.find("list item", "R0002.WAV").click()
        program.wait(lambda: self.selected(program) == ["R0002.WAV"], "the selection")
        self.take("R0000.WAV")
        self.wait_files(program, "R0000.WAV", "R0001.WAV", "R0002.WAV")
        self.assertEqual(self.selected(program), ["R0002.WAV"])
        shutil.rmtree(self.takes)
        self.wait_files(program, "D1.WAV")
        self.assertEqual(self.folder(program), "Desktop")
        self.assertEqual(self.selected(program), [])

    def test_a_folder_is_chosen(self):
        other = self.home / "other"
        other.mkdir()
        self.take("O1.WAV", folder=other)
        program = self.start()
        program.find("push button", "Open folder").click()
        panel = program.find("dialog", "Choose a file")
        program.find("text").click()
        program.key("ctrl+a")
        program.type(f"{other}")
        program.find("push button", "Choose").act("Press")  # names offered may lie over it
        self.wait_files(program, "O1.WAV")
        self.assertEqual(self.folder(program), "other")
        program.wait_gone("dialog", panel.name)

    def test_a_file_that_is_not_supported(self):
        (self.takes / "X1.WAV").write_bytes(b"RIFF")
        self.take("R0001.WAV")
        program = self.start()
        self.open(program, "R0001.WAV")
        program.wait_label("R0001.WAV")
        self.assertTrue(program.find("push button", "Export").has("enabled"))
        self.open(program, "X1.WAV")
        program.wait_label("File not supported.")
        program.find("push button", "Ok").click()
        program.wait_gone("push button", "Ok")
        self.assertNotIn("R0001.WAV", program.labels())
        self.assertEqual(program.labels().count("--:--:--"), 3)
        for name in ("Export", "Play"):
            self.assertFalse(program.find("push button", name).has("enabled"))
        for name in ("Position", "Gain"):
            self.assertFalse(program.find("slider", name).has("enabled"))

    def test_without_a_sound_server_it_says_so(self):
        self.take("R0001.WAV")
        program = self.start()
        self.open(program, "R0001.WAV")
        program.wait(lambda: any("sound server" in text for text in program.labels()), "the reason")
        self.assertIsNone(program.look("push button", "Ok"))


class DialogTest(Case):
    def choose(self, program, letter):
        """An entry of the menu, by the letter that is underlined in it."""
        program.find("push button", "Menu").click()
        program.key(letter)

    def middle(self, name):
        """The middle of a window on the screen."""
        shown = self.desktop.run("xwininfo", "-name", name)
        x, y, width, height = (
            int(re.search(rf"{word}: +(-?\d+)", shown)[1])
            for word in ("Absolute upper-left X", "Absolute upper-left Y", "Width", "Height"))
        return x + width / 2, y + height / 2

    def is_centred(self, name):
        (x, y), (middle_x, middle_y) = self.middle(name), self.middle(TITLE)
        return abs(x - middle_x) <= 2 and abs(y - middle_y) <= 20  # title bars

    def test_about(self):
        program = self.start()
        self.choose(program, "a")
        about = program.find("dialog", "About")
        self.assertIn(self.version(), program.labels())
        program.wait(lambda: self.is_centred("About"), "the place in the middle")
        def hints_of():
            return self.desktop.run("xprop", "-name", "About", "_NET_WM_ALLOWED_ACTIONS",
                                    "_NET_WM_STATE")
        # The window manager sets them when it gets to it.
        program.wait(lambda: "STATE_MODAL" in hints_of() and "ACTION_" in hints_of(), "its hints")
        hints = hints_of()
        self.assertNotIn("ACTION_RESIZE", hints)
        self.assertNotIn("MAXIMIZE", hints)
        self.assertIn("STATE_MODAL", hints)
        program.key("Escape")
        program.wait_gone("dialog", about.name)

    def test_the_introduction_from_the_menu_has_nothing_to_tick(self):
        program = self.start()
        self.choose(program, "i")
        program.find("dialog", "Introduction")
        self.assertIsNone(program.look("check box", "Do not show this again"))
        program.key("Return")
        program.wait_gone("dialog", "Introduction")
        stored = [line for line in self.settings.read_text().splitlines() if "SHOW_AGAIN" in line]
        self.assertEqual(stored, [f"UD_DO_NOT_SHOW_AGAIN={self.version()}"])

    def test_a_setting_without_a_recorder(self):
        program = self.start()
        self.assertIn("Disconnected", program.labels())
        self.assertIn("-- GB / -- GB Used", program.labels())
        for name in ("Battery", "Auto power off"):
            self.assertFalse(program.find("combo box", name).has("enabled"))
            program.click_at(*program.find("combo box", name).at())
            program.find("dialog", TITLE)
            self.assertIn("No recorder is connected", program.labels())
            program.find("push button", "OK").click()
            program.wait_gone("dialog", TITLE)

    def test_assistive_software_uses_the_menu(self):
        program = self.start()
        self.assertIsNone(program.look("menu item", "About"))
        program.find("push button", "Menu").click()
        program.find("menu item", "About").act("Press")
        program.find("dialog", "About")
        program.wait_gone("menu item", "About")

    def test_the_menu_ends_it(self):
        program = self.start()
        self.choose(program, "q")
        self.assertEqual(program.wait_end(), 0)


if __name__ == "__main__":
    unittest.main()
