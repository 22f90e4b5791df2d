// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/ViewController.h"

#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QKeyEvent>
#include <QMessageBox>
#include <QUrl>
#include <algorithm>

#include "base/EB.h"
#include "base/Utility.h"
#include "base/Version.h"
#include "controls/J4SliderCell.h"
#include "dialogs/AboutVC.h"
#include "dialogs/ExportVC.h"
#include "dialogs/IntroductionVC.h"
#include "dialogs/NodeviceVC.h"

namespace {

constexpr int kFolderRefresh = 5000;  // ms
constexpr int kColumnExtra = 30;

std::filesystem::path desktopFolder() {
  return QFile::encodeName(QDir::homePath() + QStringLiteral("/Desktop")).toStdString();
}

QString shown(const std::filesystem::path& path) {
  return QFile::decodeName(path.c_str());
}

QString lastComponent(const std::filesystem::path& folder) {
  const std::filesystem::path name = folder.filename();
  return shown(name.empty() ? folder : name);
}

// As it is stored: absolute and without a slash at its end.
std::filesystem::path tidy(const std::filesystem::path& path) {
  std::error_code error;
  std::filesystem::path whole = std::filesystem::absolute(path, error).lexically_normal();
  return whole.has_filename() || !whole.has_relative_path() ? whole : whole.parent_path();
}

}  // namespace

ViewController::ViewController(MainView& view)
    : _view(view),
      _pane(view),
      _lister([this](const FolderLister::Answer& answer) { showListing(answer); }),
      _columnMeasure(
          [this](int width) { _view.tableFile->setColumnWidth(width + kColumnExtra + 1); }),
      _self(this, [](ViewController*) {}) {}

ViewController::~ViewController() {
  _self.reset();
  NotificationCenter::defaultCenter().removeObserver(this);
  dropFile();
}

void ViewController::viewDidLoad() {
  _isSeeking = false;
  _versionString =
      QStringLiteral("%1.%2").arg(QLatin1String(kVersion), QLatin1String(kBuildNumber));
  const auto seen = Utility::getStringValue(Utility::kDoNotShowAgain);
  _firstIntroDialog = !seen || *seen != _versionString.toStdString();
  initUI();
  initMIDI();
  EB::initData();
  EB::SUBSCRIBE(this, &ViewController::notify, EB::kPlayFinish);
  EB::SUBSCRIBE(this, &ViewController::notify, EB::kReloadFileList);
}

void ViewController::initUI() {
  connectBrowser();
  connectMenu();
  initSliders();
  connectPlayback();
  showIdle();
  connectDevice();
  MIDIManagerDisconnected();
}

void ViewController::connectBrowser() {
  _view.tableFile->setModel(&_model);
  connect(_view.tableFile, &QListView::doubleClicked, this,
          &ViewController::table_cell_double_click);
  connect(_view.btnGoUp, &QToolButton::clicked, this, &ViewController::btnGoUp_Click);
  connect(_view.lblFolder, &QPushButton::clicked, this, &ViewController::txtFolder_Click);
  connect(_view.btnOpenFolder, &QToolButton::clicked, this, &ViewController::btnOpenFolder_Click);
  connect(&_timerUpdateFolder, &QTimer::timeout, this, &ViewController::updateFileBrowser);
  _timerUpdateFolder.setObjectName(QStringLiteral("timerUpdateFolder"));
  _view.installEventFilter(this);
}

void ViewController::connectMenu() {
  connect(_view.actionOpenFolder, &QAction::triggered, this, &ViewController::btnOpenFolder_Click);
  connect(_view.actionExport, &QAction::triggered, this, &ViewController::btnExport_Click);
  connect(_view.actionIntroduction, &QAction::triggered, this, &ViewController::showIntroduction);
  connect(_view.actionHelp, &QAction::triggered, this, &ViewController::showHelp);
  connect(_view.actionAbout, &QAction::triggered, this, &ViewController::btnAbout_Click);
  connect(_view.actionQuit, &QAction::triggered, this, &ViewController::endRequested);
}

