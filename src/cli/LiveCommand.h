// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

#include "cli/Command.h"

/// A command that plays or speaks to a recorder. It is carried out by `mixdeck-cli-live`, a program
/// beside this one, which is handed the whole command line and takes the place of this one: the
/// tool itself does without the libraries for sound and MIDI, so that it starts quickly.
class LiveCommand : public Command {
 public:
  struct Words {
    const char* name;
    const char* description;
  };
  static constexpr const char* kProgram = "mixdeck-cli-live";
  static constexpr Words kPlay{"play", "Play a recording as it would be exported"};
  static constexpr Words kDevice{"device",
                                 "Ask a recorder that is attached, and change its settings"};

  /// `arguments` are those of `main`.
  LiveCommand(const Words& words, char** arguments) : _words(words), _arguments(arguments) {}

  /// Whether the first word of a command line is one of these, or asks what their words are.
  static bool isMeant(std::string_view word);
  /// Returns only where the program cannot be started, with the exit status; that has been said.
  static int handOver(char** arguments);

  /// Its name and what it is, for the list of commands; its options are the other program's.
  CLI::App* declare(CLI::App& program) override;
  int run() override { return handOver(_arguments); }

 private:
  Words _words;
  char** _arguments;
};
