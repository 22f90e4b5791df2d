// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "export/Export.h"

/// The texts that the system has for what goes wrong with a file.
inline constexpr std::string_view kFileNotSupported = "File not supported.";
inline constexpr std::string_view kFailToSave = "Fail to save.";
inline constexpr std::string_view kFailToOpen = "Fail to open.";
/// What stands in their place where nothing fails.
inline constexpr std::string_view kWarning = "Warning:";
/// What is said after an interrupt, a line for standard error.
inline constexpr const char* kCancelled = "mixdeck-cli: cancelled";

/// One line for standard error: the path, what went wrong (in colour where that is wanted), and
/// why.
std::string problemLine(const std::filesystem::path& path, std::string_view text,
                        std::string_view reason);

/// The same of a recording, with what to do about it; where it is a folder, with the way to name
/// those in it.
std::string sourceProblem(const std::filesystem::path& path, std::string_view text,
                          std::string_view reason);
/// The same of a job whose file is not valid: whether it cannot be read, or is not supported.
std::string sourceProblem(const Export& job);

/// The same of a file that cannot be saved, with what to do about it; `elsewhere` says how another
/// place is chosen, as "name another folder with --output-dir".
std::string targetProblem(const std::filesystem::path& path, std::string_view reason,
                          std::string_view elsewhere);
