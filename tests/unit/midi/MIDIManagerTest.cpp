// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "midi/MIDIManager.h"

#include <gmock/gmock.h>

#include <array>

#include "LinkTest.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Writes down what it is told; connects at once if asked to.
class Listener : public MIDIManagerDelegate {
 public:
  void MIDIManagerFound() override {
    told.emplace_back("found");
    if (connects) MIDIManager::get().connect();
  }
  void MIDIManagerConnected() override { told.emplace_back("connected"); }
  void MIDIManagerDisconnected() override { told.emplace_back("disconnected"); }
  void MIDIManagerReceivedData(const MIDIEventPacket& packet) override {
    words.emplace_back(packet.words.begin(), packet.words.end());
  }
  void MIDIManagerReceivedData_iOS13(const MIDIPacket& packet, bool isLast) override {
    packets.emplace_back(packet.bytes.begin(), packet.bytes.end());
    last.push_back(isLast);
  }

  bool connects = false;
  std::vector<std::string> told;
  std::vector<std::vector<std::uint8_t>> packets;
  std::vector<std::vector<std::uint32_t>> words;
  std::vector<bool> last;
};

class MIDIManagerTest : public LinkTest {
 protected:
  MIDIManagerTest() { manager.setDelegate(&listener); }

  void connect() {
    listener.connects = true;
    system->plugRecorder();
    manager.scanTarnDevice();
    clock->advance(1.0);
    ASSERT_EQ(manager.state(), 5);
    system->calls.clear();
    listener.told.clear();
  }
  [[nodiscard]] static std::string inputName() { return hasEvents() ? "Input Port" : "Input"; }

  Listener listener;
};

MIXDECK_BOTH_KINDS(MIDIManagerTest);

TEST_P(MIDIManagerTest, NamesItsStates) {
  EXPECT_EQ(MIDIManager::stateToString(0), "DISCONNECTED");
  EXPECT_EQ(MIDIManager::stateToString(1), "SCAN");
  EXPECT_EQ(MIDIManager::stateToString(2), "FOUND");
  EXPECT_EQ(MIDIManager::stateToString(3), "CONNECTING");
  EXPECT_EQ(MIDIManager::stateToString(4), "");
  EXPECT_EQ(MIDIManager::stateToString(5), "CONNECTED");
  EXPECT_EQ(MIDIManager::stateToString(6), "");
  EXPECT_EQ(MIDIManager::stateToString(-1), "");
}

TEST_P(MIDIManagerTest, IsTheOneOfTheProcess) {
  EXPECT_EQ(&MIDIManager::get(), &manager);
}

TEST_P(MIDIManagerTest, MakesItsClientAtOnce) {
  EXPECT_THAT(system->calls, ElementsAre("client TARN Riffhouse"));
  EXPECT_EQ(manager.state(), 0);
}

TEST_P(MIDIManagerTest, FindsTheRecorderByAPartOfItsName) {
  const std::vector<std::pair<std::string, bool>> names = {
      {"J4 TARN", true},       {"USB J4 TARN MIDI 1", true},
      {"J4 TARN:0", true},     {"TARN J4", false},
      {"J4  TARN", false},     {"j4 tarn", false},
      {"Unknown name", false}, {"", false},
      {"J4 TAR", false}};
  for (const auto& [name, isRecorder] : names) {
    system->sources = {{1, "Something"}, {21, name}};
    system->destinations = {{22, name}};
    EXPECT_EQ(manager.isHasReadingEndpoint(), isRecorder) << name;
    EXPECT_EQ(manager.isHasWritingEndpoint(), isRecorder) << name;
  }
}

TEST_P(MIDIManagerTest, DoesNotMatchAnEndpointWithoutAName) {
  system->sources = {{21, std::nullopt}};
  EXPECT_FALSE(manager.isHasReadingEndpoint());
}

