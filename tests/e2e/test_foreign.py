# SPDX-FileCopyrightText: 2026 The Mixdeck developers
# SPDX-License-Identifier: MIT
"""Recordings that other programs wrote or damaged, and other programs that read our exports."""

import json
import re
import struct
import subprocess
import unittest

from mixdeck import (Case, PLAIN, RAW, bext, chunk, decoded, fmt, pack24, recording, samples_of,
                     single, stored24, unpack24, unpack_floats, wave)


def data_of(content):
    """The payload of the data chunk, found by walking the chunks with their padding."""
    position = 12
    while position + 8 <= len(content):
        size = struct.unpack_from("<I", content, position + 4)[0]
        if content[position:position + 4] == b"data":
            return content[position + 8:position + 8 + size]
        position += 8 + size + size % 2
    raise ValueError("no data chunk")


class FfmpegSourceTest(Case):
    """Half a second of two tones and noise as Mid and Side, written by ffmpeg."""

    def make(self, name, codec, history=RAW, rate=48000):
        tones = ("aevalsrc='0.4*sin(2*PI*440*t)+0.1*(random(0)-0.5)|0.3*sin(2*PI*333*t)':"
                 f"s={rate}:d=0.5")
        subprocess.run(["ffmpeg", "-v", "error", "-f", "lavfi", "-i", tones, "-c:a", codec,
                        "-write_bext", "1", "-metadata", "originator=TARN J4", "-metadata",
                        "description=Tones", "-metadata", "originator_reference=FF1", "-metadata",
                        f"coding_history={history}", "-f", "wav", self.path(name)], check=True,
                       capture_output=True)
        return data_of(self.read(name))

    def check(self, name, source, angle, err=""):
        for options, gain in ((["--gain", "3"], 3.0), ([], 0.0)):
            expected = decoded(source, angle, gain)
            shape = [] if angle is None else ["--angle", str(angle)]
            target = name.replace(".wav", "_Decode.WAV")
            result = self.expect(0, "export", "--quiet", "--force", *shape, *options, name, out="")
            lines = result.stderr.splitlines(True)
            clipped = [line for line in lines if "clipped" in line]
            over = sum(abs(sample) > 1 + 2 ** -23 for sample in expected)
            self.assertEqual([line.split()[3] for line in clipped], [str(over)] if over else [])
            self.assertEqual("".join(line for line in lines if line not in clipped), err)
            self.assertEqual(unpack24(samples_of(self.path(target))),
                             [stored24(sample) for sample in expected])
            self.expect(0, "export", "--force", "--format", "float32", *shape, *options, name)
            self.assertEqual(unpack_floats(samples_of(self.path(target))), expected)

    def test_24_bit_with_an_extensible_header(self):
        values = unpack24(self.make("a.wav", "pcm_s24le"))
        self.assertEqual(len(values), 48000)
        info = self.info(self.path("a.wav"))
        self.assertEqual(info["header"]["AudioFormat"], 0xFFFE)
        self.assertEqual(info["header"]["BitsPerSample"], 24)
        self.assertTrue(info["raw_ms"])
        self.assertEqual(info["bext"]["Description"], "Tones")
        self.assertEqual(info["bext"]["OriginatorReference"], "FF1")
        self.check("a.wav", [value / 8388608 for value in values], 77)

    def test_float(self):
        values = unpack_floats(self.make("a.wav", "pcm_f32le"))
        self.assertEqual(len(values), 48000)
        self.set_tag("a.wav", 3)  # as the recorder states it
        self.assertTrue(self.info(self.path("a.wav"))["raw_ms"])
        self.check("a.wav", values, 150)

    # Only the plain tag makes 32 bits a float; with the extensible one they are integers, which
    # are scaled to next to nothing.
    # Newer releases of ffmpeg write that one only where something else asks for it, as a high rate.
    def test_float_with_an_extensible_header(self):
        data = self.make("a.wav", "pcm_f32le", rate=96000)
        self.assertEqual(self.info(self.path("a.wav"))["header"]["AudioFormat"], 0xFFFE)
        values = [single(value) * 2.0 ** -64
                  for value in struct.unpack(f"<{len(data) // 4}i", data)]
        self.check("a.wav", values, 120,
                   "mixdeck-cli: a.wav: Warning: 2 channels of 32-bit samples with format tag "
                   "65534 do not decode to useful sound; the recorder writes 2 channels, 24-bit "
                   "integer or 32-bit float (tag 3)\n")

    def test_not_raw(self):
        # With the terminator that ffmpeg writes the extension has an even size.
        values = unpack24(self.make("a.wav", "pcm_s24le", PLAIN + ";"))
        self.assertFalse(self.info(self.path("a.wav"))["raw_ms"])
        self.check("a.wav", [value / 8388608 for value in values], None)

    # The recorder pads nothing, so a pad byte after an odd extension is taken for the next chunk.
    def test_an_odd_extension_that_is_padded(self):
        self.make("a.wav", "pcm_s24le", PLAIN)
        result = self.expect(1, "export", "a.wav", out="")
        self.assertEqual(result.stderr, "mixdeck-cli: a.wav: File not supported. Not a WAVE file: "
                                        "no data chunk; name a recording as the TARN J4 wrote it\n")

    def set_tag(self, name, tag):
        content = self.read(name)
        at = content.index(b"fmt ") + 8
        self.file(name, content[:at] + struct.pack("<H", tag) + content[at + 2:])

    def test_texts_are_carried_over(self):
        self.make("a.wav", "pcm_s24le")
        self.expect(0, "export", "--quiet", "a.wav", out="", err="")
        fields = self.info(self.path("a_Decode.WAV"))["bext"]
        self.assertEqual(fields["Description"], "Tones")
        self.assertEqual(fields["Originator"], "TARN J4")
        self.assertEqual(fields["OriginatorReference"], "FF1")
        self.assertEqual(fields["CodingHistory"], PLAIN)


