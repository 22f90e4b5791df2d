// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/DeviceView.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>
#include <QWheelEvent>

#include "app/MainViewParts.h"
#include "controls/Artwork.h"
#include "controls/Colors.h"

namespace {

// The room of each line and column with the usual font, which has some to spare.
constexpr int kDeviceWidth = 286;
constexpr int kDeviceInset = 16;
constexpr int kTop = 20;
constexpr int kLine = 18;
constexpr int kTallLine = 20;
constexpr int kCaptionWidth = 106;
constexpr int kSettingHeight = 26;
constexpr QSize kPicture{51, 112};  // no wider than what is drawn in it
constexpr int kBesidePicture = 19;
constexpr QSize kDot{14, 10};  // with what is kept free over it and to its right

QString lookOfDevice() {
  return QStringLiteral(
             "#viewDeviceBG { background: %1; border-radius: 2px; }"
             "#listBatteryCover, #listAutoPowOffCover { background: transparent;"
             "  border-radius: 4px; padding: 0; min-height: 22px; }"
             "#dotConnected { background: %4; border-radius: 4px; margin: 2px 6px 0 0; }"
             "#barUsed { background: %2; border: none; border-radius: 3px; }"
             "#barUsed::chunk { background: %3; border-radius: 3px; }")
      .arg(Colors::AppBGLight().name(), Colors::ControlColor().name(), Colors::accent().name(),
           Colors::safe().name());
}

// A wheel that passes over it closed would set the recorder at once.
class SettingPopup : public QComboBox {
 public:
  using QComboBox::QComboBox;

 protected:
  void wheelEvent(QWheelEvent* event) override { event->ignore(); }
};

template <class Layout>
Layout* bare() {
  auto* const layout = new Layout;
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  return layout;
}

// A widget's own minimum would hide what its text asks for; a line's does not.
QHBoxLayout* addLine(QBoxLayout& words, int height) {
  auto* const line = bare<QHBoxLayout>();
  line->addStrut(height);
  words.addLayout(line);
  return line;
}

}  // namespace

DeviceView::DeviceView(QWidget* parent) : QWidget(parent) {
  setObjectName(QStringLiteral("viewDeviceBG"));
  setAttribute(Qt::WA_StyledBackground);
  dress();
  setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
  auto* const all = new QVBoxLayout(this);
  all->setContentsMargins(kDeviceInset, kTop, kDeviceInset, kDeviceInset);
  all->setSpacing(12);
  all->addStrut(kDeviceWidth);
  all->addLayout(makeState());
  all->addLayout(makeSettings());
}

void DeviceView::dress() {
  const QString now = lookOfDevice();
  if (now != styleSheet()) setStyleSheet(now);
}

void DeviceView::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) dress();
}

QWidgetList DeviceView::tabOrder() const {
  return {popupBattery, listBatteryCover, popupAutoPow, listAutoPowOffCover};
}

QLayout* DeviceView::makeState() {
  imgJ4 = new ImageView(this);
  imgJ4->setImage(Artwork::icon(QStringLiteral("device_j4")));
  imgJ4->setAccessibleName(tr("The recorder"));
  imgJ4->setFixedSize(kPicture);
  auto* const row = bare<QHBoxLayout>();
  row->setSpacing(kBesidePicture);
  row->addWidget(imgJ4, 0, Qt::AlignTop);
  row->addLayout(makeWords(), 1);
  return row;
}

QLayout* DeviceView::makeWords() {
  auto* const words = bare<QVBoxLayout>();
  placeConnection(*words);
  words->addSpacing(2);
  placeCard(*words);
  words->addStretch();
  return words;
}

// The words of the first line stand two pixels low in it.
void DeviceView::placeConnection(QBoxLayout& words) {
  lblConnect = MainViewParts::label(this, "heading");
  lblVersion = MainViewParts::label(this, "dim");
  lblVersion->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  dotConnected = MainViewParts::ground(this, "dotConnected");
  dotConnected->setFixedSize(kDot);
  dotConnected->hide();
  auto* const line = addLine(words, kTallLine);
  line->addWidget(dotConnected);
  for (QLabel* const label : {lblConnect, lblVersion}) {
    label->setContentsMargins(0, 2, 0, 0);
    line->addWidget(label, label == lblConnect ? 1 : 0);
  }
  addLine(words, kLine)->addLayout(makeNotes());
}

// Both have the same place, which is kept free for them.
QLayout* DeviceView::makeNotes() {
  lblSimulated = MainViewParts::label(this, "dim", tr("Simulated recorder"));
  lblUnavailable = MainViewParts::label(this, "dim", tr("No recorder can be found here."));
  auto* const notes = bare<QGridLayout>();
  for (QLabel* const note : {lblSimulated, lblUnavailable}) {
    QSizePolicy policy = note->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    note->setSizePolicy(policy);
    note->hide();
    notes->addWidget(note, 0, 0);
  }
  return notes;
}

void DeviceView::showUnavailable(const QString& reason) {
  lblUnavailable->setHidden(reason.isEmpty());
  lblUnavailable->setToolTip(reason);
}

void DeviceView::placeCard(QBoxLayout& words) {
  lblUsed = MainViewParts::label(this, "");
  addLine(words, kLine)->addWidget(lblUsed);
  words.addSpacing(6);
  barUsed = new QProgressBar(this);
  barUsed->setObjectName(QStringLiteral("barUsed"));
  barUsed->setRange(0, 1000);
  barUsed->setTextVisible(false);
  barUsed->setAccessibleName(tr("Card used"));
  barUsed->setFixedHeight(6);
  words.addWidget(barUsed);
  words.addSpacing(12);
  lblRemain = MainViewParts::label<TabularLabel>(this, "");
  lblRemain->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  auto* const line = addLine(words, kTallLine);
  QLabel* const caption = MainViewParts::label(this, "dim", tr("Remaining"));
  caption->setBuddy(lblRemain);
  line->addWidget(caption);
  line->addWidget(lblRemain, 1);
}

QLayout* DeviceView::makeSettings() {
  auto* const grid = bare<QGridLayout>();
  grid->setHorizontalSpacing(4);
  grid->setVerticalSpacing(8);
  grid->setColumnMinimumWidth(0, kCaptionWidth);
  grid->setColumnStretch(1, 1);
  placeSetting(*grid, 0, tr("Battery"), popupBattery, listBatteryCover);
  placeSetting(*grid, 1, tr("Auto power off"), popupAutoPow, listAutoPowOffCover);
  listBatteryCover->setObjectName(QStringLiteral("listBatteryCover"));
  listAutoPowOffCover->setObjectName(QStringLiteral("listAutoPowOffCover"));
  return grid;
}

void DeviceView::placeSetting(QGridLayout& grid, int row, const QString& name, QComboBox*& popup,
                              QPushButton*& cover) {
  QLabel* const caption = MainViewParts::label(this, "dim", name);
  popup = new SettingPopup(this);
  popup->setAccessibleName(name);
  popup->setSizePolicy(QSizePolicy::MinimumExpanding, QSizePolicy::Fixed);
  caption->setBuddy(popup);
  cover = new QPushButton(this);
  cover->setAccessibleName(tr("%1, no recorder connected").arg(name));
  cover->setFocusPolicy(Qt::TabFocus);
  cover->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
  grid.setRowMinimumHeight(row, kSettingHeight);
  grid.addWidget(caption, row, 0);
  grid.addWidget(popup, row, 1);
  grid.addWidget(cover, row, 1);
}
