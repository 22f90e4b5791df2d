// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <QHBoxLayout>
#include <QVBoxLayout>

#include "app/MainView.h"
#include "app/MainViewParts.h"
#include "controls/Artwork.h"

namespace {

constexpr int kInset = 24;
// The dial needs more room to its left than the rest of the pane.
constexpr int kStageInset = 8;
constexpr int kStageWidth = 672;
constexpr int kStageHeight = 388;
constexpr int kMiddle = 180;      // of dial and scales
constexpr int kCaptionTop = 346;  // of the captions under dial, gain and levels
constexpr int kValueTop = 368;

void placeCentred(QWidget* widget, int centre, int top, QSize size) {
  widget->setGeometry(centre - size.width() / 2, top, size.width(), size.height());
}

// The scale, and where its first and last label are centred beside what it measures.
constexpr int kScaleHeight = 320;
constexpr int kScaleMargin = 30;
constexpr int kScaleTop = kMiddle - kScaleHeight / 2;

}  // namespace

QWidget* MainView::makePlayerPane() {
  viewRightBG = MainViewParts::ground(this, "viewRightBG");
  auto* const layout = new QVBoxLayout(viewRightBG);
  layout->setContentsMargins(kStageInset, 14, kStageInset, 16);
  layout->setSpacing(0);
  layout->addLayout(makeHeader());
  layout->addStretch();
  layout->addWidget(makeStage(), 0, Qt::AlignHCenter);
  layout->addStretch();
  auto* const lower = new QVBoxLayout;
  lower->setContentsMargins(kInset - kStageInset, 0, kInset - kStageInset, 0);
  lower->setSpacing(0);
  sliderTime = new J4Slider(viewRightBG);
  lower->addWidget(sliderTime);
  lower->addLayout(makeTimes());
  lower->addSpacing(10);
  lower->addLayout(makeTransport());
  layout->addLayout(lower);
  return viewRightBG;
}

QLayout* MainView::makeHeader() {
  lblFileName = MainViewParts::label<ElidedLabel>(viewRightBG, "title");
  lblFormat = MainViewParts::label(viewRightBG, "dim");
  auto* const words = new QVBoxLayout;
  words->setContentsMargins(0, 2, 0, 0);
  words->setSpacing(2);
  words->addWidget(lblFileName);
  words->addWidget(lblFormat);
  words->addStretch();
  btnExport = new QPushButton(tr("Export"), viewRightBG);
  btnExport->setObjectName(QStringLiteral("btnExport"));
  btnExport->setFixedSize(96, 36);
  btnMenu = MainViewParts::pictureButton(viewRightBG, 36, 20);
  MainViewParts::setFace(*btnMenu, QStringLiteral("menu"), tr("Menu"));
  auto* const row = new QHBoxLayout;
  row->setContentsMargins(kInset - kStageInset, 0, kInset - kStageInset - 8, 0);
  row->setSpacing(8);
  row->addLayout(words, 1);
  row->addWidget(btnExport, 0, Qt::AlignTop);
  row->addWidget(btnMenu, 0, Qt::AlignTop);
  return row;
}

QWidget* MainView::makeStage() {
  auto* const stage = new QWidget(viewRightBG);
  stage->setFixedSize(kStageWidth, kStageHeight);
  placeDial(stage);
  placeGain(stage);
  placeLevels(stage);
  return stage;
}

void MainView::placeDial(QWidget* stage) {
  sliderStereo = new AngleViewer(stage);
  const int side = sliderStereo->sizeHint().width();
  constexpr int kCentre = kStageInset + 178;
  placeCentred(sliderStereo, kCentre, kMiddle - side / 2, {side, side});
  imgDevice = new ImageView(stage);
  imgDevice->setImage(Artwork::icon(QStringLiteral("device_j4")));
  placeCentred(imgDevice, kCentre, kMiddle - 78, {68, 156});
  lblStereo = MainViewParts::label(stage, "heading", tr("Stereo width"));
  lblStereo->setAlignment(Qt::AlignCenter);
  placeCentred(lblStereo, kCentre, kCaptionTop, {120, 20});
  lblStereoValue = MainViewParts::label<TabularLabel>(stage, "dim");
  lblStereoValue->setAlignment(Qt::AlignCenter);
  placeCentred(lblStereoValue, kCentre, kValueTop, {120, 18});
}

