// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "cli/ProgressLine.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <pty.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <functional>
#include <string>

namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

constexpr const char* kEraseLine = "\r\x1b[K";
constexpr const char* kStayInRow = "\x1b[?7l";
constexpr const char* kWrapAgain = "\x1b[?7h";

/// What the work prints to standard error while that is a terminal.
std::string onTerminal(const std::function<void()>& work) {
  int master = -1;
  int slave = -1;
  if (openpty(&master, &slave, nullptr, nullptr, nullptr) != 0) return "no terminal";
  termios plain{};
  tcgetattr(slave, &plain);
  cfmakeraw(&plain);
  tcsetattr(slave, TCSANOW, &plain);
  const int before = dup(STDERR_FILENO);
  dup2(slave, STDERR_FILENO);
  work();
  std::fflush(stderr);
  dup2(before, STDERR_FILENO);
  close(before);
  close(slave);
  std::string text;
  std::array<char, 4096> buffer{};
  for (ssize_t got = 0; (got = read(master, buffer.data(), buffer.size())) > 0;) {
    text.append(buffer.data(), static_cast<std::size_t>(got));
  }
  close(master);
  return text;
}

/// A line from its beginning on.
std::string begun(const char* text) {
  return std::string(kEraseLine) + kStayInRow + text;
}

std::string drawn(int percent) {
  std::array<char, 64> line{};
  std::snprintf(line.data(), line.size(), "%3d %%  0 of 1 done  a.wav", percent);
  return begun(line.data()) + kWrapAgain;
}

std::string onFile(const std::function<void()>& work) {
  testing::internal::CaptureStderr();
  work();
  return testing::internal::GetCapturedStderr();
}

TEST(ProgressLineTest, IsSilentWithoutATerminal) {
  EXPECT_EQ(onFile([] {
              ProgressLine line(2);
              line.update(0, "a.wav", 0.5);
              line.update(0, "a.wav", 1.0);
            }),
            "");
}

TEST(ProgressLineTest, PrintsMessagesWithoutATerminal) {
  EXPECT_EQ(onFile([] {
              ProgressLine line(1);
              line.message("first");
              line.message("second");
            }),
            "first\nsecond\n");
}

TEST(ProgressLineTest, DrawsOneLineAndErasesIt) {
  const std::string text = onTerminal([] {
    ProgressLine line(4);
    line.update(2, "a.wav", 0.5);
  });
  EXPECT_EQ(text, begun(" 12 %  0 of 4 done  a.wav") + kWrapAgain + kEraseLine);
}

TEST(ProgressLineTest, CountsFinishedJobs) {
  const std::string text = onTerminal([] {
    ProgressLine line(2);
    line.update(1, "b.wav", 1.0);
  });
  EXPECT_THAT(text, HasSubstr(" 50 %  1 of 2 done  b.wav"));
}

TEST(ProgressLineTest, RedrawsTenTimesASecondAtMost) {
  const std::string text = onTerminal([] {
    ProgressLine::Clock::time_point time{std::chrono::hours(1)};
    ProgressLine line(1, [&time] { return time; });
    for (int percent = 1; percent <= 100; ++percent) {
      line.update(0, "a.wav", percent / 100.0);
      time += std::chrono::milliseconds(1);
      if (percent == 60) time += std::chrono::milliseconds(39);  // then 99 after the first
      if (percent == 62) time += std::chrono::milliseconds(98);  // then 99 after the second
    }
  });
  EXPECT_EQ(text, drawn(1) + drawn(62) + drawn(64) + kEraseLine);
}

TEST(ProgressLineTest, MoreThanWasForeseenIsAllOfIt) {
  const auto shown = [](std::uint64_t done, std::uint64_t total) {
    return onTerminal([=] { ProgressLine(1).show(done, total, [] { return "text"; }); });
  };
  EXPECT_THAT(shown(3, 4), StartsWith(begun(" 75 %  text")));
  EXPECT_THAT(shown(5, 4), StartsWith(begun("100 %  text")));
  EXPECT_THAT(shown(0, 0), StartsWith(begun("100 %  text")));
}

TEST(ProgressLineTest, PutsMessagesInThePlaceOfTheLine) {
  const std::string text = onTerminal([] {
    ProgressLine line(1);
    line.update(0, "a.wav", 0.25);
    line.message("trouble");
  });
  EXPECT_THAT(text, StartsWith(begun(" 25 %")));
  EXPECT_THAT(text, EndsWith(std::string(kEraseLine) + "trouble\n"));
}

TEST(ProgressLineTest, ErasesNothingThatWasNotDrawn) {
  EXPECT_EQ(onTerminal([] { const ProgressLine line(1); }), "");
}

}  // namespace
