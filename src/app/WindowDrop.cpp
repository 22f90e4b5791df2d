// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/WindowDrop.h"

#include <QDropEvent>
#include <QMimeData>

#include "base/FileAddress.h"

namespace {

std::vector<std::filesystem::path> pathsOf(const QDropEvent& event) {
  return FileAddress::pathsIn(
      event.mimeData()->data(QStringLiteral("text/uri-list")).toStdString());
}

}  // namespace

WindowDrop::WindowDrop(QWidget& window, FolderBrowser& browser, QObject* parent)
    : QObject(parent), _browser(browser) {
  window.setAcceptDrops(true);
  window.installEventFilter(this);
}

// The addresses alone are looked at: no medium is asked while something hovers over the window.
bool WindowDrop::isTaken(const QDropEvent& event) {
  return event.source() == nullptr && !pathsOf(event).empty();
}

bool WindowDrop::eventFilter(QObject* /*watched*/, QEvent* event) {
  const bool isDrop = event->type() == QEvent::Drop;
  if (!isDrop && event->type() != QEvent::DragEnter && event->type() != QEvent::DragMove) {
    return false;
  }
  auto& dropped = static_cast<QDropEvent&>(*event);
  if (!isTaken(dropped)) {
    dropped.ignore();
    return true;
  }
  dropped.setDropAction(Qt::CopyAction);
  dropped.accept();
  if (isDrop) drop(pathsOf(dropped));
  return true;
}

void WindowDrop::drop(const std::vector<std::filesystem::path>& files) {
  if (files.size() == 1) return _browser.begin(files.front());
  _browser.openFolder(files.front().parent_path());
  _browser.wishFor(files);
}
