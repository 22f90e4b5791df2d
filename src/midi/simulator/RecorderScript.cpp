// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "midi/simulator/RecorderScript.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "midi/QtMIDIClock.h"
#include "midi/simulator/RecorderWords.h"

namespace {

constexpr double kMostSeconds = 1e6;

void showCard(SimulatedLink& link, bool isThere) {
  link.recorder().state().hasCard = isThere;
  link.recorder().reportCard();
}

struct NamedAction {
  std::string_view name;
  void (*carryOut)(SimulatedLink& link);
};

constexpr std::array<NamedAction, 6> kActions = {
    {{"plug", [](SimulatedLink& link) { link.plugIn(); }},
     {"unplug", [](SimulatedLink& link) { link.pullOut(); }},
     {"report", [](SimulatedLink& link) { link.recorder().reportCard(); }},
     {"eject", [](SimulatedLink& link) { showCard(link, false); }},
     {"insert", [](SimulatedLink& link) { showCard(link, true); }},
     {"behave", [](SimulatedLink& link) { link.recorder().behave(); }}}};

/// A recorder that nobody uses finds out whether a word means something.
bool isKnown(std::string_view word) {
  QtMIDIClock clock;
  SimulatedRecorder recorder(clock);
  return RecorderWords::apply(word, recorder);
}

}  // namespace

RecorderScript RecorderScript::parse(std::string_view text, std::string& fault) {
  RecorderScript script;
  while (!text.empty()) {
    const std::string_view word = text.substr(0, text.find(','));
    if (!script.take(word)) fault = word.empty() ? "an empty word" : std::string(word);
    text.remove_prefix(std::min(text.size(), word.size() + 1));
  }
  return script;
}

bool RecorderScript::take(std::string_view word) {
  if (word == "ump") _kind = MIDIPacketKind::EventLists;
  if (word == "unplugged") _isUnplugged = true;
  if (word == "ump" || word == "unplugged" || takeAction(word)) return true;
  if (!isKnown(word)) return false;
  _words.emplace_back(word);
  return true;
}

bool RecorderScript::takeAction(std::string_view word) {
  const std::size_t at = std::min(word.size(), word.find('@'));
  const auto* action = std::ranges::find(kActions, word.substr(0, at), &NamedAction::name);
  if (action == kActions.end() || at == word.size()) return false;
  double seconds = 0;
  const char* const end = word.data() + word.size();
  const auto read = std::from_chars(word.data() + at + 1, end, seconds);
  if (read.ec != std::errc() || read.ptr != end) return false;
  if (!(seconds >= 0 && seconds <= kMostSeconds)) return false;
  _actions.emplace_back(seconds, action->carryOut);
  return true;
}

void RecorderScript::play(SimulatedLink& link) {
  for (const std::string& word : _words) RecorderWords::apply(word, link.recorder());
  if (!_isUnplugged) link.plugIn();
  for (const auto& [seconds, action] : _actions) {
    _timers.push_back(link.clock()->after(seconds, [&link, action = action] { action(link); }));
  }
}
