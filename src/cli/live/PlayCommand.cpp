// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "cli/live/PlayCommand.h"

#include <QCoreApplication>
#include <array>
#include <memory>
#include <utility>

#include "base/EB.h"
#include "base/Log.h"
#include "cli/Interrupt.h"
#include "cli/LiveCommand.h"
#include "cli/NotEmpty.h"
#include "cli/NumberCheck.h"
#include "cli/Problem.h"
#include "cli/Streams.h"
#include "cli/WidthOption.h"
#include "cli/live/PlaySession.h"
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
  CLI::App* command =
      program.add_subcommand(LiveCommand::kPlay.name, LiveCommand::kPlay.description);
  WidthOption::add(*command, _angle);
  command->add_option("--gain", _gain, "Gain in whole dB; positive is louder")
      ->type_name("DB")
      ->check(wholeBetween(-kMostGain, kMostGain))
      ->capture_default_str();
  command->add_option("--volume", _volume, "Volume of the output, linear; 1 leaves it as it is")
      ->type_name("V")
      ->check(realBetween(0, 1))
      ->capture_default_str();
  _stretch.add(*command, StretchOption::Needs::Nothing);
  auto* file = command->add_option("FILE", _file, "Recording")->required()->type_name("");
  command->footer(
      "Keys: space pauses, left and right seek 5 s, up and down change the gain, [ and ] the "
      "width, q quits.");
  command->callback([this, file] {
    refuseNothing(file, _file);
    _stretch.check();
    if (_stretch.to() && *_stretch.to() <= _stretch.from()) {
      throw CLI::ValidationError("--to", "is not after --from");
    }
  });
  return command;
}

int PlayCommand::run() {
  const Export job(_file);
  if (!job.IsFileValid()) {
    Streams::err(sourceProblem(job) + "\n");
    return kFailed;
  }
  const std::string reason = _stretch.whyNot(*job.reader());
  if (!reason.empty()) return fail("No such stretch.", reason);
  warn(*job.reader());
  // The lines of the log would run into the time line.
  Log::setSink([](std::string_view) {});
  int argumentCount = 1;
  std::string name = "mixdeck-cli";
  std::array<char*, 2> arguments{name.data(), nullptr};
  const QCoreApplication application(argumentCount, arguments.data());
  EB::initData();
  SystemBackends::choose();
  if (_stretch.to()) endFilesAt(*_stretch.to());
  return play(std::make_shared<const WaveFileReader>(*job.reader()));
}

int PlayCommand::play(std::shared_ptr<const WaveFileReader> reader) const {
  PlaySession session(_file, std::move(reader));
  if (!session.readFailure().empty()) return fail(kFailToOpen, session.readFailure());
  const int angle = WaveFileReader::wholeAngle(WidthOption::valueOf(_angle));
  session.set(angle, static_cast<int>(_gain), _volume);
  session.start(_stretch.from());
  const bool isPlayed = session.run();
  if (!session.readFailure().empty()) {
    return fail(session.hasReachedEnd() ? "Played to its end." : "Cannot read on.",
                session.readFailure());
  }
  if (Interrupt::requested()) return Interrupt::status();
  return isPlayed ? kDone : kFailed;
}

void PlayCommand::warn(const WaveFileReader& reader) const {
  const auto say = [](const std::string& line) {
    if (!line.empty()) Streams::err(line + "\n");
  };
  say(WidthOption::note(_angle));
  const std::string width = WidthOption::warning(_angle, reader);
  if (!width.empty()) say(problemLine(_file, kWarning, width));
}

int PlayCommand::fail(std::string_view text, std::string_view reason) const {
  Streams::err(problemLine(_file, text, reason) + "\n");
  return kFailed;
}
