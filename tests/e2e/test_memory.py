# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""Takes of almost 4 GiB: what the tool needs of the memory for them, beside what it needs for a
take of a second. The files are sparse, so that they take no room and no time.

With MIXDECK_WHOLE_EXPORT set the long take is exported to its end; otherwise the export is
interrupted on the way.
"""

import os
import signal
import struct
import subprocess
import sys
import tempfile
import time
import unittest

from mixdeck import CLI, bext, chunk, fmt, pack24, wave

MIB = 1 << 20
MOST = 16 * MIB  # over what a take of a second needs
LONG = 0xF9FF_FFF0 // 6 * 6  # bytes of samples: 3.9 GiB
LOUD = (4194304, 1048576)  # 0.5 and 0.125
RATE = 48000


def sparse(path, head, payload, last=b""):
    """A file whose last chunk holds `payload` bytes, zeros but for the last ones."""
    with open(path, "wb") as file:
        file.write(head)
        file.truncate(len(head) + payload)
        file.seek(len(head) + payload - len(last))
        file.write(last)


def has_written(count):
    """Whether a process has written so many bytes to files, or is over already."""
    def ask(pid):
        try:
            with open(f"/proc/{pid}/io", encoding="ascii") as file:
                return int(file.read().split("wchar: ")[1].split()[0]) > count
        except OSError:
            return True
    return ask


# A program's peak counts what it was started from, so that is a process that holds little.
STARTER = """
import os, sys
pid = os.fork()
if pid == 0:
    os.execv(sys.argv[2], sys.argv[2:])
os.write(int(sys.argv[1]), b"%d\\n" % pid)
_, status, usage = os.wait4(pid, 0)
os.write(int(sys.argv[1]), b"%d %d\\n" % (os.waitstatus_to_exitcode(status), usage.ru_maxrss))
"""


def run(arguments, until=None):
    """Peak memory in bytes, status, output. Interrupted once `until` says so of the process."""
    reading, writing = os.pipe()
    starter = [sys.executable, "-I", "-S", "-c", STARTER, str(writing), CLI, *arguments]
    with tempfile.TemporaryFile() as output, open(reading, encoding="ascii") as told, \
            subprocess.Popen(starter, stdout=output, stderr=output, pass_fds=[writing]):
        os.close(writing)
        pid = int(told.readline())
        while until is not None and not until(pid):
            time.sleep(0.001)
        if until is not None:
            os.kill(pid, signal.SIGINT)
        status, peak = told.readline().split()
        output.seek(0)
        return int(peak) * 1024, int(status), output.read().decode()


class Memory(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory(prefix="mixdeck-memory-")
        head = wave(bext(), fmt(), chunk("data", b"", LONG), riff_size=0xFFFF_FFF0)
        cls.long = cls.path("long.WAV")
        sparse(cls.long, head, LONG, pack24(LOUD * RATE))
        cls.short = cls.path("short.WAV")
        with open(cls.short, "wb") as file:
            file.write(wave(bext(), fmt(), chunk("data", pack24(LOUD * RATE))))

    @classmethod
    def tearDownClass(cls):
        cls.folder.cleanup()

    @classmethod
    def path(cls, name):
        return os.path.join(cls.folder.name, name)

    def compare(self, what, short, long):
        print(f"{what}: {long / MIB:.1f} MiB, for a take of a second {short / MIB:.1f} MiB")
        self.assertLess(long - short, MOST, what)

    def both(self, *arguments):
        """Runs with the short and with the long take, and compares; the output for the long one."""
        short, status, text = run([*arguments, self.short])
        self.assertEqual(status, 0, text)
        long, status, text = run([*arguments, self.long])
        self.assertEqual(status, 0, text)
        self.compare(arguments[0], short, long)
        return text

    def test_info(self):
        self.assertIn(f"{LONG} bytes", self.both("info"))

    def test_levels_near_the_end(self):
        seconds = LONG // 6 / RATE
        stretch = ("--from", str(seconds - 0.6), "--to", str(seconds - 0.5), "--angle", "120")
        short, status, text = run(["levels", "--from", "0", "--to", "1", "--angle", "120",
                                   self.short])
        self.assertEqual(status, 0, text)
        long, status, text = run(["levels", *stretch, self.long])
        self.assertEqual((status, text), (0, "left -4.08 dBFS, right -8.52 dBFS\n"))
        self.compare("levels of a tenth of a second", short, long)

    def test_levels_of_five_minutes(self):
        short, _, _ = run(["levels", "--from", "0", "--to", "1", self.short])
        long, status, text = run(["levels", "--from", "60", "--to", "360", self.long])
        self.assertEqual((status, text), (0, "left -inf dBFS, right -inf dBFS\n"))
        self.compare("levels of five minutes", short, long)

    def test_export(self):
        target = self.path("out.WAV")
        short, status, text = run(["export", "--format", "24", "--output", target, self.short])
        self.assertEqual(status, 0, text)
        os.remove(target)
        command = ["export", "--format", "24", "--output", target, self.long]
        whole = "MIXDECK_WHOLE_EXPORT" in os.environ
        long, status, text = run(command, until=None if whole else has_written(256 * MIB))
        self.assertEqual(status == 0, whole, text)
        self.assertEqual(os.path.exists(target), whole)
        self.compare("export" if whole else "export, interrupted after 256 MiB", short, long)

    def test_more_than_two_channels(self):
        for channels in (6, 400):
            path = self.path(f"{channels}.WAV")
            frame = 3 * channels
            # Many times what may be needed; what is exported of it does take time.
            payload = 0x2000_0000 // frame * frame
            head = wave(bext(), fmt(channels=channels), chunk("data", b"", payload),
                        riff_size=0xFFFF_FFF0)
            sparse(path, head, payload)
            target = self.path("channels.WAV")
            for word, *words in (("export", "--quiet", "--force", "--output", target),
                                 ("levels", "--from", "6", "--to", "7")):
                short, _, _ = run(["info", self.short])
                long, status, text = run([word, *words, path])
                self.assertEqual(status, 0, text)
                self.compare(f"{word} of {channels} channels", short, long)

    def test_zeros_behind_a_header(self):
        path = self.path("zeros.WAV")
        head = wave(bext(), fmt(), chunk("data", b""), riff_size=0xFFFF_FFF0)
        sparse(path, head, 0xFFFF_0000)
        short, _, _ = run(["info", self.short])
        long, status, text = run(["info", path])
        self.assertEqual(status, 1)
        self.assertIn("Not a WAVE file: more chunks than a recording has", text)
        self.compare("info of zeros", short, long)
        _, status, text = run(["play", path])
        self.assertEqual(status, 1)
        self.assertIn("File not supported.", text)

    def test_extension_of_three_gigabytes(self):
        path = self.path("history.WAV")
        head = wave(fmt(), chunk("data", pack24(LOUD)))
        payload = bext()[8:]
        head += chunk("bext", payload, 0xC000_0000)
        head = head[:4] + struct.pack("<I", 0xFFFF_FFF0) + head[8:]
        sparse(path, head, 0xC000_0000 - len(payload))
        short, _, _ = run(["info", self.short])
        long, status, text = run(["info", path])
        self.assertEqual(status, 0)
        self.assertIn("of the recorder: yes   raw M/S: yes", text)
        self.compare("info of a long history", short, long)


if __name__ == "__main__":
    unittest.main()
