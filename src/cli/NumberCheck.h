// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CLI/CLI.hpp>

/// Accepts a finite real number from `least` to `most`, both included; not "nan".
CLI::Validator realBetween(double least, double most);
