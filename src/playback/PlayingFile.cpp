// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "playback/PlayingFile.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

#include "base/EB.h"
#include "base/Log.h"
#include "playback/AudioBackends.h"

namespace {

constexpr double kBufferSeconds = 0.1;
constexpr std::uint32_t kMostBytes = 0x10000;
constexpr std::uint32_t kLeastBytes = 0x4000;

}  // namespace

PlayingFile& PlayingFile::get() {
  static auto* const kOnly = new PlayingFile;
  return *kOnly;
}

std::uint64_t PlayingFile::takeOver() {
  _state.queue.reset();  // before the output that it stands on
  _state = AQPlayerState();
  ++_queues;
  return ++_player;
}

void PlayingFile::cleanUp() {
  if (_state.output) _state.underruns += _state.output->underruns();
  _state.waiting.clear();
  _state.queue.reset();
  ++_queues;
  _state.output.reset();
  _state.audioFile.reset();
  _state.openedPath.clear();
  _state.isInitialized = false;
  _state.dataCallback = nullptr;
  _state.lostCallback = nullptr;
}

double PlayingFile::milliseconds(double frames) const {
  const double rate = _state.dataFormat.sampleRate;
  return rate > 0 ? frames * kMsPerSecond / rate : 0.0;
}

std::uint64_t PlayingFile::underruns() const {
  return _state.underruns + (_state.output ? _state.output->underruns() : 0);
}

void PlayingFile::setVolume(float volume) {
  _state.volume = volume;
  if (_state.output) _state.output->setVolume(volume);
}

void PlayingFile::failToOpen(const std::string& why) {
  _state.readFailure = why;
  Log::line("Open File Failed");
}

void PlayingFile::AQOpenFile(const std::string& path, std::unique_ptr<AudioFile> opened) {
  if (!_state.openedPath.empty()) return;
  const bool isToBeOpened = !opened;
  _state.audioFile = isToBeOpened ? AudioBackends::makeFile() : std::move(opened);
  if (!_state.audioFile) return failToOpen("No file can be read");
  if (isToBeOpened) _state.audioFile->open(path);
  const std::string failure = _state.audioFile->failure();
  if (!failure.empty()) failToOpen(failure);
  _state.audioFile->setArrived([this] { AQFileArrived(); });
  _state.dataFormat = _state.audioFile->format();
  _state.packetCount = _state.audioFile->frameCount();
  _state.durationSeconds = milliseconds(static_cast<double>(_state.packetCount)) / kMsPerSecond;
  _state.openedPath = path;
  measureBuffers();
  tellShortBuffers();
}

std::uint32_t PlayingFile::bufferByteSize(std::uint32_t maxPacketSize, double sampleRate,
                                          std::uint32_t framesPerPacket) {
  std::uint32_t size = std::max(maxPacketSize, kMostBytes);
  if (framesPerPacket != 0) {
    const double packets = sampleRate / framesPerPacket * kBufferSeconds;
    size = static_cast<std::uint32_t>(std::min(maxPacketSize * packets, double{UINT32_MAX}));
  }
  if (size > kMostBytes && size > maxPacketSize) return kMostBytes;
  return std::max(size, kLeastBytes);
}

AudioOutput::Format PlayingFile::outputFormat() const {
  const AudioFormat& format = _state.dataFormat;
  const auto frames = static_cast<std::uint32_t>(AudioQueue::kBuffers * _state.numPacketsToRead);
  return {format.sampleRate, format.channelsPerFrame, format.channelMask, frames};
}

void PlayingFile::makeOutput() {
  if (_state.output) _state.underruns += _state.output->underruns();
  _state.output = AudioBackends::makeOutput(outputFormat());
  if (_state.output) _state.output->setVolume(_state.volume);
}

void PlayingFile::measureBuffers() {
  const AudioFormat& format = _state.dataFormat;
  const std::uint32_t maxPacketSize = format.bytesPerPacket;
  _state.bufferByteSize = bufferByteSize(maxPacketSize, format.sampleRate, format.framesPerPacket);
  _state.numPacketsToRead = maxPacketSize > 0 ? _state.bufferByteSize / maxPacketSize : 0;
}

void PlayingFile::tellShortBuffers() const {
  const AudioOutput::Format format = outputFormat();
  if (!format.isShort()) return;
  Log::line(fmt::format("The buffers hold {:.0f} ms, so the sound output is to hold {:.0f} ms.",
                        format.secondsReady() * kMsPerSecond,
                        format.secondsAhead() * kMsPerSecond));
}

