// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QLineEdit>
#include <QObject>
#include <QPointer>
#include <optional>

#include "app/ValueLabel.h"
#include "controls/Adjustable.h"

/// Lets a value be typed where a label shows it: a click on the label opens a field, Return or
/// leaving the field sets the control, Escape does not. What is no number changes nothing, nor does
/// leaving a field after something else has changed the value. Interface thread.
class ValueField : public QObject {
  Q_OBJECT

 public:
  /// Label and control outlive it; the control counts in whole numbers. `name` is what assistive
  /// software calls the field.
  ValueField(ValueLabel& label, Adjustable& control, QString name, QObject* parent = nullptr);

  /// The number in a text that may have a sign and a unit; none where there is none.
  static std::optional<double> numberIn(const QString& text);

  /// Opens the field, unless the control cannot be moved.
  void open();
  [[nodiscard]] QLineEdit* field() const { return _field; }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool keyPressed(int key);
  void abandon();
  void apply();
  void close();

  ValueLabel& _label;
  Adjustable& _control;
  QString _name;
  QPointer<QLineEdit> _field;  ///< while it is open
  QString _shown;              ///< by the label when the field was opened
};
