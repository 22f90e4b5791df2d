// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QApplication>
#include <QEvent>
#include <QFocusEvent>
#include <QObject>
#include <QPointer>
#include <QWidget>

/// Whether buttons, fields with choices and the queue's lines show that they have the focus: once a
/// key was pressed, until a mouse button is. The program's own controls have `KeyboardFocus`.
/// Interface thread.
///
/// The style sheet knows those that do by their property "keys". It is kept up for the one that has
/// the focus alone.
class KeyRings : public QObject {
  Q_OBJECT

 public:
  /// From now on, in all windows. Another time it changes nothing.
  static void install(QApplication& application);
  /// As a list that is drawn by the program asks.
  static bool areShownOn(const QWidget& widget);

  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  explicit KeyRings(QApplication& application);

  void show(bool areShown);
  void gained(QWidget& widget, Qt::FocusReason reason);
  void mark(QWidget& widget) const;

  bool _areShown = false;
  QPointer<QWidget> _focused;  ///< that got the focus last
};
