// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>
#include <QLabel>
#include <QMargins>
#include <QRect>
#include <QSize>
#include <QString>

/// What all dialogs of the window have in common: a title, the window's background, a fixed size
/// without a button that enlarges it, no larger than the screen, and a place in the middle of the
/// main window. Interface thread.
class DialogWindow : public QDialog {
  Q_OBJECT

 public:
  explicit DialogWindow(QWidget* parent);

  /// The main window's rectangle on the screen; a null one leaves the place to the desktop, as does
  /// a desktop on which windows do not place themselves.
  void setParentFrame(const QRect& frame) { _parentFrame = frame; }
  [[nodiscard]] const QRect& parentFrame() const { return _parentFrame; }
  /// In front, with the keyboard.
  void bringUp();

 protected:
  /// Around what most dialogs hold.
  static constexpr QMargins kMargins{28, 24, 28, 20};
  static constexpr int kMarginsAcross = kMargins.left() + kMargins.right();
  /// Of a bar that shows how far it is.
  static constexpr int kSteps = 1000;

  /// Runs each time the dialog is about to be shown, laid out but not yet on the screen.
  virtual void viewWillAppear() { initWindowUI(); }
  /// Gives the window its looks and its place.
  virtual void initWindowUI() = 0;
  void initWindowUI(const QString& title);

  /// A label that wraps, in one of the looks that `Appearance` knows; an empty role is plain.
  QLabel* label(const QString& text, const char* role = "");
  /// Shows a name in one line of at most `width` pixels, shortened in the middle; assistive
  /// software and the tool tip have it whole.
  static void showName(QLabel& label, const QString& name, int width);
  /// Shows a figure with the minus sign that is printed; assistive software has a plain one.
  static void showFigure(QLabel& label, const QString& text);
  /// Fits the window's size to what it holds; what is larger than the screen is scrolled from then
  /// on.
  void fixSize();
  /// What the screen leaves to a window.
  [[nodiscard]] QSize mostSize() const;

  void showEvent(QShowEvent* event) override;

 private:
  void scrollContent();

  QRect _parentFrame;
  QWidget* _content = nullptr;  ///< what is scrolled; null where nothing is
  QSize _bars{0, 0};            ///< what the window is larger by for that
};