void PlayingFile::AQSetUpQueue() {
  const bool isLost = _state.queue && _state.queue->isLost();
  _state.waiting.clear();
  _state.turns.clear();
  _state.queue.reset();
  ++_queues;
  measureBuffers();
  if (!_state.output || isLost) makeOutput();
  _state.isInitialized = _state.audioFile && _state.output;
  if (!_state.isInitialized) return;
  _state.queue = std::make_unique<AudioQueue>(
      *_state.output, _state.dataFormat,
      AudioQueue::Callbacks{[this](AudioQueueBuffer& buffer) { AQOutputCallback(buffer); },
                            [this] { AQIsRunningListener(); },
                            [this](const std::string& why) { AQOutputLost(why); }});
  _state.queue->allocateBuffers(_state.bufferByteSize);
}

void PlayingFile::prime() {
  _state.waiting.clear();
  const std::uint64_t queue = _queues;
  for (std::size_t i = 0; _state.queue && i < AudioQueue::kBuffers; ++i) {
    AQOutputCallback(_state.queue->buffers()[i]);
    if (_queues != queue) return;
  }
}

// On behind what the buffer holds, as far as the packets come in order.
AudioFile::Read PlayingFile::readPackets(const AudioQueueBuffer& buffer) {
  const auto first = static_cast<std::uint64_t>(_state.currentPacket);
  const std::uint64_t room = _state.numPacketsToRead - buffer.packetDescriptionCount;
  const std::uint64_t count = std::min(room, FrameLoop::untilTurn(_state.loop, first));
  const std::span<std::byte> to(buffer.data + buffer.byteSize, buffer.capacity - buffer.byteSize);
  const AudioFile::Read read =
      _state.audioFile->readFrames(first, static_cast<std::uint32_t>(count), to);
  if (read.frames > 0) _state.readFailure.clear();  // the medium is back
  if (read.error == 0) return read;
  _state.readFailure = _state.audioFile->failure();
  Log::line(fmt::format("AudioFileReadPackets failed: {}", read.error));
  return {};
}

void PlayingFile::AQOutputCallback(AudioQueueBuffer& buffer) {
  if (_state.isDone) return;
  buffer.byteSize = buffer.packetDescriptionCount = 0;
  // Behind one that is late: they are played in the order in which they are filled.
  if (!_state.waiting.empty()) return _state.waiting.push_back(&buffer);
  fill(buffer);
}

// At the turn of a loop a buffer goes on with the first packet of the loop: there is no gap, and
// buffers are no shorter than elsewhere.
void PlayingFile::fill(AudioQueueBuffer& buffer) {
  if (buffer.packetDescriptionCount == 0) _state.packetOfBuffer = _state.currentPacket;
  AudioFile::Read read;
  do {
    read = readPackets(buffer);
    if (read.isLate) return _state.waiting.push_back(&buffer);
  } while (read.frames > 0 && advance(buffer, read.frames));
  if (buffer.packetDescriptionCount > 0) {
    if (!process(buffer)) return;
    _state.queue->enqueue(buffer);
  }
  if (read.frames > 0) return;
  _state.isDone = true;
  _state.queue->stop(AudioQueue::Stop::AfterDraining);
}

// Whether the reading has turned, and the buffer has room for more.
bool PlayingFile::advance(AudioQueueBuffer& buffer, std::uint32_t packets) {
  buffer.byteSize += packets * _state.dataFormat.bytesPerPacket;
  buffer.packetDescriptionCount += packets;
  _state.turns.add(packets);
  const auto from = static_cast<std::uint64_t>(_state.currentPacket);
  const std::uint64_t next = FrameLoop::following(_state.loop, from, packets);
  _state.currentPacket = static_cast<std::int64_t>(next);
  if (next == from + packets) return false;
  _state.turns.turn(from + packets - next, _state.queue->sampleTime());
  return buffer.packetDescriptionCount < _state.numPacketsToRead;
}

void PlayingFile::AQFileArrived() {
  const auto waiting = std::exchange(_state.waiting, {});
  const std::uint64_t queue = _queues;
  for (AudioQueueBuffer* const buffer : waiting) {
    if (!_state.waiting.empty()) {
      _state.waiting.push_back(buffer);
    } else if (!_state.isDone) {
      fill(*buffer);
    }
    if (_queues != queue) return;
  }
}

// False when the buffer and its queue have gone meanwhile.
bool PlayingFile::process(AudioQueueBuffer& buffer) {
  const std::uint64_t queue = _queues;
  const auto callback = _state.dataCallback;
  if (callback) (*callback)(buffer, _state.dataFormat, _state.packetOfBuffer);
  return _queues == queue;
}

void PlayingFile::AQIsRunningListener() {
  const bool isRunning = _state.queue && _state.queue->isRunning();
  Log::line(fmt::format("result = {}, state = {}", 0, isRunning ? 1 : 0));
  if (isRunning) return;
  _state.isRunning = false;
  EB::FIRE(EB::kPlayFinish);
}

// A copy is called: the player may be cleaned up meanwhile.
void PlayingFile::AQOutputLost(const std::string& why) {
  const auto callback = _state.lostCallback;
  if (callback) callback(why);
}
