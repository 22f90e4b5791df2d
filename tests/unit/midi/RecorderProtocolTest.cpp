// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "midi/RecorderProtocol.h"

#include <gmock/gmock.h>

#include "midi/simulator/RecorderRequest.h"
#include "midi/simulator/RecorderState.h"

namespace {

using testing::ElementsAre;
using Bytes = std::vector<std::uint8_t>;
using Request = RecorderProtocol::Request;
using Reply = RecorderProtocol::Reply;

/// Every request, in order.
std::vector<Bytes> requests() {
  std::vector<Bytes> all;
  for (int i = 0; i <= static_cast<int>(Request::AutoPowerOff); ++i) {
    all.push_back(RecorderProtocol::request(static_cast<Request>(i)));
  }
  all.push_back(RecorderProtocol::setDateTime({2024, 2, 29, 23, 59, 58}));
  all.push_back(RecorderProtocol::setting(Request::SetBatteryType, 3));
  all.push_back(RecorderProtocol::setting(Request::SetAutoPowerOff, 2));
  return all;
}

/// Every reply of a simulated recorder, in the order of the requests, without the F7.
std::vector<Bytes> replies() {
  const RecorderState state;
  std::vector<Bytes> all = {
      RecorderMessages::identity(state),       RecorderMessages::acknowledgement(0x15),
      RecorderMessages::version(state),        RecorderMessages::card(state),
      RecorderMessages::setting(1, 2),         RecorderMessages::setting(2, 3),
      RecorderMessages::acknowledgement(0x0F), RecorderMessages::acknowledgement(0x10),
      RecorderMessages::acknowledgement(0x11)};
  for (Bytes& each : all) each.pop_back();
  return all;
}

TEST(RecorderProtocol, RequestsAreTheBytesOfTheWire) {
  EXPECT_THAT(requests(), ElementsAre(Bytes{0xF0, 0x7E, 0x00, 0x06, 0x01, 0xF7},
                                      Bytes{0xF0, 0x52, 0x00, 0x00, 0x52, 0xF7},
                                      Bytes{0xF0, 0x52, 0x00, 0x00, 0x10, 0x01, 0xF7},
                                      Bytes{0xF0, 0x52, 0x00, 0x00, 0x67, 0x01, 0xF7},
                                      Bytes{0xF0, 0x52, 0x00, 0x00, 0x46, 0x01, 0xF7},
                                      Bytes{0xF0, 0x52, 0x00, 0x00, 0x46, 0x02, 0xF7},
                                      Bytes{0xF0, 0x52, 0x00, 0x00, 0x31, 0x00, 20, 24, 2, 29, 23,
                                            59, 58, 0xF7},
                                      Bytes{0xF0, 0x52, 0x00, 0x00, 0x31, 0x01, 3, 0xF7},
                                      Bytes{0xF0, 0x52, 0x00, 0x00, 0x31, 0x02, 2, 0xF7}));
}

TEST(RecorderProtocol, TheSimulatedRecorderReadsEachRequestAlike) {
  const auto all = requests();
  for (std::size_t i = 0; i < all.size(); ++i) {
    EXPECT_EQ(RecorderProtocol::requestOf(all[i]), static_cast<Request>(i));
    EXPECT_EQ(recorderRequest(all[i]), static_cast<RecorderRequest>(i));
  }
}

TEST(RecorderProtocol, KnowsEachReplyOfTheSimulatedRecorderAndNoOther) {
  const auto all = replies();
  for (std::size_t i = 0; i < all.size(); ++i) {
    EXPECT_EQ(RecorderProtocol::replyOf(all[i]), static_cast<Reply>(i));
    for (std::size_t k = 0; k < all.size(); ++k) {
      EXPECT_EQ(RecorderProtocol::isReply(static_cast<Reply>(k), all[i]), i == k);
    }
    EXPECT_EQ(RecorderProtocol::replyTo(static_cast<Request>(i)), static_cast<Reply>(i));
  }
}

TEST(RecorderProtocol, ALengthOrABeginningThatIsWrongIsNothing) {
  for (Bytes request : requests()) {
    const Bytes cut(request.begin(), request.end() - 1);
    EXPECT_EQ(RecorderProtocol::requestOf(cut), std::nullopt);
    request.insert(request.end() - 1, 0x00);
    EXPECT_EQ(RecorderProtocol::requestOf(request), std::nullopt);
  }
  for (Bytes reply : replies()) {
    reply.push_back(0x00);
    EXPECT_EQ(RecorderProtocol::replyOf(reply), std::nullopt);
  }
  EXPECT_EQ(RecorderProtocol::requestOf({}), std::nullopt);
  EXPECT_EQ(RecorderProtocol::replyOf({}), std::nullopt);
}

TEST(RecorderProtocol, TakesTheValuesOut) {
  const auto all = replies();
  const auto identity = RecorderProtocol::identityOf(all[0]);
  EXPECT_THAT(identity.deviceId, ElementsAre(0x10, 0x20, 0x30, 0x40));
  EXPECT_THAT(identity.version, ElementsAre('0', '1', '0', '0'));
  EXPECT_THAT(RecorderProtocol::versionOf(all[2]), ElementsAre('0', '1', '0', '2'));
  EXPECT_EQ(RecorderProtocol::valueOf(all[4]), 2);
  EXPECT_EQ(RecorderProtocol::valueOf(all[5]), 3);
  const auto card = RecorderProtocol::cardOf(all[3]);
  EXPECT_EQ(card.isThere, 1);
  EXPECT_THAT(card.remaining, ElementsAre(5, 12, 33));
  EXPECT_THAT(card.used, ElementsAre(0x00, 0x20, 0x59, 0x66, 0x1D, 0, 0, 0, 0, 0));
  EXPECT_THAT(card.capacity, ElementsAre(0x00, 0x3E, 0x0D, 0x6B, 0x76, 0, 0, 0, 0, 0));
  EXPECT_EQ(RecorderProtocol::dateTimeOf(requests()[6]).year, 2024);
  EXPECT_EQ(RecorderProtocol::dateTimeOf(requests()[6]).second, 58);
  EXPECT_EQ(RecorderProtocol::codeOf(requests()[7]), 3);
}

TEST(RecorderProtocol, AnAcknowledgementOfSomethingUnknownIsOneToo) {
  EXPECT_EQ(RecorderProtocol::acknowledgedBy(Bytes{0xF0, 0x52, 0, 0, 0, 0x44}), 0x44);
  EXPECT_EQ(RecorderProtocol::replyOf(Bytes{0xF0, 0x52, 0, 0, 0, 0x44}), std::nullopt);
  EXPECT_EQ(RecorderProtocol::acknowledgedBy(Bytes{0xF0, 0x52, 0, 0, 1, 0x44}), std::nullopt);
}

}  // namespace
