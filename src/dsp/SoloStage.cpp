// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "dsp/SoloStage.h"

#include <algorithm>
#include <array>

#include "dsp/MidSideDecoder.h"

namespace {

constexpr std::size_t kPieceFloats = 256;

std::int64_t angleAfter(const AdjustAngleInfo& info, std::size_t frames) {
  const auto most = static_cast<std::int64_t>(frames);
  return info.prevAngle + std::clamp(info.curAngle - info.prevAngle, -most, most);
}

/// The frames as they sound with this solo.
void take(std::span<const float> frames, const AdjustAngleInfo& angle, Solo solo,
          std::span<float> heard) {
  std::ranges::copy(frames, heard.begin());
  if (solo == Solo::None) return MidSideDecoder::glide(heard.first(frames.size()), angle);
  SoloStage::apply(heard.first(frames.size()), solo);
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
  if (from == to) return apply(frames, to);
  AdjustAngleInfo info = angle;
  std::array<float, kPieceFloats> before{};
  std::array<float, kPieceFloats> after{};
  const std::size_t fade = std::min(frames.size() / 2, kFadeFrames);
  for (std::size_t at = 0; at + 1 < frames.size(); at += kPieceFloats) {
    const std::span<float> piece = frames.subspan(at, std::min(kPieceFloats, frames.size() - at));
    take(piece, info, from, before);
    take(piece, info, to, after);
    info.prevAngle = angleAfter(info, piece.size() / 2);
    for (std::size_t i = 0; i < piece.size(); ++i) {
      const std::size_t number = (at + i) / 2;
      const float share = static_cast<float>(number) / static_cast<float>(fade);
      piece[i] = number < fade ? before[i] + (after[i] - before[i]) * share : after[i];
    }
  }
}
