# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""The device command with a simulated recorder in its process, and on a machine without one."""

import json
import os
import select
import signal
import subprocess
import sys
import time
import unittest
from concurrent.futures import ThreadPoolExecutor

from mixdeck import CLI, Case

KEYS = ["connected", "device_id", "firmware", "sd_present", "sd_used", "sd_capacity", "remaining",
        "battery_type", "auto_power_off", "step"]
RECORD = dict(zip(KEYS, [True, "10203040", "1.02", True, "7.45 GB", "29.7 GB", "05:12:33", 0, 1,
                         None]))
NO_RECORDER = dict.fromkeys(KEYS) | {"connected": False}
TEXT = """Recorder:        connected
Identity:        10203040
Firmware:        1.02
SD card:         7.45 GB / 29.7 GB Used
Remaining:       05:12:33
Battery type:    0 (Alkaline)
Auto power-off:  1 (10 minutes)
"""


class DeviceCase(Case):
    def device(self, status, *arguments, words="", **expected):
        simulate = "--simulate" + (f"={words}" if words else "")
        return self.expect(status, "device", *arguments, simulate, **expected)

    def json_of(self, status, *arguments, **options):
        lines = self.device(status, *arguments, "--json", **options).stdout.splitlines()
        self.assertEqual(len(lines), 1)
        return json.loads(lines[0])


class StatusTest(DeviceCase):
    def test_text(self):
        self.device(0, out=TEXT, err="")
        self.device(0, "status", out=TEXT, err="")

    def test_json(self):
        record = self.json_of(0, "status", err="")
        self.assertEqual(record, RECORD)
        self.assertEqual(list(record), KEYS)
        self.assertEqual(self.json_of(0, words="ump", err=""), RECORD)

    def test_what_the_recorder_is(self):
        record = self.json_of(0, words="firmware=2.34,battery=3,auto-power-off=0,no-card")
        self.assertEqual(record, RECORD | dict.fromkeys(["sd_used", "sd_capacity", "remaining"]) |
                         {"firmware": "2.34", "battery_type": 3, "auto_power_off": 0,
                          "sd_present": False})

    def test_a_recorder_that_is_hard_to_read(self):
        for words in ("split@identity,split@card,interleaved@version,merged@battery",
                      "ump,split@card,interleaved@version"):
            self.assertEqual(self.json_of(0, "--wait", "20", words=words), RECORD, words)

    def test_where_a_handshake_stops(self):
        steps = {"identity": 2, "start": 4, "version": 6, "card": 8, "battery": 10,
                 "auto-power-off": 12, "date-time": 14}
        with ThreadPoolExecutor() as pool:
            results = pool.map(lambda request: self.device(1, "--json", "--wait", "6",
                                                           words=f"silent@{request}"), steps)
        for result, step in zip(results, steps.values(), strict=True):
            record = json.loads(result.stdout)
            self.assertEqual(record["step"], step)
            self.assertFalse(record["connected"])
            known = sum(record[key] is not None for key in KEYS[1:-1])
            self.assertEqual(known, {2: 0, 4: 2, 6: 2, 8: 2, 10: 6, 12: 7, 14: 8}[step])
            self.assertIn(f"(step {step})", result.stderr)

    def test_text_of_a_handshake_that_stops(self):
        result = self.device(1, "--wait", "4", words="garbage@battery")
        self.assertEqual(result.stdout, "Recorder:        does not answer\n" +
                         "".join(TEXT.splitlines(True)[1:5]) + "Stopped at step: 10 (battery type)\n")
        self.assertEqual(result.stderr, "mixdeck-cli: The recorder does not answer: battery type "
                                        "(step 10). Plug it in again.\n")

    def test_no_recorder(self):
        # The recorder comes when the wait is long over.
        self.device(1, "--wait", "0.2", words="unplugged,plug@3", out="",
                    err="mixdeck-cli: No recorder found. Connect it over USB and turn it on; "
                        "--simulate needs none.\n")
        self.assertEqual(self.json_of(1, "--wait", "0", words="unplugged"), NO_RECORDER)

    def test_a_recorder_that_comes_late_or_goes(self):
        self.assertEqual(self.json_of(0, words="unplugged,plug@0.3"), RECORD)
        result = self.device(1, "--json", "--wait", "4", words="disappear@card")
        self.assertEqual(json.loads(result.stdout), NO_RECORDER | {"step": 8})
        self.assertIn("unplugged", result.stderr)
        self.assertEqual(self.json_of(0, words="disappear@card,behave@3,plug@3.1"), RECORD)

    def test_a_wait_in_hours_minutes_and_seconds(self):
        begin = time.monotonic()
        self.device(1, "--wait", "0:00:01", words="unplugged", out="")
        self.assertGreater(time.monotonic() - begin, 0.9)
        self.assertEqual(self.json_of(0, "--wait", "0:00:06", words="unplugged,plug@1"), RECORD)
        self.assertEqual(self.json_of(0, "--wait", "0:06", words="unplugged,plug@1"), RECORD)
        self.assertEqual(self.json_of(1, "--wait", "0:00:00.5", words="unplugged,plug@3"), NO_RECORDER)

    def test_too_little_time(self):
        result = self.device(1, "--wait", "0.1", out="")
        self.assertIn("time to wait was over", result.stderr)


