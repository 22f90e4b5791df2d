# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""Power cuts during exports that replace a file.

A guest exports onto disks that log what they are told. A cut is a moment of the log, and of what the
disk was told since the last flush it holds all, nothing, some or parts. Then the file system is
repaired as a system would, and the target is looked at.

Environment: MIXDECK_SYSTEMS (ext4; of ext4, vfat, exfat), MIXDECK_CUTS (10, of each),
MIXDECK_POWER_KILLS (0, guests that are killed), MIXDECK_SEED (1).
"""

import os
import random
import re
import signal
import subprocess
import sys
import time
import unittest
from collections import Counter
from pathlib import Path

HERE = Path(__file__).resolve().parent
sys.path[:0] = [str(HERE.parent), str(HERE.parents[1] / "support")]
from exported import DATE, LEFT, undated  # noqa: E402
from file_systems import SYSTEMS  # noqa: E402
from mixdeck import Case, recording  # noqa: E402
from write_log import Disk, cuts, read_log  # noqa: E402

GUEST_RUN = HERE.parents[1] / "support/guest/guest-run"
WANTED = [SYSTEMS[name] for name in os.environ.get("MIXDECK_SYSTEMS", "ext4").split()]
CUTS = int(os.environ.get("MIXDECK_CUTS", "10"))
KILLS = int(os.environ.get("MIXDECK_POWER_KILLS", "0"))
SEED = int(os.environ.get("MIXDECK_SEED", "1"))
EXPORTS = 3
ENDLESS = 1000  # exports of a guest that is killed
CUTS_OF_A_KILL = 5
LOST = re.compile(r"FSCK\d{4}\.REC|FSCK\d+", re.IGNORECASE)  # what a repair makes of loose clusters


class Log:
    """A disk's log, and where in it is what the guest did."""

    def __init__(self, system, before, path):
        self.system = system
        self.before = before
        self.requests = read_log(path)
        self.marks = {}
        for i, request in enumerate(self.requests):
            if request.data.startswith(b"mark ") and request.position >= system.size:
                self.marks[request.data.split(b"\0")[0].decode()[5:]] = i + 1

    def cuts(self, first, last, count):
        disk = Disk(self.before, self.system.sector)
        return cuts(disk, self.requests, first, last, count, SEED)

    def allowed(self, place):
        """Of which exports the target may be, after so many requests."""
        begun = [0] + [int(text[6:]) for text, at in self.marks.items()
                       if text.startswith("begin") and "wrong" not in text and at <= place]
        ended = [int(text[4:]) for text, at in self.marks.items()
                 if text.startswith("end") and "wrong" not in text and at <= place]
        return set(range(max(ended), max(begun) + 1))


class PowerCase(Case):
    """With takes, the exports of them that the guest will make, and disks."""

    def setUp(self):
        super().setUp()
        chance = random.Random(SEED)
        for i, frames in enumerate((24000, 72000)):
            samples = [chance.randint(-8000000, 8000000) for _ in range(2 * frames)]
            self.file(f"{i}.WAV", recording(samples))
        self.export(150, "old.WAV", "1.WAV")
        self.assertRegex(self.read("old.WAV")[DATE], rb"\A\d{4}-\d\d-\d\d\d\d:\d\d:\d\d\Z")
        self.known = {0: undated(self.read("old.WAV"))}
        self.before = {}
        for system in WANTED:
            system.make(self.image(system))
            self.before[system] = Path(self.image(system)).read_bytes()

    def version(self, number):
        if number not in self.known:
            self.export(number, "new.WAV", f"{number % 2}.WAV")
            self.known[number] = undated(self.read("new.WAV"))
        return self.known[number]

    def export(self, angle, name, take):
        self.expect(0, "export", "--force", "--angle", angle, "--output", name, take)

    def image(self, system):
        return self.path(f"{system.name}.img")

    def log(self, system):
        return self.path(f"{system.name}.log")

    def guest(self, exports):
        """A guest at its exports."""
        disks = [word for system in WANTED
                 for word in ("--disk", self.image(system), self.log(system))]
        command = [str(GUEST_RUN), "--timeout", "500", "--env", "MIXDECK_BIN", *disks, "--",
                   "/usr/bin/python3", "-B", str(HERE / "guest/exports.py"), self.folder,
                   str(exports), *(system.name for system in WANTED)]
        process = subprocess.Popen(command, stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                                   text=True)
        self.addCleanup(process.communicate)
        self.addCleanup(process.terminate)
        return process

    def logs(self):
        return [Log(system, self.before[system], self.log(system)) for system in WANTED]

    def find(self, log, image):
        """What is under the target's name: the number of an export, "damaged" or "gone"."""
        files = log.system.files(image, self.path("cut.img"))
        targets = [undated(content) for name, content in files if name == "x.WAV"]
        rest = [name for name, _ in files if name != "x.WAV"]
        for name in rest:
            self.assertTrue(LEFT.fullmatch(name) or LOST.fullmatch(name), rest)
        if not targets:
            return "gone"
        self.assertEqual(len(targets), 1)
        known = [number for number, content in self.known.items() if content == targets[0]]
        return known[0] if known else "damaged"


