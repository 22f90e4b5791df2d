// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
//
// Exports of the demo recordings against two readings of the formulas, both written out here:
//
// - in double precision, the mathematics itself. The program computes in single precision: the
//   side gain, its product with Side, the sum, the division and the product with 8388607 are each
//   rounded to 24 bits. With samples well inside full scale these roundings add up to less than one
//   step of the 24-bit result, so a value may come out one step beside the mathematical one where
//   truncation falls between the two; never more.
// - in single precision, operation by operation in the stated order, which leaves no room at all.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <string>
#include <vector>

#include "cli/DemoCommand.h"
#include "export/Export.h"
#include "support/ByteView.h"
#include "support/TemporaryFolder.h"

namespace fs = std::filesystem;

namespace {

constexpr std::size_t kSamples = 748;  // the demo files have the header of an export

struct Settings {
  int angle;
  double gain;  ///< dB; NaN asks for normalisation
};

bool normalizes(const Settings& settings) {
  return std::isnan(settings.gain);
}

double sideGainInDB(int angle) {
  return angle < 16 ? -48.0 + (angle - 1) * 27.0 / 14.0 : (angle - 120) * 0.2;
}

double sideGain(int angle) {
  return angle == 0 ? 0.0 : std::pow(10.0, sideGainInDB(angle) / 20.0);
}

/// Interleaved Mid and Side, or Left and Right, of a recording.
std::vector<float> samplesOf(const fs::path& path, bool is24bit) {
  const ByteView file(TemporaryFolder::read(path));
  if (!is24bit) return file.allFloats(kSamples);
  std::vector<float> samples;
  for (const std::int32_t value : file.all24(kSamples)) {
    samples.push_back(static_cast<float>(value) * std::ldexp(1.0F, -23));
  }
  return samples;
}

/// The formulas in `Real`: double for the mathematics, float for what the program has to compute.
template <class Real>
class Reference {
 public:
  Reference(const std::vector<float>& source, const Settings& settings, bool isRaw)
      : _samples(source.begin(), source.end()) {
    if (isRaw) decode(static_cast<Real>(sideGain(settings.angle)));
    scale(settings);
  }

  [[nodiscard]] const std::vector<Real>& samples() const { return _samples; }

  [[nodiscard]] std::int32_t stored24(std::size_t i) const {
    const Real x = _samples[i];
    if (x > Real{-1} && x < Real{1}) return static_cast<std::int32_t>(x * Real{8388607});
    return x > Real{0} ? 8388607 : -8388608;
  }

 private:
  void decode(Real k) {
    for (std::size_t i = 0; i < _samples.size(); i += 2) {
      const Real mid = _samples[i];
      const Real side = _samples[i + 1] * k;
      _samples[i] = mid + side;
      _samples[i + 1] = mid - side;
    }
  }

  void scale(const Settings& settings) {
    Real peak = 0;
    for (const Real x : _samples) peak = std::max(peak, std::abs(x));
    const double dB =
        normalizes(settings) ? 20.0 * std::log10(static_cast<double>(peak)) : -settings.gain;
    const auto divisor = static_cast<Real>(std::pow(10.0, dB / 20.0));
    for (Real& x : _samples) x /= divisor;
  }

