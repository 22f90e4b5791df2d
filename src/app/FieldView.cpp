// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/FieldView.h"

#include <QAccessibleWidget>
#include <QVBoxLayout>

#include "controls/AccessibleFactory.h"

namespace {

constexpr int kScope = 144;
constexpr int kOverCorrelation = 9;
constexpr int kOverFigures = 10;

QAccessibleInterface* makeReadableField(FieldView& field) {
  return new QAccessibleWidget(&field, QAccessible::Grouping);
}

}  // namespace

FieldView::FieldView(QWidget* parent) : QWidget(parent) {
  AccessibleFactory::install<FieldView, makeReadableField>();
  setAccessibleName(tr("Image"));
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  scope = new StereoScope(this);
  scope->setFixedSize(kScope, kScope);
  scope->setToolTip(tr("Stereo scope: Mid is upright, Side is level"));
  layout->addWidget(scope, 0, Qt::AlignHCenter);
  layout->addSpacing(kOverCorrelation);
  correlation = new CorrelationBar(this);
  correlation->setToolTip(tr("Correlation: +1 is mono; below 0, mono loses sound"));
  correlation->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  layout->addWidget(correlation);
  layout->addSpacing(kOverFigures);
  const auto line = [&](const QString& title, const QString& name, const QString& meaning,
                        const QString& unit = QStringLiteral("LUFS")) {
    auto* const made = new FigureLine(title, unit, this);
    made->setAccessibleName(name);
    made->setToolTip(meaning);
    layout->addWidget(made);
    return made;
  };
  momentary = line(tr("Momentary"), tr("Momentary loudness"), tr("Loudness of the last 400 ms"));
  shortTerm = line(tr("Short-term"), tr("Short-term loudness"), tr("Loudness of the last 3 s"));
  wholeTake = line(tr("Whole take"), tr("Loudness of the take"),
                   tr("Loudness of the whole take at this width and gain"));
  truePeak = line(tr("True peak"), tr("True peak"),
                  tr("Greatest level between the samples, at this width and gain"),
                  QStringLiteral("dBTP"));
}
