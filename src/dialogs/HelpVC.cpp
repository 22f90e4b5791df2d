// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "dialogs/HelpVC.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include "controls/Appearance.h"
#include "dsp/SideGain.h"

namespace {

constexpr int kKeysWidth = 150;  // of what they do
constexpr int kPointerWidth = 284;
constexpr int kBetweenSides = 28;

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
  // Side by side, not line beside line: a line that wraps on one side is none of the other's.
  _sides = new QHBoxLayout;
  _sides->setSpacing(kBetweenSides);
  _sides->addLayout(page(tr("Keys"), keys, kKeysWidth));
  _sides->addLayout(page(tr("Pointer"), pointerLines(), kPointerWidth));
  auto* const ok = new QPushButton(tr("OK"), this);
  ok->setProperty("primary", true);
  ok->setDefault(true);
  connect(ok, &QPushButton::clicked, this, &QDialog::accept);
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(32, 24, 32, 20);
  column->setSpacing(12);
  column->addLayout(_sides);
  column->addWidget(ok, 0, Qt::AlignRight);
  ok->setFocus();
}

QLayout* HelpVC::page(const QString& heading, const std::vector<Line>& lines, int width) {
  auto* const grid = new QGridLayout;
  grid->setHorizontalSpacing(14);
  grid->setVerticalSpacing(6);
  grid->addWidget(label(heading, "heading"), 0, 0, 1, 2);
  int row = 1;
  for (const Line& line : lines) {
    QLabel* const key = label(line.key);
    key->setWordWrap(false);
    QLabel* const what = label(line.what, "dim");
    what->setFixedWidth(Appearance::lineWidth(width, font()));
    key->setBuddy(what);
    grid->addWidget(key, row, 0, Qt::AlignTop);
    grid->addWidget(what, row++, 1, Qt::AlignTop);
  }
  grid->setRowStretch(row, 1);
  return grid;
}

// One under the other where the screen is too narrow for both.
void HelpVC::initWindowUI() {
  if (sizeHint().width() > mostSize().width()) _sides->setDirection(QBoxLayout::TopToBottom);
  DialogWindow::initWindowUI(tr("Keys and pointer"));
}
