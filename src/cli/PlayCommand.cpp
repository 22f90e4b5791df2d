// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "cli/PlayCommand.h"

#include <fmt/format.h>

#include <QCoreApplication>
#include <array>
#include <memory>
#include <utility>

#include "base/EB.h"
#include "base/Log.h"
#include "cli/NumberCheck.h"
#include "cli/PlaySession.h"
#include "cli/Problem.h"
#include "export/Export.h"
#include "playback/AudioBackends.h"
#include "playback/LimitedAudioFile.h"
#include "playback/system/SystemBackends.h"

namespace {

// Files seem to end at a time.
void endFilesAt(double seconds) {
  AudioBackends::addFile("limited", [seconds] {
    return std::make_unique<LimitedAudioFile>(AudioBackends::makeFile("wave"), seconds);
  });
  AudioBackends::chooseFile("limited");
}

}  // namespace

CLI::App* PlayCommand::declare(CLI::App& program) {
  CLI::App* command = program.add_subcommand("play", "Play a recording as it would be exported");
  command->add_option("--angle", _angle, "Stereo width in degrees; 0 is mono")
      ->check(realBetween(0, kMostAngle))
      ->capture_default_str();
  command->add_option("--gain", _gain, "Gain in whole dB; positive is louder")
      ->check(realBetween(-kMostGain, kMostGain))
      ->capture_default_str();
  command->add_option("--volume", _volume, "Volume of the output, linear; 1 leaves it as it is")
      ->check(realBetween(0, 1))
      ->capture_default_str();
  command->add_option("--from", _from, "Start in seconds")->check(realBetween(0, kMostSeconds));
  command->add_option("--to", _to, "End in seconds")->check(realBetween(0, kMostSeconds));
  command->add_option("FILE", _file, "Recording")->required();
  command->footer(
      "Keys: space pauses, left and right seek 5 s, up and down change the gain, [ and ] the "
      "width, q quits.");
  command->callback([this] {
    if (!(_from < _to)) throw CLI::ValidationError("--to", "lies before the start");
  });
  return command;
}

int PlayCommand::run() {
  const Export job(_file);
  if (!job.IsFileValid()) return fail(kFileNotSupported, job.failure());
  // The lines of the log would run into the time line.
  Log::setSink([](std::string_view) {});
  int argumentCount = 1;
  std::string name = "mixdeck-cli";
  std::array<char*, 2> arguments{name.data(), nullptr};
  const QCoreApplication application(argumentCount, arguments.data());
  EB::initData();
  SystemBackends::choose();
  if (_to < kMostSeconds) endFilesAt(_to);
  return play(std::make_shared<const WaveFileReader>(*job.reader()));
}

int PlayCommand::play(std::shared_ptr<const WaveFileReader> reader) const {
  PlaySession session(_file, std::move(reader));
  if (!session.readFailure().empty()) return fail(kFailToOpen, session.readFailure());
  session.set(WaveFileReader::wholeAngle(_angle), static_cast<int>(_gain), _volume);
  session.start(_from);
  const bool isPlayed = session.run();
  if (!session.readFailure().empty()) return fail("Cannot read on.", session.readFailure());
  return isPlayed ? kDone : kFailed;
}

int PlayCommand::fail(std::string_view text, std::string_view reason) const {
  fmt::print(stderr, "{}\n", problemLine(_file, text, reason));
  return kFailed;
}
