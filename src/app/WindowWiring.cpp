// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/WindowWiring.h"

#include <string>

WindowWiring::WindowWiring(WindowPanes& panes) : _panes(panes) {
  connectCommands();
  connectRows();
  connectOutside();
  for (const auto changes : {&TakeSession::opening, &TakeSession::opened, &TakeSession::closed}) {
    connect(&_panes.take, changes, this, &WindowWiring::markLoaded);
  }
}

void WindowWiring::connectCommands() {
  const WindowCommands* const commands = &_panes.commands;
  connect(commands, &WindowCommands::openSelectedRequested, &_panes.files,
          &BrowserPane::openSelected);
  connect(commands, &WindowCommands::openFolderRequested, &_panes.files,
          &BrowserPane::askForFolder);
  connect(commands, &WindowCommands::playRequested, &_panes.transport, &TransportPane::playOrPause);
  connect(commands, &WindowCommands::clearPeaksRequested, &_panes.levels, &LevelFeed::clearPeaks);
  connect(commands, &WindowCommands::clearLoopRequested, &_panes.loop, &LoopPane::clear);
  connect(commands, &WindowCommands::metersByRuleRequested, &_panes.levels,
          &LevelFeed::setByRecordersRule);
  connect(&_panes.device, &DevicePane::recorderMissing, &_panes.commands,
          &WindowCommands::showNoDevice);
}

void WindowWiring::connectRows() {
  connect(&_panes.selection, &SelectionPane::exportRequested, &_panes.selected,
          &SelectedExport::ask);
  connect(&_panes.rowMenu, &RowMenu::exportRequested, &_panes.selected, &SelectedExport::askFor);
  connect(&_panes.rowMenu, &RowMenu::informationRequested, &_panes.informant, &TakeInformant::show);
  connect(&_panes.rows, &RowReader::someRead, &_panes.recall, &TakeRecall::tellTrouble);
}

void WindowWiring::connectOutside() {
  connect(&_panes.commands, &WindowCommands::endRequested, this, &WindowWiring::endRequested);
  connect(&_panes.ending, &EndQuestion::endRequested, this, &WindowWiring::endRequested);
  connect(&_panes.rowMenu, &RowMenu::showRequested, this, &WindowWiring::showFilesRequested);
  connect(&_panes.batch, &BatchDesk::showInFolderRequested, this,
          &WindowWiring::showFilesRequested);
  connect(&_panes.cards, &CardDesk::showInFolderRequested, this, &WindowWiring::showFilesRequested);
  connect(&_panes.browser, &FolderBrowser::listed, this, &WindowWiring::listed);
}

void WindowWiring::markLoaded() {
  const TakeSession& take = _panes.take;
  _panes.browser.model().setLoaded(take.isOpen() ? take.file().native() : std::string());
}
