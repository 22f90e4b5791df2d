// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "base/Log.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace {

using testing::ElementsAre;

class LogTest : public testing::Test {
 protected:
  ~LogTest() override { Log::setSink({}); }

  std::vector<std::string> lines;
};

TEST_F(LogTest, LineThatASinkWritesGoesToStandardError) {
  Log::setSink([this](std::string_view line) {
    lines.emplace_back(line);
    Log::line("from within");
  });
  testing::internal::CaptureStderr();
  Log::line("one");
  Log::line("two");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "from within\nfrom within\n");
  EXPECT_THAT(lines, ElementsAre("one", "two"));
}

TEST_F(LogTest, SinkMayPutAnotherInItsPlace) {
  Log::setSink([this](std::string_view line) {
    const std::vector<std::string>* const kept = &lines;
    Log::setSink([this](std::string_view later) { lines.emplace_back(later); });
    lines.push_back(std::to_string(kept->size()) + std::string(line));
  });
  Log::line("one");
  Log::line("two");
  EXPECT_THAT(lines, ElementsAre("0one", "two"));
}

}  // namespace
