// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <chrono>

#include "base/Utility.h"
#include "support/EnvironmentVariable.h"
#include "support/TemporaryFolder.h"

/// A home, settings and what is kept of takes of its own for the length of a test. Comes before
/// whatever stores settings: what that leaves to be written is written at the end.
class OwnSettings {
 public:
  OwnSettings() = default;
  OwnSettings(const OwnSettings&) = delete;
  OwnSettings& operator=(const OwnSettings&) = delete;
  ~OwnSettings() { EXPECT_TRUE(Utility::finishStoring(std::chrono::minutes(2))); }

  TemporaryFolder home;
  TemporaryFolder configuration;

 private:
  EnvironmentVariable _home{"HOME", home.path().string()};
  EnvironmentVariable _configuration{"XDG_CONFIG_HOME", configuration.path().string()};
  EnvironmentVariable _data{"XDG_DATA_HOME", (home.path() / "data").string()};
  EnvironmentVariable _cache{"XDG_CACHE_HOME", (home.path() / "cache").string()};
};
