# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""The manual pages, and what shells complete: made of what the programs tell, tried where they are
used. MIXDECK_MANUAL is the folder with them."""

import json
import os
import re
import subprocess
import unittest

import shells
from mixdeck import Case, recording

MANUAL = os.environ["MIXDECK_MANUAL"]
PROGRAMS = ("mixdeck", "mixdeck-cli", "mixdeck-recorder-sim")


def made(name):
    return os.path.join(MANUAL, name)


def every(words):
    """A program or command, and all commands below."""
    yield words
    for command in words["commands"]:
        yield from every(command)


class PageTest(Case):
    def page(self, program):
        """As people read it; a warning of the formatter is a failure."""
        done = subprocess.run(["man", "--warnings", "-E", "UTF-8", "-l", made(f"{program}.1")],
                              capture_output=True, text=True, check=True,
                              env=dict(os.environ, MANWIDTH="100", LC_ALL="C.UTF-8",
                                       MANROFFOPT="-c", GROFF_NO_SGR="1"))
        self.assertEqual(done.stderr, "")
        return re.sub(".\b", "", done.stdout)

    def test_each_page_has_its_parts(self):
        for program in PROGRAMS:
            page = self.page(program)
            for heading in ("NAME", "SYNOPSIS", "DESCRIPTION", "OPTIONS", "SEE ALSO"):
                self.assertRegex(page, rf"(?m)^{heading}$", program)
            for other in PROGRAMS:
                self.assertEqual(f"{other}(1)" in page.split("SEE ALSO")[1].split("User")[0],
                                 other != program)
            self.assertIn(f"{program} - ", page)

    def test_a_page_tells_every_command_and_option(self):
        page = self.page("mixdeck-cli")
        told = json.loads(self.expect(0, "--help-json", err="").stdout)
        for words in every(told):
            self.assertIn(words["name"], page)
            for option in words["options"]:
                for name in option["long"]:
                    self.assertIn(f"--{name}", page)
                sentence = " ".join(option["description"].split())
                self.assertIn(sentence.rstrip("."), " ".join(page.split()))

    def test_a_page_has_what_the_help_ends_with(self):
        page = self.page("mixdeck-cli")
        for heading in ("EXIT STATUS", "ENVIRONMENT", "EXAMPLES"):
            self.assertRegex(page, rf"(?m)^{heading}$")
        self.assertIn("NO_COLOR", self.expect(0, "--help").stdout)
        self.assertIn("\n       mixdeck-cli export --angle 90 --gain 6 R0001.WAV\n".replace("       ", ""),
                      re.sub(r"\n +", "\n", page))


class ShellTest(Case):
    """Each case: what is typed, and what stands there after a tabulator."""

    CASES = (("mixdeck-cli exp", "mixdeck-cli export"),
             ("mixdeck-cli export --form", "mixdeck-cli export --format"),
             ("mixdeck-cli export --format fl", "mixdeck-cli export --format float32"),
             ("mixdeck-cli export --angle 15", "mixdeck-cli export --angle 150"),
             ("mixdeck-cli export t", "mixdeck-cli export take.WAV"),
             ("mixdeck-cli export --output n", "mixdeck-cli export --output notes.txt"),
             ("mixdeck-cli export --output-dir o", "mixdeck-cli export --output-dir out/"),
             ("mixdeck-cli export take.WAV o", "mixdeck-cli export take.WAV out/"),
             ("mixdeck-cli info n", "mixdeck-cli info notes.txt"),
             ("mixdeck-cli copy o", "mixdeck-cli copy out/"),
             ("mixdeck-cli copy card/ o", "mixdeck-cli copy card/ out/"),
             ("mixdeck-cli verify o", "mixdeck-cli verify out/"),
             ("mixdeck-cli device moni", "mixdeck-cli device monitor"),
             ("mixdeck-cli device --js", "mixdeck-cli device --json"),
             ("mixdeck-cli levels --met", "mixdeck-cli levels --meter-rule"),
             ("mixdeck --sim", "mixdeck --simulate-recorder"),
             ("mixdeck o", "mixdeck out/"),
             ("mixdeck-recorder-sim --rep", "mixdeck-recorder-sim --report-every"))
    # What is no recording is not offered where one is wanted, nor a file for a folder.
    NOTHING = ("mixdeck-cli export n", "mixdeck-cli export --output-dir t", "mixdeck-cli play n",
               "mixdeck-cli export --forx", "mixdeck n", "mixdeck-cli copy t", "mixdeck-cli verify t")

    def setUp(self):
        super().setUp()
        self.file("take.WAV", recording())
        self.file("notes.txt", b"")
        os.mkdir(self.path("out"))

    def check(self, shell):
        self.addCleanup(shell.close)
        for typed, line in self.CASES:
            # Whether a space or "=" is put behind it is the shell's own habit.
            self.assertEqual(shell.completed(typed).rstrip(" ="), line)
        for typed in self.NOTHING:
            self.assertEqual(shell.completed(typed).rstrip(), typed)

    def test_bash(self):
        scripts = [made(f"{program}.bash") for program in PROGRAMS]
        self.check(shells.bash(self.folder, scripts))

    def test_bash_with_values_behind_the_sign(self):
        shell = shells.bash(self.folder, [made("mixdeck-cli.bash")])
        self.addCleanup(shell.close)
        self.assertEqual(shell.completed("mixdeck-cli export --format=fl").rstrip(),
                         "mixdeck-cli export --format=float32")
        self.assertEqual(shell.completed("mixdeck-cli export --output=n").rstrip(),
                         "mixdeck-cli export --output=notes.txt")

    def test_zsh(self):
        self.check(shells.zsh(self.folder, [made(f"_{program}") for program in PROGRAMS]))

    def test_fish(self):
        self.check(shells.Fish(self.folder, [made(f"{program}.fish") for program in PROGRAMS]))


class ToldTest(Case):
    def test_what_is_told_is_for_generators_alone(self):
        self.assertNotIn("help-json", self.expect(0, "--help").stdout)


if __name__ == "__main__":
    unittest.main()
