// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractNativeEventFilter>
#include <QObject>
#include <QWidget>

/// Tells whether anything of a window is on the screen. The toolkit knows of windows that are
/// minimised, hidden, or that a Wayland compositor draws no more. An X server tells on request, and
/// this asks, when nothing of a window is left to see behind others; where a compositor draws all
/// of them it never does. Interface thread.
class WindowSight : public QObject, private QAbstractNativeEventFilter {
  Q_OBJECT

 public:
  /// For the window that `window` is or will be; it outlives this.
  explicit WindowSight(QWidget& window);
  WindowSight(const WindowSight&) = delete;
  WindowSight& operator=(const WindowSight&) = delete;
  ~WindowSight() override;

  /// False where nothing of the widget's window is on the screen, such as one that is minimised.
  [[nodiscard]] static bool isSeen(const QWidget& widget);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool nativeEventFilter(const QByteArray& type, void* message, qintptr* result) override;
  void ask() const;

  QWidget& _window;
};
