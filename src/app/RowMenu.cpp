// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/RowMenu.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QStringList>

#include "dialogs/PathText.h"

RowMenu::RowMenu(BrowserView& view, FolderBrowser& browser, const BrowserPane& files,
                 QObject* parent)
    : QObject(parent), _view(view), _browser(browser), _files(files) {
  connect(_view.tableFile, &FileList::menuRequested, this, &RowMenu::open);
}

void RowMenu::open(const QPoint& place) {
  auto* const menu = new QMenu(_view.window());  // of which assistive software has it as a part
  menu->setAttribute(Qt::WA_DeleteOnClose);
  menu->setAccessibleName(tr("What is selected"));
  fill(*menu);
  menu->popup(place);
}

void RowMenu::fill(QMenu& menu) {
  const std::vector<WavItem> takes = _files.selectedTakes();
  const bool isOne = selected().size() == 1;
  QAction* const open = menu.addAction(tr("&Open"), this, &RowMenu::openRequested);
  QAction* const exporting =
      menu.addAction(takes.size() > 1 ? tr("&Export %1…").arg(takes.size()) : tr("&Export…"), this,
                     &RowMenu::exportRequested);
  menu.addSeparator();
  menu.addAction(tr("&Show in file manager"), this, [this] { emit showRequested(selected()); });
  menu.addAction(isOne ? tr("&Copy path") : tr("&Copy paths"), this, &RowMenu::copyPaths);
  menu.addSeparator();
  QAction* const information = menu.addAction(tr("&Information"), this, [this] {
    emit informationRequested(_files.selectedTakes().front().fullPath);
  });
  open->setEnabled(isOne);
  exporting->setEnabled(!takes.empty());
  information->setEnabled(isOne && takes.size() == 1);
}

std::vector<std::filesystem::path> RowMenu::selected() const {
  std::vector<std::filesystem::path> paths;
  const auto& files = _browser.model().files();
  for (const int row : _view.tableFile->selectedRows()) {
    paths.emplace_back(files[static_cast<std::size_t>(row)].fullPath);
  }
  return paths;
}

void RowMenu::copyPaths() const {
  QStringList lines;
  for (const std::filesystem::path& path : selected()) lines << PathText::textOf(path);
  QGuiApplication::clipboard()->setText(lines.join(u'\n'));
}
