// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "cli/PngPicture.h"

#include <spawn.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <system_error>

#include "cli/ProgramBeside.h"

namespace {

constexpr const char* kProgram = "mixdeck-plot-png";

std::string textOf(int error) {
  return std::generic_category().message(error);
}

/// Bytes that another process reads or writes as a file.
class SharedBytes {
 public:
  SharedBytes() : _file(memfd_create(kProgram, MFD_CLOEXEC)) {}
  SharedBytes(const SharedBytes&) = delete;
  SharedBytes& operator=(const SharedBytes&) = delete;
  ~SharedBytes() {
    if (_file >= 0) close(_file);
  }

  [[nodiscard]] int file() const { return _file; }

  [[nodiscard]] bool set(const std::string& text) const {
    const bool isThere =
        pwrite(_file, text.data(), text.size(), 0) == static_cast<ssize_t>(text.size());
    return isThere && lseek(_file, 0, SEEK_SET) == 0;
  }

  [[nodiscard]] std::vector<std::byte> get() const {
    std::vector<std::byte> bytes(
        static_cast<std::size_t>(std::max<off_t>(0, lseek(_file, 0, SEEK_END))));
    const ssize_t got = pread(_file, bytes.data(), bytes.size(), 0);
    bytes.resize(got > 0 ? static_cast<std::size_t>(got) : 0);
    return bytes;
  }

 private:
  int _file;
};

// Runs it to its end; the reason where that was not a good one.
std::string run(int input, int output) {
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, input, STDIN_FILENO);
  posix_spawn_file_actions_adddup2(&actions, output, STDOUT_FILENO);
  std::string path = ProgramBeside::path(kProgram);
  const std::array<char*, 2> arguments{path.data(), nullptr};
  pid_t child = 0;
  const int error = posix_spawn(&child, path.c_str(), &actions, nullptr, arguments.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  if (error != 0) return path + ": " + textOf(error);
  int status = 0;
  while (waitpid(child, &status, 0) < 0 && errno == EINTR) continue;
  return status == 0 ? "" : path + " could not draw it";
}

}  // namespace

PngPicture::PngPicture(const std::string& svg) {
  const SharedBytes input;
  const SharedBytes output;
  if (input.file() < 0 || output.file() < 0 || !input.set(svg)) {
    _failure = textOf(errno);
    return;
  }
  _failure = run(input.file(), output.file());
  if (_failure.empty()) _bytes = output.get();
}
