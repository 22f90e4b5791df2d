// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#include "controls/AngleViewer.h"

#include <QAccessible>
#include <QMouseEvent>
#include <algorithm>
#include <cmath>
#include <utility>

#include "controls/AccessibleFactory.h"
#include "controls/AdjustableAccessible.h"
#include "controls/Colors.h"
#include "controls/Upward.h"

namespace {

constexpr double kDegreesPerRadian = 57.29577951308232;
constexpr double kFullTurn = 360.0;
constexpr double kTitleReach = 10.0;
constexpr double kArcReach = 16.0;  // of the pointer, to both sides of the arc

QAccessibleInterface* makeReadableDial(AngleViewer& dial) {
  return new AdjustableAccessible(&dial, dial, QAccessible::Dial);
}

}  // namespace

AngleViewer::AngleViewer(QWidget* parent) : QWidget(parent) {
  AccessibleFactory::install<AngleViewer, makeReadableDial>();
  setAccessibleName(tr("Stereo width"));
  initUI();
}

QColor AngleViewer::GrayBackgroundColor() {
  return Colors::track();
}

void AngleViewer::initUI() {
  _angle = 0.0;
  takeColors();
  _allow2Drag = false;
  _angleTextList = {{tr("MONO"), 0.0, {25, -20}},  {tr("30°"), 30.0, {-3, -14}},
                    {tr("60°"), 60.0, {-5, -5}},   {tr("90°"), 90.0, {-5, 0}},
                    {tr("120°"), 120.0, {-5, 10}}, {tr("150°"), 150.0, {5, 18}}};
  measureTitles();
  setMouseTracking(true);
}

void AngleViewer::takeColors() {
  _grayCircleColor = GrayBackgroundColor();
  _disableColor = GrayBackgroundColor();
  _disableTextColor = Colors::disabledText();
}

void AngleViewer::setCosts(std::vector<CostRing::Cost> costs) {
  if (_ring.set(std::move(costs))) update();
}

void AngleViewer::setPointed(std::optional<int> degree) {
  if (degree == _pointed) return;
  _pointed = degree;
  setCursor(_pointed ? Qt::PointingHandCursor : Qt::ArrowCursor);
  emit pointedChanged();
}

bool AngleViewer::isThumbPointed() const {
  return _enable && _pointer && (_allow2Drag || Upward::covers(thumbSquare(), *_pointer));
}

void AngleViewer::setPointer(std::optional<QPointF> place) {
  const bool was = isThumbPointed();
  _pointer = place;
  if (isThumbPointed() != was) update();
}

void AngleViewer::setEnable(bool enable) {
  if (!enable && hasFocus() && !focusNextChild()) clearFocus();
  if (!enable) _allow2Drag = false;
  _enable = enable;
  setFocusPolicy(enable ? Qt::StrongFocus : Qt::NoFocus);
  if (!enable) setPointed(std::nullopt);
  update();
  QAccessible::State changed;
  changed.disabled = true;
  QAccessibleStateChangeEvent event(this, changed);
  QAccessible::updateAccessibility(&event);
}

void AngleViewer::layoutGeometry() {
  if (QSizeF(size()) == _cacheSize) return;
  _cacheSize = size();
  const double width = _cacheSize.width();
  RADIUS_OF_BIG_CURVE = radiusOf(width);
  THUMB_SIZE = (width / 10.0 * 2.0) * 0.25;
  auto thumb = std::make_shared<QPainterPath>();
  thumb->addEllipse(QRectF(0.0, 0.0, THUMB_SIZE, THUMB_SIZE));
  _benThumb = thumb;
  _point0Deg = centre() + QPointF(0.0, RADIUS_OF_BIG_CURVE);
  _thumbPosition = _point0Deg;
  _point150Deg = centre() - QPointF(0.4999999999999998 * RADIUS_OF_BIG_CURVE,
                                    0.8660254037844388 * RADIUS_OF_BIG_CURVE);
  _benBG = arcTo(kMaxAngle);
  _benMove = arcTo(0.0);
  _150ben = _benBG;
  _0ben = _benMove;
}

QPointF AngleViewer::centre() const {
  return {_cacheSize.width() / 2, _cacheSize.height() / 2};
}

