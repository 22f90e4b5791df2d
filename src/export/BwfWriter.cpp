// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "export/BwfWriter.h"

#include <algorithm>
#include <array>
#include <bit>

#include "wav/BextLayout.h"
#include "wav/RiffLayout.h"

namespace {

constexpr std::string_view kDropped = "The file was dropped before it was saved";
constexpr std::uint32_t kJunkSize = 28;
constexpr std::uint32_t kFormatSize = 18;
constexpr std::size_t kStreamBlock = 1 << 20;
constexpr std::size_t kRoom = kStreamBlock + BwfWriter::kMostAtOnce;

// The text's bytes when all of it is ASCII, else none.
std::string_view ascii(std::string_view text) {
  const auto isForeign = [](char character) { return (character & 0x80) != 0; };
  return std::any_of(text.begin(), text.end(), isForeign) ? std::string_view() : text;
}

// The pad byte of an odd history counts as part of the chunk, on purpose.
std::uint64_t bextSize(std::string_view codingHistory) {
  const std::uint64_t text = ascii(codingHistory).size();
  return bext::kFixedSize + text + text % 2;
}

}  // namespace

BwfWriter::BwfWriter(const WaveFileReader* reader, const BextChunkInfo& bext, bool is24bit) {
  const WaveHeader source = reader == nullptr ? WaveHeader() : reader->header();
  appendU32(source.isLong() ? kRiffID : source.ChunkID);
  appendU32(0);
  appendU32(source.Format);
  appendU32(stringToInt32("JUNK"));
  appendU32(kJunkSize);
  appendField("", kJunkSize);
  appendBext(bext);
  appendFormat(source, is24bit);
  appendU32(stringToInt32("data"));
  _dataChunkSizePosition = static_cast<std::uint32_t>(_data.size());
  appendU32(0);
}

std::uint64_t BwfWriter::fileSize(std::string_view codingHistory, std::uint64_t sampleBytes) {
  return riff::kFirstChunk + riff::kChunkHeader + kJunkSize + riff::kChunkHeader +
         bextSize(codingHistory) + riff::kChunkHeader + kFormatSize + riff::kChunkHeader +
         sampleBytes;
}

std::uint32_t BwfWriter::stringToInt32(std::string_view text) {
  if (text.size() != 4) return 0;
  std::uint32_t value = 0;
  for (std::size_t i = 4; i > 0; --i) value = value << 8 | static_cast<unsigned char>(text[i - 1]);
  return value;
}

void BwfWriter::append(std::span<const std::byte> bytes) {
  _data.insert(_data.end(), bytes.begin(), bytes.end());
}

void BwfWriter::appendU16(std::uint16_t value) {
  append(std::as_bytes(std::span(&value, 1)));
}
void BwfWriter::appendU32(std::uint32_t value) {
  append(std::as_bytes(std::span(&value, 1)));
}
void BwfWriter::appendU64(std::uint64_t value) {
  append(std::as_bytes(std::span(&value, 1)));
}

void BwfWriter::appendField(std::string_view text, std::size_t width) {
  const std::string_view bytes = ascii(text).substr(0, width);
  append(std::as_bytes(std::span(bytes)));
  _data.resize(_data.size() + width - bytes.size(), std::byte{0});
}

void BwfWriter::appendBext(const BextChunkInfo& bext) {
  appendU32(stringToInt32("bext"));
  appendU32(static_cast<std::uint32_t>(bextSize(bext.CodingHistory)));
  appendField(bext.Description, bext::kDescription.size);
  appendField(bext.Originator, bext::kOriginator.size);
  appendField(bext.OriginatorReference, bext::kOriginatorReference.size);
  appendField(bext.OriginationDate(), bext::kOriginationDate.size);
  appendField(bext.OriginationTime(), bext::kOriginationTime.size);
  appendU64(static_cast<std::uint64_t>(bext.TimeReference));
  appendU16(bext.Version);
  appendField(bext.UniqueMaterialIdentifier, bext::kUniqueMaterialIdentifier.size);
  append(std::as_bytes(std::span(bext.Reserved.bytes, bext.Reserved.length)));
  const std::string_view history = ascii(bext.CodingHistory);
  appendField(history, history.size() + history.size() % 2);
}

