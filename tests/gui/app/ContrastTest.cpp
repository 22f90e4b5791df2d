// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
//
// Whether what is drawn can be told from its ground, measured in pictures of the window, by the
// contrast ratio that guidelines for accessible pages define.

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QComboBox>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <QToolButton>
#include <QTransform>
#include <algorithm>
#include <cmath>
#include <map>
#include <numbers>
#include <string>
#include <vector>

#include "EveryDialog.h"
#include "WindowFixture.h"
#include "controls/Announcer.h"
#include "controls/Appearance.h"
#include "controls/Colors.h"
#include "controls/FigureLine.h"
#include "controls/Upward.h"
#include "folders/FileListCell.h"
#include "folders/FileListModel.h"

namespace {

constexpr double kText = 4.5;
constexpr double kControl = 3.0;
constexpr double kHighText = 7.0;

double linear(int channel) {
  const double share = channel / 255.0;
  return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
}

double luminance(QRgb color) {
  return 0.2126 * linear(qRed(color)) + 0.7152 * linear(qGreen(color)) +
         0.0722 * linear(qBlue(color));
}

double contrast(QRgb a, QRgb b) {
  const double one = luminance(a) + 0.05;
  const double other = luminance(b) + 0.05;
  return std::max(one, other) / std::min(one, other);
}

/// The ground is the commonest color; what stands out most from it is what is drawn.
double greatestContrast(const QImage& picture) {
  std::map<QRgb, int> counts;
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) ++counts[picture.pixel(x, y)];
  }
  const auto isRarer = [](const auto& a, const auto& b) { return a.second < b.second; };
  const QRgb ground = std::ranges::max_element(counts, isRarer)->first;
  double most = 1;
  for (const auto& [color, count] : counts) most = std::max(most, contrast(color, ground));
  return most;
}

/// The parts of a picture between which there is nothing but the ground for so many lines or more.
std::vector<QImage> lines(const QImage& picture, int gap) {
  std::vector<QImage> found;
  int first = -1;
  int last = -1;
  const auto isBlank = [&](int y) {
    for (int x = 1; x < picture.width(); ++x) {
      if (picture.pixel(x, y) != picture.pixel(0, y)) return false;
    }
    return true;
  };
  for (int y = 0; y <= picture.height(); ++y) {
    const bool isEnd = y == picture.height();
    if (!isEnd && !isBlank(y)) {
      if (first < 0) first = y;
      last = y;
    } else if (first >= 0 && (isEnd || y - last > gap)) {
      found.push_back(picture.copy(0, first, picture.width(), last + 1 - first));
      first = -1;
    }
  }
  return found;
}

/// The least contrast of a line of text in a picture, or of what stands far apart in a line.
double leastContrast(const QImage& picture) {
  constexpr int kText = 6;       // lower is a rule or a mark
  constexpr int kFarApart = 24;  // more than between words
  const QTransform turn = QTransform().rotate(90);
  std::vector<double> found;
  for (const QImage& line : lines(picture, 0)) {
    if (line.height() < kText) continue;
    for (const QImage& part : lines(line.transformed(turn), kFarApart)) {
      if (part.height() >= kText) found.push_back(greatestContrast(part));
    }
  }
  return found.empty() ? greatestContrast(picture) : *std::ranges::min_element(found);
}

class Contrast : public WindowFixture {
 protected:
  void SetUp() override {
    take("R0001.WAV");
    take("R0002.WAV");
    startOnTakes();
    open("R0001.WAV");
    // Until the meters show what is heard.
    const auto isShown = [this] {
      play(50);
      _window = view().grab().toImage().convertToFormat(QImage::Format_RGB32);
      return of(*stage().lvlLeft) >= kControl && of(*stage().lvlRight) >= kControl;
    };
    waitFor(isShown, "the meters");
  }
  void TearDown() override {
    end();
    Appearance::setHighContrast(*qApp, false);
  }
  void look() {
    controller().refreshUIWhenPlay();
    QCoreApplication::processEvents();
    _window = view().grab().toImage().convertToFormat(QImage::Format_RGB32);
  }

