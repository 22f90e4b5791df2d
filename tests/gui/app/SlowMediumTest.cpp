// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <QDeadlineTimer>
#include <QElapsedTimer>
#include <QSignalSpy>
#include <QTest>
#include <chrono>
#include <filesystem>
#include <fstream>

#include "WindowFixture.h"
#include "app/MeasuredTake.h"
#include "queue/ExportQueue.h"
#include "support/LongTake.h"
#include "support/SlowReads.h"
#include "takes/AnalysisCache.h"

namespace {

constexpr std::uint64_t kRate = 20'000'000;  // bytes per second, as of a slow card
/// What a thread gets in half a second, with two others that read all the time.
constexpr std::uint64_t kShare = kRate / 2 / 3;

constexpr std::uint64_t kMegabyte = 1 << 20;

/// How much more memory the program has had at once since now than it has now.
class PeakMemory {
 public:
  PeakMemory() {
    std::ofstream("/proc/self/clear_refs") << "5";  // the peak is what there is now
    _before = bytes("VmHWM:");
  }
  [[nodiscard]] std::uint64_t growth() const { return bytes("VmHWM:") - _before; }

 private:
  static std::uint64_t bytes(const std::string& wanted) {
    std::ifstream status("/proc/self/status");
    std::string key;
    std::uint64_t kilobytes = 0;
    while (status >> key && key != wanted) {
    }
    status >> kilobytes;
    EXPECT_GT(kilobytes, 0U) << "the system tells of its memory";
    return 1024 * kilobytes;
  }

  std::uint64_t _before;
};

/// The takes lie on a medium that has given each thread what it gives within half a second.
class SlowMedium : public WindowFixture {
 protected:
  void SetUp() override {
    isMediumFast = false;
    SlowReads::share(takes.path().string(), kShare);
  }
  void TearDown() override {
    end();
    SlowReads::reset();
  }

