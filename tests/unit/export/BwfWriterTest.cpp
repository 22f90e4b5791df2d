// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "export/BwfWriter.h"

#include <gtest/gtest.h>
#include <stdlib.h>
#include <time.h>

#include <chrono>
#include <memory>
#include <string>
#include <vector>

#include "support/ByteBuilder.h"
#include "support/ByteView.h"
#include "support/TemporaryFolder.h"
#include "support/WaveBytes.h"

namespace {

using Bytes = std::vector<std::byte>;

constexpr const char* kHistory = "A=PCM,F=48000,W=24,M=stereo,T=J4;VERSION=1.00;MSRAW=OFF;";

std::unique_ptr<WaveFileReader> sourceOf(std::uint16_t channels, std::uint32_t rate) {
  const Bytes bytes =
      WaveBytes().format(1, channels, rate, 24).recorderBext().data(Bytes(12)).get();
  return WaveFileReader::readFromData(bytes);
}

BextChunkInfo extension(const std::string& history = kHistory) {
  BextChunkInfo info;
  info.Description = "A walk";
  info.Originator = "TARN J4";
  info.OriginatorReference = "REF7";
  info.UniqueMaterialIdentifier = "UMID9";
  info.CodingHistory = history;
  info.OriginationDateTime = std::chrono::system_clock::from_time_t(1000000000);
  return info;
}

Bytes whole(const BwfWriter& writer) {
  return {writer.data().begin(), writer.data().end()};
}

/// The finished file with these sample bytes, held in memory.
ByteView fileWith(const BextChunkInfo& info, bool is24bit, const Bytes& samples) {
  const auto source = sourceOf(2, 48000);
  BwfWriter writer(source.get(), info, is24bit);
  writer.Write(samples.data(), static_cast<std::uint32_t>(samples.size()));
  writer.FixUpChunkSizes();
  return ByteView(whole(writer));
}

/// Dates are the user's: here the user lives at UTC.
class BwfWriterTest : public testing::Test {
 protected:
  BwfWriterTest() {
    if (const char* zone = getenv("TZ")) _zone = zone;
    setenv("TZ", "UTC0", 1);
    tzset();
  }
  ~BwfWriterTest() override {
    if (_zone.empty()) {
      unsetenv("TZ");
    } else {
      setenv("TZ", _zone.c_str(), 1);
    }
    tzset();
  }

