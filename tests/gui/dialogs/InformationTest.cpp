// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <QCheckBox>
#include <QClipboard>
#include <QGuiApplication>
#include <QMessageBox>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <type_traits>

#include "DialogFixture.h"
#include "base/Utility.h"
#include "controls/Appearance.h"
#include "controls/Colors.h"
#include "dialogs/AboutVC.h"
#include "dialogs/Alert.h"
#include "dialogs/HelpVC.h"
#include "dialogs/IntroductionVC.h"
#include "dialogs/NodeviceVC.h"

namespace {

constexpr auto kLongLine = "One second back or forward; ten seconds";

class InformationTest : public DialogFixture {
 protected:
  template <typename Dialog>
  QPointer<Dialog> make() {
    QPointer<Dialog> dialog(newDialog<Dialog>());
    dialog->setParentFrame(showMainWindow());
    return dialog;
  }
  template <typename Dialog>
  Dialog* newDialog() {
    if constexpr (std::is_same_v<Dialog, HelpVC>) {
      return new HelpVC({{"Ctrl+E", "Export"}, {"Left, Right; with Shift", kLongLine}},
                        _mainWindow.get());
    } else {
      return new Dialog(_mainWindow.get());
    }
  }
  QPointer<IntroductionVC> introduce(bool isFromMenu) {
    const auto dialog = make<IntroductionVC>();
    dialog->setFromMenu(isFromMenu);
    dialog->setVersionString("1.2.34");
    dialog->open();
    return dialog;
  }
  static std::optional<std::string> stored() {
    return Utility::getStringValue(Utility::kDoNotShowAgain);
  }
  static void expectCommonLooks(DialogWindow& dialog, const char* title, const QRect& frame) {
    EXPECT_EQ(QString(title), dialog.windowTitle());
    EXPECT_EQ(Colors::AppBG(), dialog.palette().color(QPalette::Window));
    EXPECT_EQ(dialog.minimumSize(), dialog.maximumSize());
    EXPECT_FALSE(dialog.windowFlags() & Qt::WindowMaximizeButtonHint);
    EXPECT_EQ(Qt::WindowModal, dialog.windowModality());
    expectInTheMiddle(dialog, frame);
    expectNothingCut(dialog);
  }
  /// In a font of this many pixels, the lines that each wrapped text of the dialog takes.
  template <typename Dialog>
  std::vector<int> linesIn(int pixels) {
    QFont font = Appearance::font();
    font.setPixelSize(pixels);
    QApplication::setFont(font);
    const auto dialog = make<Dialog>();
    dialog->open();
    expectNothingCut(*dialog);
    std::vector<int> lines;
    for (const auto* const label : dialog->template findChildren<QLabel*>()) {
      if (!label->text().isEmpty())
        lines.push_back(label->height() / label->fontMetrics().lineSpacing());
    }
    dialog->close();
    QApplication::setFont(Appearance::font());
    return lines;
  }
  static bool isGone(const QPointer<IntroductionVC>& dialog) {
    return waitUntil([&] { return dialog.isNull(); });
  }
};

TEST_F(InformationTest, AllLookTheSameInTheMiddleOfTheWindow) {
  const auto about = make<AboutVC>();
  about->open();
  expectCommonLooks(*about, "About", about->parentFrame());
  about->close();
  const auto introduction = introduce(true);
  expectCommonLooks(*introduction, "Introduction", introduction->parentFrame());
  introduction->close();
  const auto nodevice = make<NodeviceVC>();
  nodevice->open();
  expectCommonLooks(*nodevice, "TARN J4 Mixdeck", nodevice->parentFrame());
}

TEST_F(InformationTest, ALargerFontGetsLargerDialogsNotMoreLines) {
  EXPECT_EQ(linesIn<AboutVC>(13), linesIn<AboutVC>(26));
  EXPECT_EQ(linesIn<NodeviceVC>(13), linesIn<NodeviceVC>(26));
  EXPECT_EQ(linesIn<IntroductionVC>(13), linesIn<IntroductionVC>(26));
  EXPECT_EQ(linesIn<HelpVC>(13), linesIn<HelpVC>(26));
}

// With a title over it.
TEST_F(InformationTest, WhatIsLargerThanTheScreenIsScrolled) {
  QFont font = Appearance::font();
  font.setPixelSize(40);
  QApplication::setFont(font);
  const auto help = make<HelpVC>();
  help->open();
  QApplication::processEvents();
  const QSize screen = help->screen()->availableSize();
  EXPECT_LE(help->width(), screen.width());
  EXPECT_LT(help->height(), screen.height());
  const QSize size = help->size();
  help->hide();
  help->show();
  EXPECT_EQ(help->size(), size) << "it does not grow";
  auto* const area = help->findChild<QScrollArea*>();
  ASSERT_NE(area, nullptr);
  EXPECT_GT(area->verticalScrollBar()->maximum(), 0);
  EXPECT_EQ(area->widget()->size(), area->widget()->size().expandedTo(area->widget()->sizeHint()));
  auto* const ok = button(*help, "OK");
  EXPECT_EQ(help->focusWidget(), ok);
  QTest::keyClick(ok, Qt::Key_PageDown);
  EXPECT_GT(area->verticalScrollBar()->value(), 0) << "by the keyboard, too";
  area->ensureWidgetVisible(ok);
  QApplication::processEvents();
  EXPECT_EQ(ok->visibleRegion().boundingRect(), ok->rect());
  click(*help, "OK");
  EXPECT_TRUE(waitUntil([&] { return help.isNull(); }));
  QApplication::setFont(Appearance::font());
}

// However many lines what stands on the other side takes.
TEST_F(InformationTest, KeysStandApartEvenly) {
  const auto help = QPointer(new HelpVC(
      {{"Ctrl+O", "Open folder"}, {"Ctrl+E", "Export"}, {"Space", "Play"}, {"Left", "Back"}},
      _mainWindow.get()));
  help->open();
  std::vector<int> tops;
  for (const auto* const label : help->findChildren<QLabel*>()) {
    if (QStringList{"Ctrl+O", "Ctrl+E", "Space", "Left"}.contains(label->text()))
      tops.push_back(label->y());
  }
  ASSERT_EQ(tops.size(), 4U);
  EXPECT_EQ(tops[2] - tops[1], tops[1] - tops[0]);
  EXPECT_EQ(tops[3] - tops[2], tops[1] - tops[0]);
  expectNothingCut(*help);
  help->close();
}

TEST_F(InformationTest, AboutCopiesWhatAReportNeeds) {
  const auto about = make<AboutVC>();
  about->setVersionString("1.2.3");
  about->setDetails({"Qt 6.4.2 (xcb)", "Linux 6.1.0"});
  about->open();
  expectNothingCut(*about);
  EXPECT_THAT(labels(*about), testing::Contains(QString("Qt 6.4.2 (xcb)\nLinux 6.1.0")));
  click(*about, "Copy details");
  EXPECT_EQ(QGuiApplication::clipboard()->text(),
            "TARN J4 Mixdeck 1.2.3\nQt 6.4.2 (xcb)\nLinux 6.1.0\n");
  EXPECT_NE(button(*about, "Copied"), nullptr);
}

TEST_F(InformationTest, AWindowOfOddSizeIsMetByThePixelBelow) {
  const auto about = make<AboutVC>();
  about->setParentFrame({-40, 7, 1051, 669});
  about->open();
  expectCommonLooks(*about, "About", {-40, 7, 1051, 669});
}

TEST_F(InformationTest, WithoutAWindowTheDesktopPlacesIt) {
  const QPointer<AboutVC> about(new AboutVC);
  about->open();
  EXPECT_LE(0, about->x());
  EXPECT_LE(0, about->y());
}

TEST_F(InformationTest, AboutShowsTheVersionAsItIs) {
  const auto about = make<AboutVC>();
  about->setVersionString("<1.2>.34 ");
  about->open();
  EXPECT_EQ(QString("<1.2>.34 "), about->findChild<QLabel*>("version")->text());
  EXPECT_EQ(Qt::PlainText, about->findChild<QLabel*>("version")->textFormat());
  ASSERT_EQ(1, about->findChildren<QPushButton*>().size());
  EXPECT_EQ(QString("Copy details"), about->findChild<QPushButton*>()->text());
}

TEST_F(InformationTest, AboutGoesWithEscapeAndWithItsWindow) {
  auto about = make<AboutVC>();
  about->open();
  QTest::keyClick(about, Qt::Key_Escape);
  EXPECT_TRUE(waitUntil([&] { return about.isNull(); }));
  about = make<AboutVC>();
  about->open();
  about->close();
  EXPECT_TRUE(waitUntil([&] { return about.isNull(); }));
}

TEST_F(InformationTest, ATickedIntroductionIsRememberedForItsVersion) {
  const auto dialog = introduce(false);
  auto* const box = dialog->findChild<QCheckBox*>();
  ASSERT_TRUE(box->isVisible());
  EXPECT_FALSE(box->isChecked());
  QTest::mouseClick(box, Qt::LeftButton, {}, {10, box->height() / 2});
  EXPECT_TRUE(box->isChecked());
  EXPECT_FALSE(stored().has_value());
  click(*dialog, "OK");
  EXPECT_TRUE(isGone(dialog));
  EXPECT_EQ("1.2.34", stored());
}

TEST_F(InformationTest, AnUntickedIntroductionLeavesWhatWasStored) {
  const auto first = introduce(false);
  click(*first, "OK");
  EXPECT_TRUE(isGone(first));
  EXPECT_FALSE(stored().has_value());
  Utility::store(Utility::kDoNotShowAgain, "1.1.30");
  const auto second = introduce(false);
  click(*second, "OK");
  EXPECT_TRUE(isGone(second));
  EXPECT_EQ("1.1.30", stored());
}

TEST_F(InformationTest, FromTheMenuThereIsNothingToTick) {
  const auto dialog = introduce(true);
  auto* const box = dialog->findChild<QCheckBox*>();
  EXPECT_FALSE(box->isVisible());
  box->setChecked(true);
  click(*dialog, "OK");
  EXPECT_TRUE(isGone(dialog));
  EXPECT_FALSE(stored().has_value());
}

TEST_F(InformationTest, EscapeStoresNothing) {
  const auto dialog = introduce(false);
  dialog->findChild<QCheckBox*>()->setChecked(true);
  QTest::keyClick(dialog, Qt::Key_Escape);
  EXPECT_TRUE(isGone(dialog));
  EXPECT_FALSE(stored().has_value());
}

TEST_F(InformationTest, ReturnIsOK) {
  const auto introduction = introduce(false);
  introduction->findChild<QCheckBox*>()->setChecked(true);
  QTest::keyClick(introduction, Qt::Key_Return);
  EXPECT_TRUE(isGone(introduction));
  EXPECT_EQ("1.2.34", stored());
  const auto nodevice = make<NodeviceVC>();
  nodevice->open();
  QTest::keyClick(nodevice, Qt::Key_Return);
  EXPECT_TRUE(waitUntil([&] { return nodevice.isNull(); }));
}

TEST_F(InformationTest, TheNoDeviceNoticeGoesWithOK) {
  const auto dialog = make<NodeviceVC>();
  dialog->open();
  EXPECT_TRUE(labels(*dialog).contains("No recorder is connected"));
  click(*dialog, "OK");
  EXPECT_TRUE(waitUntil([&] { return dialog.isNull(); }));
}

TEST_F(InformationTest, AnAlertHasOneSentenceAndOneButton) {
  showMainWindow();
  const QPointer<QMessageBox> alert(Alert::show(_mainWindow.get(), "File not supported."));
  EXPECT_TRUE(alert->isVisible());
  EXPECT_EQ(QMessageBox::NoIcon, alert->icon());
  EXPECT_EQ(QString(), alert->text());
  EXPECT_EQ(QString("File not supported."), alert->informativeText());
  ASSERT_EQ(1, alert->buttons().size());
  EXPECT_EQ(QStringList("File not supported."), labels(*alert));
  EXPECT_TRUE(alert->isModal());
  click(*alert, "Ok");
  EXPECT_TRUE(waitUntil([&] { return alert.isNull(); }));
}

}  // namespace
