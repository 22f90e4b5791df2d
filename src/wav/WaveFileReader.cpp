// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "wav/WaveFileReader.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <utility>

#include "dsp/GainStage.h"
#include "dsp/Kernels.h"
#include "dsp/MidSideDecoder.h"
#include "dsp/PlainKernels.h"
#include "dsp/SideGain.h"

namespace {

constexpr std::size_t kLevelBlock = 1024;

// Toward zero; what no unsigned 64-bit count can hold becomes the nearest that can.
std::uint64_t truncated(double value) {
  if (!(value > 0.0)) return 0;
  constexpr double kTooLarge = 9.0e18;
  return static_cast<std::uint64_t>(std::min(value, kTooLarge));
}

std::span<float> pairs(float* sample, std::uint64_t sampleLength) {
  return {sample, static_cast<std::size_t>(sampleLength + sampleLength % 2)};
}

}  // namespace

WaveFileReader::WaveFileReader(std::shared_ptr<WaveImage> image)
    : _image(std::move(image)), _index(std::make_shared<WaveIndex>()) {
  parseWave();
}

std::unique_ptr<WaveFileReader> WaveFileReader::readFromData(std::span<const std::byte> data) {
  return std::unique_ptr<WaveFileReader>(new WaveFileReader(WaveImage::fromBytes(data)));
}

std::unique_ptr<WaveFileReader> WaveFileReader::openFile(const std::filesystem::path& path,
                                                         std::string& whyNot) {
  auto image = WaveImage::fromFile(path, whyNot);
  if (!image) return nullptr;
  std::unique_ptr<WaveFileReader> reader(new WaveFileReader(std::move(image)));
  whyNot = reader->image()->failure();
  return whyNot.empty() ? std::move(reader) : nullptr;
}

WaveFileReader WaveFileReader::apart() const {
  WaveFileReader other(*this);
  if (!_image || _image->isInMemory()) return other;
  other._image = _image->sibling();
  other._cursor = SampleCursor(other._image, header(), encoding());
  return other;
}

void WaveFileReader::parseWave() {
  auto index = std::make_shared<WaveIndex>(*_index);
  if (_image) index->parse(*_image);
  index->isValidFile = index->isValidFile && _image;
  _index = std::move(index);
  _cursor = SampleCursor(_image, header(), encoding());
}

std::string_view WaveFileReader::whyInvalid() const {
  return _index->whyInvalid(_image ? _image->size() : 0);
}

const WavArray& WaveFileReader::raw() const {
  static const WavArray kNone;
  return _image ? _image->raw() : kNone;
}

WavArray WaveFileReader::getChunkData(const ChunkInfo& chunk, std::uint64_t most) const {
  WavArray data;
  const std::uint64_t size = _image ? _image->size() : 0;
  if (chunk.streamPos > size) return data;
  const std::uint64_t length = std::min({chunk.chunkSize, size - chunk.streamPos, most});
  data.bytes = static_cast<std::uint8_t*>(std::malloc(std::max<std::uint64_t>(length, 1)));
  if (data.bytes == nullptr) return data;
  const std::span block(reinterpret_cast<std::byte*>(data.bytes), length);
  data.length = _image->readAt(chunk.streamPos, block);
  return data;
}

std::string WaveFileReader::DecodeAsString(const std::uint8_t* bytes, std::uint64_t length) {
  std::string text;
  for (std::uint64_t i = 0; i < length && bytes[i] != 0; ++i) {
    const std::uint8_t character = bytes[i];
    if (character < 0x80) {
      text += static_cast<char>(character);
    } else {
      text += static_cast<char>(0xC0 | character >> 6);
      text += static_cast<char>(0x80 | (character & 0x3F));
    }
  }
  return text;
}

void WaveFileReader::getSample(float& left, float& changeRight,
                               std::span<const std::byte> data) const {
  FrameDecoder(header().NumChannels, header().BitsPerSample, encoding())
      .decode(data, left, changeRight);
}

double WaveFileReader::durationSeconds() const {
  if (header().SampleRate == 0) return 0.0;
  return static_cast<double>(frameCount()) / header().SampleRate;
}

