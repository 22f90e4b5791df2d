// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <string>

struct XXH3_state_s;

/// XXH3 of 128 bits over a stream of bytes. One thread at a time.
class ContentHash {
 public:
  ContentHash();

  void add(std::span<const std::byte> bytes);
  /// Of all bytes so far: 32 small hexadecimal digits, the most significant first.
  [[nodiscard]] std::string hex() const;

 private:
  struct Release {
    void operator()(XXH3_state_s* state) const;
  };

  std::unique_ptr<XXH3_state_s, Release> _state;
};
