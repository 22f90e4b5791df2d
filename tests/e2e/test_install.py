# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""`cmake --install` under prefixes of its own. MIXDECK_BUILD is the folder of the build."""

import os
import re
import shlex
import shutil
import subprocess
import unittest
from pathlib import Path
from xml.etree import ElementTree

from mixdeck import Case, recording

BUILD = os.environ["MIXDECK_BUILD"]
ROOT = Path(__file__).resolve().parents[2]
ID = "example.mixdeck.mixdeck"
WINDOW_AND_TOOL = {"bin/mixdeck", "bin/mixdeck-cli", "libexec/mixdeck/mixdeck-plot-png", "libexec/mixdeck/mixdeck-cli-live",
                   f"share/applications/{ID}.desktop", f"share/metainfo/{ID}.metainfo.xml",
                   f"share/dbus-1/services/{ID}.service",
                   "share/icons/hicolor/scalable/apps/mixdeck.svg",
                   "share/icons/hicolor/symbolic/apps/mixdeck-symbolic.svg"}


def manual_of(program):
    return {f"share/man/man1/{program}.1.gz", f"share/bash-completion/completions/{program}",
            f"share/zsh/site-functions/_{program}",
            f"share/fish/vendor_completions.d/{program}.fish"}


def cached(name):
    """What the build was configured with."""
    text = Path(BUILD, "CMakeCache.txt").read_text()
    return re.search(rf"(?m)^{name}:\w+=(.*)$", text)[1]


class InstallTest(Case):
    def install(self, name="prefix", component=None):
        prefix = Path(self.path(name))
        part = ["--component", component] if component else []
        subprocess.run(["cmake", "--install", BUILD, "--prefix", prefix, *part],
                       capture_output=True, check=True)
        return prefix

    def files(self, prefix):
        return {str(path.relative_to(prefix)) for path in prefix.rglob("*") if not path.is_dir()}

    def run_checked(self, *command, **options):
        return subprocess.run(command, capture_output=True, text=True, check=True, **options).stdout

    def test_the_components(self):
        window = self.files(self.install("one", "mixdeck"))
        self.assertEqual(window, WINDOW_AND_TOOL | manual_of("mixdeck") | manual_of("mixdeck-cli"))
        simulator = self.files(self.install("other", "simulator"))
        self.assertEqual(simulator,
                         {"bin/mixdeck-recorder-sim"} | manual_of("mixdeck-recorder-sim"))

    def test_it_runs_wherever_it_is(self):
        prefix = self.install("a prefix")
        environment = dict(os.environ, QT_QPA_PLATFORM="offscreen")
        for program in ("mixdeck", "mixdeck-cli", "mixdeck-recorder-sim"):
            told = self.run_checked(prefix / "bin" / program, "--version", env=environment)
            self.assertTrue(told.startswith(f"{program} "))
        self.run_checked(prefix / "bin/mixdeck-cli", "device", "--simulate")
        take = self.file("a.wav", recording([1000, 500] * 4800))
        self.run_checked(prefix / "bin/mixdeck-cli", "measure", "--plot", "a.png", take,
                         cwd=self.folder)
        self.assertEqual(self.read("a.png")[:4], b"\x89PNG")

    def test_the_desktop_finds_it(self):
        prefix = self.install()
        entry = prefix / f"share/applications/{ID}.desktop"
        self.run_checked("desktop-file-validate", entry)
        lines = dict(line.split("=", 1) for line in entry.read_text().splitlines() if "=" in line)
        self.assertTrue((prefix / "bin" / lines["Exec"].split()[0]).exists())
        for icon in (f"scalable/apps/{lines['Icon']}.svg", f"symbolic/apps/{lines['Icon']}-symbolic.svg"):
            root = ElementTree.parse(prefix / "share/icons/hicolor" / icon).getroot()
            self.assertEqual(root.tag, "{http://www.w3.org/2000/svg}svg")
        self.run_checked("appstreamcli", "validate-tree", "--no-net", prefix)

    def test_the_bus_starts_it_where_it_is(self):
        for name in ("prefix", "a prefix"):
            prefix = self.install(name)
            service = (prefix / f"share/dbus-1/services/{ID}.service").read_text()
            lines = dict(line.split("=", 1) for line in service.splitlines() if "=" in line)
            self.assertEqual(lines["Name"], ID)
            self.assertEqual(shlex.split(lines["Exec"]), [str(prefix / "bin/mixdeck")])

    def test_it_takes_no_kind_of_file_over(self):
        prefix = self.install()
        names = {Path(name).name for name in self.files(prefix)}
        self.assertEqual(names & {"mimeapps.list", "defaults.list", "mimeinfo.cache"}, set())
        entry = (prefix / f"share/applications/{ID}.desktop").read_text()
        kinds = set(filter(None, re.search(r"(?m)^MimeType=(.*)$", entry)[1].split(";")))
        self.assertIn("audio/x-wav", kinds)
        # A desktop may take the only program that names folders for its file manager.
        self.assertNotIn("inode/directory", kinds)

    def test_the_metadata_names_pictures_and_the_version(self):
        prefix = self.install()
        root = ElementTree.parse(prefix / f"share/metainfo/{ID}.metainfo.xml").getroot()
        self.assertEqual(root.findtext("launchable"), f"{ID}.desktop")
        for image in root.iter("image"):
            name = image.text.rpartition("/")[2]
            pictures = Path(__file__).parents[2] / "docs/pictures"
            self.assertTrue((pictures / name).exists(), name)
        told = self.run_checked(prefix / "bin/mixdeck-cli", "--version").split()[1]
        newest = root.find("releases/release").get("version")
        self.assertRegex(newest, r"^\d+\.\d+\.\d+$")
        self.assertEqual(newest, cached("CMAKE_PROJECT_VERSION"))
        self.assertEqual(told, f"{newest}.{cached('MIXDECK_BUILD_NUMBER')}")


