// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "cli/Problem.h"

#include <fmt/format.h>

#include <system_error>

#include "cli/Emphasis.h"
#include "cli/Printable.h"
#include "cli/ProblemAdvice.h"

std::string problemLine(const std::filesystem::path& path, std::string_view text,
                        std::string_view reason) {
  const auto kind = text == kWarning ? Emphasis::Kind::Warning : Emphasis::Kind::Failure;
  return fmt::format("mixdeck-cli: {}: {} {}", printable(path.native()), Emphasis::of(text, kind),
                     printable(reason));
}

std::string sourceProblem(const std::filesystem::path& path, std::string_view text,
                          std::string_view reason) {
  std::error_code error;
  if (text == kFileNotSupported) return problemLine(path, text, ProblemAdvice::onKind(reason));
  if (!std::filesystem::is_directory(path, error)) {
    return problemLine(path, text, ProblemAdvice::onOpening(reason));
  }
  const std::string inside = (path / "*.WAV").native();
  return problemLine(path, text, fmt::format("{}; name recordings, as {}", reason, inside));
}

std::string sourceProblem(const Export& job) {
  return sourceProblem(job.getFilePath(), job.reader() ? kFileNotSupported : kFailToOpen,
                       job.failure());
}

std::string targetProblem(const std::filesystem::path& path, std::string_view reason,
                          std::string_view elsewhere) {
  return problemLine(path, kFailToSave, ProblemAdvice::onSaving(reason, elsewhere));
}
