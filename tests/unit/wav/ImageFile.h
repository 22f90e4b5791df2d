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

/// The image of the file, not followed yet.
std::shared_ptr<WaveImage> imageOf(const std::filesystem::path& path);

/// Follows the offset until the bytes from there up to `end` are at hand; false when reading
/// failed.
bool comesToHand(WaveImage& image, std::uint64_t offset, std::uint64_t end);
/// The bytes from the offset on that are at hand, at most `count`.
std::vector<std::byte> heldAt(const WaveImage& image, std::uint64_t offset, std::size_t count);

/// True while this process has the file open.
bool isOpen(const std::filesystem::path& path);

/// Makes every later read through the descriptor that this process has open on the file fail.
void makeUnreadable(const std::filesystem::path& path);
/// Undoes that.
void makeReadable(const std::filesystem::path& path);
