// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>
#include <vector>

/// What is exported where, settled before any work begins.
struct ExportPlan {
  struct Item {
    std::filesystem::path source;
    std::filesystem::path target;
    std::string refusal;  ///< why the item must not run; empty when it may
  };

  /// One item for each source. The target is `output` where it is given, else
  /// "<name>_Decode.WAV" in `outputFolder`, or beside the source where that is empty too. An item
  /// whose target is the target or the source of another one is refused (`FileKey`).
  static std::vector<Item> make(const std::vector<std::filesystem::path>& sources,
                                const std::filesystem::path& output,
                                const std::filesystem::path& outputFolder);
};
