// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/ColumnMeasure.h"

#include <QElapsedTimer>
#include <QFontMetricsF>
#include <algorithm>
#include <cmath>
#include <utility>

namespace {

constexpr std::size_t kBetweenLooks = 64;  // names between two looks at the clock
constexpr qint64 kSliceMilliseconds = 4;

}  // namespace

ColumnMeasure::ColumnMeasure(Done done) : _done(std::move(done)) {
  QObject::connect(&_timer, &QTimer::timeout, [this] { measureSome(); });
}

void ColumnMeasure::start(std::shared_ptr<const FolderHelper> listing, const QFont& font) {
  _listing = std::move(listing);
  _font = font;
  _next = 0;
  _widest = 0.0;
  measureSome();
}

void ColumnMeasure::measureSome() {
  const QFontMetricsF metrics(_font);
  const auto& files = _listing->files();
  QElapsedTimer watch;
  watch.start();
  while (_next < files.size() && watch.elapsed() < kSliceMilliseconds) {
    const std::size_t end = std::min(_next + kBetweenLooks, files.size());
    for (; _next < end; ++_next) {
      _widest = std::max(_widest, metrics.horizontalAdvance(files[_next].fileName));
    }
  }
  if (_next < files.size()) return _timer.start(0);
  _timer.stop();
  _listing.reset();
  _done(static_cast<int>(std::ceil(_widest)));
}
