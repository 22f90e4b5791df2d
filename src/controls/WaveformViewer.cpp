// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#include "controls/WaveformViewer.h"

#include <QAccessible>
#include <QFontMetricsF>
#include <QPainter>
#include <QStringList>
#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "controls/AccessibleFactory.h"
#include "controls/AdjustableAccessible.h"
#include "controls/ClockText.h"
#include "controls/Colors.h"
#include "controls/NumberText.h"
#include "controls/TimeRuler.h"
#include "controls/WaveformPicture.h"

namespace {

constexpr double kInset = 9;  // the radius of a slider's knob
constexpr double kBottom = 3;
constexpr double kRadius = 4;
constexpr double kHeadWidth = 2;

constexpr double kReadingAside = 8;  // from the pointer, so that a flag that is held is seen
constexpr double kReadingPadding = 6;
constexpr double kReadingGap = 10;

QAccessibleInterface* makeReadableWaveform(WaveformViewer& viewer) {
  return new AdjustableAccessible(&viewer, viewer, QAccessible::Slider);
}

QString decibels(const QString& channel, float magnitude) {
  const double value = 20.0 * std::log10(static_cast<double>(magnitude));
  const QString text = std::isfinite(value) ? NumberText::of(value, 1) : QStringLiteral("–");
  return channel + u' ' + QString(text).replace(u'-', u'−');
}

// Room for a level, so that nothing jumps while it changes.
double levelWidth(const QFontMetricsF& metrics) {
  return metrics.horizontalAdvance(NumberText::localized(QStringLiteral("L −88.8")));
}

}  // namespace

WaveformViewer::WaveformViewer(QWidget* parent) : QWidget(parent) {
  AccessibleFactory::install<WaveformViewer, makeReadableWaveform>();
  setAccessibleName(tr("Waveform"));
  setFocusPolicy(Qt::StrongFocus);
  setMouseTracking(true);
  _ruler.setFont(font());
}

QRectF WaveformViewer::body() const {
  const double top = ruler();
  return {kInset, top, std::max(0.0, width() - 2 * kInset),
          std::max(0.0, height() - top - kBottom)};
}

double WaveformViewer::xOf(double seconds) const {
  return kInset + _stretch.placeOf(seconds);
}

double WaveformViewer::timeAt(double x) const {
  return _stretch.timeAt(x - kInset);
}

int WaveformViewer::columnsWanted() const {
  return static_cast<int>(std::lround(body().width() * devicePixelRatioF()));
}

double WaveformViewer::headX() const {
  const double pixels = devicePixelRatioF();
  return std::round(xOf(_position) * pixels) / pixels;
}

void WaveformViewer::setLength(double seconds) {
  _stretch.setLength(seconds);
  _position = 0;
  _isHeld = false;
  _marks.letGo();
  setColumns({});
  emit stretchChanged();
}

void WaveformViewer::setPosition(double seconds) {
  const double now = std::clamp(seconds, 0.0, length());
  if (std::isnan(now) || now == _position) return;
  const double before = std::exchange(_position, now);
  const TimeWindow stretch = _stretch;
  _stretch.follow(before, now);
  tellStretch(stretch);
  const double pixels = devicePixelRatioF();
  const double was = std::round(xOf(before) * pixels) / pixels;
  if (was != headX()) updateBetween(was, headX());
}

void WaveformViewer::setMarks(const std::optional<LoopMarks::Marks>& marks) {
  if (_marks.set(marks)) update();
}

void WaveformViewer::setColumns(WaveformColumns columns) {
  _columns = std::move(columns);
  drawPictures();
  update();
}

void WaveformViewer::drawPictures() {
  const int height = static_cast<int>(std::lround(body().height() * devicePixelRatioF()));
  WaveformPicture::draw(_ahead, _columns, height, Colors::waveAhead(), Colors::overAhead());
  WaveformPicture::draw(_played, _columns, height, Colors::wavePlayed(), Colors::over());
}

void WaveformViewer::tellStretch(const TimeWindow& before) {
  if (_stretch.from() == before.from() && _stretch.to() == before.to()) return;
  update();
  emit stretchChanged();
}

void WaveformViewer::zoom(double factor, double x) {
  const TimeWindow before = _stretch;
  _stretch.zoom(factor, x - kInset);
  tellStretch(before);
}

void WaveformViewer::scroll(double pixels) {
  const TimeWindow before = _stretch;
  _stretch.scroll(pixels);
  tellStretch(before);
}

void WaveformViewer::showAll() {
  const TimeWindow before = _stretch;
  _stretch.showAll();
  tellStretch(before);
}

void WaveformViewer::revealHead() {
  const TimeWindow before = _stretch;
  _stretch.reveal(_position);
  tellStretch(before);
}

QString WaveformViewer::valueText() const {
  return ClockText::of(_position);
}

void WaveformViewer::adjust(double value, AdjustCause cause) {
  if (!isAdjustable() || std::isnan(value)) return;
  const QString before = valueText();
  setPosition(value);
  if (isFinal(cause)) revealHead();
  emit valueAdjusted(cause);
  if (valueText() == before) return;
  QAccessibleValueChangeEvent event(this, _position);
  QAccessible::updateAccessibility(&event);
}

