// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QComboBox>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QWidget>

#include "app/ImageView.h"
#include "app/TabularLabel.h"

class QBoxLayout;
class QGridLayout;

/// The part of the window that shows the recorder: what it is, its card, its two settings. Laid out
/// and named, and nothing more. Boxes of text are as large as their text and font ask for, and
/// never smaller than in the usual font. Interface thread.
class DeviceView : public QWidget {
  Q_OBJECT

 public:
  explicit DeviceView(QWidget* parent = nullptr);

  /// What Tab goes through, in order.
  [[nodiscard]] QWidgetList tabOrder() const;

  /// Says that recorders cannot be looked for; why, in technical words, is the tool tip. An empty
  /// reason: they can.
  void showUnavailable(const QString& reason);

  ImageView* imgJ4 = nullptr;
  QWidget* dotConnected = nullptr;  ///< shown while a recorder is connected
  QLabel* lblConnect = nullptr;
  QLabel* lblVersion = nullptr;
  QLabel* lblSimulated = nullptr;    ///< shown while the recorder is a simulated one
  QLabel* lblUnavailable = nullptr;  ///< shown where recorders cannot be looked for at all
  QLabel* lblUsed = nullptr;
  QProgressBar* barUsed = nullptr;  ///< thousandths of the card
  TabularLabel* lblRemain = nullptr;
  QComboBox* popupBattery = nullptr;
  QComboBox* popupAutoPow = nullptr;
  QPushButton* listBatteryCover = nullptr;     ///< lies over the pop-up
  QPushButton* listAutoPowOffCover = nullptr;  ///< lies over the pop-up

 protected:
  /// Its own looks follow the contrast of the program.
  void changeEvent(QEvent* event) override;

 private:
  void dress();
  QLayout* makeState();
  QLayout* makeWords();
  QLayout* makeNotes();
  QLayout* makeSettings();
  void placeConnection(QBoxLayout& words);
  void placeCard(QBoxLayout& words);
  void placeSetting(QGridLayout& grid, int row, const QString& name, QComboBox*& popup,
                    QPushButton*& cover);
};
