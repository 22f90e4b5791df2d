// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>

/// The recorder's end of a cable that leaves the process. Interface thread only.
class CableEnd {
 public:
  /// What happens at this end, always from the event loop or from inside `plugIn`.
  struct Told {
    std::function<void()> pluggedIn;
    std::function<void()> pulledOut;
    std::function<void(std::span<const std::uint8_t> bytes)> received;
  };

  explicit CableEnd(Told told) : _told(std::move(told)) {}
  CableEnd(const CableEnd&) = delete;
  CableEnd& operator=(const CableEnd&) = delete;
  virtual ~CableEnd() = default;

  /// Empty, or why there cannot be a cable.
  virtual std::string plugIn() = 0;
  virtual void pullOut() = 0;
  /// One piece of what is on the wire.
  virtual void transmit(std::span<const std::uint8_t> bytes) = 0;

 protected:
  [[nodiscard]] const Told& told() const { return _told; }

 private:
  Told _told;
};
