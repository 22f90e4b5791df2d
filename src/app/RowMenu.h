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
/// it. What is chosen there goes out as a signal, but for the path, which it copies itself.
/// Interface thread.
class RowMenu : public QObject {
  Q_OBJECT

 public:
  /// All three outlive this.
  RowMenu(BrowserView& view, FolderBrowser& browser, const BrowserPane& files,
          QObject* parent = nullptr);

 signals:
  void openRequested();
  void exportRequested();
  void showRequested(const std::vector<std::filesystem::path>& files);
  void informationRequested(const std::filesystem::path& file);

 private:
  void open(const QPoint& place);
  void fill(QMenu& menu);
  [[nodiscard]] std::vector<std::filesystem::path> selected() const;
  void copyPaths() const;

  BrowserView& _view;
  FolderBrowser& _browser;
  const BrowserPane& _files;
};
