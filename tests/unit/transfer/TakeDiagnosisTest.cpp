// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "transfer/TakeDiagnosis.h"

#include <gmock/gmock.h>

#include <atomic>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "support/ByteBuilder.h"
#include "support/TemporaryFolder.h"
#include "support/WaveBytes.h"
#include "wav/WaveFileReader.h"

namespace {

using Bytes = std::vector<std::byte>;
using State = TakeDiagnosis::State;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::uint32_t kElsewhere = 0xFFFFFFFF;
constexpr std::uint64_t kMost = ~std::uint64_t{0};

TakeDiagnosis diagnose(const Bytes& file) {
  return TakeDiagnosis::of(*WaveImage::fromBytes(file));
}

Bytes loud(std::size_t count) {
  return Bytes(count, std::byte{0x11});
}

// Format at 12; the samples begin at 44.
Bytes take(std::uint32_t stated, const Bytes& samples) {
  return WaveBytes().format24().chunk("data", stated, samples).get();
}

Bytes withRiffSize(const Bytes& file, std::uint32_t size) {
  return ByteBuilder().bytes(file).patch32(4, size).get();
}

void expectSound(const Bytes& file) {
  const TakeDiagnosis found = diagnose(file);
  EXPECT_EQ(found.state, State::Sound) << found.whyHopeless;
  EXPECT_THAT(found.findings, IsEmpty());
}

void expectHopeless(const Bytes& file, const std::string& reason) {
  const TakeDiagnosis found = diagnose(file);
  EXPECT_EQ(found.state, State::Hopeless);
  EXPECT_EQ(found.whyHopeless, reason);
}

TEST(TakeDiagnosisTest, AWholeTakeIsSound) {
  expectSound(take(12, loud(12)));
  expectSound(take(0, {}));
  expectSound(WaveBytes().format24().data(loud(12)).chunk("LIST", loud(5)).get());
  expectSound(WaveBytes().format24().data({}).chunk("LIST", loud(600)).get());
  expectSound(WaveBytes().format24().data(loud(12)).chunk("JUNK", Bytes(600)).get());
}

TEST(TakeDiagnosisTest, SilenceOfAKnownLengthBelongsToTheTake) {
  expectSound(take(6000, Bytes(6000)));
}

TEST(TakeDiagnosisTest, BytesAfterTheEndThatAreNoZerosAreNobodysBusiness) {
  const Bytes file = take(12, loud(12));
  expectSound(ByteBuilder().bytes(file).bytes(loud(2000)).get());
  expectSound(ByteBuilder().bytes(file).zeros(511).get());
}

TEST(TakeDiagnosisTest, ASizeOfNoneMeansAllThatIsThere) {
  const TakeDiagnosis found = diagnose(withRiffSize(take(0, loud(600)), 0));
  EXPECT_EQ(found.state, State::Broken);
  EXPECT_EQ(found.dataAt, 44U);
  EXPECT_EQ(found.keptBytes, 600U);
  EXPECT_EQ(found.frameBytes, 6U);
  EXPECT_EQ(found.sampleRate, 48000U);
  EXPECT_THAT(found.findings, ElementsAre("the data chunk states 0 bytes, the file holds 600",
                                          "the file states 0 bytes, and has 644"));
}

TEST(TakeDiagnosisTest, TheSizesOfAHeaderThatWasNeverFinishedMeanTheSame) {
  const TakeDiagnosis found = diagnose(withRiffSize(take(0, loud(600)), 36));
  EXPECT_EQ(found.state, State::Broken);
  EXPECT_EQ(found.keptBytes, 600U);
}

TEST(TakeDiagnosisTest, ASizeBeyondTheFileEndsWithIt) {
  for (const std::uint32_t stated : {601U, 0x7FFFFFFFU, kElsewhere}) {
    const TakeDiagnosis found = diagnose(take(stated, loud(600)));
    EXPECT_EQ(found.state, State::Broken) << stated;
    EXPECT_EQ(found.keptBytes, 600U) << stated;
    EXPECT_EQ(found.tailBytes, 0U);
  }
}

TEST(TakeDiagnosisTest, OnlyTheSizeOfTheFileMayBeWrong) {
  const Bytes file = WaveBytes().format24().data(loud(12)).chunk("LIST", loud(5)).get();
  for (const std::uint32_t size : {0U, 47U, 62U, 0x80000000U, kElsewhere}) {
    const TakeDiagnosis found = diagnose(withRiffSize(file, size));
    EXPECT_EQ(found.state, State::Broken) << size;
    EXPECT_EQ(found.keptBytes, 12U);
    EXPECT_EQ(found.tailAt, 56U);
    EXPECT_EQ(found.tailBytes, 13U);
  }
  EXPECT_THAT(diagnose(withRiffSize(file, 0x80000000)).findings,
              ElementsAre("the file states 2147483656 bytes, and has 69"));
}

TEST(TakeDiagnosisTest, HalfAFrameIsLeftOut) {
  for (std::size_t more = 1; more < 6; ++more) {
    const TakeDiagnosis found = diagnose(take(0, loud(600 + more)));
    EXPECT_EQ(found.keptBytes, 600U);
    EXPECT_EQ(found.findings.back(), std::to_string(more) + " byte" + (more == 1 ? "" : "s") +
                                         " of half a frame at the end");
  }
}

TEST(TakeDiagnosisTest, HalfAFrameOfAKnownLengthTooAndTheChunksAfterItStay) {
  const TakeDiagnosis found =
      diagnose(WaveBytes().format24().data(loud(13)).chunk("LIST", loud(5)).get());
  EXPECT_EQ(found.state, State::Broken);
  EXPECT_EQ(found.keptBytes, 12U);
  EXPECT_EQ(found.tailAt, 57U);
  EXPECT_EQ(found.tailBytes, 13U);
}

TEST(TakeDiagnosisTest, ATailOfZerosIsLeftOutFromASectorOn) {
  const auto kept = [](std::size_t zeros) {
    const Bytes samples = ByteBuilder().bytes(loud(601)).zeros(zeros).get();
    return diagnose(take(kElsewhere, samples)).keptBytes;
  };
  EXPECT_EQ(kept(5 + 510), 606U + 510) << "a multiple of frames, but too few";
  EXPECT_EQ(kept(5 + 516), 606U) << "the frame with the last sound stays whole";
  EXPECT_EQ(kept(600'000), 606U) << "over many blocks";
}

TEST(TakeDiagnosisTest, ZerosAfterTheEndAreLeftOut) {
  const Bytes file = WaveBytes().format24().data(loud(12)).chunk("LIST", loud(5)).get();
  for (const std::uint32_t size : {61U, 0U}) {
    const Bytes longer = ByteBuilder().bytes(withRiffSize(file, size)).zeros(3000).get();
    const TakeDiagnosis found = diagnose(longer);
    EXPECT_EQ(found.state, State::Broken);
    EXPECT_EQ(found.keptBytes, 12U);
    EXPECT_EQ(found.tailBytes, 13U) << size;
    EXPECT_EQ(found.findings.back(), "3000 zero bytes after the end of the take");
  }
}

TEST(TakeDiagnosisTest, OfTwoFormatsBeforeTheSoundTheLastOneCounts) {
  const Bytes file = WaveBytes().format(1, 1, 8000, 8).format24().chunk("data", 0, loud(601)).get();
  EXPECT_EQ(diagnose(file).frameBytes, 6U);
  EXPECT_EQ(WaveFileReader::readFromData(file)->header().BitsPerSample, 24U);
}

TEST(TakeDiagnosisTest, LongTakesHaveTheirSizesElsewhere) {
  const auto take = [](std::uint64_t riff, std::uint64_t data) {
    return WaveBytes().ds64(riff, data).format24().chunk("data", kElsewhere, loud(600)).getLong();
  };
  expectSound(take(672, 600));
  for (const std::uint64_t size : {std::uint64_t{0}, std::uint64_t{601}, kMost}) {
    const TakeDiagnosis found = diagnose(take(kMost, size));
    EXPECT_EQ(found.state, State::Broken);
    EXPECT_EQ(found.keptBytes, 600U);
  }
  EXPECT_THAT(diagnose(take(kMost, 600)).findings,
              ElementsAre("the file states 18446744073709551615 bytes, and has 680"));
  const Bytes without = WaveBytes().format24().chunk("data", kElsewhere, loud(600)).getLong();
  EXPECT_EQ(diagnose(without).keptBytes, 600U);
}

// Nearly nothing of it is on the disk.
TEST(TakeDiagnosisTest, ASizeThatStandsElsewhereIsNotOneThatALongFileHolds) {
  const TemporaryFolder folder;
  const auto path = folder.file("take.WAV", take(kElsewhere, {}));
  constexpr std::uint64_t kFrames = (std::uint64_t{1} << 32) / 6 + 1000;
  std::filesystem::resize_file(path, 44 + (kFrames - 1) * 6);
  std::ofstream(path, std::ios::app | std::ios::binary) << "loud!!";
  std::string whyNot;
  const TakeDiagnosis found = TakeDiagnosis::of(*WaveImage::fromFile(path, whyNot));
  EXPECT_EQ(found.state, State::Broken);
  EXPECT_EQ(found.keptBytes, kFrames * 6);
}

TEST(TakeDiagnosisTest, WhatIsNoTakeCannotBeHelped) {
  expectHopeless({}, "it does not begin as a WAVE file");
  expectHopeless(loud(5000), "it does not begin as a WAVE file");
  Bytes other = take(12, loud(12));
  other[8] = std::byte{'X'};
  expectHopeless(other, "a RIFF file, but not WAVE");
  expectHopeless(WaveBytes().format24().get(), "no sound is found in it (data chunk)");
  expectHopeless(WaveBytes().format24().chunk("LIST", 9000, loud(900)).get(),
                 "no sound is found in it (data chunk)");
  expectHopeless(WaveBytes().chunk("data", 0, loud(900)).format24().get(),
                 "there is no format chunk before the sound");
  expectHopeless(WaveBytes().format(1, 0, 48000, 24).chunk("data", 0, loud(900)).get(),
                 "its format has no frames");
  expectHopeless(Bytes(5000), "it does not begin as a WAVE file");
}

TEST(TakeDiagnosisTest, ATakeOfZerosHoldsNothing) {
  expectHopeless(take(0, Bytes(60000)), "no sound was written to it");
  expectHopeless(withRiffSize(take(0, {}), 0), "no sound was written to it");
  expectHopeless(take(100, loud(5)), "no sound was written to it");
}

TEST(TakeDiagnosisTest, ACancelEndsTheSearch) {
  const std::atomic<bool> cancel{true};
  const auto image = WaveImage::fromBytes(take(0, Bytes(600'000)));
  EXPECT_TRUE(TakeDiagnosis::of(*image, &cancel).isCancelled);
}

}  // namespace
