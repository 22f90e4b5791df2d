// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "folders/TypedName.h"

#include <utility>

namespace {

bool begins(const QString& name, const QString& text) {
  return name.startsWith(text, Qt::CaseInsensitive);
}

bool holds(const QString& name, const QString& text) {
  return name.contains(text, Qt::CaseInsensitive);
}

}  // namespace

TypedName::TypedName(Clock clock) : _clock(std::move(clock)) {}

TypedName::Clock TypedName::steady() {
  return [] {
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::milliseconds>(now);
  };
}

bool TypedName::isUnderWay() const {
  return !_text.isEmpty() && _clock() - _last < kTogether;
}

int TypedName::type(const QString& letters, const QAbstractItemModel& model, int current) {
  const bool isOnceMore = isUnderWay() && _text == letters && letters.size() == 1;
  if (!isUnderWay()) _text.clear();
  if (!isOnceMore) _text += letters;
  _last = _clock();
  return find(model, isOnceMore ? current + 1 : 0);
}

int TypedName::find(const QAbstractItemModel& model, int from) const {
  const int count = model.rowCount();
  for (const auto fits : {begins, holds}) {
    for (int i = 0; i < count; ++i) {
      const int row = (from + i) % count;
      if (fits(model.index(row, 0).data().toString(), _text)) return row;
    }
  }
  return -1;
}
