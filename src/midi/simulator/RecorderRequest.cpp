// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "midi/simulator/RecorderRequest.h"

#include <algorithm>

namespace {

struct Row {
  RecorderRequest request;
  std::size_t length;
  std::vector<std::uint8_t> beginning;
};

const std::vector<Row>& rows() {
  using enum RecorderRequest;
  static const std::vector<Row> kRows = {
      {Identity, 6, {0xF0, 0x7E, 0x00, 0x06, 0x01}},
      {Start, 6, {0xF0, 0x52, 0x00, 0x00, 0x52}},
      {Version, 7, {0xF0, 0x52, 0x00, 0x00, 0x10, 0x01}},
      {Card, 7, {0xF0, 0x52, 0x00, 0x00, 0x67, 0x01}},
      {Battery, 7, {0xF0, 0x52, 0x00, 0x00, 0x46, 0x01}},
      {AutoPowerOff, 7, {0xF0, 0x52, 0x00, 0x00, 0x46, 0x02}},
      {DateTime, 14, {0xF0, 0x52, 0x00, 0x00, 0x31, 0x00}},
      {SetBattery, 8, {0xF0, 0x52, 0x00, 0x00, 0x31, 0x01}},
      {SetAutoPowerOff, 8, {0xF0, 0x52, 0x00, 0x00, 0x31, 0x02}},
  };
  return kRows;
}

bool beginsWith(std::span<const std::uint8_t> message, const std::vector<std::uint8_t>& beginning) {
  return message.size() >= beginning.size() &&
         std::equal(beginning.begin(), beginning.end(), message.begin());
}

}  // namespace

std::optional<RecorderRequest> recorderRequest(std::span<const std::uint8_t> message) {
  const auto isIt = [message](const Row& row) {
    return message.size() == row.length && beginsWith(message, row.beginning) &&
           message.back() == 0xF7;
  };
  const auto row = std::ranges::find_if(rows(), isIt);
  if (row == rows().end()) return std::nullopt;
  return row->request;
}