void MainView::placeGain(QWidget* stage) {
  tickOfGain = new GainTickTitle(stage);
  tickOfGain->setAccessibleName(tr("Gain scale"));
  tickOfGain->setGeometry(378, kScaleTop, 50, kScaleHeight);
  sliderGain = new J4GainSlider(stage);
  placeCentred(sliderGain, 448, kScaleTop + 21, {22, kScaleHeight - 42});
  lblGain = MainViewParts::label(stage, "heading", tr("Gain"));
  lblGain->setAlignment(Qt::AlignCenter);
  placeCentred(lblGain, 440, kCaptionTop, {90, 20});
  lblGainValue = MainViewParts::label<TabularLabel>(stage, "dim");
  lblGainValue->setAlignment(Qt::AlignCenter);
  placeCentred(lblGainValue, 440, kValueTop, {90, 18});
}

void MainView::placeLevels(QWidget* stage) {
  tickOfLevel = new GainTickTitle(stage);
  tickOfLevel->setAccessibleName(tr("Level scale"));
  tickOfLevel->setGeometry(514, kScaleTop, 50, kScaleHeight);
  const auto place = [stage](int left, const QString& name, const QString& letter) {
    auto* const meter = new LevelMeter(stage);
    meter->setAccessibleName(name);
    meter->setGeometry(left, kScaleTop + kScaleMargin, 16, kScaleHeight - 2 * kScaleMargin);
    QLabel* const caption = MainViewParts::label(stage, "dim", letter);
    caption->setAlignment(Qt::AlignCenter);
    placeCentred(caption, left + 8, kScaleTop + kScaleHeight - kScaleMargin + 6, {20, 16});
    return meter;
  };
  lvlLeft = place(576, tr("Level left"), tr("L", "left channel"));
  lvlRight = place(600, tr("Level right"), tr("R", "right channel"));
  QLabel* const caption = MainViewParts::label(stage, "heading", tr("Level"));
  caption->setAlignment(Qt::AlignCenter);
  placeCentred(caption, 586, kCaptionTop, {90, 20});
}

QLayout* MainView::makeTimes() {
  lblTimeCurrent = MainViewParts::label<TabularLabel>(viewRightBG, "");
  lblTimeTotal = MainViewParts::label<TabularLabel>(viewRightBG, "dim");
  lblTimeTotal->setAlignment(Qt::AlignRight);
  auto* const row = new QHBoxLayout;
  row->setContentsMargins(0, 4, 0, 0);
  row->addWidget(lblTimeCurrent, 1);
  row->addWidget(lblTimeTotal, 1);
  return row;
}

QLayout* MainView::makeTransport() {
  btnVolume = MainViewParts::pictureButton(viewRightBG, 28, 22);
  sliderVolume = new Slider(viewRightBG);
  sliderVolume->setAccessibleName(tr("Volume"));
  sliderVolume->setFixedWidth(110);
  btnPlayPause = MainViewParts::pictureButton(viewRightBG, 48, 24);
  btnPlayPause->setObjectName(QStringLiteral("btnPlayPause"));
  lblStatus = new StatusLine(viewRightBG);
  lblStatus->setProperty("role", "dim");
  lblStatus->setFixedHeight(btnPlayPause->height());  // three lines; the tool tip has all
  lblStatus->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  auto* const volume = new QHBoxLayout;
  volume->setContentsMargins(0, 0, 0, 0);
  volume->setSpacing(4);
  volume->addWidget(btnVolume);
  volume->addWidget(sliderVolume);
  volume->addStretch();
  auto* const row = new QHBoxLayout;
  row->setContentsMargins(-3, 0, 0, 0);
  row->setSpacing(16);
  row->addLayout(volume, 1);
  row->addWidget(btnPlayPause);
  row->addWidget(lblStatus, 1);
  return row;
}
