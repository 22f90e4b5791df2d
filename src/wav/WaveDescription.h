// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "wav/WaveFileReader.h"

/// What there is to tell people of a file beside its sound: its chunks, the fields of its broadcast
/// extension, its kind of samples. One thread at a time for a reader; nothing throws.
class WaveDescription {
 public:
  struct Chunk {
    std::string identifier;
    std::uint64_t position = 0;  ///< of the payload, in the file
    std::uint64_t size = 0;      ///< bytes, as stated
    std::size_t more = 0;        ///< as many like it follow and are left out
  };
  /// A field by the name that the standard gives it.
  struct Field {
    std::string_view name;
    std::variant<std::string, std::int64_t> value;
  };

  /// Four characters, of which those that are none are Latin-1.
  static std::string identifierText(std::uint32_t identifier);
  /// All chunks in their order. Zeros where chunks should be are thousands of empty ones: a run of
  /// them is one.
  static std::vector<Chunk> chunks(const WaveFileReader& reader);
  /// The broadcast extension; empty where there is none, or one that is too short. Reads it.
  static std::vector<Field> bext(const WaveFileReader& reader);
  /// "integer PCM", "IEEE float", "extensible" or "other".
  static std::string_view encoding(const WaveHeader& header);
  /// What a listener should know of the sample data before an export: that there is none, that it
  /// is cut short, or that its kind of samples is one that the recorder never writes. Empty when
  /// all is well.
  static std::string audioWarning(const WaveFileReader& reader);
};
