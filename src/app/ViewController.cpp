// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/ViewController.h"

#include <QDesktopServices>
#include <QFile>
#include <QKeyEvent>
#include <QMessageBox>
#include <QUrl>

#include "base/EB.h"
#include "base/Utility.h"
#include "base/Version.h"
#include "controls/J4SliderCell.h"
#include "dialogs/AboutVC.h"
#include "dialogs/IntroductionVC.h"
#include "dialogs/NodeviceVC.h"

ViewController::ViewController(MainView& view)
    : _view(view),
      _pane(view),
      _browserPane(*view.browser, _browser, *view.lblStatus),
      _device(*view.device),
      _self(this, [](ViewController*) {}) {
  connect(&_browser, &FolderBrowser::listed, this, &ViewController::listed);
  connect(&_browser, &FolderBrowser::takeChosen, this, &ViewController::openWavFile);
}

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
  _view.installEventFilter(this);
  connectMenu();
  initSliders();
  connectPlayback();
  showIdle();
  connect(&_device, &DevicePane::recorderMissing, this, &ViewController::showNoDevice);
  connectExports();
  MIDIManagerDisconnected();
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
  _browser.begin(std::exchange(_start, {}));
  if (!_firstIntroDialog) return;
  _firstIntroDialog = false;
  auto* const dialog = new IntroductionVC(&_view);
  dialog->setFromMenu(false);
  dialog->setVersionString(_versionString);
  present(dialog);
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

void ViewController::connectExports() {
  connect(&_exportDesk, &ExportDesk::exported, this, [this](const QString& path) {
    _view.lblStatus->clear(StatusLine::Topic::Export);
    _browser.wishFor(QFile::encodeName(path).toStdString());
    updateFileBrowser();
  });
  connect(&_exportDesk, &ExportDesk::failed, this,
          [this](const QString& why) { _view.lblStatus->say(StatusLine::Topic::Export, why); });
}

bool ViewController::mayEnd() {
  if (!_exportQueue.isBusy() || _isEnding) return true;
  auto* const question =
      new QMessageBox(QMessageBox::NoIcon, _view.windowTitle(), {}, QMessageBox::NoButton, &_view);
  question->setAttribute(Qt::WA_DeleteOnClose);
  question->setInformativeText(tr("An export is still running. Ending now cancels it."));
  const auto* const end =
      question->addButton(tr("Cancel export and quit"), QMessageBox::AcceptRole);
  question->addButton(tr("Go on"), QMessageBox::RejectRole);
  connect(end, &QAbstractButton::clicked, this, [this] {
    _isEnding = true;
    _exportQueue.cancelAll();
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