class ScriptTest(Case):
    """The scripts, in a folder of any name, among programs that only note how they were called."""

    FOLDER = "mixdeck_0.1 of mine"

    def setUp(self):
        super().setUp()
        self.home = Path(self.path(self.FOLDER))
        self.programs, self.notes, self.own = (Path(self.path(name)) for name in ("bin", "notes", "tmp"))
        for folder in (self.home / "packaging", self.programs, self.own):
            folder.mkdir(parents=True)
        self.give("apt-get", f'printf "%s\\n" "$@" >> "{self.notes}"')
        self.give("sudo", 'exec "$@"')

    def give(self, name, text, folder=None):
        script = (folder or self.programs) / name
        script.write_text(f"#!/bin/bash\n{text}\n")
        script.chmod(0o755)

    def call(self, script):
        shutil.copy(ROOT / script, self.home / script)
        path = f"{self.programs}:{os.environ['PATH']}"
        done = subprocess.run([self.home / script], env=os.environ | {"PATH": path, "TMPDIR": str(self.own)},
                              capture_output=True, text=True, check=False)
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertEqual(list(self.own.iterdir()), [])
        return done.stdout

    def test_the_package_is_installed_from_a_folder_of_any_name(self):
        names = ("mixdeck_0.1_amd64.deb", "mixdeck-recorder-sim_0.1_amd64.deb")
        for name in names:
            (self.home / name).touch()
        self.give("make-deb", "\n".join(f'echo "{self.home}/{name}"' for name in names), self.home / "packaging")
        self.assertIn(f"Installed: {names[0]}.", self.call("packaging/install-deb"))
        words = self.notes.read_text().splitlines()
        self.assertEqual([Path(word).name for word in words if word.endswith(".deb")], [names[0]])
        self.assertIn("DPkg::Lock::Timeout=300", words)

    def test_nothing_is_left_behind_by_a_start(self):
        self.give("cmake", "")
        for name, text in (("install-packages", ""), ("start", "echo started")):
            self.give(name, text, self.home / "packaging")
        self.assertEqual(self.call("run").splitlines()[-1], "started")


if __name__ == "__main__":
    unittest.main()
