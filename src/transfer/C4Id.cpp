// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "transfer/C4Id.h"

#include <bit>
#include <cstddef>

namespace {

constexpr std::size_t kHashBlock = 128;
constexpr std::size_t kRounds = 80;
constexpr std::size_t kDigits = 88;

using State = std::array<std::uint64_t, 8>;

// The first 64 bits of the fractional parts of the square roots of the first eight primes.
constexpr State kStart{0x6A09E667F3BCC908, 0xBB67AE8584CAA73B, 0x3C6EF372FE94F82B,
                       0xA54FF53A5F1D36F1, 0x510E527FADE682D1, 0x9B05688C2B3E6C1F,
                       0x1F83D9ABFB41BD6B, 0x5BE0CD19137E2179};

// The same of the cube roots of the first eighty.
constexpr std::array<std::uint64_t, kRounds> kRound{
    0x428A2F98D728AE22, 0x7137449123EF65CD, 0xB5C0FBCFEC4D3B2F, 0xE9B5DBA58189DBBC,
    0x3956C25BF348B538, 0x59F111F1B605D019, 0x923F82A4AF194F9B, 0xAB1C5ED5DA6D8118,
    0xD807AA98A3030242, 0x12835B0145706FBE, 0x243185BE4EE4B28C, 0x550C7DC3D5FFB4E2,
    0x72BE5D74F27B896F, 0x80DEB1FE3B1696B1, 0x9BDC06A725C71235, 0xC19BF174CF692694,
    0xE49B69C19EF14AD2, 0xEFBE4786384F25E3, 0x0FC19DC68B8CD5B5, 0x240CA1CC77AC9C65,
    0x2DE92C6F592B0275, 0x4A7484AA6EA6E483, 0x5CB0A9DCBD41FBD4, 0x76F988DA831153B5,
    0x983E5152EE66DFAB, 0xA831C66D2DB43210, 0xB00327C898FB213F, 0xBF597FC7BEEF0EE4,
    0xC6E00BF33DA88FC2, 0xD5A79147930AA725, 0x06CA6351E003826F, 0x142929670A0E6E70,
    0x27B70A8546D22FFC, 0x2E1B21385C26C926, 0x4D2C6DFC5AC42AED, 0x53380D139D95B3DF,
    0x650A73548BAF63DE, 0x766A0ABB3C77B2A8, 0x81C2C92E47EDAEE6, 0x92722C851482353B,
    0xA2BFE8A14CF10364, 0xA81A664BBC423001, 0xC24B8B70D0F89791, 0xC76C51A30654BE30,
    0xD192E819D6EF5218, 0xD69906245565A910, 0xF40E35855771202A, 0x106AA07032BBD1B8,
    0x19A4C116B8D2D0C8, 0x1E376C085141AB53, 0x2748774CDF8EEB99, 0x34B0BCB5E19B48A8,
    0x391C0CB3C5C95A63, 0x4ED8AA4AE3418ACB, 0x5B9CCA4F7763E373, 0x682E6FF3D6B2B8A3,
    0x748F82EE5DEFB2FC, 0x78A5636F43172F60, 0x84C87814A1F0AB72, 0x8CC702081A6439EC,
    0x90BEFFFA23631E28, 0xA4506CEBDE82BDE9, 0xBEF9A3F7B2C67915, 0xC67178F2E372532B,
    0xCA273ECEEA26619C, 0xD186B8C721C0C207, 0xEADA7DD6CDE0EB1E, 0xF57D4F7FEE6ED178,
    0x06F067AA72176FBA, 0x0A637DC5A2C898A6, 0x113F9804BEF90DAE, 0x1B710B35131C471B,
    0x28DB77F523047D84, 0x32CAAB7B40C72493, 0x3C9EBE0A15C9BEBC, 0x431D67C49C100D4C,
    0x4CC5D4BECB3E42B6, 0x597F299CFC657E2A, 0x5FCB6FAB3AD6FAEC, 0x6C44198C4A475817};

std::uint64_t turned(std::uint64_t x, int a, int b, int c) {
  return std::rotr(x, a) ^ std::rotr(x, b) ^ std::rotr(x, c);
}

std::array<std::uint64_t, kRounds> scheduleOf(std::string_view block) {
  std::array<std::uint64_t, kRounds> words{};
  for (std::size_t i = 0; i < kHashBlock; ++i) {
    words[i / 8] = words[i / 8] << 8 | static_cast<std::uint8_t>(block[i]);
  }
  for (std::size_t i = 16; i < kRounds; ++i) {
    const std::uint64_t x = words[i - 15];
    const std::uint64_t y = words[i - 2];
    const std::uint64_t small = std::rotr(x, 1) ^ std::rotr(x, 8) ^ x >> 7;
    const std::uint64_t large = std::rotr(y, 19) ^ std::rotr(y, 61) ^ y >> 6;
    words[i] = words[i - 16] + small + words[i - 7] + large;
  }
  return words;
}

void compress(State& state, std::string_view block) {
  const auto words = scheduleOf(block);
  State s = state;
  for (std::size_t i = 0; i < kRounds; ++i) {
    const std::uint64_t choice = (s[4] & s[5]) ^ (~s[4] & s[6]);
    const std::uint64_t majority = (s[0] & s[1]) ^ (s[0] & s[2]) ^ (s[1] & s[2]);
    const std::uint64_t first = s[7] + turned(s[4], 14, 18, 41) + choice + kRound[i] + words[i];
    const std::uint64_t second = turned(s[0], 28, 34, 39) + majority;
    s = {first + second, s[0], s[1], s[2], s[3] + first, s[4], s[5], s[6]};
  }
  for (std::size_t i = 0; i < s.size(); ++i) state[i] += s[i];
}

// The text, a one bit, zeros, and the length in bits as 128 bits, the most significant first.
std::string padded(std::string_view text) {
  std::string bytes(text);
  bytes += '\x80';
  while (bytes.size() % kHashBlock != kHashBlock - 16) bytes += '\0';
  bytes.append(8, '\0');
  const std::uint64_t bits = std::uint64_t{text.size()} * 8;
  for (int i = 56; i >= 0; i -= 8) bytes += static_cast<char>(bits >> i);
  return bytes;
}

}  // namespace

std::array<std::uint8_t, 64> c4::sha512(std::string_view text) {
  State state = kStart;
  const std::string bytes = padded(text);
  for (std::size_t at = 0; at < bytes.size(); at += kHashBlock) {
    compress(state, std::string_view(bytes).substr(at, kHashBlock));
  }
  std::array<std::uint8_t, 64> sum{};
  for (std::size_t i = 0; i < sum.size(); ++i) {
    sum[i] = static_cast<std::uint8_t>(state[i / 8] >> (56 - 8 * (i % 8)));
  }
  return sum;
}

std::string c4::idOf(std::string_view text) {
  constexpr std::string_view kAlphabet =
      "123456789ABCDEFGHJKLMNPQRSTUVWXYZabcdefghijkmnopqrstuvwxyz";
  constexpr unsigned kBase = 58;
  auto number = sha512(text);
  std::string digits(kDigits, kAlphabet[0]);
  for (std::size_t i = kDigits; i-- > 0;) {
    unsigned rest = 0;
    for (std::uint8_t& byte : number) {
      const unsigned value = rest << 8 | byte;
      byte = static_cast<std::uint8_t>(value / kBase);
      rest = value % kBase;
    }
    digits[i] = kAlphabet[rest];
  }
  return "c4" + digits;
}
