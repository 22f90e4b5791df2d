// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

/// Which stretch of a take a picture shows: all of it, or a part that zooms and moves. Seconds, and
/// places from 0 to the width of the picture. Pure figures; any thread.
class TimeWindow {
 public:
  /// As close as one comes: seconds a pixel.
  static constexpr double kClosest = 0.001;

  /// Another take, of so many seconds; all of it is shown.
  void setLength(double seconds);
  [[nodiscard]] double length() const { return _length; }
  /// So many pixels show the stretch. The beginning stays where it is if it can.
  void setWidth(double pixels);

  [[nodiscard]] double from() const { return _from; }
  [[nodiscard]] double to() const { return _from + _span; }
  [[nodiscard]] bool isWhole() const { return _span >= _length; }
  [[nodiscard]] bool holds(double time) const { return time >= from() && time <= to(); }

  /// Within the stretch, also for a place outside of the picture.
  [[nodiscard]] double timeAt(double place) const;
  /// Where a time lies, also one outside of the stretch; 0 without a take.
  [[nodiscard]] double placeOf(double time) const;

  /// Shows `factor` times as much; what is at the place stays there if it can.
  void zoom(double factor, double place);
  /// By so many pixels; to the right shows what is later.
  void scroll(double pixels);
  void showAll();
  /// Keeps up with a time that was in view and has left it: turns the page, so that it stands near
  /// the left edge. A time that was elsewhere is not followed.
  void follow(double before, double now);
  /// Turns the page where the time is not in view.
  void reveal(double time);

 private:
  void place(double from, double span);

  double _length = 0;
  double _width = 0;
  double _from = 0;
  double _span = 0;
};
