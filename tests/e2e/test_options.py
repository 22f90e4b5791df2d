# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""Words of the command line, exit statuses, and what goes where."""

import os
import re
import unittest

from mixdeck import Case, decoded, recording, samples_of, stored24, unpack24, unpack_floats


class UsageTest(Case):
    def usage_error(self, *arguments):
        result = self.expect(2, *arguments, out="")
        self.assertNotEqual(result.stderr, "")
        self.assertEqual(self.names(), ["a.wav"])
        return result.stderr

    def setUp(self):
        super().setUp()
        self.file("a.wav", recording())

    def test_help_and_version(self):
        for arguments in (["--help"], ["export", "--help"], ["info", "--help"],
                          ["levels", "--help"], ["demo", "--help"]):
            self.assertIn("Usage: ", self.expect(0, *arguments, err="").stdout)
        version = self.expect(0, "--version", err="").stdout
        self.assertRegex(version, r"^mixdeck-cli \d+\.\d+\.\d+\n$")

    def test_help_names_every_option(self):
        text = self.expect(0, "export", "--help").stdout
        for option in ("--angle", "--gain", "--normalize", "--format", "--output", "--output-dir",
                       "--jobs", "--force", "--dry-run"):
            self.assertIn(option, text)

    def test_words_that_are_missing_or_unknown(self):
        self.usage_error()
        self.usage_error("explode")
        self.usage_error("export")
        self.usage_error("info")
        self.usage_error("levels", "a.wav")
        self.usage_error("levels", "--from", "0", "a.wav")
        self.usage_error("export", "--loud", "a.wav")
        self.usage_error("demo", "a.wav")

    def test_angles_out_of_range(self):
        for value in ("-1", "150.5", "nan", "wide", "", "inf"):
            self.assertIn("--angle", self.usage_error("export", f"--angle={value}", "a.wav"))

    def test_gains_out_of_range(self):
        for value in ("-36.5", "37", "nan", "loud"):
            self.assertIn("--gain", self.usage_error("export", f"--gain={value}", "a.wav"))

    def test_formats_and_jobs_that_are_unknown(self):
        for value in ("16", "32", "float", "FLOAT32", ""):
            self.assertIn("--format", self.usage_error("export", f"--format={value}", "a.wav"))
        for value in ("0", "-1", "many", "257", "1.5"):
            self.assertIn("--jobs", self.usage_error("export", f"--jobs={value}", "a.wav"))

    def test_options_that_exclude_each_other(self):
        self.usage_error("export", "--normalize", "--gain", "0", "a.wav")
        self.usage_error("export", "--output", "x.wav", "--output-dir", ".", "a.wav")
        error = self.usage_error("export", "--output", "x.wav", "a.wav", "a.wav")
        self.assertIn("--output", error)

    def test_levels_out_of_range(self):
        for value in ("-1", "nan", "soon"):
            self.usage_error("levels", f"--from={value}", "--to", "1", "a.wav")
            self.usage_error("levels", "--from", "0", f"--to={value}", "a.wav")


