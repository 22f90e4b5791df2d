// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/ProgramLog.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "base/Log.h"
#include "midi/MIDILog.h"

namespace {

using testing::ElementsAre;

class ProgramLogTest : public testing::Test {
 protected:
  static ProgramLog::Write into(std::vector<std::string>& lines) {
    return [&lines](std::string_view line) { lines.emplace_back(line); };
  }
  static void writeAll() {
    Log::line("eeee");
    MIDILog::write("\nLOG GL RECV <--- HW: F0,F7,\n\n");
  }

  std::vector<std::string> system;
  std::vector<std::string> terminal;
};

TEST_F(ProgramLogTest, LinesGoToTheSystemAlone) {
  const ProgramLog log(false, into(system), into(terminal));
  writeAll();
  EXPECT_THAT(system, ElementsAre("eeee", "LOG GL RECV <--- HW: F0,F7,"));
  EXPECT_THAT(terminal, ElementsAre());
}

TEST_F(ProgramLogTest, AndToTheTerminalWhereTheyAreToBeShown) {
  const ProgramLog log(true, into(system), into(terminal));
  writeAll();
  EXPECT_EQ(system.size(), 2U);
  EXPECT_EQ(terminal, system);
}

TEST_F(ProgramLogTest, TakesThemAsLongAsItLives) {
  { const ProgramLog log(true, into(system), into(terminal)); }
  testing::internal::CaptureStderr();
  Log::line("after");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "after\n");
  EXPECT_THAT(system, ElementsAre());
}

}  // namespace
