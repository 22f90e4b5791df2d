// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "queue/ExportWorker.h"

#include <gmock/gmock.h>
#include <sys/syscall.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <chrono>
#include <latch>
#include <memory>
#include <optional>
#include <thread>
#include <vector>

#include "export/Export.h"
#include "support/Confinement.h"
#include "support/LongTake.h"
#include "support/RefusedCopy.h"
#include "support/TemporaryFolder.h"
#include "support/WaveBytes.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using End = ExportResult::End;

constexpr std::uint32_t kLong = 3'000'000'000;

class ExportWorkerTest : public testing::Test {
 protected:
  ExportOrder order(const std::filesystem::path& source) const {
    return {.source = source, .target = _folder.path() / "out.WAV", .gain = -3, .angle = 90};
  }
  std::filesystem::path shortTake() const { return take(4000); }
  std::filesystem::path longEnoughForALoudness() const { return take(48'000); }
  std::filesystem::path take(std::size_t frames) const {
    std::vector<std::int32_t> samples(2 * frames);
    for (std::size_t i = 0; i < samples.size(); ++i) {
      samples[i] = static_cast<std::int32_t>((i * 7919) % 4'000'000) - 2'000'000;
    }
    return _folder.file(
        "in.wav", WaveBytes().format24().recorderBext().data(WaveBytes::samples24(samples)).get());
  }
  static void waitFor(const ExportWorker& worker) {
    while (!worker.isFinished()) std::this_thread::yield();
  }
  static void expectWritten(const ExportOrder& order) {
    const ExportWorker worker(order);
    waitFor(worker);
    EXPECT_EQ(End::Written, worker.result().end);
    EXPECT_EQ("", worker.result().failure);
    EXPECT_EQ(1.0, worker.done());
  }
  /// Of what was exported by this order.
  static std::optional<double> gainOf(const ExportOrder& order) {
    const ExportWorker worker(order);
    waitFor(worker);
    EXPECT_EQ(End::Written, worker.result().end);
    return worker.result().gain;
  }
  static void waitForBegin(const ExportWorker& worker) {
    while (worker.done() == 0.0 && !worker.isFinished()) std::this_thread::yield();
  }
  std::vector<std::byte> samplesOf(const char* name) const {
    auto bytes = TemporaryFolder::read(_folder.path() / name);
    bytes.erase(bytes.begin(), bytes.begin() + std::min<std::ptrdiff_t>(748, std::ssize(bytes)));
    return bytes;
  }

  TemporaryFolder _folder;
};

TEST_F(ExportWorkerTest, WritesWhatAJobWithTheSameSettingsWrites) {
  for (const bool is24bit : {true, false}) {
    for (const bool isNormalized : {true, false}) {
      ExportOrder order = this->order(shortTake());
      order.is24bit = is24bit;
      order.isNormalized = isNormalized;
      order.existing = AtomicFile::Existing::Replace;
      expectWritten(order);
      Export job(order.source);
      job.setGain(order.gain);
      job.setAngle(order.angle);
      ASSERT_TRUE(job.export2File(_folder.path() / "wanted.WAV", is24bit, isNormalized));
      EXPECT_FALSE(samplesOf("out.WAV").empty());
      EXPECT_EQ(samplesOf("wanted.WAV"), samplesOf("out.WAV"));
    }
  }
}

TEST_F(ExportWorkerTest, TellsTheGainAsOrderedOrAsFound) {
  ExportOrder order = this->order(longEnoughForALoudness());
  order.existing = AtomicFile::Existing::Replace;
  EXPECT_EQ(gainOf(order), -3);
  order.isNormalized = true;
  Export job(order.source);
  job.setAngle(order.angle);
  ASSERT_TRUE(job.export2File(order.target, true, true));
  ASSERT_TRUE(job.normalizeGain());
  EXPECT_EQ(gainOf(order), job.normalizeGain());
  order.isNormalized = false;
  order.loudness = LoudnessTarget{};
  job.setLoudness(order.loudness);
  ASSERT_TRUE(job.export2File(_folder.path() / "other.WAV", true, false));
  ASSERT_TRUE(job.loudnessGain()->gain());
  EXPECT_NE(job.loudnessGain()->gain(), job.normalizeGain());
  EXPECT_EQ(gainOf(order), job.loudnessGain()->gain());
}

TEST_F(ExportWorkerTest, KnowsNoGainOfASilentTakeAtFullScale) {
  const std::vector<std::int32_t> silence(2 * 4000);
  ExportOrder order = this->order(_folder.file(
      "in.wav", WaveBytes().format24().recorderBext().data(WaveBytes::samples24(silence)).get()));
  order.isNormalized = true;
  EXPECT_EQ(gainOf(order), std::nullopt);
}

TEST_F(ExportWorkerTest, AThreadThatIsRefusedIsAFailureWithAReason) {
  const ExportOrder order = this->order(shortTake());
  const int status = Confinement::run([&order] {
    if (!Confinement::failSystemCall(SYS_clone3, EAGAIN)) return 1;
    if (!Confinement::failSystemCall(SYS_clone, EAGAIN)) return 2;
    const ExportWorker worker(order);
    if (!worker.isFinished() || worker.result().end != End::Failed) return 3;
    return worker.result().failure == "Resource temporarily unavailable" ? 0 : 4;
  });
  EXPECT_EQ(status, 0);
  EXPECT_FALSE(std::filesystem::exists(order.target));
}

TEST_F(ExportWorkerTest, NoMemoryForAThreadIsAFailureThatIsToldOnce) {
  const RefusedCopy memory;
  const ExportWorker::Work work = [memory](const ExportOrder&, ExportWorker::Control&) {
    return ExportResult{End::Written, {}};
  };
  int ends = 0;
  memory.refuse();
  const ExportWorker worker(order("in.wav"), work, [&ends] { ++ends; });
  ASSERT_TRUE(worker.isFinished());
  EXPECT_EQ(End::Failed, worker.result().end);
  EXPECT_EQ("There is not enough memory", worker.result().failure);
  EXPECT_EQ(1, ends);
}

TEST_F(ExportWorkerTest, KeepsTheMetadataWhereThatIsOrdered) {
  ExportOrder order = this->order(shortTake());
  Export job(order.source);
  expectWritten(order);
  EXPECT_EQ(job.outputSize(true), std::filesystem::file_size(order.target));
  order.keepsMetadata = true;
  order.existing = AtomicFile::Existing::Replace;
  expectWritten(order);
  EXPECT_GT(job.keptBytes(), 0U);
  EXPECT_EQ(job.outputSize(true) + job.keptBytes(), std::filesystem::file_size(order.target));
}

TEST_F(ExportWorkerTest, StopsWhenItIsCancelled) {
  ExportWorker worker(order(LongTake::make(_folder, "long.wav", kLong)));
  waitForBegin(worker);
  worker.cancel();
  waitFor(worker);
  EXPECT_EQ(End::Cancelled, worker.result().end);
  EXPECT_EQ("", worker.result().failure);
  EXPECT_LT(worker.done(), 1.0);
  EXPECT_THAT(_folder.names(), ElementsAre("long.wav"));
}

TEST_F(ExportWorkerTest, ItsEndIsTheEndOfTheExport) {
  const ExportOrder order = this->order(LongTake::make(_folder, "long.wav", kLong));
  {
    const ExportWorker worker(order);
    waitForBegin(worker);
  }
  EXPECT_THAT(_folder.names(), ElementsAre("long.wav"));
}

TEST_F(ExportWorkerTest, OneThatHangsIsWaitedForNoLongerThanThePatience) {
  const auto door = std::make_shared<std::latch>(1);
  const auto ends = std::make_shared<std::atomic<int>>(0);
  {
    ExportWorker worker(
        order("in.wav"),
        [door](const ExportOrder&, ExportWorker::Control&) {
          door->wait();
          return ExportResult();
        },
        [ends] { ++*ends; });
    worker.setPatience(std::chrono::milliseconds(0));
  }
  door->count_down();
  while (ends.use_count() > 1 || door.use_count() > 1) std::this_thread::yield();
  EXPECT_EQ(0, *ends) << "there is nobody to be told";
}

TEST_F(ExportWorkerTest, TellsWhyItFailed) {
  const ExportWorker missing(order(_folder.path() / "none.wav"));
  waitFor(missing);
  EXPECT_EQ(End::Failed, missing.result().end);
  EXPECT_NE("", missing.result().failure);

  ExportOrder existing = order(shortTake());
  existing.target = _folder.file("there.WAV", {});
  const ExportWorker refused(existing);
  waitFor(refused);
  EXPECT_EQ(End::Failed, refused.result().end);
  EXPECT_THAT(refused.result().failure, HasSubstr("exists"));
  EXPECT_TRUE(TemporaryFolder::read(existing.target).empty());
}

TEST_F(ExportWorkerTest, RefusesTheSourceAsItsTarget) {
  ExportOrder order = this->order(shortTake());
  order.existing = AtomicFile::Existing::Replace;
  order.target = order.source;
  const auto before = TemporaryFolder::read(order.source);
  const ExportWorker plain(order);
  waitFor(plain);
  EXPECT_EQ(End::TargetIsSource, plain.result().end);
  EXPECT_EQ("The target is the source itself", plain.result().failure);
  order.target = _folder.path() / "link.WAV";
  std::filesystem::create_symlink(order.source, order.target);
  const ExportWorker linked(order);
  waitFor(linked);
  EXPECT_EQ(End::TargetIsSource, linked.result().end);
  EXPECT_EQ(before, TemporaryFolder::read(order.source));
}

TEST_F(ExportWorkerTest, TellsItsEndOnce) {
  std::atomic<int> ends = 0;
  {
    const ExportWorker worker(order(shortTake()), ExportWorker::carryOut, [&] { ++ends; });
    waitFor(worker);
  }
  EXPECT_EQ(1, ends);
}

}  // namespace
