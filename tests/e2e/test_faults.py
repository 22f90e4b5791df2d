# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""Full disks, sources that change, interrupts."""

import os
import resource
import signal
import struct
import subprocess
import time
import unittest

from mixdeck import CLI, Case, as_nobody, pack24, recording, with_mounts, without_threads

MIB = 1 << 20
FOLDER = "name another folder with --output-dir"


def limit(size):
    return lambda: resource.setrlimit(resource.RLIMIT_FSIZE, (size, size))


class SmallDiskTest(Case):
    """On a disk of 1 MiB; where none can be mounted, under a limit on file sizes."""

    def setUp(self):
        super().setUp()
        os.mkdir(self.path("out"))
        self.mount = with_mounts()
        self.reason = (f"No space left on device; make room there, or {FOLDER}" if self.mount else
                       f"File too large; {FOLDER}")

    def run_small(self, *arguments):
        """Runs the program with "out" on the small disk; returns status, errors and what "out"
        holds in the end, with sizes."""
        if not self.mount:
            result = self.run_cli(*arguments, preexec_fn=limit(MIB))
            sizes = {name: os.path.getsize(self.path("out", name))
                     for name in os.listdir(self.path("out"))}
            return result.returncode, result.stderr, sizes
        script = ('mount -t tmpfs -o size=1m none out && echo old > out/old && "$@"; status=$?; '
                  'rm out/old; find out -type f -printf "%s %f\\n" >&3; exit $status')
        read, write = os.pipe()
        with open(read, encoding="utf-8") as listing:
            result = subprocess.run(
                [*self.mount, "sh", "-c", f"exec 3>&{write}; {script}", "sh", CLI, *arguments],
                capture_output=True, text=True, cwd=self.folder, pass_fds=[write], check=False)
            os.close(write)
            lines = listing.read().split("\n")[:-1]
        return result.returncode, result.stderr, {
            line.split(" ", 1)[1]: int(line.split(" ", 1)[0]) for line in lines}

    def test_an_export_that_does_not_fit(self):
        self.file("a.wav", recording([1000, 500] * 200000))
        status, errors, left = self.run_small("export", "--output-dir", "out", "a.wav")
        self.assertEqual(status, 1)
        self.assertEqual(errors, f"mixdeck-cli: out/a_Decode.WAV: Fail to save. {self.reason}\n")
        self.assertEqual(left, {})

    def test_an_export_that_fits(self):
        self.file("a.wav", recording([1000, 500] * 100000))
        status, errors, left = self.run_small("export", "--output-dir", "out", "a.wav")
        self.assertEqual((status, errors), (0, ""))
        self.assertEqual(left, {"a_Decode.WAV": 748 + 600000})

    def test_two_exports_of_which_one_fits(self):
        for name in ("a.wav", "b.wav"):
            self.file(name, recording([1000, 500] * (100000 if self.mount else 200000)))
        status, errors, left = self.run_small("export", "--jobs", "2", "--output-dir", "out",
                                              "a.wav", "b.wav")
        self.assertEqual(status, 1)
        self.assertIn(self.reason, errors)
        # Room for one is set aside before it is written; a limit on sizes, where none can be mounted, is
        # for each by itself.
        self.assertEqual(list(left.values()), [748 + 600000] if self.mount else [])

    def test_a_batch_goes_on_after_what_does_not_fit(self):
        sizes = {"a": 100000, "b": 200000, "c": 40000, "d": 200000, "e": 20000}
        for name, frames in sizes.items():
            self.file(f"{name}.wav", recording([1000, 500] * frames))
        for jobs in ("1", "3"):
            status, errors, left = self.run_small(
                "export", "--jobs", jobs, "--output-dir", "out",
                *(f"{name}.wav" for name in sizes))
            self.assertEqual(status, 1)
            for name in ("b", "d"):  # 1.2 MB each never fit; the others do beside each other
                self.assertIn(f"mixdeck-cli: out/{name}_Decode.WAV: Fail to save. {self.reason}\n",
                              errors)
            self.assertEqual(left, {f"{name}_Decode.WAV": 748 + 6 * sizes[name] for name in "ace"})
            self.assertEqual(errors.count("Fail to save"), 2)
            for name in os.listdir(self.path("out")):  # where no disk can be mounted
                os.remove(self.path("out", name))

    def test_a_demo_that_does_not_fit(self):
        status, errors, left = self.run_small("demo", "--output-dir", "out")
        self.assertEqual(status, 1)
        self.assertEqual(errors, "".join(
            f"mixdeck-cli: out/R000{i}.WAV: Fail to save. {self.reason}\n" for i in (1, 2, 3)))
        self.assertEqual(left, {})


