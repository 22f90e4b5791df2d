// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
//
// How fast is each signal kernel, and its plain twin, beside memcpy? A block of 5120 floats, the
// size that an export of floats works in. The rate counts the bytes that a kernel reads and writes,
// as it does for memcpy.

#include <benchmark/benchmark.h>
#include <hwy/targets.h>

#include <cstddef>
#include <cstring>
#include <span>
#include <vector>

#include "dsp/Kernels.h"
#include "dsp/PlainKernels.h"

namespace {

constexpr std::size_t kFloats = 5120;
constexpr std::size_t kFloatBytes = kFloats * sizeof(float);
constexpr std::size_t kPackedBytes = kFloats * 3;

struct Block {
  Block() {
    for (std::size_t i = 0; i < kFloats; ++i) {
      samples[i] = static_cast<float>(static_cast<int>(i * 7919 % 2001) - 1000) / 1100.0F;
    }
    PlainKernels::pack24(samples, packed);
  }
  std::vector<float> samples = std::vector<float>(kFloats);
  std::vector<float> other = std::vector<float>(kFloats);
  std::vector<std::byte> packed = std::vector<std::byte>(kPackedBytes);
};

void report(benchmark::State& state, std::size_t bytes) {
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(bytes));
}

template <class Work>
void measure(benchmark::State& state, std::size_t bytes, Work work) {
  Block block;
  for ([[maybe_unused]] auto iteration : state) {
    work(block);
    benchmark::DoNotOptimize(block.samples.data());
    benchmark::DoNotOptimize(block.other.data());
    benchmark::DoNotOptimize(block.packed.data());
    benchmark::ClobberMemory();
  }
  report(state, bytes);
}

void copyMemory(benchmark::State& state) {
  measure(state, 2 * kFloatBytes,
          [](Block& block) { std::memcpy(block.other.data(), block.samples.data(), kFloatBytes); });
}

template <class Set>
void unpack24(benchmark::State& state) {
  measure(state, kPackedBytes + kFloatBytes,
          [](Block& block) { Set::unpack24(block.packed, std::span(block.other)); });
}

template <class Set>
void pack24(benchmark::State& state) {
  measure(state, kPackedBytes + kFloatBytes,
          [](Block& block) { Set::pack24(block.samples, block.packed); });
}

// A side gain of 0 keeps the values where they are over any number of rounds.
template <class Set>
void decodeMidSide(benchmark::State& state) {
  measure(state, 2 * kFloatBytes, [](Block& block) { Set::decodeMidSide(block.samples, 0.0F); });
}

template <class Set>
void divide(benchmark::State& state) {
  bool isUp = false;
  measure(state, 2 * kFloatBytes, [&isUp](Block& block) {
    const float divisor = isUp ? 1.9952623F : 0.5011872F;
    isUp = !isUp;
    Set::divide(block.samples, divisor, divisor);
  });
}

template <class Set>
void decodeAndDivide(benchmark::State& state) {
  measure(state, 2 * kFloatBytes,
          [](Block& block) { Set::decodeAndDivide(block.samples, 0.0F, 1.0F, 1.0F); });
}

template <class Set>
void recode24(benchmark::State& state) {
  std::vector<std::byte> recoded(kPackedBytes);
  measure(state, 2 * kPackedBytes, [&recoded](Block& block) {
    benchmark::DoNotOptimize(Set::recode24(block.packed, 0.5F, 1.9F, 1.9F, recoded));
  });
}

template <class Set>
void peakMagnitude(benchmark::State& state) {
  measure(state, kFloatBytes,
          [](Block& block) { benchmark::DoNotOptimize(Set::peakMagnitude(block.samples, 0.0F)); });
}

template <class Set>
void decodedPeak24(benchmark::State& state) {
  measure(state, kPackedBytes, [](Block& block) {
    benchmark::DoNotOptimize(Set::decodedPeak24(block.packed, 0.5F, 0.0F));
  });
}

template <class Set>
void raiseMaxima(benchmark::State& state) {
  measure(state, kFloatBytes, [](Block& block) {
    float left = -2.0F;
    float right = -2.0F;
    Set::raiseMaxima(block.samples, left, right);
    benchmark::DoNotOptimize(left + right);
  });
}

BENCHMARK(copyMemory)->Name("memcpy");
BENCHMARK_TEMPLATE(unpack24, Kernels)->Name("unpack24/vector");
BENCHMARK_TEMPLATE(unpack24, PlainKernels)->Name("unpack24/plain");
BENCHMARK_TEMPLATE(pack24, Kernels)->Name("pack24/vector");
BENCHMARK_TEMPLATE(pack24, PlainKernels)->Name("pack24/plain");
BENCHMARK_TEMPLATE(decodeMidSide, Kernels)->Name("decodeMidSide/vector");
BENCHMARK_TEMPLATE(decodeMidSide, PlainKernels)->Name("decodeMidSide/plain");
BENCHMARK_TEMPLATE(divide, Kernels)->Name("divide/vector");
BENCHMARK_TEMPLATE(divide, PlainKernels)->Name("divide/plain");
BENCHMARK_TEMPLATE(decodeAndDivide, Kernels)->Name("decodeAndDivide/vector");
BENCHMARK_TEMPLATE(decodeAndDivide, PlainKernels)->Name("decodeAndDivide/plain");
BENCHMARK_TEMPLATE(recode24, Kernels)->Name("recode24/vector");
BENCHMARK_TEMPLATE(recode24, PlainKernels)->Name("recode24/plain");
BENCHMARK_TEMPLATE(peakMagnitude, Kernels)->Name("peakMagnitude/vector");
BENCHMARK_TEMPLATE(peakMagnitude, PlainKernels)->Name("peakMagnitude/plain");
BENCHMARK_TEMPLATE(decodedPeak24, Kernels)->Name("decodedPeak24/vector");
BENCHMARK_TEMPLATE(decodedPeak24, PlainKernels)->Name("decodedPeak24/plain");
BENCHMARK_TEMPLATE(raiseMaxima, Kernels)->Name("raiseMaxima/vector");
BENCHMARK_TEMPLATE(raiseMaxima, PlainKernels)->Name("raiseMaxima/plain");

}  // namespace

int main(int argc, char** argv) {
  std::vector<float> touch(2);
  Kernels::divide(touch, 1.0F, 1.0F);                     // chooses the instruction set
  const auto sets = hwy::SupportedAndGeneratedTargets();  // none where only one was compiled
  const auto best = sets.empty() ? HWY_STATIC_TARGET : sets.front();
  benchmark::AddCustomContext("instruction set", hwy::TargetName(best));
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
