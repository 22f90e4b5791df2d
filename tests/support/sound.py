# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""A sound server of one's own with a null sink, for tests: what is played can be recorded.

Everything lives in a temporary folder, needs no sound hardware, session or particular user, and
ends with the test, also when that is killed. Two kinds: "pulse" (PulseAudio) and "pipewire".
"""

import os
import shutil
import signal
import subprocess
import tempfile
import time
from pathlib import Path

import numpy

RATE = 48000
SINK = "null48"
PATIENCE = 20.0  # seconds that anything may take on a busy machine

DAEMON = """default-sample-format = float32le
default-sample-rate = 48000
alternate-sample-rate = 48000
default-sample-channels = 2
flat-volumes = no
exit-idle-time = -1
enable-shm = no
realtime-scheduling = no
high-priority = no
"""
# Without norewinds the sink renders far ahead and its monitor loses the first milliseconds.
SERVER = """load-module module-native-protocol-unix auth-anonymous=1 socket={socket}
load-module module-null-sink sink_name={sink} format=float32le rate=48000 channels=2 \
channel_map=front-left,front-right norewinds=1
set-default-sink {sink}
set-default-source {sink}.monitor
"""
CLIENT = """autospawn = no
enable-shm = no
cookie-file = {folder}/cookie
"""


def wait_for(condition, what, patience=PATIENCE, pause=0.005):
    """Polls until the condition holds and returns its value; raises after the patience is over."""
    end = time.monotonic() + patience
    while True:
        value = condition()
        if value:
            return value
        if time.monotonic() > end:
            raise TimeoutError(f"waited in vain for {what}")
        time.sleep(pause)


class SoundServer:
    """A private sound server, from `with` to its end."""

    def __init__(self, kind="pulse", sink=True):
        self.kind = kind
        self.has_sink = sink
        self.processes = []
        self.recorders = []

    def __enter__(self):
        self.folder = Path(tempfile.mkdtemp(prefix="mixdeck-sound-"))
        for name in ("home", "state", "run"):
            (self.folder / name).mkdir(mode=0o700)
        socket = self.folder / ("native" if self.kind == "pulse" else "run/pulse/native")
        self.socket = socket
        (self.folder / "daemon.conf").write_text(DAEMON)
        (self.folder / "client.conf").write_text(CLIENT.format(folder=self.folder))
        (self.folder / "server.pa").write_text(SERVER.format(socket=socket, sink=SINK))
        (self.folder / "cookie").write_bytes(os.urandom(256))
        try:
            self.start()
        except BaseException:
            self.__exit__()
            raise
        return self

    def __exit__(self, *_):
        for recorder in list(self.recorders):
            recorder.stop()
        self.stop()
        shutil.rmtree(self.folder, ignore_errors=True)

    @property
    def addresses(self):
        """What leads a program here, and to no other server."""
        return {"PULSE_SERVER": f"unix:{self.socket}",
                "PULSE_CLIENTCONFIG": str(self.folder / "client.conf"),
                "PULSE_COOKIE": str(self.folder / "cookie")}

    @property
    def environment(self):
        """For programs that play or record here."""
        environment = dict(os.environ, SOUND_MONITOR=f"{SINK}.monitor") | self.addresses
        for name in ("PULSE_SINK", "PULSE_SOURCE", "DISPLAY"):
            environment.pop(name, None)
        return environment

    def _server_environment(self):
        home = str(self.folder / "home")
        environment = dict(os.environ, HOME=home, XDG_RUNTIME_DIR=str(self.folder / "run"),
                           XDG_CONFIG_HOME=home, XDG_STATE_HOME=str(self.folder / "state"),
                           DBUS_SESSION_BUS_ADDRESS="disabled:",
                           DBUS_SYSTEM_BUS_ADDRESS="disabled:")
        if self.kind == "pulse":
            environment |= {"PULSE_RUNTIME_PATH": str(self.folder / "run"),
                            "PULSE_STATE_PATH": str(self.folder / "state"),
                            "PULSE_CONFIG": str(self.folder / "daemon.conf")}
        for name in ("DISPLAY", "PULSE_SERVER", "PULSE_SINK", "PULSE_SOURCE"):
            environment.pop(name, None)
        return environment

    def _spawn(self, *command, **changes):
        log = open(self.folder / "server.log", "ab")
        process = subprocess.Popen(["setpriv", "--pdeathsig", "KILL", *command], stdout=log,
                                   stderr=log, stdin=subprocess.DEVNULL,
                                   env=self._server_environment() | changes)
        log.close()
        self.processes.append(process)
        return process

    def start(self):
        """Starts it, or starts it again, and returns when the sink is there."""
        if self.kind == "pulse":
            self._spawn("pulseaudio", "-n", f"--file={self.folder}/server.pa", "--daemonize=no",
                        "--use-pid-file=no", "--log-target=stderr", "--log-level=warning")
        else:
            self._start_pipewire()
        self.server = self.processes[-1]
        wait_for(self._is_ready, "the sound server")
        if self.kind == "pipewire":
            self.pactl("load-module", "module-null-sink", f"sink_name={SINK}", "rate=48000",
                       "channels=2", "format=float32le", "channel_map=front-left,front-right")
            # Refused until its session manager is up.
            wait_for(lambda: self.pactl("set-default-sink", SINK, check=False), "the default sink")
        if self.has_sink:
            wait_for(lambda: SINK in self.pactl("list", "short", "sinks"), "the sink")

    def _start_pipewire(self):
        bus = f"unix:path={self.folder}/run/bus"
        self._spawn("dbus-daemon", "--session", "--nofork", "--nopidfile", f"--address={bus}")
        wait_for((self.folder / "run/bus").exists, "the session bus")
        own = {"DBUS_SESSION_BUS_ADDRESS": bus}
        self._spawn("pipewire", **own)
        wait_for((self.folder / "run/pipewire-0").exists, "PipeWire")
        self._spawn("wireplumber", **own)
        self._spawn("pipewire-pulse", **own)

    def _is_ready(self):
        if self.server.poll() is not None:
            raise RuntimeError(f"the sound server ended:\n{self.log()}")
        return self.socket.exists() and self.pactl("info", check=False)

    def log(self):
        path = self.folder / "server.log"
        return path.read_text(errors="replace") if path.exists() else ""

    def pactl(self, *arguments, check=True):
        done = subprocess.run(["pactl", *arguments], env=self.environment, text=True, timeout=PATIENCE,
                              stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        if done.returncode == 0:
            return done.stdout or "done"
        if check:
            raise RuntimeError(f"pactl {arguments}: {done.stderr}")
        return ""

    def sink_of_stream(self):
        """Name of the sink at which the server shows the one stream; none while there is none."""
        streams = self.pactl("list", "short", "sink-inputs").split()
        sinks = dict(line.split()[:2] for line in self.pactl("list", "short", "sinks").splitlines())
        return sinks.get(streams[1]) if len(streams) > 1 else None

    def move_stream(self, sink):
        """Sends the one stream to another sink and returns when the server shows it there. Servers
        have been seen to accept the wish and not to follow it: they are asked again."""
        def is_moved():
            if self.sink_of_stream() == sink:
                return True
            self.pactl("move-sink-input", self.pactl("list", "short", "sink-inputs").split()[0], sink)
            return False
        wait_for(is_moved, f"the stream at {sink}", pause=0.25)

    def send(self, number):
        """Sends the serving process a signal."""
        self.server.send_signal(number)

    def stop(self, number=signal.SIGTERM):
        """Ends every process of it."""
        for process in reversed(self.processes):
            if process.poll() is None:
                process.send_signal(number)
                process.send_signal(signal.SIGCONT)
        for process in self.processes:
            try:
                process.wait(5)
            except subprocess.TimeoutExpired:
                process.kill()
                process.wait()
        self.processes = []
        for stale in (self.socket, self.folder / "run/pipewire-0", self.folder / "run/bus"):
            stale.unlink(missing_ok=True)

    def record(self, sink=SINK):
        return Recorder(self, sink)


class Recorder:
    """Records the sink's monitor from its making to `stop`."""

    count = 0

    def __init__(self, server, sink=SINK):
        Recorder.count += 1
        self.server = server
        self.path = server.folder / f"recorded-{Recorder.count}.raw"
        self.file = open(self.path, "wb")
        self.process = subprocess.Popen(
            ["setpriv", "--pdeathsig", "KILL", "parec", "-d", f"{sink}.monitor", "--raw",
             "--format=float32le", f"--rate={RATE}", "--channels=2", "--latency-msec=20"],
            stdout=self.file, env=server.environment)
        server.recorders.append(self)
        wait_for(lambda: self.frames > 0, "the recording")

    @property
    def frames(self):
        return self.path.stat().st_size // 8

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.stop()

    def samples(self):
        """What has been recorded so far: frames of two floats."""
        raw = self.path.read_bytes()
        return numpy.frombuffer(raw[:len(raw) // 8 * 8], "<f4").reshape(-1, 2)

    def wait_frames(self, more):
        """Until this many further frames have been recorded."""
        goal = self.frames + more
        wait_for(lambda: self.frames >= goal, "more of the recording")

    def wait_silence(self, frames=RATE // 4):
        """Until the recording ends in that much silence."""
        def is_silent():
            tail = self.samples()[-frames:]
            return len(tail) == frames and not tail.any()
        self.wait_frames(frames)
        wait_for(is_silent, "silence")

    def stop(self):
        if self in self.server.recorders:
            self.server.recorders.remove(self)
            self.process.terminate()
            self.process.wait()
            self.file.close()
        return self
