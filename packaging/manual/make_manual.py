#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""usage: make_manual.py PROGRAM FOLDER

Writes the manual page of a program and what bash, zsh and fish complete for it, from what the program
tells of its own options: FOLDER/NAME.1, NAME.bash, _NAME and NAME.fish.
"""

import sys
from pathlib import Path

from bash_completion import bash_completion
from fish_completion import fish_completion
from man_page import man_page
from words import words_of
from zsh_completion import zsh_completion


def main(program, folder):
    words = words_of(program)
    folder = Path(folder)
    folder.mkdir(parents=True, exist_ok=True)
    for name, text in ((f"{words.name}.1", man_page(words)),
                       (f"{words.name}.bash", bash_completion(words)),
                       (f"_{words.name}", zsh_completion(words)),
                       (f"{words.name}.fish", fish_completion(words))):
        (folder / name).write_text(text, "utf-8")


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
