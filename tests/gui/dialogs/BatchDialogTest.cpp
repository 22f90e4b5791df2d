// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "dialogs/BatchDialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QRadioButton>
#include <QTest>
#include <cstddef>

#include "DialogFixture.h"
#include "dialogs/BatchDesk.h"
#include "dialogs/FolderPanel.h"
#include "support/LongTake.h"
#include "support/WaveBytes.h"

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class BatchDialogTest : public DialogFixture {
 protected:
  ~BatchDialogTest() override { _batch.reset(); }

  BatchDialog& open(const std::vector<std::filesystem::path>& files,
                    const BatchTake::Recall& recall = {}) {
    showMainWindow();
    _batch = std::make_unique<BatchDesk>(*_queue, *_mainWindow, [this] { return _now; });
    _batch->ask(files, 6, 90.7, recall);
    _dialog = shown<BatchDialog>();
    EXPECT_NE(_dialog, nullptr);
    QObject::connect(_dialog, &BatchDialog::ordered,
                     [this](const std::vector<ExportOrder>& them) { _ordered = them; });
    waitForPlan();
    return *_dialog;
  }
  [[nodiscard]] QPushButton& end() const {
    return *_dialog->findChild<QPushButton*>(QStringLiteral("export"));
  }
  /// The button's text tells that the plan is there; a choice has it made anew.
  void waitForPlan() {
    EXPECT_TRUE(waitUntil([this] { return !texts().contains(QStringLiteral("…")); }));
  }
  [[nodiscard]] QStringList texts() const { return labels(*_dialog); }
  [[nodiscard]] std::string text() const { return texts().join('|').toStdString(); }
  [[nodiscard]] std::vector<std::string> refused() const {
    std::vector<std::string> lines;
    const auto& list = *_dialog->findChild<QListWidget*>();
    for (int row = 0; row < list.count() && list.isVisible(); ++row) {
      lines.push_back(list.item(row)->text().toStdString());
    }
    return lines;
  }
  template <class Widget>
  [[nodiscard]] Widget& part(const char* name) const {
    return *_dialog->findChild<Widget*>(QLatin1String(name));
  }
  void choose(BatchWish::Existing existing) {
    part<QComboBox>("existing").setCurrentIndex(static_cast<int>(existing));
    waitForPlan();
  }

  std::unique_ptr<BatchDesk> _batch;
  QPointer<BatchDialog> _dialog;
  std::vector<ExportOrder> _ordered;
};

TEST_F(BatchDialogTest, TellsWhatWillBecomeOfTheTakes) {
  open({take("a.WAV"), take("b.WAV")});
  EXPECT_EQ(_dialog->windowTitle(), "Export");
  EXPECT_EQ(_dialog->windowModality(), Qt::WindowModal);
  EXPECT_THAT(text(), HasSubstr("Export 2 takes|Length|00:00:00|Stereo width|90° for all|Gain|+6 dB"
                                "|Room|37.5 kB, of "));
  EXPECT_EQ(end().text(), "Export 2");
  EXPECT_TRUE(end().isEnabled());
  EXPECT_THAT(refused(), IsEmpty());
  EXPECT_THAT(text(), Not(HasSubstr("noise")));
  part<QRadioButton>("radio32").setChecked(true);
  waitForPlan();
  EXPECT_THAT(text(), HasSubstr("|49.5 kB, of "));
  expectNothingCut(*_dialog);
}

TEST_F(BatchDialogTest, SaysBeforehandWhatWillBeTooLongForWave) {
  constexpr std::uint32_t kSampleBytes = 3'500'000'000;  // in floats a third more
  open({take("a.WAV"), LongTake::make(_folder, "long.WAV", kSampleBytes)});
  EXPECT_THAT(text(), Not(HasSubstr("RF64")));
  part<QRadioButton>("radio32").setChecked(true);
  waitForPlan();
  EXPECT_THAT(text(), HasSubstr("Over 4 GiB: written as RF64, which not every program reads"));
  expectNothingCut(*_dialog);
}

