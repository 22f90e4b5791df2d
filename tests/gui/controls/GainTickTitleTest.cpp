// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <gmock/gmock.h>

#include <QFontMetricsF>
#include <QTest>
#include <algorithm>
#include <cmath>
#include <memory>

#include "Hands.h"
#include "controls/GainTickTitle.h"

namespace {

struct HeardTitle : GainTickTitleDelegate {
  void GainTickTitle(class GainTickTitle* scale, const QString& clickAt) override {
    from = scale;
    texts << clickAt;
  }
  const QWidget* from = nullptr;
  QStringList texts;
};

struct GainTickTitleTest : testing::Test {
  GainTickTitleTest() { scale.setDelegate(heard); }

  void show(QSize size, const QStringList& texts) {
    scale.setTexts(texts);
    scale.initTick();
    Hands::show(scale, size);
  }
  [[nodiscard]] QRectF frame(std::size_t index) const {
    return scale.textRectList()[index].frame();
  }
  [[nodiscard]] double centre(std::size_t index) const {
    return frame(index).y() + frame(index).height() / 2.0;
  }

  std::shared_ptr<HeardTitle> heard = std::make_shared<HeardTitle>();
  ::GainTickTitle scale;
};

TEST_F(GainTickTitleTest, SpacesLabelsEvenlyFlushRight) {
  show({40, 260}, {"+24", "+12", "0", "-12", "-24"});
  const double centres[] = {230, 180, 130, 80, 30};
  const double th = QFontMetricsF(scale.font()).height();
  for (std::size_t i = 0; i < 5; ++i) {
    EXPECT_NEAR(centres[i], centre(i), 1e-9);
    EXPECT_DOUBLE_EQ(40.0, frame(i).right());
    EXPECT_DOUBLE_EQ(th, frame(i).height());
  }
}

TEST_F(GainTickTitleTest, OneLabelIsTheFirst) {
  show({40, 260}, {"0"});
  EXPECT_NEAR(230.0, centre(0), 1e-9);
}

TEST_F(GainTickTitleTest, NoLabelsDrawNothing) {
  show({40, 260}, {});
  EXPECT_TRUE(scale.textRectList().empty());
  Hands::click(scale, {10, 30});
  EXPECT_TRUE(heard->texts.isEmpty());
}

TEST_F(GainTickTitleTest, NewTextsNeedInitTick) {
  show({40, 260}, {"a", "b", "c"});
  scale.setTexts({"d", "e"});
  scale.grab();
  ASSERT_EQ(3U, scale.textRectList().size());
  EXPECT_EQ("a", scale.textRectList()[0].text());
  // The spacing already follows the texts.
  EXPECT_NEAR(30.0, centre(1), 1e-9);
  scale.initTick();
  ASSERT_EQ(2U, scale.textRectList().size());
  EXPECT_EQ("d", scale.textRectList()[0].text());
  EXPECT_EQ(QRectF(), frame(0));
}

TEST_F(GainTickTitleTest, AStepWithoutEndDoesNoHarm) {
  show({40, 260}, {"a", "b", "c"});
  scale.setTexts({"d"});
  scale.grab();
  EXPECT_NEAR(230.0, centre(0), 1e-9);
  Hands::click(scale, {20, 130});
  EXPECT_TRUE(heard->texts.isEmpty());
}

// Half a line of text as the step brings every label back to 30, where it is moved up again.
TEST_F(GainTickTitleTest, EveryLabelAt30IsMoved) {
  const double th = QFontMetricsF(scale.font()).height();
  int steps = 2;
  while (steps < 1000 && std::trunc(steps * th / 2.0) != steps * th / 2.0) ++steps;
  ASSERT_LT(steps, 1000) << "no whole height has this step";
  const int height = 60 + static_cast<int>(steps * th / 2.0);
  show({40, height}, QStringList(steps + 1, "0"));
  for (std::size_t i = 0; i < 4; ++i) EXPECT_NEAR(height - 30.0, centre(i), 1e-9) << i;
}

TEST_F(GainTickTitleTest, EveryPixelReportsTheFirstLabelWhoseAreaHoldsIt) {
  show({60, 200}, {"+36", "+24", "+12", "0", "-12", "-24", "-36"});
  int wrong = 0;
  int reported = 0;
  for (int y = 0; y < 200; ++y) {
    for (int x = 0; x < 60; ++x) {
      QStringList expected;
      for (const TickTextInfo& label : scale.textRectList()) {
        const QRectF f = label.frame();
        const double top = 200.0 - f.y() - f.height();
        const bool isIn = x < f.right() && y >= top && y < top + f.height() + 10.0;
        if (isIn && expected.isEmpty()) expected << label.text();
      }
      heard->texts.clear();
      Hands::click(scale, QPointF(x, y));
      wrong += heard->texts == expected ? 0 : 1;
      reported += static_cast<int>(heard->texts.size());
    }
  }
  EXPECT_EQ(0, wrong);
  EXPECT_LT(60 * 100, reported);
}

TEST_F(GainTickTitleTest, OverlappingAreasGoToTheEarlierLabel) {
  show({60, 60 + 40}, {"a", "b", "c", "d", "e"});
  const QRectF second = frame(1);
  Hands::click(scale, {20.0, 100.0 - second.y() - second.height() + 1.0});
  EXPECT_EQ(QStringList{"a"}, heard->texts);
}

TEST_F(GainTickTitleTest, ReportsWhichScale) {
  show({60, 260}, {"a", "b"});
  QTest::mouseClick(scale.windowHandle(), Qt::LeftButton, {}, QPoint(5, 30));
  EXPECT_EQ(&scale, heard->from);
  EXPECT_EQ(QStringList{"a"}, heard->texts);
}

TEST_F(GainTickTitleTest, ReportsWhereTheButtonComesUp) {
  show({60, 260}, {"a", "b"});
  Hands::press(scale, {5, 30});
  Hands::release(scale, {5, 230});
  EXPECT_EQ(QStringList{"b"}, heard->texts);
}

TEST_F(GainTickTitleTest, ClicksCountWhileDisabled) {
  show({60, 260}, {"a", "b"});
  ASSERT_FALSE(scale.enable());
  Hands::click(scale, {5, 30});
  EXPECT_EQ(QStringList{"a"}, heard->texts);
}

TEST_F(GainTickTitleTest, AClickBeforeTheFirstDrawingReportsNothing) {
  scale.setTexts({"a", "b"});
  scale.initTick();
  scale.resize(60, 260);
  for (int y = 240; y < 275; ++y) Hands::click(scale, QPointF(0, y));
  EXPECT_TRUE(heard->texts.isEmpty());
}

TEST_F(GainTickTitleTest, WithoutADelegateNothingHappens) {
  show({60, 260}, {"a", "b"});
  heard.reset();
  Hands::click(scale, {5, 30});
  scale.setDelegate(std::make_shared<GainTickTitleDelegate>());
  Hands::click(scale, {5, 30});
  EXPECT_EQ(nullptr, heard);
}

TEST_F(GainTickTitleTest, OtherButtonsReportNothing) {
  show({60, 260}, {"a", "b"});
  Hands::press(scale, {5, 30}, Qt::RightButton);
  Hands::release(scale, {5, 30}, Qt::RightButton);
  EXPECT_TRUE(heard->texts.isEmpty());
}

TEST_F(GainTickTitleTest, FollowsItsFont) {
  show({60, 260}, {"+36", "0"});
  const double before = frame(0).x();
  QFont font = scale.font();
  font.setPixelSize(20);
  scale.setFont(font);
  scale.grab();
  EXPECT_GT(before, frame(0).x());
  EXPECT_NEAR(230.0, centre(0), 1e-9);
}

TEST_F(GainTickTitleTest, IsWhiteOrDimmed) {
  show({40, 100}, {"MM"});
  const auto brightest = [this](double factor) {
    const QImage image = Hands::picture(scale, factor);
    int most = 0;
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) most = std::max(most, image.pixelColor(x, y).green());
    }
    return most;
  };
  for (const double factor : {1.0, 1.25, 1.5, 2.0}) {
    scale.setEnable(true);
    EXPECT_LT(200, brightest(factor));
    scale.setEnable(false);
    EXPECT_LT(90, brightest(factor));
    EXPECT_GE(129, brightest(factor));
  }
}

}  // namespace
