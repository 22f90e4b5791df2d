// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "export/Export.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <span>
#include <system_error>

#include "analysis/TakeAnalyzer.h"
#include "dsp/GainStage.h"
#include "dsp/Kernels.h"
#include "dsp/SideGain.h"
#include "export/ExportBlocks.h"
#include "export/PeakPass.h"
#include "export/ProcessorShare.h"
#include "export/Recognition.h"
#include "wav/BextLayout.h"

namespace {

constexpr std::uint64_t kFramesPerReport = 1 << 17;

std::string field(const WavArray& chunk, BextField field) {
  return WaveFileReader::DecodeAsString(chunk.bytes + field.offset, field.size);
}

std::string historyOf(int bits) {
  return Recognition::codingHistory(bits, false);
}

// Appends floats in the width of the export.
void write(std::span<const float> samples, bool is24bit, BwfWriter& writer) {
  const auto count = static_cast<std::uint32_t>(samples.size());
  if (is24bit) {
    Kernels::pack24(samples, writer.extend(3 * count));
  } else {
    writer.Write(samples.data(), 4 * count);
  }
}

}  // namespace

std::filesystem::path Export::nameFor(const std::filesystem::path& source) {
  return source.stem().native() + "_Decode.WAV";
}

std::filesystem::path Export::nameForSelection(const std::filesystem::path& source) {
  return source.stem().native() + "_Decode_A-B.WAV";
}

Export::Export(const std::filesystem::path& filePath)
    : _dirPath(filePath.parent_path()), _filePath(filePath) {
  _reader = WaveFileReader::openFile(filePath, _failure);
  _isFileValid = _reader && recognise();
}

bool Export::checkFileValid(std::span<const std::byte> data) {
  cleanUp();
  _failure.clear();
  _reader = WaveFileReader::readFromData(data);
  _isFileValid = recognise();
  return _isFileValid;
}

bool Export::recognise() {
  Recognition recognition(*_reader);
  _reader->setIsBoMSFormat(recognition.isRawMidSide());
  _bextChunk = recognition.takeBextChunk();
  return recognition.isRecorder() || fail(recognition.whyNot());
}

BextChunkInfo Export::buildBextInfo() const {
  BextChunkInfo info;
  info.CodingHistory = historyOf(_isExport24Bit ? 24 : 32);
  if (_bextChunk.length < bext::kFixedSize) return info;
  info.Description = field(_bextChunk, bext::kDescription);
  info.Originator = field(_bextChunk, bext::kOriginator);
  info.OriginatorReference = field(_bextChunk, bext::kOriginatorReference);
  info.UniqueMaterialIdentifier = field(_bextChunk, bext::kUniqueMaterialIdentifier);
  if (_keepsMetadata) _kept.putInto(info);
  return info;
}

bool Export::isSource(const std::filesystem::path& path) const {
  std::error_code error;
  return path == _filePath || std::filesystem::equivalent(path, _filePath, error);
}

std::uint64_t Export::outputSize(bool is24bit) const {
  if (!_reader) return 0;
  const int bits = BwfWriter::bitsPerSample(is24bit);
  const std::uint64_t frameBytes = 2 * static_cast<std::uint64_t>(bits) / 8;
  const FrameRange frames = range();
  BextChunkInfo info;
  info.CodingHistory = historyOf(bits);
  if (_keepsMetadata) _kept.putInto(info);
  return BwfWriter::fileSize(info.CodingHistory, (frames.end - frames.first) * frameBytes) +
         _kept.size();
}

void Export::setKeepMetadata(bool on) {
  _keepsMetadata = on && _isFileValid;
  _kept = _keepsMetadata
              ? KeptMetadata(*_reader, std::span(_bextChunk.bytes, _bextChunk.length), range())
              : KeptMetadata();
}

std::uint64_t Export::keptBytes() {
  const bool keepsMetadata = _keepsMetadata;
  setKeepMetadata(false);
  const std::uint64_t without = outputSize(true);
  setKeepMetadata(true);
  const std::uint64_t with = outputSize(true);
  setKeepMetadata(keepsMetadata);
  return with - without;
}

void Export::setRange(const std::optional<FrameRange>& range) {
  if (range != _range) _analysis.reset();
  _range = range;
  setKeepMetadata(_keepsMetadata);
}