QStringList WaveformViewer::reading() const {
  if (!_hover || length() <= 0) return {};
  const double time = timeAt(*_hover);
  const double width = std::max(1.0, body().width());
  const double perPixel = (_stretch.to() - _stretch.from()) / width;
  QStringList texts = {TimeRuler::text(time, std::min(perPixel, 0.1))};
  WaveformColumns::Column column;
  const double span = _columns.to - _columns.from;
  if (span > 0 && !_columns.columns.empty()) {
    const auto count = static_cast<double>(_columns.columns.size());
    const double at = std::clamp((time - _columns.from) / span * count, 0.0, count - 1);
    column = _columns.columns[static_cast<std::size_t>(at)];
  }
  return texts << decibels(tr("L", "left channel"), column.left)
               << decibels(tr("R", "right channel"), column.right);
}

void WaveformViewer::updateBetween(double x1, double x2) {
  const auto left = static_cast<int>(std::floor(std::min(x1, x2) - kHeadWidth));
  const auto right = static_cast<int>(std::ceil(std::max(x1, x2) + kHeadWidth));
  update(QRect(left, 0, right - left + 1, height()));
}

void WaveformViewer::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(Colors::AppBG());
  painter.drawRoundedRect(rect(), kRadius, kRadius);
  painter.setRenderHint(QPainter::Antialiasing, false);
  _marks.drawStretch(painter, _stretch, body());
  drawWave(painter);
  if (length() > 0) {
    drawRuler(painter);
  }
  if (hasFocus() && _focus.isShown()) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(Colors::focusRing(), 2));
    painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), kRadius, kRadius);
  }
}

void WaveformViewer::drawRuler(QPainter& painter) {
  const LoopMarks::Flags flags = _marks.flags(_ruler.font(), _stretch, body());
  const QStringList texts = reading();
  const QRectF box = readingBox(texts);
  _ruler.draw(painter, _stretch, body(), std::array{flags[0], flags[1], box});
  _marks.drawMarks(painter, _stretch, body());
  drawHead(painter);
  drawReading(painter, texts, box);
}

// Columns of another stretch are stretched to where they belong, until the right ones come.
void WaveformViewer::drawWave(QPainter& painter) const {
  const QRectF place = body();
  const double middle = place.top() + std::floor(place.height() / 2);
  painter.fillRect(QRectF(place.left(), middle, place.width(), 1), Colors::guide());
  if (_ahead.isNull() || !(_columns.to > _columns.from)) return;
  const double left = xOf(_columns.from);
  const QRectF whole(left, place.top(), xOf(_columns.to) - left, place.height());
  const double head = std::clamp(headX(), place.left(), place.right());
  painter.save();
  painter.setClipRect(QRectF(head, 0, place.right() - head, height()), Qt::IntersectClip);
  painter.drawImage(whole, _ahead);
  painter.restore();
  painter.save();
  painter.setClipRect(QRectF(place.left(), 0, head - place.left(), height()), Qt::IntersectClip);
  painter.drawImage(whole, _played);
  painter.restore();
}

void WaveformViewer::drawHead(QPainter& painter) const {
  if (!_stretch.holds(_position)) return;
  const QRectF place = body();
  painter.fillRect(
      QRectF(headX() - kHeadWidth / 2, place.top() - 1, kHeadWidth, place.height() + 2),
      isEnabled() ? Colors::WHITE() : Colors::line());
}

QRectF WaveformViewer::readingBox(const QStringList& texts) const {
  if (texts.isEmpty()) return {};
  const double x = std::clamp(std::floor(*_hover), body().left(), body().right());
  const QFontMetricsF metrics(_ruler.font());
  const double wide = metrics.horizontalAdvance(texts.first()) + 2 * levelWidth(metrics) +
                      2 * kReadingGap + 2 * kReadingPadding;
  const bool isRight = x + kReadingAside + wide < width();
  return {isRight ? x + kReadingAside : x - kReadingAside - wide, 0, wide, ruler() + 1};
}

void WaveformViewer::drawReading(QPainter& painter, const QStringList& texts,
                                 const QRectF& box) const {
  if (texts.isEmpty()) return;
  const double x = std::clamp(std::floor(*_hover), body().left(), body().right());
  painter.fillRect(QRectF(x, body().top(), 1, body().height()), Colors::dimText());
  painter.setFont(_ruler.font());
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(Colors::ControlColor());
  painter.drawRoundedRect(box, kRadius, kRadius);
  painter.setPen(Colors::WHITE());
  const QFontMetricsF metrics(painter.font());
  double at = box.left() + kReadingPadding;
  for (const QString& text : texts) {
    const bool isTime = &text == &texts.first();
    painter.drawText(QRectF(at, 0, box.width(), box.height()), Qt::AlignLeft | Qt::AlignVCenter,
                     text);
    at += kReadingGap + (isTime ? metrics.horizontalAdvance(text) : levelWidth(metrics));
  }
}
