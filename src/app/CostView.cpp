// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/CostView.h"

#include <QEvent>
#include <QFontMetricsF>
#include <QVBoxLayout>
#include <algorithm>

#include "app/MainViewParts.h"
#include "controls/Appearance.h"
#include "controls/NumberText.h"

namespace {

constexpr int kLeastPixels = 6;

QString figureText(const std::optional<double>& figure, const QString& unit) {
  if (!figure) return QStringLiteral("–");
  return NumberText::printed(NumberText::level(*figure)) + u' ' + unit;
}

// The same for assistive software, which reads a plain minus sign.
void tell(QLabel& label, const QString& name, const QString& text) {
  label.setText(text);
  label.setAccessibleName(name + u' ' + QString(text).replace(u'−', u'-'));
}

}  // namespace

CostView::CostView(QWidget* parent) : QWidget(parent) {
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(1);
  lblWidth = MainViewParts::label<TabularLabel>(this, "heading");
  lblLoudness = MainViewParts::label<TabularLabel>(this, "");
  lblPeak = MainViewParts::label<TabularLabel>(this, "");
  for (TabularLabel* const line : {lblWidth, lblLoudness, lblPeak}) {
    line->setAlignment(Qt::AlignCenter);
    line->setMinimumWidth(1);
    column->addWidget(line);
  }
  setAttribute(Qt::WA_TransparentForMouseEvents);
  hide();
}

void CostView::showFigures(int width, const TakeFigures& figures, const QColor& peakColor) {
  tell(*lblWidth, tr("Width"), tr("%1°").arg(width));
  tell(*lblLoudness, tr("Loudness"), figureText(figures.integratedLufs, QStringLiteral("LUFS")));
  tell(*lblPeak, tr("True peak"), figureText(figures.truePeakDbtp, QStringLiteral("dBTP")));
  QPalette palette = lblPeak->palette();
  if (palette.color(QPalette::WindowText) != peakColor) {
    palette.setColor(QPalette::WindowText, peakColor);
    lblPeak->setPalette(palette);
  }
  setVisible(true);
}

void CostView::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  fit();
}

void CostView::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::FontChange) fit();
}

// The longest text that there may be decides.
void CostView::fit() {
  QFont small = Appearance::small(font());
  const double need =
      QFontMetricsF(small).horizontalAdvance(NumberText::localized(QStringLiteral("−88.8 LUFS"))) +
      2;
  if (need > width() && small.pixelSize() > 0) {
    const double share = width() / need;
    small.setPixelSize(std::max(kLeastPixels, static_cast<int>(small.pixelSize() * share)));
  }
  for (TabularLabel* const line : {lblWidth, lblLoudness, lblPeak}) line->setFont(small);
}
