// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QAction>
#include <QObject>

#include "app/FolderBrowser.h"

/// The order of the list, as the menu sets it and the settings keep it. Interface thread.
class ListOrder : public QObject {
  Q_OBJECT

 public:
  /// One of them is checked.
  struct Actions {
    QAction* byName;
    QAction* byRecorded;
    QAction* byDuration;
  };

  /// All of it outlives this.
  ListOrder(const Actions& actions, FolderBrowser& browser, QObject* parent = nullptr);

 private:
  void add(QAction& action, FileListModel::Order order, const char* word);

  FolderBrowser& _browser;
};
