// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "dialogs/AboutVC.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QVBoxLayout>
#include <array>

#include "base/Version.h"
#include "controls/Appearance.h"
#include "controls/Artwork.h"

namespace {

constexpr QSize kLogo(110, 85);
constexpr int kAboutWidth = 360;

}  // namespace

AboutVC::AboutVC(QWidget* parent) : DialogWindow(parent) {
  setAttribute(Qt::WA_DeleteOnClose);
  auto* const logo = new QLabel(this);
  logo->setPixmap(Artwork::icon(QStringLiteral("logo")).pixmap(kLogo, devicePixelRatioF()));
  logo->setAccessibleName(tr("Logo"));
  _version = label({}, "dim");
  _version->setObjectName(QStringLiteral("version"));
  _details = label({}, "dim");
  _details->setObjectName(QStringLiteral("details"));
  _copy = new QPushButton(tr("Copy details"), this);
  _copy->setAutoDefault(false);
  connect(_copy, &QPushButton::clicked, this, &AboutVC::copyDetails);
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(32, 28, 32, 28);
  column->setSpacing(6);
  const std::array<QLabel*, 6> lines = {
      logo,
      label(QLatin1String(kProduct), "title"),
      _version,
      label(tr("Desktop companion of the TARN J4 recorder")),
      label(tr("Copyright 2026 The Mixdeck developers\nMIT license"), "dim"),
      _details};
  for (QLabel* const line : lines) {
    line->setAlignment(Qt::AlignHCenter);
    column->addWidget(line);
  }
  column->insertSpacing(1, 10);
  column->insertSpacing(4, 10);
  column->insertSpacing(7, 10);
  column->addSpacing(6);
  column->addWidget(_copy, 0, Qt::AlignHCenter);
  setMinimumWidth(Appearance::lineWidth(kAboutWidth, font()));
}

void AboutVC::viewWillAppear() {
  _version->setText(_versionString);
  initWindowUI();
}

void AboutVC::setDetails(const QStringList& lines) {
  _details->setText(lines.join(u'\n'));
}

// In no language: who reads a report may know another one.
QString AboutVC::report() const {
  return QStringLiteral("%1 %2\n%3\n")
      .arg(QLatin1String(kProduct), _versionString, _details->text());
}

// The button tells that it has, for as long as the dialog is there.
void AboutVC::copyDetails() {
  QGuiApplication::clipboard()->setText(report());
  _copy->setText(tr("Copied"));
}

void AboutVC::initWindowUI() {
  DialogWindow::initWindowUI(tr("About"));
}
