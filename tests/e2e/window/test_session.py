# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""From the card to a take that is known again, through accessibility: takes come home, are verified,
the one that broke off is salvaged, and a width comes back with its take."""

import unittest

from window import Case, noise

NAMES = ("R0001.WAV", "R0002.WAV", "R0003.WAV")


class SessionTest(Case):
    def setUp(self):
        super().setUp()
        self.card = self.home / "card"
        self.card.mkdir()
        for number, name in enumerate(NAMES, 1):
            self.take(name, noise(48000, 24, seed=number), folder=self.card)
        last = self.card / NAMES[2]
        last.write_bytes(self.without_sizes(last.read_bytes()))

    @staticmethod
    def without_sizes(take):
        """As a recording that broke off: they are written in the end."""
        content = bytearray(take)
        for size in (4, content.index(b"data") + 4):
            content[size:size + 4] = bytes(4)
        return content

    @staticmethod
    def close(program, dialog):
        program.find("push button", "Close").act("Press")
        program.wait_gone("dialog", dialog)

    def test_from_the_card_to_a_take_that_is_known_again(self):
        program = self.start()
        self.bring_home(program)
        self.verify(program)
        self.salvage(program)
        self.know_again(program)
        self.choose(program, "Quit")
        self.assertEqual(program.wait_end(), 0, program.output())

    def bring_home(self, program):
        self.choose(program, "Copy card…")
        program.find("dialog", "Copy card")
        self.give(program, "Card", self.card)
        self.give(program, "Into", self.takes)
        program.find("push button", "Copy").act("Press")
        program.wait_label("3 takes are there and verified")
        self.assertEqual([line.name for line in program.find("list", "Takes").children()],
                         [f"{name}: copied and verified" for name in NAMES])
        self.close(program, "Copy card")
        self.wait_files(program, "ascmhl", *NAMES)
        for name in NAMES:
            self.assertTrue((self.takes / name).read_bytes() == (self.card / name).read_bytes(), name)
        self.assertEqual(sorted(path.name for path in self.card.iterdir()), list(NAMES))

    def verify(self, program):
        self.choose(program, "Verify folder…")
        program.find("push button", "Verify").act("Press")
        program.wait_label("3 files are right")
        self.close(program, "Verify folder")

    def salvage(self, program):
        program.find("list item", "R0003.WAV").act("Press")
        salvages = program.find("push button", "Salvage")
        self.assertTrue(any("the data chunk states 0 bytes, the file holds 288000" in text
                            for text in program.labels()), "what was found")
        salvages.act("Press")
        self.wait_files(program, "ascmhl", *NAMES, "R0003_Repaired.WAV")
        program.wait(lambda: self.selected(program) == ["R0003_Repaired.WAV"], "the selection")
        program.wait_label("R0003.WAV is salvaged into R0003_Repaired.WAV.")
        repaired = (self.takes / "R0003_Repaired.WAV").read_bytes()
        self.assertTrue(self.without_sizes(repaired) == (self.card / "R0003.WAV").read_bytes(),
                        "the sizes alone are others")
        self.assertEqual(repaired[4:8], (len(repaired) - 8).to_bytes(4, "little"))
        self.open_known(program, "R0003_Repaired.WAV")
        program.wait_label("00:00:01")

    def know_again(self, program):
        dial = program.find("dial", "Stereo width")
        for name, width in (("R0001.WAV", 75), ("R0002.WAV", 30)):
            self.open_known(program, name)
            dial.value = width
            program.wait_label(f"{width}°")
            program.wait(lambda: f"width {width}," in self.remembered(name), f"what is known of {name}")
        self.open_known(program, "R0001.WAV")
        program.wait_label("75°")
        self.assertEqual(dial.value, 75)


if __name__ == "__main__":
    unittest.main()
