// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/WindowController.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QScreen>

#include "controls/Colors.h"

WindowController::WindowController() : _viewController(std::make_unique<ViewController>(_view)) {
  _viewController->viewDidLoad();
  windowDidLoad();
  _view.installEventFilter(this);
  connect(_viewController.get(), &ViewController::endRequested, &_view, &QWidget::close);
}

WindowController::~WindowController() = default;

QRect WindowController::centredFrame(const QRect& visible) {
  const QPoint corner(visible.x() + (visible.width() - kSize.width()) / 2,
                      visible.y() + (visible.height() - kSize.height()) / 2);
  return {corner, kSize};
}

void WindowController::windowDidLoad() {
  QPalette palette = _view.palette();
  palette.setColor(QPalette::Window, Colors::AppBG());
  _view.setPalette(palette);
  _view.setAutoFillBackground(true);
  _view.setWindowTitle(QStringLiteral("TARN J4 Mixdeck"));
  const QScreen* const screen = _view.screen();
  _view.setGeometry(centredFrame(screen == nullptr ? QRect() : screen->availableGeometry()));
}

void WindowController::show() {
  _view.show();
}

bool WindowController::eventFilter(QObject* watched, QEvent* event) {
  if (watched != &_view) return false;
  if (event->type() == QEvent::Close && !_viewController->mayEnd()) {
    event->ignore();
    return true;
  }
  if (event->type() == QEvent::Paint && !_hasAppeared) {
    _hasAppeared = true;
    // After the painting that is under way.
    QMetaObject::invokeMethod(
        this,
        [this] {
          emit appeared();
          _viewController->viewDidAppear();
        },
        Qt::QueuedConnection);
  }
  return false;
}
