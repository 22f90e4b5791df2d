// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/WindowController.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QStyle>

#include "base/Version.h"
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

QRect WindowController::startFrame(const QRect& visible, int titleBar) {
  const QRect frame = centredFrame(visible);
  const QRect left = visible.adjusted(0, titleBar, 0, 0);
  const bool fits = kSize.boundedTo(left.size()) == kSize;
  return fits || left.isEmpty() ? frame : frame.intersected(left);
}

void WindowController::windowDidLoad() {
  QPalette palette = _view.palette();
  palette.setColor(QPalette::Window, Colors::AppBG());
  _view.setPalette(palette);
  _view.setAutoFillBackground(true);
  _view.setWindowTitle(QLatin1String(kProduct));
  const QScreen* const screen = _view.screen();
  const QRect visible = screen == nullptr ? QRect() : screen->availableGeometry();
  _view.setGeometry(startFrame(visible, _view.style()->pixelMetric(QStyle::PM_TitleBarHeight)));
}

void WindowController::show() {
  _view.show();
}

void WindowController::raise(const QString& token) {
  // Where the toolkit looks for it.
  if (!token.isEmpty()) qputenv("XDG_ACTIVATION_TOKEN", token.toUtf8());
  _view.setWindowState(_view.windowState() & ~Qt::WindowMinimized);
  _view.raise();
  _view.activateWindow();
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
