// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <filesystem>
#include <vector>

#include "app/BrowserPane.h"
#include "app/StatusLine.h"
#include "app/TakeRecall.h"
#include "app/TakeSession.h"
#include "dialogs/BatchDesk.h"
#include "dialogs/ExportDesk.h"

/// Exports what is selected in the list, at the gain and the width that the controls show.
/// Interface thread.
class SelectedExport : public QObject {
  Q_OBJECT

 public:
  /// What it stands on; all of it outlives it.
  struct Place {
    const BrowserPane& files;
    const TakeSession& take;
    StatusLine& status;
    ExportDesk& single;
    BatchDesk& batch;
    TakeRecall& recall;
  };

  explicit SelectedExport(const Place& place, QObject* parent = nullptr);

  /// Asks how to export the takes that are selected.
  void ask();
  /// The same of these takes.
  void askFor(const std::vector<std::filesystem::path>& takes);

 private:
  Place _place;
};
