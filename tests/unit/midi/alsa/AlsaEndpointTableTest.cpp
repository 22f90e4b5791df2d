// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "midi/alsa/AlsaEndpointTable.h"

#include <gmock/gmock.h>

#include "midi/alsa/AlsaSettling.h"
#include "support/SteppedMIDIClock.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

AlsaPort recorder() {
  return {{24, 0}, "J4 TARN", "J4 TARN MIDI 1", true, true};
}

AlsaPort keyboard() {
  return {{20, 1}, "Keys", "out", true, false};
}

class AlsaEndpointTableTest : public testing::Test {
 protected:
  [[nodiscard]] std::vector<std::string> names(MIDIDirection direction) const {
    std::vector<std::string> found;
    for (const auto& endpoint : table.endpoints(direction)) found.push_back(*endpoint.displayName);
    return found;
  }
  [[nodiscard]] MIDIObjectRef first(MIDIDirection direction) const {
    return table.endpoints(direction).at(0).reference;
  }

  MIDIObjectRef last = 0;
  AlsaEndpointTable table{[this] { return ++last; }};
};

TEST_F(AlsaEndpointTableTest, NamesArePutTogetherAsPlayersShowThem) {
  EXPECT_EQ(AlsaEndpointTable::displayName(recorder()), "J4 TARN MIDI 1");
  EXPECT_EQ(AlsaEndpointTable::displayName(keyboard()), "Keys out");
  EXPECT_EQ(AlsaEndpointTable::displayName({{1, 0}, "sim", "J4 TARN"}), "sim J4 TARN");
  EXPECT_EQ(AlsaEndpointTable::displayName({{1, 0}, "", ""}), "");
}

TEST_F(AlsaEndpointTableTest, APortIsAnEndpointForWhatItCanDo) {
  table.update({keyboard(), recorder()});
  EXPECT_THAT(names(MIDIDirection::Source), ElementsAre("Keys out", "J4 TARN MIDI 1"));
  EXPECT_THAT(names(MIDIDirection::Destination), ElementsAre("J4 TARN MIDI 1"));
}

TEST_F(AlsaEndpointTableTest, APortThatDoesNothingIsNone) {
  const auto change = table.update({{{0, 1}, "System", "Announce", false, false}});
  EXPECT_FALSE(change.hasAddition);
  EXPECT_THAT(names(MIDIDirection::Source), IsEmpty());
}

TEST_F(AlsaEndpointTableTest, TellsAdditionsAndRemovalsOnce) {
  const auto added = table.update({recorder()});
  EXPECT_TRUE(added.hasAddition);
  EXPECT_FALSE(added.hasRemoval);
  const auto same = table.update({recorder()});
  EXPECT_FALSE(same.hasAddition || same.hasRemoval);
  const auto swapped = table.update({keyboard()});
  EXPECT_TRUE(swapped.hasAddition && swapped.hasRemoval);
  EXPECT_FALSE(table.update({keyboard()}).hasRemoval);
}

TEST_F(AlsaEndpointTableTest, ReferencesStayAndFindTheirNumbers) {
  table.update({recorder()});
  const MIDIObjectRef source = first(MIDIDirection::Source);
  const MIDIObjectRef destination = first(MIDIDirection::Destination);
  EXPECT_NE(source, destination);
  table.update({keyboard(), recorder()});
  EXPECT_EQ(table.find(source, MIDIDirection::Source), (AlsaAddress{24, 0}));
  EXPECT_EQ(table.find(destination, MIDIDirection::Destination), (AlsaAddress{24, 0}));
  EXPECT_FALSE(table.find(source, MIDIDirection::Destination));
  EXPECT_FALSE(table.find(0, MIDIDirection::Source));
}

TEST_F(AlsaEndpointTableTest, ADeviceThatComesBackIsANewOne) {
  table.update({recorder()});
  const MIDIObjectRef old = first(MIDIDirection::Source);
  table.forget({24, 0});
  EXPECT_FALSE(table.find(old, MIDIDirection::Source)) << "from the announcement on";
  const auto change = table.update({recorder()});
  EXPECT_TRUE(change.hasAddition && change.hasRemoval);
  EXPECT_NE(first(MIDIDirection::Source), old);
}

TEST_F(AlsaEndpointTableTest, AClientGoesWithAllItsPorts) {
  table.update({keyboard(), recorder()});
  table.forgetClient(24);
  EXPECT_THAT(names(MIDIDirection::Source), ElementsAre("Keys out"));
  const auto change = table.update({keyboard()});
  EXPECT_TRUE(change.hasRemoval);
  EXPECT_TRUE(change.hasAddition) << "what stays is told anew: its link has ended";
}

TEST_F(AlsaEndpointTableTest, TheRemovalOfTheLastPortIsNoAddition) {
  table.update({recorder()});
  EXPECT_FALSE(table.update({}).hasAddition);
}

TEST_F(AlsaEndpointTableTest, TheEndOfSomethingUnknownIsNoRemoval) {
  table.update({recorder()});
  table.forget({130, 0});
  table.forgetClient(131);
  const auto change = table.update({recorder()});
  EXPECT_FALSE(change.hasAddition || change.hasRemoval);
}

TEST_F(AlsaEndpointTableTest, ANewNameIsAnAddition) {
  AlsaPort port = recorder();
  port.clientName = port.portName = "MIDI";
  table.update({port});
  const MIDIObjectRef before = first(MIDIDirection::Source);
  const auto change = table.update({recorder()});
  EXPECT_TRUE(change.hasAddition);
  EXPECT_FALSE(change.hasRemoval);
  EXPECT_EQ(first(MIDIDirection::Source), before);
  EXPECT_THAT(names(MIDIDirection::Source), ElementsAre("J4 TARN MIDI 1"));
}

class AlsaSettlingTest : public testing::Test {
 protected:
  SteppedMIDIClock clock;
  int settled = 0;
  AlsaSettling settling{clock, [this] { ++settled; }};
};

TEST_F(AlsaSettlingTest, ABurstIsOneChange) {
  for (int i = 0; i < 5; ++i) {
    settling.disturb();
    clock.advance(0.1);
  }
  EXPECT_EQ(settled, 0);
  clock.advance(0.06);
  EXPECT_EQ(settled, 1);
  clock.advance(5);
  EXPECT_EQ(settled, 1);
  EXPECT_EQ(clock.running(), 0U);
}

TEST_F(AlsaSettlingTest, ABurstWithoutEndIsToldEverySecond) {
  for (int i = 0; i < 31; ++i) {
    settling.disturb();
    clock.advance(0.1);
  }
  EXPECT_EQ(settled, 3);
}

}  // namespace
