// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "cli/FileDescription.h"

#include <fmt/format.h>

#include <memory>
#include <variant>

#include "cli/Printable.h"
#include "cli/TimeText.h"
#include "export/Recognition.h"
#include "wav/WaveDescription.h"

using nlohmann::ordered_json;

namespace {

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
  const std::string told = warning();
  _json["warning"] = told.empty() ? ordered_json() : ordered_json(told);
}

// What is no recording of the recorder has a reason in its place.
std::string FileDescription::warning() const {
  return isReadable() && isRecording() ? audioWarning(*_reader) : "";
}

void FileDescription::describeChunks() {
  for (const ChunkInfo& chunk : _reader->chunks()) {
    _json["chunks"].push_back({{"id", WaveDescription::identifierText(chunk.chunkID)},
                               {"position", chunk.streamPos},
                               {"size", chunk.chunkSize}});
  }
}

void FileDescription::describeBext() {
  for (const auto& [name, value] : WaveDescription::bext(*_reader)) {
    ordered_json& field = _json["bext"][std::string(name)];
    std::visit([&field](const auto& it) { field = it; }, value);
  }
}

std::string FileDescription::text() const {
  const std::string path = printable(_json["path"].get<std::string>());
  if (!_reader) return "";
  const auto yesNo = [this](const char* key) { return _json[key].get<bool>() ? "yes" : "no"; };
  const WaveHeader& header = _reader->header();
  std::string text = fmt::format("{}\n  WAVE file: {}   of the recorder: {}   raw M/S: {}\n", path,
                                 yesNo("valid"), yesNo("recorder"), yesNo("raw_ms"));
  text += fmt::format("  {} channels, {} Hz, {}-bit {}, {}\n", header.NumChannels,
                      header.SampleRate, header.BitsPerSample, WaveDescription::encoding(header),
                      TimeText::of(_reader->durationSeconds()));
  if (header.isLong())
    text +=
        fmt::format("  {}, with 64-bit sizes\n", WaveDescription::identifierText(header.ChunkID));
  const auto& told = _json["warning"];
  if (told.is_string()) text += fmt::format("  {}\n", told.get<std::string>());
  text += chunkLines();
  for (const auto& [name, value] : _json["bext"].items()) {
    const std::string shown = value.is_string() ? value.get<std::string>() : value.dump();
    text += fmt::format("  {}: {}\n", name, printable(shown));
  }
  return text;
}

// A line a chunk.
std::string FileDescription::chunkLines() const {
  std::string lines;
  for (const WaveDescription::Chunk& chunk : WaveDescription::chunks(*_reader)) {
    lines += fmt::format("  chunk {}  at {:>10}  {:>10} bytes", printable(chunk.identifier),
                         chunk.position, chunk.size);
    lines += chunk.more > 0 ? fmt::format(", and {} more of it\n", chunk.more) : "\n";
  }
  return lines;
}

std::string FileDescription::audioWarning(const WaveFileReader& reader) {
  return WaveDescription::audioWarning(reader);
}

// Sound that broke off, unlike samples of a kind that the recorder does not write, can be salvaged.
std::string FileDescription::audioAdvice(const WaveFileReader& reader) {
  std::string warning = audioWarning(reader);
  const bool isKnownKind = reader.header().NumChannels == 2 && reader.header().hasSound();
  if (warning.empty() || !isKnownKind) return warning;
  return warning + "; mixdeck-cli repair salvages what there is";
}
