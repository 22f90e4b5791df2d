// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <gmock/gmock.h>

#include <QFontMetricsF>
#include <cmath>
#include <memory>
#include <numbers>
#include <vector>

#include "Drawn.h"
#include "Hands.h"
#include "controls/AngleViewer.h"

namespace {

constexpr double kNear = 1e-9;

struct Report : AngleViewerDelegate {
  void angleViewer(AngleViewer* dial, double angleChanged) override {
    angles.push_back(angleChanged);
    anglesDuring.push_back(dial->angle());
  }
  std::vector<double> angles;
  std::vector<double> anglesDuring;
};

struct AngleViewerGeometry : testing::Test {
  AngleViewerGeometry() {
    Hands::show(dial, {200, 240});
    dial.setEnable(true);
    dial.setDelegate(report);
  }

  // Where an angle stands, y upward, in a view of 200 x 240 with a radius of 80.
  static QPointF place(double angle) {
    const double t = (angle + 90.0) * std::numbers::pi / 180.0;
    return {100.0 + 80.0 * std::cos(t), 120.0 + 80.0 * std::sin(t)};
  }
  void expectThumbAt(double angle) const {
    EXPECT_NEAR(place(angle).x(), dial.thumbPosition().x(), kNear);
    EXPECT_NEAR(place(angle).y(), dial.thumbPosition().y(), kNear);
  }

