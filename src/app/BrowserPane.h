// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QString>
#include <filesystem>
#include <set>
#include <vector>

#include "app/BrowserView.h"
#include "app/ColumnMeasure.h"
#include "app/FolderBrowser.h"
#include "app/StatusLine.h"

/// Shows what the folder browser has: the folder's name and its rows, whose selection and place
/// stay through every refresh. Interface thread.
class BrowserPane : public QObject {
  Q_OBJECT

 public:
  /// All three outlive the pane.
  BrowserPane(BrowserView& view, FolderBrowser& browser, StatusLine& status,
              QObject* parent = nullptr);

  /// Opens what is selected: goes into a folder, chooses a recording.
  void openSelected();
  /// The recordings that are selected, from the top.
  [[nodiscard]] std::vector<WavItem> selectedTakes() const;
  /// Asks for a folder.
  void askForFolder();
  /// Makes the rows as wide as their longest name.
  void autoResizeColumn();

 private:
  void showName(const QString& name);
  void showPath();
  void rememberPlace();
  void restorePlace(bool isSameFolder);
  void selectRemembered();
  void selectAndSee(const std::vector<int>& rows, int current);
  [[nodiscard]] std::filesystem::path startOfPanel() const;

  BrowserView& _view;
  FolderBrowser& _browser;
  ColumnMeasure _columnMeasure;
  std::set<QString> _selected;
  QString _current;
  int _place = 0;
};
