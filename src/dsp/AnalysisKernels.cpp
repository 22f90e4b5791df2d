// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "dsp/AnalysisKernels.h"

#include <limits>

#include "dsp/PlainAnalysisKernels.h"

// This file is compiled once for each instruction set that the compiler knows.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "dsp/AnalysisKernels.cpp"
#include <hwy/foreach_target.h>  // IWYU pragma: keep
#include <hwy/highway.h>

HWY_BEFORE_NAMESPACE();
namespace analysis_kernels::HWY_NAMESPACE {
namespace {

using Stretches = std::array<std::span<const float>, WeighingLanes::kStretches>;

#if HWY_TARGET == HWY_SCALAR  // a processor without vectors that fit: the plain loops

bool areFinite(std::span<const float> samples) {
  return PlainAnalysisKernels::areFinite(samples);
}

void raiseExtremes(std::span<const float> frames, std::span<const float> gains,
                   std::span<float> extremes) {
  PlainAnalysisKernels::raiseExtremes(frames, gains, extremes);
}

bool areUnder(std::span<const float> frames, const PeakGate& gate) {
  return PlainAnalysisKernels::areUnder(frames, gate);
}

void raisePeaks(std::span<const float> frames, const PeakGate& gate, std::span<const float> gains,
                std::span<float> left, std::span<float> right) {
  PlainAnalysisKernels::raisePeaks(frames, gate, gains, left, right);
}

void interpolate(std::span<const float> frames, std::span<const float> taps, std::span<float> out) {
  PlainAnalysisKernels::interpolate(frames, taps, out);
}

void weigh(const KWeighting& weighting, const Stretches& frames, WeighingLanes& lanes) {
  PlainAnalysisKernels::weigh(weighting, frames, lanes);
}

#else

namespace hn = hwy::HWY_NAMESPACE;

// Where the width of a vector is known at run time only, its bound would be taken for it below.
#if HWY_HAVE_SCALABLE
using FloatTag = hn::FixedTag<float, 4>;
using DoubleTag = hn::FixedTag<double, 2>;
#else
using FloatTag = hn::ScalableTag<float>;
using DoubleTag = hn::FixedTag<double, HWY_MIN(HWY_MAX_BYTES / sizeof(double), 4)>;
#endif
using Floats = hn::Vec<FloatTag>;
using Doubles = hn::Vec<DoubleTag>;

HWY_ATTR bool areFinite(std::span<const float> samples) {
  const FloatTag df;
  const std::size_t lanes = hn::Lanes(df);
  // A sample times 0 is 0, or not a number where the sample is not finite; so is their sum.
  const auto zero = hn::Zero(df);
  auto sum = zero;
  std::size_t i = 0;
  for (; i + lanes <= samples.size(); i += lanes) {
    sum = hn::Add(sum, hn::Mul(hn::LoadU(df, samples.data() + i), zero));
  }
  return hn::AllTrue(df, hn::Eq(sum, zero)) && PlainAnalysisKernels::areFinite(samples.subspan(i));
}

// Left and right in turns: M + S g for even lanes, M - S g for odd ones.
struct Range {
  Floats gain;
  Floats most;
  Floats least;
};

HWY_INLINE Range emptyRange(float gain) {
  const FloatTag df;
  constexpr float kFar = std::numeric_limits<float>::infinity();
  return {hn::OddEven(hn::Set(df, -gain), hn::Set(df, gain)), hn::Set(df, -kFar),
          hn::Set(df, kFar)};
}

HWY_INLINE void widen(Range& range, Floats value) {
  range.most = hn::Max(range.most, value);
  range.least = hn::Min(range.least, value);
}

HWY_INLINE void widenDecoded(Range& range, Floats mid, Floats side) {
  widen(range, hn::Add(mid, hn::Mul(side, range.gain)));
}

// Halves a vector until left and right are all that is left.
template <class D, class Pick>
HWY_INLINE void foldToPair(D d, hn::Vec<D> value, const Pick& pick, float* pair) {
  if constexpr (hn::MaxLanes(D()) <= 2) {
    hn::StoreU(value, d, pair);
  } else {
    const hn::Half<D> half;
    foldToPair(half, pick(hn::LowerHalf(half, value), hn::UpperHalf(half, value)), pick, pair);
  }
}

HWY_INLINE void store(const Range& range, std::span<float> extremes) {
  const auto greater = [](auto a, auto b) HWY_ATTR { return hn::Max(a, b); };
  const auto lesser = [](auto a, auto b) HWY_ATTR { return hn::Min(a, b); };
  std::array<float, 2> most;
  std::array<float, 2> least;
  foldToPair(FloatTag(), range.most, greater, most.data());
  foldToPair(FloatTag(), range.least, lesser, least.data());
  extremes[0] = HWY_MAX(extremes[0], most[0]);
  extremes[1] = HWY_MIN(extremes[1], least[0]);
  extremes[2] = HWY_MAX(extremes[2], most[1]);
  extremes[3] = HWY_MIN(extremes[3], least[1]);
}

// The last vector overlaps the one before it: an extreme may be met twice.
template <class Step>
HWY_INLINE void forEachVector(std::span<const float> frames, const Step& step) {
  const FloatTag df;
  const std::size_t lanes = hn::Lanes(df);
  std::size_t i = 0;
  for (; i + lanes <= frames.size(); i += lanes) step(hn::LoadU(df, frames.data() + i));
  if (i < frames.size()) step(hn::LoadU(df, frames.data() + frames.size() - lanes));
}

// Of three gains from this one on; after the last one it is the last again.
HWY_INLINE void raiseThree(std::span<const float> frames, std::span<const float> gains,
                           std::size_t g, std::span<float> extremes) {
  const std::size_t second = HWY_MIN(g + 1, gains.size() - 1);
  const std::size_t third = HWY_MIN(g + 2, gains.size() - 1);
  Range a = emptyRange(gains[g]);
  Range b = emptyRange(gains[second]);
  Range c = emptyRange(gains[third]);
  forEachVector(frames, [&](Floats frame) HWY_ATTR {
    const auto mid = hn::DupEven(frame);
    const auto side = hn::DupOdd(frame);
    widenDecoded(a, mid, side);
    widenDecoded(b, mid, side);
    widenDecoded(c, mid, side);
  });
  store(a, extremes.subspan(4 * g, 4));
  store(b, extremes.subspan(4 * second, 4));
  store(c, extremes.subspan(4 * third, 4));
}

HWY_ATTR void raiseExtremes(std::span<const float> frames, std::span<const float> gains,
                            std::span<float> extremes) {
  const std::size_t lanes = hn::Lanes(FloatTag());
  if (lanes < 2 || frames.size() < lanes) {
    return PlainAnalysisKernels::raiseExtremes(frames, gains, extremes);
  }
  Range channels = emptyRange(0.0F);
  forEachVector(frames, [&](Floats frame) HWY_ATTR { widen(channels, frame); });
  store(channels, extremes.first(4));
  for (std::size_t g = 0; g < gains.size(); g += 3) {
    raiseThree(frames, gains, g, extremes.subspan(4));
  }
}

// What is let through at one of the gains; after the last one it is the last again.
HWY_INLINE Range lineOf(const PeakGate& gate, std::size_t g) {
  const FloatTag df;
  const std::size_t i = HWY_MIN(g, gate.gains.size() - 1);
  const auto most = hn::OddEven(hn::Set(df, gate.right[i]), hn::Set(df, gate.left[i]));
  return {emptyRange(gate.gains[i]).gain, most, most};
}

HWY_INLINE auto isUnder(const Range& line, Floats mid, Floats side) {
  return hn::Le(hn::Abs(hn::Add(mid, hn::Mul(side, line.gain))), line.most);
}

HWY_ATTR bool areUnder(std::span<const float> frames, const PeakGate& gate) {
  const std::size_t lanes = hn::Lanes(FloatTag());
  if (lanes < 2 || frames.size() < lanes) return PlainAnalysisKernels::areUnder(frames, gate);
  for (std::size_t g = 0; g < gate.gains.size(); g += 3) {
    const Range a = lineOf(gate, g);
    const Range b = lineOf(gate, g + 1);
    const Range c = lineOf(gate, g + 2);
    auto areAll = hn::Eq(a.gain, a.gain);
    forEachVector(frames, [&](Floats frame) HWY_ATTR {
      const auto mid = hn::DupEven(frame);
      const auto side = hn::DupOdd(frame);
      const auto areTwo = hn::And(isUnder(a, mid, side), isUnder(b, mid, side));
      areAll = hn::And(areAll, hn::And(areTwo, isUnder(c, mid, side)));
    });
    if (!hn::AllTrue(FloatTag(), areAll)) return false;
  }
  return true;
}

// Not Max: what a processor makes of NaN there differs.
HWY_INLINE void raise(float* peak, Floats value) {
  const FloatTag df;
  const auto old = hn::LoadU(df, peak);
  const auto magnitude = hn::Abs(value);
  hn::StoreU(hn::IfThenElse(hn::Gt(magnitude, old), magnitude, old), df, peak);
}

HWY_INLINE bool passes(float mid, float side, const PeakGate& gate) {
  const FloatTag df;
  const std::size_t lanes = hn::Lanes(df);
  std::size_t i = 0;
  for (; i + lanes <= gate.gains.size(); i += lanes) {
    const auto m = hn::Set(df, mid);
    const auto scaled = hn::Mul(hn::Set(df, side), hn::LoadU(df, &gate.gains[i]));
    const auto left = hn::Le(hn::Abs(hn::Add(m, scaled)), hn::LoadU(df, &gate.left[i]));
    const auto right = hn::Le(hn::Abs(hn::Sub(m, scaled)), hn::LoadU(df, &gate.right[i]));
    if (!hn::AllTrue(df, hn::And(left, right))) return true;
  }
  for (; i < gate.gains.size(); ++i) {
    const float scaled = side * gate.gains[i];
    if (!(HWY_MAX(mid + scaled, -mid - scaled) <= gate.left[i])) return true;
    if (!(HWY_MAX(mid - scaled, scaled - mid) <= gate.right[i])) return true;
  }
  return false;
}

HWY_ATTR void raisePeaks(std::span<const float> frames, const PeakGate& gate,
                         std::span<const float> gains, std::span<float> left,
                         std::span<float> right) {
  const FloatTag df;
  const std::size_t lanes = hn::Lanes(df);
  const std::size_t whole = gains.size() / lanes * lanes;
  for (std::size_t i = 0; i + 1 < frames.size(); i += 2) {
    if (!passes(frames[i], frames[i + 1], gate)) continue;
    const auto mid = hn::Set(df, frames[i]);
    const auto side = hn::Set(df, frames[i + 1]);
    for (std::size_t g = 0; g < whole; g += lanes) {
      const auto scaled = hn::Mul(side, hn::LoadU(df, &gains[g]));
      raise(&left[g], hn::Add(mid, scaled));
      raise(&right[g], hn::Sub(mid, scaled));
    }
    PlainAnalysisKernels::raisePeaks(frames.subspan(i, 2), gate, gains.subspan(whole),
                                     left.subspan(whole), right.subspan(whole));
  }
}

HWY_ATTR void interpolate(std::span<const float> frames, std::span<const float> taps,
                          std::span<float> out) {
  const FloatTag df;
  const std::size_t lanes = hn::Lanes(df);
  std::size_t i = 0;
  for (; i + lanes <= out.size(); i += lanes) {
    auto sum = hn::Zero(df);
    for (std::size_t j = 0; j < taps.size(); ++j) {
      sum = hn::Add(sum, hn::Mul(hn::Set(df, taps[j]), hn::LoadU(df, &frames[i + 2 * j])));
    }
    hn::StoreU(sum, df, &out[i]);
  }
  PlainAnalysisKernels::interpolate(frames.subspan(i), taps, out.subspan(i));
}

constexpr std::size_t kDoubles = hn::MaxLanes(DoubleTag());
constexpr std::size_t kVectors = WeighingLanes::kWidth / kDoubles;

template <class D>
HWY_INLINE hn::Vec<D> loadFrames(D d, const Stretches& frames, std::size_t vector, std::size_t i) {
  const hn::FixedTag<float, 2> pair;
  if constexpr (hn::MaxLanes(D()) == 2) {
    return hn::PromoteTo(d, hn::LoadU(pair, frames[vector].data() + i));
  } else {
    const hn::FixedTag<float, 4> pairs;
    const auto low = hn::LoadU(pair, frames[2 * vector].data() + i);
    const auto high = hn::LoadU(pair, frames[2 * vector + 1].data() + i);
    return hn::PromoteTo(d, hn::Combine(pairs, high, low));
  }
}

struct Section {
  HWY_INLINE explicit Section(const Biquad& section)
      : b0(hn::Set(DoubleTag(), section.b0)),
        b1(hn::Set(DoubleTag(), section.b1)),
        b2(hn::Set(DoubleTag(), section.b2)),
        a1(hn::Set(DoubleTag(), section.a1)),
        a2(hn::Set(DoubleTag(), section.a2)) {}

