// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "takes/AnalysisBytes.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <string>
#include <utility>

#include "analysis/TakeFindings.h"
#include "transfer/ContentHash.h"

namespace {

constexpr std::size_t kSumBytes = 32;  // of the checksum, as digits

/// What tells that the bytes are meant for this program, and of what. Native numbers: another kind
/// of machine reads another magic number.
struct Head {
  std::uint64_t magic = 0x31736973796C616E;
  std::uint64_t version = AnalysisBytes::kVersion;
  std::uint64_t sampleRate = 0;
  std::uint64_t frames = 0;
  std::uint64_t isRawMidSide = 0;

  explicit Head(const TakeLayout& layout)
      : sampleRate(layout.sampleRate()),
        frames(layout.frames()),
        isRawMidSide(layout.isRawMidSide() ? 1 : 0) {}
};

template <class Value>
std::span<const std::byte> bytesOf(const std::vector<Value>& values) {
  return std::as_bytes(std::span(values));
}

std::string sumOf(std::span<const std::byte> bytes) {
  ContentHash hash;
  hash.add(bytes);
  return hash.hex();
}

/// All parts of the findings, in one order for reading and writing.
template <class Findings, class Visit>
void visitParts(Findings& findings, const Visit& visit) {
  visit(findings.blocks);
  visit(findings.keys);
  visit(findings.peakKeys);
}

void append(std::vector<std::byte>& all, std::span<const std::byte> part) {
  all.insert(all.end(), part.begin(), part.end());
}

void append(std::vector<std::byte>& all, const PeakEnvelope& peaks) {
  append(all, std::as_bytes(peaks.lefts()));
  append(all, std::as_bytes(peaks.rights()));
}

// Takes the next bytes into what has its size already.
template <class Value>
void take(std::span<const std::byte>& rest, std::vector<Value>& values) {
  const std::size_t count = values.size() * sizeof(Value);
  if (count > 0) std::memcpy(values.data(), rest.data(), count);
  rest = rest.subspan(count);
}

PeakEnvelope takePeaks(std::span<const std::byte>& rest, const PeakEnvelope& like) {
  std::vector<float> left(like.lefts().size());
  std::vector<float> right(left.size());
  take(rest, left);
  take(rest, right);
  return {like, left, right};
}

std::size_t sizeOfParts(const TakeFindings& findings) {
  std::size_t size = 0;
  visitParts(findings, [&](const auto& part) { size += bytesOf(part).size(); });
  const std::size_t peaks = findings.samplePeaks.lefts().size_bytes();
  return size + 4 * peaks;
}

}  // namespace

std::vector<std::byte> AnalysisBytes::write(const TakeAnalysis& analysis) {
  const TakeFindings& findings = analysis.findings();
  const Head head(findings.layout);
  std::vector<std::byte> all;
  all.reserve(sizeof head + sizeOfParts(findings) + kSumBytes);
  append(all, std::as_bytes(std::span(&head, 1)));
  visitParts(findings, [&](const auto& part) { append(all, bytesOf(part)); });
  append(all, findings.samplePeaks);
  append(all, findings.truePeaks);
  const std::string sum = sumOf(all);
  append(all, std::as_bytes(std::span(sum)));
  return all;
}

std::size_t AnalysisBytes::sizeOf(const TakeLayout& layout) {
  return sizeof(Head) + sizeOfParts(TakeFindings(layout)) + kSumBytes;
}

std::shared_ptr<const TakeAnalysis> AnalysisBytes::read(std::span<const std::byte> bytes,
                                                        const TakeLayout& layout) {
  TakeFindings findings(layout);
  const Head head(layout);
  if (bytes.size() != sizeof head + sizeOfParts(findings) + kSumBytes) return nullptr;
  if (std::memcmp(bytes.data(), &head, sizeof head) != 0) return nullptr;
  const std::string sum = sumOf(bytes.first(bytes.size() - kSumBytes));
  if (!std::ranges::equal(bytes.last(kSumBytes), std::as_bytes(std::span(sum)))) return nullptr;
  std::span<const std::byte> rest = bytes.subspan(sizeof head);
  visitParts(findings, [&](auto& part) { take(rest, part); });
  findings.samplePeaks = takePeaks(rest, findings.samplePeaks);
  findings.truePeaks = takePeaks(rest, findings.truePeaks);
  findings.unitsKnown = layout.units();
  return std::make_shared<const TakeAnalysis>(std::move(findings));
}
