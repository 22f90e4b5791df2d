#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""The device link over a real kernel. Runs inside the guest, from top to bottom, as root.

usage: checks.py [bytes | ump]     the kind of packet that is expected of the link
"""

import ctypes
import datetime
import os
import platform
import sys
import unittest

from harness import (HAS_UMP, PROBE, Program, load_sequencer, numbered, plug, probe, recorder,
                     until, usb, usb_recorder, without_end)
from tool_checks import T4Tool  # noqa: F401  (found by unittest)

NODE = "/dev/snd/seq"

# The requests of a handshake, and the step in which the link waits for their answers.
STEPS = {"identity": 2, "start": 4, "version": 6, "card": 8, "battery": 10, "auto-power-off": 12,
         "date-time": 14}
RECORD = {"firmware": "1.02", "battery": 0, "auto_power_off": 1, "card": 1, "used": "7.45 GB",
          "capacity": "29.7 GB", "remaining": [5, 12, 33]}


def is_good(line):
    return line["record"]["firmware"] == "1.02"


class Link(unittest.TestCase):
    """What holds whatever the recorder hangs on; `plug` and `unplug` are the cable's."""

    def connects(self):
        self.link.wait(event="connected")
        return self.link.wait(event="record", where=is_good)["record"]

    def says(self, line):
        self.link.skip()
        self.recorder.skip()
        self.recorder.say(line)

    def go_wrong(self, fault):
        for request in STEPS:
            self.recorder.say(f"{fault}@{request}")

    def check_settings(self):
        for what, code in (("battery", 2), ("auto-power-off", 3), ("battery", 0), ("auto-power-off", 1)):
            self.link.skip()
            self.recorder.skip()
            self.link.say(f"{what} {code}")
            self.link.wait(event="acknowledged", what=what)
            request = self.recorder.wait(request=f"set-{what}")
            self.assertEqual(request["bytes"].split()[6], f"{code:02X}")

    def check_reports(self):
        self.recorder.say("no-card")
        self.says("report")
        record = self.link.wait(event="record")["record"]
        self.assertEqual((record["card"], record["used"], record["capacity"]),
                         (0, "-- GB", "-- GB"))
        self.recorder.say("card=1073741824/128000000000")
        self.says("report")
        record = self.link.wait(event="record")["record"]
        self.assertEqual((record["card"], record["used"], record["capacity"]),
                         (1, "1.00 GB", "119 GB"))
        self.recorder.say("card=8000000000/31900000000")

    def check_long_messages(self):
        for length in (600, 15_000):
            message = numbered(length)
            self.says(f"send {message}")
            told = self.link.wait(event="message", length=length - 1)
            self.assertEqual(told["bytes"], without_end(message))
            self.recorder.skip()
            self.link.say(f"send {length}")
            told = self.recorder.wait(**{"from": "program", "length": length})
            self.assertEqual(told["bytes"], message)

    def check_date(self):
        asked = self.recorder.wait(request="date-time")["bytes"].split()
        told = [int(byte, 16) for byte in asked[6:13]]
        now = datetime.datetime.now()
        when = datetime.datetime(told[0] * 100 + told[1], *told[2:])
        self.assertLess(abs((now - when).total_seconds()), 60)


class T1WithoutSequencer(unittest.TestCase):
    def test_is_found_as_soon_as_it_is_there(self):
        link = probe()
        told = link.wait(event="availability")
        self.assertEqual(told["reason"], f"There is no ALSA sequencer here ({NODE}).")
        load_sequencer()
        told = link.wait(event="availability")
        self.assertEqual((told["reason"], told["ump"]), ("", HAS_UMP))
        player = recorder()
        link.wait(event="connected")
        link.wait(event="record", where=is_good)
        player.end()
        self.assertEqual(link.end(), 0)

    def test_permission_that_comes_later_is_enough(self):
        os.chmod(NODE, 0o600)
        link = Program("setpriv", "--reuid=65534", "--clear-groups", PROBE)
        told = link.wait(event="availability")
        self.assertEqual(told["reason"], f"No permission to use the ALSA sequencer ({NODE}).")
        os.chmod(NODE, 0o666)
        self.assertEqual(link.wait(event="availability")["reason"], "")
        link.end()

    def test_the_environment_forces_either_kind(self):
        link = probe(MIXDECK_MIDI="bytes")
        told = link.wait(event="availability")
        self.assertEqual((told["reason"], told["ump"]), ("", False))
        link.end()
        link = probe(MIXDECK_MIDI="ump")
        told = link.wait(event="availability")
        self.assertEqual(told["ump"], HAS_UMP)
        self.assertEqual(told["reason"] == "", HAS_UMP, told["reason"])
        link.end()


