# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""The words info, levels and demo, and the progress line."""

import json
import math
import os
import pty
import re
import signal
import subprocess
import threading
import time
import unittest

from mixdeck import (CLI, Case, as_nobody, bext, chunk, fmt, pack24, recording, side_gain, single,
                     unpack24, unpack_floats, wave)

KEYS = ["path", "valid", "recorder", "raw_ms", "reason", "header", "chunks", "bext",
        "duration_seconds", "frames", "sample_rate", "warning"]
HEADER = ["ChunkID", "ChunkSize", "Format", "Subchunk1ID", "Subchunk1Size", "AudioFormat",
          "NumChannels", "SampleRate", "ByteRate", "BlockAlign", "BitsPerSample",
          "dataChunkPosition", "dataChunkLength", "dataChunkEnd"]
BEXT = ["Description", "Originator", "OriginatorReference", "OriginationDate", "OriginationTime",
        "TimeReference", "Version", "UniqueMaterialIdentifier", "Reserved", "CodingHistory"]
RULES = [(), ("--meter-rule",)]  # of levels


class InfoTest(Case):
    def test_keys(self):
        info = self.info(self.file("a.wav", recording()))
        self.assertEqual(list(info), KEYS)
        self.assertEqual(list(info["header"]), HEADER)
        self.assertEqual(list(info["bext"]), BEXT)
        self.assertEqual([list(one) for one in info["chunks"]], [["id", "position", "size"]] * 3)

    def test_values(self):
        info = self.info(self.file("a.wav", recording([0] * 96000)))
        self.assertEqual((info["path"], info["valid"], info["recorder"], info["raw_ms"],
                          info["reason"]), (self.path("a.wav"), True, True, True, ""))
        self.assertEqual(info["duration_seconds"], 1.0)
        self.assertEqual((info["frames"], info["sample_rate"]), (48000, 48000))
        self.assertEqual(info["bext"]["TimeReference"], 99)
        self.assertEqual(info["bext"]["OriginationDate"], "2026-05-04")
        self.assertEqual([one["id"] for one in info["chunks"]], ["fmt ", "bext", "data"])
        self.assertEqual(info["header"]["BitsPerSample"], 24)
        self.assertIsNone(info["warning"])

    def test_one_object_a_line_and_file(self):
        self.file("a.wav", recording())
        self.file("b.wav", b"no sound")
        lines = self.expect(1, "info", "--json", "a.wav", "b.wav", err="mixdeck-cli: b.wav: File not "
                            "supported. Not a WAVE file: shorter than 48 bytes; name a recording as the TARN "
                            "J4 wrote it\n").stdout
        objects = [json.loads(line) for line in lines.splitlines()]
        self.assertEqual([one["path"] for one in objects], ["a.wav", "b.wav"])
        self.assertEqual([one["valid"] for one in objects], [True, False])
        self.assertIsNone(objects[1]["bext"])
        self.assertNotEqual(objects[1]["reason"], "")

    def test_a_file_that_cannot_be_read(self):
        self.file("b.wav", recording())
        result = self.expect(1, "info", "--json", "missing.wav", "b.wav",
                             err="mixdeck-cli: missing.wav: Fail to open. No such file or directory; check its "
                                 "name, and that its card or disk is there\n")
        objects = [json.loads(line) for line in result.stdout.splitlines()]
        self.assertEqual([list(one) for one in objects], [KEYS, KEYS])
        self.assertEqual([one["valid"] for one in objects], [False, True])

    def test_text(self):
        self.file("a.wav", recording())
        text = self.expect(0, "info", "a.wav", err="").stdout
        for part in ("a.wav\n", "raw M/S: yes", "2 channels, 48000 Hz, 24-bit integer PCM",
                     "chunk bext", "Originator: TARN J4", "MSRAW=ON;", "OriginationTime: 03:02:01"):
            self.assertIn(part, text)

    def test_text_of_others(self):
        self.file("b.wav", wave(fmt(3, 1, 44100, 32), chunk("data", bytes(44100))))
        reason = "No broadcast extension (bext chunk)"
        text = self.expect(1, "info", "b.wav",
                           err=f"mixdeck-cli: b.wav: File not supported. {reason}; name a recording as the "
                               "TARN J4 wrote it\n").stdout
        for part in ("of the recorder: no", "raw M/S: no",
                     "1 channels, 44100 Hz, 32-bit IEEE float, 00:00:00.250"):
            self.assertIn(part, text)
        self.assertNotIn(reason, text)

    def test_an_interrupt_ends_it(self):
        path = self.file("a.wav", recording())
        names = f"{path}\n".encode() * 5000
        process = subprocess.Popen([CLI, "info", "--json", "--files-from", "-"], stdin=subprocess.PIPE,
                                   stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        threading.Thread(target=lambda: (process.stdin.write(names), process.stdin.close())).start()
        process.stdout.readline()  # the others do not fit into the pipe
        process.send_signal(signal.SIGINT)
        time.sleep(0.1)
        rest, said = process.stdout.read(), process.stderr.read()
        self.assertEqual((process.wait(), said), (1, b"mixdeck-cli: cancelled\n"))
        self.assertLess(rest.count(b"\n"), 4999)
        process.stdout.close()
        process.stderr.close()

    def test_a_missing_file_is_said_once(self):
        self.expect(1, "info", "none.wav", out="",
                    err="mixdeck-cli: none.wav: Fail to open. No such file or directory; check its name, and "
                        "that its card or disk is there\n")

    def test_that_a_take_is_cut_short_is_told_once(self):
        self.file("a.wav", recording()[:-3])
        text = self.expect(0, "info", "a.wav", err="").stdout
        told = "Cut short: the data chunk states 12 bytes, the file holds 9"
        self.assertIn(f"\n  {told}\n", text)
        info = self.info(self.path("a.wav"))  # and standard error is empty
        self.assertEqual((info["recorder"], info["reason"], info["warning"]), (True, "", told))

    def test_utf8_is_shown_as_such(self):
        payload = bytearray(bext()[8:])
        payload[0:9] = "Föhn 水".encode()[:9]
        path = self.file("ü.wav", wave(fmt(), chunk("bext", bytes(payload)),
                                       chunk("data", bytes(6))))
        self.assertEqual(self.info(path)["bext"]["Description"][:6], "Föhn 水")
        text = self.expect(0, "info", "ü.wav", err="").stdout
        self.assertIn("ü.wav\n", text)
        self.assertIn("  Description: Föhn 水", text)

    def test_text_that_is_not_ascii_is_valid_json(self):
        payload = bytearray(bext()[8:])
        payload[0:4] = b"\xe4\xff\"\n"
        info = self.info(self.file("a.wav", wave(fmt(), chunk("bext", bytes(payload)),
                                                 chunk("data", bytes(6)))))
        self.assertEqual(info["bext"]["Description"][:4], "\u00e4\u00ff\"\n")
        name = os.fsdecode(b"\xff.wav")
        self.file(name, recording())
        self.assertTrue(json.loads(self.expect(0, "info", "--json", name).stdout)["raw_ms"])


def read_by(*arguments):
    """Bytes that a run of the program reads from files."""
    process = subprocess.Popen([CLI, *arguments], stdout=subprocess.DEVNULL)
    os.waitid(os.P_PID, process.pid, os.WEXITED | os.WNOWAIT)
    with open(f"/proc/{process.pid}/io", encoding="ascii") as file:
        count = int(file.read().split()[1])
    process.wait()
    return count


class LevelsTest(Case):
    """What the peaks of a stretch are."""

    def setUp(self):
        super().setUp()
        self.samples = [4194304, 2097152, -6291456, 1048576] + [-2097152, 0] * 48000
        self.file("a.wav", recording(self.samples))
        self.file("b.wav", recording(self.samples, history="MSRAW=OFF;"))

    def levels(self, name, *options, to="0.00004", err=""):
        return self.expect(0, "levels", "--from", "0", "--to", to, *options, name, err=err).stdout

    @staticmethod
    def line(left, right):
        told = ["-inf" if value == 0 else f"{20 * math.log10(value):.2f}" for value in (left, right)]
        return f"left {told[0]} dBFS, right {told[1]} dBFS\n"

    def test_the_loudest_samples_of_either_sign(self):
        self.assertEqual(self.levels("b.wav"), self.line(0.75, 0.25))
        self.assertEqual(self.levels("a.wav"), self.line(0.75, 0.875))
        self.assertEqual(self.levels("a.wav", "--angle", "0"), self.line(0.75, 0.75))

    def test_the_last_bytes_count_too(self):
        self.file("c.wav", recording([0, 0] * 1000 + [0, -4194304], history="MSRAW=OFF;"))
        self.assertEqual(self.levels("c.wav", to=str(1001 / 48000)), self.line(0, 0.5))

    def test_gain_and_width(self):
        divisor = single(10 ** (-6 / 20))
        self.assertEqual(self.levels("b.wav", "--gain", "6"), self.line(0.75 / divisor, 0.25 / divisor))
        k = single(side_gain(33))
        self.assertEqual(self.levels("a.wav", "--angle", "33.5",
                                     err="mixdeck-cli: --angle 33.5 counts as 33\n"),
                         self.line(0.75 - 0.125 * k, 0.75 + 0.125 * k))

    def test_a_later_stretch_in_any_writing(self):
        for begin, end in (("0.5", "0.6"), ("0:00.5", "0:00:00.6"), ("00:00:00.5", "6e-1")):
            text = self.expect(0, "levels", "--from", begin, "--to", end, "b.wav", err="").stdout
            self.assertEqual(text, self.line(0.25, 0))

    def test_what_lies_beyond_the_take_is_refused(self):
        for begin, end, told in (("0", "1.5", "--to 00:00:01.500"),
                                 ("2", "0:03", "--from 00:00:02.000")):
            self.expect(1, "levels", "--from", begin, "--to", end, "a.wav", out="",
                        err=f"mixdeck-cli: a.wav: No such stretch. {told} lies beyond its end at "
                            "00:00:01.000\n")
        self.expect(0, "levels", "--from", "0", "--to", "1.00004", "a.wav", err="")
        self.expect(1, "levels", "--from", "0.5", "--to", "0.5", "a.wav", out="",
                    err="mixdeck-cli: a.wav: No such stretch. No frame lies in it\n")

    def test_no_more_than_the_stretch_is_read(self):
        path = self.big_recording("long.wav", 600)
        without = read_by("info", path)
        for rule, most in zip(RULES, (20000, 70000)):  # the rule reads pieces of 64 KiB
            read = read_by("levels", *rule, "--from", "9:00", "--to", "9:00.01", path)
            self.assertLess(read - without, most, rule)

    def test_an_interrupt_is_told(self):
        path = self.big_recording("long.wav", 12000)
        for rule in RULES:
            self.assertEqual(self.interrupted("levels", *rule, "--from", "0", "--to", "3:20:00", path),
                             (1, "", "mixdeck-cli: cancelled\n"), rule)

    @staticmethod
    def interrupted(*arguments):
        """Status, output and errors of a run that is interrupted once it has read 16 MiB."""
        with subprocess.Popen([CLI, *arguments], stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                              text=True, preexec_fn=lambda: os.nice(5)) as process:
            while process.poll() is None:
                with open(f"/proc/{process.pid}/io", encoding="ascii") as file:
                    if int(file.read().split()[1]) > 1 << 24:
                        break
            process.send_signal(signal.SIGINT)
            output, errors = process.communicate(timeout=60)
        return process.returncode, output, errors

    def test_refusals(self):
        self.file("c.wav", b"no sound")
        self.expect(1, "levels", "--from", "0", "--to", "1", "c.wav", out="", err="mixdeck-cli: "
                    "c.wav: File not supported. Not a WAVE file: shorter than 48 bytes; name a recording as the "
                    "TARN J4 wrote it\n")
        self.expect(1, "levels", "--from", "0", "--to", "1", "d.wav", out="", err="mixdeck-cli: "
                    "d.wav: Fail to open. No such file or directory; check its name, and that its card or disk "
                    "is there\n")


class MeterRuleTest(Case):
    # The last bytes of the data, as many as stand before it, are never measured: so there is a
    # second of silence after the two frames.
    def setUp(self):
        super().setUp()
        self.samples = [4194304, 2097152, -4194304, 1048576]
        self.file("a.wav", recording(self.samples + [-8000000] * 96000))
        self.file("b.wav", recording(self.samples + [-8000000] * 96000, history="MSRAW=OFF;"))

    def levels(self, name, *options, to="0.00004"):
        text = self.expect(0, "levels", "--meter-rule", "--from", "0", "--to", to, *options, name,
                           err="").stdout
        self.assertRegex(text, r"^\S+ \S+\n$")
        return text.split()

    def test_the_highest_values(self):
        self.assertEqual(self.levels("b.wav"), ["0.5", "0.25"])
        self.assertEqual(self.levels("a.wav"), ["0.75", "0.25"])
        self.assertEqual(self.levels("a.wav", "--angle", "0"), ["0.5", "0.5"])

    def test_gain_is_louder_and_nine_digits_are_shown(self):
        divisor = single(10 ** (-6 / 20))
        self.assertEqual(self.levels("b.wav", "--gain", "6"),
                         [f"{single(0.5 / divisor):.9g}", f"{single(0.25 / divisor):.9g}"])
        k = single(side_gain(33))
        self.assertEqual(self.levels("a.wav", "--angle", "33"),
                         [f"{single(0.5 + single(0.25 * k)):.9g}",
                          f"{single(0.5 - single(0.25 * k)):.9g}"])

    def test_nothing_measured(self):
        self.assertEqual(self.levels("b.wav", to="0"), ["-2", "-2"])
        self.assertEqual(self.levels("a.wav", to="0"), ["-4", "0"])

    def test_a_later_stretch(self):
        text = self.expect(0, "levels", "--meter-rule", "--from", "0.5", "--to", "0.6", "b.wav",
                           err="").stdout
        value = f"{single(-8000000 / 8388608):.9g}"
        self.assertEqual(text, f"{value} {value}\n")


class DemoTest(Case):
    names_made = ["R0001.WAV", "R0002.WAV", "R0003.WAV"]

    def test_makes_three_recordings_and_never_overwrites(self):
        self.expect(0, "demo", err="")
        self.assertEqual(sorted(os.listdir(self.path("mixdeck-demo"))), self.names_made)
        self.file("mixdeck-demo/R0002.WAV", b"mine")
        os.remove(self.path("mixdeck-demo/R0003.WAV"))
        before = self.read("mixdeck-demo/R0001.WAV")
        result = self.expect(0, "demo", err="")
        self.assertIn("mixdeck-demo/R0001.WAV is there already\n", result.stdout)
        self.assertIn("mixdeck-demo/R0002.WAV is there already\n", result.stdout)
        self.assertEqual(self.read("mixdeck-demo/R0001.WAV"), before)
        self.assertEqual(self.read("mixdeck-demo/R0002.WAV"), b"mine")
        self.assertEqual(len(self.read("mixdeck-demo/R0003.WAV")), 748 + 20 * 288000)

    def test_recordings_are_what_they_claim(self):
        self.expect(0, "demo", "--output-dir", "new/folder", err="")
        expected = {"R0001.WAV": (True, 24, 1), "R0002.WAV": (True, 32, 3),
                    "R0003.WAV": (False, 24, 1)}
        for name, (raw, bits, tag) in expected.items():
            info = self.info(self.path("new/folder", name))
            self.assertTrue(info["recorder"])
            self.assertEqual(info["raw_ms"], raw)
            self.assertEqual(info["header"]["BitsPerSample"], bits)
            self.assertEqual(info["header"]["AudioFormat"], tag)
            self.assertEqual(info["duration_seconds"], 20.0)
            self.assertEqual(info["bext"]["Originator"], "TARN J4")
            self.assertEqual(info["bext"]["CodingHistory"],
                             f"A=PCM,F=48000,W={bits},M=stereo,T=J4;VERSION=1.00;"
                             f"MSRAW={'ON' if raw else 'OFF'};")

    def test_both_widths_hold_the_same_scene(self):
        self.expect(0, "demo", "--output-dir", ".", err="")
        narrow = unpack24(self.read("R0001.WAV")[748:][:600000])
        wide = unpack_floats(self.read("R0002.WAV")[748:][:800000])
        self.assertEqual(narrow, [int(single(value * 8388607.0)) for value in wide])
        plain = unpack24(self.read("R0003.WAV")[748:][:600000])
        self.assertEqual(plain[0::2], [int(single(single(mid + side) * 8388607.0))
                                       for mid, side in zip(wide[0::2], wide[1::2])])

    def test_a_folder_that_cannot_be_made(self):
        self.file("file", b"")
        result = self.expect(1, "demo", "--output-dir", "file/sub", out="")
        self.assertEqual(result.stderr, "mixdeck-cli: file/sub: Fail to save. Not a directory; name "
                                        "another folder with --output-dir\n")

    def test_a_folder_that_may_not_be_written(self):
        os.mkdir(self.path("locked"), 0o555)
        self.expect(1, "demo", "--output-dir", "locked", out="", preexec_fn=as_nobody,
                    err="mixdeck-cli: locked: Fail to save. Permission denied; name another "
                        "folder with --output-dir\n")
        for name in self.names_made:
            self.file(f"locked/{name}", b"")
        self.expect(0, "demo", "--quiet", "--output-dir", "locked", out="", err="",
                    preexec_fn=as_nobody)


class ProgressTest(Case):
    @staticmethod
    def hold(process):
        """Lets more time pass for the program than between two drawings, however fast it is."""
        process.send_signal(signal.SIGSTOP)
        time.sleep(0.15)
        process.send_signal(signal.SIGCONT)

    def run_on_terminal(self, *arguments, word="export", at=None, do=None):
        """Runs a word of the program with a terminal for standard error; returns status and what it
        showed there, and keeps what it printed. When it first shows `at`, `do` is called with the
        process, which lets the test go first wherever both want to run."""
        master, slave = pty.openpty()
        with subprocess.Popen([CLI, word, *arguments], stdout=subprocess.PIPE, stderr=slave,
                              cwd=self.folder, preexec_fn=lambda: os.nice(5)) as process:
            os.close(slave)
            shown = b""
            while True:
                try:
                    part = os.read(master, 65536)
                except OSError:  # the other end is closed
                    break
                if not part:
                    break
                shown += part
                if at and at in shown:
                    do(process)
                    at = None
            self.printed = process.communicate(timeout=60)[0].decode()
        os.close(master)
        return process.returncode, shown.decode()

    def test_a_terminal_shows_how_far_it_is(self):
        self.big_recording("long.wav", 1800)
        status, shown = self.run_on_terminal("long.wav", at=b" %  0 of 1 done", do=self.hold)
        self.assertEqual(status, 0)
        percents = [int(text) for text in re.findall(r"(\d+) %  0 of 1 done  long.wav", shown)]
        self.assertGreater(len(percents), 1)
        self.assertEqual(percents, sorted(percents))
        self.assertLessEqual(percents[-1], 100)
        self.assertTrue(shown.endswith("\r\x1b[K"), repr(shown[-40:]))
        self.assertNotIn("\n", shown)

    def test_a_measurement_shows_how_far_it_is(self):
        self.big_recording("long.wav", 3600)
        status, shown = self.run_on_terminal("long.wav", word="measure", at=b" %  0 of 1 done",
                                             do=self.hold)
        self.assertEqual(status, 0)
        percents = [int(text) for text in re.findall(r"(\d+) %  \d of 1 done  long.wav", shown)]
        self.assertGreater(len(percents), 1)
        self.assertEqual(percents, sorted(percents))
        self.assertLessEqual(percents[-1], 100)
        self.assertTrue(shown.endswith("\r\x1b[K"), repr(shown[-40:]))
        self.assertNotIn("\n", shown)

    def test_a_quiet_export_shows_no_progress(self):
        self.big_recording("long.wav", 60)
        self.assertEqual(self.run_on_terminal("--quiet", "long.wav"), (0, ""))

    def test_a_quiet_measurement_shows_no_progress(self):
        self.big_recording("long.wav", 60)
        self.assertEqual(self.run_on_terminal("--quiet", "long.wav", word="measure"), (0, ""))

    def test_messages_stand_in_lines_of_their_own(self):
        self.file("bad.wav", b"no sound")
        self.big_recording("long.wav", 600)
        status, shown = self.run_on_terminal("--jobs", "2", "long.wav", "bad.wav")
        self.assertEqual(status, 1)
        line = ("mixdeck-cli: bad.wav: File not supported. Not a WAVE file: shorter than 48 bytes; name a "
                "recording as the TARN J4 wrote it")
        plain = re.sub(r"\x1b\[[0-9;]*m", "", shown)  # what failed has a colour
        self.assertRegex(plain, r"(^|\x1b\[K)" + re.escape(line) + "\r\n")

    def test_an_interrupt_clears_the_line(self):
        self.big_recording("long.wav", 3600)
        status, shown = self.run_on_terminal("long.wav", at=b" %  0 of 1 done",
                                             do=lambda process: process.send_signal(signal.SIGINT))
        self.assertEqual(status, 1)
        self.assertTrue(shown.endswith("\r\x1b[Kmixdeck-cli: cancelled\r\n"), repr(shown[-80:]))
        self.assertEqual(self.names(), ["long.wav"])

    def measure_until(self, at, *arguments):
        """What is shown of a measurement that is interrupted when it first shows `at`."""
        status, shown = self.run_on_terminal(
            "--json", *arguments, word="measure", at=at,
            do=lambda process: process.send_signal(signal.SIGINT))
        self.assertEqual(status, 1, (shown, self.printed))
        self.assertIn(at.decode(), shown)
        self.assertTrue(shown.endswith("\r\x1b[Kmixdeck-cli: cancelled\r\n"), repr(shown[-80:]))
        return shown

    def test_an_interrupted_measurement_prints_nothing_and_clears_the_line(self):
        self.big_recording("long.wav", 12000)
        for words in ([], ["--angles", "all"], ["--plot", "p.svg"]):
            shown = self.measure_until(b" %  0 of 1 done  long.wav", *words, "long.wav")
            self.assertEqual((self.printed, shown.count("\n")), ("", 1))
            self.assertEqual(self.names(), ["long.wav"])

    def test_what_was_measured_before_an_interrupt_is_printed(self):
        self.file("a.wav", recording([3000000, 100000, -2000000, 50000] * 12000))
        self.big_recording("long.wav", 12000)
        self.measure_until(b" %  1 of 2 done  long.wav", "a.wav", "long.wav")
        self.assertEqual(self.printed, self.expect(0, "measure", "--json", "a.wav").stdout)

    def test_nothing_is_shown_without_a_terminal(self):
        self.file("a.wav", wave(fmt(), bext(), chunk("data", pack24([1, 2] * 400000))))
        self.expect(0, "export", "--quiet", "a.wav", out="", err="")


if __name__ == "__main__":
    unittest.main()