class SizeLimitTest(Case):
    def test_the_old_file_stays(self):
        self.file("a.wav", recording([1000, 500] * 200000))
        self.file("a_Decode.WAV", b"old")
        self.expect(1, "export", "--force", "a.wav", out="", preexec_fn=limit(MIB),
                    err=f"mixdeck-cli: a_Decode.WAV: Fail to save. File too large; {FOLDER}\n")
        self.assertEqual(self.read("a_Decode.WAV"), b"old")
        self.assertEqual(self.names(), ["a.wav", "a_Decode.WAV"])


def start_export(folder, *arguments):
    """An export that lets the test go first wherever both want to run: what is done to it when it has
    begun to write is done long before its end."""
    return subprocess.Popen([CLI, "export", *arguments], stdout=subprocess.PIPE,
                            stderr=subprocess.PIPE, text=True, cwd=folder,
                            preexec_fn=lambda: os.nice(5))


@unittest.skipUnless("RAISE_AT_LINK" in os.environ, "a sanitizer has a heap of its own")
class MemoryLimitTest(Case):
    """Room for the program, and not for all that an export is to keep of its recording."""

    def test_a_batch_goes_on_after_what_there_is_no_memory_for(self):
        self.file("b.wav", recording())
        path = self.file("a.wav", recording())
        with open(path, "r+b") as file:
            for _ in range(8):
                file.seek(0, os.SEEK_END)
                file.write(struct.pack("<4sI", b"LIST", 16 * MIB))
                file.truncate(file.tell() + 16 * MIB)
            file.seek(4)
            file.write(struct.pack("<I", os.path.getsize(path) - 8))
        room = 128 * MIB
        result = self.expect(1, "export", "--keep-metadata", "--jobs", "1", "a.wav", "b.wav",
                             err="mixdeck-cli: a_Decode.WAV: Fail to save. There is not enough memory\n",
                             preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_AS, (room, room)))
        self.assertRegex(result.stdout, r"^b\.wav -> b_Decode\.WAV: [^\n]+\n$")
        self.assertEqual(self.names(), ["a.wav", "b.wav", "b_Decode.WAV"])
        self.expect(0, "export", "--keep-metadata", "a.wav", err="")


