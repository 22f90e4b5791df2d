// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "queue/ExportWorker.h"

#include <exception>
#include <system_error>
#include <utility>

#include "base/Log.h"
#include "export/Export.h"

namespace {

using End = ExportResult::End;

void logOptions(const ExportOrder& order) {
  if (order.is24bit) Log::line("24 bit is = ON");
  if (order.isNormalized) Log::line("Normalize is = ON");
}

void prepare(Export& job, const ExportOrder& order, ExportWorker::Control& control) {
  job.setGain(order.gain);
  job.setAngle(order.angle);
  job.setDirPath(order.target.parent_path());
  job.setExisting(order.existing);
  job.setCancelFlag(&control.isCancelled);
  job.setProgress([&control](double done) { control.done = done; });
}

ExportResult guarded(const ExportWorker::Work& work, const ExportOrder& order,
                     ExportWorker::Control& control) {
  try {
    return work(order, control);
  } catch (const std::exception& error) {  // as where there is no memory left
    return {End::Failed, error.what()};
  }
}

}  // namespace

ExportWorker::ExportWorker(const ExportOrder& order, const Work& work, const Told& onEnd) {
  const auto end = [this, onEnd](ExportResult result) {
    _result = std::move(result);
    _isFinished = true;
    if (onEnd) onEnd();
  };
  try {
    _thread = std::jthread([this, order, work, end] { end(guarded(work, order, _control)); });
  } catch (const std::system_error& error) {
    end({End::Failed, error.what()});
  }
}

ExportWorker::~ExportWorker() {
  cancel();
}

ExportResult ExportWorker::carryOut(const ExportOrder& order, Control& control) {
  Export job(order.source);
  if (job.isSource(order.target)) return {End::TargetIsSource, "The target is the source itself"};
  if (!job.IsFileValid()) return {End::Failed, job.failure()};
  logOptions(order);
  prepare(job, order, control);
  if (job.export2File(order.target, order.is24bit, order.isNormalized)) return {End::Written, {}};
  if (job.wasCancelled()) return {End::Cancelled, {}};
  return {End::Failed, job.failure()};
}
