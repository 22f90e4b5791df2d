// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/BrowserPane.h"

#include <QDir>
#include <QFile>
#include <QUrl>

#include "controls/PlainText.h"
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
  _view.lblFolder->setToolTip(PlainText::of(name));
}

// The folder's own tip is its name.
void BrowserPane::showPath() {
  const QString path = QFile::decodeName(_browser.place().c_str());
  _view.btnOpenFolder->setToolTip(PlainText::of(tr("Open folder, now %1").arg(path)));
}

std::vector<WavItem> BrowserPane::selectedTakes() const {
  std::vector<WavItem> takes;
  const auto& files = _browser.model().files();
  for (const int row : _view.tableFile->selectedRows()) {
    const WavItem& item = files[static_cast<std::size_t>(row)];
    if (!item.isFolder) takes.push_back(item);
  }
  return takes;
}

void BrowserPane::rememberPlace() {
  const auto nameOf = [this](int row) {
    return _browser.model().files()[static_cast<std::size_t>(row)].fileName;
  };
  _selected.clear();
  for (const int row : _view.tableFile->selectedRows()) _selected.insert(nameOf(row));
  if (!_selected.empty()) _current = nameOf(_view.tableFile->selectedRow());
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
  if (_selected.empty()) return _view.tableFile->clearSelection();
  const auto& files = _browser.model().files();
  std::vector<int> rows;
  int current = -1;
  for (std::size_t row = 0; row < files.size(); ++row) {
    if (!_selected.contains(files[row].fileName)) continue;
    rows.push_back(static_cast<int>(row));
    if (files[row].fileName == _current) current = rows.back();
  }
  if (rows.empty()) return _view.tableFile->selectRow(-1);
  _view.tableFile->selectRows(rows, current < 0 ? rows.front() : current);
}

void BrowserPane::selectAndSee(const std::vector<int>& rows, int current) {
  _view.tableFile->selectRows(rows, current);
  _view.tableFile->scrollTo(_browser.model().index(current));
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
