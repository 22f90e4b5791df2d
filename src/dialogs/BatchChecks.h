// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <atomic>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "base/Errand.h"
#include "queue/BatchPlan.h"

/// What is asked of the medium before several takes are exported: their headers, once, and for each
/// wish what becomes of every take. On workers, of which nobody waits for any. Interface thread,
/// which has an event loop.
class BatchChecks : public QObject {
  Q_OBJECT

 public:
  using Takes = std::shared_ptr<const std::vector<BatchTake>>;

  explicit BatchChecks(QObject* parent = nullptr) : QObject(parent) {}
  ~BatchChecks() override;

  /// Begins to read the headers; once.
  void read(const std::vector<std::filesystem::path>& files, const BatchTake::Recall& recall = {});
  /// Begins to look what becomes of the takes by this wish, whose own takes do not count; as soon
  /// as the headers are read. There is no plan until that is known.
  void plan(const BatchWish& wish);

  /// Null until they are read.
  [[nodiscard]] const Takes& takes() const { return _takes; }
  [[nodiscard]] const std::optional<BatchPlan>& plan() const { return _plan; }
  /// Why nothing comes: no thread, or not enough memory, could be had. Empty where something does.
  [[nodiscard]] const std::string& failure() const { return _failure; }

 signals:
  /// More is known.
  void changed();

 private:
  using Cancel = std::shared_ptr<std::atomic<bool>>;

  /// What cancels the work that begins now; what was under way is cancelled.
  Cancel renewCancel();
  void begin(const Errand::Work& work);
  void fail(const std::string& why);

  Takes _takes;
  std::optional<BatchWish> _wish;
  std::optional<BatchPlan> _plan;
  std::string _failure;
  Cancel _cancel;
  Errand _errand;
};
