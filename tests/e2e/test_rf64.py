# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""Exports of more than 4 GiB, and what other programs make of them."""

import json
import os
import re
import resource
import struct
import subprocess
import unittest

from mixdeck import (FIRST_SAMPLE, Case, bext, chunk, fmt, pack24, stored24, unpack24,
                     unpack_floats, wave)

FRAMES = 540_000_000  # 3.24 GB in 24 bits, 4.32 GB in floats: RIFF in, RF64 out
LOUD = FRAMES - 3
DATA = FRAMES * 8


class Rf64Test(Case):
    """One export, looked at from many sides: a take of silence but for a frame at its end."""

    @classmethod
    def setUpClass(cls):
        case = cls()
        Case.setUp(case)
        cls.addClassCleanup(case.doCleanups)
        cls.where = case.folder
        head = wave(fmt(), bext(), chunk("data", b"", FRAMES * 6))
        take = case.file("take.WAV", head[:4] + struct.pack("<I", len(head) + FRAMES * 6 - 8) +
                         head[8:])
        os.truncate(take, len(head) + FRAMES * 6)
        with open(take, "r+b") as file:
            file.seek(len(head) + LOUD * 6)
            file.write(pack24([1 << 22, 1 << 21]))
        cls.source = take
        cls.target = case.path("take_Decode.WAV")
        cls.before = f"mixdeck-cli: {cls.target}: It passes 4 GiB, and is written as RF64\n"
        cls.said = case.expect(0, "export", "--format", "float32", take, err=cls.before, env=dict(
            os.environ, LD_PRELOAD=os.environ["SPARSE_WRITES"])).stdout

    def setUp(self):
        self.folder = self.where

    @staticmethod
    def output_of(*words):
        return subprocess.run(words, capture_output=True, text=True, check=True).stdout

    def test_it_is_said(self):
        self.assertTrue(self.said.endswith(f", {FIRST_SAMPLE + DATA} bytes as RF64\n"), self.said)

    def test_it_is_said_before_the_work(self):
        target = self.path("short.WAV")
        failure = f"mixdeck-cli: {target}: Fail to save. File too large; name another place with --output\n"
        for quiet, before in (((), self.before.replace(str(self.target), str(target))), (("--quiet",), "")):
            self.expect(1, "export", *quiet, "--format", "float32", "--output", target, self.source, out="",
                        err=before + failure, preexec_fn=self.no_large_files)
        self.assertFalse(os.path.exists(target))

    @staticmethod
    def no_large_files():
        resource.setrlimit(resource.RLIMIT_FSIZE, (1 << 20, 1 << 20))

    def test_the_chunk_of_sizes_stands_in_the_room_of_junk(self):
        with open(self.target, "rb") as file:
            head = file.read(FIRST_SAMPLE)
        size = FIRST_SAMPLE + DATA
        self.assertEqual(os.path.getsize(self.target), size)
        self.assertEqual(head[:48], b"RF64\xff\xff\xff\xffWAVEds64" + struct.pack(
            "<IQQQI", 28, size - 8, DATA, FRAMES, 0))
        self.assertEqual(head[48:52], b"bext")
        self.assertEqual(head[740:], b"data\xff\xff\xff\xff")

    def test_it_takes_next_to_no_room_here(self):
        self.assertLess(os.stat(self.target).st_blocks * 512, 64 << 20)

    def test_the_tool_reads_it(self):
        info = self.info(self.target)
        self.assertEqual((info["valid"], info["recorder"], info["raw_ms"]), (True, True, False))
        self.assertEqual(info["frames"], FRAMES)
        self.assertEqual(info["header"]["dataChunkLength"], DATA)
        self.assertEqual([part["id"] for part in info["chunks"]], ["ds64", "bext", "fmt ", "data"])
        text = self.expect(0, "info", self.target, err="").stdout
        self.assertIn("  RF64, with 64-bit sizes\n", text)
        self.assertNotIn("Cut short", text)

    def test_the_last_frames_are_right(self):
        with open(self.target, "rb") as file:
            file.seek(FIRST_SAMPLE + (LOUD - 1) * 8)
            self.assertEqual(unpack_floats(file.read()), [0, 0, 0.75, 0.25, 0, 0, 0, 0])
        said = self.expect(0, "levels", "--from", (LOUD - 0.5) / 48000, "--to", FRAMES / 48000,
                           self.target, err="").stdout
        self.assertEqual(said, "left -2.50 dBFS, right -12.04 dBFS\n")

    def test_it_is_a_take_again(self):
        out = self.path("again.WAV")
        self.expect(0, "export", "--output", out, self.target, err="", env=dict(
            os.environ, LD_PRELOAD=os.environ["SPARSE_WRITES"]))
        with open(out, "rb") as file:
            self.assertEqual(file.read(16)[:4], b"RIFF")
            file.seek(FIRST_SAMPLE + LOUD * 6)
            self.assertEqual(unpack24(file.read(6)), [stored24(0.75), stored24(0.25)])
        os.remove(out)

    def test_ffprobe(self):
        said = json.loads(self.output_of("ffprobe", "-v", "error", "-of", "json", "-show_streams",
                                         self.target))["streams"][0]
        self.assertEqual((said["codec_name"], said["channels"]), ("pcm_f32le", 2))
        self.assertEqual(said["duration_ts"], FRAMES)

    def test_mediainfo(self):
        said = self.output_of("mediainfo", "--Inform=General;%Format%|%Format_Profile%|%Duration%",
                              self.target)
        self.assertEqual(said.strip(), f"Wave|RF64|{FRAMES * 1000 // 48000}")

    def test_libsndfile(self):
        said = self.output_of("sndfile-info", self.target)
        self.assertRegex(said, rf"Frames\s*: {FRAMES}\n")
        self.assertRegex(said, r"Channels\s*: 2\n")
        self.assertNotRegex(said, re.compile("error|should be", re.IGNORECASE))

    def test_sox(self):
        # It goes through all of the samples that are there before it tells what the header says.
        start = self.path("start.WAV")
        with open(self.target, "rb") as file, open(start, "wb") as beginning:
            beginning.write(file.read(1 << 20))
        said = self.output_of("soxi", start)
        self.assertRegex(said, rf"Duration.* = {FRAMES} samples ")
        self.assertRegex(said, r"Sample Encoding: 32-bit Floating Point PCM\n")


