// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/StageView.h"

#include <QEvent>
#include <algorithm>

#include "app/MainViewParts.h"
#include "controls/Artwork.h"

namespace {

constexpr int kWidth = 672;
constexpr int kHeight = 388;
constexpr int kMiddle = 180;      // of dial and scales
constexpr int kCaptionTop = 346;  // of the captions under dial, gain and levels
constexpr int kValueTop = 368;
constexpr int kGap = 2;  // at least between two boxes

// Where the three stand with the usual texts.
constexpr int kDialCentre = 186;
constexpr int kGainCentre = 440;
constexpr int kLevelCentre = 586;

// The scale, and where its first and last label are centred beside what it measures.
constexpr int kScaleHeight = 320;
constexpr int kScaleMargin = 30;
constexpr int kScaleTop = kMiddle - kScaleHeight / 2;
constexpr int kScaleWidth = 50;
constexpr int kLetterTop = kScaleTop + kScaleHeight - kScaleMargin + 6;

// From the centre of a caption to the right edge of its scale, and to the edges of what it names.
constexpr int kGainScaleRight = -12;
constexpr int kLevelScaleRight = -22;
constexpr int kGainRight = 19;
constexpr int kLevelRight = 34;

constexpr QSize kDialCaption{120, 20};
constexpr QSize kDialValue{120, 18};
constexpr QSize kCaption{90, 20};
constexpr QSize kValue{90, 18};
constexpr QSize kLetter{20, 16};

// The dial is as large as its labels ask for; one that is larger than usual moves all down.
constexpr int kUsualSide = 352;

int sideOf(const AngleViewer& dial) {
  return dial.sizeHint().width();
}

int middleOf(const AngleViewer& dial) {
  return std::max(kMiddle, (sideOf(dial) + 1) / 2);
}

int downOf(const AngleViewer& dial) {
  return middleOf(dial) - kMiddle;
}

// Under the dial, into whose empty lower part they reach.
int captionTopOf(const AngleViewer& dial) {
  const int side = std::max(kUsualSide, sideOf(dial));
  return middleOf(dial) + side * (kCaptionTop - kMiddle) / kUsualSide;
}

// What its text and font ask for, at least the usual.
QSize room(const QLabel& label, QSize usual) {
  label.ensurePolished();
  return label.sizeHint().expandedTo(usual);
}

int halfOf(const QLabel& caption, QSize usual) {
  return (room(caption, usual).width() + 1) / 2;
}

// Returns where the box ends.
int placeCentred(QWidget& widget, int centre, int top, QSize size) {
  widget.setGeometry(centre - size.width() / 2, top, size.width(), size.height());
  return top + size.height();
}

bool changesRoom(QEvent::Type type) {
  return type == QEvent::LayoutRequest || type == QEvent::FontChange || type == QEvent::Show ||
         type == QEvent::StyleChange || type == QEvent::Polish;
}

}  // namespace

StageView::StageView(QWidget* parent) : QWidget(parent) {
  makeDial();
  makeGain();
  makeLevels();
  place();
}

template <class Label>
Label* StageView::caption(const char* role, const QString& text) {
  auto* const made = MainViewParts::label<Label>(this, role, text);
  made->setAlignment(Qt::AlignCenter);
  return made;
}

void StageView::makeDial() {
  sliderStereo = new AngleViewer(this);
  imgDevice = new ImageView(this);
  imgDevice->setImage(Artwork::icon(QStringLiteral("device_j4")));
  lblStereo = caption<QLabel>("heading", tr("Stereo width"));
  lblStereoValue = caption<TabularLabel>("dim");
}

void StageView::makeGain() {
  tickOfGain = new GainTickTitle(this);
  tickOfGain->setAccessibleName(tr("Gain scale"));
  sliderGain = new J4GainSlider(this);
  lblGain = caption<QLabel>("heading", tr("Gain"));
  lblGainValue = caption<TabularLabel>("dim");
}

void StageView::makeLevels() {
  tickOfLevel = new GainTickTitle(this);
  tickOfLevel->setAccessibleName(tr("Level scale"));
  lvlLeft = new LevelMeter(this);
  lvlLeft->setAccessibleName(tr("Level left"));
  lblLeft = caption<QLabel>("dim", tr("L", "left channel"));
  lvlRight = new LevelMeter(this);
  lvlRight->setAccessibleName(tr("Level right"));
  lblRight = caption<QLabel>("dim", tr("R", "right channel"));
  lblLevel = caption<QLabel>("heading", tr("Level"));
}

