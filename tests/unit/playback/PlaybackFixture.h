// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "base/EB.h"
#include "playback/AudioBackends.h"
#include "playback/memory/MemoryAudioFile.h"
#include "playback/memory/MemoryOutput.h"
#include "support/LogLines.h"
#include "support/WaveBytes.h"

/// Players over a file in memory and an output that keeps what was heard, on a virtual clock.
class PlaybackFixture : public testing::Test {
 protected:
  static constexpr std::uint32_t kRate = 48000;
  static constexpr AudioFormat kFloat{kRate, kAudioFormatFlagIsFloat, 8, 1, 2,
                                      32,    SampleType::Float32};
  static constexpr AudioFormat k24{kRate, 0, 6, 1, 2, 24, SampleType::Signed24};

  void SetUp() override {
    EB::initData();
    AudioBackends::addFile("memory", [this] {
      auto made = std::make_unique<MemoryAudioFile>(format, packets);
      made->failAt(badFrame, 7);
      file = made.get();
      return made;
    });
    AudioBackends::addOutput("memory", [this](const AudioOutput::Format& outputFormat) {
      auto made = std::make_unique<MemoryOutput>(clock, outputFormat);
      output = made.get();
      askedFor = outputFormat;
      ++outputsMade;
      return made;
    });
    AudioBackends::chooseFile("memory");
    AudioBackends::chooseOutput("memory");
  }

  /// Frame i is (i + 1, -(i + 1)) times 2^-23, different from silence and from all others.
  static float left(std::uint64_t frame) { return static_cast<float>(frame + 1) * 0x1p-23F; }
  static std::vector<float> ramp(std::uint64_t first, std::uint64_t end) {
    std::vector<float> samples;
    for (std::uint64_t i = first; i < end; ++i) {
      samples.push_back(left(i));
      samples.push_back(-left(i));
    }
    return samples;
  }

  void useFloatFile(std::uint64_t frames) {
    format = kFloat;
    packets = WaveBytes::samplesFloat(ramp(0, frames));
  }
  void use24BitFile(std::uint64_t frames) {
    std::vector<std::int32_t> samples;
    for (std::int32_t i = 1; i <= static_cast<std::int32_t>(frames); ++i) {
      samples.push_back(i);
      samples.push_back(-i);
    }
    format = k24;
    packets = WaveBytes::samples24(samples);
  }

  /// How often the end of playing was told.
  [[nodiscard]] std::size_t finishes() const {
    std::size_t count = 0;
    for (const std::string& line : log.get()) count += line.find("EB_PLAY_FINISH") != line.npos;
    return count;
  }

  LogLines log;
  VirtualClock clock;
  AudioFormat format = kFloat;
  std::vector<std::byte> packets;
  std::uint64_t badFrame = UINT64_MAX;
  MemoryAudioFile* file = nullptr;
  MemoryOutput* output = nullptr;
  AudioOutput::Format askedFor;  ///< of the last output
  int outputsMade = 0;
};