TEST_P(MIDIManagerTest, TakesTheFirstOfSeveralRecorders) {
  listener.connects = true;
  system->sources = {{30, "Other"}, {31, "J4 TARN"}, {32, "J4 TARN"}};
  system->destinations = {{41, "J4 TARN 2"}, {42, "J4 TARN"}};
  manager.scanTarnDevice();
  manager.send(nullptr, 0);
  EXPECT_THAT(system->calls, testing::Contains("connect 11 31"));
  const std::uint8_t message[] = {0xF0, 0x01, 0xF7};
  manager.send(message, 3);
  EXPECT_EQ(system->calls.back(), "send 12 41");
}

TEST_P(MIDIManagerTest, FindsOnlyWithBothEndpoints) {
  system->sources = {{21, "J4 TARN"}};
  manager.scanTarnDevice();
  EXPECT_EQ(manager.state(), 0);
  system->sources.clear();
  system->destinations = {{22, "J4 TARN"}};
  manager.scanTarnDevice();
  EXPECT_EQ(manager.state(), 0);
  EXPECT_THAT(listener.told, IsEmpty());
  system->plugRecorder();
  manager.scanTarnDevice();
  EXPECT_EQ(manager.state(), 2);
  EXPECT_THAT(listener.told, ElementsAre("found"));
}

TEST_P(MIDIManagerTest, TellsOnceThatItFoundTheRecorder) {
  system->plugRecorder();
  manager.scanTarnDevice();
  manager.scanTarnDevice();
  EXPECT_THAT(listener.told, ElementsAre("found"));
}

TEST_P(MIDIManagerTest, ConnectsInOrder) {
  system->plugRecorder();
  manager.scanTarnDevice();
  system->calls.clear();
  manager.connect();
  EXPECT_THAT(system->calls, ElementsAre("input of 1 " + inputName(), "connect 11 21",
                                         "output of 1 PortHub Output Port"));
  EXPECT_EQ(manager.state(), 4);
}

TEST_P(MIDIManagerTest, ConnectsOnlyWhenFound) {
  for (const std::int64_t state : {0, 1, 3, 4, 5}) {
    manager.changeStateTo(state);
    manager.connect();
    EXPECT_EQ(manager.state(), state);
  }
  EXPECT_THAT(system->calls, ElementsAre("client TARN Riffhouse"));
  manager.changeStateTo(0);
}

TEST_P(MIDIManagerTest, IsConnectedASecondLater) {
  listener.connects = true;
  system->plugRecorder();
  manager.scanTarnDevice();
  clock->advance(0.999);
  EXPECT_EQ(manager.state(), 4);
  EXPECT_THAT(listener.told, ElementsAre("found"));
  clock->advance(0.001);
  EXPECT_EQ(manager.state(), 5);
  EXPECT_THAT(listener.told, ElementsAre("found", "connected"));
  clock->advance(10.0);
  EXPECT_THAT(listener.told, ElementsAre("found", "connected"));
}

TEST_P(MIDIManagerTest, RestartsTheConnectedTimer) {
  manager.changeStateTo(4);
  manager.startTimerConnected();
  clock->advance(0.6);
  manager.startTimerConnected();
  EXPECT_EQ(clock->running(), 1U);
  clock->advance(0.6);
  EXPECT_EQ(manager.state(), 4);
  clock->advance(0.4);
  EXPECT_EQ(manager.state(), 5);
}

TEST_P(MIDIManagerTest, IgnoresTheConnectedTimerInAnotherState) {
  manager.changeStateTo(3);
  manager.startTimerConnected();
  clock->advance(2.0);
  EXPECT_EQ(manager.state(), 3);
  EXPECT_THAT(listener.told, IsEmpty());
}

TEST_P(MIDIManagerTest, GoesOnWithoutAnInputPort) {
  listener.connects = true;
  system->inputPortStatus = -10830;
  system->plugRecorder();
  manager.scanTarnDevice();
  EXPECT_THAT(system->calls, ElementsAre("client TARN Riffhouse", "input of 1 " + inputName(),
                                         "output of 1 PortHub Output Port"));
  clock->advance(1.0);
  EXPECT_EQ(manager.state(), 5);
  EXPECT_EQ(manager.buildPortForReadDataFromHW(1), -10830);
}