void ViewController::viewDidAppear() {
  const auto last = Utility::getStringValue(Utility::kLastOpenFolder);
  _urlOfFileList = last ? std::filesystem::path(*last) : desktopFolder();
  if (_start.empty()) {
    openFolder(_urlOfFileList);
  } else {
    openStart();
  }
  if (!_firstIntroDialog) return;
  _firstIntroDialog = false;
  auto* const dialog = new IntroductionVC(&_view);
  dialog->setFromMenu(false);
  dialog->setVersionString(_versionString);
  present(dialog);
}

void ViewController::openStart() {
  const std::filesystem::path path = tidy(std::exchange(_start, {}));
  std::error_code error;
  const bool isFolder = std::filesystem::is_directory(path, error);
  _urlOfFileList = isFolder ? path : path.parent_path();
  openFolder(_urlOfFileList);
  if (isFolder) return;
  _nameToSelect = lastComponent(path);
  openWavFile({false, _nameToSelect, FolderHelper::kFileIcon, path});
}

void ViewController::notify(const Notification& event) {
  if (event.name == EB::kReloadFileList) return updateFileBrowser();
  if (event.name != EB::kPlayFinish || !_wavPlayer) return;
  _wavPlayer->playFinish();
  // A finished file stays loaded, to be played again; only one that the player could not even open
  // is let go. Not from in here: the event comes from inside the player.
  const bool isOpen = _wavPlayer->readFailure().empty() || _wavPlayer->timeFromPosition(1.0) > 0;
  if (_wavPlayer->getIsDone() && !isOpen) QTimer::singleShot(0, this, &ViewController::unload);
}

void ViewController::openFolder(const std::filesystem::path& folder) {
  if (folder.empty()) return;
  Utility::store(Utility::kLastOpenFolder, folder.native());
  showFolderName(folder);
  if (!_timerUpdateFolder.isActive()) _timerUpdateFolder.start(kFolderRefresh);
  updateFileBrowser();
}

void ViewController::showFolderName(const std::filesystem::path& folder) {
  const QString name = lastComponent(folder);
  _view.lblFolder->setText(name);
  _view.lblFolder->setToolTip(name);
}

void ViewController::updateFileBrowser() {
  _lister.list({_urlOfFileList, desktopFolder(), _folderHelper});
}

void ViewController::showListing(const FolderLister::Answer& answer) {
  const FolderHelper& listing = *answer.listing;
  showFolderName(listing.folderPath());
  const QString why = QString::fromStdString(listing.failure());
  _view.lblStatus->say(
      StatusLine::Topic::Folder,
      why.isEmpty() ? QString()
                    : tr("“%1” cannot be read: %2").arg(lastComponent(listing.folderPath()), why));
  if (answer.isSame) {
    _folderHelper = answer.listing;
  } else {
    replaceListing(answer.listing);
  }
  if (!_nameToSelect.isEmpty()) selectByName(std::exchange(_nameToSelect, {}), true);
  emit listed();
}

void ViewController::replaceListing(std::shared_ptr<const FolderHelper> listing) {
  const bool isSameFolder = _folderHelper && _folderHelper->folderPath() == listing->folderPath();
  const int row = _view.tableFile->selectedRow();
  const bool hasSelection = row >= 0 && row < _model.rowCount();
  const QString selected =
      hasSelection ? _model.files()[static_cast<std::size_t>(row)].fileName : QString();
  _folderHelper = std::move(listing);
  const auto show = [this] { _model.show(_folderHelper->files()); };
  if (isSameFolder) {
    _view.tableFile->keepPlace(show);
  } else {
    show();
    _view.tableFile->scrollToTop();
  }
  if (hasSelection) selectByName(selected, false);
  autoResizeColumn();
}

void ViewController::selectByName(const QString& name, bool isToBeSeen) {
  const auto& files = _model.files();
  const auto found = std::ranges::find(files, name, &WavItem::fileName);
  const bool isThere = found != files.end();
  const int row = isThere ? static_cast<int>(found - files.begin()) : -1;
  if (!isThere && isToBeSeen) return;
  _view.tableFile->selectRow(row);
  if (isToBeSeen) _view.tableFile->scrollTo(_model.index(row));
}

void ViewController::autoResizeColumn() {
  _columnMeasure.start(_folderHelper, _view.tableFile->font());
}