TEST_F(BatchDialogTest, SaysBeforehandWhatIsNoSound) {
  const auto noise = _folder.file(
      "noise.WAV",
      WaveBytes().format(1, 2, 48000, 16).recorderBext().data(std::vector<std::byte>(24)).get());
  open({take("a.WAV"), noise});
  EXPECT_THAT(text(), HasSubstr("|Samples of some of them export as noise: the recorder writes 24 "
                                "bits or 32-bit float"));
}

TEST_F(BatchDialogTest, BeginsNothingBeforeItIsKnownWhatCanBe) {
  showMainWindow();
  _batch = std::make_unique<BatchDesk>(*_queue, *_mainWindow, [this] { return _now; });
  _batch->ask({take("a.WAV"), take("b.WAV")}, 0, 0);
  _dialog = shown<BatchDialog>();
  EXPECT_FALSE(end().isEnabled());
  EXPECT_EQ(end().text(), "Export");
  waitForPlan();
  EXPECT_TRUE(end().isEnabled());
}

TEST_F(BatchDialogTest, ListsWhatWillNotBeExportedAndWhy) {
  const auto a = take("a.WAV");
  const auto text = _folder.file("x.WAV", {std::byte{'x'}});
  _folder.file("a_Decode.WAV", {});
  open({a, take("b.WAV"), text});
  EXPECT_THAT(refused(), ElementsAre("a.WAV: a_Decode.WAV exists",
                                     testing::StartsWith("x.WAV: Not a WAVE file")));
  EXPECT_THAT(this->text(), HasSubstr("2 will not be exported:"));
  EXPECT_EQ(end().text(), "Export 1");
  choose(BatchWish::Existing::Number);
  EXPECT_THAT(refused(), ElementsAre(testing::StartsWith("x.WAV: ")));
  EXPECT_THAT(this->text(), HasSubstr("One will not be exported:"));
  EXPECT_EQ(end().text(), "Export 2");
  expectNothingCut(*_dialog);
}

TEST_F(BatchDialogTest, WithoutAnythingToExportThereIsNothingToBegin) {
  open({_folder.file("x.WAV", {}), _folder.file("y.WAV", {})});
  EXPECT_FALSE(end().isEnabled());
  EXPECT_EQ(refused().size(), 2U);
}

TEST_F(BatchDialogTest, MakesAnOrderOfEachAsItWasChosen) {
  const auto a = take("a.WAV");
  open({a, take("b.WAV")});
  _held.hold();
  part<QRadioButton>("radio32").setChecked(true);
  part<QCheckBox>("normalize").setChecked(true);
  EXPECT_FALSE(part<QCheckBox>("keepMetadata").isChecked());
  part<QCheckBox>("keepMetadata").setChecked(true);
  choose(BatchWish::Existing::Replace);
  EXPECT_THAT(text(), HasSubstr("|To full scale|"));
  end().click();
  ASSERT_EQ(_ordered.size(), 2U);
  EXPECT_EQ(_ordered[0].source, a);
  EXPECT_EQ(_ordered[0].target, path("a_Decode.WAV"));
  EXPECT_EQ(_ordered[0].gain, 6.0);
  EXPECT_EQ(_ordered[0].angle, 90.7);
  EXPECT_FALSE(_ordered[0].is24bit);
  EXPECT_TRUE(_ordered[0].isNormalized);
  EXPECT_TRUE(_ordered[0].keepsMetadata);
  EXPECT_EQ(_ordered[0].existing, AtomicFile::Existing::Replace);
  _held.releaseAll();
  EXPECT_TRUE(waitUntil([this] { return !_queue->isBusy(); }));
}

TEST_F(BatchDialogTest, LevelsExcludeEachOtherAndALoudnessIsANumber) {
  open({take("a.WAV"), take("b.WAV")});
  part<QCheckBox>("normalize").setChecked(true);
  part<QCheckBox>("toLoudness").setChecked(true);
  waitForPlan();
  EXPECT_FALSE(part<QCheckBox>("normalize").isChecked());
  EXPECT_THAT(text(), HasSubstr("|To −23 LUFS|"));
  auto& field = *_dialog->findChild<LoudnessField*>();
  field.setEditText("loud");
  waitForPlan();
  EXPECT_FALSE(end().isEnabled());
  EXPECT_THAT(text(), HasSubstr("A loudness is a number from −70 to 0."));
  field.setEditText("−16,5 LUFS");
  waitForPlan();
  EXPECT_TRUE(end().isEnabled());
  EXPECT_THAT(text(), HasSubstr("|To −16.5 LUFS|"));
}

