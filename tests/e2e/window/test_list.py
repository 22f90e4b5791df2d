# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""The list: what assistive software is told of its rows, their menu, their order, typing, and takes that are
dragged from one window to another."""

import json
import subprocess
import time
import unittest

from window import CLI, Case, noise, wait_for  # first: it knows where the others are
from exported import undated

BELLS, OWL, WALK, WOOD = "Bells", "Owl.WAV", "Walk.WAV", "Wood.WAV"


class ListTest(Case):
    def setUp(self):
        super().setUp()
        (self.takes / BELLS).mkdir()
        for seconds, hour, name in ((3, 5, OWL), (1, 6, WALK), (2, 4, WOOD)):
            path = self.take(name, noise(seconds * 48000, 24, seed=seconds))
            path.write_bytes(path.read_bytes().replace(b"03:02:01", b"0%d:02:01" % hour))

    @staticmethod
    def told(program):
        """Of each row, in their order."""
        return {row.name: row.description for row in program.find("list", "Files").children()}

    def menu_of(self, program, name):
        """Opens that of a row with the second button of the pointer; its entries."""
        row = program.find("list item", name)
        row.click()
        program.wait(lambda: self.selected(program) == [name], "the selection")
        program.hands("mousemove", *map(str, row.at()), "click", "3")
        menu = program.find("popup menu", "What is selected")
        return {entry.name: entry.has("enabled") for entry in menu.children() if entry.name}

    def order(self, program, entry):
        program.find("push button", "Menu").act("Press")
        program.find("menu item", "Order of the list").act("ShowMenu")
        program.find("menu item", entry).act("Press")
        program.wait_gone("menu item")

    def test_rows_menu_order_and_typing(self):
        program = self.start()
        self.wait_files(program, BELLS, OWL, WALK, WOOD)
        program.wait(lambda: self.told(program) == {
            BELLS: "Folder", OWL: "Recording, 00:03", WALK: "Recording, 00:01",
            WOOD: "Recording, 00:02"}, "what the rows tell")
        self.order(program, "By recording time")
        self.wait_files(program, BELLS, WOOD, OWL, WALK)
        self.order(program, "By duration")
        self.wait_files(program, BELLS, WALK, WOOD, OWL)
        self.expect_menu(program)
        self.expect_information(program)
        self.expect_export(program)
        self.expect_typing(program)

    def expect_menu(self, program):
        entries = dict.fromkeys(("Open", "Export…", "Show in file manager", "Copy path",
                                 "Information"), True)
        self.assertEqual(self.menu_of(program, BELLS),
                         entries | {"Export…": False, "Information": False})
        program.key("Escape")
        program.wait_gone("popup menu", "What is selected")
        self.assertEqual(self.menu_of(program, WOOD), entries)

    def expect_information(self, program):
        """Of the row whose menu is open, as the tool tells it."""
        program.find("menu item", "Information").act("Press")
        dialog = program.find("dialog", "Information")

        def cells():
            return [item.name for item in dialog.walk() if item.role == "table cell"]
        program.wait(lambda: "Balance" in cells(), "the figures")
        names = cells()
        fields = dict(zip(names[::2], names[1::2]))
        done = subprocess.run([CLI, "measure", "--json", "--angle", "0", self.takes / WOOD],
                              capture_output=True, check=True)
        figures = json.loads(done.stdout)["widths"][0]
        wanted = {"Folder": str(self.takes), "Raw M/S": "yes", "Length": "00:00:02", "Frames": "96000",
                  "data": "576000 bytes at 674", "Originator": "TARN J4",
                  "OriginationTime": "04:02:01", "CodingHistory": "A=PCM,T=J4;MSRAW=ON",
                  "Integrated loudness": f"{figures['integrated_lufs']:.2f} LUFS",
                  "True peak": f"{figures['true_peak_dbtp']:.2f} dBTP"}
        self.assertEqual({name: fields.get(name) for name in wanted}, wanted)
        program.find("push button", "Close").act("Press")
        program.wait_gone("dialog")

    def expect_export(self, program):
        """From the menu, and the check mark that its take has then."""
        self.menu_of(program, WALK)
        program.find("menu item", "Export…").act("Press")
        program.find("dialog", "Export")
        ready = program.wait(lambda: program.look("push button", "Export 1"), "the plan")
        ready.act("Press")
        program.wait_label("1 of 1 exported")
        program.wait(lambda: self.told(program)[WALK] == "Recording, 00:01, exported", "the mark")
        self.assertEqual(self.told(program)[WOOD], "Recording, 00:02")
        wanted = self.home / "tool.wav"
        subprocess.run([CLI, "export", "--quiet", "--angle", "0", "--output", wanted,
                        self.takes / WALK], check=True)
        made = self.takes / "Walk_Decode.WAV"
        self.assertTrue(undated(made.read_bytes()) == undated(wanted.read_bytes()), "the same bytes")
        program.find("push button", "Close").act("Press")
        program.wait_gone("dialog")

    def expect_typing(self, program):
        """Letters within a second belong together; on a machine too busy for it they are typed again."""
        for _ in range(20):
            program.find("list item", BELLS).click()
            program.wait(lambda: self.selected(program) == [BELLS], "the selection")
            program.type("wo")
            found = program.wait(lambda: set(self.selected(program)) & {WOOD, OWL}, "what was typed")
            if found == {WOOD}:
                break
            time.sleep(1.1)  # what follows is another word
        self.assertEqual(self.selected(program), [WOOD])
        time.sleep(1.1)
        program.type("k")  # with which no name begins
        program.wait(lambda: self.selected(program) == [WALK], "the name that holds it")

    def test_from_one_window_to_another(self):
        """Without anything between them but the desktop."""
        other = self.start("--simulate-recorder", self.home / "Desktop")  # it is for itself
        program = self.program(self.takes)
        self.wait_files(program, BELLS, OWL, WALK, WOOD)
        self.place(program, 0)
        self.place(other, 340)
        self.menu_of(program, WALK)
        program.find("menu item", "Copy path").act("Press")
        program.wait_gone("menu item")
        self.paste_into(other, str(self.takes / WALK))
        start = program.find("list item", OWL).at(x=0.3)
        end = other.windows()[0].at(x=0.97)  # what is to be seen of it
        for patience in (0.3, 1, 3, 9):  # how long the other one is given to say that it takes it
            self.drag(program, start, end, patience)
            if self.is_opened(other):
                break
        self.wait_files(other, BELLS, OWL, WALK, WOOD)
        self.assertEqual(self.selected(other), [OWL])
        other.wait_label(OWL)
        self.assertNotIn(OWL, program.labels())
        self.assertTrue((self.takes / OWL).exists(), "it was copied, not moved")

    def place(self, program, x):
        """Moves a window, in front of others, and returns when it is there."""
        found = self.desktop.run("xdotool", "search", "--onlyvisible", "--pid", str(program.process.pid))
        window = found.split()[-1]
        program.hands("windowmove", window, str(x), "60", "windowactivate", window)
        program.wait(lambda: abs(program.windows()[0].place[0] - x) < 30, "its place")
        wait_for(lambda: self.desktop.run("xdotool", "getactivewindow").strip() == window, "its front")

    def paste_into(self, program, text):
        program.find("push button", "Open folder").act("Press")
        name = program.find("text", "Name")
        program.wait(lambda: name.has("focused"), "the keyboard")
        program.key("ctrl+v")
        program.wait(lambda: name.text == text, f"{text} in {name.text!r}")
        program.key("Escape")
        program.wait_gone("dialog", "Choose a file")

    @staticmethod
    def drag(program, start, end, patience):
        moves = [word for step in range(1, 9)
                 for word in ("mousemove", *(str(round(a + (b - a) * step / 8))
                                             for a, b in zip(start, end)), "sleep", "0.03")]
        program.hands("mousemove", *map(str, start), "mousedown", "1", *moves,
                      "sleep", str(patience), "mouseup", "1")

    def is_opened(self, program):
        try:
            wait_for(lambda: OWL in program.labels(), "the take", patience=3)
        except TimeoutError:
            return False
        return True


if __name__ == "__main__":
    unittest.main()
