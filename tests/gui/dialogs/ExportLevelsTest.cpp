// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <QAccessible>
#include <QComboBox>
#include <QLabel>
#include <QTest>
#include <algorithm>
#include <cmath>
#include <thread>

#include "DialogFixture.h"
#include "analysis/TakeAnalyzer.h"
#include "dialogs/SavePanel.h"
#include "support/ByteView.h"
#include "support/SlowReads.h"
#include "support/ThreadCount.h"
#include "support/WaveBytes.h"

namespace {

using testing::HasSubstr;
using testing::Not;

/// What the dialog tells of the level of an export, over ten seconds of a tone that is loud three
/// times.
class ExportLevelsTest : public DialogFixture {
 protected:
  static constexpr int kFrames = 480'000;

  std::shared_ptr<Export> tone() {
    std::vector<float> samples;
    for (int i = 0; i < kFrames; ++i) {
      const int second = i / 48'000;
      const bool isLoud = second == 2 || second == 5 || second == 8;
      samples.push_back((isLoud ? 0.4F : 0.1F) * static_cast<float>(std::sin(i * 0.13)));
      samples.push_back(0);
    }
    const auto bytes =
        WaveBytes().formatFloat().recorderBext(true).data(WaveBytes::samplesFloat(samples)).get();
    auto job = std::make_shared<Export>(_folder.file("R0001.WAV", bytes));
    job->setAngle(90);
    return job;
  }
  QPointer<ExportVC> openWith(const std::shared_ptr<Export>& job,
                              const std::optional<FrameRange>& selection = {}) {
    showMainWindow();
    ExportVC::Extra extra;
    extra.selection = selection;
    _desk->ask(job, extra);
    QPointer<ExportVC> dialog = waitForShown<ExportVC>();
    EXPECT_TRUE(waitUntil([&] { return !seen(*dialog).contains(u'…'); })) << "levels";
    return dialog;
  }
  ~ExportLevelsTest() override { SlowReads::reset(); }