void BwfWriter::appendFormat(const WaveHeader& source, bool is24bit) {
  const std::uint16_t bits = bitsPerSample(is24bit);
  const auto blockAlign = static_cast<std::uint16_t>(bits / 8 * source.NumChannels);
  _frameBytes = blockAlign;
  appendU32(stringToInt32("fmt "));
  appendU32(kFormatSize);
  appendU16(is24bit ? kFormatPCM : kFormatFloat);
  appendU16(source.NumChannels);
  appendU32(source.SampleRate);
  appendU32(blockAlign * source.SampleRate);
  appendU16(blockAlign);
  appendU16(bits);
  appendU16(0);  // no extension
}

bool BwfWriter::streamTo(const std::filesystem::path& path, AtomicFile::Existing existing,
                         std::uint64_t expectedSize) {
  _failure = whyNotStreamed();
  if (!_failure.empty()) return false;
  _stream = std::make_unique<AtomicFile>(path, existing);
  _streamPath = path;
  _data.reserve(kRoom);
  _streamed = 0;
  if (_stream->hasRoomFor(expectedSize)) _stream->expect(expectedSize);
  _sender = std::make_unique<BackgroundWriter>(
      [file = _stream.get()](std::span<const std::byte> bytes) { return file->write(bytes); });
  _failure = _stream->failure();
  return _failure.empty();
}

void BwfWriter::Write(const void* bytes, std::uint32_t count) {
  const std::span from(static_cast<const std::byte*>(bytes), count);
  std::copy(from.begin(), from.end(), extend(count).begin());
}

std::span<std::byte> BwfWriter::extend(std::uint32_t count) {
  if (_sender && _data.size() >= kStreamBlock) sendOut();
  _data.resize(_data.size() + count);
  _dataLength += count;
  return std::span(_data).last(count);
}

void BwfWriter::appendChunk(std::string_view identifier, std::span<const std::byte> bytes) {
  appendU32(stringToInt32(identifier));
  appendU32(static_cast<std::uint32_t>(bytes.size()));
  append(bytes);
}

// Whole blocks at whole multiples of their size: the system keeps those in the largest pieces.
void BwfWriter::sendOut() {
  const std::size_t whole = _data.size() - _data.size() % kStreamBlock;
  const std::span<const std::byte> rest = std::span(_data).subspan(whole);
  _rest.assign(rest.begin(), rest.end());
  _data.resize(whole);
  _streamed += whole;
  _sender->submit(_data);
  _data.reserve(kRoom);
  _data.insert(_data.end(), _rest.begin(), _rest.end());
  if (_sender->hasFailed()) finishSending();
}

void BwfWriter::finishSending() {
  if (_sender) _sender->finish();
  _sender.reset();
  if (_stream && _failure.empty()) _failure = _stream->failure();
}

void BwfWriter::patch(std::uint32_t position, std::span<const std::byte> bytes) {
  if (_streamed == 0) {
    std::copy(bytes.begin(), bytes.end(), _data.begin() + position);
  } else if (_stream) {
    _stream->writeAt(position, bytes);
  }
}

void BwfWriter::FixUpChunkSizes() {
  if (_isDisposed) return;
  finishSending();
  const std::uint64_t length = _streamed + _data.size();
  for (const auto& [position, bytes] :
       ChunkSizes::patches(length, _dataLength, _frameBytes, _dataChunkSizePosition)) {
    patch(position, bytes);
  }
}

std::string_view BwfWriter::whyNotStreamed() const {
  if (_isDisposed) return kDropped;
  return _dataLength > 0 ? "Sample bytes have been written already" : "";
}

std::string_view BwfWriter::whyNotSaved(const std::filesystem::path& path) const {
  if (_isDisposed) return kDropped;
  if (_streamPath.empty()) return "";
  if (!_stream) return "The file has been saved already";
  return path == _streamPath ? "" : "The file was written for another place";
}

bool BwfWriter::Save2File(const std::filesystem::path& path) {
  _failure = whyNotSaved(path);
  if (!_failure.empty()) return false;
  if (_streamPath.empty())
    _stream = std::make_unique<AtomicFile>(path, AtomicFile::Existing::Replace);
  finishSending();
  const bool saved = _stream->write(_data) && _stream->commit();
  _failure = _stream->failure();
  _stream.reset();
  return saved;
}

void BwfWriter::dispose() {
  _isDisposed = true;
  _data = {};
  _sender.reset();
  _stream.reset();
}
