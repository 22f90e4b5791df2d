// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <filesystem>
#include <latch>
#include <memory>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include "ImageFile.h"
#include "support/TemporaryFolder.h"
#include "support/WaveBytes.h"
#include "wav/WaveFileReader.h"
#include "wav/WaveImage.h"

namespace {

constexpr std::size_t kThreads = 6;
constexpr std::size_t kRounds = 50;
constexpr std::size_t kBig = 24 * kMegabyte + 5;

// Runs `work(number)` on several threads that set off together, and waits for them.
template <class Work>
void together(const Work& work) {
  std::latch start(kThreads + 1);
  std::vector<std::jthread> threads;
  for (std::size_t number = 0; number < kThreads; ++number) {
    threads.emplace_back([&start, &work, number] {
      start.arrive_and_wait();
      work(number);
    });
  }
  start.arrive_and_wait();
}

bool isNumbered(std::span<const std::byte> bytes, std::uint64_t firstOffset = 0) {
  for (std::size_t i = 0; i < bytes.size(); i += 61) {
    if (bytes[i] != numberedByte(firstOffset + i)) return false;
  }
  return true;
}

// 32-bit floats that tell their place: left n, right -n.
std::vector<std::byte> numberedRecording(std::size_t frameCount) {
  std::vector<float> samples;
  for (std::size_t n = 0; n < frameCount; ++n) {
    samples.push_back(static_cast<float>(n));
    samples.push_back(-static_cast<float>(n));
  }
  return WaveBytes().formatFloat().data(WaveBytes::samplesFloat(samples)).get();
}

// Reads all frames in blocks, waiting for each; the number of frames that were right.
std::size_t readAll(const WaveImage& image, SampleCursor cursor, std::size_t blockFrames) {
  std::vector<float> block(2 * blockFrames);
  std::size_t at = 0;
  cursor.beginReadSample();
  while (!cursor.isFinishReadSample()) {
    const std::uint64_t wanted = std::min<std::uint64_t>(blockFrames, cursor.framesLeft());
    if (!image.waitUntilLoaded(cursor.loadedEndFor(wanted))) return at;
    if (cursor.readFrames(block) < wanted) return at;
    for (std::size_t i = 0; i < wanted; ++i, ++at) {
      const auto number = static_cast<float>(at);
      if (block[2 * i] != number || block[2 * i + 1] != -number) return at;
    }
  }
  return at;
}

}  // namespace

TEST(WaveImageLoadingTest, WhatAWaiterIsToldHasArrivedIsThere) {
  const TemporaryFolder folder;
  const auto image = imageOf(folder.file("a.wav", numberedBytes(kBig)));
  std::atomic<std::size_t> right{0};
  image->startLoading();
  together([&](std::size_t number) {
    const std::size_t step = (number + 1) * 700001;
    std::size_t end = 0;
    while (end < kBig) {
      end = std::min(end + step, kBig);
      if (!image->waitUntilLoaded(end) || image->loaded() < end) return;
      if (image->bytes().size() < end || !isNumbered(image->bytes().first(end))) return;
    }
    ++right;
  });
  EXPECT_EQ(right, kThreads);
  EXPECT_EQ(image->loaded(), kBig);
}

TEST(WaveImageLoadingTest, WhatHasArrivedOnlyGrows) {
  const TemporaryFolder folder;
  const auto image = imageOf(folder.file("a.wav", numberedBytes(kBig)));
  std::atomic<std::size_t> right{0};
  image->startLoading();
  together([&](std::size_t) {
    std::uint64_t before = 0;
    while (before < kBig) {
      const std::span<const std::byte> bytes = image->bytes();
      if (bytes.size() < before || image->loaded() < bytes.size()) return;
      if (!bytes.empty() && bytes.back() != numberedByte(bytes.size() - 1)) return;
      before = bytes.size();
      if (!image->waitUntilLoaded(before + 1)) return;
    }
    ++right;
  });
  EXPECT_EQ(right, kThreads);
}

