// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

/// What the program runs on, for people who report something. Interface thread.
class ProgramDetails {
 public:
  /// A name and a version each ("Qt 6.4.2"), in no language.
  static QStringList lines();
};
