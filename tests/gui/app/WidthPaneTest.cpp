// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
//
// What a width costs, on the dial and beside it, without a window.

#include <QTest>
#include <cmath>
#include <numbers>

#include "TakeFixture.h"
#include "app/PlayerView.h"
#include "app/WidthPane.h"
#include "controls/Colors.h"
#include "gui/controls/Hands.h"

namespace {

using Cost = CostRing::Cost;

/// Mid and Side are steps of these heights, so that no value between samples is greater by much.
class Width : public TakeFixture {
 protected:
  static constexpr double kMid = 0.25;
  static constexpr double kSide = 0.375;

  void TearDown() override {
    pane.reset();
    measured.reset();
    TakeFixture::TearDown();
  }
  void openTake(bool isRaw = true) {
    constexpr double kFull = 0x7FFFFF;
    std::vector<std::int32_t> samples;
    for (int i = 0; i < static_cast<int>(kRate); ++i) {
      const double tone = std::sin(2 * std::numbers::pi * 100 * i / kRate);
      samples.push_back(static_cast<std::int32_t>(std::lround(kMid * tone * kFull)));
      samples.push_back(static_cast<std::int32_t>(std::lround(kSide * tone * kFull)));
    }
    const auto data = WaveBytes::samples24(samples);
    openFile("w.WAV",
             takes.file("w.WAV", WaveBytes().recorderBext(isRaw).format24().data(data).get()));
    ASSERT_TRUE(EventLoop::runUntil([this] { return measured->isComplete(); }));
  }
  /// As the rule of the recorder has it, worked out by hand.
  static double sideGain(int width) {
    if (width == 0) return 0;
    const double dB = width < 16 ? -48 + (width - 1) * 27.0 / 14 : (width - 120) * 0.2;
    return std::pow(10, dB / 20);
  }
  static Cost wantedCost(int width, double gain) {
    const double peak = (kMid + kSide * sideGain(width)) * std::pow(10, gain / 20);
    if (peak > 1) return Cost::Over;
    return peak > std::pow(10, -1.0 / 20) ? Cost::Near : Cost::None;
  }
  [[nodiscard]] std::vector<Cost> wanted(double gain) const {
    std::vector<Cost> costs;
    for (int width = 0; width <= 150; ++width) costs.push_back(wantedCost(width, gain));
    return costs;
  }
  [[nodiscard]] AngleViewer& dial() const { return *view.stage->sliderStereo; }
  [[nodiscard]] CostView& cost() const { return *view.stage->cost; }
  [[nodiscard]] QTimer& timer() const { return *pane->findChild<QTimer*>("timerTurned"); }
  [[nodiscard]] QString shown() const {
    if (cost().isHidden()) return {};
    return cost().lblWidth->text() + '|' + cost().lblLoudness->text() + '|' +
           cost().lblPeak->text();
  }
  /// On the arc, y downward.
  [[nodiscard]] QPointF onArc(double angle) const {
    const double t = (angle + 90.0) * std::numbers::pi / 180.0;
    const double radius = AngleViewer::radiusOf(dial().width());
    const QPointF centre(dial().width() / 2.0, dial().height() / 2.0);
    return centre + QPointF(radius * std::cos(t), -radius * std::sin(t));
  }
  void point(double angle) {
    dial().setEnable(true);
    dial().resize(352, 352);
    dial().grab();
    Hands::move(dial(), onArc(angle));
  }

  PlayerView view;
  std::unique_ptr<MeasuredTake> measured = std::make_unique<MeasuredTake>(*session);
  std::unique_ptr<WidthPane> pane = std::make_unique<WidthPane>(*view.stage, *session, *measured);
};

TEST_F(Width, CostsWhatTheDecodedTakePeaksAt) {
  openTake();
  for (const int gain : {0, 3, 6, 12}) {
    session->setGain(gain);
    EXPECT_EQ(dial().costs(), wanted(gain)) << gain;
  }
  EXPECT_EQ(wanted(0).at(150), Cost::Near);
  EXPECT_EQ(wanted(3).at(150), Cost::Over);
  EXPECT_EQ(wanted(12).at(0), Cost::Near) << "Mid alone";
}

TEST_F(Width, CostsNothingWithoutATakeOrWhereItChangesNothing) {
  session->setGain(12);
  EXPECT_TRUE(dial().costs().empty());
  openTake();
  EXPECT_FALSE(dial().costs().empty());
  point(120);
  EXPECT_NE(shown(), "");
  session->close();
  EXPECT_TRUE(dial().costs().empty());
  EXPECT_EQ(shown(), "");
  openTake(false);
  EXPECT_TRUE(dial().costs().empty());
  Hands::move(dial(), onArc(60));
  EXPECT_EQ(shown(), "") << "the channels stay as they are";
}

TEST_F(Width, IsToldWhereThePointerIs) {
  openTake();
  EXPECT_EQ(shown(), "");
  const auto text = [this](int width, double gain) {
    const TakeFigures figures = measured->analysis()->at(width, gain);
    const auto number = [](double figure) {
      const QString digits = QString::number(figure, 'f', 1).replace(u'-', u'−');
      return figure > 0 ? u'+' + digits : digits;
    };
    return QString("%1°|%2 LUFS|%3 dBTP")
        .arg(width)
        .arg(number(*figures.integratedLufs), number(*figures.truePeakDbtp));
  };
  point(120.5);
  EXPECT_EQ(shown(), text(120, 0));
  session->setGain(-7);
  EXPECT_EQ(shown(), text(120, -7));
  Hands::move(dial(), onArc(30.5));
  EXPECT_EQ(shown(), text(30, -7));
  Hands::move(dial(), {176, 176});
  EXPECT_EQ(shown(), "") << "in the middle there is no width";
}

TEST_F(Width, IsToldForAWhileAfterATurn) {
  openTake();
  dial().setNewAngle(75);
  session->setAngle(75);
  EXPECT_EQ(shown().section('|', 0, 0), "75°");
  EXPECT_TRUE(timer().isActive());
  EXPECT_TRUE(timer().isSingleShot());
  EXPECT_EQ(timer().interval(), WidthPane::kAfterTurn);
  timer().stop();
  emit session->soundChanged();
  EXPECT_EQ(shown(), "");
}

TEST_F(Width, PeakIsColouredAsItsPlaceOnTheArc) {
  openTake();
  session->setGain(3);
  const auto colorAt = [this](int width) {
    point(width + 0.5);
    return cost().lblPeak->palette().color(QPalette::WindowText);
  };
  EXPECT_EQ(wanted(3).at(30), Cost::None);
  EXPECT_EQ(colorAt(30), Colors::WHITE());
  EXPECT_EQ(wanted(3).at(125), Cost::Near);
  EXPECT_EQ(colorAt(125), Colors::warning());
  EXPECT_EQ(colorAt(149), Colors::overText());
}

TEST_F(Width, IsReadWithAPlainMinusSign) {
  openTake();
  session->setGain(-12);
  point(90.5);
  EXPECT_TRUE(cost().lblPeak->accessibleName().startsWith("True peak -"));
  EXPECT_TRUE(cost().lblLoudness->accessibleName().endsWith(" LUFS"));
}

TEST_F(Width, LeavesTheDialAloneWhereNothingIsNew) {
  openTake();
  session->setGain(6);
  const auto before = dial().costs();
  dial().setCosts({});
  session->setAngle(33);
  EXPECT_TRUE(dial().costs().empty()) << "a turn alone draws no other arc";
  session->setGain(7);
  session->setGain(6);
  EXPECT_EQ(dial().costs(), before);
}

}  // namespace
