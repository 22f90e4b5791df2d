// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/WindowStart.h"

#include <utility>

WindowStart::WindowStart(FolderBrowser& browser, WindowCommands& commands, TakeSession& take,
                         QObject* parent)
    : QObject(parent), _browser(browser), _commands(commands), _take(take) {
  connect(&_browser, &FolderBrowser::takeChosen, this, &WindowStart::openChosen);
  connect(&_commands, &WindowCommands::introduced, this, &WindowStart::openWaiting);
}

void WindowStart::open(const std::vector<std::filesystem::path>& files) {
  if (files.empty()) return;
  if (_hasAppeared) return begin(files);
  set(files);
}

void WindowStart::appear() {
  _hasAppeared = true;
  begin(std::exchange(_files, {}));
  _commands.introduce();
}

void WindowStart::begin(const std::vector<std::filesystem::path>& files) {
  if (files.empty()) return _browser.begin({});
  _browser.begin(files.front(), {files.begin() + 1, files.end()});
}

// What the command line names is not to play behind a dialog that explains the program.
void WindowStart::openChosen(const WavItem& item) {
  _waiting = item;
  if (!_commands.isIntroducing()) openWaiting();
}

void WindowStart::openWaiting() {
  if (const auto item = std::exchange(_waiting, {})) _take.open(item->fileName, item->fullPath);
}
