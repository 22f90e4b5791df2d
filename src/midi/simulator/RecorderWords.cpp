// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "midi/simulator/RecorderWords.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

namespace {

template <class Value>
using Named = std::pair<std::string_view, Value>;

constexpr std::array<Named<RecorderRequest>, 9> kRequests = {
    {{"identity", RecorderRequest::Identity},
     {"start", RecorderRequest::Start},
     {"version", RecorderRequest::Version},
     {"card", RecorderRequest::Card},
     {"battery", RecorderRequest::Battery},
     {"auto-power-off", RecorderRequest::AutoPowerOff},
     {"date-time", RecorderRequest::DateTime},
     {"set-battery", RecorderRequest::SetBattery},
     {"set-auto-power-off", RecorderRequest::SetAutoPowerOff}}};

constexpr std::array<Named<RecorderFault>, 9> kFaults = {
    {{"silent", RecorderFault::Silent},
     {"slow", RecorderFault::Slow},
     {"wrong-length", RecorderFault::WrongLength},
     {"long-identity", RecorderFault::LongIdentity},
     {"garbage", RecorderFault::Garbage},
     {"split", RecorderFault::SplitAtEveryByte},
     {"merged", RecorderFault::Merged},
     {"interleaved", RecorderFault::Interleaved},
     {"disappear", RecorderFault::Disappear}}};

template <class Value, std::size_t kSize>
std::optional<Value> find(const std::array<Named<Value>, kSize>& names, std::string_view name) {
  const auto* found = std::ranges::find(names, name, [](const auto& each) { return each.first; });
  if (found == names.end()) return std::nullopt;
  return found->second;
}

template <class Number>
bool read(std::string_view text, Number most, Number& value) {
  Number number{};
  const char* const end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, number);
  if (result.ec != std::errc() || result.ptr != end || number > most) return false;
  value = number;
  return true;
}

/// The text before and after the first `mark`; the second is empty without one.
std::pair<std::string_view, std::string_view> divided(std::string_view text, char mark) {
  const std::size_t at = text.find(mark);
  if (at == std::string_view::npos) return {text, {}};
  return {text.substr(0, at), text.substr(at + 1)};
}

/// Version 1.02 is told as 0102.
bool readFirmware(std::string_view text, RecorderState& state) {
  const auto isDigit = [text](std::size_t at) { return text[at] >= '0' && text[at] <= '9'; };
  if (text.size() != 4 || text[1] != '.' || !isDigit(0) || !isDigit(2) || !isDigit(3)) return false;
  state.firmware = {'0', text[0], text[2], text[3]};
  return true;
}

bool readRemaining(std::string_view text, RecorderState& state) {
  constexpr std::uint8_t kMostData = 127;
  std::array<std::uint8_t, 3> remaining{};
  for (std::uint8_t& part : remaining) {
    const auto [first, rest] = divided(text, ':');
    if (!read(first, kMostData, part)) return false;
    text = rest;
  }
  if (text.empty()) state.remaining = remaining;
  return text.empty();
}

bool readCard(std::string_view text, RecorderState& state) {
  constexpr std::uint64_t kMost = UINT64_MAX;
  const auto [used, capacity] = divided(text, '/');
  RecorderState card = state;
  card.hasCard = true;
  if (!read(used, kMost, card.usedBytes) || !read(capacity, kMost, card.capacityBytes))
    return false;
  state = card;
  return true;
}

bool readValue(std::string_view name, std::string_view value, RecorderState& state) {
  constexpr std::uint8_t kMostData = 127;
  if (name == "firmware") return readFirmware(value, state);
  if (name == "remaining") return readRemaining(value, state);
  if (name == "card") return readCard(value, state);
  if (name == "battery") return read(value, kMostData, state.batteryType);
  return name == "auto-power-off" && read(value, kMostData, state.autoPowerOff);
}

}  // namespace

std::optional<RecorderRequest> RecorderWords::request(std::string_view name) {
  return find(kRequests, name);
}

std::string_view RecorderWords::nameOf(RecorderRequest request) {
  const auto isIt = [request](const auto& each) { return each.second == request; };
  return std::ranges::find_if(kRequests, isIt)->first;
}

std::optional<RecorderFault> RecorderWords::fault(std::string_view name) {
  return find(kFaults, name);
}

bool RecorderWords::apply(std::string_view word, SimulatedRecorder& recorder) {
  const auto [what, at] = divided(word, '@');
  const auto bad = fault(what);
  const auto where = request(at);
  if (bad && where) {
    recorder.misbehave(*where, *bad);
    return true;
  }
  if (word == "behave") recorder.behave();
  if (word == "no-card") recorder.state().hasCard = false;
  if (word == "behave" || word == "no-card") return true;
  const auto [name, value] = divided(word, '=');
  return readValue(name, value, recorder.state());
}
