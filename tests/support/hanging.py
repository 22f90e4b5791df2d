# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""A medium that does not answer, for a program that is started with HANGING_CALLS preloaded: the
other side of HangingCalls.cpp.
"""

import mmap
import os
import struct

KINDS = ("open", "read", "write", "stat", "space", "list", "rename", "sync", "lock", "close",
         "attribute")
HANG = 30  # seconds
WORD = struct.Struct("<I")
ROUND = struct.Struct("<Q")
ROUND_AT = -(-3 * WORD.size * len(KINDS) // ROUND.size) * ROUND.size  # a multiple of eight
PATH_AT = ROUND_AT + ROUND.size
PATH = 256


class HangingMedium:
    """Everything under `folder`, as the programs with its environment see it."""

    def __init__(self, folder, board):
        self.folder = folder
        self.path = board
        board.write_bytes(bytes(mmap.PAGESIZE))
        with open(board, "r+b") as file:
            self.board = mmap.mmap(file.fileno(), mmap.PAGESIZE)

    @property
    def environment(self):
        return {"LD_PRELOAD": os.environ["HANGING_CALLS"], "MIXDECK_HANG_FOLDER": str(self.folder),
                "MIXDECK_HANG_BOARD": str(self.path)}

    def hang(self, *kinds):
        """From now on calls of these kinds hang, and no others."""
        for number, kind in enumerate(KINDS):
            WORD.pack_into(self.board, WORD.size * number, kind in kinds)

    def _counts(self, table):
        at = table * WORD.size * len(KINDS)
        return {kind: WORD.unpack_from(self.board, at + WORD.size * number)[0]
                for number, kind in enumerate(KINDS)}

    def calls(self):
        """How many calls hung, a kind."""
        return self._counts(1)

    def main_calls(self):
        """The same of the thread that answers to the user."""
        return self._counts(2)

    def last_main(self):
        """What the last of these was about."""
        return self.board[PATH_AT:PATH_AT + PATH].split(b"\0")[0].decode(errors="replace")

    def forget_rounds(self):
        ROUND.pack_into(self.board, ROUND_AT, 0)

    def longest_round(self):
        """Seconds that the main thread was away from its event loop at most."""
        return ROUND.unpack_from(self.board, ROUND_AT)[0] / 1e9