TEST(WaveImageLoadingTest, AnyPartCanBeReadWhileTheImageLoads) {
  const TemporaryFolder folder;
  const auto image = imageOf(folder.file("a.wav", numberedBytes(kBig)));
  std::atomic<std::size_t> right{0};
  image->startLoading();
  together([&](std::size_t number) {
    std::mt19937 random(static_cast<std::uint32_t>(number));
    std::vector<std::byte> part(5000);
    for (int i = 0; i < 300; ++i) {
      const std::uint64_t offset = random() % kBig;
      const std::size_t wanted = std::min<std::uint64_t>(part.size(), kBig - offset);
      if (image->readAt(offset, part) != wanted) return;
      if (!isNumbered(std::span(part).first(wanted), offset)) return;
    }
    ++right;
  });
  EXPECT_EQ(right, kThreads);
  EXPECT_TRUE(image->waitUntilLoaded(kBig));
}

TEST(WaveImageLoadingTest, ManyCursorsReadWhileTheImageLoads) {
  constexpr std::size_t kFrames = 2000000;  // 16 MB; every number is exact in a float
  const TemporaryFolder folder;
  std::string whyNot;
  const auto reader =
      WaveFileReader::openFile(folder.file("a.wav", numberedRecording(kFrames)), whyNot);
  ASSERT_NE(reader, nullptr) << whyNot;
  std::vector<std::size_t> right(kThreads);
  reader->image()->startLoading();
  together([&](std::size_t number) {
    WaveFileReader own = *reader;
    right[number] = readAll(*own.image(), own.cursor(), 1000 + 7919 * number);
  });
  EXPECT_EQ(right, std::vector<std::size_t>(kThreads, kFrames));
}

TEST(WaveImageLoadingTest, ACursorThatDoesNotWaitReadsOnlyWhatIsRight) {
  constexpr std::size_t kFrames = 1000000;
  const TemporaryFolder folder;
  std::string whyNot;
  const auto reader =
      WaveFileReader::openFile(folder.file("a.wav", numberedRecording(kFrames)), whyNot);
  ASSERT_NE(reader, nullptr) << whyNot;
  std::atomic<std::size_t> right{0};
  reader->image()->startLoading();
  together([&](std::size_t) {
    SampleCursor cursor = reader->cursor();
    float left = 0.0F;
    float other = 0.0F;
    cursor.beginReadSample();
    for (std::size_t n = 0; n < kFrames; ++n) {
      while (!cursor.readNextSample(left, other)) {
        if (left != -2.0F || other != -2.0F) return;
        if (!reader->image()->waitUntilLoaded(cursor.loadedEndFor(1))) return;
      }
      if (left != static_cast<float>(n) || other != -static_cast<float>(n)) return;
    }
    ++right;
  });
  EXPECT_EQ(right, kThreads);
}

TEST(WaveImageLoadingTest, LevelsCanBeMeasuredWhileTheImageLoads) {
  constexpr std::size_t kFrames = 1000000;
  const TemporaryFolder folder;
  std::string whyNot;
  const auto reader =
      WaveFileReader::openFile(folder.file("a.wav", numberedRecording(kFrames)), whyNot);
  ASSERT_NE(reader, nullptr) << whyNot;
  std::atomic<std::size_t> right{0};
  reader->image()->startLoading();
  together([&](std::size_t) {
    WaveFileReader own = *reader;
    for (int second = 0; second < 20; ++second) {
      const std::uint64_t last = 48000 * (static_cast<std::uint64_t>(second) + 1);
      if (!own.image()->waitUntilLoaded(44 + 8 * last)) return;
      float left = 0.0F;
      float other = 0.0F;
      own.getSampleLevelMeterFrom(second, second + 1, left, other, 0.0, 0.0);
      if (left != static_cast<float>(last - 1)) return;
      if (other != (second == 0 ? 0.0F : -2.0F)) return;  // nothing under the marker counts
    }
    ++right;
  });
  EXPECT_EQ(right, kThreads);
}

