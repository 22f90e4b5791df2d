// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <cstdint>
#include <memory>
#include <optional>

#include "app/PlayerView.h"
#include "app/TakeSession.h"
#include "app/ValueField.h"
#include "controls/J4SliderCell.h"

/// Volume with mute, gain and stereo width: what the controls say is what the session has.
/// Interface thread.
class SoundPane : public QObject,
                  public AngleViewerDelegate,
                  public GainTickTitleDelegate,
                  public J4GainSliderParent {
  Q_OBJECT

 public:
  /// Both outlive the pane.
  SoundPane(PlayerView& view, TakeSession& take, QObject* parent = nullptr);

  void volumeAdjusted(AdjustCause cause);
  void toggleMute();
  /// "speaker_1" to "speaker_3" by volume, 0 to 1, or "speaker_mute".
  void showVolume(float volume);
  [[nodiscard]] bool isMuted() const { return _isMuteVolume; }
  /// Sets the controls of a take that is open: the gain in dB, and the width where the take has
  /// one.
  void setSound(const std::optional<double>& width, std::int64_t gain);

  void sliderGainValueChanged(J4GainSlider* slider) override;
  /// A label of the gain scale sets its gain while a take is open.
  void GainTickTitle(class GainTickTitle* scale, const QString& clickAt) override;
  void angleViewer(AngleViewer* dial, double angleChanged) override;

 protected:
  /// A double click on the dial's recorder turns to the plain sum and difference; its wheel is the
  /// dial's.
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void initVolume();
  void followVolume();
  void initGain();
  void showIdle();
  void showTake();
  void setPlayable(bool isPlayable);
  void setStereo(bool isRawMidSide);

  PlayerView& _view;
  StageView& _stage;
  TakeSession& _take;
  std::shared_ptr<J4SliderCell> _sliderVolumeCell;
  std::shared_ptr<J4SliderCell> _sliderGainCell;
  double _lastVolume = 0.0;
  bool _isMuteVolume = false;
  double _volumeBefore = 0.0;  ///< before the last movement of the slider
  ValueField _typedWidth{*_stage.lblStereoValue, *_stage.sliderStereo, tr("Type the stereo width"),
                         this};
  ValueField _typedGain{*_stage.lblGainValue, *_stage.sliderGain, tr("Type the gain"), this};
  std::shared_ptr<SoundPane> _self;  ///< owns nothing; the controls hold it weakly
};
