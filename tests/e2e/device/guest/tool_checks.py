# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""The tool's device commands over a real kernel, each in a process of its own."""

import json
import os
import subprocess
import unittest

from harness import BIN, PATIENCE, Program, plug, recorder, usb, usb_recorder

TOOL = os.path.join(BIN, "mixdeck-cli")
RECORD = {"connected": True, "device_id": "10203040", "firmware": "1.02", "sd_present": True,
          "sd_used": "7.45 GB", "sd_capacity": "29.7 GB", "remaining": "05:12:33",
          "battery_type": 0, "auto_power_off": 1, "step": None}


def tool(*words, wait=30):
    """The exit status and the objects that were printed."""
    done = subprocess.run([TOOL, "device", *words, "--json", "--wait", str(wait)],
                          capture_output=True, text=True, timeout=2 * PATIENCE)
    return done.returncode, [json.loads(line) for line in done.stdout.splitlines()]


class T4Tool(unittest.TestCase):
    def test_1_no_recorder(self):
        status, told = tool("status", wait=1)
        self.assertEqual(status, 1)
        self.assertFalse(told[0]["connected"])

    def test_2_a_client_of_the_sequencer(self):
        player = recorder()
        self.assertEqual(tool("status"), (0, [RECORD]))
        status, told = tool("set-battery", "2")
        self.assertEqual((status, told[0]["acknowledged"]), (0, True))
        self.assertEqual(player.wait(request="set-battery")["bytes"], "F0 52 00 00 31 01 02 F7")
        status, told = tool("status")
        self.assertEqual(told[0]["battery_type"], 2)
        player.say("silent@card")
        status, told = tool("status", wait=5)
        self.assertEqual((status, told[0]["step"], told[0]["firmware"]), (1, 8, "1.02"))
        player.end()

    def test_3_a_usb_device(self):
        player = usb_recorder()
        plug("J4 TARN")
        player.wait(event="plugged in")
        self.assertEqual(tool("status"), (0, [RECORD]))
        watch = Program(TOOL, "device", "watch", "--json")
        self.assertEqual(watch.wait(connected=True, step=None)["sd_used"], "7.45 GB")
        player.say("no-card")
        player.say("report")
        self.assertFalse(watch.wait(connected=True, sd_present=False)["sd_used"])
        usb("unplug")
        watch.wait(connected=False)
        watch.interrupt()
        player.end()
