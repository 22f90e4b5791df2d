// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

/// The texts that the system has for what goes wrong with a file.
inline constexpr std::string_view kFileNotSupported = "File not supported.";
inline constexpr std::string_view kFailToSave = "Fail to save.";
inline constexpr std::string_view kFailToOpen = "Fail to open.";

/// One line for standard error: the path, what went wrong, and why.
std::string problemLine(const std::filesystem::path& path, std::string_view text,
                        std::string_view reason);
