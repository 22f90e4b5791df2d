# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""The window beside an audio editor and a player that open the same take, each from its start: for
compare-window. Every program is looked at in the same way, from outside (onlooker.py); the window
alone tells from inside when all of its waveform is painted, because it plays at once and so never
stands still.
"""

import statistics
import subprocess
import sys
import time
from dataclasses import dataclass
from pathlib import Path

from onlooker import Ear, LeftOut, Screen, most_held, started

PATIENCE = 120.0  # seconds
QUIET = 4.0       # that a picture stands still once it is whole
LISTEN = 10.0     # that a program plays before it is asked how much memory it has held
MIB = 1 << 20

# Without the versions it takes them for those of a release long ago, and puts a page in front that
# catches the key.
EDITOR_SETTINGS = """NewPrefsInitialized=1
PrefsVersion=1.1.1r1
[Version]
Major=3
Minor=2
Micro=4
[Locale]
Language=en
[GUI]
ShowSplashScreen=0
[AudioIO]
Host=ALSA
PlaybackDevice=ALSA: default
[Directories]
TempDir={temporary}
[Directories/Open]
Default={temporary}
[Update]
DefaultUpdatesChecking=0
UpdateNoticeShown=1
"""


@dataclass
class Opened:
    """Seconds from the start of a program, and bytes; none of what it does not do."""

    sound: float
    whole: float | None
    held: int


class Beside:
    """Where the programs meet: one screen, one sound server, one take."""

    def __init__(self, screen, server, environment, home):
        self.screen = screen
        self.server = server
        self.environment = environment | {"DISPLAY": screen.name}
        self.home = home
        self.count = 0

    def fresh(self):
        """For a program that finds nothing that it has kept of the take."""
        self.count += 1
        cache = self.home / f"cache {self.count}"
        cache.mkdir()
        return self.environment | {"XDG_CACHE_HOME": str(cache)}

    def play(self, *command):
        """A program that plays what it is started with."""
        with Ear(self.server) as ear, started(self.fresh(), *command) as (process, begun):
            sound = ear.wait(PATIENCE) - begun
            time.sleep(LISTEN)
            return Opened(sound, None, most_held(process))

    def edit(self, key, *command):
        """The editor, which shows what it is started with, and plays it after a key."""
        environment = self.fresh()
        # A home of its own: what it leaves when it is ended it would offer to save first.
        home = Path(environment["XDG_CACHE_HOME"])
        prepare_editor(home)
        environment |= {"HOME": str(home), "XDG_CONFIG_HOME": str(home), "XDG_DATA_HOME": str(home)}
        with Ear(self.server) as ear, started(environment, *command) as (process, begun):
            whole = self.screen.still_since(QUIET, PATIENCE) - begun
            pressed = time.monotonic()
            self.screen.run("xdotool", "key", key)
            sound = ear.wait(PATIENCE) - pressed
            time.sleep(LISTEN)
            return Opened(whole + sound, whole, most_held(process))


def prepare_editor(home):
    """Settings that ask nothing at the first start, and lead to the sound server."""
    temporary, settings = home / "editing", home / "audacity"
    temporary.mkdir()
    settings.mkdir()
    (settings / "audacity.cfg").write_text(EDITOR_SETTINGS.format(temporary=temporary))
    (home / ".asoundrc").write_text("pcm.!default pulse\nctl.!default pulse\n")


def version(package):
    done = subprocess.run(["dpkg-query", "-W", "-f", "${Version}", package], text=True,
                          stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
    return f"{package} {done.stdout.partition('-')[0].partition('+')[0]}".strip()


def median(found):
    whole = [one.whole for one in found if one.whole is not None]
    return Opened(statistics.median(one.sound for one in found),
                  statistics.median(whole) if whole else None, max(one.held for one in found))


def measure(works, runs):
    """Medians by name, of runs that take turns; and by name why a program was left out."""
    found, left_out = {name: [] for name in works}, {}
    for _ in range(runs):
        for name, work in works.items():
            if name in left_out:
                continue
            print(name, file=sys.stderr, flush=True)
            try:
                found[name].append(work())
            except LeftOut as reason:
                left_out[name] = str(reason)
    return {name: median(one) for name, one in found.items() if name not in left_out}, left_out


def beside(runs, server, environment, home, window, start_to_waveform, take):
    """What `measure` returns. `start_to_waveform` is told an environment and returns seconds from
    the start of the program until it has painted all of the waveform."""
    with Screen() as screen:
        place = Beside(screen, server, environment, home)

        def own():
            opened = place.play(str(window), str(take))
            opened.whole = start_to_waveform(place.fresh())
            return opened

        return measure({
            "mixdeck": own,
            version("audacity"): lambda: place.edit("space", "audacity", str(take)),
            version("mpv"): lambda: place.play("mpv", "--no-config", "--no-video", str(take)),
        }, runs)


def report(found, left_out):
    print("| program | to sound | to the whole waveform | most memory |\n|---|---|---|---|")
    for name, opened in found.items():
        whole = "shows none" if opened.whole is None else f"{opened.whole:.2f} s"
        print(f"| {name} | {opened.sound:.2f} s | {whole} | {opened.held / MIB:.0f} MiB |")
    for name, reason in left_out.items():
        print(f"| {name} | left out: {reason} | | |")
