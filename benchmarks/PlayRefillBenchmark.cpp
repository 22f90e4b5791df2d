// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

// What a buffer of a tenth of a second costs: prints a table of microseconds and of the share of
// the buffer's own time.

#include <fmt/format.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "base/EB.h"
#include "base/Log.h"
#include "playback/AudioBackends.h"
#include "playback/WavePlayer.h"
#include "playback/memory/MemoryAudioFile.h"
#include "playback/null/NullOutput.h"
#include "support/WaveBytes.h"

namespace {

constexpr std::uint32_t kFrames = 4800;
constexpr double kBufferMicroseconds = 100'000;
constexpr int kRuns = 1000;

/// Median microseconds of one call.
template <class Work>
double median(Work work) {
  std::vector<double> times;
  for (int i = 0; i < kRuns; ++i) {
    const auto start = std::chrono::steady_clock::now();
    work(i);
    const auto end = std::chrono::steady_clock::now();
    times.push_back(std::chrono::duration<double, std::micro>(end - start).count());
  }
  std::nth_element(times.begin(), times.begin() + kRuns / 2, times.end());
  return times[kRuns / 2];
}

void printRow(const std::string& what, double microseconds) {
  fmt::print("| {} | {:.1f} | {:.3f} |\n", what, microseconds,
             100 * microseconds / kBufferMicroseconds);
}

std::shared_ptr<const WaveFileReader> readerOf(std::uint16_t tag, std::uint16_t bits) {
  const std::vector<std::byte> some(48);
  std::shared_ptr<WaveFileReader> reader =
      WaveFileReader::readFromData(WaveBytes().format(tag, 2, 48000, bits).data(some).get());
  reader->setIsBoMSFormat(true);
  return reader;
}

void measure(const std::string& name, const AudioFormat& format, std::uint16_t tag) {
  WavePlayer player("none");
  const auto bits = static_cast<std::uint16_t>(format.bitsPerChannel);
  player.setReader(readerOf(tag, bits));
  std::vector<std::byte> data(std::size_t{kFrames} * format.bytesPerPacket, std::byte{1});
  const auto size = static_cast<std::uint32_t>(data.size());
  AudioQueueBuffer buffer{data.data(), size, size, kFrames};
  player.setAngle(90);
  player.setGain(6);
  player.processSampleBuffer(buffer, format, 0);
  printRow(name + ", settings at rest",
           median([&](int) { player.processSampleBuffer(buffer, format, 0); }));
  const double gliding = median([&](int run) {
    player.setAngle(run % 2 == 0 ? 0 : 150);
    player.setGain(run % 2 == 0 ? -36 : 36);
    player.processSampleBuffer(buffer, format, 0);
  });
  printRow(name + ", width and gain moving from end to end", gliding);
}

}  // namespace

int main() {
  VirtualClock clock;
  const AudioFormat float32{48000, kAudioFormatFlagIsFloat, 8, 1, 2, 32, SampleType::Float32};
  const AudioFormat signed24{48000, 0, 6, 1, 2, 24, SampleType::Signed24};
  EB::initData();
  Log::setSink([](std::string_view) {});
  AudioBackends::addFile(
      "none", [&] { return std::make_unique<MemoryAudioFile>(float32, std::vector<std::byte>()); });
  AudioBackends::addOutput("null", [&](const AudioOutput::Format& format) {
    return std::make_unique<NullOutput>(clock, format);
  });
  AudioBackends::chooseFile("none");
  AudioBackends::chooseOutput("null");
  fmt::print("| decode and gain of 4800 frames | µs | % of 0.1 s |\n|---|---|---|\n");
  measure("24-bit", signed24, 1);
  measure("32-bit float", float32, 3);
  return EXIT_SUCCESS;
}
