// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QToolButton>
#include <QWidget>

#include "app/ElidedButton.h"
#include "folders/FileList.h"

/// The left half of the window: the bar with the folder's name, and the list of files under it.
/// Laid out and named, and nothing more. Interface thread.
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

 private:
  void makeFolderBar();
};
