// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "export/PeakPass.h"

#include <algorithm>
#include <array>
#include <exception>
#include <span>
#include <string>
#include <thread>
#include <vector>

#include "base/ErrorReason.h"
#include "dsp/Kernels.h"
#include "export/ExportBlocks.h"

namespace {

// Two blocks of a stream where samples have 24 bits: nothing is read that another part reads again.
constexpr std::uint64_t kPartFrames = 2 * (ExportBlocks::kReadBytes / 6);

}  // namespace

// Where no more threads can be had, fewer do it.
std::optional<float> PeakPass::run(const std::atomic<bool>* cancel, const Report& report) {
  _cancel = cancel;
  const std::uint64_t frames = _range.end - _range.first;
  const std::uint64_t parts = (frames + kPartFrames - 1) / kPartFrames;
  const std::uint64_t threads = std::min<std::uint64_t>(parts, _threads);
  {
    std::vector<std::jthread> helpers;
    try {
      while (helpers.size() + 1 < threads) helpers.emplace_back([this] { work({}); });
    } catch (const std::exception&) {  // what they would have done, this one does
    }
    work(report);
  }
  tell(report);
  if (_hasFailed || _done < frames) return std::nullopt;
  return _peak;
}

void PeakPass::work(const Report& report) {
  try {
    search(report);
  } catch (const std::exception& error) {  // as where there is no memory left
    fail(reasonOf(error));
  }
}

// The others stop as well: nothing comes of it any more.
void PeakPass::fail(const std::string& why) {
  _hasFailed = true;
  const std::lock_guard lock(_mutex);
  if (_failure.empty()) _failure = why;
}

void PeakPass::search(const Report& report) {
  FrameStream stream(_reader, ExportBlocks::kReadBytes);
  stream.stopAt(_range.end);
  float peak = 0;
  while (!isStopped() && takePart(stream, peak)) tell(report);
  const std::lock_guard lock(_mutex);
  _peak = std::max(_peak, peak);
  if (_failure.empty()) _failure = stream.failure();
}

bool PeakPass::isStopped() const {
  return _hasFailed || (_cancel != nullptr && *_cancel);
}

bool PeakPass::takePart(FrameStream& stream, float& peak) {
  const std::uint64_t begin = _next.fetch_add(kPartFrames);
  if (begin >= _range.end) return false;
  const std::uint64_t end = std::min(begin + kPartFrames, _range.end);
  if (_range.end - stream.framesLeft() != begin) stream.seek(begin);
  for (std::uint64_t at = begin; at < end && !isStopped();) {
    const std::uint64_t count = lookAt(stream, end - at, peak);
    if (count == 0) _hasFailed = true;
    if (_hasFailed) return false;
    at += count;
    _done += count;
  }
  return true;
}

// So many frames at most; returns how many, and none where reading failed.
std::uint64_t PeakPass::lookAt(FrameStream& stream, std::uint64_t most, float& peak) const {
  if (_reader.isBoMSFormat() && stream.isPair24()) {
    const auto packed =
        stream.readPacked(std::min<std::uint64_t>(most, ExportBlocks::kRecodedFrames));
    peak = Kernels::decodedPeak24(packed, _sideGain, peak);
    return packed.size() / 6;
  }
  std::array<float, ExportBlocks::kFloats> block;
  const std::uint64_t wanted = std::min<std::uint64_t>(most, ExportBlocks::kFloats / 2);
  const std::uint64_t count = stream.read(std::span(block).first(2 * wanted));
  const std::span<float> frames = std::span(block).first(2 * count);
  if (_reader.isBoMSFormat()) Kernels::decodeMidSide(frames, _sideGain);
  peak = Kernels::peakMagnitude(frames, peak);
  return count;
}

// By the thread that runs alone: helpers are given nobody to tell.
void PeakPass::tell(const Report& report) {
  if (!report) return;
  const std::uint64_t done = _done;
  report(done - _told);
  _told = done;
}
