# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""The window as media keys and desktops see it: `org.mpris.MediaPlayer2` on a bus of its own."""

import subprocess
import unittest

from window import WINDOW, SoundingCase  # first: it knows where the others are
from gi.repository import Gio, GLib
from sound import wait_for

NAME = "org.mpris.MediaPlayer2.mixdeck"
PATH = "/org/mpris/MediaPlayer2"
ROOT = "org.mpris.MediaPlayer2"
PLAYER = "org.mpris.MediaPlayer2.Player"
PROPERTIES = "org.freedesktop.DBus.Properties"
NO_TRACK = "/org/mpris/MediaPlayer2/TrackList/NoTrack"
SECOND = 1000000


class Remote:
    """A desktop that controls a player, and hears what it tells."""

    def __init__(self, address, name=NAME):
        flags = (Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT
                 | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION)
        self.bus = Gio.DBusConnection.new_for_address_sync(address, flags, None, None)
        self.name, self.told, self.jumps = name, {}, []
        wait_for(self.is_there, "the player on the bus")
        self.bus.signal_subscribe(None, PROPERTIES, "PropertiesChanged", PATH, PLAYER, 0,
                                  lambda *heard: self.told.update(heard[5].unpack()[1]))
        self.bus.signal_subscribe(None, PLAYER, "Seeked", PATH, None, 0,
                                  lambda *heard: self.jumps.append(heard[5].unpack()[0]))

    def ask(self, *words, name=None, interface, path=PATH, arguments=None):
        return self.bus.call_sync(name or self.name, path, interface, words[0], arguments, None, 0,
                                  10000, None).unpack()

    def names(self):
        return self.ask("ListNames", name="org.freedesktop.DBus", interface="org.freedesktop.DBus",
                        path="/org/freedesktop/DBus")[0]

    def is_there(self):
        return self.name in self.names()

    def get(self, name, interface=PLAYER):
        return self.ask("Get", interface=PROPERTIES,
                        arguments=GLib.Variant("(ss)", (interface, name)))[0]

    def set(self, name, number):
        value = GLib.Variant("d", number)
        self.ask("Set", interface=PROPERTIES,
                 arguments=GLib.Variant("(ssv)", (PLAYER, name, value)))

    def do(self, method, signature=None, *values, interface=PLAYER):
        arguments = GLib.Variant(signature, values) if signature else None
        self.ask(method, interface=interface, arguments=arguments)

    def hear(self):
        while GLib.MainContext.default().iteration(False):
            pass

    def wait_told(self, name, value):
        """Until a signal has told it, and it is so."""
        def is_so():
            self.hear()
            return self.told.get(name) == value
        wait_for(is_so, f"{name} = {value}; told: {self.told}")
        assert self.get(name) == value, (name, self.get(name))

    def wait_jump(self):
        def has_jumped():
            self.hear()
            return self.jumps
        wait_for(has_jumped, "Seeked")
        return self.jumps.pop(0)


