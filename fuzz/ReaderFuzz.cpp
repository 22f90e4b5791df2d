// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
//
// Arbitrary bytes through the WAVE reader. An input is `from`, `to`, `gain` and `angle` of a level
// measurement (doubles), a byte for the block length, a byte whose lowest bit says raw Mid/Side,
// and the file; see WaveRecipe.h.

#include <limits>

#include "FuzzInput.h"
#include "WaveRecipe.h"
#include "dsp/GainStage.h"
#include "dsp/PlainKernels.h"
#include "dsp/SideGain.h"
#include "wav/WaveFileReader.h"

namespace {

constexpr double kBeforeAll = -std::numeric_limits<double>::infinity();

struct Levels {
  explicit Levels(FuzzInput& input)
      : from(input.take<double>()),
        to(input.take<double>()),
        gain(input.take<double>()),
        angle(input.take<double>()) {}
  double from, to, gain, angle;
};

using Pair = std::array<float, 2>;

void checkChunks(const WaveFileReader& reader) {
  const auto image = std::as_bytes(std::span(reader.raw().bytes, reader.raw().length));
  for (const ChunkInfo& chunk : reader.chunks()) {
    const WavArray data = reader.getChunkData(chunk);
    require(data.length <= chunk.chunkSize, "a payload is no longer than its size field says");
    const auto payload = std::as_bytes(std::span(data.bytes, data.length));
    require(data.length == 0 ||
                std::ranges::equal(payload, image.subspan(chunk.streamPos, data.length)),
            "a payload is a piece of the file");
    const std::string text = WaveFileReader::DecodeAsString(data.bytes, data.length);
    require(text.find('\0') == std::string::npos, "a text has no zero");
    require(text.size() <= 2 * data.length, "a byte is one character");
  }
  const auto isBext = [](const ChunkInfo& chunk) { return chunk.chunkID == 0x74786562; };
  const auto first = std::ranges::find_if(reader.chunks(), isBext);
  const auto found = reader.getBextChunk();
  require(found.has_value() == (first != reader.chunks().end()), "a bext chunk is found");
  require(!found || found->streamPos == first->streamPos, "the first bext chunk counts");
}

void checkEnd(WaveFileReader& reader) {
  Pair frame{};
  require(reader.isFinishReadSample(), "nothing follows the last frame");
  require(!reader.readNextSample(frame[0], frame[1]), "no frame at the end");
  require(frame == Pair{-2.0F, -2.0F}, "no frame shows as -2");
}

void checkBlocksAgainstSingles(WaveFileReader& reader, std::size_t blockFrames) {
  std::array<float, 512> buffer{};
  Pair single{};
  SampleCursor blocks = reader.cursor();
  blocks.beginReadSample();
  reader.beginReadSample();
  std::uint64_t left = blocks.framesLeft();
  while (const auto count = blocks.readFrames(std::span(buffer).first(2 * blockFrames))) {
    for (std::size_t i = 0; i < count; ++i) {
      const auto frame = reader.image()->bytes().subspan(reader.readDataIdx());
      require(reader.readNextSample(single[0], single[1]), "a block holds no more than singles");
      require(isSameSample(single[0], buffer[2 * i]), "left is the same in a block");
      require(isSameSample(single[1], buffer[2 * i + 1]), "right is the same in a block");
      Pair again{-2.0F, -2.0F};
      reader.getSample(again[0], again[1], frame);
      require(isSameSample(single[0], again[0]), "left is the same by itself");
      require(isSameSample(single[1], again[1]), "right is the same by itself");
    }
    left -= count;
  }
  require(left == 0, "blocks hold every frame");
  checkEnd(reader);
}

Pair measure(WaveFileReader& reader, double from, double to, double gain, double angle) {
  Pair levels{};
  reader.getSampleLevelMeterFrom(from, to, levels[0], levels[1], gain, angle);
  return levels;
}

// The maxima frame by frame, over the stretch that a measurement went through.
Pair maximaOneByOne(WaveFileReader& reader, const Levels& levels) {
  reader.setIsBoMSFormat(false);
  measure(reader, levels.from, kBeforeAll, 0, 0);
  SampleCursor cursor = reader.cursor();
  measure(reader, levels.from, levels.to, 0, 0);
  Pair maxima{-2.0F, -2.0F};
  Pair frame{};
  while (cursor.readDataIdx() < reader.readDataIdx()) {
    require(cursor.readNextSample(frame[0], frame[1]), "a measured frame can be read");
    PlainKernels::raiseMaxima(frame, maxima[0], maxima[1]);
  }
  return maxima;
}

void checkLevels(WaveFileReader& reader, const Levels& levels, bool isRaw) {
  Pair expected = maximaOneByOne(reader, levels);
  reader.setIsBoMSFormat(isRaw);
  const Pair measured = measure(reader, levels.from, levels.to, levels.gain, levels.angle);
  const float side = SideGain::factor(WaveFileReader::wholeAngle(levels.angle));
  const float divisor = GainStage::factor(levels.gain);
  const bool hasFrames = reader.cursor().frameBytes() > 0;
  if (hasFrames && isRaw) PlainKernels::decodeMidSide(expected, side);
  if (hasFrames) PlainKernels::divide(expected, divisor, divisor);
  require(isSameSample(measured[0], expected[0]), "the left level is the highest sample");
  require(isSameSample(measured[1], expected[1]), "the right level is the highest sample");
}

void checkDisposed(WaveFileReader& reader, const Levels& levels) {
  reader.dispose();
  checkEnd(reader);
  checkChunks(reader);
  const Pair nothing = measure(reader, levels.from, levels.to, levels.gain, levels.angle);
  require(nothing == Pair{-2.0F, -2.0F}, "a disposed reader measures nothing");
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzInput input(data, size);
  const Levels levels(input);
  const std::size_t blockFrames = 1 + input.take<std::uint8_t>();
  const bool isRaw = (input.take<std::uint8_t>() & 1) != 0;
  const auto reader = WaveFileReader::readFromData(recipe::takeFile(input));
  WaveFileReader copy = *reader;
  require(reader->isValidFile() == reader->whyInvalid().empty(), "what is invalid has a reason");
  require(reader->durationSeconds() >= 0, "a duration is a number of seconds");
  checkChunks(*reader);
  checkBlocksAgainstSingles(*reader, blockFrames);
  checkLevels(*reader, levels, isRaw);
  checkDisposed(*reader, levels);
  checkBlocksAgainstSingles(copy, blockFrames);
  return 0;
}