void ViewController::table_cell_double_click() {
  const int row = _view.tableFile->selectedRow();
  if (row < 0 || row >= _model.rowCount()) return;
  const WavItem item = _model.files()[static_cast<std::size_t>(row)];
  std::error_code error;
  if (!std::filesystem::exists(item.fullPath, error)) return;
  if (!item.isFolder) return openWavFile(item);
  _urlOfFileList = item.fullPath;
  openFolder(_urlOfFileList);
}

void ViewController::btnGoUp_Click() {
  if (!_folderHelper) return;
  const std::filesystem::path& folder = _folderHelper->folderPath();
  const std::filesystem::path parent = folder.parent_path();
  std::error_code error;
  if (parent.empty() || parent == folder || !std::filesystem::exists(parent, error)) return;
  _urlOfFileList = parent;
  openFolder(_urlOfFileList);
}

void ViewController::txtFolder_Click() {
  auto* const panel = new QFileDialog(&_view, tr("Choose a file"));
  panel->setAttribute(Qt::WA_DeleteOnClose);
  panel->setOption(QFileDialog::DontUseNativeDialog);
  panel->setFileMode(QFileDialog::Directory);
  panel->setOption(QFileDialog::ShowDirsOnly);
  panel->setSizeGripEnabled(true);
  // The path is taken for an address, on purpose: one that is none, as with a space in it, leaves
  // the panel where it opens by itself.
  const QString path = _folderHelper ? shown(_folderHelper->folderPath()) : QString();
  if (QUrl(path, QUrl::StrictMode).isValid()) panel->setDirectory(path);
  connect(panel, &QFileDialog::fileSelected, this, [this](const QString& chosen) {
    _urlOfFileList = tidy(QFile::encodeName(chosen).toStdString());
    openFolder(_urlOfFileList);
  });
  panel->open();
}

void ViewController::present(DialogWindow* dialog) const {
  dialog->setParentFrame(_view.window()->frameGeometry());
  dialog->open();
}

void ViewController::btnAbout_Click() {
  auto* const dialog = new AboutVC(&_view);
  dialog->setVersionString(_versionString);
  present(dialog);
}

void ViewController::showIntroduction() {
  auto* const dialog = new IntroductionVC(&_view);
  dialog->setFromMenu(true);
  dialog->setVersionString(_versionString);
  present(dialog);
}

void ViewController::showHelp() {
  QDesktopServices::openUrl(QUrl(QLatin1String(kHelpAddress)));
}

void ViewController::showNoDevice() {
  present(new NodeviceVC(&_view));
}

bool ViewController::mayEnd() {
  if (!ExportVC::isExporting() || _isEnding) return true;
  auto* const question =
      new QMessageBox(QMessageBox::NoIcon, _view.windowTitle(), {}, QMessageBox::NoButton, &_view);
  question->setAttribute(Qt::WA_DeleteOnClose);
  question->setInformativeText(tr("An export is still running. Ending now cancels it."));
  const auto* const end =
      question->addButton(tr("Cancel export and quit"), QMessageBox::AcceptRole);
  question->addButton(tr("Go on"), QMessageBox::RejectRole);
  connect(end, &QAbstractButton::clicked, this, [this] {
    _isEnding = true;
    ExportVC::cancelRunning();
    emit endRequested();
  });
  question->open();
  return false;
}

bool ViewController::eventFilter(QObject* watched, QEvent* event) {
  if (watched != &_view) return false;
  if (event->type() == QEvent::KeyPress) {
    keyDown(*static_cast<QKeyEvent*>(event));
    return true;
  }
  if (event->type() == QEvent::KeyRelease) {
    keyUp(*static_cast<QKeyEvent*>(event));
    return true;
  }
  return false;
}

void ViewController::keyDown(const QKeyEvent& event) {
  if (event.key() == Qt::Key_Space) _isSpaceDown = true;
  const bool isReturn = event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
  if (isReturn && !event.isAutoRepeat()) table_cell_double_click();
}

// A release alone may belong to a press that closed a menu or a dialog.
void ViewController::keyUp(const QKeyEvent& event) {
  if (event.key() != Qt::Key_Space || event.isAutoRepeat()) return;
  if (std::exchange(_isSpaceDown, false)) btnPlay_Click();
}
