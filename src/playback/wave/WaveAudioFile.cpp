// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "playback/wave/WaveAudioFile.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cerrno>

#include "wav/SampleCursor.h"

namespace {

// The extensible format (tag 0xFFFE) tells the speakers, and has the real tag in front of its
// sub-format's identifier.
constexpr std::uint64_t kFormatExtensible = 0xFFFE;
constexpr std::uint64_t kChannelMaskOffset = 20;
constexpr std::size_t kMaskBytes = 4;
constexpr std::uint32_t kExtensibleSize = 40;

std::uint32_t littleEndian(std::span<const std::byte> bytes) {
  std::uint32_t value = 0;
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    value |= std::to_integer<std::uint32_t>(bytes[i]) << (8 * i);
  }
  return value;
}

SampleType integersOf(std::uint16_t bits) {
  switch (bits) {
    case 8:
      return SampleType::Unsigned8;
    case 16:
      return SampleType::Signed16;
    case 24:
      return SampleType::Signed24;
    case 32:
      return SampleType::Signed32;
    default:
      return SampleType::None;
  }
}

SampleType storedAs(std::uint64_t encoding, std::uint16_t bits) {
  if (encoding == kFormatPCM) return integersOf(bits);
  if (encoding == kFormatFloat && bits == 32) return SampleType::Float32;
  return SampleType::None;
}

}  // namespace

bool WaveAudioFile::fail(const std::string& why) {
  _failure = why;
  _format = {};
  return false;
}

bool WaveAudioFile::open(const std::string& path) {
  _format = {};
  _frameCount = 0;
  _failure.clear();
  _image = WaveImage::fromFile(path, _failure);
  if (!_image) return false;
  WaveIndex index;
  index.parse(*_image);
  if (!_image->failure().empty()) return fail(_image->failure());
  if (!index.isValidFile) return fail(std::string(index.whyInvalid(_image->size())));
  return examine(index);
}

void WaveAudioFile::examineExtension(const WaveIndex& index) {
  _encoding = index.encoding;
  const bool isLong = index.header.Subchunk1Size >= kExtensibleSize;
  if (_encoding != kFormatExtensible || !isLong) return;
  const auto isFormat = [](const ChunkInfo& chunk) { return chunk.chunkID == kFmtID; };
  const auto last = std::find_if(index.chunks.rbegin(), index.chunks.rend(), isFormat);
  std::array<std::byte, kMaskBytes + 2> bytes{};
  const bool isThere = _image->readAt(last->streamPos + kChannelMaskOffset, bytes) == bytes.size();
  _encoding = isThere ? littleEndian(std::span(bytes).subspan(kMaskBytes)) : 0;
  _format.channelMask = littleEndian(std::span(bytes).first(kMaskBytes));
}

bool WaveAudioFile::examine(const WaveIndex& index) {
  const WaveHeader& header = index.header;
  examineExtension(index);
  const SampleType type = storedAs(_encoding, header.BitsPerSample);
  if (type == SampleType::None) {
    return fail(fmt::format("Samples of {} bits in format {} cannot be played",
                            header.BitsPerSample, _encoding));
  }
  if (header.NumChannels == 0) return fail("There are no channels");
  if (header.SampleRate == 0) return fail("There is no sample rate");
  _format = AudioFormat{static_cast<double>(header.SampleRate),
                        type == SampleType::Float32 ? kAudioFormatFlagIsFloat : 0,
                        sampleBytes(type) * header.NumChannels,
                        1,
                        header.NumChannels,
                        header.BitsPerSample,
                        type,
                        _format.channelMask};
  SampleCursor cursor(_image, header, index.encoding);
  cursor.beginReadSample();
  _dataStart = cursor.readDataIdx();
  _frameCount = cursor.framesLeft();
  return true;
}

AudioFile::Read WaveAudioFile::end() {
  if (!_image->isDeleted()) return {};
  _failure = "The file has been deleted";
  return {0, ENOENT};
}

AudioFile::Read WaveAudioFile::readFrames(std::uint64_t first, std::uint32_t frames,
                                          std::span<std::byte> to) {
  const std::uint64_t frame = _format.bytesPerPacket;
  if (frame == 0) return {0, EBADF};
  if (frames == 0) return {};
  if (first >= _frameCount) return end();
  const auto wanted = std::min<std::uint64_t>(frames, _frameCount - first);
  const std::size_t got = _image->readAt(_dataStart + first * frame, to.first(wanted * frame));
  if (got >= frame) return {static_cast<std::uint32_t>(got / frame), 0};
  _failure = _image->failure().empty() ? "The file became shorter" : _image->failure();
  return {0, EIO};  // whatever it was: the failure tells it in words
}
