# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""A whole evening with the program: a folder is opened, a take chosen, listened to, turned and made
louder, looped and exported, a setting of the recorder changed. Once by the keyboard alone, once by an
assistive client alone, which is told of what happens by itself."""

import os
import subprocess
import unittest

from window import CLI, SoundingCase, noise  # first: it knows where the others are
from sound import RATE

ANSWER = "LOG GL RECV"  # a line a message from the recorder


class Notes:
    """What an assistive client is told by itself, from its making on."""

    def __init__(self):
        import gi
        gi.require_version("Atspi", "2.0")
        from gi.repository import Atspi, GLib
        self.role = Atspi.Role.NOTIFICATION
        self.context = GLib.MainContext.default()
        self.told = []
        self.listener = Atspi.EventListener.new(self._hear)
        self.listener.register("object:state-changed:showing")

    def _hear(self, event, *_):
        if event.detail1 and event.source.get_role() == self.role:
            self.told.append(event.source.get_name())

    def has(self, text):
        while self.context.pending():
            self.context.iteration(False)
        return any(text in note for note in self.told)

    def stop(self):
        self.listener.deregister("object:state-changed:showing")


class EveningTest(SoundingCase):
    def setUp(self):
        super().setUp()
        self.take("R0001.WAV", noise(12 * RATE, 24))
        (self.takes / "X1.WAV").write_bytes(b"RIFF")

    def begin(self):
        """Where nothing is, with a recorder."""
        program = self.start("--simulate-recorder", self.home / "Desktop")
        program.wait_label("Connected")
        return program

    def expect_exported(self, width, gain):
        """Of the stretch from the first to the third second, in floats, what the tool makes of it."""
        path = self.takes / "R0001_Decode_A-B.WAV"
        whole = self.home / "tool.wav"
        subprocess.run([CLI, "export", "--quiet", "--output", whole, "--angle", str(width), "--gain", str(gain),
                        "--format", "float32", self.takes / "R0001.WAV"], check=True)
        first = 748 + 8 * RATE
        self.assertEqual(path.stat().st_size, 748 + 2 * 8 * RATE)
        self.assertTrue(path.read_bytes()[748:] == whole.read_bytes()[first:first + 2 * 8 * RATE],
                        "every sample")

    @staticmethod
    def choose_battery(program, battery, change):
        answers = program.output().count(ANSWER)
        change()
        program.wait(lambda: battery.description == "Lithium", "the choice")
        program.wait(lambda: program.output().count(ANSWER) > answers, "the recorder's answer")

    def test_by_the_keyboard_alone(self):
        program = self.begin()
        program.key("ctrl+o")
        name = program.find("text", "Name")
        program.wait(lambda: name.has("focused"), "the keyboard in the panel")
        program.type(str(self.takes))
        program.wait(lambda: name.text == str(self.takes), "the name of the folder")
        program.key("Return")
        self.wait_files(program, "R0001.WAV", "X1.WAV")
        program.wait_gone("dialog")
        files = program.find("list", "Files")
        program.wait(lambda: files.has("focused"), "the keyboard in the list")
        program.key("Home")
        program.wait(lambda: self.selected(program) == ["R0001.WAV"], "the selection")
        program.key("Return")
        position = program.find("slider", "Position")
        program.wait(lambda: position.value > 0.1, "what is heard")
        program.key("space")
        program.find("push button", "Play")
        program.key(*["bracketright"] * 8, "Tab", "Up", "Up")
        program.wait_label("40°")
        program.wait_label("+2 dB")
        program.key("Home", "Right", "l", "Right", "Right", "l")
        loop = program.find("check box", "Loop")
        program.wait(lambda: loop.has("checked"), "the loop")
        program.key("ctrl+e")
        program.find("dialog", "Export")
        floats = program.find("radio button", "32-bit Float")
        selection = program.find("check box", "Selection only")
        self.walk_to(program, program.find("radio button", "24-bit Linear"))
        program.key("Down")
        program.wait(lambda: floats.has("checked"), "the format")
        self.walk_to(program, selection)
        program.key("space")
        program.wait(lambda: selection.has("checked"), "the selection")
        program.key("Return")
        program.find("dialog", "Saving checkboard...")
        program.key("Return")
        program.wait_gone("dialog")
        self.wait_files(program, "R0001.WAV", "R0001_Decode_A-B.WAV", "X1.WAV")
        self.expect_exported(40, 2)
        battery = program.find("combo box", "Battery")
        self.walk_to(program, battery)
        self.choose_battery(program, battery, lambda: program.key("Down", "Down"))
        program.key("ctrl+q")
        self.assertEqual(program.wait_end(), 0, program.output())

    def walk_to(self, program, item):
        """By Tab, as long as it takes."""
        for _ in range(30):
            if item.has("focused"):
                return
            before = program.wait(lambda: program.look(state="focused"), "the keyboard")
            program.key("Tab")
            program.wait(lambda: not before.has("focused"), "the next control")
        self.fail(f"Tab does not lead to {item.name}")

    def test_by_an_assistive_client_alone(self):
        os.environ.update(self.desktop.environment)  # the bindings look there
        notes = Notes()
        self.addCleanup(notes.stop)
        program = self.begin()
        program.wait(lambda: notes.has("The recorder is connected."), "the note of the recorder")
        program.find("push button", "Open folder").act("Press")
        program.find("text", "Name").text = str(self.takes)
        program.find("push button", "Choose").act("Press")
        self.wait_files(program, "R0001.WAV", "X1.WAV")
        program.find("list item", "X1.WAV").act("Press")
        program.wait(lambda: notes.has("X1.WAV"), "the note of the error")
        program.find("push button", "Ok").act("Press")
        program.wait_gone("push button", "Ok")
        program.find("list item", "R0001.WAV").act("Press")
        position = program.find("slider", "Position")
        program.wait(lambda: position.value > 0.1, "what is heard")
        program.find("push button", "Pause").act("Press")
        program.find("push button", "Play")
        program.find("dial", "Stereo width").value = 100
        gain = program.find("slider", "Gain")
        for _ in range(2):
            gain.act("Increase")
        program.wait_label("100°")
        program.wait_label("+2 dB")
        loop = program.find("check box", "Loop")
        for place in (1, 3):
            position.value = place
            program.wait_label(f"00:00:0{place}")
            loop.act("Toggle")
        program.wait(lambda: loop.has("checked"), "the loop")
        self.export_by(program)
        program.wait(lambda: notes.has("R0001_Decode_A-B.WAV is exported."), "the note of the export")
        self.expect_exported(100, 2)
        battery = program.find("combo box", "Battery")
        lithium = next(item for item in battery.walk() if item.name == "Lithium")
        self.choose_battery(program, battery, lambda: lithium.act("Press"))
        program.find("push button", "Menu").act("Press")
        program.find("menu item", "Quit").act("Press")
        self.assertEqual(program.wait_end(), 0, program.output())

    def export_by(self, program):
        program.find("push button", "Export").act("Press")
        program.find("dialog", "Export")
        program.find("radio button", "32-bit Float").act("Toggle")
        program.find("check box", "Selection only").act("Toggle")
        program.find("push button", "Save").act("Press")
        panel = program.find("dialog", "Saving checkboard...")
        next(item for item in panel.walk() if item.name == "Save").act("Press")
        program.wait_gone("dialog")


if __name__ == "__main__":
    unittest.main()
