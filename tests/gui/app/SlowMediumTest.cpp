// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <QElapsedTimer>
#include <QTest>
#include <filesystem>
#include <fstream>

#include "WindowFixture.h"
#include "support/SlowReads.h"
#include "support/WaveBytes.h"

namespace {

constexpr std::uint64_t kRate = 20'000'000;  // bytes per second, as of a slow card

/// The takes lie on a medium that reads 20 MB/s.
class SlowMedium : public WindowFixture {
 protected:
  void SetUp() override { SlowReads::limit(takes.path().string(), kRate); }
  void TearDown() override {
    end();
    SlowReads::reset();
  }

  /// A raw take as long as a WAVE file of the recorder can be, without taking the room.
  std::filesystem::path longTake(const std::string& name) const {
    constexpr std::uint32_t kBytes = 0x7FFF'0000;
    const auto header =
        WaveBytes().bext("TARN J4", "MSRAW=ON").format24().chunk("data", kBytes, {});
    const auto path = takes.file(name, header.get());
    std::filesystem::resize_file(path, std::filesystem::file_size(path) + kBytes);
    return path;
  }
  /// Milliseconds from a double click until the output plays the take.
  qint64 openToSound(const std::string& name) {
    clickRow(name);
    QElapsedTimer watch;
    watch.start();
    controller().table_cell_double_click();
    while (controller().wavPlayer() != nullptr && output->framesPlayed() == 0) play(20);
    return watch.elapsed();
  }
};

TEST_F(SlowMedium, IsAsSlowAsItShouldBe) {
  constexpr std::size_t kBytes = 2'000'000;
  const auto path = takes.file("bytes", std::vector<std::byte>(kBytes));
  QElapsedTimer watch;
  watch.start();
  std::ifstream file(path, std::ios::binary);
  std::vector<char> bytes(kBytes);
  file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  EXPECT_EQ(file.gcount(), static_cast<std::streamsize>(kBytes));
  EXPECT_GE(watch.elapsed(), 95);
}

TEST_F(SlowMedium, TakeOfTwoGiBSoundsWithinHalfASecond) {
  longTake("R0001.WAV");
  startOnTakes();
  EXPECT_LT(openToSound("R0001.WAV"), 500);
  EXPECT_EQ(view().lblTimeTotal->text(), "02:04:16");
  EXPECT_LT(controller().exportJob()->reader()->image()->loaded(), 100'000'000U)
      << "it loads behind what plays";
}

TEST_F(SlowMedium, OpeningAnotherTakeGivesUpTheLoadAtOnce) {
  longTake("R0001.WAV");
  longTake("R0002.WAV");
  startOnTakes();
  openToSound("R0001.WAV");
  const auto first = controller().exportJob()->reader()->image();
  EXPECT_LT(openToSound("R0002.WAV"), 500);
  EXPECT_FALSE(first->waitUntilLoaded(first->size())) << "nobody loads it any more";
}

TEST_F(SlowMedium, LevelsFollowWhatIsLoaded) {
  longTake("R0001.WAV");
  startOnTakes();
  openToSound("R0001.WAV");
  view().lvlLeft->setLevel(30);
  player().setPosition(0.9);
  controller().updateLevelMeter(1.0 / 30.0);
  EXPECT_EQ(view().lvlLeft->level(), 0) << "not known yet";
}

TEST_F(SlowMedium, PulledOutWhilePlayingIsAQuietLine) {
  longTake("R0001.WAV");
  startOnTakes();
  openToSound("R0001.WAV");
  SlowReads::pullOut();
  play(1000);
  EXPECT_EQ(state(), PLAY_STATE_FINISH);
  const std::string status = view().lblStatus->text().toStdString();
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
  doubleClickRow("R0001.WAV");
  closeAlert("File not supported.");
  EXPECT_NE(view().lblStatus->text(), "");
}

}  // namespace