  [[nodiscard]] double of(const QWidget& widget) const {
    const double scale = _window.devicePixelRatio();
    const QPoint place = widget.mapTo(&view(), QPoint(0, 0));
    const QRectF area(place.x() * scale, place.y() * scale, widget.width() * scale,
                      widget.height() * scale);
    return greatestContrast(_window.copy(area.toAlignedRect() & _window.rect()));
  }
  /// The same of a part of a widget.
  [[nodiscard]] double of(const QWidget& widget, const QRect& part) const {
    const double scale = _window.devicePixelRatio();
    const QPoint place = widget.mapTo(&view(), part.topLeft());
    const QRectF area(place.x() * scale, place.y() * scale, part.width() * scale,
                      part.height() * scale);
    return greatestContrast(_window.copy(area.toAlignedRect() & _window.rect()));
  }
  /// Of each text in a part of a widget that is not far from another.
  [[nodiscard]] double ofTexts(const QWidget& widget, const QRect& part) const {
    return leastContrast(pictureOf(widget, part));
  }
  [[nodiscard]] QImage pictureOf(const QWidget& widget, const QRect& part) const {
    const double scale = _window.devicePixelRatio();
    const QRectF area(QPointF(widget.mapTo(&view(), part.topLeft())) * scale,
                      QSizeF(part.size()) * scale);
    QImage picture = _window.copy(area.toAlignedRect() & _window.rect());
    picture.setDevicePixelRatio(1);
    return picture;
  }
  void rest() {
    if (controller().take().state() == TakeSession::State::Playing) controller().btnPlay_Click();
    waitFor([this] { return stage().field->scope->isDark(); }, "its rest");
    view().browser->tableFile->selectRow(0);
    QCursor::setPos(view().mapToGlobal(QPoint(2, 2)));
    look();
  }
  void expectText(double least, const QWidget& widget, const QRectF& place,
                  const char* what) const {
    const QRect part = place.toAlignedRect();
    ASSERT_TRUE(widget.rect().intersects(part)) << what;
    EXPECT_GE(of(widget, part), least) << what;
  }
  void expectScales(double least) const {
    /// Where labels were drawn is told to inheritors only.
    struct Dial : AngleViewer {
      static const std::vector<AngleInfo>& labelsOf(const AngleViewer& dial) {
        return (dial.*&Dial::angleTextList)();
      }
    };
    const AngleViewer& dial = *stage().sliderStereo;
    EXPECT_EQ(Dial::labelsOf(dial).size(), 6U);
    for (const AngleInfo& label : Dial::labelsOf(dial)) {
      expectText(least, dial, Upward::rect(label.frame(), dial.height()), qPrintable(label.text()));
    }
    for (const GainTickTitle* const scale : {stage().tickOfGain, stage().tickOfLevel}) {
      EXPECT_GE(scale->textRectList().size(), 7U);
      for (const TickTextInfo& label : scale->textRectList()) {
        expectText(least, *scale, Upward::rect(label.frame(), scale->height()),
                   qPrintable(label.text()));
      }
    }
  }
  void expectField(double least) const {
    const StereoScope& scope = *stage().field->scope;
    const int box = std::max(16, QFontMetrics(Appearance::small(scope.font())).height());
    const int far = scope.width() - box - 2;
    const int middle = (scope.width() - box) / 2;
    expectText(least, scope, QRect(2, 2, box, box), "L");
    expectText(least, scope, QRect(middle, 2, box, box), "M");
    expectText(least, scope, QRect(far, 2, box, box), "R");
    expectText(least, scope, QRect(far, middle, box, box), "S");
    const CorrelationBar& bar = *stage().field->correlation;
    const int third = bar.width() / 3;
    for (const int place : {0, 1, 2}) {
      expectText(least, bar, QRect(place * third, 14, third, bar.height() - 14), "correlation");
    }
    for (const ClipLamp* const lamp : {stage().clipLeft, stage().clipRight}) {
      expectText(least, *lamp, QRectF(0, 0, lamp->width(), lamp->lamp().top() - 2), "peak");
    }
  }
  void expectPaintedTexts(double least) {
    expectScales(least);
    expectField(least);
    const WaveformViewer& wave = *view().player->waveform;
    const QRect ruler(6, 2, wave.width() - 12, static_cast<int>(wave.ruler()) - 3);
    EXPECT_GE(ofTexts(wave, ruler), least) << "times of the ruler";
    const FileList& list = *view().browser->tableFile;
    const auto duration = [&](int row) {
      return list.model()->index(row, 0).data(FileListModel::kDurationRole).toString();
    };
    const int rows = list.model()->rowCount();
    ASSERT_GE(rows, 2);
    waitFor([&] { return !duration(rows - 2).isEmpty() && !duration(rows - 1).isEmpty(); },
            "the durations");
    look();
    for (int row = 0; row < rows; ++row) {
      const QRect place = list.visualRect(list.model()->index(row, 0));
      EXPECT_GE(ofTexts(*list.viewport(), FileListCell::lblFileName(place).adjusted(0, 4, -4, -4)),
                least)
          << "row " << row;
    }
  }
  void expectDarkLampsAndBar(double least) {
    stage().clipLeft->setPeak(PeakHold());
    look();
    const ClipLamp& lamp = *stage().clipLeft;
    EXPECT_GE(of(lamp, lamp.lamp().toRect().adjusted(-6, -2, 6, 1)), least) << "lamp";
    const CorrelationBar& bar = *stage().field->correlation;
    ASSERT_FALSE(bar.value().has_value());
    EXPECT_GE(of(bar, QRect(0, -6, bar.width(), 20)), least) << "bar";
  }
  /// Left is over full scale, Right is not and leaves some of the ground.
  void expectWaveInLoop(const QColor& over, const QColor& plain) {
    look();
    const WaveformViewer& wave = *view().player->waveform;
    const QRectF body = wave.body();
    const auto at = [&](double y) {
      const QPointF place(wave.xOf(3.0), y);
      const QPointF onWindow = place + QPointF(wave.mapTo(&view(), QPoint(0, 0)));
      return _window.pixel((onWindow * _window.devicePixelRatio()).toPoint());
    };
    const QRgb ground = at(body.bottom() - 2);
    EXPECT_NE(ground, Colors::AppBG().rgb()) << "a veil";
    EXPECT_EQ(at(body.top() + 4), over.rgb());
    EXPECT_EQ(at(body.center().y() + 4), plain.rgb());
    EXPECT_GE(contrast(over.rgb(), ground), kControl);
    EXPECT_GE(contrast(plain.rgb(), ground), kControl);
  }
  /// So far inside of the arc.
  [[nodiscard]] QRgb colorInDial(double angle, double inset) const {
    const double t = (angle + 90.0) * std::numbers::pi / 180.0;
    const AngleViewer& dial = *stage().sliderStereo;
    const double radius = AngleViewer::radiusOf(dial.width()) - inset;
    const QPointF place(dial.width() / 2.0 + radius * std::cos(t),
                        dial.height() / 2.0 - radius * std::sin(t));
    const QPointF onWindow = place + QPointF(dial.mapTo(&view(), QPoint(0, 0)));
    return _window.pixel((onWindow * _window.devicePixelRatio()).toPoint());
  }
  /// In the middle of the line inside the arc, beside its ground a little farther in.
  [[nodiscard]] double ofCostAt(double angle) const {
    return contrast(colorInDial(angle, CostRing::kInset), groundOfDial(angle));
  }
  [[nodiscard]] QRgb groundOfDial(double angle) const {
    return colorInDial(angle, CostRing::kInset + 6);
  }
  /// What a slider or the dial consists of, each by a pixel of its own.
  struct Parts {
    std::string of;
    QRgb rest;  ///< of the track or the arc, where the value is not
    QRgb filled;
    QRgb knob;
    QRgb ground;
  };
  [[nodiscard]] Parts partsOf(const Slider& slider) const {
    const bool isVertical = slider.cell()->isVertical();
    const QRectF track = slider.cell()->backgroundOf(slider.barRect());
    const auto at = [&](double share, double aside) {
      const QPointF level(track.left() + share * track.width(), track.center().y() + aside);
      const QPointF upright(track.center().x() + aside, track.bottom() - share * track.height());
      return colorAt(slider, isVertical ? upright : level);
    };
    const double value = slider.fraction();
    const QPointF knob = slider.cell()->circleOf(slider.knobRect()).center();
    return {slider.accessibleName().toStdString(), at((1 + value) / 2, 0), at(value / 2, 0),
            colorAt(slider, knob), at((1 + value) / 2, 8)};
  }
  [[nodiscard]] Parts partsOfDial(double angle) const {
    return {"dial", colorInDial(angle + 40, 0), colorInDial(angle - 40, 0), colorInDial(angle, 0),
            groundOfDial(angle + 40)};
  }
  /// Those that are in use, about half way.
  std::vector<Parts> halfWay() {
    stage().sliderStereo->setNewAngle(75);
    setGain(-6);
    view().player->waveform->adjust(5, AdjustCause::Key);
    view().player->sliderVolume->adjust(0.5, AdjustCause::Key);
    look();
    return {partsOf(*view().player->sliderTime), partsOf(*view().player->sliderVolume),
            partsOf(*stage().sliderGain), partsOfDial(75)};
  }
  /// The color of a place, and what differs most from a ground a little above, below or beside it.
  [[nodiscard]] QRgb colorAt(const QWidget& widget, QPointF place) const {
    const QPointF onWindow = place + QPointF(widget.mapTo(&view(), QPoint(0, 0)));
    const QPointF pixel = onWindow * _window.devicePixelRatio();
    return _window.pixel(static_cast<int>(pixel.x()), static_cast<int>(pixel.y()));
  }
  /// The best of a line of a pixel's width that runs through a place, across `across`.
  [[nodiscard]] double ofLineAt(const QWidget& widget, QPointF place, QPointF across) const {
    const QRgb ground = colorAt(widget, place + 4 * across);
    double best = 1;
    for (int i = 0; i < 49; ++i) {
      const double by = (i % 7 - 3) / 2.5;
      const double on = (i / 7 - 3) / 2.5;  // a picture at a broken scale leaves a pixel out
      const QPointF near = place + by * across + on * QPointF(-across.y(), across.x());
      best = std::max(best, contrast(colorAt(widget, near), ground));
    }
    return best;
  }
  /// The least of the lines for Left, Right, Mid and Side, each at five of its places.
  [[nodiscard]] double ofGraticule() const {
    const StereoScope& scope = *stage().field->scope;
    const double half = scope.width() / 2.0;
    double least = HUGE_VAL;
    for (int eighth = 0; eighth < 8; ++eighth) {
      const double t = eighth * std::numbers::pi / 4;
      const QPointF along(std::cos(t), std::sin(t));
      const QPointF across(-along.y(), along.x());
      for (const double far : {0.2, 0.3, 0.4, 0.5, 0.6}) {
        const QPointF place = QPointF(half, half) + far * half * along;
        least = std::min(least, ofLineAt(scope, place, across));
      }
    }
    return least;
  }
  /// The least of the line that is neither Left nor Right, where there is silence.
  [[nodiscard]] double ofMiddleLine() const {
    const WaveformViewer& wave = *view().player->waveform;
    const QRectF body = wave.body();
    const double middle = body.top() + std::floor(body.height() / 2) + 0.5;
    double least = HUGE_VAL;
    for (const double share : {0.1, 0.3, 0.5, 0.7, 0.9}) {
      const QPointF place(body.left() + share * body.width(), middle);
      least = std::min(least, ofLineAt(wave, place, {0, 1}));
    }
    return least;
  }
  /// Time, Left and Right, each by itself, and the line under the pointer.
  void expectReading(double least) {
    WaveformViewer& wave = *view().player->waveform;
    const double x = std::floor(wave.xOf(2)) + 0.5;
    Hands::hover(wave, {x, wave.height() / 2.0});
    waitFor([&] { return wave.reading().last().contains(u'6'); }, "what it reads");
    look();
    ASSERT_EQ(wave.reading().size(), 3);
    const double scale = _window.devicePixelRatio();
    const QFontMetricsF metrics(Appearance::small(wave.font()));
    const double wide = metrics.horizontalAdvance(wave.reading().first()) +
                        2 * metrics.horizontalAdvance("L −88.8") + 24;
    const QRect box(static_cast<int>(x) + 11, 2, static_cast<int>(wide),
                    static_cast<int>(wave.ruler()) - 3);
    const QTransform turn = QTransform().rotate(90);
    const auto parts = lines(pictureOf(wave, box).transformed(turn), static_cast<int>(7 * scale));
    EXPECT_EQ(parts.size(), 3U) << "time, Left and Right";
    for (const QImage& part : parts) EXPECT_GE(greatestContrast(part), least);
    EXPECT_GE(ofLineAt(wave, {x, wave.body().bottom() - 4}, {1, 0}), kControl) << "its line";
  }
  static std::string nameOf(const QWidget& widget) {
    const auto* const label = qobject_cast<const QLabel*>(&widget);
    return (label ? label->text() : widget.accessibleName()).toStdString();
  }
  static bool isInUse(const QWidget& widget) {
    return widget.isVisible() && widget.isEnabled() && !widget.size().isEmpty();
  }
  /// What has a name, but for what tells of itself to assistive software alone and paints nothing.
  static bool isControl(const QWidget& widget) {
    const bool isUnseen = qobject_cast<const Announcer*>(&widget) != nullptr;
    // Without a recorder nothing is drawn in the bar of its card.
    return !isUnseen && !widget.accessibleName().isEmpty() &&
           widget.accessibleName() != "Card used";
  }
  /// How many there were.
  template <class Widget, class Condition>
  int expectAtLeast(double least, const Condition& counts) const {
    int count = 0;
    for (const Widget* const widget : view().findChildren<Widget*>()) {
      if (!isInUse(*widget) || !counts(*widget)) continue;
      EXPECT_GE(of(*widget), least) << nameOf(*widget);
      ++count;
    }
    return count;
  }

