// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QFileDialog>
#include <filesystem>

#include "export/AtomicFile.h"

/// Asks where to save an export. Completes the name by ".WAV", which need not be typed, and asks
/// before a file is replaced. Deletes itself when it is closed. Interface thread.
class SavePanel : public QFileDialog {
  Q_OBJECT

 public:
  /// Starts with `proposal`, whose bytes are kept where they are chosen, be they UTF-8 or not; its
  /// extension is not shown. `source` is never asked about: who chooses it is told later that it
  /// cannot be.
  SavePanel(std::filesystem::path proposal, std::filesystem::path source, QWidget* parent);

  /// The path with ".WAV" added where its last four characters, in whatever case, are others.
  static QString withSuffix(const QString& path);

  /// Takes the path that is named now, or opens it where it is a folder.
  void accept() override;

 signals:
  /// A whole path; `existing` tells whether the user agreed to replace a file.
  void chosen(const std::filesystem::path& path, AtomicFile::Existing existing);

 private:
  void addMessage();
  void giveRoom();
  [[nodiscard]] std::filesystem::path pathOf(const QString& named) const;
  void askToReplace(const std::filesystem::path& path);
  void choose(const std::filesystem::path& path, AtomicFile::Existing existing);

  std::filesystem::path _proposal;
  std::filesystem::path _source;
};
