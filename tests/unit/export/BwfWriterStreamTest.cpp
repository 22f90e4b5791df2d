// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "Saving.h"
#include "export/BwfWriter.h"
#include "support/ByteView.h"
#include "support/TemporaryFolder.h"
#include "support/WaveBytes.h"

namespace {

using Bytes = std::vector<std::byte>;
using testing::ElementsAre;
using testing::IsEmpty;

Bytes pattern(std::size_t count) {
  Bytes bytes(count);
  std::uint32_t state = 12345;
  for (std::byte& byte : bytes) {
    state = state * 1664525 + 1013904223;
    byte = static_cast<std::byte>(state >> 24);
  }
  return bytes;
}

class BwfWriterStreamTest : public testing::Test {
 protected:
  BwfWriterStreamTest() { _info.CodingHistory = "odd"; }

  BwfWriter makeWriter() { return {_source.get(), _info, true}; }

  static void writeAll(BwfWriter& writer, const Bytes& samples, std::size_t piece) {
    for (std::size_t i = 0; i < samples.size(); i += piece) {
      const auto count = std::min(piece, samples.size() - i);
      writer.Write(samples.data() + i, static_cast<std::uint32_t>(count));
    }
    writer.FixUpChunkSizes();
  }

  TemporaryFolder _folder;
  std::unique_ptr<WaveFileReader> _source =
      WaveFileReader::readFromData(WaveBytes().format24().recorderBext().data(Bytes(12)).get());
  BextChunkInfo _info;
};

TEST_F(BwfWriterStreamTest, GivesTheSameBytesStreamedAndInMemory) {
  constexpr std::size_t kMany = 3 * (1 << 20);
  for (const std::size_t count : {std::size_t{0}, std::size_t{6}, kMany / 3 - 696, kMany / 3,
                                  kMany - 1, kMany, kMany + 7, 3 * kMany}) {
    const Bytes samples = pattern(count);
    BwfWriter inMemory = makeWriter();
    writeAll(inMemory, samples, 15360);
    ASSERT_TRUE(inMemory.Save2File(_folder.path() / "memory.wav"));
    BwfWriter streamed = makeWriter();
    ASSERT_TRUE(streamed.streamTo(_folder.path() / "stream.wav", kReplace, count + 1000));
    writeAll(streamed, samples, 15360);
    ASSERT_TRUE(streamed.Save2File(_folder.path() / "stream.wav")) << streamed.failure();
    const Bytes expected = TemporaryFolder::read(_folder.path() / "memory.wav");
    EXPECT_EQ(TemporaryFolder::read(_folder.path() / "stream.wav"), expected) << count;
    EXPECT_EQ(ByteView(expected).u32(4), 688 + count);
    EXPECT_EQ(ByteView(expected).size(), 696 + count);
  }
}

TEST_F(BwfWriterStreamTest, TakesPiecesOfAnySize) {
  const Bytes samples = pattern(2700001);
  BwfWriter inMemory = makeWriter();
  writeAll(inMemory, samples, samples.size());
  for (const std::size_t piece : {std::size_t{3}, std::size_t{4}, std::size_t{2700001}}) {
    BwfWriter streamed = makeWriter();
    ASSERT_TRUE(streamed.streamTo(_folder.path() / "stream.wav", kReplace, 0));
    writeAll(streamed, samples, piece);
    ASSERT_TRUE(streamed.Save2File(_folder.path() / "stream.wav"));
    const Bytes saved = TemporaryFolder::read(_folder.path() / "stream.wav");
    EXPECT_TRUE(
        std::equal(saved.begin(), saved.end(), inMemory.data().begin(), inMemory.data().end()))
        << piece;
  }
}

TEST_F(BwfWriterStreamTest, HoldsLittleWhileStreaming) {
  BwfWriter writer = makeWriter();
  ASSERT_TRUE(writer.streamTo(_folder.path() / "out.wav", kReplace, 0));
  const Bytes samples = pattern(15360);
  for (int i = 0; i < 1000; ++i) {
    writer.Write(samples.data(), 15360);
    ASSERT_LE(writer.data().size(), (1U << 20) + 15360);
  }
  EXPECT_EQ(writer.dataLength(), 15360000U);
}

TEST_F(BwfWriterStreamTest, ShowsNothingBeforeItIsSaved) {
  {
    BwfWriter writer = makeWriter();
    ASSERT_TRUE(writer.streamTo(_folder.path() / "out.wav", kReplace, 0));
    writeAll(writer, pattern(1 << 20), 4096);
    EXPECT_FALSE(std::filesystem::exists(_folder.path() / "out.wav"));
  }
  EXPECT_THAT(_folder.names(), IsEmpty());
}

TEST_F(BwfWriterStreamTest, LeavesNothingBehindOnDispose) {
  BwfWriter writer = makeWriter();
  ASSERT_TRUE(writer.streamTo(_folder.path() / "out.wav", kReplace, 0));
  writer.Write(pattern(1 << 20).data(), 1 << 20);
  writer.dispose();
  EXPECT_THAT(_folder.names(), IsEmpty());
  EXPECT_FALSE(writer.Save2File(_folder.path() / "out.wav"));
  EXPECT_THAT(_folder.names(), IsEmpty());
}

TEST_F(BwfWriterStreamTest, RefusesAStreamAfterDispose) {
  for (const bool wasStreamed : {false, true}) {
    BwfWriter writer = makeWriter();
    if (wasStreamed) {
      ASSERT_TRUE(writer.streamTo(_folder.path() / "out.wav", kReplace, 0));
    }
    writer.dispose();
    EXPECT_FALSE(writer.streamTo(_folder.path() / "out.wav", kReplace, 0));
    EXPECT_EQ(writer.failure(), "The file was dropped before it was saved");
    EXPECT_THAT(_folder.names(), IsEmpty());
  }
}

TEST_F(BwfWriterStreamTest, SavesAStreamOnceAndOnlyToItsOwnPath) {
  BwfWriter writer = makeWriter();
  ASSERT_TRUE(writer.streamTo(_folder.path() / "out.wav", kReplace, 0));
  writeAll(writer, pattern(600), 6);
  EXPECT_FALSE(writer.Save2File(_folder.path() / "other.wav"));
  EXPECT_TRUE(writer.Save2File(_folder.path() / "out.wav"));
  EXPECT_FALSE(writer.Save2File(_folder.path() / "out.wav"));
  EXPECT_THAT(_folder.names(), ElementsAre("out.wav"));
}

TEST_F(BwfWriterStreamTest, SavesFromMemoryAsOftenAsAsked) {
  BwfWriter writer = makeWriter();
  writeAll(writer, pattern(600), 6);
  EXPECT_TRUE(writer.Save2File(_folder.path() / "a.wav"));
  EXPECT_TRUE(writer.Save2File(_folder.path() / "b.wav"));
  EXPECT_TRUE(writer.Save2File(_folder.path() / "a.wav"));
  EXPECT_THAT(_folder.names(), ElementsAre("a.wav", "b.wav"));
  EXPECT_EQ(TemporaryFolder::read(_folder.path() / "a.wav"),
            TemporaryFolder::read(_folder.path() / "b.wav"));
}

TEST_F(BwfWriterStreamTest, TellsWhyItCannotSave) {
  BwfWriter writer = makeWriter();
  EXPECT_EQ(writer.failure(), "");
  EXPECT_FALSE(writer.Save2File(_folder.path() / "missing" / "out.wav"));
  EXPECT_EQ(writer.failure(), "No such file or directory");
  EXPECT_FALSE(writer.Save2File(_folder.path()));
  EXPECT_EQ(writer.failure(), "Is a directory");
  EXPECT_TRUE(writer.Save2File(_folder.path() / "out.wav"));
  EXPECT_EQ(writer.failure(), "");
}

TEST_F(BwfWriterStreamTest, RefusesToStreamWhereItMayNot) {
  const auto old = _folder.file("old.wav", pattern(10));
  BwfWriter writer = makeWriter();
  EXPECT_FALSE(writer.streamTo(old, AtomicFile::Existing::Refuse, 0));
  EXPECT_EQ(writer.failure(), "File exists");
  EXPECT_FALSE(writer.streamTo(_folder.path() / "new.wav", kReplace, std::uint64_t{1} << 60));
  EXPECT_EQ(writer.failure(), "No space left on device");
  EXPECT_EQ(TemporaryFolder::read(old), pattern(10));
  EXPECT_THAT(_folder.names(), ElementsAre("old.wav"));
}

TEST_F(BwfWriterStreamTest, GoesOnWithItsStreamWhereAnotherComesTooLate) {
  const Bytes samples = pattern(600000);
  BwfWriter wanted = makeWriter();
  writeAll(wanted, samples, 60000);
  BwfWriter writer = makeWriter();
  ASSERT_TRUE(writer.streamTo(_folder.path() / "out.wav", kReplace, 0));
  writer.Write(samples.data(), 400000);
  EXPECT_FALSE(writer.streamTo(_folder.path() / "late.wav", kReplace, 0));
  EXPECT_EQ(writer.failure(), "Sample bytes have been written already");
  writer.Write(samples.data() + 400000, 200000);
  writer.FixUpChunkSizes();
  EXPECT_TRUE(writer.Save2File(_folder.path() / "out.wav"));
  EXPECT_THAT(_folder.names(), ElementsAre("out.wav"));
  EXPECT_EQ(TemporaryFolder::read(_folder.path() / "out.wav"),
            Bytes(wanted.data().begin(), wanted.data().end()));
}

TEST_F(BwfWriterStreamTest, TellsWhyASaveIsRefused) {
  BwfWriter writer = makeWriter();
  ASSERT_TRUE(writer.streamTo(_folder.path() / "out.wav", kReplace, 0));
  writeAll(writer, pattern(600), 6);
  EXPECT_FALSE(writer.Save2File(_folder.path() / "other.wav"));
  EXPECT_EQ(writer.failure(), "The file was written for another place");
  EXPECT_TRUE(writer.Save2File(_folder.path() / "out.wav"));
  EXPECT_FALSE(writer.Save2File(_folder.path() / "out.wav"));
  EXPECT_EQ(writer.failure(), "The file has been saved already");
}

TEST_F(BwfWriterStreamTest, MendsNoSizesAfterDispose) {
  BwfWriter writer = makeWriter();
  ASSERT_TRUE(writer.streamTo(_folder.path() / "out.wav", kReplace, 0));
  writer.Write(pattern(600).data(), 600);
  writer.dispose();
  writer.FixUpChunkSizes();
  EXPECT_FALSE(writer.Save2File(_folder.path() / "out.wav"));
  EXPECT_EQ(writer.failure(), "The file was dropped before it was saved");
  EXPECT_THAT(_folder.names(), IsEmpty());
}

}  // namespace
