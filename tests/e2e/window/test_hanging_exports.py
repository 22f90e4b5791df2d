# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""Exports from the window while the medium does not answer; see hanging_case.py."""

import subprocess
import unittest

from hanging_case import SAVE_PANEL, HangingCase  # first: it knows where the others are
from exported import LEFT, undated
from hanging import KINDS
from window import CLI

OLD = b"the old file" * 1000


class HangingExportsTest(HangingCase):
    def open_and_pause(self):
        self.open_and_hear()
        self.window.key("space")

    def test_the_dialogs(self):
        self.begin()
        self.open_and_pause()
        self.answer_each("export dialog", self.ask_for_export, lambda: self.close("Export"))

        def show():
            self.press_in(self.dialog("Export"), "Save")

        def go_back():
            self.close(SAVE_PANEL)
            self.close("Export")
            self.ask_for_export()
        self.answer_each("save panel", lambda: self.use_panel(show, SAVE_PANEL, "Bells", "Save"),
                         go_back)

    def ask_to_replace(self):
        self.ask_for_export()
        self.save()
        self.question = self.window.find("push button", "Replace")

    def replace(self, *kinds):
        """The export over a file, which makes every kind of call. It hangs as it begins, and only
        then in calls of these kinds: what comes before it, as the panel, has been answered."""
        before = self.medium.calls()
        self.medium.hang("open")
        self.medium.forget_rounds()
        self.question.act("Press")
        self.wait_export()
        self.medium.hang("open", *kinds)
        self.medium.hang(*kinds)
        kind = kinds[0]
        self.window.wait(lambda: self.medium.calls()[kind] > before[kind], f"a call: {kind}")

    def wait_export(self):
        self.window.find("progress bar", "Progress")

    def is_exporting(self):
        return self.window.look("progress bar", "Progress") is not None

    def test_exporting(self):
        self.begin()
        self.open_and_pause()
        self.ask_for_export()
        self.save()

        def prepare():
            self.window.wait(lambda: self.selected(self.window) == ["R0001_Decode.WAV"], "its end")
            self.window.find("list item", "R0001.WAV").click()
            self.window.wait(lambda: self.selected(self.window) == ["R0001.WAV"], "the take")
            self.ask_to_replace()
        self.answer_each_in("exporting", self.replace, prepare, self.is_exporting)

    def end_export(self, state, *kinds):
        self.window.find("list", "Files").click(y=0.9)  # the key is the window's, not the progress's
        self.assert_ends(state, lambda: self.press("Cancel export and quit"), kinds)

    def test_the_end_of_exporting(self):
        self.begin()
        self.open_and_pause()
        self.ask_for_export()
        self.save("write")
        self.wait_no_dialog(SAVE_PANEL)
        self.window.wait(lambda: self.medium.calls()["write"] > 0, "the export")
        self.assert_answers("exporting, write hanging")
        self.medium.hang(*KINDS)
        self.assert_answers("exporting, all hanging")
        self.wait_export()
        self.end_export("exporting", *KINDS)
        self.assertEqual(self.beside_the_takes(), [], "nothing is left behind")

    def beside_the_takes(self):
        names = {path.name for path in self.takes.iterdir()} - {"Bells", "R0001.WAV", "R0002.WAV"}
        return sorted(names)

    # ---- the end of a replacement: what is there afterwards is whole ----

    def begin_to_replace(self):
        self.medium.hang()
        self.target = self.takes / "R0001_Decode.WAV"
        self.target.write_bytes(OLD)
        self.show_window()
        self.open_and_pause()
        self.ask_to_replace()

    def test_the_end_of_replacing(self):
        """With one kind of call hanging at a time: each is made before the new file has a name."""
        self.make_home()
        for kind in KINDS:
            self.begin_to_replace()
            self.replace(kind)
            self.end_export(f"replacing, {kind} hanging", kind)
            self.assertEqual(self.target.read_bytes(), OLD, kind)
            self.assertEqual(self.beside_the_takes(), [self.target.name], kind)

    def end_once_named(self, kind, is_named):
        """Ends while calls of the kind hang that come after the one that gives the file a name."""
        self.begin_to_replace()
        self.replace("rename")
        self.medium.hang("rename", kind)
        self.medium.hang(kind)
        self.window.wait(is_named, "the new file's name")
        self.end_export(f"replacing, {kind} hanging once the new file has a name", kind)

    def test_the_end_of_replacing_once_the_new_file_has_a_name(self):
        """First a name of its own, which is left behind if the old file cannot be opened; the next
        replacement takes it away. Then that of the old one."""
        self.make_home(self.takes)  # where nothing is renamed but by the export
        tool = self.home / "tool.wav"
        subprocess.run([CLI, "export", "--angle", "0", "--output", tool, self.takes / "R0001.WAV"],
                       check=True, stdout=subprocess.DEVNULL)
        self.end_once_named("open", lambda: len(self.beside_the_takes()) == 2)
        self.assertEqual(self.target.read_bytes(), OLD)
        left, name = self.beside_the_takes()
        self.assertRegex(left, LEFT)
        self.assertEqual(name, self.target.name)
        for kind in ("sync", "close"):
            self.end_once_named(kind, lambda: self.target.stat().st_size != len(OLD))
            self.assertEqual(undated(self.target.read_bytes()), undated(tool.read_bytes()), kind)
            self.assertEqual(self.beside_the_takes(), [self.target.name], kind)


if __name__ == "__main__":
    unittest.main()
