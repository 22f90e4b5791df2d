// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "export/Recognition.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/WaveBytes.h"
#include "wav/BextLayout.h"

namespace {

using Bytes = std::vector<std::byte>;

Recognition recognise(const Bytes& file) {
  return Recognition(*WaveFileReader::readFromData(file));
}

Recognition recognise(std::string_view originator, std::string_view history) {
  return recognise(WaveBytes().format24().bext(originator, history).data(Bytes(6)).get());
}

Recognition recogniseBext(const Bytes& payload) {
  return recognise(WaveBytes().format24().chunk("bext", payload).data(Bytes(6)).get());
}

TEST(RecognitionTest, KnowsNothingBeforeAFileIsSeen) {
  Recognition none;
  EXPECT_FALSE(none.isRecorder());
  EXPECT_FALSE(none.isRawMidSide());
  EXPECT_EQ(none.takeBextChunk().length, 0U);
}

TEST(RecognitionTest, KnowsARawRecording) {
  const Recognition raw = recognise(WaveBytes().format24().recorderBext().data(Bytes(6)).get());
  EXPECT_TRUE(raw.isRecorder());
  EXPECT_TRUE(raw.isRawMidSide());
  EXPECT_EQ(raw.whyNot(), "");
}

TEST(RecognitionTest, KnowsARecordingThatIsNotRaw) {
  const Recognition plain =
      recognise(WaveBytes().format24().recorderBext(false).data(Bytes(6)).get());
  EXPECT_TRUE(plain.isRecorder());
  EXPECT_FALSE(plain.isRawMidSide());
}

TEST(RecognitionTest, LooksForTheNameAnywhereInTheOriginator) {
  EXPECT_TRUE(recognise("TARN J4 v2.0 #17", "").isRecorder());
  EXPECT_TRUE(recognise("by a TARN J4", "").isRecorder());
  EXPECT_TRUE(recognise(std::string(25, '.') + "TARN J4", "").isRecorder());
}

TEST(RecognitionTest, TakesTheNameLiterally) {
  for (const char* other : {"", "TARN", "TARN  J4", "tarn j4", "TARN J", "TARN_J4"}) {
    const Recognition recognition = recognise(other, "MSRAW=ON");
    EXPECT_FALSE(recognition.isRecorder()) << other;
    EXPECT_FALSE(recognition.isRawMidSide()) << other;
  }
}

TEST(RecognitionTest, DoesNotLookPastTheOriginatorField) {
  EXPECT_FALSE(recognise(std::string(26, '.') + "TARN J4", "").isRecorder());
  EXPECT_FALSE(recognise(std::string("\0TARN J4", 8), "").isRecorder());
  EXPECT_FALSE(recogniseBext(WaveBytes::bextPayload("Other", "TARN J4", "TARN J4")).isRecorder());
}

TEST(RecognitionTest, LooksForTheMarkAnywhereInTheHistory) {
  EXPECT_TRUE(recognise("TARN J4", "MSRAW=ON").isRawMidSide());
  EXPECT_TRUE(recognise("TARN J4", "A=PCM;xMSRAW=ONx").isRawMidSide());
  EXPECT_TRUE(recognise("TARN J4", std::string(5000, 'a') + "MSRAW=ON").isRawMidSide());
  EXPECT_TRUE(recognise("TARN J4", "MSRAW=OFF;MSRAW=ON;").isRawMidSide());
}

TEST(RecognitionTest, TakesTheMarkLiterally) {
  for (const char* other : {"", "MSRAW=OFF;", "MSRAW=on", "msraw=ON", "MSRAW =ON", "MSRAW=O"}) {
    EXPECT_FALSE(recognise("TARN J4", other).isRawMidSide()) << other;
    EXPECT_TRUE(recognise("TARN J4", other).isRecorder()) << other;
  }
  EXPECT_FALSE(recognise("TARN J4", std::string("A\0MSRAW=ON", 10)).isRawMidSide());
  EXPECT_FALSE(recogniseBext(WaveBytes::bextPayload("TARN J4", "", "MSRAW=ON")).isRawMidSide());
}

TEST(RecognitionTest, NeedsAWholeExtension) {
  Bytes payload = WaveBytes::bextPayload("TARN J4", "");
  ASSERT_EQ(payload.size(), 602U);
  EXPECT_TRUE(recogniseBext(payload).isRecorder());
  payload.pop_back();
  const Recognition tooShort = recogniseBext(payload);
  EXPECT_FALSE(tooShort.isRecorder());
  EXPECT_EQ(tooShort.whyNot(), "The broadcast extension has 601 bytes, fewer than 602");
  EXPECT_FALSE(recogniseBext({}).isRecorder());
}

TEST(RecognitionTest, TakesTheFirstExtension) {
  const Recognition recognition = recognise(
      WaveBytes().format24().recorderBext(false).bext("Other", "MSRAW=ON").data(Bytes(6)).get());
  EXPECT_TRUE(recognition.isRecorder());
  EXPECT_FALSE(recognition.isRawMidSide());
}

TEST(RecognitionTest, TellsWhyNot) {
  EXPECT_EQ(recognise(Bytes(10)).whyNot(), "Not a WAVE file: shorter than 48 bytes");
  EXPECT_EQ(recognise(WaveBytes().format24().data(Bytes(12)).get()).whyNot(),
            "No broadcast extension (bext chunk)");
  EXPECT_EQ(recognise("Someone", "").whyNot(),
            "Not a recording of the TARN J4: its originator is \"Someone\"");
}

// A sane history has some lines; a chunk may claim four gigabytes of it.
TEST(RecognitionTest, LooksAtAsMuchOfAHistoryAsThereIsInAnyRecording) {
  const std::string mark = "MSRAW=ON";
  const std::string before(bext::kMostHistory - mark.size(), 'a');
  EXPECT_TRUE(recognise("TARN J4", before + mark).isRawMidSide());
  Recognition tooFar = recognise("TARN J4", before + "a" + mark);
  EXPECT_TRUE(tooFar.isRecorder());
  EXPECT_FALSE(tooFar.isRawMidSide());
  EXPECT_EQ(tooFar.takeBextChunk().length, bext::kMostUsed);
}

TEST(RecognitionTest, HandsOutThePayload) {
  Recognition recognition = recognise("TARN J4", "history");
  const WavArray taken = recognition.takeBextChunk();
  ASSERT_EQ(taken.length, 609U);
  EXPECT_EQ(taken.bytes[256], 'T');
  EXPECT_EQ(taken.bytes[608], 'y');
}

}  // namespace
