// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "midi/alsa/AlsaOutput.h"

#include <gmock/gmock.h>

#include <cerrno>

#include "support/LogLines.h"
#include "support/SteppedMIDIClock.h"

namespace {

constexpr AlsaAddress kRecorder{24, 0};
constexpr AlsaAddress kOther{128, 0};

/// An output to a sequencer that answers `status` and writes down what it took.
class AlsaOutputTest : public testing::Test {
 protected:
  void send(std::size_t size, AlsaAddress to = kRecorder) {
    output.send({0, to, {std::vector<std::uint8_t>(size, 0x11), {}}});
  }
  void sendMany(std::size_t total, std::size_t piece = 250) {
    for (std::size_t sent = 0; sent < total; sent += piece) send(piece);
  }

  /// Nothing waits for its turn.
  [[nodiscard]] bool isIdle() const { return clock.running() == 0; }

  SteppedMIDIClock clock;
  int status = 0;
  int attempts = 0;
  std::size_t taken = 0;
  std::vector<AlsaAddress> takers;
  AlsaOutput output{clock, [this](const AlsaOutput::Item& item) {
                      ++attempts;
                      if (status == 0) taken += item.payload.bytes.size();
                      if (status == 0) takers.push_back(item.to);
                      return status;
                    }};
};

TEST_F(AlsaOutputTest, ShortMessagesGoAtOnce) {
  send(14);
  EXPECT_EQ(taken, 14U);
  EXPECT_TRUE(isIdle());
  EXPECT_EQ(clock.running(), 0U);
}

TEST_F(AlsaOutputTest, WhatIsLostIsALineAndInARowNoMore) {
  const LogLines log;
  status = -ENODEV;
  send(14);
  send(14);
  EXPECT_THAT(log.get(), testing::ElementsAre("MIDI that is sent is lost (No such device)."));
  status = 0;
  send(14);
  status = -ENODEV;
  send(14);
  EXPECT_EQ(log.get().size(), 2U);
}

TEST_F(AlsaOutputTest, ALongMessageGoesNoFasterThanACable) {
  sendMany(15'000);
  EXPECT_EQ(taken, AlsaOutput::kAllowance);
  clock.advance(1.0);
  EXPECT_NEAR(static_cast<double>(taken), 3000 + 3125, 256);
  clock.advance(2.0);
  EXPECT_LT(taken, 15'000U);
  clock.advance(1.0);
  EXPECT_EQ(taken, 15'000U);
  EXPECT_TRUE(isIdle());
}

TEST_F(AlsaOutputTest, TheAllowanceComesBack) {
  sendMany(3000);
  clock.advance(10.0);
  sendMany(3250);
  EXPECT_EQ(taken, 6000U) << "and is not saved up";
}

TEST_F(AlsaOutputTest, AnEventLargerThanTheAllowanceGoesToo) {
  send(14);
  send(5000);
  EXPECT_EQ(taken, 14U);
  clock.advance(0.1);
  EXPECT_EQ(taken, 5014U);
}

TEST_F(AlsaOutputTest, WhatFindsTheSequencerFullIsKept) {
  for (const int full : {-EAGAIN, -ENOMEM, -EINTR}) {
    taken = 0;
    status = full;
    send(20);
    send(30);
    clock.advance(1.0);
    EXPECT_EQ(taken, 0U);
    status = 0;
    clock.advance(0.02);
    EXPECT_EQ(taken, 50U) << full;
    EXPECT_TRUE(isIdle());
  }
}

TEST_F(AlsaOutputTest, AReceiverThatStaysFullIsGivenUp) {
  status = -ENOMEM;
  send(20);
  clock.advance(AlsaOutput::kPatienceSeconds - 0.1);
  EXPECT_FALSE(isIdle());
  clock.advance(0.2);
  EXPECT_TRUE(isIdle());
  EXPECT_EQ(clock.running(), 0U);
  status = 0;
  send(30);
  EXPECT_EQ(taken, 30U);
}

TEST_F(AlsaOutputTest, WhoIsUnpluggedGetsNothingAndHoldsNobodyUp) {
  for (const int gone : {-ENODEV, -ENOENT, -ENXIO, -EINVAL}) {
    status = gone;
    send(20);
    EXPECT_TRUE(isIdle()) << gone;
  }
  EXPECT_EQ(attempts, 4);
}

TEST_F(AlsaOutputTest, IsBounded) {
  status = -EAGAIN;
  for (int i = 0; i < 2000; ++i) send(256);
  status = 0;
  clock.advance(200.0);
  EXPECT_EQ(taken, AlsaOutput::kMostWaiting);
}

TEST_F(AlsaOutputTest, DropsWhatWaitsForOne) {
  status = -EAGAIN;
  send(20, kRecorder);
  send(30, kOther);
  send(40, kRecorder);
  output.drop(kRecorder);
  status = 0;
  clock.advance(1.0);
  EXPECT_THAT(takers, testing::ElementsAre(kOther));
  EXPECT_EQ(taken, 30U);
}

TEST_F(AlsaOutputTest, DroppingEverythingStopsTheClock) {
  status = -EAGAIN;
  send(20);
  output.drop(kRecorder);
  EXPECT_EQ(clock.running(), 0U);
  status = 0;
  send(30);
  EXPECT_EQ(taken, 30U);
}

}  // namespace
