# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""Programs that talk in lines, and conditions to wait for. Used inside the guest.

The guest's processors are emulated: time-outs are long, and nothing is measured here.
"""

import json
import os
import signal
import subprocess
import sys
import threading
import time

BIN = os.environ["MIXDECK_BIN"]
SIMULATOR = os.environ["MIXDECK_RECORDER_SIM"]
PROBE = os.environ["MIXDECK_LINK_PROBE"]
HAS_UMP = sys.argv[1:] == ["ump"]  # the kind of packet that is expected
PATIENCE = 60.0


def until(what, condition, seconds=PATIENCE, pause=0.02):
    """The first true value of `condition`; it fails with `what` after `seconds`."""
    end = time.monotonic() + seconds
    while not (value := condition()):
        if time.monotonic() > end:
            raise AssertionError(f"not in {seconds:.0f} s: {what}")
        time.sleep(pause)
    return value


class Program:
    """A program that prints lines of JSON; `wait` looks at those that it has not gone past yet."""

    def __init__(self, *command, env=None):
        self.name = os.path.basename(command[0])
        self._process = subprocess.Popen(command, stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                         env={**os.environ, **(env or {})}, text=True, bufsize=1)
        self._lines = []
        self._seen = 0
        self._news = threading.Condition()
        self._reader = threading.Thread(target=self._read, daemon=True)
        self._reader.start()

    def _read(self):
        for line in self._process.stdout:
            with self._news:
                self._lines.append(json.loads(line))
                self._news.notify_all()

    def say(self, line):
        self._process.stdin.write(line + "\n")
        self._process.stdin.flush()

    def wait(self, seconds=PATIENCE, where=None, **wanted):
        """The next line with these values, for which `where` holds."""
        end = time.monotonic() + seconds
        with self._news:
            while True:
                while self._seen < len(self._lines):
                    line = self._lines[self._seen]
                    self._seen += 1
                    if _fits(line, wanted) and (where is None or where(line)):
                        return line
                if time.monotonic() > end:
                    raise AssertionError(f"{self.name} told nothing like {wanted} in {seconds:.0f} s;"
                                         f" the last of {len(self._lines)} lines: "
                                         f"{self._lines[-4:]}")
                self._news.wait(max(0.0, end - time.monotonic()))

    def skip(self):
        """Goes past what has been told so far."""
        with self._news:
            self._seen = len(self._lines)

    def unseen(self, **wanted):
        """What was told since the last `wait` or `skip`, without going past it."""
        with self._news:
            return [line for line in self._lines[self._seen:] if _fits(line, wanted)]

    def end(self):
        if self._process.poll() is None:
            self.say("quit")
        return self._ended()

    def interrupt(self):
        self._process.send_signal(signal.SIGINT)
        return self._ended()

    def _ended(self):
        status = self._process.wait(PATIENCE)
        self._reader.join(PATIENCE)
        self._process.stdin.close()
        self._process.stdout.close()
        return status


def _fits(line, wanted):
    return all(line.get(key) == value for key, value in wanted.items())


def probe(**env):
    return Program(PROBE, env=env)


def recorder(*arguments):
    program = Program(SIMULATOR, "--log", *arguments)
    program.wait(event="ready")
    return program


def usb(*words):
    done = subprocess.run(["usb-midi", *words], capture_output=True, text=True, timeout=PATIENCE)
    assert done.returncode == 0, f"usb-midi {words}: {done.stderr}"
    return done.stdout.strip()


def load_sequencer():
    subprocess.run(["modprobe", "-a", "snd-seq", "snd-seq-midi", "snd-hrtimer"], check=True)


def plug(name, is_ump=HAS_UMP):
    """A USB device of one port, of MIDI 2.0 where `is_ump`."""
    usb("plug2" if is_ump else "plug", name)


def next_usb_device(is_ump=HAS_UMP):
    """The file that the far end of the next emulated device will have: its card comes first."""
    with open("/proc/asound/cards", encoding="utf-8") as cards:
        taken = {line.split()[0] for line in cards if line[:3].strip().isdigit()}
    card = next(number for number in range(32) if str(number) not in taken)
    return f"/dev/snd/{'ump' if is_ump else 'midi'}C{card}D0"


def usb_recorder(is_ump=HAS_UMP):
    """A recorder at the far end of the next emulated device."""
    return recorder("--device", next_usb_device(is_ump), *(["--ump"] if is_ump else []))


def numbered(length):
    """F0, the numbers 0 to 126 over and over, F7, as hexadecimal digits."""
    middle = [f"{i % 127:02X}" for i in range(1, length - 1)]
    return " ".join(["F0", *middle, "F7"])


def without_end(message):
    assert message.endswith(" F7")
    return message.removesuffix(" F7")
