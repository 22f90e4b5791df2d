// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "dialogs/ExportWorker.h"

#include <utility>

#include "export/Export.h"

ExportWorker::ExportWorker(ExportOrder order)
    : _thread([this, order = std::move(order)] {
        run(order);
        _isFinished = true;
      }) {}

ExportWorker::~ExportWorker() {
  cancel();
}

void ExportWorker::run(const ExportOrder& order) {
  Export job(order.source);
  job.setGain(order.gain);
  job.setAngle(order.angle);
  job.setDirPath(order.target.parent_path());
  job.setExisting(order.existing);
  job.setCancelFlag(&_cancel);
  job.setProgress([this](double done) { _done = done; });
  _isWritten = job.export2File(order.target, order.is24bit, order.isNormalized);
  _wasCancelled = job.wasCancelled();
  _failure = job.failure();
}