// Nothing else would: the test's time limit ends a wait without a cancel flag. Many rounds, as a
// thread that comes late does not have to be woken.
TEST(WaveImageLoadingTest, AbandoningWakesEveryWaiter) {
  const TemporaryFolder folder;
  const auto path = folder.file("a.wav", numberedBytes(1000));
  for (std::size_t round = 0; round < kRounds; ++round) {
    const auto image = imageOf(path);  // never starts to load
    std::atomic<std::size_t> told{0};
    std::latch waiting(kThreads);
    std::jthread abandoner([&] {
      waiting.wait();
      image->abandon();
    });
    together([&](std::size_t) {
      waiting.count_down();
      if (!image->waitUntilLoaded(1000)) ++told;
    });
    EXPECT_EQ(told, kThreads);
  }
}

TEST(WaveImageLoadingTest, ACancelFlagEndsOnlyItsOwnWaits) {
  const TemporaryFolder folder;
  const auto image = imageOf(folder.file("a.wav", numberedBytes(1000)));
  std::atomic<bool> cancel{false};
  std::atomic<std::size_t> cancelled{0};
  std::atomic<std::size_t> complete{0};
  together([&](std::size_t number) {
    if (number == 0) {
      cancel = true;
    } else if (number == 1) {
      if (image->waitUntilLoaded(1000)) ++complete;
    } else if (!image->waitUntilLoaded(1000, &cancel)) {
      if (++cancelled == kThreads - 2) image->startLoading();
    }
  });
  EXPECT_EQ(cancelled, kThreads - 2);
  EXPECT_EQ(complete, 1U);
}

TEST(WaveImageLoadingTest, AFailureWakesEveryWaiterWithTheReason) {
  const TemporaryFolder folder;
  const auto path = folder.file("a.wav", numberedBytes(3 * kMegabyte / 2));
  for (std::size_t round = 0; round < kRounds; ++round) {
    std::filesystem::resize_file(path, 4 * kMegabyte);
    const auto image = imageOf(path);
    std::filesystem::resize_file(path, 3 * kMegabyte / 2);
    std::atomic<std::size_t> told{0};
    std::latch waiting(kThreads);
    std::jthread starter([&] {
      waiting.wait();
      image->startLoading();
    });
    together([&](std::size_t) {
      waiting.count_down();
      if (!image->waitUntilLoaded(4 * kMegabyte) && !image->failure().empty()) ++told;
    });
    EXPECT_EQ(told, kThreads);
  }
}

TEST(WaveImageLoadingTest, AbandonedOnTheWayTheArrivedPartIsRight) {
  const TemporaryFolder folder;
  const auto path = folder.file("a.wav", numberedBytes(kBig));
  for (std::size_t megabytes = 1; megabytes <= 16; megabytes *= 2) {
    const auto image = imageOf(path);
    image->startLoading();
    ASSERT_TRUE(image->waitUntilLoaded(megabytes * kMegabyte));
    image->abandon();
    const bool isComplete = image->waitUntilLoaded(kBig);
    EXPECT_TRUE(isComplete || image->failure().empty());
    EXPECT_GE(image->loaded(), megabytes * kMegabyte);
    EXPECT_TRUE(isNumbered(image->bytes()));
  }
}

TEST(WaveImageLoadingTest, AnImageThatNobodyHoldsIsFreedOnceItsLoadingEnds) {
  const TemporaryFolder folder;
  auto image = imageOf(folder.file("a.wav", numberedBytes(kBig)));
  const std::weak_ptr<WaveImage> watch = image;
  image->startLoading();
  image->abandon();
  image.reset();
  while (!watch.expired()) std::this_thread::yield();  // the test's time limit is the only one
  EXPECT_TRUE(watch.expired());
}
