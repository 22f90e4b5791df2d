// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "dsp/AnalysisKernels.h"
#include "dsp/PlainAnalysisKernels.h"

// This file is compiled once for each instruction set that the compiler knows.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "dsp/AnalysisKernelsMagnitudes.cpp"
#include <hwy/foreach_target.h>  // IWYU pragma: keep
#include <hwy/highway.h>

HWY_BEFORE_NAMESPACE();
namespace magnitude_kernels::HWY_NAMESPACE {
namespace {

#if HWY_TARGET == HWY_SCALAR  // a processor without vectors that fit: the plain loops

void raiseMagnitudes(std::span<const float> frames, std::span<const float> gains,
                     std::span<float> peaks) {
  PlainAnalysisKernels::raiseMagnitudes(frames, gains, peaks);
}

#else

namespace hn = hwy::HWY_NAMESPACE;

using FloatTag = hn::ScalableTag<float>;
using Floats = hn::Vec<FloatTag>;

// At two gains in turns: one for even lanes, one for odd ones.
struct Magnitudes {
  Floats gain;
  Floats most;
};

HWY_INLINE Magnitudes noMagnitudes(float even, float odd) {
  const FloatTag df;
  return {hn::OddEven(hn::Set(df, odd), hn::Set(df, even)), hn::Zero(df)};
}

HWY_INLINE void widen(Magnitudes& magnitudes, Floats mid, Floats side) {
  magnitudes.most = hn::Max(magnitudes.most, hn::Add(mid, hn::Mul(side, magnitudes.gain)));
}

HWY_INLINE void store(const Magnitudes& magnitudes, float& even, float& odd) {
  const FloatTag df;
  even = HWY_MAX(even, hn::GetLane(hn::MaxOfLanes(df, hn::DupEven(magnitudes.most))));
  odd = HWY_MAX(odd, hn::GetLane(hn::MaxOfLanes(df, hn::DupOdd(magnitudes.most))));
}

// The last vector overlaps the one before it: a peak may be met twice.
template <class Step>
HWY_INLINE void forEachVector(std::span<const float> frames, const Step& step) {
  const FloatTag df;
  const std::size_t lanes = hn::Lanes(df);
  std::size_t i = 0;
  for (; i + lanes <= frames.size(); i += lanes) step(hn::LoadU(df, frames.data() + i));
  if (i < frames.size()) step(hn::LoadU(df, frames.data() + frames.size() - lanes));
}

HWY_INLINE void raiseSixMagnitudes(std::span<const float> frames, const float* gains,
                                   float* peaks) {
  Magnitudes a = noMagnitudes(gains[0], gains[1]);
  Magnitudes b = noMagnitudes(gains[2], gains[3]);
  Magnitudes c = noMagnitudes(gains[4], gains[5]);
  forEachVector(frames, [&](Floats frame) HWY_ATTR {
    const auto magnitude = hn::Abs(frame);
    const auto mid = hn::DupEven(magnitude);
    const auto side = hn::DupOdd(magnitude);
    widen(a, mid, side);
    widen(b, mid, side);
    widen(c, mid, side);
  });
  store(a, peaks[0], peaks[1]);
  store(b, peaks[2], peaks[3]);
  store(c, peaks[4], peaks[5]);
}

// The last one of an odd number pairs with itself.
HWY_INLINE void raiseTwoMagnitudes(std::span<const float> frames, std::span<const float> gains,
                                   std::span<float> peaks) {
  Magnitudes both = noMagnitudes(gains.front(), gains.back());
  forEachVector(frames, [&](Floats frame) HWY_ATTR {
    const auto magnitude = hn::Abs(frame);
    widen(both, hn::DupEven(magnitude), hn::DupOdd(magnitude));
  });
  store(both, peaks.front(), peaks.back());
}

HWY_ATTR void raiseMagnitudes(std::span<const float> frames, std::span<const float> gains,
                              std::span<float> peaks) {
  const FloatTag df;
  const std::size_t lanes = hn::Lanes(df);
  if (lanes < 2 || frames.size() < lanes) {
    return PlainAnalysisKernels::raiseMagnitudes(frames, gains, peaks);
  }
  std::size_t g = 0;
  for (; g + 6 <= gains.size(); g += 6) raiseSixMagnitudes(frames, &gains[g], &peaks[g]);
  for (; g < gains.size(); g += 2) {
    const std::size_t count = HWY_MIN(gains.size() - g, std::size_t{2});
    raiseTwoMagnitudes(frames, gains.subspan(g, count), peaks.subspan(g, count));
  }
}

#endif  // HWY_TARGET

}  // namespace
}  // namespace magnitude_kernels::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

namespace magnitude_kernels {
namespace {

HWY_EXPORT(raiseMagnitudes);

}  // namespace
}  // namespace magnitude_kernels

using namespace magnitude_kernels;  // NOLINT(google-build-using-namespace): the dispatch needs it

void AnalysisKernels::raiseMagnitudes(std::span<const float> frames, std::span<const float> gains,
                                      std::span<float> peaks) {
  HWY_DYNAMIC_DISPATCH(raiseMagnitudes)(frames, gains, peaks);
}

#endif  // HWY_ONCE
