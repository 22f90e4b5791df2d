// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QMenu>
#include <QObject>
#include <QPoint>
#include <filesystem>
#include <vector>

#include "app/BrowserPane.h"
#include "app/FolderBrowser.h"

/// The menu of what is selected in the list: by the second button of the pointer, or the key for
/// it. What is chosen there is about what was selected when the menu was opened; it opens and
/// copies paths itself, all else goes out as a signal. Interface thread.
class RowMenu : public QObject {
  Q_OBJECT

 public:
  /// All three outlive this.
  RowMenu(BrowserView& view, FolderBrowser& browser, const BrowserPane& files,
          QObject* parent = nullptr);

 signals:
  void exportRequested(const std::vector<std::filesystem::path>& takes);
  void showRequested(const std::vector<std::filesystem::path>& files);
  void informationRequested(const std::filesystem::path& file);

 private:
  using Paths = std::vector<std::filesystem::path>;

  void open(const QPoint& place);
  void fill(QMenu& menu);
  [[nodiscard]] Paths selected() const;
  [[nodiscard]] Paths selectedTakes() const;
  void choose(const std::filesystem::path& path);
  static void copy(const Paths& paths);

  BrowserView& _view;
  FolderBrowser& _browser;
  const BrowserPane& _files;
};