  /// A raw take as long as a WAVE file of the recorder can be, without taking the room.
  std::filesystem::path longTake(const std::string& name,
                                 std::uint32_t sampleBytes = 0x7FFF'0000 / 6 * 6) const {
    return LongTake::make(takes, name, sampleBytes);
  }
  /// Lets music play until it holds.
  void playUntil(const std::function<bool()>& condition, const char* what) {
    constexpr std::chrono::minutes kPatience(2);
    const QDeadlineTimer deadline(kPatience);
    while (!condition() && !deadline.hasExpired()) play(20);
    ASSERT_TRUE(condition()) << what;
  }
  /// A double click, until the output plays the take.
  void openToSound(const std::string& name) {
    const int before = outputsMade;
    const std::uint64_t taken = SlowReads::takenHere();
    clickRow(name);
    controller().table_cell_double_click();
    playUntil([&] { return outputsMade > before && output->framesPlayed() > 0; }, "the sound");
    EXPECT_LE(SlowReads::takenHere() - taken, kShare);
  }
  /// For whoever looks at the results.
  static void tellOf(const char* what, const PeakMemory& memory) {
    RecordProperty(std::string("MiB_") + what, std::to_string(memory.growth() / kMegabyte));
  }
  /// However long it takes, as long as it goes on.
  void measureAll() {
    const auto& measured = *controller().findChild<MeasuredTake*>();
    while (measured.progress() < 1) {
      const double known = measured.progress();
      waitFor([&] { return measured.progress() > known; }, "more of the take");
      if (HasFatalFailure()) return;
    }
  }
  /// Of the whole take the disk may not have the room.
  void exportTenMinutes(const std::filesystem::path& source) {
    ExportQueue& exports = controller().exportQueue();
    const QSignalSpy ends(&exports, &ExportQueue::finished);
    const std::filesystem::path target = takes.path() / "out.WAV";
    exports.add({.source = source, .target = target, .range = FrameRange{0, 600 * 48'000}});
    waitFor([&] { return !ends.empty(); }, "the end of the export");
    EXPECT_GT(std::filesystem::file_size(target), 600 * 48'000 * 6);
  }
  [[nodiscard]] std::shared_ptr<WaveImage> image() {
    return controller().exportJob()->reader()->image();
  }

  const std::filesystem::path kept = AnalysisCache::defaultFolder();
};

TEST_F(SlowMedium, IsAsSlowAsItShouldBe) {
  constexpr std::size_t kBytes = 2'000'000;
  SlowReads::limit(takes.path().string(), kRate);
  const auto path = takes.file("bytes", std::vector<std::byte>(kBytes));
  QElapsedTimer watch;
  watch.start();
  std::ifstream file(path, std::ios::binary);
  std::vector<char> bytes(kBytes);
  file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  EXPECT_EQ(file.gcount(), static_cast<std::streamsize>(kBytes));
  EXPECT_GE(watch.elapsed(), 95);
  EXPECT_GE(SlowReads::takenHere(), kBytes);
}

TEST_F(SlowMedium, TakeOfTwoGiBSoundsWithinHalfASecond) {
  longTake("R0001.WAV");
  startOnTakes();
  openToSound("R0001.WAV");
  EXPECT_EQ(view().player->lblTimeTotal->text(), "02:04:16");
  playUntil([this] { return image()->heldFrom(0) > 0; }, "it is read ahead for the meters");
  EXPECT_LE(image()->heldFrom(0), kShare);
}

TEST_F(SlowMedium, OpeningAnotherTakeWaitsForNobody) {
  longTake("R0001.WAV");
  longTake("R0002.WAV");
  startOnTakes();
  openToSound("R0001.WAV");
  const std::weak_ptr<WaveImage> first = image();
  openToSound("R0002.WAV");
  EXPECT_TRUE(first.expired()) << "though its worker may still hang in a read";
}

TEST_F(SlowMedium, LevelsFollowWhatIsAtHand) {
  longTake("R0001.WAV");
  startOnTakes();
  openToSound("R0001.WAV");
  constexpr std::uint64_t kWholeBlocks =
      kShare / FollowedBlocks::kBlockBytes * FollowedBlocks::kBlockBytes;
  playUntil([this] { return image()->heldFrom(0) >= kWholeBlocks; }, "all that the worker gets");
  stage().lvlLeft->setLevel(30);
  player().setPosition(0.9);
  controller().updateLevelMeter(1.0 / 30.0);
  EXPECT_EQ(stage().lvlLeft->level(), 0) << "not known yet";
}

TEST_F(SlowMedium, TakeOfAlmostFourGiBNeedsLittleMemory) {
  SlowReads::limit(takes.path().string(), 0);
  longTake("R0001.WAV", 0xFA00'0000 / 6 * 6);
  startOnTakes();
  const PeakMemory memory;
  openToSound("R0001.WAV");
  EXPECT_EQ(view().player->lblTimeTotal->text(), "04:02:43");
  for (const double position : {0.0, 0.3, 0.6, 0.9, 0.1, 0.999}) {
    player().setPosition(position);
    play(500);
    const double time = player().curremtTime();
    WaveFileReader& reader = *controller().exportJob()->reader();
    playUntil([&] { return reader.follow(time, time + 0.1); }, "levels at hand");
    controller().updateLevelMeter(1.0 / 30.0);
  }
#ifndef MIXDECK_SANITIZED  // which keeps for a while what is given back, and is slow to measure all
  measureAll();
  tellOf("measured", memory);
  const auto isKept = [this] {
    return std::filesystem::exists(kept) && !std::filesystem::is_empty(kept);
  };
  waitFor(isKept, "the analysis in its folder");
  tellOf("kept", memory);
  openToSound("R0001.WAV");
  measureAll();
  tellOf("again", memory);
  exportTenMinutes(takes.path() / "R0001.WAV");
  tellOf("exporting", memory);
  EXPECT_LT(memory.growth(), 64 * kMegabyte);
#endif
}

TEST_F(SlowMedium, PulledOutWhilePlayingIsAQuietLine) {
  longTake("R0001.WAV");
  startOnTakes();
  openToSound("R0001.WAV");
  SlowReads::pullOut();
  playUntil([this] { return state() == PLAY_STATE_FINISH; }, "the end of what was read");
  const std::string status = view().player->lblStatus->text().toStdString();
  EXPECT_THAT(status, testing::StartsWith("R0001.WAV cannot be read: "));
  EXPECT_THAT(status, testing::HasSubstr("Input/output error"));
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
  controller().btnPlay_Click();
  play(500);
  EXPECT_NE(controller().exportJob(), nullptr) << "it may be plugged in again";
}

TEST_F(SlowMedium, PulledOutBeforeOpeningIsTheAlert) {
  longTake("R0001.WAV");
  startOnTakes();
  SlowReads::pullOut();
  waitForTake([this] { doubleClickRow("R0001.WAV"); });
  closeAlert("File not supported.");
  EXPECT_NE(view().player->lblStatus->text(), "");
}

}  // namespace
