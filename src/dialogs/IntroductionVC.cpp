// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "dialogs/IntroductionVC.h"

#include <QGridLayout>
#include <QPushButton>
#include <array>

#include "base/Utility.h"
#include "controls/Appearance.h"
#include "controls/Artwork.h"

namespace {

constexpr QSize kIcon(36, 36);
constexpr int kTextWidth = 400;

struct Section {
  const char* picture;
  const char* heading;
  const char* text;
};

constexpr std::array<Section, 5> kSections = {
    {{"logo", QT_TRANSLATE_NOOP("IntroductionVC", "What mid-side is"),
      QT_TRANSLATE_NOOP("IntroductionVC",
                        "One microphone hears the middle, another the sides. Together they give a "
                        "stereo image whose width you choose after the recording.")},
     {"open_folder", QT_TRANSLATE_NOOP("IntroductionVC", "Open a folder"),
      QT_TRANSLATE_NOOP(
          "IntroductionVC",
          "Choose the folder with your takes at the top left. A double click on a take "
          "plays it.")},
     {"dial", QT_TRANSLATE_NOOP("IntroductionVC", "Turn the width"),
      QT_TRANSLATE_NOOP(
          "IntroductionVC",
          "Drag the dial from MONO to 150° while you listen. Gain makes a take louder "
          "or softer.")},
     {"wav_file", QT_TRANSLATE_NOOP("IntroductionVC", "Export"),
      QT_TRANSLATE_NOOP(
          "IntroductionVC",
          "Export writes what you hear into a new stereo file. The take itself is never "
          "changed.")},
     {"plug", QT_TRANSLATE_NOOP("IntroductionVC", "Plug in the recorder"),
      QT_TRANSLATE_NOOP("IntroductionVC",
                        "Connected over USB, it shows the room left on its card and lets you set "
                        "battery type and auto power off.")}}};

}  // namespace

IntroductionVC::IntroductionVC(QWidget* parent) : DialogWindow(parent) {
  setAttribute(Qt::WA_DeleteOnClose);
  auto* const grid = new QGridLayout(this);
  grid->setContentsMargins(32, 28, 32, 24);
  grid->setHorizontalSpacing(20);
  grid->setVerticalSpacing(3);
  grid->addWidget(label(tr("Welcome to TARN J4 Mixdeck"), "title"), 0, 0, 1, 2);
  grid->setRowMinimumHeight(1, 10);
  int row = 2;
  for (const Section& section : kSections) {
    auto* const picture = new QLabel(this);
    picture->setPixmap(
        Artwork::icon(QLatin1String(section.picture)).pixmap(kIcon, devicePixelRatioF()));
    picture->setAccessibleName(tr(section.heading));
    grid->addWidget(picture, row, 0, 2, 1, Qt::AlignTop | Qt::AlignHCenter);
    grid->addWidget(label(tr(section.heading), "heading"), row++, 1);
    QLabel* const text = label(tr(section.text));
    text->setFixedWidth(Appearance::lineWidth(kTextWidth, font()));
    grid->addWidget(text, row++, 1);
    grid->setRowMinimumHeight(row++, 12);
  }
  _toggleShow = new QCheckBox(tr("Do not show this again"), this);
  _toggleShow->setObjectName(QStringLiteral("toggleShow"));
  grid->addWidget(_toggleShow, row, 0, 1, 2, Qt::AlignLeft);
  auto* const ok = new QPushButton(tr("OK"), this);
  ok->setProperty("primary", true);
  ok->setDefault(true);
  connect(ok, &QPushButton::clicked, this, &IntroductionVC::btnOK_Click);
  grid->addWidget(ok, row, 1, Qt::AlignRight);
  ok->setFocus();
}

void IntroductionVC::viewWillAppear() {
  _toggleShow->setHidden(_fromMenu);
  initWindowUI();
}

void IntroductionVC::initWindowUI() {
  DialogWindow::initWindowUI(tr("Introduction"));
}

void IntroductionVC::btnOK_Click() {
  if (!_toggleShow->isHidden() && _toggleShow->isChecked()) {
    Utility::store(Utility::kDoNotShowAgain, _versionString.toStdString());
  }
  accept();
}