  HWY_INLINE Doubles step(Doubles x, Doubles& first, Doubles& second) const {
    const auto y = hn::Add(hn::Mul(b0, x), first);
    first = hn::Sub(hn::Add(hn::Mul(b1, x), second), hn::Mul(a1, y));
    second = hn::Sub(hn::Mul(b2, x), hn::Mul(a2, y));
    return y;
  }

  Doubles b0, b1, b2, a1, a2;
};

// What `WeighingLanes` has of the stretches of one vector, while it is in registers.
struct Lanes {
  Doubles shelf1, shelf2, high1, high2, weighted, plain, product;

  HWY_INLINE void load(const WeighingLanes& from, std::size_t at) {
    const DoubleTag dd;
    shelf1 = hn::LoadU(dd, &from.shelf1[at]);
    shelf2 = hn::LoadU(dd, &from.shelf2[at]);
    high1 = hn::LoadU(dd, &from.high1[at]);
    high2 = hn::LoadU(dd, &from.high2[at]);
    weighted = hn::LoadU(dd, &from.weighted[at]);
    plain = hn::LoadU(dd, &from.plain[at]);
    product = hn::LoadU(dd, &from.product[at]);
  }

  HWY_INLINE void store(WeighingLanes& to, std::size_t at) const {
    const DoubleTag dd;
    hn::StoreU(shelf1, dd, &to.shelf1[at]);
    hn::StoreU(shelf2, dd, &to.shelf2[at]);
    hn::StoreU(high1, dd, &to.high1[at]);
    hn::StoreU(high2, dd, &to.high2[at]);
    hn::StoreU(weighted, dd, &to.weighted[at]);
    hn::StoreU(plain, dd, &to.plain[at]);
    hn::StoreU(product, dd, &to.product[at]);
  }

