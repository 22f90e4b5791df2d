# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""What can be seen and heard of any program from outside, so that programs that tell nothing of
themselves can be compared: when its picture stands still, when sound of it arrives at the server,
how much memory it held.
"""

import contextlib
import os
import shutil
import subprocess
import tempfile
import time
from pathlib import Path

import numpy
from display import Display
from sound import wait_for

LOOK = 0.005  # seconds
KEY_BINDINGS = """<?xml version="1.0" encoding="UTF-8"?>
<openbox_config xmlns="http://openbox.org/3.4/rc">
  <focus><focusNew>yes</focusNew><followMouse>no</followMouse></focus>
</openbox_config>
"""


class LeftOut(Exception):
    """Why a program could not be measured."""


class Screen:
    """A display with a window manager, whose picture is looked at without asking it."""

    def __enter__(self):
        self.stack = contextlib.ExitStack()
        # In memory where there is such a place, so that no disk is kept busy by it.
        shared = "/dev/shm" if os.access("/dev/shm", os.W_OK) else None
        folder = Path(self.stack.enter_context(
            tempfile.TemporaryDirectory(prefix="mixdeck-screen-", dir=shared)))
        display = self.stack.enter_context(Display(folder))
        self.name = display.name
        (folder / "openbox.xml").write_text(KEY_BINDINGS)
        manager = subprocess.Popen(
            ["openbox", "--sm-disable", "--config-file", folder / "openbox.xml"],
            env=dict(os.environ, DISPLAY=self.name), stdout=subprocess.DEVNULL,
            stderr=subprocess.DEVNULL)
        self.stack.callback(end, manager)
        wait_for(lambda: "window id" in self.run("xprop", "-root", "_NET_SUPPORTING_WM_CHECK"),
                 "the window manager")
        file = folder / "Xvfb_screen0"
        header = int.from_bytes(file.read_bytes()[:4], "big")
        self.pixels = numpy.memmap(file, mode="r", offset=header)
        return self

    def __exit__(self, *_):
        del self.pixels
        self.stack.close()

    def run(self, *command):
        return subprocess.run(command, env=dict(os.environ, DISPLAY=self.name), text=True,
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT, timeout=20).stdout

    def still_since(self, quiet, patience):
        """When (monotonic) the picture changed for the last time before it stood still for so many
        seconds; it has changed at least once."""
        seen, changed, end = self.pixels.copy(), None, time.monotonic() + patience
        while changed is None or time.monotonic() < changed + quiet:
            time.sleep(LOOK)
            if not numpy.array_equal(seen, self.pixels):
                seen, changed = self.pixels.copy(), time.monotonic()
            if time.monotonic() > end:
                raise LeftOut(f"its picture did not stand still within {patience:.0f} s")
        return changed


class Ear:
    """At a silent sound server."""

    def __init__(self, server):
        self.recorder = server.record()
        self.recorder.wait_silence()
        self.heard = self.recorder.path.stat().st_size

    def wait(self, patience):
        """When (monotonic) the first sample that is not silence had arrived."""
        end = time.monotonic() + patience
        with open(self.recorder.path, "rb") as file:
            file.seek(self.heard)
            while not any(file.read()):
                if time.monotonic() > end:
                    raise LeftOut(f"nothing of it was heard within {patience:.0f} s")
                time.sleep(LOOK)
        return time.monotonic()

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.recorder.stop()


def end(process):
    process.kill()
    process.wait()


@contextlib.contextmanager
def started(environment, *command):
    """The process, and when (monotonic) it was started."""
    if shutil.which(command[0]) is None:
        raise LeftOut("it is not installed")
    begun = time.monotonic()
    process = subprocess.Popen(command, env=environment, stdin=subprocess.DEVNULL,
                               stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    try:
        yield process, begun
    finally:
        end(process)


def most_held(process):
    """The most memory that it has held so far, in bytes."""
    lines = Path(f"/proc/{process.pid}/status").read_text().splitlines()
    return 1024 * next(int(line.split()[1]) for line in lines if line.startswith("VmHWM"))
