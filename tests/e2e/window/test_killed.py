# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""The window, killed at any moment of an export, a replacement, several exports at once, or a change
of its settings.

MIXDECK_KILLS is how often it is killed, all kinds but several exports together (6),
MIXDECK_BATCH_KILLS how often in those (2). A kill after the last export was there does not count.
"""

import os
import random
import signal
import subprocess
import time
import unittest

from window import CLI, WINDOW, Case, noise  # first: it knows where the others are
from exported import LEFT, undated

KILLS = int(os.environ.get("MIXDECK_KILLS", "6"))
BATCH_KILLS = int(os.environ.get("MIXDECK_BATCH_KILLS", "2"))
OLD = b"the old file" * 1000
RATE = 3000000  # bytes a second: what is to be exported is read for half a second or more


class KilledTest(Case):
    def setUp(self):
        super().setUp()
        self.chance = random.Random(1)
        self.size = self.take("R0001.WAV", noise(300000, 24)).stat().st_size
        self.target = self.takes / "out.WAV"
        tool = self.home / "tool.wav"
        subprocess.run([CLI, "export", "--angle", "75", "--output", tool, self.takes / "R0001.WAV"], check=True)
        self.new = undated(tool.read_bytes())

    def slow(self):
        return {"LD_PRELOAD": os.environ["SLOW_READS"], "MIXDECK_SLOW_RATE": str(RATE),
                "MIXDECK_SLOW_FOLDER": str(self.takes.resolve())}

    def exporting(self):
        """The program, whose export to the target has just been ordered."""
        program = self.start(self.takes / "R0001.WAV", environment=self.slow())
        program.wait(lambda: program.find("push button", "Export").has("enabled"), "the take")
        program.find("dial", "Stereo width").value = 75
        program.wait_label("75°")
        program.find("push button", "Export").click()
        program.find("push button", "Save").click()
        panel = program.find("dialog", "Saving checkboard...")
        edit = program.wait(lambda: next((item for item in panel.walk()
                                          if item.role == "text" and item.text), None), "the name")
        edit.click()
        program.key("ctrl+a")
        program.type("out")
        program.wait(lambda: edit.text == "out", "the typed name")
        button = next(item for item in panel.walk() if item.name == "Save")
        if self.target.exists():
            button.act("Press")
            button = program.find("push button", "Replace")
        button.act("Press")
        return program

    def kill(self, program, delay):
        time.sleep(delay)
        self.assertIsNone(program.process.poll())
        program.process.kill()
        program.process.wait()
        self.assertEqual(program.process.returncode, -signal.SIGKILL)

    def kill_often(self, kill, count, size):
        """Has `kill`, which returns whether the last export was there, kill so many runs before it was, at moments over
        the time in which so many bytes are exported."""
        span, killed, over = size / RATE, 0, 0
        while killed < count:
            if kill(self.chance.random() * span):
                over += 1
                span *= 0.8
            else:
                killed += 1
                span *= 1.05  # what is written takes time, too
            self.assertLessEqual(over, 3 * count)
        return f"{killed} kills in the middle, {over} more after the end"

    def kill_an_export(self, before, delay):
        program = self.exporting()
        self.kill(program, delay)
        content = self.target.read_bytes() if self.target.exists() else None
        is_new = content is not None and undated(content) == self.new
        if not is_new:
            self.assertEqual(content, before)
        rest = {path.name for path in self.takes.iterdir()} - {"R0001.WAV", "out.WAV"}
        self.assertLessEqual(len(rest), 1 if before else 0)
        for name in rest:
            self.assertRegex(name, LEFT)
        return is_new

    def test_an_export(self):
        def kill(delay):
            self.target.unlink(missing_ok=True)
            return self.kill_an_export(None, delay)
        print("an export:", self.kill_often(kill, KILLS // 3, self.size))

    def test_a_replacement(self):
        def kill(delay):
            self.target.write_bytes(OLD)
            return self.kill_an_export(OLD, delay)
        print("a replacement:", self.kill_often(kill, KILLS // 3, self.size))
        subprocess.run([CLI, "export", "--force", "--output", self.target,
                        self.takes / "R0001.WAV"], check=True)
        self.assertEqual(sorted(path.name for path in self.takes.iterdir()),
                         ["R0001.WAV", "out.WAV"])

    # ---- several at once: every second time over exports that are there ----

    def make_takes(self):
        """What the exports of some takes are to hold, by their names."""
        (self.takes / "R0001.WAV").unlink()
        wanted = {}
        for number in range(1, 5):
            take = self.take(f"R000{number}.WAV", noise(60000 + number, 24))
            made = self.home / "tool.wav"
            subprocess.run([CLI, "export", "--force", "--angle", "0", "--output", made, take],
                           check=True)
            wanted[f"{take.stem}_Decode.WAV"] = undated(made.read_bytes())
        return wanted

    def exporting_several(self, names, replaces):
        """The program, whose exports of these takes have just been ordered."""
        program = self.start(environment=self.slow())
        for name in names:
            place = map(str, program.find("list item", name).at())
            program.hands("keydown", "ctrl", "mousemove", *place, "click", "1", "keyup", "ctrl")
        program.wait_label("4 takes · 00:00:05")
        program.find("push button", "Export 4…").click()
        dialog = program.find("dialog", "Export")
        if replaces:
            program.find("combo box", "Where an export exists").click()
            program.key("Down", "Return")
        program.wait(lambda: any(item.name == "Export 4" and item.has("enabled")
                                 for item in dialog.walk()), "the plan")
        next(item for item in dialog.walk() if item.name == "Export 4").act("Press")
        return program

    def test_several_at_once(self):
        wanted = self.make_takes()
        sources = {path.name: path.read_bytes() for path in self.takes.iterdir()}
        times = []  # how many of them were there

        def kill(delay):
            old = OLD if len(times) % 2 else None
            for name in wanted:
                (self.takes / name).unlink(missing_ok=True)
                if old:
                    (self.takes / name).write_bytes(old)
            self.kill(self.exporting_several(sources, bool(old)), delay)
            times.append(self.check_several(wanted, sources, old))
            return times[-1] == len(wanted)
        said = self.kill_often(kill, BATCH_KILLS, sum(map(len, sources.values())))
        some = sum(0 < new < len(wanted) for new in times)
        print(f"several exports: {said}, {some} times some were there and some were not")

    def check_several(self, wanted, sources, old):
        """How many exports are there; each is whole or what it was."""
        there = {path.name: path.read_bytes() for path in self.takes.iterdir()}
        for name, content in sources.items():
            self.assertTrue(there.pop(name) == content, name)
        new = 0
        for name, content in wanted.items():
            is_new = name in there and undated(there[name]) == content
            if not is_new:
                self.assertTrue(there.get(name) == old, name)
            there.pop(name, None)
            new += is_new
        self.assertLessEqual(len(there), 4 if old else 0)
        for name in there:
            self.assertRegex(name, LEFT)
        return new

    # ---- settings: the window stores the folder that it shows ----

    def start_and_store(self, folder, delay):
        """Starts the window on the folder, without a desktop, and kills it `delay` s later; without
        one, when the folder is stored. Returns how long it was there."""
        environment = {"HOME": str(self.home), "PATH": os.environ["PATH"],
                       "QT_QPA_PLATFORM": "offscreen", "PULSE_SERVER": f"unix:{self.home}/none"}
        begun = time.monotonic()
        process = subprocess.Popen([WINDOW, folder], env=environment, stderr=subprocess.DEVNULL)
        if delay is None:
            while not self.settings.read_text().endswith(f"{folder}\n"):
                self.assertIsNone(process.poll())
                time.sleep(0.001)
                self.assertLess(time.monotonic(), begun + 60)
        else:
            time.sleep(delay)
        process.kill()
        process.wait()
        return time.monotonic() - begun

    def test_settings(self):
        folders = [self.home / name for name in ("one", "two")]
        for folder in folders:
            folder.mkdir()
        self.know_introduction()
        texts = [f"mixdeck-settings 1\nUD_DO_NOT_SHOW_AGAIN={self.version()}\n"
                 f"UD_LAST_OPEN_FOLDER={folder}\n" for folder in folders]
        self.start_and_store(folders[0], None)
        self.assertEqual(self.settings.read_text(), texts[0])
        stored = 0
        count = KILLS - 2 * (KILLS // 3)
        for _ in range(count):
            before = texts.index(self.settings.read_text())
            span = self.start_and_store(folders[1 - before], None)
            self.start_and_store(folders[before], span * (0.8 + 0.4 * self.chance.random()))
            self.assertIn(self.settings.read_text(), texts)
            stored += texts.index(self.settings.read_text()) == before
            names = {path.name for path in self.settings.parent.iterdir()}
            rest = names - {"settings", "settings.lock"}
            self.assertLessEqual(len(rest), 1)
            for name in rest:
                self.assertRegex(name, r"settings\.part-\w{6}")
        print(f"{count} kills in a change of settings: stored {stored} times")


if __name__ == "__main__":
    unittest.main()
