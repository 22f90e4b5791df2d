// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/ViewController.h"

#include <utility>

#include "base/EB.h"
#include "midi/MIDIManager.h"

ViewController::ViewController(MainView& view) : _view(view), _panes(view, *this) {}

ViewController::~ViewController() {
  NotificationCenter::defaultCenter().removeObserver(this);
}

void ViewController::viewDidLoad() {
  _panes.commands.readVersion();
  initUI();
  _panes.commands.readSettings();
  initMIDI();
  EB::initData();
  EB::SUBSCRIBE(this, &ViewController::notify, EB::kPlayFinish);
  EB::SUBSCRIBE(this, &ViewController::notify, EB::kReloadFileList);
}

void ViewController::initUI() {
  WindowCommands& commands = _panes.commands;
  connect(&_panes.browser, &FolderBrowser::takeChosen, this, &ViewController::openChosen);
  connect(&commands, &WindowCommands::introduced, this, [this] {
    if (const auto item = std::exchange(_waiting, {})) openWavFile(*item);
  });
  connect(&_panes.browser, &FolderBrowser::listed, this, &ViewController::listed);
  for (const auto changes : {&TakeSession::opening, &TakeSession::opened, &TakeSession::closed}) {
    connect(&_panes.take, changes, this, &ViewController::markLoaded);
  }
  connect(&commands, &WindowCommands::openSelectedRequested, &_panes.files,
          &BrowserPane::openSelected);
  connect(&commands, &WindowCommands::openFolderRequested, &_panes.files,
          &BrowserPane::askForFolder);
  connect(&commands, &WindowCommands::playRequested, &_panes.transport,
          &TransportPane::playOrPause);
  connect(&commands, &WindowCommands::clearPeaksRequested, &_panes.levels, &LevelFeed::clearPeaks);
  connect(&commands, &WindowCommands::clearLoopRequested, &_panes.loop, &LoopPane::clear);
  connect(&commands, &WindowCommands::metersByRuleRequested, &_panes.levels,
          &LevelFeed::setByRecordersRule);
  connect(&commands, &WindowCommands::endRequested, this, &ViewController::endRequested);
  connect(&_panes.selection, &SelectionPane::exportRequested, &_panes.selected,
          &SelectedExport::ask);
  connectRows();
  connect(&_panes.ending, &EndQuestion::endRequested, this, &ViewController::endRequested);
  connect(&_panes.cards, &CardDesk::showInFolderRequested, this,
          &ViewController::showFilesRequested);
  connect(&_panes.device, &DevicePane::recorderMissing, &commands, &WindowCommands::showNoDevice);
  MIDIManagerDisconnected();
}

void ViewController::connectRows() {
  RowMenu& rows = _panes.rowMenu;
  connect(&rows, &RowMenu::exportRequested, &_panes.selected, &SelectedExport::askFor);
  connect(&rows, &RowMenu::informationRequested, &_panes.informant, &TakeInformant::show);
  connect(&rows, &RowMenu::showRequested, this, &ViewController::showFilesRequested);
  connect(&_panes.rows, &RowReader::someRead, &_panes.recall, &TakeRecall::tellTrouble);
  connect(&_panes.batch, &BatchDesk::showInFolderRequested, this,
          &ViewController::showFilesRequested);
}

// What the command line names is not to play behind a dialog that explains the program.
void ViewController::openChosen(const WavItem& item) {
  if (!_panes.commands.isIntroducing()) return openWavFile(item);
  _waiting = item;
}

void ViewController::markLoaded() {
  const TakeSession& take = _panes.take;
  _panes.browser.model().setLoaded(take.isOpen() ? take.file().native() : std::string());
}

void ViewController::initMIDI() {
  MIDIManager& manager = MIDIManager::get();
  manager.setDelegate(this);
  manager.scanTarnDevice();
}

void ViewController::open(const std::vector<std::filesystem::path>& files) {
  if (files.empty()) return;
  if (_hasAppeared) return begin(files);
  _starts = files;
}

void ViewController::begin(const std::vector<std::filesystem::path>& files) {
  if (files.empty()) return _panes.browser.begin({});
  _panes.browser.begin(files.front(), {files.begin() + 1, files.end()});
}

void ViewController::viewDidAppear() {
  _hasAppeared = true;
  begin(std::exchange(_starts, {}));
  _panes.commands.introduce();
}

void ViewController::notify(const Notification& event) {
  if (event.name == EB::kPlayFinish) _panes.take.playFinish();
  if (event.name == EB::kReloadFileList) updateFileBrowser();
}

void ViewController::GainTickTitle(class GainTickTitle* scale, const QString& clickAt) {
  _panes.sound.GainTickTitle(scale, clickAt);
}

void ViewController::startCurrentTimeTimer() {
  _panes.transport.startTimer();
  _panes.levels.startTimer();
}

void ViewController::stopCurrentTimeTimer() {
  _panes.transport.stopTimer();
  _panes.levels.stopTimer();
}

void ViewController::refreshUIWhenPlay() {
  sliderTimerUpdate();
  updateLevelMeter(1.0 / 30.0);
}

void ViewController::updatePlayStateUI() {
  _panes.transport.showState();
  _panes.levels.showState();
}

void ViewController::WavePlayerLevelChanged(double left, double right) {
  _panes.take.WavePlayerLevelChanged(left, right);
}

void ViewController::MIDIManagerFound() {
  _panes.device.link().MIDIManagerFound();
}

void ViewController::MIDIManagerConnected() {
  _panes.device.link().MIDIManagerConnected();
}

void ViewController::MIDIManagerDisconnected() {
  _panes.device.link().MIDIManagerDisconnected();
}

void ViewController::MIDIManagerReceivedData(const MIDIEventPacket& packet) {
  _panes.device.link().MIDIManagerReceivedData(packet);
}

void ViewController::MIDIManagerReceivedData_iOS13(const MIDIPacket& packet, bool isLast) {
  _panes.device.link().MIDIManagerReceivedData_iOS13(packet, isLast);
}

const std::filesystem::path& ViewController::urlOfFileList() const {
  return _panes.browser.requestedFolder();
}

const std::shared_ptr<const FolderHelper>& ViewController::folderHelper() const {
  return _panes.browser.listing();
}
