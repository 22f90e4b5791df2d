# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""A card is plugged in and pulled out, where the window looks for cards by itself: what is mounted, in a
list of mounts of the test's own."""

import os
import subprocess
import sys
import unittest

from window import Case

# Root needs no more; whoever is not becomes root of a space of its own, and themselves again in the window.
WAYS = ([["unshare", "--mount"], []],
        [["unshare", "--map-root-user", "--mount"],
         ["unshare", f"--map-user={os.getuid()}", f"--map-group={os.getgid()}"]])
SKIPPED = 77
# What is written to the pipe is done where the window is, and the window's own mounts are seen nowhere else.
INSIDE = 'mount -t tmpfs none /mnt && { sh < "$0" & } && exec "$@"'
OFFER = "The card “J4 CARD” holds recordings. “Copy card…” in the menu brings them home."


def works(way):
    inside = ["sh", "-c", "mount -t tmpfs none /mnt && exec \"$@\"", "sh"]
    return subprocess.run([*way[0], *inside, *way[1], "true"], capture_output=True, check=False).returncode == 0


WAY = next((way for way in WAYS if works(way)), None)


class CardTest(Case):
    def setUp(self):
        super().setUp()
        pipe = self.home / "pipe"
        os.mkfifo(pipe)
        self.hands = os.open(pipe, os.O_RDWR)
        self.addCleanup(os.close, self.hands)
        self.around = [*WAY[0], "sh", "-c", INSIDE, pipe, *WAY[1]]
        self.reader = self.home / "reader"
        self.reader.mkdir()
        self.take("R0001.WAV", folder=self.home)

    def do(self, *lines):
        os.write(self.hands, "".join(f"{line}\n" for line in lines).encode())

    def plug_in(self):
        """All that is on it is there when it is mounted, as of a card."""
        self.do(f'mount -t tmpfs /dev/card "{self.reader}"', f'cp "{self.home}/R0001.WAV" "{self.reader}"',
                'mkdir -p "/mnt/J4 CARD"', f'mount --bind "{self.reader}" "/mnt/J4 CARD"')

    def pull_out(self):
        self.do('umount "/mnt/J4 CARD"', f'umount "{self.reader}"')

    def test_a_card_is_offered_while_it_is_there(self):
        self.know_introduction()
        program = self.program(self.takes, around=self.around)
        self.assertNotIn(OFFER, program.labels())
        self.plug_in()
        program.wait_label(OFFER)
        self.pull_out()
        program.wait(lambda: OFFER not in program.labels(), "that it has gone")
        self.plug_in()
        program.wait_label(OFFER)
        self.choose(program, "Copy card…")
        self.assertEqual(program.find("push button", "Card").description, "/mnt/J4 CARD")
        program.find("push button", "Copy").act("Press")
        program.wait_label("1 take is there and verified")
        self.assertEqual((self.takes / "R0001.WAV").read_bytes(), (self.home / "R0001.WAV").read_bytes())
        self.assertNotIn(OFFER, program.labels())


if __name__ == "__main__":
    if not WAY:
        print("nothing can be mounted here")
        sys.exit(SKIPPED)
    unittest.main()
