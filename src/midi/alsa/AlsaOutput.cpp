// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "midi/alsa/AlsaOutput.h"

#include <fmt/format.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <utility>

#include "base/Log.h"

namespace {

constexpr double kNanosecond = 1e-9;

std::size_t sizeOf(const AlsaPayload& payload) {
  return payload.bytes.size() + payload.words.size() * sizeof(std::uint32_t);
}

}  // namespace

double AlsaOutput::cost(const Item& item) {
  return static_cast<double>(sizeOf(item.payload));
}

void AlsaOutput::send(Item item) {
  const std::size_t size = sizeOf(item.payload);
  if (size > kMostWaiting - _waitingBytes) return note(-ENOBUFS);
  _waitingBytes += size;
  _waiting.push_back(std::move(item));
  if (!_timer) run();
}

void AlsaOutput::drop(AlsaAddress to) {
  std::erase_if(_waiting, [to](const Item& item) { return item.to == to; });
  _waitingBytes = 0;
  for (const Item& item : _waiting) _waitingBytes += sizeOf(item.payload);
  if (_waiting.empty()) _timer.reset();
  _fullSince = 0;
}

void AlsaOutput::run() {
  refill();
  while (!_waiting.empty()) {
    const double wanted = cost(_waiting.front());
    if (wanted > _allowance && _allowance < static_cast<double>(kAllowance)) {
      const double missing = std::min(wanted, static_cast<double>(kAllowance)) - _allowance;
      later(std::max(missing / kBytesPerSecond, kRetrySeconds));
      return;
    }
    if (!writeFirst()) return;
  }
}

bool AlsaOutput::writeFirst() {
  const int status = _write(_waiting.front());
  const bool isFull = status == -EAGAIN || status == -ENOMEM || status == -EINTR;
  if (isFull && !isPatienceOver()) {
    later(kRetrySeconds);
    return false;
  }
  // Whoever is unplugged gets nothing, and that is no error but a line.
  note(status);
  if (!isFull) _fullSince = 0;
  if (status >= 0) _allowance -= cost(_waiting.front());
  takeFirst();
  return true;
}

void AlsaOutput::note(int status) {
  const bool wasLosing = std::exchange(_isLosing, status < 0);
  if (!_isLosing || wasLosing) return;
  Log::line(fmt::format("MIDI that is sent is lost ({}).", std::strerror(-status)));
}

// Not by waiting for the descriptor: it tells that our own pool has room, which it nearly always
// has, and nothing of the receiver's.
bool AlsaOutput::isPatienceOver() {
  const std::uint64_t now = _clock.hostTime();
  if (_fullSince == 0) _fullSince = now;
  return static_cast<double>(now - _fullSince) * kNanosecond >= kPatienceSeconds;
}

void AlsaOutput::refill() {
  const std::uint64_t now = _clock.hostTime();
  const double seconds = static_cast<double>(now - _refilledAt) * kNanosecond;
  _refilledAt = now;
  _allowance = std::min<double>(kAllowance, _allowance + seconds * kBytesPerSecond);
}

void AlsaOutput::later(double seconds) {
  _timer = _clock.after(seconds, [this] {
    const auto fired = std::move(_timer);
    run();
  });
}

void AlsaOutput::takeFirst() {
  _waitingBytes -= sizeOf(_waiting.front().payload);
  _waiting.pop_front();
}