QPointF AngleViewer::onArc(double radians) const {
  return centre() +
         QPointF(std::cos(radians) * RADIUS_OF_BIG_CURVE, std::sin(radians) * RADIUS_OF_BIG_CURVE);
}

AngleViewer::Path AngleViewer::arcTo(double angle) const {
  const double r = RADIUS_OF_BIG_CURVE;
  const QRectF circle(centre() - QPointF(r, r), QSizeF(2 * r, 2 * r));
  auto path = std::make_shared<QPainterPath>();
  // The toolkit's angles turn the other way once y is upward.
  path->arcMoveTo(circle, -kTop);
  // An arc of no length would still leave the dot of its round caps.
  if (angle != 0.0) path->arcTo(circle, -kTop, -angle);
  return path;
}

void AngleViewer::setNewAngle(double angle) {
  if (std::isnan(angle)) return;
  updateAngle(angle);
  _thumbPosition = onArc((angle + kTop) / kDegreesPerRadian);
  rebuildArc();
}

void AngleViewer::resetTo0() {
  stopAt(0.0, _0ben, _point0Deg);
}

void AngleViewer::stopAt(double end, const Path& arc, QPointF place) {
  updateAngle(end);
  _benMove = arc;
  _thumbPosition = place;
  update();
}

void AngleViewer::updateAngle(double angle) {
  if (angle == _angle) return;
  if (const auto delegate = _delegate.lock()) delegate->angleViewer(this, angle);
  _angle = angle;
  emit turned();
  QAccessibleValueChangeEvent event(this, angle);
  QAccessible::updateAccessibility(&event);
}

void AngleViewer::rebuildArc() {
  _benMove = arcTo(_angle);
  update();
}

void AngleViewer::moveTheThumb(QPointF point, bool preventOutSide) {
  const QPointF arm = point - centre();
  const double radians = std::atan2(arm.y(), arm.x());
  double degrees = radians * kDegreesPerRadian;
  if (degrees < 0.0) degrees += kFullTurn;
  const double angle = degrees - kTop;
  if (angle >= 0.0 && angle <= kMaxAngle) {
    updateAngle(angle);
    _thumbPosition = onArc(radians);
    rebuildArc();
  } else if (!preventOutSide) {
    const bool isBelow = angle > kMaxAngle;
    stopAt(isBelow ? kMaxAngle : 0.0, isBelow ? _150ben : _0ben,
           isBelow ? _point150Deg : _point0Deg);
  }
}

void AngleViewer::detectClick(QPointF point) {
  const QRectF bounds(rect());
  if (!Upward::covers(bounds, point) || point.x() > bounds.width() / 2.0) return;
  moveTheThumb(point, true);
}

// On the arc or on a label.
std::optional<double> AngleViewer::angleAt(QPointF point) const {
  if (const auto title = titleAt(point); title != _angleTextList.end()) return title->angle();
  const QPointF arm = point - centre();
  if (std::fabs(std::hypot(arm.x(), arm.y()) - RADIUS_OF_BIG_CURVE) > kArcReach) return {};
  const double degrees = std::atan2(arm.y(), arm.x()) * kDegreesPerRadian;
  const double angle = (degrees < 0.0 ? degrees + kFullTurn : degrees) - kTop;
  return angle >= 0.0 && angle <= kMaxAngle ? std::optional(angle) : std::nullopt;
}

std::vector<AngleInfo>::const_iterator AngleViewer::titleAt(QPointF point) const {
  const auto isHit = [point](const AngleInfo& title) {
    const QRectF f = title.frame();
    return Upward::covers({f.x() - kTitleReach, f.y() - kTitleReach, f.width() + kTitleReach,
                           f.height() + kTitleReach},
                          point);
  };
  return std::find_if(_angleTextList.begin(), _angleTextList.end(), isHit);
}

void AngleViewer::detectClickTitle(QPointF point) {
  const auto title = titleAt(point);
  if (title == _angleTextList.end()) return;
  _didTouchAngleTitle = true;
  setNewAngle(title->angle());
}

double AngleViewer::stepOrigin() const {
  return std::trunc(_angle);
}

QString AngleViewer::valueText() const {
  return tr("%1°").arg(static_cast<int>(_angle));
}

void AngleViewer::adjust(double value, AdjustCause /*cause*/) {
  setNewAngle(std::clamp(value, 0.0, kMaxAngle));
}
