// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/CardDesk.h"

#include <algorithm>
#include <initializer_list>
#include <memory>

#include "dialogs/PathText.h"
#include "dialogs/TransferWork.h"
#include "transfer/CardFinder.h"

namespace fs = std::filesystem;

namespace {

constexpr int kLookEvery = 5000;  // ms

bool isWithin(const fs::path& path, const fs::path& folder) {
  return std::mismatch(folder.begin(), folder.end(), path.begin(), path.end()).first ==
         folder.end();
}

bool isAtWork(const TransferPanel* panel) {
  return panel != nullptr && panel->isBusy();
}

}  // namespace

CardDesk::CardDesk(const Place& place, QObject* parent)
    : QObject(parent),
      _place(place),
      _find([finder = std::make_shared<CardFinder>()] { return finder->find(); }) {
  connect(&_place.copyCard, &QAction::triggered, this, &CardDesk::copyCard);
  connect(&_place.verifyFolder, &QAction::triggered, this, &CardDesk::verifyFolder);
  connect(&_timer, &QTimer::timeout, this, &CardDesk::look);
  _timer.start(kLookEvery);
}

void CardDesk::look() {
  if (_errand.isUnderWay()) return;  // a medium that hangs is not asked again
  _errand.begin([this, find = _find]() -> Errand::Outcome {
    return [this, cards = find()] {
      found(cards);
      emit looked();
    };
  });
}

void CardDesk::found(const std::vector<fs::path>& cards) {
  const bool isStillThere = std::ranges::find(cards, _card) != cards.end();
  if (isStillThere && !_card.empty()) return;
  _card = cards.empty() ? fs::path() : cards.back();
  if (_card.empty()) return _place.status.clear(StatusLine::Topic::Card);
  _place.status.say(StatusLine::Topic::Card,
                    tr("The card “%1” holds recordings. “Copy card…” in the menu brings them home.")
                        .arg(PathText::textOf(_card.filename())));
}

void CardDesk::copyCard() {
  if (TransferPanel* const panel = _copying) return panel->bringUp();
  _place.status.clear(StatusLine::Topic::Card);
  const auto work = [this](const TransferPanel::Places& places) {
    _destination = places[1];
    return TransferWork::copy(places[0], places[1]);
  };
  auto* const panel =
      new TransferPanel({tr("Copy card"), tr("Copy"), tr("Takes")}, work, &_place.window);
  FolderButton& card = panel->addPlace(tr("Card"));
  FolderButton& home = panel->addPlace(tr("Into"));
  choosePlaces(card, home);
  _copying = panel;
  present(*panel);
}

// The card that was found, and where takes were brought last, or else the folder that is shown.
void CardDesk::choosePlaces(FolderButton& card, FolderButton& home) {
  const fs::path& shown = _place.browser.place();
  const fs::path destination = _destination.empty() ? shown : _destination;
  card.setStart(shown);
  home.setStart(destination);
  if (_card.empty()) return;
  card.setFolder(_card);
  if (!isWithin(destination, _card)) home.setFolder(destination);
}

void CardDesk::verifyFolder() {
  if (TransferPanel* const panel = _verifying) return panel->bringUp();
  const auto work = [](const TransferPanel::Places& places) {
    return TransferWork::verify(places[0]);
  };
  auto* const panel = new TransferPanel(
      {tr("Verify folder"), tr("Verify"), tr("Files that are not right")}, work, &_place.window);
  panel->addPlace(tr("Folder")).setFolder(_place.browser.place());
  _verifying = panel;
  present(*panel);
}

void CardDesk::present(TransferPanel& panel) {
  connect(&panel, &TransferPanel::begun, this, &CardDesk::busyChanged);
  connect(&panel, &TransferPanel::ended, this, &CardDesk::busyChanged);
  connect(&panel, &TransferPanel::ended, this, &CardDesk::ended);
  connect(&panel, &TransferPanel::ended, &_place.browser, &FolderBrowser::refresh);
  connect(&panel, &TransferPanel::showInFolderRequested, this, &CardDesk::showInFolderRequested);
  panel.setParentFrame(_place.window.window()->frameGeometry());
  panel.show();
}

bool CardDesk::isBusy() const {
  return isAtWork(_copying) || isAtWork(_verifying);
}

bool CardDesk::isCopying() const {
  return isAtWork(_copying);
}

void CardDesk::cancel() {
  for (TransferPanel* const panel : {_copying.data(), _verifying.data()}) {
    if (isAtWork(panel)) panel->cancel();
  }
}
