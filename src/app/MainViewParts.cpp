// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/MainViewParts.h"

#include <QEvent>
#include <QPalette>

#include "controls/Artwork.h"
#include "controls/Colors.h"

namespace {

constexpr QLatin1String kFading("fading");

/// Keeps a caption at its opacity: a style sheet that comes anew puts back the palette that was
/// there before the first one.
class Fading : public QObject {
 public:
  explicit Fading(QLabel& caption) : QObject(&caption), _caption(caption) {
    setObjectName(kFading);
    _caption.installEventFilter(this);
  }

  void setAlpha(double alpha) {
    _alpha = alpha;
    fade();
  }

 protected:
  bool eventFilter(QObject* /*caption*/, QEvent* event) override {
    if (event->type() == QEvent::PaletteChange) fade();
    return false;
  }

 private:
  void fade() {
    QPalette palette = _caption.palette();
    QColor colour = Colors::WHITE();
    colour.setAlphaF(static_cast<float>(_alpha));
    if (palette.color(QPalette::WindowText) == colour) return;
    palette.setColor(QPalette::WindowText, colour);
    _caption.setPalette(palette);
  }

  QLabel& _caption;
  double _alpha = 1;
};

}  // namespace

void MainViewParts::makeGround(QWidget& widget, const char* name) {
  widget.setObjectName(QLatin1String(name));
  widget.setAttribute(Qt::WA_StyledBackground);
}

QWidget* MainViewParts::ground(QWidget* parent, const char* name) {
  auto* const made = new QWidget(parent);
  makeGround(*made, name);
  return made;
}

void MainViewParts::style(QLabel& label, const char* role, const QString& text) {
  label.setProperty("role", QString::fromLatin1(role));
  label.setTextFormat(Qt::PlainText);
  label.setText(text);
}

void MainViewParts::setFace(QAbstractButton& button, const QString& artwork, const QString& name) {
  button.setIcon(Artwork::icon(artwork));
  button.setAccessibleName(name);
  button.setToolTip(name);
}

void MainViewParts::setAlpha(QLabel& caption, double alpha) {
  auto* fading =
      dynamic_cast<Fading*>(caption.findChild<QObject*>(kFading, Qt::FindDirectChildrenOnly));
  if (fading == nullptr) fading = new Fading(caption);
  fading->setAlpha(alpha);
}