class InterruptTest(Case):
    seconds = 3600  # of the recording: about a gigabyte, of which nothing is on the disk

    def start(self, *arguments):
        return start_export(self.folder, *arguments)

    @staticmethod
    def wait_until_writing(process):
        """Until the run holds an open file that it has written to."""
        folder = f"/proc/{process.pid}/fd"
        while process.poll() is None:
            for number in os.listdir(folder):
                try:
                    path = os.readlink(f"{folder}/{number}")
                    if ("/#" in path or ".part" in path) and os.stat(
                            f"{folder}/{number}").st_size > MIB:
                        return
                except FileNotFoundError:
                    continue
            time.sleep(0.0005)
        raise AssertionError("the run ended before it wrote")

    def interrupt(self, number, *arguments):
        self.big_recording("long.wav", self.seconds)
        with self.start(*arguments, "long.wav") as process:
            self.wait_until_writing(process)
            process.send_signal(number)
            output, errors = process.communicate(timeout=60)
        self.assertEqual(process.returncode, 1)
        self.assertEqual((output, errors), ("", "mixdeck-cli: cancelled\n"))

    def test_ctrl_c_leaves_nothing_behind(self):
        self.interrupt(signal.SIGINT)
        self.assertEqual(self.names(), ["long.wav"])

    def test_a_polite_kill_and_a_hang_up_too(self):
        self.interrupt(signal.SIGTERM)
        self.interrupt(signal.SIGHUP)
        self.assertEqual(self.names(), ["long.wav"])

    def test_ctrl_c_keeps_the_old_file(self):
        self.file("long_Decode.WAV", b"old")
        self.interrupt(signal.SIGINT, "--force")
        self.assertEqual(self.read("long_Decode.WAV"), b"old")
        self.assertEqual(self.names(), ["long.wav", "long_Decode.WAV"])

    def test_ctrl_c_ends_every_job(self):
        os.mkdir(self.path("out"))
        names = [f"long{i}.wav" for i in range(6)]
        for name in names:
            self.big_recording(name, self.seconds)
        with self.start("--jobs", "2", "--output-dir", "out", *names) as process:
            self.wait_until_writing(process)
            process.send_signal(signal.SIGINT)
            _, errors = process.communicate(timeout=60)
        self.assertEqual((process.returncode, errors), (1, "mixdeck-cli: cancelled\n"))
        self.assertEqual(os.listdir(self.path("out")), [])

    @unittest.skipUnless("RAISE_AT_LINK" in os.environ, "with a sanitizer")
    def test_a_signal_that_comes_too_late_cancels_nothing(self):
        self.file("a.wav", recording([1000, 500] * 1000))
        environment = dict(os.environ, LD_PRELOAD=os.environ["RAISE_AT_LINK"])
        result = self.run_cli("export", "a.wav", env=environment)
        self.assertEqual((result.returncode, result.stderr), (0, ""))
        self.assertEqual(self.names(), ["a.wav", "a_Decode.WAV"])
        self.file("b.wav", recording([1000, 500] * 1000))
        result = self.run_cli("export", "--force", "--jobs", "1", "a.wav", "b.wav", env=environment)
        self.assertEqual((result.returncode, result.stderr), (1, "mixdeck-cli: cancelled\n"))
        self.assertEqual(self.names(), ["a.wav", "a_Decode.WAV", "b.wav"])


class ThreadLimitTest(Case):
    """No thread can be started, as under a limit on processes."""

    def run_alone(self, *arguments):
        # A sanitizer looks for leaks on a thread of its own.
        options = os.environ.get("ASAN_OPTIONS", "") + ":detect_leaks=0"
        return self.run_cli(*arguments, preexec_fn=without_threads,
                            env=dict(os.environ, ASAN_OPTIONS=options))

    def test_exports_one_after_the_other(self):
        names = [f"{i}.wav" for i in range(4)]
        for name in names:
            self.file(name, recording([1000, 500] * 200000))
        result = self.run_alone("export", "--force", *names)
        self.assertEqual((result.returncode, result.stderr), (0, ""))
        self.assertEqual(len(self.names()), 8)
        for name in names:
            self.assertEqual(os.path.getsize(self.path(name.replace(".wav", "_Decode.WAV"))),
                             748 + 3 * 400000)

    def test_looks_for_the_peak_alone(self):
        self.file("a.wav", recording([1000, 500] * 200000))
        self.run_cli("export", "--normalize", "--output", "with.wav", "a.wav")
        result = self.run_alone("export", "--normalize", "--output", "without.wav", "a.wav")
        self.assertEqual((result.returncode, result.stderr), (0, ""))
        self.assertEqual(self.read("without.wav")[748:], self.read("with.wav")[748:])

    def test_a_measurement_fails_with_a_reason(self):
        self.file("a.wav", recording([1000, 500] * 1000))
        self.file("b.wav", recording([1000, 500] * 1000))
        result = self.run_alone("measure", "a.wav", "b.wav")
        self.assertEqual((result.returncode, result.stdout), (1, ""))
        self.assertEqual(result.stderr, "".join(
            f"mixdeck-cli: {name}: Fail to open. Resource temporarily unavailable\n"
            for name in ("a.wav", "b.wav")))


