// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "export/Export.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <chrono>
#include <string>

#include "unit/export/ExportFixture.h"

namespace fs = std::filesystem;

namespace {

using testing::ElementsAre;
using testing::StartsWith;

class ExportTest : public ExportFixture {
 protected:
  static bool accepts(Export& job, const WaveBytes& file) { return job.checkFileValid(file.get()); }

  /// A recording whose extension has a time, loudness values and more in the reserve, as version 2
  /// knows them, and another history.
  static Bytes laterVersion() {
    constexpr std::ptrdiff_t kReserve = 412;
    Bytes payload = WaveBytes::bextPayload("TARN J4", "A=PCM,F=96000,W=16,M=dual-mono;MSRAW=ON;");
    payload[346] = std::byte{2};
    std::fill_n(payload.begin() + kReserve, 190, std::byte{0x5A});
    return WaveBytes().format24().chunk("bext", payload).data(Bytes(12)).get();
  }

  Export _job{_folder.path() / "missing.wav"};
};

TEST_F(ExportTest, StartsWithTheFileAndNoSettings) {
  const fs::path path = _folder.file("in.wav", recording24({1, 2}, true));
  const Export job(path);
  EXPECT_TRUE(job.IsFileValid());
  EXPECT_EQ(job.getFilePath(), path);
  EXPECT_EQ(job.getDirPath(), _folder.path());
  EXPECT_EQ(job.gain(), 0.0);
  EXPECT_EQ(job.angle(), 0.0);
  EXPECT_FALSE(job.normalize());
  EXPECT_EQ(job.failure(), "");
  ASSERT_NE(job.reader(), nullptr);
  EXPECT_TRUE(job.reader()->isBoMSFormat());
}

TEST_F(ExportTest, KeepsWhatIsSet) {
  _job.setDirPath("/elsewhere");
  _job.setGain(-3.5);
  _job.setAngle(77.5);
  _job.setNormalize(true);
  EXPECT_EQ(_job.getDirPath(), "/elsewhere");
  EXPECT_EQ(_job.gain(), -3.5);
  EXPECT_EQ(_job.angle(), 77.5);
  EXPECT_TRUE(_job.normalize());
}

TEST_F(ExportTest, IsNotValidWithoutAFile) {
  EXPECT_FALSE(_job.IsFileValid());
  EXPECT_EQ(_job.failure(), "No such file or directory");
  EXPECT_FALSE(_job.export2File(target(), true, false));
  EXPECT_THAT(_folder.names(), ElementsAre());
  const Export folder(_folder.path());
  EXPECT_FALSE(folder.IsFileValid());
  EXPECT_EQ(folder.failure(), "Is a directory");
}

TEST_F(ExportTest, DoesNotExportWhatIsNotTheRecorders) {
  Export job(_folder.file("in.wav", WaveBytes().format24().data(Bytes(12)).get()));
  EXPECT_FALSE(job.IsFileValid());
  EXPECT_FALSE(job.export2File(target(), true, false));
  EXPECT_THAT(_folder.names(), ElementsAre("in.wav"));
}

TEST_F(ExportTest, TakesRawRecordings) {
  EXPECT_TRUE(accepts(_job, WaveBytes().format24().recorderBext().data(Bytes(6))));
  EXPECT_TRUE(_job.reader()->isBoMSFormat());
  EXPECT_TRUE(accepts(_job, WaveBytes().format24().recorderBext(false).data(Bytes(6))));
  EXPECT_FALSE(_job.reader()->isBoMSFormat());
}

TEST_F(ExportTest, RejectsWhatIsNoWaveFile) {
  EXPECT_FALSE(_job.checkFileValid({}));
  EXPECT_FALSE(_job.checkFileValid(Bytes(1000)));
  EXPECT_FALSE(accepts(_job, WaveBytes().format24().recorderBext()));
  EXPECT_FALSE(accepts(_job, WaveBytes().recorderBext().data(Bytes(6))));
  EXPECT_FALSE(accepts(_job, WaveBytes().format24().data(Bytes(600))));
}

TEST_F(ExportTest, RejectsOthersAndDoesNotCallThemRaw) {
  EXPECT_FALSE(accepts(_job, WaveBytes().format24().bext("", "MSRAW=ON").data(Bytes(6))));
  EXPECT_FALSE(_job.reader()->isBoMSFormat());
  EXPECT_THAT(_job.failure(), StartsWith("Not a recording of the TARN J4"));
  EXPECT_TRUE(accepts(_job, WaveBytes().format24().bext("TARN J4 X", "").data(Bytes(6))));
  EXPECT_EQ(_job.failure(), "");
}

TEST_F(ExportTest, CarriesTheTextsOver) {
  Bytes payload = WaveBytes::bextPayload("My TARN J4", "MSRAW=ON;history", "By the river");
  ASSERT_TRUE(accepts(_job, WaveBytes().format24().chunk("bext", payload).data(Bytes(6))));
  const BextChunkInfo info = _job.buildBextInfo();
  EXPECT_EQ(info.Description, "By the river");
  EXPECT_EQ(info.Originator, "My TARN J4");
  EXPECT_EQ(info.OriginatorReference, "REF");
  EXPECT_EQ(info.UniqueMaterialIdentifier, "UMID");
}

TEST_F(ExportTest, CarriesFullFieldsOver) {
  const Bytes payload = ByteBuilder()
                            .text(std::string(256, 'd'))
                            .text("TARN J4" + std::string(25, 'o'))
                            .text(std::string(32, 'r'))
                            .zeros(28)
                            .text(std::string(64, 'u'))
                            .zeros(190)
                            .get();
  ASSERT_TRUE(accepts(_job, WaveBytes().format24().chunk("bext", payload).data(Bytes(6))));
  const BextChunkInfo info = _job.buildBextInfo();
  EXPECT_EQ(info.Description, std::string(256, 'd'));
  EXPECT_EQ(info.Originator, "TARN J4" + std::string(25, 'o'));
  EXPECT_EQ(info.OriginatorReference, std::string(32, 'r'));
  EXPECT_EQ(info.UniqueMaterialIdentifier, std::string(64, 'u'));
}

TEST_F(ExportTest, DoesNotCarryDateTimeReferenceAndHistoryOver) {
  ASSERT_TRUE(_job.checkFileValid(laterVersion()));
  const auto before = std::chrono::system_clock::now();
  const BextChunkInfo info = _job.buildBextInfo();
  EXPECT_GE(info.OriginationDateTime, before);
  EXPECT_LE(info.OriginationDateTime, std::chrono::system_clock::now());
  EXPECT_EQ(info.TimeReference, 0);
  EXPECT_EQ(info.CodingHistory, "A=PCM,F=48000,W=32,M=stereo,T=J4;VERSION=1.00;MSRAW=OFF;");
  EXPECT_EQ(info.Version, 1);
  ASSERT_EQ(info.Reserved.length, 190U);
  for (std::size_t i = 0; i < 190; ++i) EXPECT_EQ(info.Reserved.bytes[i], 0);
}

TEST_F(ExportTest, WritesVersion1AndAZeroedReserveWhateverTheSourceHas) {
  for (const bool is24bit : {true, false}) {
    const ByteView file = exported(laterVersion(), is24bit, {});
    EXPECT_EQ(file.u16(402), 1U);
    EXPECT_EQ(file.text(468, 190), std::string(190, '\0'));
  }
}

TEST_F(ExportTest, WritesItsOwnHistory) {
  const Bytes source = recording24({1, 2}, true);
  const ByteView narrow = exported(source, true, {});
  EXPECT_EQ(narrow.u32(52), 658U);
  EXPECT_EQ(narrow.text(658, 56), "A=PCM,F=48000,W=24,M=stereo,T=J4;VERSION=1.00;MSRAW=OFF;");
  const ByteView wide = exported(source, false, {});
  EXPECT_EQ(wide.u32(52), 658U);
  EXPECT_EQ(wide.text(658, 56), "A=PCM,F=48000,W=32,M=stereo,T=J4;VERSION=1.00;MSRAW=OFF;");
}

TEST_F(ExportTest, KeepsTheRateButNotInTheHistory) {
  const Bytes source = WaveBytes().format(1, 2, 96000, 24).recorderBext().data(Bytes(12)).get();
  const ByteView file = exported(source, true, {});
  EXPECT_EQ(file.u32(726), 96000U);
  EXPECT_EQ(file.text(658, 14), "A=PCM,F=48000,");
}

TEST_F(ExportTest, WritesTheWholeHeader) {
  const ByteView file = exported(recording24({1, 2, 3, 4}, true), true, {});
  EXPECT_EQ(file.size(), 760U);
  EXPECT_EQ(file.text(0, 4), "RIFF");
  EXPECT_EQ(file.u32(4), 752U);
  EXPECT_EQ(file.text(8, 8), "WAVEJUNK");
  EXPECT_EQ(file.text(56, 7), std::string(7, '\0'));  // the source has no description
  EXPECT_EQ(file.text(312, 8), std::string("TARN J4\0", 8));
  EXPECT_EQ(file.text(344, 4), std::string("REF\0", 4));
  EXPECT_NE(file.text(376, 10), "2026-05-04");
  EXPECT_EQ(file.text(380, 1) + file.text(383, 1) + file.text(388, 1) + file.text(391, 1), "--::");
  EXPECT_EQ(file.text(394, 8), std::string(8, '\0'));  // time reference
  EXPECT_EQ(file.u16(402), 1U);
  EXPECT_EQ(file.text(404, 5), std::string("UMID\0", 5));
  EXPECT_EQ(file.text(740, 4), "data");
  EXPECT_EQ(file.u32(744), 12U);
}

TEST_F(ExportTest, ForetellsTheSize) {
  const Export job(_folder.file("in.wav", recording24({1, 2, 3, 4, 5, 6}, true)));
  EXPECT_EQ(job.outputSize(true), 748U + 18U);
  EXPECT_EQ(job.outputSize(false), 748U + 24U);
}

TEST_F(ExportTest, RecognisesItsOwnExportAndLeavesItsChannelsAlone) {
  exported(recording24({100, 50, -7, 9}, true), true, {});
  const std::vector<std::int32_t> once = ByteView(TemporaryFolder::read(target())).all24(kSamples);
  Export again(target());
  ASSERT_TRUE(again.IsFileValid()) << again.failure();
  EXPECT_FALSE(again.reader()->isBoMSFormat());
  again.setAngle(33);
  const fs::path second = _folder.path() / "second.wav";
  ASSERT_TRUE(again.export2File(second, false, false));
  std::vector<float> expected;
  for (const std::int32_t value : once) expected.push_back(static_cast<float>(value) / 8388608.0F);
  EXPECT_EQ(ByteView(TemporaryFolder::read(second)).allFloats(kSamples), expected);
}

TEST_F(ExportTest, LetsGoOfTheFile) {
  Export job(_folder.file("in.wav", recording24({1, 2}, true)));
  job.cleanUp();
  EXPECT_FALSE(job.export2File(target(), true, false));
  EXPECT_EQ(job.failure(), "No recording is open");
  job.cleanUp();
  EXPECT_THAT(_folder.names(), ElementsAre("in.wav"));
}

TEST_F(ExportTest, ExportsTheDataThatItWasGiven) {
  ASSERT_TRUE(_job.checkFileValid(recording24({4194304, 0, -4194304, 0}, false)));
  EXPECT_TRUE(_job.IsFileValid());
  EXPECT_TRUE(_job.export2File(target(), true, false)) << _job.failure();
  EXPECT_EQ(ByteView(TemporaryFolder::read(target())).all24(kSamples).size(), 4U);
}

TEST_F(ExportTest, ExportsNothingOnceItWasGivenWhatIsNotTheRecorders) {
  Export job(_folder.file("in.wav", recording24({1, 2}, true)));
  EXPECT_FALSE(job.checkFileValid(WaveBytes().format24().data(Bytes(6)).get()));
  EXPECT_FALSE(job.IsFileValid());
  EXPECT_FALSE(job.export2File(target(), true, false));
  EXPECT_THAT(_folder.names(), ElementsAre("in.wav"));
}

TEST_F(ExportTest, ForetellsNoSizeWithoutARecording) {
  EXPECT_EQ(_job.outputSize(true), 0U);
  EXPECT_EQ(_job.outputSize(false), 0U);
}

}  // namespace
