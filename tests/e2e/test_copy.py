# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""The takes of a card brought home, and verified there."""

import fcntl
import hashlib
import os
import random
import re
import shutil
import signal
import subprocess
import time
import unittest
import xml.etree.ElementTree as ElementTree

from mixdeck import CLI, Case, as_nobody, recording, without_unnamed_files

HERE = os.path.dirname(os.path.abspath(__file__))
KILLS = int(os.environ.get("MIXDECK_KILLS", "30"))  # in the middle of a copy
SPACE = "{urn:ASC:MHL:v2.0}"
CHAIN = "{urn:ASC:MHL:DIRECTORY:v2.0}"
DIGITS = "123456789ABCDEFGHJKLMNPQRSTUVWXYZabcdefghijkmnopqrstuvwxyz"


def c4(content):
    number, digits = int.from_bytes(hashlib.sha512(content).digest(), "big"), ""
    for _ in range(88):
        number, rest = divmod(number, 58)
        digits = DIGITS[rest] + digits
    return "c4" + digits


class CardCase(Case):
    def setUp(self):
        super().setUp()
        os.mkdir(self.path("card"))
        self.takes = {}
        for number in range(1, 4):
            self.add(f"R000{number}.WAV", recording([number, -number] * 1000 * number))

    def add(self, name, content):
        os.makedirs(os.path.dirname(self.path("card", name)), exist_ok=True)
        with open(self.path("card", name), "wb") as file:
            file.write(content)
        self.takes[name] = content

    def card(self):
        """Names, contents and times of all that is on the card."""
        found = {}
        for entry in os.scandir(self.path("card")):
            with open(entry.path, "rb") as file:
                found[entry.path] = (entry.stat().st_mtime_ns, file.read())
        return found

    def at_home(self, folder="home"):
        """What takes there are at home."""
        found = {}
        for where, folders, names in os.walk(self.path(folder)):
            folders[:] = [name for name in folders if name != "ascmhl"]
            for name in names:
                path = os.path.join(where, name)
                with open(path, "rb") as file:
                    found[os.path.relpath(path, self.path(folder))] = file.read()
        return found

    def is_reading(self, process, name):
        folder = f"/proc/{process.pid}/fd"
        try:
            return any(self.is_file(os.path.join(folder, number), self.path("card", name))
                       for number in os.listdir(folder))
        except PermissionError:  # while it becomes a program that sees another disk
            return False

    @staticmethod
    def is_file(opened, path):
        try:
            return os.path.samefile(opened, path)
        except FileNotFoundError:
            return False

    def generations(self):
        folder = self.path("home", "ascmhl")
        return sorted(os.path.join(folder, name) for name in os.listdir(folder)
                      if name.endswith(".mhl"))


