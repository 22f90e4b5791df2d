# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""Sound servers that are not there, go away, hang, or change."""

import contextlib
import os
import signal
import subprocess
import time
import unittest

import numpy
from playing import (CLI, CYCLE, KIND, PATIENCE, RATE, Case, Player, SoundServer, disorder, expected,
                     heard, noise, problems, wait_for)


def has_socket(process):
    """The process has begun to talk to somebody."""
    def target(file):
        try:
            return os.readlink(file)
        except OSError:
            return ""
    return any(target(file.path).startswith("socket:")
               for file in os.scandir(f"/proc/{process}/fd"))


class NoServerTest(Case):
    def test_no_server_is_told_instead_of_waited_for(self):
        # The recording lasts far longer than the patience: it cannot have ended by itself.
        path = self.file(noise(60 * RATE, 24), 24)
        environment = dict(self.server.environment, PULSE_SERVER=f"unix:{self.folder}/nobody")
        done = subprocess.run([CLI, "play", path], env=environment, stdin=subprocess.DEVNULL,
                              capture_output=True, text=True, timeout=PATIENCE)
        self.assertEqual(done.returncode, 1)
        self.assertEqual(done.stderr,
                         "mixdeck-cli: No sound server was found (Connection refused). It plays over "
                         "PipeWire or PulseAudio; export writes what would be heard.\n")

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
                      ["--from", "2", "--to", "1"], ["--gain", "2.5"]):
            self.assertEqual(self.run_play(*wrong, path).returncode, 2, wrong)
        beyond = self.run_play("--from", "0:05", path)
        self.assertEqual(beyond.returncode, 1)
        self.assertIn("--from 00:00:05.000 lies beyond its end at ", beyond.stderr)


class GoingFileTest(Case):
    def play_and(self, change, **environment):
        """Six seconds, changed as soon as the time line shows that it plays. A machine so busy that
        the output was lost on the way gets another try; one that is lost on purpose does not."""
        for _ in range(20):
            path = self.file(noise(6 * RATE, 24), 24)
            with Player(self.server, path, **environment) as player:
                change(path)
                with contextlib.suppress(TimeoutError):
                    wait_for(lambda: player.has_ended() or player.is_lost(), "the end")
                if not player.is_lost() or "lost on purpose" in player.shown:
                    return player.wait(), player.shown
        return None, player.shown

    def test_a_take_deleted_while_it_plays_is_played_to_its_end(self):
        status, shown = self.play_and(os.unlink)
        self.assertEqual(status, 1)
        self.assertIn("Played to its end. The file has been deleted", shown)

    def cut(self, path):
        os.truncate(path, RATE * 6 * 4)

    def test_a_take_cut_short_while_it_plays_cannot_be_read_on(self):
        status, shown = self.play_and(self.cut)
        self.assertEqual(status, 1)
        self.assertIn("Cannot read on. The file became shorter", shown)

    def test_a_cut_take_whose_output_is_lost_waits_for_no_key(self):
        status, shown = self.play_and(self.cut, LD_PRELOAD=os.environ["LOSE_AT_DRAIN"])
        self.assertEqual(status, 1)
        self.assertIn("mixdeck-cli: The sound server has gone", shown)
        self.assertIn("Cannot read on. The file became shorter", shown)


