// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include "app/MainView.h"
#include "wav/WaveFileReader.h"

/// The states that the player's half of the view can be in. Works on the view alone; knows no
/// player. Interface thread.
class PlayerPane {
 public:
  /// Units of a meter from its lowest to its highest label, -48 to +6 dB.
  static constexpr std::int64_t kLevelRange = 54;

  explicit PlayerPane(MainView& view) : _view(view) {}

  /// Labels of the scales, ranges of the meters.
  void initScales();
  /// No file is loaded.
  void showIdle();
  /// A file is loaded, or none: what can be used.
  void setPlayable(bool isPlayable);
  /// Whether the stereo width can be chosen.
  void setStereo(bool isRawMidSide);
  void showFile(const QString& name, const WaveFileReader& reader);
  /// "play_play" or "play_pause", with the name that goes with it.
  void showPlayButton(bool isPlaying);
  /// "speaker_1" to "speaker_3" by volume, 0 to 1, or "speaker_mute".
  void showVolume(float volume, bool isMuted);
  /// Linear samples, full scale 1.0.
  void setLevels(double left, double right);
  void clearLevels();

  /// dB of a linear sample; minus infinity for silence.
  static double decibels(double sample);
  /// The text of the gain scale stands for a gain.
  static bool isGainLabel(const QString& label);

 private:
  MainView& _view;
};
