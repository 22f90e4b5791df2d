// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#include "controls/ControlsAccessible.h"

#include <QAccessible>
#include <QComboBox>

#include "controls/AdjustableAccessible.h"
#include "controls/AngleViewer.h"
#include "controls/GainTickTitle.h"
#include "controls/LevelMeter.h"
#include "controls/LevelMeterAccessible.h"
#include "controls/PathViewer.h"
#include "controls/PathViewerAccessible.h"
#include "controls/PopupAccessible.h"
#include "controls/ScaleAccessible.h"
#include "controls/Slider.h"

namespace {

QAccessibleInterface* makeInterface(const QString& /*className*/, QObject* object) {
  if (auto* dial = qobject_cast<AngleViewer*>(object)) {
    return new AdjustableAccessible(dial, *dial, QAccessible::Dial);
  }
  if (auto* slider = qobject_cast<Slider*>(object)) {
    return new AdjustableAccessible(slider, *slider, QAccessible::Slider);
  }
  if (auto* meter = qobject_cast<LevelMeter*>(object)) return new LevelMeterAccessible(*meter);
  if (auto* scale = qobject_cast<GainTickTitle*>(object)) return new ScaleAccessible(*scale);
  if (auto* path = qobject_cast<PathViewer*>(object)) return new PathViewerAccessible(*path);
  auto* popup = qobject_cast<QComboBox*>(object);
  if (popup != nullptr && !popup->isEditable()) return new PopupAccessible(*popup);
  return nullptr;
}

}  // namespace

// The toolkit owns the interfaces, and keeps a factory only once.
void ControlsAccessible::install() {
  QAccessible::installFactory(makeInterface);
}