class T2Sequencer(Link):
    """A recorder that is a client of the sequencer, in a process of its own."""

    @classmethod
    def setUpClass(cls):
        cls.link = probe()
        # One event of 15,000 bytes is more than fits a client's usual pool.
        cls.recorder = recorder() if HAS_UMP else recorder("--whole")

    @classmethod
    def tearDownClass(cls):
        cls.recorder.end()
        cls.link.end()

    def test_1_handshake(self):
        self.assertEqual(self.link.wait(event="availability")["ump"], HAS_UMP)
        self.assertEqual(self.connects(), RECORD)
        self.check_date()

    def test_2_settings(self):
        self.check_settings()

    def test_3_unsolicited_reports(self):
        self.check_reports()

    def test_4_long_messages_both_ways(self):
        self.check_long_messages()

    def test_5_an_unrelated_client_comes_and_goes(self):
        self.link.skip()
        other = recorder("--name", "Some Keys")
        until("the keys are listed", lambda: self.is_listed("Some Keys"))
        self.assertEqual(self.link.unseen(event="disconnected"), [])
        other.end()
        self.link.wait(event="disconnected")  # any removal ends the link
        other = recorder("--name", "Some Keys")
        self.connects()  # and the recorder is found again
        # Keys that go before the change has settled were never there: nothing would be told.
        until("the keys are listed again", lambda: self.is_listed("Some Keys"))
        other.end()
        self.link.wait(event="disconnected")
        self.connects()  # by itself, as the recorder is still there

    def is_listed(self, name):
        self.link.say("endpoints")
        sources = self.link.wait(event="endpoints")["sources"]
        return any(name in source for source in sources)

    def test_6_unplugged_and_plugged_at_each_step(self):
        self.says("unplug")
        self.link.wait(event="disconnected")
        for request, step in STEPS.items():
            with self.subTest(request):
                self.says(f"disappear@{request}")
                self.recorder.say("plug")
                self.assertEqual(self.link.wait(event="disconnected")["step"], step)
                self.assertEqual(self.link.unseen(event="record"), [])
                self.says("behave")
                self.recorder.say("plug")
                self.assertEqual(self.connects(), RECORD)
                self.says("unplug")
                self.link.wait(event="disconnected")

    def test_7_odd_ways_to_answer(self):
        for fault in ("split", "merged", "interleaved"):
            with self.subTest(fault):
                self.go_wrong(fault)
                self.says("plug")
                self.assertEqual(self.connects(), RECORD)
                self.recorder.say("behave")
                self.says("unplug")
                self.link.wait(event="disconnected")


class T3Usb(Link):
    """An emulated USB-MIDI device, with the simulator at its raw MIDI end."""

    NAME = "J4 TARN"
    IS_UMP = HAS_UMP

    @classmethod
    def setUpClass(cls):
        cls.link = probe()
        cls.link.wait(event="availability")
        # There before the device: a recorder answers from the first moment.
        cls.recorder = usb_recorder(cls.IS_UMP)

    @classmethod
    def tearDownClass(cls):
        cls.recorder.end()
        cls.link.end()

    def plug(self):
        plug(self.NAME, self.IS_UMP)
        self.recorder.wait(event="plugged in")

    def unplug(self):
        usb("unplug")
        self.recorder.wait(event="pulled out")

    def test_1_handshake(self):
        self.plug()
        self.assertEqual(self.connects(), RECORD)
        self.check_date()

    def test_2_settings(self):
        self.check_settings()

    def test_3_unsolicited_reports(self):
        self.check_reports()

    def test_4_long_messages_both_ways(self):
        self.check_long_messages()

    def test_5_unplugged_and_plugged_at_each_step(self):
        self.unplug()
        self.link.wait(event="disconnected")
        for request, step in STEPS.items():
            with self.subTest(request):
                self.says(f"silent@{request}")
                self.plug()
                self.recorder.wait(request=request)
                self.unplug()
                self.assertEqual(self.link.wait(event="disconnected")["step"], step)
                self.assertEqual(self.link.unseen(event="record"), [])
                self.says("behave")

    def test_6_odd_ways_to_answer(self):
        for fault in ("split", "merged", "interleaved"):
            with self.subTest(fault):
                self.go_wrong(fault)
                self.plug()
                self.assertEqual(self.connects(), RECORD)
                self.says("behave")
                self.unplug()
                self.link.wait(event="disconnected")

    def test_7_an_unrelated_device_comes_and_goes(self):
        player = recorder()
        self.connects()
        self.link.skip()
        usb("plug", "Some Keys", "16")
        self.link.say("endpoints")
        until("the keys are listed", self.has_keys)
        self.assertEqual(self.link.unseen(event="disconnected"), [])
        usb("unplug")
        self.link.wait(event="disconnected")
        player.say("unplug")
        player.say("plug")
        self.assertEqual(self.connects(), RECORD)
        player.end()
        self.link.wait(event="disconnected")

    def has_keys(self):
        self.link.say("endpoints")
        sources = self.link.wait(event="endpoints")["sources"]
        return sum(source.startswith("Some Keys") for source in sources) == 16


if HAS_UMP:
    class T3UsbOfMidi1(T3Usb):
        """A device that speaks bytes, which the kernel translates."""

        IS_UMP = False


def versions():
    library = ctypes.CDLL("libasound.so.2")
    library.snd_asoundlib_version.restype = ctypes.c_char_p
    alsa = library.snd_asoundlib_version().decode()
    return f"kernel {platform.release()}, alsa-lib {alsa}, {'UMP' if HAS_UMP else 'byte packets'}"


# A test by itself, where the window need not be built.
if "MIXDECK_WINDOW" in os.environ:
    from window_checks import T5Window  # noqa: F401

if __name__ == "__main__":
    print(versions(), flush=True)
    unittest.main(argv=[sys.argv[0], *os.environ.get("MIXDECK_CHECKS", "").split()], verbosity=2,
                  failfast=True)