class SettingTest(DeviceCase):
    def test_settings(self):
        self.device(0, "set-battery", "2", out="Battery type: 2 (Lithium)\n", err="")
        self.device(0, "set-auto-power-off", "0", words="ump", out="Auto power-off: 0 (Off)\n",
                    err="")
        self.assertEqual(self.json_of(0, "set-battery", "1"),
                         {"connected": True, "battery_type": 1, "acknowledged": True})

    def test_a_setting_that_is_not_acknowledged(self):
        for fault in ("silent", "wrong-length"):
            result = self.device(1, "set-battery", "3", words=f"{fault}@set-battery", out="")
            self.assertIn("does not acknowledge", result.stderr)
        answer = self.json_of(1, "set-auto-power-off", "3", words="silent@set-auto-power-off")
        self.assertEqual(answer, {"connected": True, "auto_power_off": 3, "acknowledged": False})

    def test_no_recorder_or_no_answer(self):
        answer = self.json_of(1, "set-battery", "1", "--wait", "0.1", words="unplugged")
        self.assertEqual(answer, {"connected": False, "battery_type": 1, "acknowledged": False})
        result = self.device(1, "set-battery", "1", "--wait", "4", words="silent@card", out="")
        self.assertIn("(step 8)", result.stderr)
        self.assertEqual(self.json_of(1, "set-battery", "1", words="silent@start"), answer)

    def test_values_that_the_recorder_does_not_know(self):
        for value in ("4", "-1", "two", "256", "", "1.0", "01"):
            for word in ("set-battery", "set-auto-power-off"):
                self.assertNotEqual(self.device(2, word, f"{value}", out="").stderr, "")
        for word, names in (("set-battery", "0 Alkaline, 1 Ni-MH, 2 Lithium, 3 Li-ion"),
                            ("set-auto-power-off", "1 10 minutes, 2 30 minutes, 3 1 hour, 0 Off")):
            self.assertIn(names, self.device(2, word, "9", out="").stderr)


class UsageTest(DeviceCase):
    def test_wrong_words(self):
        for arguments in (["explode"], ["set-battery"], ["set-auto-power-off"], ["--wait", "soon"],
                          ["--wait=-1"], ["status", "watch"], ["status", "1"]):
            self.assertNotEqual(self.device(2, *arguments, out="").stderr, "")
        self.assertIn("loud", self.device(2, words="loud", out="").stderr)

    def test_help(self):
        text = self.expect(0, "device", "--help", err="").stdout
        for word in ("status", "watch", "set-battery", "set-auto-power-off", "monitor", "--json",
                     "--wait", "--simulate", *KEYS):
            self.assertIn(word, text)
        self.assertIn("2 Lithium", self.expect(0, "device", "set-battery", "--help").stdout)

    @unittest.skipIf(os.path.exists("/dev/snd/seq"), "there is a sequencer")
    def test_a_machine_without_a_sequencer(self):
        for word in ("status", "watch", "monitor"):
            result = self.expect(1, "device", word, out="")
            self.assertIn("/dev/snd/seq", result.stderr)


