// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

/// What the program asks of a recorder, the handshake first and in its order.
enum class RecorderRequest {
  Identity,
  Start,
  Version,
  Card,
  Battery,
  AutoPowerOff,
  DateTime,
  SetBattery,
  SetAutoPowerOff
};

/// The request that a whole message from F0 to F7 is; none where it is not one.
std::optional<RecorderRequest> recorderRequest(std::span<const std::uint8_t> message);
