// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <string>
#include <vector>

/// Why something went wrong, in the window's language. What reads, writes and plays knows no
/// languages: it tells its reasons in English, as the terminal shows them. Any thread.
class Reason {
 public:
  /// A reason that is not known stays as it is.
  static QString text(const QString& reason);
  static QString text(const std::string& reason) { return text(QString::fromStdString(reason)); }

  /// The reasons that are known, with %1 to %3 for what differs.
  static std::vector<QString> known();
};
