# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""Where people write 1,5 the programs read and write 1.5 all the same: what they print, and the numbers of
their options, do not hang on the system's locale. The locale is made here. MIXDECK_RECORDER_SIM is the
simulated recorder."""

import json
import os
import shutil
import subprocess
import tempfile
import unittest

from mixdeck import CLI, Case, bext, chunk, fmt, pack24, recording, tone, wave

SIMULATOR = os.environ["MIXDECK_RECORDER_SIM"]
LOCALE = "de_DE.UTF-8"
PLAIN = {"LC_ALL": "C"}


def setUpModule():
    global GERMAN
    folder = tempfile.mkdtemp(prefix="mixdeck-locale-")
    unittest.addModuleCleanup(shutil.rmtree, folder)
    subprocess.run(["localedef", "-i", "de_DE", "-f", "UTF-8", os.path.join(folder, LOCALE)], check=True)
    GERMAN = {"LC_ALL": LOCALE, "LOCPATH": folder}


class LocaleCase(Case):
    def run_in(self, locale, program, *words, **options):
        return subprocess.run([program, *words], cwd=self.folder, env=dict(os.environ, **locale),
                              capture_output=True, timeout=120, check=False, **options)


class ToolTest(LocaleCase):
    def setUp(self):
        super().setUp()
        self.file("a.wav", recording(tone(0.5, -12)))
        self.file("Tür.wav", wave(fmt(channels=2, rate=44100), bext("Jemand"),
                                  chunk("data", pack24(tone(0.2, -3)))))

    def same(self, *words, status=0):
        """What it prints, which is the same byte for byte; and it is something."""
        plain, german = (self.run_in(locale, CLI, *words) for locale in (PLAIN, GERMAN))
        self.assertEqual(german.returncode, plain.returncode, german.stderr)
        self.assertEqual(german.returncode, status, german.stderr)
        self.assertEqual(german.stdout, plain.stdout)
        return german.stdout.decode()

    def test_the_locale_is_there(self):
        said = self.run_in(GERMAN, "/usr/bin/printf", "%.2f", "1,5").stdout
        self.assertEqual(said, b"1,50")

    def test_measure(self):
        for kind in ("--json", "--csv"):
            self.assertRegex(self.same("measure", kind, "--angles", "90,120", "--gain", "1.5", "a.wav"),
                             r"\b1\.5\b")
        self.assertIn(".", self.same("measure", "--from", "0.1", "--to", "0.35", "a.wav"))

    def test_a_plot(self):
        pictures = []
        for locale in (PLAIN, GERMAN):
            self.run_in(locale, CLI, "measure", "--gain", "1.5", "--plot", "a.svg", "a.wav")
            pictures.append(self.read("a.svg"))
            os.remove(self.path("a.svg"))
        self.assertEqual(*pictures)

    def test_info(self):
        said = self.same("info", "--json", "a.wav", "Tür.wav", status=1).splitlines()
        self.assertEqual(json.loads(said[0])["duration_seconds"], 0.5)
        self.same("info", "a.wav", "Tür.wav", status=1)

    def test_levels(self):
        stretch = ("levels", "--from", "0.1", "--to", "0:00:00.25", "--gain", "1.5", "a.wav")
        self.assertRegex(self.same(*stretch), r"^left -\d+\.\d\d dBFS, right -\d+\.\d\d dBFS\n$")
        self.assertIn(".", self.same(*stretch, "--meter-rule"))

    def test_device(self):
        said = self.same("device", "--simulate", "--json", "--wait", "20.5")
        self.assertEqual(json.loads(said)["sd_used"], "7.45 GB")

    def test_numbers_of_options(self):
        for words in (["export", "--gain", "1.5"], ["export", "--loudness", "-16.5", "--true-peak", "-1.5"]):
            said = self.same(*words, "--dry-run", "a.wav")
            self.assertRegex(said, r"gain \+1\.5 dB|-16\.5 LUFS, at most -1\.5 dBTP")
        self.same("play", "--volume", "0.5", "--from", "0.1", "none.wav", status=1)

    def test_a_comma_is_none_of_a_number(self):
        for words in (["export", "--gain", "1,5"], ["levels", "--from", "0,1", "--to", "0.2"],
                      ["play", "--volume", "0,5"], ["device", "--simulate", "--wait", "1,5"]):
            words += [] if words[0] == "device" else ["a.wav"]
            self.assertEqual(self.same(*words, status=2), "")


class SimulatorTest(LocaleCase):
    def simulate(self, locale, *words):
        """It serves a device that is not there, until it is told to quit."""
        return self.run_in(locale, SIMULATOR, "--device", "none", "--log", *words, input=b"quit\n")

    def test_numbers_of_options(self):
        for locale in (PLAIN, GERMAN):
            done = self.simulate(locale, "--report-every", "1.5")
            self.assertEqual((done.returncode, done.stdout), (0, b'{"event":"ready"}\n'), done.stderr)
            self.assertEqual(self.simulate(locale, "--report-every", "1,5").returncode, 2)


if __name__ == "__main__":
    unittest.main()
