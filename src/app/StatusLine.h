// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>
#include <vector>

/// A quiet line for what went wrong and needs no answer. Each topic has one message; the newest is
/// shown until its topic is well again, then the one before it. Interface thread.
class StatusLine : public QLabel {
  Q_OBJECT

 public:
  enum class Topic { Looking, Opening, Recording, Sound, Folder, Export, Memory, Repair, Card };

  explicit StatusLine(QWidget* parent = nullptr);

  /// Says a sentence; the same one again changes nothing.
  void say(Topic topic, const QString& sentence);
  void clear(Topic topic) { say(topic, {}); }
  [[nodiscard]] QString message(Topic topic) const;

  /// Asks for three lines and no width: what does not fit is in the tool tip.
  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }
  /// However long the sentence: the stage would be scrolled for it.
  [[nodiscard]] int heightForWidth(int /*width*/) const override { return sizeHint().height(); }

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 signals:
  /// A sentence has come to be shown.
  void said(const QString& sentence);

 private:
  struct Message {
    Topic topic;
    QString sentence;
  };

  void present(const QString& sentence);
  /// Whether all of the sentence does.
  [[nodiscard]] bool fits() const;
  void align();

  std::vector<Message> _messages;  ///< oldest first
};
