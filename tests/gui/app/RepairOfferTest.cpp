// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/RepairOffer.h"

#include <QMessageBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>
#include <system_error>
#include <vector>

#include "WindowFixture.h"
#include "controls/Language.h"
#include "support/SlowReads.h"

namespace {

/// By this program, so far.
std::uintmax_t bytesRead() {
  std::ifstream counts("/proc/self/io");
  std::string name;
  std::uintmax_t bytes = 0;
  counts >> name >> bytes;
  return bytes;
}

/// By any thread of this program.
bool isHeldOpen(const std::filesystem::path& path) {
  const std::filesystem::directory_iterator all("/proc/self/fd");
  return std::any_of(begin(all), end(all), [&](const auto& entry) {
    std::error_code error;
    return std::filesystem::read_symlink(entry.path(), error) == path;
  });
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
  /// One that takes seconds to salvage, and is being salvaged.
  std::filesystem::path beginSalvage() {
    auto path = brokenTake("R0001.WAV");
    constexpr std::uintmax_t kLong = 100'000'000;  // of holes, which count as sound
    std::filesystem::resize_file(path, kLong);
    std::ofstream(path, std::ios::app) << std::string(12, 'x');
    startOnTakes();
    openAndLook("R0001.WAV");
    controller().take().close();
    const std::uintmax_t before = bytesRead();
    SlowReads::limit(takes.path(), 8'000'000);
    press(question(), "Salvage");
    waitFor([&] { return bytesRead() > before + (1 << 20); }, "its beginning");
    return path;
  }
  static QPushButton* buttonOf(const QMessageBox* box, const char* text) {
    const QList<QPushButton*> all = box->findChildren<QPushButton*>();
    const auto found = std::ranges::find(all, QString(text), &QPushButton::text);
    return found == all.end() ? nullptr : *found;
  }
  void TearDown() override {
    SlowReads::reset();
    Language::use(QStringLiteral("en"));
  }
  [[nodiscard]] QString said() const {
    return view().player->lblStatus->message(StatusLine::Topic::Repair);
  }
  static QMessageBox* question() { return box("broke off"); }
  static QMessageBox* box(const char* words) {
    for (QWidget* const widget : QApplication::topLevelWidgets()) {
      auto* const box = qobject_cast<QMessageBox*>(widget);
      if (box != nullptr && box->informativeText().contains(words)) return box;
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
  EXPECT_EQ(said(), "R0001.WAV is salvaged into R0001_Repaired.WAV.");
  openAndLook("R0001_Repaired.WAV");
  EXPECT_EQ(said(), "") << "it was about the take before";
  EXPECT_NEAR(controller().take().duration(), 10, 0.1);
  EXPECT_EQ(question(), nullptr) << "it is sound";
}

TEST_F(Repair, TheQuestionTellsWhatWasFound) {
  const auto path = brokenTake("R0001.WAV");
  const auto size = std::filesystem::file_size(path);
  std::ofstream(path, std::ios::app) << 'x';
  startOnTakes();
  openAndLook("R0001.WAV");
  ASSERT_NE(question(), nullptr);
  const std::string found = question()->informativeText().section("\n\n", 1).toStdString();
  constexpr std::uintmax_t kSound = 480'000 * 6 + 1;
  EXPECT_EQ(found,
            "What was found:\n• the data chunk states 0 bytes, the file holds " +
                std::to_string(kSound) +
                "\n• 1 byte of half a frame at the end\n• the file states 0 bytes, and has " +
                std::to_string(size + 1));
}

TEST_F(Repair, WhatWasFoundIsToldInTheLanguageOfTheWindow) {
  Language::use(QStringLiteral("de"));
  brokenTake("R0001.WAV");
  startOnTakes();
  openAndLook("R0001.WAV");
  const QMessageBox* const german = box("ist abgebrochen");
  ASSERT_NE(german, nullptr);
  const QString text = german->informativeText();
  EXPECT_TRUE(text.contains("• der Daten-Chunk nennt 0 Byte, die Datei hat 2880000"))
      << text.toStdString();
}

// 9.98 s, which would be 10.0 s if it were rounded.
TEST_F(Repair, TheLengthIsCutAsThatInTheList) {
  const auto path = brokenTake("R0001.WAV");
  std::filesystem::resize_file(path, std::filesystem::file_size(path) - 960 * 6);
  startOnTakes();
  openAndLook("R0001.WAV");
  ASSERT_NE(question(), nullptr);
  EXPECT_TRUE(question()->informativeText().contains(" 9.9 s of sound"));
  press(question(), "Salvage");
  const auto length = [this] {
    const int row = rowOf("R0001_Repaired.WAV");
    const auto* const model = view().browser->tableFile->model();
    return row < 0 ? QString() : model->index(row, 0).data(FileListModel::kDurationRole).toString();
  };
  waitFor([&] { return !length().isEmpty(); }, "the length of the new file");
  EXPECT_EQ(length(), "00:09");
}

TEST_F(Repair, WhatCannotBeSalvagedAnyMoreIsTold) {
  brokenTake("R0001.WAV");
  startOnTakes();
  openAndLook("R0001.WAV");
  ASSERT_NE(question(), nullptr);
  takes.file("R0001.WAV", std::vector<std::byte>(1000));
  const QSignalSpy ended(&offer(), &RepairOffer::ended);
  press(question(), "Salvage");
  waitFor([&] { return !ended.empty(); }, "the end");
  EXPECT_EQ(said(), "R0001_Repaired.WAV was not saved: it does not begin as a WAVE file.");
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
  take("R0002.WAV");
  const auto other = file("R0001_Repaired.WAV");
  startOnTakes();
  openAndLook("R0001.WAV");
  const QSignalSpy ended(&offer(), &RepairOffer::ended);
  press(question(), "Salvage");
  waitFor([&] { return !ended.empty(); }, "the end");
  EXPECT_EQ(TemporaryFolder::read(other).size(), 1U);
  EXPECT_TRUE(said().contains("R0001_Repaired.WAV was not saved")) << said().toStdString();
  openAndLook("R0002.WAV");
  EXPECT_EQ(said(), "") << "it was about the take before";
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

TEST_F(Repair, TheEndOfTheWindowAsksFirst) {
  beginSalvage();
  view().close();
  EXPECT_TRUE(view().isVisible());
  press(box("R0001.WAV is being salvaged"), "Keep working");
  EXPECT_TRUE(view().isVisible());
  EXPECT_TRUE(said().contains("is being salvaged"));
  view().close();
  press(box("R0001.WAV is being salvaged"), "Stop and quit");
  EXPECT_FALSE(view().isVisible());
  end();
  EXPECT_THAT(takes.names(), testing::ElementsAre("R0001.WAV"));
}

// What it writes may have a name meanwhile, which nobody else would take away.
TEST_F(Repair, TheEndWaitsUntilNothingOfASalvageRemains) {
  const auto path = beginSalvage();
  ASSERT_TRUE(isHeldOpen(path));
  bool isHeldBehind = true;
  QObject::connect(&offer(), &QObject::destroyed, [&] { isHeldBehind = isHeldOpen(path); });
  end();
  EXPECT_FALSE(isHeldBehind);
  EXPECT_THAT(takes.names(), testing::ElementsAre("R0001.WAV"));
}

// Before exports that hang are waited for, which may leave it no time of its own.
TEST_F(Repair, WhoeverEndsTheWindowEndsASalvageAtOnce) {
  beginSalvage();
  view().close();
  press(box("R0001.WAV is being salvaged"), "Stop and quit");
  waitFor([this] { return !offer().isSalvaging(); }, "its end");
  EXPECT_THAT(takes.names(), testing::ElementsAre("R0001.WAV"));
}

TEST_F(Repair, AnotherTakeCanBeSalvagedOnceTheFirstHasEnded) {
  brokenTake("R0002.WAV");
  beginSalvage();
  openAndLook("R0002.WAV");
  ASSERT_NE(question(), nullptr);
  const QPushButton* const salvages = buttonOf(question(), "Salvage");
  ASSERT_NE(salvages, nullptr);
  EXPECT_FALSE(salvages->isEnabled());
  EXPECT_TRUE(said().contains("R0001.WAV is being salvaged")) << "that is why";
  SlowReads::reset();
  waitFor([&] { return salvages->isEnabled(); }, "the end of the first");
  press(question(), "Salvage");
  waitFor([this] { return selected() == "R0002_Repaired.WAV"; }, "the second");
  EXPECT_TRUE(std::filesystem::exists(takes.path() / "R0001_Repaired.WAV"));
}

// The zeros at its end, holes that take no room, are looked through from behind; the medium stands
// still after some of them. The other take is closed before it is open: the look at that one would
// end the first, too.
TEST_F(Repair, AnotherTakeEndsTheLook) {
  constexpr std::uintmax_t kZeros = std::uintmax_t{1} << 30;
  constexpr std::uintmax_t kSome = 16 << 20;
  const auto path = brokenTake("R0001.WAV");
  std::filesystem::resize_file(path, kZeros);
  take("R0002.WAV");
  startOnTakes();
  const std::uintmax_t before = bytesRead();
  SlowReads::give(takes.path(), kSome);
  waitForTake([this] { doubleClickRow("R0001.WAV"); });
  waitFor([&] { return bytesRead() > before + kSome / 2; }, "the look at it");
  EXPECT_TRUE(isHeldOpen(path));
  controller().openWavFile({false, "R0002.WAV", {}, (takes.path() / "R0002.WAV").string()});
  controller().take().close();
  SlowReads::reset();
  waitFor([&] { return !isHeldOpen(path); }, "the end of it");
  EXPECT_LT(bytesRead() - before, kZeros / 2);
}

}  // namespace
