// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "cli/ExportPlan.h"

#include <fmt/format.h>

#include <map>

#include "export/Export.h"
#include "export/FileKey.h"

namespace fs = std::filesystem;

namespace {

fs::path targetFor(const fs::path& source, const fs::path& output, const fs::path& folder) {
  if (!output.empty()) return output;
  const fs::path where = folder.empty() ? source.parent_path() : folder;
  return where / Export::nameFor(source);
}

}  // namespace

std::vector<ExportPlan::Item> ExportPlan::make(const std::vector<fs::path>& sources,
                                               const fs::path& output, const fs::path& folder) {
  std::vector<Item> items;
  std::map<fs::path, fs::path> taken;  // a file that stays as it is, and whose it is
  for (const fs::path& source : sources) {
    items.push_back({source, targetFor(source, output, folder), {}});
    taken.emplace(FileKey::of(source), source);
  }
  for (Item& item : items) {
    const fs::path target = FileKey::of(item.target);
    const auto [owner, isFree] = taken.emplace(target, item.source);
    const bool isOwnSource = target == FileKey::of(item.source);  // has a message of its own
    if (!isFree && !isOwnSource) {
      item.refusal = fmt::format("It belongs to {} in the same run", owner->second.native());
    }
  }
  return items;
}
