// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "playback/sndfile/SndfileAudioFile.h"

#include <sndfile.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <system_error>

struct SndfileAudioFile::Handle {
  Handle() = default;
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;
  ~Handle() {
    if (file != nullptr) sf_close(file);
  }

  SNDFILE* file = nullptr;
  SF_INFO info{};
};

namespace {

struct Stored {
  SampleType type;
  std::uint32_t bits;
};

Stored storedAs(int format) {
  switch (format & SF_FORMAT_SUBMASK) {
    case SF_FORMAT_PCM_U8:
      return {SampleType::Unsigned8, 8};
    case SF_FORMAT_PCM_16:
      return {SampleType::Signed16, 16};
    case SF_FORMAT_PCM_24:
      return {SampleType::Signed24, 24};
    case SF_FORMAT_PCM_32:
      return {SampleType::Signed32, 32};
    case SF_FORMAT_FLOAT:
      return {SampleType::Float32, 32};
    default:
      return {SampleType::None, 0};
  }
}

bool isWave(int format) {
  const int type = format & SF_FORMAT_TYPEMASK;
  return type == SF_FORMAT_WAV || type == SF_FORMAT_WAVEX || type == SF_FORMAT_RF64;
}

// Not to hang on a pipe.
int examineKind(const std::string& path) {
  struct stat status {};
  if (stat(path.c_str(), &status) != 0) return errno;
  return S_ISREG(status.st_mode) ? 0 : EINVAL;
}

}  // namespace

SndfileAudioFile::SndfileAudioFile() : _handle(std::make_unique<Handle>()) {}

SndfileAudioFile::~SndfileAudioFile() = default;

bool SndfileAudioFile::fail(const std::string& why) {
  _failure = why;
  _format = {};
  _frameCount = 0;
  return false;
}

bool SndfileAudioFile::open(const std::string& path) {
  if (const int error = examineKind(path)) return fail(std::generic_category().message(error));
  _handle = std::make_unique<Handle>();
  _handle->file = sf_open(path.c_str(), SFM_READ, &_handle->info);
  if (_handle->file == nullptr) return fail(sf_strerror(nullptr));
  return examine();
}

bool SndfileAudioFile::examine() {
  const SF_INFO& info = _handle->info;
  if (!isWave(info.format)) return fail("Not a WAVE file");
  Stored stored = storedAs(info.format);
  _isDecoded = stored.type == SampleType::None ||
               sf_command(_handle->file, SFC_RAW_DATA_NEEDS_ENDSWAP, nullptr, 0) == SF_TRUE;
  if (_isDecoded) stored.type = SampleType::Float32;
  if (_isDecoded && stored.bits != 0) stored.bits = 32;
  const auto channels = static_cast<std::uint32_t>(info.channels);
  const bool isFloat = stored.type == SampleType::Float32;
  _format = {static_cast<double>(info.samplerate),
             isFloat ? kAudioFormatFlagIsFloat : 0,
             sampleBytes(stored.type) * channels,
             1,
             channels,
             stored.bits,
             stored.type};
  _frameCount = static_cast<std::uint64_t>(std::max<sf_count_t>(0, info.frames));
  return true;
}

std::int64_t SndfileAudioFile::readStored(std::span<std::byte> to) {
  const auto frames = static_cast<sf_count_t>(to.size() / _format.bytesPerPacket);
  if (_isDecoded) {
    return sf_readf_float(_handle->file, reinterpret_cast<float*>(to.data()), frames);
  }
  const auto bytes = static_cast<sf_count_t>(to.size());
  return sf_read_raw(_handle->file, to.data(), bytes) / _format.bytesPerPacket;
}

AudioFile::Read SndfileAudioFile::readFrames(std::uint64_t first, std::uint32_t frames,
                                             std::span<std::byte> to) {
  if (_format.bytesPerPacket == 0) return {0, EBADF};
  if (first >= _frameCount || frames == 0) return {};
  const auto wanted = std::min<std::uint64_t>(frames, _frameCount - first);
  if (first != _position && sf_seek(_handle->file, static_cast<sf_count_t>(first), SEEK_SET) < 0) {
    _failure = sf_strerror(_handle->file);
    return {0, sf_error(_handle->file)};
  }
  const auto got = std::max<std::int64_t>(0, readStored(to.first(wanted * _format.bytesPerPacket)));
  _position = first + static_cast<std::uint64_t>(got);
  if (got > 0 || sf_error(_handle->file) == 0) return {static_cast<std::uint32_t>(got), 0};
  _failure = sf_strerror(_handle->file);
  return {0, sf_error(_handle->file)};
}
