// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <gmock/gmock.h>

#include <QFontMetricsF>
#include <string>
#include <utility>

#include "Drawn.h"
#include "Hands.h"
#include "controls/BezierPath.h"
#include "controls/PathViewer.h"

namespace {

using Type = PathElement::Type;

TEST(PathViewer, StartsEmpty) {
  const DrawnPath path;
  EXPECT_EQ(QString(""), path.text());
  EXPECT_EQ(QString(""), path.lastPathComponent());
}

TEST(PathViewer, ShowsTheLastComponent) {
  const std::pair<const char*, const char*> cases[] = {{"/SD/FOLDER01", "FOLDER01"},
                                                       {"/SD/FOLDER01/", "FOLDER01"},
                                                       {"/SD/FOLDER01///", "FOLDER01"},
                                                       {"FOLDER01", "FOLDER01"},
                                                       {"/", "/"},
                                                       {"///", "/"},
                                                       {"", ""},
                                                       {"/a b/c.d e", "c.d e"}};
  DrawnPath path;
  for (const auto& [text, name] : cases) {
    path.setText(text);
    EXPECT_EQ(QString(text), path.text());
    EXPECT_EQ(QString(name), path.lastPathComponent()) << text;
  }
}

TEST(PathViewer, CentresALineAndStartsAtTheLeft) {
  DrawnPath path;
  path.setText("/SD/FOLDER01");
  Hands::show(path, {300, 41});
  const double th = QFontMetricsF(path.font()).height();
  EXPECT_EQ(QPointF(0.0, (41.0 - th) / 2.0), path.textOrigin());
}

TEST(PathViewer, AWideNameEndsAtTheRightEdge) {
  DrawnPath path;
  path.setText("/SD/A long name of a folder");
  const double tw = QFontMetricsF(path.font()).horizontalAdvance("A long name of a folder");
  const int width = static_cast<int>(tw) - 40;
  Hands::show(path, {width, 30});
  EXPECT_DOUBLE_EQ(width - tw, path.textOrigin().x());
  EXPECT_NEAR(-40.0, path.textOrigin().x(), 1.0);
}

TEST(PathViewer, FollowsItsFont) {
  DrawnPath path;
  path.setText("/SD/A long name of a folder");
  Hands::show(path, {120, 60});
  const double before = path.textOrigin().x();
  QFont font = path.font();
  font.setPixelSize(26);
  path.setFont(font);
  EXPECT_GT(before, path.textOrigin().x());
}

// Black text: painted over white, ink at the right edge for a wide name, none left of a short one.
TEST(PathViewer, DrawsInBlackWithoutBackground) {
  DrawnPath path;
  path.setText("/SD/IIII");
  Hands::show(path, {200, 30});
  for (const double scale : {1.0, 2.0}) {
    QImage image((QSizeF(path.size()) * scale).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(scale);
    image.fill(Qt::white);
    path.render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
    const double tw = QFontMetricsF(path.font()).horizontalAdvance("IIII");
    int darkest = 255;
    for (int x = 0; x < image.width(); ++x) {
      const int gray = image.pixelColor(x, image.height() / 2).green();
      if (x < tw * scale)
        darkest = qMin(darkest, gray);
      else
        EXPECT_EQ(255, gray) << x;
    }
    EXPECT_GT(60, darkest);
  }
}

TEST(ToCGPath, NothingForNoElements) {
  EXPECT_FALSE(toCGPath({}).has_value());
}

TEST(ToCGPath, ClosesAnOpenPath) {
  const PathElement open[] = {
      {Type::MoveTo, {{{1, 1}}}}, {Type::LineTo, {{{5, 1}}}}, {Type::LineTo, {{{5, 4}}}}};
  const auto path = toCGPath(open);
  ASSERT_TRUE(path.has_value());
  ASSERT_EQ(4, path->elementCount());
  EXPECT_EQ(QPointF(1, 1), QPointF(path->elementAt(3)));
  EXPECT_TRUE(path->elementAt(3).isLineTo());
}

TEST(ToCGPath, ClosesOnlyOnce) {
  const PathElement closed[] = {
      {Type::MoveTo, {{{1, 1}}}}, {Type::LineTo, {{{5, 1}}}}, {Type::ClosePath, {}}};
  const auto path = toCGPath(closed);
  ASSERT_TRUE(path.has_value());
  ASSERT_EQ(3, path->elementCount());
  EXPECT_EQ(QPointF(1, 1), QPointF(path->elementAt(2)));
}

TEST(ToCGPath, KeepsCurves) {
  const PathElement curve[] = {{Type::MoveTo, {{{0, 0}}}},
                               {Type::CurveTo, {{{1, 2}, {3, 4}, {5, 0}}}}};
  const auto path = toCGPath(curve);
  ASSERT_TRUE(path.has_value());
  ASSERT_EQ(5, path->elementCount());
  EXPECT_TRUE(path->elementAt(1).isCurveTo());
  EXPECT_EQ(QPointF(1, 2), QPointF(path->elementAt(1)));
  EXPECT_EQ(QPointF(3, 4), QPointF(path->elementAt(2)));
  EXPECT_EQ(QPointF(5, 0), QPointF(path->elementAt(3)));
  EXPECT_EQ(QPointF(0, 0), QPointF(path->elementAt(4)));
}

TEST(ToCGPath, AMoveAloneIsNotClosed) {
  const PathElement move[] = {{Type::MoveTo, {{{3, 4}}}}};
  const auto path = toCGPath(move);
  ASSERT_TRUE(path.has_value());
  EXPECT_EQ(1, path->elementCount());
}

TEST(ToCGPath, ClosesTheLastOfSeveralSubpaths) {
  const PathElement two[] = {{Type::MoveTo, {{{0, 0}}}},
                             {Type::LineTo, {{{1, 0}}}},
                             {Type::ClosePath, {}},
                             {Type::MoveTo, {{{5, 5}}}},
                             {Type::LineTo, {{{6, 5}}}}};
  const auto path = toCGPath(two);
  ASSERT_TRUE(path.has_value());
  ASSERT_EQ(6, path->elementCount());
  EXPECT_EQ(QPointF(5, 5), QPointF(path->elementAt(5)));
}

}  // namespace
