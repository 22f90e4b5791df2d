// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "controls/Artwork.h"

#include <gmock/gmock.h>

#include <QImage>
#include <QPainter>
#include <algorithm>
#include <vector>

#include "controls/Appearance.h"
#include "controls/Colors.h"

namespace {

const char* const kNames[] = {"play_play", "play_pause",  "speaker_mute", "speaker_1",
                              "speaker_2", "speaker_3",   "folder",       "wav_file",
                              "go_up",     "open_folder", "device_j4",    "logo",
                              "mixdeck",   "back",        "forward",      "new_folder"};

QImage picture(const char* name, int width, int height, QIcon::Mode mode = QIcon::Normal) {
  return Artwork::icon(name)
      .pixmap({width, height}, 1.0, mode)
      .toImage()
      .convertToFormat(QImage::Format_ARGB32);
}

// Pixels of a row that are neither empty nor as opaque as the drawing gets.
int softPixels(const QImage& image, int row) {
  int count = 0;
  for (int x = 0; x < image.width(); ++x) {
    const int alpha = qAlpha(image.pixel(x, row));
    if (alpha > 0 && alpha < 255) ++count;
  }
  return count;
}

TEST(Artwork, EveryNameHasADrawing) {
  for (const char* const name : kNames) {
    EXPECT_FALSE(Artwork::icon(name).isNull()) << name;
    EXPECT_FALSE(Artwork::naturalSize(name).isEmpty()) << name;
    const QImage image = picture(name, 32, 32);
    EXPECT_EQ(QSize(32, 32), image.size()) << name;
    QImage empty = image;
    empty.fill(Qt::transparent);
    EXPECT_NE(empty, image) << name;
  }
}

TEST(Artwork, AnUnknownNameHasNone) {
  EXPECT_TRUE(Artwork::icon("speaker_4").isNull());
  EXPECT_EQ(QSize(0, 0), Artwork::naturalSize("speaker_4"));
}

TEST(Artwork, NamesDiffer) {
  std::vector<QImage> seen;
  for (const char* const name : kNames) {
    const QImage image = picture(name, 48, 48);
    EXPECT_EQ(0, std::count(seen.begin(), seen.end(), image)) << name;
    seen.push_back(image);
  }
}

// Two bars: four edges, each at most one pixel soft, however large.
TEST(Artwork, IsSharpAtEverySize) {
  for (const int size : {16, 24, 30, 37, 96, 480}) {
    EXPECT_GE(4, softPixels(picture("play_pause", size, size), size / 2)) << size;
  }
}

TEST(Artwork, HasAsManyPixelsAsTheScreen) {
  const QPixmap pixmap = Artwork::icon("folder").pixmap({20, 20}, 1.5);
  EXPECT_EQ(QSize(30, 30), pixmap.size());
  EXPECT_EQ(1.5, pixmap.devicePixelRatio());
}

TEST(Artwork, IsDrawnOnceForASize) {
  const QIcon icon = Artwork::icon("folder");
  EXPECT_EQ(icon.cacheKey(), Artwork::icon("folder").cacheKey()) << "and read once";
  const auto key = [&](int size) { return icon.pixmap({size, size}, 1.0).cacheKey(); };
  EXPECT_EQ(key(20), key(20));
  EXPECT_NE(key(20), key(24));
}

TEST(Artwork, IsTheSamePictureWhereItIsPainted) {
  const QIcon icon = Artwork::icon("device_j4");
  const auto paintedAt = [&](double x) {
    QImage image(80, 160, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.translate(x, 0.0);
    icon.paint(&painter, QRect(0, 0, 68, 156));
    return image;
  };
  const QImage kept = paintedAt(2.0);
  EXPECT_EQ(kept, paintedAt(2.0));
  const QImage drawn = paintedAt(2.0 + 1e-9);  // not on whole pixels: drawn by itself
  for (int y = 0; y < kept.height(); ++y) {
    for (int x = 0; x < kept.width(); ++x) {
      ASSERT_NEAR(qAlpha(kept.pixel(x, y)), qAlpha(drawn.pixel(x, y)), 2) << x << ", " << y;
      ASSERT_NEAR(qGreen(kept.pixel(x, y)), qGreen(drawn.pixel(x, y)), 4) << x << ", " << y;
    }
  }
}

TEST(Artwork, IsDimmedWhenDisabled) {
  const int normal = qAlpha(picture("play_play", 24, 24).pixel(12, 12));
  const int disabled = qAlpha(picture("play_play", 24, 24, QIcon::Disabled).pixel(12, 12));
  EXPECT_EQ(255, normal);
  EXPECT_NEAR(255 * 0.35, disabled, 2);
}

// The triangle is filled and has an edge that lies half over it: one tone when dimmed.
TEST(Artwork, DimsADrawingAsAWhole) {
  const QImage image = picture("play_play", 240, 240, QIcon::Disabled);
  int most = 0;
  for (int x = 0; x < image.width(); ++x) most = std::max(most, qAlpha(image.pixel(x, 120)));
  EXPECT_NEAR(255 * 0.35, most, 2);
}

TEST(Artwork, KeepsItsShapeInTheMiddle) {
  const QImage image = picture("device_j4", 160, 160);
  EXPECT_EQ(0, qAlpha(image.pixel(43, 80)));
  EXPECT_LT(0, qAlpha(image.pixel(46, 80)));
  EXPECT_LT(0, qAlpha(image.pixel(113, 80)));
  EXPECT_EQ(0, qAlpha(image.pixel(117, 80)));
}

TEST(Appearance, TheStyleSheetHasColoursForAllNames) {
  const QString sheet = Appearance::styleSheet();
  EXPECT_TRUE(sheet.contains("QPushButton"));
  EXPECT_FALSE(sheet.contains('@'));
  EXPECT_TRUE(sheet.contains("rgba(45, 48, 54, 255)"));  // ControlColor
}

TEST(Appearance, TheUsersFamilyStaysBehindItsOwnInEverySize) {
  const QFont before = QApplication::font();
  QApplication::setFont(QFont(QStringLiteral("Somebody")));
  Appearance::apply(*qApp);
  Appearance::setTextScale(*qApp, 1.5);
  Appearance::setTextScale(*qApp, 1);
  EXPECT_EQ(QApplication::font().families(),
            QStringList({QStringLiteral("Inter"), QStringLiteral("Somebody")}));
  QApplication::setFont(before);
}

TEST(Appearance, TheLargerOfTheDesktopsTwoWishesForTextCounts) {
  Appearance::apply(*qApp);  // what the desktop gives is known from here on
  QFont large;
  large.setPixelSize(22);
  Appearance::apply(*qApp, Appearance::scaleOf(large));
  const int wanted = Appearance::pixels(100);
  EXPECT_EQ(wanted, 150);
  Appearance::setTextScale(*qApp, 1);
  EXPECT_EQ(Appearance::pixels(100), wanted) << "the font's wish stays";
  Appearance::setTextScale(*qApp, 2);
  EXPECT_EQ(Appearance::pixels(100), 200);
  Appearance::setTextScale(*qApp, 1.25);
  EXPECT_EQ(Appearance::pixels(100), wanted);
  Appearance::apply(*qApp);
  EXPECT_EQ(Appearance::pixels(100), 100);
}

TEST(Appearance, IsDark) {
  Appearance::apply(*qApp);
  EXPECT_EQ(Colors::AppBG(), QApplication::palette().color(QPalette::Window));
  EXPECT_EQ(Colors::WHITE(), QApplication::palette().color(QPalette::WindowText));
  EXPECT_EQ(13, QApplication::font().pixelSize());
  EXPECT_FALSE(QApplication::windowIcon().isNull());
}

}  // namespace
