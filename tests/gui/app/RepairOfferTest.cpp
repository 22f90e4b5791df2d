// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/RepairOffer.h"

#include <QMessageBox>
#include <QSignalSpy>
#include <QTest>
#include <cstdint>
#include <fstream>
#include <string>
#include <utility>

#include "WindowFixture.h"

namespace {

/// By this program, so far.
std::uintmax_t bytesRead() {
  std::ifstream counts("/proc/self/io");
  std::string name;
  std::uintmax_t bytes = 0;
  counts >> name >> bytes;
  return bytes;
}

/// Takes whose recording broke off, in the whole window.
class Repair : public WindowFixture {
 protected:
  RepairOffer& offer() {
    auto* const found = controller().findChild<RepairOffer*>();
    EXPECT_NE(found, nullptr);
    return *found;
  }
  void openAndLook(const std::string& name) {
    const QSignalSpy looked(&offer(), &RepairOffer::looked);
    waitForTake([&] { doubleClickRow(name); });
    waitFor([&] { return !looked.empty(); }, "whether it broke off");
  }
  static QMessageBox* question() {
    for (QWidget* const widget : QApplication::topLevelWidgets()) {
      auto* const box = qobject_cast<QMessageBox*>(widget);
      if (box != nullptr && box->informativeText().contains("broke off")) return box;
    }
    return nullptr;
  }
};

TEST_F(Repair, ABrokenTakeIsSalvagedAndSelected) {
  const auto path = brokenTake("R0001.WAV");
  const auto before = TemporaryFolder::read(path);
  startOnTakes();
  openAndLook("R0001.WAV");
  ASSERT_NE(question(), nullptr);
  EXPECT_TRUE(question()->informativeText().contains("10.0 s")) << "what can be had";
  EXPECT_TRUE(question()->informativeText().contains("R0001_Repaired.WAV"));
  press(question(), "Salvage");
  waitFor([this] { return selected() == "R0001_Repaired.WAV"; }, "the new file");
  EXPECT_EQ(TemporaryFolder::read(path), before) << "the take is only read";
  openAndLook("R0001_Repaired.WAV");
  EXPECT_NEAR(controller().take().duration(), 10, 0.1);
  EXPECT_EQ(question(), nullptr) << "it is sound";
}

TEST_F(Repair, NotNowWritesNothing) {
  brokenTake("R0001.WAV");
  startOnTakes();
  openAndLook("R0001.WAV");
  const auto before = takes.names();
  press(question(), "Not now");
  waitFor([] { return question() == nullptr; }, "the end of the question");
  EXPECT_EQ(takes.names(), before);
}

TEST_F(Repair, ASoundTakeAndWhatIsNoTakeAreNotAskedAbout) {
  take("R0001.WAV");
  file("x.wav");
  startOnTakes();
  openAndLook("R0001.WAV");
  EXPECT_EQ(question(), nullptr);
  openAndLook("x.wav");
  EXPECT_EQ(question(), nullptr);
}

TEST_F(Repair, AFileThatIsThereIsKept) {
  brokenTake("R0001.WAV");
  const auto other = file("R0001_Repaired.WAV");
  startOnTakes();
  openAndLook("R0001.WAV");
  const QSignalSpy ended(&offer(), &RepairOffer::ended);
  press(question(), "Salvage");
  waitFor([&] { return !ended.empty(); }, "the end");
  EXPECT_EQ(TemporaryFolder::read(other).size(), 1U);
  EXPECT_TRUE(view()
                  .player->lblStatus->message(StatusLine::Topic::Repair)
                  .contains("R0001_Repaired.WAV was not saved"));
}

TEST_F(Repair, AnotherTakeTakesTheQuestionAway) {
  brokenTake("R0001.WAV");
  take("R0002.WAV");
  startOnTakes();
  openAndLook("R0001.WAV");
  ASSERT_NE(question(), nullptr);
  const QSignalSpy looked(&offer(), &RepairOffer::looked);
  waitForTake([&] {
    controller().openWavFile({false, "R0002.WAV", {}, (takes.path() / "R0002.WAV").string()});
  });
  waitFor([] { return question() == nullptr; }, "the end of the question");
  waitFor([&] { return !looked.empty(); }, "whether it broke off");
}

// The zeros at its end, holes that take no room, are looked through from behind.
TEST_F(Repair, AnotherTakeEndsTheLook) {
  constexpr std::uintmax_t kZeros = std::uintmax_t{8} << 30;
  std::filesystem::resize_file(brokenTake("R0001.WAV"), kZeros);
  take("R0002.WAV");
  startOnTakes();
  const std::uintmax_t before = bytesRead();
  waitForTake([this] { doubleClickRow("R0001.WAV"); });
  const QSignalSpy looked(&offer(), &RepairOffer::looked);
  controller().openWavFile({false, "R0002.WAV", {}, (takes.path() / "R0002.WAV").string()});
  waitFor([&] { return !looked.empty(); }, "whether it broke off");
  constexpr std::uintmax_t kSome = 100'000;  // that counting takes
  std::uintmax_t now = 0;
  waitFor(
      [&now] {
        const std::uintmax_t then = std::exchange(now, bytesRead());
        return now < then + kSome;
      },
      "the end of it");
  EXPECT_LT(now - before, kZeros / 2);
}

}  // namespace