  HWY_INLINE void add(Doubles x, const Section& shelf, const Section& highPass) {
    const auto z = highPass.step(shelf.step(x, shelf1, shelf2), high1, high2);
    weighted = hn::Add(weighted, hn::Mul(z, z));
    plain = hn::Add(plain, hn::Mul(x, x));
    product = hn::Add(product, hn::Mul(x, hn::Shuffle01(x)));
  }
};

// Two vectors at a time: each waits for its own last step, so the other one fills the gaps.
HWY_ATTR void weigh(const KWeighting& weighting, const Stretches& frames, WeighingLanes& lanes) {
  const Section shelf(weighting.shelf);
  const Section highPass(weighting.highPass);
  for (std::size_t v = 0; v + 1 < kVectors; v += 2) {
    Lanes a;
    Lanes b;
    a.load(lanes, v * kDoubles);
    b.load(lanes, (v + 1) * kDoubles);
    for (std::size_t i = 0; i + 1 < frames[0].size(); i += 2) {
      a.add(loadFrames(DoubleTag(), frames, v, i), shelf, highPass);
      b.add(loadFrames(DoubleTag(), frames, v + 1, i), shelf, highPass);
    }
    a.store(lanes, v * kDoubles);
    b.store(lanes, (v + 1) * kDoubles);
  }
}

#endif  // HWY_TARGET

}  // namespace
}  // namespace analysis_kernels::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

