# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""The window under a Wayland compositor, where windows do not place themselves. There is no pointer
and no keyboard there: everything goes through accessibility."""

import unittest

from window import Case, wait_for


class WaylandTest(Case):
    def setUp(self):
        super().setUp()
        self.socket = self.desktop.folder / "run/wayland-test"
        self.desktop.spawn("weston", "--backend=headless-backend.so", "--width=1400",
                           "--height=900", f"--socket={self.socket.name}", "--no-config")
        wait_for(self.socket.exists, "the compositor")

    def test_it_works(self):
        self.take("R0001.WAV")
        self.take("R0002.WAV")
        program = self.start(self.takes / "R0002.WAV", environment={
            "QT_QPA_PLATFORM": "wayland", "WAYLAND_DISPLAY": self.socket.name, "DISPLAY": ""})
        self.wait_files(program, "R0001.WAV", "R0002.WAV")
        program.wait_label("R0002.WAV")
        self.assertEqual(program.windows()[0].place[2:], (1050, 668))
        program.find("dial", "Stereo width").value = 60
        program.wait_label("60°")
        program.find("push button", "Export").act("Press")
        program.find("dialog", "Export")
        self.assertIn("60°", program.labels())
        program.find("push button", "Save").act("Press")
        panel = program.find("dialog", "Saving checkboard...")
        next(item for item in panel.walk() if item.name == "Save").act("Press")
        self.wait_files(program, "R0001.WAV", "R0002.WAV", "R0002_Decode.WAV")
        program.wait_gone("dialog")
        self.assertEqual(self.selected(program), ["R0002_Decode.WAV"])


if __name__ == "__main__":
    unittest.main()
