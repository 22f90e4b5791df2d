// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "export/ClipSearch.h"

#include <algorithm>
#include <array>
#include <span>

#include "dsp/GainStage.h"
#include "dsp/Kernels.h"
#include "dsp/SideGain.h"
#include "wav/FrameStream.h"

namespace {

constexpr std::size_t kBlockFloats = 5120;

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
    std::array<float, kBlockFloats> block;
    while (frames > 0) {
      const std::uint64_t count = std::min<std::uint64_t>(frames, kBlockFloats / 2);
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

}  // namespace

std::optional<Clipping> ClipSearch::find(const WaveFileReader& reader, const TakeAnalysis& analysis,
                                         std::uint64_t firstFrame, int width, double gain,
                                         const std::atomic<bool>& cancel) {
  const TakeLayout& layout = analysis.layout();
  Clipping clipping(layout.sampleRate());
  const Waveform wave =
      analysis.waveform(width, gain, 0, layout.frames(), std::max<std::size_t>(1, layout.bins()));
  Decoded decoded(reader, width, gain);
  for (std::size_t i = 0; i < wave.columns.size(); ++i) {
    if (cancel) return std::nullopt;
    const std::uint64_t from = wave.columnStart(i);
    const std::uint64_t frames = wave.columnStart(i + 1) - from;
    if (!wave.columns[i].mayClip) {
      clipping.skip(frames);
    } else if (!decoded.look(firstFrame + from, frames, clipping)) {
      return std::nullopt;
    }
  }
  return clipping;
}
