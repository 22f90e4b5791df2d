// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include <alsa/asoundlib.h>

#include <cstdint>
#include <memory>

#include "AlsaRecoveryTest.h"
#include "midi/RecorderLink.h"
#include "unit/midi/LinkTest.h"

namespace {

/// The link to the recorder that is plugged in, over the transport of Linux.
class LinkOverAlsaTest : public AlsaRecoveryTest {
 protected:
  static constexpr int kOther = 130;
  static constexpr double kStep = 0.05;

  struct Bench {
    explicit Bench(LinkOverAlsaTest& test) : platform(test.system, test.clock), way(test.told()) {
      way.open();
    }

    InstalledPlatform platform;
    MIDIManager manager;
    MIDISequenceManager sequences;
    RecorderLink way;
  };

  void SetUp() override {
    AlsaRecoveryTest::SetUp();
    bench = std::make_unique<Bench>(*this);
    pass(1.5);
    ASSERT_EQ(connections, 1);
  }
  void TearDown() override {
    bench.reset();
    AlsaRecoveryTest::TearDown();
  }
  RecorderLink::Listener told() {
    return {[this] { ++connections, connectedAt = clock->hostTime(); }, {}, [this] { ++losses; }};
  }
  /// Whatever was announced has been heard, and no client is being ended.
  void hearNews() {
    ASSERT_TRUE(
        EventLoop::runUntil([] { return FakeAlsa::waiting() == 0 && FakeAlsa::open() == 1; }));
  }
  void pass(double seconds) {
    for (double passed = 0; passed < seconds; passed += kStep) {
      if (isNoisy) FakeAlsa::announce(SND_SEQ_EVENT_CLIENT_CHANGE, kOther + 1, 0);
      hearNews();
      clock->advance(kStep);
    }
  }
  void plugInOther() {
    fake.ports.push_back({kOther, 0, "Keys", "Keys out"});
    FakeAlsa::announce(SND_SEQ_EVENT_PORT_START, kOther, 0);
    hearNews();
  }
  void endOther() {
    fake.ports.pop_back();
    FakeAlsa::announce(SND_SEQ_EVENT_CLIENT_EXIT, kOther, 0);
    hearNews();
  }

  bool isNoisy = false;  ///< others announce themselves all the while
  int connections = 0;
  int losses = 0;
  std::uint64_t connectedAt = 0;
  std::unique_ptr<Bench> bench;
};

TEST_F(LinkOverAlsaTest, IsBackWithinTwoSecondsAfterAnythingWasRemoved) {
  constexpr std::uint64_t kTwoSeconds = 2'000'000'000;
  for (const bool noise : {false, true}) {
    // Wherever the removal falls between two lists of the ports.
    for (const double before : {0.0, 0.2, 0.4, 0.6, 0.8, 1.0}) {
      SCOPED_TRACE(testing::Message() << (noise ? "noisy, " : "quiet, ") << before << " s before");
      plugInOther();
      pass(1.5);
      connections = losses = 0;
      isNoisy = noise;
      pass(before);
      const std::uint64_t removedAt = clock->hostTime();
      endOther();
      pass(2.5);
      isNoisy = false;
      EXPECT_EQ(losses, 1);
      EXPECT_EQ(connections, 1);
      EXPECT_EQ(bench->manager.state(), MIDIManager::Connected);
      EXPECT_LE(connectedAt - removedAt, kTwoSeconds);
      pass(1.5);
    }
  }
}

}  // namespace
