# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""Recordings past 2 GiB, and the memory that an export takes, seen from outside."""

import os
import struct
import subprocess
import unittest

from mixdeck import CLI, FIRST_SAMPLE, Case, bext, chunk, fmt, pack24, stored24, unpack24, wave

FRAME = 6
RATE = 48000
MIB = 1 << 20
HALF, QUARTER = 1 << 22, 1 << 21  # as stored


class LongCase(Case):
    def sparse(self, name, head, size):
        """A file that begins with `head`, a whole file but for its last chunk's payload, and has
        `size` bytes more that take no room."""
        path = self.file(name, head[:4] + struct.pack("<I", len(head) + size - 8) + head[8:])
        os.truncate(path, len(head) + size)
        return path

    def put(self, path, offset, samples):
        with open(path, "r+b") as file:
            file.seek(offset)
            file.write(pack24(samples))


class PastTwoGiBTest(LongCase):
    """A take with its loud frames past the reach of a signed 32-bit offset."""

    frames = (1 << 31) // FRAME + 60 * RATE

    def setUp(self):
        super().setUp()
        head = wave(fmt(), bext(), chunk("data", b"", self.frames * FRAME))
        self.take = self.sparse("long.wav", head, self.frames * FRAME)
        self.loud = self.frames - 30 * RATE
        self.offset = len(head) + self.loud * FRAME
        self.assertGreater(self.offset, 1 << 31)
        self.put(self.take, self.offset, [HALF, QUARTER, 0, 0, -HALF, -QUARTER])

    def levels(self, first, last):
        """Of the stretch between two frames."""
        shown = self.expect(0, "levels", "--angle", 120, "--from", (first - 0.5) / RATE, "--to",
                            (last + 0.5) / RATE, self.take, err="").stdout
        return [float(word) for word in shown.split()]

    def test_it_is_measured(self):
        self.assertEqual(self.levels(self.loud - 5, self.loud + 5), [0.75, 0.25])
        self.assertEqual(self.levels(self.loud - 50, self.loud - 40), [0.0, 0.0])

    def test_it_is_read_and_exported(self):
        target = self.path("out.wav")
        self.expect(0, "export", "--angle", 120, "--output", target, self.take, out="", err="")
        self.assertEqual(os.path.getsize(target), FIRST_SAMPLE + self.frames * FRAME)
        with open(target, "rb") as file:
            head = file.read(FIRST_SAMPLE)
            file.seek(FIRST_SAMPLE + (self.loud - 1) * FRAME)
            found = unpack24(file.read(5 * FRAME))
        self.assertEqual(struct.unpack_from("<I", head, 4)[0],
                         FIRST_SAMPLE + self.frames * FRAME - 8)
        self.assertEqual(struct.unpack_from("<I", head, 744)[0], self.frames * FRAME)
        wanted = [0, 0, 0.75, 0.25, 0, 0, -0.75, -0.25, 0, 0]
        self.assertEqual(found, [stored24(sample) for sample in wanted])

    def test_data_that_begins_there_too(self):
        filler = (1 << 31) + 1000
        head = wave(fmt(), bext(), chunk("JUNK", b"", filler))
        samples = pack24([HALF, QUARTER])
        path = self.sparse("late.wav", head, filler)
        with open(path, "r+b") as file:
            file.seek(4)
            file.write(struct.pack("<I", len(head) + filler + 8 + len(samples) - 8))
            file.seek(len(head) + filler)
            file.write(chunk("data", samples))
        self.expect(0, "export", "--angle", 0, "--output", self.path("out.wav"), path, out="",
                    err="")
        with open(self.path("out.wav"), "rb") as file:
            self.assertEqual(unpack24(file.read()[FIRST_SAMPLE:]), 2 * [stored24(0.5)])


class MemoryTest(LongCase):
    """However long the take is, an export holds a few blocks of it."""

    most = 24 * MIB  # more than for a short one

    def peak(self, *arguments):
        """Bytes that were resident at the most."""
        with subprocess.Popen([CLI, "export", "--force", *arguments], cwd=self.folder) as process:
            _, status, used = os.wait4(process.pid, 0)
            process.returncode = os.waitstatus_to_exitcode(status)
        self.assertEqual(process.returncode, 0)
        return used.ru_maxrss * 1024

    def test_an_export_does_not_grow_with_the_take(self):
        for name, seconds in ("short.wav", 1), ("long.wav", 600):
            size = seconds * RATE * FRAME
            path = self.sparse(name, wave(fmt(), bext(), chunk("data", b"", size)), size)
            self.put(path, os.path.getsize(path) - FRAME, [HALF, 0])
        for settings in ["--gain", "6"], ["--format", "float32"], ["--normalize"]:
            with self.subTest(settings=settings):
                short, long = (self.peak(*settings, name) for name in ("short.wav", "long.wav"))
                self.assertLess(long - short, self.most)


if __name__ == "__main__":
    unittest.main()
