// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>
#include <QPushButton>
#include <QToolButton>
#include <QWidget>

#include "app/ElidedButton.h"
#include "folders/FileList.h"

/// The left half of the window: the bar with the folder's name, the list of files under it, and
/// under that a bar for several that are selected, hidden at first. Laid out and named, and nothing
/// more. Interface thread.
class BrowserView : public QWidget {
  Q_OBJECT

 public:
  explicit BrowserView(QWidget* parent = nullptr);

  /// What Tab goes through, in order.
  [[nodiscard]] QWidgetList tabOrder() const;

  QWidget* viewPathBG = nullptr;
  QToolButton* btnGoUp = nullptr;
  ElidedButton* lblFolder = nullptr;
  QToolButton* btnOpenFolder = nullptr;
  FileList* tableFile = nullptr;
  QWidget* viewSelectionBG = nullptr;
  QLabel* lblSelection = nullptr;
  QPushButton* btnExportSelected = nullptr;

 private:
  void makeFolderBar();
  void makeSelectionBar();
};
