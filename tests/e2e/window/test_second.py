# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""A second start of the window, and what desktops ask of it: one window a session."""

import os
import subprocess
import unittest
from pathlib import Path

from gi.repository import Gio, GLib

from window import WINDOW, Case, wait_for

NAME = "example.mixdeck.mixdeck"
APPLICATION = "org.freedesktop.Application"


class SecondTest(Case):
    def first(self, *arguments):
        self.know_introduction()
        return self.program(*arguments, log=())

    def second(self, *arguments, **environment):
        """Another start, to its end; its status."""
        own = {"HOME": str(self.home)} | self.sound() | environment
        done = subprocess.run([WINDOW, *map(str, arguments)], env=self.desktop.environment | own,
                              stderr=subprocess.PIPE, text=True, timeout=60, cwd=self.home)
        self.said = done.stderr
        return done.returncode

    def in_front(self):
        """The process whose window is active."""
        return self.desktop.run("xdotool", "getactivewindow", "getwindowpid").strip()

    def call(self, what, arguments):
        flags = (Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT
                 | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION)
        bus = Gio.DBusConnection.new_for_address_sync(self.desktop.address, flags, None, None)
        self.addCleanup(bus.close_sync, None)
        name, path, interface = ((NAME, "/" + NAME.replace(".", "/"), APPLICATION)
                                 if what in ("Open", "Activate")
                                 else ("org.freedesktop.DBus", "/", "org.freedesktop.DBus"))
        return bus.call_sync(name, path, interface, what, arguments, None, 0, 60000, None)

    def test_it_hands_its_files_over(self):
        self.take("R0001.WAV")
        other = self.home / "a folder ü"
        other.mkdir()
        self.take("R0002.WAV", folder=other)
        first = self.first(self.takes)
        self.wait_files(first, "R0001.WAV")
        address = (other / "R0002.WAV").as_uri()
        self.assertEqual(self.second(address, self.takes / "R0001.WAV"), 0)
        self.wait_files(first, "R0002.WAV")
        first.wait_label("R0002.WAV")
        self.assertEqual(self.second("takes"), 0)
        self.wait_files(first, "R0001.WAV")
        self.assertEqual(len(first.windows()), 1)

    def test_it_raises_the_window(self):
        first = self.first(self.takes)
        other = self.program("--simulate-recorder", self.takes)
        wait_for(lambda: self.in_front() == str(other.process.pid), "the other in front")
        self.assertEqual(self.second(), 0)
        wait_for(lambda: self.in_front() == str(first.process.pid), "the first in front")

    def test_a_language_is_not_handed_over_and_that_is_said(self):
        first = self.first(self.takes)
        self.assertEqual(self.second("--language", "fr"), 0)
        self.assertEqual(self.said, "mixdeck: the window that is open keeps its language\n")
        self.assertEqual(self.second(), 0)
        self.assertEqual(self.said, "")
        self.assertEqual(len(first.windows()), 1)

    def test_one_that_says_something_of_the_program_is_for_itself(self):
        first = self.first(self.takes)
        other = self.program("--simulate-recorder", self.takes)
        wait_for(lambda: self.in_front() == str(other.process.pid), "the other in front")
        self.quit(other)
        self.assertEqual(len(first.windows()), 1)

    def test_what_is_not_there_is_told_by_the_start_itself(self):
        self.first(self.takes)
        self.assertEqual(self.second("nothing.WAV"), 2)
        self.assertEqual(self.second("http://mixdeck.example/R0001.WAV"), 2)

    def test_the_bus_starts_it(self):
        home = Path(self.desktop.environment["HOME"])
        services = Path(self.desktop.environment["XDG_RUNTIME_DIR"]) / "dbus-1/services"
        services.mkdir(parents=True, exist_ok=True)
        (services / f"{NAME}.service").write_text(f"[D-BUS Service]\nName={NAME}\nExec={WINDOW}\n")
        self.call("ReloadConfig", None)
        self.take("R0001.WAV")
        self.call("Open", GLib.Variant("(asa{sv})", ([(self.takes / "R0001.WAV").as_uri()], {})))
        settings = home / ".config/mixdeck/settings"
        wait_for(lambda: settings.exists() and str(self.takes) in settings.read_text(), "the folder")
        process = self.call("GetConnectionUnixProcessID", GLib.Variant("(s)", (NAME,)))[0]
        self.addCleanup(os.kill, process, 15)


if __name__ == "__main__":
    unittest.main()
