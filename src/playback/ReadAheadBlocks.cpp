// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "playback/ReadAheadBlocks.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <exception>
#include <thread>
#include <utility>

#include "base/ErrorReason.h"
#include "base/ThreadSignal.h"

namespace {

constexpr double kAheadSeconds = 3.0;
constexpr double kFirstSeconds = 0.5;
constexpr double kBlocksPerSecond = 8.0;
constexpr double kMostBlockBytes = 1 << 18;
constexpr double kMostAheadBytes = 1 << 25;

std::uint32_t framesOfBlock(const AudioFormat& format) {
  const double most = kMostBlockBytes / format.bytesPerPacket;
  return static_cast<std::uint32_t>(
      std::max(1.0, std::min(format.sampleRate / kBlocksPerSecond, most)));
}

// One more than are ahead: the first is under way to whoever takes from it. As many for a short
// file, whose turns are at hand when it is looped; memory that is not filled costs nothing.
std::size_t blocksAhead(const AudioFormat& format) {
  const double frames = framesOfBlock(format);
  const double wanted = std::ceil(format.sampleRate * kAheadSeconds / frames) + 1;
  const double affordable = std::floor(kMostAheadBytes / (frames * format.bytesPerPacket));
  return static_cast<std::size_t>(std::max(2.0, std::min(wanted, affordable)));
}

}  // namespace

std::shared_ptr<ReadAheadBlocks> ReadAheadBlocks::over(std::unique_ptr<AudioFile> file,
                                                       std::string& whyNot) {
  try {
    std::shared_ptr<ReadAheadBlocks> self(new ReadAheadBlocks(file->format(), file->frameCount()));
    std::thread([self, from = std::shared_ptr<AudioFile>(std::move(file))] {
      self->work(*from);
    }).detach();
    return self;
  } catch (const std::exception& error) {
    whyNot = reasonOf(error);
    return nullptr;
  }
}

ReadAheadBlocks::ReadAheadBlocks(const AudioFormat& format, std::uint64_t frameCount)
    : _frameBytes(format.bytesPerPacket),
      _frameCount(frameCount),
      _blockFrames(framesOfBlock(format)),
      _firstFrames(static_cast<std::uint64_t>(format.sampleRate * kFirstSeconds)),
      _frames(blocksAhead(format)) {
  _memory.reset(new std::byte[_frames.size() * _blockFrames * _frameBytes]);
}

ReadAheadBlocks::~ReadAheadBlocks() = default;

void ReadAheadBlocks::work(AudioFile& file) {
  std::unique_lock lock(_mutex);
  while (!_hasEnded) {
    if (hasRoom()) {
      fillNext(file, lock);
    } else {
      _room.wait(lock);
    }
  }
}

// The block is nobody else's while it is being filled: only full ones are looked at, and after a
// seek the worker fills none before it is back from here.
void ReadAheadBlocks::fillNext(AudioFile& file, std::unique_lock<std::mutex>& lock) {
  const std::uint64_t seek = _seek;
  const std::optional<FrameLoop> loop = _loop;
  const std::uint64_t first = _next;
  const std::span<std::byte> to = block(_filled);
  lock.unlock();
  const Filled filled = readInOrder(file, first, loop, to);
  std::string why = filled.error != 0 ? file.failure() : std::string();
  lock.lock();
  if (seek != _seek) return;
  if (filled.error != 0) _failure = std::move(why);
  keep(filled);
  announce();
}

// Over as many turns as a block holds: as much is at hand of a short loop as of anything else. The
// file is asked what it has to say at its end as well, as whoever plays it would ask.
ReadAheadBlocks::Filled ReadAheadBlocks::readInOrder(AudioFile& file, std::uint64_t first,
                                                     const std::optional<FrameLoop>& loop,
                                                     std::span<std::byte> to) const {
  Filled filled{.next = first};
  for (bool goesOn = true; goesOn && filled.frames < _blockFrames;) {
    const std::uint64_t inOrder = FrameLoop::untilTurn(loop, filled.next);
    const auto frames =
        static_cast<std::uint32_t>(std::min<std::uint64_t>(_blockFrames - filled.frames, inOrder));
    const AudioFile::Read read =
        file.readFrames(filled.next, frames, to.subspan(filled.frames * _frameBytes));
    filled.next = FrameLoop::following(loop, filled.next, read.frames);
    filled.frames += read.frames;
    goesOn = read.frames == inOrder;
    if (!goesOn) filled.error = read.error;
  }
  const bool isLast = filled.frames > 0 && filled.next >= _frameCount;
  if (isLast) filled.error = file.readFrames(_frameCount, 1, {}).error;
  return filled;
}

void ReadAheadBlocks::keep(const Filled& filled) {
  _error = filled.error;
  _next = filled.next;
  _isOver = filled.frames == 0 || _next >= _frameCount;
  if (filled.frames == 0) return;
  _frames[_filled++ % _frames.size()] = filled.frames;
  _held += filled.frames;
}

