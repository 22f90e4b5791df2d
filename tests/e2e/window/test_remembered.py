# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""What is remembered of takes, over several starts of the window: that it comes back, that it does not
with the switch off, and what is told where the file of it cannot be used."""

import hashlib
import sqlite3
import subprocess
import unittest

from window import CLI, Case, noise

SECOND = 48000 * 6  # of samples, in bytes


class RememberedTest(Case):
    def setUp(self):
        super().setUp()
        self.memory = self.home / ".local/share/mixdeck"
        for number in (1, 2):
            self.take(f"R000{number}.WAV", noise(48000, 24, seed=number))

    def again(self):
        """Another start, which finds the settings as the one before left them."""
        return self.program(self.takes)

    def kept(self):
        """The files of what is remembered, each by what is in it; without those of who reads it just now."""
        passing = (".lock", ".db-wal", ".db-shm")
        return {path.name: hashlib.sha256(path.read_bytes()).hexdigest()
                for path in self.memory.iterdir() if path.suffix not in passing}

    @staticmethod
    def wait_told(program, beginning):
        program.wait(lambda: any(text.startswith(beginning) for text in program.labels()), beginning)

    @staticmethod
    def turn(program, width, gain):
        program.find("dial", "Stereo width").value = width
        program.find("slider", "Gain").value = gain
        program.wait_label(f"{width}°")
        program.wait_label(f"+{gain} dB")

    @staticmethod
    def shown(program):
        return program.find("dial", "Stereo width").value, program.find("slider", "Gain").value

    def wait_known(self, program):
        program.wait(lambda: "width 75, gain +6 dB" in self.remembered("R0001.WAV"), "what is known")

    def test_width_and_gain_come_back_unless_switched_off(self):
        program = self.start()
        self.open_known(program, "R0001.WAV")
        self.turn(program, 75, 6)
        self.wait_known(program)
        self.quit(program)
        program = self.again()
        self.open_known(program, "R0001.WAV")
        program.wait_label("75°")
        program.wait_label("+6 dB")
        self.assertEqual(self.shown(program), (75, 6))
        self.choose(program, "Remember width, gain and loop")
        self.expect_nothing_written(program, 75, 6)
        program = self.again()
        program.find("push button", "Menu").act("Press")
        self.assertFalse(program.find("menu item", "Remember width, gain and loop").has("checked"))
        program.key("Escape")
        program.wait_gone("menu item")
        self.expect_nothing_written(program, 0, 0)

    def test_a_loop_comes_back_to_the_frame(self):
        path = self.take("R0003.WAV", noise(4 * 48000, 24, seed=3))
        program = self.start()
        self.open_known(program, "R0003.WAV")
        self.mark(program, 1, 3)
        self.quit(program)
        program = self.again()
        self.open_known(program, "R0003.WAV")
        program.wait(lambda: program.find("check box", "Loop").has("checked"), "the loop")
        self.export_selection(program)
        self.wait_files(program, "R0001.WAV", "R0002.WAV", "R0003.WAV", "R0003_Decode_A-B.WAV")
        whole = self.home / "tool.wav"
        subprocess.run([CLI, "export", "--quiet", "--angle", "0", "--output", whole, path], check=True)
        samples = whole.read_bytes()[-4 * SECOND:]
        made = (self.takes / "R0003_Decode_A-B.WAV").read_bytes()
        self.assertEqual(len(made), whole.stat().st_size - 2 * SECOND)
        self.assertTrue(made[-2 * SECOND:] == samples[SECOND:3 * SECOND], "the second and third second")

    @staticmethod
    def mark(program, *places):
        """A and B, at these seconds."""
        loop = program.find("check box", "Loop")
        for place in places:
            program.find("slider", "Position").value = place
            program.wait_label(f"00:00:0{place}")
            loop.act("Toggle")
        program.wait(lambda: loop.has("checked"), "the loop")

    @staticmethod
    def export_selection(program):
        program.find("push button", "Export").act("Press")
        program.find("dialog", "Export")
        program.find("check box", "Selection only").act("Toggle")
        program.find("push button", "Save").act("Press")
        panel = program.find("dialog", "Saving checkboard...")
        next(item for item in panel.walk() if item.name == "Save").act("Press")
        program.wait_gone("dialog")

    def expect_nothing_written(self, program, width, gain):
        """With the switch off: width and gain stay from take to take, whatever was known of them. The end
        writes all that waits to be written."""
        before = self.kept()
        for name in ("R0001.WAV", "R0002.WAV", "R0001.WAV"):
            self.open_known(program, name)
            self.assertEqual(self.shown(program), (width, gain))
            width, gain = width + 5, gain + 2
            self.turn(program, width, gain)
        self.quit(program)
        self.assertEqual(self.kept(), before)

    def test_a_damaged_one_is_set_aside(self):
        self.memory.mkdir(parents=True)
        damaged = b"no database at all\n" * 1000
        (self.memory / "takes.db").write_bytes(damaged)
        program = self.start()
        self.wait_told(program, "What was remembered of takes was damaged.")
        self.assertFalse(program.find("push button", "Play").has("enabled"))
        self.assertTrue((self.memory / "takes.db.damaged").read_bytes() == damaged, "the same bytes")
        self.open_known(program, "R0001.WAV")
        self.turn(program, 75, 6)
        self.wait_known(program)

    def test_a_newer_one_is_left_alone(self):
        self.memory.mkdir(parents=True)
        with sqlite3.connect(self.memory / "takes.db") as newer:
            newer.execute("CREATE TABLE takes (something)")
            newer.execute("PRAGMA user_version = 99")
        newer.close()
        before = self.kept()
        program = self.start()
        self.wait_told(program, "What is remembered of takes is of a newer version of the program.")
        self.open_known(program, "R0001.WAV")
        self.turn(program, 75, 6)
        self.open_known(program, "R0002.WAV")
        self.quit(program)
        self.assertEqual(self.kept(), before)


if __name__ == "__main__":
    unittest.main()
