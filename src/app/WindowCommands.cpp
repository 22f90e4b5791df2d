// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/WindowCommands.h"

#include <utility>

#include "app/ProgramDetails.h"
#include "base/Utility.h"
#include "base/Version.h"
#include "dialogs/AboutVC.h"
#include "dialogs/Alert.h"
#include "dialogs/HelpVC.h"
#include "dialogs/IntroductionVC.h"
#include "dialogs/NodeviceVC.h"

WindowCommands::WindowCommands(const Place& place, TakeSession& take, FolderBrowser& browser,
                               QObject* parent)
    : QObject(parent),
      _window(place.window),
      _status(place.status),
      _exports(place.exports),
      _desk(place.desk),
      _take(take),
      _browser(browser),
      _menu(place.menu),
      _measured(place.measured) {
  QAbstractButton* const button = &place.btnExport;
  connect(button, &QAbstractButton::clicked, this, &WindowCommands::askForExport);
  connect(&_take, &TakeSession::opened, button, [button] { button->setEnabled(true); });
  for (const auto goes : {&TakeSession::stillOpening, &TakeSession::closed}) {
    connect(&_take, goes, button, [button] { button->setEnabled(false); });
  }
  button->setEnabled(false);
  connectMenu();
  connectExports();
  _window.installEventFilter(this);
  // A button would move the keyboard by an arrow; Tab does that.
  for (auto* const other : _window.findChildren<QAbstractButton*>())
    other->installEventFilter(this);
}

// Greyed out only where it can be seen: its key reaches the command at all times.
void WindowCommands::connectMenu() {
  connect(_menu.actionOpenFolder, &QAction::triggered, this, &WindowCommands::openFolderRequested);
  connect(_menu.actionExport, &QAction::triggered, this, &WindowCommands::askForExport);
  connect(_menu.actionClearPeaks, &QAction::triggered, this, &WindowCommands::clearPeaksRequested);
  connect(_menu.actionMetersByRule, &QAction::toggled, this,
          &WindowCommands::metersByRuleRequested);
  connect(_menu.actionMetersByRule, &QAction::toggled, this, [](bool isOn) {
    Utility::store(Utility::kMetersByRule, isOn ? Utility::kOn : Utility::kOff);
  });
  connect(_menu.actionPlay, &QAction::triggered, this, &WindowCommands::playRequested);
  connect(_menu.actionKeys, &QAction::triggered, this, &WindowCommands::showKeys);
  connect(_menu.actionIntroduction, &QAction::triggered, this, &WindowCommands::showIntroduction);
  connect(_menu.actionHelp, &QAction::triggered, this, &WindowCommands::showHelp);
  connect(_menu.actionAbout, &QAction::triggered, this, &WindowCommands::showAbout);
  connect(_menu.actionQuit, &QAction::triggered, this, &WindowCommands::endRequested);
  connect(&_menu, &QMenu::aboutToShow, this,
          [this] { _menu.actionExport->setEnabled(_take.isOpen()); });
  connect(&_menu, &QMenu::aboutToHide, this, [this] { _menu.actionExport->setEnabled(true); });
}

void WindowCommands::readVersion() {
  _versionString =
      QStringLiteral("%1.%2").arg(QLatin1String(kVersion), QLatin1String(kBuildNumber));
  const auto seen = Utility::getStringValue(Utility::kDoNotShowAgain);
  _firstIntroDialog = !seen || *seen != _versionString.toStdString();
}

void WindowCommands::readSettings() {
  _menu.actionMetersByRule->setChecked(Utility::getStringValue(Utility::kMetersByRule) ==
                                       Utility::kOn);
}

void WindowCommands::present(DialogWindow* dialog) const {
  dialog->setParentFrame(_window.window()->frameGeometry());
  dialog->open();
}

void WindowCommands::introduce() {
  if (!std::exchange(_firstIntroDialog, false)) return;
  _isIntroducing = true;
  connect(introduce(false), &QObject::destroyed, this, [this] {
    _isIntroducing = false;
    emit introduced();
  });
}

DialogWindow* WindowCommands::introduce(bool fromMenu) {
  auto* const dialog = new IntroductionVC(&_window);
  dialog->setFromMenu(fromMenu);
  dialog->setVersionString(_versionString);
  present(dialog);
  return dialog;
}

void WindowCommands::showIntroduction() {
  introduce(true);
}

void WindowCommands::showAbout() {
  auto* const dialog = new AboutVC(&_window);
  dialog->setVersionString(_versionString);
  dialog->setDetails(ProgramDetails::lines());
  present(dialog);
}

void WindowCommands::showKeys() {
  present(new HelpVC(_menu.keys(), &_window));
}

void WindowCommands::showHelp() {
  const QString address = QLatin1String(kHelpAddress);
  _opener.open(address, [this, address] {
    Alert::show(&_window, tr("No browser could be opened. Help is at %1").arg(address));
  });
}

void WindowCommands::showNoDevice() {
  present(new NodeviceVC(&_window));
}

void WindowCommands::askForExport() {
  const std::shared_ptr<Export> job = _take.jobToExport();
  if (!job) return;
  if (_browser.listing()) job->setDirPath(_browser.listing()->folderPath());
  ExportVC::Extra extra;
  const bool isSolo = _take.solo() != Solo::None;
  if (isSolo) extra.note = tr("Solo is for listening: Left and Right are exported.");
  if (const auto& loop = _take.loop()) extra.selection = FrameRange{loop->first, loop->end};
  if (_measured != nullptr) extra.analysis = _measured->analysis();
  _desk.ask(job, extra);
}

void WindowCommands::connectExports() {
  const auto forget = [this] { _status.clear(StatusLine::Topic::Export); };
  connect(&_exports, &ExportQueue::began, this, forget);
  connect(&_take, &TakeSession::opening, this, forget);
  connect(&_desk, &ExportDesk::exported, this, [this, forget](const std::filesystem::path& path) {
    forget();
    _browser.wishFor(path);
    _browser.refresh();
  });
  connect(&_desk, &ExportDesk::failed, this,
          [this](const QString& why) { _status.say(StatusLine::Topic::Export, why); });
}

bool WindowCommands::eventFilter(QObject* watched, QEvent* event) {
  if (watched != &_window) return arrowPressed(*event);
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

bool WindowCommands::arrowPressed(const QEvent& event) {
  if (event.type() != QEvent::KeyPress) return false;
  const auto& key = static_cast<const QKeyEvent&>(event);
  if (key.key() == Qt::Key_Space || _menu.actionOf(key) == nullptr) return false;
  keyDown(key);
  return true;
}

void WindowCommands::keyDown(const QKeyEvent& event) {
  if (event.key() == Qt::Key_Space) _isSpaceDown = true;
  if (event.key() == Qt::Key_Escape) giveUp();
  const bool isReturn = event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
  if (isReturn && !event.isAutoRepeat()) emit openSelectedRequested();
  QAction* const named = _menu.actionOf(event);
  if (named != nullptr && named != _menu.actionPlay) named->trigger();
}

// What a medium has not answered yet; where nothing is waited for, the loop.
void WindowCommands::giveUp() {
  const bool isOpening = _take.state() == TakeSession::State::Opening;
  if (!isOpening && !_browser.isLooking()) emit clearLoopRequested();
  _browser.lookNoMore();
  if (isOpening) _take.close();
}

// A release alone may belong to a press that closed a menu or a dialog.
void WindowCommands::keyUp(const QKeyEvent& event) {
  if (event.key() != Qt::Key_Space || event.isAutoRepeat()) return;
  if (std::exchange(_isSpaceDown, false)) emit playRequested();
}