  QImage _window;
};

TEST_F(Contrast, OfLabelsIsThatOfText) {
  const auto hasText = [](const QLabel& label) { return !label.text().isEmpty(); };
  EXPECT_GT(expectAtLeast<QLabel>(kText, hasText), 10);
}

TEST_F(Contrast, OfFiguresIsThatOfText) {
  EXPECT_EQ(expectAtLeast<FigureLine>(kText, [](const FigureLine&) { return true; }), 4);
}

TEST_F(Contrast, OfControlsIsThatOfControls) {
  EXPECT_GT(expectAtLeast<QWidget>(kControl, isControl), 10);
}

// As the sentence that a take is being opened, where that takes long.
TEST_F(Contrast, OfASentenceThatIsOnlyReadOutIsNotLookedFor) {
  auto* const announcer = view().findChild<Announcer*>();
  ASSERT_NE(announcer, nullptr);
  announcer->announce(QStringLiteral("R0001.WAV is being opened…"));
  look();
  EXPECT_GT(expectAtLeast<QWidget>(kControl, isControl), 10);
}

TEST_F(Contrast, OfLoopSoloAndWhatAWidthCosts) {
  setGain(6);
  controller().take().setLoop(FrameLoop{96'000, 192'000});
  QTest::mouseClick(view().player->btnSoloMid, Qt::LeftButton);
  AngleViewer& dial = *stage().sliderStereo;
  waitFor([&] { return !dial.costs().empty() && dial.costs().back() == CostRing::Cost::Over; },
          "what the width costs");
  ASSERT_EQ(dial.costs().front(), CostRing::Cost::Near);
  Hands::move(dial,
              {dial.width() / 2.0 - AngleViewer::radiusOf(dial.width()), dial.height() / 2.0});
  ASSERT_TRUE(stage().cost->isVisible());
  _window = view().grab().toImage().convertToFormat(QImage::Format_RGB32);
  for (const QToolButton* const button :
       {view().player->btnLoop, view().player->btnSoloMid, view().player->btnSoloSide}) {
    EXPECT_GE(of(*button), kText) << nameOf(*button);
  }
  for (const QLabel* const label :
       {stage().cost->lblWidth, stage().cost->lblLoudness, stage().cost->lblPeak}) {
    EXPECT_GE(of(*label), kText) << nameOf(*label);
  }
  const auto& wave = *view().player->waveform;
  for (const double seconds : {2.0, 4.0}) {
    const int x = static_cast<int>(wave.xOf(seconds));
    EXPECT_GE(of(wave, {x - 6, 0, 12, 13}), kText) << "mark at " << seconds;
  }
  EXPECT_GE(ofCostAt(0.4), kControl);
  EXPECT_GE(ofCostAt(140), kControl);
}

