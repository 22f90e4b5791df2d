// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "playback/null/NullOutput.h"

/// A null output that keeps what was heard. One thread.
class MemoryOutput : public NullOutput {
 public:
  using NullOutput::NullOutput;

  /// Interleaved samples in the order in which they were heard, over all flushes.
  [[nodiscard]] const std::vector<float>& played() const { return _played; }

 private:
  void heard(std::span<const float> frames) override {
    _played.insert(_played.end(), frames.begin(), frames.end());
  }

  std::vector<float> _played;
};