class LongRepairTest(Case):
    """A take of more than 4 GiB that broke off: silence but for a frame at its end."""

    def test_it_becomes_rf64_with_a_chunk_for_its_sizes(self):
        head = wave(bext(), fmt(), chunk("data", b"", 0), riff_size=0)
        data = FRAMES * 8 // 6 * 6
        take = self.file("R0001.WAV", head)
        os.truncate(take, len(head) + data - 6)
        with open(take, "ab") as file:
            file.write(pack24([1 << 22, 1 << 21]))
        self.expect(0, "repair", take, err="", env=dict(
            os.environ, LD_PRELOAD=os.environ["SPARSE_WRITES"]))
        target = self.path("R0001_Repaired.WAV")
        size = len(head) + data + 36
        self.assertEqual(os.path.getsize(target), size)
        with open(target, "rb") as file:
            self.assertEqual(file.read(48), b"RF64\xff\xff\xff\xffWAVEds64" + struct.pack(
                "<IQQQI", 28, size - 8, data, data // 6, 0))
            file.seek(-12, os.SEEK_END)
            self.assertEqual(unpack24(file.read()), [0, 0, 1 << 22, 1 << 21])
        info = self.info(target)
        self.assertEqual((info["valid"], info["frames"]), (True, data // 6))
        self.assertEqual([part["id"] for part in info["chunks"]], ["ds64", "bext", "fmt ", "data"])


if __name__ == "__main__":
    unittest.main()
