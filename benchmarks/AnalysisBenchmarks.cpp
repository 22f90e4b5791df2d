// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
//
// How fast is each kernel of the analysis, and its plain twin, beside memcpy? Stretches of 4800
// frames, a block of the analysis. The rate counts the bytes of the frames that go in. What one
// processor gets from memory stands beside them. Then a question to the analysis of an hour.

#include <benchmark/benchmark.h>

#include <cmath>
#include <cstring>
#include <memory>
#include <vector>

#include "analysis/TakeAnalysis.h"
#include "analysis/WidthGrid.h"
#include "dsp/AnalysisKernels.h"
#include "dsp/Oversampling.h"
#include "dsp/PlainAnalysisKernels.h"

namespace {

constexpr std::size_t kFloats = 9600;
constexpr std::size_t kFarFloats = std::size_t{16} << 20;  // more than most caches hold

std::vector<float> sound() {
  std::vector<float> frames(kFloats);
  for (std::size_t i = 0; i < kFloats; ++i) frames[i] = std::sin(static_cast<float>(i * i % 9973));
  return frames;
}

void report(benchmark::State& state, std::size_t floats) {
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(floats * sizeof(float)));
}

void copyMemory(benchmark::State& state) {
  const auto from = sound();
  auto to = from;
  for ([[maybe_unused]] auto iteration : state) {
    std::memcpy(to.data(), from.data(), kFloats * sizeof(float));
    benchmark::ClobberMemory();
  }
  report(state, kFloats);
}

void copyFarMemory(benchmark::State& state) {
  const std::vector<float> from(kFarFloats, 0.5F);
  std::vector<float> to(kFarFloats);
  for ([[maybe_unused]] auto iteration : state) {
    std::memcpy(to.data(), from.data(), kFarFloats * sizeof(float));
    benchmark::ClobberMemory();
  }
  report(state, kFarFloats);
}

// By the kernel that does the least with what it reads.
void readFarMemory(benchmark::State& state) {
  const std::vector<float> from(kFarFloats, 0.5F);
  for ([[maybe_unused]] auto iteration : state) {
    benchmark::DoNotOptimize(AnalysisKernels::areFinite(from));
  }
  report(state, kFarFloats);
}

template <class Set>
void areFinite(benchmark::State& state) {
  const auto frames = sound();
  for ([[maybe_unused]] auto iteration : state) {
    benchmark::DoNotOptimize(Set::areFinite(frames));
  }
  report(state, kFloats);
}

template <class Set>
void raiseExtremes(benchmark::State& state) {
  const auto frames = sound();
  std::vector<float> extremes(4 * WidthGrid::kNodes.size());
  for ([[maybe_unused]] auto iteration : state) {
    Set::raiseExtremes(frames, WidthGrid::nodeGains().subspan(1), extremes);
    benchmark::DoNotOptimize(extremes.data());
  }
  report(state, kFloats);
}

template <class Set>
void raiseMagnitudes(benchmark::State& state) {
  const auto frames = sound();
  std::vector<float> peaks(WidthGrid::kPeakNodes.size());
  for ([[maybe_unused]] auto iteration : state) {
    Set::raiseMagnitudes(frames, WidthGrid::peakNodeGains(), peaks);
    benchmark::DoNotOptimize(peaks.data());
  }
  report(state, kFloats);
}

template <class Set>
void areUnder(benchmark::State& state) {
  const auto frames = sound();
  const std::vector<float> line(3, 9.0F);
  const PeakGate gate{WidthGrid::nodeGains().first(3), line, line};
  for ([[maybe_unused]] auto iteration : state) {
    benchmark::DoNotOptimize(Set::areUnder(frames, gate));
  }
  report(state, kFloats);
}

// At the nodes, of frames that all exceed the gate or all do not.
template <class Set>
void raisePeaks(benchmark::State& state, float height) {
  const auto frames = sound();
  const std::vector<float> line(WidthGrid::kNodes.size(), height);
  std::vector<float> left(WidthGrid::kWidths);
  std::vector<float> right(WidthGrid::kWidths);
  for ([[maybe_unused]] auto iteration : state) {
    Set::raisePeaks(frames, {WidthGrid::nodeGains(), line, line}, WidthGrid::sideGains(), left,
                    right);
    benchmark::DoNotOptimize(left.data());
    benchmark::DoNotOptimize(right.data());
  }
  report(state, kFloats);
}

template <class Set>
void leaveOutPeaks(benchmark::State& state) {
  raisePeaks<Set>(state, 9.0F);
}

template <class Set>
void raiseAllPeaks(benchmark::State& state) {
  raisePeaks<Set>(state, -1.0F);
}

template <class Set>
void interpolate(benchmark::State& state) {
  const auto frames = sound();
  std::vector<float> out(kFloats - 2 * (Oversampling::kTaps - 1));
  for ([[maybe_unused]] auto iteration : state) {
    Set::interpolate(frames, Oversampling::phases(4)[0], out);
    benchmark::DoNotOptimize(out.data());
  }
  report(state, kFloats);
}

