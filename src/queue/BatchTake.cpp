// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "queue/BatchTake.h"

#include "export/Export.h"

BatchTake::BatchTake(const std::filesystem::path& path, const Recall& recall) : file(path) {
  Export job(path);
  refusal = job.failure();
  if (!job.IsFileValid()) return;
  seconds = job.reader()->durationSeconds();
  size24 = job.outputSize(true);
  size32 = job.outputSize(false);
  keptBytes = job.keptBytes();
  if (recall) remembered = recall(*job.reader());
  isNoise = !job.reader()->header().hasSound();
}
