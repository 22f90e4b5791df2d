// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
//
// The whole export job on arbitrary bytes, from a file to a file, in both widths. An input is the
// angle and the gain (doubles), a byte of switches, and the file; see WaveRecipe.h.

#include <atomic>
#include <cstring>

#include "FuzzInput.h"
#include "WaveRecipe.h"
#include "dsp/GainStage.h"
#include "dsp/PlainKernels.h"
#include "dsp/SideGain.h"
#include "export/Export.h"
#include "support/TemporaryFolder.h"
#include "wav/BextLayout.h"

namespace {

constexpr std::size_t kHeaderSize = 748;
const std::vector<std::byte> kOldTarget(100, std::byte{0x4F});

struct Settings {
  explicit Settings(FuzzInput& input)
      : angle(input.take<double>()),
        gain(input.take<double>()),
        switches(input.take<std::uint8_t>()) {}

  [[nodiscard]] bool normalizes() const { return (switches & 1) != 0; }
  [[nodiscard]] bool hasOldTarget() const { return (switches & 2) != 0; }
  [[nodiscard]] bool refusesOldTarget() const { return (switches & 4) != 0; }
  [[nodiscard]] bool isFromMemory() const { return (switches & 8) != 0; }
  [[nodiscard]] bool isFollowed() const { return (switches & 16) != 0; }
  [[nodiscard]] bool isCancelled() const { return (switches & 0xE0) == 0xE0; }
  [[nodiscard]] AtomicFile::Existing existing() const {
    return refusesOldTarget() ? AtomicFile::Existing::Refuse : AtomicFile::Existing::Replace;
  }

  double angle;
  double gain;
  std::uint8_t switches;
};

// What the export has to write, taken the plain way, a frame at a time.
std::vector<float> plainExport(WaveFileReader& source, bool isRaw, const Settings& settings) {
  std::vector<float> samples;
  std::array<float, 2> frame{};
  source.beginReadSample();
  while (source.readNextSample(frame[0], frame[1])) {
    samples.insert(samples.end(), frame.begin(), frame.end());
  }
  const float side = SideGain::factor(WaveFileReader::wholeAngle(settings.angle));
  if (isRaw) PlainKernels::decodeMidSide(samples, side);
  const auto peak = static_cast<double>(PlainKernels::peakMagnitude(samples, 0));
  const double dB = settings.normalizes() ? 20.0 * std::log10(peak) : -settings.gain;
  const float divisor = GainStage::factor(dB);
  PlainKernels::divide(samples, divisor, divisor);
  return samples;
}

void checkSamples(std::span<const std::byte> written, std::span<const float> samples,
                  bool is24bit) {
  require(written.size() == samples.size() * (is24bit ? 3 : 4),
          "every frame of the source is written");
  std::vector<std::byte> expected(written.size());
  if (is24bit) {
    PlainKernels::pack24(samples, expected);
    return require(std::ranges::equal(written, expected), "24-bit samples are the plain ones");
  }
  for (std::size_t i = 0; i < samples.size(); ++i) {
    float value = 0;
    std::memcpy(&value, &written[4 * i], sizeof value);
    require(isSameSample(value, samples[i]), "float samples are the plain ones");
  }
}

void checkHeader(const WaveFileReader& output, const WaveHeader& source, std::size_t size,
                 bool is24bit) {
  const WaveHeader& header = output.header();
  require(output.isValidFile(), "the output is a WAVE file");
  require(output.chunks().size() == 4, "the output has JUNK, bext, fmt and data");
  require(header.ChunkSize == size - 8, "the RIFF size fits");
  require(header.dataChunkPosition == kHeaderSize, "the data starts where it should");
  require(header.dataChunkLength == size - kHeaderSize, "the data size fits");
  require(header.AudioFormat == (is24bit ? kFormatPCM : kFormatFloat), "the format is as chosen");
  require(header.BitsPerSample == (is24bit ? 24 : 32), "the width is as chosen");
  require(header.NumChannels == source.NumChannels, "channels are the source's");
  require(header.SampleRate == source.SampleRate, "the rate is the source's");
}

bool contains(const WavArray& bext, std::size_t offset, std::size_t most, const char* mark) {
  const auto length = std::min<std::uint64_t>(most, bext.length - offset);
  return WaveFileReader::DecodeAsString(bext.bytes + offset, length).find(mark) !=
         std::string::npos;
}

void checkRecognition(const Export& job) {
  const WaveFileReader& reader = *job.reader();
  const auto chunk = reader.getBextChunk();
  const WavArray bext = chunk ? reader.getChunkData(*chunk) : WavArray();
  const bool isWhole = reader.isValidFile() && bext.length >= bext::kFixedSize;
  const auto& field = bext::kOriginator;
  const bool isRecorder = isWhole && contains(bext, field.offset, field.size, "TARN J4");
  const bool isRaw = isRecorder && contains(bext, bext::kFixedSize, bext.length, "MSRAW=ON");
  require(job.IsFileValid() == isRecorder, "a recording is one of the recorder's");
  require(reader.isBoMSFormat() == isRaw, "raw Mid/Side is what the history says");
}

/// One source and its exports, in a folder of their own.
class Exports {
 public:
  Exports(const Settings& settings, const std::vector<std::byte>& file)
      : _settings(settings), _file(file), _source(_folder.file("take.WAV", file)), _job(_source) {
    if (_settings.isFromMemory()) {
      require(_job.checkFileValid(_file) == _job.IsFileValid(), "a file is what its bytes are");
    }
    checkRecognition(_job);
    if (_settings.isFollowed()) _job.reader()->follow(0, 1);
    _job.setCancelFlag(&_cancel);
    _job.setExisting(_settings.existing());
    _job.setAngle(_settings.angle);
    _job.setGain(_settings.gain);
  }

