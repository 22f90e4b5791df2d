// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "dsp/Kernels.h"

#include <array>
#include <cstdint>

#include "dsp/PlainKernels.h"

// This file is compiled once for each instruction set that the compiler knows.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "dsp/Kernels.cpp"
#include <hwy/foreach_target.h>  // IWYU pragma: keep
#include <hwy/highway.h>

HWY_BEFORE_NAMESPACE();
namespace kernels::HWY_NAMESPACE {
namespace {

#if HWY_TARGET == HWY_SCALAR  // a processor without vectors that fit: the plain loops

void unpack24(const std::uint8_t* bytes, float* samples, std::size_t count) {
  PlainKernels::unpack24(std::as_bytes(std::span(bytes, 3 * count)), std::span(samples, count));
}

void pack24(const float* samples, std::uint8_t* bytes, std::size_t count) {
  PlainKernels::pack24(std::span(samples, count),
                       std::as_writable_bytes(std::span(bytes, 3 * count)));
}

void decodeMidSide(float* frames, std::size_t count, float sideGain) {
  PlainKernels::decodeMidSide(std::span(frames, count), sideGain);
}

float divide(float* frames, std::size_t count, float left, float right) {
  return PlainKernels::divide(std::span(frames, count), left, right);
}

float decodeAndDivide(float* frames, std::size_t count, float sideGain, float left, float right) {
  return PlainKernels::decodeAndDivide(std::span(frames, count), sideGain, left, right);
}

float peakMagnitude(const float* samples, std::size_t count, float peak) {
  return PlainKernels::peakMagnitude(std::span(samples, count), peak);
}

void raiseMaxima(const float* frames, std::size_t count, float& left, float& right) {
  PlainKernels::raiseMaxima(std::span(frames, count), left, right);
}

#else

namespace hn = hwy::HWY_NAMESPACE;

// Where the width of a vector is known at run time only, its bound would be taken for it below.
#if HWY_HAVE_SCALABLE
using FloatTag = hn::FixedTag<float, 4>;
#else
using FloatTag = hn::ScalableTag<float>;
#endif
using ByteTag = hn::Repartition<std::uint8_t, FloatTag>;
using Int32Tag = hn::RebindToSigned<FloatTag>;

// Four 24-bit samples are 12 bytes, so each 16-byte block of a vector reads or writes at a stride
// of 12, and touches 4 bytes beyond what it is for.
constexpr std::size_t kPackedBlock = 12;
constexpr std::size_t kBlock = 16;
using BlockPattern = std::array<std::uint8_t, kBlock>;

// A shuffle of one block, repeated for every block of a vector.
template <class D>
HWY_INLINE hn::Vec<D> shuffle(D d, const BlockPattern& pattern) {
  return hn::LoadDup128(d, pattern.data());
}

template <class D>
HWY_INLINE hn::Vec<D> loadPacked(D d, const std::uint8_t* from) {
  if constexpr (hn::MaxLanes(D()) <= kBlock) {
    return hn::LoadU(d, from);
  } else {
    const hn::Half<D> half;
    constexpr std::size_t kHalfPacked = hn::MaxLanes(D()) / 2 / kBlock * kPackedBlock;
    return hn::Combine(d, loadPacked(half, from + kHalfPacked), loadPacked(half, from));
  }
}

template <class D>
HWY_INLINE void storePacked(D d, hn::Vec<D> value, std::uint8_t* to) {
  if constexpr (hn::MaxLanes(D()) <= kBlock) {
    hn::StoreU(value, d, to);
  } else {
    const hn::Half<D> half;
    constexpr std::size_t kHalfPacked = hn::MaxLanes(D()) / 2 / kBlock * kPackedBlock;
    storePacked(half, hn::LowerHalf(half, value), to);
    storePacked(half, hn::UpperHalf(half, value), to + kHalfPacked);
  }
}

// Samples that whole vectors may handle when each touches 4 bytes more than it owns.
HWY_INLINE std::size_t packedVectorEnd(std::size_t count, std::size_t lanes) {
  constexpr std::size_t kOverrunSamples = 2;
  if (count < lanes + kOverrunSamples) return 0;
  return (count - kOverrunSamples) / lanes * lanes;
}

HWY_ATTR void unpack24(const std::uint8_t* bytes, float* samples, std::size_t count) {
  const FloatTag df;
  const ByteTag db;
  const Int32Tag di;
  // Each sample goes to the top three bytes of a lane, that is 256 times its value: exact in a
  // float, as is the product with a power of two.
  static constexpr BlockPattern kPattern = {0x80, 0, 1, 2, 0x80, 3, 4,  5,
                                            0x80, 6, 7, 8, 0x80, 9, 10, 11};
  const auto pattern = shuffle(db, kPattern);
  const auto scale = hn::Set(df, 4.656612873077393e-10F);  // 2^-31
  const std::size_t lanes = hn::Lanes(df);
  const std::size_t end = packedVectorEnd(count, lanes);
  for (std::size_t i = 0; i < end; i += lanes) {
    const auto lifted = hn::TableLookupBytesOr0(loadPacked(db, bytes + 3 * i), pattern);
    const auto value = hn::ConvertTo(df, hn::BitCast(di, lifted));
    hn::StoreU(hn::Mul(value, scale), df, samples + i);
  }
  PlainKernels::unpack24(std::as_bytes(std::span(bytes + 3 * end, 3 * (count - end))),
                         std::span(samples + end, count - end));
}

HWY_ATTR void pack24(const float* samples, std::uint8_t* bytes, std::size_t count) {
  const FloatTag df;
  const ByteTag db;
  const Int32Tag di;
  static constexpr BlockPattern kPattern = {0,  1,  2,  4,  5,    6,    8,    9,
                                            10, 12, 13, 14, 0x80, 0x80, 0x80, 0x80};
  const auto pattern = shuffle(db, kPattern);
  const auto one = hn::Set(df, 1.0F);
  const auto minusOne = hn::Set(df, -1.0F);
  const auto scale = hn::Set(df, 8388607.0F);
  const auto top = hn::Set(df, 8388607.0F);
  const auto bottom = hn::Set(df, -8388608.0F);
  const auto zero = hn::Zero(df);
  const std::size_t lanes = hn::Lanes(df);
  const std::size_t end = packedVectorEnd(count, lanes);
  for (std::size_t i = 0; i < end; i += lanes) {
    const auto x = hn::LoadU(df, samples + i);
    const auto inside = hn::And(hn::Gt(x, minusOne), hn::Lt(x, one));
    const auto clipped = hn::IfThenElse(hn::Gt(x, zero), top, bottom);
    const auto scaled = hn::IfThenElse(inside, hn::Mul(x, scale), clipped);
    const auto packed =
        hn::TableLookupBytesOr0(hn::BitCast(db, hn::ConvertTo(di, scaled)), pattern);
    storePacked(db, packed, bytes + 3 * i);
  }
  PlainKernels::pack24(std::span(samples + end, count - end),
                       std::as_writable_bytes(std::span(bytes + 3 * end, 3 * (count - end))));
}

// The steps of the frame kernels, on whole frames that fill a vector.
template <class V>
HWY_INLINE V decoded(V frame, V sideGain) {
  const auto mid = hn::DupEven(frame);
  const auto side = hn::Mul(hn::DupOdd(frame), sideGain);
  return hn::OddEven(hn::Sub(mid, side), hn::Add(mid, side));
}

template <class V, class M>
HWY_INLINE V divided(V frame, V divisor, M isZero) {
  return hn::IfThenElse(isZero, frame, hn::Div(frame, divisor));
}

// Not Max: what a processor makes of NaN there differs.
template <class V>
HWY_INLINE V larger(V candidate, V old) {
  return hn::IfThenElse(hn::Gt(candidate, old), candidate, old);
}

HWY_ATTR void decodeMidSide(float* frames, std::size_t count, float sideGain) {
  const FloatTag df;
  const auto gain = hn::Set(df, sideGain);
  const std::size_t lanes = hn::Lanes(df);
  std::size_t i = 0;
  for (; lanes > 1 && i + lanes <= count; i += lanes) {
    hn::StoreU(decoded(hn::LoadU(df, frames + i), gain), df, frames + i);
  }
  PlainKernels::decodeMidSide(std::span(frames + i, count - i), sideGain);
}

HWY_ATTR float divide(float* frames, std::size_t count, float left, float right) {
  const FloatTag df;
  const auto divisor = hn::OddEven(hn::Set(df, right), hn::Set(df, left));
  const auto isZero = hn::Eq(divisor, hn::Zero(df));
  auto most = hn::Zero(df);
  const std::size_t lanes = hn::Lanes(df);
  std::size_t i = 0;
  for (; lanes > 1 && i + lanes <= count; i += lanes) {
    const auto quotient = divided(hn::LoadU(df, frames + i), divisor, isZero);
    most = larger(hn::Abs(quotient), most);
    hn::StoreU(quotient, df, frames + i);
  }
  const float peak = hn::GetLane(hn::MaxOfLanes(df, most));
  const float last = PlainKernels::divide(std::span(frames + i, count - i), left, right);
  return HWY_MAX(peak, last);
}

HWY_ATTR float decodeAndDivide(float* frames, std::size_t count, float sideGain, float left,
                               float right) {
  const FloatTag df;
  const auto gain = hn::Set(df, sideGain);
  const auto divisor = hn::OddEven(hn::Set(df, right), hn::Set(df, left));
  const auto isZero = hn::Eq(divisor, hn::Zero(df));
  auto most = hn::Zero(df);
  const std::size_t lanes = hn::Lanes(df);
  std::size_t i = 0;
  for (; lanes > 1 && i + lanes <= count; i += lanes) {
    const auto frame = decoded(hn::LoadU(df, frames + i), gain);
    const auto quotient = divided(frame, divisor, isZero);
    most = larger(hn::Abs(quotient), most);
    hn::StoreU(quotient, df, frames + i);
  }
  const float peak = hn::GetLane(hn::MaxOfLanes(df, most));
  const std::span rest(frames + i, count - i);
  const float last = PlainKernels::decodeAndDivide(rest, sideGain, left, right);
  return HWY_MAX(peak, last);
}

HWY_ATTR float peakMagnitude(const float* samples, std::size_t count, float peak) {
  const FloatTag df;
  const std::size_t lanes = hn::Lanes(df);
  auto peak0 = hn::Set(df, peak);
  auto peak1 = peak0;
  std::size_t i = 0;
  for (; i + 2 * lanes <= count; i += 2 * lanes) {
    peak0 = larger(hn::Abs(hn::LoadU(df, samples + i)), peak0);
    peak1 = larger(hn::Abs(hn::LoadU(df, samples + i + lanes)), peak1);
  }
  peak = hn::GetLane(hn::MaxOfLanes(df, larger(peak0, peak1)));
  return PlainKernels::peakMagnitude(std::span(samples + i, count - i), peak);
}

// A zero may come from another lane than the first zero of the channel: then +0 and -0 are told
// apart by looking again in order.
HWY_INLINE float firstZero(const float* frames, std::size_t count, std::size_t channel,
                           float fallback) {
  if (fallback == 0.0F) return fallback;
  for (std::size_t i = channel; i < count; i += 2) {
    if (frames[i] == 0.0F) return frames[i];
  }
  return 0.0F;
}

HWY_ATTR void raiseMaxima(const float* frames, std::size_t count, float& left, float& right) {
  const FloatTag df;
  const std::size_t lanes = hn::Lanes(df);
  auto best = hn::OddEven(hn::Set(df, right), hn::Set(df, left));
  std::size_t i = 0;
  for (; lanes > 1 && i + lanes <= count; i += lanes) {
    best = larger(hn::LoadU(df, frames + i), best);
  }
  const float oldLeft = left;
  const float oldRight = right;
  left = hn::GetLane(hn::MaxOfLanes(df, hn::DupEven(best)));
  right = hn::GetLane(hn::MaxOfLanes(df, hn::DupOdd(best)));
  if (left == 0.0F) left = firstZero(frames, i, 0, oldLeft);
  if (right == 0.0F) right = firstZero(frames, i, 1, oldRight);
  PlainKernels::raiseMaxima(std::span(frames + i, count - i), left, right);
}

#endif  // HWY_TARGET

}  // namespace
}  // namespace kernels::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

