// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/StageView.h"

#include <QEvent>
#include <QFontMetrics>
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

// Where the four stand with the usual texts.
constexpr int kDialCentre = 192;
constexpr int kFieldCentre = 322;
constexpr int kGainCentre = 466;
constexpr int kLevelCentre = 596;

// The scale, and where its first and last label are centred beside what it measures.
constexpr int kScaleHeight = 320;
constexpr int kScaleMargin = 30;
constexpr int kScaleTop = kMiddle - kScaleHeight / 2;
constexpr int kScaleWidth = 50;
constexpr int kLetterTop = kScaleTop + kScaleHeight - kScaleMargin + 6;

// From the centre of a caption to the right edge of its scale, and to the edges of what it names.
constexpr int kGainScaleRight = -20;
constexpr int kGainRight = 11;

// The meters, to both sides of their centre, and what stands over them.
constexpr int kMeterWidth = 20;
constexpr int kMeterCentre = 22;
constexpr int kScaleToMeters = 44;  // from their centre
constexpr int kOverMeter = 4;
// From the centre of the dial to that of the field, past the recorder in its middle.
constexpr int kDialToField = 130;

constexpr QSize kDevice{68, 156};
constexpr int kFieldGap = 20;
constexpr int kCostGap = 5;
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

QSize letterOf(const GainTickTitle& scale) {
  const QFontMetrics metrics = scale.fontMetrics();
  return {metrics.averageCharWidth(), metrics.height()};
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
  return type == QEvent::FontChange || type == QEvent::Show || type == QEvent::StyleChange ||
         type == QEvent::Polish;
}

}  // namespace

StageView::StageView(QWidget* parent) : QWidget(parent) {
  makeDial();
  makeField();
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
  imgDevice->setAccessibleName(tr("The recorder"));
  cost = new CostView(this);
  lblStereo = caption<QLabel>("heading", tr("Stereo width"));
  lblStereo->setBuddy(sliderStereo);
  lblStereoValue = caption<ValueLabel>("dim");
}

void StageView::makeField() {
  field = new FieldView(this);
  lblImage = caption<QLabel>("heading", tr("Image"));
  lblImage->setBuddy(field);
  lblImageValue = caption<ValueLabel>("dim");
}

void StageView::makeGain() {
  tickOfGain = new GainTickTitle(this);
  tickOfGain->setAccessibleName(tr("Gain scale"));
  sliderGain = new J4GainSlider(this);
  sliderGain->setToolTip(tr("Gain: drag or scroll; a double click sets 0 dB"));
  lblGain = caption<QLabel>("heading", tr("Gain"));
  lblGain->setBuddy(sliderGain);
  lblGainValue = caption<ValueLabel>("dim");
}

void StageView::makeLevels() {
  tickOfLevel = new GainTickTitle(this);
  tickOfLevel->setAccessibleName(tr("Level scale"));
  lvlLeft = new LevelMeter(this);
  lvlLeft->setAccessibleName(tr("Level left"));
  lvlLeft->setToolTip(tr("Level of the left channel, before the volume"));
  lblLeft = caption<QLabel>("dim", tr("L", "left channel"));
  lblLeft->setBuddy(lvlLeft);
  lvlRight = new LevelMeter(this);
  lvlRight->setAccessibleName(tr("Level right"));
  lvlRight->setToolTip(tr("Level of the right channel, before the volume"));
  lblRight = caption<QLabel>("dim", tr("R", "right channel"));
  lblRight->setBuddy(lvlRight);
  clipLeft = new ClipLamp(this);
  clipLeft->setNames(tr("Peak left"), tr("Clip left"));
  clipRight = new ClipLamp(this);
  clipRight->setNames(tr("Peak right"), tr("Clip right"));
  lblLevel = caption<QLabel>("heading", tr("Level"));
  lblLevelValue = caption<QLabel>("dim", tr("peak hold"));
}

