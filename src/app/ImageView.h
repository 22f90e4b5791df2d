// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>
#include <QWidget>

/// A picture that fills the view, dimmed while the view is disabled. Takes no clicks unless its
/// owner says so: what lies behind it gets them. Interface thread.
class ImageView : public QWidget {
  Q_OBJECT

 public:
  explicit ImageView(QWidget* parent = nullptr);

  [[nodiscard]] const QIcon& image() const { return _image; }
  void setImage(const QIcon& image);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QIcon _image;
};