TEST_P(MIDIManagerTest, LeavesTheOutputPortWithoutAnInputPort) {
  system->inputPortStatus = -1;
  connect();
  manager.DeviceDisconnected();
  EXPECT_THAT(system->calls, IsEmpty());
  EXPECT_EQ(clock->running(), 0U);
  manager.scanTarnDevice();
  EXPECT_EQ(system->calls.front(), "dispose 12");
}

TEST_P(MIDIManagerTest, GoesOnWithoutAnOutputPort) {
  system->outputPortStatus = -10830;
  connect();
  EXPECT_EQ(manager.state(), 5);
  const std::array<std::uint8_t, 3> message = {0xF0, 0x01, 0xF7};
  manager.send(message.data(), 3);
  EXPECT_THAT(system->calls, ElementsAre("send 0 22")) << "no port, and nobody gets it";
  system->calls.clear();
  manager.DeviceDisconnected();
  EXPECT_THAT(system->calls, ElementsAre("disconnect 11 21", "dispose 11", "flush 21", "flush 22"));
}

TEST_P(MIDIManagerTest, ClosesEverythingInOrder) {
  connect();
  manager.DeviceDisconnected();
  EXPECT_THAT(system->calls,
              ElementsAre("disconnect 11 21", "dispose 11", "dispose 12", "flush 21", "flush 22"));
  EXPECT_THAT(listener.told, ElementsAre("disconnected"));
  EXPECT_EQ(manager.state(), 0);
}

TEST_P(MIDIManagerTest, TellsOnceThatItDisconnected) {
  connect();
  manager.DeviceDisconnected();
  manager.DeviceDisconnected();
  EXPECT_THAT(listener.told, ElementsAre("disconnected"));
}

TEST_P(MIDIManagerTest, StopsTheConnectedTimerWhenItDisconnects) {
  listener.connects = true;
  system->plugRecorder();
  manager.scanTarnDevice();
  manager.DeviceDisconnected();
  EXPECT_EQ(clock->running(), 0U);
  clock->advance(5.0);
  EXPECT_EQ(manager.state(), 0);
}

TEST_P(MIDIManagerTest, DisconnectsFromEveryStateButTheFirst) {
  for (const std::int64_t state : {1, 2, 3, 4, 5}) {
    manager.changeStateTo(state);
    listener.told.clear();
    manager.DeviceDisconnected();
    EXPECT_EQ(manager.state(), 0);
    EXPECT_THAT(listener.told, ElementsAre("disconnected"));
  }
}

TEST_P(MIDIManagerTest, ScansWhenSomethingIsAdded) {
  system->plugRecorder();
  system->client->setupChanged(2);
  EXPECT_THAT(listener.told, ElementsAre("found"));
}

TEST_P(MIDIManagerTest, IgnoresAnAdditionWhileConnected) {
  connect();
  system->client->setupChanged(2);
  EXPECT_EQ(manager.state(), 5);
  EXPECT_THAT(listener.told, IsEmpty());
  EXPECT_THAT(system->calls, IsEmpty());
}

TEST_P(MIDIManagerTest, EndsTheLinkWhenAnythingIsRemoved) {
  connect();
  system->client->setupChanged(3);
  EXPECT_EQ(manager.state(), 0);
  EXPECT_THAT(listener.told, ElementsAre("disconnected"));
}

TEST_P(MIDIManagerTest, EndsTheLinkWhenAScanMissesTheRecorder) {
  connect();
  system->sources.clear();
  system->client->setupChanged(2);
  EXPECT_EQ(manager.state(), 0);
  EXPECT_THAT(listener.told, ElementsAre("disconnected"));
}

TEST_P(MIDIManagerTest, IgnoresOtherNotifications) {
  connect();
  system->sources.clear();
  for (const std::int32_t id : {0, 1, 4, 5, 6, 7, -1}) system->client->setupChanged(id);
  EXPECT_EQ(manager.state(), 5);
}

