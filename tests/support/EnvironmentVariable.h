// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdlib>
#include <optional>
#include <string>

/// An environment variable with another value for the length of a test. No other threads run.
class EnvironmentVariable {
 public:
  EnvironmentVariable(const char* name, const std::string& value) : _name(name) {
    if (const char* const before = std::getenv(name)) _before = before;
    setenv(name, value.c_str(), 1);
  }
  EnvironmentVariable(const EnvironmentVariable&) = delete;
  EnvironmentVariable& operator=(const EnvironmentVariable&) = delete;
  ~EnvironmentVariable() {
    if (_before) {
      setenv(_name, _before->c_str(), 1);
    } else {
      unsetenv(_name);
    }
  }

 private:
  const char* _name;
  std::optional<std::string> _before;
};