// Where reads or exchanged loops have made blocks short, all of them may hold less than is wanted:
// nothing more comes then before some of it is taken.
void ReadAheadBlocks::announce() {
  _progress.notify_all();
  if (_awaited == 0 || (_held < _awaited && hasRoom())) return;
  _awaited = 0;
  if (_arrived) _arrived->raise();
}

void ReadAheadBlocks::waitForFirst() {
  std::unique_lock lock(_mutex);
  _progress.wait(lock, [this] { return !hasRoom() || _held >= atMost(_firstFrames); });
}

AudioFile::Read ReadAheadBlocks::take(std::uint64_t first, std::uint32_t frames,
                                      std::span<std::byte> to) {
  const std::lock_guard lock(_mutex);
  if (frames == 0) return {};
  if (first >= _frameCount) return readEnd(first);
  if (first != _position || _isToldOver) seek(first);
  const std::uint64_t inOrder = FrameLoop::untilTurn(_loop, first);
  frames = static_cast<std::uint32_t>(std::min<std::uint64_t>(frames, inOrder));
  if (_held < atMost(frames) && hasRoom()) {
    _awaited = atMost(frames);
    return {0, 0, true};
  }
  _isToldOver = _held == 0;
  if (_isToldOver) return {0, _error};
  const auto count = static_cast<std::uint32_t>(std::min<std::uint64_t>(frames, _held));
  copy(count, to);
  return {count, 0};
}

// What the file said at its end is for who has come there by reading.
AudioFile::Read ReadAheadBlocks::readEnd(std::uint64_t first) {
  _isToldOver = first == _position && _isOver && _held == 0;
  return {0, _isToldOver ? _error : 0};
}

void ReadAheadBlocks::seek(std::uint64_t first) {
  ++_seek;
  _position = _next = first;
  _filled = _emptied = _held = 0;
  _takenOfFront = 0;
  _isOver = _isToldOver = false;
  _error = 0;
  _room.notify_one();
}

// What the worker reads by the former order is thrown away, as in a seek.
void ReadAheadBlocks::setLoop(const std::optional<FrameLoop>& loop) {
  const std::lock_guard lock(_mutex);
  if (loop == _loop) return;
  const std::uint64_t before = FrameLoop::untilTurn(_loop, _position);
  keepOnly(std::min(before, FrameLoop::untilTurn(loop, _position)));
  _loop = loop;
  ++_seek;
  _next = FrameLoop::following(_loop, _position, _held);
  _isOver = _next >= _frameCount;
  _error = 0;
  _room.notify_one();
}

void ReadAheadBlocks::keepOnly(std::uint64_t frames) {
  while (_held > frames) {
    const std::uint64_t last = _filled - 1;
    std::uint32_t& inLast = _frames[last % _frames.size()];
    const std::uint32_t taken = last == _emptied ? _takenOfFront : 0;
    const std::uint64_t away = std::min<std::uint64_t>(_held - frames, inLast - taken);
    inLast -= static_cast<std::uint32_t>(away);
    _held -= away;
    if (inLast > taken) return;
    --_filled;
    if (last == _emptied) _takenOfFront = 0;
  }
}

void ReadAheadBlocks::copy(std::uint32_t frames, std::span<std::byte> to) {
  while (frames > 0) {
    const std::uint32_t inFront = _frames[_emptied % _frames.size()];
    const std::uint32_t count = std::min(frames, inFront - _takenOfFront);
    const auto from = block(_emptied).subspan(_takenOfFront * _frameBytes, count * _frameBytes);
    std::memcpy(to.data(), from.data(), from.size());
    to = to.subspan(from.size());
    frames -= count;
    _takenOfFront += count;
    _held -= count;
    _position = FrameLoop::following(_loop, _position, count);
    if (_takenOfFront < inFront) continue;
    _takenOfFront = 0;
    ++_emptied;
    _room.notify_one();
  }
}

// What can be at hand at once, with the first block taken from and not yet empty.
std::uint64_t ReadAheadBlocks::atMost(std::uint64_t frames) const {
  const std::uint64_t full =
      std::max<std::uint64_t>(1, (_frames.size() - 1) * std::uint64_t{_blockFrames});
  return std::min({frames, full, _frameCount - _position});
}

std::span<std::byte> ReadAheadBlocks::block(std::uint64_t number) const {
  const std::size_t bytes = _blockFrames * _frameBytes;
  return {_memory.get() + number % _frames.size() * bytes, bytes};
}

std::string ReadAheadBlocks::failure() const {
  const std::lock_guard lock(_mutex);
  return _isToldOver && _error != 0 ? _failure : std::string();
}

void ReadAheadBlocks::setArrived(std::function<void()> arrived) {
  auto signal = arrived ? std::make_unique<ThreadSignal>(std::move(arrived)) : nullptr;
  const std::lock_guard lock(_mutex);
  _arrived.swap(signal);
}

void ReadAheadBlocks::end() {
  const std::lock_guard lock(_mutex);
  _hasEnded = true;
  _arrived.reset();
  _room.notify_one();
}
