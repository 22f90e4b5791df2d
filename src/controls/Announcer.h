// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

/// Tells assistive software what changed by itself: a note that nobody sees, whose name is the
/// newest sentence, and which appears anew with each. That is what screen readers read of a
/// desktop's own notes, and the toolkit has no other way to tell them yet. Interface thread.
class Announcer : public QWidget {
  Q_OBJECT

 public:
  explicit Announcer(QWidget* parent);

  /// Tells a sentence, also one that was told before.
  void announce(const QString& sentence);
};
