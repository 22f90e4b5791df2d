// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <CLI/CLI.hpp>
#include <QCoreApplication>
#include <cstdio>
#include <exception>
#include <string>

#include "base/Version.h"
#include "manual/ProgramWords.h"
#include "recorder-sim/RecorderProgram.h"

namespace {

constexpr int kFailed = 1;
constexpr int kUsage = 2;

constexpr const char* kFooter =
    "WORDs: firmware=X.YZ battery=N auto-power-off=N remaining=HH:MM:SS card=USED/CAPACITY\n"
    "(in bytes) no-card, and FAULT@REQUEST: silent, slow, wrong-length, long-identity, garbage,\n"
    "split, merged, interleaved or disappear, at identity, start, version, card, battery,\n"
    "auto-power-off, date-time, set-battery or set-auto-power-off.\n"
    "\n"
    "Lines that are typed change it while it runs: a WORD, behave, report (an unsolicited card\n"
    "report), unplug, plug, send BYTES (hexadecimal), quit.\n"
    "\n"
    "Exit status: 0 done; 1 no sequencer; 2 wrong usage.";

void declare(CLI::App& program, RecorderOptions& options) {
  auto* name = program.add_option("--name", options.portName, "The port's name")
                   ->type_name("NAME")
                   ->capture_default_str();
  auto* whole = program.add_flag("--whole", options.sendsWhole,
                                 "Send what goes out at once as one event, however long");
  auto* device = program
                     .add_option("--device", options.device,
                                 "Serve a raw MIDI device file instead, whenever it is there")
                     ->type_name("FILE");
  device->excludes(name)->excludes(whole);
  program.add_flag("--ump", options.hasWords, "The file carries Universal MIDI Packets")
      ->needs(device);
  program.add_option("--report-every", options.reportEvery, "Send a card report every S seconds")
      ->type_name("S")
      ->check(CLI::PositiveNumber);
  program.add_flag("--log", options.logs, "Print every message as a line of JSON");
  program.add_option("WORD", options.words, "What the recorder is, and how it goes wrong")
      ->type_name("")
      ->check(CLI::Validator(&RecorderProgram::checkWord, ""));
  program.footer(kFooter);
}

// The toolkit sets the locale, in which 1.5 may be no number: the options are read before.
int run(int argc, char** argv, const RecorderOptions& options) {
  const QCoreApplication application(argc, argv);
  RecorderProgram recorder(options);
  const std::string problem = recorder.start();
  if (problem.empty()) return QCoreApplication::exec();
  std::fprintf(stderr, "mixdeck-recorder-sim: %s\n", problem.c_str());
  return kFailed;
}

int runProgram(int argc, char** argv) {
  CLI::App program("A simulated recorder for the ALSA sequencer, for those without the hardware.",
                   "mixdeck-recorder-sim");
  program.set_version_flag("--version", std::string("mixdeck-recorder-sim ") + kFullVersion);
  RecorderOptions options;
  declare(program, options);
  if (ProgramWords::areAskedFor(argc, argv)) {
    std::puts(ProgramWords::json(program, kFullVersion).c_str());
    return 0;
  }
  try {
    program.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return program.exit(error) == 0 ? 0 : kUsage;
  }
  return run(argc, argv, options);
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return runProgram(argc, argv);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "mixdeck-recorder-sim: %s\n", error.what());
  }
  return kFailed;
}
