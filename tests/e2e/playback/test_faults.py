# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""Sound servers that are not there, go away, hang, or change."""

import os
import signal
import subprocess
import time
import unittest

import numpy
from playing import CLI, KIND, RATE, Case, Player, SoundServer, expected, heard, noise, wait_for


class NoServerTest(Case):
    def test_no_server_is_told_within_a_second_or_two(self):
        path = self.file(noise(RATE, 24), 24)
        environment = dict(self.server.environment, PULSE_SERVER=f"unix:{self.folder}/nobody")
        start = time.monotonic()
        done = subprocess.run([CLI, "play", path], env=environment, stdin=subprocess.DEVNULL,
                              capture_output=True, text=True, timeout=20)
        self.assertLess(time.monotonic() - start, 2.5)
        self.assertEqual(done.returncode, 1)
        self.assertEqual(done.stderr,
                         "mixdeck-cli: There is no sound server (Connection refused).\n")

    def test_files_that_cannot_be_played(self):
        rubbish = self.folder / "rubbish.wav"
        rubbish.write_bytes(b"RIFF" * 30)
        done = self.run_play(rubbish)
        self.assertEqual(done.returncode, 1)
        self.assertIn("File not supported.", done.stderr)
        self.assertIn(str(rubbish), done.stderr)

    def test_usage(self):
        path = self.file(noise(10, 24), 24)
        for wrong in (["--angle", "151"], ["--gain", "40"], ["--volume", "1.1"], ["--from", "-1"],
                      ["--from", "2", "--to", "1"]):
            self.assertEqual(self.run_play(*wrong, path).returncode, 2, wrong)
        self.assertEqual(self.run_play("--from", "5", path).returncode, 0)


