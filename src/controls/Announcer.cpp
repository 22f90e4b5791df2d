// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "controls/Announcer.h"

#include <QAccessible>
#include <QAccessibleWidget>

#include "controls/AccessibleFactory.h"

namespace {

QAccessibleInterface* makeReadableNote(Announcer& announcer) {
  return new QAccessibleWidget(&announcer, QAccessible::Notification);
}

}  // namespace

// What is hidden is not read: from the first sentence on it has a place, of one pixel, and paints
// nothing there.
Announcer::Announcer(QWidget* parent) : QWidget(parent) {
  AccessibleFactory::install<Announcer, makeReadableNote>();
  setAttribute(Qt::WA_TransparentForMouseEvents);
  setGeometry(0, 0, 1, 1);
  hide();
}

void Announcer::announce(const QString& sentence) {
  setAccessibleName(sentence);
  if (isHidden()) return show();  // which tells that it appears
  QAccessibleEvent appears(this, QAccessible::ObjectShow);
  QAccessible::updateAccessibility(&appears);
}