bool StageView::event(QEvent* event) {
  const bool isDone = QWidget::event(event);
  if (changesRoom(event->type())) place();
  return isDone;
}

int StageView::scaleWidth(const GainTickTitle& scale) const {
  int width = kScaleWidth;
  for (const QString& text : scale.texts()) {
    width = std::max(width, scale.fontMetrics().horizontalAdvance(text) + 2 * kGap);
  }
  return width;
}

void StageView::place() {
  const int dialHalf = std::max({(sideOf(*sliderStereo) + 1) / 2, halfOf(*lblStereo, kDialCaption),
                                 halfOf(*lblStereoValue, kDialValue)});
  const int gainHalf = std::max(halfOf(*lblGain, kCaption), halfOf(*lblGainValue, kValue));
  const int levelHalf = halfOf(*lblLevel, kCaption);
  const int gainLeft = std::max(gainHalf, scaleWidth(*tickOfGain) - kGainScaleRight);
  const int levelLeft = std::max(levelHalf, scaleWidth(*tickOfLevel) - kLevelScaleRight);
  const int dial = std::max(kDialCentre, dialHalf);
  const int gain = std::max(kGainCentre, dial + dialHalf + kGap + gainLeft);
  const int levels =
      std::max(kLevelCentre, gain + std::max(gainHalf, kGainRight) + kGap + levelLeft);
  placeDial(dial);
  placeGain(gain);
  placeLevels(levels);
  const int bottom = placeCaptions(dial, gain, levels);
  setFixedSize(std::max(kWidth, levels + std::max(levelHalf, kLevelRight) + kGap),
               std::max(kHeight, bottom + kGap));
}

void StageView::placeDial(int centre) {
  const int side = sideOf(*sliderStereo);
  const int middle = middleOf(*sliderStereo);
  placeCentred(*sliderStereo, centre, middle - side / 2, {side, side});
  placeCentred(*imgDevice, centre, middle - 78, {68, 156});
}

void StageView::placeGain(int centre) {
  const int width = scaleWidth(*tickOfGain);
  const int top = kScaleTop + downOf(*sliderStereo);
  tickOfGain->setGeometry(centre + kGainScaleRight - width, top, width, kScaleHeight);
  placeCentred(*sliderGain, centre + 8, top + 21, {22, kScaleHeight - 42});
}

void StageView::placeLevels(int centre) {
  const int width = scaleWidth(*tickOfLevel);
  const int down = downOf(*sliderStereo);
  const int meterTop = kScaleTop + kScaleMargin + down;
  tickOfLevel->setGeometry(centre + kLevelScaleRight - width, kScaleTop + down, width,
                           kScaleHeight);
  constexpr int kMeterHeight = kScaleHeight - 2 * kScaleMargin;
  lvlLeft->setGeometry(centre - 10, meterTop, 16, kMeterHeight);
  lvlRight->setGeometry(centre + 14, meterTop, 16, kMeterHeight);
  placeCentred(*lblLeft, centre - 2, kLetterTop + down, room(*lblLeft, kLetter));
  placeCentred(*lblRight, centre + 22, kLetterTop + down, room(*lblRight, kLetter));
}

// Returns where the lowest of them ends.
int StageView::placeCaptions(int dial, int gain, int levels) {
  const int letters = lblLeft->geometry().bottom() + 1;
  const int top = std::max(captionTopOf(*sliderStereo), letters + kGap);
  int end = placeCentred(*lblStereo, dial, top, room(*lblStereo, kDialCaption));
  end = std::max(end, placeCentred(*lblGain, gain, top, room(*lblGain, kCaption)));
  end = std::max(end, placeCentred(*lblLevel, levels, top, room(*lblLevel, kCaption)));
  const int values = std::max(top + kValueTop - kCaptionTop, end + kGap);
  const int dialEnd =
      placeCentred(*lblStereoValue, dial, values, room(*lblStereoValue, kDialValue));
  return std::max(dialEnd, placeCentred(*lblGainValue, gain, values, room(*lblGainValue, kValue)));
}
