// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "export/AtomicFile.h"
#include "support/ByteBuilder.h"

inline constexpr auto kReplace = AtomicFile::Existing::Replace;
inline constexpr auto kRefuse = AtomicFile::Existing::Refuse;

inline std::vector<std::byte> bytesOf(std::string_view text) {
  return ByteBuilder().text(text).get();
}

/// Saves the bytes; the reason for a failure, or nothing.
inline std::string save(const std::filesystem::path& path, const std::vector<std::byte>& bytes,
                        AtomicFile::Existing existing = kReplace) {
  AtomicFile file(path, existing);
  const bool saved = file.write(bytes) && file.commit();
  EXPECT_EQ(saved, file.failure().empty());
  return saved ? "" : file.failure().empty() ? "no reason given" : file.failure();
}
