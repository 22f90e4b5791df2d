// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

// What is heard beside what is exported.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

#include "PlaybackFixture.h"
#include "export/Export.h"
#include "playback/WavePlayer.h"
#include "playback/wave/WaveAudioFile.h"
#include "support/ByteView.h"
#include "support/TemporaryFolder.h"

namespace {

struct Settings {
  int angle;
  int gain;
  Solo solo = Solo::None;
};

class ExportedTest : public PlaybackFixture {
 protected:
  static constexpr std::size_t kFrames = 12000;
  static constexpr std::size_t kFirstBuffer = 2 * 4800;  // samples in which a new player glides
  static constexpr std::size_t kSamplesAt = 748;
  static constexpr float kStep = 0x1p-23F;
  static constexpr double kSteps = 0x1p-23;

  void SetUp() override {
    PlaybackFixture::SetUp();
    AudioBackends::addFile("wave", [] { return std::make_unique<WaveAudioFile>(); });
    AudioBackends::chooseFile("wave");
  }

  /// Mid and Side up to this level; the loudest width at a gain of 0 makes it 4.2 times as loud.
  static std::vector<float> noise(float level) {
    std::mt19937 random(7);
    std::vector<float> samples(2 * kFrames);
    for (float& sample : samples) {
      const auto drawn = static_cast<double>(random()) / std::mt19937::max();
      sample = static_cast<float>(2.0 * drawn - 1.0) * level;
    }
    return samples;
  }
  static WaveBytes::Bytes floatTake(const std::vector<float>& samples, bool isRaw = true) {
    const auto data = WaveBytes::samplesFloat(samples);
    return WaveBytes().formatFloat().recorderBext(isRaw).data(data).get();
  }
  static WaveBytes::Bytes take24(const std::vector<float>& samples) {
    std::vector<std::int32_t> values;
    for (const float sample : samples) values.push_back(static_cast<std::int32_t>(sample / kStep));
    return WaveBytes().format24().recorderBext().data(WaveBytes::samples24(values)).get();
  }

  /// Plays and exports the take.
  void use(const WaveBytes::Bytes& take, const Settings& settings, bool is24Bit) {
    Export job(folder.file("in.wav", take));
    job.setAngle(settings.angle);
    job.setGain(settings.gain);
    ASSERT_TRUE(job.export2File(folder.path() / "out.wav", is24Bit, false)) << job.failure();
    const ByteView file(TemporaryFolder::read(folder.path() / "out.wav"));
    exported = is24Bit ? floats(file.all24(kSamplesAt)) : file.allFloats(kSamplesAt);
    WavePlayer player(folder.path() / "in.wav");
    player.setReader(std::make_shared<const WaveFileReader>(*job.reader()));
    player.setAngle(settings.angle);
    player.setGain(settings.gain);
    player.setSolo(settings.solo);
    player.play();
    clock.advance(400);
    heard = output->played();
    ASSERT_EQ(heard.size(), 2 * kFrames);
    ASSERT_EQ(exported.size(), 2 * kFrames);
  }
  static std::vector<float> floats(const std::vector<std::int32_t>& values) {
    std::vector<float> samples;
    for (const std::int32_t value : values) samples.push_back(static_cast<float>(value) * kStep);
    return samples;
  }
  /// The largest difference at rest of the samples that the predicate takes.
  template <class Predicate>
  double difference(Predicate counts) const {
    double largest = -1.0;
    for (std::size_t i = kFirstBuffer; i < heard.size(); ++i) {
      if (!counts(i)) continue;
      largest = std::max(largest, std::abs(double{heard[i]} - double{exported[i]}));
    }
    return largest;
  }
  double difference() const {
    return difference([](std::size_t) { return true; });
  }