class ChunkTest(Case):
    samples = [4194304, 2097152, -1000, 77, 12345, -54321]

    def setUp(self):
        super().setUp()
        source = [value / 8388608 for value in self.samples]
        self.expected = [stored24(sample) for sample in decoded(source, 120)]
        self.data = chunk("data", pack24(self.samples))

    def check(self, content, expected=None, warning=""):
        self.file("a.wav", content)
        result = self.expect(0, "export", "--quiet", "--force", "a.wav", out="")
        self.assertEqual(result.stderr and re.sub(": the data.*\n", "", result.stderr),
                         warning and f"mixdeck-cli: a.wav: Warning: {warning}")
        self.assertEqual(unpack24(samples_of(self.path("a_Decode.WAV"))),
                         self.expected if expected is None else expected)

    def test_further_chunks_anywhere(self):
        junk = chunk("JUNK", bytes(28))
        info = chunk("LIST", b"INFOISFT" + struct.pack("<I", 4) + b"abc\0")
        fact = chunk("fact", struct.pack("<I", 3))
        cue = chunk("cue ", struct.pack("<IIIIIII", 1, 1, 0, 0x61746164, 0, 0, 2))
        other = chunk("xyz!", b"anything")
        empty = chunk("none", b"")
        self.check(wave(junk, bext(), fmt(), self.data))
        self.check(wave(junk, fmt(), fact, bext(), info, cue, other, empty, self.data))
        self.check(wave(fmt(), bext(), self.data, info, cue, other, junk))
        self.check(wave(other, empty, empty, bext(), junk, fmt(), self.data, fact))

    def test_an_extended_format_chunk(self):
        long_fmt = chunk("fmt ", fmt()[8:] + bytes(24))
        self.check(wave(bext(), long_fmt, self.data))

    def test_the_format_after_the_data(self):
        self.check(wave(bext(), self.data, fmt()))
        self.check(wave(self.data, fmt(), bext()))

    # The recorder pads nothing: what follows an odd chunk is read right after it.
    def test_an_odd_chunk_is_not_padded(self):
        self.check(wave(fmt(), chunk("odd!", b"abc"), bext(), self.data))
        self.check(wave(fmt(), bext(history=RAW + "x"), self.data))
        self.file("padded.wav", wave(fmt(), bext(), chunk("odd!", b"abc") + b"\0", self.data))
        result = self.expect(1, "export", "padded.wav")
        self.assertIn("File not supported. Not a WAVE file: no data chunk", result.stderr)

    def test_a_truncated_file(self):
        whole = wave(fmt(), bext(), self.data)
        self.check(whole[:-6], self.expected[:4], "Cut short")
        self.check(whole[:-7], self.expected[:2], "Cut short")
        self.check(whole[:-18], [], "No audio")
        for cut in (19, 100, 300):
            self.file("cut.wav", whole[:-cut - 8])
            self.assertIn("File not supported.", self.expect(1, "export", "cut.wav").stderr)

    def test_every_length_of_a_file(self):
        whole = wave(fmt(), bext(), self.data)
        for length in range(0, len(whole), 7):
            self.file("cut.wav", whole[:length])
            status = self.run_cli("export", "--force", "cut.wav").returncode
            self.assertEqual(status, 0 if length >= len(whole) - len(self.data) + 8 else 1, length)

    def test_a_data_size_that_is_wrong(self):
        samples = pack24(self.samples)
        self.check(wave(fmt(), bext(), chunk("data", samples, 0)), [], "No audio")
        self.check(wave(fmt(), bext(), chunk("data", samples, 19)), None, "Cut short")
        self.check(wave(fmt(), bext(), chunk("data", samples, 0x7FFFFFFF)), None, "Cut short")
        self.check(wave(fmt(), bext(), chunk("data", samples, 12)), self.expected[:4])

    # The end of such a chunk is counted in 32 bits and falls before its start.
    def test_a_data_size_of_all_ones(self):
        self.check(wave(fmt(), bext(), chunk("data", pack24(self.samples), 0xFFFFFFFF)), [],
                   "No audio")

    def test_a_riff_size_that_is_wrong(self):
        self.check(wave(fmt(), bext(), self.data, riff_size=0x7FFFFFFF))
        self.check(wave(fmt(), bext(), self.data, chunk("fmt ", bytes(16)),
                        riff_size=4 + len(fmt()) + len(bext()) + len(self.data)))
        # Eight more than this wraps around 32 bits: nothing is left to look through.
        self.file("b.wav", wave(fmt(), bext(), self.data, riff_size=0xFFFFFFFF))
        self.assertIn("File not supported.", self.expect(1, "export", "b.wav").stderr)

    def test_a_chunk_that_runs_past_the_end(self):
        self.check(wave(fmt(), bext(), self.data, chunk("xyz!", b"abcd", 1000)))
        self.file("b.wav", wave(fmt(), bext(), chunk("xyz!", b"abcd", 1000), self.data))
        self.assertIn("File not supported.", self.expect(1, "export", "b.wav").stderr)


