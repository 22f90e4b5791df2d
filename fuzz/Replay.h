// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <ostream>
#include <span>

/// Runs a fuzz target over kept inputs, without a fuzzer.
class Replay {
 public:
  using Target = std::function<void(const std::uint8_t* data, std::size_t size)>;

  /// The most that the heap may grow by at any moment of an input, the target's own checks
  /// included: 32 bytes a byte of the input, for an export can be 8 times its source and the checks
  /// hold two more such copies; and 2 MiB, for streams and other buffers of a fixed size.
  static constexpr std::uint64_t kHeapPerByte = 32;
  static constexpr std::uint64_t kHeapFixed = 2 << 20;
  /// An input that takes longer ends the program with SIGALRM.
  static constexpr unsigned kSecondsPerInput = 20;

  Replay(Target target, std::ostream& report);

  /// Every file right in each folder, in the order of their names. False, with the reason reported,
  /// when a folder is not there, holds no file, or an input takes more of the heap than it may.
  bool run(std::span<const std::filesystem::path> folders);

  /// Most heap per input so far, in bytes.
  [[nodiscard]] std::uint64_t mostHeap() const { return _mostHeap; }
  [[nodiscard]] std::size_t inputs() const { return _inputs; }

 private:
  bool runFolder(const std::filesystem::path& folder);
  bool runInput(const std::filesystem::path& path);

  Target _target;
  std::ostream& _report;
  std::size_t _inputs = 0;
  std::uint64_t _mostHeap = 0;
};
