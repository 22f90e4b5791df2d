# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""What is heard of the window, sample for sample, while its controls are used from outside."""

import signal
import unittest

import numpy
from window import SoundingCase, noise  # first: it knows where the others are
from playing import expected, heard
from sound import RATE, wait_for

HALF = numpy.float32(0.5)  # the volume that the window starts with


class PlayingTest(SoundingCase):
    def record(self, act):
        """All that is heard from before `act` until silence after it."""
        with self.server.record() as recorder:
            recorder.wait_frames(RATE // 20)
            act()
            self.wait_sound(recorder)
            recorder.wait_silence()
            return heard(recorder.stop().samples())

    @staticmethod
    def wait_sound(recorder):
        wait_for(lambda: recorder.samples().any(), "a sound")

    def assert_same(self, samples, wanted):
        self.assertEqual(len(samples), len(wanted), "frames that were heard")
        differing = numpy.flatnonzero((samples != wanted).any(axis=1))
        self.assertEqual(len(differing), 0, f"first difference at frame {differing[:1]}")

    def wait_stopped(self, program):
        program.find("push button", "Play")

    def open_paused(self, program, name):
        """Opens a take and pauses it, whatever was heard of it."""
        self.open(program, name)
        program.find("push button", "Pause").click()
        self.wait_stopped(program)

    def test_a_take_as_it_would_be_exported(self):
        frames = noise(RATE * 3 // 2 + 7, 24, level=0.1)
        self.take("R0001.WAV", frames)
        program = self.start()
        samples = self.record(lambda: self.open(program, "R0001.WAV"))
        self.assert_same(samples, expected(frames, 24, 0, 0) * HALF)
        self.wait_stopped(program)
        self.assertEqual(program.find("slider", "Position").value, 0)
        self.assertEqual(program.labels().count("00:00:00"), 1)
        self.assertIn("00:00:01", program.labels())  # its length

        # The dial stands at the top; its label at 90 degrees, at the left edge of the arc, sets it.
        program.find("dial", "Stereo width").value = 90
        program.wait_label("90°")
        x, y = program.find("push button", "+12").at()
        program.click_at(x, y)
        program.wait_label("+12 dB")
        samples = self.record(lambda: program.key("space"))
        self.assert_same(samples, expected(frames, 24, 90, 12) * HALF)

    def test_the_dial_under_the_pointer(self):
        self.take("R0001.WAV", noise(RATE * 20, 24))
        program = self.start()
        self.open_paused(program, "R0001.WAV")
        dial = program.find("dial", "Stereo width")
        # The arc's middle is the dial's; its radius is 0.4 of the width.
        program.drag(dial.at(0.5, 0.1), dial.at(0.1, 0.5))
        program.wait_label("90°")
        self.assertAlmostEqual(dial.value, 90, delta=1)
        program.key("Up")
        program.wait(lambda: dial.value == 91, "a degree more")
        program.wait_label("91°")
        program.key("Home")
        program.wait_label("0°")

    def test_seek_and_pause(self):
        frames = noise(RATE * 6, 32)
        self.take("R0001.WAV", frames, bits=32)
        program = self.start()
        self.open_paused(program, "R0001.WAV")
        position = program.find("slider", "Position")
        program.drag(position.at(0.02), position.at(0.7))
        program.wait(lambda: abs(position.value / 6 - 0.7) < 0.03, "the new position")
        program.wait_label("00:00:04")
        samples = self.record(lambda: program.key("space"))
        wanted = expected(frames, 32, 0, 0) * HALF
        start = len(frames) - len(samples)
        self.assertAlmostEqual(start / len(frames), 0.7, delta=0.03)
        self.assert_same(samples, wanted[start:])

    def test_levels_move_while_it_plays(self):
        self.take("R0001.WAV", noise(RATE * 20, 24))
        program = self.start()
        self.open(program, "R0001.WAV")
        meters = [program.find("progress bar", f"Level {side}") for side in ("left", "right")]
        program.wait(lambda: all(meter.value > -28 for meter in meters), "the levels")
        first = program.find("slider", "Position").value
        program.wait(lambda: program.find("slider", "Position").value > first, "progress")
        program.key("space")
        self.wait_stopped(program)
        program.wait(lambda: all(meter.value == -48 for meter in meters), "the levels' fall")

    def test_pictures_rest_behind_another_window(self):
        self.take("R0001.WAV", noise(RATE * 60, 24))
        program = self.start()
        self.open(program, "R0001.WAV")
        correlation = program.find("label", "Correlation")
        program.wait(lambda: "." in correlation.text, "the sound in the picture")
        cover = self.desktop.spawn("display", "-backdrop", "-size", "64x64", "xc:gray")
        program.wait(lambda: "." not in correlation.text, "rest")
        position = program.find("slider", "Position")
        before = position.value
        program.wait(lambda: position.value > before, "the take, which plays on")
        cover.terminate()
        program.wait(lambda: "." in correlation.text, "the pictures once more")

    def test_mute(self):
        self.take("R0001.WAV", noise(RATE * 20, 24))
        program = self.start()
        with self.server.record() as recorder:
            self.open(program, "R0001.WAV")
            self.wait_sound(recorder)
            volume = program.find("slider", "Volume")
            self.assertEqual(volume.value, 0.5)
            mute = program.find("check box", "Mute")
            self.assertFalse(mute.has("checked"))
            mute.click()
            recorder.wait_silence()
            self.assertEqual(volume.value, 0)
            at = recorder.frames
            self.assertTrue(mute.has("checked"))
            mute.click()
            program.wait(lambda: recorder.samples()[at:].any(), "the sound again")
            self.assertEqual(volume.value, 0.5)
            volume.value = 1
            loud = 0.9 * expected(noise(RATE * 20, 24), 24, 0, 0).max()
            program.wait(lambda: recorder.samples()[at:].max() > loud, "the full volume")


class GoingServerTest(SoundingCase):
    """With a server that the other tests do not need."""

    @staticmethod
    def sentences(program):
        """What the window says of the sound."""
        return [text for text in program.labels() if text.endswith("Press Play to try again.")]

    def hear(self, act):
        """Acts, and returns once something is heard."""
        with self.server.record() as recorder:
            act()
            wait_for(lambda: recorder.samples().any(), "a sound")

    def test_killed_and_back(self):
        self.take("R0001.WAV", noise(RATE * 60, 24))
        program = self.start()
        self.hear(lambda: self.open(program, "R0001.WAV"))
        position = program.find("slider", "Position")
        program.wait(lambda: position.value >= 1, "a second of it")
        self.assertEqual(self.sentences(program), [])
        self.server.stop(signal.SIGKILL)
        program.wait(lambda: self.sentences(program), "what is the matter")
        self.assertIn("The sound server has gone", self.sentences(program)[0])
        button = program.find("push button", "Play")
        paused_at = position.value
        self.assertGreaterEqual(paused_at, 1)
        self.server.start()
        self.hear(button.click)
        program.wait(lambda: not self.sentences(program), "the end of the sentence")
        program.find("push button", "Pause")
        self.assertGreaterEqual(position.value, paused_at)


if __name__ == "__main__":
    unittest.main()
