// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "cli/ExportPlan.h"

#include <fmt/format.h>

#include <map>
#include <system_error>

#include "export/AtomicFile.h"
#include "export/Export.h"

namespace fs = std::filesystem;

namespace {

fs::path targetFor(const fs::path& source, const fs::path& output, const fs::path& folder) {
  if (!output.empty()) return output;
  const fs::path where = folder.empty() ? source.parent_path() : folder;
  return where / Export::nameFor(source);
}

// One text for one file, whatever the way to it.
fs::path identity(const fs::path& path) {
  std::error_code error;
  const fs::path whole = fs::weakly_canonical(AtomicFile::resolveLinks(fs::absolute(path)), error);
  return error ? path : whole;
}

}  // namespace

std::vector<ExportPlan::Item> ExportPlan::make(const std::vector<fs::path>& sources,
                                               const fs::path& output, const fs::path& folder) {
  std::vector<Item> items;
  std::map<fs::path, fs::path> taken;  // a file that stays as it is, and whose it is
  for (const fs::path& source : sources) {
    items.push_back({source, targetFor(source, output, folder), {}});
    taken.emplace(identity(source), source);
  }
  for (Item& item : items) {
    const fs::path target = identity(item.target);
    const auto [owner, isFree] = taken.emplace(target, item.source);
    const bool isOwnSource = target == identity(item.source);  // has a message of its own
    if (!isFree && !isOwnSource) {
      item.refusal = fmt::format("It belongs to {} in the same run", owner->second.native());
    }
  }
  return items;
}
