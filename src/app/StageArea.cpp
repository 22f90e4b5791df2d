// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/StageArea.h"

#include <QAccessibleWidget>
#include <QApplication>
#include <QEvent>

#include "app/StageView.h"
#include "controls/AccessibleFactory.h"

namespace {

// The toolkit's own for a scroll area reads past the end when it is asked for a bar that has just
// gone.
QAccessibleInterface* makeInterface(StageArea& area) {
  return new QAccessibleWidget(&area, QAccessible::Client);
}

}  // namespace

StageArea::StageArea(StageView& stage, QWidget* parent) : QScrollArea(parent), _stage(stage) {
  AccessibleFactory::install<StageArea, makeInterface>();
  setFrameShape(NoFrame);
  setFocusPolicy(Qt::NoFocus);
  setWidgetResizable(true);
  setAlignment(Qt::AlignCenter);
  setWidget(&stage);
  viewport()->setAutoFillBackground(false);
  stage.setAutoFillBackground(false);
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
  connect(qApp, &QApplication::focusChanged, this, [this](QWidget* /*old*/, QWidget* now) {
    if (now != nullptr && _stage.isAncestorOf(now)) ensureWidgetVisible(now, 0, 0);
  });
  follow();
}

QSize StageArea::sizeHint() const {
  return _stage.sizeHint();
}

// The first is the stage's, by way of the view port.
bool StageArea::event(QEvent* event) {
  if (event->type() == QEvent::LayoutRequest || event->type() == QEvent::Show) follow();
  return QScrollArea::event(event);
}

void StageArea::follow() {
  const QSize whole = _stage.sizeHint();
  if (whole == _followed) return;
  _followed = whole;
  setMaximumHeight(whole.height());
  updateGeometry();
}
