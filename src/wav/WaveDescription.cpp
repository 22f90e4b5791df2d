// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "wav/WaveDescription.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstring>
#include <utility>

#include "wav/BextLayout.h"
#include "wav/Utf8.h"

namespace {

constexpr std::size_t kLeastRun = 8;

std::string text(const WavArray& chunk, BextField field) {
  return Utf8::textOf({chunk.bytes + field.offset, field.size});
}

template <class Value>
std::int64_t number(const WavArray& chunk, BextField field) {
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

}  // namespace

std::string WaveDescription::identifierText(std::uint32_t identifier) {
  const auto bytes = reinterpret_cast<const std::uint8_t*>(&identifier);
  return WaveFileReader::DecodeAsString(bytes, sizeof identifier);
}

std::vector<WaveDescription::Chunk> WaveDescription::chunks(const WaveFileReader& reader) {
  std::vector<Chunk> lines;
  const std::vector<ChunkInfo>& all = reader.chunks();
  for (std::size_t i = 0; i < all.size(); ++i) {
    Chunk chunk{identifierText(all[i].chunkID), all[i].streamPos, all[i].chunkSize, 0};
    const std::size_t more = equalAfter(all, i);
    if (chunk.size == 0 && more >= kLeastRun) chunk.more = more;
    i += chunk.more;
    lines.push_back(std::move(chunk));
  }
  return lines;
}

std::vector<WaveDescription::Field> WaveDescription::bext(const WaveFileReader& reader) {
  const auto chunk = reader.getBextChunk();
  if (!chunk) return {};
  const WavArray data = reader.getChunkData(*chunk, bext::kMostUsed);
  if (data.length < bext::kFixedSize) return {};
  return {
      {"Description", text(data, bext::kDescription)},
      {"Originator", text(data, bext::kOriginator)},
      {"OriginatorReference", text(data, bext::kOriginatorReference)},
      {"OriginationDate", text(data, bext::kOriginationDate)},
      {"OriginationTime", text(data, bext::kOriginationTime)},
      {"TimeReference", number<std::int64_t>(data, bext::kTimeReference)},
      {"Version", number<std::uint16_t>(data, bext::kVersion)},
      {"UniqueMaterialIdentifier", text(data, bext::kUniqueMaterialIdentifier)},
      {"Reserved", reservedText(data)},
      {"CodingHistory", Utf8::textOf({data.bytes + bext::kFixedSize,
                                      static_cast<std::size_t>(data.length - bext::kFixedSize)})}};
}

std::string_view WaveDescription::encoding(const WaveHeader& header) {
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

std::string WaveDescription::audioWarning(const WaveFileReader& reader) {
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
