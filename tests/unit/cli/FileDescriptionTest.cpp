// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "cli/FileDescription.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/TemporaryFolder.h"
#include "support/WaveBytes.h"

namespace {

using Bytes = std::vector<std::byte>;
using Names = std::vector<std::string>;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

Names keysOf(const nlohmann::ordered_json& object) {
  Names keys;
  for (const auto& [key, value] : object.items()) keys.push_back(key);
  return keys;
}

class FileDescriptionTest : public testing::Test {
 protected:
  FileDescription describe(const WaveBytes& file) const {
    return FileDescription(_folder.file("in.wav", file.get()));
  }

  /// The warning for a data chunk that states `stated` bytes and holds `held`.
  static std::string warning(std::uint32_t stated, std::size_t held) {
    return FileDescription::audioWarning(*WaveFileReader::readFromData(cut(stated, held)));
  }
  static Bytes cut(std::uint32_t stated, std::size_t held) {
    return WaveBytes().format24().recorderBext().chunk("data", stated, Bytes(held)).get();
  }

  TemporaryFolder _folder;
};

TEST_F(FileDescriptionTest, RunOfEmptyChunksIsOneLine) {
  WaveBytes few = WaveBytes().format24();
  WaveBytes many = WaveBytes().format24();
  for (int i = 0; i < 8; ++i) few.chunk("none", {});
  for (int i = 0; i < 9; ++i) many.chunk("none", {});
  EXPECT_THAT(describe(few).text(), Not(HasSubstr("more")));
  const FileDescription file = describe(many.chunk("last", {}));
  EXPECT_THAT(file.text(), HasSubstr("  chunk none  at         44           0 bytes, and 8 more of "
                                     "it\n  chunk last  at        116           0 bytes\n"));
  EXPECT_EQ(file.json()["chunks"].size(), 11U);
}

TEST_F(FileDescriptionTest, HasAllKeysInOrder) {
  const FileDescription file = describe(WaveBytes().format24().recorderBext().data(Bytes(6)));
  EXPECT_TRUE(file.isReadable());
  EXPECT_EQ(keysOf(file.json()),
            (Names{"path", "valid", "recorder", "raw_ms", "reason", "header", "chunks", "bext",
                   "duration_seconds", "frames", "sample_rate", "warning"}));
  EXPECT_EQ(keysOf(file.json()["header"]),
            (Names{"ChunkID", "ChunkSize", "Format", "Subchunk1ID", "Subchunk1Size", "AudioFormat",
                   "NumChannels", "SampleRate", "ByteRate", "BlockAlign", "BitsPerSample",
                   "dataChunkPosition", "dataChunkLength", "dataChunkEnd"}));
  EXPECT_EQ(keysOf(file.json()["chunks"][0]), (Names{"id", "position", "size"}));
  EXPECT_EQ(keysOf(file.json()["bext"]),
            (Names{"Description", "Originator", "OriginatorReference", "OriginationDate",
                   "OriginationTime", "TimeReference", "Version", "UniqueMaterialIdentifier",
                   "Reserved", "CodingHistory"}));
}

TEST_F(FileDescriptionTest, DescribesARawRecording) {
  const FileDescription file = describe(WaveBytes().format24().recorderBext().data(Bytes(144000)));
  const auto& json = file.json();
  EXPECT_EQ(json["path"], (_folder.path() / "in.wav").native());
  EXPECT_EQ(json["valid"], true);
  EXPECT_EQ(json["recorder"], true);
  EXPECT_EQ(json["raw_ms"], true);
  EXPECT_EQ(json["reason"], "");
  EXPECT_EQ(json["duration_seconds"], 0.5);
}

TEST_F(FileDescriptionTest, TellsTheHeader) {
  const FileDescription file = describe(WaveBytes().format24().recorderBext().data(Bytes(6)));
  const auto& header = file.json()["header"];
  EXPECT_EQ(header["ChunkID"], 0x46464952);
  EXPECT_EQ(header["ChunkSize"], 707);
  EXPECT_EQ(header["Format"], 0x45564157);
  EXPECT_EQ(header["Subchunk1ID"], 0x20746D66);
  EXPECT_EQ(header["Subchunk1Size"], 16);
  EXPECT_EQ(header["AudioFormat"], 1);
  EXPECT_EQ(header["NumChannels"], 2);
  EXPECT_EQ(header["SampleRate"], 48000);
  EXPECT_EQ(header["ByteRate"], 288000);
  EXPECT_EQ(header["BlockAlign"], 6);
  EXPECT_EQ(header["BitsPerSample"], 24);
  EXPECT_EQ(header["dataChunkPosition"], 709);
  EXPECT_EQ(header["dataChunkLength"], 6);
  EXPECT_EQ(header["dataChunkEnd"], 715);
}

TEST_F(FileDescriptionTest, ListsTheChunks) {
  const FileDescription file = describe(
      WaveBytes().format24().chunk("JUNK", Bytes(28)).recorderBext().chunk("data", 99, Bytes(6)));
  const auto& chunks = file.json()["chunks"];
  ASSERT_EQ(chunks.size(), 4U);
  EXPECT_EQ(chunks[0].dump(), R"({"id":"fmt ","position":20,"size":16})");
  EXPECT_EQ(chunks[1].dump(), R"({"id":"JUNK","position":44,"size":28})");
  EXPECT_EQ(chunks[2].dump(), R"({"id":"bext","position":80,"size":657})");
  EXPECT_EQ(chunks[3].dump(), R"({"id":"data","position":745,"size":99})");
}

TEST_F(FileDescriptionTest, TellsEveryFieldOfTheExtension) {
  const Bytes payload = WaveBytes::bextPayload("TARN J4", "A=PCM;MSRAW=OFF;", "By the river");
  const FileDescription file =
      describe(WaveBytes().format24().chunk("bext", payload).data(Bytes(6)));
  const auto& bext = file.json()["bext"];
  EXPECT_EQ(bext["Description"], "By the river");
  EXPECT_EQ(bext["Originator"], "TARN J4");
  EXPECT_EQ(bext["OriginatorReference"], "REF");
  EXPECT_EQ(bext["OriginationDate"], "2026-05-04");
  EXPECT_EQ(bext["OriginationTime"], "03:02:01");
  EXPECT_EQ(bext["TimeReference"], 123456);
  EXPECT_EQ(bext["Version"], 1);
  EXPECT_EQ(bext["UniqueMaterialIdentifier"], "UMID");
  EXPECT_EQ(bext["Reserved"], "");
  EXPECT_EQ(bext["CodingHistory"], "A=PCM;MSRAW=OFF;");
  EXPECT_EQ(file.json()["raw_ms"], false);
}

TEST_F(FileDescriptionTest, ShowsReservedBytesThatAreNotZero) {
  Bytes payload = WaveBytes::bextPayload("TARN J4", "");
  payload[412] = std::byte{0xAB};
  payload[601] = std::byte{0x01};
  const FileDescription file =
      describe(WaveBytes().format24().chunk("bext", payload).data(Bytes(6)));
  EXPECT_EQ(file.json()["bext"]["Reserved"], "ab" + std::string(376, '0') + "01");
}

TEST_F(FileDescriptionTest, HasNoExtensionWhereThereIsNone) {
  const FileDescription none = describe(WaveBytes().format24().data(Bytes(12)));
  EXPECT_TRUE(none.json()["bext"].is_null());
  EXPECT_EQ(none.json()["valid"], true);
  EXPECT_EQ(none.json()["recorder"], false);
  EXPECT_EQ(none.json()["reason"], "No broadcast extension (bext chunk)");
  const FileDescription tooShort =
      describe(WaveBytes().format24().chunk("bext", Bytes(601)).data(Bytes(12)));
  EXPECT_TRUE(tooShort.json()["bext"].is_null());
}

TEST_F(FileDescriptionTest, DescribesWhatIsNoWaveFile) {
  const FileDescription file(_folder.file("in.wav", Bytes(100)));
  EXPECT_TRUE(file.isReadable());
  EXPECT_EQ(file.json()["valid"], false);
  EXPECT_EQ(file.json()["reason"], "Not a WAVE file: not a RIFF file");
  EXPECT_TRUE(file.json()["chunks"].empty());
  EXPECT_EQ(file.json()["duration_seconds"], 0.0);
}

TEST_F(FileDescriptionTest, DescribesWhatCannotBeRead) {
  const FileDescription file(_folder.path() / "missing.wav");
  EXPECT_FALSE(file.isReadable());
  EXPECT_EQ(file.json()["valid"], false);
  EXPECT_EQ(file.json()["reason"], "No such file or directory");
  EXPECT_EQ(file.json()["header"]["ChunkID"], 0);
  EXPECT_EQ(file.text(), "");
}

TEST_F(FileDescriptionTest, TellsTheSameAsText) {
  const std::string text =
      describe(WaveBytes().format24().recorderBext().data(Bytes(288000 * 61))).text();
  EXPECT_THAT(text, HasSubstr("WAVE file: yes   of the recorder: yes   raw M/S: yes"));
  EXPECT_THAT(text, HasSubstr("2 channels, 48000 Hz, 24-bit integer PCM, 00:01:01.000"));
  EXPECT_THAT(text, HasSubstr("chunk fmt   at         20          16 bytes"));
  EXPECT_THAT(text, HasSubstr("chunk data  at        709    17568000 bytes"));
  EXPECT_THAT(text, HasSubstr("  Originator: TARN J4\n"));
  EXPECT_THAT(text, HasSubstr("  TimeReference: 123456\n"));
  EXPECT_THAT(text, HasSubstr("MSRAW=ON;\n"));
}

TEST_F(FileDescriptionTest, LeavesTheReasonToWhoTellsIt) {
  const std::string text = describe(WaveBytes().formatFloat().data(Bytes(16))).text();
  EXPECT_THAT(text, HasSubstr("of the recorder: no"));
  EXPECT_THAT(text, Not(HasSubstr("No broadcast extension (bext chunk)")));
  EXPECT_THAT(text, HasSubstr("32-bit IEEE float"));
  EXPECT_THAT(text, Not(HasSubstr("Originator")));
}

TEST_F(FileDescriptionTest, WarnsOfSamplesThatTheRecorderNeverWrites) {
  const auto warningOf = [](std::uint16_t tag, std::uint16_t channels, std::uint16_t bits) {
    const Bytes bytes =
        WaveBytes().format(tag, channels, 48000, bits).recorderBext().data(Bytes(24)).get();
    return FileDescription::audioWarning(*WaveFileReader::readFromData(bytes));
  };
  EXPECT_THAT(warningOf(1, 2, 24), IsEmpty());
  EXPECT_THAT(warningOf(0xFFFE, 2, 24), IsEmpty());
  EXPECT_THAT(warningOf(3, 2, 32), IsEmpty());
  EXPECT_THAT(warningOf(1, 2, 16), HasSubstr("16-bit samples with format tag 1"));
  EXPECT_THAT(warningOf(0xFFFE, 2, 32), HasSubstr("32-bit samples with format tag 65534"));
  EXPECT_THAT(warningOf(1, 1, 24), HasSubstr("1 channels"));
}

TEST_F(FileDescriptionTest, WarnsOfMissingAudio) {
  EXPECT_THAT(warning(12, 12), IsEmpty());
  EXPECT_THAT(warning(6, 12), IsEmpty());
  EXPECT_EQ(warning(0, 12), "No audio: the data chunk states 0 bytes, the file holds 12 after it");
  EXPECT_EQ(warning(13, 12), "Cut short: the data chunk states 13 bytes, the file holds 12");
  EXPECT_EQ(warning(0x7FFFFFFF, 12),
            "Cut short: the data chunk states 2147483647 bytes, the file holds 12");
  // The end of such a chunk wraps around 32 bits, to before its start.
  EXPECT_EQ(warning(0xFFFFFFFF, 12),
            "No audio: the data chunk states 4294967295 bytes, the file holds 12 after it");
}

TEST_F(FileDescriptionTest, HasTheWarningOfARecordingAlone) {
  const auto described = [this](const Bytes& bytes) {
    return FileDescription(_folder.file("in.wav", bytes));
  };
  EXPECT_TRUE(described(cut(12, 12)).json()["warning"].is_null());
  EXPECT_EQ(described(cut(13, 12)).json()["warning"], warning(13, 12));
  EXPECT_THAT(described(cut(13, 12)).text(), HasSubstr("  " + warning(13, 12) + "\n"));
  const FileDescription foreign = describe(WaveBytes().format24().chunk("data", 13, Bytes(12)));
  EXPECT_EQ(foreign.json()["recorder"], false);
  EXPECT_TRUE(foreign.json()["warning"].is_null());
  EXPECT_TRUE(FileDescription(_folder.path() / "none.wav").json()["warning"].is_null());
}

TEST_F(FileDescriptionTest, AdvisesToSalvageWhatBrokeOffAlone) {
  const auto adviceOf = [](const Bytes& bytes) {
    return FileDescription::audioAdvice(*WaveFileReader::readFromData(bytes));
  };
  EXPECT_EQ(adviceOf(cut(12, 12)), "");
  EXPECT_THAT(adviceOf(cut(13, 12)), EndsWith("; mixdeck-cli repair salvages what there is"));
  EXPECT_THAT(adviceOf(WaveBytes().format(1, 1, 48000, 24).recorderBext().data(Bytes(24)).get()),
              Not(HasSubstr("repair")));
}

}  // namespace
