// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "playback/wave/WaveAudioFile.h"

#include <gmock/gmock.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>

#include "../wav/RandomWave.h"
#include "playback/SampleConverter.h"
#include "support/LongTake.h"
#include "support/TemporaryFolder.h"
#include "support/WaveBytes.h"
#include "wav/WaveFileReader.h"

using testing::HasSubstr;

namespace {

class WaveAudioFileTest : public testing::Test {
 protected:
  bool open(const WaveBytes& wave) { return openBytes(wave.get()); }
  bool openBytes(const std::vector<std::byte>& bytes) {
    path = folder.file("x.wav", bytes);
    return file.open(path);
  }
  std::vector<std::byte> read(std::uint64_t first, std::uint32_t frames) {
    std::vector<std::byte> to(std::size_t{frames} * file.format().bytesPerPacket);
    const AudioFile::Read done = file.readFrames(first, frames, to);
    EXPECT_EQ(done.error, 0);
    to.resize(done.frames * std::size_t{file.format().bytesPerPacket});
    return to;
  }
  static WaveBytes::Bytes extensible(std::uint16_t tag, std::uint16_t bits,
                                     std::uint32_t speakers = 3) {
    const auto frame = static_cast<std::uint16_t>(bits / 4);
    ByteBuilder format;
    format.u16(0xFFFE).u16(2).u32(48000).u32(48000U * frame).u16(frame).u16(bits);
    return format.u16(22).u16(bits).u32(speakers).u16(tag).zeros(14).get();
  }

