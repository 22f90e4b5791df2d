// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "transfer/BlocksAhead.h"

#include <sys/types.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <exception>
#include <new>

namespace {

constexpr std::size_t kBlockBytes = 1 << 20;

}  // namespace

void BlocksAhead::Release::operator()(std::byte* bytes) const {
  std::free(bytes);  // NOLINT(cppcoreguidelines-no-malloc)
}

BlocksAhead::BlocksAhead(int file, Way way) : _file(file), _way(way) {
  for (Block& block : _blocks) {
    block.bytes.reset(static_cast<std::byte*>(std::aligned_alloc(kAlignment, kBlockBytes)));
    if (!block.bytes) throw std::bad_alloc();
  }
  start();
}

void BlocksAhead::start() {
  const std::size_t wanted = _way == Way::PastCache ? 2 : 1;
  _threads.reserve(wanted);
  try {
    while (_threads.size() < wanted) _threads.emplace_back([this] { run(); });
  } catch (const std::exception&) {
    return;  // those that are there do
  }
}

BlocksAhead::~BlocksAhead() {
  {
    const std::scoped_lock lock(_mutex);
    _isStopped = true;
  }
  _changed.notify_all();
  for (std::thread& thread : _threads) thread.join();
}

void BlocksAhead::run() {
  std::unique_lock lock(_mutex);
  while (true) {
    _changed.wait(lock, [this] { return _isStopped || _begun + 1 < _taken + kBlocks; });
    if (_isStopped) return;
    const std::uint64_t number = _begun++;
    Block& block = _blocks[number % kBlocks];
    lock.unlock();
    read(block, number);
    lock.lock();
    block.isRead = true;
    _isStopped = _isStopped || block.size < kBlockBytes;
    _changed.notify_all();
  }
}

// As much as there is. Past the cache each read begins at a whole sector, so there what ends within
// one is the end.
void BlocksAhead::read(Block& block, std::uint64_t number) const {
  block.size = 0;
  block.error = 0;
  while (block.size < kBlockBytes && (_way == Way::Plain || block.size % kAlignment == 0)) {
    const ssize_t got = pread(_file, block.bytes.get() + block.size, kBlockBytes - block.size,
                              static_cast<off_t>(number * kBlockBytes + block.size));
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) block.error = errno;
    if (got <= 0) return;
    block.size += static_cast<std::size_t>(got);
  }
}

void BlocksAhead::awaitRead(Block& block) {
  if (_threads.empty()) return read(block, _taken++);
  std::unique_lock lock(_mutex);
  _changed.wait(lock, [&block] { return block.isRead; });
  block.isRead = false;
  ++_taken;
  _changed.notify_all();
}

std::span<const std::byte> BlocksAhead::next() {
  if (_isAtEnd) return {};
  Block& block = _blocks[_taken % kBlocks];
  awaitRead(block);
  _error = block.error;
  _isAtEnd = block.size < kBlockBytes;
  return _error == 0 ? std::span<const std::byte>(block.bytes.get(), block.size)
                     : std::span<const std::byte>();
}
