// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "controls/ClickCounter.h"
#include "controls/Slider.h"

class J4GainSlider;

/// The owner of a gain slider, which hears of resets.
class J4GainSliderParent {
 public:
  J4GainSliderParent() = default;
  J4GainSliderParent(const J4GainSliderParent&) = delete;
  J4GainSliderParent& operator=(const J4GainSliderParent&) = delete;
  virtual ~J4GainSliderParent() = default;

  virtual void sliderGainValueChanged(J4GainSlider* slider) = 0;
};

/// A slider in whole dB that a double click brings back to a set value. The double click goes to
/// the parent alone; every other movement is a `valueAdjusted`. Interface thread.
class J4GainSlider : public Slider {
  Q_OBJECT

 public:
  /// Steps are 1 dB and 6 dB.
  explicit J4GainSlider(QWidget* parent = nullptr);

  void setValueForDoubleClick(double value) { _valueForDoubleClick = value; }
  /// The toolkit has a parent() and a setParent() of its own; hence the longer names.
  void setGainParent(const std::weak_ptr<J4GainSliderParent>& parent) { _parent = parent; }

  [[nodiscard]] double stepOrigin() const override;
  [[nodiscard]] QString valueText() const override;

  // No program calls what follows; it belongs to the system's interface.

  [[nodiscard]] double valueForDoubleClick() const { return _valueForDoubleClick; }
  [[nodiscard]] std::weak_ptr<J4GainSliderParent> gainParent() const { return _parent; }

 protected:
  void mousePressEvent(QMouseEvent* event) override;

 private:
  double _valueForDoubleClick = 0.0;
  std::weak_ptr<J4GainSliderParent> _parent;
  ClickCounter _clicks;
};