  TemporaryFolder folder;
  std::filesystem::path path;
  WaveAudioFile file;
};

TEST_F(WaveAudioFileTest, TellsTheFormat) {
  ASSERT_TRUE(open(WaveBytes().format24().data(WaveBytes::samples24({1, 2, 3, 4, 5, 6}))));
  EXPECT_EQ(file.format().sampleRate, 48000.0);
  EXPECT_EQ(file.format().formatFlags, 0U);
  EXPECT_EQ(file.format().bytesPerPacket, 6U);
  EXPECT_EQ(file.format().framesPerPacket, 1U);
  EXPECT_EQ(file.format().channelsPerFrame, 2U);
  EXPECT_EQ(file.format().bitsPerChannel, 24U);
  EXPECT_EQ(file.format().sampleType, SampleType::Signed24);
  EXPECT_EQ(file.frameCount(), 3U);
  ASSERT_TRUE(open(WaveBytes().format(3, 1, 44100, 32).data(WaveBytes::samplesFloat({1, 2}))));
  EXPECT_EQ(file.format().sampleRate, 44100.0);
  EXPECT_EQ(file.format().formatFlags, kAudioFormatFlagIsFloat);
  EXPECT_EQ(file.format().bitsPerChannel, 32U);
  EXPECT_EQ(file.format().bytesPerPacket, 4U);
  EXPECT_EQ(file.frameCount(), 2U);
}

TEST_F(WaveAudioFileTest, TellsHowIntegersAreStored) {
  const std::vector<std::byte> samples(24);
  for (const auto& [bits, type] : {std::pair{8, SampleType::Unsigned8},
                                   {16, SampleType::Signed16},
                                   {24, SampleType::Signed24},
                                   {32, SampleType::Signed32}}) {
    ASSERT_TRUE(
        open(WaveBytes().format(1, 2, 48000, static_cast<std::uint16_t>(bits)).data(samples)));
    EXPECT_EQ(file.format().sampleType, type);
    EXPECT_EQ(file.format().formatFlags, 0U);
    EXPECT_EQ(file.frameCount(), 24U * 8 / (2 * static_cast<unsigned>(bits)));
  }
}

TEST_F(WaveAudioFileTest, ReadsStoredBytesFromAnyFrame) {
  const auto samples = WaveBytes::samples24({1, -2, 3, -4, 5, -6, 7, -8});
  ASSERT_TRUE(open(WaveBytes().bext("TARN J4", "MSRAW=ON").format24().data(samples)));
  EXPECT_EQ(read(0, 10), samples);
  EXPECT_EQ(read(2, 1), WaveBytes::samples24({5, -6}));
  EXPECT_EQ(read(3, 1), WaveBytes::samples24({7, -8}));
  EXPECT_EQ(read(1, 2), WaveBytes::samples24({3, -4, 5, -6}));
  EXPECT_TRUE(read(4, 5).empty());
  EXPECT_TRUE(read(1000, 5).empty());
}

TEST_F(WaveAudioFileTest, TakesTheExtensibleFormatForWhatItIs) {
  const auto floats = WaveBytes::samplesFloat({0.5F, -0.5F});
  ASSERT_TRUE(open(WaveBytes().chunk("fmt ", extensible(3, 32)).data(floats)));
  EXPECT_EQ(file.format().sampleType, SampleType::Float32);
  EXPECT_EQ(read(0, 1), floats);
  ASSERT_TRUE(open(WaveBytes().chunk("fmt ", extensible(1, 24)).data(floats)));
  EXPECT_EQ(file.format().sampleType, SampleType::Signed24);
  EXPECT_FALSE(open(WaveBytes().chunk("fmt ", extensible(7, 8)).data(floats)));
}

TEST_F(WaveAudioFileTest, TellsWhichSpeakersTheChannelsAreFor) {
  const auto floats = WaveBytes::samplesFloat({0.5F, -0.5F});
  ASSERT_TRUE(open(WaveBytes().chunk("fmt ", extensible(3, 32, 0x30201)).data(floats)));
  EXPECT_EQ(file.format().channelMask, 0x30201U);
  EXPECT_FALSE(open(WaveBytes().chunk("fmt ", extensible(7, 8, 3)).data(floats)));
  EXPECT_EQ(file.format().channelMask, 0U);
  ASSERT_TRUE(open(WaveBytes().format(3, 2, 48000, 32).data(floats)));
  EXPECT_EQ(file.format().channelMask, 0U);
}

TEST_F(WaveAudioFileTest, TellsAtItsEndThatItWasDeleted) {
  const auto samples = WaveBytes::samples24({1, -2, 3, -4});
  ASSERT_TRUE(open(WaveBytes().format24().data(samples)));
  EXPECT_EQ(file.readFrames(2, 1, {}).error, 0);
  std::filesystem::remove(path);
  EXPECT_EQ(read(0, 2), samples);
  EXPECT_EQ(file.readFrames(2, 1, {}).error, ENOENT);
  EXPECT_EQ(file.failure(), "The file has been deleted");
}

TEST_F(WaveAudioFileTest, RefusesWhatItCannotReadAndSaysWhy) {
  const std::vector<std::byte> codes(16);
  EXPECT_FALSE(open(WaveBytes().format(7, 1, 8000, 8).data(codes)));
  EXPECT_EQ(file.failure(), "Samples of 8 bits in format 7 cannot be played");
  EXPECT_FALSE(open(WaveBytes().format(3, 2, 48000, 64).data(codes)));
  EXPECT_FALSE(open(WaveBytes().format(1, 2, 48000, 20).data(codes)));
  EXPECT_FALSE(open(WaveBytes().format(1, 0, 48000, 24).data(codes)));
  EXPECT_EQ(file.failure(), "There are no channels");
  EXPECT_FALSE(open(WaveBytes().format(1, 2, 0, 24).data(codes)));
  EXPECT_EQ(file.failure(), "There is no sample rate");
  EXPECT_FALSE(open(WaveBytes().data(std::vector<std::byte>(100))));
  EXPECT_EQ(file.failure(), "no format chunk");
}

TEST_F(WaveAudioFileTest, SaysWhyAFileIsNotOpened) {
  EXPECT_FALSE(file.open(folder.path() / "none.wav"));
  EXPECT_EQ(file.failure(), "No such file or directory");
  EXPECT_FALSE(file.open(folder.path()));
  EXPECT_EQ(file.failure(), "Is a directory");
  EXPECT_FALSE(openBytes(std::vector<std::byte>(100, std::byte{1})));
  EXPECT_EQ(file.failure(), "not a RIFF file");
  EXPECT_EQ(file.format().bytesPerPacket, 0U);
  EXPECT_EQ(file.frameCount(), 0U);
  std::array<std::byte, 8> to{};
  EXPECT_NE(file.readFrames(0, 1, to).error, 0);
}

TEST_F(WaveAudioFileTest, DoesNotHangOnAPipe) {
  const auto pipe = folder.path() / "pipe.wav";
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  EXPECT_FALSE(file.open(pipe));
  EXPECT_EQ(file.failure(), "Not a regular file");
}

TEST_F(WaveAudioFileTest, AFileThatBecameShorterIsAFailureAfterItsLastFrame) {
  ASSERT_TRUE(open(WaveBytes().format24().data(WaveBytes::samples24({1, 2, 3, 4, 5, 6}))));
  std::filesystem::resize_file(path, std::filesystem::file_size(path) - 7);
  std::array<std::byte, 18> to{};
  EXPECT_EQ(file.readFrames(0, 3, to).frames, 1U);
  const AudioFile::Read beyond = file.readFrames(1, 2, to);
  EXPECT_EQ(beyond.frames, 0U);
  EXPECT_EQ(beyond.error, EIO);
  EXPECT_EQ(file.failure(), "The file became shorter");
}

// The places where readers of such files differ: the chunk after an odd-sized one, repeated chunks,
// a format after the data, sizes that lie.
TEST_F(WaveAudioFileTest, HasTheReadersFrames) {
  const auto samples = WaveBytes::samples24({1, -2, 3, -4, 5, -6, 7, -8});
  const auto few = WaveBytes::samples24({9, 10});
  const std::vector<std::byte> odd(3, std::byte{'x'});
  const auto framesOf = [this](const WaveBytes& wave) {
    EXPECT_TRUE(open(wave));
    EXPECT_EQ(read(0, 100).size(), 6 * file.frameCount());
    return file.frameCount();
  };
  EXPECT_EQ(framesOf(WaveBytes().chunk("junk", odd).format24().data(samples)), 4U);
  EXPECT_EQ(framesOf(WaveBytes().format24().data(samples).data(few)), 1U);
  EXPECT_EQ(framesOf(WaveBytes().data(samples).format24()), 4U);
  EXPECT_EQ(framesOf(WaveBytes().format24().chunk("data", 0xFFFFFFFF, samples)), 0U);
  EXPECT_EQ(framesOf(WaveBytes().format24().chunk("data", 24000, samples)), 4U);
  EXPECT_EQ(framesOf(WaveBytes().format24().chunk("data", 13, samples)), 2U);
}

TEST_F(WaveAudioFileTest, HasTheReadersSamplesInEveryFileThatTheReaderTakes) {
  int played = 0;
  for (std::uint32_t seed = 0; seed < 300; ++seed) {
    const auto bytes = RandomWave(seed).soundFile();
    const auto reader = WaveFileReader::readFromData(bytes);
    if (!openBytes(bytes)) {
      EXPECT_TRUE(!reader->isValidFile() || !file.failure().empty()) << seed;
      continue;
    }
    ASSERT_TRUE(reader->isValidFile()) << seed;
    reader->beginReadSample();
    ASSERT_EQ(file.frameCount(), reader->cursor().framesLeft()) << seed;
    const AudioFormat format = file.format();
    const bool isExact =
        format.sampleType == SampleType::Signed24 || format.sampleType == SampleType::Float32;
    if (format.channelsPerFrame != 2 || !isExact || file.frameCount() == 0) continue;
    std::vector<float> read(2 * file.frameCount());
    reader->cursor().readFrames(read);
    const auto stored = this->read(0, static_cast<std::uint32_t>(file.frameCount()));
    std::vector<float> heard(read.size());
    SampleConverter::toFloats(format.sampleType, stored, heard);
    ASSERT_EQ(std::memcmp(heard.data(), read.data(), read.size() * sizeof(float)), 0) << seed;
    ++played;
  }
  EXPECT_GT(played, 30);
}

std::size_t pagesOfAddresses() {
  std::size_t pages = 0;
  std::ifstream("/proc/self/statm") >> pages;
  return pages;
}

TEST_F(WaveAudioFileTest, HoldsNothingThatGrowsWithTheFile) {
  const auto take = LongTake::make(folder, "long.wav", 3'000'000'000U);
  std::vector<std::byte> to(28800);
  const std::size_t before = pagesOfAddresses();
  ASSERT_TRUE(file.open(take));
  EXPECT_EQ(file.frameCount(), 500'000'000U);
  for (std::uint64_t frame = 0; frame < file.frameCount(); frame += 5'000'000) {
    ASSERT_EQ(file.readFrames(frame, 4800, to).frames, 4800U);
  }
  const auto grown = (pagesOfAddresses() - before) * static_cast<std::size_t>(getpagesize());
  EXPECT_LT(grown, 16U << 20);
}

}  // namespace
