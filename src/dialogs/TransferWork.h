// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>
#include <filesystem>

#include "dialogs/TransferJob.h"

/// What is done between card and disk, as the work of a job, told in the window's language. Any
/// thread.
class TransferWork {
  Q_DECLARE_TR_FUNCTIONS(TransferWork)

 public:
  /// Brings the takes of a card home into a folder: a line a take.
  static TransferJob::Work copy(const std::filesystem::path& card,
                                const std::filesystem::path& folder);
  /// Holds a folder to its manifest: a line for each file that is not right.
  static TransferJob::Work verify(const std::filesystem::path& folder);
};