// While the take rests nothing else is drawn where they stand.
TEST_F(Contrast, OfTextsThatControlsPaintIsThatOfText) {
  rest();
  expectPaintedTexts(kText);
  Appearance::setHighContrast(*qApp, true);
  look();
  expectPaintedTexts(kHighText);
}

TEST_F(Contrast, OfALampThatIsNotLitAndAnEmptyBarIsThatOfControls) {
  rest();
  expectDarkLampsAndBar(kControl);
  Appearance::setHighContrast(*qApp, true);
  look();
  expectDarkLampsAndBar(kText);
}

TEST_F(Contrast, OfAWaveformInsideALoopIsThatOfControls) {
  stage().sliderStereo->setNewAngle(120);
  setGain(6);
  controller().take().setLoop(FrameLoop{96'000, 192'000});
  rest();
  const auto isRed = [this] {
    const auto& columns = view().player->waveform->columns().columns;
    return !columns.empty() && columns[columns.size() / 3].left > 1;
  };
  waitFor(isRed, "what is over full scale");
  expectWaveInLoop(Colors::overAhead(), Colors::waveAhead());
  view().player->waveform->adjust(9, AdjustCause::Key);
  expectWaveInLoop(Colors::over(), Colors::wavePlayed());
  Appearance::setHighContrast(*qApp, true);
  expectWaveInLoop(Colors::over(), Colors::wavePlayed());
  view().player->waveform->adjust(0, AdjustCause::Key);
  expectWaveInLoop(Colors::overAhead(), Colors::waveAhead());
}

