# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""The programs use no network: they work where there is none, not even the machine's own address, and ask
for no socket of the internet, which would be their end at once. MIXDECK_WINDOW is the program with the
window, MIXDECK_RECORDER_SIM the simulated recorder."""

import os
import signal
import subprocess
import sys
import time
import unittest
from pathlib import Path

from mixdeck import CLI, Case, bext, chunk, fmt, pack24, recording, wave, without_internet

sys.path.insert(0, str(Path(__file__).resolve().parents[1] / "support"))
from sound import SoundServer  # noqa: E402

WINDOW = os.environ["MIXDECK_WINDOW"]
SIMULATOR = os.environ["MIXDECK_RECORDER_SIM"]
# Root needs no more; whoever is not becomes root of a space of its own, which no changed root may.
WAYS = (["unshare", "--net"], ["unshare", "--map-root-user", "--net"])
SKIPPED = 77
TABLES = ("tcp", "tcp6", "udp", "udp6", "raw", "raw6")
COMMANDS = {"export", "info", "levels", "measure", "play", "copy", "verify", "repair", "device", "demo"}
SAMPLES = [1000, 500] * 4800


def works(way):
    return subprocess.run([*way, "true"], capture_output=True, check=False).returncode == 0


ALONE = next((way for way in WAYS if works(way)), None)


class NetworkCase(Case):
    def run_alone(self, *command, status=0, **options):
        done = subprocess.run([*ALONE, *command], cwd=self.folder, capture_output=True, text=True, check=False,
                              timeout=120, preexec_fn=without_internet, **options)
        self.assertEqual(done.returncode, status, done)
        return done.stdout + done.stderr


class MeansTest(NetworkCase):
    def test_there_is_no_network(self):
        routes = self.run_alone("cat", "/proc/net/route").splitlines()[1:]  # after the heading
        self.assertEqual(routes, [])

    def test_a_socket_of_the_internet_is_the_end(self):
        ask = "import socket; socket.socket(socket.{}, socket.{})"
        for family, kind in (("AF_INET", "SOCK_DGRAM"), ("AF_INET", "SOCK_STREAM"), ("AF_INET6", "SOCK_STREAM"),
                             ("AF_PACKET", "SOCK_RAW")):
            self.run_alone(sys.executable, "-c", ask.format(family, kind), status=-signal.SIGSYS)
        self.run_alone(sys.executable, "-c", ask.format("AF_UNIX", "SOCK_STREAM"))


class ToolTest(NetworkCase):
    """Every command."""

    def tool(self, *words, **options):
        self.tried.add(words[0])
        return self.run_alone(CLI, *words, **options)

    def play(self):
        with SoundServer() as server:
            self.tool("play", "a.wav", env=server.environment, stdin=subprocess.DEVNULL)
        said = self.tool("play", "a.wav", env=server.environment, stdin=subprocess.DEVNULL, status=1)
        self.assertIn("No sound server was found", said)

    def bring_home(self):
        os.mkdir(self.path("card"))
        self.file("card/R0001.WAV", recording(SAMPLES))
        self.assertIn("1 of 1 takes copied", self.tool("copy", "card", "home"))
        self.assertIn("1 right", self.tool("verify", "home"))

    def test_every_command(self):
        self.tried = set()
        self.file("a.wav", recording(SAMPLES))
        self.file("broken.wav", wave(bext(), fmt(), chunk("data", pack24(SAMPLES), 0), riff_size=0))
        self.tool("export", "a.wav")
        self.assertIn("a_Decode.WAV", self.names())
        self.tool("info", "a.wav")
        self.tool("levels", "--from", "0", "--to", "0.05", "a.wav")
        self.tool("measure", "--plot", "a.png", "a.wav")
        self.assertIn("a.png", self.names())
        self.tool("repair", "broken.wav")
        self.assertIn("broken_Repaired.WAV", self.names())
        self.tool("demo", "--output-dir", "demo")
        self.assertIn("firmware", self.tool("device", "--simulate", "status").lower())
        self.bring_home()
        self.play()
        self.assertEqual(self.tried, COMMANDS)

    def test_no_command_is_forgotten(self):
        told = self.run_alone(CLI, "--help").split("\nSubcommands:\n")[1].split("\n\n")[0]
        self.assertEqual({line.split()[0] for line in told.splitlines() if line[2] != " "}, COMMANDS)


class ProgramsTest(NetworkCase):
    def test_the_simulated_recorder(self):
        said = self.run_alone(SIMULATOR, "--device", "none", "--log", input="quit\n")
        self.assertEqual(said, '{"event":"ready"}\n')

    def test_the_window(self):
        self.file("a.wav", recording(SAMPLES))
        os.mkdir(self.path("run"), 0o700)
        environment = {"HOME": self.folder, "PATH": os.environ["PATH"], "QT_QPA_PLATFORM": "offscreen",
                       "XDG_RUNTIME_DIR": self.path("run")}
        with subprocess.Popen([*ALONE, WINDOW, "--simulate-recorder", "a.wav"], cwd=self.folder,
                              env=environment, stderr=subprocess.DEVNULL,
                              preexec_fn=without_internet) as window:
            self.addCleanup(window.kill)
            self.wait_for_settings(window)
            for table in TABLES:
                with open(f"/proc/{window.pid}/net/{table}", encoding="ascii") as file:
                    self.assertEqual(len(file.readlines()), 1, table)
            window.terminate()
        self.assertIn(window.returncode, (0, -signal.SIGTERM))

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