class ExportTest(Case):
    samples = [0.25, 0.125, -0.5, 0.25, 0.001, -0.75]

    def setUp(self):
        super().setUp()
        whole = [int(sample * 8388608) for sample in self.samples]
        self.file("a.wav", recording(whole))
        self.source = [value / 8388608 for value in whole]

    def expected24(self, angle=120, gain=0.0):
        return [stored24(sample) for sample in decoded(self.source, angle, gain)]

    def test_default_place_width_and_level(self):
        self.expect(0, "export", "a.wav", out="", err="")
        self.assertEqual(self.names(), ["a.wav", "a_Decode.WAV"])
        self.assertEqual(unpack24(samples_of(self.path("a_Decode.WAV"))), self.expected24())

    def test_angles(self):
        for angle in ("0", "1", "15", "16", "119.9", "150"):
            self.expect(0, "export", "--force", "--angle", angle, "a.wav")
            self.assertEqual(unpack24(samples_of(self.path("a_Decode.WAV"))),
                             self.expected24(int(float(angle))))

    def test_gains(self):
        for gain in ("-36", "-0.5", "6", "36"):
            self.expect(0, "export", "--force", "--gain", gain, "a.wav")
            self.assertEqual(unpack24(samples_of(self.path("a_Decode.WAV"))),
                             self.expected24(120, float(gain)))

    def test_float(self):
        self.expect(0, "export", "--format", "float32", "--angle", "33", "--gain", "12", "a.wav")
        self.assertEqual(unpack_floats(samples_of(self.path("a_Decode.WAV"))),
                         decoded(self.source, 33, 12.0))

    def test_normalize(self):
        self.expect(0, "export", "--format", "float32", "--normalize", "a.wav")
        stored = unpack_floats(samples_of(self.path("a_Decode.WAV")))
        plain = decoded(self.source, 120)
        peak = max(abs(sample) for sample in plain)
        for got, sample in zip(stored, plain, strict=True):
            self.assertAlmostEqual(got, sample / peak, delta=2e-7)

    def test_output(self):
        self.expect(0, "export", "--output", "x.raw", "a.wav", out="", err="")
        self.assertEqual(self.names(), ["a.wav", "x.raw"])

    def test_output_folder(self):
        os.mkdir(self.path("out"))
        self.file("b.WAV", recording())
        self.expect(0, "export", "--output-dir", "out", "a.wav", "b.WAV", out="", err="")
        self.assertEqual(self.names(), ["a.wav", "b.WAV", "out"])
        self.assertEqual(sorted(os.listdir(self.path("out"))), ["a_Decode.WAV", "b_Decode.WAV"])

    def test_a_source_that_is_not_raw(self):
        self.file("a.wav", recording([4194304, -4194304], history="MSRAW=OFF;"))
        self.expect(0, "export", "--angle", "0", "a.wav", out="", err="")
        self.assertEqual(unpack24(samples_of(self.path("a_Decode.WAV"))), [4194303, -4194303])

    def test_many_files_at_once_give_the_same_as_one_by_one(self):
        names = [f"take{i:02}.wav" for i in range(24)]
        for i, name in enumerate(names):
            self.file(name, recording([i * 1000, i] * (i * 500 + 1)))
        for folder, jobs in (("one", 1), ("many", 8)):
            os.mkdir(self.path(folder))
            self.expect(0, "export", "--jobs", jobs, "--output-dir", folder, *names, err="")
        for name in names:
            target = name.replace(".wav", "_Decode.WAV")
            self.assertEqual(samples_of(self.path("one", target)),
                             samples_of(self.path("many", target)))

    def test_dry_run(self):
        result = self.expect(0, "export", "--dry-run", "--angle", "77.9", "--gain=-3", "a.wav",
                             err="")
        self.assertEqual(self.names(), ["a.wav"])
        self.assertEqual(result.stdout, "a.wav -> a_Decode.WAV: 24-bit, width 77, gain -3 dB, "
                                        f"{748 + 3 * len(self.samples)} bytes\n")

    def test_dry_run_of_other_settings(self):
        self.file("b.wav", recording(history="MSRAW=OFF;"))
        result = self.expect(0, "export", "--dry-run", "--normalize", "--format", "float32",
                             "--output", "x", "b.wav", err="")
        self.assertRegex(result.stdout, r"^b.wav -> x: 32-bit float, not M/S, .*normalised, 764")

    def test_dry_run_keeps_the_order(self):
        names = [f"{i}.wav" for i in (5, 3, 9, 1)]
        for name in names:
            self.file(name, recording())
        result = self.expect(0, "export", "--dry-run", "--jobs", "4", *names, err="")
        self.assertEqual([line.split(" ")[0] for line in result.stdout.splitlines()], names)

    def test_dry_run_refuses_as_a_real_run_does(self):
        self.file("a_Decode.WAV", b"old")
        result = self.expect(1, "export", "--dry-run", "a.wav", out="")
        self.assertIn("a_Decode.WAV: Fail to save. ", result.stderr)
        self.expect(0, "export", "--dry-run", "--force", "a.wav", err="")
        self.assertEqual(self.read("a_Decode.WAV"), b"old")

    def test_warnings_do_not_fail(self):
        self.file("cut.wav", self.read("a.wav")[:-5])
        result = self.expect(0, "export", "cut.wav", out="")
        self.assertTrue(re.fullmatch(r"mixdeck-cli: cut.wav: Warning: Cut short: .*\n",
                                     result.stderr), result.stderr)
        self.assertEqual(unpack24(samples_of(self.path("cut_Decode.WAV"))), self.expected24()[:4])


if __name__ == "__main__":
    unittest.main()
