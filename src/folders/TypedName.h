// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractItemModel>
#include <QString>
#include <chrono>
#include <functional>

/// A name, or a part of one, that is typed to be found in a list: letters that follow each other
/// within a second belong together. Interface thread.
class TypedName {
 public:
  /// The time since some fixed moment.
  using Clock = std::function<std::chrono::milliseconds()>;
  static constexpr std::chrono::milliseconds kTogether{1000};

  explicit TypedName(Clock clock = steady());

  /// A clock that only goes forward.
  static Clock steady();

  /// Whether what is typed now goes on with what was typed before.
  [[nodiscard]] bool isUnderWay() const;
  /// The row to go to: the first whose name begins with all that was typed, else the first that
  /// holds it, whatever the case; -1 where there is none. A single letter, typed once more, goes on
  /// to the next of them after `current`.
  int type(const QString& letters, const QAbstractItemModel& model, int current);

 private:
  [[nodiscard]] int find(const QAbstractItemModel& model, int from) const;

  Clock _clock;
  QString _text;
  std::chrono::milliseconds _last{};
};
