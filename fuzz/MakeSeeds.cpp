// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
//
// usage: make_seeds FOLDER
// Writes the inputs that fuzzing starts from into FOLDER/reader, FOLDER/export, FOLDER/link and
// FOLDER/kept.

#include <cmath>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <limits>
#include <stdexcept>
#include <string>

#include "WaveRecipe.h"
#include "support/ByteBuilder.h"
#include "support/WaveBytes.h"

namespace {

using Bytes = std::vector<std::byte>;
namespace fs = std::filesystem;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr std::uint32_t kMost32 = 0xFFFFFFFF;
constexpr std::uint16_t kMost16 = 0xFFFF;

// A long walk over all that 24 bits hold.
Bytes tone24(std::uint32_t frames) {
  std::vector<std::int32_t> values;
  for (std::uint32_t i = 0; i < 2 * frames; ++i) {
    values.push_back(static_cast<std::int32_t>(i * 40503 % 16777216) - 8388608);
  }
  return WaveBytes::samples24(values);
}

Bytes toneFloat(int samples) {
  std::vector<float> values;
  for (int i = 0; i < samples; ++i) values.push_back(std::sin(static_cast<float>(i)) * 1.25F);
  return WaveBytes::samplesFloat(values);
}

Bytes strangeFloats() {
  using Limits = std::numeric_limits<float>;
  return WaveBytes::samplesFloat({Limits::quiet_NaN(), 0.5F, Limits::infinity(),
                                  -Limits::infinity(), Limits::denorm_min(), -0.0F, Limits::max(),
                                  Limits::lowest(), 1, -1});
}

void writeBytes(const fs::path& path, const Bytes& bytes) {
  std::ofstream out(path, std::ios::binary);
  out.write(reinterpret_cast<const char*>(bytes.data()),
            static_cast<std::streamsize>(bytes.size()));
  if (!out.flush()) throw std::runtime_error("cannot write " + path.native());
}

/// Puts inputs into the two folders.
class Seeds {
 public:
  explicit Seeds(const fs::path& folder) : _reader(folder / "reader"), _export(folder / "export") {
    fs::create_directories(_reader);
    fs::create_directories(_export);
  }

  void file(const std::string& name, const Bytes& bytes) { add(name, recipe::kRawFile, bytes); }
  void file(const std::string& name, const WaveBytes& bytes) { file(name, bytes.get()); }
  void plan(const std::string& name, const ByteBuilder& bytes) {
    add(name, recipe::kRecipe, bytes.get());
  }

  // The same recording under other settings.
  void reader(const std::string& name, double from, double to, double gain, double angle,
              std::uint8_t block) {
    const auto settings = doubles({from, to, gain, angle}).u8(block).u8(1);
    write(_reader / name, settings, recipe::kRawFile, take());
  }
  void exporting(const std::string& name, double angle, double gain, std::uint8_t switches) {
    write(_export / name, doubles({angle, gain}).u8(switches), recipe::kRawFile, take());
  }

  static Bytes take() { return WaveBytes().recorderBext().format24().data(tone24(50)).get(); }

 private:
  static ByteBuilder doubles(std::initializer_list<double> values) {
    ByteBuilder bytes;
    for (const double value : values) bytes.u64(std::bit_cast<std::uint64_t>(value));
    return bytes;
  }

  void add(const std::string& name, std::uint8_t mode, const Bytes& bytes) {
    write(_reader / name, doubles({0.0001, 0.0008, -3, 100}).u8(6).u8(1), mode, bytes);
    write(_export / name, doubles({100, -3}).u8(0), mode, bytes);
  }

  static void write(const fs::path& path, ByteBuilder settings, std::uint8_t mode,
                    const Bytes& bytes) {
    writeBytes(path, settings.u8(mode).bytes(bytes).get());
  }

