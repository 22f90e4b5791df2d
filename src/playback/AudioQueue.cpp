// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "playback/AudioQueue.h"

#include <algorithm>
#include <utility>

#include "playback/SampleConverter.h"

AudioQueue::AudioQueue(AudioOutput& output, const AudioFormat& format, Callbacks callbacks)
    : _output(output), _format(format), _callbacks(std::move(callbacks)) {
  _output.attach(this, this);
}

AudioQueue::~AudioQueue() {
  _output.attach(nullptr, nullptr);
  _output.pause();
  _output.flush();
}

void AudioQueue::allocateBuffers(std::uint32_t byteSize) {
  for (std::size_t i = 0; i < kBuffers; ++i) {
    _storage[i].resize(byteSize);
    _buffers[i] = {_storage[i].data(), byteSize, 0, 0};
  }
}

void AudioQueue::enqueue(AudioQueueBuffer& buffer) {
  _isStopping = false;
  _queued.push(&buffer);
  if (_isRunning) _output.wake();
}

void AudioQueue::rewind() {
  _output.attach(nullptr, nullptr);
  _output.flush();
  _queued.clear();
  _played.clear();
  _frameInFront = 0;
  _isStopping = false;
  _output.attach(this, this);
}

void AudioQueue::start() {
  if (_isLost) return;
  _output.start();
  if (_isStopping) _output.drain();
  if (!_isRunning) setRunning(true);
}

void AudioQueue::pause() {
  if (!_isLost) _output.pause();
}

void AudioQueue::stop(Stop how) {
  if (how == Stop::AfterDraining) {
    _isStopping = true;
    if (_isRunning) _output.drain();
    return;
  }
  rewind();
  _output.pause();
  if (_isRunning) setRunning(false);
}

// The last thing that any operation does: the callback may delete the queue.
void AudioQueue::setRunning(bool isRunning) {
  _isRunning = isRunning;
  const auto callback = _callbacks.runningChanged;
  if (callback) callback();
}

std::size_t AudioQueue::copyFrames(const AudioQueueBuffer& buffer, std::span<float> to) {
  const std::size_t channels = _format.channelsPerFrame;
  const std::size_t left = buffer.packetDescriptionCount - _frameInFront;
  const std::size_t frames = std::min(left, to.size() / channels);
  const std::size_t frameBytes = _format.bytesPerPacket;
  const std::span bytes(buffer.data + _frameInFront * frameBytes, frames * frameBytes);
  SampleConverter::toFloats(_format.sampleType, bytes, to.first(frames * channels));
  _frameInFront += frames;
  return frames;
}

AudioSource::Pulled AudioQueue::pull(std::span<float> to) {
  Pulled pulled;
  while (to.size() >= _format.channelsPerFrame) {
    const auto front = _queued.front();
    if (!front) break;
    const std::size_t frames = copyFrames(**front, to);
    to = to.subspan(frames * _format.channelsPerFrame);
    pulled.frames += frames;
    if (_frameInFront < (*front)->packetDescriptionCount) break;
    _frameInFront = 0;
    _queued.pop();
    _played.push(*front);
    pulled.isBufferFree = true;
  }
  return pulled;
}

// Each call may delete the queue, and the callback with it: a copy is called.
void AudioQueue::outputProgressed() {
  const std::weak_ptr<bool> alive = _isAlive;
  const auto refill = _callbacks.refill;
  while (const auto buffer = _played.pop()) {
    if (refill) refill(**buffer);
    if (alive.expired()) return;
  }
}

void AudioQueue::outputDrained() {
  const std::weak_ptr<bool> alive = _isAlive;
  outputProgressed();
  if (alive.expired() || !_isStopping || !_isRunning) return;
  _isStopping = false;
  _output.pause();
  setRunning(false);
}

void AudioQueue::outputLost(const std::string& why) {
  _isLost = true;
  _isRunning = false;
  const auto callback = _callbacks.outputLost;
  if (callback) callback(why);
}
