// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessible>
#include <QString>
#include <QWidget>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

/// What assistive software finds when it walks through a window: each control with a role that
/// fits, a name, and what that role lets one do; each part with the parent that has it.
class AccessibleWalk {
 public:
  using Role = QAccessible::Role;

  /// How many of each role there are, and what is wrong with any of them.
  struct Found {
    std::map<Role, int> count;
    std::vector<std::string> wrong;
    std::set<std::pair<Role, QString>> named;
  };

  static QString nameOf(const QAccessibleInterface& item);
  static Found through(QAccessibleInterface& root);
  static Found through(QWidget& window);

 private:
  void look(QAccessibleInterface& item, const QString& way);
  void judge(QAccessibleInterface& item, const QString& way);
  void judgeHolder(QAccessibleInterface& item, const QString& way);
  static bool isDecoration(const QWidget* widget);
  void judgeText(QAccessibleInterface& item, const QString& way);
  void judgeUse(QAccessibleInterface& item, const QString& way);
  static bool isUnique(Role role);
  void judgeValue(QAccessibleValueInterface& value, const QString& way);
  void wrong(const QString& way, const QString& what);

  Found _found;
};