class FollowingCase(DeviceCase):
    """A run that goes on until it is interrupted; its lines are waited for."""

    def start(self, *arguments):
        self.process = subprocess.Popen([CLI, "device", *arguments], stdout=subprocess.PIPE,
                                        stderr=subprocess.PIPE, bufsize=0, cwd=self.folder)
        self.buffer = b""
        self.addCleanup(self.stop)

    def stop(self):
        self.process.kill()
        self.process.communicate()

    def line(self):
        while b"\n" not in self.buffer:
            ready, _, _ = select.select([self.process.stdout], [], [], 60)
            self.assertTrue(ready, "no line for a minute")
            more = os.read(self.process.stdout.fileno(), 65536)
            self.assertTrue(more, "the output has ended")
            self.buffer += more
        line, self.buffer = self.buffer.split(b"\n", 1)
        return line.decode()

    def interrupt(self, number, status=0):
        self.process.send_signal(number)
        rest, errors = self.process.communicate(timeout=60)
        self.assertEqual(self.process.returncode, status, errors)
        self.assertEqual(errors, b"")
        return (self.buffer + rest).decode()


class WatchTest(FollowingCase):
    def test_text(self):
        self.start("watch", "--simulate=eject@4")
        self.assertEqual("".join(self.line() + "\n" for _ in TEXT.splitlines()), TEXT)
        self.assertEqual(self.line(), "SD card:         -- GB / -- GB Used")
        self.assertEqual(self.line(), "Remaining:       --:--:--")
        self.assertEqual(self.interrupt(signal.SIGINT), "")

    def test_changes_and_a_recorder_that_comes_back(self):
        self.start("watch", "--json", "--simulate=eject@4,report@4.5,unplug@5,insert@5.5,"
                                      "plug@6")
        records = [json.loads(self.line()) for _ in range(4)]
        self.assertEqual(records[0], RECORD)
        self.assertEqual(records[1]["sd_present"], False)
        self.assertEqual(records[2], NO_RECORDER)
        self.assertEqual(records[3], RECORD)
        self.assertEqual(self.interrupt(signal.SIGTERM), "")

    def test_a_handshake_that_stops_is_told_and_the_next_one_followed(self):
        self.start("watch", "--json", "--wait", "3",
                   "--simulate=silent@card,unplug@7,behave@7,plug@7.1")
        records = [json.loads(self.line()) for _ in range(3)]
        self.assertEqual([record["step"] for record in records], [8, None, None])
        self.assertEqual([record["connected"] for record in records], [False, False, True])
        self.assertEqual(records[1:], [NO_RECORDER, RECORD])
        self.assertEqual(self.interrupt(signal.SIGINT), "")

    def test_a_report_does_not_complete_a_handshake_that_timed_out(self):
        self.start("watch", "--json", "--simulate=silent@start,report@6,unplug@6.5")
        records = [json.loads(self.line()) for _ in range(2)]
        self.assertEqual(records[0], NO_RECORDER | {"device_id": "10203040", "firmware": "1.00",
                                                    "step": 4})
        self.assertEqual(records[1], NO_RECORDER)
        self.assertEqual(self.interrupt(signal.SIGINT), "")

    def test_a_handshake_that_comes_to_its_end_after_it_was_given_up(self):
        self.start("watch", "--json", "--wait", "2", "--simulate=slow@card")
        records = [json.loads(self.line()) for _ in range(2)]
        self.assertEqual([record["step"] for record in records], [8, None])
        self.assertFalse(records[0]["connected"])
        self.assertEqual(records[1], RECORD)
        self.assertEqual(self.interrupt(signal.SIGINT), "")

    def test_a_wait_for_a_recorder(self):
        self.start("watch", "--json", "--simulate=unplugged,plug@0.5")
        self.assertEqual(json.loads(self.line()), NO_RECORDER)
        self.assertEqual(json.loads(self.line()), RECORD)
        self.assertEqual(self.interrupt(signal.SIGINT), "")
        self.assertEqual(self.json_of(1, "watch", "--wait", "0.1", words="unplugged"), NO_RECORDER)

    def test_a_reader_that_goes_away(self):
        self.start("watch", "--simulate=eject@4")
        self.line()
        self.process.stdout.close()
        self.assertEqual(self.process.wait(60), 0)
        self.assertEqual(self.process.stderr.read(), b"")

    def test_an_output_that_is_full(self):
        with open("/dev/full", "wb") as full:
            done = subprocess.run([CLI, "device", "--simulate"], stdout=full,
                                  stderr=subprocess.PIPE, timeout=60, check=False)
        self.assertEqual(done.returncode, 1)
        self.assertIn(b"standard output", done.stderr)


