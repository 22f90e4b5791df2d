// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "cli/FileDescription.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <string_view>

#include "cli/Printable.h"
#include "cli/TimeText.h"
#include "cli/Utf8.h"
#include "export/Recognition.h"
#include "wav/BextLayout.h"

using nlohmann::ordered_json;

namespace {

constexpr std::size_t kLeastRun = 8;

std::string identifierText(std::uint32_t identifier) {
  const auto bytes = reinterpret_cast<const std::uint8_t*>(&identifier);
  return WaveFileReader::DecodeAsString(bytes, sizeof identifier);
}

ordered_json headerJson(const WaveHeader& header) {
  return {{"ChunkID", header.ChunkID},
          {"ChunkSize", header.ChunkSize},
          {"Format", header.Format},
          {"Subchunk1ID", header.Subchunk1ID},
          {"Subchunk1Size", header.Subchunk1Size},
          {"AudioFormat", header.AudioFormat},
          {"NumChannels", header.NumChannels},
          {"SampleRate", header.SampleRate},
          {"ByteRate", header.ByteRate},
          {"BlockAlign", header.BlockAlign},
          {"BitsPerSample", header.BitsPerSample},
          {"dataChunkPosition", header.dataChunkPosition},
          {"dataChunkLength", header.dataChunkLength},
          {"dataChunkEnd", header.dataChunkEnd}};
}

std::string field(const WavArray& chunk, BextField field) {
  return Utf8::textOf({chunk.bytes + field.offset, field.size});
}

template <class Value>
Value number(const WavArray& chunk, BextField field) {
  Value value;
  std::memcpy(&value, chunk.bytes + field.offset, sizeof value);
  return value;
}

// Two hexadecimal digits a byte; empty when every byte is 0.
std::string reservedText(const WavArray& chunk) {
  const std::uint8_t* const begin = chunk.bytes + bext::kReserved.offset;
  const std::uint8_t* const end = begin + bext::kReserved.size;
  if (std::all_of(begin, end, [](std::uint8_t byte) { return byte == 0; })) return "";
  std::string text;
  for (const std::uint8_t* byte = begin; byte != end; ++byte) text += fmt::format("{:02x}", *byte);
  return text;
}

// How many chunks with the same identifier and size follow this one.
std::size_t equalAfter(const std::vector<ChunkInfo>& chunks, std::size_t first) {
  std::size_t end = first + 1;
  while (end < chunks.size() && chunks[end].chunkID == chunks[first].chunkID &&
         chunks[end].chunkSize == chunks[first].chunkSize) {
    ++end;
  }
  return end - first - 1;
}

std::string_view encodingText(const WaveHeader& header) {
  constexpr std::uint16_t kFormatExtensible = 0xFFFE;
  switch (header.AudioFormat) {
    case kFormatPCM:
      return "integer PCM";
    case kFormatFloat:
      return "IEEE float";
    case kFormatExtensible:
      return "extensible";
    default:
      return "other";
  }
}

}  // namespace

FileDescription::FileDescription(const std::filesystem::path& path) {
  std::string whyNot;
  _reader = WaveFileReader::openFile(path, whyNot);
  const Recognition recognition = _reader ? Recognition(*_reader) : Recognition();
  _json["path"] = path.native();
  _json["valid"] = _reader && _reader->isValidFile();
  _json["recorder"] = recognition.isRecorder();
  _json["raw_ms"] = recognition.isRawMidSide();
  _json["reason"] = _reader ? recognition.whyNot() : whyNot;
  _json["header"] = headerJson(_reader ? _reader->header() : WaveHeader());
  _json["chunks"] = ordered_json::array();
  _json["bext"] = nullptr;
  if (_reader) {
    describeChunks();
    describeBext();
  }
  _json["duration_seconds"] = _reader ? _reader->durationSeconds() : 0.0;
  _json["frames"] = _reader ? _reader->frameCount() : 0;
  _json["sample_rate"] = _reader ? _reader->header().SampleRate : 0;
}

void FileDescription::describeChunks() {
  for (const ChunkInfo& chunk : _reader->chunks()) {
    _json["chunks"].push_back({{"id", identifierText(chunk.chunkID)},
                               {"position", chunk.streamPos},
                               {"size", chunk.chunkSize}});
  }
}

