# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""Several takes exported together, from the list to the queue, through accessibility."""

import subprocess
import unittest

from window import CLI, Case, noise  # first: it knows where the others are
from exported import undated


class SeveralTest(Case):
    def test_takes_are_selected_exported_and_told_of(self):
        for name in ("R0001.WAV", "R0002.WAV"):
            self.take(name, noise(48000, 24))
        (self.takes / "R0003.WAV").write_bytes(b"RIFF")
        program = self.start()
        self.assertIsNone(program.look("push button", "Export 3…"))
        program.find("list item", "R0001.WAV").click()
        program.key("ctrl+a")
        program.wait_label("3 takes · 00:00:02")
        program.find("push button", "Export 3…").click()
        dialog = program.find("dialog", "Export")
        program.wait_label("One will not be exported:")
        refused = list(program.find("list", "Takes that will not be exported").children())
        self.assertEqual(len(refused), 1)
        self.assertIn("R0003.WAV: Not a WAVE file", refused[0].name)
        next(item for item in dialog.walk() if item.name == "Export 2").act("Press")
        program.wait_label("2 of 2 exported")
        lines = list(program.find("list", "Exports").children())
        self.assertEqual([(line.name, line.description) for line in lines],
                         [("R0001.WAV", "Exported"), ("R0002.WAV", "Exported")])
        for name in ("R0001", "R0002"):
            wanted = self.home / "tool.wav"
            subprocess.run([CLI, "export", "--force", "--angle", "0", "--output", wanted,
                            self.takes / f"{name}.WAV"], check=True)
            made = self.takes / f"{name}_Decode.WAV"
            self.assertTrue(undated(made.read_bytes()) == undated(wanted.read_bytes()), name)
        program.find("push button", "Close").click()
        program.wait_gone("dialog")
        self.wait_files(program, "R0001.WAV", "R0001_Decode.WAV", "R0002.WAV", "R0002_Decode.WAV",
                        "R0003.WAV")
        self.assertEqual(self.selected(program), ["R0001.WAV", "R0002.WAV", "R0003.WAV"])


if __name__ == "__main__":
    unittest.main()
