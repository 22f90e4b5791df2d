# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""What the tool loads when it starts, and what it hands over."""

import os
import shutil
import subprocess
import unittest

from mixdeck import CLI, Case


class StartTest(Case):
    def test_the_tool_loads_neither_qt_nor_sound_nor_midi(self):
        loaded = self.run_cli("--version", env=os.environ | {"LD_TRACE_LOADED_OBJECTS": "1"}).stdout
        self.assertIn("libc.so", loaded)
        self.assertNotRegex(loaded, "Qt|pulse|asound")

    def test_what_plays_and_what_finds_recorders_is_a_program_beside_it(self):
        alone = shutil.copy(CLI, self.path("mixdeck-cli"))
        for word in ("play", "device"):
            result = subprocess.run([alone, word], capture_output=True, text=True, check=False)
            self.assertEqual((result.returncode, result.stdout), (1, ""))
            self.assertEqual(result.stderr, f"mixdeck-cli: {self.path('mixdeck-cli-live')}: No such "
                                            "file or directory; install Mixdeck again\n")

    def test_it_is_handed_every_word(self):
        for word, option in (("play", "--volume"), ("device", "--simulate")):
            self.assertIn(option, self.expect(0, word, "--help", err="").stdout)
            self.assertIn(word, self.expect(0, "--help", err="").stdout)
        self.expect(1, "play", "--angle", "90", "--", "-none.wav", out="",
                    err="mixdeck-cli: -none.wav: Fail to open. No such file or directory; check its name, and that its "
                        "card or disk is there\n")
        self.assertIn("Did you mean watch?", self.expect(2, "device", "wathc").stderr)


if __name__ == "__main__":
    unittest.main()
