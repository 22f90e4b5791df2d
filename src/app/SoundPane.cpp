// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/SoundPane.h"

#include <QCoreApplication>
#include <QEvent>
#include <QSignalBlocker>

#include "app/MainViewParts.h"
#include "controls/NumberText.h"
#include "dsp/GainStage.h"
#include "dsp/SideGain.h"

namespace {

constexpr double kDimmed = 0.5;
constexpr double kFirstVolume = 0.5;

static_assert(AngleViewer::kMaxAngle == double{SideGain::kMaxAngle},
              "the dial turns as far as there are widths");

QStringList gainLabels() {
  return {QStringLiteral("+36"), QStringLiteral("+24"), QStringLiteral("+12"), QStringLiteral("0"),
          QStringLiteral("-12"), QStringLiteral("-24"), QStringLiteral("-36")};
}

}  // namespace

SoundPane::SoundPane(PlayerView& view, TakeSession& take, QObject* parent)
    : QObject(parent),
      _view(view),
      _stage(*view.stage),
      _take(take),
      _sliderVolumeCell(std::make_shared<J4SliderCell>()),
      _sliderGainCell(std::make_shared<J4SliderCell>()),
      _self(this, [](SoundPane*) {}) {
  initVolume();
  initGain();
  _stage.imgDevice->setAttribute(Qt::WA_TransparentForMouseEvents, false);
  _stage.imgDevice->installEventFilter(this);
  _stage.imgDevice->setToolTip(
      tr("A double click turns to %1°, the plain sum and difference").arg(SideGain::kUnityAngle));
  _stage.sliderStereo->setDelegate(_self);
  angleViewer(_stage.sliderStereo, _stage.sliderStereo->angle());
  connect(&_take, &TakeSession::opened, this, &SoundPane::showTake);
  connect(&_take, &TakeSession::stillOpening, this, &SoundPane::showIdle);
  connect(&_take, &TakeSession::closed, this, &SoundPane::showIdle);
  showIdle();
}

// The recorder lies over the dial, whose wheel turns there as well.
bool SoundPane::eventFilter(QObject* watched, QEvent* event) {
  if (watched != _stage.imgDevice) return false;
  if (event->type() == QEvent::Wheel)
    return QCoreApplication::sendEvent(_stage.sliderStereo, event);
  const bool isDouble = event->type() == QEvent::MouseButtonDblClick;
  if (!isDouble || !_stage.sliderStereo->enable()) return false;
  _stage.sliderStereo->setNewAngle(SideGain::kUnityAngle);
  return true;
}

void SoundPane::initVolume() {
  _view.btnVolume->setCheckable(true);
  _sliderVolumeCell->setSliderEnabled(true);
  _view.sliderVolume->setCell(_sliderVolumeCell);
  _view.sliderVolume->setRange(0.0, 1.0);
  _view.sliderVolume->setValue(kFirstVolume);
  _volumeBefore = kFirstVolume;
  _take.setVolume(kFirstVolume);
  showVolume(static_cast<float>(kFirstVolume));
  connect(_view.sliderVolume, &Slider::valueAdjusted, this, &SoundPane::volumeAdjusted);
  connect(&_take, &TakeSession::volumeChanged, this, &SoundPane::followVolume);
  // Not its clicks: assistive software toggles it without one.
  connect(_view.btnVolume, &QToolButton::toggled, this, &SoundPane::toggleMute);
}

void SoundPane::initGain() {
  _stage.tickOfGain->setTexts(gainLabels());
  _stage.tickOfGain->setEnable(false);
  _stage.tickOfGain->setDelegate(_self);
  _stage.tickOfGain->initTick();
  _sliderGainCell->setIsVertical(true);
  J4GainSlider& slider = *_stage.sliderGain;
  slider.setCell(_sliderGainCell);
  slider.setRange(-GainStage::kMostGain, GainStage::kMostGain);
  slider.setValue(0.0);
  slider.setValueForDoubleClick(0.0);
  slider.setGainParent(_self);
  connect(&slider, &Slider::valueAdjusted, this,
          [this] { sliderGainValueChanged(_stage.sliderGain); });
  sliderGainValueChanged(&slider);
}

void SoundPane::showIdle() {
  setPlayable(false);
  setStereo(false);
}

// What the controls show carries over from take to take.
void SoundPane::showTake() {
  setPlayable(true);
  _take.setVolume(_isMuteVolume ? 0.0 : _view.sliderVolume->value());
  _take.setGain(_stage.sliderGain->integerValue());
  _take.setAngle(_stage.sliderStereo->angle());
  setStereo(_take.isRawMidSide());
}