class MprisTest(SoundingCase):
    def setUp(self):
        super().setUp()
        for name in ("R0001.WAV", "R0002.WAV"):
            self.long_take(name, 60)

    def remote(self, name=NAME):
        return Remote(self.desktop.address, name)

    def open_first(self):
        self.program_ = self.start()
        self.wait_files(self.program_, "R0001.WAV", "R0002.WAV")
        remote = self.remote()
        remote.do("Next")  # nothing is open: the first
        remote.wait_told("PlaybackStatus", "Playing")
        return remote

    def playerctl(self, *words):
        return self.desktop.run("playerctl", "--player=mixdeck", *words).strip()

    def title(self, remote):
        return remote.get("Metadata").get("xesam:title", "")

    def test_before_a_take_is_open(self):
        program = self.start()
        self.wait_files(program, "R0001.WAV", "R0002.WAV")
        remote = self.remote()
        self.assertEqual(remote.get("PlaybackStatus"), "Stopped")
        self.assertEqual(remote.get("Metadata"), {"mpris:trackid": NO_TRACK})
        for name, value in (("CanPlay", False), ("CanPause", False), ("CanSeek", False),
                            ("CanGoNext", True), ("CanGoPrevious", False), ("CanControl", True)):
            self.assertEqual(remote.get(name), value, name)
        remote.do("Play")
        remote.do("Seek", "(x)", SECOND)
        self.assertEqual(remote.get("PlaybackStatus"), "Stopped")

    def test_what_it_is(self):
        self.start()
        remote = self.remote()
        self.assertEqual(remote.get("Identity", ROOT), "TARN J4 Mixdeck")
        self.assertEqual(remote.get("DesktopEntry", ROOT), "example.mixdeck.mixdeck")
        self.assertEqual(remote.get("SupportedUriSchemes", ROOT), ["file"])
        self.assertIn("audio/x-wav", remote.get("SupportedMimeTypes", ROOT))
        for name, value in (("CanQuit", True), ("CanRaise", True), ("HasTrackList", False)):
            self.assertEqual(remote.get(name, ROOT), value, name)
        for name in ("Rate", "MinimumRate", "MaximumRate"):
            self.assertEqual(remote.get(name), 1, name)

    def test_metadata_and_capabilities_are_told(self):
        remote = self.open_first()
        metadata = remote.get("Metadata")
        self.assertEqual(metadata["mpris:length"], 60 * SECOND)
        self.assertEqual(metadata["xesam:url"], (self.takes / "R0001.WAV").as_uri())
        self.assertTrue(GLib.Variant.is_object_path(metadata["mpris:trackid"]))
        self.assertNotEqual(metadata["mpris:trackid"], NO_TRACK)
        can = ("CanPlay", "CanPause", "CanSeek")
        for name in can:
            remote.wait_told(name, True)
        (self.takes / "X1.WAV").write_bytes(b"x")  # no recording
        remote.do("OpenUri", "(s)", (self.takes / "X1.WAV").as_uri())
        for name in can:
            remote.wait_told(name, False)
        remote.wait_told("PlaybackStatus", "Stopped")
        remote.wait_told("Metadata", {"mpris:trackid": NO_TRACK})

    def test_play_pause_and_stop(self):
        remote = self.open_first()
        remote.do("Pause")
        remote.wait_told("PlaybackStatus", "Paused")
        remote.do("Pause")
        self.assertEqual(remote.get("PlaybackStatus"), "Paused")
        remote.do("PlayPause")
        remote.wait_told("PlaybackStatus", "Playing")
        remote.do("Play")
        self.assertEqual(remote.get("PlaybackStatus"), "Playing")
        remote.set("Rate", 2)  # there is one rate
        self.assertEqual(remote.get("PlaybackStatus"), "Playing")
        remote.set("Rate", 0)
        remote.wait_told("PlaybackStatus", "Paused")
        self.assertEqual(remote.get("Rate"), 1)
        remote.do("Stop")
        remote.wait_told("PlaybackStatus", "Stopped")
        self.assertLess(remote.get("Position"), SECOND // 1000)
        remote.do("Play")
        remote.wait_told("PlaybackStatus", "Playing")

    def test_next_and_previous(self):
        remote = self.open_first()
        first = remote.get("Metadata")["mpris:trackid"]
        self.assertFalse(remote.get("CanGoPrevious"))
        remote.do("Next")
        remote.wait_told("CanGoPrevious", True)
        remote.wait_told("CanGoNext", False)
        self.assertIn("R0002", self.title(remote))
        self.assertNotEqual(remote.get("Metadata")["mpris:trackid"], first)
        remote.do("Next")  # there is none
        self.assertIn("R0002", self.title(remote))
        remote.do("Previous")
        remote.wait_told("CanGoNext", True)
        self.assertIn("R0001", self.title(remote))

    def test_jumps_are_told_with_their_place(self):
        remote = self.open_first()
        remote.do("Pause")
        remote.wait_told("PlaybackStatus", "Paused")
        track = remote.get("Metadata")["mpris:trackid"]
        remote.do("SetPosition", "(ox)", track, 30 * SECOND)
        self.assertAlmostEqual(remote.wait_jump(), 30 * SECOND, delta=1000)
        self.assertAlmostEqual(remote.get("Position"), 30 * SECOND, delta=1000)
        remote.do("Seek", "(x)", -10 * SECOND)
        self.assertAlmostEqual(remote.wait_jump(), 20 * SECOND, delta=1000)
        remote.do("Seek", "(x)", -100 * SECOND)
        self.assertAlmostEqual(remote.wait_jump(), 0, delta=1000)
        # The window shows them, also during a pause, and goes on from there.
        self.playerctl("position", "30")
        remote.wait_jump()
        self.program_.wait_label("00:00:30")
        for name in ("Position", "Waveform"):
            slider = self.program_.find("slider", name)
            self.program_.wait(lambda: abs(slider.value - 30) < 0.1, name)
        self.program_.key("Right")
        self.assertAlmostEqual(remote.wait_jump(), 31 * SECOND, delta=SECOND // 10)

    def test_jumps_of_the_window_and_the_end_are_told(self):
        remote = self.open_first()
        program = self.program_
        remote.do("Pause")
        remote.wait_told("PlaybackStatus", "Paused")
        place = remote.get("Position")
        program.key("Right")
        self.assertAlmostEqual(remote.wait_jump(), place + SECOND, delta=SECOND // 2)
        program.find("slider", "Waveform").click(x=0.5)
        self.assertAlmostEqual(remote.wait_jump(), 30 * SECOND, delta=SECOND)
        program.find("slider", "Position").click(x=0.25)
        self.assertAlmostEqual(remote.wait_jump(), 15 * SECOND, delta=2 * SECOND)
        remote.hear()
        self.assertEqual(remote.jumps, [], "one jump, one signal")
        track = remote.get("Metadata")["mpris:trackid"]
        remote.do("SetPosition", "(ox)", track, 60 * SECOND - 1)
        self.assertAlmostEqual(remote.wait_jump(), 60 * SECOND, delta=1000)
        remote.do("Play")
        self.assertEqual(remote.wait_jump(), 0)  # the end leads back to the beginning
        remote.wait_told("PlaybackStatus", "Stopped")

    def test_jumps_that_are_not_meant(self):
        remote = self.open_first()
        remote.do("Pause")
        remote.wait_told("PlaybackStatus", "Paused")
        before = remote.get("Position")
        track = remote.get("Metadata")["mpris:trackid"]
        remote.do("SetPosition", "(ox)", "/somebody/elses", 30 * SECOND)
        remote.do("SetPosition", "(ox)", track, 61 * SECOND)
        remote.do("SetPosition", "(ox)", track, -1)
        self.assertEqual(remote.get("Position"), before)
        remote.hear()
        self.assertEqual(remote.jumps, [])

    def test_a_seek_beyond_the_end_is_the_next_take(self):
        remote = self.open_first()
        track = remote.get("Metadata")["mpris:trackid"]
        remote.do("SetPosition", "(ox)", track, 30 * SECOND)
        remote.do("Seek", "(x)", (1 << 63) - 1)
        remote.wait_told("CanGoPrevious", True)
        self.assertIn("R0002", self.title(remote))

    def test_the_turns_of_a_loop_are_jumps(self):
        remote = self.open_first()
        remote.do("Pause")
        remote.wait_told("PlaybackStatus", "Paused")
        track = remote.get("Metadata")["mpris:trackid"]
        remote.do("SetPosition", "(ox)", track, 10 * SECOND)
        self.assertAlmostEqual(remote.wait_jump(), 10 * SECOND, delta=1000)
        wave = self.program_.find("slider", "Waveform")
        self.program_.wait(lambda: abs(wave.value - 10) < 0.001, "the place of A")
        self.program_.key("l", "Right", "l")
        self.assertAlmostEqual(remote.wait_jump(), 11 * SECOND, delta=1000)
        self.assertAlmostEqual(remote.wait_jump(), 10 * SECOND, delta=1000)
        remote.do("Play")
        for turn in range(2):
            self.assertAlmostEqual(remote.wait_jump(), 10 * SECOND, delta=SECOND // 5, msg=turn)
        self.assertEqual(remote.jumps, [])

    def test_volume_both_ways(self):
        remote = self.open_first()
        slider = self.program_.find("slider", "Volume")
        self.assertAlmostEqual(remote.get("Volume"), 0.5)
        remote.set("Volume", 0.25)
        remote.wait_told("Volume", 0.25)
        self.program_.wait(lambda: abs(slider.value - 0.25) < 0.01, "the slider")
        remote.set("Volume", 7)
        remote.wait_told("Volume", 1.0)
        slider.value = 0.5
        remote.wait_told("Volume", 0.5)

    def test_an_address_is_opened(self):
        inner = self.home / "a folder ü"
        inner.mkdir()
        remote = self.open_first()
        first = remote.get("Metadata")["mpris:trackid"]
        address = self.take("R0003.WAV", folder=inner).as_uri()
        for wrong in ("http://mixdeck.example/R0001.WAV", "R0002.WAV", str(self.takes / "R0002.WAV")):
            with self.assertRaisesRegex(GLib.Error, "InvalidArgs.*Not a file on this machine"):
                remote.do("OpenUri", "(s)", wrong)
        for gone in (self.takes / "R0009.WAV", inner):
            with self.assertRaisesRegex(GLib.Error, "FileNotFound"):
                remote.do("OpenUri", "(s)", gone.as_uri())
        self.assertEqual(remote.get("Metadata")["mpris:trackid"], first)
        self.assertEqual(self.files(self.program_), ["R0001.WAV", "R0002.WAV"])
        remote.do("OpenUri", "(s)", address)
        self.wait_files(self.program_, "R0003.WAV")
        self.program_.wait(lambda: remote.get("Metadata").get("xesam:url") == address, "the take")
        told = self.playerctl("open", "http://mixdeck.example/x")
        self.assertIn("Not a file on this machine", told)
        self.assertEqual(remote.get("Metadata")["xesam:url"], address)
        self.playerctl("open", str(self.takes / "R0002.WAV"))
        self.wait_files(self.program_, "R0001.WAV", "R0002.WAV")
        self.program_.wait(lambda: "R0002" in self.title(remote), "the take")

    def test_playerctl(self):
        remote = self.open_first()
        self.playerctl("pause")
        remote.wait_told("PlaybackStatus", "Paused")
        self.assertEqual(self.playerctl("status"), "Paused")
        self.assertEqual(self.playerctl("metadata", "mpris:length"), str(60 * SECOND))
        self.playerctl("position", "30")
        self.assertAlmostEqual(remote.wait_jump(), 30 * SECOND, delta=1000)
        self.playerctl("position", "10-")
        self.assertAlmostEqual(remote.wait_jump(), 20 * SECOND, delta=1000)
        self.assertAlmostEqual(float(self.playerctl("position")), 20, delta=0.001)
        self.playerctl("volume", "0.25")
        remote.wait_told("Volume", 0.25)
        self.assertEqual(float(self.playerctl("volume")), 0.25)
        self.playerctl("play")
        remote.wait_told("PlaybackStatus", "Playing")
        self.playerctl("stop")
        remote.wait_told("PlaybackStatus", "Stopped")
        self.playerctl("next")
        remote.wait_told("CanGoNext", False)
        self.assertIn("R0002", self.playerctl("metadata", "xesam:title"))
        self.playerctl("previous")
        remote.wait_told("CanGoPrevious", False)
        self.assertIn("R0001", self.playerctl("metadata", "xesam:title"))

    def in_front(self):
        """The process whose window is active."""
        return self.desktop.run("xdotool", "getactivewindow", "getwindowpid").strip()

    def test_two_windows_have_two_names_and_are_raised_by_them(self):
        first = self.start()
        remote = self.remote()
        second = self.start()
        wait_for(lambda: any(name.startswith(f"{NAME}.instance") for name in remote.names()),
                 "the other's name")
        wait_for(lambda: self.in_front() == str(second.process.pid), "the second in front")
        remote.do("Raise", interface=ROOT)
        wait_for(lambda: self.in_front() == str(first.process.pid), "the first in front")

    def test_quit(self):
        program = self.start()
        self.remote().do("Quit", interface=ROOT)
        self.assertEqual(program.wait_end(), 0)

    def test_no_bus_is_no_trouble(self):
        for address in ("", f"unix:path={self.home}/nobody"):
            self.know_introduction()
            own = {"HOME": str(self.home), "DBUS_SESSION_BUS_ADDRESS": address,
                   "QT_QPA_PLATFORM": "offscreen"}
            with subprocess.Popen([WINDOW, str(self.takes)], stderr=subprocess.DEVNULL,
                                  env=self.desktop.environment | self.sound() | own) as window:
                self.addCleanup(window.kill)
                wait_for(lambda: "UD_LAST_OPEN_FOLDER" in self.settings.read_text(), "the folder")
                self.assertIsNone(window.poll())
                window.terminate()


if __name__ == "__main__":
    unittest.main()