  std::vector<Real> _samples;
};

/// The demo recordings, made once for all cases.
class GoldenExportTest : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    folder = new TemporaryFolder;
    CLI::App program;
    DemoCommand demo;
    demo.declare(program);
    program.parse("demo --output-dir " + folder->path().native());
    ASSERT_EQ(demo.run(), Command::kDone);
  }
  static void TearDownTestSuite() { delete folder; }

  static fs::path at(const char* name) { return folder->path() / name; }

  static ByteView exported(const char* name, bool is24bit, const Settings& settings) {
    Export job(at(name));
    job.setAngle(settings.angle);
    if (!normalizes(settings)) job.setGain(settings.gain);
    EXPECT_TRUE(job.export2File(at("out.wav"), is24bit, normalizes(settings))) << job.failure();
    return ByteView(TemporaryFolder::read(at("out.wav")));
  }

  static void expect24(const char* name, bool sourceIs24bit, const Settings& settings,
                       bool isRaw = true) {
    const std::vector<std::int32_t> stored = exported(name, true, settings).all24(kSamples);
    const std::vector<float> source = samplesOf(at(name), sourceIs24bit);
    ASSERT_EQ(stored.size(), source.size());
    const Reference<double> real(source, settings, isRaw);
    const Reference<float> single(source, settings, isRaw);
    std::int32_t furthest = 0;
    std::size_t wrong = 0;
    for (std::size_t i = 0; i < stored.size(); ++i) {
      furthest = std::max(furthest, std::abs(stored[i] - real.stored24(i)));
      wrong += stored[i] != single.stored24(i);
    }
    EXPECT_LE(furthest, 1) << name << ", angle " << settings.angle << ", gain " << settings.gain;
    EXPECT_EQ(wrong, 0U) << name << ", angle " << settings.angle << ", gain " << settings.gain;
  }

  static void expectFloats(const char* name, bool sourceIs24bit, const Settings& settings,
                           bool isRaw = true) {
    const std::vector<float> stored = exported(name, false, settings).allFloats(kSamples);
    const std::vector<float> source = samplesOf(at(name), sourceIs24bit);
    ASSERT_EQ(stored.size(), source.size());
    const Reference<double> real(source, settings, isRaw);
    const Reference<float> single(source, settings, isRaw);
    double furthest = 0;
    for (std::size_t i = 0; i < stored.size(); ++i) {
      furthest = std::max(furthest, std::abs(static_cast<double>(stored[i]) - real.samples()[i]));
    }
    const double fullScale = std::pow(10.0, normalizes(settings) ? 0 : settings.gain / 20.0);
    EXPECT_LE(furthest, 2e-7 * std::max(1.0, fullScale)) << name << settings.angle;
    EXPECT_TRUE(stored == single.samples()) << name << settings.angle;
  }

  static inline TemporaryFolder* folder = nullptr;
  static constexpr double kNormalize = std::numeric_limits<double>::quiet_NaN();
};

TEST_F(GoldenExportTest, HasTheWholeScene) {
  EXPECT_EQ(samplesOf(at("R0001.WAV"), true).size(), 2U * 960000U);
  EXPECT_EQ(samplesOf(at("R0002.WAV"), false).size(), 2U * 960000U);
  EXPECT_EQ(samplesOf(at("R0003.WAV"), true).size(), 2U * 960000U);
}

TEST_F(GoldenExportTest, Exports24BitAtEveryAngle) {
  for (const int angle : {0, 1, 15, 16, 60, 119, 120, 121, 150}) {
    expect24("R0001.WAV", true, {angle, 0.0});
  }
}

TEST_F(GoldenExportTest, Exports24BitAtEveryGain) {
  for (const double gain : {-36.0, -6.0, -0.5, 1.25}) expect24("R0001.WAV", true, {120, gain});
}

// Past full scale only the count of roundings matters, not the clipped values.
TEST_F(GoldenExportTest, Exports24BitThatClips) {
  const std::vector<std::int32_t> stored = exported("R0001.WAV", true, {150, 24.0}).all24(kSamples);
  const Reference<float> single(samplesOf(at("R0001.WAV"), true), {150, 24.0}, true);
  std::size_t clipped = 0;
  for (std::size_t i = 0; i < stored.size(); ++i) {
    ASSERT_EQ(stored[i], single.stored24(i)) << i;
    clipped += stored[i] == 8388607 || stored[i] == -8388608;
  }
  EXPECT_GT(clipped, 1000U);
}

TEST_F(GoldenExportTest, Exports24BitNormalized) {
  for (const int angle : {0, 90, 120, 150}) expect24("R0001.WAV", true, {angle, kNormalize});
}

TEST_F(GoldenExportTest, ExportsFloats) {
  for (const int angle : {0, 45, 120, 150}) expectFloats("R0002.WAV", false, {angle, 0.0});
  expectFloats("R0002.WAV", false, {100, 36.0});
  expectFloats("R0002.WAV", false, {100, -36.0});
  expectFloats("R0002.WAV", false, {133, kNormalize});
}

TEST_F(GoldenExportTest, CrossesTheWidths) {
  expectFloats("R0001.WAV", true, {80, -3.0});
  expect24("R0002.WAV", false, {80, -3.0});
  expect24("R0002.WAV", false, {80, kNormalize});
}

TEST_F(GoldenExportTest, PassesPlainChannelsThrough) {
  expect24("R0003.WAV", true, {30, -6.0}, false);
  expectFloats("R0003.WAV", true, {30, 0.0}, false);
  expect24("R0003.WAV", true, {30, kNormalize}, false);
}

TEST_F(GoldenExportTest, ReachesFullScaleWhenNormalized) {
  std::int32_t loudest = 0;
  for (const std::int32_t value : exported("R0001.WAV", true, {120, kNormalize}).all24(kSamples)) {
    loudest = std::max(loudest, std::abs(value));
  }
  EXPECT_GE(loudest, 8388606);
}

}  // namespace
