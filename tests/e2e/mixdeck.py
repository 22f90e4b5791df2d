# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""What the end-to-end tests share: the program, recordings made byte by byte, exact arithmetic.

The programs are looked for in the folder that MIXDECK_BIN names.
"""

import ctypes
import errno
import json
import math
import os
import shutil
import socket
import struct
import subprocess
import tempfile
import unittest

CLI = os.path.join(os.environ["MIXDECK_BIN"], "mixdeck-cli")
NOBODY = 65534
RAW = "A=PCM,F=48000,W=24,M=stereo,T=J4;VERSION=1.00;MSRAW=ON;"
PLAIN = "A=PCM,F=48000,W=24,M=stereo,T=J4;VERSION=1.00;MSRAW=OFF;"
FIRST_SAMPLE = 748  # in every export
FIGURES = ["angle", "gain_db", "integrated_lufs", "range_lu", "momentary_max_lufs",
           "short_term_max_lufs", "true_peak_dbtp", "sample_peak_dbfs", "correlation", "balance_db"]


def chunk(identifier, payload, size=None):
    return identifier.encode() + struct.pack("<I", len(payload) if size is None else size) + payload


def bext(originator="TARN J4", history=RAW, description="A walk"):
    fields = struct.pack("<256s32s32s10s8sqH64s190x", description.encode(), originator.encode(),
                         b"REF", b"2026-05-04", b"03:02:01", 99, 1, b"UMID")
    return chunk("bext", fields + history.encode())


def fmt(tag=1, channels=2, rate=48000, bits=24):
    align = channels * bits // 8
    return chunk("fmt ", struct.pack("<HHIIHH", tag, channels, rate, rate * align, align, bits))


def wave(*chunks, riff_size=None):
    body = b"WAVE" + b"".join(chunks)
    return b"RIFF" + struct.pack("<I", len(body) if riff_size is None else riff_size) + body


def pack24(values):
    return b"".join(struct.pack("<i", value)[:3] for value in values)


def unpack24(data):
    return [int.from_bytes(data[i:i + 3], "little", signed=True)
            for i in range(0, len(data) - 2, 3)]


def unpack_floats(data):
    return list(struct.unpack(f"<{len(data) // 4}f", data))


def recording(samples=(100, 50, -100, 25), history=RAW, **words):
    return wave(fmt(), bext(history=history, **words), chunk("data", pack24(samples)))


def tone(seconds, level, frequency=1000, rate=48000):
    """Mid and Side of a tone: loud in the middle, something at the sides."""
    top = 10 ** (level / 20) * 8388607
    samples = []
    for i in range(int(seconds * rate)):
        turn = 2 * math.pi * frequency * i / rate
        samples += [int(top * math.sin(turn)), int(0.4 * top * math.sin(1.7 * turn + 1))]
    return samples


def single(value):
    """The value rounded to single precision. One operation on two single-precision numbers, done in
    double precision and rounded by this, is what single precision gives: double has more than twice
    as many bits, so rounding twice does no harm."""
    return struct.unpack("<f", struct.pack("<f", value))[0]


def side_gain(angle):
    if angle == 0:
        return 0.0
    return 10 ** ((-48 + (angle - 1) * 27 / 14 if angle < 16 else (angle - 120) * 0.2) / 20)


def decoded(samples, angle=None, gain=0.0):
    """Interleaved single-precision samples after decode (with an angle) and gain."""
    k = single(side_gain(angle)) if angle is not None else None
    divisor = single(10 ** (-gain / 20))
    result = []
    for mid, side in zip(samples[0::2], samples[1::2]):
        left, right = mid, side
        if k is not None:
            scaled = single(side * k)
            left, right = single(mid + scaled), single(mid - scaled)
        result += [single(left / divisor), single(right / divisor)]
    return result


def stored24(sample):
    if -1.0 < sample < 1.0:
        return int(single(sample * 8388607.0))
    return 8388607 if sample > 0 else -8388608


def samples_of(path):
    with open(path, "rb") as file:
        return file.read()[FIRST_SAMPLE:]


def as_nobody():
    """For a child: gives all privileges up, where there are any."""
    if os.geteuid() == 0:
        os.setgroups([])
        os.setresgid(NOBODY, NOBODY, NOBODY)
        os.setresuid(NOBODY, NOBODY, NOBODY)


def install_filter(steps):
    """For a child: has the system calls pass through a filter."""
    code = ctypes.create_string_buffer(b"".join(struct.pack("HBBI", *step) for step in steps))
    program = ctypes.create_string_buffer(
        struct.pack("HxxxxxxP", len(steps), ctypes.addressof(code)))
    libc = ctypes.CDLL(None, use_errno=True)
    if libc.prctl(38, 1, 0, 0, 0) != 0 or libc.prctl(22, 2, program) != 0:
        raise OSError(ctypes.get_errno(), "no system call filter")


def without_threads():
    """For a child: from now on no thread can be started, as under a limit on processes."""
    clone, clone3 = {"x86_64": (56, 435), "aarch64": (220, 435)}[os.uname().machine]
    install_filter([(0x20, 0, 0, 0), (0x15, 1, 0, clone), (0x15, 0, 1, clone3),
                    (0x06, 0, 0, 0x00050000 | errno.EAGAIN), (0x06, 0, 0, 0x7FFF0000)])


def without_unnamed_files():
    """For a child: from now on no file without a name can be made, as on FAT."""
    number = {"x86_64": 257, "aarch64": 56}[os.uname().machine]
    unnamed = os.O_TMPFILE & ~os.O_DIRECTORY
    steps = [(0x20, 0, 0, 0), (0x15, 0, 3, number),  # is it openat?
             (0x20, 0, 0, 32), (0x45, 0, 1, unnamed),  # with that flag?
             (0x06, 0, 0, 0x00050000 | 95), (0x06, 0, 0, 0x7FFF0000)]  # EOPNOTSUPP, or go on
    install_filter(steps)


def with_mounts():
    """What to put before the words of a program that may mount something that it alone sees; None where no
    program may."""
    words = ["unshare", "--mount", *([] if os.geteuid() == 0 else ["--map-root-user"])]
    done = subprocess.run([*words, "mount", "-t", "tmpfs", "none", "/mnt"], capture_output=True,
                          check=False)
    return words if done.returncode == 0 else None


def without_internet():
    """For a child: from now on whoever asks for a socket of the internet, or for what goes over the wire, is
    ended by SIGSYS."""
    number = {"x86_64": 41, "aarch64": 198}[os.uname().machine]
    families = (socket.AF_INET, socket.AF_INET6, socket.AF_PACKET)
    steps = [(0x20, 0, 0, 0), (0x15, 0, 1 + len(families), number),  # is it socket?
             (0x20, 0, 0, 16)]  # of which family?
    steps += [(0x15, len(families) - i, 0, family) for i, family in enumerate(families)]
    install_filter([*steps, (0x06, 0, 0, 0x7FFF0000), (0x06, 0, 0, 0x80000000)])  # go on, or the end


class Case(unittest.TestCase):
    """A test with a folder of its own that anyone may reach."""

    maxDiff = None

    def setUp(self):
        self.folder = tempfile.mkdtemp(prefix="mixdeck-e2e-")
        os.chmod(self.folder, 0o777)
        self.addCleanup(shutil.rmtree, self.folder, ignore_errors=True)

    def path(self, *names):
        return os.path.join(self.folder, *names)

    def file(self, name, content):
        with open(self.path(name), "wb") as file:
            file.write(content)
        return self.path(name)

    def read(self, name):
        with open(self.path(name), "rb") as file:
            return file.read()

    def names(self):
        return sorted(os.listdir(self.folder))

    def run_cli(self, *arguments, **options):
        return subprocess.run([CLI, *map(str, arguments)], capture_output=True, text=True,
                              timeout=120, cwd=self.folder, check=False, **options)

    def expect(self, status, *arguments, out=None, err=None, **options):
        """Runs the program; `out` and `err` are whole texts where they are given."""
        result = self.run_cli(*arguments, **options)
        self.assertEqual(result.returncode, status, result)
        if out is not None:
            self.assertEqual(result.stdout, out)
        if err is not None:
            self.assertEqual(result.stderr, err)
        return result

    def info(self, path):
        return json.loads(self.expect(0, "info", "--json", path, err="").stdout)

    def big_recording(self, name, seconds):
        """A long recording that takes next to no room on the disk: silence."""
        count = seconds * 288000
        head = wave(fmt(), bext(), chunk("data", b"", count))
        path = self.file(name, head[:4] + struct.pack("<I", len(head) + count - 8) + head[8:])
        os.truncate(path, len(head) + count)
        return path