template <class Set>
void weigh(benchmark::State& state) {
  const auto frames = sound();
  const std::span<const float> all = frames;
  const KWeighting weighting = KWeighting::forRate(48000);
  WeighingLanes lanes;
  for ([[maybe_unused]] auto iteration : state) {
    Set::weigh(weighting, {all, all, all, all}, lanes);
    benchmark::DoNotOptimize(lanes.weighted.data());
  }
  report(state, 4 * kFloats);
}

UnitFindings unitOfAnHour(const TakeLayout& layout, std::size_t index) {
  UnitFindings unit(layout, index);
  for (std::size_t i = 0; i < unit.blocks.size(); ++i) {
    const double power = 50 + 40 * std::sin(static_cast<double>(index + i));
    const auto half = static_cast<float>(power / 2);
    unit.blocks[i] = {{{{half, half / 3}, {half, half / 2}}}, power, power / 2, power / 9};
  }
  for (std::size_t i = 0; i < unit.keys.size(); ++i) {
    unit.keys[i] = UpperKey::of(std::sin(static_cast<float>(i)));
  }
  return unit;
}

std::unique_ptr<TakeAnalysis> hour() {
  TakeFindings findings(TakeLayout(48000, 3600ULL * 48000, true));
  for (std::size_t i = 0; i < findings.units.size(); ++i) {
    findings.units[i] = std::make_shared<const UnitFindings>(unitOfAnHour(findings.layout, i));
  }
  findings.unitsKnown = findings.layout.units();
  return std::make_unique<TakeAnalysis>(std::move(findings));
}

void figuresOfAnHour(benchmark::State& state) {
  const auto analysis = hour();
  int width = 0;
  for ([[maybe_unused]] auto iteration : state) {
    benchmark::DoNotOptimize(analysis->at(width = (width + 1) % 151, 3));
  }
}

// All of it but the ends, which lie within blocks.
void figuresOfAStretch(benchmark::State& state) {
  constexpr std::uint64_t kEnd = 777;
  const auto analysis = hour();
  const std::uint64_t to = analysis->layout().frames() - kEnd;
  int width = 0;
  for ([[maybe_unused]] auto iteration : state) {
    benchmark::DoNotOptimize(analysis->at(width = (width + 1) % 151, 3, kEnd, to));
  }
}

void waveformOfAnHour(benchmark::State& state) {
  const auto analysis = hour();
  int width = 0;
  for ([[maybe_unused]] auto iteration : state) {
    benchmark::DoNotOptimize(
        analysis->waveform(width = (width + 1) % 151, 3, 0, analysis->layout().frames(), 1000));
  }
}

BENCHMARK(copyMemory)->Name("memcpy");
BENCHMARK(copyFarMemory)->Name("memcpy of 64 MiB");
BENCHMARK(readFarMemory)->Name("read of 64 MiB");
BENCHMARK_TEMPLATE(areFinite, AnalysisKernels)->Name("areFinite/vector");
BENCHMARK_TEMPLATE(areFinite, PlainAnalysisKernels)->Name("areFinite/plain");
BENCHMARK_TEMPLATE(raiseExtremes, AnalysisKernels)->Name("raiseExtremes/vector");
BENCHMARK_TEMPLATE(raiseExtremes, PlainAnalysisKernels)->Name("raiseExtremes/plain");
BENCHMARK_TEMPLATE(raiseMagnitudes, AnalysisKernels)->Name("raiseMagnitudes/vector");
BENCHMARK_TEMPLATE(raiseMagnitudes, PlainAnalysisKernels)->Name("raiseMagnitudes/plain");
BENCHMARK_TEMPLATE(areUnder, AnalysisKernels)->Name("areUnder/vector");
BENCHMARK_TEMPLATE(areUnder, PlainAnalysisKernels)->Name("areUnder/plain");
BENCHMARK_TEMPLATE(leaveOutPeaks, AnalysisKernels)->Name("raisePeaks, no frame passes/vector");
BENCHMARK_TEMPLATE(leaveOutPeaks, PlainAnalysisKernels)->Name("raisePeaks, no frame passes/plain");
BENCHMARK_TEMPLATE(raiseAllPeaks, AnalysisKernels)->Name("raisePeaks, every frame passes/vector");
BENCHMARK_TEMPLATE(raiseAllPeaks, PlainAnalysisKernels)
    ->Name("raisePeaks, every frame passes/plain");
BENCHMARK_TEMPLATE(interpolate, AnalysisKernels)->Name("interpolate/vector");
BENCHMARK_TEMPLATE(interpolate, PlainAnalysisKernels)->Name("interpolate/plain");
BENCHMARK_TEMPLATE(weigh, AnalysisKernels)->Name("weigh/vector");
BENCHMARK_TEMPLATE(weigh, PlainAnalysisKernels)->Name("weigh/plain");
BENCHMARK(figuresOfAnHour)->Unit(benchmark::kMillisecond)->Name("figures of an hour");
BENCHMARK(figuresOfAStretch)
    ->Unit(benchmark::kMillisecond)
    ->Name("figures of a stretch of an hour");
BENCHMARK(waveformOfAnHour)->Unit(benchmark::kMillisecond)->Name("waveform of an hour");

}  // namespace

BENCHMARK_MAIN();