FrameRange Export::range() const {
  const std::uint64_t frames = _reader->frameCount();
  if (!_range) return {0, frames};
  const std::uint64_t end = std::min(_range->end, frames);
  return {std::min(_range->first, end), end};
}

FrameStream Export::stream() const {
  FrameStream source(*_reader, ExportBlocks::kReadBytes);
  source.stopAt(range().end);
  source.seek(range().first);
  return source;
}

bool Export::export2File(const std::filesystem::path& path, bool Is24bit, bool IsNormalize) {
  _isExport24Bit = Is24bit;
  _normalize = IsNormalize;
  return export2File(path);
}

bool Export::export2File(const std::filesystem::path& path) {
  const ProcessorShare own = ProcessorShare::own();
  _wasCancelled = false;
  _failure.clear();
  const std::string whyNot = whyNotAtAll(path, _isExport24Bit);
  if (!whyNot.empty()) return fail(whyNot);
  const BextChunkInfo info = buildBextInfo();
  BwfWriter writer(_reader.get(), info, _isExport24Bit);
  if (!prepare(path, writer)) return false;
  editAndWriteSample(writer);
  if (stopped()) return false;
  for (const auto& [identifier, bytes] : _kept.chunks()) writer.appendChunk(identifier, bytes);
  writer.FixUpChunkSizes();
  return writer.Save2File(path) || fail(writer.failure());
}

std::string Export::whyNot(const std::filesystem::path& path, bool is24bit) const {
  const std::string reason = whyNotAtAll(path, is24bit);
  return reason.empty() ? AtomicFile::whyNot(path, _existing, outputSize(is24bit)) : reason;
}

// Wherever it is written.
std::string Export::whyNotAtAll(const std::filesystem::path& path, bool is24bit) const {
  if (!_isFileValid || !_reader->image()) return "No recording is open";
  if (isSource(path)) return "The target is the source itself";
  if (_kept.isCutShort()) return "Markers and descriptions of the recording cannot be read";
  if (_longOutput == LongOutput::Rf64 || !isRf64(is24bit)) return {};
  return fmt::format("The export would take {} bytes; a WAVE file ends at 4 GiB",
                     outputSize(is24bit));
}

bool Export::prepare(const std::filesystem::path& path, BwfWriter& writer) {
  const std::uint64_t size = outputSize(_isExport24Bit);
  return writer.streamTo(path, _existing, size) || fail(writer.failure());
}

void Export::editAndWriteSample(BwfWriter& writer) {
  FrameStream source = stream();
  _framesDone = 0;
  _framesToDo = source.framesLeft() * passes();
  _loudnessGain.reset();
  _normalizeGain.reset();
  _clipping = Clipping(_reader->header().SampleRate);
  const Attenuation attenuation = this->attenuation();
  const Factors factors{sideGain(), GainStage::factor(attenuation.left),
                        GainStage::factor(attenuation.right)};
  const bool isRecoded = _isExport24Bit && _reader->isBoMSFormat() && source.isPair24();
  while (mayGoOn(source)) {
    const std::uint64_t count =
        isRecoded ? recode(source, factors, writer) : edit(source, factors, writer);
    if (count == 0) return failToRead(source);
    if (!writer.failure().empty()) fail(writer.failure());
    report(count);
  }
}

// Of a raw take of 24-bit integers into such integers there is no need of floats on the way, but
// to look at what clips.
std::uint64_t Export::recode(FrameStream& source, const Factors& factors, BwfWriter& writer) {
  static_assert(6 * ExportBlocks::kRecodedFrames <= BwfWriter::kMostAtOnce);
  const auto packed = source.readPacked(ExportBlocks::kRecodedFrames);
  if (packed.empty()) return 0;
  const auto target = writer.extend(static_cast<std::uint32_t>(packed.size()));
  const auto [side, left, right] = factors;
  const float peak = Kernels::recode24(packed, side, left, right, target);
  const std::size_t samples = packed.size() / 3;
  if (!Clipping::isOver(peak)) {
    _clipping.skip(samples / 2);
    return samples / 2;
  }
  std::array<float, 2 * ExportBlocks::kRecodedFrames> floats;
  const std::span<float> frames = std::span(floats).first(samples);
  Kernels::unpack24(packed, frames);
  _clipping.look(frames, Kernels::decodeAndDivide(frames, side, left, right));
  return samples / 2;
}

