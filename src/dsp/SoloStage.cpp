// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "dsp/SoloStage.h"

#include <algorithm>
#include <array>

#include "dsp/MidSideDecoder.h"

namespace {

constexpr std::size_t kPieceFloats = 256;

/// A frame as it was recorded and as it is decoded.
struct Frame {
  std::span<const float> raw;
  std::span<const float> decoded;

  [[nodiscard]] float at(Solo solo, std::size_t side) const {
    if (solo == Solo::None) return decoded[side];
    return solo == Solo::Mid ? raw[0] : raw[1];
  }
};

std::int64_t angleAfter(const AdjustAngleInfo& info, std::size_t frames) {
  const auto most = static_cast<std::int64_t>(frames);
  return info.prevAngle + std::clamp(info.curAngle - info.prevAngle, -most, most);
}

}  // namespace

void SoloStage::apply(std::span<float> frames, Solo solo) {
  if (solo == Solo::None) return;
  const std::size_t from = solo == Solo::Mid ? 0 : 1;
  for (std::size_t i = 0; i + 1 < frames.size(); i += 2) {
    frames[i] = frames[i + 1] = frames[i + from];
  }
}

void SoloStage::glide(std::span<float> frames, const AdjustAngleInfo& angle, Solo from, Solo to) {
  if (from == Solo::None && to == Solo::None) return MidSideDecoder::glide(frames, angle);
  const std::size_t fade = std::min(frames.size() / 2, kFadeFrames);
  AdjustAngleInfo info = angle;
  std::array<float, kPieceFloats> decoded{};
  for (std::size_t at = 0; at + 1 < frames.size(); at += kPieceFloats) {
    const std::span<float> raw = frames.subspan(at, std::min(kPieceFloats, frames.size() - at));
    std::ranges::copy(raw, decoded.begin());
    MidSideDecoder::glide(std::span(decoded).first(raw.size()), info);
    info.prevAngle = angleAfter(info, raw.size() / 2);
    for (std::size_t i = 0; i + 1 < raw.size(); i += 2) {
      const std::array<float, 2> recorded{raw[i], raw[i + 1]};
      const Frame frame{recorded, std::span(decoded).subspan(i, 2)};
      const std::size_t number = (at + i) / 2;
      const float share = static_cast<float>(number) / static_cast<float>(fade);
      for (const std::size_t side : {0U, 1U}) {
        const float after = frame.at(to, side);
        const float before = frame.at(from, side);
        raw[i + side] = number < fade && from != to ? before + (after - before) * share : after;
      }
    }
  }
}
