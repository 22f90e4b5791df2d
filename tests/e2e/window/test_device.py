# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""The device panel with a simulated recorder behind it, read and changed from outside."""

import unittest

from window import Case

ANSWER = "LOG GL RECV"  # a line a message from the recorder


class DeviceTest(Case):
    def connected(self):
        program = self.start("--simulate-recorder", self.takes)
        program.wait_label("Connected")
        return program

    @staticmethod
    def answers(program):
        return program.output().count(ANSWER)

    def choose(self, program, name, entry):
        """Opens a pop-up as assistive software does and clicks an entry."""
        popup = program.find("combo box", name)
        popup.act("ShowMenu")
        item = program.wait(
            lambda: next((item for item in popup.walk() if item.name == entry
                          and item.role == "list item" and popup.has("expanded")), None), entry)
        item.click()
        program.wait(lambda: popup.has("collapsed"), "the end of the menu")
        program.wait(lambda: popup.description == entry, f"the choice {entry}")
        self.assertEqual([item.name for item in popup.walk() if item.has("selected")], [entry])

    def test_what_the_recorder_tells(self):
        program = self.connected()
        for text in ("Ver. 1.02", "7.45 GB / 29.7 GB Used", "05:12:33", "Simulated recorder"):
            self.assertIn(text, program.labels())
        self.assertEqual(program.find("combo box", "Battery").description, "Alkaline")
        self.assertEqual(program.find("combo box", "Auto power off").description, "10 minutes")
        self.assertAlmostEqual(program.find("progress bar", "Card used").value, 250, delta=2)

    def test_log_lines_are_shown_on_demand(self):
        self.assertIn(ANSWER, self.connected().output())
        quiet = self.program("--simulate-recorder", self.takes, log=())
        quiet.wait_label("Connected")
        self.assertEqual(quiet.output(), "")

    def test_settings_are_sent_once(self):
        program = self.connected()
        before = program.wait(lambda: self.answers(program), "the handshake")
        self.choose(program, "Battery", "Lithium")
        program.wait(lambda: self.answers(program) == before + 1, "the recorder's answer")
        self.choose(program, "Battery", "Lithium")
        self.choose(program, "Auto power off", "Off")
        program.wait(lambda: self.answers(program) == before + 2, "the recorder's answer")

    def test_settings_by_key(self):
        program = self.connected()
        popup = program.find("combo box", "Auto power off")
        popup.act("SetFocus")
        program.wait(lambda: popup.has("focused"), "the focus")
        program.key("Down")
        program.wait(lambda: popup.description == "30 minutes", "the next entry")
        program.key("End")
        program.wait(lambda: popup.description == "Off", "the last entry")

    def test_no_notice_stands_in_the_way(self):
        program = self.connected()
        program.find("combo box", "Battery").click()
        program.key("Escape")
        self.assertIsNone(program.look("dialog"))


if __name__ == "__main__":
    unittest.main()
