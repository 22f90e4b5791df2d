// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <map>
#include <optional>
#include <string>

/// What the list tells of a recording beside its name. Plain data.
struct RowFacts {
  std::optional<double> seconds;  ///< none of a file that is no recording, or cannot be read
  std::string recorded;           ///< when: "yyyy-MM-dd HH:mm:ss"; empty where it is not known
  bool isExported = false;        ///< an export of it is there
  QString exportNote;             ///< which, for the tool tip; empty without one

  bool operator==(const RowFacts&) const = default;

  /// "03:12", "01:02:09": whole seconds; empty where there is no duration.
  [[nodiscard]] QString durationText() const;
};

/// Of each recording, by its whole path.
using RowFactsByPath = std::map<std::string, RowFacts>;
