#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""The word measure: against exact arithmetic, against an export, and against another program."""

import csv
import io
import json
import math
import random
import re
import struct
import subprocess
import unittest

from mixdeck import FIGURES, Case, bext, chunk, decoded, fmt, recording, single, tone, wave

KEYS = ["path", "seconds", "sample_rate", "raw_ms", "widths"]


class MeasureTest(Case):
    def measure(self, *arguments):
        lines = self.expect(0, "measure", "--json", *arguments, err="").stdout.splitlines()
        return [json.loads(line) for line in lines]

    def figures(self, *arguments):
        return self.measure(*arguments)[0]["widths"][0]

    def test_keys_and_defaults(self):
        self.file("a.wav", recording(tone(0.5, -20)))
        found = self.measure("a.wav")[0]
        self.assertEqual(list(found), KEYS)
        self.assertEqual([list(row) for row in found["widths"]], [FIGURES])
        self.assertEqual((found["path"], found["seconds"], found["sample_rate"], found["raw_ms"]),
                         ("a.wav", 0.5, 48000, True))
        self.assertEqual((found["widths"][0]["angle"], found["widths"][0]["gain_db"]), (120, 0))

    def test_known_loudness_at_width_0(self):
        self.file("a.wav", recording(tone(4, -23)))
        row = self.figures("--angle", "0", "a.wav")
        for name in ("integrated_lufs", "momentary_max_lufs", "short_term_max_lufs"):
            self.assertAlmostEqual(row[name], -23, delta=0.1)
        self.assertAlmostEqual(row["range_lu"], 0, delta=0.1)
        self.assertAlmostEqual(row["true_peak_dbtp"], -23, delta=0.2)
        self.assertEqual((row["correlation"], row["balance_db"]), (1, 0))

    def test_a_gain_is_added(self):
        self.file("a.wav", recording(tone(1, -30)))
        plain = self.figures("--angle", "77", "a.wav")
        louder = self.figures("--angle", "77", "--gain", "6.5", "a.wav")
        for name in ("integrated_lufs", "momentary_max_lufs", "true_peak_dbtp", "sample_peak_dbfs"):
            self.assertAlmostEqual(louder[name], plain[name] + 6.5, places=5)
        for name in ("correlation", "balance_db"):
            self.assertEqual(louder[name], plain[name])

    def test_peak_correlation_and_balance_are_those_of_the_decoded_samples(self):
        samples = tone(0.3, -12)
        self.file("a.wav", recording(samples))
        floats = [single(value / 8388608) for value in samples]
        rows = self.measure("--angles", "0,33,120,150", "a.wav")[0]["widths"]
        for row in rows:
            pairs = decoded(floats, row["angle"])
            left, right = pairs[0::2], pairs[1::2]
            peak = max(abs(value) for value in pairs)
            self.assertAlmostEqual(row["sample_peak_dbfs"], 20 * math.log10(peak), places=5)
            power = [math.fsum(x * x for x in side) for side in (left, right)]
            both = math.fsum(x * y for x, y in zip(left, right))
            self.assertAlmostEqual(row["correlation"], both / math.sqrt(power[0] * power[1]),
                                   places=5)
            self.assertAlmostEqual(row["balance_db"], 10 * math.log10(power[0] / power[1]),
                                   places=4)

    def test_all_widths(self):
        self.file("a.wav", recording(tone(0.5, -20)))
        rows = self.measure("--angles", "all", "a.wav")[0]["widths"]
        self.assertEqual([row["angle"] for row in rows], list(range(151)))
        loudness = [row["integrated_lufs"] for row in rows]
        self.assertEqual(loudness, sorted(loudness))

    def test_an_export_measures_as_its_source_at_that_width(self):
        self.file("a.wav", recording(tone(3.5, -18)))
        for angle in (20, 90, 150):
            self.expect(0, "export", "--angle", angle, "--format", "float32", "--gain", "-3",
                        "--output", "b.wav", "--force", "a.wav")
            wanted = self.figures("--angle", angle, "--gain", "-3", "a.wav")
            for any_width in ("0", "150"):
                result = self.expect(0, "measure", "--json", "--angle", any_width, "b.wav",
                                     err="mixdeck-cli: b.wav: Warning: --angle is not used, as it "
                                         "is not raw M/S\n")
                got = json.loads(result.stdout)["widths"][0]
                for name in FIGURES[2:]:
                    self.assertAlmostEqual(got[name], wanted[name], places=3, msg=name)

    def of_another_program(self, angle):
        """What ffmpeg tells of a.wav at this width, every 100 ms, in thousandths."""
        self.expect(0, "export", "--angle", angle, "--format", "float32", "--output", "b.wav",
                    "--force", "a.wav")
        said = subprocess.run(["ffmpeg", "-nostats", "-i", self.path("b.wav"), "-af",
                               "ebur128=metadata=1:peak=true+sample,ametadata=mode=print:file=-",
                               "-f", "null", "-"], check=True, capture_output=True, text=True)
        found = [re.findall(r"lavfi\.r128\.(\S+)=(\S+)", part)
                 for part in said.stdout.split("frame:")[1:]]
        return [{name: float(value) for name, value in pairs} for pairs in found]

    def test_agrees_with_another_program(self):
        noise = random.Random(5)
        samples = []
        for i in range(48000 * 10):
            level = 300000 * (1 + (i // 96000) % 3)
            samples += [int(noise.gauss(0, level)), int(noise.gauss(0, level * 0.6))]
        self.file("a.wav", recording([max(-8388608, min(8388607, value)) for value in samples]))
        for angle in (30, 120):
            said = self.of_another_program(angle)
            self.assertEqual(len(said), 100)
            row = self.figures("--angle", angle, "a.wav")
            # It sums a histogram, in which a window loses less than 0.01 LU, half that on average.
            self.assertAlmostEqual(row["integrated_lufs"], said[-1]["I"] + 0.005, delta=0.006)
            full = [one["S"] for one in said[29:]]  # those before are of less than 3 s
            self.assertAlmostEqual(row["short_term_max_lufs"], max(full), delta=0.002)
            # It takes ten short-term values a second for its range; we take one, as is usual for
            # files. From its own values that is, as none lies under a gate:
            values = sorted(full[::10])
            low, high = (values[int((len(values) - 1) * share + 0.5)] for share in (0.1, 0.95))
            self.assertAlmostEqual(row["range_lu"], high - low, delta=0.002)
            self.assertAlmostEqual(row["range_lu"], said[-1]["LRA"], delta=1.0)
            # We look every 50 ms, and so find no less.
            more = row["momentary_max_lufs"] - max(one["M"] for one in said[3:])
            self.assertTrue(-0.002 < more < 0.05, more)
            self.assertAlmostEqual(10 ** (row["sample_peak_dbfs"] / 20), said[-1]["sample_peak"],
                                   delta=0.0006)
            # Noise reaches up to half the rate, where no two filters are alike.
            self.assertAlmostEqual(row["true_peak_dbtp"],
                                   20 * math.log10(said[-1]["true_peak"]), delta=0.3)

    def test_true_peak_agrees_with_another_program(self):
        samples = []
        for i in range(48000):  # swells: a sudden begin would ring otherwise in each filter
            level = 3000000 * math.sin(math.pi * i / 48000) ** 2
            samples += [int(level * math.sin(math.pi * (i / 2 + 1 / 4))),
                        int(level * math.sin(0.45 * math.pi * i + 0.8))]
        self.file("a.wav", recording(samples))
        for angle in (0, 75, 120, 150):
            row = self.figures("--angle", angle, "a.wav")
            self.assertGreater(row["true_peak_dbtp"], row["sample_peak_dbfs"] + 0.5)
            said = self.of_another_program(angle)[-1]["true_peak"]
            self.assertAlmostEqual(row["true_peak_dbtp"], 20 * math.log10(said), delta=0.1)

    def test_a_stretch_is_measured_as_if_cut_out(self):
        samples = tone(1, -30) + tone(1.5, -10) + tone(1, -40)
        self.file("a.wav", recording(samples))
        self.file("b.wav", recording(samples[2 * 52800:2 * 100800]))
        got = self.measure("--from", "1.1", "--to", "2.1", "a.wav")[0]
        self.assertEqual(got["seconds"], 1.0)
        self.assertEqual(got["widths"], self.measure("b.wav")[0]["widths"])
        self.assertEqual(self.measure("--from", "0:01.1", "--to", "0:00:02.1", "a.wav")[0], got)
        self.assertEqual(self.measure("--from", "3.5", "a.wav")[0]["seconds"], 0)
        for words, told in ((["--from", "99"], "--from 00:01:39.000"),
                            (["--to", "4"], "--to 00:00:04.000")):
            self.expect(1, "measure", *words, "a.wav", out="", err="mixdeck-cli: a.wav: No such "
                        f"stretch. {told} lies beyond its end at 00:00:03.500\n")

    def test_null_where_there_is_no_figure(self):
        self.file("a.wav", recording([0] * 96000))
        row = self.figures("a.wav")
        self.assertEqual({row[name] for name in FIGURES[2:]}, {None})
        self.file("b.wav", recording(tone(0.2, -10)))
        row = self.figures("b.wav")
        self.assertIsNone(row["integrated_lufs"])
        self.assertIsNotNone(row["sample_peak_dbfs"])

    def test_broken_samples(self):
        values = [0.25, math.nan, math.inf, -math.inf, 1e38, -1e-42] * 4000
        data = struct.pack(f"<{len(values)}f", *values)
        self.file("a.wav", wave(fmt(3, 2, 48000, 32), bext(), chunk("data", data)))
        row = self.figures("a.wav")
        self.assertIsNone(row["sample_peak_dbfs"])
        self.expect(0, "measure", "--angles", "all", "a.wav")

    def test_table(self):
        self.file("a.wav", recording(tone(4, -6)))
        text = self.expect(0, "measure", "--angles", "0,120,150", "--gain", "12", "a.wav",
                           err="").stdout
        lines = text.splitlines()
        self.assertEqual(lines[0], "a.wav")
        self.assertIn("4.000 s, 48000 Hz, raw M/S, gain +12 dB", lines[1])
        self.assertEqual([line.split()[0] for line in lines[4:]], ["0", "120", "150"])
        self.assertTrue(lines[4].endswith("over full scale"))
        self.assertNotIn("over full scale", self.expect(0, "measure", "a.wav").stdout)

    def test_csv(self):
        self.file('a,"b.wav', recording(tone(0.5, -20)))
        self.file("c.wav", recording([0, 0]))
        text = self.expect(0, "measure", "--csv", "--angles", "5,6", 'a,"b.wav', "c.wav",
                           err="").stdout
        rows = list(csv.DictReader(io.StringIO(text)))
        self.assertEqual(list(rows[0]), KEYS[:-1] + FIGURES)
        self.assertEqual([(row["path"], row["angle"]) for row in rows],
                         [('a,"b.wav', "5"), ('a,"b.wav', "6"), ("c.wav", "5"), ("c.wav", "6")])
        wanted = self.measure("--angles", "5,6", 'a,"b.wav')[0]["widths"]
        self.assertEqual(float(rows[1]["true_peak_dbtp"]), wanted[1]["true_peak_dbtp"])
        self.assertEqual(rows[2]["integrated_lufs"], "")

    def test_several_files_in_the_order_of_the_command_line(self):
        names = [f"{i}.wav" for i in range(9)]
        for i, name in enumerate(names):
            self.file(name, recording([1000 * (i + 1), 0] * 5000))
        found = self.measure(*names)
        self.assertEqual([one["path"] for one in found], names)
        peaks = [one["widths"][0]["sample_peak_dbfs"] for one in found]
        self.assertEqual(peaks, sorted(peaks))
        for name, one in zip(names, found):
            self.assertEqual(one, self.measure(name)[0])

    def test_what_cannot_be_measured_is_told_and_the_rest_done(self):
        self.file("a.wav", recording(tone(0.1, -20)))
        self.file("b.wav", b"no sound")
        result = self.expect(1, "measure", "--json", "b.wav", "a.wav", "c.wav")
        self.assertEqual(result.stdout.count("\n"), 1)
        self.assertIn("mixdeck-cli: b.wav: File not supported. ", result.stderr)
        self.assertIn("mixdeck-cli: c.wav: Fail to open. ", result.stderr)

    def test_wrong_usage(self):
        self.file("a.wav", recording())
        for words in (["--angle", "151"], ["--angles", "1,x"], ["--angle", "1", "--angles", "2"],
                      ["--json", "--csv"], ["--gain", "99"], ["--from", "-1"],
                      ["--from", "2", "--to", "1"]):
            self.expect(2, "measure", *words, "a.wav", out="")
        self.expect(2, "measure", out="")


class LoudnessTest(Case):
    def measured(self, name):
        line = self.expect(0, "measure", "--json", name).stdout
        return json.loads(line)["widths"][0]

    def test_an_export_at_a_loudness(self):
        self.file("a.wav", recording(tone(2, -30)))
        result = self.expect(0, "export", "--angle", "80", "--loudness", "-18", "--format",
                             "float32", "a.wav", err="")
        row = self.measured("a_Decode.WAV")
        self.assertAlmostEqual(row["integrated_lufs"], -18, delta=0.001)
        gain = re.search(r", width 80, gain (\S+) dB, -18.00 LUFS, ", result.stdout)[1]
        wanted = json.loads(self.expect(0, "measure", "--json", "--angle", "80", "--gain", gain,
                                        "a.wav").stdout)["widths"][0]
        self.assertAlmostEqual(wanted["integrated_lufs"], -18, delta=0.01)

    def test_the_true_peak_lowers_it_and_that_is_said(self):
        self.file("a.wav", recording(tone(2, -30)))
        for limit, words in ((-1, []), (-6, ["--true-peak", "-6"])):
            result = self.expect(0, "export", "--loudness", "0", *words, "--force", "a.wav")
            self.assertAlmostEqual(self.measured("a_Decode.WAV")["true_peak_dbtp"], limit,
                                   delta=0.01)
            self.assertRegex(result.stdout, rf"LU less than asked for a true peak of {limit} dBTP")

    def test_silence_is_refused_with_a_reason(self):
        self.file("a.wav", recording([0] * 96000))
        result = self.expect(1, "export", "--loudness", "-23", "a.wav", out="")
        self.assertIn("no loudness at this width", result.stderr)
        self.assertEqual(self.names(), ["a.wav"])

    def test_wrong_usage(self):
        self.file("a.wav", recording(tone(0.5, -30)))
        for words in (["--loudness", "-23", "--gain", "1"], ["--loudness", "-23", "--normalize"],
                      ["--true-peak", "-1"], ["--loudness", "1"], ["--loudness", "nan"]):
            self.expect(2, "export", *words, "a.wav", out="")
        self.assertEqual(self.names(), ["a.wav"])

    def test_dry_run(self):
        self.file("a.wav", recording(tone(0.5, -30)))
        text = self.expect(0, "export", "--loudness", "-23", "--dry-run", "a.wav").stdout
        self.assertIn("-23 LUFS, at most -1 dBTP", text)


if __name__ == "__main__":
    unittest.main()
