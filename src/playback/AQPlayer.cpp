// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "playback/AQPlayer.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <utility>

#include "base/EB.h"
#include "base/Log.h"
#include "playback/AudioBackends.h"

namespace {

constexpr double kMilliseconds = 1000.0;
constexpr double kBufferSeconds = 0.1;
constexpr std::uint32_t kMostBytes = 0x10000;
constexpr std::uint32_t kLeastBytes = 0x4000;

const AQPlayer* owner = nullptr;  // the player made last

// Outlives every thread and event loop.
AQPlayerState& state() {
  static auto* const kOnly = new AQPlayerState;
  return *kOnly;
}

double perSecond(double frames) {
  const double rate = state().dataFormat.sampleRate;
  return rate > 0 ? frames * kMilliseconds / rate : 0.0;
}

}  // namespace

AQPlayer::AQPlayer(std::string filePath) : _filePath(std::move(filePath)) {
  state().queue.reset();  // before the output that it stands on
  state() = AQPlayerState();
  owner = this;
  AQOpenFile();
  AQSetUpQueue();
}

AQPlayer::~AQPlayer() {
  if (owner == this) cleanUp();
}

void AQPlayer::AQOpenFile() {
  AQPlayerState& s = state();
  if (!s.openedPath.empty()) return;
  s.audioFile = AudioBackends::makeFile();
  if (!s.audioFile->open(_filePath)) {
    s.readFailure = s.audioFile->failure();
    Log::line("Open File Failed");
  }
  s.dataFormat = s.audioFile->format();
  s.packetCount = s.audioFile->frameCount();
  s.durationSeconds = perSecond(static_cast<double>(s.packetCount)) / kMilliseconds;
  s.openedPath = _filePath;
}

std::uint32_t AQPlayer::bufferByteSize(std::uint32_t maxPacketSize, double sampleRate,
                                       std::uint32_t framesPerPacket) {
  std::uint32_t size = std::max(maxPacketSize, kMostBytes);
  if (framesPerPacket != 0) {
    const double packets = sampleRate / framesPerPacket * kBufferSeconds;
    size = static_cast<std::uint32_t>(std::min(maxPacketSize * packets, double{UINT32_MAX}));
  }
  if (size > kMostBytes && size > maxPacketSize) return kMostBytes;
  return std::max(size, kLeastBytes);
}

void AQPlayer::makeOutput() {
  AQPlayerState& s = state();
  if (s.output) s.underruns += s.output->underruns();
  s.output = AudioBackends::makeOutput({s.dataFormat.sampleRate, s.dataFormat.channelsPerFrame});
  s.output->setVolume(s.volume);
}

void AQPlayer::AQSetUpQueue() {
  AQPlayerState& s = state();
  const bool isLost = s.queue && s.queue->isLost();
  s.queue.reset();
  if (!s.output || isLost) makeOutput();
  s.queue = std::make_unique<AudioQueue>(
      *s.output, s.dataFormat,
      AudioQueue::Callbacks{AQOutputCallback, AQIsRunningListener, AQOutputLost});
  const std::uint32_t maxPacketSize = s.dataFormat.bytesPerPacket;
  s.bufferByteSize =
      bufferByteSize(maxPacketSize, s.dataFormat.sampleRate, s.dataFormat.framesPerPacket);
  s.numPacketsToRead = maxPacketSize > 0 ? s.bufferByteSize / maxPacketSize : 0;
  s.queue->allocateBuffers(s.bufferByteSize);
  s.isInitialized = true;
}

void AQPlayer::readPackets(AudioQueueBuffer& buffer, AudioFile::Read& read) {
  AQPlayerState& s = state();
  const auto first = static_cast<std::uint64_t>(s.currentPacket);
  read = s.audioFile->readFrames(first, s.numPacketsToRead, {buffer.data, buffer.capacity});
  if (read.error == 0) return;
  s.readFailure = s.audioFile->failure();
  std::printf("AudioFileReadPackets failed: %d\n", read.error);
  read.frames = 0;
}