// The grey of what is left of a track is a given one; knob and filled part tell the value.
TEST_F(Contrast, OfKnobsAndFilledPartsIsThatOfControls) {
  rest();
  for (const Parts& parts : halfWay()) {
    EXPECT_EQ(QColor(parts.rest), QColor(88, 88, 88)) << parts.of;
    EXPECT_GE(contrast(parts.filled, parts.rest), kControl) << parts.of;
    EXPECT_GE(contrast(parts.filled, parts.ground), kControl) << parts.of;
    EXPECT_GE(contrast(parts.knob, parts.ground), kControl) << parts.of;
    EXPECT_GE(contrast(parts.rest, parts.ground), 2.2) << parts.of;
  }
}

TEST_F(Contrast, OfTracksAndTheArcIsThatOfTextWhereTheDesktopWantsIt) {
  rest();
  Appearance::setHighContrast(*qApp, true);
  for (const Parts& parts : halfWay()) {
    EXPECT_GE(contrast(parts.rest, parts.ground), kText) << parts.of;
    EXPECT_GE(contrast(parts.filled, parts.rest), kControl) << parts.of;
    EXPECT_GE(contrast(parts.knob, parts.rest), kControl) << parts.of;
  }
  Appearance::setHighContrast(*qApp, false);
  for (const Parts& parts : halfWay()) {
    EXPECT_EQ(QColor(parts.rest), QColor(88, 88, 88)) << parts.of << " and back";
  }
}

