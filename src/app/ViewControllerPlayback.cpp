// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <algorithm>
#include <cmath>

#include "app/ViewController.h"
#include "controls/J4SliderCell.h"
#include "dialogs/Alert.h"
#include "midi/MIDICommon.h"

namespace {

constexpr int kTimeRefresh = 200;  // ms
constexpr double kLevelInterval = 0.033333335F;
constexpr int kLevelRefresh = 33;
constexpr float kNoSample = -2.0F;
constexpr double kMostGain = 36.0;

QString text(const std::string& from) {
  return QString::fromStdString(from).simplified();
}

}  // namespace

void ViewController::initSliders() {
  _pane.initScales();
  _view.tickOfGain->setDelegate(_self);
  _sliderVolumeCell = std::make_shared<J4SliderCell>();
  _sliderVolumeCell->setSliderEnabled(true);
  _view.sliderVolume->setCell(_sliderVolumeCell);
  _view.sliderVolume->setRange(0.0, 1.0);
  _view.sliderVolume->setValue(0.5);
  _volumeBefore = _view.sliderVolume->value();
  updateVolumeIcon(0.5F);
  _sliderTimeCell = std::make_shared<J4SliderCell>();
  _view.sliderTime->setCell(_sliderTimeCell);
  _view.sliderTime->setRange(0.0, 100.0);
  _sliderGainCell = std::make_shared<J4SliderCell>();
  _sliderGainCell->setIsVertical(true);
  _view.sliderGain->setCell(_sliderGainCell);
  _view.sliderGain->setRange(-kMostGain, kMostGain);
  _view.sliderGain->setValue(0.0);
  _view.sliderGain->setValueForDoubleClick(0.0);
  _view.sliderGain->setGainParent(_self);
  _view.sliderStereo->setDelegate(_self);
  angleViewer(_view.sliderStereo, _view.sliderStereo->angle());
  showGain();
}

void ViewController::connectPlayback() {
  connect(_view.btnPlayPause, &QToolButton::clicked, this, &ViewController::btnPlay_Click);
  connect(_view.btnVolume, &QToolButton::clicked, this, &ViewController::btnVolume_Click);
  connect(_view.btnExport, &QPushButton::clicked, this, &ViewController::btnExport_Click);
  connect(_view.sliderVolume, &Slider::valueAdjusted, this, &ViewController::sliderVolValueChanged);
  connect(_view.sliderTime, &Slider::valueAdjusted, this, &ViewController::sliderTimeValueChanged);
  connect(_view.sliderGain, &Slider::valueAdjusted, this,
          [this] { sliderGainValueChanged(_view.sliderGain); });
  connect(&_timerUpdateCurrentTime, &QTimer::timeout, this, &ViewController::sliderTimerUpdate);
  connect(&_timerLevel, &QTimer::timeout, this, [this] { updateLevelMeter(kLevelInterval); });
  _timerUpdateCurrentTime.setObjectName(QStringLiteral("timerUpdateCurrentTime"));
  _timerLevel.setObjectName(QStringLiteral("timerLevel"));
  _timerLevel.setTimerType(Qt::PreciseTimer);
  updatePlayStateUI();
}

void ViewController::showIdle() {
  _fileName.clear();
  _pane.showIdle();
  _pane.showPlayButton(false);
}

void ViewController::dropFile() {
  stopCurrentTimeTimer();
  if (_wavPlayer) _wavPlayer->cleanUp();
  _wavPlayer.reset();
  if (_export) _export->cleanUp();
  _export.reset();
}

void ViewController::unload() {
  dropFile();
  showIdle();
}

void ViewController::openWavFile(const WavItem& item) {
  dropFile();
  _pane.clearLevels();
  _view.sliderTime->setIsSeeking(false);
  _view.lblStatus->clear(StatusLine::Topic::Recording);
  _view.lblStatus->clear(StatusLine::Topic::Sound);
  _export = std::make_shared<Export>(item.fullPath);
  if (_export->IsFileValid()) return makePlayer(item);
  _view.lblStatus->say(StatusLine::Topic::Recording,
                       tr("%1: %2").arg(item.fileName, text(_export->failure())));
  unload();
  Alert::show(&_view, tr("File not supported."));
}

