// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include "LinkTest.h"
#include "midi/simulator/RecorderScript.h"

namespace {

/// A link that a script is played on, and how many endpoints there are to be seen.
class RecorderScriptTest : public testing::Test {
 protected:
  /// The word that means nothing, empty where all do.
  std::string play(std::string_view words) {
    std::string fault;
    script = RecorderScript::parse(words, fault);
    script.play(link);
    return fault;
  }
  [[nodiscard]] std::size_t endpoints() const {
    return link.system()->endpoints(MIDIDirection::Source).size() +
           link.system()->endpoints(MIDIDirection::Destination).size();
  }

  std::shared_ptr<SteppedMIDIClock> clock = std::make_shared<SteppedMIDIClock>();
  SimulatedLink link{MIDIPacketKind::BytePackets, clock};
  RecorderScript script;
};

TEST_F(RecorderScriptTest, PlugsInAHealthyRecorder) {
  EXPECT_EQ(endpoints(), 0U);
  EXPECT_EQ(play(""), "");
  EXPECT_EQ(endpoints(), 2U);
  EXPECT_NE(link.system()->endpoints(MIDIDirection::Source)[0].displayName->find("J4 TARN"),
            std::string::npos);
  EXPECT_EQ(script.kind(), MIDIPacketKind::BytePackets);
}

TEST_F(RecorderScriptTest, MakesTheRecorderWhatTheWordsSay) {
  EXPECT_EQ(play("firmware=1.10,battery=2,no-card,ump"), "");
  EXPECT_EQ(link.recorder().state().firmware[2], '1');
  EXPECT_EQ(link.recorder().state().batteryType, 2);
  EXPECT_FALSE(link.recorder().state().hasCard);
  EXPECT_EQ(script.kind(), MIDIPacketKind::EventLists);
}

TEST_F(RecorderScriptTest, DoesWhatIsToHappenLater) {
  EXPECT_EQ(play("unplugged,plug@1,eject@1.5,insert@2,unplug@2.5"), "");
  EXPECT_FALSE(link.isPluggedIn());
  clock->advance(1.2);
  EXPECT_TRUE(link.isPluggedIn());
  clock->advance(0.5);
  EXPECT_FALSE(link.recorder().state().hasCard);
  clock->advance(0.5);
  EXPECT_TRUE(link.recorder().state().hasCard);
  clock->advance(0.5);
  EXPECT_FALSE(link.isPluggedIn());
  EXPECT_EQ(endpoints(), 0U);
}

TEST_F(RecorderScriptTest, NamesAWordThatMeansNothing) {
  EXPECT_EQ(play("ump,loud"), "loud");
  EXPECT_EQ(play("silent@nowhere"), "silent@nowhere");
  for (const char* word : {"plug@", "plug@soon", "plug@-1", "plug@nan", "plug@1e9", "plug", "@1",
                           "battery=", "battery=128", "firmware=1.2"}) {
    EXPECT_EQ(play(word), word);
  }
  EXPECT_EQ(play("ump,,no-card"), "an empty word");
}

TEST_F(RecorderScriptTest, StopsWithTheScript) {
  play("unplugged,plug@1");
  script = RecorderScript();
  EXPECT_EQ(clock->running(), 0U);
}

TEST(SimulatedLink, PullsTheRecorderOutAtItsEnd) {
  const auto clock = std::make_shared<SteppedMIDIClock>();
  std::shared_ptr<InMemoryMIDISystem> system;
  {
    SimulatedLink link(MIDIPacketKind::BytePackets, clock);
    link.plugIn();
    link.plugIn();
    system = link.system();
    EXPECT_EQ(system->endpoints(MIDIDirection::Source).size(), 1U);
  }
  EXPECT_TRUE(system->endpoints(MIDIDirection::Source).empty());
}

TEST(SimulatedLink, GoesUnderTheDeviceLink) {
  const auto clock = std::make_shared<SteppedMIDIClock>();
  SimulatedLink link(MIDIPacketKind::EventLists, clock);
  const InstalledPlatform guard(link.system(), clock);
  MIDIPlatform::install(std::make_shared<AbsentMIDISystem>(), std::make_shared<QtMIDIClock>());
  link.install();
  EXPECT_EQ(MIDIPlatform::system(), link.system());
  EXPECT_EQ(MIDIPlatform::sharedClock(), clock);
}

}  // namespace