TEST_P(MIDIManagerTest, ConnectsAgainAfterARemoval) {
  connect();
  system->client->setupChanged(3);
  system->client->setupChanged(2);
  clock->advance(1.0);
  EXPECT_THAT(listener.told, ElementsAre("disconnected", "found", "connected"));
}

TEST_P(MIDIManagerTest, WorksWithoutADelegate) {
  manager.setDelegate(nullptr);
  system->plugRecorder();
  manager.scanTarnDevice();
  EXPECT_EQ(manager.state(), 2);
  manager.connect();
  clock->advance(1.0);
  EXPECT_EQ(manager.state(), 5);
  manager.DeviceDisconnected();
  EXPECT_EQ(manager.state(), 0);
  EXPECT_EQ(manager.delegate(), nullptr);
}

TEST_P(MIDIManagerTest, HoldsItsDelegateWeakly) {
  {
    Listener passing;
    manager.setDelegate(&passing);
    EXPECT_EQ(manager.delegate(), &passing);
  }
  EXPECT_EQ(manager.delegate(), nullptr);
  system->plugRecorder();
  manager.scanTarnDevice();
  EXPECT_EQ(manager.state(), 2);
}

TEST_P(MIDIManagerTest, SendsARequestToTheRecorder) {
  connect();
  const Bytes message = {0xF0, 0x7E, 0x00, 0x06, 0x01, 0xF7};
  manager.send(message.data(), 6);
  EXPECT_THAT(system->calls, ElementsAre("send 12 22"));
  EXPECT_THAT(sent(), ElementsAre(message));
}

TEST_P(MIDIManagerTest, DisposesOfItsClient) {
  const auto other = std::make_shared<RecordingMIDISystem>(GetParam());
  MIDIPlatform::install(other, clock);
  { const MIDIManager passing; }
  EXPECT_THAT(other->calls, ElementsAre("client TARN Riffhouse", "dispose 1"));
}

/// What only one of the kinds does.
class MIDIManagerPacketTest : public MIDIManagerTest {};
INSTANTIATE_TEST_SUITE_P(Link, MIDIManagerPacketTest, testing::Values(MIDIPacketKind::BytePackets),
                         kindName);
class MIDIManagerEventTest : public MIDIManagerTest {};
INSTANTIATE_TEST_SUITE_P(Link, MIDIManagerEventTest, testing::Values(MIDIPacketKind::EventLists),
                         kindName);

std::vector<std::uint8_t> sysEx(std::size_t size) {
  std::vector<std::uint8_t> bytes(size, 0x11);
  bytes.front() = 0xF0;
  bytes.back() = 0xF7;
  return bytes;
}

std::vector<std::size_t> sizes(
    const std::vector<std::pair<std::uint64_t, std::vector<std::uint8_t>>>& list) {
  std::vector<std::size_t> found;
  for (const auto& [time, bytes] : list) found.push_back(bytes.size());
  return found;
}

TEST_P(MIDIManagerPacketTest, CutsAMessageIntoPackets) {
  clock->advance(7.0);
  manager.send(sysEx(600).data(), 600);
  ASSERT_EQ(system->packetLists.size(), 1U);
  EXPECT_THAT(sizes(system->packetLists[0]), ElementsAre(256, 256, 88));
  EXPECT_THAT(sent(), ElementsAre(sysEx(600)));
  for (const auto& [time, bytes] : system->packetLists[0]) EXPECT_EQ(time, clock->hostTime());
}

TEST_P(MIDIManagerPacketTest, CutsAtEachBoundary) {
  const std::vector<std::pair<std::size_t, std::size_t>> expected = {
      {2, 1}, {255, 1}, {256, 1}, {257, 2}, {512, 2}, {513, 3}, {9472, 37}};
  for (const auto& [size, packets] : expected) {
    manager.send(sysEx(size).data(), static_cast<std::int64_t>(size));
    EXPECT_EQ(system->packetLists.back().size(), packets) << size;
  }
  EXPECT_EQ(system->packetLists.size(), expected.size());
}

