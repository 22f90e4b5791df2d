# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""Exports that keep recording time and markers, and what other programs read of them."""

import json
import struct
import subprocess
import unittest

from mixdeck import FIRST_SAMPLE, PLAIN, RAW, Case, bext, chunk, fmt, pack24, unpack24, wave

SAMPLES = pack24([1000, -1000] * 48000)
LABEL = b"labl" + struct.pack("<II", 10, 1) + b"River\0"
MARKS = struct.pack("<III4sIII", 1, 1, 24000, b"data", 0, 0, 24000)
HISTORY = RAW.replace("MSRAW=ON", "MSRAW=DECODED") + "\r\n" + PLAIN  # of an export that keeps it
NAME = b"INFOINAM" + struct.pack("<I", 8) + b"By dawn\0"


def take(history=RAW + " ", more=()):
    return wave(fmt(), bext(history=history), chunk("data", SAMPLES), chunk("cue ", MARKS),
                chunk("LIST", b"adtl" + LABEL), chunk("LIST", NAME),
                chunk("iXML", b"<BWFXML><PROJECT>River</PROJECT></BWFXML>"), *more)


class MetadataTest(Case):
    def setUp(self):
        super().setUp()
        self.file("R0001.WAV", take())

    def export(self, *words):
        self.expect(0, "export", "--force", *words, "R0001.WAV", err="")
        return self.read("R0001_Decode.WAV")

    def test_without_it_nothing_is_kept(self):
        plain = self.export()
        self.assertEqual(len(plain), FIRST_SAMPLE + len(SAMPLES))
        self.assertNotIn(b"cue ", plain)
        info = self.info(self.path("R0001_Decode.WAV"))["bext"]
        self.assertEqual((info["CodingHistory"], info["TimeReference"]), (PLAIN, 0))

    def test_times_history_and_chunks_are_kept(self):
        self.export("--keep-metadata")
        info = self.info(self.path("R0001_Decode.WAV"))
        self.assertFalse(info["raw_ms"])
        self.assertEqual([part["id"] for part in info["chunks"]],
                         ["JUNK", "bext", "fmt ", "data", "cue ", "LIST", "LIST", "iXML"])
        bext_ = info["bext"]
        self.assertEqual((bext_["OriginationDate"], bext_["OriginationTime"],
                          bext_["TimeReference"]), ("2026-05-04", "03:02:01", 99))
        self.assertEqual(bext_["CodingHistory"], HISTORY)

    def test_the_size_is_told_beforehand(self):
        size = len(self.export("--keep-metadata"))
        said = self.expect(0, "export", "--dry-run", "--force", "--keep-metadata", "R0001.WAV").stdout
        self.assertTrue(said.endswith(f", {size} bytes\n"), said)

    def test_an_export_of_an_export_keeps_them_too(self):
        self.export("--keep-metadata")
        self.expect(0, "export", "--keep-metadata", "R0001_Decode.WAV", err="")
        bext_ = self.info(self.path("R0001_Decode_Decode.WAV"))["bext"]
        self.assertEqual(bext_["TimeReference"], 99)
        self.assertEqual(bext_["CodingHistory"].count("\r\n"), 2)

    def test_what_is_too_large_to_be_kept_is_told(self):
        most = 16 << 20
        self.file("R0001.WAV", take(more=[chunk("iXML", bytes(most)), chunk("LIST", bytes(most + 2))]))
        told = (f'mixdeck-cli: R0001.WAV: Warning: Its "LIST" chunk of {most + 2} bytes is not taken over, as it '
                "passes 16 MiB\n")
        for words in ((), ("--dry-run",)):
            self.expect(0, "export", "--force", "--quiet", *words, "R0001.WAV", out="", err="")
            self.expect(0, "export", "--force", "--quiet", "--keep-metadata", *words, "R0001.WAV", out="",
                        err=told)
        kept = self.info(self.path("R0001_Decode.WAV"))["chunks"][4:]
        self.assertEqual([(part["id"], part["size"]) for part in kept[-2:]], [("iXML", 42), ("iXML", most)])
        self.assertEqual(len(kept), 5)

    def test_ffprobe(self):
        self.export("--keep-metadata")
        said = json.loads(subprocess.run(
            ["ffprobe", "-v", "error", "-of", "json", "-show_format", "-show_streams", "-show_chapters",
             self.path("R0001_Decode.WAV")], capture_output=True, text=True, check=True).stdout)
        tags = said["format"]["tags"]
        self.assertEqual((tags["date"], tags["creation_time"], tags["time_reference"]),
                         ("2026-05-04", "03:02:01", "99"))
        self.assertEqual(tags["coding_history"], HISTORY)
        self.assertEqual(tags["title"], "By dawn")
        self.assertEqual(said["streams"][0]["duration_ts"], 48000)
        (mark,) = said["chapters"]
        self.assertEqual((float(mark["start_time"]), mark["tags"]["title"]), (0.5, "River"))

    def test_mediainfo(self):
        self.export("--keep-metadata")
        said = subprocess.run(["mediainfo", "--Output=JSON", self.path("R0001_Decode.WAV")],
                              capture_output=True, text=True, check=True).stdout
        general, sound = json.loads(said)["media"]["track"]
        self.assertIn("2026-05-04 03:02:01", general["Encoded_Date"])
        self.assertEqual(general["Title"], "By dawn")
        self.assertEqual(general["Encoded_Library_Settings"].split(" / "), HISTORY.split("\r\n"))
        self.assertAlmostEqual(float(sound["Delay"]), 99 / 48000, places=3)
        self.assertIn("bext", sound["Delay_Source"])

    def test_libsndfile(self):
        self.export("--keep-metadata")
        said = subprocess.run(["sndfile-metadata-get", "--all", self.path("R0001_Decode.WAV")],
                              capture_output=True, text=True, check=True).stdout
        self.assertIn("2026-05-04", said)
        self.assertIn("03:02:01", said)
        self.assertIn(HISTORY.replace("\r\n", "\n"), said)
        said = subprocess.run(["sndfile-info", self.path("R0001_Decode.WAV")],
                              capture_output=True, text=True, check=True).stdout
        self.assertRegex(said, r"Cue ID : +1 +Pos : 24000 .* Offset : 24000\n")
        self.assertIn("labl : 1 : River\n", said)
        said = subprocess.run(["sndfile-info", "--broadcast", self.path("R0001_Decode.WAV")],
                              capture_output=True, text=True, check=True).stdout
        self.assertRegex(said, r"Time ref +: 0x0*63 \(0\.002063 seconds\)\n")

    def test_an_audio_editor(self):
        content = self.export("--keep-metadata")
        first = unpack24(content[content.index(b"data") + 8:][:6])
        self.file("ask.scm", b"""
(define heard (open-sound "R0001_Decode.WAV"))
(define (value channel) (inexact->exact (round (* 8388608 (sample 0 heard channel)))))
(display (list (framples heard) (srate heard) (channels heard) (value 0) (value 1) (comment heard)))
(exit 0)
""")
        said = subprocess.run(["snd", "-noinit", "-l", self.path("ask.scm")], stdin=subprocess.DEVNULL,
                              cwd=self.folder, capture_output=True, text=True, check=True).stdout
        self.assertIn(f"(48000 48000 2 {first[0]} {first[1]} ", said)
        self.assertIn("By dawn", said)


if __name__ == "__main__":
    unittest.main()