  void run(const std::string& name, bool is24bit) {
    const auto target = _folder.path() / name;
    if (_settings.hasOldTarget()) _folder.file(name, kOldTarget);
    const auto before = _folder.names();
    const bool isDone = _job.export2File(target, is24bit, _settings.normalizes());
    const bool hasToFail = _cancel || (_settings.hasOldTarget() && _settings.refusesOldTarget());
    require(isDone == (_job.IsFileValid() && !hasToFail), "an export is done where it can be");
    isDone ? checkOutput(target, is24bit) : checkFailure(target, before);
    require(TemporaryFolder::read(_source) == _file, "the source stays as it is");
  }

 private:
  void checkOutput(const std::filesystem::path& target, bool is24bit) {
    const auto source = WaveFileReader::readFromData(_file);
    const auto bytes = TemporaryFolder::read(target);
    const auto output = WaveFileReader::readFromData(bytes);
    require(bytes.size() == _job.outputSize(is24bit), "the size is as announced");
    checkHeader(*output, source->header(), bytes.size(), is24bit);
    const auto samples = plainExport(*source, _job.reader()->isBoMSFormat(), _settings);
    checkSamples(std::span(bytes).subspan(kHeaderSize), samples, is24bit);
    output->beginReadSample();
    const bool isStereo = source->header().NumChannels == 2;
    const bool isSame = output->cursor().framesLeft() == samples.size() / 2;
    require(isSame || !isStereo, "frames are the source's");
  }

  void checkFailure(const std::filesystem::path& target, const std::vector<std::string>& before) {
    require(_job.wasCancelled() || !_job.failure().empty(), "a failure has a reason");
    require(_folder.names() == before, "a failed export leaves nothing behind");
    if (_settings.hasOldTarget()) {
      require(TemporaryFolder::read(target) == kOldTarget, "a failed export keeps the old file");
    }
  }

  const Settings& _settings;
  const std::vector<std::byte>& _file;
  TemporaryFolder _folder;
  std::filesystem::path _source;
  std::atomic<bool> _cancel{_settings.isCancelled()};
  Export _job;
};

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzInput input(data, size);
  const Settings settings(input);
  const auto file = recipe::takeFile(input);
  Exports exports(settings, file);
  exports.run("24.WAV", true);
  exports.run("float.WAV", false);
  return 0;
}