void ViewController::makePlayer(const WavItem& item) {
  _wavPlayer = std::make_unique<WavePlayer>(item.fullPath);
  showLoaded(item);
  rememberSound();
  const bool isMuted = _isMuteVolume;
  _wavPlayer->setVolume(isMuted ? 0.0 : _view.sliderVolume->value());
  _wavPlayer->setGain(_view.sliderGain->integerValue());
  _wavPlayer->setAngle(static_cast<std::int64_t>(_view.sliderStereo->angle()));
  _wavPlayer->setReader(std::make_shared<const WaveFileReader>(*_export->reader()));
  _pane.setStereo(_export->reader()->isBoMSFormat());
  _wavPlayer->setDelegate(_self);
  _wavPlayer->play();
}

void ViewController::showLoaded(const WavItem& item) {
  _fileName = item.fileName;
  _pane.showFile(item.fileName, *_export->reader());
  _view.lblTimeCurrent->setText(text(_wavPlayer->currentTimeString()));
  _view.lblTimeTotal->setText(text(_wavPlayer->durationString()));
  _pane.setPlayable(true);
  _view.sliderTime->setRange(0.0, 1.0);
  _view.sliderTime->setValue(0.0);
}

void ViewController::rememberSound() {
  _gain_before_pause = static_cast<double>(_view.sliderGain->integerValue());
  _stereo_before_pause = _view.sliderStereo->angle();
}

void ViewController::btnPlay_Click() {
  if (!_view.btnPlayPause->isEnabled() || !_wavPlayer) return;
  const auto gain = static_cast<double>(_view.sliderGain->integerValue());
  const bool isChanged =
      gain != _gain_before_pause || _view.sliderStereo->angle() != _stereo_before_pause;
  if (_wavPlayer->play_state() == PLAY_STATE_PAUSE && isChanged) {
    _wavPlayer->setPosition(_view.sliderTime->value());
  }
  _view.lblStatus->clear(StatusLine::Topic::Sound);
  _wavPlayer->play();
}

void ViewController::sliderVolValueChanged(AdjustCause cause) {
  const double value = _view.sliderVolume->value();
  // A key or a notch has no press before it: what was heard before counts as its beginning.
  if (cause == AdjustCause::Press) _lastVolume = value;
  const bool isStep = isFinal(cause) && cause != AdjustCause::Release;
  if (isStep && _volumeBefore > 0) _lastVolume = _volumeBefore;
  _volumeBefore = value;
  _isMuteVolume = !(value > 0);
  updateVolumeIcon(static_cast<float>(value));
  if (_wavPlayer) _wavPlayer->setVolume(value);
}

void ViewController::btnVolume_Click() {
  _isMuteVolume = !_isMuteVolume;
  if (_isMuteVolume) _lastVolume = _view.sliderVolume->value();
  _view.sliderVolume->setValue(_isMuteVolume ? 0.0 : _lastVolume);
  _volumeBefore = _view.sliderVolume->value();
  if (_wavPlayer) _wavPlayer->setVolume(_volumeBefore);
  updateVolumeIcon(static_cast<float>(_volumeBefore));
}

void ViewController::updateVolumeIcon(float volume) {
  _pane.showVolume(volume, _isMuteVolume);
}

void ViewController::sliderTimeValueChanged(AdjustCause cause) {
  if (!_wavPlayer) return;
  const double value = _view.sliderTime->value();
  if (isFinal(cause)) return seekTo(value);
  _view.lblTimeCurrent->setText(text(_wavPlayer->getTimeFromPosition(value)));
}

void ViewController::seekTo(double position) {
  _view.sliderTime->setIsSeeking(false);
  _isSeeking = true;
  _wavPlayer->setPosition(position);
  const QString time = text(_wavPlayer->currentTimeString());
  if (!time.isEmpty()) _view.lblTimeCurrent->setText(time);
}

void ViewController::sliderTimerUpdate() {
  if (!_wavPlayer) return;
  showFailures();
  if (_view.sliderTime->isSeeking()) return;
  const double duration = _wavPlayer->duration();
  const double time = std::min(std::max(_wavPlayer->curremtTime(), 0.0), duration);
  _view.lblTimeCurrent->setText(text(_wavPlayer->currentTimeString()));
  _view.sliderTime->setValue(time / duration);
}

void ViewController::sliderGainValueChanged(J4GainSlider* slider) {
  showGain();
  if (_wavPlayer) _wavPlayer->setGain(slider->integerValue());
}

