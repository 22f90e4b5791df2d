// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "export/KeptMetadata.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "ExportFixture.h"
#include "export/Recognition.h"
#include "support/ByteBuilder.h"
#include "wav/BextLayout.h"

namespace {

using Bytes = std::vector<std::byte>;

constexpr const char* kTakeHistory = "A=PCM,F=48000,W=24,M=stereo,T=J4;VERSION=1.00;MSRAW=ON;";
constexpr const char* kOwnHistory = "A=PCM,F=48000,W=24,M=stereo,T=J4;VERSION=1.00;MSRAW=OFF;";

Bytes mark(std::uint32_t number, std::uint32_t frame) {
  return ByteBuilder().u32(number).u32(frame).text("data").u32(0).u32(0).u32(frame).get();
}

Bytes marks(const std::vector<std::uint32_t>& frames) {
  ByteBuilder bytes;
  bytes.u32(static_cast<std::uint32_t>(frames.size()));
  for (std::uint32_t i = 0; i < frames.size(); ++i) bytes.bytes(mark(i + 1, frames[i]));
  return bytes.get();
}

Bytes text(std::string_view characters) {
  return ByteBuilder().text(characters).get();
}

/// A take of ten frames with all that can be kept, before and after its samples.
class KeptMetadataTest : public ExportFixture {
 protected:
  static Bytes take(const std::string& history = kTakeHistory) {
    return WaveBytes()
        .chunk("LIST", text("INFOodd"))
        .format24()
        .bext("TARN J4", history)
        .data(WaveBytes::samples24(std::vector<std::int32_t>(20, 1000)))
        .chunk("cue ", marks({0, 4, 9}))
        .chunk("iXML", text("<BWFXML/>"))
        .chunk("smpl", text("not kept"))
        .get();
  }

  struct Kept {
    bool is = true;
    std::optional<FrameRange> range;
  };

  ByteView exportOf(const Bytes& source, const Kept& kept) {
    Export job(_folder.file("in.wav", source));
    job.setKeepMetadata(kept.is);
    job.setRange(kept.range);
    EXPECT_TRUE(job.export2File(target(), true, false)) << job.failure();
    EXPECT_EQ(std::filesystem::file_size(target()), job.outputSize(true));
    return ByteView(TemporaryFolder::read(target()));
  }

  std::string chunkOf(const ByteView& file, std::string_view identifier) {
    _reader = WaveFileReader::readFromData(file.get());
    for (const ChunkInfo& chunk : _reader->chunks()) {
      if (file.text(chunk.streamPos - 8, 4) != identifier) continue;
      return file.text(chunk.streamPos, chunk.chunkSize);
    }
    return "none";
  }

