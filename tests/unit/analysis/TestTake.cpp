// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "TestTake.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <numbers>
#include <random>

#include "dsp/MidSideDecoder.h"
#include "dsp/SideGain.h"
#include "support/WaveBytes.h"

std::vector<std::byte> TestTake::file(const Frames& frames, std::uint32_t rate) {
  const std::size_t size = frames.size() * sizeof(float);
  auto bytes = WaveBytes()
                   .format(3, 2, rate, 32)
                   .recorderBext()
                   .chunk("data", static_cast<std::uint32_t>(size), {})
                   .get();
  const std::size_t head = bytes.size();
  bytes.resize(head + size);
  if (size > 0) std::memcpy(bytes.data() + head, frames.data(), size);
  return bytes;
}

std::unique_ptr<WaveFileReader> TestTake::reader(const Frames& frames, std::uint32_t rate,
                                                 bool isRawMidSide) {
  auto reader = WaveFileReader::readFromData(file(frames, rate));
  reader->setIsBoMSFormat(isRawMidSide);
  return reader;
}

std::shared_ptr<const TakeAnalysis> TestTake::analyse(const Frames& frames, std::uint32_t rate,
                                                      bool isRawMidSide,
                                                      const TakeAnalyzer::Options& options) {
  return TakeAnalyzer(*reader(frames, rate, isRawMidSide), options).wait();
}

void TestTake::addSine(Frames& frames, std::uint32_t rate, double seconds, double level,
                       double frequency, double phase) {
  const double amplitude = std::pow(10.0, level / 20.0);
  const double step = 2.0 * std::numbers::pi * frequency / rate;
  const auto count = std::llround(seconds * rate);
  for (std::int64_t i = 0; i < count; ++i) {
    const double angle = step * static_cast<double>(i) + phase * std::numbers::pi / 180.0;
    const auto value = static_cast<float>(amplitude * std::sin(angle));
    frames.insert(frames.end(), {value, value});
  }
}

void TestTake::addSilence(Frames& frames, std::uint32_t rate, double seconds) {
  frames.resize(frames.size() + 2 * static_cast<std::size_t>(std::llround(seconds * rate)));
}

Waveform::Column TestTake::truthOf(const Frames& leftRight, std::uint64_t from, std::uint64_t to) {
  Waveform::Column truth;
  truth.leastLeft = truth.greatestLeft = leftRight[2 * from];
  truth.leastRight = truth.greatestRight = leftRight[2 * from + 1];
  for (std::uint64_t i = from; i < to; ++i) {
    truth.leastLeft = std::min(truth.leastLeft, leftRight[2 * i]);
    truth.greatestLeft = std::max(truth.greatestLeft, leftRight[2 * i]);
    truth.leastRight = std::min(truth.leastRight, leftRight[2 * i + 1]);
    truth.greatestRight = std::max(truth.greatestRight, leftRight[2 * i + 1]);
  }
  return truth;
}

float TestTake::peakOf(const Waveform::Column& column) {
  return std::max(
      {column.greatestLeft, -column.leastLeft, column.greatestRight, -column.leastRight});
}

Frames TestTake::encoded(const Frames& leftRight, int width) {
  const float k = SideGain::factor(width);
  Frames midSide(leftRight.size());
  for (std::size_t i = 0; i < leftRight.size(); i += 2) {
    midSide[i] = (leftRight[i] + leftRight[i + 1]) / 2;
    midSide[i + 1] = (leftRight[i] - leftRight[i + 1]) / 2 / k;
  }
  return midSide;
}

Frames TestTake::decoded(const Frames& midSide, int width) {
  Frames leftRight = midSide;
  MidSideDecoder::decode(leftRight, width);
  return leftRight;
}

Frames TestTake::wandering(std::uint32_t rate, double seconds, std::uint32_t seed) {
  std::mt19937 random(seed);
  std::normal_distribution<double> noise(0.0, 1.0);
  Frames frames(2 * static_cast<std::size_t>(std::llround(seconds * rate)));
  double mid = 0;
  double side = 0;
  for (std::size_t i = 0; i < frames.size(); i += 2) {
    const double at = static_cast<double>(i) / 2 / rate;
    const double level = at > 4 && at < 5 ? 0 : 0.12 * std::exp2(4 * std::sin(0.7 * at) - 2);
    const double width = 0.7 + 0.6 * std::sin(0.31 * at + 1);
    mid = 0.6 * mid + 0.4 * noise(random);
    side = 0.3 * side + 0.7 * noise(random);
    frames[i] = static_cast<float>(level * mid);
    frames[i + 1] = static_cast<float>(level * width * (side + 0.3 * mid));
    if (random() % (9 * rate) == 0) frames[i + random() % 2] = 0.9F;
  }
  return frames;
}

Frames TestTake::tones(std::uint32_t rate, double seconds) {
  Frames frames(2 * static_cast<std::size_t>(std::llround(seconds * rate)));
  for (std::size_t i = 0; i < frames.size(); i += 2) {
    const double at = static_cast<double>(i) / 2 / rate;
    const double turn = 2 * std::numbers::pi * at;
    const bool isLoud = std::fmod(at, 3.0) < 1.7;
    const double level = isLoud ? 0.5 : 0.03;
    frames[i] = static_cast<float>(level * std::sin(turn * 443));
    frames[i + 1] = static_cast<float>(level * 0.6 * std::cos(turn * 443 + at));
    if (i % 15002 == 0) frames[i + 1] -= 0.3F;
  }
  return frames;
}
