# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""What the program will not do, and how it says so."""

import os
import unittest

from mixdeck import Case, NOBODY, as_nobody, bext, chunk, fmt, recording, wave


KIND = "name a recording as the TARN J4 wrote it"
FOLDER = "name another folder with --output-dir"
PLACE = "name another place with --output"


class RefusalTest(Case):
    def setUp(self):
        super().setUp()
        self.source = recording()
        self.file("a.wav", self.source)

    def refused(self, line, *arguments, **options):
        """One line on standard error, exit status 1, the source as it was."""
        self.expect(1, "export", *arguments, out="", err=f"mixdeck-cli: {line}\n", **options)
        self.assertEqual(self.read("a.wav"), self.source)

    def test_sources_that_are_not_supported(self):
        self.file("text.wav", b"Not a sound at all, but long enough to be looked into.")
        self.file("plain.wav", wave(fmt(), chunk("data", bytes(12))))
        self.file("other.wav", wave(fmt(), bext("Someone"), chunk("data", bytes(12))))
        self.file("short.wav", wave(fmt(), chunk("bext", bytes(601)), chunk("data", bytes(12))))
        self.file("empty.wav", b"")
        for name, reason in {
                "text.wav": "Not a WAVE file: not a RIFF file",
                "empty.wav": "Not a WAVE file: shorter than 48 bytes",
                "plain.wav": "No broadcast extension (bext chunk)",
                "other.wav": "Not a recording of the TARN J4: its originator is \"Someone\"",
                "short.wav": "The broadcast extension has 601 bytes, fewer than 602",
                }.items():
            self.refused(f"{name}: File not supported. {reason}; {KIND}", name)

    def test_sources_that_cannot_be_read(self):
        for name, reason in {"missing.wav": "No such file or directory; check its name, and that its card or "
                                            "disk is there",
                             "a.wav/b.wav": "Not a directory; check the folders in its name",
                             ".": "Is a directory; name recordings, as ./*.WAV",
                             "/dev/null": "Not a regular file; save what it gives as a file first"}.items():
            self.refused(f"{name}: Fail to open. {reason}", name)

    def test_a_source_that_may_not_be_read(self):
        os.chmod(self.path("a.wav"), 0)
        self.expect(1, "export", "a.wav", out="", preexec_fn=as_nobody,
                    err="mixdeck-cli: a.wav: Fail to open. Permission denied; its owner can let you read it, "
                        "with chmod\n")

    def test_a_pipe_as_source_does_not_hang(self):
        os.mkfifo(self.path("pipe"))
        self.refused("pipe: Fail to open. Not a regular file; save what it gives as a file first", "pipe")

    def test_an_existing_target(self):
        self.file("a_Decode.WAV", b"old")
        self.refused("a_Decode.WAV: Fail to save. The file exists; --force replaces it", "a.wav")
        self.assertEqual(self.read("a_Decode.WAV"), b"old")
        self.expect(0, "export", "--force", "a.wav", err="")
        self.assertEqual(self.read("a_Decode.WAV")[:4], b"RIFF")

    def test_a_link_as_target(self):
        os.symlink("far.wav", self.path("a_Decode.WAV"))
        self.refused("a_Decode.WAV: Fail to save. The file exists; --force replaces it", "a.wav")
        self.expect(0, "export", "--force", "a.wav", err="")
        self.assertEqual(os.readlink(self.path("a_Decode.WAV")), "far.wav")
        self.assertEqual(self.read("far.wav")[:4], b"RIFF")

    def test_the_source_as_target(self):
        os.symlink("a.wav", self.path("link.wav"))
        os.link(self.path("a.wav"), self.path("hard.wav"))
        os.mkdir(self.path("sub"))
        for target in ("a.wav", "./a.wav", self.path("a.wav"), "link.wav", "hard.wav",
                       "sub/../a.wav"):
            for force in ([], ["--force"]):
                self.refused(f"{target}: Fail to open. The target is the source itself; {PLACE}", *force,
                             "--output", target, "a.wav")
        self.refused(f"a.wav: Fail to open. The target is the source itself; {PLACE}", "--force",
                     "--output", "a.wav", "link.wav")
        os.symlink("a.wav", self.path("a_Decode.WAV"))
        self.refused(f"a_Decode.WAV: Fail to open. The target is the source itself; {FOLDER}", "--force",
                     "a.wav")
        self.assertTrue(os.path.islink(self.path("link.wav")))
        self.assertTrue(os.path.samefile(self.path("a.wav"), self.path("hard.wav")))

    def test_targets_that_cannot_be_written(self):
        os.mkdir(self.path("folder"))
        os.mkfifo(self.path("pipe"))
        self.file("file", b"")
        for target, reason in {
                "folder": "Is a directory; name a file in it",
                "none/x.wav": "No such file or directory; make its folder first",
                "file/x.wav": f"Not a directory; {PLACE}",
                "n" * 300: "File name too long; choose a shorter name",
                "pipe": "Not a regular file; choose another name",
                "/dev/full": "Not a regular file; choose another name"}.items():
            self.refused(f"{target}: Fail to save. {reason}", "--force", "--output", target,
                         "a.wav")
        self.assertEqual(self.names(), ["a.wav", "file", "folder", "pipe"])
        self.assertEqual(os.listdir(self.path("folder")), [])

    def test_an_output_folder_that_cannot_be_made_is_said_once(self):
        self.file("file", b"")
        self.file("b.wav", self.source)
        self.refused(f"file: Fail to save. Not a directory; {FOLDER}", "--output-dir", "file", "a.wav",
                     "b.wav")
        self.refused(f"file/sub: Fail to save. Not a directory; {FOLDER}", "--output-dir", "file/sub",
                     "a.wav", "b.wav")
        self.assertEqual(self.names(), ["a.wav", "b.wav", "file"])

    def test_a_read_only_folder(self):
        os.mkdir(self.path("locked"), 0o555)
        self.refused(f"locked: Fail to save. Permission denied; {FOLDER}", "--output-dir", "locked", "a.wav",
                     "a.wav", preexec_fn=as_nobody)
        self.refused(f"locked/x.wav: Fail to save. Permission denied; {PLACE}", "--output", "locked/x.wav",
                     "a.wav", preexec_fn=as_nobody)
        self.assertEqual(os.listdir(self.path("locked")), [])

    def test_a_read_only_file(self):
        target = self.file("old.wav", b"old")
        os.chmod(target, 0o444)
        if os.geteuid() == 0:
            os.chown(self.folder, NOBODY, NOBODY)
        self.refused(f"old.wav: Fail to save. Permission denied; {PLACE}", "--force", "--output", "old.wav",
                     "a.wav", preexec_fn=as_nobody)
        self.assertEqual(self.read("old.wav"), b"old")
        self.assertEqual(self.names(), ["a.wav", "old.wav"])

    def test_more_than_4_gib(self):
        self.big_recording("long.wav", 12000)  # 3.5 GB, of which hardly any is on the disk
        size = 748 + 12000 * 48000 * 8
        self.refused(f"long_Decode.WAV: Fail to save. The export would take {size} bytes; a WAVE "
                     "file ends at 4 GiB; --format 24 fits", "--rf64", "never", "--format", "float32",
                     "long.wav")
        self.assertEqual(self.names(), ["a.wav", "long.wav"])

    def test_one_failure_does_not_stop_the_others(self):
        self.file("b.wav", b"nothing")
        self.file("c.wav", self.source)
        for jobs in (1, 3):
            result = self.expect(1, "export", "--force", "--jobs", jobs, "a.wav", "b.wav",
                                 "missing.wav", "c.wav")
            self.assertEqual(sorted(result.stderr.splitlines()), [
                f"mixdeck-cli: b.wav: File not supported. Not a WAVE file: shorter than 48 bytes; {KIND}",
                "mixdeck-cli: missing.wav: Fail to open. No such file or directory; check its name, and that "
                "its card or disk is there"])
            self.assertEqual(self.names(), ["a.wav", "a_Decode.WAV", "b.wav", "c.wav",
                                            "c_Decode.WAV"])
            os.remove(self.path("a_Decode.WAV"))
            os.remove(self.path("c_Decode.WAV"))

    def test_two_sources_with_one_target(self):
        os.mkdir(self.path("x"))
        os.mkdir(self.path("out"))
        self.file("x/a.wav", recording([1, 2]))
        self.refused("out/a_Decode.WAV: Fail to save. It belongs to a.wav in the same run; export x/a.wav "
                     "by itself, with --output", "--force", "--quiet", "--output-dir", "out", "a.wav", "x/a.wav")
        self.assertEqual(os.listdir(self.path("out")), ["a_Decode.WAV"])
        self.assertEqual(os.path.getsize(self.path("out/a_Decode.WAV")), 748 + 12)

    def test_a_target_that_is_another_source(self):
        self.file("a_Decode.WAV", recording([7, 8]))
        result = self.expect(1, "export", "--force", "a.wav", "a_Decode.WAV")
        self.assertEqual(result.stderr, "mixdeck-cli: a_Decode.WAV: Fail to save. It belongs to "
                                        "a_Decode.WAV in the same run; export a.wav by itself, with --output\n")
        self.assertEqual(self.read("a_Decode.WAV"), recording([7, 8]))
        self.assertIn("a_Decode_Decode.WAV", self.names())

    def test_control_characters_are_shown_not_obeyed(self):
        name = "a\x1b[2J\n.wav"
        self.file(name, b"")
        self.refused("a\\x1b[2J\\n.wav: File not supported. Not a WAVE file: shorter than 48 bytes; "
                     f"{KIND}", name)

    def test_names_that_are_no_text(self):
        name = os.fsdecode(b"\xff\xfe.wav")
        self.file(name, self.source)
        self.expect(0, "export", "--quiet", name, out="", err="")
        self.assertIn(os.fsdecode(b"\xff\xfe_Decode.WAV"), self.names())


if __name__ == "__main__":
    unittest.main()
