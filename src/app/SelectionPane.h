// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QTimer>
#include <cstddef>

#include "app/BrowserPane.h"
#include "app/BrowserView.h"
#include "app/FolderBrowser.h"
#include "app/TakeDurations.h"

/// The bar under the list: how many takes are selected and how long they are, and a button to
/// export them. There is none as long as fewer than two are. Interface thread.
class SelectionPane : public QObject {
  Q_OBJECT

 public:
  /// All three outlive the pane.
  SelectionPane(BrowserView& view, FolderBrowser& browser, const BrowserPane& files,
                QObject* parent = nullptr);

 signals:
  void exportRequested();

 private:
  void update();
  void show();
  void showBar(bool isShown);

  BrowserView& _view;
  const BrowserPane& _files;
  TakeDurations _durations;
  std::size_t _count = 0;
  QTimer _soon{this};  ///< many changes are one
};
