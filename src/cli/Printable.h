// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

/// UTF-8 text out of a file or file name made safe for a terminal: each control character, and each
/// byte that is no UTF-8, as "\xNN", "\r" or "\n", everything else as it is.
std::string printable(std::string_view text);
