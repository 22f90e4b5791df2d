// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "dialogs/ExportVC.h"

#include <QAccessible>
#include <QTest>

#include "DialogFixture.h"
#include "controls/Colors.h"
#include "support/WaveBytes.h"

namespace {

using testing::Contains;
using testing::IsEmpty;

class ExportVCTest : public DialogFixture {
 protected:
  static QRadioButton* radio(const ExportVC& dialog, const QString& text) {
    for (auto* const radio : dialog.findChildren<QRadioButton*>()) {
      if (radio->text() == text) return radio;
    }
    return nullptr;
  }
  static QCheckBox* normalize(const ExportVC& dialog) { return dialog.findChild<QCheckBox*>(); }
};

TEST_F(ExportVCTest, HasItsTitleLooksAndPlace) {
  const auto dialog = openExport(job());
  EXPECT_EQ(QString("Export"), dialog->windowTitle());
  EXPECT_EQ(Colors::AppBG(), dialog->palette().color(QPalette::Window));
  EXPECT_EQ(dialog->minimumSize(), dialog->maximumSize());
  EXPECT_FALSE(dialog->windowFlags() & Qt::WindowMaximizeButtonHint);
  EXPECT_EQ(Qt::WindowModal, dialog->windowModality());
  expectInTheMiddle(*dialog, dialog->parentFrame());
}

TEST_F(ExportVCTest, OffersTwoFormatsThatExcludeEachOther) {
  const auto dialog = openExport(job());
  QRadioButton* const linear = radio(*dialog, "24-bit Linear");
  QRadioButton* const real = radio(*dialog, "32-bit Float");
  ASSERT_TRUE(linear && real);
  EXPECT_TRUE(linear->isChecked());
  EXPECT_FALSE(real->isChecked());
  EXPECT_FALSE(normalize(*dialog)->isChecked());
  EXPECT_EQ(Colors::WHITE(), real->palette().color(real->foregroundRole()));
  QTest::keyClick(linear, Qt::Key_Down);
  EXPECT_TRUE(real->isChecked());
  EXPECT_FALSE(linear->isChecked());
  QTest::mouseClick(linear, Qt::LeftButton, {}, {10, linear->height() / 2});
  EXPECT_TRUE(linear->isChecked());
  EXPECT_FALSE(real->isChecked());
}

TEST_F(ExportVCTest, TellsWhatWillBeExported) {
  const auto dialog = openExport(job());
  const auto seen = [&] { return labels(*dialog).join('|').toStdString(); };
  // 3000 frames of 6 or 8 bytes, and 748 bytes before them.
  EXPECT_THAT(seen(),
              testing::StartsWith("R0001.WAV|Stereo width|90°|Gain|+6 dB|File size|18.7 kB"));
  radio(*dialog, "32-bit Float")->setChecked(true);
  EXPECT_THAT(seen(), testing::HasSubstr("File size|24.7 kB"));
  normalize(*dialog)->setChecked(true);
  EXPECT_THAT(seen(), testing::HasSubstr("Gain|To full scale|"));
  expectNothingCut(*dialog);
}

TEST_F(ExportVCTest, TheSizeIsThatWithWhatIsKept) {
  const auto samples = WaveBytes::samples24(std::vector<std::int32_t>(6000));
  const auto job = std::make_shared<Export>(
      _folder.file("R0001.WAV", WaveBytes()
                                    .format24()
                                    .recorderBext()
                                    .data(samples)
                                    .chunk("LIST", std::vector<std::byte>(10'000))
                                    .get()));
  const auto dialog = openExport(job);
  const auto sees = [&](std::uint64_t bytes) {
    return waitUntil([&] { return labels(*dialog).contains(ExportFacts::textOf(bytes)); });
  };
  auto* const keep = dialog->findChild<QCheckBox*>("checkboxKeep");
  EXPECT_FALSE(keep->isChecked());
  EXPECT_TRUE(sees(18'748));
  keep->setChecked(true);
  EXPECT_GT(job->keptBytes(), 10'000U);
  EXPECT_TRUE(sees(18'748 + job->keptBytes()));
  keep->setChecked(false);
  EXPECT_TRUE(sees(18'748));
}

TEST_F(ExportVCTest, ChannelsThatAreNotDecodedHaveNoWidth) {
  const auto dialog = openExport(job(false));
  EXPECT_THAT(labels(*dialog).join('|').toStdString(),
              testing::HasSubstr("Stereo width|Channels as recorded|"));
}

TEST_F(ExportVCTest, ALongNameIsShortened) {
  const std::string name = std::string(200, 'm') + ".wav";
  const auto dialog = openExport(std::make_shared<Export>(take(name)));
  EXPECT_GT(400, dialog->width());
  EXPECT_FALSE(labels(*dialog).join('|').contains(QString::fromStdString(name)));
  EXPECT_EQ(QString::fromStdString(name), dialog->findChild<QLabel*>()->accessibleName());
}

TEST_F(ExportVCTest, WithoutARecordingThereIsNothingToSave) {
  const auto none = openExport(nullptr);
  EXPECT_FALSE(button(*none, "Save")->isEnabled());
  none->btnCancel_Click();
  const auto invalid = openExport(std::make_shared<Export>(_folder.file("x.wav", {})));
  EXPECT_FALSE(button(*invalid, "Save")->isEnabled());
}

TEST_F(ExportVCTest, CancelAndEscapeDismissItAndTellNothing) {
  const auto first = openExport(job());
  click(*first, "Cancel");
  EXPECT_THAT(told(first), IsEmpty());
  const auto second = openExport(job());
  QTest::keyClick(second, Qt::Key_Escape);
  EXPECT_THAT(told(second), IsEmpty());
  const auto third = openExport(job());
  third->close();
  EXPECT_THAT(told(third), IsEmpty());
  EXPECT_THAT(_folder.names(), testing::ElementsAre("R0001.WAV"));
  EXPECT_FALSE(_queue->isBusy());
}

TEST_F(ExportVCTest, TabVisitsEverythingFromTheTop) {
  const auto dialog = openExport(job());
  QApplication::setActiveWindow(dialog);
  QStringList visited;
  for (int i = 0; i < 6; ++i) {
    QWidget* const focused = dialog->focusWidget();
    ASSERT_NE(nullptr, focused);
    visited << qobject_cast<QAbstractButton*>(focused)->text();
    QTest::keyClick(focused, Qt::Key_Tab);
  }
  EXPECT_EQ(QString("24-bit Linear|Normalize to full scale|To a loudness|"
                    "Keep recording time and markers|Cancel|Save"),
            visited.join('|'));
}

TEST_F(ExportVCTest, ReturnOpensTheSavePanel) {
  const auto dialog = openExport(job());
  QTest::keyClick(dialog, Qt::Key_Return);
  EXPECT_NE(nullptr, waitForShown<SavePanel>());
}

TEST_F(ExportVCTest, CanBeReadAloud) {
  const auto dialog = openExport(job());
  QStringList names;
  for (QWidget* const widget : dialog->findChildren<QWidget*>()) {
    const QAccessibleInterface* const seen = QAccessible::queryAccessibleInterface(widget);
    if (seen != nullptr && widget->isVisible()) names << seen->text(QAccessible::Name);
  }
  for (const char* const name : {"R0001.WAV", "90°", "+6 dB", "Format", "24-bit Linear",
                                 "32-bit Float", "Normalize to full scale", "Cancel", "Save"}) {
    EXPECT_TRUE(names.contains(name)) << name;
  }
}

}  // namespace