void FileDescription::describeBext() {
  const auto chunk = _reader->getBextChunk();
  if (!chunk) return;
  const WavArray data = _reader->getChunkData(*chunk, bext::kMostUsed);
  if (data.length < bext::kFixedSize) return;
  _json["bext"] = {
      {"Description", field(data, bext::kDescription)},
      {"Originator", field(data, bext::kOriginator)},
      {"OriginatorReference", field(data, bext::kOriginatorReference)},
      {"OriginationDate", field(data, bext::kOriginationDate)},
      {"OriginationTime", field(data, bext::kOriginationTime)},
      {"TimeReference", number<std::int64_t>(data, bext::kTimeReference)},
      {"Version", number<std::uint16_t>(data, bext::kVersion)},
      {"UniqueMaterialIdentifier", field(data, bext::kUniqueMaterialIdentifier)},
      {"Reserved", reservedText(data)},
      {"CodingHistory", Utf8::textOf({data.bytes + bext::kFixedSize,
                                      static_cast<std::size_t>(data.length - bext::kFixedSize)})}};
}

std::string FileDescription::text() const {
  const std::string path = printable(_json["path"].get<std::string>());
  if (!_reader) return "";
  const auto yesNo = [this](const char* key) { return _json[key].get<bool>() ? "yes" : "no"; };
  const WaveHeader& header = _reader->header();
  std::string text = fmt::format("{}\n  WAVE file: {}   of the recorder: {}   raw M/S: {}\n", path,
                                 yesNo("valid"), yesNo("recorder"), yesNo("raw_ms"));
  text += fmt::format("  {} channels, {} Hz, {}-bit {}, {}\n", header.NumChannels,
                      header.SampleRate, header.BitsPerSample, encodingText(header),
                      TimeText::of(_reader->durationSeconds()));
  if (header.isLong())
    text += fmt::format("  {}, with 64-bit sizes\n", identifierText(header.ChunkID));
  const std::string warning = isRecording() ? audioWarning(*_reader) : "";
  if (!warning.empty()) text += fmt::format("  {}\n", warning);
  text += chunkLines();
  for (const auto& [name, value] : _json["bext"].items()) {
    const std::string shown = value.is_string() ? value.get<std::string>() : value.dump();
    text += fmt::format("  {}: {}\n", name, printable(shown));
  }
  return text;
}

// A line a chunk; zeros where chunks should be are thousands of empty ones, which share a line.
std::string FileDescription::chunkLines() const {
  std::string lines;
  const std::vector<ChunkInfo>& chunks = _reader->chunks();
  for (std::size_t i = 0; i < chunks.size(); ++i) {
    lines += fmt::format("  chunk {}  at {:>10}  {:>10} bytes",
                         printable(identifierText(chunks[i].chunkID)), chunks[i].streamPos,
                         chunks[i].chunkSize);
    const std::size_t more = equalAfter(chunks, i);
    const bool isRun = chunks[i].chunkSize == 0 && more >= kLeastRun;
    if (isRun) i += more;
    lines += isRun ? fmt::format(", and {} more of it\n", more) : "\n";
  }
  return lines;
}

std::string FileDescription::audioWarning(const WaveFileReader& reader) {
  const WaveHeader& header = reader.header();
  if (header.NumChannels != 2 || !header.hasSound()) {
    return fmt::format(
        "{} channels of {}-bit samples with format tag {} do not decode to useful sound; the "
        "recorder writes 2 channels, 24-bit integer or 32-bit float (tag 3)",
        header.NumChannels, header.BitsPerSample, header.AudioFormat);
  }
  const std::uint64_t held =
      reader.image()->size() -
      std::min<std::uint64_t>(header.dataChunkPosition, reader.image()->size());
  if (reader.frameCount() == 0) {
    return fmt::format("No audio: the data chunk states {} bytes, the file holds {} after it",
                       header.dataChunkLength, held);
  }
  if (header.dataChunkLength <= held) return "";
  return fmt::format("Cut short: the data chunk states {} bytes, the file holds {}",
                     header.dataChunkLength, held);
}
