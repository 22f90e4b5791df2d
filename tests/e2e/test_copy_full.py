# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""The takes of a card, and a disk at home that another program fills meanwhile."""

import errno
import glob
import os
import subprocess
import time
import unittest
import xml.etree.ElementTree as ElementTree

from mixdeck import CLI, with_mounts, without_unnamed_files
from test_copy import SPACE, CardCase

FULL = "No space left on device"
FILLED = f"mixdeck-cli: home: Fail to save. {FULL}; make room there, or choose another DEST\n"


@unittest.skipUnless(with_mounts(), "no disk can be mounted")
class FullDiskTest(CardCase):
    """The disk has room for all takes as long as nobody else writes."""

    def setUp(self):
        super().setUp()
        for number in range(4, 7):
            self.add(f"R000{number}.WAV", os.urandom(1 << 20) * 4)
        os.mkdir(self.path("home"))
        self.holder = subprocess.Popen(
            [*with_mounts(), "sh", "-c",
             "mount -t tmpfs -o size=16m none home && echo mounted && exec cat"],
            cwd=self.folder, stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)
        self.addCleanup(self.holder.communicate)
        self.assertEqual(self.holder.stdout.readline(), "mounted\n")
        self.home = f"/proc/{self.holder.pid}/root{self.path('home')}"

    def start(self, *arguments, **options):
        """The program where the disk can be seen."""
        user = [] if os.geteuid() == 0 else ["--user", "--preserve-credentials"]
        return subprocess.Popen(
            ["nsenter", "--target", str(self.holder.pid), *user, "--mount", "--root", "--wd", CLI,
             *arguments], stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True, **options)

    def expect_there(self, status, *arguments, out, err=""):
        with self.start(*arguments) as process:
            said = process.communicate(timeout=120)
        self.assertEqual((process.returncode, *said), (status, out, err))

    def fill(self, left):
        """All of the disk, but for so many bytes."""
        with open(os.path.join(self.home, "other"), "wb", buffering=0) as file:
            try:
                while True:
                    file.write(bytes(1 << 16))
            except OSError as error:
                self.assertEqual(error.errno, errno.ENOSPC)
            file.truncate(file.tell() - left)

    def copy_beside_another(self, left, has_begun=lambda: True, **options):
        """What a copy says whose disk is filled in the middle of its fourth take, which is read for 4 s."""
        environment = dict(os.environ, LD_PRELOAD=os.environ["SLOW_READS"],
                           MIXDECK_SLOW_FOLDER=self.path("card"), MIXDECK_SLOW_RATE=str(1 << 20))
        with self.start("copy", "card", "home", env=environment, **options) as process:
            while not (self.is_reading(process, "R0004.WAV") and has_begun()):
                self.assertIsNone(process.poll())
                time.sleep(0.001)
            self.fill(left)
            said, errors = process.communicate(timeout=300)
        self.assertEqual(process.returncode, 1)
        os.remove(os.path.join(self.home, "other"))
        return said, errors

    def expect_takes(self, numbers):
        """These are there as they were on the card, and nothing else is."""
        names = [f"R000{number}.WAV" for number in numbers]
        self.assertEqual(self.at_home(self.home), {name: self.takes[name] for name in names})

    def expect_manifests(self, *generations):
        """Each tells of these takes, with the hashes of what is on the card."""
        paths = sorted(glob.glob(os.path.join(self.home, "ascmhl", "*.mhl")))
        self.assertEqual(len(paths), len(generations))
        for path, numbers in zip(paths, generations):
            told = {one.find(SPACE + "path").text: one.find(SPACE + "xxh128").text
                    for one in ElementTree.parse(path).getroot().iter(SPACE + "hash")}
            said = subprocess.run(
                ["xxhsum", "-H2", *(f"R000{number}.WAV" for number in numbers)],
                cwd=self.path("card"), capture_output=True, text=True, check=True).stdout
            self.assertEqual(told, {line.split("  ", 1)[1]: line.split("  ", 1)[0]
                                    for line in said.splitlines()})

    def expect_the_rest_to_come(self, there):
        said = "".join(f"R000{number}.WAV: " +
                       ("there already\n" if number <= there else "copied and verified\n")
                       for number in range(1, 7))
        self.expect_there(0, "copy", "card", "home",
                          out=said + f"{6 - there} of 6 takes copied, {there} there already\n")
        self.expect_takes(range(1, 7))
        self.expect_there(0, "verify", "home", out="6 right\n")

    @staticmethod
    def copied(most, end):
        return "".join(f"R000{number}.WAV: copied and verified\n"
                       for number in range(1, most + 1)) + end

    def test_the_take_under_way_has_its_room_and_the_next_has_none(self):
        said, errors = self.copy_beside_another(left=1 << 18)
        self.assertEqual(errors, f"mixdeck-cli: R0005.WAV: Not copied. {FULL}\n{FILLED}")
        self.assertEqual(said, self.copied(4, "4 of 6 takes copied, 0 there already, 1 not right, "
                                              "1 not reached\n"))
        self.expect_takes(range(1, 5))
        self.expect_manifests(range(1, 5))
        self.expect_there(0, "verify", "home", out="4 right\n")
        self.expect_the_rest_to_come(4)
        self.expect_manifests(range(1, 5), range(5, 7))

    def test_of_the_take_that_no_room_is_set_aside_for_nothing_stays(self):
        def has_begun():
            return any(os.path.getsize(part) > 0
                       for part in glob.glob(os.path.join(self.home, ".mixdeck-*.part")))
        said, errors = self.copy_beside_another(left=1 << 18, has_begun=has_begun,
                                                preexec_fn=without_unnamed_files)
        self.assertEqual(errors, f"mixdeck-cli: R0004.WAV: Not copied. {FULL}\n{FILLED}")
        self.assertEqual(said, self.copied(3, "3 of 6 takes copied, 0 there already, 1 not right, "
                                              "2 not reached\n"))
        self.expect_takes(range(1, 4))
        self.expect_manifests(range(1, 4))
        self.expect_there(0, "verify", "home", out="3 right\n")
        self.expect_the_rest_to_come(3)
        self.expect_manifests(range(1, 4), range(4, 7))

    def test_where_the_manifest_has_no_room_either_both_are_told(self):
        said, errors = self.copy_beside_another(left=0)
        self.assertEqual(errors, f"mixdeck-cli: R0005.WAV: Not copied. {FULL}\n{FILLED}"
                                 "mixdeck-cli: home: Fail to save. The manifest cannot be written: "
                                 f"{FULL}; copy again once it can be: what is there stays\n")
        self.assertEqual(said, self.copied(4, "4 of 6 takes copied, 0 there already, 1 not right, "
                                              "1 not reached\n"))
        self.expect_takes(range(1, 5))
        self.expect_manifests()
        self.expect_there(1, "verify", "home", out="",
                          err="mixdeck-cli: home: Fail to open. It has no manifest (ascmhl); name a "
                              "folder that takes were copied into\n")
        self.expect_the_rest_to_come(4)
        self.expect_manifests(range(1, 7))


if __name__ == "__main__":
    unittest.main()