// A label asks with each of its texts, thirty times a second; most take the room of the one before.
bool StageView::event(QEvent* event) {
  const bool isDone = QWidget::event(event);
  const bool isAsked = event->type() == QEvent::LayoutRequest;
  if (isAsked ? rooms() != _rooms : changesRoom(event->type())) place();
  return isDone;
}

StageView::Rooms StageView::rooms() const {
  return {room(*lblStereo, kDialCaption),
          room(*lblStereoValue, kDialValue),
          room(*lblImage, kDialCaption),
          room(*lblImageValue, kDialValue),
          room(*lblGain, kCaption),
          room(*lblGainValue, kValue),
          room(*lblLevel, kCaption),
          room(*lblLevelValue, kValue),
          room(*lblLeft, kLetter),
          room(*lblRight, kLetter),
          field->sizeHint(),
          clipLeft->sizeHint(),
          QSize(0, cost->sizeHint().height()),
          sliderStereo->sizeHint(),
          letterOf(*tickOfGain),
          letterOf(*tickOfLevel)};
}

int StageView::scaleWidth(const GainTickTitle& scale) const {
  int width = kScaleWidth;
  for (const QString& text : scale.texts()) {
    width = std::max(width, scale.fontMetrics().horizontalAdvance(text) + 2 * kGap);
  }
  return width;
}

StageView::Centres StageView::centres() const {
  const int dialHalf = std::max({(sideOf(*sliderStereo) + 1) / 2, halfOf(*lblStereo, kDialCaption),
                                 halfOf(*lblStereoValue, kDialValue)});
  const int dialText =
      std::max(halfOf(*lblStereo, kDialCaption), halfOf(*lblStereoValue, kDialValue));
  const int fieldText =
      std::max(halfOf(*lblImage, kDialCaption), halfOf(*lblImageValue, kDialValue));
  const int fieldHalf = std::max((field->sizeHint().width() + 1) / 2, fieldText);
  const int gainHalf = std::max(halfOf(*lblGain, kCaption), halfOf(*lblGainValue, kValue));
  const int gainLeft = std::max(gainHalf, scaleWidth(*tickOfGain) - kGainScaleRight);
  Centres at{};
  at.dial = std::max(kDialCentre, dialHalf);
  const int beside = std::max(
      {kDialToField, dialText + kGap + fieldText, kDevice.width() / 2 + kFieldGap + fieldHalf});
  at.field = at.dial + beside;
  at.gain = std::max(
      {kGainCentre, at.field + fieldHalf + kGap + gainLeft, at.dial + dialHalf + kGap + gainLeft});
  const int scaleLeft = scaleWidth(*tickOfLevel) + toScale();
  at.levels = std::max({kLevelCentre, at.gain + gainHalf + kGap + levelHalf(),
                        at.gain + kGainRight + kGap + scaleLeft});
  return at;
}

int StageView::levelHalf() const {
  return std::max(halfOf(*lblLevel, kCaption), halfOf(*lblLevelValue, kValue));
}

// What stands over the meters needs more room than they do in a larger font.
int StageView::toMeter() const {
  return std::max(kMeterCentre, (clipLeft->sizeHint().width() + kGap + 1) / 2);
}

int StageView::toScale() const {
  return std::max(kScaleToMeters, toMeter() + (clipLeft->sizeHint().width() + 1) / 2 + kGap);
}

// The four and the two sides have an equal share of what there is more.
StageView::Centres StageView::spread(const Centres& at) const {
  constexpr int kGaps = 5;
  const int more = std::max(0, width() - _usual.width());
  return {at.dial + more / kGaps, at.field + 2 * more / kGaps, at.gain + 3 * more / kGaps,
          at.levels + 4 * more / kGaps};
}

// The room to the right of the levels, and under the captions, may be left out.
void StageView::take(QSize least) {
  _usual = QSize(least.width(), least.height() + kGap).expandedTo({kWidth, kHeight});
  setMinimumSize(least);
  setMaximumHeight(_usual.height());
}

void StageView::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  place();
}