  std::shared_ptr<Report> report = std::make_shared<Report>();
  DrawnDial dial;
};

TEST_F(AngleViewerGeometry, FollowsTheWidth) {
  EXPECT_DOUBLE_EQ(80.0, dial.radius());
  EXPECT_DOUBLE_EQ(10.0, dial.thumbSize());
  EXPECT_EQ(QPointF(100.0, 200.0), dial.thumbPosition());
}

TEST(AngleViewer, NotANumberIsNoAngle) {
  AngleViewer dial;
  dial.setNewAngle(90.0);
  dial.setNewAngle(std::nan(""));
  dial.setAngle(std::nan(""));
  EXPECT_EQ(90.0, dial.angle());
  EXPECT_EQ(QString("90°"), dial.valueText());
}

TEST(AngleViewer, StartsDisabledAtMonoWithSixLabels) {
  const DrawnDial dial;
  EXPECT_FALSE(dial.enable());
  EXPECT_EQ(0.0, dial.angle());
  const std::vector<AngleInfo> expected = {{"MONO", 0.0, {25, -20}},  {"30°", 30.0, {-3, -14}},
                                           {"60°", 60.0, {-5, -5}},   {"90°", 90.0, {-5, 0}},
                                           {"120°", 120.0, {-5, 10}}, {"150°", 150.0, {5, 18}}};
  ASSERT_EQ(expected.size(), dial.angleTextList().size());
  for (std::size_t i = 0; i < expected.size(); ++i) {
    EXPECT_EQ(expected[i].text(), dial.angleTextList()[i].text());
    EXPECT_EQ(expected[i].angle(), dial.angleTextList()[i].angle());
    EXPECT_EQ(expected[i].offset(), dial.angleTextList()[i].offset());
    EXPECT_TRUE(dial.angleTextList()[i].frame().isEmpty());
  }
}

TEST(AngleViewer, HasOneGrey) {
  EXPECT_EQ(QColor(88, 88, 88, 255), AngleViewer::GrayBackgroundColor());
}

TEST(AngleViewer, AsksForRoomForItsLabels) {
  DrawnDial dial;
  QFont font = dial.font();
  font.setPixelSize(20);
  dial.setFont(font);
  Hands::show(dial, dial.sizeHint());
  EXPECT_LT(330, dial.sizeHint().width());
  for (const AngleInfo& title : dial.angleTextList()) {
    EXPECT_LE(0.0, title.frame().x()) << title.text().toStdString();
  }
}

TEST_F(AngleViewerGeometry, PlacesLabelsByTheirFormula) {
  const QFontMetricsF metrics(dial.font());
  for (const AngleInfo& title : dial.angleTextList()) {
    const double tw = metrics.horizontalAdvance(title.text());
    const double th = metrics.height();
    const double t = (title.angle() + 90.0) * std::numbers::pi / 180.0;
    const double d = (120.0 - std::sin(t) * 80.0) - th * 0.5 + title.offset().y();
    EXPECT_NEAR(100.0 + std::cos(t) * 80.0 - tw - 8.0 + title.offset().x(), title.frame().x(),
                kNear);
    EXPECT_NEAR(240.0 - th - d, title.frame().y(), kNear);
    EXPECT_NEAR(tw, title.frame().width(), kNear);
    EXPECT_NEAR(th, title.frame().height(), kNear);
  }
}

TEST_F(AngleViewerGeometry, SetNewAngleMovesTheThumbAndReportsFirst) {
  dial.setNewAngle(47.5);
  EXPECT_EQ(47.5, dial.angle());
  expectThumbAt(47.5);
  EXPECT_THAT(report->angles, testing::ElementsAre(47.5));
  EXPECT_THAT(report->anglesDuring, testing::ElementsAre(0.0));
}

TEST_F(AngleViewerGeometry, TheSameAngleTwiceIsReportedOnce) {
  dial.setNewAngle(60.0);
  dial.setNewAngle(60.0);
  EXPECT_THAT(report->angles, testing::ElementsAre(60.0));
}

TEST_F(AngleViewerGeometry, SetAngleOnlyStores) {
  dial.setAngle(90.0);
  EXPECT_EQ(90.0, dial.angle());
  expectThumbAt(0.0);
  EXPECT_TRUE(report->angles.empty());
}

TEST_F(AngleViewerGeometry, RebuildArcLeavesTheThumb) {
  dial.setAngle(90.0);
  dial.rebuildArc();
  expectThumbAt(0.0);
}

TEST_F(AngleViewerGeometry, ResetTo0) {
  dial.setNewAngle(120.0);
  dial.resetTo0();
  EXPECT_EQ(0.0, dial.angle());
  EXPECT_EQ(QPointF(100.0, 200.0), dial.thumbPosition());
  EXPECT_THAT(report->angles, testing::ElementsAre(120.0, 0.0));
}

TEST_F(AngleViewerGeometry, ANewSizePutsTheThumbBackAndKeepsTheAngle) {
  dial.setNewAngle(120.0);
  dial.resize(300, 300);
  EXPECT_EQ(120.0, dial.angle());
  EXPECT_EQ(QPointF(150.0, 270.0), dial.thumbPosition());
  dial.setNewAngle(120.0);
  EXPECT_NEAR(150.0 - 120.0 * std::sqrt(0.75), dial.thumbPosition().x(), kNear);
  EXPECT_THAT(report->angles, testing::ElementsAre(120.0));
}

TEST_F(AngleViewerGeometry, TheSameSizeAgainChangesNothing) {
  dial.setNewAngle(120.0);
  dial.hide();
  dial.show();
  dial.grab();
  expectThumbAt(120.0);
}

TEST_F(AngleViewerGeometry, DirectionsBecomeAngles) {
  struct Case {
    QPointF point;
    double angle;
  };
  const Case cases[] = {{{100, 130}, 0.0},  {{50, 120}, 90.0},  {{0, 120}, 90.0},
                        {{90, 130}, 45.0},  {{80, 100}, 135.0}, {place(150.0), 150.0},
                        {place(30.0), 30.0}};
  for (const auto& [point, angle] : cases) {
    dial.setNewAngle(75.0);
    dial.moveTheThumb(point, true);
    EXPECT_NEAR(angle, dial.angle(), kNear);
    expectThumbAt(angle);
  }
}

TEST_F(AngleViewerGeometry, BeyondTheEndsItStopsOrStays) {
  const QPointF rightOfTop(130, 180);
  const QPointF belowRight(130, 60);
  const QPointF justBeyond150(100.0 - 80.0 * 0.49, 120.0 - 80.0 * 0.87);
  for (const QPointF outside : {rightOfTop, belowRight, justBeyond150, QPointF(100, 120)}) {
    dial.setNewAngle(75.0);
    dial.moveTheThumb(outside, true);
    EXPECT_EQ(75.0, dial.angle());
    expectThumbAt(75.0);
  }
  dial.moveTheThumb(rightOfTop, false);
  EXPECT_EQ(0.0, dial.angle());
  expectThumbAt(0.0);
  for (const QPointF below : {belowRight, justBeyond150}) {
    dial.moveTheThumb(below, false);
    EXPECT_EQ(150.0, dial.angle());
    expectThumbAt(150.0);
  }
}

TEST_F(AngleViewerGeometry, ADelegateThatIsGoneIsNotAsked) {
  report.reset();
  dial.setNewAngle(30.0);
  EXPECT_EQ(30.0, dial.angle());
}

TEST_F(AngleViewerGeometry, ADelegateNeedNotAnswer) {
  const auto silent = std::make_shared<AngleViewerDelegate>();
  dial.setDelegate(silent);
  dial.setNewAngle(30.0);
  EXPECT_EQ(30.0, dial.angle());
}

TEST(AngleViewer, TakesAnAngleBeforeItIsLaidOut) {
  DrawnDial dial;
  dial.setNewAngle(30.0);
  EXPECT_EQ(30.0, dial.angle());
  Hands::show(dial, {200, 200});
  EXPECT_EQ(QPointF(100.0, 180.0), dial.thumbPosition());
}

}  // namespace
