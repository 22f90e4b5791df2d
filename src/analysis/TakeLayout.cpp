// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "analysis/TakeLayout.h"

#include <algorithm>

#include "dsp/KWeighting.h"

namespace {

constexpr std::size_t kNominalBlock = 4800;
constexpr std::size_t kMostStretchFrames = 48000;  // a unit is soon read, and fits a worker
constexpr std::size_t kMostBlocks = 10;
constexpr std::size_t kLeastBlocks = 2;

std::size_t blockAt(std::uint32_t rate) {
  return KWeighting::isDefined(rate) ? (rate + 5) / 10 : kNominalBlock;
}

std::uint64_t dividedUp(std::uint64_t value, std::uint64_t divisor) {
  return (value + divisor - 1) / divisor;
}

}  // namespace

TakeLayout::TakeLayout(std::uint32_t sampleRate, std::uint64_t frames, bool isRawMidSide)
    : _sampleRate(sampleRate),
      _frames(frames),
      _isRawMidSide(isRawMidSide),
      _blockFrames(blockAt(sampleRate)),
      _blocksPerStretch(std::clamp(kMostStretchFrames / _blockFrames, kLeastBlocks, kMostBlocks)) {}

bool TakeLayout::hasLoudness() const {
  return KWeighting::isDefined(_sampleRate);
}

double TakeLayout::seconds() const {
  if (_sampleRate == 0) return 0;
  return static_cast<double>(_frames) / static_cast<double>(_sampleRate);
}

std::size_t TakeLayout::blocks() const {
  return dividedUp(_frames, _blockFrames);
}

std::size_t TakeLayout::bins() const {
  return _frames == 0 ? 0 : binOf(_frames - 1) + 1;
}

std::uint64_t TakeLayout::binStart(std::size_t bin) const {
  const std::uint64_t block = std::uint64_t{bin} / kBinsPerBlock * _blockFrames;
  const std::uint64_t inBlock = bin % kBinsPerBlock * (_blockFrames / kBinsPerBlock);
  return std::min(block + inBlock, _frames);
}

std::size_t TakeLayout::binOf(std::uint64_t frame) const {
  const std::uint64_t half = _blockFrames / kBinsPerBlock;
  const bool isSecond = frame % _blockFrames >= half;
  return frame / _blockFrames * kBinsPerBlock + (isSecond ? 1 : 0);
}

std::size_t TakeLayout::units() const {
  return dividedUp(_frames, framesPerUnit());
}

std::size_t TakeLayout::blocksOf(std::size_t unit) const {
  return std::min(blocksPerUnit(), blocks() - unit * blocksPerUnit());
}

std::size_t TakeLayout::binsOf(std::size_t unit) const {
  const std::size_t most = blocksPerUnit() * kBinsPerBlock;
  return std::min(most, bins() - unit * most);
}
