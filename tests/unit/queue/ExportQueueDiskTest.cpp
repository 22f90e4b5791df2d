// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <gmock/gmock.h>

#include <cstdio>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "queue/ExportQueue.h"
#include "support/Confinement.h"
#include "support/CoreApplication.h"
#include "support/EventLoop.h"
#include "support/TemporaryFolder.h"
#include "support/WaveBytes.h"

namespace {

constexpr std::uint64_t kDisk = 256 << 10;
constexpr int kLong = 60'000;  // frames of an export that does not fit
constexpr int kShort = 6'000;
constexpr std::uintmax_t kSize = 748 + 6 * kShort;  // of an export that fits

/// Several takes exported together onto a disk that not all of them fit.
class ExportQueueDiskTest : public testing::Test {
 protected:
  ExportQueueDiskTest() { std::filesystem::create_directory(out()); }

  [[nodiscard]] std::filesystem::path out() const { return _folder.path() / "out"; }
  std::filesystem::path take(const std::string& name, int frames) const {
    const std::vector<std::int32_t> samples(2 * static_cast<std::size_t>(frames), 1000);
    return _folder.file(
        name, WaveBytes().format24().recorderBext().data(WaveBytes::samples24(samples)).get());
  }

  /// In a child: exports all, and takes down why what failed did.
  bool exportAll(std::size_t atOnce) {
    const CoreApplication application;
    ExportQueue queue;
    queue.setAtOnce(atOnce);
    QObject::connect(&queue, &ExportQueue::finished, &queue,
                     [this](int, const ExportOrder& order, const ExportResult& result) {
                       const bool isWritten = result.end == ExportResult::End::Written;
                       _told[order.source.stem()] = isWritten ? "written" : result.failure;
                     });
    for (const auto& [name, source] : _takes) {
      queue.add({.source = source, .target = out() / (name + ".WAV")});
    }
    return EventLoop::runUntil([&] { return !queue.isBusy(); });
  }
  /// Whether each take is whole, and told as written, or not there, and told as too much.
  bool isEachWholeOrTold(const std::string& full) {
    std::size_t written = 0;
    for (const auto& [name, told] : _told) {
      const auto file = out() / (name + ".WAV");
      const bool isThere = std::filesystem::exists(file);
      const bool isRight =
          isThere ? told == "written" && std::filesystem::file_size(file) == kSize : told == full;
      if (!isRight) std::fprintf(stderr, "%s: %s\n", name.c_str(), told.c_str());
      if (!isRight) return false;
      if (isThere) ++written;
    }
    return left().size() == written && _told.size() == _takes.size();
  }
  bool exportOntoFullDisk(std::size_t atOnce) {
    const bool isMounted = Confinement::mountSmallDisk(out(), kDisk);
    if (!isMounted && !Confinement::limitFileSize(kDisk)) return false;
    return exportAll(atOnce) &&
           isEachWholeOrTold(isMounted ? "No space left on device" : "File too large");
  }
  /// What lies in the folder, hidden files too.
  [[nodiscard]] std::vector<std::string> left() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(out())) {
      names.push_back(entry.path().filename());
    }
    return names;
  }

  TemporaryFolder _folder;
  std::map<std::string, std::string> _told;
  std::map<std::string, std::filesystem::path> _takes{{"a", take("a.wav", kShort)},
                                                      {"b", take("b.wav", kLong)},
                                                      {"c", take("c.wav", kShort)},
                                                      {"d", take("d.wav", kLong)},
                                                      {"e", take("e.wav", kShort)}};
};

TEST_F(ExportQueueDiskTest, WhatDoesNotFitIsToldAndTheOthersAreWritten) {
  const int status = Confinement::run([&] {
    const bool isRight = exportOntoFullDisk(1);
    return isRight && left().size() == 3 ? 0 : 1;
  });
  EXPECT_EQ(status, 0);
}

// What fills the disk for a moment may take the room from another one.
TEST_F(ExportQueueDiskTest, SeveralAtOnceAreEachWholeOrTold) {
  EXPECT_EQ(Confinement::run([&] { return exportOntoFullDisk(3) ? 0 : 1; }), 0);
}

}  // namespace
