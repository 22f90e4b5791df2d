// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "playback/pulse/PulseStream.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <span>

namespace {

constexpr double kRequestSeconds = 0.01;
constexpr double kMicroseconds = 1e6;
constexpr auto kStuck = std::chrono::seconds(2);
// On top of what the device takes to play out, and longer than a server without a sign of life is
// borne with.
constexpr auto kDrainPatience = std::chrono::milliseconds(1500);
constexpr pa_usec_t kMostDelay = 10 * PA_USEC_PER_SEC;  // that a drain waits for

// Of the bits of a WAVE file's channel mask, from the lowest on.
constexpr std::array kSpeakers{PA_CHANNEL_POSITION_FRONT_LEFT,
                               PA_CHANNEL_POSITION_FRONT_RIGHT,
                               PA_CHANNEL_POSITION_FRONT_CENTER,
                               PA_CHANNEL_POSITION_LFE,
                               PA_CHANNEL_POSITION_REAR_LEFT,
                               PA_CHANNEL_POSITION_REAR_RIGHT,
                               PA_CHANNEL_POSITION_FRONT_LEFT_OF_CENTER,
                               PA_CHANNEL_POSITION_FRONT_RIGHT_OF_CENTER,
                               PA_CHANNEL_POSITION_REAR_CENTER,
                               PA_CHANNEL_POSITION_SIDE_LEFT,
                               PA_CHANNEL_POSITION_SIDE_RIGHT,
                               PA_CHANNEL_POSITION_TOP_CENTER,
                               PA_CHANNEL_POSITION_TOP_FRONT_LEFT,
                               PA_CHANNEL_POSITION_TOP_FRONT_CENTER,
                               PA_CHANNEL_POSITION_TOP_FRONT_RIGHT,
                               PA_CHANNEL_POSITION_TOP_REAR_LEFT,
                               PA_CHANNEL_POSITION_TOP_REAR_CENTER,
                               PA_CHANNEL_POSITION_TOP_REAR_RIGHT};
constexpr std::uint32_t kCentre = 4;

void release(pa_operation* operation) {
  if (operation != nullptr) pa_operation_unref(operation);
}

}  // namespace

PulseStream::PulseStream(PulseControls& controls)
    : _controls(controls),
      _ramp(controls.format.sampleRate, controls.format.channels),
      _frameBytes(controls.format.channels * sizeof(float)) {}

void PulseStream::disconnect() {
  abandonDrain();
  if (_stream == nullptr) return;
  pa_stream_set_state_callback(_stream, nullptr, nullptr);
  pa_stream_disconnect(_stream);
  pa_stream_unref(_stream);
  _stream = nullptr;
}

pa_sample_spec PulseStream::sampleSpec() const {
  return {PA_SAMPLE_FLOAT32LE, static_cast<std::uint32_t>(_controls.format.sampleRate),
          static_cast<std::uint8_t>(std::min(_controls.format.channels, PA_CHANNELS_MAX + 1U))};
}

std::uint32_t PulseStream::bytesOf(double seconds) const {
  const pa_sample_spec spec = sampleSpec();
  const auto microseconds = static_cast<pa_usec_t>(seconds * kMicroseconds);
  return static_cast<std::uint32_t>(pa_usec_to_bytes(microseconds, &spec));
}

// One frame is enough to begin with: a recording may be shorter than any buffer, and after the
// owner's thread was late, what it brings is to be heard at once. Without such a threshold the
// server would skip what came late.
pa_buffer_attr PulseStream::bufferAttributes() const {
  constexpr auto kServersChoice = static_cast<std::uint32_t>(-1);
  return {kServersChoice, bytesOf(_controls.format.secondsAhead()),
          static_cast<std::uint32_t>(_frameBytes), bytesOf(kRequestSeconds), kServersChoice};
}

bool PulseStream::isFormatTaken() const {
  const pa_sample_spec spec = sampleSpec();
  return pa_sample_spec_valid(&spec) != 0;
}

std::string PulseStream::whyNotTaken() const {
  return fmt::format("The sound output does not take {} channels at {} Hz.",
                     _controls.format.channels, _controls.format.sampleRate);
}

// A single channel in the centre is sound for both ears, and not for a speaker between them. What
// has no speaker of its own is played where the server likes.
pa_channel_map PulseStream::channelMap(const AudioOutput::Format& format) {
  pa_channel_map map;
  const bool isMono = format.channels == 1 && format.channelMask == kCentre;
  pa_channel_map_init_extend(&map, format.channels, PA_CHANNEL_MAP_WAVEEX);
  if (format.channelMask == 0 || isMono) return map;
  std::uint32_t channel = 0;
  for (std::size_t bit = 0; bit < kSpeakers.size() && channel < format.channels; ++bit) {
    if ((format.channelMask >> bit & 1U) != 0) map.map[channel++] = kSpeakers.at(bit);
  }
  for (int free = PA_CHANNEL_POSITION_AUX0; channel < format.channels; ++free) {
    map.map[channel++] = static_cast<pa_channel_position_t>(free);
  }
  return map;
}