  /// From now on what others than the test read of the take hangs.
  void hang() const { SlowReads::share(_folder.path().string(), 1); }
  static QString seen(const ExportVC& dialog) { return labels(dialog).join('|'); }
  static void expectSeen(const ExportVC& dialog, const char* text) {
    EXPECT_THAT(seen(dialog).toStdString(), HasSubstr(text));
  }
  static void waitForSeen(const ExportVC& dialog, const char* text) {
    EXPECT_TRUE(waitUntil([&] { return seen(dialog).contains(QLatin1String(text)); }))
        << text << " in " << seen(dialog).toStdString();
  }
  static QString printed(double figure) {
    const QString text = QString::number(figure, 'f', 1).replace(u'-', u'−');
    return figure > 0 ? u'+' + text : text;
  }
  /// What assistive software reads where this is shown.
  static QString readFor(const ExportVC& dialog, const QString& text) {
    for (auto* const label : dialog.findChildren<QLabel*>()) {
      if (label->text() != text) continue;
      return QAccessible::queryAccessibleInterface(label)->text(QAccessible::Name);
    }
    return {};
  }
  template <class Widget>
  static Widget* named(const ExportVC& dialog, const char* name) {
    return dialog.findChild<Widget*>(QLatin1String(name));
  }
};

TEST_F(ExportLevelsTest, TellsLoudnessAndPeakOfWhatWillBeWritten) {
  const auto job = tone();
  const auto figures = TakeAnalyzer(*job->reader()).wait()->at(90, 6);
  job->setGain(6);
  const auto dialog = openWith(job);
  const QString loudness = printed(*figures.integratedLufs) + " LUFS";
  const QString peak = printed(*figures.truePeakDbtp) + " dBTP";
  EXPECT_TRUE(seen(*dialog).contains("Loudness|" + loudness + "|True peak|" + peak))
      << seen(*dialog).toStdString();
  EXPECT_EQ(readFor(*dialog, loudness), QString::number(*figures.integratedLufs, 'f', 1) + " LUFS");
  expectNothingCut(*dialog);
}

TEST_F(ExportLevelsTest, TellsWhereTwentyFourBitsWouldClip) {
  const auto job = tone();
  const auto calm = openWith(job);
  EXPECT_THAT(seen(*calm).toStdString(), Not(HasSubstr("clip")));
  calm->btnCancel_Click();
  job->setGain(12);
  const auto dialog = openWith(job);
  waitForSeen(*dialog, "Would clip in 24 bit at 3 places");
  named<QCheckBox>(*dialog, "checkboxNormalize")->setChecked(true);
  EXPECT_TRUE(waitUntil([&] { return !seen(*dialog).contains("clip"); }));
  expectNothingCut(*dialog);
}

TEST_F(ExportLevelsTest, BringsATakeToALoudness) {
  const auto dialog = openWith(tone());
  auto* const loudness = named<QCheckBox>(*dialog, "checkboxLoudness");
  auto* const normalize = named<QCheckBox>(*dialog, "checkboxNormalize");
  auto* const combo = named<QComboBox>(*dialog, "comboLoudness");
  EXPECT_FALSE(combo->isEnabled());
  normalize->setChecked(true);
  QTest::mouseClick(loudness, Qt::LeftButton, {}, {10, loudness->height() / 2});
  EXPECT_FALSE(normalize->isChecked()) << "one or the other";
  ASSERT_TRUE(combo->isEnabled());
  QStringList choices;
  for (int i = 0; i < combo->count(); ++i) choices << combo->itemText(i);
  EXPECT_EQ(choices.join('|'), "−23 LUFS|−18 LUFS|−16 LUFS|−14 LUFS");
  EXPECT_EQ(combo->itemData(0, Qt::AccessibleTextRole).toString(), "-23 LUFS");
  expectSeen(*dialog, "Loudness|−23.0 LUFS");
  combo->setEditText("-30,5");
  expectSeen(*dialog, "Loudness|−30.5 LUFS");
  combo->setEditText("loud");
  expectSeen(*dialog, "A loudness is a number from −70 to 0.");
  expectSeen(*dialog, "Gain|–");
  EXPECT_FALSE(button(*dialog, "Save")->isEnabled());
  normalize->setChecked(true);
  EXPECT_FALSE(loudness->isChecked());
  expectSeen(*dialog, "Gain|To full scale");
  EXPECT_TRUE(button(*dialog, "Save")->isEnabled());
}

TEST_F(ExportLevelsTest, WritesTheLoudnessThatItTells) {
  const auto dialog = openWith(tone());
  named<QCheckBox>(*dialog, "checkboxLoudness")->setChecked(true);
  named<QComboBox>(*dialog, "comboLoudness")->setEditText("-27");
  saveAs(*dialog, path("out.WAV"));
  EXPECT_THAT(told(dialog), testing::Contains(HasSubstr("exported")));
  Export written(path("out.WAV"));
  EXPECT_NEAR(*TakeAnalyzer(*written.reader()).wait()->at(120, 0).integratedLufs, -27, 0.05);
}

TEST_F(ExportLevelsTest, WithoutALoopThereIsNoSelection) {
  const auto dialog = openWith(tone());
  EXPECT_TRUE(named<QCheckBox>(*dialog, "checkboxSelection")->isHidden());
}

TEST_F(ExportLevelsTest, WritesTheSelectionAlone) {
  const auto job = tone();
  job->setGain(12);
  const auto dialog = openWith(job, FrameRange{96'000, 192'000});
  auto* const only = named<QCheckBox>(*dialog, "checkboxSelection");
  ASSERT_TRUE(only->isVisible());
  EXPECT_EQ(only->text(), "Selection only");
  EXPECT_FALSE(only->isChecked());
  const QString whole = seen(*dialog);
  only->setChecked(true);
  waitForSeen(*dialog, "Would clip in 24 bit at 1 place");
  expectSeen(*dialog, "File size|576.7 kB");
  EXPECT_NE(seen(*dialog), whole);
  dialog->btnSave_Click();
  auto* const panel = waitForShown<SavePanel>();
  ASSERT_NE(panel, nullptr);
  panel->accept();
  EXPECT_THAT(told(dialog), testing::Contains(HasSubstr("R0001_Decode_A-B.WAV")));
  EXPECT_EQ(std::filesystem::file_size(path("R0001_Decode_A-B.WAV")), 748U + 96'000 * 6);
}

TEST_F(ExportLevelsTest, ChoosingOnACardThatHangsTakesTheThreadsOfOneAnalysis) {
  const auto dialog = openWith(tone(), FrameRange{96'000, 192'000});
  auto* const only = named<QCheckBox>(*dialog, "checkboxSelection");
  hang();
  constexpr unsigned kUnits = 3;  // of 4 s, which workers share
  const unsigned workers = std::clamp(std::thread::hardware_concurrency(), 1U, kUnits);
  const std::size_t most = ThreadCount::now() + 1 + workers;
  for (int i = 0; i < 38; ++i) only->toggle();
  // Nor once what was given up has had the time to tell so.
  for (int i = 0; i < 3; ++i) {
    only->toggle();
    QTest::qWait(150);
  }
  EXPECT_LE(ThreadCount::now(), most);
  EXPECT_TRUE(only->isChecked());
  expectSeen(*dialog, "Loudness|…");
  SlowReads::reset();
  EXPECT_TRUE(waitUntil([&] { return !seen(*dialog).contains(u'…'); })) << "it was read after all";
}

TEST_F(ExportLevelsTest, CountingClipsOnACardThatHangsTakesOneThread) {
  const auto job = tone();
  job->setGain(12);
  const auto dialog = openWith(job);
  waitForSeen(*dialog, "Would clip in 24 bit at 3 places");
  auto* const normalize = named<QCheckBox>(*dialog, "checkboxNormalize");
  hang();
  const std::size_t before = ThreadCount::now();
  for (int i = 0; i < 40; ++i) normalize->toggle();
  EXPECT_LE(ThreadCount::now(), before + 1);
  expectSeen(*dialog, "Would clip in 24 bit");
  EXPECT_FALSE(seen(*dialog).contains("place"));
  SlowReads::reset();
  waitForSeen(*dialog, "Would clip in 24 bit at 3 places");
}

TEST_F(ExportLevelsTest, WhereTheCardIsPulledOutThereIsNoLevel) {
  const auto job = tone();
  showMainWindow();
  hang();
  _desk->ask(job, ExportVC::Extra());
  const QPointer<ExportVC> dialog = waitForShown<ExportVC>();
  auto* const loudness = named<QCheckBox>(*dialog, "checkboxLoudness");
  loudness->setChecked(true);
  expectSeen(*dialog, "Gain|…");
  EXPECT_TRUE(button(*dialog, "Save")->isEnabled()) << "it will be measured for the export";
  SlowReads::pullOut();
  waitForSeen(*dialog, "The take cannot be read, so its loudness is not known.");
  expectSeen(*dialog, "Gain|–");
  expectSeen(*dialog, "Loudness|–");
  EXPECT_FALSE(button(*dialog, "Save")->isEnabled());
  expectNothingCut(*dialog);
  loudness->setChecked(false);
  EXPECT_TRUE(button(*dialog, "Save")->isEnabled()) << "which tells what is wrong";
}

TEST_F(ExportLevelsTest, OfSilenceThereIsNoLevel) {
  auto job = this->job();
  const auto dialog = openWith(job);
  expectSeen(*dialog, "Loudness|–");
  EXPECT_TRUE(button(*dialog, "Save")->isEnabled());
  named<QCheckBox>(*dialog, "checkboxLoudness")->setChecked(true);
  expectSeen(*dialog, "Loudness|–");
  expectSeen(*dialog, "has no loudness");
  EXPECT_FALSE(button(*dialog, "Save")->isEnabled());
}

}  // namespace
