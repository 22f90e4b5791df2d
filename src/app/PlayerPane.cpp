// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/PlayerPane.h"

#include <algorithm>
#include <cmath>

#include "app/MainViewParts.h"
#include "controls/J4SliderCell.h"

namespace {

constexpr double kLevelZero = 48.0;  // dB below full scale at level 0
constexpr double kDimmed = 0.5;

const QString kNoTime = QStringLiteral("--:--:--");

QStringList gainLabels() {
  return {QStringLiteral("+36"), QStringLiteral("+24"), QStringLiteral("+12"), QStringLiteral("0"),
          QStringLiteral("-12"), QStringLiteral("-24"), QStringLiteral("-36")};
}

QStringList levelLabels() {
  return {QStringLiteral("+6"),  QStringLiteral("0"),   QStringLiteral("-6"),
          QStringLiteral("-12"), QStringLiteral("-18"), QStringLiteral("-24"),
          QStringLiteral("-36"), QStringLiteral("-48")};
}

// Silence is minus infinity, which no integer holds.
std::int64_t meterLevel(double sample) {
  constexpr double kBeyond = 1e6;
  return std::llround(std::clamp(PlayerPane::decibels(sample) + kLevelZero, -kBeyond, kBeyond));
}

// "Raw M/S · 24-bit · 48 kHz"
QString describe(const WaveFileReader& reader) {
  const WaveHeader& header = reader.header();
  const bool isFloat = header.AudioFormat == kFormatFloat;
  const QString bits = QString::number(header.BitsPerSample);
  const QString kind = reader.isBoMSFormat() ? MainView::tr("Raw M/S") : MainView::tr("Stereo");
  const QString width =
      isFloat ? MainView::tr("%1-bit float").arg(bits) : MainView::tr("%1-bit").arg(bits);
  const QString rate = MainView::tr("%1 kHz").arg(header.SampleRate / 1000.0);
  return QStringLiteral("%1 · %2 · %3").arg(kind, width, rate);
}

}  // namespace

void PlayerPane::initScales() {
  _view.tickOfGain->setTexts(gainLabels());
  _view.tickOfGain->setEnable(false);
  _view.tickOfGain->initTick();
  _view.tickOfLevel->setTexts(levelLabels());
  _view.tickOfLevel->setEnable(true);
  _view.tickOfLevel->initTick();
  for (LevelMeter* const meter : {_view.lvlLeft, _view.lvlRight}) meter->setMaxValue(kLevelRange);
  clearLevels();
}

void PlayerPane::showIdle() {
  _view.lblFileName->clear();
  _view.lblFileName->setToolTip({});
  _view.lblFormat->clear();
  _view.lblTimeCurrent->setText(kNoTime);
  _view.lblTimeTotal->setText(kNoTime);
  setPlayable(false);
  _view.sliderTime->setValue(0.0);
  setStereo(false);
}

void PlayerPane::setPlayable(bool isPlayable) {
  for (QWidget* const control : std::initializer_list<QWidget*>{
           _view.btnPlayPause, _view.btnExport, _view.sliderTime, _view.sliderGain}) {
    control->setEnabled(isPlayable);
  }
  _view.sliderTime->cell()->setSliderEnabled(isPlayable);
  _view.sliderGain->cell()->setSliderEnabled(isPlayable);
  _view.tickOfGain->setEnable(isPlayable);
  MainView::setAlpha(*_view.lblGain, isPlayable ? 1.0 : kDimmed);
}

void PlayerPane::setStereo(bool isRawMidSide) {
  _view.sliderStereo->setEnable(isRawMidSide);
  _view.sliderStereo->update();
  _view.imgDevice->setEnabled(isRawMidSide);
  MainView::setAlpha(*_view.lblStereo, isRawMidSide ? 1.0 : kDimmed);
}

void PlayerPane::showFile(const QString& name, const WaveFileReader& reader) {
  _view.lblFileName->setText(name);
  _view.lblFileName->setToolTip(name);
  _view.lblFormat->setText(describe(reader));
}

void PlayerPane::showPlayButton(bool isPlaying) {
  if (isPlaying) {
    MainViewParts::setFace(*_view.btnPlayPause, QStringLiteral("play_pause"),
                           MainView::tr("Pause"));
  } else {
    MainViewParts::setFace(*_view.btnPlayPause, QStringLiteral("play_play"), MainView::tr("Play"));
  }
}

void PlayerPane::showVolume(float volume, bool isMuted) {
  constexpr float kLow = 0.33333334F;
  constexpr float kHigh = 0.6666667F;
  QString picture = QStringLiteral("speaker_mute");
  if (volume != 0.0F && !isMuted) {
    picture = volume < kHigh ? QStringLiteral("speaker_2") : QStringLiteral("speaker_3");
    if (volume < kLow) picture = QStringLiteral("speaker_1");
  }
  MainViewParts::setFace(*_view.btnVolume, picture, MainView::tr("Mute"));
}

void PlayerPane::setLevels(double left, double right) {
  _view.lvlLeft->setLevel(meterLevel(left));
  _view.lvlRight->setLevel(meterLevel(right));
}

void PlayerPane::clearLevels() {
  _view.lvlLeft->setLevel(0);
  _view.lvlRight->setLevel(0);
}

double PlayerPane::decibels(double sample) {
  return 20.0 * std::log10(std::abs(sample));
}

bool PlayerPane::isGainLabel(const QString& label) {
  return gainLabels().contains(label);
}
