// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "RandomWave.h"

#include <algorithm>
#include <string_view>

#include "support/ByteBuilder.h"
#include "support/WaveBytes.h"

std::uint32_t RandomWave::upTo(std::uint32_t last) {
  return std::uniform_int_distribution<std::uint32_t>(0, last)(_random);
}

double RandomWave::between(double low, double high) {
  return std::uniform_real_distribution<double>(low, high)(_random);
}

std::uint32_t RandomWave::pick(std::initializer_list<std::uint32_t> choices) {
  return choices.begin()[upTo(static_cast<std::uint32_t>(choices.size()) - 1)];
}

RandomWave::Bytes RandomWave::noise(std::size_t count) {
  Bytes bytes(count);
  std::generate(bytes.begin(), bytes.end(), [this] { return static_cast<std::byte>(upTo(255)); });
  return bytes;
}

RandomWave::Bytes RandomWave::formatPayload() {
  const std::size_t size = pick({16, 16, 16, 17, 18, 40, 14, 2, 0});
  Bytes bytes = ByteBuilder()
                    .u16(static_cast<std::uint16_t>(pick({1, 3, 0xFFFE})))          // format tag
                    .u16(static_cast<std::uint16_t>(pick({0, 1, 2, 2, 2, 3, 6})))   // channels
                    .u32(pick({48000, 44100, 0, 0xFFFFFFFF}))                       // rate
                    .u32(upTo(1000000))                                             // byte rate
                    .u16(static_cast<std::uint16_t>(upTo(65535)))                   // block align
                    .u16(static_cast<std::uint16_t>(pick({0, 8, 16, 20, 24, 32})))  // bits
                    .zeros(24)
                    .get();
  bytes.resize(size);
  return bytes;
}

std::uint32_t RandomWave::statedSize(std::size_t size) {
  const auto honest = static_cast<std::uint32_t>(size);
  if (!oneIn(8)) return honest;
  return pick({honest + 1, honest - 1, honest + upTo(100), upTo(200), 0, 0x7FFFFFFF, 0x80000000,
               0xFFFFFFF8, 0xFFFFFFFF});
}

std::uint32_t RandomWave::riffSize(std::size_t fileSize) {
  const auto honest = static_cast<std::uint32_t>(fileSize - 8);
  if (!oneIn(3)) return honest;
  return pick({honest - 1, honest + 1, honest + 10000, upTo(honest), upTo(honest), upTo(24),
               0x7FFFFFFF, 0x80000000, 0xFFFFFFF7, 0xFFFFFFF8, 0xFFFFFFFF});
}

RandomWave::Bytes RandomWave::chunk() {
  constexpr std::string_view kIdentifiers[] = {"fmt ", "fmt ", "data", "data", "bext",
                                               "JUNK", "LIST", "Data", "fmt\0"};
  const std::string_view identifier = kIdentifiers[upTo(8)];
  const std::size_t size = oneIn(8) ? 4000 + upTo(5000) : upTo(300);
  const Bytes payload = identifier == "fmt " ? formatPayload() : noise(size);
  ByteBuilder bytes;
  return bytes.field(identifier, 4).u32(statedSize(payload.size())).bytes(payload).get();
}

RandomWave::Bytes RandomWave::file() {
  ByteBuilder bytes;
  bytes.text(oneIn(40) ? "RIFX" : "RIFF").u32(0).text(oneIn(40) ? "WAVF" : "WAVE");
  for (std::uint32_t count = 2 + upTo(6); count > 0; --count) bytes.bytes(chunk());
  if (oneIn(4)) bytes.bytes(noise(upTo(60)));
  bytes.patch32(4, riffSize(bytes.size()));
  Bytes file = bytes.get();
  if (oneIn(4)) file.resize(upTo(static_cast<std::uint32_t>(file.size())));
  return file;
}

RandomWave::Bytes RandomWave::soundFormat(std::uint32_t bits) {
  return ByteBuilder()
      .u16(static_cast<std::uint16_t>(pick({1, 3})))           // format tag
      .u16(static_cast<std::uint16_t>(pick({1, 2, 2, 2, 3})))  // channels
      .u32(pick({8000, 44100, 48000}))                         // rate
      .u32(0)                                                  // byte rate
      .u16(0)                                                  // block align
      .u16(static_cast<std::uint16_t>(bits))
      .get();
}

// Noise; as floats, audio with some values that are not numbers.
RandomWave::Bytes RandomWave::soundData(std::uint32_t bits, std::size_t samples) {
  if (bits != 32 || oneIn(3)) return noise(samples * bits / 8 + upTo(3));
  ByteBuilder bytes;
  for (std::size_t i = 0; i < samples; ++i) {
    if (oneIn(50)) {
      bytes.u32(pick({0x7FC00000, 0xFF800001, 0x7F800000, 0xFF800000, 0x80000000, 1}));
    } else {
      bytes.f32(static_cast<float>(between(-1.0, 1.0)));
    }
  }
  return bytes.get();
}

RandomWave::Bytes RandomWave::soundFile() {
  const std::uint32_t bits = pick({16, 24, 24, 24, 32, 32, 8});
  const Bytes data = soundData(bits, upTo(4000));
  const auto size = static_cast<std::uint32_t>(data.size());
  WaveBytes file;
  if (oneIn(2)) file.chunk("JUNK", noise(upTo(50)));
  file.chunk("fmt ", soundFormat(bits));
  if (oneIn(2)) file.chunk("bext", noise(602 + upTo(60)));
  file.chunk("data", pick({size, size, size, size + 1000, size / 2, 0xFFFFFFFF}), data);
  return file.get();
}