namespace analysis_kernels {
namespace {

HWY_EXPORT(areFinite);
HWY_EXPORT(raiseExtremes);
HWY_EXPORT(areUnder);
HWY_EXPORT(raisePeaks);
HWY_EXPORT(interpolate);
HWY_EXPORT(weigh);

}  // namespace
}  // namespace analysis_kernels

using namespace analysis_kernels;  // NOLINT(google-build-using-namespace): the dispatch needs it

bool AnalysisKernels::areFinite(std::span<const float> samples) {
  return HWY_DYNAMIC_DISPATCH(areFinite)(samples);
}

void AnalysisKernels::raiseExtremes(std::span<const float> frames, std::span<const float> gains,
                                    std::span<float> extremes) {
  HWY_DYNAMIC_DISPATCH(raiseExtremes)(frames, gains, extremes);
}

bool AnalysisKernels::areUnder(std::span<const float> frames, const PeakGate& gate) {
  return HWY_DYNAMIC_DISPATCH(areUnder)(frames, gate);
}

void AnalysisKernels::raisePeaks(std::span<const float> frames, const PeakGate& gate,
                                 std::span<const float> gains, std::span<float> left,
                                 std::span<float> right) {
  HWY_DYNAMIC_DISPATCH(raisePeaks)(frames, gate, gains, left, right);
}

void AnalysisKernels::interpolate(std::span<const float> frames, std::span<const float> taps,
                                  std::span<float> out) {
  HWY_DYNAMIC_DISPATCH(interpolate)(frames, taps, out);
}

void AnalysisKernels::weigh(const KWeighting& weighting, const HWY_NAMESPACE::Stretches& frames,
                            WeighingLanes& lanes) {
  HWY_DYNAMIC_DISPATCH(weigh)(weighting, frames, lanes);
}

#endif  // HWY_ONCE
