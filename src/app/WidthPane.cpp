// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/WidthPane.h"

#include <utility>
#include <vector>

#include "app/LoudnessPane.h"
#include "controls/Colors.h"
#include "dsp/SideGain.h"

namespace {

using Cost = CostRing::Cost;

Cost costOf(const TakeFigures& figures) {
  if (figures.isOverFullScale()) return Cost::Over;
  const bool isNear = figures.truePeakDbtp && *figures.truePeakDbtp > LoudnessPane::kNear;
  return isNear ? Cost::Near : Cost::None;
}

std::vector<Cost> costsOf(const TakeAnalysis* analysis, double gain) {
  std::vector<Cost> costs;
  for (int width = 0; analysis != nullptr && width <= SideGain::kMaxAngle; ++width) {
    costs.push_back(costOf(analysis->peaksAt(width, gain)));
  }
  return costs;
}

QColor colorOf(Cost cost) {
  if (cost == Cost::None) return Colors::WHITE();
  return cost == Cost::Over ? Colors::overText() : Colors::warning();
}

}  // namespace

WidthPane::WidthPane(StageView& view, TakeSession& take, MeasuredTake& measured, QObject* parent)
    : QObject(parent), _view(view), _take(take), _measured(measured) {
  _timerTurned.setObjectName(QStringLiteral("timerTurned"));
  _timerTurned.setSingleShot(true);
  connect(&_timerTurned, &QTimer::timeout, this, &WidthPane::showFigures);
  connect(&_measured, &MeasuredTake::measured, this, &WidthPane::refresh);
  connect(&_take, &TakeSession::soundChanged, this, &WidthPane::refresh);
  connect(_view.sliderStereo, &AngleViewer::turned, this, &WidthPane::turn);
  connect(_view.sliderStereo, &AngleViewer::pointedChanged, this, &WidthPane::showFigures);
}

void WidthPane::refresh() {
  showCosts();
  showFigures();
}

void WidthPane::turn() {
  _timerTurned.start(kAfterTurn);
  showFigures();
}

// Of a take whose channels stay as they are no width makes anything else.
std::shared_ptr<const TakeAnalysis> WidthPane::known() const {
  return _take.isRawMidSide() ? _measured.analysis() : nullptr;
}

void WidthPane::showCosts() {
  const auto analysis = known();
  const double gain = _measured.gain();
  if (analysis == _shown && gain == _shownGain) return;
  _shown = analysis;
  _shownGain = gain;
  _view.sliderStereo->setCosts(costsOf(analysis.get(), gain));
}

std::optional<int> WidthPane::askedWidth() const {
  if (const auto pointed = _view.sliderStereo->pointedAngle()) return pointed;
  return _timerTurned.isActive() ? std::optional(_measured.width()) : std::nullopt;
}

void WidthPane::showFigures() {
  const auto analysis = known();
  const std::optional<int> width = askedWidth();
  if (!analysis || !width) return _view.cost->hide();
  const TakeFigures figures = analysis->at(*width, _measured.gain());
  _view.cost->showFigures(*width, figures, colorOf(costOf(figures)));
}
