// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QPushButton>
#include <filesystem>

/// Shows which folder is chosen, and asks for another one. Interface thread.
class FolderButton : public QPushButton {
  Q_OBJECT

 public:
  /// `name` is for assistive software.
  FolderButton(const QString& name, QWidget* parent);

  /// Empty where none is chosen.
  [[nodiscard]] const std::filesystem::path& folder() const { return _folder; }
  void setFolder(const std::filesystem::path& folder);
  /// Where the search begins while none is chosen.
  void setStart(const std::filesystem::path& folder) { _start = folder; }
  void ask();

 signals:
  void chosen(const std::filesystem::path& folder);

 private:
  std::filesystem::path _folder;
  std::filesystem::path _start;
};
