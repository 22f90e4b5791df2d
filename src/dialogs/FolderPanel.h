// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>

#include "dialogs/FilePanel.h"

/// Asks for a folder; without a name it is the one that is shown. Interface thread.
class FolderPanel : public FilePanel {
  Q_OBJECT

 public:
  explicit FolderPanel(QWidget* parent, FolderLister::Look look = FolderLister::answerTo);

  /// Takes the folder that is named now.
  void accept() override;

 signals:
  /// A whole path, in the file system's own bytes. It is not looked at where nobody can.
  void chosen(const std::filesystem::path& folder);

 private:
  void choose(const std::filesystem::path& folder);
};
