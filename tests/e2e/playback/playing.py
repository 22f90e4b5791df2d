# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""What the tests of playing share: recordings, the samples to expect, and a player at a terminal.

usage of each test: test_TOPIC.py pulse|pipewire. MIXDECK_BIN names the folder of the programs.
"""

import fcntl
import os
import pty
import re
import select
import struct
import subprocess
import sys
import tempfile
import termios
import threading
import unittest
from pathlib import Path

import numpy

sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "support"))
from sound import PATIENCE, RATE, SoundServer, wait_for  # noqa: E402

KIND = sys.argv.pop(1) if len(sys.argv) > 1 and sys.argv[1] in ("pulse", "pipewire") else "pulse"
CLI = os.path.join(os.environ["MIXDECK_BIN"], "mixdeck-cli")
BUFFER = 4800  # frames
HOLE = 100  # frames of silence that no recording in here has
SCALE = numpy.float32(2.0 ** -23)


def chunk(name, payload):
    return name + struct.pack("<I", len(payload)) + payload


def recording(frames, bits, raw=True, rate=RATE):
    """A recording of two channels: integers for 24 bits, floats for 32."""
    history = b"A=PCM,T=J4;MSRAW=ON" if raw else b"A=PCM,T=J4;MSRAW=OFF"
    bext = struct.pack("<256s32s32s10s8sqH64s190x", b"", b"TARN J4", b"", b"2026-05-04",
                       b"03:02:01", 0, 1, b"") + history.ljust(20, b"\0")
    fmt = struct.pack("<HHIIHH", 3 if bits == 32 else 1, 2, rate, rate * bits // 4, bits // 4, bits)
    if bits == 32:
        data = frames.astype("<f4").tobytes()
    else:
        data = frames.astype("<i4").reshape(-1, 1).view(numpy.uint8).reshape(-1, 4)[:, :3].tobytes()
    body = b"WAVE" + chunk(b"bext", bext) + chunk(b"fmt ", fmt) + chunk(b"data", data)
    return b"RIFF" + struct.pack("<I", len(body)) + body


def noise(count, bits, seed=1, level=0.4):
    """Mid and Side of which no frame is silent, whatever the width."""
    random = numpy.random.default_rng(seed)
    frames = random.uniform(0.1, level, (count, 2)) * random.choice((-1, 1), (count, 2))
    frames[:, 1] *= 0.2
    if bits == 32:
        return frames.astype(numpy.float32)
    return (frames * 2 ** 23).astype(numpy.int64)


def side_gain(angle):
    if angle == 0:
        return 0.0
    return 10 ** ((-48 + (angle - 1) * 27 / 14 if angle < 16 else (angle - 120) * 0.2) / 20)


SIDE_GAINS = numpy.array([side_gain(angle) for angle in range(151)], numpy.float32)


def expected(frames, bits, angle, gain, raw=True):
    """What is heard of a recording: a new player glides from width 0 and gain 0 in its first
    buffer, and then stays."""
    floats = frames.astype(numpy.float32)
    if bits == 24:
        floats = floats * SCALE
    count = len(floats)
    if raw:
        factors = SIDE_GAINS[numpy.minimum(numpy.arange(1, count + 1), angle)]
        side = floats[:, 1] * factors
        floats = numpy.stack([floats[:, 0] + side, floats[:, 0] - side], axis=1)
    end = 10.0 ** float(numpy.float32(-gain) / numpy.float32(20))
    ramp = min(count, BUFFER, 960)
    divisors = numpy.full(count, end)
    divisors[:ramp] = 1.0 + (end - 1.0) * numpy.arange(ramp) / ramp
    floats = floats / divisors.astype(numpy.float32)[:, None]
    return floats if bits == 32 else stored24(floats)


def stored24(floats):
    """24 bits and back: the left channel clips, the right one wraps, +1.0 is the least value."""
    scaled = floats.astype(numpy.float64) * 2.0 ** 23
    values = numpy.trunc(scaled).astype(numpy.int64)
    left = values[:, 0]
    left[scaled[:, 0] > 2 ** 23] = 0x7FFFFF
    left[scaled[:, 0] < -(2 ** 23)] = -0x800000
    values = (values + 0x800000) % 0x1000000 - 0x800000
    return values.astype(numpy.float32) * SCALE


def problems(told):
    """What a program told on standard error, but for that the machine was too busy for its sound."""
    return "".join(line for line in told.splitlines(True) if "ran dry" not in line)


def heard(samples):
    """The frames that are not silent."""
    return samples[samples.any(axis=1)]


# Frames that a server may leave out at once on a busy machine; PulseAudio never does.
CYCLE = 256 if KIND == "pipewire" else RATE * 3600


def disorder(numbers):
    """Where frames that carry their number were not heard one after the other, and how many are missing there:
    nowhere. PipeWire leaves out whole cycles of a multiple of 256 frames when the machine is too busy for
    it, in one channel or both; no buffer of the player's is one, and nothing may be heard twice."""
    numbers = numpy.asarray(numbers)
    if KIND == "pipewire":
        numbers = numbers[numbers != 0]  # the other channel sounded; 0 at most the first has
    missing = numpy.diff(numbers).astype(int) - 1
    wrong = numpy.flatnonzero((missing < 0) | (missing % CYCLE != 0))
    return [(int(numbers[at]), int(missing[at])) for at in wrong]


