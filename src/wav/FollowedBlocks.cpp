// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "wav/FollowedBlocks.h"

#include <algorithm>
#include <cstring>
#include <exception>
#include <thread>
#include <utility>

#include "base/ErrorReason.h"

std::shared_ptr<FollowedBlocks> FollowedBlocks::over(std::shared_ptr<const FileBytes> file) {
  return std::shared_ptr<FollowedBlocks>(new FollowedBlocks(std::move(file)));
}

FollowedBlocks::FollowedBlocks(std::shared_ptr<const FileBytes> file)
    : _fileSize(file->size()),
      _blockCount(static_cast<std::size_t>(
          std::min<std::uint64_t>(kMostBlocks, (_fileSize + kBlockBytes - 1) / kBlockBytes))),
      _file(std::move(file)) {}

void FollowedBlocks::follow(std::uint64_t offset) {
  if (offset >= _fileSize) return;
  const std::uint64_t number = offset / kBlockBytes;
  const std::lock_guard lock(_mutex);
  if (_wish == number) return;
  _wish = number;
  _failedWish.reset();
  if (!_isStarted) start();
  _wished.notify_one();
}

void FollowedBlocks::rest() {
  const std::lock_guard lock(_mutex);
  _wish.reset();
  _failedWish.reset();
  _failure.clear();
}

std::string FollowedBlocks::failure() const {
  const std::lock_guard lock(_mutex);
  return _failure;
}

void FollowedBlocks::end() {
  const std::lock_guard lock(_mutex);
  _hasEnded = true;
  _wished.notify_one();
}

// What is refused may be had with the next wish.
void FollowedBlocks::start() {
  _failure.clear();
  try {
    _memory.reset(new std::byte[std::min<std::uint64_t>(_blockCount * kBlockBytes, _fileSize)]);
    _held.resize(_blockCount);
    std::thread([self = shared_from_this(), file = _file] { self->work(*file); }).detach();
    _file.reset();
    _isStarted = true;
  } catch (const std::exception& error) {
    _failure = reasonOf(error);
  }
}

void FollowedBlocks::work(const FileBytes& file) {
  std::unique_lock lock(_mutex);
  while (!_hasEnded) {
    if (const auto number = nextToFill()) {
      fill(*number, file, lock);
    } else {
      if (_wish != _failedWish) _failure.clear();
      _wished.wait(lock);
    }
  }
}

// A block that is being filled counts as empty, so that nobody looks at it meanwhile.
void FollowedBlocks::fill(std::uint64_t number, const FileBytes& file,
                          std::unique_lock<std::mutex>& lock) {
  Held& held = _held[number % _blockCount];
  held = {};
  const std::optional<std::uint64_t> wish = _wish;
  lock.unlock();
  const std::size_t got = file.readAt(number * kBlockBytes, place(number));
  lock.lock();
  held = {number, got};
  if (got == sizeOf(number)) return;
  _failedWish = wish;
  _failure = file.failure();
}

std::optional<std::uint64_t> FollowedBlocks::nextToFill() const {
  if (!_wish || _wish == _failedWish) return std::nullopt;
  const std::uint64_t end =
      std::min(*_wish + _blockCount, (_fileSize + kBlockBytes - 1) / kBlockBytes);
  for (std::uint64_t number = *_wish; number < end; ++number) {
    const Held& held = _held[number % _blockCount];
    if (held.number != number || held.bytes < sizeOf(number)) return number;
  }
  return std::nullopt;
}

std::size_t FollowedBlocks::sizeOf(std::uint64_t number) const {
  return static_cast<std::size_t>(
      std::min<std::uint64_t>(kBlockBytes, _fileSize - number * kBlockBytes));
}

std::span<std::byte> FollowedBlocks::place(std::uint64_t number) const {
  return {_memory.get() + number % _blockCount * kBlockBytes, sizeOf(number)};
}

// What is at hand from the offset to the end of its block.
std::span<const std::byte> FollowedBlocks::held(std::uint64_t offset) const {
  if (offset >= _fileSize || _held.empty()) return {};
  const std::uint64_t number = offset / kBlockBytes;
  const Held& held = _held[number % _blockCount];
  const std::size_t skipped = offset % kBlockBytes;
  if (held.number != number || held.bytes <= skipped) return {};
  return place(number).first(held.bytes).subspan(skipped);
}

std::uint64_t FollowedBlocks::heldFrom(std::uint64_t offset) const {
  const std::lock_guard lock(_mutex);
  std::uint64_t count = 0;
  while (const std::size_t more = held(offset + count).size()) count += more;
  return count;
}

std::size_t FollowedBlocks::read(std::uint64_t offset, std::span<std::byte> to) const {
  const std::lock_guard lock(_mutex);
  std::size_t done = 0;
  while (done < to.size()) {
    const std::span<const std::byte> part = held(offset + done);
    const std::size_t count = std::min(part.size(), to.size() - done);
    if (count == 0) break;
    std::memcpy(to.data() + done, part.data(), count);
    done += count;
  }
  return done;
}