class GoingServerTest(Case):
    """A server of its own for each test."""

    def setUp(self):
        super().setUp()
        self.server = SoundServer(KIND).__enter__()
        self.addCleanup(self.server.__exit__)

    def wait_sound(self, recorder):
        wait_for(lambda: recorder.samples()[-RATE // 10:].any(), "sound")

    def test_killed_and_back(self):
        count = 5 * RATE
        numbers = numpy.arange(1, count + 1)
        frames = numpy.stack([numbers, 0 * numbers], axis=1)
        with Player(self.server, self.file(frames, 24)) as player:
            recorder = self.server.record()
            self.wait_sound(recorder)
            self.server.stop(signal.SIGKILL)
            wait_for(lambda: "The sound server has gone" in player.shown, "the message")
            player.wait_line("paused")
            player.press(" ")
            wait_for(lambda: "No sound server was found" in player.shown, "the next message")
            before = heard(recorder.stop().samples())[:, 0] * 2 ** 23
            paused_at = player.seconds()
            self.server.start()
            recorder = self.server.record()
            player.press(" ")
            self.assertEqual(player.wait(), 0)
            recorder.wait_silence()
        after = heard(recorder.stop().samples())[:, 0] * 2 ** 23
        self.assertEqual(disorder(after), [], "in one piece")
        self.assertEqual(after[-1], count, "to the end")
        # From where the time line stood.
        self.assertGreater(len(before), 0)
        self.assertEqual((after[0] - 1) // RATE, paused_at)

    def test_killed_without_a_terminal(self):
        process = subprocess.Popen([CLI, "play", self.file(noise(30 * RATE, 24), 24)],
                                   env=self.server.environment, stdin=subprocess.DEVNULL,
                                   stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)
        with self.server.record() as recorder:
            self.wait_sound(recorder)
            self.server.stop(signal.SIGKILL)
        _, told = process.communicate(timeout=PATIENCE)
        self.assertEqual(process.returncode, 1)
        self.assertIn("The sound server has gone", told)

    def test_a_server_that_hangs_hangs_nobody_else(self):
        with Player(self.server, self.file(noise(30 * RATE, 24), 24)) as player:
            with self.server.record() as recorder:
                self.wait_sound(recorder)
            self.server.send(signal.SIGSTOP)
            wait_for(lambda: "The sound server did not answer." in player.shown, "the message")
            player.wait_line("paused")
            player.press(" ")
            wait_for(lambda: player.shown.count("did not answer") == 2, "the next message")
            player.press("q")
            # The server hangs for good: who waits for it never ends.
            self.assertEqual(player.wait(), 0)
        self.server.send(signal.SIGCONT)

    def test_keys_work_while_a_server_hangs(self):
        with Player(self.server, self.file(noise(30 * RATE, 24), 24)) as player:
            with self.server.record() as recorder:
                self.wait_sound(recorder)
            self.server.send(signal.SIGSTOP)
            player.press("]")
            player.wait_line("width 125")
            before = player.seconds()
            player.press("\x1b[C")
            wait_for(lambda: player.seconds() >= before + 5, "the seek")
            player.press("q")
            self.assertEqual(player.wait(), 0)
        self.server.send(signal.SIGCONT)

    def seconds_of_half_a_second(self, library, **words):
        """That playing it takes with a library before the client's."""
        path = self.file(noise(RATE // 2, 24), 24)
        environment = dict(self.server.environment, LD_PRELOAD=os.environ[library], **words)
        start = time.monotonic()
        done = subprocess.run([CLI, "play", path], env=environment, stdin=subprocess.DEVNULL,
                              capture_output=True, text=True, timeout=PATIENCE)
        self.assertEqual((done.returncode, problems(done.stderr)), (0, ""))
        return time.monotonic() - start

    def test_a_forgotten_drain_is_no_hang(self):
        took = self.seconds_of_half_a_second("FORGET_DRAIN")
        # Half a second of sound, and a second and a half in which the drain may yet be answered.
        self.assertGreater(took, 1.9, "it did forget")

    def test_a_drain_that_nobody_hears_of_is_no_loss(self):
        took = self.seconds_of_half_a_second("DEAF_DRAIN")
        self.assertGreater(took, 1.9, "it was waited for")

    def test_a_refused_drain_is_no_hang(self):
        took = self.seconds_of_half_a_second("REFUSE_DRAIN")
        self.assertGreater(took, 1.9, "it was waited for")

    def test_a_sink_that_is_suspended_at_the_end_is_no_hang(self):
        self.seconds_of_half_a_second("SUSPEND_AT_DRAIN")

    def test_a_device_beyond_all_reason_is_no_hang(self):
        took = self.seconds_of_half_a_second("FAR_SINK", FAR_SINK_SECONDS="3600")
        self.assertGreater(took, 10, "it was waited for")

    def test_a_device_that_is_far_away_is_waited_for(self):
        took = self.seconds_of_half_a_second("FAR_SINK")
        self.assertGreater(took, 3, "what the device holds has been heard")

    def test_a_pause_stands_where_it_was_heard(self):
        """Three seconds lie between what the server has taken and what is heard. On a busy machine a
        key may be late, but not each time."""
        leaps, stood = [], 1
        with Player(self.server, self.file(noise(60 * RATE, 24), 24),
                    LD_PRELOAD=os.environ["FAR_SINK"]) as player:
            for width in range(125, 151, 5):
                wait_for(lambda: player.seconds() > stood, "what is heard next")
                before = player.seconds()
                player.press(" ")
                player.wait_line("paused")
                player.press("]")
                player.wait_line(f"width {width}")
                stood = player.seconds()
                leaps.append(stood - before)
                if leaps[-1] <= 1:
                    break
                player.press(" ")
            player.press("q")
            self.assertEqual(player.wait(), 0)
        self.assertGreaterEqual(min(leaps), 0)
        self.assertLessEqual(min(leaps), 1)

    def test_a_pause_of_the_whole_program_is_no_loss(self):
        with Player(self.server, self.file(noise(60 * RATE, 24), 24)) as player:
            with self.server.record() as recorder:
                self.wait_sound(recorder)
            player.process.send_signal(signal.SIGSTOP)
            time.sleep(3)  # the pause itself
            before = player.seconds()
            player.process.send_signal(signal.SIGCONT)
            wait_for(lambda: player.seconds() > before + 2, "more of it")
            self.assertNotIn("mixdeck-cli:", player.shown)
            player.press("q")
            self.assertEqual(player.wait(), 0)

    def test_a_slow_start_is_no_loss(self):
        path = self.file(noise(RATE // 2, 24), 24)
        for _ in range(20):
            recorder = self.server.record()
            start = time.monotonic()
            self.server.send(signal.SIGSTOP)
            player = subprocess.Popen([CLI, "play", path], env=self.server.environment,
                                      stdin=subprocess.DEVNULL, stderr=subprocess.PIPE, text=True)
            wait_for(lambda: has_socket(player.pid), "the connection")
            time.sleep(2)  # the slowness itself, as of a server that its socket starts
            self.server.send(signal.SIGCONT)
            held = time.monotonic() - start
            told = problems(player.communicate(timeout=PATIENCE)[1])
            # On a busy machine the server may have been slow for longer than it is waited for.
            if held < 10 or not told:
                break
        self.assertEqual((player.returncode, told), (0, ""))
        recorder.wait_silence()
        missing = RATE // 2 - len(heard(recorder.stop().samples()))
        self.assertGreaterEqual(missing, 0)
        self.assertEqual(missing % CYCLE, 0, missing)
        self.assertLess(missing, RATE // 8)

    def test_the_sink_is_removed(self):
        with Player(self.server, self.file(noise(30 * RATE, 24), 24)) as player:
            with self.server.record() as recorder:
                self.wait_sound(recorder)
            self.server.pactl("unload-module", "module-null-sink")
            if KIND == "pulse":
                wait_for(lambda: "mixdeck-cli: The sound output" in player.shown, "the message")
                player.wait_line("paused")
            else:  # PipeWire puts another sink in its place by itself
                player.wait_line("00:00:03")
                self.assertNotIn("mixdeck-cli:", player.shown)
            player.press("q")
            self.assertEqual(player.wait(), 0)

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
        numbers = {frame.tobytes(): number
                   for number, frame in enumerate(begin.astype(numpy.float32))}

        def numbers_of(frames):
            return [numbers[frame.tobytes()] for frame in frames.astype(numpy.float32)]

        self.assertEqual(disorder(numbers_of(before)), [], "at the first sink")
        last = numbers_of(heard(other.stop().samples())[-100:])
        self.assertEqual(disorder([*last, len(begin)]), [], f"to the end, {len(begin)}: {last}")


if __name__ == "__main__":
    unittest.main()