class CopyTest(CardCase):
    def test_takes_are_brought_home(self):
        before = self.card()
        self.expect(0, "copy", "card", "home", err="",
                    out="".join(f"R000{i}.WAV: copied and verified\n" for i in (1, 2, 3)) +
                    "3 of 3 takes copied, 0 there already\n")
        self.assertEqual(self.at_home(), self.takes)
        self.assertEqual(self.card(), before)
        self.expect(0, "verify", "home", out="3 right\n", err="")

    def test_again_nothing_is_done_and_no_manifest_is_added(self):
        self.expect(0, "copy", "--quiet", "card", "home", out="", err="")
        self.expect(0, "copy", "card", "home", err="",
                    out="".join(f"R000{i}.WAV: there already\n" for i in (1, 2, 3)) +
                    "0 of 3 takes copied, 3 there already\n")
        self.assertEqual(len(self.generations()), 1)

    def test_the_manifest_is_one_that_others_read(self):
        self.add("DAY 2/<R> & é.WAV", recording())
        self.expect(0, "copy", "--quiet", "card", "home")
        (path,) = self.generations()
        self.assertRegex(os.path.basename(path), r"^0001_home_\d{4}-\d\d-\d\d_\d{6}Z\.mhl$")
        subprocess.run(["xmllint", "--noout", "--schema",
                        os.path.join(HERE, "media_hash_list.xsd"), path], check=True,
                       capture_output=True)
        hashes = {}
        for one in ElementTree.parse(path).getroot().iter(SPACE + "hash"):
            name = one.find(SPACE + "path")
            self.assertEqual(int(name.get("size")), len(self.takes[name.text]))
            self.assertEqual(one.find(SPACE + "xxh128").get("action"), "original")
            hashes[name.text] = one.find(SPACE + "xxh128").text
        said = subprocess.run(["xxhsum", "-H2", *sorted(self.takes)], cwd=self.path("card"),
                              capture_output=True, text=True, check=True).stdout
        self.assertEqual(hashes, {line.split("  ", 1)[1]: line.split("  ", 1)[0]
                                  for line in said.splitlines()})

    def test_the_chain_knows_each_generation(self):
        self.expect(0, "copy", "--quiet", "card", "home")
        self.add("R0004.WAV", recording())
        self.expect(0, "copy", "--quiet", "card", "home")
        root = ElementTree.parse(self.path("home", "ascmhl", "ascmhl_chain.xml")).getroot()
        self.assertEqual(root.tag, CHAIN + "ascmhldirectory")
        wanted = []
        for number, path in enumerate(self.generations(), 1):
            with open(path, "rb") as file:
                wanted.append((str(number), os.path.basename(path), c4(file.read())))
        self.assertEqual(len(wanted), 2)
        self.assertEqual([(one.get("sequencenr"), one.find(CHAIN + "path").text,
                           one.find(CHAIN + "c4").text) for one in root], wanted)

    def test_what_differs_is_kept_and_fails(self):
        os.mkdir(self.path("home"))
        with open(self.path("home", "R0002.WAV"), "wb") as file:
            file.write(b"mine")
        result = self.expect(1, "copy", "card", "home")
        self.assertEqual(result.stderr, "mixdeck-cli: home/R0002.WAV: Differs. The take has "
                                        f"{len(self.takes['R0002.WAV'])} bytes, the file that is "
                                        "there 4\n")
        self.assertEqual(result.stdout.splitlines()[-1],
                         "2 of 3 takes copied, 0 there already, 1 not right")
        self.assertEqual(self.at_home()["R0002.WAV"], b"mine")

    def test_a_take_that_cannot_be_read_fails_and_the_others_are_copied(self):
        os.chmod(self.path("card", "R0002.WAV"), 0)
        os.chmod(self.path("card"), 0o755)
        self.expect(1, "copy", "--quiet", "card", "home", out="", preexec_fn=as_nobody,
                    err="mixdeck-cli: R0002.WAV: Not copied. Permission denied\n")
        self.assertEqual(sorted(self.at_home()), ["R0001.WAV", "R0003.WAV"])

    def test_what_cannot_begin_says_so(self):
        os.mkdir(self.path("empty"))
        self.file("file", b"")
        for words, reason in {
                ("none", "home"): "none: Fail to open. The card cannot be read: No such file or "
                                  "directory; CARD is the folder that the card is mounted on",
                ("file", "home"): "file: Fail to open. The card is no folder; CARD is the folder "
                                  "that the card is mounted on",
                ("empty", "home"): "empty: Fail to open. The card holds no takes; takes are its "
                                   ".WAV files",
                ("card", "card/home"): "card/home: Fail to save. The card is never written to, but "
                                       "holds the folder; choose another DEST",
                ("card", "file/home"): "file/home: Fail to save. The folder cannot be made: Not a "
                                       "directory; choose another DEST"}.items():
            self.expect(1, "copy", *words, out="", err=f"mixdeck-cli: {reason}\n")
        self.expect(2, "copy", "card")
        self.expect(2, "verify")

    def test_a_folder_that_is_to_be_made_on_the_card_is_refused(self):
        before = sorted(os.walk(self.path("card")))
        for name in ("backup", os.path.join("x", "y")):
            result = subprocess.run([CLI, "copy", ".", name], cwd=self.path("card"),
                                    capture_output=True, text=True, timeout=120, check=False)
            self.assertEqual((result.returncode, result.stdout, result.stderr),
                             (1, "", f"mixdeck-cli: {name}: Fail to save. The card is never written "
                                     "to, but holds the folder; choose another DEST\n"))
        self.assertEqual(sorted(os.walk(self.path("card"))), before)

    def test_a_folder_that_leads_back_to_the_card_is_no_copy(self):
        self.add("DAY2/R0009.WAV", recording())
        before = sorted(os.walk(self.path("card")))
        os.mkdir(self.path("home"))
        os.symlink(self.path("card", "DAY2"), self.path("home", "DAY2"))
        result = self.expect(1, "copy", "card", "home",
                             err="mixdeck-cli: DAY2/R0009.WAV: Not copied. The card is never "
                                 "written to, but holds the folder\n")
        self.assertEqual(result.stdout.splitlines()[-1],
                         "3 of 4 takes copied, 0 there already, 1 not right")
        self.assertEqual(sorted(os.walk(self.path("card"))), before)

    def test_a_folder_that_may_not_be_written_to_is_said_once(self):
        os.mkdir(self.path("locked"), 0o555)
        self.expect(1, "copy", "card", "locked", out="", preexec_fn=as_nobody,
                    err="mixdeck-cli: locked: Fail to save. The folder cannot be written to: "
                        "Permission denied; choose another DEST\n")
        self.expect(0, "copy", "--quiet", "card", "home")
        os.chmod(self.path("home"), 0o555)
        self.expect(0, "copy", "--quiet", "card", "home", out="", err="", preexec_fn=as_nobody)

    def test_the_folders_above_need_not_be_readable(self):
        os.mkdir(self.path("outer"))
        os.mkdir(self.path("outer", "home"))
        os.chmod(self.path("outer", "home"), 0o777)
        os.chmod(self.path("outer"), 0o711)
        self.expect(0, "copy", "--quiet", "card", "outer/home", err="", preexec_fn=as_nobody)

    def test_a_folder_that_may_be_written_to_and_not_read_will_do(self):
        os.mkdir(self.path("home"))
        os.chmod(self.path("home"), 0o333)
        self.expect(0, "copy", "--quiet", "card", "home", err="", preexec_fn=as_nobody)
        os.chmod(self.path("home"), 0o755)
        self.expect(0, "verify", "home", out="3 right\n", err="")

    def test_manifests_that_cannot_be_read_are_not_written_over(self):
        self.expect(0, "copy", "--quiet", "card", "home")
        with open(self.path("home", "ascmhl", "ascmhl_chain.xml"), "w", encoding="utf-8") as file:
            file.write("<half")
        self.expect(1, "copy", "card", "home", out="",
                    err="mixdeck-cli: home: Fail to save. The manifest cannot be read: "
                        "ascmhl_chain.xml: it is not well-formed; choose another DEST, or move its "
                        "folder ascmhl away\n")

    def test_without_unnamed_files_no_hidden_file_stays(self):
        self.expect(0, "copy", "--quiet", "card", "home", err="",
                    preexec_fn=without_unnamed_files)
        self.assertEqual(self.at_home(), self.takes)

    def test_progress_tells_speed_and_time_on_a_terminal(self):
        # A second of reading, and some more: the first one tells no speed.
        self.add("R0009.WAV", b"RIFF" + os.urandom(1 << 20) * 3)
        script = f"stty cols 200; exec '{CLI}' copy card home"
        said = subprocess.run(["script", "-qec", f"sh -c \"{script}\"", "/dev/null"],
                              cwd=self.folder, capture_output=True, check=True, env=dict(
                                  os.environ, LD_PRELOAD=os.environ["SLOW_READS"],
                                  MIXDECK_SLOW_FOLDER=self.path("card"),
                                  MIXDECK_SLOW_RATE=str(2 << 20))).stdout
        self.assertRegex(said, rb"\r\x1b\[K\x1b\[\?7l *\d+ %  3 of 4 takes  "
                               rb"[\d.]+ MB/s, 00:\d\d:\d\d left  R0009.WAV")


