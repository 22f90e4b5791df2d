# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""Loop, solo and the seek in the waveform from outside: every sample that is heard, beside what an
independent decode of the same file has at its place."""

import unittest

import numpy
from window import SoundingCase, noise  # first: it knows where the others are
from playing import SIDE_GAINS
from sound import RATE, wait_for

HALF = numpy.float32(0.5)  # the volume that the window starts with
SECONDS = 12
WIDTH = 90
INSET = 9  # from the edge of the waveform to its first moment
TRIES = 6  # a machine that is busy may leave a hole anywhere; what is wrong is so each time


def decoded(frames, width=WIDTH):
    side = frames[:, 1] * SIDE_GAINS[width]
    return numpy.stack([frames[:, 0] + side, frames[:, 0] - side], axis=1) * HALF


class Places:
    """Where in a recording a sample belongs; all of them are different."""

    def __init__(self, wanted):
        self.of = {pair.tobytes(): at for at, pair in enumerate(wanted)}
        assert len(self.of) == len(wanted)

    def find(self, samples):
        """The place of each frame, -1 for one that is nowhere."""
        return numpy.array([self.of.get(pair.tobytes(), -1) for pair in samples])


class ListeningTest(SoundingCase):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.frames = noise(RATE * SECONDS, 32)
        cls.decoded = decoded(cls.frames)

    def start_paused(self, **words):
        """At rest at a width, wherever it is: nothing glides any more."""
        self.take("R0001.WAV", self.frames, bits=32, **words)
        program = self.start()
        self.open(program, "R0001.WAV")
        program.find("dial", "Stereo width").value = WIDTH
        program.wait_label(f"{WIDTH}°")
        position = program.find("slider", "Position")
        program.wait(lambda: position.value > 1, "what was queued before")
        program.find("push button", "Pause").click()
        program.find("push button", "Play")
        return program

    def at(self, program, seconds, y):
        """A place of the waveform on the screen."""
        wave = program.find("slider", "Waveform")
        left, _, width, _ = wave.place
        return round(left + INSET + seconds / SECONDS * (width - 2 * INSET)), wave.at(0, y)[1]

    def record(self, program, seconds):
        """All that is heard, silence within it included, of a play of some seconds."""
        with self.server.record() as recorder:
            recorder.wait_frames(RATE // 20)
            program.key("space")
            wait_for(lambda: recorder.samples().any(), "a sound")
            recorder.wait_frames(int(seconds * RATE))
            if program.look("push button", "Pause"):
                program.key("space")
            recorder.wait_silence()
            samples = recorder.stop().samples()
        sounding = numpy.flatnonzero(samples.any(axis=1))
        return samples[sounding[0]:sounding[-1] + 1]

    def test_a_loop_turns_to_the_sample_without_a_gap(self):
        program = self.start_paused()
        places = Places(self.decoded)
        program.drag(self.at(program, 5.0, 0.1), self.at(program, 5.6, 0.1))
        loop = program.find("check box", "Loop")
        program.wait(lambda: loop.has("checked"), "the loop")
        for _ in range(TRIES):
            heard = places.find(self.record(program, 3))
            if (heard >= 0).all():
                break
        self.assertTrue((heard >= 0).all(), "each frame is one of the file's, and none is silent")
        turns = numpy.flatnonzero(numpy.diff(heard) != 1)
        self.assertGreaterEqual(len(turns), 3)
        ends = set(heard[turns])
        self.assertEqual(len(ends), 1, "it turns after the same frame each time")
        begins = set(heard[turns + 1])
        self.assertEqual(len(begins), 1, "to the same frame each time")
        self.assertAlmostEqual(begins.pop() / RATE, 5.0, delta=0.05)
        self.assertAlmostEqual(ends.pop() / RATE, 5.6, delta=0.05)

        program.key("Escape")
        program.wait(lambda: not loop.has("checked"), "its end")
        heard = places.find(self.record(program, 1))
        heard = heard[heard >= 0]
        self.assertTrue((numpy.diff(heard) > 0).all(), "it plays on")

    def test_a_loop_by_its_key(self):
        program = self.start_paused()
        program.key("Home")
        program.key("l")
        program.key("Right")
        program.key("l")
        loop = program.find("check box", "Loop")
        program.wait(lambda: loop.has("checked"), "the loop")
        places = Places(self.decoded)
        for _ in range(TRIES):
            heard = places.find(self.record(program, 2.5))
            if (heard >= 0).all():
                break
        self.assertTrue((heard >= 0).all())
        turns = numpy.flatnonzero(numpy.diff(heard) != 1)
        self.assertGreaterEqual(len(turns), 2)
        self.assertEqual(set(heard[turns]), {RATE - 1}, "a second is a second")
        self.assertEqual(set(heard[turns + 1]), {0})
        program.key("l")
        program.wait(lambda: not loop.has("checked"), "its end")

    def test_the_loop_alone_is_exported_and_never_solo(self):
        program = self.start_paused()
        for key in ("Home", "Right", "l", "Right", "l", "s"):
            program.key(key)
        loop, solo = (program.find("check box", name) for name in ("Loop", "Solo Side"))
        program.wait(lambda: loop.has("checked") and solo.has("checked"), "loop and solo")
        program.find("push button", "Export").click()
        program.find("dialog", "Export")
        program.wait_label("Solo is for listening: Left and Right are exported.")
        program.find("radio button", "32-bit Float").click(x=0.1)
        program.find("check box", "Selection only").click(x=0.1)
        program.wait_label("384.7 kB")
        program.find("push button", "Save").click()
        program.find("dialog", "Saving checkboard...")
        program.key("Return")
        program.wait_gone("dialog")
        target = self.takes / "R0001_Decode_A-B.WAV"
        wanted = (self.decoded[RATE:2 * RATE] / HALF).astype("<f4").tobytes()
        program.wait(lambda: target.exists() and target.stat().st_size == 748 + len(wanted),
                     "the export")
        self.assertTrue(target.read_bytes()[748:] == wanted, "every sample from A to B, decoded")

    def test_solo(self):
        program = self.start_paused()
        for name, alone in (("Solo Side", self.frames[:, 1]), ("Solo Mid", self.frames[:, 0])):
            button = program.find("check box", name)
            button.click()
            program.wait(lambda: button.has("checked"), name)
            self.assert_heard(program, numpy.stack([alone, alone], axis=1) * HALF)
        program.find("check box", "Solo Mid").click()
        program.wait(lambda: not program.find("check box", "Solo Mid").has("checked"), "no solo")
        self.assert_heard(program, self.decoded)

    def assert_heard(self, program, wanted):
        """After the 20 ms of a fade, half a second is what is wanted, sample for sample."""
        for _ in range(TRIES):
            samples = self.record(program, 1)[1000:1000 + RATE // 2]
            places = numpy.flatnonzero((wanted == samples[0]).all(axis=1))
            if any(numpy.array_equal(wanted[at:at + len(samples)], samples) for at in places):
                return
        self.fail("what was heard is nowhere in what is wanted")

    def test_a_stereo_take_has_no_solo(self):
        program = self.start_paused_stereo()
        for name in ("Solo Mid", "Solo Side"):
            self.assertFalse(program.find("check box", name).has("sensitive"))

    def start_paused_stereo(self):
        self.take("R0001.WAV", self.frames, bits=32, raw=False)
        program = super().start()
        self.open(program, "R0001.WAV")
        program.wait_label("R0001.WAV")
        return program

    def test_a_seek_in_the_waveform(self):
        program = self.start_paused()
        program.click_at(*self.at(program, 10.5, 0.6))
        program.wait_label("00:00:10")
        heard = Places(self.decoded).find(self.record(program, 2))
        self.assertAlmostEqual(heard[0] / RATE, 10.5, delta=0.05)
        known = heard[heard >= 0]
        self.assertEqual(known[-1], len(self.decoded) - 1, "to the last frame")
        self.assertTrue((numpy.diff(known) == 1).all(), "each frame once, and in order")


if __name__ == "__main__":
    unittest.main()
