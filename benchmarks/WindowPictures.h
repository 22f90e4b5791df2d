// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QEvent>
#include <QObject>
#include <initializer_list>
#include <vector>

#include "ShownWindow.h"

/// What the pictures of the sound cost: of the take that is opened in a window. Interface thread.
class WindowPictures : public QObject {
 public:
  /// Which outlives it.
  explicit WindowPictures(ShownWindow& window);

  /// Returns when some of the waveform is painted.
  void waitForPart();
  /// The same of all of it, be it measured or not.
  void waitForDrawn();
  /// The same once the take is measured through.
  void waitForWhole();
  /// Pictures of the waveform a second that show more than the one before, in so many seconds.
  double growing(double seconds);

  /// Turns the dial from end to end by whole degrees while the take stands: milliseconds of each
  /// until the waveform, and what else changes with it, is painted anew.
  std::vector<double> turn();

  struct Playing {
    double all = 0;      ///< processor time of the process, % of a core
    double without = 0;  ///< the same while scope and meters rest
    double minimised =
        0;                ///< while the window is minimised; not a number where it was painted then
    double blind = 0;     ///< the same while no timer of a picture but that of the meters runs
    double pictures = 0;  ///< of the scope, a second
  };
  /// While the take plays, each for so many seconds.
  Playing play(double seconds);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  enum class Known { Nothing, Part, Drawn, Whole };

  [[nodiscard]] Known known();
  void rest(std::initializer_list<const char*> timers, bool areResting);
  void minimise(bool isMinimised);
  static double percentOfACore(double seconds);

  ShownWindow& _window;
  Known _painted = Known::Nothing;
  int _waveforms = 0;         ///< that were painted
  int _grown = 0;             ///< of them that showed more than the one before
  std::int64_t _columns = 0;  ///< that were known in the last one
  int _scopes = 0;
};
