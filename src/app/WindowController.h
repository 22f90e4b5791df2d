// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QRect>
#include <memory>

#include "app/MainView.h"
#include "app/ViewController.h"
#include "app/WindowSight.h"

/// The one window: its title, ground, size and place, and its end. Interface thread.
class WindowController : public QObject {
  Q_OBJECT

 public:
  static constexpr QSize kSize{1050, 668};

  WindowController();
  ~WindowController() override;

  /// Gives the window its ground and its frame. No frame is kept from one start to the next.
  void windowDidLoad();
  void show();
  /// In front of other windows, as far as the desktop allows it; a token is its leave.
  void raise(const QString& token = {});

  [[nodiscard]] MainView& window() { return _view; }
  [[nodiscard]] ViewController& viewController() { return *_viewController; }

  /// In the middle of what a screen leaves to windows; y downward.
  [[nodiscard]] static QRect centredFrame(const QRect& visible);
  /// The same, or as much of it as there is under a title bar of this height.
  [[nodiscard]] static QRect startFrame(const QRect& visible, int titleBar);

 signals:
  /// The first picture of the window is painted.
  void appeared();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  MainView _view;
  WindowSight _sight{_view};
  std::unique_ptr<ViewController> _viewController;
  bool _hasAppeared = false;
};
