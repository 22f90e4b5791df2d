// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/ListOrder.h"

#include "base/Utility.h"

ListOrder::ListOrder(const Actions& actions, FolderBrowser& browser, QObject* parent)
    : QObject(parent), _browser(browser) {
  using Order = FileListModel::Order;
  add(*actions.byName, Order::Name, "name");
  add(*actions.byRecorded, Order::Recorded, "recorded");
  add(*actions.byDuration, Order::Duration, "duration");
}

void ListOrder::add(QAction& action, FileListModel::Order order, const char* word) {
  if (Utility::getStringValue(Utility::kListOrder) == word) {
    action.setChecked(true);
    _browser.setOrder(order);
  }
  connect(&action, &QAction::triggered, this, [this, order, word] {
    _browser.setOrder(order);
    Utility::store(Utility::kListOrder, word);
  });
}
