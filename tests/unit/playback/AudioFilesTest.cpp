// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <gmock/gmock.h>
#include <sys/stat.h>

#include <cstring>

#include "playback/AudioBackends.h"
#include "playback/LimitedAudioFile.h"
#include "playback/memory/MemoryAudioFile.h"
#include "playback/sndfile/SndfileAudioFile.h"
#include "support/TemporaryFolder.h"
#include "support/WaveBytes.h"

namespace {

class AudioFilesTest : public testing::Test {
 protected:
  bool open(const WaveBytes& wave) { return file.open(folder.file("x.wav", wave.get())); }
  std::vector<std::byte> read(std::uint64_t first, std::uint32_t frames) {
    std::vector<std::byte> to(std::size_t{frames} * file.format().bytesPerPacket);
    const AudioFile::Read done = file.readFrames(first, frames, to);
    EXPECT_EQ(done.error, 0);
    to.resize(done.frames * std::size_t{file.format().bytesPerPacket});
    return to;
  }

  TemporaryFolder folder;
  SndfileAudioFile file;
};

TEST_F(AudioFilesTest, TellsTheFormat) {
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
  EXPECT_EQ(file.format().formatFlags, kAudioFormatFlagIsFloat);
  EXPECT_EQ(file.format().bitsPerChannel, 32U);
  EXPECT_EQ(file.format().bytesPerPacket, 4U);
  EXPECT_EQ(file.frameCount(), 2U);
}

TEST_F(AudioFilesTest, ReadsStoredBytesFromAnyFrame) {
  const auto samples = WaveBytes::samples24({1, -2, 3, -4, 5, -6, 7, -8});
  ASSERT_TRUE(open(WaveBytes().bext("TARN J4", "MSRAW=ON").format24().data(samples)));
  EXPECT_EQ(read(0, 10), samples);
  EXPECT_EQ(read(2, 1), WaveBytes::samples24({5, -6}));
  EXPECT_EQ(read(3, 1), WaveBytes::samples24({7, -8}));
  EXPECT_EQ(read(1, 2), WaveBytes::samples24({3, -4, 5, -6}));
  EXPECT_TRUE(read(4, 5).empty());
  EXPECT_TRUE(read(1000, 5).empty());
}

TEST_F(AudioFilesTest, DecodesWhatIsCompressed) {
  const std::vector<std::byte> codes{std::byte{0xFF}, std::byte{0x80}, std::byte{0x00}};
  ASSERT_TRUE(open(WaveBytes().format(7, 1, 8000, 8).data(codes)));
  EXPECT_EQ(file.format().sampleType, SampleType::Float32);
  EXPECT_EQ(file.format().bitsPerChannel, 0U);
  const auto bytes = read(0, 3);
  ASSERT_EQ(bytes.size(), 12U);
  std::array<float, 3> samples{};
  std::memcpy(samples.data(), bytes.data(), 12);
  EXPECT_NEAR(samples[0], 0.0F, 1e-3);
  EXPECT_GT(samples[1], 0.9F);
  EXPECT_LT(samples[2], -0.9F);
}

TEST_F(AudioFilesTest, SaysWhatIsWrong) {
  EXPECT_FALSE(file.open(folder.path() / "none.wav"));
  EXPECT_EQ(file.failure(), "No such file or directory");
  EXPECT_FALSE(file.open(folder.path()));
  EXPECT_FALSE(file.failure().empty());
  EXPECT_FALSE(file.open(folder.file("rubbish", std::vector<std::byte>(100, std::byte{1}))));
  EXPECT_EQ(file.format().bytesPerPacket, 0U);
  EXPECT_EQ(file.frameCount(), 0U);
  std::array<std::byte, 8> to{};
  EXPECT_NE(file.readFrames(0, 1, to).error, 0);
}

TEST_F(AudioFilesTest, DoesNotHangOnAPipe) {
  const auto pipe = folder.path() / "pipe.wav";
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  EXPECT_FALSE(file.open(pipe));
}

TEST_F(AudioFilesTest, ALimitedFileSeemsToEndEarly) {
  const AudioFormat format{10, 0, 1, 1, 1, 8, SampleType::Unsigned8};
  std::vector<std::byte> packets(10);
  for (std::size_t i = 0; i < packets.size(); ++i) packets[i] = static_cast<std::byte>(i);
  const auto limited = [&](double seconds) {
    return LimitedAudioFile(std::make_unique<MemoryAudioFile>(format, packets), seconds);
  };
  EXPECT_EQ(limited(0.0).frameCount(), 0U);
  EXPECT_EQ(limited(0.5).frameCount(), 5U);
  EXPECT_EQ(limited(2.0).frameCount(), 10U);
  LimitedAudioFile half = limited(0.5);
  std::array<std::byte, 10> to{};
  EXPECT_EQ(half.readFrames(3, 10, to).frames, 2U);
  EXPECT_EQ(to[1], std::byte{4});
  EXPECT_EQ(half.readFrames(5, 10, to).frames, 0U);
  EXPECT_EQ(half.readFrames(99, 10, to).frames, 0U);
}

TEST(AudioBackends, AreChosenByName) {
  EXPECT_FALSE(AudioBackends::chooseFile("nobody"));
  EXPECT_FALSE(AudioBackends::chooseOutput("nobody"));
  EXPECT_TRUE(AudioBackends::chooseFile("sndfile"));
  EXPECT_TRUE(AudioBackends::chooseOutput("pulse"));
  EXPECT_NE(dynamic_cast<SndfileAudioFile*>(AudioBackends::makeFile().get()), nullptr);
}

}  // namespace
