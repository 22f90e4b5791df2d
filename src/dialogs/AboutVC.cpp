// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "dialogs/AboutVC.h"

#include <QVBoxLayout>
#include <array>

#include "controls/Appearance.h"
#include "controls/Artwork.h"

namespace {

constexpr QSize kLogo(110, 85);
constexpr int kWidth = 360;

}  // namespace

AboutVC::AboutVC(QWidget* parent) : DialogWindow(parent) {
  setAttribute(Qt::WA_DeleteOnClose);
  auto* const logo = new QLabel(this);
  logo->setPixmap(Artwork::icon(QStringLiteral("logo")).pixmap(kLogo, devicePixelRatioF()));
  logo->setAccessibleName(tr("Logo"));
  _version = label({}, "dim");
  _version->setObjectName(QStringLiteral("version"));
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(32, 28, 32, 28);
  column->setSpacing(6);
  const std::array<QLabel*, 5> lines = {
      logo, label(QStringLiteral("TARN J4 Mixdeck"), "title"), _version,
      label(tr("Desktop companion of the TARN J4 recorder")),
      label(tr("Copyright 2026 The Mixdeck developers\nMIT license"), "dim")};
  for (QLabel* const line : lines) {
    line->setAlignment(Qt::AlignHCenter);
    column->addWidget(line);
  }
  column->insertSpacing(1, 10);
  column->insertSpacing(4, 10);
  setMinimumWidth(Appearance::lineWidth(kWidth, font()));
}

void AboutVC::viewWillAppear() {
  _version->setText(_versionString);
  initWindowUI();
}

void AboutVC::initWindowUI() {
  DialogWindow::initWindowUI(tr("About"));
}
