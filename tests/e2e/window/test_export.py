# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""Exports through the dialogs, byte for byte what the tool writes."""

import os
import subprocess
import unittest

from window import CLI, Case, noise  # first: it knows where the others are
from exported import DATE, undated

SOURCE_DATE = slice(340, 358)  # of origination, in what is recorded here


class ExportTest(Case):
    def loaded(self, name="R0001.WAV", environment=None):
        """The program with a take that has been opened."""
        program = self.start(environment=environment)
        self.open(program, name)
        program.wait(lambda: program.find("push button", "Export").has("enabled"), "the take")
        return program

    def loaded_slowly(self):
        """The same, with a long take on a slow medium: its export takes minutes, however fast or
        busy the machine is, so that there is time for any number of questions meanwhile."""
        self.long_take("R0001.WAV", 12000)
        return self.loaded(environment={"LD_PRELOAD": os.environ["SLOW_READS"],
                                        "MIXDECK_SLOW_FOLDER": str(self.takes.resolve()),
                                        "MIXDECK_SLOW_RATE": "20000000"})

    def open_dialog(self, program):
        program.find("push button", "Export").click()
        return program.find("dialog", "Export")

    def save(self, program, name=None):
        """Presses Save and takes the proposed name, or another one."""
        program.find("push button", "Save").click()
        panel = program.find("dialog", "Saving checkboard...")
        self.assertIn("Please select a path where to save decoded wav.", program.labels())
        edit = program.wait(lambda: self.edit_of(panel), "the name's field")
        proposed = edit.text
        if name is not None:
            edit.click()
            program.key("ctrl+a")
            program.type(name)
            program.wait(lambda: edit.text == name, "the typed name")
        next(item for item in panel.walk() if item.name == "Save").act("Press")
        return proposed

    @staticmethod
    def edit_of(panel):
        return next((item for item in panel.walk() if item.role == "text" and item.text), None)

    def by_tool(self, *options):
        path = self.home / "tool.wav"
        subprocess.run([CLI, "export", "--force", "--output", path, *map(str, options),
                        self.takes / "R0001.WAV"], check=True)
        return undated(path.read_bytes())

    def assert_same(self, path, wanted):
        made = undated(path.read_bytes())
        self.assertEqual(len(made), len(wanted))
        self.assertTrue(made == wanted, "the same bytes")

    def test_what_the_tool_exports(self):
        self.take("R0001.WAV", noise(48000, 24))
        program = self.loaded()
        program.find("dial", "Stereo width").value = 75
        program.find("slider", "Gain").value = 6
        program.wait_label("75°")
        program.wait_label("+6 dB")
        self.open_dialog(program)
        for text in ("R0001.WAV", "Stereo width", "75°", "Gain", "+6 dB", "File size", "288.7 kB"):
            self.assertIn(text, program.labels())
        self.assertTrue(program.find("radio button", "24-bit Linear").has("checked"))
        self.assertEqual(self.save(program), "R0001_Decode")
        self.wait_files(program, "R0001.WAV", "R0001_Decode.WAV")
        program.wait(lambda: self.selected(program) == ["R0001_Decode.WAV"], "the selection")
        self.assertIsNone(program.look("dialog"))
        self.assert_same(self.takes / "R0001_Decode.WAV",
                         self.by_tool("--angle", 75, "--gain", 6, "--format", 24))

    def test_floats_to_full_scale_in_place_of_a_file(self):
        self.take("R0001.WAV", noise(48000, 24, level=0.2))
        (self.takes / "out.WAV").write_bytes(b"old")
        program = self.loaded()
        program.find("dial", "Stereo width").value = 120
        self.open_dialog(program)
        program.find("radio button", "32-bit Float").click(x=0.1)
        program.find("check box", "Normalize to full scale").click(x=0.1)
        program.wait_label("384.7 kB")
        program.wait_label("To full scale")
        self.save(program, "out")
        program.wait(lambda: any("out.WAV" in text for text in program.labels()), "the question")
        program.find("push button", "Replace").click()
        program.wait_gone("dialog")
        wanted = self.by_tool("--angle", 120, "--normalize", "--format", "float32")
        program.wait(lambda: (self.takes / "out.WAV").stat().st_size == len(wanted), "the export")
        self.assert_same(self.takes / "out.WAV", wanted)

    def test_recording_time_and_markers_are_kept_where_that_is_wanted(self):
        source = self.take("R0001.WAV").read_bytes()
        when = source[SOURCE_DATE]
        self.assertEqual(when, b"2026-05-0403:02:01")
        program = self.loaded()
        for name, is_kept in (("dated", False), ("kept", True)):
            self.open_dialog(program)
            keeps = program.find("check box", "Keep recording time and markers")
            self.assertFalse(keeps.has("checked"), "off each time")
            if is_kept:
                keeps.act("Toggle")
                program.wait(lambda: keeps.has("checked"), "the switch")
            self.save(program, name)
            program.wait_gone("dialog")
            path = self.takes / f"{name}.WAV"
            program.wait(path.exists, name)
            self.assertEqual(path.read_bytes()[DATE] == when, is_kept, name)
            self.assert_same(path, self.by_tool("--angle", 0, *(["--keep-metadata"] if is_kept else [])))

    def test_the_source_stays(self):
        path = self.take("R0001.WAV")
        before = path.read_bytes()
        program = self.loaded()
        self.open_dialog(program)
        self.save(program, "R0001.WAV")
        program.wait_label("Fail to open.")
        program.find("push button", "Ok").click()
        program.wait_gone("dialog")
        self.assertIn("R0001.WAV was not exported: The target is the source itself.",
                      program.labels())
        self.assertEqual(path.read_bytes(), before)

    def test_a_folder_that_is_not_there(self):
        self.take("R0001.WAV")
        program = self.loaded()
        self.open_dialog(program)
        self.save(program, str(self.home / "none/out"))
        program.wait_label("Fail to save.")
        program.find("push button", "Ok").click()
        program.wait_gone("dialog")

    def test_cancelled_dialogs_write_nothing(self):
        self.take("R0001.WAV")
        program = self.loaded()
        self.open_dialog(program)
        program.find("push button", "Save").click()
        panel = program.find("dialog", "Saving checkboard...")
        program.key("Escape")
        program.wait_gone("dialog", panel.name)
        program.find("dialog", "Export")
        program.find("push button", "Cancel").click()
        program.wait_gone("dialog", "Export")
        self.assertEqual(self.files(program), ["R0001.WAV"])

    def test_a_long_export_is_told_and_cancelled(self):
        program = self.loaded_slowly()
        self.open_dialog(program)
        self.save(program)
        bar = program.find("progress bar", "Progress")
        self.assertIn("Exporting R0001.WAV", program.labels())
        self.assertIn("to R0001_Decode.WAV", program.labels())
        program.wait(lambda: bar.value > 0, "progress")
        program.find("push button", "Cancel").click()
        program.wait_gone("progress bar", "Progress")
        self.assertIsNone(program.look("dialog"))
        self.assertEqual(sorted(path.name for path in self.takes.iterdir()), ["R0001.WAV"])

    def test_another_take_may_be_opened_meanwhile(self):
        self.take("R0002.WAV")
        program = self.loaded_slowly()
        self.open_dialog(program)
        self.save(program)
        bar = program.find("progress bar", "Progress")
        program.find("list item", "R0002.WAV").double_click()
        program.wait_label("R0002.WAV")
        done = bar.value
        program.wait(lambda: bar.value > done, "progress")
        self.assertIn("Exporting R0001.WAV", program.labels())
        program.find("push button", "Export").click()  # shows the one that runs
        self.assertIsNone(program.look("radio button"))
        program.find("push button", "Cancel").click()
        program.wait_gone("progress bar", "Progress")

    def test_the_end_asks_while_an_export_runs(self):
        program = self.loaded_slowly()
        self.open_dialog(program)
        self.save(program)
        program.find("progress bar", "Progress")
        program.find("list", "Files").click(y=0.9)
        program.key("ctrl+q")
        program.find("push button", "Cancel export and quit").click()
        self.assertEqual(program.wait_end(), 0, program.output())
        self.assertEqual(sorted(path.name for path in self.takes.iterdir()), ["R0001.WAV"])


if __name__ == "__main__":
    unittest.main()