bool PulseStream::connect(pa_context* context) {
  if (!isFormatTaken()) return false;
  const pa_sample_spec spec = sampleSpec();
  const pa_channel_map map = channelMap(_controls.format);
  pa_proplist* const properties = pa_proplist_new();
  pa_proplist_sets(properties, PA_PROP_MEDIA_ROLE, "music");
  _stream = pa_stream_new_with_proplist(context, "Recording", &spec, &map, properties);
  pa_proplist_free(properties);
  if (_stream == nullptr) return false;
  setCallbacks();
  const pa_buffer_attr attributes = bufferAttributes();
  const auto flags = static_cast<pa_stream_flags_t>(
      PA_STREAM_START_CORKED | PA_STREAM_AUTO_TIMING_UPDATE | PA_STREAM_ADJUST_LATENCY);
  return pa_stream_connect_playback(_stream, nullptr, &attributes, flags, nullptr, nullptr) == 0;
}

void PulseStream::setCallbacks() {
  pa_stream_set_state_callback(_stream, onLife, this);
  pa_stream_set_write_callback(
      _stream, [](pa_stream* stream, std::size_t, void* self) { onLife(stream, self); }, this);
  pa_stream_set_latency_update_callback(_stream, onLatency, this);
  pa_stream_set_underflow_callback(_stream, onUnderflow, this);
  pa_stream_set_moved_callback(_stream, onLife, this);
  pa_stream_set_suspended_callback(_stream, onLife, this);
}

bool PulseStream::isReady() const {
  return _stream != nullptr && pa_stream_get_state(_stream) == PA_STREAM_READY;
}

bool PulseStream::hasFailed() const {
  return _stream != nullptr && !PA_STREAM_IS_GOOD(pa_stream_get_state(_stream));
}

bool PulseStream::isBusy() const {
  return !isReady() || _isFlushing || !_isCorked || _drainOperation != nullptr;
}

bool PulseStream::isStuck() const {
  const Clock::time_point now = Clock::now();
  return (_shouldMove && now - _lastProgress > kStuck) ||
         (_isFlushing && now - _flushBegan > kStuck);
}

void PulseStream::forgiveSilence() {
  _lastLife = _lastProgress = _flushBegan = _lastToTake = Clock::now();
}

void PulseStream::onLife(pa_stream* /*stream*/, void* self) {
  static_cast<PulseStream*>(self)->noteLife();
}

void PulseStream::onDone(pa_stream* stream, int /*success*/, void* self) {
  onLife(stream, self);
}

void PulseStream::ping() {
  release(pa_stream_update_timing_info(_stream, onDone, this));
}

void PulseStream::service() {
  if (!isReady()) return;
  if (!_isFlushing && isFlushDue()) beginFlush();
  if (_isFlushing) return;
  const bool isDraining = _controls.isDraining.load();  // what comes before is there to be pulled
  fill();
  cork();
  if (isDraining && !isFlushDue()) drain();
}

bool PulseStream::isFlushDue() const {
  return _controls.flushed.load() != _controls.flushes.load();
}

void PulseStream::beginFlush() {
  _flushSerial = _controls.flushes.load();
  _isFlushing = true;
  _flushBegan = Clock::now();
  abandonDrain();
  if (_controls.clock.handedOver() == 0) return endFlush();
  release(pa_stream_flush(_stream, onFlushed, this));
}

void PulseStream::onFlushed(pa_stream* stream, int /*success*/, void* self) {
  onLife(stream, self);
  release(pa_stream_update_timing_info(stream, onFlushTiming, self));
}

// What is written from here on begins at the index that the server now has.
void PulseStream::onFlushTiming(pa_stream* stream, int /*success*/, void* self) {
  auto* const me = static_cast<PulseStream*>(self);
  me->noteLife();
  const pa_timing_info* const timing = pa_stream_get_timing_info(stream);
  if (timing != nullptr) me->_base = timing->write_index;
  me->endFlush();
}

void PulseStream::endFlush() {
  _isFlushing = _isDry = _isDrained = false;
  _ramp.restart();
  _controls.clock.reset();
  _controls.flushed.store(_flushSerial);
}

void PulseStream::fill() {
  _lastProgress = _shouldMove ? _lastProgress : Clock::now();
  _isDry = false;
  while (_controls.isRunning.load()) {
    const std::size_t room = pa_stream_writable_size(_stream);
    if (room == static_cast<std::size_t>(-1) || room < _frameBytes) return;
    if (!writeBlock(room)) return;
  }
}

