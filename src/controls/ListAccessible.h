// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessibleWidget>
#include <QHash>
#include <QPersistentModelIndex>

class QListView;

/// A list for assistive software: its rows in their order. A row can be pressed, which is what the
/// key Return does to it; the toolkit's own rows can only be selected. Interface thread.
class ListAccessible : public QAccessibleWidget {
 public:
  /// Has all lists read this way from now on; calling again changes nothing.
  static void install();

  explicit ListAccessible(QListView& list);
  ~ListAccessible() override;

  /// Of the list of a pop-up, the pop-up.
  [[nodiscard]] QAccessibleInterface* parent() const override;
  [[nodiscard]] int childCount() const override;
  /// The same row has the same interface, wherever it moves, until it goes.
  [[nodiscard]] QAccessibleInterface* child(int row) const override;
  [[nodiscard]] QAccessibleInterface* childAt(int x, int y) const override;
  [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override;
  [[nodiscard]] QAccessibleInterface* focusChild() const override;

 private:
  [[nodiscard]] QModelIndex indexOf(int row) const;
  void forgetGoneRows() const;

  QListView& _list;
  mutable QHash<QPersistentModelIndex, QAccessible::Id> _rows;  ///< made when asked for
};

/// A row of a list for assistive software. Interface thread.
class RowAccessible : public QAccessibleInterface, public QAccessibleActionInterface {
 public:
  RowAccessible(QListView& list, const QModelIndex& index);

  [[nodiscard]] bool isValid() const override { return _index.isValid(); }
  [[nodiscard]] QObject* object() const override { return nullptr; }
  [[nodiscard]] QWindow* window() const override;
  [[nodiscard]] QAccessibleInterface* parent() const override;
  [[nodiscard]] QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
  [[nodiscard]] QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override {
    return nullptr;
  }
  [[nodiscard]] int childCount() const override { return 0; }
  [[nodiscard]] int indexOfChild(const QAccessibleInterface* /*child*/) const override {
    return -1;
  }
  [[nodiscard]] QString text(QAccessible::Text kind) const override;
  void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override {}
  [[nodiscard]] QRect rect() const override;
  [[nodiscard]] QAccessible::Role role() const override { return QAccessible::ListItem; }
  [[nodiscard]] QAccessible::State state() const override;
  void* interface_cast(QAccessible::InterfaceType type) override;

  /// Setting the focus makes it the current row, without pressing it.
  [[nodiscard]] QStringList actionNames() const override;
  void doAction(const QString& name) override;
  [[nodiscard]] QStringList keyBindingsForAction(const QString& /*name*/) const override {
    return {};
  }

  [[nodiscard]] int row() const { return _index.row(); }

 private:
  void makeCurrent();
  void press();

  QListView& _list;
  QPersistentModelIndex _index;
};