TEST_F(BatchDialogTest, IntoAFolderThatIsChosen) {
  std::filesystem::create_directory(path("out"));
  open({take("a.WAV"), take("b.WAV")});
  part<QRadioButton>("intoFolder").setChecked(true);
  EXPECT_FALSE(end().isEnabled()) << "no folder yet";
  const QPointer<FolderPanel> panel(waitForShown<FolderPanel>());
  panel->findChild<QLineEdit*>()->setText(QString::fromStdString(path("out").string()));
  QTest::keyClick(panel->findChild<QLineEdit*>(), Qt::Key_Return);
  EXPECT_TRUE(waitUntil([&] { return panel.isNull(); }));
  waitForPlan();
  EXPECT_EQ(part<QPushButton>("folder").text(), "out");
  _held.hold();
  end().click();
  ASSERT_EQ(_ordered.size(), 2U);
  EXPECT_EQ(_ordered[1].target, path("out/b_Decode.WAV"));
  _queue->cancelAll();
  EXPECT_TRUE(waitUntil([this] { return !_queue->isBusy(); }));
}

TEST_F(BatchDialogTest, RememberedWidthAndGainAreOfferedWhereThereAreAny) {
  const auto asked = std::make_shared<int>(0);
  open({take("a.WAV"), take("b.WAV")}, [asked](const WaveFileReader&) {
    return ++*asked == 1 ? std::optional(BatchTake::Sound{60, -4}) : std::nullopt;
  });
  EXPECT_TRUE(part<QCheckBox>("remembered").isVisible());
  EXPECT_THAT(text(), HasSubstr("|90° for all|Gain|+6 dB|")) << "a wish, not the rule";
  part<QCheckBox>("remembered").setChecked(true);
  waitForPlan();
  EXPECT_THAT(text(), HasSubstr("|As remembered, else 90°|Gain|As remembered, else +6 dB|"));
  expectNothingCut(*_dialog);
  _held.hold();
  end().click();
  ASSERT_EQ(_ordered.size(), 2U);
  EXPECT_EQ(_ordered[0].angle, 60.0);
  EXPECT_EQ(_ordered[0].gain, -4.0);
  EXPECT_EQ(_ordered[1].angle, 90.7);
  EXPECT_EQ(_ordered[1].gain, 6.0);
  _queue->cancelAll();
  EXPECT_TRUE(waitUntil([this] { return !_queue->isBusy(); }));
}

TEST_F(BatchDialogTest, WithNothingRememberedThereIsNoSuchChoice) {
  open({take("a.WAV"), take("b.WAV")}, [](const WaveFileReader&) { return std::nullopt; });
  EXPECT_FALSE(part<QCheckBox>("remembered").isVisible());
}

TEST_F(BatchDialogTest, CancelOrdersNothing) {
  open({take("a.WAV"), take("b.WAV")});
  click(*_dialog, "Cancel");
  EXPECT_TRUE(waitUntil([this] { return _dialog.isNull(); }));
  EXPECT_THAT(_ordered, IsEmpty());
  EXPECT_THAT(_folder.names(), ElementsAre("a.WAV", "b.WAV"));
}

TEST_F(BatchDialogTest, EveryChoiceHasAName) {
  open({take("a.WAV"), take("b.WAV")});
  for (const auto* const box : _dialog->findChildren<QComboBox*>()) {
    EXPECT_FALSE(box->accessibleName().isEmpty()) << box->objectName().toStdString();
  }
  EXPECT_EQ(part<QPushButton>("folder").accessibleName(), "Folder for the exports");
  EXPECT_EQ(_dialog->findChild<QListWidget*>()->accessibleName(),
            "Takes that will not be exported");
}

}  // namespace