void StageView::place() {
  _rooms = rooms();
  const Centres least = centres();
  const int right = least.levels + std::max(levelHalf(), toScale()) + kGap;
  const Centres at = spread(least);
  placeDial(at.dial);
  placeField(at.field);
  placeGain(at.gain);
  placeLevels(at.levels);
  const QSize before = _usual;
  take({right, placeCaptions(at)});
  if (_usual != before) place();  // what there is more has changed
}

void StageView::placeField(int centre) {
  const int top = kScaleTop + kScaleMargin + downOf(*sliderStereo);
  placeCentred(*field, centre, top, field->sizeHint());
}

void StageView::placeDial(int centre) {
  const int side = sideOf(*sliderStereo);
  const int middle = middleOf(*sliderStereo);
  placeCentred(*sliderStereo, centre, middle - side / 2, {side, side});
  sliderStereo->setNewAngle(sliderStereo->angle());  // another size puts its thumb at 0
  placeCentred(*imgDevice, centre, middle - kDevice.height() / 2, kDevice);
  placeCost(centre, middle);
}

// Between the arc and the recorder.
void StageView::placeCost(int centre, int middle) {
  const double arc =
      AngleViewer::radiusOf(sideOf(*sliderStereo)) - CostRing::kInset - CostRing::kWidth;
  const int left = centre - static_cast<int>(arc) + kCostGap;
  const int right = centre - kDevice.width() / 2 - kCostGap;
  const int height = cost->sizeHint().height();
  cost->setGeometry(left, middle - height / 2, right - left, height);
}

void StageView::placeGain(int centre) {
  const int width = scaleWidth(*tickOfGain);
  const int top = kScaleTop + downOf(*sliderStereo);
  tickOfGain->setGeometry(centre + kGainScaleRight - width, top, width, kScaleHeight);
  placeCentred(*sliderGain, centre, top + 21, {22, kScaleHeight - 42});
}

void StageView::placeLevels(int centre) {
  const int width = scaleWidth(*tickOfLevel);
  const int down = downOf(*sliderStereo);
  const int meterTop = kScaleTop + kScaleMargin + down;
  tickOfLevel->setGeometry(centre - toScale() - width, kScaleTop + down, width, kScaleHeight);
  constexpr int kMeterHeight = kScaleHeight - 2 * kScaleMargin;
  for (const bool isLeft : {true, false}) {
    const int middle = centre + (isLeft ? -toMeter() : toMeter());
    ClipLamp* const clip = isLeft ? clipLeft : clipRight;
    QLabel* const letter = isLeft ? lblLeft : lblRight;
    const QSize lamp = clip->sizeHint();
    placeCentred(*clip, middle, meterTop - kOverMeter - lamp.height(), lamp);
    placeCentred(isLeft ? *lvlLeft : *lvlRight, middle, meterTop, {kMeterWidth, kMeterHeight});
    placeCentred(*letter, middle, kLetterTop + down, room(*letter, kLetter));
  }
}

// Returns where the lowest of them ends.
int StageView::placeCaptions(const Centres& at) {
  const int letters = std::max(lblLeft->geometry().bottom(), field->geometry().bottom()) + 1;
  const int top = std::max(captionTopOf(*sliderStereo), letters + kGap);
  int end = placeCentred(*lblStereo, at.dial, top, room(*lblStereo, kDialCaption));
  end = std::max(end, placeCentred(*lblImage, at.field, top, room(*lblImage, kDialCaption)));
  end = std::max(end, placeCentred(*lblGain, at.gain, top, room(*lblGain, kCaption)));
  end = std::max(end, placeCentred(*lblLevel, at.levels, top, room(*lblLevel, kCaption)));
  const int under = std::max(top + kValueTop - kCaptionTop, end + kGap);
  end = placeCentred(*lblStereoValue, at.dial, under, room(*lblStereoValue, kDialValue));
  end = std::max(end,
                 placeCentred(*lblImageValue, at.field, under, room(*lblImageValue, kDialValue)));
  end = std::max(end, placeCentred(*lblGainValue, at.gain, under, room(*lblGainValue, kValue)));
  return std::max(end,
                  placeCentred(*lblLevelValue, at.levels, under, room(*lblLevelValue, kValue)));
}