void ViewController::showGain() {
  _view.lblGainValue->setText(_view.sliderGain->valueText());
}

void ViewController::GainTickTitle(class GainTickTitle* scale, const QString& clickAt) {
  if (scale != _view.tickOfGain || !_view.sliderGain->isEnabled()) return;
  if (!PlayerPane::isGainLabel(clickAt)) return;
  _view.sliderGain->setValue(clickAt.toDouble());
  sliderGainValueChanged(_view.sliderGain);
}

void ViewController::angleViewer(AngleViewer* /*dial*/, double angleChanged) {
  const auto degrees = static_cast<std::int64_t>(angleChanged);
  _view.lblStereoValue->setText(tr("%1°").arg(degrees));
  if (_wavPlayer) _wavPlayer->setAngle(degrees);
}

void ViewController::startCurrentTimeTimer() {
  stopCurrentTimeTimer();
  _timerUpdateCurrentTime.start(kTimeRefresh);
  _timerLevel.start(kLevelRefresh);
}

void ViewController::stopCurrentTimeTimer() {
  _timerUpdateCurrentTime.stop();
  _timerLevel.stop();
}

void ViewController::refreshUIWhenPlay() {
  sliderTimerUpdate();
  updateLevelMeter(1.0 / 30.0);
}

void ViewController::updateLevelMeter(double interval) {
  if (!_wavPlayer || !_export) return;
  const double time = _wavPlayer->curremtTime();
  // What is not at hand yet is not known; the bars do not stand at what was before.
  if (!_export->reader()->follow(time, time + interval)) return _pane.clearLevels();
  float left = 0.0F;
  float right = 0.0F;
  _export->reader()->getSampleLevelMeterFrom(time, time + interval, left, right,
                                             -static_cast<double>(_view.sliderGain->integerValue()),
                                             static_cast<double>(_wavPlayer->angle()));
  if (left == kNoSample) return;
  _pane.setLevels(static_cast<double>(left), static_cast<double>(right));
}

void ViewController::WavePlayerLevelChanged(double left, double right) {
  MIDICommon::runOnUIThread([&] {
    const auto level = [](double sample) {
      return static_cast<std::int64_t>(std::min(std::abs(PlayerPane::decibels(sample)), 1e6));
    };
    _view.lvlLeft->setLevel(level(left));
    _view.lvlRight->setLevel(level(right));
  });
}

void ViewController::WavePlayerStateChanged() {
  MIDICommon::runOnUIThread([this] { updatePlayStateUI(); });
}

void ViewController::WavePlayerOutputLost(const std::string& message) {
  _view.lblStatus->say(StatusLine::Topic::Sound, text(message));
}

void ViewController::updatePlayStateUI() {
  if (!_wavPlayer) return;
  const auto state = _wavPlayer->play_state();
  if (state == PLAY_STATE_INIT) return;
  if (state == PLAY_STATE_PLAY) {
    _pane.showPlayButton(true);
    refreshUIWhenPlay();
    startCurrentTimeTimer();
    _isSeeking = false;
    return;
  }
  _pane.showPlayButton(false);
  stopCurrentTimeTimer();
  showFailures();
  if (state == PLAY_STATE_FINISH && !_view.sliderTime->isSeeking()) _view.sliderTime->setValue(1.0);
  _pane.clearLevels();
  rememberSound();
  if (state != PLAY_STATE_FINISH) return;
  _view.lblTimeCurrent->setText(text(_wavPlayer->getZeroTimeString()));
  _view.sliderTime->setValue(0.0);
}

void ViewController::showFailures() {
  if (!_wavPlayer || !_export) return;
  const std::string& reading = _wavPlayer->readFailure();
  const std::string why = reading.empty() ? _export->reader()->image()->failure() : reading;
  if (why.empty()) return;
  _view.lblStatus->say(StatusLine::Topic::Recording,
                       tr("%1 cannot be read: %2").arg(_fileName, text(why)));
}

void ViewController::btnExport_Click() {
  if (!_export) return;
  _export->setGain(static_cast<double>(_view.sliderGain->integerValue()));
  _export->setAngle(_view.sliderStereo->angle());
  if (_browser.listing()) _export->setDirPath(_browser.listing()->folderPath());
  _exportDesk.ask(_export);
}
