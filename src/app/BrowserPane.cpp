// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/BrowserPane.h"

#include <QDir>
#include <QFile>
#include <QUrl>
#include <algorithm>

#include "dialogs/FolderPanel.h"

namespace {

constexpr int kColumnExtra = 30;

}  // namespace

BrowserPane::BrowserPane(BrowserView& view, FolderBrowser& browser, StatusLine& status,
                         QObject* parent)
    : QObject(parent), _view(view), _browser(browser), _columnMeasure([this](int width) {
        _view.tableFile->setColumnWidth(width + kColumnExtra + 1);
      }) {
  _view.tableFile->setModel(&_browser.model());
  connect(_view.tableFile, &QListView::doubleClicked, this, &BrowserPane::openSelected);
  connect(_view.btnGoUp, &QToolButton::clicked, &_browser, &FolderBrowser::goUp);
  connect(_view.lblFolder, &QPushButton::clicked, this, &BrowserPane::askForFolder);
  connect(_view.btnOpenFolder, &QToolButton::clicked, this, &BrowserPane::askForFolder);
  connect(&_browser, &FolderBrowser::named, this, &BrowserPane::showName);
  connect(&_browser, &FolderBrowser::named, this, &BrowserPane::showPath);
  connect(&_browser, &FolderBrowser::listed, this, &BrowserPane::showPath);
  connect(&_browser, &FolderBrowser::rowsAboutToChange, this, &BrowserPane::rememberPlace);
  connect(&_browser, &FolderBrowser::rowsChanged, this, &BrowserPane::restorePlace);
  connect(&_browser, &FolderBrowser::wishGranted, this, &BrowserPane::selectAndSee);
  connect(&_browser, &FolderBrowser::stillLooking, this, [&status](const QString& name) {
    status.say(StatusLine::Topic::Looking, tr("Looking for “%1”… (Esc gives up)").arg(name));
  });
  connect(&_browser, &FolderBrowser::lookedFor, this,
          [&status] { status.clear(StatusLine::Topic::Looking); });
  connect(&_browser, &FolderBrowser::listed, this,
          [this, &status] { status.say(StatusLine::Topic::Folder, _browser.failure()); });
}

void BrowserPane::openSelected() {
  _browser.choose(_view.tableFile->selectedRow());
}

void BrowserPane::showName(const QString& name) {
  _view.lblFolder->setText(name);
  _view.lblFolder->setToolTip(name);
}

// The folder's own tip is its name.
void BrowserPane::showPath() {
  const QString path = QFile::decodeName(_browser.place().c_str());
  _view.btnOpenFolder->setToolTip(tr("Open folder, now %1").arg(path));
}

void BrowserPane::rememberPlace() {
  const int row = _view.tableFile->selectedRow();
  _hadSelection = row >= 0 && row < _browser.model().rowCount();
  if (_hadSelection) _selected = _browser.model().files()[static_cast<std::size_t>(row)].fileName;
  _place = _view.tableFile->place();
}

void BrowserPane::restorePlace(bool isSameFolder) {
  if (isSameFolder) {
    _view.tableFile->goToPlace(_place);
  } else {
    _view.tableFile->scrollToTop();
  }
  selectRemembered();
  autoResizeColumn();
}

// Where a row vanishes, the view selects the one beside it.
void BrowserPane::selectRemembered() {
  if (!_hadSelection) return _view.tableFile->clearSelection();
  const auto& files = _browser.model().files();
  const auto found = std::ranges::find(files, _selected, &WavItem::fileName);
  const bool isThere = found != files.end();
  _view.tableFile->selectRow(isThere ? static_cast<int>(found - files.begin()) : -1);
}

void BrowserPane::selectAndSee(int row) {
  _view.tableFile->selectRow(row);
  _view.tableFile->scrollTo(_browser.model().index(row));
}

void BrowserPane::autoResizeColumn() {
  if (_browser.listing()) _columnMeasure.start(_browser.listing(), _view.tableFile->font());
}

// The path is taken for an address, on purpose: one that is none, as with a space in it, leaves the
// panel at a place of its own.
std::filesystem::path BrowserPane::startOfPanel() const {
  const auto& listing = _browser.listing();
  const QString path = listing ? QFile::decodeName(listing->folderPath().c_str()) : QString();
  if (QUrl(path, QUrl::StrictMode).isValid()) return listing->folderPath();
  return QFile::encodeName(QDir::homePath()).toStdString();
}

void BrowserPane::askForFolder() {
  auto* const panel = new FolderPanel(&_view);
  panel->openFolder(startOfPanel());
  connect(panel, &FolderPanel::chosen, &_browser, &FolderBrowser::openFolder);
  panel->open();
}
