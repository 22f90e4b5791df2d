// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/BrowserView.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include "app/MainViewParts.h"

namespace {

constexpr int kLeastWidth = 220;
constexpr int kLeastBarHeight = 34;

}  // namespace

BrowserView::BrowserView(QWidget* parent) : QWidget(parent) {
  MainViewParts::makeGround(*this, "viewLeftBG");
  makeFolderBar();
  tableFile = new FileList(this);
  tableFile->setSeveral(true);
  makeSelectionBar();
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(10, 10, 10, 10);
  layout->setSpacing(9);
  layout->addStrut(kLeastWidth);  // a widget's own minimum would hide what the bars ask for
  layout->addWidget(viewPathBG);
  layout->addWidget(tableFile, 1);
  layout->addWidget(viewSelectionBG);
}

void BrowserView::makeFolderBar() {
  viewPathBG = new QWidget(this);
  MainViewParts::makeGround(*viewPathBG, "viewPathBG");
  viewPathBG->setMinimumHeight(kLeastBarHeight);
  btnGoUp = MainViewParts::pictureButton(viewPathBG, 28, 20);
  MainViewParts::setFace(*btnGoUp, QStringLiteral("go_up"), tr("Go up"));
  lblFolder = new ElidedButton(viewPathBG);
  lblFolder->setProperty("role", "heading");
  lblFolder->setAccessibleName(tr("Current folder"));
  btnOpenFolder = MainViewParts::pictureButton(viewPathBG, 28, 20);
  MainViewParts::setFace(*btnOpenFolder, QStringLiteral("open_folder"), tr("Open folder"));
  auto* const layout = new QHBoxLayout(viewPathBG);
  layout->setContentsMargins(6, 0, 6, 0);
  layout->setSpacing(2);
  layout->addWidget(btnGoUp);
  layout->addWidget(lblFolder, 1);
  layout->addWidget(btnOpenFolder);
}

void BrowserView::makeSelectionBar() {
  viewSelectionBG = new QWidget(this);
  MainViewParts::makeGround(*viewSelectionBG, "viewSelectionBG");
  viewSelectionBG->setMinimumHeight(kLeastBarHeight);
  viewSelectionBG->hide();
  lblSelection = MainViewParts::label(viewSelectionBG, "dim");
  btnExportSelected = new QPushButton(viewSelectionBG);
  btnExportSelected->setObjectName(QStringLiteral("btnExportSelected"));
  btnExportSelected->setCursor(Qt::PointingHandCursor);
  auto* const layout = new QHBoxLayout(viewSelectionBG);
  layout->setContentsMargins(12, 0, 2, 0);
  layout->addWidget(lblSelection, 1);
  layout->addWidget(btnExportSelected);
}

QWidgetList BrowserView::tabOrder() const {
  return {btnGoUp, lblFolder, btnOpenFolder, tableFile, btnExportSelected};
}
