# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""What several takes can be exported as, and what goes wrong with some of them, through accessibility."""

import os
import subprocess
import unittest

from window import CLI, Case, noise, wait_for  # first: it knows where the others are
from exported import undated
from gi.repository import Gio, GLib

NAME = "org.freedesktop.FileManager1"
INTERFACE = f"""<node><interface name="{NAME}"><method name="ShowItems">
<arg type="as" direction="in"/><arg type="s" direction="in"/></method></interface></node>"""


class FileManager:
    """A desktop's, on its bus."""

    def __init__(self, address):
        flags = (Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT
                 | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION)
        self.shown = []
        self.bus = Gio.DBusConnection.new_for_address_sync(address, flags, None, None)
        interface = Gio.DBusNodeInfo.new_for_xml(INTERFACE).interfaces[0]
        self.bus.register_object("/org/freedesktop/FileManager1", interface, self._show, None, None)
        self.bus.call_sync("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
                           "RequestName", GLib.Variant("(su)", (NAME, 0)), None, 0, 20000, None)

    def _show(self, *call):
        self.shown += call[5].unpack()[0]
        call[6].return_value(None)

    def wait_shown(self, *files):
        def is_so():
            while GLib.MainContext.default().iteration(False):
                pass
            return self.shown == [file.as_uri() for file in files]
        wait_for(is_so, f"the wish to show {files}")

    def stop(self):
        self.bus.close_sync(None)


