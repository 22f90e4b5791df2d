// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "dialogs/BatchChecks.h"

BatchChecks::~BatchChecks() {
  if (_cancel) *_cancel = true;
}

BatchChecks::Cancel BatchChecks::renewCancel() {
  if (_cancel) *_cancel = true;
  _cancel = std::make_shared<std::atomic<bool>>(false);
  return _cancel;
}

void BatchChecks::begin(const Errand::Work& work) {
  _failure.clear();
  if (!_errand.begin(work, [this](const std::string& why) { fail(why); }))
    fail("no thread can be had");
}

void BatchChecks::fail(const std::string& why) {
  _failure = why;
  emit changed();
}

void BatchChecks::read(const std::vector<std::filesystem::path>& files,
                       const BatchTake::Recall& recall) {
  begin([this, files, recall, cancel = renewCancel()]() -> Errand::Outcome {
    const auto takes = std::make_shared<std::vector<BatchTake>>();
    for (const std::filesystem::path& file : files) {
      if (!*cancel) takes->emplace_back(file, recall);
    }
    return [this, takes] {
      _takes = takes;
      if (_wish) plan(*_wish);
      emit changed();
    };
  });
}

void BatchChecks::plan(const BatchWish& wish) {
  _wish = wish;
  _wish->takes = _takes;
  _plan.reset();
  if (!_takes) return;
  begin([this, wish = *_wish, cancel = renewCancel()]() -> Errand::Outcome {
    return [this, plan = BatchPlan::make(wish, *cancel)] {
      _plan = plan;
      emit changed();
    };
  });
}
