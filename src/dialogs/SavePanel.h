// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QFileDialog>
#include <filesystem>

#include "export/AtomicFile.h"

/// Asks where to save an export. Completes the name by ".WAV" where that is missing, and asks
/// before a file is replaced. Deletes itself when it is closed. Interface thread.
class SavePanel : public QFileDialog {
  Q_OBJECT

 public:
  /// Starts in `folder` with `name` proposed. `source` is never asked about: who chooses it is told
  /// later that it cannot be.
  SavePanel(const QString& folder, const QString& name, std::filesystem::path source,
            QWidget* parent);

  /// The path with ".WAV" added where its last four characters, in whatever case, are others.
  static QString withSuffix(const QString& path);

  /// Takes the path that is named now, or opens it where it is a folder.
  void accept() override;

 signals:
  /// A whole path; `existing` tells whether the user agreed to replace a file.
  void chosen(const QString& path, AtomicFile::Existing existing);

 private:
  void addMessage();
  void giveRoom();
  void askToReplace(const QString& path);
  void choose(const QString& path, AtomicFile::Existing existing);

  std::filesystem::path _source;
};
