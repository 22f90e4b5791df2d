# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""The window while the medium does not answer: every call about a file of the home folder hangs for
half a minute, one kind of call at a time and all of them.

What is asked for is an answer within 100 ms and an end within a second. A busy machine takes longer
for either, so the verdicts are: the interface thread makes none of the calls; a click is answered
in far less time than a call hangs; and the end comes in far less time than that. The times
themselves are printed.
"""

import time
import unittest

from window import SoundingCase, noise  # first: it knows where the others are
from hanging import HANG, KINDS, HangingMedium
from sound import RATE

FAR_BELOW = HANG / 3


class HangingTest(SoundingCase):
    def begin(self, folder):
        """The program, to which every file of `folder` may hang."""
        (self.takes / "Bells").mkdir()
        self.take("R0001.WAV", noise(RATE * 20, 24))
        self.take("R0002.WAV", noise(RATE, 24))
        self.medium = HangingMedium(folder, self.desktop.folder / f"board-{self.id()}")
        self.window = self.start(environment=self.medium.environment)
        self.addCleanup(self.medium.hang)
        self.wait_files(self.window, "Bells", "R0001.WAV", "R0002.WAV")

    def assert_answers(self, what):
        """A click on the speaker mutes or unmutes at once."""
        took = self.seconds_to_mute(self.window)
        self.assertLess(took, FAR_BELOW, what)
        self.assert_main_thread_is_free(what)
        return took, self.medium.longest_round()

    def assert_main_thread_is_free(self, what):
        calls = {kind: count for kind, count in self.medium.main_calls().items() if count}
        self.assertEqual(calls, {}, f"{what}: the interface thread asked for "
                                    f"{self.medium.last_main()}")

    def answer_each(self, state, act, prepare=lambda: None):
        """With one kind of call hanging at a time, then with all; `act` uses what touches files,
        `prepare` makes up for it while nothing hangs."""
        worst = (0, 0)
        for kinds in [(kind,) for kind in KINDS] + [KINDS]:
            self.medium.hang()
            prepare()
            self.medium.hang(*kinds)
            self.medium.forget_rounds()
            act()
            what = f"{state}, {kinds[0] if len(kinds) == 1 else 'all'} hanging"
            worst = tuple(map(max, worst, self.assert_answers(what)))
        print(f"{state}: a click took {1000 * worst[0]:.0f} ms, a round of the event loop "
              f"{1000 * worst[1]:.0f} ms at most", flush=True)

    def assert_ends(self, state, agree=None, kinds=KINDS):
        """With all calls hanging, or some; `agree` answers the question that is asked before."""
        self.medium.hang(*kinds)
        begun = time.monotonic()
        if agree is None:
            self.window.key("alt+F4")
        else:
            self.window.key("ctrl+q")
            agree()
            begun = time.monotonic()
        self.assertEqual(self.window.wait_end(2 * HANG), 0, self.window.output())
        took = time.monotonic() - begun
        print(f"{state}: the end took {1000 * took:.0f} ms", flush=True)
        self.assertLess(took, FAR_BELOW, state)
        self.assert_main_thread_is_free(f"the end, {state}")

    def open_and_hear(self):
        self.open(self.window, "R0001.WAV")
        self.window.find("push button", "Pause")

    def test_idle(self):
        self.begin(self.home)
        is_used = False

        def go_back():
            if is_used:
                self.window.wait(lambda: self.folder(self.window) != "takes", "the folder above")
                self.open(self.window, "takes")
            self.wait_files(self.window, "Bells", "R0001.WAV", "R0002.WAV")

        def use():
            nonlocal is_used
            is_used = True
            self.open(self.window, "R0002.WAV")
            self.open(self.window, "R0001.WAV")
            self.window.find("push button", "Go up").act("Press")
        self.answer_each("idle", use, go_back)
        self.assertGreater(sum(self.medium.calls().values()), 0, "or nothing hung")
        self.assert_ends("idle")

    def test_the_start(self):
        """What the command line names is on the medium: the window is there all the same."""
        take = self.take("R0001.WAV", noise(RATE, 24))
        self.medium = HangingMedium(self.takes, self.desktop.folder / f"board-{self.id()}")
        self.medium.hang(*KINDS)
        self.addCleanup(self.medium.hang)
        self.window = self.start(take, environment=self.medium.environment)
        self.assert_answers("the start")
        self.assertGreater(self.medium.calls()["stat"], 0, "or nothing hung")
        self.medium.hang()
        self.window.find("push button", "Pause")
        self.assertEqual(self.selected(self.window), ["R0001.WAV"])

    def test_opening(self):
        self.begin(self.home)
        self.medium.hang("open")
        self.open(self.window, "R0001.WAV")
        self.window.wait_label("R0001.WAV is being opened… (Esc gives up)")
        self.assert_answers("opening")
        self.assert_ends("opening")

    def test_playing(self):
        self.begin(self.home)
        self.open_and_hear()
        self.answer_each("playing", lambda: self.window.key("space", "space"))
        self.assert_ends("playing")

    def test_seeking(self):
        self.begin(self.home)
        self.open_and_hear()
        position = self.window.find("slider", "Position")
        places = iter([18, 2, 10] * 4)  # seconds

        def seek():
            position.value = next(places)
        self.answer_each("seeking", seek)
        self.assert_ends("seeking")

    def test_folder_to_be_remembered(self):
        self.begin(self.home)
        kinds = ("open", "write", "rename", "sync", "lock")
        self.medium.hang(*kinds)
        self.window.find("push button", "Go up").act("Press")
        self.window.wait(lambda: self.folder(self.window) == self.home.name, "the folder above")
        self.assert_answers("remembering the folder")
        self.assert_ends("remembering the folder", kinds=kinds)
        self.assertGreater(sum(self.medium.calls().values()), 0, "or it was remembered already")

    def press(self, name):
        self.window.find("push button", name).act("Press")

    @staticmethod
    def press_in(dialog, name):
        next(item for item in dialog.walk() if item.name == name).act("Press")

    def is_shown(self, name):
        return self.window.look("dialog", name) is not None

    def close(self, name):
        """The dialog, if it is there."""
        if self.is_shown(name):
            self.press_in(self.window.find("dialog", name), "Cancel")
        self.window.wait_gone("dialog", name)

    def use_panel(self, show, name, typed, end):
        """Goes to folders and takes a name, none of which is answered; closes the panel meanwhile,
        and shows it again."""
        show()
        panel = self.window.find("dialog", name)
        self.press_in(panel, "Parent folder")
        self.press_in(panel, "Back")
        field = next(item for item in panel.walk() if item.name == "Name")
        field.text = typed
        self.press_in(panel, end)
        self.assert_answers(f"{name} in use")
        self.close(name)
        show()
        self.window.find("dialog", name)

    def test_choosing_a_folder(self):
        self.begin(self.home)
        name = "Choose a file"

        def use():
            self.use_panel(lambda: self.press("Open folder"), name, "none", "Choose")
        self.answer_each("folder panel", use, lambda: self.close(name))
        self.assertTrue(self.is_shown(name), "or nothing hung")
        self.close(name)
        self.assert_ends("folder panel")

    def test_a_folder_that_is_not_read_is_told_of(self):
        self.begin(self.home)
        self.medium.hang("list")
        self.press("Open folder")
        self.window.wait_label("Reading “takes”…")
        self.medium.hang()
        panel = self.window.find("dialog", "Choose a file")
        self.window.wait(lambda: any(item.name == "Bells" for item in panel.walk()), "the rows")
        self.assertNotIn("Reading “takes”…", self.window.labels())

    def test_exporting(self):
        self.begin(self.takes)
        self.open_and_hear()
        self.window.key("space")
        name = "Saving checkboard..."

        def ask():
            self.press("Export")
            self.window.find("dialog", "Export")
        self.answer_each("export dialog", ask, lambda: self.close("Export"))

        def save():
            self.press_in(self.window.find("dialog", "Export"), "Save")

        def go_back():
            self.close(name)
            self.close("Export")
            ask()
        self.answer_each("save panel", lambda: self.use_panel(save, name, "Bells", "Save"),
                         go_back)
        self.medium.hang()
        go_back()
        self.medium.hang("write")
        save()
        self.press_in(self.window.find("dialog", name), "Save")
        self.window.wait_gone("dialog", name)
        self.window.wait(lambda: self.medium.calls()["write"] > 0, "the export")
        self.assert_answers("exporting, write hanging")
        self.medium.hang(*KINDS)
        self.assert_answers("exporting, all hanging")
        self.window.find("progress bar", "Progress")
        self.window.find("list", "Files").click(y=0.9)  # the key is the window's, not the progress's
        self.assert_ends("exporting", lambda: self.press("Cancel export and quit"))
        names = sorted(path.name for path in self.takes.iterdir())
        self.assertEqual(names, ["Bells", "R0001.WAV", "R0002.WAV"], "nothing is left behind")


if __name__ == "__main__":
    unittest.main()
