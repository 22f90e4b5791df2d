# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""The player at a terminal: its keys, its time line, and the terminal afterwards."""

import os
import signal
import struct
import unittest

import numpy
from playing import RATE, SIDE_GAINS, Case, Player, disorder, heard, noise, problems, wait_for


class TerminalTest(Case):
    def setUp(self):
        super().setUp()
        self.recorder = self.server.record()
        self.addCleanup(self.recorder.stop)

    def sounds(self):
        wait_for(lambda: self.recorder.samples()[-RATE // 10:].any(), "sound")

    def latest(self):
        """The number of the frame that was heard last."""
        numbers = self.recorder.samples()[-RATE // 2:, 0]
        sounding = numbers[numbers > 0]
        return round(sounding[-1] * 2 ** 23) if len(sounding) else 0

    def finished(self):
        self.recorder.wait_silence()
        return heard(self.recorder.stop().samples())

    def test_pause_and_resume_lose_and_repeat_nothing(self):
        numbers = numpy.arange(1, 6 * RATE + 1)
        frames = numpy.stack([numbers, 0 * numbers], axis=1)
        with Player(self.server, self.file(frames, 24)) as player:
            for _ in range(3):
                self.sounds()
                player.press(" ")
                player.wait_line("paused")
                self.recorder.wait_silence(RATE // 5)
                player.press(" ")
            self.assertEqual(player.wait(), 0)
            self.assertTrue(player.is_restored())
        played = self.finished()[:, 0] * 2 ** 23
        self.assertEqual(disorder(played), [])
        self.assertEqual((played[0], played[-1]), (1, len(numbers)))

    def test_a_seek_starts_exactly_at_its_frame(self):
        # The frame's number is in its samples.
        numbers = numpy.arange(1, 60 * RATE + 1)
        frames = numpy.stack([numbers, 0 * numbers], axis=1)
        with Player(self.server, self.file(frames, 24)) as player:
            self.sounds()
            # Five seconds from what was heard, up to what the sound system still held: on a busy machine
            # that may be more, but not each time.
            for pairs in range(1, 13):
                before = self.latest()
                player.press("\x1b[C")
                wait_for(lambda: self.latest() > before + 4 * RATE, "the seek")
                before = self.latest()
                player.press("\x1b[D")
                wait_for(lambda: 0 < self.latest() < before - 3 * RATE, "the seek back")
                if pairs >= 4 and self.farthest_off(heard(self.recorder.samples())) < 0.15:
                    break
            player.press("q")
            self.assertEqual(player.wait(), 0)
        played = self.finished()
        places = self.jumps(played)
        self.assertEqual(len(places), 2 * pairs, "the seeks")
        for piece in numpy.split(played[:, 0] * 2 ** 23, places):
            self.assertEqual(disorder(piece), [], "and all else in order")
        self.assertEqual(played[0, 0] * 2 ** 23, 1)
        self.assertLess(self.farthest_off(played), 0.15)

    @staticmethod
    def jumps(played):
        """Where frames that carry their number go on at another place of the take."""
        return numpy.flatnonzero(abs(numpy.diff(played[:, 0] * 2 ** 23)) > 2 * RATE) + 1

    def farthest_off(self, played):
        """By how many seconds the seek that was nearest to five was off, of those onward or those back."""
        numbers = played[:, 0] * 2 ** 23
        steps = numpy.array([numbers[at] - numbers[at - 1] for at in self.jumps(played)]) / RATE
        return max(abs(steps[0::2] - 5).min(), abs(steps[1::2] + 5).min())

    def test_a_change_of_width_glides(self):
        frames = numpy.tile(numpy.float32([0.25, 0.125]), (60 * RATE, 1))
        with Player(self.server, "--angle", 100, self.file(frames, 32)) as player:
            self.sounds()
            for key in "]]]]]]":
                player.press(key)
            player.wait_line("width 130")
            goal = numpy.float32(0.25) + numpy.float32(0.125) * SIDE_GAINS[130]
            wait_for(lambda: (self.recorder.samples()[-100:, 0] == goal).all(), "the width")
            player.press("q")
            self.assertEqual(player.wait(), 0)
        samples = self.finished()[:, 0]
        begin = numpy.argmax(samples == samples[RATE // 10])
        steps = abs(numpy.diff(samples[begin:].astype(float)))
        largest = 0.125 * numpy.diff(SIDE_GAINS[100:131].astype(float)).max()
        self.assertGreater(steps.max(), 0)
        self.assertLessEqual(steps.max(), largest + 1e-7)

    def test_gain_keys(self):
        frames = numpy.tile(numpy.float32([0.25, 0.0]), (60 * RATE, 1))
        with Player(self.server, self.file(frames, 32)) as player:
            player.press("\x1b[A\x1b[A\x1b[A\x1b[B")
            player.wait_line("gain +2 dB")
            wait_for(lambda: abs(self.recorder.samples()[-100:, 0] - 0.25 * 10 ** 0.1).max() < 1e-6,
                     "the gain")
            player.press("q")
            self.assertEqual(player.wait(), 0)

    def test_a_pause_is_heard_soon(self):
        """What is heard after the key: at most 100 ms, and 70 ms on the recorder's own way. On a busy
        machine it may be more, but not each time."""
        soonest = RATE
        with Player(self.server, self.file(noise(60 * RATE, 24), 24)) as player:
            for _ in range(10):
                self.sounds()
                before = self.recorder.frames
                player.press(" ")
                player.wait_line("paused")
                self.recorder.wait_silence(RATE // 5)
                soonest = min(soonest, len(heard(self.recorder.samples()[before:])))
                if soonest < 0.17 * RATE:
                    break
                player.press(" ")
            player.press("q")
            player.wait()
        self.assertLess(soonest / RATE, 0.17)

    def test_the_terminal_comes_back(self):
        path = self.file(noise(30 * RATE, 24), 24)
        for way in ("q", "\x03", "\x1c", signal.SIGTERM, signal.SIGHUP, signal.SIGINT):
            with self.subTest(way=way), Player(self.server, path) as player:
                wait_for(player.is_raw, "raw mode")
                if isinstance(way, str):
                    player.press(way)
                else:
                    player.process.send_signal(way)
                status = player.wait()
                self.assertTrue(player.is_restored())
                self.assertEqual(status, {"q": 0, "\x1c": -signal.SIGQUIT, signal.SIGTERM: 143,
                                          signal.SIGHUP: 129}.get(way, 130))

    def test_forty_columns(self):
        path = self.file(noise(3 * RATE, 24), 24)
        with Player(self.server, "--gain", "-36", path, columns=40) as player:
            player.press(" ")
            player.wait_line("paused")
            player.press("\x1b")
            player.press("q")
            self.assertEqual(player.wait(), 0)
        lines = problems(player.shown).split("\x1b[K")
        self.assertGreater(len(lines), 2)
        for line in lines:
            self.assertLessEqual(len(line.strip("\r\n")), 40, line)

    def test_it_comes_back_for_a_stop_and_is_taken_again(self):
        path = self.file(noise(30 * RATE, 24), 24)
        with Player(self.server, path) as player:
            wait_for(player.is_raw, "raw mode")
            player.process.send_signal(signal.SIGTSTP)
            wait_for(player.is_restored, "the terminal as it was")
            player.process.send_signal(signal.SIGCONT)
            wait_for(player.is_raw, "raw mode again")
            player.press("q")
            self.assertEqual(player.wait(), 0)
            self.assertTrue(player.is_restored())

    def test_the_time_line(self):
        path = self.file(noise(2 * RATE, 24), 24)
        with Player(self.server, path) as player:
            self.assertEqual(player.wait(), 0)
            wait_for(lambda: "take.wav  00:00:01 / 00:00:02  width 120  gain +0 dB" in player.shown,
                     "a line on the way")
            wait_for(lambda: "00:00:02 / 00:00:02" in player.shown, "the last line")

    def peak_memory(self, path, begin):
        """Most memory until half a second of what begins there was heard, in bytes."""
        with Player(self.server, "--from", begin, path) as player:
            before = len(heard(self.recorder.samples()))
            wait_for(lambda: len(heard(self.recorder.samples())) > before + RATE // 2, "sound")
            with open(f"/proc/{player.process.pid}/status", encoding="ascii") as file:
                peak = int(file.read().split("VmHWM:")[1].split()[0]) * 1024
            player.press("q")
            self.assertEqual(player.wait(), 0)
        self.recorder.wait_silence(RATE // 5)
        return peak

    def test_a_take_of_almost_four_gigabytes_needs_no_more_memory(self):
        last = 20 * RATE  # frames with sound; zeros before them take no room on the disk
        short = self.file(noise(last, 24), 24)
        content = short.read_bytes()
        size = 0xFA00_0000 // 6 * 6
        head = bytearray(content[:-6 * last])
        head[4:8] = struct.pack("<I", len(head) - 8 + size)
        head[-4:] = struct.pack("<I", size)
        long = self.folder / "long.wav"
        with open(long, "wb") as file:
            file.write(head)
            file.seek(len(head) + size - 6 * last)
            file.write(content[-6 * last:])
        needed = self.peak_memory(short, 2)
        peak = self.peak_memory(long, (size // 6 - last) / RATE + 2)
        print(f"playing: {peak >> 20} MiB, for a take of 20 seconds {needed >> 20} MiB")
        self.assertLess(peak - needed, 16 << 20)

    def test_mixers_see_who_plays(self):
        with Player(self.server, self.file(noise(30 * RATE, 24), 24)) as player:
            wait_for(lambda: "TARN J4 Mixdeck" in self.server.pactl("list", "sink-inputs"),
                     "the stream")
            listed = self.server.pactl("list", "sink-inputs")
            for text in ('application.name = "TARN J4 Mixdeck"',
                         'application.icon_name = "mixdeck"', 'media.role = "music"'):
                self.assertIn(text, listed)
            volume = self.server.pactl("get-sink-volume", "null48")
            self.assertIn("100%", volume)
            player.press("q")
            player.wait()


if __name__ == "__main__":
    unittest.main()
