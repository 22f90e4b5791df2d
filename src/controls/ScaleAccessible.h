// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessible>
#include <QAccessibleWidget>
#include <QWidget>
#include <vector>

#include "controls/TickTextInfo.h"

/// What assistive software reads of a scale, and does to it.
class ReadableScale {
 public:
  ReadableScale() = default;
  ReadableScale(const ReadableScale&) = delete;
  ReadableScale& operator=(const ReadableScale&) = delete;
  virtual ~ReadableScale() = default;

  /// Top label first.
  [[nodiscard]] virtual const std::vector<TickTextInfo>& textRectList() const = 0;
  [[nodiscard]] virtual bool enable() const = 0;
  /// Whether anybody hears of clicks.
  [[nodiscard]] virtual bool isHeard() const = 0;
  virtual void click(const TickTextInfo& label) = 0;
};

/// One label of a scale for assistive software; where the scale reports clicks it can be pressed.
/// It goes with its scale. Interface thread.
class ScaleLabelAccessible : public QAccessibleInterface, public QAccessibleActionInterface {
 public:
  ScaleLabelAccessible(QWidget& widget, ReadableScale& scale, int index);

  [[nodiscard]] bool isValid() const override;
  [[nodiscard]] QObject* object() const override { return nullptr; }
  [[nodiscard]] QAccessibleInterface* childAt(int, int) const override { return nullptr; }
  [[nodiscard]] QAccessibleInterface* parent() const override;
  [[nodiscard]] QAccessibleInterface* child(int) const override { return nullptr; }
  [[nodiscard]] int childCount() const override { return 0; }
  [[nodiscard]] int indexOfChild(const QAccessibleInterface*) const override { return -1; }
  [[nodiscard]] QString text(QAccessible::Text kind) const override;
  void setText(QAccessible::Text, const QString&) override {}
  [[nodiscard]] QRect rect() const override;
  [[nodiscard]] QAccessible::Role role() const override;
  [[nodiscard]] QAccessible::State state() const override;
  void* interface_cast(QAccessible::InterfaceType type) override;

  [[nodiscard]] QStringList actionNames() const override;
  void doAction(const QString& name) override;
  [[nodiscard]] QStringList keyBindingsForAction(const QString&) const override { return {}; }

 private:
  QWidget& _widget;
  ReadableScale& _scale;
  int _index;
};

/// A scale for assistive software: a group whose children are its labels, top first.
/// Interface thread.
class ScaleAccessible : public QAccessibleWidget {
 public:
  /// `scale` is the widget itself.
  ScaleAccessible(QWidget& widget, ReadableScale& scale);
  ~ScaleAccessible() override;

  [[nodiscard]] int childCount() const override;
  [[nodiscard]] QAccessibleInterface* child(int index) const override;
  [[nodiscard]] QAccessibleInterface* childAt(int x, int y) const override;
  [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override;

 private:
  QWidget& _widget;
  ReadableScale& _scale;
  mutable std::vector<QAccessible::Id> _labels;  ///< made when asked for; 0 until then
};
