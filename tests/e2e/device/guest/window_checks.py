# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""The window's panel over a real kernel, read through accessibility."""

import os
import unittest

from desktop import Desktop, Window
from harness import load_sequencer, plug, usb, usb_recorder

WINDOW = os.environ["MIXDECK_WINDOW"]


class T5Window(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        load_sequencer()
        cls.desktop = Desktop()
        cls.recorder = usb_recorder()
        cls.window = Window(WINDOW, os.environ["HOME"])

    @classmethod
    def tearDownClass(cls):
        cls.window.end()
        cls.recorder.end()
        cls.desktop.end()

    def test_1_without_a_recorder(self):
        self.window.shows("Disconnected", "-- GB / -- GB Used", "--:--:--")

    def test_2_a_recorder_is_plugged_in(self):
        plug("J4 TARN")
        self.window.shows("Connected", "Ver. 1.02", "7.45 GB / 29.7 GB Used", "05:12:33")

    def test_3_reports_come_by_themselves(self):
        self.recorder.say("no-card")
        self.recorder.say("report")
        self.window.shows("Connected", "-- GB / -- GB Used", "--:--:--")

    def test_4_a_recorder_is_pulled_out(self):
        usb("unplug")
        self.window.shows("Disconnected", "-- GB / -- GB Used", "--:--:--")