class GoingServerTest(Case):
    """A server of its own for each test."""

    def setUp(self):
        super().setUp()
        self.server = SoundServer(KIND).__enter__()
        self.addCleanup(self.server.__exit__)

    def wait_sound(self, recorder):
        wait_for(lambda: recorder.samples()[-RATE // 10:].any(), "sound")

    def test_killed_and_back(self):
        count = 3 * RATE
        numbers = numpy.arange(1, count + 1)
        frames = numpy.stack([numbers, 0 * numbers], axis=1)
        with Player(self.server, self.file(frames, 24)) as player:
            recorder = self.server.record()
            self.wait_sound(recorder)
            self.server.stop(signal.SIGKILL)
            wait_for(lambda: "The sound server has gone" in player.shown, "the message", 2)
            player.wait_line("paused")
            player.press(" ")
            wait_for(lambda: "There is no sound server" in player.shown, "the next message", 2)
            before = heard(recorder.stop().samples())[:, 0] * 2 ** 23
            self.server.start()
            recorder = self.server.record()
            player.press(" ")
            self.assertEqual(player.wait(), 0)
            recorder.wait_silence()
        after = heard(recorder.stop().samples())[:, 0] * 2 ** 23
        self.assertTrue((numpy.diff(after) == 1).all(), "in one piece")
        self.assertEqual(after[-1], count, "to the end")
        # From where it was heard last; what the vanished server held back may have been recorded.
        self.assertLess(abs(after[0] - before[-1]), RATE // 5)

    def test_killed_without_a_terminal(self):
        process = subprocess.Popen([CLI, "play", self.file(noise(30 * RATE, 24), 24)],
                                   env=self.server.environment, stdin=subprocess.DEVNULL,
                                   stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)
        with self.server.record() as recorder:
            self.wait_sound(recorder)
            self.server.stop(signal.SIGKILL)
        _, problems = process.communicate(timeout=3)
        self.assertEqual(process.returncode, 1)
        self.assertIn("The sound server has gone", problems)

    def test_a_server_that_hangs_hangs_nobody_else(self):
        with Player(self.server, self.file(noise(30 * RATE, 24), 24)) as player:
            with self.server.record() as recorder:
                self.wait_sound(recorder)
            self.server.send(signal.SIGSTOP)
            wait_for(lambda: "The sound server does not answer." in player.shown, "the message", 3)
            player.wait_line("paused")
            player.press(" ")
            wait_for(lambda: player.shown.count("does not answer") == 2, "the next message", 3)
            start = time.monotonic()
            player.press("q")
            player.wait(5)
            self.assertLess(time.monotonic() - start, 1.0)
        self.server.send(signal.SIGCONT)

    def test_keys_work_while_a_server_hangs(self):
        with Player(self.server, self.file(noise(30 * RATE, 24), 24)) as player:
            with self.server.record() as recorder:
                self.wait_sound(recorder)
            self.server.send(signal.SIGSTOP)
            start = time.monotonic()
            player.press("]")
            player.wait_line("width 125")
            player.press("\x1b[C")
            player.wait_line("00:00:05")
            self.assertLess(time.monotonic() - start, 1.0)
            player.press("q")
            player.wait(5)
            self.assertLess(time.monotonic() - start, 2.0)
        self.server.send(signal.SIGCONT)

    def test_a_forgotten_drain_is_no_hang(self):
        path = self.file(noise(RATE // 2, 24), 24)
        environment = dict(self.server.environment, LD_PRELOAD=os.environ["FORGET_DRAIN"])
        start = time.monotonic()
        done = subprocess.run([CLI, "play", path], env=environment, stdin=subprocess.DEVNULL,
                              capture_output=True, text=True, timeout=20)
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        self.assertGreater(time.monotonic() - start, 1.5, "it did forget")
        self.assertLess(time.monotonic() - start, 5)

    def test_a_slow_start_is_no_loss(self):
        frames = noise(RATE // 2, 24)
        self.server.send(signal.SIGSTOP)
        player = subprocess.Popen([CLI, "play", self.file(frames, 24)], env=self.server.environment,
                                  stdin=subprocess.DEVNULL, stderr=subprocess.PIPE, text=True)
        time.sleep(0.4)  # the slowness itself
        self.server.send(signal.SIGCONT)
        self.assertNotIn("The sound", player.communicate(timeout=20)[1])
        self.assertEqual(player.returncode, 0)

    def test_the_sink_is_removed(self):
        with Player(self.server, self.file(noise(30 * RATE, 24), 24)) as player:
            with self.server.record() as recorder:
                self.wait_sound(recorder)
            self.server.pactl("unload-module", "module-null-sink")
            if KIND == "pulse":
                wait_for(lambda: "mixdeck-cli: The sound output" in player.shown, "the message", 5)
                player.wait_line("paused")
            else:  # PipeWire puts another sink in its place by itself
                player.wait_line("00:00:03")
                self.assertNotIn("mixdeck-cli:", player.shown)
            player.press("q")
            self.assertEqual(player.wait(5), 0)

    def test_the_stream_is_moved_to_another_sink(self):
        frames = noise(21 * RATE, 32)
        self.server.pactl("load-module", "module-null-sink", "sink_name=other", "rate=48000",
                          "format=float32le", "channels=2",
                          *(["norewinds=1"] if KIND == "pulse" else []))
        with Player(self.server, self.file(frames, 32)) as player:
            recorder = self.server.record()
            other = self.server.record("other")
            self.wait_sound(recorder)
            before = heard(recorder.samples())
            self.server.move_stream("other")
            self.wait_sound(other)
            while (now := player.seconds()) < 15:
                player.press("\x1b[C")
                wait_for(lambda: player.seconds() >= now + 5, "the seek")
            self.assertEqual(player.wait(), 0)
            self.assertNotIn("The sound", player.shown)
            other.wait_silence()
        begin = expected(frames, 32, 120, 0)
        start = numpy.flatnonzero((begin == before[0]).all(axis=1))[0]
        self.assertTrue((before == begin[start:start + len(before)]).all())
        self.assertTrue((heard(other.stop().samples())[-100:] == begin[-100:]).all(), "the end")


if __name__ == "__main__":
    unittest.main()