void AQPlayer::AQOutputCallback(AudioQueueBuffer& buffer) {
  AQPlayerState& s = state();
  if (s.isDone) return;
  AudioFile::Read read;
  readPackets(buffer, read);
  if (read.frames == 0) {
    s.isDone = true;
    s.queue->stop(AudioQueue::Stop::AfterDraining);
    return;
  }
  buffer.byteSize = read.frames * s.dataFormat.bytesPerPacket;
  buffer.packetDescriptionCount = read.frames;
  if (s.dataCallback) s.dataCallback(buffer, s.dataFormat, s.currentPacket);
  s.queue->enqueue(buffer);
  s.currentPacket += read.frames;
}

void AQPlayer::AQIsRunningListener() {
  AQPlayerState& s = state();
  const bool isRunning = s.queue && s.queue->isRunning();
  Log::line(fmt::format("result = {}, state = {}", 0, isRunning ? 1 : 0));
  if (isRunning) return;
  s.isRunning = false;
  EB::FIRE(EB::kPlayFinish);
}

void AQPlayer::AQOutputLost(const std::string& why) {
  const auto callback = state().lostCallback;
  if (callback) callback(why);
}

void AQPlayer::play(bool resume) {
  AQPlayerState& s = state();
  if (_filePath.empty() || !s.queue) return;
  if (s.queue->isLost()) recover(resume);
  s.isDone = false;
  if (!resume) {
    s.currentPacket = 0;
    s.queue->rewind();
    for (AudioQueueBuffer& buffer : s.queue->buffers()) AQOutputCallback(buffer);
  }
  s.queue->start();
}

// What a vanished sound system still held is read again: it was not heard.
void AQPlayer::recover(bool resume) {
  const double heard = std::floor(state().queue->sampleTime());
  const double start = std::round(_seek_time * state().dataFormat.sampleRate / kMilliseconds);
  if (resume) {
    seekTo(static_cast<std::int64_t>(start + heard));
  } else {
    AQSetUpQueue();
  }
}

void AQPlayer::pause() {
  if (state().queue) state().queue->pause();
}

void AQPlayer::seekTo(std::int64_t packet) {
  AQPlayerState& s = state();
  s.currentPacket = packet;
  _seek_time = perSecond(static_cast<double>(packet));
  AQSetUpQueue();
  s.isDone = false;
  for (AudioQueueBuffer& buffer : s.queue->buffers()) AQOutputCallback(buffer);
}

void AQPlayer::setPosition(double position, bool play) {
  AQPlayerState& s = state();
  if (s.queue) s.queue->stop(AudioQueue::Stop::Immediately);
  if (!s.isInitialized) return;  // the listener has cleaned up
  const double fraction = position > 0.0 ? std::min(position, 1.0) : 0.0;
  seekTo(static_cast<std::int64_t>(static_cast<double>(s.packetCount) * fraction));
  // At the very end there is nothing to start, and the stop above has told so already.
  if (play && !s.queue->isEmpty()) s.queue->start();
}

double AQPlayer::timeFromPosition(double position) const {
  return perSecond(position * static_cast<double>(state().packetCount));
}

double AQPlayer::duration() const {
  return state().durationSeconds;
}

double AQPlayer::currentTime() const {
  const AQPlayerState& s = state();
  return (s.queue ? perSecond(s.queue->sampleTime()) : 0.0) + _seek_time;
}

bool AQPlayer::getIsDone() const {
  return state().isDone;
}

void AQPlayer::setVolume(double volume) {
  AQPlayerState& s = state();
  s.volume = static_cast<float>(volume);
  if (s.output) s.output->setVolume(s.volume);
}

void AQPlayer::setDataCB(AQDataCallback callback) {
  state().dataCallback = std::move(callback);
}

void AQPlayer::setLostCB(std::function<void(const std::string& why)> callback) {
  state().lostCallback = std::move(callback);
}

void AQPlayer::cleanUp() {
  AQPlayerState& s = state();
  if (s.output) s.underruns += s.output->underruns();
  s.queue.reset();
  s.output.reset();
  s.audioFile.reset();
  s.openedPath.clear();
  s.isInitialized = false;
  s.dataCallback = nullptr;
  s.lostCallback = nullptr;
}

std::uint64_t AQPlayer::underruns() const {
  return state().underruns + (state().output ? state().output->underruns() : 0);
}

const std::string& AQPlayer::readFailure() const {
  return state().readFailure;
}