bool WaveFileReader::follow(double from, double to) {
  if (!_image || _cursor.frameBytes() == 0) return true;
  const std::uint64_t start = byteOffset(from) + header().dataChunkPosition;
  const std::uint64_t end = levelEnd(to);
  _image->follow(start);
  if (start >= end) return true;
  const std::uint64_t starting = (end - start + _cursor.frameBytes() - 1) / _cursor.frameBytes();
  const std::uint64_t count = std::min(starting, _cursor.framesFrom(start));
  return _image->heldFrom(start) >= _cursor.endFor(start, count) - start;
}

std::uint64_t WaveFileReader::byteOffset(double seconds) const {
  const double rate = header().SampleRate;
  const std::uint64_t frame = _cursor.frameBytes();
  const std::uint64_t offset = truncated(rate * seconds * static_cast<double>(frame));
  return offset % frame == 0 ? offset : (offset / frame + 1) * frame;
}

// As a file position, though bounded by a length.
std::uint64_t WaveFileReader::levelEnd(double seconds) const {
  const double rate = header().SampleRate;
  const double end = rate * seconds * static_cast<double>(_cursor.frameBytes()) +
                     static_cast<double>(header().dataChunkPosition);
  return std::min(truncated(end), header().dataChunkLength);
}

void WaveFileReader::measureMaxima(std::uint64_t end, float& left, float& right) {
  std::array<float, kLevelBlock> block{};
  const std::uint64_t frame = _cursor.frameBytes();
  while (_cursor.readDataIdx() < end) {
    const std::uint64_t starting = (end - _cursor.readDataIdx() + frame - 1) / frame;
    const auto wanted = std::min<std::uint64_t>(2 * starting, block.size());
    const auto count = 2 * _cursor.readFrames(std::span(block).first(wanted));
    if (count == 0) return;
    Kernels::raiseMaxima(std::span(block).first(count), left, right);
  }
}

void WaveFileReader::getSampleLevelMeterFrom(double from, double to, float& chanelLeft,
                                             float& chanelRight, double gain, double angle) {
  chanelLeft = chanelRight = FrameDecoder::kNoSample;
  if (_cursor.frameBytes() == 0) return;
  std::array<float, 2> maxima{FrameDecoder::kNoSample, FrameDecoder::kNoSample};
  _cursor.setReadDataIdx(byteOffset(from) + header().dataChunkPosition);
  measureMaxima(levelEnd(to), maxima[0], maxima[1]);
  const int bits = header().BitsPerSample;
  if (_isBoMSFormat) COM_MSDecode(bits, maxima.data(), maxima.size(), wholeAngle(angle));
  COM_AdjustdB(bits, maxima.data(), maxima.size(), gain, gain);
  chanelLeft = maxima[0];
  chanelRight = maxima[1];
}

void WaveFileReader::dispose() {
  _cursor = SampleCursor();
  _image.reset();
}

int WaveFileReader::wholeAngle(double angle) {
  if (!(angle > SideGain::kMinAngle)) return SideGain::kMinAngle;
  return static_cast<int>(std::min<double>(angle, SideGain::kMaxAngle));
}

void WaveFileReader::COM_SetCvtMSSample(int /*bits*/, float* sample, int angle) {
  PlainKernels::decodeMidSide({sample, 2}, SideGain::factor(angle));
}

void WaveFileReader::COM_MSDecode(int /*bits*/, float* sample, std::uint64_t sampleLength,
                                  int angle) {
  MidSideDecoder::decode(pairs(sample, sampleLength), angle);
}

void WaveFileReader::COM_MSDecodeForPlaying(int /*bits*/, float* sample, std::uint64_t sampleLength,
                                            const AdjustAngleInfo* info) {
  MidSideDecoder::glide({sample, 2 * sampleLength}, *info);
}

float WaveFileReader::COM_SetCvtdBSample(int /*bits*/, float sample, float divisor) {
  return PlainKernels::divide(sample, divisor);
}

void WaveFileReader::COM_AdjustdB(int /*bits*/, float* sample, std::uint64_t sampleLength,
                                  double dBL, double dBR) {
  GainStage::apply(pairs(sample, sampleLength), dBL, dBR);
}

void WaveFileReader::COM_AdjustdBForPlaying(int /*bits*/, float* sample, std::uint64_t sampleLength,
                                            const AdjustDBInfo* info) {
  GainStage::glide({sample, 2 * sampleLength}, *info);
}
