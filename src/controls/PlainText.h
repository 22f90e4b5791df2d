// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// Texts with names of files in them, for places of which the toolkit takes what looks like markup
/// for that, as tool tips. Stateless; any thread.
class PlainText {
 public:
  /// To be shown letter by letter.
  static QString of(const QString& text);
};
