// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "support/WaveBytes.h"

WaveBytes::WaveBytes() {
  _bytes.text("RIFF").u32(0).text("WAVE");
}

WaveBytes& WaveBytes::chunk(std::string_view identifier, const Bytes& payload) {
  return chunk(identifier, static_cast<std::uint32_t>(payload.size()), payload);
}

WaveBytes& WaveBytes::chunk(std::string_view identifier, std::uint32_t statedSize,
                            const Bytes& payload) {
  _bytes.text(identifier).u32(statedSize).bytes(payload);
  return *this;
}

WaveBytes& WaveBytes::format(std::uint16_t tag, std::uint16_t channels, std::uint32_t rate,
                             std::uint16_t bits) {
  const auto blockAlign = static_cast<std::uint16_t>(bits / 8 * channels);
  return chunk("fmt ", ByteBuilder()
                           .u16(tag)
                           .u16(channels)
                           .u32(rate)
                           .u32(blockAlign * rate)
                           .u16(blockAlign)
                           .u16(bits)
                           .get());
}

WaveBytes& WaveBytes::bext(std::string_view originator, std::string_view codingHistory) {
  return chunk("bext", bextPayload(originator, codingHistory));
}

WaveBytes& WaveBytes::recorderBext(bool isRaw) {
  return bext("TARN J4", isRaw ? "A=PCM,F=48000,W=24,M=stereo,T=J4;VERSION=1.00;MSRAW=ON;"
                               : "A=PCM,F=48000,W=24,M=stereo,T=J4;VERSION=1.00;MSRAW=OFF;");
}

WaveBytes::Bytes WaveBytes::get() const {
  ByteBuilder whole = _bytes;
  return whole.patch32(4, static_cast<std::uint32_t>(whole.size() - 8)).get();
}

WaveBytes& WaveBytes::ds64(std::uint64_t riffSize, std::uint64_t dataSize, const Bytes& table) {
  return chunk("ds64", ByteBuilder()
                           .u64(riffSize)
                           .u64(dataSize)
                           .u64(0)        // sample count, which nothing depends on
                           .bytes(table)  // begins with its number of entries
                           .get());
}

WaveBytes::Bytes WaveBytes::getLong(std::string_view identifier) const {
  const Bytes rest(_bytes.get().begin() + 8, _bytes.get().end());
  return ByteBuilder().text(identifier).u32(0xFFFFFFFF).bytes(rest).get();
}

WaveBytes::Bytes WaveBytes::samples24(const std::vector<std::int32_t>& values) {
  ByteBuilder bytes;
  for (const std::int32_t value : values) bytes.s24(value);
  return bytes.get();
}

WaveBytes::Bytes WaveBytes::samplesFloat(const std::vector<float>& values) {
  ByteBuilder bytes;
  for (const float value : values) bytes.f32(value);
  return bytes.get();
}

WaveBytes::Bytes WaveBytes::bextPayload(std::string_view originator, std::string_view codingHistory,
                                        std::string_view description) {
  return ByteBuilder()
      .field(description, 256)
      .field(originator, 32)
      .field("REF", 32)    // originator reference
      .text("2026-05-04")  // origination date
      .text("03:02:01")    // origination time
      .u64(123456)         // time reference
      .u16(1)              // version
      .field("UMID", 64)   // unique material identifier
      .zeros(190)          // reserved
      .text(codingHistory)
      .get();
}
