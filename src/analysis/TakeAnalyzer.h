// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <limits>
#include <memory>
#include <string>

#include "analysis/TakeAnalysis.h"
#include "wav/WaveFileReader.h"

/// The pass over a take on workers: units of some 4 s, shared out between them, from the front or
/// from where someone is looking.
///
/// What comes out does not depend on the number of workers or on the order of the units. Memory
/// besides the result, which everybody shares who asks for it, is `workersMemory`. Every operation
/// may be called from any thread. Letting go of an analyzer cancels it and returns at once, even
/// when the medium hangs.
class TakeAnalyzer {
 public:
  /// For what is analysed beside other work: some three workers at most rates.
  static constexpr std::uint64_t kSmallMemory = 8U << 20;

  struct Options {
    /// The frames of the file that count, [first, end), as if the rest were not there.
    std::uint64_t firstFrame = 0;
    std::uint64_t endFrame = std::numeric_limits<std::uint64_t>::max();
    unsigned workers = 0;  ///< 0: one a processor
    /// Bytes that all workers hold together; there are fewer of them where they need more, but one.
    std::uint64_t workersMemory = 28U << 20;
    /// Whether waveform and stretches are asked for; else the result has the figures of the whole
    /// alone, and takes a quarter of the memory.
    bool keepsBins = true;
    /// For who looks on: the waveform of a take of `longTake` bytes or more comes first, in a pass
    /// of its own by a worker a processor, as far as `workersMemory` goes; the rest follows in a
    /// second one, by `workers`. Where reading falls a tenth of a second behind `quickMedium` bytes
    /// a second the first pass ends, and no more than it has drawn is read twice.
    bool waveformFirst = false;
    std::uint64_t longTake = 256U << 20;
    double quickMedium = 400e6;
  };
  /// Told how much of the work is done, 0 to 1, on the thread that waits.
  using Progress = std::function<void(double done)>;

  /// Of a valid file. The reader is copied, and may go.
  explicit TakeAnalyzer(const WaveFileReader& reader) : TakeAnalyzer(reader, Options()) {}
  TakeAnalyzer(const WaveFileReader& reader, const Options& options);
  TakeAnalyzer(const TakeAnalyzer&) = delete;
  TakeAnalyzer& operator=(const TakeAnalyzer&) = delete;
  ~TakeAnalyzer();

  /// Units from this frame of the analysis to the end are read next, then those before it.
  void lookAt(std::uint64_t frame);
  void cancel();
  /// 0 to 1.
  [[nodiscard]] double progress() const;
  /// No more units come: all are done, it was cancelled, or it failed.
  [[nodiscard]] bool isFinished() const;
  /// Why reading failed, or that memory ran out; empty when neither did.
  [[nodiscard]] std::string failure() const;
  /// What has been found by now, in a few milliseconds for an hour. It does not change any more,
  /// and shares with all others what they have in common.
  [[nodiscard]] std::shared_ptr<const TakeAnalysis> soFar() const;

  /// Waits, with a report ten times a second and one in the end, until no more units come; gives up
  /// when `*cancel` is true. The whole analysis, or none where it was cancelled or failed.
  std::shared_ptr<const TakeAnalysis> wait(const std::atomic<bool>* cancel = nullptr,
                                           const Progress& report = {});
  /// Waits until no worker is at work any more, however long the medium hangs: one that was
  /// cancelled still ends the read that it is in.
  void waitForWorkers();

 private:
  class Work;
  std::shared_ptr<Work> _work;  ///< shared with the workers, which may outlive the analyzer
};