TEST_P(MIDIManagerPacketTest, GoesOnInASecondListWhenOneIsFull) {
  manager.send(sysEx(15000).data(), 15000);
  ASSERT_EQ(system->packetLists.size(), 2U);
  EXPECT_EQ(system->packetLists[0].size(), 37U);
  EXPECT_EQ(system->packetLists[1].size(), 22U);
  EXPECT_THAT(sent(), ElementsAre(sysEx(15000)));
}

TEST_P(MIDIManagerPacketTest, SendsAnEmptyListForNothing) {
  const std::uint8_t byte = 0xF0;
  manager.send(&byte, 0);
  manager.send(&byte, -5);
  ASSERT_EQ(system->packetLists.size(), 2U);
  EXPECT_THAT(system->packetLists[0], IsEmpty());
  EXPECT_THAT(system->packetLists[1], IsEmpty());
}

TEST_P(MIDIManagerPacketTest, SendsWhatIsNotSysExAsItIs) {
  const Bytes message = {0x90, 0x3C, 0x64};
  manager.send(message.data(), 3);
  ASSERT_EQ(system->packetLists.size(), 1U);
  EXPECT_EQ(system->packetLists[0].at(0).second, message);
}

TEST_P(MIDIManagerPacketTest, HandsOnPacketsInOrder) {
  const Bytes first = {0xF0, 0x01};
  const Bytes second = {0x02, 0xF7};
  const std::vector<MIDIPacket> list = {{0, first}, {0, second}};
  system->client->received(MIDIPacketList(list));
  EXPECT_THAT(listener.packets, ElementsAre(first, second));
  EXPECT_THAT(listener.last, ElementsAre(false, true));
}

TEST_P(MIDIManagerEventTest, SendsEachPacketByItself) {
  manager.send(sysEx(14).data(), 14);
  ASSERT_EQ(system->eventLists.size(), 2U);
  EXPECT_THAT(system->eventLists[0],
              ElementsAre(std::pair(std::uint64_t{0}, std::vector{0x30161111U, 0x11111111U})));
  EXPECT_THAT(system->eventLists[1],
              ElementsAre(std::pair(std::uint64_t{0}, std::vector{0x30361111U, 0x11111111U})));
}

TEST_P(MIDIManagerEventTest, SendsNothingThatIsNotSysEx) {
  const Bytes message = {0x90, 0x3C, 0x64};
  manager.send(message.data(), 3);
  manager.send(message.data(), 0);
  EXPECT_THAT(system->eventLists, IsEmpty());
}

TEST_P(MIDIManagerEventTest, SendsALongMessageWhole) {
  manager.send(sysEx(15000).data(), 15000);
  EXPECT_EQ(system->eventLists.size(), 2500U);
  EXPECT_THAT(sent(), ElementsAre(sysEx(15000)));
}

TEST_P(MIDIManagerEventTest, HandsOnPacketsInOrder) {
  const std::vector<std::uint32_t> first = {0x30160102, 0x03040506};
  const std::vector<std::uint32_t> second = {0x20903C64};
  const std::vector<MIDIEventPacket> list = {{0, first}, {0, second}};
  system->client->received(MIDIEventList(list));
  EXPECT_THAT(listener.words, ElementsAre(first, second));
}

TEST(MIDIManager, FindsNothingOnAMachineWithoutMIDI) {
  const auto clock = std::make_shared<SteppedMIDIClock>();
  const InstalledPlatform platform(std::make_shared<AbsentMIDISystem>(), clock);
  Listener listener;
  MIDIManager manager;
  manager.setDelegate(&listener);
  manager.scanTarnDevice();
  EXPECT_EQ(manager.state(), 0);
  EXPECT_EQ(manager.buildPortForReadDataFromHW(0), AbsentMIDISystem::kNotThere);
  manager.send(sysEx(6).data(), 6);
  EXPECT_THAT(listener.told, IsEmpty());
}

}  // namespace