std::uint64_t Export::edit(FrameStream& source, const Factors& factors, BwfWriter& writer) {
  std::array<float, ExportBlocks::kFloats> block;
  const std::uint64_t count = source.read(block);
  if (count == 0) return 0;
  const std::span<float> frames = std::span(block).first(2 * count);
  const auto [side, left, right] = factors;
  const float peak = _reader->isBoMSFormat() ? Kernels::decodeAndDivide(frames, side, left, right)
                                             : Kernels::divide(frames, left, right);
  if (_isExport24Bit) _clipping.look(frames, peak);
  write(frames, _isExport24Bit, writer);
  return count;
}

Export::Attenuation Export::attenuation() {
  if (_loudness) return towardsLoudness();
  if (!_normalize) return {-_gain, -_gain};
  const int width = WaveFileReader::wholeAngle(_angle);
  const float peak = isAnalysed() ? _analysis->samplePeak(width) : firstPass();
  const double dB = 20.0 * std::log10(static_cast<double>(peak));
  if (peak > 0) _normalizeGain = -dB;
  return {dB, dB};
}

unsigned Export::passes() const {
  return (_normalize || _loudness) && !isAnalysed() ? 2 : 1;
}

bool Export::isAnalysed() const {
  const FrameRange frames = range();
  return _analysis && _analysis->isComplete() &&
         _analysis->isOf(*_reader, frames.first, frames.end - frames.first);
}

float Export::firstPass() {
  const ProcessorShare spare = ProcessorShare::spare();
  PeakPass pass(*_reader, sideGain(), range());
  pass.setThreads(1 + spare.count());
  const auto peak = pass.run(_cancel, [this](std::uint64_t frames) { report(frames); });
  if (peak) return *peak;
  _wasCancelled = pass.failure().empty();
  if (!_wasCancelled) fail(fmt::format("The source cannot be read: {}", pass.failure()));
  return 0;
}

bool Export::analyse() {
  if (isAnalysed()) return true;
  const ProcessorShare spare = ProcessorShare::spare();
  TakeAnalyzer::Options options;
  options.workers = 1 + spare.count();
  options.firstFrame = range().first;
  options.endFrame = range().end;
  options.keepsBins = false;
  TakeAnalyzer analyzer(*_reader, options);
  const auto frames = static_cast<double>(range().end - range().first);
  _analysis = analyzer.wait(_cancel, [&](double done) {
    const auto reached = static_cast<std::uint64_t>(done * frames);
    report(reached - std::min(reached, _framesDone));
  });
  if (_analysis) return true;
  _wasCancelled = analyzer.failure().empty();
  return _wasCancelled ? false
                       : fail(fmt::format("The source cannot be read: {}", analyzer.failure()));
}

Export::Attenuation Export::towardsLoudness() {
  if (!analyse()) return {0, 0};
  _loudnessGain.emplace(*_analysis, WaveFileReader::wholeAngle(_angle), *_loudness);
  if (!_loudnessGain->gain()) {
    fail("The recording has no loudness at this width: it is silent or shorter than 0.4 s");
    return {0, 0};
  }
  return {-*_loudnessGain->gain(), -*_loudnessGain->gain()};
}

bool Export::mayGoOn(const FrameStream& source) {
  if (_cancel != nullptr && _cancel->load(std::memory_order_relaxed)) _wasCancelled = true;
  return !stopped() && source.framesLeft() > 0;
}

void Export::failToRead(const FrameStream& source) {
  if (!source.failure().empty())
    fail(fmt::format("The source cannot be read: {}", source.failure()));
  _wasCancelled = source.failure().empty();
}

float Export::sideGain() const {
  return SideGain::factor(WaveFileReader::wholeAngle(_angle));
}

void Export::report(std::uint64_t framesDone) {
  const std::uint64_t before = _framesDone;
  _framesDone += framesDone;
  const bool isDue = before / kFramesPerReport != _framesDone / kFramesPerReport;
  if (_progress && (isDue || _framesDone == _framesToDo)) {
    const auto all = static_cast<double>(_framesToDo);
    _progress(_framesToDo > 0 ? static_cast<double>(_framesDone) / all : 1.0);
  }
}

bool Export::fail(const std::string& reason) {
  if (_failure.empty()) _failure = reason;
  return false;
}

void Export::cleanUp() {
  if (_reader) {
    if (_reader->image()) _reader->image()->abandon();
    _reader->dispose();
  }
  _bextChunk.dispose();
  _bextChunk = WavArray();
}
