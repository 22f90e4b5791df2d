// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "queue/ExportWorker.h"

#include <sys/stat.h>

#include <cstdint>
#include <exception>
#include <optional>
#include <thread>
#include <utility>

#include "base/ErrorReason.h"
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
  job.setLoudness(order.loudness);
  job.setRange(order.range);
  job.setAnalysis(order.analysis);
  job.setKeepMetadata(order.keepsMetadata);
  job.setCancelFlag(&control.isCancelled);
  job.setProgress([&control](double done) { control.done = done; });
}

std::optional<double> gainOf(const Export& job, const ExportOrder& order) {
  if (job.loudnessGain()) return job.loudnessGain()->gain();
  return order.isNormalized ? job.normalizeGain() : job.gain();
}

std::int64_t modifiedOf(const std::filesystem::path& file) {
  struct stat status {};
  return stat(file.c_str(), &status) == 0 ? std::int64_t{status.st_mtim.tv_sec} : 0;
}

ExportResult guarded(const ExportWorker::Work& work, const ExportOrder& order,
                     ExportWorker::Control& control) {
  try {
    return work(order, control);
  } catch (const std::exception& error) {  // as where there is no memory left
    return {End::Failed, reasonOf(error)};
  }
}

}  // namespace

ExportWorker::ExportWorker(const ExportOrder& order, const Work& work, const Told& onEnd) {
  _shared->onEnd = onEnd;
  try {
    std::thread([shared = _shared, order, work] {
      shared->end(guarded(work, order, shared->control));
    }).detach();
  } catch (const std::exception& error) {  // no thread, or no memory for one
    _shared->end({End::Failed, reasonOf(error)});
  }
}

ExportWorker::~ExportWorker() {
  cancel();
  std::unique_lock lock(_shared->mutex);
  const auto hasEnded = [this] { return _shared->hasEnded; };
  if (_patience) {
    _shared->ended.wait_for(lock, *_patience, hasEnded);
  } else {
    _shared->ended.wait(lock, hasEnded);
  }
  _shared->onEnd = nullptr;
}

void ExportWorker::Shared::end(ExportResult with) {
  const std::lock_guard lock(mutex);
  result = std::move(with);
  isFinished = true;
  if (onEnd) onEnd();
  hasEnded = true;
  ended.notify_all();
}

ExportResult ExportWorker::carryOut(const ExportOrder& order, Control& control) {
  Export job(order.source);
  if (job.isSource(order.target)) return {End::TargetIsSource, "The target is the source itself"};
  if (!job.IsFileValid()) return {End::Failed, job.failure()};
  logOptions(order);
  prepare(job, order, control);
  if (job.export2File(order.target, order.is24bit, order.isNormalized)) {
    return {End::Written, {}, modifiedOf(order.target), gainOf(job, order)};
  }
  if (job.wasCancelled()) return {End::Cancelled, {}};
  return {End::Failed, job.failure()};
}