class SourceTest(Case):
    def start_on_long(self, change):
        """Exports a long recording and changes it as soon as the output is being written."""
        path = self.big_recording("long.wav", 1800)
        with start_export(self.folder, "long.wav") as process:
            InterruptTest.wait_until_writing(process)
            change(path)
            _, errors = process.communicate(timeout=120)
        return process.returncode, errors

    def test_a_source_that_shrinks(self):
        status, errors = self.start_on_long(lambda path: os.truncate(path, 1000))
        self.assertEqual(status, 1)
        self.assertRegex(errors, r"^mixdeck-cli: long_Decode.WAV: Fail to save. The source cannot "
                                 r"be read: .+\n$")
        self.assertEqual(self.names(), ["long.wav"])

    def test_a_source_that_vanishes_is_read_to_its_end(self):
        status, errors = self.start_on_long(os.remove)
        self.assertEqual((status, errors), (0, ""))
        self.assertEqual(self.names(), ["long_Decode.WAV"])
        self.assertEqual(os.path.getsize(self.path("long_Decode.WAV")), 748 + 1800 * 288000)

    def test_a_target_folder_that_vanishes(self):
        os.mkdir(self.path("out"))
        self.big_recording("long.wav", 1800)
        with start_export(self.folder, "--output-dir", "out", "long.wav") as process:
            InterruptTest.wait_until_writing(process)
            os.rmdir(self.path("out"))
            _, errors = process.communicate(timeout=120)
        self.assertEqual(process.returncode, 1)
        self.assertEqual(errors, "mixdeck-cli: out/long_Decode.WAV: Fail to save. "
                                 "No such file or directory; make its folder first\n")
        self.assertEqual(self.names(), ["long.wav"])

    def test_a_target_that_appears_meanwhile_is_not_replaced(self):
        def make_target(path):
            with open(path.replace(".wav", "_Decode.WAV"), "wb") as file:
                file.write(pack24([1, 2, 3]))
        status, errors = self.start_on_long(make_target)
        self.assertEqual(status, 1)
        self.assertEqual(errors, "mixdeck-cli: long_Decode.WAV: Fail to save. File exists\n")
        self.assertEqual(self.read("long_Decode.WAV"), pack24([1, 2, 3]))


class OutputTest(Case):
    def test_a_full_standard_output(self):
        self.file("a.wav", recording())
        with open("/dev/full", "w", encoding="utf-8") as full:
            result = subprocess.run([CLI, "info", self.path("a.wav")], stdout=full,
                                    stderr=subprocess.PIPE, text=True, check=False)
        self.assertEqual(result.returncode, 1)
        self.assertIn("No space left on device", result.stderr)

    def test_a_closed_pipe(self):
        self.file("a.wav", recording())
        read, write = os.pipe()
        os.close(read)
        result = subprocess.run([CLI, "info", self.path("a.wav")], stdout=write,
                                stderr=subprocess.PIPE, text=True, check=False)
        os.close(write)
        self.assertEqual((result.returncode, result.stderr), (0, ""))

    def test_a_pipe_that_is_closed_ends_no_work(self):
        names = [f"{i}.wav" for i in range(8)]
        for name in names:
            self.file(name, recording([1000, 500] * 1000))
        read, write = os.pipe()
        os.close(read)
        result = subprocess.run([CLI, "export", *names], stdout=write, stderr=subprocess.PIPE,
                                text=True, cwd=self.folder, check=False)
        self.assertEqual((result.returncode, result.stderr), (0, ""))
        result = subprocess.run([CLI, "measure", "--csv", *names], stdout=write,
                                stderr=subprocess.PIPE, text=True, cwd=self.folder, check=False)
        os.close(write)
        self.assertEqual((result.returncode, result.stderr), (0, ""))
        self.assertEqual(len(self.names()), 2 * len(names))

    def test_nobody_reads_the_errors(self):
        read, write = os.pipe()
        os.close(read)
        for word in ("export", "measure", "info"):
            result = subprocess.run([CLI, word, "none.wav", "other.wav"], stdout=subprocess.PIPE,
                                    stderr=write, text=True, cwd=self.folder, check=False)
            self.assertEqual(result.returncode, 1)
        os.close(write)

    def test_works_without_privileges(self):
        self.file("a.wav", recording())
        self.expect(0, "export", "a.wav", err="", preexec_fn=as_nobody)
        self.assertEqual(self.names(), ["a.wav", "a_Decode.WAV"])


if __name__ == "__main__":
    unittest.main()
