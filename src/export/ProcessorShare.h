// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

/// The machine's processors as the jobs of this process share them out: each job counts for one,
/// and a part of it that can be done by several threads takes those that no job has. So a batch of
/// jobs never has many more threads at work than there are processors, and the last of them has
/// all. What was taken is given back when the share goes.
///
/// Threads: everything from any thread.
class ProcessorShare {
 public:
  /// One for a job, which is never refused.
  static ProcessorShare own();
  /// All that nobody has; none where more are taken than there are.
  static ProcessorShare spare();

  ProcessorShare(const ProcessorShare&) = delete;
  ProcessorShare& operator=(const ProcessorShare&) = delete;
  ~ProcessorShare();

  [[nodiscard]] unsigned count() const { return _count; }
  /// Those of the machine, at least 1.
  static unsigned processors();

 private:
  explicit ProcessorShare(unsigned count) : _count(count) {}

  const unsigned _count;
};
