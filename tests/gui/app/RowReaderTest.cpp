// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/RowReader.h"

#include <QDate>
#include <QLocale>
#include <QSignalSpy>
#include <QTest>
#include <algorithm>
#include <array>
#include <chrono>
#include <fstream>

#include "WindowFixture.h"
#include "base/Utility.h"
#include "export/Export.h"
#include "support/FirstMemory.h"
#include "support/SlowReads.h"
#include "takes/TakeMemory.h"

namespace {

/// What the list tells beside the names.
class Rows : public WindowFixture {
 protected:
  Rows() {
    Utility::store(Utility::kRememberTakes, "on");
    SlowReads::reset();
  }
  ~Rows() override { SlowReads::reset(); }

  RowReader& reader() {
    auto* const found = controller().findChild<RowReader*>();
    EXPECT_NE(found, nullptr);
    return *found;
  }
  [[nodiscard]] QVariant of(const std::string& name, int role) const {
    return view().browser->tableFile->model()->index(rowOf(name), 0).data(role);
  }
  [[nodiscard]] std::string duration(const std::string& name) const {
    return of(name, FileListModel::kDurationRole).toString().toStdString();
  }
  [[nodiscard]] bool isExported(const std::string& name) const {
    return of(name, FileListModel::kExportedRole).toBool();
  }
  [[nodiscard]] std::string tip(const std::string& name) const {
    return of(name, Qt::ToolTipRole).toString().toStdString();
  }
  void waitForDuration(const std::string& name, const std::string& text) {
    waitFor([&] { return duration(name) == text; }, text.c_str());
  }
  /// A recording of so many seconds of this day.
  void recorded(const std::string& name, std::uint32_t seconds, const std::string& date) const {
    const auto path = take(name, 48'000 * seconds);
    auto bytes = TemporaryFolder::read(path);
    const std::string_view mark = "TARN J4";
    const auto found = std::search(bytes.begin(), bytes.end(), mark.begin(), mark.end(),
                                   [](std::byte a, char b) { return a == std::byte(b); });
    constexpr std::ptrdiff_t kDate = 64;  // behind originator and reference
    std::ranges::transform(date, found + kDate, [](char c) { return std::byte(c); });
    takes.file(name, bytes);
  }
  /// Halves the sample rate that the take states, so that it takes twice as long.
  void makeSlower(const std::string& name) const {
    auto bytes = TemporaryFolder::read(takes.path() / name);
    constexpr std::array kRate{std::byte{0x80}, std::byte{0xBB}, std::byte{0}, std::byte{0}};
    const auto rate = std::search(bytes.begin(), bytes.end(), kRate.begin(), kRate.end());
    ASSERT_NE(rate, bytes.end());
    rate[0] = std::byte{0xC0};  // 24000
    rate[1] = std::byte{0x5D};
    takes.file(name, bytes);
  }
  /// Exports the take to there, as with `order`, and waits until the list tells it.
  void exportTo(const std::filesystem::path& source, const std::filesystem::path& target) {
    controller().exportQueue().add(order(source, target));
    const std::string name = source.filename();
    waitFor([&] { return isExported(name); }, "the export");
  }
  /// Lists one row more, and waits until all rows are known again.
  void readAgain() {
    const QSignalSpy passes(&reader(), &RowReader::finished);
    file("another" + std::to_string(rows().size()) + ".wav");
    refresh();
    waitFor([&] { return !passes.empty(); }, "the end of the pass");
  }
  [[nodiscard]] bool tells(const std::string& name, const std::string& part) const {
    return tip(name).find(part) != std::string::npos;
  }
  /// Lists the takes while nothing is to be remembered; the memory stays as it is, to the byte, and
  /// alone in its folder.
  void expectMemoryUntouched() {
    const auto memory = TakeMemory::defaultPath();
    const auto before = TemporaryFolder::read(memory);
    startOnTakes();
    waitForDuration("R0001.WAV", "00:10");
    end();
    EXPECT_TRUE(TemporaryFolder::read(memory) == before);
    for (const auto& entry : std::filesystem::directory_iterator(memory.parent_path())) {
      EXPECT_EQ(entry.path(), memory);
    }
  }
  static ExportOrder order(const std::filesystem::path& source,
                           const std::filesystem::path& target) {
    ExportOrder made;
    made.source = source;
    made.target = target;
    made.angle = 90;
    made.gain = -6;
    return made;
  }
};

TEST_F(Rows, ShowDurationsAndNothingForWhatIsNoRecording) {
  take("R0001.WAV", 48'000 * 7);
  file("broken.wav");
  folder("Bells");
  startOnTakes();
  waitForDuration("R0001.WAV", "00:07");
  EXPECT_EQ(duration("broken.wav"), "");
  EXPECT_EQ(duration("Bells"), "");
  EXPECT_EQ(of("R0001.WAV", Qt::AccessibleDescriptionRole).toString(), "Recording, 00:07");
  EXPECT_FALSE(isExported("R0001.WAV"));
}

TEST_F(Rows, AFileThatHasChangedIsReadAgain) {
  take("R0001.WAV", 48'000 * 2);
  startOnTakes();
  waitForDuration("R0001.WAV", "00:02");
  take("R0001.WAV", 48'000 * 5);
  take("R0002.WAV", 48'000);
  refresh();
  waitForDuration("R0001.WAV", "00:05");
  waitForDuration("R0002.WAV", "00:01");
}

TEST_F(Rows, AFileOfTheSameSizeAndTimeIsNotReadAgain) {
  const auto path = take("R0001.WAV", 48'000 * 2);
  const auto asWritten = std::filesystem::last_write_time(path);
  startOnTakes();
  waitForDuration("R0001.WAV", "00:02");
  makeSlower("R0001.WAV");
  std::filesystem::last_write_time(path, asWritten);
  readAgain();
  EXPECT_EQ(duration("R0001.WAV"), "00:02");
}

TEST_F(Rows, OneOfTheSameSizeAndAnotherTimeIs) {
  const auto path = take("R0001.WAV", 48'000 * 2);
  const auto asWritten = std::filesystem::last_write_time(path);
  startOnTakes();
  waitForDuration("R0001.WAV", "00:02");
  const auto size = std::filesystem::file_size(path);
  makeSlower("R0001.WAV");
  std::filesystem::last_write_time(path, asWritten - std::chrono::milliseconds(10));
  EXPECT_EQ(std::filesystem::file_size(path), size);
  readAgain();
  EXPECT_EQ(duration("R0001.WAV"), "00:04") << "also where it is an earlier one";
}

TEST_F(Rows, AnExportBesideItIsKnownByItsName) {
  take("R0001.WAV");
  take("R0002.WAV");
  take("R0002_Decode.WAV", 480'000, false);
  startOnTakes();
  waitFor([this] { return isExported("R0002.WAV"); }, "the export");
  EXPECT_FALSE(isExported("R0001.WAV"));
  EXPECT_NE(tip("R0002.WAV").find("R0002_Decode.WAV"), std::string::npos);
  EXPECT_EQ(tip("R0001.WAV"), "R0001.WAV");
  std::filesystem::remove(takes.path() / "R0002_Decode.WAV");
  refresh();
  waitFor([this] { return !isExported("R0002.WAV"); }, "that it has gone");
}

TEST_F(Rows, AnExportElsewhereIsNotedWithItsWidthGainAndDate) {
  const QDate begun = QDate::currentDate();
  const auto source = take("R0001.WAV");
  const TemporaryFolder elsewhere;
  startOnTakes();
  waitForDuration("R0001.WAV", "00:10");
  controller().exportQueue().add(order(source, elsewhere.path() / "Bells.wav"));
  waitFor([this] { return isExported("R0001.WAV"); }, "the export");
  for (const char* const part : {"Bells.wav", "width 90°", "gain -6 dB"}) {
    EXPECT_NE(tip("R0001.WAV").find(part), std::string::npos) << tip("R0001.WAV");
  }
  const auto tells = [this](QDate date) {
    const QString text = QLocale().toString(date, QLocale::ShortFormat);
    return tip("R0001.WAV").find(text.toStdString()) != std::string::npos;
  };
  EXPECT_TRUE(tells(begun) || tells(QDate::currentDate())) << tip("R0001.WAV");
  end();
  startOnTakes();
  waitFor([this] { return isExported("R0001.WAV"); }, "the export, after a new start");
  EXPECT_NE(tip("R0001.WAV").find("width 90°"), std::string::npos);
}

// Mid 0.5 and Side 0.25 throughout: 0.75 to the left at width 120, 2.50 dB below full scale.
TEST_F(Rows, TheGainThatAnExportFoundIsNotedToo) {
  const auto source = take("R0001.WAV", 48'000);
  startOnTakes();
  waitForDuration("R0001.WAV", "00:01");
  ExportOrder normalized = order(source, takes.path() / "Full.wav");
  normalized.angle = 120;
  normalized.isNormalized = true;
  controller().exportQueue().add(normalized);
  waitFor([this] { return tells("R0001.WAV", "Full.wav: width 120°, gain 2.5 dB"); }, "its gain");
  ExportOrder aimed = order(source, takes.path() / "Loud.wav");
  aimed.loudness = LoudnessTarget{-23, -1};
  Export job(source);
  job.setAngle(aimed.angle);
  job.setLoudness(aimed.loudness);
  const TemporaryFolder elsewhere;
  job.setDirPath(elsewhere.path());
  ASSERT_TRUE(job.export2File(elsewhere.path() / "other.wav", true, false));
  const QString gain = QString::number(*job.loudnessGain()->gain(), 'f', 2);
  const std::string told = "Loud.wav: width 90°, gain " + gain.toStdString() + " dB";
  controller().exportQueue().add(aimed);
  waitFor([&] { return tells("R0001.WAV", told); }, told.c_str());
}

TEST_F(Rows, ThatComeWhileOthersAreReadAreReadToo) {
  take("R0001.WAV");
  SlowReads::share(takes.path().string(), 1);
  startOnTakes();
  QSignalSpy passes(&reader(), &RowReader::finished);
  take("R0002.WAV", 48'000 * 2);
  refresh();
  EXPECT_EQ(duration("R0001.WAV") + duration("R0002.WAV"), "");
  SlowReads::reset();
  waitForDuration("R0001.WAV", "00:10");
  waitForDuration("R0002.WAV", "00:02");
  waitFor([&] { return !passes.empty(); }, "the end of the second pass");
  EXPECT_EQ(passes.count(), 1);
}

TEST_F(Rows, TheWindowWaitsForNoMedium) {
  take("R0001.WAV");
  take("R0002.WAV");
  SlowReads::share(takes.path().string(), 0);
  startOnTakes();
  EXPECT_EQ(duration("R0001.WAV"), "");
  const QSignalSpy answers(&controller(), &ViewController::listed);
  refresh();
  EXPECT_GT(answers.count(), 0) << "it lists and answers meanwhile";
  EXPECT_EQ(SlowReads::takenHere(), 0U) << "and reads nothing itself";
  SlowReads::reset();
  waitForDuration("R0001.WAV", "00:10");
}

TEST_F(Rows, StandInTheOrderThatTheMenuSays) {
  recorded("A.WAV", 3, "2026-05-04");
  recorded("B.WAV", 1, "2026-05-06");
  recorded("C.WAV", 2, "2026-05-05");
  file("0broken.wav");
  folder("Zoo");
  startOnTakes();
  waitForDuration("C.WAV", "00:02");
  waitForDuration("A.WAV", "00:03");
  using testing::ElementsAre;
  EXPECT_THAT(rows(), ElementsAre("Zoo", "0broken.wav", "A.WAV", "B.WAV", "C.WAV"));
  clickRow("C.WAV");
  view().menu->actionByDuration->trigger();
  EXPECT_THAT(rows(), ElementsAre("Zoo", "B.WAV", "C.WAV", "A.WAV", "0broken.wav"));
  EXPECT_EQ(selected(), "C.WAV") << "what is selected stays so";
  view().menu->actionByRecorded->trigger();
  EXPECT_THAT(rows(), ElementsAre("Zoo", "A.WAV", "C.WAV", "B.WAV", "0broken.wav"));
  recorded("D.WAV", 4, "2026-05-01");
  refresh();
  waitFor([this] { return rows().at(1) == "D.WAV"; }, "the new one in its place");
  end();
  startOnTakes();
  waitFor([this] { return rows().at(1) == "D.WAV"; }, "the order after a new start");
  EXPECT_TRUE(view().menu->actionByRecorded->isChecked());
  view().menu->actionByName->trigger();
  EXPECT_THAT(rows(), ElementsAre("Zoo", "0broken.wav", "A.WAV", "B.WAV", "C.WAV", "D.WAV"));
}

TEST_F(Rows, WithTheSwitchOffAMemoryOfTheFirstVersionIsLeftAsItIs) {
  Utility::store(Utility::kRememberTakes, "off");
  take("R0001.WAV");
  makeFirst(TakeMemory::defaultPath());
  expectMemoryUntouched();
}

TEST_F(Rows, WithTheSwitchOffADamagedMemoryIsLeftAsItIs) {
  Utility::store(Utility::kRememberTakes, "off");
  take("R0001.WAV");
  std::filesystem::create_directories(TakeMemory::defaultPath().parent_path());
  std::ofstream(TakeMemory::defaultPath()) << std::string(10'000, 'x');
  expectMemoryUntouched();
}

TEST_F(Rows, WithTheSwitchOffExportsAreKnownByTheirNamesAlone) {
  const auto source = take("R0001.WAV");
  const auto other = take("R0002.WAV");
  const TemporaryFolder elsewhere;
  startOnTakes();
  waitForDuration("R0002.WAV", "00:10");
  exportTo(source, elsewhere.path() / "Bells.wav");
  exportTo(other, takes.path() / "R0002_Decode.WAV");
  EXPECT_TRUE(tells("R0002.WAV", "width 90°")) << tip("R0002.WAV");
  view().menu->actionRemember->setChecked(false);
  waitFor([this] { return !isExported("R0001.WAV"); }, "that nothing is known of it");
  waitFor([this] { return !tells("R0002.WAV", "width"); }, "that no more is known");
  EXPECT_TRUE(tells("R0002.WAV", "R0002_Decode.WAV")) << tip("R0002.WAV");
  readAgain();
  EXPECT_FALSE(isExported("R0001.WAV"));
  view().menu->actionRemember->setChecked(true);
  waitFor([this] { return tells("R0001.WAV", "Bells.wav: width 90°"); }, "that it is read again");
  waitFor([this] { return tells("R0002.WAV", "width 90°"); }, "that of the other one, too");
}

TEST_F(Rows, WidthAndGainAreNotToldOfAnExportThatWasWrittenAnew) {
  const auto source = take("R0001.WAV");
  const auto target = takes.path() / "Bells.wav";
  startOnTakes();
  waitForDuration("R0001.WAV", "00:10");
  exportTo(source, target);
  const auto asWritten = std::filesystem::last_write_time(target);
  const auto tellsWidthAfter = [&](std::chrono::seconds later) {
    std::filesystem::last_write_time(target, asWritten + later);
    readAgain();
    EXPECT_TRUE(tells("R0001.WAV", "Exported as Bells.wav")) << tip("R0001.WAV");
    EXPECT_EQ(tells("R0001.WAV", "width 90°"), tells("R0001.WAV", "gain -6 dB"));
    return tells("R0001.WAV", "width 90°");
  };
  using std::chrono::seconds;
  EXPECT_TRUE(tellsWidthAfter(seconds(0)));
  EXPECT_FALSE(tellsWidthAfter(seconds(1)));
  EXPECT_FALSE(tellsWidthAfter(seconds(3600)));
  EXPECT_TRUE(tellsWidthAfter(seconds(-2))) << "as FAT keeps it";
  EXPECT_FALSE(tellsWidthAfter(seconds(-3))) << "as one from before, brought back";
  std::filesystem::last_write_time(target, asWritten);
  end();
  startOnTakes();
  waitFor([this] { return tells("R0001.WAV", "width 90°"); }, "the width, after a new start");
}

}  // namespace