class MonitorTest(FollowingCase):
    def messages(self, *words, count):
        self.start("monitor", "--json", "--simulate" + "".join(f"={word}" for word in words))
        lines = [json.loads(self.line()) for _ in range(count)]
        self.assertEqual(self.interrupt(signal.SIGINT), "")
        return lines

    def expect_handshake(self, lines):
        self.assertEqual(list(lines[0]), ["time", "event"])
        lines = lines[1:]
        self.assertEqual(list(lines[0]), ["time", "direction", "bytes", "meaning", "values"])
        self.assertEqual([line["direction"] for line in lines], ["out", "in"] * 7)
        self.assertEqual([line["meaning"] for line in lines],
                         ["identity request", "identity", "application start", "acknowledgement",
                          "version request", "version", "SD card request", "SD card",
                          "battery type request", "battery type", "auto power-off request",
                          "auto power-off", "set date and time", "acknowledgement"])
        self.assertEqual(lines[0]["bytes"], "F0 7E 00 06 01 F7")
        self.assertEqual(lines[1]["values"], {"device_id": "10203040", "version": "0100"})
        self.assertEqual(lines[7]["values"], {"sd_present": True, "sd_used": "7.45 GB",
                                              "sd_capacity": "29.7 GB", "remaining": "05:12:33"})
        self.assertEqual(lines[13]["bytes"], "F0 52 00 00 00 0F F7")
        times = [line["time"] for line in lines]
        self.assertEqual(times, sorted(times))

    def test_a_handshake_in_both_kinds_of_packet(self):
        self.expect_handshake(self.messages(count=15))
        self.expect_handshake(self.messages("ump", count=15))

    def test_events(self):
        lines = self.messages("silent@identity,unplug@6", count=4)
        self.assertEqual(lines[1]["meaning"], "identity request")
        self.assertIn("(step 2)", lines[2]["event"])
        self.assertIn("gone", lines[3]["event"])

    def test_text(self):
        self.start("monitor", "--simulate=interleaved@identity")
        lines = [self.line() for _ in range(9)]
        self.assertRegex(lines[0], r"^ +1\.\d{3}   The recorder is there\.$")
        self.assertRegex(lines[1], r"^ +1\.\d{3} > identity request$")
        self.assertEqual(lines[2].strip(), "F0 7E 00 06 01 F7")
        self.assertIn("< other MIDI message", lines[3])
        self.assertEqual(lines[4].strip(), "90 3C 40")
        self.assertIn("< identity: device_id 10203040, version 0100", lines[7])
        self.interrupt(signal.SIGTERM)


class InterruptTest(FollowingCase):
    def catches(self, number):
        with open(f"/proc/{self.process.pid}/status", encoding="utf-8") as status:
            caught = next(line for line in status if line.startswith("SigCgt:"))
        return int(caught.split()[1], 16) & 1 << (number - 1) != 0

    def test_an_answer_that_is_no_longer_wanted(self):
        self.start("status", "--simulate=unplugged", "--wait", "60")
        while not self.catches(signal.SIGINT):
            self.assertIsNone(self.process.poll())
        self.process.send_signal(signal.SIGINT)
        _, errors = self.process.communicate(timeout=60)
        self.assertEqual(self.process.returncode, 1)
        self.assertEqual(errors, b"mixdeck-cli: Interrupted.\n")


def tests_of(suite):
    for each in suite:
        yield from tests_of(each) if isinstance(each, unittest.TestSuite) else [each]


def run_at_once():
    """The runs wait for most of their time, so all wait together."""
    tests = list(tests_of(unittest.defaultTestLoader.loadTestsFromModule(sys.modules["__main__"])))
    with ThreadPoolExecutor(len(tests)) as pool:
        results = list(pool.map(lambda test: test.run(unittest.TestResult()), tests))
    for result in results:
        for _, trace in result.failures + result.errors:
            print(trace)
    print(f"{len(tests)} tests, {sum(not result.wasSuccessful() for result in results)} failed")
    return 0 if tests and all(result.wasSuccessful() for result in results) else 1


if __name__ == "__main__":
    sys.exit(run_at_once())
