// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <mutex>
#include <optional>
#include <string>

#include "export/FrameRange.h"
#include "export/ProcessorShare.h"
#include "wav/FrameStream.h"
#include "wav/WaveFileReader.h"

/// The greatest magnitude of a recording, or a stretch of it, as it is decoded: what an export that
/// normalises has to know first. Several threads share the work; the result is the same on any
/// number. One run a pass, by one thread.
class PeakPass {
 public:
  /// Told of further frames that are done, on the thread that runs.
  using Report = std::function<void(std::uint64_t frames)>;

  /// The reader outlives the pass; `sideGain` counts where it is raw Mid/Side.
  PeakPass(const WaveFileReader& reader, float sideGain)
      : PeakPass(reader, sideGain, {0, reader.frameCount()}) {}
  /// Of these frames alone, which lie in the file.
  PeakPass(const WaveFileReader& reader, float sideGain, const FrameRange& frames)
      : _reader(reader), _sideGain(sideGain), _range(frames), _next(frames.first) {}

  /// At least 1, before the run; one a processor unless somebody says otherwise.
  void setThreads(unsigned count) { _threads = count; }

  /// None where `*cancel` became true or reading failed.
  std::optional<float> run(const std::atomic<bool>* cancel, const Report& report);
  /// Why reading failed, or that memory ran out; empty when neither did.
  [[nodiscard]] const std::string& failure() const { return _failure; }

 private:
  void work(const Report& report);
  void search(const Report& report);
  void fail(const std::string& why);
  bool takePart(FrameStream& stream, float& peak);
  std::uint64_t lookAt(FrameStream& stream, std::uint64_t most, float& peak) const;
  [[nodiscard]] bool isStopped() const;
  void tell(const Report& report);

  const WaveFileReader& _reader;
  const float _sideGain;
  const FrameRange _range;
  unsigned _threads = ProcessorShare::processors();
  const std::atomic<bool>* _cancel = nullptr;
  std::atomic<std::uint64_t> _next;  ///< the first frame that nobody has taken
  std::atomic<std::uint64_t> _done{0};
  std::uint64_t _told = 0;
  std::atomic<bool> _hasFailed{false};
  std::mutex _mutex;  ///< guards what follows until the run is over
  float _peak = 0;
  std::string _failure;
};
