# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""Words of the command line, exit statuses, and what goes where."""

import math
import os
import re
import signal
import subprocess
import unittest

from mixdeck import (CLI, Case, as_nobody, bext, chunk, decoded, fmt, recording, samples_of, stored24,
                     unpack24, unpack_floats, wave)


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

    def test_one_version_everywhere(self):
        said = [self.expect(0, "--version", err="").stdout]
        for folder, program in (("recorder-sim", "mixdeck-recorder-sim"), ("app", "mixdeck")):
            path = os.path.join(os.environ["MIXDECK_BIN"], "..", folder, program)
            if not os.path.exists(path):  # all in one folder
                path = os.path.join(os.environ["MIXDECK_BIN"], program)
            said.append(subprocess.run([path, "--version"], capture_output=True, text=True,
                                       check=True, env=dict(os.environ, QT_QPA_PLATFORM="offscreen")
                                       ).stdout)
        self.assertRegex(said[0], r"^mixdeck-cli \d+\.\d+\.\d+\.\d+\n$")
        self.assertEqual({text.split()[1] for text in said}, {said[0].split()[1]})

    def test_a_typo_names_the_nearest_command(self):
        for words, meant in ((["exprot", "a.wav"], "export"), (["messure", "a.wav"], "measure"),
                             (["device", "stauts"], "status"), (["devcie"], "device")):
            self.assertEqual(self.usage_error(*words), f"mixdeck-cli: {words[-2 if 'a.wav' in words else -1]} "
                             f"is no command. Did you mean {meant}?\n")
        for words in (["frobnicate", "a.wav"], ["a.wav"]):
            self.assertEqual(self.usage_error(*words), f"mixdeck-cli: {words[0]} is no command; see "
                             "mixdeck-cli --help\n")

    def test_wrong_usage_is_one_line_that_names_the_help(self):
        for words in (["export"], ["info", "--loud", "a.wav"], ["export", "--angle=200", "a.wav"],
                      ["measure", "--csv", "--json", "a.wav"], ["levels", "a.wav"], ["copy", "a"],
                      ["verify"], ["repair"], ["play"], ["demo", "a.wav"]):
            self.assertRegex(self.usage_error(*words),
                             f"^mixdeck-cli: [^\n]+; see mixdeck-cli {words[0]} --help\n$")
        self.assertRegex(self.usage_error("device", "set-battery", "9"),
                         "^mixdeck-cli: [^\n]+; see mixdeck-cli device set-battery --help\n$")
        self.assertEqual(self.usage_error(), "mixdeck-cli: A subcommand is required; see mixdeck-cli "
                                             "--help\n")
        self.assertRegex(self.usage_error("export", "--gain=1\n2", "a.wav"), r"^[^\n]*1\\n2[^\n]*\n$")

    def test_every_command_that_chats_can_be_quiet(self):
        for word in ("export", "measure", "copy", "verify", "repair", "demo"):
            self.assertIn("--quiet", self.expect(0, word, "--help").stdout, word)
        self.expect(0, "demo", "--quiet", "--output-dir", "takes", out="", err="")
        self.expect(0, "demo", "--quiet", "--output-dir", "takes", out="", err="")
        self.assertEqual(len(os.listdir(self.path("takes"))), 3)

    def test_help_names_every_option(self):
        text = self.expect(0, "export", "--help").stdout
        for option in ("--angle", "--gain", "--normalize", "--format", "--output", "--output-dir",
                       "--jobs", "--force", "--dry-run", "--quiet", "--rf64"):
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
        for value in ("always", "1", ""):
            self.assertIn("--rf64", self.usage_error("export", f"--rf64={value}", "a.wav"))
        for value in ("0", "-1", "many", "257", "1.5"):
            self.assertIn("--jobs", self.usage_error("export", f"--jobs={value}", "a.wav"))

    def test_options_that_exclude_each_other(self):
        self.usage_error("export", "--normalize", "--gain", "0", "a.wav")
        self.usage_error("export", "--output", "x.wav", "--output-dir", ".", "a.wav")
        error = self.usage_error("export", "--output", "x.wav", "a.wav", "a.wav")
        self.assertIn("--output", error)

    def test_an_option_that_is_empty(self):
        for words in (["export", "--output"], ["export", "--output-dir"], ["export", "--files-from"],
                      ["measure", "--plot"]):
            self.assertIn(f"{words[1]}: is empty", self.usage_error(*words, "", "a.wav"))
        self.assertIn("--output-dir: is empty", self.usage_error("demo", "--output-dir", ""))

    def test_a_name_that_is_empty(self):
        for words, name in ((["export", "a.wav", ""], "FILE"), (["info", ""], "FILE"), (["play", ""], "FILE"),
                            (["levels", "--from", "0", "--to", "1", ""], "FILE"), (["copy", "", "home"], "CARD"),
                            (["copy", ".", ""], "DEST"), (["verify", ""], "FOLDER")):
            self.assertIn(f": {name}: is empty; ", self.usage_error(*words))

    def test_ends_before_beginnings(self):
        for word in ("levels", "measure", "play"):
            error = self.usage_error(word, "--from", "0:02", "--to", "1", "a.wav")
            self.assertIn("--to", error)

    def test_levels_out_of_range(self):
        for value in ("-1", "nan", "soon", "1:60", "1:2:3:4", ""):
            self.usage_error("levels", f"--from={value}", "--to", "1", "a.wav")
            self.usage_error("levels", "--from", "0", f"--to={value}", "a.wav")