class ForeignReaderTest(Case):
    """Others read our exports without a word of complaint, and agree on what they are."""

    frames = 48000

    def setUp(self):
        super().setUp()
        samples = [(i * 7919) % 4000000 - 2000000 for i in range(2 * self.frames)]
        self.file("a.wav", recording(samples, description="By the river"))
        for name, width in (("24.wav", "24"), ("32.wav", "float32")):
            self.expect(0, "export", "--format", width, "--output", name, "a.wav", err="")

    def output_of(self, *words):
        result = subprocess.run([*words], capture_output=True, text=True, cwd=self.folder,
                                check=False)
        self.assertEqual((result.returncode, result.stderr), (0, ""), result)
        return result.stdout

    def test_ffprobe(self):
        for name, codec, bits in (("24.wav", "pcm_s24le", 24), ("32.wav", "pcm_f32le", 32)):
            found = json.loads(self.output_of("ffprobe", "-v", "warning", "-of", "json",
                                              "-show_streams", "-show_format", name))
            stream = found["streams"][0]
            self.assertEqual((stream["codec_name"], stream["sample_rate"], stream["channels"]),
                             (codec, "48000", 2))
            self.assertEqual(stream["duration_ts"], self.frames)
            self.assertEqual(stream["bits_per_sample"], bits)
            self.assertEqual(found["format"]["duration"], "1.000000")
            tags = found["format"]["tags"]
            ours = self.info(self.path(name))["bext"]
            self.assertEqual(tags["comment"], "By the river")
            self.assertEqual(tags["encoded_by"], "TARN J4")
            self.assertEqual(tags["originator_reference"], "REF")
            self.assertEqual(tags["date"], ours["OriginationDate"])
            self.assertEqual(tags["creation_time"], ours["OriginationTime"])
            self.assertEqual(tags["time_reference"], "0")
            self.assertEqual(tags["coding_history"], ours["CodingHistory"])

    def test_ffmpeg_decodes_the_same_samples(self):
        for name, form in (("24.wav", "s24le"), ("32.wav", "f32le")):
            result = subprocess.run(["ffmpeg", "-v", "warning", "-guess_layout_max", "0", "-i",
                                     self.path(name), "-f", form,
                                     "-c:a", f"pcm_{form}", "-"], capture_output=True, check=True)
            self.assertEqual(result.stderr, b"")
            self.assertEqual(result.stdout, samples_of(self.path(name)))

    def test_mediainfo(self):
        for name, form, bits in (("24.wav", "PCM", "24"), ("32.wav", "PCM", "32")):
            found = json.loads(self.output_of("mediainfo", "--Output=JSON", name))
            general, audio = found["media"]["track"]
            self.assertEqual(general["Format"], "Wave")
            self.assertEqual((audio["Format"], audio["Channels"], audio["SamplingRate"],
                              audio["BitDepth"]), (form, "2", "48000", bits))
            self.assertEqual(audio["SamplingCount"], str(self.frames))
            self.assertEqual(float(audio["Duration"]), 1.0)
            self.assertEqual(general["Description"], "By the river")
            self.assertEqual(general["Producer"], "TARN J4")
            self.assertEqual(general["extra"]["Producer_Reference"], "REF")
            self.assertNotIn("IsTruncated", general["extra"])
            self.assertNotIn("ConformanceErrors", general["extra"])
        self.assertEqual(audio["Format_Profile"], "Float")

    def test_sndfile_info(self):
        for name, form, width in (("24.wav", "1 => WAVE_FORMAT_PCM", 3),
                                  ("32.wav", "3 => WAVE_FORMAT_IEEE_FLOAT", 4)):
            text = self.output_of("sndfile-info", name)
            self.assertRegex(text, r"Sample Rate : 48000\n")
            self.assertRegex(text, rf"Frames      : {self.frames}\n")
            self.assertRegex(text, r"Channels    : 2\n")
            self.assertRegex(text, r"Duration    : 00:00:01.000\n")
            self.assertIn(form, text)
            self.assertIn(f"data : {2 * self.frames * width}\n", text)
            remarks = re.findall(r"(?i).*\*\*\*.*|.*should.*|.*error.*|.*bad .*", text)
            # Float data goes without a fact chunk, on purpose; of that alone it is reminded.
            no_fact = "**** All non-PCM format files should have a 'fact' chunk."
            self.assertEqual(remarks, [no_fact] if width == 4 else [])
            broadcast = self.output_of("sndfile-info", "--broadcast", name)
            ours = self.info(self.path(name))["bext"]
            for label, value in (("Description", "By the river"), ("Originator", "TARN J4"),
                                 ("Origination ref", "REF"),
                                 ("Origination date", ours["OriginationDate"]),
                                 ("Origination time", ours["OriginationTime"]),
                                 ("BWF version", "1"), ("Coding history", ours["CodingHistory"])):
                self.assertRegex(broadcast, rf"{label}\s*: {re.escape(value)}")

    def test_an_export_without_frames(self):
        self.file("a.wav", recording([]))
        self.expect(0, "export", "--output", "none.wav", "a.wav")
        self.assertEqual(len(self.read("none.wav")), 748)
        text = self.output_of("sndfile-info", "none.wav")
        self.assertRegex(text, r"Frames      : 0\n")


if __name__ == "__main__":
    unittest.main()
