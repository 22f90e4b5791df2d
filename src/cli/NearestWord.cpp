// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "cli/NearestWord.h"

#include <algorithm>

namespace {

using Row = std::vector<std::size_t>;

Row nextRow(const Row& last, const Row& lastButOne, std::string_view a, std::string_view b,
            std::size_t i) {
  Row row(b.size() + 1, i);
  for (std::size_t j = 1; j <= b.size(); ++j) {
    const std::size_t changed = last[j - 1] + (a[i - 1] == b[j - 1] ? 0 : 1);
    row[j] = std::min({last[j] + 1, row[j - 1] + 1, changed});
    const bool isSwapped = i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1];
    if (isSwapped) row[j] = std::min(row[j], lastButOne[j - 2] + 1);
  }
  return row;
}

// Edits that make one of the other, row by row of the usual table.
std::size_t distance(std::string_view a, std::string_view b) {
  Row lastButOne;
  Row last(b.size() + 1);
  for (std::size_t j = 0; j < last.size(); ++j) last[j] = j;
  for (std::size_t i = 1; i <= a.size(); ++i) {
    Row row = nextRow(last, lastButOne, a, b, i);
    lastButOne = std::move(last);
    last = std::move(row);
  }
  return last.back();
}

}  // namespace

std::optional<std::string> NearestWord::of(std::string_view written,
                                           const std::vector<std::string>& words) {
  std::optional<std::string> nearest;
  std::size_t fewest = (written.size() + 1) / 2;
  for (const std::string& word : words) {
    const std::size_t edits = distance(written, word);
    if (edits >= fewest) continue;
    fewest = edits;
    nearest = word;
  }
  return nearest;
}
