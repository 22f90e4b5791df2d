// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/StatusLine.h"

#include <algorithm>

#include "controls/PlainText.h"

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

// Of a sentence with more lines than there is room for the first ones are shown, whole.
void StatusLine::align() {
  const bool fits = QLabel::heightForWidth(width()) <= height();
  setAlignment(Qt::AlignRight | (fits ? Qt::AlignVCenter : Qt::AlignTop));
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