// What only guides the eye is calm, unless the desktop wants more contrast.
TEST_F(Contrast, OfGuidesIsThatOfControlsWhereTheDesktopWantsIt) {
  rest();
  // No sound hides the middle line. What the panes have to say comes before.
  const auto silence = [this] {
    look();
    WaveformViewer& wave = *view().player->waveform;
    const auto columns = static_cast<std::size_t>(wave.columnsWanted());
    wave.setColumns({std::vector<WaveformColumns::Column>(columns), 0, wave.length()});
    _window = view().grab().toImage().convertToFormat(QImage::Format_RGB32);
  };
  silence();
  EXPECT_NEAR(ofMiddleLine(), 1.34, 0.02);
  EXPECT_NEAR(ofGraticule(), 1.2, 0.15) << "some of it lies between two pixels";
  Appearance::setHighContrast(*qApp, true);
  silence();
  EXPECT_GE(ofMiddleLine(), kControl);
  EXPECT_GE(ofGraticule(), kControl);
}

TEST_F(Contrast, OfWhatThePointerReadsIsThatOfText) {
  rest();
  expectReading(kText);
  Appearance::setHighContrast(*qApp, true);
  expectReading(kHighText);
}

// At once, in a window that is there.
TEST_F(Contrast, IsHigherWhereTheDesktopWantsIt) {
  look();
  const QImage usual = _window;
  Appearance::setHighContrast(*qApp, true);
  QCoreApplication::processEvents();
  look();
  EXPECT_EQ(_window.pixel(2, 2), qRgb(0, 0, 0));
  const auto hasText = [](const QLabel& label) { return !label.text().isEmpty(); };
  EXPECT_GT(expectAtLeast<QLabel>(kHighText, hasText), 10);
  EXPECT_EQ(expectAtLeast<FigureLine>(kHighText, [](const FigureLine&) { return true; }), 4);
  const auto isNoImage = [](const QWidget& widget) {
    return isControl(widget) && qobject_cast<const ImageView*>(&widget) == nullptr;
  };
  EXPECT_GT(expectAtLeast<QWidget>(kText, isNoImage), 10);
  Appearance::setHighContrast(*qApp, false);
  QCoreApplication::processEvents();
  look();
  const int list = view().player->x();  // what does not move while the take plays
  EXPECT_EQ(_window.copy(0, 0, list, _window.height()), usual.copy(0, 0, list, usual.height()))
      << "and back";
}

