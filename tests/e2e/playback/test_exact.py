# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""What comes out of a sound server is, sample for sample, what should."""

import subprocess
import unittest

import numpy
from playing import BUFFER, CLI, RATE, Case, expected, noise


class ExactTest(Case):
    def check(self, frames, bits, angle, gain, *arguments, raw=True):
        path = self.file(frames, bits, raw=raw)
        told = "" if raw else "--angle is not used"
        samples = self.play_recorded("--angle", angle, "--gain", gain, *arguments, path, told=told)
        self.assert_heard(samples, expected(frames, bits, angle, gain, raw=raw))

    def test_widths_and_gains(self):
        for bits in (24, 32):
            frames = noise(RATE // 2 + 7, bits)
            for angle, gain in ((0, 0), (70, -6), (120, 0), (120, 12), (150, 3)):
                with self.subTest(bits=bits, angle=angle, gain=gain):
                    self.check(frames, bits, angle, gain)

    def test_loud_24_bits_clip_left_and_wrap_right(self):
        frames = noise(RATE // 4, 24, level=0.9)
        wanted = expected(frames, 24, 150, 6)
        plain = expected(frames.astype(float) * 2.0 ** -23, 32, 150, 6)
        self.assertGreater(numpy.count_nonzero(plain[:, 0] > 1), 100)
        self.assertGreater(numpy.count_nonzero(abs(plain[:, 1] - wanted[:, 1]) > 1), 100)
        self.check(frames, 24, 150, 6)

    def test_short_clips(self):
        for milliseconds in (10, 50, 200):
            for bits in (24, 32):
                with self.subTest(milliseconds=milliseconds, bits=bits):
                    self.check(noise(RATE * milliseconds // 1000, bits), bits, 120, 0)

    def test_plain_left_and_right(self):
        self.check(noise(RATE // 3, 24), 24, 30, -3, raw=False)

    def test_from_and_to_are_exact(self):
        frames = noise(RATE, 32)
        path = self.file(frames, 32)
        samples = self.play_recorded("--from", 0.25, "--to", 0.7, path)
        self.assert_heard(samples, expected(frames[RATE // 4:RATE * 7 // 10], 32, 120, 0))

    def test_volume_is_linear(self):
        frames = noise(RATE // 4, 32)
        samples = self.play_recorded("--volume", 0.5, self.file(frames, 32))
        self.assert_heard(samples, expected(frames, 32, 120, 0) * numpy.float32(0.5))

    def test_it_is_what_the_export_writes(self):
        frames = noise(RATE // 2, 32)
        path = self.file(frames, 32)
        output = self.folder / "out.wav"
        subprocess.run([CLI, "export", "--angle", "120", "--format", "float32", "--output", output,
                        path], check=True)
        exported = numpy.frombuffer(output.read_bytes()[-8 * len(frames):], "<f4").reshape(-1, 2)
        samples = self.play_recorded("--angle", 120, path)
        sounding = samples[samples.any(axis=1)]
        self.assertEqual(len(sounding), len(exported))
        # The first 120 frames glide from mono.
        self.assertTrue((sounding[120:] == exported[120:]).all())
        self.assertFalse((sounding[:119] == exported[:119]).all())

    def test_another_rate_plays_at_the_right_pitch(self):
        frequency, rate = 1000, 44100
        time = numpy.arange(rate) / rate
        tone = 0.5 * numpy.sin(2 * numpy.pi * frequency * time)
        path = self.file(numpy.stack([tone, 0 * tone], axis=1), 32, rate=rate)
        samples = self.play_recorded(path)
        sounding = numpy.flatnonzero(abs(samples).max(axis=1) > 1e-3)
        self.assertAlmostEqual(len(samples[sounding[0]:sounding[-1]]) / RATE, 1.0, delta=0.01)
        middle = samples[sounding[0] + RATE // 4:][:RATE // 2, 0] * numpy.hanning(RATE // 2)
        self.assertAlmostEqual(numpy.argmax(abs(numpy.fft.rfft(middle))) * 2, frequency, delta=2)
        self.assertGreater(abs(middle).max(), 0.49)

    def test_sixteen_bits_are_untouched(self):
        random = numpy.random.default_rng(3)
        values = random.integers(1, 30000, (RATE // 4, 2))
        path = self.file(values, 24)
        body = path.read_bytes()
        data = values.astype("<i2").tobytes()
        start = body.index(b"data")
        header = body[:start].replace(
            (24).to_bytes(2, "little") + b"data", b"").replace(b"\x06\x00\x18\x00", b"\x04\x00\x10\x00")
        whole = header + b"data" + len(data).to_bytes(4, "little") + data
        path.write_bytes(whole[:4] + (len(whole) - 8).to_bytes(4, "little") + whole[8:])
        samples = self.play_recorded("--gain", 12, "--angle", 30, path)
        self.assert_heard(samples, values.astype(numpy.float32) / numpy.float32(32768))

    def test_longer_than_all_buffers(self):
        self.check(noise(7 * BUFFER + 1, 24), 24, 120, 0)


if __name__ == "__main__":
    unittest.main()
