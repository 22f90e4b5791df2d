# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""Killed at any moment, a run leaves the old file whole or the new file whole. Only where a temporary
file has a name, if but for a moment as in a replacement, may it stay, until the next run.

The kills are spread evenly over the time that a whole run takes. Standard output is a pipe that
whatever the run started would hold open, so its end means that nothing is at work any more.
"""

import os
import signal
import statistics
import subprocess
import time
import unittest

from mixdeck import CLI, Case, FIRST_SAMPLE, as_nobody, samples_of, without_unnamed_files

KILLS = int(os.environ.get("MIXDECK_KILLS", "80"))  # of each of five kinds
BATCH_KILLS = int(os.environ.get("MIXDECK_BATCH_KILLS", "10"))  # of each of two kinds
STEPS = 40  # moments over the time of a run
OLD = b"the old file" * 1000


class KillTest(Case):
    may_leave_one = True

    def setUp(self):
        super().setUp()
        self.expect(0, "demo", "--output-dir", ".")
        os.remove(self.path("R0002.WAV"))
        os.remove(self.path("R0003.WAV"))
        os.mkdir(self.path("out"), 0o777)
        os.chmod(self.path("out"), 0o777)
        self.target = self.path("out", "x.WAV")
        self.arguments = ["export", "--force", "--output", self.target, self.path("R0001.WAV")]
        self.run_and_kill(None)
        self.samples = self.content()[FIRST_SAMPLE:]
        self.assertEqual(len(self.samples), 20 * 288000)

    def content(self):
        try:
            with open(self.target, "rb") as file:
                return file.read()
        except FileNotFoundError:
            return None

    def run_and_kill(self, delay, **options):
        """Returns the exit status."""
        with subprocess.Popen([CLI, *self.arguments], stdout=subprocess.PIPE,
                              stderr=subprocess.PIPE, **options) as process:
            if delay is not None:
                time.sleep(delay)
                process.kill()
            process.communicate(timeout=60)
            return process.returncode

    def whole_run(self, prepare, **options):
        """How long a run takes, in seconds."""
        times = []
        for _ in range(5):
            prepare()
            start = time.perf_counter()
            self.assertEqual(self.run_and_kill(None, **options), 0)
            times.append(time.perf_counter() - start)
        return statistics.median(times)

    def make_old(self):
        with open(self.target, "wb") as file:
            file.write(OLD)

    def remove(self):
        if os.path.exists(self.target):
            os.remove(self.target)

    def is_new(self, content):
        return content is not None and content[FIRST_SAMPLE:] == self.samples

    def kill_all_over(self, prepare, before, **options):
        """Kills KILLS runs; what is left is `before` or the new file."""
        span = self.whole_run(prepare, **options)
        killed = 0
        untouched = 0
        for attempt in range(4 * KILLS):
            if killed == KILLS:
                break
            prepare()
            delay = span * (attempt % STEPS) / STEPS
            status = self.run_and_kill(delay, **options)
            self.assertIn(status, (0, -signal.SIGKILL))
            killed += status != 0
            span *= 0.99 if status == 0 else 1.002  # keeps to the speed of a machine that is shared
            content = self.content()
            if not self.is_new(content):
                self.assertEqual(content, before, f"after {delay} s")
                self.assertNotEqual(status, 0)
                untouched += 1
            self.check_folder()
        self.assertEqual(killed, KILLS)
        self.assertGreater(untouched, 0)

    def check_folder(self):
        rest = set(os.listdir(self.path("out"))) - {"x.WAV"}
        self.assertLessEqual(len(rest), 1 if self.may_leave_one else 0)
        for name in rest:
            self.assertRegex(name, r"^\.mixdeck-[0-9a-f]{16}\.part$")

    def check_next_run(self, **options):
        self.assertEqual(self.run_and_kill(None, **options), 0)
        self.assertTrue(self.is_new(self.content()))
        self.assertEqual(os.listdir(self.path("out")), ["x.WAV"])

    def test_a_new_target(self):
        self.may_leave_one = False
        self.kill_all_over(self.remove, None)

    def test_an_existing_target(self):
        self.kill_all_over(self.make_old, OLD)
        self.check_next_run()

    def test_an_existing_target_without_privileges(self):
        self.kill_all_over(lambda: (self.make_old(), os.chmod(self.target, 0o666)), OLD,
                           preexec_fn=as_nobody)
        self.check_next_run()

    def test_a_new_target_without_unnamed_files(self):
        self.kill_all_over(self.remove, None, preexec_fn=without_unnamed_files)
        self.check_next_run(preexec_fn=without_unnamed_files)

    def test_an_existing_target_without_unnamed_files(self):
        self.kill_all_over(self.make_old, OLD, preexec_fn=without_unnamed_files)
        self.check_next_run(preexec_fn=without_unnamed_files)


class BatchKillTest(Case):
    """Six takes exported two at a time, killed at any moment; what is missing is exported then."""

    def setUp(self):
        super().setUp()
        self.expect(0, "demo", "--output-dir", ".")
        for name in ("R0002.WAV", "R0003.WAV"):
            os.remove(self.path(name))
        self.names_of_takes = [f"T{number}.WAV" for number in range(6)]
        for name in self.names_of_takes:
            os.link(self.path("R0001.WAV"), self.path(name))
        os.mkdir(self.path("out"))
        self.export("R0001.WAV")
        self.wanted = samples_of(self.path("out", "R0001_Decode.WAV"))
        self.assertEqual(len(self.wanted), 20 * 288000)

    def words(self, *names):
        return ["export", "--jobs", "2", "--output-dir", "out", *names]

    def export(self, *names, **options):
        self.expect(0, *self.words(*names), err="", **options)

    def empty(self):
        for name in os.listdir(self.path("out")):
            os.remove(self.path("out", name))

    def whole(self, parts):
        """The takes whose export is there, whole; beside them so many hidden parts at most."""
        found = set(os.listdir(self.path("out")))
        hidden = {name for name in found if name.startswith(".")}
        self.assertLessEqual(len(hidden), parts)
        for name in hidden:
            self.assertRegex(name, r"^\.mixdeck-[0-9a-f]{16}\.part$")
        for name in found - hidden:
            self.assertEqual(samples_of(self.path("out", name)), self.wanted, name)
        return {name.replace("_Decode", "") for name in found - hidden}

    def kill_all_over(self, parts, **options):
        self.empty()
        began = time.perf_counter()
        self.export(*self.names_of_takes, **options)
        span = time.perf_counter() - began
        killed, some = 0, 0
        for attempt in range(4 * BATCH_KILLS):
            if killed == BATCH_KILLS:
                break
            self.empty()
            with subprocess.Popen([CLI, *self.words(*self.names_of_takes)], cwd=self.folder,
                                  stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                                  **options) as process:
                time.sleep(span * (attempt % BATCH_KILLS) / BATCH_KILLS)
                process.kill()
                process.communicate(timeout=60)
            self.assertIn(process.returncode, (0, -signal.SIGKILL))
            there = self.whole(parts)
            if len(there) == len(self.names_of_takes):  # it was quicker
                span *= 0.9
                continue
            killed += 1
            some += len(there) > 0
            missing = [name for name in self.names_of_takes if name not in there]
            self.export(*missing, **options)
            self.assertEqual(self.whole(0), set(self.names_of_takes))
        self.assertEqual(killed, BATCH_KILLS)
        print(f"{killed} kills in the middle of a batch: {some} times some of it was there")

    def test_new_targets(self):
        self.kill_all_over(0)

    def test_new_targets_without_unnamed_files(self):
        self.kill_all_over(2, preexec_fn=without_unnamed_files)


if __name__ == "__main__":
    unittest.main()
