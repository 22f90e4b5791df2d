# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""Takes whose recording broke off, and what is salvaged of them."""

import os
import struct
import subprocess
import unittest

from mixdeck import CLI, PLAIN, Case, bext, chunk, fmt, pack24, recording, wave

SAMPLES = pack24([1000, -1000] * 24000)


def broken(data_size=0, riff_size=0, samples=SAMPLES):
    return wave(bext(history=PLAIN), fmt(), chunk("data", samples, data_size), riff_size=riff_size)


def whole(samples=SAMPLES):
    return wave(bext(history=PLAIN), fmt(), chunk("data", samples))


class RepairTest(Case):
    def repair(self, content, said):
        self.file("R0001.WAV", content)
        result = self.expect(0, "repair", "--force", "R0001.WAV", err="")
        self.assertEqual(result.stdout, "R0001.WAV -> R0001_Repaired.WAV: 00:00:00.500 of sound "
                                        "salvaged\n" + "".join(f"  {line}\n" for line in said))
        self.assertEqual(self.read("R0001.WAV"), content)
        self.assertEqual(self.read("R0001_Repaired.WAV"), whole())

    def test_sizes_of_zero(self):
        content = broken()
        self.repair(content, ["the data chunk states 0 bytes, the file holds 144000",
                              f"the file states 0 bytes, and has {len(content)}"])

    def test_sizes_beyond_the_file(self):
        content = broken(1 << 30, (1 << 30) + 700)
        self.repair(content, ["the data chunk states 1073741824 bytes, the file holds 144000",
                              f"the file states 1073742532 bytes, and has {len(content)}"])

    def test_a_tail_of_zeros_and_half_a_frame(self):
        content = broken(samples=SAMPLES + bytes(65536))
        self.repair(content, ["the data chunk states 0 bytes, the file holds 209536",
                              "65536 zero bytes at the end, where no sound was written",
                              f"the file states 0 bytes, and has {len(content)}"])
        content = broken(samples=SAMPLES + b"\x11" * 5)
        self.repair(content, ["the data chunk states 0 bytes, the file holds 144005",
                              "5 bytes of half a frame at the end",
                              f"the file states 0 bytes, and has {len(content)}"])

    def test_what_is_salvaged_is_read_by_others_and_by_us(self):
        self.file("R0001.WAV", broken())
        self.expect(0, "repair", "R0001.WAV", err="")
        self.assertEqual(self.info(self.path("R0001_Repaired.WAV"))["frames"], 24000)
        said = subprocess.run(["ffprobe", "-v", "warning", "-show_entries", "stream=duration_ts",
                               "-of", "csv=p=0", "R0001_Repaired.WAV"], cwd=self.folder,
                              capture_output=True, text=True, check=True)
        self.assertEqual((said.stdout.strip(), said.stderr), ("24000", ""))
        self.expect(0, "repair", "R0001_Repaired.WAV", err="",
                    out="R0001_Repaired.WAV: sound, left alone\n")

    def test_a_sound_file_is_left_alone(self):
        self.file("R0001.WAV", recording())
        self.expect(0, "repair", "R0001.WAV", err="", out="R0001.WAV: sound, left alone\n")
        self.assertEqual(self.names(), ["R0001.WAV"])

    def test_what_cannot_be_helped_fails_and_the_others_are_done(self):
        self.file("text.WAV", b"No take at all, but long enough to be looked into, and more.")
        self.file("zeros.WAV", broken(samples=bytes(70000)))
        self.file("R0001.WAV", broken())
        result = self.expect(1, "repair", "missing.WAV", "text.WAV", "zeros.WAV", "R0001.WAV",
                             err="mixdeck-cli: missing.WAV: Fail to open. No such file or "
                                 "directory; check its name, and that its card or disk is there\n"
                                 "mixdeck-cli: text.WAV: Nothing to salvage: it does not begin as a "
                                 "WAVE file\n"
                                 "mixdeck-cli: zeros.WAV: Nothing to salvage: no sound was written "
                                 "to it\n")
        self.assertTrue(result.stdout.startswith("R0001.WAV -> R0001_Repaired.WAV: "))

    def test_what_exists_is_kept(self):
        self.file("R0001.WAV", broken())
        self.file("R0001_Repaired.WAV", b"old")
        self.expect(1, "repair", "R0001.WAV", out="",
                    err="mixdeck-cli: R0001_Repaired.WAV: Fail to save. The file exists; --force "
                        "replaces it\n")
        self.assertEqual(self.read("R0001_Repaired.WAV"), b"old")
        self.expect(0, "repair", "--force", "R0001.WAV", err="")
        self.assertEqual(self.read("R0001_Repaired.WAV"), whole())

    def test_two_takes_with_one_new_file(self):
        said = "Fail to save. It belongs to R0001.WAV in the same run; rename {}, and repair it by itself\n"
        for second in ("R0001.wav", "r0001.wav"):
            self.file("R0001.WAV", broken())
            self.file(second, broken(samples=SAMPLES[:600]))
            name = second[:5] + "_Repaired.WAV"
            for how in ("--force", "--dry-run", "--quiet"):
                result = self.expect(1, "repair", how, "R0001.WAV", second,
                                     err=f"mixdeck-cli: {name}: {said.format(second)}")
                self.assertNotIn(second, result.stdout)
                if how != "--dry-run":
                    self.assertEqual(self.read("R0001_Repaired.WAV"), whole())
                    os.remove(self.path("R0001_Repaired.WAV"))
                self.assertEqual(self.names(), sorted(["R0001.WAV", second]))
            os.remove(self.path(second))

    def test_no_recording_of_the_run_is_replaced(self):
        self.file("R0001.WAV", broken())
        other = broken(samples=SAMPLES[:600])
        self.file("R0001_Repaired.WAV", other)
        self.expect(1, "repair", "--force", "--quiet", "R0001.WAV", "R0001_Repaired.WAV", out="",
                    err="mixdeck-cli: R0001_Repaired.WAV: Fail to save. It belongs to "
                        "R0001_Repaired.WAV in the same run; rename R0001.WAV, and repair it by itself\n")
        self.assertEqual(self.read("R0001_Repaired.WAV"), other)

    def test_a_name_that_leads_nowhere_keeps_no_other_from_being_salvaged(self):
        self.file("R0001.WAV", broken())
        os.mkdir(self.path("gone"))
        done = subprocess.run(["sh", "-c", 'rmdir "$PWD" && exec "$@"', "sh", CLI, "repair", "--quiet",
                               "R0002.WAV", self.path("R0001.WAV")], cwd=self.path("gone"),
                              capture_output=True, text=True, check=False)
        self.assertEqual(done.returncode, 1)
        self.assertRegex(done.stderr, r"\Amixdeck-cli: R0002\.WAV: .+\n\Z")
        self.assertEqual(self.read("R0001_Repaired.WAV"), whole())

    def test_a_quiet_one_tells_only_what_goes_wrong(self):
        self.file("R0001.WAV", broken())
        self.file("R0002.WAV", recording())
        self.expect(0, "repair", "--quiet", "R0001.WAV", "R0002.WAV", out="", err="")
        self.assertEqual(self.read("R0001_Repaired.WAV"), whole())
        self.assertIn("--force", self.expect(1, "repair", "--quiet", "R0001.WAV", out="").stderr)

    def test_a_dry_run_writes_nothing(self):
        self.file("R0001.WAV", broken())
        result = self.expect(0, "repair", "--dry-run", "R0001.WAV", err="")
        self.assertIn(": 00:00:00.500 of sound can be salvaged\n", result.stdout)
        self.assertEqual(self.names(), ["R0001.WAV"])

    def test_progress_counts_every_file_on_a_terminal(self):
        self.file("R0001.WAV", recording())
        self.file("R0002.WAV", b"No take at all, but long enough to be looked into, and more.")
        said = subprocess.run(["script", "-qec", f"'{CLI}' repair R0001.WAV R0002.WAV",
                               "/dev/null"], cwd=self.folder, capture_output=True,
                              check=False).stdout
        self.assertIn(b" 50 %  1 of 2 done  R0001.WAV", said)

    def test_words_that_are_missing(self):
        self.assertIn("FILE", self.expect(2, "repair", out="").stderr)


if __name__ == "__main__":
    unittest.main()
