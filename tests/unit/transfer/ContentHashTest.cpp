// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "transfer/ContentHash.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "transfer/C4Id.h"

namespace {

std::string hexOf(const auto& bytes) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  std::string text;
  for (const std::uint8_t byte : bytes) text += {kDigits[byte / 16], kDigits[byte % 16]};
  return text;
}

TEST(ContentHashTest, OfNothingIsWhatItsAuthorsState) {
  EXPECT_EQ(ContentHash().hex(), "99aa06d3014798d86001c324468d497f");
}

TEST(ContentHashTest, PiecesAreAsGoodAsTheWhole) {
  const std::vector<std::byte> bytes(100'000, std::byte{7});
  ContentHash whole;
  whole.add(bytes);
  for (const std::size_t piece : {1U, 255U, 256U, 4096U, 99'999U}) {
    ContentHash pieces;
    for (std::size_t at = 0; at < bytes.size(); at += piece) {
      pieces.add(std::span(bytes).subspan(at, std::min(piece, bytes.size() - at)));
    }
    EXPECT_EQ(pieces.hex(), whole.hex()) << piece;
  }
}

// FIPS 180-4, its examples of one block and of two.
TEST(C4IdTest, Sha512IsThatOfTheStandard) {
  EXPECT_EQ(hexOf(c4::sha512("abc")),
            "ddaf35a193617abacc417349ae20413112e6fa4e89a97ea20a9eeee64b55d39a"
            "2192992a274fc1a836ba3c23a3feebbd454d4423643ce80e2a9ac94fa54ca49f");
  EXPECT_EQ(hexOf(c4::sha512("abcdefghbcdefghicdefghijdefghijkefghijklfghijklmghijklmn"
                             "hijklmnoijklmnopjklmnopqklmnopqrlmnopqrsmnopqrstnopqrstu")),
            "8e959b75dae313da8cf4f72814fc143f8f7779c6eb9f7fa17299aeadb6889018"
            "501d289e4900f7e4331b99dec4b5433ac7d329eeb6dd26545e96e55b874be909");
}

TEST(C4IdTest, AnIdentifierHasNinetyCharacters) {
  EXPECT_EQ(
      c4::idOf(""),
      "c459dsjfscH38cYeXXYogktxf4Cd9ibshE3BHUo6a58hBXmRQdZrAkZzsWcbWtDg5oQstpDuni4Hirj75GEmTc1sFT");
  for (int i = 0; i < 300; ++i) {
    EXPECT_EQ(c4::idOf(std::string(static_cast<std::size_t>(i), 'x')).size(), 90U) << i;
  }
}

}  // namespace
