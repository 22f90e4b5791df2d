// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QTimer>
#include <cstddef>
#include <cstdint>

#include "app/MeasuredTake.h"
#include "app/PlayerView.h"
#include "app/TakeSession.h"
#include "app/WaveformReading.h"
#include "controls/Adjustable.h"

/// Shows the open take as a waveform, as it is heard at its width and gain, and seeks in it: what
/// is done to the waveform is done to the position slider. Interface thread.
class WaveformPane : public QObject {
  Q_OBJECT

 public:
  /// All three outlive the pane.
  WaveformPane(PlayerView& view, TakeSession& take, MeasuredTake& measured,
               QObject* parent = nullptr);

  /// The play head as it is now.
  void refresh();
  /// The columns of the stretch in view, from what has been measured; touches no file. Where they
  /// are narrower than what was measured, or seem to clip, better ones follow from a worker.
  void draw();

 private:
  /// The stretch in view, in frames, and in how many columns.
  struct View {
    std::uint64_t from;
    std::uint64_t to;
    std::size_t columns;
  };

  void showTake();
  void showIdle();
  void showState();
  void tick();
  void moved(AdjustCause cause);
  [[nodiscard]] View inView() const;
  [[nodiscard]] bool isCloserThanMeasured(const View& view) const;
  [[nodiscard]] Waveform waveformOf(const View& view);
  void show(const Waveform& wave);
  [[nodiscard]] double playHead() const;

  PlayerView& _view;
  TakeSession& _take;
  MeasuredTake& _measured;
  WaveformReading _reading{_take};
  double _rate = 0;  ///< frames a second
  QTimer _timerWaveform{this};
};
