// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "dialogs/NodeviceVC.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include "base/Version.h"
#include "controls/Appearance.h"
#include "controls/Artwork.h"

namespace {

constexpr QSize kRecorderPicture(54, 120);
constexpr int kNoteWidth = 260;

}  // namespace

NodeviceVC::NodeviceVC(QWidget* parent) : DialogWindow(parent) {
  setAttribute(Qt::WA_DeleteOnClose);
  auto* const picture = new QLabel(this);
  picture->setPixmap(
      Artwork::icon(QStringLiteral("device_j4")).pixmap(kRecorderPicture, devicePixelRatioF()));
  picture->setAccessibleName(tr("The recorder"));
  auto* const ok = new QPushButton(tr("OK"), this);
  ok->setProperty("primary", true);
  ok->setDefault(true);
  connect(ok, &QPushButton::clicked, this, &NodeviceVC::btnOK_Click);
  QLabel* const advice =
      label(tr("Connect the recorder over USB and switch it on. Its settings can "
               "be changed here as soon as it is found."));
  advice->setFixedWidth(Appearance::lineWidth(kNoteWidth, font()));
  auto* const text = new QVBoxLayout;
  text->setSpacing(8);
  text->addWidget(label(tr("No recorder is connected"), "heading"), 0, Qt::AlignTop);
  text->addWidget(advice, 0, Qt::AlignTop);
  text->addStretch();
  text->addWidget(ok, 0, Qt::AlignRight);
  auto* const row = new QHBoxLayout(this);
  row->setContentsMargins(28, 24, 28, 24);
  row->setSpacing(24);
  row->addWidget(picture, 0, Qt::AlignTop);
  row->addLayout(text);
}

void NodeviceVC::btnOK_Click() {
  accept();
}

void NodeviceVC::initWindowUI() {
  DialogWindow::initWindowUI(QLatin1String(kProduct));
}
