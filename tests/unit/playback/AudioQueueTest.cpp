// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "playback/AudioQueue.h"

#include <gmock/gmock.h>

#include <cstring>

#include "PlaybackFixture.h"
#include "playback/SpscRing.h"

namespace {

class AudioQueueTest : public PlaybackFixture {
 protected:
  static constexpr std::uint32_t kFrames = 480;

  void SetUp() override {
    PlaybackFixture::SetUp();
    made = std::make_unique<MemoryOutput>(clock, AudioOutput::Format{kRate, 2});
    queue = std::make_unique<AudioQueue>(
        *made, kFloat,
        AudioQueue::Callbacks{[this](AudioQueueBuffer& buffer) { refilled.push_back(&buffer); },
                              [this] { changes.push_back(queue->isRunning()); },
                              [this](const std::string& why) { lost = why; }});
    queue->allocateBuffers(kFrames * 8);
  }

  void enqueue(AudioQueueBuffer& buffer) {
    const std::vector<float> samples = ramp(next, next + kFrames);
    std::memcpy(buffer.data, samples.data(), buffer.capacity);
    next += kFrames;
    buffer.byteSize = buffer.capacity;
    buffer.packetDescriptionCount = kFrames;
    queue->enqueue(buffer);
  }

  std::unique_ptr<MemoryOutput> made;
  std::unique_ptr<AudioQueue> queue;
  std::vector<AudioQueueBuffer*> refilled;
  std::vector<bool> changes;
  std::string lost;
  std::uint64_t next = 0;
};

TEST_F(AudioQueueTest, PlaysBuffersInOrderAndAsksForEachAgain) {
  for (AudioQueueBuffer& buffer : queue->buffers()) enqueue(buffer);
  queue->start();
  clock.advance(100);
  EXPECT_EQ(made->played(), ramp(0, 3 * kFrames));
  EXPECT_EQ(refilled.size(), 3U);
  EXPECT_EQ(refilled[0], &queue->buffers()[0]);
  EXPECT_EQ(refilled[2], &queue->buffers()[2]);
  EXPECT_EQ(queue->sampleTime(), 3.0 * kFrames);
}

TEST_F(AudioQueueTest, DrainsOnceAndReportsOnce) {
  enqueue(queue->buffers()[0]);
  queue->stop(AudioQueue::Stop::AfterDraining);
  queue->start();
  queue->stop(AudioQueue::Stop::AfterDraining);
  clock.advance(9);
  EXPECT_TRUE(queue->isRunning());
  clock.advance(20);
  EXPECT_THAT(changes, testing::ElementsAre(true, false));
  EXPECT_EQ(made->played(), ramp(0, kFrames));
}

TEST_F(AudioQueueTest, AnImmediateStopReportsWithinTheCall) {
  enqueue(queue->buffers()[0]);
  queue->start();
  clock.advance(3);
  queue->stop(AudioQueue::Stop::Immediately);
  EXPECT_THAT(changes, testing::ElementsAre(true, false));
  clock.advance(50);
  EXPECT_EQ(made->played(), ramp(0, 144));
  EXPECT_EQ(queue->sampleTime(), 0.0);
}

TEST_F(AudioQueueTest, AStopOfWhatDoesNotRunReportsNothing) {
  queue->stop(AudioQueue::Stop::Immediately);
  EXPECT_TRUE(changes.empty());
}

TEST_F(AudioQueueTest, PauseIsNoStop) {
  enqueue(queue->buffers()[0]);
  queue->start();
  clock.advance(5);
  queue->pause();
  clock.advance(50);
  EXPECT_TRUE(queue->isRunning());
  EXPECT_EQ(made->played(), ramp(0, 240));
  queue->start();
  clock.advance(50);
  EXPECT_EQ(made->played(), ramp(0, kFrames));
  EXPECT_THAT(changes, testing::ElementsAre(true));
}

TEST_F(AudioQueueTest, ALossIsNoStopEither) {
  enqueue(queue->buffers()[0]);
  queue->start();
  made->lose("Gone.");
  clock.advance(1);
  EXPECT_EQ(lost, "Gone.");
  EXPECT_TRUE(queue->isLost());
  EXPECT_FALSE(queue->isRunning());
  EXPECT_THAT(changes, testing::ElementsAre(true));
  queue->start();
  EXPECT_FALSE(made->isRunning());
}

TEST_F(AudioQueueTest, ACallbackMayDeleteTheQueue) {
  AudioQueue* const raw = queue.get();
  auto other = std::make_unique<AudioQueue>(*made, kFloat,
                                            AudioQueue::Callbacks{{}, [&] { queue.reset(); }, {}});
  std::swap(queue, other);
  queue->allocateBuffers(kFrames * 8);
  queue->start();
  EXPECT_EQ(queue, nullptr);
  EXPECT_EQ(other.get(), raw);
}

TEST_F(AudioQueueTest, ARefillMayDeleteQueueAndOutput) {
  int calls = 0;
  queue.reset();
  queue = std::make_unique<AudioQueue>(*made, kFloat,
                                       AudioQueue::Callbacks{[&](AudioQueueBuffer&) {
                                                               ++calls;
                                                               queue.reset();
                                                               made.reset();
                                                             },
                                                             {},
                                                             {}});
  queue->allocateBuffers(kFrames * 8);
  for (AudioQueueBuffer& buffer : queue->buffers()) enqueue(buffer);
  queue->stop(AudioQueue::Stop::AfterDraining);
  queue->start();
  clock.setOwnerStalled(true);
  clock.advance(100);  // all three wait to be refilled
  clock.setOwnerStalled(false);
  clock.advance(1);
  EXPECT_EQ(calls, 1);
}

TEST(SpscRing, TakesAsMuchAsItHolds) {
  SpscRing<int, 3> ring;
  EXPECT_EQ(ring.pop(), std::nullopt);
  for (int round = 0; round < 5; ++round) {
    EXPECT_TRUE(ring.push(1) && ring.push(2) && ring.push(3));
    EXPECT_FALSE(ring.push(4));
    EXPECT_EQ(ring.front(), 1);
    EXPECT_EQ(ring.pop(), 1);
    EXPECT_EQ(ring.pop(), 2);
    EXPECT_EQ(ring.pop(), 3);
    EXPECT_EQ(ring.front(), std::nullopt);
  }
}

}  // namespace