class VerifyTest(CardCase):
    def setUp(self):
        super().setUp()
        self.expect(0, "copy", "--quiet", "card", "home")

    def test_what_is_not_right_is_told(self):
        with open(self.path("home", "R0001.WAV"), "r+b") as file:
            file.seek(100)
            file.write(b"!")
        os.rename(self.path("home", "R0002.WAV"), self.path("home", "walk.WAV"))
        os.remove(self.path("home", "R0003.WAV"))
        with open(self.path("home", "other.txt"), "wb") as file:
            file.write(b"new")
        self.expect(1, "verify", "home", err="",
                    out="changed  R0001.WAV: another content\n"
                        "new  other.txt\n"
                        "moved  R0002.WAV to walk.WAV\n"
                        "missing  R0003.WAV\n"
                        "0 right, 1 changed, 1 missing, 1 moved, 1 new\n")

    def test_a_changed_manifest_is_told(self):
        (path,) = self.generations()
        with open(path, "a", encoding="utf-8") as file:
            file.write("\n")
        self.expect(1, "verify", "home", out="3 right\n",
                    err="mixdeck-cli: home: The manifest is not right: "
                        f"{os.path.basename(path)}: it was changed after it was written\n")

    def test_beside_a_copy_it_says_so(self):
        self.expect(0, "copy", "--quiet", "card", "home", out="", err="")
        folder = os.open(self.path("home", "ascmhl"), os.O_RDONLY)
        fcntl.flock(folder, fcntl.LOCK_EX)
        self.expect(1, "verify", "home", out="",
                    err="mixdeck-cli: home: Fail to open. A copy is at work there; "
                        "verify again at its end\n")
        os.close(folder)
        self.expect(0, "verify", "home", out="3 right\n", err="")

    def test_without_a_manifest_it_fails(self):
        self.expect(1, "verify", "card", out="",
                    err="mixdeck-cli: card: Fail to open. It has no manifest (ascmhl); name a "
                        "folder that takes were copied into\n")

    def test_a_folder_that_is_none_fails(self):
        self.file("file", b"")
        for name, reason in {"none": "No such file or directory", "file": "Not a directory"}.items():
            self.expect(1, "verify", name, out="",
                        err=f"mixdeck-cli: {name}: Fail to open. The folder cannot be read: {reason}; "
                            "name a folder that takes were copied into\n")


