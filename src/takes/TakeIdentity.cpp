// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "takes/TakeIdentity.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "transfer/ContentHash.h"
#include "wav/WaveHeader.h"
#include "wav/WaveImage.h"

namespace {

constexpr std::uint64_t kMost = TakeIdentity::kMostOfEach;

/// A hash over numbers and parts of a file, which are told apart by where they lie.
class Digest {
 public:
  explicit Digest(const WaveImage& image) : _image(image) {}

  void add(std::uint64_t number) {
    std::array<std::byte, sizeof number> bytes{};
    for (std::size_t i = 0; i < bytes.size(); ++i) {
      bytes[i] = static_cast<std::byte>(number >> 8 * i);
    }
    _hash.add(bytes);
  }
  void add(std::uint64_t offset, std::uint64_t count) {
    const auto bytes = _image.view(offset, static_cast<std::size_t>(count), _scratch);
    _isWhole = _isWhole && bytes.size() == count;
    add(offset);
    add(count);
    _hash.add(bytes);
  }
  [[nodiscard]] std::string text() const { return _isWhole ? _hash.hex() : std::string(); }

 private:
  const WaveImage& _image;
  ContentHash _hash;
  std::vector<std::byte> _scratch;
  bool _isWhole = true;
};

// As much of what begins there as the file has.
std::uint64_t within(const WaveImage& image, std::uint64_t offset, std::uint64_t count) {
  return std::min(count, image.size() - std::min(offset, image.size()));
}

void addExtension(const WaveFileReader& reader, Digest& digest) {
  const auto chunk = reader.getBextChunk().value_or(ChunkInfo());
  const std::uint64_t count = std::min(chunk.chunkSize, kMost);
  digest.add(chunk.streamPos, within(*reader.image(), chunk.streamPos, count));
}

void addStretches(const WaveFileReader& reader, Digest& digest) {
  const std::uint64_t begin = reader.header().dataChunkPosition;
  const std::uint64_t count = within(*reader.image(), begin, reader.header().dataChunkLength);
  const std::uint64_t part = std::min(count, kMost);
  digest.add(count);
  for (const std::uint64_t skipped : {std::uint64_t{0}, (count - part) / 2, count - part}) {
    digest.add(begin + skipped, part);
  }
}

}  // namespace

std::string TakeIdentity::of(const WaveFileReader& reader) {
  if (!reader.isValidFile() || !reader.image()) return {};
  const WaveImage& image = *reader.image();
  Digest digest(image);
  digest.add(image.size());
  addExtension(reader, digest);
  digest.add(0, within(image, 0, std::min(reader.header().dataChunkPosition, kMost)));
  addStretches(reader, digest);
  return digest.text();
}
