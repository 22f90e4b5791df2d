// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <cstdlib>
#include <new>

#include "PlaybackFixture.h"
#include "playback/WavePlayer.h"
#include "playback/wave/WaveAudioFile.h"
#include "support/TemporaryFolder.h"

namespace {

thread_local bool isCounting = false;
thread_local long allocations = 0;

}  // namespace

// Every allocation of the program goes through here, those of libraries too.
extern "C" void* __libc_malloc(std::size_t size);
extern "C" void* __libc_calloc(std::size_t count, std::size_t size);
extern "C" void* __libc_realloc(void* block, std::size_t size);

extern "C" void* malloc(std::size_t size) {
  if (isCounting) ++allocations;
  return __libc_malloc(size);
}
extern "C" void* calloc(std::size_t count, std::size_t size) {
  if (isCounting) ++allocations;
  return __libc_calloc(count, size);
}
extern "C" void* realloc(void* block, std::size_t size) {
  if (isCounting) ++allocations;
  return __libc_realloc(block, size);
}

namespace {

/// A null output does all of its work on this thread: pulling, and through its listener refilling.
class AllocationTest : public PlaybackFixture {
 protected:
  void SetUp() override {
    PlaybackFixture::SetUp();
    AudioBackends::addOutput("null", [this](const AudioOutput::Format& outputFormat) {
      return std::make_unique<NullOutput>(clock, outputFormat);
    });
    AudioBackends::chooseOutput("null");
    AudioBackends::addFile("wave", [] { return std::make_unique<WaveAudioFile>(); });
    AudioBackends::chooseFile("wave");
  }

  long countWhilePlaying(const WaveBytes::Bytes& wave) {
    const TemporaryFolder folder;
    WavePlayer player(folder.file("x.wav", wave));
    std::shared_ptr<WaveFileReader> reader = WaveFileReader::readFromData(wave);
    reader->setIsBoMSFormat(true);
    player.setReader(reader);
    player.setAngle(120);
    player.setVolume(0.5);
    player.play();
    clock.advance(400);
    isCounting = true;
    allocations = 0;
    player.setGain(6);
    clock.advance(1000);
    isCounting = false;
    EXPECT_GT(player.curremtTime(), 1.3);
    return allocations;
  }
};

TEST_F(AllocationTest, TheCounterCounts) {
  isCounting = true;
  allocations = 0;
  const auto block = std::make_unique<std::vector<int>>(1000);
  isCounting = false;
  EXPECT_GE(allocations, 1);
}

TEST_F(AllocationTest, NoneForABufferOf24Bits) {
  const std::vector<std::int32_t> samples(2 * 96000, 1000);
  EXPECT_EQ(countWhilePlaying(WaveBytes().format24().data(WaveBytes::samples24(samples)).get()), 0);
}

TEST_F(AllocationTest, NoneForABufferOfFloats) {
  const std::vector<float> samples(2 * 96000, 0.1F);
  EXPECT_EQ(
      countWhilePlaying(WaveBytes().formatFloat().data(WaveBytes::samplesFloat(samples)).get()), 0);
}

}  // namespace
