// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "dsp/Kernels.h"

#include <algorithm>
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

// So many samples of 24 bits, as the plain loops take them.
HWY_INLINE std::span<const std::byte> packedBytes(const std::uint8_t* bytes, std::size_t samples) {
  return std::as_bytes(std::span(bytes, 3 * samples));
}
HWY_INLINE std::span<std::byte> packedBytes(std::uint8_t* bytes, std::size_t samples) {
  return std::as_writable_bytes(std::span(bytes, 3 * samples));
}

#if HWY_TARGET == HWY_SCALAR  // a processor without vectors that fit: the plain loops

void unpack24(const std::uint8_t* bytes, float* samples, std::size_t count) {
  PlainKernels::unpack24(packedBytes(bytes, count), std::span(samples, count));
}

void pack24(const float* samples, std::uint8_t* bytes, std::size_t count) {
  PlainKernels::pack24(std::span(samples, count), packedBytes(bytes, count));
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

float recode24(const std::uint8_t* from, std::uint8_t* to, std::size_t count, float sideGain,
               float left, float right) {
  return PlainKernels::recode24(packedBytes(from, count), sideGain, left, right,
                                packedBytes(to, count));
}

float peakMagnitude(const float* samples, std::size_t count, float peak) {
  return PlainKernels::peakMagnitude(std::span(samples, count), peak);
}

float decodedPeak24(const std::uint8_t* bytes, std::size_t count, float sideGain, float peak) {
  return PlainKernels::decodedPeak24(packedBytes(bytes, count), sideGain, peak);
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
using WordTag = hn::RebindToUnsigned<FloatTag>;

// Four 24-bit samples are 12 bytes: three words of a 16-byte block. A vector is read and written
// whole, a quarter of which is beyond what it is for.
constexpr std::size_t kBlock = 16;
constexpr std::size_t kBlockWords = 4;
constexpr std::size_t kPackedWords = 3;
using BlockPattern = std::array<std::uint8_t, kBlock>;
using WordPattern = std::array<std::int32_t, hn::MaxLanes(WordTag())>;

// A shuffle of one block, repeated for every block of a vector.
HWY_INLINE hn::Vec<ByteTag> shuffle(const BlockPattern& pattern) {
  return hn::LoadDup128(ByteTag(), pattern.data());
}

// Which word each one of a vector comes from, where pieces of so many words become pieces of
// others.
constexpr WordPattern wordsOf(std::size_t from, std::size_t to) {
  WordPattern pattern{};
  for (std::size_t i = 0; i < pattern.size(); ++i) {
    const std::size_t word = i / to * from + i % to;
    pattern[i] = static_cast<std::int32_t>(std::min(word, pattern.size() - 1));
  }
  return pattern;
}

HWY_INLINE hn::Vec<ByteTag> moveWords(hn::Vec<ByteTag> bytes, const WordPattern& pattern) {
  const WordTag words;
  const auto moved =
      hn::TableLookupLanes(hn::BitCast(words, bytes), hn::SetTableIndices(words, pattern.data()));
  return hn::BitCast(ByteTag(), moved);
}

HWY_INLINE hn::Vec<ByteTag> loadPacked(const std::uint8_t* from) {
  static constexpr WordPattern kPattern = wordsOf(kPackedWords, kBlockWords);
  auto bytes = hn::LoadU(ByteTag(), from);
  if constexpr (hn::MaxLanes(ByteTag()) > kBlock) bytes = moveWords(bytes, kPattern);
  return bytes;
}

HWY_INLINE void storePacked(hn::Vec<ByteTag> bytes, std::uint8_t* to) {
  static constexpr WordPattern kPattern = wordsOf(kBlockWords, kPackedWords);
  if constexpr (hn::MaxLanes(ByteTag()) > kBlock) bytes = moveWords(bytes, kPattern);
  hn::StoreU(bytes, ByteTag(), to);
}

// Samples that whole vectors may handle when each touches a quarter more than it owns.
HWY_INLINE std::size_t packedVectorEnd(std::size_t count, std::size_t lanes) {
  const std::size_t beyond = (lanes + kPackedWords - 1) / kPackedWords;
  if (count < lanes + beyond) return 0;
  return (count - beyond) / lanes * lanes;
}

// Each sample goes to the top three bytes of a lane, that is 256 times its value: exact in a float,
// as is the product with a power of two.
HWY_INLINE hn::Vec<FloatTag> unpacked(const std::uint8_t* bytes) {
  const FloatTag df;
  static constexpr BlockPattern kPattern = {0x80, 0, 1, 2, 0x80, 3, 4,  5,
                                            0x80, 6, 7, 8, 0x80, 9, 10, 11};
  const auto lifted = hn::TableLookupBytesOr0(loadPacked(bytes), shuffle(kPattern));
  const auto value = hn::ConvertTo(df, hn::BitCast(Int32Tag(), lifted));
  return hn::Mul(value, hn::Set(df, 4.656612873077393e-10F));  // 2^-31
}

HWY_ATTR void unpack24(const std::uint8_t* bytes, float* samples, std::size_t count) {
  const FloatTag df;
  const std::size_t lanes = hn::Lanes(df);
  const std::size_t end = packedVectorEnd(count, lanes);
  for (std::size_t i = 0; i < end; i += lanes) {
    hn::StoreU(unpacked(bytes + 3 * i), df, samples + i);
  }
  const std::span rest(samples + end, count - end);
  PlainKernels::unpack24(packedBytes(bytes + 3 * end, rest.size()), rest);
}

// What is not over -1 is the least value, what is not a number too.
HWY_INLINE hn::Vec<ByteTag> packed(hn::Vec<FloatTag> samples) {
  const FloatTag df;
  static constexpr BlockPattern kPattern = {0,  1,  2,  4,  5,    6,    8,    9,
                                            10, 12, 13, 14, 0x80, 0x80, 0x80, 0x80};
  const auto top = hn::Set(df, 8388607.0F);
  const auto scaled = hn::Min(hn::Mul(samples, top), top);
  const auto isInside = hn::Gt(samples, hn::Set(df, -1.0F));
  const auto values = hn::IfThenElse(isInside, scaled, hn::Set(df, -8388608.0F));
  const auto bytes = hn::BitCast(ByteTag(), hn::ConvertTo(Int32Tag(), values));
  return hn::TableLookupBytesOr0(bytes, shuffle(kPattern));
}

HWY_ATTR void pack24(const float* samples, std::uint8_t* bytes, std::size_t count) {
  const FloatTag df;
  const std::size_t lanes = hn::Lanes(df);
  const std::size_t end = packedVectorEnd(count, lanes);
  for (std::size_t i = 0; i < end; i += lanes) {
    storePacked(packed(hn::LoadU(df, samples + i)), bytes + 3 * i);
  }
  const std::span rest(samples + end, count - end);
  PlainKernels::pack24(rest, packedBytes(bytes + 3 * end, rest.size()));
}

// The steps of the frame kernels, on whole frames that fill a vector.
template <class V>
HWY_INLINE V decoded(V frame, V sideGain) {
  const auto mid = hn::DupEven(frame);
  const auto side = hn::Mul(hn::DupOdd(frame), sideGain);
  return hn::OddEven(hn::Sub(mid, side), hn::Add(mid, side));
}

// What the elements of whole frames are divided by; 0 leaves an element as it is, as 1 does.
HWY_INLINE hn::Vec<FloatTag> divisors(float left, float right) {
  const FloatTag df;
  const auto both = hn::OddEven(hn::Set(df, right), hn::Set(df, left));
  return hn::IfThenElse(hn::Eq(both, hn::Zero(df)), hn::Set(df, 1.0F), both);
}

// The old one where the candidate is not a number or the other zero. Max is that on x86, in one
// step; what it makes of them elsewhere differs.
template <class V>
HWY_INLINE V larger(V candidate, V old) {
#if HWY_ARCH_X86 && HWY_TARGET != HWY_EMU128
  return hn::Max(candidate, old);
#else
  return hn::IfThenElse(hn::Gt(candidate, old), candidate, old);
#endif
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
  const auto divisor = divisors(left, right);
  auto most = hn::Zero(df);
  const std::size_t lanes = hn::Lanes(df);
  std::size_t i = 0;
  for (; lanes > 1 && i + lanes <= count; i += lanes) {
    const auto quotient = hn::Div(hn::LoadU(df, frames + i), divisor);
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
  const auto divisor = divisors(left, right);
  auto most = hn::Zero(df);
  const std::size_t lanes = hn::Lanes(df);
  std::size_t i = 0;
  for (; lanes > 1 && i + lanes <= count; i += lanes) {
    const auto quotient = hn::Div(decoded(hn::LoadU(df, frames + i), gain), divisor);
    most = larger(hn::Abs(quotient), most);
    hn::StoreU(quotient, df, frames + i);
  }
  const float peak = hn::GetLane(hn::MaxOfLanes(df, most));
  const std::span rest(frames + i, count - i);
  const float last = PlainKernels::decodeAndDivide(rest, sideGain, left, right);
  return HWY_MAX(peak, last);
}

// One vector is divided while others are unpacked and packed.
HWY_ATTR float recode24(const std::uint8_t* from, std::uint8_t* to, std::size_t count,
                        float sideGain, float left, float right) {
  const FloatTag df;
  const auto gain = hn::Set(df, sideGain);
  const auto divisor = divisors(left, right);
  auto most = hn::Zero(df);
  const std::size_t lanes = hn::Lanes(df);
  const std::size_t end = lanes > 1 ? packedVectorEnd(count, lanes) : 0;
  for (std::size_t i = 0; i < end; i += lanes) {
    const auto quotient = hn::Div(decoded(unpacked(from + 3 * i), gain), divisor);
    most = larger(hn::Abs(quotient), most);
    storePacked(packed(quotient), to + 3 * i);
  }
  const float peak = hn::GetLane(hn::MaxOfLanes(df, most));
  const float last = PlainKernels::recode24(packedBytes(from + 3 * end, count - end), sideGain,
                                            left, right, packedBytes(to + 3 * end, count - end));
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

HWY_ATTR float decodedPeak24(const std::uint8_t* bytes, std::size_t count, float sideGain,
                             float peak) {
  const FloatTag df;
  const auto gain = hn::Set(df, sideGain);
  auto most = hn::Set(df, peak);
  const std::size_t lanes = hn::Lanes(df);
  const std::size_t end = lanes > 1 ? packedVectorEnd(count, lanes) : 0;
  for (std::size_t i = 0; i < end; i += lanes) {
    most = larger(hn::Abs(decoded(unpacked(bytes + 3 * i), gain)), most);
  }
  peak = hn::GetLane(hn::MaxOfLanes(df, most));
  return PlainKernels::decodedPeak24(packedBytes(bytes + 3 * end, count - end), sideGain, peak);
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
HWY_EXPORT(recode24);
HWY_EXPORT(peakMagnitude);
HWY_EXPORT(decodedPeak24);
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

float Kernels::recode24(std::span<const std::byte> from, float sideGain, float left, float right,
                        std::span<std::byte> to) {
  return HWY_DYNAMIC_DISPATCH(recode24)(raw(from), raw(to), from.size() / 3, sideGain, left, right);
}

float Kernels::peakMagnitude(std::span<const float> samples, float peak) {
  return HWY_DYNAMIC_DISPATCH(peakMagnitude)(samples.data(), samples.size(), peak);
}

float Kernels::decodedPeak24(std::span<const std::byte> frames, float sideGain, float peak) {
  return HWY_DYNAMIC_DISPATCH(decodedPeak24)(raw(frames), frames.size() / 3, sideGain, peak);
}

void Kernels::raiseMaxima(std::span<const float> frames, float& left, float& right) {
  HWY_DYNAMIC_DISPATCH(raiseMaxima)(frames.data(), frames.size(), left, right);
}

#endif  // HWY_ONCE
