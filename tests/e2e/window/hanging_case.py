# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""The window while the medium does not answer: every call about a file of the home folder hangs for
half a minute, one kind of call at a time and all of them.

What is asked for is an answer within 100 ms and an end within a second. A busy machine takes longer
for either, so the verdicts are: the interface thread makes none of the calls; a click is answered
in far less time than a call hangs; and the end comes in far less time than that. The times
themselves are printed. With MIXDECK_STRICT set the verdicts are what is asked for.
"""

import os
import time

from window import SoundingCase, noise  # first: it knows where the others are
from hanging import HANG, KINDS, HangingMedium
from sound import RATE

SAVE_PANEL = "Saving checkboard..."
FAR_BELOW = HANG / 3
IS_STRICT = "MIXDECK_STRICT" in os.environ
MOST_FOR_A_CLICK = 0.1 if IS_STRICT else FAR_BELOW
MOST_FOR_AN_END = 1 if IS_STRICT else FAR_BELOW


class HangingCase(SoundingCase):
    clicks = ends = 0

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.addClassCleanup(lambda: print(f"{cls.clicks} clicks, {cls.ends} ends", flush=True))

    def begin(self):
        """The program, to which every file of the home folder may hang."""
        self.make_home()
        self.show_window()

    def make_home(self, medium=None):
        """All of it hangs, or one folder."""
        (self.takes / "Bells").mkdir()
        self.take("R0001.WAV", noise(RATE * 20, 24))
        self.take("R0002.WAV", noise(RATE, 24))
        self.medium = HangingMedium(medium or self.home,
                                    self.desktop.folder / f"board-{self.id()}")
        self.addCleanup(self.medium.hang)

    def show_window(self):
        self.window = self.start(environment=self.medium.environment)

    def wait_takes(self):
        self.wait_files(self.window, "Bells", "R0001.WAV", "R0002.WAV")

    def assert_answers(self, what):
        """A click on the speaker mutes or unmutes at once; how long it took."""
        took = self.seconds_to_mute(self.window)
        type(self).clicks += 1
        self.assertLess(took, MOST_FOR_A_CLICK, what)
        self.assert_main_thread_is_free(what)
        return took

    def assert_main_thread_is_free(self, what):
        calls = {kind: count for kind, count in self.medium.main_calls().items() if count}
        self.assertEqual(calls, {}, f"{what}: the interface thread asked for "
                                    f"{self.medium.last_main()}")

    def answer_each(self, state, act, prepare=lambda: None):
        """With one kind of call hanging at a time, then with all; `act` uses what touches files,
        `prepare` makes up for it while nothing hangs."""
        def begin(*kinds):
            self.medium.hang(*kinds)
            self.medium.forget_rounds()
            act()
        self.answer_each_in(state, begin, prepare)

    def answer_each_in(self, state, begin, prepare, is_still=lambda: True):
        """The same; `begin` has the kinds that it is given hang, and `is_still` tells whether the
        state lasts."""
        click = away = 0
        for kinds in [(kind,) for kind in KINDS] + [KINDS]:
            self.medium.hang()
            prepare()
            begin(*kinds)
            what = f"{state}, {kinds[0] if len(kinds) == 1 else 'all'} hanging"
            click = max(click, self.assert_answers(what))
            away = max(away, self.medium.longest_round())
            self.assertLess(away, MOST_FOR_A_CLICK, f"{what}, in a round of the event loop")
            self.assertTrue(is_still(), f"{what}, no longer: or nothing hung")
        print(f"{state}: a click took {1000 * click:.0f} ms, a round of the event loop "
              f"{1000 * away:.0f} ms at most", flush=True)

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
        type(self).ends += 1
        print(f"{state}: the end took {1000 * took:.0f} ms", flush=True)
        self.assertLess(took, MOST_FOR_AN_END, state)
        self.assert_main_thread_is_free(f"the end, {state}")

    def open_and_hear(self):
        self.open(self.window, "R0001.WAV")
        self.window.find("push button", "Pause")

    def press(self, name):
        self.window.find("push button", name).act("Press")

    # ---- dialogs, which are windows of their own ----

    @staticmethod
    def press_in(dialog, name):
        next(item for item in dialog.walk() if item.name == name).act("Press")

    def look_dialog(self, name):
        return next((item for item in self.window.windows() if item.name == name), None)

    def dialog(self, name):
        """Waits for it."""
        return self.window.wait(lambda: self.look_dialog(name), f"dialog {name!r}")

    def wait_no_dialog(self, name):
        self.window.wait(lambda: self.look_dialog(name) is None, f"the end of dialog {name!r}")

    def close(self, name):
        """The dialog, if it is there."""
        dialog = self.look_dialog(name)
        if dialog is not None:
            self.press_in(dialog, "Cancel")
        self.wait_no_dialog(name)

    def ask_for_export(self):
        self.press("Export")
        self.dialog("Export")

    def save(self, *kinds):
        """From the export dialog to the panel for a place, and on with the proposed name, while calls
        of these kinds hang."""
        self.press_in(self.dialog("Export"), "Save")
        panel = self.dialog(SAVE_PANEL)
        field = next(item for item in panel.walk() if item.name == "Name")
        self.window.wait(lambda: field.text, "the proposed name")
        self.medium.hang(*kinds)
        self.press_in(panel, "Save")

    def use_panel(self, show, name, typed, end):
        """Goes to folders and takes a name, none of which is answered; closes the panel meanwhile,
        and shows it again."""
        show()
        panel = self.dialog(name)
        self.press_in(panel, "Parent folder")
        self.press_in(panel, "Back")
        field = next(item for item in panel.walk() if item.name == "Name")
        field.text = typed
        self.press_in(panel, end)
        self.assert_answers(f"{name} in use")
        self.close(name)
        show()
        self.dialog(name)