namespace kernels {
namespace {

HWY_EXPORT(unpack24);
HWY_EXPORT(pack24);
HWY_EXPORT(decodeMidSide);
HWY_EXPORT(divide);
HWY_EXPORT(decodeAndDivide);
HWY_EXPORT(peakMagnitude);
HWY_EXPORT(raiseMaxima);

const std::uint8_t* raw(std::span<const std::byte> bytes) {
  return reinterpret_cast<const std::uint8_t*>(bytes.data());
}

std::uint8_t* raw(std::span<std::byte> bytes) {
  return reinterpret_cast<std::uint8_t*>(bytes.data());
}

}  // namespace
}  // namespace kernels

using namespace kernels;  // NOLINT(google-build-using-namespace): the dispatch macros need it

void Kernels::unpack24(std::span<const std::byte> bytes, std::span<float> samples) {
  HWY_DYNAMIC_DISPATCH(unpack24)(raw(bytes), samples.data(), samples.size());
}

void Kernels::pack24(std::span<const float> samples, std::span<std::byte> bytes) {
  HWY_DYNAMIC_DISPATCH(pack24)(samples.data(), raw(bytes), samples.size());
}

void Kernels::decodeMidSide(std::span<float> frames, float sideGain) {
  HWY_DYNAMIC_DISPATCH(decodeMidSide)(frames.data(), frames.size(), sideGain);
}

float Kernels::divide(std::span<float> frames, float left, float right) {
  return HWY_DYNAMIC_DISPATCH(divide)(frames.data(), frames.size(), left, right);
}

float Kernels::decodeAndDivide(std::span<float> frames, float sideGain, float left, float right) {
  return HWY_DYNAMIC_DISPATCH(decodeAndDivide)(frames.data(), frames.size(), sideGain, left, right);
}

float Kernels::peakMagnitude(std::span<const float> samples, float peak) {
  return HWY_DYNAMIC_DISPATCH(peakMagnitude)(samples.data(), samples.size(), peak);
}

void Kernels::raiseMaxima(std::span<const float> frames, float& left, float& right) {
  HWY_DYNAMIC_DISPATCH(raiseMaxima)(frames.data(), frames.size(), left, right);
}

#endif  // HWY_ONCE