  TemporaryFolder folder;
  std::vector<float> heard;
  std::vector<float> exported;
};

TEST_F(ExportedTest, AFloatTakeAtRestIsHeardAsItsFloatExport) {
  for (const Settings& settings : {Settings{0, 0}, {70, -3}, {120, 0}, {120, 12}, {150, 6}}) {
    use(floatTake(noise(0.9F)), settings, false);
    EXPECT_EQ(difference(), 0.0) << settings.angle << " " << settings.gain;
  }
  EXPECT_GT(*std::max_element(heard.begin(), heard.end()), 1.0F) << "beyond full scale too";
}

// The player takes the gain's exponent as a float, the export as a double.
TEST_F(ExportedTest, SomeGainsDifferInTheFloatsLastTwoBits) {
  const auto take = floatTake(noise(0.9F));
  int differing = 0;
  for (int gain = -36; gain <= 36; ++gain) {
    use(take, {120, gain}, false);
    for (std::size_t i = kFirstBuffer; i < heard.size(); ++i) {
      ASSERT_LE(std::abs(heard[i] - exported[i]), std::abs(exported[i]) * 0x1p-22F) << gain;
    }
    differing += difference() > 0.0 ? 1 : 0;
  }
  EXPECT_EQ(differing, 28);
}

TEST_F(ExportedTest, WhoHearsMidAloneExportsLeftAndRight) {
  use(floatTake(noise(0.4F)), {120, 0, Solo::Mid}, false);
  for (std::size_t i = kFirstBuffer; i < heard.size(); i += 2) {
    ASSERT_EQ(heard[i], heard[i + 1]) << i;
  }
  EXPECT_GT(difference(), 0.1);
  const std::vector<float> alone = exported;
  use(floatTake(noise(0.4F)), {120, 0}, false);
  EXPECT_EQ(exported, alone);
  EXPECT_EQ(difference(), 0.0);
}

TEST_F(ExportedTest, AlsoATakeThatIsNotRaw) {
  use(floatTake(noise(0.9F), false), {30, 6}, false);
  EXPECT_EQ(difference(), 0.0);
}

TEST_F(ExportedTest, ANewPlayersFirstBufferGlides) {
  use(floatTake(noise(0.9F)), {120, 6}, false);
  const auto differ = [this](std::size_t from, std::size_t to) {
    for (std::size_t i = from; i < to; ++i) {
      if (heard[i] != exported[i]) return true;
    }
    return false;
  };
  EXPECT_TRUE(differ(0, 2 * 120));
  EXPECT_TRUE(differ(2 * 120, 2 * 960)) << "the gain's 20 ms";
  EXPECT_FALSE(differ(2 * 960, heard.size()));
}

TEST_F(ExportedTest, AFloatTakeAndIts24BitExportDifferByTheRoundingInsideFullScale) {
  use(floatTake(noise(0.2F)), {150, 0}, true);
  EXPECT_GT(difference(), 0.0);
  EXPECT_LT(difference(), 2.0 * kSteps);
}

TEST_F(ExportedTest, AFloatTakeBeyondFullScaleIsHeardAsItIsAndClippedInA24BitExport) {
  use(floatTake(noise(0.9F)), {150, 6}, true);
  EXPECT_GT(*std::max_element(heard.begin(), heard.end()), 2.0F);
  EXPECT_EQ(*std::max_element(exported.begin(), exported.end()), 8388607 * kStep);
}

TEST_F(ExportedTest, A24BitTakeInsideFullScaleIsHeardToAFewSteps) {
  for (const Settings& settings : {Settings{0, 0}, {70, -6}, {120, 6}, {150, 0}}) {
    use(take24(noise(0.2F)), settings, false);
    EXPECT_LT(difference(), 3.0 * kSteps) << settings.angle << " " << settings.gain;
    use(take24(noise(0.2F)), settings, true);
    EXPECT_LT(difference(), 3.0 * kSteps) << settings.angle << " " << settings.gain;
  }
}

TEST_F(ExportedTest, A24BitTakeBeyondFullScaleClipsLeftAndWrapsRight) {
  use(take24(noise(0.9F)), {150, 6}, true);
  const auto isLeft = [](std::size_t i) { return i % 2 == 0; };
  EXPECT_LT(difference(isLeft), 3.0 * kSteps);
  EXPECT_GT(difference([&](std::size_t i) { return !isLeft(i); }), 1.0);
}

TEST_F(ExportedTest, SixteenBitsAreHeardAsStoredAndExportedAsUnsigned) {
  ByteBuilder samples;
  for (std::size_t i = 0; i < kFrames; ++i) samples.u16(0xFFFF).u16(0xFFFF);
  use(WaveBytes().format(1, 2, 48000, 16).recorderBext(false).data(samples.get()).get(), {0, 0},
      false);
  EXPECT_EQ(heard.back(), -0x1p-15F);
  EXPECT_GT(exported.back(), 1.9F);
}

TEST_F(ExportedTest, IntegersOf32BitsAreHeardAsStoredAndExportedAsAlmostNothing) {
  ByteBuilder samples;
  for (std::size_t i = 0; i < 2 * kFrames; ++i) samples.u32(0x40000000);
  use(WaveBytes().format(1, 2, 48000, 32).recorderBext().data(samples.get()).get(), {0, 0}, false);
  EXPECT_EQ(heard.back(), 0.5F);
  EXPECT_EQ(exported.back(), 0x1p-34F);
}

}  // namespace