class BatchTest(Case):
    def ask(self, program):
        """The dialog for all that is in the list."""
        program.find("list", "Files").click(y=0.9)
        program.key("ctrl+a")
        program.wait(lambda: self.selected(program) == self.files(program), "the selection")
        count = len(self.files(program))
        program.find("push button", f"Export {count}…").act("Press")
        return program.find("dialog", "Export")

    @staticmethod
    def press(dialog, name):
        """Once the dialog offers it: it looks at the takes first."""
        def offered():
            return next((item for item in dialog.walk() if item.role == "push button"
                         and item.name == name and item.has("enabled")), None)
        dialog.program.wait(offered, name).act("Press")

    @staticmethod
    def refused(program):
        listed = program.look("list", "Takes that will not be exported")
        return [] if listed is None else [item.name for item in listed.children()]

    @staticmethod
    def lines(program):
        """Of the queue: what became of each take."""
        return {line.name: line.description for line in program.find("list", "Exports").children()}

    def assert_tools(self, path, take, *options):
        wanted = self.home / "tool.wav"
        subprocess.run([CLI, "export", "--quiet", "--force", "--output", wanted, *options, self.takes / take],
                       check=True)
        self.assertTrue(undated(path.read_bytes()) == undated(wanted.read_bytes()), path.name)

    def hear(self, program, name, width):
        self.open_known(program, name)
        program.find("dial", "Stereo width").value = width
        program.wait(lambda: f"width {width}," in self.remembered(name), f"what is known of {name}")

    def test_each_at_its_width_to_a_loudness_into_a_folder(self):
        out = self.home / "out"
        out.mkdir()
        (out / "R0001_Decode.WAV").write_bytes(b"somebody's")
        for seed in (1, 2):
            self.take(f"R000{seed}.WAV", noise(48000, 24, seed=seed))
        (self.takes / "R0003.WAV").write_bytes(b"RIFF")
        manager = FileManager(self.desktop.address)
        self.addCleanup(manager.stop)
        program = self.start()
        self.hear(program, "R0001.WAV", 75)
        self.hear(program, "R0002.WAV", 30)
        dialog = self.ask(program)
        program.find("check box", "Each at its remembered width and gain").act("Toggle")
        program.wait_label("As remembered, else 30°")
        program.find("check box", "Each to a loudness").act("Toggle")
        loudness = program.find("combo box", "Loudness to aim at")
        next(item for item in loudness.walk() if item.name == "-18 LUFS").act("Press")
        program.wait_label("To -18 LUFS")
        self.give(program, "Folder for the exports", out)
        self.assertTrue(program.find("radio button", "Into a folder").has("checked"))
        program.wait(lambda: len(self.refused(program)) == 2, "what will not be exported")
        taken, broken = self.refused(program)
        self.assertEqual(taken, "R0001.WAV: R0001_Decode.WAV exists")
        self.assertIn("R0003.WAV: Not a WAVE file", broken)
        existing = program.find("combo box", "Where an export exists")
        next(item for item in existing.walk() if item.name == "Number the new one").act("Press")
        program.wait(lambda: self.refused(program) == [broken], "what is numbered")
        self.press(dialog, "Export 2")
        program.wait_label("2 of 2 exported")
        made = [out / "R0001_Decode_2.WAV", out / "R0002_Decode.WAV"]
        self.assertEqual(sorted(out.iterdir()), [out / "R0001_Decode.WAV", *made])
        self.assertEqual((out / "R0001_Decode.WAV").read_bytes(), b"somebody's")
        self.assert_tools(made[0], "R0001.WAV", "--angle", "75", "--loudness", "-18")
        self.assert_tools(made[1], "R0002.WAV", "--angle", "30", "--loudness", "-18")
        self.assertEqual(len(list(self.takes.iterdir())), 3)
        for line in program.find("list", "Exports").children():
            line.click()
            self.press(program.find("dialog", "Exports"), "Show in folder")
            manager.wait_shown(made.pop(0))
            manager.shown.clear()

    def test_one_is_cancelled_and_one_fails_while_the_others_go_on(self):
        for name in ("R0001.WAV", "R0002.WAV"):  # minutes on this medium, on any machine
            self.long_take(name, 12000)
        gone = self.take("R0003.WAV")
        self.take("R0004.WAV", noise(48000, 24))
        program = self.start(environment={"LD_PRELOAD": os.environ["SLOW_READS"],
                                          "MIXDECK_SLOW_FOLDER": str(self.takes.resolve()),
                                          "MIXDECK_SLOW_RATE": "20000000"})
        self.wait_files(program, "R0001.WAV", "R0002.WAV", "R0003.WAV", "R0004.WAV")
        dialog = self.ask(program)
        program.wait(lambda: any(item.name == "Export 4" for item in dialog.walk()), "the plan")
        gone.unlink()
        self.press(dialog, "Export 4")
        panel = program.find("dialog", "Exports")
        program.wait(lambda: "%" in self.lines(program)["R0001.WAV"], "the first to be under way")
        self.cancel(program, panel, "R0001.WAV")
        program.wait(lambda: "%" in self.lines(program)["R0002.WAV"], "the second to be under way")
        bar = program.find("progress bar", "Progress of all")
        done = bar.value
        program.wait(lambda: bar.value > done, "progress")
        self.cancel(program, panel, "R0002.WAV")
        program.wait_label("1 of 4 exported, 1 failed")
        lines = self.lines(program)
        why = lines.pop("R0003.WAV")
        self.assertIn("No such file", why)
        self.assertEqual(lines, {"R0001.WAV": "Cancelled", "R0002.WAV": "Cancelled",
                                 "R0004.WAV": "Exported"})
        program.wait_label("One take was not exported.")
        self.assert_tools(self.takes / "R0004_Decode.WAV", "R0004.WAV", "--angle", "0")
        self.assertEqual(sorted(path.name for path in self.takes.iterdir()),
                         ["R0001.WAV", "R0002.WAV", "R0004.WAV", "R0004_Decode.WAV"])
        self.press(panel, "Close")
        program.wait_gone("dialog")

    def cancel(self, program, panel, name):
        next(line for line in program.find("list", "Exports").children() if line.name == name).click()
        self.press(panel, "Cancel the selected exports")
        program.wait(lambda: self.lines(program)[name] == "Cancelled", f"the end of {name}")


if __name__ == "__main__":
    unittest.main()
