// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <span>
#include <utility>
#include <vector>

/// The entry of every target, called with one input at a time. Returns 0.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

/// States what has to hold whatever the input. A breach ends the program, with `what` on standard
/// error, so that the fuzzer keeps the input.
inline void require(bool holds, const char* what) {
  if (holds) return;
  std::fprintf(stderr, "Broken: %s\n", what);
  std::abort();
}

/// The same bits, or both not a number: which NaN comes out is the processor's business.
inline bool isSameSample(float one, float other) {
  if (std::isnan(one) && std::isnan(other)) return true;
  return std::bit_cast<std::uint32_t>(one) == std::bit_cast<std::uint32_t>(other);
}

/// Takes values off the front of an input. What is past its end is 0.
class FuzzInput {
 public:
  FuzzInput(const std::uint8_t* data, std::size_t size) : _rest(data, size) {}

  /// The next sizeof(Value) bytes, little-endian.
  template <class Value>
  Value take() {
    std::array<std::uint8_t, sizeof(Value)> bytes{};
    const std::size_t count = std::min(bytes.size(), _rest.size());
    std::copy_n(_rest.begin(), count, bytes.begin());
    _rest = _rest.subspan(count);
    return std::bit_cast<Value>(bytes);
  }

  /// All that has not been taken.
  std::vector<std::byte> takeRest() {
    const auto bytes = std::as_bytes(std::exchange(_rest, {}));
    return {bytes.begin(), bytes.end()};
  }

 private:
  std::span<const std::uint8_t> _rest;
};