void SoundPane::setPlayable(bool isPlayable) {
  _stage.sliderGain->setEnabled(isPlayable);
  _sliderGainCell->setSliderEnabled(isPlayable);
  _stage.tickOfGain->setEnable(isPlayable);
  _stage.tickOfLevel->setEnable(isPlayable);
  for (QLabel* const caption : {_stage.lblGain, _stage.lblImage, _stage.lblLevel}) {
    MainViewParts::setAlpha(*caption, isPlayable ? 1.0 : kDimmed);
  }
  _stage.field->setEnabled(isPlayable);
}

void SoundPane::setStereo(bool isRawMidSide) {
  _stage.sliderStereo->setEnable(isRawMidSide);
  _stage.imgDevice->setEnabled(isRawMidSide);
  MainViewParts::setAlpha(*_stage.lblStereo, isRawMidSide ? 1.0 : kDimmed);
}

void SoundPane::volumeAdjusted(AdjustCause cause) {
  const double value = _view.sliderVolume->value();
  // A key or a notch has no press before it: what was heard before counts as its beginning.
  if (cause == AdjustCause::Press) _lastVolume = value;
  const bool isStep = isFinal(cause) && cause != AdjustCause::Release;
  if (isStep && _volumeBefore > 0) _lastVolume = _volumeBefore;
  _volumeBefore = value;
  _isMuteVolume = !(value > 0);
  showVolume(static_cast<float>(value));
  _take.setVolume(value);
}

// Somebody else has set it; what the slider sets comes here too, and is there already.
void SoundPane::followVolume() {
  const double volume = _take.volume();
  if (volume == _view.sliderVolume->value()) return;
  _isMuteVolume = !(volume > 0);
  if (_isMuteVolume) _lastVolume = _view.sliderVolume->value();
  _view.sliderVolume->setValue(volume);
  _volumeBefore = volume;
  showVolume(static_cast<float>(volume));
}

void SoundPane::toggleMute() {
  _isMuteVolume = !_isMuteVolume;
  if (_isMuteVolume) _lastVolume = _view.sliderVolume->value();
  _view.sliderVolume->setValue(_isMuteVolume ? 0.0 : _lastVolume);
  _volumeBefore = _view.sliderVolume->value();
  _take.setVolume(_volumeBefore);
  showVolume(static_cast<float>(_volumeBefore));
}

void SoundPane::showVolume(float volume) {
  constexpr float kLow = 0.33333334F;
  constexpr float kHigh = 0.6666667F;
  const bool isSilent = volume == 0.0F || _isMuteVolume;
  QString picture = QStringLiteral("speaker_mute");
  if (!isSilent) {
    picture = volume < kHigh ? QStringLiteral("speaker_2") : QStringLiteral("speaker_3");
    if (volume < kLow) picture = QStringLiteral("speaker_1");
  }
  // Named by what it is; what a press does is its tip.
  MainViewParts::setFace(*_view.btnVolume, picture, tr("Mute"));
  _view.btnVolume->setToolTip(isSilent ? tr("Unmute") : tr("Mute"));
  const QSignalBlocker quiet(_view.btnVolume);  // only what others toggle is a wish
  _view.btnVolume->setChecked(isSilent);
}

void SoundPane::sliderGainValueChanged(J4GainSlider* slider) {
  _stage.lblGainValue->setText(NumberText::printed(slider->valueText()));
  _take.setGain(slider->integerValue());
}

void SoundPane::setSound(const std::optional<double>& width, std::int64_t gain) {
  _stage.sliderGain->setValue(static_cast<double>(gain));
  sliderGainValueChanged(_stage.sliderGain);
  if (width && _stage.sliderStereo->enable()) _stage.sliderStereo->setNewAngle(*width);
}

void SoundPane::GainTickTitle(class GainTickTitle* scale, const QString& clickAt) {
  if (scale != _stage.tickOfGain || !_stage.sliderGain->isEnabled()) return;
  if (!gainLabels().contains(clickAt)) return;
  _stage.sliderGain->setValue(clickAt.toDouble());
  sliderGainValueChanged(_stage.sliderGain);
}

void SoundPane::angleViewer(AngleViewer* /*dial*/, double angleChanged) {
  _stage.lblStereoValue->setText(tr("%1°").arg(static_cast<std::int64_t>(angleChanged)));
  _take.setAngle(angleChanged);
}
