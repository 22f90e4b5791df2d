// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "controls/Appearance.h"

#include <QFile>
#include <QFontInfo>
#include <QStringList>
#include <QStyleFactory>
#include <QWindow>
#include <algorithm>
#include <array>
#include <utility>

#include "controls/Artwork.h"
#include "controls/Colors.h"
#include "controls/KeyRings.h"

static void initialiseResources() {
  Q_INIT_RESOURCE(mixdeck);
}

namespace {

constexpr const char* kFamily = "Inter";
constexpr int kPixels = 13;
constexpr int kTitlePixels = 18;
constexpr int kIndicatorPixels = 14;
constexpr int kArrowPixels = 12;
constexpr int kDropDownPixels = 22;  // with the arrow in its middle

// Desktops give programs a font of 9 to 11 points; a wish for larger text is more than that.
constexpr double kUsualDesktop = 11.0 * 96 / 72;
constexpr double kLeastScale = 1.25;
constexpr double kMostScale = 3;

double& textScale() {
  static double scale = 1;
  return scale;
}

double& fontScale() {
  static double scale = 1;
  return scale;
}

using Named = std::pair<QLatin1String, QColor>;

// A name comes before every name that it begins with.
std::array<Named, 15> namedColors() {
  return {{{QLatin1String("@AppBGLight"), Colors::AppBGLight()},
           {QLatin1String("@AppBG"), Colors::AppBG()},
           {QLatin1String("@ControlColor"), Colors::ControlColor()},
           {QLatin1String("@WHITE"), Colors::WHITE()},
           {QLatin1String("@DimText"), Colors::dimText()},
           {QLatin1String("@Accent"), Colors::accent()},
           {QLatin1String("@FocusRing"), Colors::focusRing()},
           {QLatin1String("@DisabledText"), Colors::disabledText()},
           {QLatin1String("@Line"), Colors::line()},
           {QLatin1String("@Selection"), Colors::selection()},
           {QLatin1String("@Hover"), Colors::hover()},
           {QLatin1String("@Pressed"), Colors::pressed()},
           {QLatin1String("@PrimaryHover"), Colors::primaryHover()},
           {QLatin1String("@PrimaryPressed"), Colors::primaryPressed()},
           {QLatin1String("@Warning"), Colors::warning()}}};
}

// What grows with the text. A circle is round with a radius of half of it and its edge.
std::array<std::pair<QLatin1String, int>, 5> namedSizes() {
  const int indicator = Appearance::pixels(kIndicatorPixels);
  return {{{QLatin1String("@Title"), Appearance::pixels(kTitlePixels)},
           {QLatin1String("@Indicator"), indicator},
           {QLatin1String("@Round"), indicator / 2 + 1},
           {QLatin1String("@Dropdown"), Appearance::pixels(kDropDownPixels)},
           {QLatin1String("@Arrow"), Appearance::pixels(kArrowPixels)}}};
}

QString inStyleSheet(const QColor& color) {
  return QStringLiteral("rgba(%1, %2, %3, %4)")
      .arg(color.red())
      .arg(color.green())
      .arg(color.blue())
      .arg(color.alpha());
}

// The toolkit reads the picture of a pointer where it is first shown, from the user's folders too:
// a medium that hangs would hold up the window then. At the start settings are read anyway.
void loadPointers() {
  QWindow window;
  window.create();
  for (const auto shape : {Qt::ArrowCursor, Qt::IBeamCursor, Qt::PointingHandCursor,
                           Qt::SizeHorCursor, Qt::SizeFDiagCursor, Qt::SizeBDiagCursor}) {
    window.setCursor(shape);
  }
}

}  // namespace

void Appearance::apply(QApplication& application) {
  static const double kWanted = scaleOf(QApplication::font());
  apply(application, kWanted);
}

void Appearance::apply(QApplication& application, double desktopScale) {
  fontScale() = textScale() = desktopScale;
  loadPointers();
  QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
  QApplication::setPalette(palette());
  QApplication::setFont(font());
  application.setStyleSheet(styleSheet());
  QApplication::setWindowIcon(Artwork::icon(QStringLiteral("mixdeck")));
  KeyRings::install(application);
}

double Appearance::scaleOf(const QFont& desktop) {
  const double scale = QFontInfo(desktop).pixelSize() / kUsualDesktop;
  return scale < kLeastScale ? 1 : std::min(scale, kMostScale);
}

void Appearance::setTextScale(QApplication& application, double scale) {
  const double wanted = std::max(fontScale(), std::clamp(scale, 1.0, kMostScale));
  if (!(wanted != textScale())) return;
  textScale() = wanted;
  QApplication::setFont(font());
  application.setStyleSheet(styleSheet());
}

void Appearance::setHighContrast(QApplication& application, bool isHigh) {
  Colors::setHighContrast(isHigh);
  QApplication::setPalette(palette());
  application.setStyleSheet(styleSheet());
}

int Appearance::pixels(int usual) {
  return qRound(usual * textScale());
}

QPalette Appearance::palette() {
  QPalette palette(Colors::WHITE(), Colors::ControlColor(), Colors::line(), Colors::AppBG(),
                   Colors::hover(), Colors::WHITE(), Colors::WHITE(), Colors::AppBGLight(),
                   Colors::AppBG());
  palette.setColor(QPalette::AlternateBase, Colors::AppBGLight());
  palette.setColor(QPalette::PlaceholderText, Colors::dimText());
  palette.setColor(QPalette::Highlight, Colors::selection());
  palette.setColor(QPalette::HighlightedText, Colors::WHITE());
  palette.setColor(QPalette::Link, Colors::accent());
  palette.setColor(QPalette::ToolTipBase, Colors::ControlColor());
  palette.setColor(QPalette::ToolTipText, Colors::WHITE());
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    palette.setColor(QPalette::Disabled, role, Colors::disabledText());
  }
  return palette;
}

// The program's own font may be what is there already: behind Inter the user's family stays.
QFont Appearance::font() {
  QFont font = QApplication::font();
  QStringList families = font.families();
  families.removeAll(QLatin1String(kFamily));
  families.prepend(QLatin1String(kFamily));
  font.setFamilies(families);
  font.setPixelSize(pixels(kPixels));
  return font;
}

QFont Appearance::small(const QFont& from) {
  constexpr double kShare = 11.0 / 13.0;
  QFont font = from;
  if (font.pixelSize() > 0) {
    font.setPixelSize(qRound(font.pixelSize() * kShare));
  } else {
    font.setPointSizeF(font.pointSizeF() * kShare);
  }
  return font;
}

int Appearance::lineWidth(int usual, const QFont& font) {
  return std::max(usual, usual * QFontInfo(font).pixelSize() / kPixels);
}

QString Appearance::styleSheet() {
  initialiseResources();
  QFile file(QStringLiteral(":/mixdeck.qss"));
  if (!file.open(QIODevice::ReadOnly)) return {};
  QString text = QString::fromUtf8(file.readAll());
  for (const auto& [name, color] : namedColors()) text.replace(name, inStyleSheet(color));
  for (const auto& [name, size] : namedSizes()) text.replace(name, QString::number(size));
  return text;
}
