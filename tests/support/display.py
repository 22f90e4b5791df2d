# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""A display of one's own and nothing else, for benchmarks; tests have a whole desktop."""

import os
import subprocess


class Display:
    """A display without a screen, from `with` to its end. Its picture lies as `Xvfb_screen0`, in
    the format of xwd, in a folder that is given."""

    def __init__(self, folder=None):
        self.options = [] if folder is None else ["-fbdir", str(folder)]

    def __enter__(self):
        reading, writing = os.pipe()
        self.process = subprocess.Popen(
            ["Xvfb", "-displayfd", str(writing), "-screen", "0", "1400x900x24", "-nolisten", "tcp",
             *self.options], pass_fds=[writing], stderr=subprocess.DEVNULL)
        os.close(writing)
        with os.fdopen(reading) as pipe:
            self.name = ":" + pipe.readline().strip()
        return self

    def __exit__(self, *_):
        self.process.terminate()
        self.process.wait()
