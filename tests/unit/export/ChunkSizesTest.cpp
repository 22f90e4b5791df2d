// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "export/ChunkSizes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "export/Export.h"
#include "support/ByteView.h"
#include "support/TemporaryFolder.h"
#include "support/WaveBytes.h"

namespace {

using Bytes = std::vector<std::byte>;

constexpr std::uint64_t kLastOfRiff = 0xFFFFFFFF;
constexpr std::uint32_t kDataSizeAt = 744;
constexpr std::uint64_t kHeader = 748;

/// The first bytes of a file, filled with dots, with its sizes put in.
ByteView headOf(std::uint64_t fileSize) {
  Bytes head(kHeader, std::byte{'.'});
  std::fill_n(head.begin() + 12 + 8, 28, std::byte{0});
  const auto patches = ChunkSizes::patches(fileSize, fileSize - kHeader, 6, kDataSizeAt);
  for (const auto& [position, bytes] : patches) {
    std::copy(bytes.begin(), bytes.end(), head.begin() + position);
  }
  return ByteView(head);
}

std::uint64_t u64(const ByteView& view, std::size_t offset) {
  return view.u32(offset) | std::uint64_t{view.u32(offset + 4)} << 32;
}

}  // namespace

TEST(ChunkSizesTest, TheLastFileThat32BitsReachIsRiff) {
  const ByteView head = headOf(kLastOfRiff);
  EXPECT_EQ(head.u32(4), kLastOfRiff - 8);
  EXPECT_EQ(head.u32(kDataSizeAt), kLastOfRiff - kHeader);
  EXPECT_EQ(ChunkSizes::patches(kLastOfRiff, 1, 6, kDataSizeAt).size(), 2U) << "nothing else";
}

TEST(ChunkSizesTest, TheNextOneIsRf64WithItsSizesInTheRoomOfJunk) {
  const ByteView head = headOf(kLastOfRiff + 1);
  EXPECT_EQ(head.text(0, 4), "RF64");
  EXPECT_EQ(head.u32(4), 0xFFFFFFFFU);
  EXPECT_EQ(head.text(8, 4), "....");
  EXPECT_EQ(head.text(12, 8), "ds64....") << "the size of JUNK is its own";
  EXPECT_EQ(u64(head, 20), kLastOfRiff + 1 - 8);
  EXPECT_EQ(u64(head, 28), kLastOfRiff + 1 - kHeader);
  EXPECT_EQ(u64(head, 36), (kLastOfRiff + 1 - kHeader) / 6);
  EXPECT_EQ(head.u32(44), 0U) << "entries of the table";
  EXPECT_EQ(head.text(48, kDataSizeAt - 48), std::string(kDataSizeAt - 48, '.'));
  EXPECT_EQ(head.u32(kDataSizeAt), 0xFFFFFFFFU);
}

TEST(ChunkSizesTest, FramesWithoutBytesAreNone) {
  const auto patches = ChunkSizes::patches(kLastOfRiff + 1, 1, 0, kDataSizeAt);
  EXPECT_EQ(patches[5].bytes, Bytes(8));
}

TEST(ChunkSizesTest, AShortExportOfALongTakeIsRiff) {
  const TemporaryFolder folder;
  for (const char* identifier : {"RF64", "BW64"}) {
    const Bytes take = WaveBytes()
                           .ds64(~std::uint64_t{0}, 12)
                           .format24()
                           .recorderBext()
                           .chunk("data", 0xFFFFFFFF, WaveBytes::samples24({1, 2, 3, 4}))
                           .getLong(identifier);
    Export job(folder.file("in.wav", take));
    ASSERT_TRUE(job.IsFileValid()) << job.failure();
    ASSERT_TRUE(job.export2File(folder.path() / "out.wav", true, false)) << job.failure();
    const ByteView out(TemporaryFolder::read(folder.path() / "out.wav"));
    EXPECT_EQ(out.text(0, 4), "RIFF");
    EXPECT_EQ(out.u32(4), kHeader + 12 - 8);
    EXPECT_EQ(out.text(12, 4), "JUNK");
    EXPECT_EQ(out.u32(kDataSizeAt), 12U);
  }
}
