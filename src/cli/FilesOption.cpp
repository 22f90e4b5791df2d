// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "cli/FilesOption.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <system_error>

#include "cli/Command.h"
#include "cli/Interrupt.h"
#include "cli/NotEmpty.h"
#include "cli/Problem.h"
#include "cli/ProblemAdvice.h"
#include "cli/Streams.h"

namespace {

constexpr std::size_t kBlock = 65536;

// Empty where all could be read, else why not.
std::string readAll(int file, std::string& text) {
  std::array<char, kBlock> block{};
  while (!Interrupt::requested()) {
    const ssize_t count = read(file, block.data(), block.size());
    if (count == 0) return "";
    if (count < 0 && errno != EINTR) return std::generic_category().message(errno);
    if (count > 0) text.append(block.data(), static_cast<std::size_t>(count));
    if (text.size() > FilesOption::kLongestList) return "The list is longer than 64 MiB";
  }
  return "The list was interrupted";
}

std::string openAndRead(const std::filesystem::path& path, std::string& text) {
  const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (file < 0) return std::generic_category().message(errno);
  std::string failure = readAll(file, text);
  close(file);
  return failure;
}

}  // namespace

void FilesOption::add(CLI::App& command, Files& files, const std::string& what) {
  _words = command.add_option("FILE", files, what)->type_name("");
  _option = command
                .add_option("--files-from", _list,
                            "A file with the names of more of them, one a line or between NUL "
                            "bytes; - is standard input")
                ->type_name("LIST");
}

void FilesOption::complete(Files& files) const {
  refuseNothing(_option, _list);
  for (const std::filesystem::path& file : files) refuseNothing(_words, file);
  if (!_list.empty()) {
    for (std::filesystem::path& name : namesIn(readList())) files.push_back(std::move(name));
  }
  if (!files.empty()) return;
  if (!_list.empty()) throw CLI::ValidationError("--files-from", "names no file");
  throw CLI::ValidationError("FILE", "is required; --files-from takes names from a list");
}

std::string FilesOption::readList() const {
  std::string text;
  const bool isInput = _list == "-";
  const std::string failure = isInput ? readAll(STDIN_FILENO, text) : openAndRead(_list, text);
  if (failure.empty()) return text;
  Streams::err(problemLine(isInput ? "standard input" : _list, kFailToOpen,
                           ProblemAdvice::onOpening(failure)) +
               "\n");
  throw CLI::RuntimeError(Command::kFailed);
}

FilesOption::Files FilesOption::namesIn(std::string_view list) {
  const char end = list.find('\0') == std::string_view::npos ? '\n' : '\0';
  Files names;
  for (std::size_t from = 0; from < list.size();) {
    const std::size_t to = std::min(list.find(end, from), list.size());
    if (to > from) names.emplace_back(list.substr(from, to - from));
    from = to + 1;
  }
  return names;
}
