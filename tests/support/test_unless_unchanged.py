# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""Tests of unless_unchanged.py with programs of a build folder made for it."""

import os
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

SKIPPED = 77
SCRIPT = Path(__file__).resolve().with_name("unless_unchanged.py")


class UnlessUnchanged(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.build = Path(folder.name)
        self.program = self.make("program", "exit 0")

    def make(self, name, line):
        path = self.build / name
        path.write_text(f"#!/bin/sh\n{line}\n")
        path.chmod(0o755)
        return path

    def run_test(self, *words, **variables):
        command = [sys.executable, "-B", SCRIPT, self.build / "passed" / "test", self.program, *words]
        return subprocess.run(command, env={**os.environ, **variables}, check=False,
                              stdout=subprocess.DEVNULL).returncode

    def test_what_has_passed_is_skipped(self):
        self.assertEqual(self.run_test(), 0)
        self.assertEqual(self.run_test(), SKIPPED)

    def test_what_has_failed_is_never_skipped(self):
        self.make("program", "exit 3")
        self.assertEqual([self.run_test(), self.run_test()], [3, 3])

    def test_a_failure_is_forgotten_with_what_passed_before_it(self):
        self.run_test()
        self.make("program", "exit 3")
        self.run_test()
        self.make("program", "exit 0")
        self.assertEqual(self.run_test(), 0)

    def test_a_changed_program_runs_again(self):
        self.run_test()
        self.make("program", "exit 0 # another")
        self.assertEqual(self.run_test(), 0)

    def test_a_changed_program_that_a_variable_names_runs_again(self):
        tool = self.make("tool", "exit 0")
        self.run_test(TOOL=str(tool))
        self.assertEqual(self.run_test(TOOL=str(tool)), SKIPPED)
        self.make("tool", "exit 1")
        self.assertEqual(self.run_test(TOOL=str(tool)), 0)

    def test_a_changed_program_of_a_folder_that_a_variable_names_runs_again(self):
        (self.build / "bin").mkdir()
        self.make("bin/tool", "exit 0")
        folder = str(self.build / "bin")
        self.run_test(FOLDER=folder)
        self.assertEqual(self.run_test(FOLDER=folder), SKIPPED)
        self.make("bin/tool", "exit 1")
        self.assertEqual(self.run_test(FOLDER=folder), 0)

    def test_a_changed_library_of_the_tests_runs_again(self):
        (self.build / "tests" / "support").mkdir(parents=True)
        self.make("tests/support/libheld.so", "one")
        self.run_test()
        self.make("tests/support/libheld.so", "another")
        self.assertEqual(self.run_test(), 0)

    def test_other_words_and_settings_run_again(self):
        self.run_test()
        self.assertEqual(self.run_test("word"), 0)
        self.assertEqual(self.run_test("word", QT_SCALE_FACTOR="3"), 0)

    def test_a_signal_is_a_failure(self):
        self.make("program", "kill -9 $$")
        self.assertEqual(self.run_test(), 137)


if __name__ == "__main__":
    unittest.main()
