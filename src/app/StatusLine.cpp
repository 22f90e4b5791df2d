// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/StatusLine.h"

#include <QPainter>
#include <QStyle>
#include <QTextLayout>
#include <algorithm>
#include <cmath>

#include "controls/PlainText.h"

namespace {

// Of the lines that the text has in this room, how high those are that are whole in it.
int heightOfWholeLines(const QLabel& label) {
  QTextLayout layout(label.text(), label.font());
  QTextOption option;
  option.setWrapMode(QTextOption::WordWrap);
  layout.setTextOption(option);
  double whole = 0;
  layout.beginLayout();
  for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
    line.setLineWidth(label.width());
    if (whole + line.height() > label.height()) break;
    whole += line.height();
  }
  layout.endLayout();
  return static_cast<int>(std::ceil(whole));
}

}  // namespace

StatusLine::StatusLine(QWidget* parent) : QLabel(parent) {
  setTextFormat(Qt::PlainText);
  setWordWrap(true);
  setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
}

void StatusLine::say(Topic topic, const QString& sentence) {
  if (message(topic) == sentence) return;
  std::erase_if(_messages, [topic](const Message& message) { return message.topic == topic; });
  if (!sentence.isEmpty()) _messages.push_back({topic, sentence});
  present(_messages.empty() ? QString() : _messages.back().sentence);
}

void StatusLine::present(const QString& sentence) {
  if (sentence == text()) return;
  setText(sentence);
  align();
  setToolTip(PlainText::of(sentence));
  if (!sentence.isEmpty()) emit said(sentence);
}

bool StatusLine::fits() const {
  return QLabel::heightForWidth(width()) <= height();
}

// Of a sentence with more lines than there is room for the first ones are shown, whole.
void StatusLine::align() {
  setAlignment(Qt::AlignRight | (fits() ? Qt::AlignVCenter : Qt::AlignTop));
}

void StatusLine::paintEvent(QPaintEvent* event) {
  if (fits()) return QLabel::paintEvent(event);
  QPainter painter(this);
  painter.setClipRect(0, 0, width(), heightOfWholeLines(*this));
  const int flags = static_cast<int>(alignment()) | Qt::TextWordWrap;
  style()->drawItemText(&painter, rect(), flags, palette(), isEnabled(), text(), foregroundRole());
}

void StatusLine::resizeEvent(QResizeEvent* event) {
  QLabel::resizeEvent(event);
  align();
}

QString StatusLine::message(Topic topic) const {
  const auto found = std::ranges::find(_messages, topic, &Message::topic);
  return found == _messages.end() ? QString() : found->sentence;
}

QSize StatusLine::sizeHint() const {
  constexpr int kLines = 3;
  ensurePolished();
  return {0, kLines * fontMetrics().height()};
}