 private:
  std::string _zone;
};

TEST_F(BwfWriterTest, WritesEveryFieldOf24Bit) {
  const auto source = sourceOf(2, 48000);
  BextChunkInfo info = extension();
  info.TimeReference = 0x0102030405060708;
  info.Version = 2;
  info.Reserved.bytes[0] = 0xAB;
  info.Reserved.bytes[189] = 0xCD;
  BwfWriter writer(source.get(), info, true);
  const Bytes samples = WaveBytes::samples24({1, -1, 8388607, -8388608});
  writer.Write(samples.data(), static_cast<std::uint32_t>(samples.size()));
  writer.FixUpChunkSizes();

  const Bytes expected = ByteBuilder()
                             .text("RIFF")          // 0
                             .u32(748 + 12 - 8)     // 4: file length less 8
                             .text("WAVE")          // 8
                             .text("JUNK")          // 12
                             .u32(28)               // 16
                             .zeros(28)             // 20
                             .text("bext")          // 48
                             .u32(602 + 56)         // 52
                             .field("A walk", 256)  // 56: description
                             .field("TARN J4", 32)  // 312: originator
                             .field("REF7", 32)     // 344: originator reference
                             .text("2001-09-09")    // 376: origination date
                             .text("01:46:40")      // 386: origination time
                             .u32(0x05060708)       // 394: time reference, low half first
                             .u32(0x01020304)       // 398: its high half
                             .u16(2)                // 402: version
                             .field("UMID9", 64)    // 404: unique material identifier
                             .u8(0xAB)              // 468: reserved, as it stands
                             .zeros(188)            // 469
                             .u8(0xCD)              // 657
                             .text(kHistory)        // 658: 56 characters, no terminator
                             .text("fmt ")          // 714
                             .u32(18)               // 718
                             .u16(1)                // 722: integer PCM
                             .u16(2)                // 724: channels
                             .u32(48000)            // 726: rate
                             .u32(288000)           // 730: byte rate
                             .u16(6)                // 734: block align
                             .u16(24)               // 736: bits per sample
                             .u16(0)                // 738: extension size
                             .text("data")          // 740
                             .u32(12)               // 744
                             .u8(0x01)              // 748: 1
                             .u16(0)
                             .u8(0xFF)  // 751: -1
                             .u16(0xFFFF)
                             .u8(0xFF)  // 754: the largest
                             .u16(0x7FFF)
                             .u8(0x00)  // 757: the smallest
                             .u16(0x8000)
                             .get();
  EXPECT_EQ(whole(writer), expected);
  EXPECT_EQ(writer.dataLength(), 12U);
  EXPECT_EQ(writer.dataChunkSizePosition(), 744U);
}

TEST_F(BwfWriterTest, WritesTheFormatOfFloat) {
  const ByteView file = fileWith(extension(), false, WaveBytes::samplesFloat({0.5F, -2.0F}));
  EXPECT_EQ(file.size(), 748U + 8U);
  EXPECT_EQ(file.text(714, 4), "fmt ");
  EXPECT_EQ(file.u32(718), 18U);         // extended form
  EXPECT_EQ(file.u16(722), 3U);          // IEEE float
  EXPECT_EQ(file.u32(730), 384000U);     // byte rate
  EXPECT_EQ(file.u16(734), 8U);          // block align
  EXPECT_EQ(file.u16(736), 32U);         // bits
  EXPECT_EQ(file.u16(738), 0U);          // extension size
  EXPECT_EQ(file.text(740, 4), "data");  // and no fact chunk before it
  EXPECT_EQ(file.u32(744), 8U);
  EXPECT_EQ(file.u32(748), 0x3F000000U);  // 0.5
  EXPECT_EQ(file.u32(752), 0xC0000000U);  // -2.0
}

TEST_F(BwfWriterTest, CountsThePadByteOfAnOddHistory) {
  const ByteView file = fileWith(extension("ABC"), true, Bytes(6));
  EXPECT_EQ(file.u32(52), 602U + 3U + 1U);
  EXPECT_EQ(file.text(658, 8), std::string("ABC\0fmt ", 8));
  EXPECT_EQ(file.u32(4), file.size() - 8);
  EXPECT_EQ(file.size(), 692U + 4U + 6U);
}

TEST_F(BwfWriterTest, GivesHistoriesOf57And58CharactersTheSameSize) {
  const ByteView odd = fileWith(extension(std::string(57, 'x')), true, {});
  const ByteView even = fileWith(extension(std::string(58, 'x')), true, {});
  EXPECT_EQ(odd.u32(52), 660U);
  EXPECT_EQ(even.u32(52), 660U);
  EXPECT_EQ(odd.text(714, 6), std::string("x\0fmt ", 6));
  EXPECT_EQ(even.text(714, 6), "xxfmt ");
}

TEST_F(BwfWriterTest, CutsLongTextsWithoutTerminator) {
  BextChunkInfo info = extension();
  info.Description = std::string(256, 'd') + std::string(44, 'X');
  info.Originator = std::string(32, 'o') + "X";
  info.OriginatorReference = std::string(32, 'r') + "X";
  info.UniqueMaterialIdentifier = std::string(64, 'u') + "X";
  const ByteView file = fileWith(info, true, {});
  EXPECT_EQ(file.text(56, 256), std::string(256, 'd'));
  EXPECT_EQ(file.text(312, 32), std::string(32, 'o'));
  EXPECT_EQ(file.text(344, 32), std::string(32, 'r'));
  EXPECT_EQ(file.text(376, 10), "2001-09-09");
  EXPECT_EQ(file.text(404, 64), std::string(64, 'u'));
  EXPECT_EQ(file.text(468, 190), std::string(190, '\0'));
}

TEST_F(BwfWriterTest, KeepsAnyLengthOfHistory) {
  const std::string history(70001, 'h');
  const ByteView file = fileWith(extension(history), true, {});
  EXPECT_EQ(file.u32(52), 602U + 70002U);
  EXPECT_EQ(file.text(658, 70002), history + '\0');
  EXPECT_EQ(file.text(658 + 70002, 4), "fmt ");
}

TEST_F(BwfWriterTest, LeavesAFieldEmptyWhoseTextIsNotAscii) {
  BextChunkInfo info = extension();
  info.Description = "Gr\xC3\xBC\xC3\x9F";
  info.Originator = "TARN J4 \xE2\x99\xAA";
  const ByteView file = fileWith(info, true, {});
  EXPECT_EQ(file.text(56, 256), std::string(256, '\0'));
  EXPECT_EQ(file.text(312, 32), std::string(32, '\0'));
  EXPECT_EQ(file.text(344, 4), "REF7");
}

TEST_F(BwfWriterTest, LeavesOutAHistoryThatIsNotAscii) {
  const ByteView file = fileWith(extension("\xC3\xA4"), true, {});
  EXPECT_EQ(file.u32(52), 602U);
  EXPECT_EQ(file.text(658, 4), "fmt ");
}

TEST_F(BwfWriterTest, LeavesZerosWithoutAReader) {
  BwfWriter writer(nullptr, extension(), true);
  writer.FixUpChunkSizes();
  const ByteView file(whole(writer));
  EXPECT_EQ(file.u32(0), 0U);    // no RIFF
  EXPECT_EQ(file.u32(4), 740U);  // its size all the same
  EXPECT_EQ(file.u32(8), 0U);    // no WAVE
  EXPECT_EQ(file.text(12, 4), "JUNK");
  EXPECT_EQ(file.u16(722), 1U);
  EXPECT_EQ(file.u16(724), 0U);  // channels
  EXPECT_EQ(file.u32(726), 0U);  // rate
  EXPECT_EQ(file.u32(730), 0U);  // byte rate
  EXPECT_EQ(file.u16(734), 0U);  // block align
  EXPECT_EQ(file.u16(736), 24U);
  EXPECT_EQ(file.size(), 748U);
}

TEST_F(BwfWriterTest, TakesChannelsAndRateFromTheSource) {
  const auto source = sourceOf(3, 96000);
  BwfWriter writer(source.get(), extension(), false);
  const ByteView file(whole(writer));
  EXPECT_EQ(file.u16(724), 3U);
  EXPECT_EQ(file.u32(726), 96000U);
  EXPECT_EQ(file.u32(730), 12U * 96000U);
  EXPECT_EQ(file.u16(734), 12U);
}

TEST_F(BwfWriterTest, LeavesTheSizesZeroUntilTheyAreFixedUp) {
  const auto source = sourceOf(2, 48000);
  BwfWriter writer(source.get(), extension(), true);
  writer.Write("abcdef", 6);
  EXPECT_EQ(ByteView(whole(writer)).u32(4), 0U);
  EXPECT_EQ(ByteView(whole(writer)).u32(744), 0U);
  EXPECT_EQ(writer.dataLength(), 6U);
}

TEST_F(BwfWriterTest, StatesTheSizesOfNoneAndOfOneFrame) {
  const ByteView none = fileWith(extension(), true, {});
  EXPECT_EQ(none.size(), 748U);
  EXPECT_EQ(none.u32(4), 740U);
  EXPECT_EQ(none.u32(744), 0U);
  const ByteView one = fileWith(extension(), true, Bytes(6));
  EXPECT_EQ(one.u32(4), 746U);
  EXPECT_EQ(one.u32(744), 6U);
  const ByteView oneFloat = fileWith(extension(), false, Bytes(8));
  EXPECT_EQ(oneFloat.u32(4), 748U);
  EXPECT_EQ(oneFloat.u32(744), 8U);
}

TEST_F(BwfWriterTest, FixesUpTwiceWithoutHarm) {
  const auto source = sourceOf(2, 48000);
  BwfWriter writer(source.get(), extension(), true);
  writer.Write("abcdef", 6);
  writer.FixUpChunkSizes();
  const Bytes once = whole(writer);
  writer.FixUpChunkSizes();
  EXPECT_EQ(whole(writer), once);
  writer.Write("ghijkl", 6);
  writer.FixUpChunkSizes();
  EXPECT_EQ(ByteView(whole(writer)).u32(744), 12U);
  EXPECT_EQ(ByteView(whole(writer)).u32(4), 752U);
}

TEST_F(BwfWriterTest, ForetellsTheSizeOfTheFile) {
  for (const std::string& history : {std::string(), std::string("ab"), std::string("abc"),
                                     std::string(kHistory), std::string("\xC3\xA4")}) {
    const Bytes samples(18);
    EXPECT_EQ(BwfWriter::fileSize(history, samples.size()),
              fileWith(extension(history), true, samples).size())
        << history;
  }
  EXPECT_EQ(BwfWriter::fileSize(kHistory, 5'000'000'000), 5'000'000'748U);
}

TEST_F(BwfWriterTest, MakesIdentifiersOfFourCharacters) {
  EXPECT_EQ(BwfWriter::stringToInt32("data"), 0x61746164U);
  EXPECT_EQ(BwfWriter::stringToInt32("JUNK"), 0x4B4E554AU);
  EXPECT_EQ(BwfWriter::stringToInt32("fmt "), 0x20746D66U);
  EXPECT_EQ(BwfWriter::stringToInt32("abc"), 0U);
  EXPECT_EQ(BwfWriter::stringToInt32("abcde"), 0U);
  EXPECT_EQ(BwfWriter::stringToInt32(""), 0U);
}

TEST_F(BwfWriterTest, DropsEverythingOnDispose) {
  const auto source = sourceOf(2, 48000);
  BwfWriter writer(source.get(), extension(), true);
  writer.dispose();
  EXPECT_TRUE(writer.data().empty());
}

TEST_F(BwfWriterTest, TakesNoHarmFromWhatComesAfterDispose) {
  const auto source = sourceOf(2, 48000);
  BwfWriter writer(source.get(), extension(), true);
  writer.Write("abcdef", 6);
  writer.dispose();
  writer.FixUpChunkSizes();
  EXPECT_TRUE(writer.data().empty());
  const TemporaryFolder folder;
  EXPECT_FALSE(writer.Save2File(folder.path() / "out.wav"));
  EXPECT_EQ(writer.failure(), "The file was dropped before it was saved");
  EXPECT_TRUE(folder.names().empty());
}

}  // namespace
