// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "export/ClipSearch.h"

#include <algorithm>
#include <array>
#include <span>

#include "dsp/GainStage.h"
#include "dsp/Kernels.h"
#include "dsp/SideGain.h"
#include "export/ExportBlocks.h"
#include "wav/FrameStream.h"

namespace {

constexpr std::uint64_t kFramesAtOnce = 1 << 20;  // for a waveform of few columns

/// The samples of an export, as far as somebody looks at them.
class Decoded {
 public:
  Decoded(const WaveFileReader& reader, int width, double gain)
      : _stream(reader),
        _isRaw(reader.isBoMSFormat()),
        _side(SideGain::factor(width)),
        _divisor(GainStage::factor(-gain)) {}

  bool look(std::uint64_t from, std::uint64_t frames, Clipping& clipping) {
    _stream.seek(from);
    std::array<float, ExportBlocks::kFloats> block;
    while (frames > 0) {
      const std::uint64_t count = std::min<std::uint64_t>(frames, ExportBlocks::kFloats / 2);
      const std::span<float> samples = std::span(block).first(2 * count);
      if (_stream.read(samples) != count) return false;
      const float peak = _isRaw ? Kernels::decodeAndDivide(samples, _side, _divisor, _divisor)
                                : Kernels::divide(samples, _divisor, _divisor);
      clipping.look(samples, peak);
      frames -= count;
    }
    return true;
  }

 private:
  FrameStream _stream;
  bool _isRaw;
  float _side;
  float _divisor;
};

std::size_t binsIn(const TakeLayout& layout, const FrameRange& part) {
  return layout.binOf(part.end - 1) + 1 - layout.binOf(part.first);
}

// Of a part that nobody knows about, one column that may clip.
Waveform waveformOf(const TakeAnalysis* whole, const FrameRange& part, int width, double gain) {
  if (whole != nullptr) {
    return whole->waveform(width, gain, part.first, part.end, binsIn(whole->layout(), part));
  }
  Waveform unknown;
  unknown.from = part.first;
  unknown.to = part.end;
  unknown.columns.emplace_back().mayClip = true;
  return unknown;
}

bool look(const Waveform& wave, Decoded& decoded, Clipping& clipping,
          const std::atomic<bool>& cancel) {
  for (std::size_t i = 0; i < wave.columns.size(); ++i) {
    if (cancel) return false;
    const std::uint64_t from = wave.columnStart(i);
    const std::uint64_t frames = wave.columnStart(i + 1) - from;
    if (!wave.columns[i].mayClip) {
      clipping.skip(frames);
    } else if (!decoded.look(from, frames, clipping)) {
      return false;
    }
  }
  return true;
}

}  // namespace

std::optional<Clipping> ClipSearch::find(const WaveFileReader& reader, const TakeAnalysis* whole,
                                         const FrameRange& range, int width, double gain,
                                         const std::atomic<bool>& cancel) {
  Clipping clipping(reader.header().SampleRate);
  Decoded decoded(reader, width, gain);
  FrameRange part;
  for (part.first = range.first; part.first < range.end; part.first = part.end) {
    part.end = std::min(range.end, part.first + kFramesAtOnce);
    if (!look(waveformOf(whole, part, width, gain), decoded, clipping, cancel)) return std::nullopt;
  }
  return clipping;
}
