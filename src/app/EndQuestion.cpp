// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/EndQuestion.h"

#include <QPushButton>
#include <QStringList>
#include <vector>

#include "dialogs/Alert.h"

EndQuestion::EndQuestion(const Place& place, QObject* parent) : QObject(parent), _place(place) {}

bool EndQuestion::mayEnd() {
  if (!_isEnding && isReasonToStay()) {
    ask();
    return false;
  }
  _place.cards.cancel();
  _place.repair.cancel();
  return true;
}

// A folder that is verified is only read: what its end breaks off can be had again.
bool EndQuestion::isReasonToStay() const {
  return _place.exports.isBusy() || _place.cards.isCopying() || _place.repair.isSalvaging();
}

// One that still stands may tell of what has ended meanwhile.
void EndQuestion::ask() {
  if (QMessageBox* const before = _question) before->close();
  const Words words = this->words();
  QMessageBox* const question = Alert::question(&_place.window, words.text);
  _question = question;
  // In this order, whatever the desktop's is.
  QPushButton* const stay = question->addButton(words.stay, QMessageBox::ActionRole);
  const auto* const end = question->addButton(words.end, QMessageBox::ActionRole);
  question->setDefaultButton(stay);
  question->setEscapeButton(stay);
  connect(end, &QAbstractButton::clicked, this, &EndQuestion::endAnyway);
  question->open();
}

EndQuestion::Words EndQuestion::words() const {
  std::vector<Words> all;
  if (_place.exports.isBusy()) all.push_back(wordsForExports());
  if (_place.cards.isCopying()) all.push_back(wordsForCopy());
  if (_place.repair.isSalvaging()) all.push_back(wordsForSalvage());
  if (all.size() == 1) return all.front();
  QStringList texts;
  for (const Words& each : all) texts << each.text;
  return {texts.join(u'\n'), tr("Keep working"), tr("Stop all and quit")};
}

EndQuestion::Words EndQuestion::wordsForCopy() const {
  return {
      tr("Takes are still being copied. What is copied stays; the next copy goes on from there."),
      tr("Keep copying"), tr("Stop and quit")};
}

EndQuestion::Words EndQuestion::wordsForSalvage() const {
  return {_place.repair.salvageText(), tr("Keep working"), tr("Stop and quit")};
}

EndQuestion::Words EndQuestion::wordsForExports() const {
  const auto count = static_cast<int>(_place.exports.ids().size());
  if (count == 1) {
    return {tr("An export is still running. Ending now cancels it."), tr("Keep exporting"),
            tr("Cancel export and quit")};
  }
  return {tr("%n exports are still running or waiting. Ending now cancels them.", nullptr, count),
          tr("Keep exporting"), tr("Cancel exports and quit")};
}

void EndQuestion::endAnyway() {
  _isEnding = true;
  _place.exports.cancelAll();
  emit endRequested();
}
