// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "dialogs/HelpVC.h"

#include <QPushButton>

#include "controls/Appearance.h"
#include "dsp/SideGain.h"

namespace {

constexpr int kPageWidth = 210;

std::vector<HelpVC::Line> pointerLines() {
  return {{HelpVC::tr("Waveform"), HelpVC::tr("A click or a drag moves the play head")},
          {HelpVC::tr("Wheel there"), HelpVC::tr("Zooms; with Shift it scrolls")},
          {HelpVC::tr("Double click there"), HelpVC::tr("Shows the whole take")},
          {HelpVC::tr("Ruler over it"), HelpVC::tr("A drag loops; A and B can be moved there")},
          {HelpVC::tr("Takes in the list"),
           HelpVC::tr("Shift and Ctrl select several; the second button opens a menu")},
          {HelpVC::tr("Gain"), HelpVC::tr("A double click on the knob resets it")},
          {HelpVC::tr("Width and gain"), HelpVC::tr("A click on the value lets you type one")},
          {HelpVC::tr("Recorder in the dial"),
           HelpVC::tr("A double click turns to %1°").arg(SideGain::kUnityAngle)},
          {HelpVC::tr("Peaks"), HelpVC::tr("A click on a figure or lamp clears them")},
          {HelpVC::tr("Escape"), HelpVC::tr("Clears the loop, or gives up what takes long")}};
}

}  // namespace

HelpVC::HelpVC(const std::vector<Line>& keys, QWidget* parent) : DialogWindow(parent) {
  setAttribute(Qt::WA_DeleteOnClose);
  auto* const grid = new QGridLayout(this);
  grid->setContentsMargins(32, 24, 32, 20);
  grid->setHorizontalSpacing(14);
  grid->setVerticalSpacing(6);
  addLines(*grid, 0, tr("Keys"), keys);
  grid->setColumnMinimumWidth(2, 12);
  addLines(*grid, 3, tr("Pointer"), pointerLines());
  auto* const ok = new QPushButton(tr("OK"), this);
  ok->setProperty("primary", true);
  ok->setDefault(true);
  connect(ok, &QPushButton::clicked, this, &QDialog::accept);
  grid->addWidget(ok, grid->rowCount(), 4, Qt::AlignRight);
  ok->setFocus();
}

void HelpVC::addLines(QGridLayout& grid, int column, const QString& heading,
                      const std::vector<Line>& lines) {
  grid.addWidget(label(heading, "heading"), 0, column, 1, 2);
  int row = 1;
  for (const Line& line : lines) {
    QLabel* const key = label(line.key);
    key->setWordWrap(false);
    QLabel* const what = label(line.what, "dim");
    what->setFixedWidth(Appearance::lineWidth(kPageWidth, font()));
    grid.addWidget(key, row, column, Qt::AlignTop);
    grid.addWidget(what, row++, column + 1, Qt::AlignTop);
  }
}

void HelpVC::initWindowUI() {
  DialogWindow::initWindowUI(tr("Keys and pointer"));
}
