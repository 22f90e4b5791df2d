// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "cli/DemoCommand.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "cli/DemoScene.h"
#include "cli/Interrupt.h"
#include "cli/NotEmpty.h"
#include "cli/OutputFolder.h"
#include "cli/Printable.h"
#include "cli/Problem.h"
#include "cli/Streams.h"
#include "dsp/Kernels.h"
#include "dsp/MidSideDecoder.h"
#include "dsp/SideGain.h"
#include "export/BwfWriter.h"
#include "export/Recognition.h"

namespace fs = std::filesystem;

namespace {

struct Recording {
  const char* name;
  const char* description;
  bool is24bit;
  bool isRaw;
};

constexpr std::array kRecordings{
    Recording{"R0001.WAV", "Mixdeck demo: a bell walks from left to right, raw M/S", true, true},
    Recording{"R0002.WAV", "Mixdeck demo: the same walk in 32-bit float, raw M/S", false, true},
    Recording{"R0003.WAV", "Mixdeck demo: the same walk as plain left and right", true, false},
};

constexpr std::string_view kElsewhere = "name another folder with --output-dir";
constexpr std::size_t kFloatsAtOnce = 9600;

// What the recorder's header has in common with an export's: two channels and the rate.
std::unique_ptr<WaveFileReader> blankRecording() {
  struct Bytes {
    std::array<std::uint32_t, 3> riff{kRiffID, 40, kWaveID};
    std::array<std::uint32_t, 2> format{kFmtID, 16};
    std::array<std::uint16_t, 2> tagAndChannels{kFormatPCM, 2};
    std::array<std::uint32_t, 2> rates{DemoScene::kRate, 6 * DemoScene::kRate};
    std::array<std::uint16_t, 2> alignAndBits{6, 24};
    std::array<std::uint32_t, 2> data{kDataID, 0};
    std::uint32_t filler = 0;
  };
  const Bytes bytes;
  return WaveFileReader::readFromData(std::as_bytes(std::span(&bytes, 1)));
}

BextChunkInfo extensionOf(const Recording& recording) {
  BextChunkInfo info;
  info.Description = recording.description;
  info.Originator = Recognition::kRecorder;
  info.OriginatorReference = fmt::format("DEMO{}", recording.name).substr(0, 9);
  info.CodingHistory =
      Recognition::codingHistory(BwfWriter::bitsPerSample(recording.is24bit), recording.isRaw);
  return info;
}

void writeSamples(const Recording& recording, BwfWriter& writer) {
  DemoScene scene;
  std::vector<float> block(kFloatsAtOnce);
  std::vector<std::byte> packed(3 * kFloatsAtOnce);
  for (std::uint64_t left = 2 * DemoScene::kFrames; left > 0; left -= block.size()) {
    block.resize(std::min<std::uint64_t>(left, kFloatsAtOnce));
    scene.fill(block);
    if (!recording.isRaw) MidSideDecoder::decode(block, SideGain::kUnityAngle);
    if (!recording.is24bit) {
      writer.Write(block.data(), static_cast<std::uint32_t>(4 * block.size()));
      continue;
    }
    packed.resize(3 * block.size());
    Kernels::pack24(block, packed);
    writer.Write(packed.data(), static_cast<std::uint32_t>(packed.size()));
  }
}

// Empty when the file is there in the end, else why not.
std::string write(const Recording& recording, const fs::path& path) {
  const auto blank = blankRecording();
  const BextChunkInfo info = extensionOf(recording);
  BwfWriter writer(blank.get(), info, recording.is24bit);
  if (!writer.streamTo(path, AtomicFile::Existing::Refuse, 0)) return writer.failure();
  writeSamples(recording, writer);
  writer.FixUpChunkSizes();
  return writer.Save2File(path) ? "" : writer.failure();
}

}  // namespace

CLI::App* DemoCommand::declare(CLI::App& program) {
  CLI::App* command = program.add_subcommand("demo", "Write recordings to try things on");
  auto* folder =
      command->add_option("--output-dir", _folder, "The folder, made where it is missing")
          ->type_name("FOLDER")
          ->capture_default_str();
  command->callback([this, folder] { refuseNothing(folder, _folder); });
  command->add_flag("--quiet", _isQuiet, "Tell only what goes wrong");
  return command;
}

void DemoCommand::tell(const std::string& text) const {
  if (!_isQuiet) Streams::out(text);
}

// Where all are there already, it does not matter whether more could be written.
bool DemoCommand::isAllThere() const {
  return std::all_of(kRecordings.begin(), kRecordings.end(), [this](const Recording& recording) {
    std::error_code error;
    return fs::exists(_folder / recording.name, error);
  });
}

int DemoCommand::run() {
  const std::string reason = isAllThere() ? "" : OutputFolder::make(_folder);
  if (!reason.empty()) {
    Streams::err(targetProblem(_folder, reason, kElsewhere) + "\n");
    return kFailed;
  }
  std::error_code error;
  int status = kDone;
  for (const Recording& recording : kRecordings) {
    const fs::path path = _folder / recording.name;
    if (fs::exists(path, error)) {
      tell(printable(path.native()) + " is there already\n");
      continue;
    }
    const std::string whyNot = Interrupt::requested() ? "cancelled" : write(recording, path);
    if (whyNot.empty()) {
      tell(fmt::format("{}: {}\n", printable(path.native()), recording.description));
    } else {
      Streams::err(targetProblem(path, whyNot, kElsewhere) + "\n");
      status = kFailed;
    }
  }
  return status;
}