  std::unique_ptr<WaveFileReader> _reader;
};

TEST_F(KeptMetadataTest, NothingIsKeptUnlessAskedFor) {
  const ByteView out = exportOf(take(), {false, {}});
  EXPECT_EQ(out.size(), kSamples + 60);
  EXPECT_EQ(chunkOf(out, "bext").substr(bext::kFixedSize), kOwnHistory);
  EXPECT_EQ(chunkOf(out, "LIST"), "none");
  EXPECT_NE(out.text(56 + 320, 10), "2026-05-04");
}

TEST_F(KeptMetadataTest, TimesAndHistoryTravel) {
  const std::string bext = chunkOf(exportOf(take(), {}), "bext");
  EXPECT_EQ(bext.substr(320, 18), "2026-05-0403:02:01");
  EXPECT_EQ(bext.substr(338, 8), std::string("\x40\xE2\x01\0\0\0\0\0", 8));  // 123456
  EXPECT_EQ(bext.substr(346, 2), std::string("\1\0", 2));
  EXPECT_EQ(bext.substr(bext::kFixedSize),
            "A=PCM,F=48000,W=24,M=stereo,T=J4;VERSION=1.00;MSRAW=DECODED;\r\n" +
                std::string(kOwnHistory));
}

TEST_F(KeptMetadataTest, HowMuchTheyAddIsKnownBefore) {
  Export job(_folder.file("in.wav", take()));
  const std::uint64_t plain = job.outputSize(true);
  const std::uint64_t kept = job.keptBytes();
  EXPECT_EQ(plain, job.outputSize(true)) << "asked for, not wished";
  job.setKeepMetadata(true);
  EXPECT_EQ(kept, job.keptBytes());
  EXPECT_EQ(plain + kept, job.outputSize(true));
  EXPECT_EQ(0U, Export(_folder.file("x.wav", {})).keptBytes());
}

TEST_F(KeptMetadataTest, TheExportIsNotTakenForRawAgain) {
  const ByteView out = exportOf(take(), {});
  const Recognition recognition(*WaveFileReader::readFromData(out.get()));
  EXPECT_TRUE(recognition.isRecorder());
  EXPECT_FALSE(recognition.isRawMidSide());
}

TEST_F(KeptMetadataTest, ChunksFollowTheSamplesAndEachIsEven) {
  const ByteView out = exportOf(take(), {});
  EXPECT_EQ(chunkOf(out, "LIST"), std::string("INFOodd\0", 8));
  EXPECT_EQ(chunkOf(out, "iXML"), std::string("<BWFXML/>\0", 10));
  const Bytes wanted = marks({0, 4, 9});
  EXPECT_EQ(chunkOf(out, "cue "), ByteView(wanted).text(0, wanted.size()));
  EXPECT_EQ(chunkOf(out, "smpl"), "none");
  std::vector<std::string> names;
  for (const ChunkInfo& chunk : _reader->chunks())
    names.push_back(out.text(chunk.streamPos - 8, 4));
  EXPECT_EQ(names,
            (std::vector<std::string>{"JUNK", "bext", "fmt ", "data", "LIST", "cue ", "iXML"}));
  EXPECT_EQ(out.u32(4), out.size() - 8);
  EXPECT_EQ(_reader->frameCount(), 10U);
}

TEST_F(KeptMetadataTest, WhatCannotBeReadAnyMoreRefusesTheExport) {
  const auto source = _folder.file("in.wav", take());
  Export job(source);
  std::filesystem::resize_file(source, std::filesystem::file_size(source) - 24);  // of iXML, smpl
  job.setKeepMetadata(true);
  EXPECT_FALSE(job.export2File(target(), true, false));
  EXPECT_EQ(job.failure(), "Markers and descriptions of the recording cannot be read");
  EXPECT_FALSE(std::filesystem::exists(target()));
  job.setKeepMetadata(false);
  EXPECT_TRUE(job.export2File(target(), true, false)) << job.failure();
}

TEST_F(KeptMetadataTest, TheSamplesAreTheSame) {
  const ByteView plain = exportOf(take(), {false, {}});
  const ByteView kept = exportOf(take(), {});
  const std::uint64_t at = WaveFileReader::readFromData(kept.get())->header().dataChunkPosition;
  EXPECT_EQ(kept.text(at, 60), plain.text(kSamples, 60));
}

TEST_F(KeptMetadataTest, AStretchHasItsOwnMarksAndTime) {
  const ByteView out = exportOf(take(), {true, FrameRange{4, 9}});
  const Bytes wanted = ByteBuilder().u32(1).bytes(mark(2, 0)).get();
  EXPECT_EQ(chunkOf(out, "cue "), ByteView(wanted).text(0, wanted.size()));
  EXPECT_EQ(ByteView(out).u32(56 + 338), 123460U);
  EXPECT_EQ(chunkOf(exportOf(take(), {true, FrameRange{1, 3}}), "cue "), "none");
}

TEST_F(KeptMetadataTest, OddHistoriesAreMadeFit) {
  const auto historyOf = [this](const std::string& history) {
    return chunkOf(exportOf(take(history), {}), "bext").substr(bext::kFixedSize);
  };
  EXPECT_EQ(historyOf(""), kOwnHistory);
  EXPECT_EQ(historyOf(" \r\n"), kOwnHistory);
  EXPECT_EQ(historyOf("caf\xE9\r\n"), "caf?\r\n" + std::string(kOwnHistory));
  EXPECT_EQ(historyOf("MSRAW=ONMSRAW=ON"),
            "MSRAW=DECODEDMSRAW=DECODED\r\n" + std::string(kOwnHistory));
}

TEST_F(KeptMetadataTest, DamagedMarksOfAStretchAreLeftOut) {
  for (const Bytes& cue : {Bytes(), Bytes(3), ByteBuilder().u32(0xFFFFFFFF).get(),
                           ByteBuilder().u32(2).bytes(Bytes(23)).get()}) {
    const Bytes source = WaveBytes()
                             .format24()
                             .recorderBext()
                             .data(WaveBytes::samples24(std::vector<std::int32_t>(20, 1000)))
                             .chunk("cue ", cue)
                             .get();
    EXPECT_EQ(chunkOf(exportOf(source, {true, FrameRange{1, 3}}), "cue "), "none");
  }
}

}  // namespace
