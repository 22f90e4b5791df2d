// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/WindowSight.h"

#include <xcb/xcb.h>

#include <QEvent>
#include <QGuiApplication>
#include <QVariant>
#include <QWindow>
#include <cstdlib>
#include <memory>

namespace {

constexpr const char* kCovered = "isCovered";     // a property of a window
constexpr std::uint8_t kSentByClient = 1U << 7U;  // in the kind of an event

}  // namespace

WindowSight::WindowSight(QWidget& window) : _window(window) {
  _window.installEventFilter(this);
  QCoreApplication::instance()->installNativeEventFilter(this);
}

WindowSight::~WindowSight() {
  QCoreApplication::instance()->removeNativeEventFilter(this);
}

bool WindowSight::isSeen(const QWidget& widget) {
  const QWidget* const window = widget.window();
  const QWindow* const handle = window->windowHandle();
  return handle == nullptr || (handle->isExposed() && !window->property(kCovered).toBool());
}

bool WindowSight::eventFilter(QObject* watched, QEvent* event) {
  if (watched == &_window && event->type() == QEvent::WinIdChange) ask();
  return false;
}

// What the toolkit wants to be told of the window stays.
void WindowSight::ask() const {
  _window.setProperty(kCovered, false);
  const auto* const x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
  const auto id = static_cast<xcb_window_t>(_window.internalWinId());
  xcb_connection_t* const server = x11 == nullptr ? nullptr : x11->connection();
  if (server == nullptr || id == 0) return;
  const std::unique_ptr<xcb_get_window_attributes_reply_t, decltype(&std::free)> known(
      xcb_get_window_attributes_reply(server, xcb_get_window_attributes(server, id), nullptr),
      &std::free);
  if (!known) return;
  const std::uint32_t wanted = known->your_event_mask | XCB_EVENT_MASK_VISIBILITY_CHANGE;
  xcb_change_window_attributes(server, id, XCB_CW_EVENT_MASK, &wanted);
}

bool WindowSight::nativeEventFilter(const QByteArray& type, void* message, qintptr* /*result*/) {
  if (type != "xcb_generic_event_t") return false;
  const auto* const event = static_cast<const xcb_generic_event_t*>(message);
  if ((event->response_type & ~kSentByClient) != XCB_VISIBILITY_NOTIFY) return false;
  const auto* const seen = static_cast<const xcb_visibility_notify_event_t*>(message);
  if (seen->window == _window.internalWinId()) {
    _window.setProperty(kCovered, seen->state == XCB_VISIBILITY_FULLY_OBSCURED);
  }
  return false;
}