class CutTest(PowerCase):
    def test_a_cut_at_any_moment(self):
        done = self.guest(EXPORTS)
        out, errors = done.communicate()
        self.assertEqual(done.returncode, 0, out + errors)
        for number in range(1, EXPORTS + 1):
            self.version(number)
        for log in self.logs():
            with self.subTest(log.system.name):
                self.look(log)
                self.look_at_what_is_wrong(log)

    def look(self, log):
        """After each cut the target is the last that was done, or the next."""
        seen = Counter()
        first, last = log.marks["end 0"], log.marks["begin wrong"]
        for place, image in log.cuts( first, last, CUTS):
            allowed = log.allowed(place)
            found = self.find(log, image)
            self.assertIn(found, allowed, f"after request {place} of {last}")
            seen["only one" if len(allowed) == 1 else found == min(allowed)] += 1
        self.assertEqual(seen.total(), CUTS)
        print(f"{log.system.name}: {CUTS} cuts during exports: the old file {seen[True]} times, "
              f"the new one {seen[False]} times; between exports {seen['only one']}")

    def look_at_what_is_wrong(self, log):
        """A file that is written over in place is found damaged by the same cuts."""
        first, last = log.marks["begin wrong"], len(log.requests) - 1
        found = [self.find(log, image)
                 for _, image in log.cuts( first, last, CUTS)]
        self.assertIn("damaged", found)


@unittest.skipIf(KILLS == 0, "only at length")
class KilledGuestTest(PowerCase):
    def test_a_guest_that_is_killed(self):
        chance = random.Random(SEED)
        for number in range(KILLS):
            with self.subTest(kill=number):
                self.kill_one(chance)

    def kill_one(self, chance):
        for system in WANTED:
            Path(self.image(system)).write_bytes(self.before[system])
        process = self.guest(ENDLESS)
        while process.stdout.readline() != "ready\n":
            self.assertIsNone(process.poll())
        begun = time.monotonic()
        process.stdout.readline()  # the first of the exports
        time.sleep(chance.random() * 2 * (time.monotonic() - begun))
        with open(self.log(WANTED[0]) + ".pid", encoding="ascii") as file:
            os.kill(int(file.read()), signal.SIGKILL)
        process.communicate()
        for log in self.logs():
            self.look_at_the_end(log)

    def look_at_the_end(self, log):
        end = len(log.requests)
        allowed = log.allowed(end)
        for number in allowed:
            self.version(number)
        for _, image in log.cuts( end, end, CUTS_OF_A_KILL):
            self.assertIn(self.find(log, image), allowed)
        print(f"{log.system.name}: killed in export {max(allowed)}")


if __name__ == "__main__":
    unittest.main()
