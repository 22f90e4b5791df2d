// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QString>
#include <filesystem>

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
  void selectAndSee(int row);
  [[nodiscard]] std::filesystem::path startOfPanel() const;

  BrowserView& _view;
  FolderBrowser& _browser;
  ColumnMeasure _columnMeasure;
  bool _hadSelection = false;
  QString _selected;
  int _place = 0;
};
