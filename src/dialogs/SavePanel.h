// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>

#include "dialogs/FilePanel.h"
#include "export/AtomicFile.h"

/// Asks where to save an export. Completes the name by ".WAV", which need not be typed, and asks
/// before a file is replaced. Interface thread.
class SavePanel : public FilePanel {
  Q_OBJECT

 public:
  /// Starts with `proposal`, whose bytes are kept where they are chosen, be they UTF-8 or not; its
  /// extension is not shown. `source` is never asked about: who chooses it is told later that it
  /// cannot be.
  SavePanel(std::filesystem::path proposal, std::filesystem::path source, QWidget* parent,
            FolderLister::Look look = FolderLister::answerTo);

  /// The path with ".WAV" added where its last four characters, in whatever case, are others.
  static QString withSuffix(const QString& path);

  /// Takes the path that is named now, or goes into it where it is a folder.
  void accept() override;

 signals:
  /// A whole path; `existing` tells whether the user agreed to replace a file.
  void chosen(const std::filesystem::path& path, AtomicFile::Existing existing);

 protected:
  /// The name stays when a folder is selected, and from folder to folder.
  void pick(const WavItem& item) override;
  void forgetName() override {}

 private:
  [[nodiscard]] std::filesystem::path target() const;
  void end(const std::filesystem::path& typed, const std::filesystem::path& path,
           const std::optional<Found>& found);
  void goInto(const std::filesystem::path& folder);
  void askToReplace(const std::filesystem::path& path);
  void choose(const std::filesystem::path& path, AtomicFile::Existing existing);
  void askForNewFolder();
  void makeFolder(const QString& name);
  void showMade(const std::filesystem::path& folder, const QString& failure);

  std::filesystem::path _proposal;
  std::filesystem::path _source;
};
