// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "WaveRecipe.h"

#include "support/ByteBuilder.h"
#include "support/WaveBytes.h"

namespace {

struct Format {
  std::uint16_t tag;
  std::uint16_t channels;
  std::uint32_t rate;
  std::uint16_t bits;
};

constexpr std::array<Format, 8> kFormats{{{1, 2, 48000, 24},
                                          {3, 2, 48000, 32},
                                          {1, 2, 44100, 16},
                                          {1, 2, 96000, 32},
                                          {1, 1, 48000, 24},
                                          {3, 3, 48000, 32},
                                          {1, 2, 8000, 8},
                                          {1, 1, 48000, 16}}};

// What a recipe asks for, taken in the order of the twists.
struct Plan {
  explicit Plan(FuzzInput& input) {
    format = kFormats[input.take<std::uint8_t>() % kFormats.size()];
    twists = input.take<std::uint8_t>();
    if (has(recipe::kOwnFormat)) takeFormat(input);
    if (has(recipe::kShortBext)) bextSize = input.take<std::uint16_t>();
    if (has(recipe::kDataClaims)) dataClaim = input.take<std::uint32_t>();
    if (has(recipe::kRiffClaims)) riffClaim = input.take<std::uint32_t>();
    samples = input.takeRest();
    if (!has(recipe::kDataClaims)) dataClaim = static_cast<std::uint32_t>(samples.size());
  }

  void takeFormat(FuzzInput& input) {
    format.tag = input.take<std::uint16_t>();
    format.channels = input.take<std::uint16_t>();
    format.rate = input.take<std::uint32_t>();
    format.bits = input.take<std::uint16_t>();
  }

  [[nodiscard]] bool has(recipe::Twist twist) const { return (twists & twist) != 0; }

  Format format{};
  std::uint8_t twists = 0;
  std::size_t bextSize = SIZE_MAX;
  std::uint32_t dataClaim = 0;
  std::uint32_t riffClaim = 0;
  std::vector<std::byte> samples;
};

std::vector<std::byte> bextOf(const Plan& plan) {
  auto payload = WaveBytes::bextPayload(
      "TARN J4", plan.has(recipe::kDecoded) ? "MSRAW=OFF;" : "MSRAW=ON;", "Take 1");
  payload.resize(std::min(payload.size(), plan.bextSize));
  return payload;
}

std::vector<std::byte> bake(const Plan& plan) {
  WaveBytes file;
  const Format& format = plan.format;
  const auto addFormat = [&] {
    file.format(format.tag, format.channels, format.rate, format.bits);
  };
  if (plan.has(recipe::kOddChunk)) file.chunk("odd ", WaveBytes::Bytes(3));
  file.chunk("bext", bextOf(plan));
  if (!plan.has(recipe::kFormatLast)) addFormat();
  file.chunk("data", plan.dataClaim, plan.samples);
  if (plan.has(recipe::kFormatLast)) addFormat();
  if (plan.has(recipe::kSecondData)) file.data({});
  ByteBuilder bytes;
  bytes.bytes(file.get());
  if (plan.has(recipe::kRiffClaims)) bytes.patch32(4, plan.riffClaim);
  return bytes.get();
}

}  // namespace

std::vector<std::byte> recipe::takeFile(FuzzInput& input) {
  const bool isRecipe = (input.take<std::uint8_t>() & kRecipe) != 0;
  return isRecipe ? bake(Plan(input)) : input.takeRest();
}