class WrongInputTest(Case):
    """Each command with what it cannot use: one line that names it, once, and status 1."""

    commands = (["export"], ["measure"], ["info"], ["repair"], ["play"],
                ["levels", "--from", "0", "--to", "1"])

    def failure_of(self, *words, **options):
        """What is said, which begins with the name of what is wrong."""
        result = self.expect(1, *words, out="", **options)
        self.assertRegex(result.stderr, f"^mixdeck-cli: {re.escape(words[-1])}: Fail to open. [^\n]+\n$")
        return result.stderr

    def test_files_that_are_not_there(self):
        for words in self.commands:
            self.assertIn("No such file or directory", self.failure_of(*words, "none.wav"))

    def test_folders_in_the_place_of_files(self):
        os.mkdir(self.path("takes"))
        for words in self.commands:
            self.assertIn("Is a directory; name recordings, as takes/*.WAV",
                          self.failure_of(*words, "takes"))

    def test_files_that_may_not_be_read(self):
        os.chmod(self.file("a.wav", recording()), 0)
        for words in self.commands:
            self.assertIn("Permission denied", self.failure_of(*words, "a.wav", preexec_fn=as_nobody))

    def test_lists_that_cannot_be_used(self):
        self.file("empty", b"")
        for words in (["export"], ["measure"], ["info"], ["repair"]):
            self.assertIn("No such file", self.failure_of(*words, "--files-from", "none"))
            result = self.expect(2, *words, "--files-from", "empty", out="")
            self.assertEqual(result.stderr, "mixdeck-cli: --files-from: names no file; see mixdeck-cli "
                                            f"{words[0]} --help\n")


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
        self.expect(0, "export", "a.wav", err="", out="a.wav -> a_Decode.WAV: 24-bit, width 120, "
                    f"gain +0 dB, {748 + 3 * len(self.samples)} bytes\n")
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
        self.expect(0, "export", "--quiet", "--output", "x.raw", "a.wav", out="", err="")
        self.assertEqual(self.names(), ["a.wav", "x.raw"])

    def test_output_folder(self):
        os.mkdir(self.path("out"))
        self.file("b.WAV", recording())
        self.expect(0, "export", "--output-dir", "out", "a.wav", "b.WAV", err="")
        self.assertEqual(self.names(), ["a.wav", "b.WAV", "out"])
        self.assertEqual(sorted(os.listdir(self.path("out"))), ["a_Decode.WAV", "b_Decode.WAV"])

    def test_a_source_that_is_not_raw(self):
        self.file("a.wav", recording([4194304, -4194304], history="MSRAW=OFF;"))
        result = self.expect(0, "export", "--angle", "0", "a.wav", err="mixdeck-cli: a.wav: Warning: "
                             "--angle is not used, as it is not raw M/S\n")
        self.assertIn(": 24-bit, not M/S, channels as they are, gain +0 dB, ", result.stdout)
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
                             err="mixdeck-cli: --angle 77.9 counts as 77\n")
        self.assertEqual(self.names(), ["a.wav"])
        self.assertEqual(result.stdout, "a.wav -> a_Decode.WAV: 24-bit, width 77, gain -3 dB, "
                                        f"{748 + 3 * len(self.samples)} bytes\n")

    def test_samples_that_are_no_sound_are_said_before_anything_is_written(self):
        told = (r"^mixdeck-cli: b\.wav: Warning: .*16-bit samples with format tag 1 do not decode to "
                r"useful sound.*\n$")
        length = 3600 * 192000
        head = wave(fmt(bits=16), bext(), chunk("data", b"", length), riff_size=701 + length)
        os.truncate(self.file("b.wav", head), len(head) + length)
        self.assertRegex(self.expect(0, "export", "--dry-run", "b.wav").stderr, told)
        # Whoever reads the line goes first, and the export takes seconds.
        with subprocess.Popen([CLI, "export", "b.wav"], stdout=subprocess.PIPE,
                              stderr=subprocess.PIPE, text=True, cwd=self.folder,
                              preexec_fn=lambda: os.nice(5)) as process:
            self.assertRegex(process.stderr.readline(), told)
            self.assertEqual(self.names(), ["a.wav", "b.wav"])
            self.assertIsNone(process.poll())
            process.send_signal(signal.SIGINT)
            output, errors = process.communicate(timeout=60)
        self.assertEqual((process.returncode, output, errors), (1, "", "mixdeck-cli: cancelled\n"))

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

    def test_in_a_folder_that_a_dry_run_does_not_make_no_name_is_taken(self):
        self.file("a_Decode.WAV", b"old")
        result = self.expect(0, "export", "--dry-run", "--output-dir", "mixes", "a.wav", err="")
        self.assertIn("a.wav -> mixes/a_Decode.WAV: ", result.stdout)
        self.assertEqual(self.names(), ["a.wav", "a_Decode.WAV"])

    def test_dry_run_refuses_what_is_too_large(self):
        self.big_recording("long.wav", 12000)
        size = 748 + 12000 * 48000 * 8
        self.expect(1, "export", "--dry-run", "--rf64", "never", "--format", "float32",
                    "long.wav", out="",
                    err=f"mixdeck-cli: long_Decode.WAV: Fail to save. The export would take {size} "
                        "bytes; a WAVE file ends at 4 GiB; --format 24 fits\n")

    def test_dry_run_tells_that_it_would_be_rf64(self):
        self.big_recording("long.wav", 12000)
        size = 748 + 12000 * 48000 * 8
        result = self.expect(0, "export", "--dry-run", "--format", "float32", "long.wav", err="")
        self.assertEqual(result.stdout, "long.wav -> long_Decode.WAV: 32-bit float, width 120, gain "
                                        f"+0 dB, {size} bytes as RF64\n")
        result = self.expect(0, "export", "--dry-run", "long.wav", err="")
        self.assertNotIn("RF64", result.stdout)

    def test_dry_run_refuses_where_it_cannot_write(self):
        self.file("file", b"")
        os.mkdir(self.path("folder"))
        for target, reason in {"none/x.wav": "No such file or directory; make its folder first",
                               "file/x.wav": "Not a directory; name another place with --output",
                               "folder": "Is a directory; name a file in it"}.items():
            self.expect(1, "export", "--dry-run", "--force", "--output", target, "a.wav", out="",
                        err=f"mixdeck-cli: {target}: Fail to save. {reason}\n")
        os.mkdir(self.path("locked"), 0o555)
        self.expect(1, "export", "--dry-run", "--output", "locked/x.wav", "a.wav", out="",
                    err="mixdeck-cli: locked/x.wav: Fail to save. Permission denied; name another place with "
                        "--output\n",
                    preexec_fn=as_nobody)
        self.assertEqual(self.names(), ["a.wav", "file", "folder", "locked"])

    def test_dry_run_makes_no_folder(self):
        result = self.expect(0, "export", "--dry-run", "--output-dir", "new/er", "a.wav", err="")
        self.assertIn("a.wav -> new/er/a_Decode.WAV: ", result.stdout)
        self.assertEqual(self.names(), ["a.wav"])
        self.file("file", b"")
        self.expect(1, "export", "--dry-run", "--output-dir", "file/er", "a.wav", out="",
                    err="mixdeck-cli: file/er: Fail to save. Not a directory; name another folder with "
                        "--output-dir\n")

    def test_names_are_shown_not_obeyed(self):
        self.file("a\x1b[2J.wav", self.read("a.wav"))
        for words in ([], ["--dry-run", "--force"]):
            result = self.expect(0, "export", *words, "a\x1b[2J.wav", err="")
            self.assertIn("a\\x1b[2J.wav -> a\\x1b[2J_Decode.WAV: ", result.stdout)

    def test_the_gain_that_a_normalise_came_to_is_said(self):
        gain = -20 * math.log10(max(abs(sample) for sample in decoded(self.source, 120)))
        result = self.expect(0, "export", "--normalize", "a.wav", err="")
        self.assertIn(f", width 120, normalised, gain {gain:+.2f} dB, ", result.stdout)
        self.file("still.wav", recording([0, 0]))
        result = self.expect(0, "export", "--normalize", "still.wav", err="")
        self.assertIn(", width 120, normalised, ", result.stdout)
        self.assertNotIn("gain", result.stdout)

    def test_where_24_bits_clip_is_said(self):
        samples = [0, 0] * 480000
        for second in (1, 2.5, 2.55, 4, 7, 9):
            samples[int(second * 96000)] = 6291456  # 0.75
        self.file("loud.wav", recording(samples, history="MSRAW=OFF;"))
        result = self.expect(0, "export", "--quiet", "--gain", "6", "loud.wav", out="")
        over = 20 * math.log10(0.75) + 6
        self.assertEqual(
            result.stderr, "mixdeck-cli: loud_Decode.WAV: Warning: 6 samples are clipped, by up to "
            f"{over:.2f} dB, at 00:00:01.000, 00:00:02.500, 00:00:04.000 and 2 more places; "
            "--format float32 keeps them\n")
        self.expect(0, "export", "--force", "--gain", "6", "--format", "float32", "loud.wav", err="")
        self.expect(0, "export", "--force", "--normalize", "loud.wav", err="")
        self.expect(0, "export", "--force", "loud.wav", err="")

    def test_an_output_folder_is_made(self):
        self.expect(0, "export", "--output-dir", "new/er", "a.wav", err="")
        self.assertEqual(os.listdir(self.path("new/er")), ["a_Decode.WAV"])

    def test_quiet(self):
        self.expect(0, "export", "--quiet", "a.wav", out="", err="")
        self.assertEqual(self.names(), ["a.wav", "a_Decode.WAV"])
        self.assertIn("--force", self.expect(1, "export", "--quiet", "a.wav", out="").stderr)

    def test_warnings_do_not_fail(self):
        self.file("cut.wav", self.read("a.wav")[:-5])
        result = self.expect(0, "export", "--quiet", "cut.wav", out="")
        self.assertRegex(result.stderr, r"^mixdeck-cli: cut.wav: Warning: Cut short: [^\n]*; mixdeck-cli "
                                        r"repair salvages what there is\n$")
        self.assertEqual(unpack24(samples_of(self.path("cut_Decode.WAV"))), self.expected24()[:4])


if __name__ == "__main__":
    unittest.main()
