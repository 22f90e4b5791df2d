# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""Lists of files from elsewhere, and colours on a terminal."""

import json
import os
import pty
import signal
import subprocess
import time
import unittest

from mixdeck import CLI, Case, recording

COLOUR = "\x1b[1;31m"


class ListTest(Case):
    def setUp(self):
        super().setUp()
        for name in ("a.wav", "b c.wav"):
            self.file(name, recording())

    def described(self, *arguments, given):
        done = subprocess.run([CLI, "info", "--json", *arguments], input=given, text=True,
                              cwd=self.folder, capture_output=True, check=True)
        return [json.loads(line)["path"] for line in done.stdout.splitlines()]

    def test_names_from_standard_input(self):
        self.assertEqual(self.described("--files-from", "-", given="b c.wav\na.wav\n"),
                         ["b c.wav", "a.wav"])

    def test_names_between_nul_bytes(self):
        self.file("two\nlines.wav", recording())
        self.assertEqual(self.described("--files-from=-", given="two\nlines.wav\0a.wav\0"),
                         ["two\nlines.wav", "a.wav"])

    def test_words_come_first(self):
        self.assertEqual(self.described("b c.wav", "--files-from", "-", given="a.wav"),
                         ["b c.wav", "a.wav"])

    def test_names_from_a_file(self):
        self.file("list", b"a.wav\nb c.wav\n")
        self.assertEqual(self.described("--files-from", "list", given=""), ["a.wav", "b c.wav"])

    def test_export_and_measure_take_them_too(self):
        self.file("list", b"a.wav\nb c.wav\n")
        self.expect(0, "export", "--files-from", "list", err="")
        self.assertIn("b c_Decode.WAV", self.names())
        lines = self.expect(0, "measure", "--csv", "--files-from", "list", err="").stdout
        self.assertEqual(len(lines.splitlines()), 3)

    def test_a_single_output_counts_the_list_in(self):
        self.file("list", b"a.wav\nb c.wav\n")
        result = self.expect(2, "export", "--output", "x", "--files-from", "list", out="")
        self.assertIn("--output", result.stderr)

    def test_a_list_that_names_nothing(self):
        self.file("list", b"\n\n")
        result = self.expect(2, "info", "--files-from", "list", out="")
        self.assertIn("--files-from: names no file", result.stderr)

    def test_neither_names_nor_a_list(self):
        self.assertIn("--files-from", self.expect(2, "info", out="").stderr)

    def test_a_list_that_cannot_be_read(self):
        self.expect(1, "info", "--files-from", "none", out="", err="mixdeck-cli: none: Fail to open. "
                    "No such file or directory; check its name, and that its card or disk is there\n")
        self.expect(1, "info", "--files-from", ".", out="",
                    err="mixdeck-cli: .: Fail to open. Is a directory; name a file\n")

    def test_a_list_without_end(self):
        result = self.expect(1, "info", "--files-from", "/dev/zero", out="")
        self.assertIn("longer than 64 MiB", result.stderr)

    def test_an_interrupt_while_it_waits_for_names(self):
        with subprocess.Popen([CLI, "info", "--files-from", "-"], stdin=subprocess.PIPE,
                              stderr=subprocess.PIPE, text=True) as process:
            self.wait_until_it_reads(process.pid)
            process.send_signal(signal.SIGINT)
            self.assertIn("interrupted", process.stderr.read())
            self.assertEqual(process.wait(), 1)

    def wait_until_it_reads(self, pid):
        """Until it stands in read() of standard input."""
        read = {"x86_64": "0", "aarch64": "63"}[os.uname().machine]
        call = []
        while call != [read, "0x0"]:
            time.sleep(0.01)
            with open(f"/proc/{pid}/syscall", encoding="ascii") as file:
                call = file.read().split()[:2]


class ColourTest(Case):
    def shown(self, **variables):
        """What a terminal gets of the complaint about a file that is not there."""
        master, slave = pty.openpty()
        environment = {name: value for name, value in os.environ.items() if name != "NO_COLOR"}
        done = subprocess.run([CLI, "info", "none.wav"], stdout=subprocess.DEVNULL, stderr=slave,
                              check=False, cwd=self.folder, env=environment | variables)
        os.close(slave)
        text = os.read(master, 65536).decode()
        os.close(master)
        self.assertEqual(done.returncode, 1)
        self.assertIn("none.wav", text)
        return text

    def test_a_terminal_shows_failures_in_colour(self):
        self.assertIn(f"{COLOUR}Fail to open.", self.shown(TERM="xterm"))

    def test_no_color(self):
        self.assertNotIn("\x1b", self.shown(TERM="xterm", NO_COLOR="1"))
        self.assertIn(COLOUR, self.shown(TERM="xterm", NO_COLOR=""))

    def test_a_terminal_without_colours(self):
        self.assertNotIn("\x1b", self.shown(TERM="dumb"))

    def test_a_file_gets_none(self):
        result = self.expect(1, "info", "none.wav", env=dict(os.environ, TERM="xterm"))
        self.assertNotIn("\x1b", result.stderr)


if __name__ == "__main__":
    unittest.main()
