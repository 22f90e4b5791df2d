// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
//
// What assistive software is told of what happens by itself.

#include <string>
#include <vector>

#include "WindowFixture.h"
#include "dialogs/ExportVC.h"
#include "dialogs/SavePanel.h"
#include "gui/controls/AccessibleEvents.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Announced : public WindowFixture {
 protected:
  void TearDown() override { end(); }
  /// The names of notes, as they appeared.
  static std::vector<std::string> notes() {
    std::vector<std::string> names;
    for (const auto& told : AccessibleEvents::told()) {
      const bool isNote = told.role == QAccessible::Notification;
      if (isNote && told.type == QAccessible::ObjectShow) names.push_back(told.name.toStdString());
    }
    return names;
  }
};

TEST_F(Announced, IsARecorderThatComesAndGoes) {
  startOnTakes();
  const AccessibleEvents events;
  plugIn();
  EXPECT_THAT(notes(), ElementsAre("The recorder is connected."));
  link.recorder().reportCard();
  midiClock->advance(0.5);
  EXPECT_THAT(notes(), testing::SizeIs(1)) << "it is still the same";
  pullOut();
  EXPECT_THAT(notes(),
              ElementsAre("The recorder is connected.", "The recorder is no longer connected."));
}

TEST_F(Announced, IsNothingWhereNothingHappens) {
  take("R0001.WAV");
  const AccessibleEvents events;
  startOnTakes();
  open("R0001.WAV");
  play(500);
  EXPECT_THAT(notes(), IsEmpty());
}

TEST_F(Announced, IsAnExportThatIsWritten) {
  take("R0001.WAV");
  startOnTakes();
  open("R0001.WAV");
  const AccessibleEvents events;
  controller().btnExport_Click();
  press(shown<ExportVC>(), "Save");
  waitFor([] { return shown<SavePanel>() != nullptr; }, "the panel");
  press(shown<SavePanel>(), "Save");
  waitFor([] { return !notes().empty(); }, "the export");
  EXPECT_THAT(notes(), ElementsAre("R0001_Decode.WAV is exported."));
}

TEST_F(Announced, IsWhatTheStatusLineSays) {
  startOnTakes();
  const AccessibleEvents events;
  StatusLine& status = *view().player->lblStatus;
  status.say(StatusLine::Topic::Sound, "No sound server.");
  status.say(StatusLine::Topic::Sound, "No sound server.");
  status.clear(StatusLine::Topic::Sound);
  status.say(StatusLine::Topic::Sound, "No sound server.");
  EXPECT_THAT(notes(), ElementsAre("No sound server.", "No sound server."));
}

TEST_F(Announced, IsATakeThatCannotBeOpened) {
  file("X1.WAV");
  startOnTakes();
  const AccessibleEvents events;
  waitForTake([&] { doubleClickRow("X1.WAV"); });
  EXPECT_THAT(notes(), ElementsAre(testing::HasSubstr("X1.WAV")));
}

}  // namespace
