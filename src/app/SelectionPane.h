// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QTimer>
#include <optional>
#include <vector>

#include "app/BrowserPane.h"
#include "app/BrowserView.h"
#include "app/FolderBrowser.h"
#include "folders/WavItem.h"

/// The bar under the list: how many takes are selected, how long they are as their rows tell, and a
/// button to export them. There is none as long as fewer than two are. Interface thread.
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
  void showBar(bool isShown);
  [[nodiscard]] std::optional<double> secondsOf(const std::vector<WavItem>& takes) const;

  BrowserView& _view;
  FolderBrowser& _browser;
  const BrowserPane& _files;
  QTimer _soon{this};  ///< many changes are one
};
