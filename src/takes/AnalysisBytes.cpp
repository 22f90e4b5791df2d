// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "takes/AnalysisBytes.h"

#include <array>
#include <cstring>
#include <string>
#include <utility>
#include <vector>

#include "analysis/BinKeys.h"
#include "analysis/TakeFindings.h"
#include "analysis/UnitFindings.h"
#include "analysis/WidthGrid.h"
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

std::span<const std::byte> bytesOf(const std::string& text) {
  return std::as_bytes(std::span(text));
}

/// Adds what passes to the checksum.
class Writing {
 public:
  explicit Writing(const AnalysisBytes::Sink& sink) : _sink(sink) {}

  bool put(std::span<const std::byte> bytes) {
    _hash.add(bytes);
    return _sink(bytes);
  }
  bool put(const UnitFindings& unit) {
    return put(std::as_bytes(std::span(unit.blocks))) && put(std::as_bytes(std::span(unit.keys))) &&
           put(std::as_bytes(std::span(unit.peakKeys)));
  }
  bool put(const PeakEnvelope& peaks) {
    return put(std::as_bytes(peaks.lefts())) && put(std::as_bytes(peaks.rights()));
  }
  bool end() { return _sink(bytesOf(_hash.hex())); }

 private:
  const AnalysisBytes::Sink& _sink;
  ContentHash _hash;
};

/// The same the other way round.
class Reading {
 public:
  explicit Reading(const AnalysisBytes::Source& source) : _source(source) {}

  bool take(std::span<std::byte> bytes) {
    if (!_source(bytes)) return false;
    _hash.add(bytes);
    return true;
  }
  template <class Value>
  bool take(std::vector<Value>& values) {
    return take(std::as_writable_bytes(std::span(values)));
  }
  bool take(UnitFindings& unit) {
    return take(unit.blocks) && take(unit.keys) && take(unit.peakKeys);
  }
  bool take(PeakEnvelope& peaks) {
    std::vector<float> left(peaks.lefts().size());
    std::vector<float> right(left.size());
    if (!take(left) || !take(right)) return false;
    peaks = PeakEnvelope(peaks, left, right);
    return true;
  }
  bool isRight() {
    std::string sum(kSumBytes, '\0');
    return _source(std::as_writable_bytes(std::span(sum))) && sum == _hash.hex();
  }

 private:
  const AnalysisBytes::Source& _source;
  ContentHash _hash;
};

bool takeHead(Reading& reading, const TakeLayout& layout) {
  const Head wanted(layout);
  std::array<std::byte, sizeof wanted> bytes{};
  return reading.take(bytes) && std::memcmp(bytes.data(), &wanted, sizeof wanted) == 0;
}

bool takeUnits(Reading& reading, TakeFindings& findings) {
  for (std::size_t i = 0; i < findings.units.size(); ++i) {
    const auto unit = std::make_shared<UnitFindings>(findings.layout, i);
    if (!reading.take(*unit)) return false;
    findings.units[i] = unit;
  }
  findings.unitsKnown = findings.units.size();
  return true;
}

}  // namespace

bool AnalysisBytes::write(const TakeAnalysis& analysis, const Sink& sink) {
  const TakeFindings& findings = analysis.findings();
  const Head head(findings.layout);
  Writing writing(sink);
  if (!writing.put(std::as_bytes(std::span(&head, 1)))) return false;
  for (const TakeFindings::Unit& unit : findings.units) {
    if (!unit || !writing.put(*unit)) return false;
  }
  return writing.put(findings.samplePeaks) && writing.put(findings.truePeaks) && writing.end();
}

std::uint64_t AnalysisBytes::sizeOf(const TakeLayout& layout) {
  const std::uint64_t peakNodes = layout.isRawMidSide() ? WidthGrid::kPeakNodes.size() : 0;
  const std::uint64_t keys =
      layout.bins() * BinKeys::planes(layout.isRawMidSide()) + layout.blocks() * peakNodes;
  const std::uint64_t peaks = 4 * PeakEnvelope(layout.isRawMidSide()).lefts().size_bytes();
  return sizeof(Head) + layout.blocks() * sizeof(BlockSums) + keys * sizeof(UpperKey::Key) + peaks +
         kSumBytes;
}

std::shared_ptr<const TakeAnalysis> AnalysisBytes::read(const Source& source,
                                                        const TakeLayout& layout,
                                                        const FileState& file) {
  Reading reading(source);
  if (!takeHead(reading, layout)) return nullptr;
  TakeFindings findings(layout);
  findings.file = file;
  const bool isWhole = takeUnits(reading, findings) && reading.take(findings.samplePeaks) &&
                       reading.take(findings.truePeaks) && reading.isRight();
  return isWhole ? std::make_shared<const TakeAnalysis>(std::move(findings)) : nullptr;
}
