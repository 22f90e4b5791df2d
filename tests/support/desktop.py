# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""A desktop of one's own, for tests: an X server without a screen, a window manager, a session bus
with accessibility; and hands and eyes that use a program from outside.

Everything lives in a temporary folder, needs no display, session or particular user, and ends with
the test, also when that is killed. Runs under Debian's python3, which has the bindings.
"""

import os
import shutil
import signal
import subprocess
import tempfile
import time
from pathlib import Path

from sound import wait_for

OPENBOX = """<?xml version="1.0" encoding="UTF-8"?>
<openbox_config xmlns="http://openbox.org/3.4/rc">
  <focus><focusNew>yes</focusNew><followMouse>no</followMouse></focus>
  <placement><policy>Smart</policy></placement>
  <theme><name>Clearlooks</name><titleLayout>NLIMC</titleLayout></theme>
  <desktops><number>1</number></desktops>
  <keyboard><keybind key="A-F4"><action name="Close"/></keybind></keyboard>
  <mouse>
    <context name="Client">
      <mousebind button="Left" action="Press"><action name="Focus"/><action name="Raise"/></mousebind>
    </context>
  </mouse>
</openbox_config>
"""
SERVICE = "MIXDECK_DESKTOP"  # marks what a desktop started, and what that started in turn


class Desktop:
    """A private desktop, from `with` to its end."""

    def __init__(self, size=(1400, 900), scale=1):
        self.size = size
        self.scale = scale
        self.display = ":"  # none yet
        self.processes = []

    def __enter__(self):
        self.folder = Path(tempfile.mkdtemp(prefix="mixdeck-desktop-"))
        for name in ("home", "run"):
            (self.folder / name).mkdir(mode=0o700)
        try:
            self._start()
        except BaseException:
            self.__exit__()
            raise
        return self

    def __exit__(self, *_):
        for process in reversed(self.processes):
            process.terminate()
        for process in self.processes:
            process.wait()
        wait_for(lambda: not self._signal_services(signal.SIGTERM), "the end of the desktop")
        shutil.rmtree(self.folder, ignore_errors=True)

    def _start(self):
        bus = self.folder / "run/bus"
        self.address = f"unix:path={bus}"
        self._start_display()  # first: what the bus starts wants to know the display
        self.spawn("dbus-daemon", "--session", "--nofork", "--nopidfile",
                    f"--address={self.address}")
        wait_for(bus.exists, "the session bus")
        (self.folder / "openbox.xml").write_text(OPENBOX)
        self.spawn("openbox", "--sm-disable", "--config-file", f"{self.folder}/openbox.xml")
        wait_for(lambda: "window id" in self.run("xprop", "-root", "_NET_SUPPORTING_WM_CHECK"),
                 "the window manager")
        self._start_accessibility()

    def _start_display(self):
        reading, writing = os.pipe()
        width, height = (side * self.scale for side in self.size)
        self.spawn("Xvfb", "-displayfd", str(writing), "-screen", "0", f"{width}x{height}x24",
                    "-dpi", "96", "-nolisten", "tcp", "-noreset", keep=writing)
        os.close(writing)
        with os.fdopen(reading) as pipe:
            self.display = ":" + pipe.readline().strip()

    def _start_accessibility(self):
        ask = ("dbus-send", "--session", "--print-reply", "--dest=org.a11y.Bus", "/org/a11y/bus")
        wait_for(lambda: "unix:" in self.run(*ask, "org.a11y.Bus.GetAddress"),
                 "the accessibility bus")
        self.run(*ask, "org.freedesktop.DBus.Properties.Set", "string:org.a11y.Status",
                 "string:IsEnabled", "variant:boolean:true")

    @property
    def environment(self):
        """For programs that are to appear here; their home is the desktop's."""
        environment = dict(os.environ)
        for name in ("WAYLAND_DISPLAY", "XAUTHORITY", "AT_SPI_BUS_ADDRESS", "NO_AT_BRIDGE",
                     "XDG_CURRENT_DESKTOP", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME"):
            environment.pop(name, None)
        return environment | {
            "HOME": str(self.folder / "home"), "XDG_RUNTIME_DIR": str(self.folder / "run"),
            "DBUS_SESSION_BUS_ADDRESS": self.address, "DISPLAY": self.display,
            "GSETTINGS_BACKEND": "memory", "LC_ALL": "C.UTF-8", "ATSPI_NO_CACHE": "1",
            "QT_QPA_PLATFORM": "xcb", "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1",
            "QT_SCALE_FACTOR": str(self.scale)}

    def spawn(self, *command, keep=None):
        """Starts a service that ends with the desktop."""
        with open(self.folder / "services.log", "ab") as log:
            process = subprocess.Popen(
                ["setpriv", "--pdeathsig", "KILL", *command], stdin=subprocess.DEVNULL, stdout=log,
                stderr=log, env=self.environment | {SERVICE: str(self.folder)},
                pass_fds=[] if keep is None else [keep])
        self.processes.append(process)
        return process

    def _signal_services(self, number):
        """The bus starts services of its own; they carry its mark."""
        mark = f"{SERVICE}={self.folder}".encode()
        found = []
        for entry in Path("/proc").iterdir():
            try:
                if entry.name.isdigit() and mark in (entry / "environ").read_bytes().split(b"\0"):
                    os.kill(int(entry.name), number)
                    found.append(entry.name)
            except OSError:
                pass  # ended meanwhile, or another user's
        return found

    def run(self, *command):
        """Runs a small tool here and returns what it prints, whether it succeeds or not."""
        done = subprocess.run(command, env=self.environment, stdout=subprocess.PIPE,
                              stderr=subprocess.STDOUT, text=True, timeout=20)
        return done.stdout

    def picture(self, path, *options):
        """Writes the whole screen as a PNG."""
        subprocess.run(["import", "-window", "root", *options, str(path)], env=self.environment,
                       check=True, timeout=30)


class Item:
    """One thing in the accessibility tree, and what a user may do to it."""

    def __init__(self, program, accessible):
        self.program = program
        self.accessible = accessible

    @property
    def name(self):
        return self.accessible.get_name()

    @property
    def description(self):
        return self.accessible.get_description()

    @property
    def role(self):
        """As older releases of the service and the toolkit call it."""
        name = self.accessible.get_role_name()
        return "push button" if name in ("button", "push button menu") else name

    @property
    def value(self):
        return self.accessible.get_value_iface().get_current_value()

    @value.setter
    def value(self, value):
        self.accessible.get_value_iface().set_current_value(value)

    @property
    def highest(self):
        return self.accessible.get_value_iface().get_maximum_value()

    @property
    def text(self):
        from gi.repository import Atspi  # newer releases have another get_text in front of this one
        iface = self.accessible.get_text_iface()
        return Atspi.Text.get_text(iface, 0, Atspi.Text.get_character_count(iface))

    @text.setter
    def text(self, text):
        self.accessible.get_editable_text_iface().set_text_contents(text)

    def has(self, state):
        """Whether it is "enabled", "checked", "focused", "showing", "selected" ..."""
        from gi.repository import Atspi
        return self.accessible.get_state_set().contains(getattr(Atspi.StateType, state.upper()))

    @property
    def place(self):
        """x, y, width, height on the screen."""
        from gi.repository import Atspi
        box = self.accessible.get_component_iface().get_extents(Atspi.CoordType.SCREEN)
        scale = self.program.desktop.scale  # the toolkit tells its own pixels
        return tuple(scale * side for side in (box.x, box.y, box.width, box.height))

    def at(self, x=0.5, y=0.5):
        """A point of it on the screen, as shares of its width and height."""
        left, top, width, height = self.place
        return round(left + x * width), round(top + y * height)

    def click(self, x=0.5, y=0.5, times=1):
        self.program.click_at(*self.at(x, y), times=times)

    def double_click(self):
        self.click(times=2)

    def act(self, action):
        """Does what assistive software may ask for, as "Press"."""
        iface = self.accessible.get_action_iface()
        names = [iface.get_action_name(i) for i in range(iface.get_n_actions())]
        iface.do_action(names.index(action))

    def children(self):
        for i in range(self.accessible.get_child_count()):
            child = self.accessible.get_child_at_index(i)
            if child is not None:
                yield Item(self.program, child)

    def walk(self):
        yield self
        for child in self.children():
            yield from child.walk()


class Program:
    """A program on a desktop, from `with` to its end."""

    def __init__(self, desktop, *command, environment=None):
        self.desktop = desktop
        self.command = [str(word) for word in command]
        self.changes = environment or {}

    def __enter__(self):
        return self.start()

    def __exit__(self, *_):
        self.stop()

    def start(self):
        """Starts it and returns when its window is there."""
        os.environ.update(self.desktop.environment)  # the bindings look there
        import gi
        gi.require_version("Atspi", "2.0")
        from gi.repository import Atspi
        self.atspi = Atspi
        self.log = open(self.desktop.folder / "program.log", "w+b")
        self.process = subprocess.Popen(
            ["setpriv", "--pdeathsig", "KILL", *self.command], stdin=subprocess.DEVNULL,
            stdout=self.log, stderr=self.log, env=self.desktop.environment | self.changes)
        try:
            self.root = self.wait(self._find_root, "the program's window")
        except BaseException:
            self.stop()
            raise
        return self

    def stop(self):
        if self.process.poll() is None:
            self.process.terminate()
            try:
                self.process.wait(10)
            except subprocess.TimeoutExpired:
                self.process.kill()
                self.process.wait()
        self.log.close()

    def output(self):
        self.log.flush()
        return (self.desktop.folder / "program.log").read_text(errors="replace")

    def _find_root(self):
        if self.process.poll() is not None:
            raise RuntimeError(f"the program ended:\n{self.output()}")
        registry = self.atspi.get_desktop(0)
        for i in range(registry.get_child_count()):
            application = registry.get_child_at_index(i)
            if (application is not None and application.get_process_id() == self.process.pid
                    and application.get_child_count() > 0):
                return Item(self, application)
        return None

    def wait(self, condition, what):
        """Until the condition holds; a tree that changes under the eyes is looked at again."""
        def holds():
            try:
                return condition()
            except self.atspi_errors():
                return None
        return wait_for(holds, what)

    @staticmethod
    def atspi_errors():
        from gi.repository import GLib
        return (GLib.Error, AttributeError)

    def windows(self):
        return [item for item in self.root.children() if item.has("showing")]

    def look(self, role=None, name=None, state="showing"):
        """The first thing of this role and name that is shown; none where there is none."""
        for window in self.windows():
            for item in window.walk():
                if ((role is None or item.role == role) and (name is None or item.name == name)
                        and item.has(state)):
                    return item
        return None

    def find(self, role=None, name=None):
        """Waits for it."""
        return self.wait(lambda: self.look(role, name), f"{role} {name!r}")

    def wait_gone(self, role=None, name=None):
        self.wait(lambda: self.look(role, name) is None, f"the end of {role} {name!r}")

    def labels(self):
        """All that can be read now."""
        return [item.name for window in self.windows() for item in window.walk()
                if item.role == "label" and item.has("showing")]

    def wait_label(self, text):
        self.wait(lambda: text in self.labels(), f"the text {text!r}")

    def settle(self):
        """Until two looks at the screen, a tenth of a second apart, show the same; what goes on
        moving, as a progress bar, is waited for a second."""
        path = self.desktop.folder / "settling.ppm"
        before = None
        for _ in range(10):
            self.desktop.picture(path)
            if path.read_bytes() == before:
                return
            before = path.read_bytes()
            time.sleep(0.1)

    def hands(self, *arguments):
        subprocess.run(["xdotool", *arguments], env=self.desktop.environment, check=True, timeout=20)

    def click_at(self, x, y, times=1):
        self.hands("mousemove", str(x), str(y), "click", "--repeat", str(times), "--delay", "40", "1")

    def drag(self, start, end):
        """Presses at a point, moves to another in steps, and lets go there."""
        steps = [f"{a + (b - a) * share:.0f}" for share in (0.25, 0.5, 0.75, 1)
                 for a, b in zip(start, end)]
        moves = [word for x, y in zip(steps[::2], steps[1::2])
                 for word in ("mousemove", x, y, "sleep", "0.02")]
        self.hands("mousemove", *map(str, start), "mousedown", "1", *moves, "mouseup", "1")

    def key(self, *keys):
        self.hands("key", *keys)

    def type(self, text):
        self.hands("type", "--delay", "8", text)

    def wait_end(self, patience=20):
        """The exit status."""
        return self.process.wait(patience)
