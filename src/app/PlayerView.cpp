// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/PlayerView.h"

#include <QHBoxLayout>

#include "app/MainViewParts.h"
#include "app/MenuButton.h"
#include "app/StageArea.h"
#include "app/ToggleButton.h"

namespace {

constexpr int kInset = 24;
// The dial needs more room to its left than the rest of the pane.
constexpr int kStageInset = 8;
constexpr QSize kLeastExport{96, 36};
// So far inside its button the speaker begins: the button hangs out to the left of the pane.
constexpr int kSpeakerInset = 5;
constexpr int kBesidePlay = 12;
constexpr int kToggleGap = 5;
constexpr QSize kToggle{30, 24};
constexpr int kHeader = 42;
constexpr int kByStage = 5;
constexpr int kLeastWaveform = 64;
constexpr int kVolume = 110;
constexpr int kLeastVolume = 50;  // in a window that is smaller than it should be

}  // namespace

PlayerView::PlayerView(QWidget* parent) : QWidget(parent) {
  MainViewParts::makeGround(*this, "viewRightBG");
  stage = new StageView(this);
  strips = new QVBoxLayout;
  strips->setContentsMargins(0, 0, 0, 0);
  strips->setSpacing(0);
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(kStageInset, 14, kStageInset, 16);
  layout->setSpacing(0);
  layout->addLayout(makeHeader());
  layout->addSpacing(kByStage);
  layout->addWidget(new StageArea(*stage, this));
  layout->addSpacing(kByStage);
  layout->addLayout(makeLower(), 1);
  layout->addSpacing(10);
  layout->addLayout(makeTransport());
}

QLayout* PlayerView::makeHeader() {
  lblFileName = MainViewParts::label<ElidedLabel>(this, "title");
  lblFormat = MainViewParts::label<ElidedLabel>(this, "dim");
  auto* const words = new QVBoxLayout;
  words->setContentsMargins(0, 2, 0, 0);
  words->setSpacing(2);
  words->addWidget(lblFileName);
  words->addWidget(lblFormat);
  words->addStretch();
  btnExport = new QPushButton(tr("Export"), this);
  btnExport->setObjectName(QStringLiteral("btnExport"));
  btnExport->setMinimumSize(kLeastExport);
  btnExport->setFocusPolicy(Qt::TabFocus);  // as what else is clicked here
  btnExport->setCursor(Qt::PointingHandCursor);
  btnExport->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  btnMenu = MainViewParts::pictureButton<MenuButton>(this, 36, 20);
  MainViewParts::setFace(*btnMenu, QStringLiteral("menu"), tr("Menu"));
  auto* const row = new QHBoxLayout;
  row->setContentsMargins(kInset - kStageInset, 0, kInset - kStageInset - 8, 0);
  row->setSpacing(8);
  row->addStrut(kHeader);
  row->addLayout(words, 1);
  row->addWidget(btnExport, 0, Qt::AlignTop);
  row->addWidget(btnMenu, 0, Qt::AlignTop);
  return row;
}

QLayout* PlayerView::makeLower() {
  waveform = new WaveformViewer(this);
  waveform->setMinimumHeight(kLeastWaveform);
  sliderTime = new J4Slider(this);
  sliderTime->setToolTip(tr("Position: drag or scroll"));
  auto* const lower = new QVBoxLayout;
  lower->setContentsMargins(kInset - kStageInset, 0, kInset - kStageInset, 0);
  lower->setSpacing(0);
  lower->addWidget(waveform, 1);
  lower->addSpacing(2);
  lower->addLayout(strips);
  lower->addWidget(sliderTime);
  lower->addLayout(makeTimes());
  return lower;
}

QLayout* PlayerView::makeTimes() {
  lblTimeCurrent = MainViewParts::label<TabularLabel>(this, "");
  lblTimeTotal = MainViewParts::label<TabularLabel>(this, "dim");
  lblTimeTotal->setAlignment(Qt::AlignRight);
  lblTimeCurrent->setAccessibleDescription(tr("Place in the take"));
  lblTimeTotal->setAccessibleDescription(tr("Length of the take"));
  auto* const row = new QHBoxLayout;
  row->setContentsMargins(0, 4, 0, 0);
  row->addWidget(lblTimeCurrent, 1);
  row->addWidget(lblTimeTotal, 1);
  return row;
}

QLayout* PlayerView::makeVolume() {
  btnVolume = MainViewParts::pictureButton(this, 28, 22);
  sliderVolume = new Slider(this);
  sliderVolume->setAccessibleName(tr("Volume"));
  sliderVolume->setToolTip(tr("Volume of what you hear; an export keeps its level"));
  sliderVolume->setMinimumWidth(kLeastVolume);
  sliderVolume->setMaximumWidth(kVolume);
  auto* const lowered = new QVBoxLayout;  // its track to the middle of the row
  lowered->setContentsMargins(0, 2 * Slider::kLift, 0, 0);
  lowered->addWidget(sliderVolume);
  auto* const volume = new QHBoxLayout;
  volume->setContentsMargins(0, 0, 0, 0);
  volume->setSpacing(4 + kSpeakerInset);
  volume->addWidget(btnVolume);
  volume->addLayout(lowered, kVolume);
  volume->addStretch(1);
  return volume;
}

QLayout* PlayerView::makeTransport() {
  auto* const row = new QHBoxLayout;
  // At both sides, for play to stay in the middle.
  constexpr int kOut = kInset - kStageInset - kSpeakerInset;
  row->setContentsMargins(kOut, 0, kOut, 0);
  row->setSpacing(16);
  row->addLayout(makeVolume(), 1);
  btnPlayPause = MainViewParts::pictureButton(this, 48, 24);
  btnPlayPause->setObjectName(QStringLiteral("btnPlayPause"));
  row->addWidget(btnPlayPause);
  row->addLayout(makeListening(), 1);
  return row;
}

// Beside play, and what there is to say after them.
QLayout* PlayerView::makeListening() {
  btnLoop = toggle(tr("A–B"), tr("Loop"));
  btnSoloMid = toggle(tr("M", "Mid"), tr("Solo Mid"));
  btnSoloSide = toggle(tr("S", "Side"), tr("Solo Side"));
  lblStatus = new StatusLine(this);
  lblStatus->setProperty("role", "dim");
  lblStatus->setMinimumHeight(btnPlayPause->height());
  auto* const row = new QHBoxLayout;
  row->setContentsMargins(kBesidePlay, 0, kSpeakerInset, 0);
  row->setSpacing(kToggleGap);
  row->addWidget(btnLoop);
  row->addSpacing(kToggleGap);
  row->addWidget(btnSoloMid);
  row->addWidget(btnSoloSide);
  row->addSpacing(kToggleGap);
  row->addWidget(lblStatus, 1);
  return row;
}

QToolButton* PlayerView::toggle(const QString& text, const QString& name) {
  auto* const made = new ToggleButton(this);
  made->setProperty("role", "toggle");
  made->setText(text);
  made->setAccessibleName(name);
  made->setToolTip(name);
  made->setFocusPolicy(Qt::TabFocus);
  made->setCursor(Qt::PointingHandCursor);
  made->setMinimumSize(kToggle);
  return made;
}

QWidgetList PlayerView::tabOrder() const {
  return {btnPlayPause,      btnLoop,         btnSoloMid,
          btnSoloSide,       waveform,        sliderTime,
          btnVolume,         sliderVolume,    stage->sliderStereo,
          stage->sliderGain, stage->clipLeft, stage->clipRight,
          btnExport,         btnMenu};
}
