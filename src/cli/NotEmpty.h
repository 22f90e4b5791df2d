// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CLI/CLI.hpp>
#include <filesystem>

/// An option that was given nothing, as an unset variable gives it, would count as one that was not
/// given. Throws a CLI::ValidationError; for the callback of the command.
void refuseNothing(const CLI::Option* option, const std::filesystem::path& path);
