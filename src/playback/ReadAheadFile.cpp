// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "playback/ReadAheadFile.h"

#include <cerrno>
#include <utility>

ReadAheadFile::ReadAheadFile(std::unique_ptr<AudioFile> file) : _file(std::move(file)) {}

ReadAheadFile::~ReadAheadFile() {
  if (_blocks) _blocks->end();
}

bool ReadAheadFile::open(const std::string& path) {
  if (!_file) return false;
  std::unique_ptr<AudioFile> file = std::move(_file);
  _isOpen = file->open(path);
  _failure = file->failure();
  _format = file->format();
  _frameCount = file->frameCount();
  if (_isOpen && _frameCount > 0 && _format.bytesPerPacket > 0) readAhead(std::move(file));
  return _isOpen;
}

void ReadAheadFile::readAhead(std::unique_ptr<AudioFile> file) {
  _blocks = ReadAheadBlocks::over(std::move(file), _failure);
  if (_blocks) return _blocks->waitForFirst();
  _isOpen = false;
  _format = {};
  _frameCount = 0;
}

std::string ReadAheadFile::failure() const {
  return _blocks ? _blocks->failure() : _failure;
}

AudioFile::Read ReadAheadFile::readFrames(std::uint64_t first, std::uint32_t frames,
                                          std::span<std::byte> to) {
  if (_blocks) return _blocks->take(first, frames, to);
  return _isOpen ? Read{} : Read{0, EBADF};
}

void ReadAheadFile::setLoop(const std::optional<FrameLoop>& loop) {
  if (_blocks) _blocks->setLoop(loop);
}

void ReadAheadFile::setArrived(std::function<void()> arrived) {
  if (_blocks) _blocks->setArrived(std::move(arrived));
}
