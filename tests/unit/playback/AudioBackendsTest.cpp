// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "playback/AudioBackends.h"

#include <gtest/gtest.h>

#include "playback/ReadAheadFile.h"
#include "playback/pulse/PulseOutput.h"
#include "playback/system/SystemBackends.h"

namespace {

TEST(AudioBackends, AreChosenByName) {
  SystemBackends::choose();
  EXPECT_FALSE(AudioBackends::chooseFile("nobody"));
  EXPECT_FALSE(AudioBackends::chooseOutput("nobody"));
  EXPECT_EQ(AudioBackends::makeFile("nobody"), nullptr);
  EXPECT_TRUE(AudioBackends::chooseFile("wave"));
  EXPECT_TRUE(AudioBackends::chooseOutput("pulse"));
  EXPECT_NE(dynamic_cast<ReadAheadFile*>(AudioBackends::makeFile().get()), nullptr);
  EXPECT_NE(dynamic_cast<PulseOutput*>(AudioBackends::makeOutput({48000, 2}).get()), nullptr);
}

}  // namespace