class InterruptedTest(CardCase):
    def setUp(self):
        super().setUp()
        for number in range(4, 8):
            self.add(f"R000{number}.WAV", os.urandom(1 << 20) * 8)

    def start(self, **options):
        return subprocess.Popen([CLI, "copy", "card", "home"], cwd=self.folder,
                                stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True, **options)

    def check_what_is_there(self):
        for name, content in self.at_home().items():
            self.assertFalse(name.startswith("."), name)
            self.assertEqual(content, self.takes[name], name)

    def test_ctrl_c_keeps_what_was_done(self):
        with self.start() as process:
            process.stdout.readline()  # the first take is there
            process.send_signal(signal.SIGINT)
            _, errors = process.communicate(timeout=60)
        was_quicker = self.at_home() == self.takes
        self.assertEqual((process.returncode, errors),
                         (0, "") if was_quicker else (1, "mixdeck-cli: cancelled\n"))
        self.check_what_is_there()
        self.assertIn("R0001.WAV", self.at_home())
        self.expect(0, "verify", "home", out=f"{len(self.at_home())} right\n", err="")

    def kill_a_copy(self, delay):
        """Returns whether that was in its middle, and whether it was over."""
        shutil.rmtree(self.path("home"), ignore_errors=True)
        with self.start() as process:
            time.sleep(delay)
            process.kill()
            said, errors = process.communicate(timeout=60)
        self.assertEqual(errors, "")
        self.assertIn(process.returncode, (0, -signal.SIGKILL))
        has_begun = os.path.isdir(self.path("home"))
        if has_begun:
            self.check_what_is_there()
        for name in re.findall(r"^(.*): copied and verified$", said, re.MULTILINE):
            self.assertIn(name, self.at_home())
        is_over = os.path.exists(self.path("home", "ascmhl", "ascmhl_chain.xml"))
        self.assertTrue(is_over or process.returncode != 0)
        return has_begun and not is_over, is_over

    def test_a_kill_at_any_moment(self):
        chance = random.Random(5)
        began = time.monotonic()
        self.expect(0, "copy", "--quiet", "card", "home")
        span = time.monotonic() - began
        killed, some = 0, 0
        for _ in range(4 * KILLS):
            if killed == KILLS:
                break
            is_middle, is_over = self.kill_a_copy(chance.random() * span)
            span *= 0.97 if is_over else 1.01  # keeps to the speed of a machine that is shared
            killed += is_middle
            some += is_middle and 0 < len(self.at_home()) < len(self.takes)
            self.expect(0, "copy", "--quiet", "card", "home", err="")
            self.assertEqual(self.at_home(), self.takes)
            self.expect(0, "verify", "home", out="7 right\n", err="")
        self.assertEqual(killed, KILLS)
        print(f"{killed} kills in the middle of a copy: {some} times some takes were there")

    def pull_the_card_out(self, first=lambda: None):
        """What a copy says when the card is gone, after `first`, in the middle of its fourth take."""
        # Each of the long takes is read for 4 s; it is gone as soon as the first of them is begun.
        environment = dict(os.environ, LD_PRELOAD=os.environ["SLOW_READS"],
                           MIXDECK_SLOW_FOLDER=self.path("card"), MIXDECK_SLOW_RATE=str(2 << 20),
                           MIXDECK_SLOW_GOES_WITH_FOLDER="1")
        with self.start(env=environment) as process:
            while not self.is_reading(process, "R0004.WAV"):
                self.assertIsNone(process.poll())
                time.sleep(0.001)
            first()
            shutil.rmtree(self.path("card"))
            said, errors = process.communicate(timeout=300)
        self.assertEqual(process.returncode, 1)
        return said, errors

    def test_where_the_manifest_cannot_be_written_either_both_are_told(self):
        def take_its_place():
            os.rename(self.path("home", "ascmhl"), self.path("elsewhere"))
            self.file("home/ascmhl", b"")
        said, errors = self.pull_the_card_out(take_its_place)
        self.assertEqual(said.splitlines()[-1], "3 of 7 takes copied, 0 there already, 1 not right, "
                                                "3 not reached")
        self.assertEqual(errors, "mixdeck-cli: R0004.WAV: Not copied. Input/output error\n"
                                 "mixdeck-cli: card: Fail to open. The card is gone; plug it in and "
                                 "copy again: what is there stays\n"
                                 "mixdeck-cli: home: Fail to save. The manifest cannot be written: "
                                 "Not a directory; copy again once it can be: what is there stays\n")

    def test_a_card_that_is_pulled_out(self):
        said, errors = self.pull_the_card_out()
        self.assertEqual(errors, "mixdeck-cli: R0004.WAV: Not copied. Input/output error\n"
                                 "mixdeck-cli: card: Fail to open. The card is gone; plug it in and "
                                 "copy again: what is there stays\n")
        self.assertEqual(said.splitlines()[:3],
                         [f"R000{number}.WAV: copied and verified" for number in (1, 2, 3)])
        self.check_what_is_there()
        self.assertEqual(sorted(self.at_home()), [f"R000{number}.WAV" for number in (1, 2, 3)])
        self.expect(0, "verify", "home", out="3 right\n", err="")
        os.mkdir(self.path("card"))
        for name, content in list(self.takes.items()):
            self.add(name, content)
        self.expect(0, "copy", "--quiet", "card", "home", err="")
        self.assertEqual(self.at_home(), self.takes)
        self.expect(0, "verify", "home", out="7 right\n", err="")

    def test_takes_larger_than_a_file_may_be_fail_alone(self):
        def limit():
            import resource
            resource.setrlimit(resource.RLIMIT_FSIZE, (1 << 20, 1 << 20))
        result = self.expect(1, "copy", "--quiet", "card", "home", out="", preexec_fn=limit)
        self.assertEqual(re.findall(r"File too large", result.stderr), ["File too large"] * 4)
        self.assertEqual(sorted(self.at_home()), ["R0001.WAV", "R0002.WAV", "R0003.WAV"])

    def test_no_room_is_known_beforehand(self):
        os.truncate(self.path("card", "R0007.WAV"), 1 << 43)
        self.assertRegex(self.expect(1, "copy", "card", "home", out="").stderr,
                         r"^mixdeck-cli: home: Fail to save. The takes and their manifest need \d+ "
                         r"bytes, and \d+ are free; make room there, or choose another DEST\n$")
        self.assertEqual(self.at_home(), {})


if __name__ == "__main__":
    unittest.main()