class Case(unittest.TestCase):
    """With a sound server of its own a class, and a folder of its own a test."""

    @classmethod
    def setUpClass(cls):
        cls.server = cls.enterClassContext(SoundServer(KIND)) if hasattr(
            cls, "enterClassContext") else cls._enter()

    @classmethod
    def _enter(cls):
        server = SoundServer(KIND).__enter__()
        cls.addClassCleanup(server.__exit__)
        return server

    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="mixdeck-test-")
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)

    def file(self, frames, bits, **words):
        path = self.folder / "take.wav"
        path.write_bytes(recording(frames, bits, **words))
        return path

    def run_play(self, *arguments, **words):
        return subprocess.run([CLI, "play", *map(str, arguments)], env=self.server.environment,
                              stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                              stderr=subprocess.PIPE, text=True, timeout=60, **words)

    def play_recorded(self, *arguments, told=""):
        """Plays and returns all that the sink heard, silence at both ends included; `told` is what the
        program has to say on its error output, and nothing says that it is silent. A machine so
        busy that the output ran dry, which the program tells, or that the sound server left a hole
        gets another try; what the player does wrong it does each time."""
        for _ in range(20):
            with self.server.record() as recorder:
                recorder.wait_frames(RATE // 20)
                done = self.run_play(*arguments)
                recorder.wait_silence()
                samples = recorder.stop().samples()
            places = numpy.flatnonzero(samples.any(axis=1))
            if "ran dry" not in done.stderr and (numpy.diff(places) < HOLE).all():
                break
        self.assertEqual((done.returncode, done.stdout), (0, ""))
        self.assertIn(told, done.stderr)
        if not told:
            self.assertEqual(done.stderr, "")
        return samples

    def assert_heard(self, samples, wanted):
        """Sample for sample, in one piece, between silence."""
        sounding = numpy.flatnonzero(samples.any(axis=1))
        self.assertEqual(len(sounding), len(wanted), "frames that were heard")
        self.assertEqual(sounding[-1] - sounding[0] + 1, len(wanted), "they are in one piece")
        differing = numpy.flatnonzero((heard(samples) != wanted).any(axis=1))
        self.assertEqual(len(differing), 0, f"first difference at frame {differing[:1]}")


class Player:
    """`mixdeck-cli play` at a terminal of its own."""

    def __init__(self, server, *arguments, columns=100, **environment):
        self.master, slave = pty.openpty()
        fcntl.ioctl(slave, termios.TIOCSWINSZ, struct.pack("HHHH", 24, columns, 0, 0))
        self.before = termios.tcgetattr(slave)
        self.slave = slave
        self.process = subprocess.Popen(
            [CLI, "play", *map(str, arguments)],
            env=server.environment | {"NO_COLOR": "1"} | environment, stdin=slave,
            stdout=slave, stderr=slave, start_new_session=True,
            preexec_fn=lambda: fcntl.ioctl(0, termios.TIOCSCTTY, 0))
        self.shown = ""
        self.reader = threading.Thread(target=self._read, daemon=True)
        self.reader.start()

    def _read(self):
        while True:
            is_over = self.process.poll() is not None
            ready, _, _ = select.select([self.master], [], [], 0.05)
            if ready:
                try:
                    self.shown += os.read(self.master, 4096).decode(errors="replace")
                except OSError:
                    return
            elif is_over:
                return

    def __enter__(self):
        try:
            wait_for(lambda: " dB" in self.shown, "the time line")
        except TimeoutError as late:
            self.__exit__()
            raise TimeoutError(f"{late}; it showed {self.shown!r}") from late
        return self

    def __exit__(self, *_):
        if self.process.poll() is None:
            self.process.kill()
        self.process.wait()
        self.reader.join()
        os.close(self.master)
        os.close(self.slave)

    def is_lost(self):
        """It has told that its sound output went away; at a terminal it then waits for a key."""
        return "mixdeck-cli: The sound" in self.shown

    def has_ended(self):
        """And all that it showed has been read."""
        return not self.reader.is_alive()

    def press(self, keys):
        os.write(self.master, keys.encode())

    def line(self):
        """The time line as it is now."""
        return self.shown.rsplit("\x1b[K", 1)[-1]

    def seconds(self):
        """The time that the line tells."""
        told = re.findall(r"(\d+):(\d\d):(\d\d) /", self.shown)[-1]
        return sum(int(part) * unit for part, unit in zip(told, (3600, 60, 1)))

    def wait_line(self, text):
        wait_for(lambda: text in self.line(), f"{text} in {self.line()!r}")

    def is_raw(self):
        return not termios.tcgetattr(self.slave)[3] & (termios.ICANON | termios.ECHO)

    def is_restored(self):
        return termios.tcgetattr(self.slave) == self.before

    def wait(self, patience=PATIENCE):
        """Its status, once all that it showed has been read."""
        try:
            self.process.wait(patience)
            self.reader.join()
            return self.process.returncode
        except subprocess.TimeoutExpired:
            raise AssertionError(f"it has not ended; it shows: {self.shown[-400:]!r}") from None
