// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "midi/MIDICommon.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>

#include "base/Log.h"
#include "base/MainThreadQueue.h"
#include "midi/MIDIReceiveBuffer.h"
#include "midi/WorkerPool.h"

namespace {

constexpr std::int64_t kPayload = 6;

enum Status : std::uint8_t { Complete = 0, Start = 1, Continue = 2, End = 3 };

Status statusOf(std::int64_t index, std::int64_t count) {
  if (count == 1) return Complete;
  if (index == 0) return Start;
  return index == count - 1 ? End : Continue;
}

std::uint32_t bigEndian(const std::uint8_t* bytes) {
  return std::uint32_t{bytes[0]} << 24 | std::uint32_t{bytes[1]} << 16 |
         std::uint32_t{bytes[2]} << 8 | std::uint32_t{bytes[3]};
}

}  // namespace

std::optional<std::vector<GLPacket>> MIDICommon::convertByteToPacket(const std::uint8_t* bytes,
                                                                     std::int64_t size) {
  if (size < 1 || bytes[0] != MIDIReceiveBuffer::kSysExStart) return std::nullopt;
  const std::int64_t payload = size - 2;
  const auto count = static_cast<std::int64_t>(std::ceil(static_cast<float>(payload) / 6.0F));
  std::vector<GLPacket> packets;
  for (std::int64_t i = 0; i < count; ++i) {
    const auto length = std::clamp<std::int64_t>(payload - i * kPayload, 0, kPayload);
    packets.push_back(
        createPackage(0, statusOf(i, count), static_cast<int>(length), bytes + 1 + i * kPayload));
  }
  return packets;
}

GLPacket MIDICommon::createPackage(std::uint8_t group, std::uint8_t status, int realByteCount,
                                   const std::uint8_t* realData) {
  std::array<std::uint8_t, 8> bytes{};
  bytes[0] = static_cast<std::uint8_t>(kSysExType << 4 | group);
  bytes[1] = static_cast<std::uint8_t>(status << 4 | realByteCount);
  std::copy_n(realData, realByteCount, bytes.begin() + 2);
  return {{bigEndian(bytes.data()), bigEndian(bytes.data() + 4)}, 2};
}

void MIDICommon::runBackground(const std::function<void()>& task) {
  const std::string problem = WorkerPool::ofProcess().start(task);
  if (problem.empty()) return;
  Log::line("No thread for work in the background: " + problem);
  task();
}

void MIDICommon::runOnUIThread(const std::function<void()>& task) {
  MainThreadQueue::run(task);
}