bool PulseStream::writeBlock(std::size_t bytes) {
  void* block = nullptr;
  if (pa_stream_begin_write(_stream, &block, &bytes) != 0 || block == nullptr) return false;
  const std::size_t room = bytes / _frameBytes;
  const std::span samples(static_cast<float*>(block), room * _controls.format.channels);
  const auto mayPull = [this] { return !isFlushDue(); };  // what comes after a flush is not for it
  const AudioSource::Pulled pulled = _controls.source.pull(samples, mayPull);
  _isDry = pulled.frames == 0;
  if (_isDry) {
    pa_stream_cancel_write(_stream);
    return false;
  }
  _isDrained = false;
  abandonDrain();
  _ramp.apply(samples.first(pulled.frames * _controls.format.channels), _controls.volume.load());
  _controls.clock.setHandedOver(_controls.clock.handedOver() + pulled.frames);
  const std::size_t filled = pulled.frames * _frameBytes;
  const int result = pa_stream_write(_stream, block, filled, nullptr, 0, PA_SEEK_RELATIVE);
  if (pulled.isBufferFree) {
    _controls.hasProgressed.store(true);
    _controls.tellOwner();
  }
  return result == 0;
}

// What the device holds when it halts is heard later, if at all: the clock stands where it was.
void PulseStream::cork() {
  const bool isWanted = !_controls.isRunning.load();
  if (isWanted == _isCorked) return;
  _isCorked = isWanted;
  _lastToTake = Clock::now();
  if (isWanted) stopClock();
  release(pa_stream_cork(_stream, isWanted ? 1 : 0, onDone, this));
  ping();
}

// Asked for once: servers have been seen to forget a drain, and may refuse it.
void PulseStream::drain() {
  if (_isDrained || _isCorked || !(_isDry || _isDrainAsked)) return;
  if (_controls.clock.handedOver() == 0 || isDrainOverdue()) return endDrain();
  if (_isDrainAsked) return;
  _isDrainAsked = true;
  _lastToTake = Clock::now();
  _drainOperation = pa_stream_drain(_stream, onDrained, this);
}

// What the server took long ago has been heard, and what it does not take now, it never will.
bool PulseStream::isDrainOverdue() const {
  return _isDrainAsked && Clock::now() - _lastToTake > _delay + kDrainPatience;
}

void PulseStream::abandonDrain() {
  _isDrainAsked = false;
  if (_drainOperation == nullptr) return;
  pa_operation_cancel(_drainOperation);
  pa_operation_unref(_drainOperation);
  _drainOperation = nullptr;
}

void PulseStream::onDrained(pa_stream* stream, int success, void* self) {
  onLife(stream, self);
  auto* const me = static_cast<PulseStream*>(self);
  release(me->_drainOperation);
  me->_drainOperation = nullptr;
  if (success != 0) me->endDrain();
}

void PulseStream::endDrain() {
  abandonDrain();
  _controls.clock.standing(static_cast<double>(_controls.clock.handedOver()));
  _isDrained = true;
  _controls.drained.store(_controls.flushed.load());
  _controls.tellOwner();
}

void PulseStream::onUnderflow(pa_stream* stream, void* self) {
  auto* const me = static_cast<PulseStream*>(self);
  me->noteLife();
  const bool isEnd = me->_controls.isDraining.load() && me->_isDry;
  const bool isExpected =
      me->_isFlushing || me->_isCorked || isEnd || me->_controls.clock.handedOver() == 0;
  if (isExpected) return;
  ++me->_controls.underruns;
  release(pa_stream_update_timing_info(stream, onDone, self));
}

double PulseStream::framesAt(std::int64_t index) const {
  return static_cast<double>(std::max<std::int64_t>(0, index - _base)) /
         static_cast<double>(_frameBytes);
}

void PulseStream::noteProgress(std::int64_t readIndex, bool shouldMove) {
  if (readIndex != _lastReadIndex || !shouldMove || !_shouldMove) _lastProgress = Clock::now();
  _lastReadIndex = readIndex;
  _shouldMove = shouldMove;
}

void PulseStream::onLatency(pa_stream* /*stream*/, void* self) {
  auto* const me = static_cast<PulseStream*>(self);
  me->noteLife();
  if (!me->_isFlushing) me->publishTime();
}

// The index was read half a round trip ago; what the device still holds has not been heard.
void PulseStream::publishTime() {
  const pa_timing_info* const timing = pa_stream_get_timing_info(_stream);
  if (timing == nullptr) return;
  const double taken = framesAt(timing->read_index);
  const auto handedOver = static_cast<double>(_controls.clock.handedOver());
  const bool isSuspended = pa_stream_is_suspended(_stream) == 1;
  const bool hasMoved = timing->read_index != _lastReadIndex;
  if (hasMoved && taken < handedOver) _lastToTake = Clock::now();
  const bool mayStand = _isCorked || isSuspended || _isDrainAsked;
  noteProgress(timing->read_index, !mayStand && taken < handedOver);
  _delay = std::chrono::microseconds(std::min(timing->sink_usec, kMostDelay));
  if (_isCorked) return;  // see `cork`
  const double age = static_cast<double>(timing->transport_usec) / kMicroseconds;
  const double delay = static_cast<double>(timing->sink_usec) / kMicroseconds;
  const double heard = taken + (age - delay) * _controls.format.sampleRate;
  if (timing->playing != 0) {
    _controls.clock.moving(heard);
  } else {
    _controls.clock.standing(std::min(heard, handedOver));
  }
}

void PulseStream::stopClock() {
  _controls.clock.standing(_controls.clock.estimate());
}
