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
  layout->addWidget(scope, 0, Qt::AlignHCenter);
  layout->addSpacing(kOverCorrelation);
  correlation = new CorrelationBar(this);
  correlation->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  layout->addWidget(correlation);
  layout->addSpacing(kOverFigures);
  const auto line = [&](const QString& title, const QString& unit, const QString& name) {
    auto* const made = new FigureLine(title, unit, this);
    made->setAccessibleName(name);
    layout->addWidget(made);
    return made;
  };
  const QString lufs = QStringLiteral("LUFS");
  momentary = line(tr("Momentary"), lufs, tr("Momentary loudness"));
  shortTerm = line(tr("Short-term"), lufs, tr("Short-term loudness"));
  wholeTake = line(tr("Whole take"), lufs, tr("Loudness of the take"));
  truePeak = line(tr("True peak"), QStringLiteral("dBTP"), tr("True peak"));
}
