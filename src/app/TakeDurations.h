// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "base/LatestErrand.h"

/// How long takes are together: read by a worker from their headers, and kept for as long as a
/// take's size and time of change stay. Interface thread, which has an event loop.
class TakeDurations : public QObject {
  Q_OBJECT

 public:
  explicit TakeDurations(QObject* parent = nullptr);

  /// Reads those of these paths that are not known. What was asked before is given up, and what has
  /// been read of it kept; the same question again changes nothing until there is an answer.
  void ask(const std::vector<std::string>& paths);
  /// Nothing is wanted any more.
  void forget();
  /// Seconds of all that was asked for, of which what cannot be read has none; none until they are
  /// known.
  [[nodiscard]] const std::optional<double>& total() const { return _total; }

 signals:
  /// There is an answer.
  void known();

 private:
  struct Kept {
    std::uintmax_t size = 0;
    std::int64_t changed = 0;
    double seconds = 0;
  };
  using Cache = std::map<std::string, Kept>;

  static double secondsOf(const std::string& path, Cache& cache);

  std::vector<std::string> _paths;
  std::optional<double> _total;
  std::shared_ptr<Cache> _cache = std::make_shared<Cache>();  ///< the worker's, one after the other
  LatestErrand _errand;
};