  fs::path _reader;
  fs::path _export;
};

WaveBytes recording() {
  return WaveBytes().recorderBext().format24();
}

WaveBytes withFormat(std::uint16_t tag, std::uint16_t channels, std::uint32_t rate,
                     std::uint16_t bits) {
  return WaveBytes().recorderBext().format(tag, channels, rate, bits).data(toneFloat(60));
}

void addFormats(Seeds& seeds) {
  seeds.file("take-24", recording().data(tone24(200)));
  seeds.file("take-float", WaveBytes().recorderBext().formatFloat().data(toneFloat(200)));
  seeds.file("take-16", withFormat(1, 2, 44100, 16));
  seeds.file("take-32-integer", withFormat(1, 2, 48000, 32));
  seeds.file("take-8", withFormat(1, 2, 8000, 8));
  seeds.file("mono-24", withFormat(1, 1, 48000, 24));
  seeds.file("mono-8", withFormat(1, 1, 48000, 8));
  seeds.file("three-channels-24", withFormat(1, 3, 48000, 24));
  seeds.file("three-channels-float", withFormat(3, 3, 48000, 32));
  seeds.file("extensible", withFormat(0xFFFE, 2, 48000, 24));
  seeds.file("float-strange-values",
             WaveBytes().recorderBext().formatFloat().data(strangeFloats()));
  seeds.file("decoded-already", WaveBytes().recorderBext(false).format24().data(tone24(50)));
  seeds.file("more-than-one-block", recording().data(tone24(2561)));
  seeds.file("long-24", recording().data(tone24(200'000)));
}

void addAbsurdFormats(Seeds& seeds) {
  seeds.file("no-channels", withFormat(1, 0, 48000, 24));
  seeds.file("no-bits", withFormat(1, 2, 48000, 0));
  seeds.file("seven-bits", withFormat(1, 2, 48000, 7));
  seeds.file("most-channels", withFormat(3, kMost16, 48000, 32));
  seeds.file("most-bits", withFormat(1, 2, 48000, kMost16));
  seeds.file("most-of-all", withFormat(kMost16, kMost16, kMost32, kMost16));
  seeds.file("no-rate", withFormat(1, 2, 0, 24));
  seeds.file("eleven-channels-16", withFormat(1, 11, 48000, 16));
}

void addLyingSizes(Seeds& seeds) {
  const Bytes samples = tone24(20);
  seeds.file("data-truncated", recording().chunk("data", 1000, samples));
  seeds.file("data-empty", recording().data({}));
  seeds.file("data-states-none", recording().chunk("data", 0, samples));
  seeds.file("data-states-most", recording().chunk("data", kMost32, samples));
  // The end of the data, position plus size in 32 bits, comes out before its start ...
  seeds.file("data-end-wraps", recording().chunk("data", 0xFFFFFF00, samples));
  // ... or just at the file's first byte.
  seeds.file("data-end-wraps-to-0", recording().chunk("data", kMost32 - 703, samples));
  // The chunk after the data would be the data chunk itself, or the format chunk.
  seeds.file("data-leads-to-itself", recording().chunk("data", 0xFFFFFFF8, samples));
  seeds.file("data-leads-to-fmt", recording().chunk("data", 0xFFFFFFF8 - 24, samples));
  seeds.file("fmt-leads-to-itself", WaveBytes().data(samples).chunk("fmt ", 0xFFFFFFF8, samples));
  seeds.file("unknown-too-long", recording().chunk("junk", kMost32, samples));
  seeds.file("unknown-wraps", recording().data(samples).chunk("junk", 0xFFFFFFF8, samples));
  seeds.file("fmt-too-long",
             WaveBytes().recorderBext().data(samples).chunk("fmt ", kMost32, samples));
  seeds.file("fmt-cut", recording().data(samples).chunk("fmt ", 16, Bytes(5)));
  for (const std::uint32_t size : {0U, 11U, 12U, 100U, 0x7FFFFFFFU, kMost32 - 8, kMost32}) {
    const Bytes file = recording().data(samples).get();
    seeds.file("riff-states-" + std::to_string(size),
               ByteBuilder().bytes(file).patch32(4, size).get());
  }
}

WaveBytes longTake(std::uint64_t dataSize, const Bytes& table = Bytes(4)) {
  return WaveBytes().ds64(~std::uint64_t{0}, dataSize, table).recorderBext().format24();
}

void addLongTakes(Seeds& seeds) {
  const Bytes samples = tone24(20);
  const Bytes table = ByteBuilder().u32(1).text("axml").u64(3).get();
  const Bytes manyEntries = ByteBuilder().u32(kMost32).text("axml").u64(~std::uint64_t{0}).get();
  const auto data = [&](WaveBytes bytes) { return bytes.chunk("data", kMost32, samples); };
  seeds.file("rf64", data(longTake(samples.size())).chunk("LIST", Bytes(4)).getLong());
  seeds.file("bw64", data(longTake(samples.size())).getLong("BW64"));
  seeds.file("rf64-data-of-none", data(longTake(0)).getLong());
  seeds.file("rf64-data-beyond-the-file", data(longTake(std::uint64_t{5} << 30)).getLong());
  seeds.file("rf64-data-of-most", data(longTake(~std::uint64_t{0})).getLong());
  seeds.file("rf64-data-wraps", data(longTake(~std::uint64_t{0} - 700)).getLong());
  seeds.file("rf64-table",
             data(longTake(samples.size(), table).chunk("axml", kMost32, Bytes(4))).getLong());
  seeds.file(
      "rf64-table-too-long",
      data(longTake(samples.size(), manyEntries).chunk("axml", kMost32, Bytes(3))).getLong());
  seeds.file("rf64-no-sizes", recording().data(samples).getLong());
  seeds.file(
      "rf64-sizes-short",
      WaveBytes().chunk("ds64", Bytes(27)).recorderBext().format24().data(samples).getLong());
}

void addChunks(Seeds& seeds) {
  const Bytes samples = tone24(20);
  const Bytes odd(3);
  WaveBytes many = recording();
  for (int i = 0; i < 4000; ++i) many.chunk("none", {});
  seeds.file("four-thousand-empty-chunks", many.data(samples));
  seeds.file("odd-chunk", WaveBytes().chunk("odd ", odd).recorderBext().format24().data(samples));
  seeds.file("odd-chunk-padded", recording().chunk("odd ", 3, Bytes(4)).data(samples));
  seeds.file("fmt-after-data", WaveBytes().recorderBext().data(samples).format24());
  seeds.file("two-data", recording().data(samples).data(tone24(3)));
  seeds.file("two-fmt", recording().formatFloat().data(samples));
  seeds.file("bext-last", WaveBytes().format24().data(samples).recorderBext());
  seeds.file("two-bext",
             WaveBytes().bext("Other", "MSRAW=OFF").recorderBext().format24().data(samples));
  seeds.file("no-bext", WaveBytes().format24().data(samples));
  seeds.file("bext-601", WaveBytes().chunk("bext", Bytes(601)).format24().data(samples));
  seeds.file("bext-of-other", WaveBytes().bext("Other", "MSRAW=ON").format24().data(samples));
  seeds.file("bext-not-ascii",
             WaveBytes().bext("TARN J4 \xC3\xA9", "\xFFMSRAW=ON").format24().data(samples));
  seeds.file("no-data", recording());
  seeds.file("no-fmt", WaveBytes().recorderBext().data(samples));
}

void addBroken(Seeds& seeds) {
  seeds.file("nothing", Bytes());
  seeds.file("47-bytes", ByteBuilder().bytes(WaveBytes().format24().get()).zeros(11).get());
  seeds.file("48-bytes", ByteBuilder().bytes(WaveBytes().format24().data({}).get()).zeros(4).get());
  Bytes rifx = Seeds::take();
  rifx[3] = std::byte{'X'};
  seeds.file("rifx", rifx);
  Bytes half = Seeds::take();
  half.resize(half.size() - 151);
  seeds.file("cut-in-a-frame", half);
  half.resize(700);
  seeds.file("cut-in-the-header", half);
}

void addSettings(Seeds& seeds) {
  seeds.reader("levels-whole", 0, 1, 0, 120, 1);
  seeds.reader("levels-nothing", 0.5, 0.5, 0, 120, 255);
  seeds.reader("levels-backwards", 1, -1, 6, 0, 3);
  seeds.reader("levels-not-a-number", kNaN, kNaN, kNaN, kNaN, 2);
  seeds.reader("levels-infinite", -kInfinity, kInfinity, -kInfinity, kInfinity, 2);
  seeds.reader("levels-from-infinity", kInfinity, kInfinity, kInfinity, -kInfinity, 2);
  seeds.reader("levels-huge", -1e308, 1e308, 1e308, -1e308, 2);
  seeds.exporting("settings-plain", 120, 0, 0);
  seeds.exporting("settings-normalize", 150, 36, 1);
  seeds.exporting("settings-replace", 0, 6, 2);
  seeds.exporting("settings-refuse", 75, -6, 6);
  seeds.exporting("settings-cancel", 75, -6, 0xE3);
  seeds.exporting("settings-loaded", 75, -6, 17);
  seeds.exporting("settings-memory", 15, -36, 8);
  seeds.exporting("settings-not-a-number", kNaN, kNaN, 9);
  seeds.exporting("settings-infinite", kInfinity, kInfinity, 0);
  seeds.exporting("settings-minus-infinity", -kInfinity, -kInfinity, 0);
  seeds.exporting("settings-huge", 1e308, -1e308, 0);
}

void addRecipes(Seeds& seeds) {
  const Bytes samples = tone24(30);
  for (std::uint8_t format = 0; format < 8; ++format) {
    seeds.plan("plan-format-" + std::to_string(format),
               ByteBuilder().u8(format).u8(0).bytes(samples));
  }
  const auto twisted = [&](std::uint8_t twists, std::uint64_t values, int count) {
    ByteBuilder bytes;
    bytes.u8(0).u8(twists);
    for (int i = 0; i < count; ++i) bytes.u8(static_cast<std::uint8_t>(values >> (8 * i)));
    seeds.plan("plan-twist-" + std::to_string(twists), bytes.bytes(samples));
  };
  twisted(recipe::kDecoded, 0, 0);
  twisted(recipe::kShortBext, 601, 2);
  twisted(recipe::kOddChunk, 0, 0);
  twisted(recipe::kDataClaims, kMost32, 4);
  twisted(recipe::kRiffClaims, 300, 4);
  twisted(recipe::kFormatLast, 0, 0);
  twisted(recipe::kSecondData, 0, 0);
  const auto mono16 = ByteBuilder().u8(0).u8(recipe::kOwnFormat).u16(1).u16(1).u32(48000).u16(16);
  seeds.plan("plan-own-format", ByteBuilder(mono16).bytes(samples));
}

/// What happens on a link, event by event; LinkFuzz.cpp reads it.
class LinkSeed {
 public:
  enum Event : std::uint8_t { PlugIn, PullOut, Wait, Battery, PowerOff, Report, Misbehave, Packet };

  LinkSeed& add(Event event, std::uint8_t value = 0) {
    _events.u8(event).u8(value);
    ++_count;
    return *this;
  }
  LinkSeed& packet(std::initializer_list<std::uint8_t> bytes) {
    add(Packet, static_cast<std::uint8_t>(bytes.size()));
    for (const std::uint8_t byte : bytes) _events.u8(byte);
    return *this;
  }
  LinkSeed& word(std::uint32_t first, std::uint32_t second) {
    add(Packet, 2);
    _events.u32(first).u32(second);
    return *this;
  }
  /// `kind` 0 byte packets, 1 event lists.
  void write(const fs::path& path, std::uint8_t kind) const {
    writeBytes(path.native() + (kind == 0 ? "-bytes" : "-events"),
               ByteBuilder().u8(kind).u8(_count).bytes(_events.get()).get());
  }

 private:
  ByteBuilder _events;
  std::uint8_t _count = 0;
};

LinkSeed handshake() {
  return LinkSeed().add(LinkSeed::PlugIn).add(LinkSeed::Wait, 75);
}

void addLinks(const fs::path& folder) {
  fs::create_directories(folder);
  for (const std::uint8_t kind : {std::uint8_t{0}, std::uint8_t{1}}) {
    handshake().add(LinkSeed::Report).add(LinkSeed::Wait, 5).write(folder / "report", kind);
    handshake().add(LinkSeed::Battery, 2).add(LinkSeed::PowerOff, 1).write(folder / "set", kind);
    handshake().add(LinkSeed::PullOut).add(LinkSeed::PlugIn).write(folder / "again", kind);
    for (std::uint8_t request = 0; request < 9; ++request) {
      for (std::uint8_t fault = 1; fault < 9; ++fault) {
        const auto what = static_cast<std::uint8_t>(16 * request + fault);
        LinkSeed seed;
        seed.add(LinkSeed::Misbehave, what).add(LinkSeed::PlugIn).add(LinkSeed::Wait, 255);
        seed.write(folder / ("fault-" + std::to_string(what)), kind);
      }
    }
  }
  handshake().packet({0xF0, 0x52}).packet({0x00, 0xF7}).write(folder / "pieces", 0);
  handshake().packet({0x00, 0x0F, 0xF7}).packet({0xF7}).write(folder / "stray", 0);
  handshake().word(0x30160102, 0x03040506).word(0x30310700, 0).write(folder / "pieces", 1);
  handshake().word(0x30310700, 0).word(0x20903C64, 0x10F80000).write(folder / "stray", 1);
}

// Of an analysis that was kept; KeptFuzz.cpp reads it. Content of zeros, of numbers that are none,
// and of all kinds.
void addKept(const fs::path& folder) {
  fs::create_directories(folder);
  constexpr std::size_t kContent = 4000;
  const auto content = [](std::uint8_t kind) {
    ByteBuilder bytes;
    for (std::size_t i = 0; i < kContent; ++i) {
      bytes.u8(static_cast<std::uint8_t>(kind == 0 ? 0 : (kind == 1 ? 0xFF : i * i / 7)));
    }
    return bytes.get();
  };
  for (std::uint8_t mode = 0; mode < 3; ++mode) {
    for (const std::uint32_t frames : {0U, 1U, 4801U, 250'000U}) {
      for (std::uint8_t kind = 0; kind < 3; ++kind) {
        ByteBuilder input;
        input.u8(mode).u8(3).u8(kind == 1 ? 0 : 1).u8(90).u8(6).u32(frames).u32(frames * 3);
        input.u16(300).u32(frames / 5).u32(frames).bytes(content(kind));
        const auto name =
            std::to_string(mode) + '-' + std::to_string(frames) + '-' + std::to_string(kind);
        writeBytes(folder / name, input.get());
      }
    }
  }
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 2) {
    std::cerr << "usage: make_seeds FOLDER\n";
    return 2;
  }
  Seeds seeds(arguments[1]);
  addFormats(seeds);
  addAbsurdFormats(seeds);
  addLyingSizes(seeds);
  addLongTakes(seeds);
  addChunks(seeds);
  addBroken(seeds);
  addSettings(seeds);
  addRecipes(seeds);
  addLinks(fs::path(arguments[1]) / "link");
  addKept(fs::path(arguments[1]) / "kept");
  return 0;
}
