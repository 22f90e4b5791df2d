// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
//
// Any bytes as an analysis that was kept: as they stand, or as its content with a right head and a
// right checksum, or with those and one bit that is wrong. What is read is what is there, what is
// not right is refused, and any question can be asked of what is read.

#include <algorithm>
#include <memory>
#include <string>

#include "FuzzInput.h"
#include "takes/AnalysisBytes.h"
#include "transfer/ContentHash.h"

namespace {

using Bytes = std::vector<std::byte>;
using Analysis = std::shared_ptr<const TakeAnalysis>;

constexpr std::size_t kHeadBytes = 40;
constexpr std::size_t kSumBytes = 32;
constexpr std::uint32_t kMostFrames = 300'000;
constexpr std::array<std::uint32_t, 6> kRates{0, 8000, 11'025, 48'000, 96'000, 768'000};

enum class Mode : std::uint8_t { AsTheyStand, AsContent, WithAWrongBit };

struct Question {
  explicit Question(FuzzInput& input)
      : mode(static_cast<Mode>(input.take<std::uint8_t>() % 3)),
        rate(kRates[input.take<std::uint8_t>() % kRates.size()]),
        isRaw((input.take<std::uint8_t>() & 1) != 0),
        width(input.take<std::uint8_t>()),
        gain(input.take<std::int8_t>()),
        frames(input.take<std::uint32_t>() % kMostFrames),
        wrongBit(input.take<std::uint32_t>()),
        columns(input.take<std::uint16_t>() % 600),
        from(input.take<std::uint32_t>()),
        to(input.take<std::uint32_t>()) {}

  Mode mode;
  std::uint32_t rate;
  bool isRaw;
  int width;
  double gain;
  std::uint64_t frames;
  std::size_t wrongBit;
  std::size_t columns;
  std::uint64_t from, to;
};

Analysis readFrom(std::span<const std::byte> all, const TakeLayout& layout) {
  return AnalysisBytes::read(
      [&all](std::span<std::byte> bytes) {
        if (bytes.size() > all.size()) return false;
        std::copy_n(all.begin(), bytes.size(), bytes.begin());
        all = all.subspan(bytes.size());
        return true;
      },
      layout);
}

Bytes written(const TakeAnalysis& analysis) {
  Bytes all;
  const bool isWhole = AnalysisBytes::write(analysis, [&all](std::span<const std::byte> bytes) {
    all.insert(all.end(), bytes.begin(), bytes.end());
    return true;
  });
  require(isWhole, "a complete analysis is written");
  return all;
}

TakeAnalysis nothingHeard(const TakeLayout& layout) {
  TakeFindings findings(layout);
  for (std::size_t i = 0; i < findings.units.size(); ++i) {
    findings.units[i] = std::make_shared<const UnitFindings>(layout, i);
  }
  findings.unitsKnown = findings.units.size();
  return TakeAnalysis(std::move(findings));
}

/// Right bytes of this layout, with as much of the content as there is.
Bytes rightBytes(const TakeLayout& layout, const Bytes& content) {
  Bytes all = written(nothingHeard(layout));
  require(all.size() == AnalysisBytes::sizeOf(layout), "as many bytes as announced");
  const auto body = std::span(all).subspan(kHeadBytes, all.size() - kHeadBytes - kSumBytes);
  std::copy_n(content.begin(), std::min(content.size(), body.size()), body.begin());
  ContentHash hash;
  hash.add(std::span<const std::byte>(all).first(all.size() - kSumBytes));
  const std::string sum = hash.hex();
  std::ranges::copy(std::as_bytes(std::span(sum)), std::span(all).last(kSumBytes).begin());
  return all;
}

// Whatever the numbers are: none of it may break.
void ask(const TakeAnalysis& analysis, const Question& question) {
  require(analysis.isComplete(), "what is read is whole");
  static_cast<void>(analysis.at(question.width, question.gain));
  static_cast<void>(analysis.at(question.width, question.gain, question.from, question.to));
  static_cast<void>(analysis.momentaryLufs(question.width, question.gain, question.from));
  static_cast<void>(analysis.shortTermLufs(question.width, question.gain, question.to));
  const Waveform wave = analysis.waveform(question.width, question.gain, question.from, question.to,
                                          question.columns);
  require(wave.columns.size() == question.columns, "as many columns as asked for");
}

void check(std::span<const std::byte> bytes, const TakeLayout& layout, const Question& question) {
  const Analysis found = readFrom(bytes, layout);
  if (!found) return require(question.mode != Mode::AsContent, "what is right is read");
  require(question.mode != Mode::WithAWrongBit, "what is wrong is refused");
  const Bytes again = written(*found);
  require(std::ranges::equal(again, bytes.first(std::min(again.size(), bytes.size()))),
          "what is read is what was there");
  ask(*found, question);
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzInput input(data, size);
  const Question question(input);
  const TakeLayout layout(question.rate, question.frames, question.isRaw);
  Bytes bytes = input.takeRest();
  if (question.mode != Mode::AsTheyStand) bytes = rightBytes(layout, bytes);
  if (question.mode == Mode::WithAWrongBit) {
    bytes[question.wrongBit / 8 % bytes.size()] ^= std::byte{1} << question.wrongBit % 8;
  }
  check(bytes, layout, question);
  return 0;
}
