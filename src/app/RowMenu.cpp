// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/RowMenu.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QStringList>
#include <algorithm>

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

// About what was selected when it was opened: rows come and go while it is open, and a new export
// selects itself.
void RowMenu::fill(QMenu& menu) {
  const Paths all = selected();
  const Paths takes = selectedTakes();
  const bool isOne = all.size() == 1;
  QAction* const open = menu.addAction(tr("&Open"), this, [this, all] { choose(all.front()); });
  QAction* const exporting =
      menu.addAction(takes.size() > 1 ? tr("&Export %1…").arg(takes.size()) : tr("&Export…"), this,
                     [this, takes] { emit exportRequested(takes); });
  menu.addSeparator();
  menu.addAction(tr("&Show in file manager"), this, [this, all] { emit showRequested(all); });
  menu.addAction(isOne ? tr("&Copy path") : tr("&Copy paths"), this, [all] { copy(all); });
  menu.addSeparator();
  QAction* const information = menu.addAction(
      tr("&Information"), this, [this, takes] { emit informationRequested(takes.front()); });
  open->setEnabled(isOne);
  exporting->setEnabled(!takes.empty());
  information->setEnabled(isOne && takes.size() == 1);
}

RowMenu::Paths RowMenu::selected() const {
  Paths paths;
  const auto& files = _browser.model().files();
  for (const int row : _view.tableFile->selectedRows()) {
    paths.emplace_back(files[static_cast<std::size_t>(row)].fullPath);
  }
  return paths;
}

RowMenu::Paths RowMenu::selectedTakes() const {
  Paths paths;
  for (const WavItem& take : _files.selectedTakes()) paths.emplace_back(take.fullPath);
  return paths;
}

// One that has gone is nowhere.
void RowMenu::choose(const std::filesystem::path& path) {
  const auto& files = _browser.model().files();
  const auto found = std::ranges::find(files, path.native(), &WavItem::fullPath);
  if (found != files.end()) _browser.choose(static_cast<int>(found - files.begin()));
}

void RowMenu::copy(const Paths& paths) {
  QStringList lines;
  for (const std::filesystem::path& path : paths) lines << PathText::textOf(path);
  QGuiApplication::clipboard()->setText(lines.join(u'\n'));
}