class ContrastInDialogs : public EveryDialog {
 protected:
  void SetUp() override { startWithAll(); }
  void TearDown() override { Appearance::setHighContrast(*qApp, false); }

  /// How many texts there were.
  int expectAtLeast(double least) {
    int count = 0;
    forEachDialog([&](QWidget& dialog) {
      const QImage picture = dialog.grab().toImage().convertToFormat(QImage::Format_RGB32);
      const double scale = picture.devicePixelRatio();
      const auto at = [&](const QWidget& widget, const QRect& part) {
        const QRectF area(widget.mapTo(&dialog, part.topLeft()) * scale, part.size() * scale);
        return picture.copy(area.toAlignedRect() & picture.rect());
      };
      const auto where = [&](const QString& text) {
        return std::string(dialog.metaObject()->className()) + ": " + text.toStdString();
      };
      for (const QWidget* const widget : dialog.findChildren<QWidget*>()) {
        if (!widget->isVisible() || !widget->isEnabled()) continue;
        const QString text = textOf(*widget);
        if (text.isEmpty()) continue;
        // The frame of a control is no text.
        const bool hasFrame = qobject_cast<const QLabel*>(widget) == nullptr;
        const QImage drawn = at(*widget, widget->rect());
        EXPECT_GE(hasFrame ? greatestContrast(drawn) : leastContrast(drawn), least) << where(text);
        ++count;
      }
      for (const auto* const view : dialog.findChildren<QAbstractItemView*>()) {
        if (!view->isVisible() || !view->isEnabled()) continue;
        for (int row = 0; row < view->model()->rowCount(); ++row) {
          for (int column = 0; column < view->model()->columnCount(); ++column) {
            const QModelIndex index = view->model()->index(row, column);
            const QRect area = view->visualRect(index) & view->viewport()->rect();
            if (index.data().toString().isEmpty() || area.isEmpty()) continue;
            EXPECT_GE(leastContrast(at(*view->viewport(), area)), least)
                << where(index.data().toString());
            ++count;
          }
        }
      }
    });
    return count;
  }

 private:
  static QString textOf(const QWidget& widget) {
    if (const auto* const label = qobject_cast<const QLabel*>(&widget)) return label->text();
    if (const auto* const button = qobject_cast<const QAbstractButton*>(&widget))
      return button->text();
    if (const auto* const line = qobject_cast<const QLineEdit*>(&widget)) {
      return line->text() + line->placeholderText();
    }
    if (const auto* const choice = qobject_cast<const QComboBox*>(&widget)) {
      return choice->isEditable() ? QString() : choice->currentText();
    }
    return {};
  }
};

TEST_F(ContrastInDialogs, OfTextsIsThatOfText) {
  EXPECT_GT(expectAtLeast(kText), 100);
}

TEST_F(ContrastInDialogs, IsHigherWhereTheDesktopWantsIt) {
  Appearance::setHighContrast(*qApp, true);
  EXPECT_GT(expectAtLeast(kHighText), 100);
}

TEST_F(Contrast, IsMeasuredAsItIsDefined) {
  EXPECT_NEAR(contrast(qRgb(0, 0, 0), qRgb(255, 255, 255)), 21, 1e-9);
  EXPECT_NEAR(contrast(qRgb(0x77, 0x77, 0x77), qRgb(255, 255, 255)), 4.48, 0.005);
  QImage picture(4, 4, QImage::Format_RGB32);
  picture.fill(qRgb(255, 255, 255));
  picture.setPixel(1, 1, qRgb(0x77, 0x77, 0x77));
  EXPECT_LT(greatestContrast(picture), kText) << "grey that is too light is found";
  QLabel label(
      QStringLiteral("<div style='color:#000'>one</div><div style='color:#aaa'>other</div>"));
  label.setStyleSheet(QStringLiteral("background:#fff"));
  const QImage both = label.grab().toImage().convertToFormat(QImage::Format_RGB32);
  EXPECT_GT(greatestContrast(both), kText);
  EXPECT_LT(leastContrast(both), kText) << "and beside a line that is not";
}

}  // namespace
