// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <vector>

#include "wav/WaveImage.h"

inline constexpr std::size_t kMegabyte = 1 << 20;

/// A byte that tells its place in a file: no period that a block could have.
std::byte numberedByte(std::uint64_t offset);
std::vector<std::byte> numberedBytes(std::size_t count, std::uint64_t firstOffset = 0);

/// The image of the file, not loading yet.
std::shared_ptr<WaveImage> imageOf(const std::filesystem::path& path);

/// Makes every later read through the descriptor that this process has open on the file fail.
void makeUnreadable(const std::filesystem::path& path);
