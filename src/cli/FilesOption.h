// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CLI/CLI.hpp>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

/// The files that a command works on: the words FILE..., and after them those that a list names
/// (`--files-from`, where "-" is standard input). Main thread.
class FilesOption {
 public:
  using Files = std::vector<std::filesystem::path>;

  /// Longer lists than this many bytes are refused.
  static constexpr std::size_t kLongestList = std::size_t{64} << 20U;

  /// Adds both to the command; `what` says what kind of files.
  void add(CLI::App& command, Files& files, const std::string& what);
  /// Puts what the list names behind `files`; for the callback of the command. Throws what ends the
  /// parsing: a CLI::ValidationError where there is no file in the end, and after having said why
  /// a CLI::RuntimeError where the list cannot be read.
  void complete(Files& files) const;

  /// The names in a list: between NUL bytes where it has one, else a line each. Empty ones are
  /// none.
  static Files namesIn(std::string_view list);

 private:
  [[nodiscard]] std::string readList() const;

  std::filesystem::path _list;
  const CLI::Option* _words = nullptr;
  const CLI::Option* _option = nullptr;
};
