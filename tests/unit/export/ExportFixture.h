// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <vector>

#include "export/Export.h"
#include "support/ByteView.h"
#include "support/TemporaryFolder.h"
#include "support/WaveBytes.h"

/// A folder with one recording in it, and exports of it to "out.wav".
class ExportFixture : public testing::Test {
 protected:
  using Bytes = std::vector<std::byte>;

  /// Where the samples of an export begin.
  static constexpr std::size_t kSamples = 748;

  struct Settings {
    double angle = 120;
    double gain = 0;
    bool normalize = false;
  };

  static Bytes recording24(const std::vector<std::int32_t>& samples, bool isRaw) {
    return WaveBytes().format24().recorderBext(isRaw).data(WaveBytes::samples24(samples)).get();
  }
  static Bytes recordingFloat(const std::vector<float>& samples, bool isRaw) {
    return WaveBytes()
        .formatFloat()
        .recorderBext(isRaw)
        .data(WaveBytes::samplesFloat(samples))
        .get();
  }

  /// Exports `source` to `target` in the folder.
  ByteView exported(const Bytes& source, bool is24bit, const Settings& settings) const {
    Export job(_folder.file("in.wav", source));
    job.setAngle(settings.angle);
    job.setGain(settings.gain);
    EXPECT_TRUE(job.export2File(target(), is24bit, settings.normalize)) << job.failure();
    return ByteView(TemporaryFolder::read(target()));
  }
  std::vector<std::int32_t> exported24(const Bytes& source, const Settings& settings) const {
    return exported(source, true, settings).all24(kSamples);
  }
  std::vector<float> exportedFloats(const Bytes& source, const Settings& settings) const {
    return exported(source, false, settings).allFloats(kSamples);
  }

  [[nodiscard]] std::filesystem::path target() const { return _folder.path() / "out.wav"; }

  TemporaryFolder _folder;
};
