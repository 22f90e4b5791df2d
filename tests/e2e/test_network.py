# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""The programs use no network: they work where there is none, not even the machine's own address, and
open no socket of the internet. MIXDECK_WINDOW is the program with the window."""

import os
import subprocess
import sys
import time
import unittest

from mixdeck import CLI, Case, recording

WINDOW = os.environ["MIXDECK_WINDOW"]
# Root needs no more; whoever is not becomes root of a space of its own, which no changed root may.
WAYS = (["unshare", "--net"], ["unshare", "--map-root-user", "--net"])
SKIPPED = 77
TABLES = ("tcp", "tcp6", "udp", "udp6", "raw", "raw6")


def works(way):
    return subprocess.run([*way, "true"], capture_output=True, check=False).returncode == 0


ALONE = next((way for way in WAYS if works(way)), None)


class NetworkTest(Case):
    def setUp(self):
        super().setUp()
        self.file("a.wav", recording([1000, 500] * 4800))

    def run_alone(self, *command):
        return subprocess.run([*ALONE, *command], cwd=self.folder, capture_output=True, text=True,
                              check=True, timeout=120).stdout

    def test_there_is_no_network(self):
        routes = self.run_alone("cat", "/proc/net/route").splitlines()[1:]  # after the heading
        self.assertEqual(routes, [])

    def test_the_tool(self):
        self.run_alone(CLI, "export", "a.wav")
        self.assertIn("a_Decode.WAV", self.names())
        self.run_alone(CLI, "measure", "--plot", "a.png", "a.wav")
        self.assertIn("firmware", self.run_alone(CLI, "device", "--simulate", "status").lower())

    def test_the_window(self):
        os.mkdir(self.path("run"), 0o700)
        environment = {"HOME": self.folder, "PATH": os.environ["PATH"], "QT_QPA_PLATFORM": "offscreen",
                       "XDG_RUNTIME_DIR": self.path("run")}
        with subprocess.Popen([*ALONE, WINDOW, "--simulate-recorder", "a.wav"], cwd=self.folder,
                              env=environment, stderr=subprocess.DEVNULL) as window:
            self.addCleanup(window.kill)
            self.wait_for_settings(window)
            for table in TABLES:
                with open(f"/proc/{window.pid}/net/{table}", encoding="ascii") as file:
                    self.assertEqual(len(file.readlines()), 1, table)
            window.terminate()

    def wait_for_settings(self, window):
        """It has read its folder and its settings once it writes them."""
        while not os.path.exists(self.path(".config/mixdeck/settings")):
            self.assertIsNone(window.poll())
            time.sleep(0.05)


if __name__ == "__main__":
    if not ALONE:
        print("this machine does not allow network namespaces")
        sys.exit(SKIPPED)
    unittest.main()
