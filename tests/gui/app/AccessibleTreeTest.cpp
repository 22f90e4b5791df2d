// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
//
// What assistive software finds when it walks through the window and every dialog: each control
// with a role that fits, a name, and what that role lets one do; each part with the parent that has
// it.

#include <QAbstractButton>
#include <QAccessible>
#include <QDialog>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QTest>
#include <QTimer>

#include "AccessibleWalk.h"
#include "WindowFixture.h"
#include "app/ValueField.h"
#include "dialogs/AboutVC.h"
#include "dialogs/ExportProgress.h"
#include "dialogs/ExportVC.h"
#include "dialogs/FolderPanel.h"
#include "dialogs/HelpVC.h"
#include "dialogs/IntroductionVC.h"
#include "dialogs/NodeviceVC.h"
#include "dialogs/SavePanel.h"

namespace {

using Found = AccessibleWalk::Found;
using Role = AccessibleWalk::Role;

using testing::IsEmpty;

class AccessibleTree : public WindowFixture {
 protected:
  void SetUp() override {
    take("R0001.WAV");
    take("R0002.WAV");
    folder("Bells");
    startOnTakes();
  }
  void TearDown() override { end(); }

  template <class Dialog>
  Dialog& opened() {
    waitFor([] { return shown<Dialog>() != nullptr; }, "the dialog");
    return *shown<Dialog>();
  }
  template <class Dialog>
  Found walkThrough() {
    Dialog& dialog = opened<Dialog>();
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&dialog)->text(QAccessible::Name),
              dialog.windowTitle());
    const Found found = AccessibleWalk::through(dialog);
    EXPECT_GE(found.count.size(), 2U) << "there is something in it";
    return found;
  }
  Found walkThroughWindow() { return AccessibleWalk::through(view()); }
  void openExport() {
    open("R0001.WAV");
    controller().btnExport_Click();
  }
};

TEST_F(AccessibleTree, OfTheWindowIsWhole) {
  const Found found = walkThroughWindow();
  EXPECT_THAT(found.wrong, IsEmpty());
  EXPECT_EQ(found.count.at(Role::List), 1);
  EXPECT_EQ(found.count.at(Role::ListItem), 3);
}

TEST_F(AccessibleTree, OfTheWindowWithTakeAndRecorderIsWhole) {
  plugIn();
  open("R0001.WAV");
  play(200);
  const Found found = walkThroughWindow();
  EXPECT_THAT(found.wrong, IsEmpty());
  EXPECT_EQ(found.count.at(Role::Dial), 1);
  EXPECT_EQ(found.count.at(Role::Slider), 4) << "waveform, position, volume, gain";
  EXPECT_EQ(found.count.at(Role::ComboBox), 2);
  EXPECT_EQ(found.count.at(Role::CheckBox), 4) << "mute, loop, solo";
}

TEST_F(AccessibleTree, OfAFieldThatIsTypedInIsWhole) {
  open("R0001.WAV");
  QTest::mouseClick(stage().lblGainValue, Qt::LeftButton);
  const Found found = walkThroughWindow();
  EXPECT_THAT(found.wrong, IsEmpty());
  EXPECT_EQ(found.count.at(Role::EditableText), 1);
}

TEST_F(AccessibleTree, OneThingAloneIsCalledCorrelationAndItsCaptionIsItsFigure) {
  std::vector<QWidget*> called;
  for (QWidget* const widget : view().findChildren<QWidget*>()) {
    QAccessibleInterface* const item = QAccessible::queryAccessibleInterface(widget);
    if (item != nullptr && AccessibleWalk::nameOf(*item) == "Correlation") called.push_back(widget);
  }
  EXPECT_THAT(called, testing::ElementsAre(stage().field->correlation));
  QAccessibleInterface& caption = *QAccessible::queryAccessibleInterface(stage().lblImageValue);
  EXPECT_EQ(caption.role(), Role::StaticText);
  EXPECT_EQ(AccessibleWalk::nameOf(caption), QStringLiteral("–"));
  stage().lblImageValue->setText(QStringLiteral("−0.53"));
  EXPECT_EQ(AccessibleWalk::nameOf(caption), "-0.53");
  EXPECT_FALSE(
      caption.actionInterface()->actionNames().contains(QAccessibleActionInterface::pressAction()));
}

// A text as it was: what reads the window finds the value as before.
TEST_F(AccessibleTree, AValueThatIsPressedIsTyped) {
  const QString press = QAccessibleActionInterface::pressAction();
  const auto at = [](QWidget* value) { return QAccessible::queryAccessibleInterface(value); };
  const auto canBePressed = [&](QWidget* value) {
    return at(value)->actionInterface()->actionNames().contains(press);
  };
  EXPECT_FALSE(canBePressed(stage().lblGainValue)) << "without a take";
  at(stage().lblGainValue)->actionInterface()->doAction(press);
  EXPECT_EQ(stage().findChild<QLineEdit*>(), nullptr);
  open("R0001.WAV");
  setGain(6);
  for (const auto& [value, name, typed] :
       std::initializer_list<std::tuple<QLabel*, const char*, const char*>>{
           {stage().lblStereoValue, "0°", "96°"}, {stage().lblGainValue, "+6 dB", "-7 dB"}}) {
    QAccessibleInterface& text = *at(value);
    EXPECT_EQ(text.role(), Role::StaticText);
    EXPECT_EQ(AccessibleWalk::nameOf(text), QString::fromUtf8(name));
    EXPECT_EQ(text.text(QAccessible::Description), "Click to type a value");
    ASSERT_TRUE(canBePressed(value)) << name;
    text.actionInterface()->doAction(press);
    auto* const field = stage().findChild<QLineEdit*>();
    ASSERT_NE(field, nullptr) << name;
    EXPECT_EQ(QApplication::focusWidget(), field);
    QTest::keyClicks(field, QString::fromUtf8(typed));
    QTest::keyClick(field, Qt::Key_Return);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(AccessibleWalk::nameOf(text), QString::fromUtf8(typed));
  }
  EXPECT_EQ(player().angle(), 96);
  EXPECT_EQ(player().gain(), -7);
}

TEST_F(AccessibleTree, OfTheMenuIsWholeUpAndDown) {
  view().menu->popup({});
  QAccessibleInterface& menu = *QAccessible::queryAccessibleInterface(view().menu);
  EXPECT_EQ(menu.parent(), QAccessible::queryAccessibleInterface(&view()));
  const Found found = walkThroughWindow();
  EXPECT_THAT(found.wrong, IsEmpty());
  EXPECT_GE(found.count.at(Role::MenuItem), 10);
  view().menu->hide();
}

TEST_F(AccessibleTree, EntriesOfTheMenuHaveTheirKeysApart) {
  QAccessibleInterface& play = *QAccessible::queryAccessibleInterface(view().menu->actionPlay);
  EXPECT_EQ(AccessibleWalk::nameOf(play), "Play or pause");
  EXPECT_EQ(play.text(QAccessible::Accelerator), "Space");
  EXPECT_EQ(play.parent()->role(), Role::PopupMenu);
  EXPECT_EQ(AccessibleWalk::nameOf(*play.parent()), "Playing");
  EXPECT_EQ(AccessibleWalk::nameOf(*play.parent()->parent()), "Playing")
      << "the entry that opens it";
  EXPECT_EQ(play.parent()->parent()->parent(), QAccessible::queryAccessibleInterface(view().menu));
  QAccessibleInterface& save = *QAccessible::queryAccessibleInterface(view().menu->actionExport);
  EXPECT_EQ(AccessibleWalk::nameOf(save), "Export…");
  EXPECT_EQ(save.actionInterface()->keyBindingsForAction(QAccessibleActionInterface::pressAction()),
            QStringList("Ctrl+E"));
}

TEST_F(AccessibleTree, AnEntryThatIsPressedClosesTheMenus) {
  view().menu->popup({});
  QAccessibleInterface& about = *QAccessible::queryAccessibleInterface(view().menu->actionAbout);
  about.actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  EXPECT_FALSE(view().menu->isVisible());
  opened<AboutVC>();
}

TEST_F(AccessibleTree, ARowThatIsPressedIsOpened) {
  QAccessibleInterface& list = *QAccessible::queryAccessibleInterface(view().browser->tableFile);
  ASSERT_EQ(list.childCount(), 3);
  QAccessibleInterface& row = *list.child(1);
  EXPECT_EQ(AccessibleWalk::nameOf(row), "R0001.WAV");
  EXPECT_TRUE(row.text(QAccessible::Description).startsWith("Recording"));
  waitForTake([&] { row.actionInterface()->doAction(QAccessibleActionInterface::pressAction()); });
  EXPECT_EQ(state(), PLAY_STATE_PLAY);
  EXPECT_TRUE(row.state().selected);
  EXPECT_TRUE(row.state().focused);
  EXPECT_TRUE(row.text(QAccessible::Description).startsWith("Recording, loaded"));
}

TEST_F(AccessibleTree, ARowStaysTheSameWhereItMoves) {
  QAccessibleInterface& list = *QAccessible::queryAccessibleInterface(view().browser->tableFile);
  QAccessibleInterface* const row = list.child(2);
  EXPECT_EQ(AccessibleWalk::nameOf(*row), "R0002.WAV");
  take("R0000.WAV");
  refresh();
  EXPECT_EQ(AccessibleWalk::nameOf(*row), "R0002.WAV");
  EXPECT_EQ(list.child(3), row);
  EXPECT_EQ(list.indexOfChild(row), 3);
  std::filesystem::remove(takes.path() / "R0002.WAV");
  refresh();
  EXPECT_FALSE(row->isValid());
  EXPECT_EQ(list.childCount(), 3);
}

TEST_F(AccessibleTree, AnEntryOfAPopUpThatIsPressedIsChosen) {
  plugIn();
  QComboBox& battery = *view().device->popupBattery;
  QAccessibleInterface& list = *QAccessible::queryAccessibleInterface(&battery)->child(0);
  list.child(2)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  midiClock->advance(0.5);
  EXPECT_EQ(battery.currentIndex(), 2);
  EXPECT_EQ(link.recorder().state().batteryType, 2);
}

TEST_F(AccessibleTree, AToggleThatIsToggledIsClicked) {
  open("R0001.WAV");
  QAccessibleInterface& solo = *QAccessible::queryAccessibleInterface(view().player->btnSoloSide);
  const QString toggle = QAccessibleActionInterface::toggleAction();
  solo.actionInterface()->doAction(toggle);
  EXPECT_EQ(controller().take().solo(), Solo::Side);
  EXPECT_TRUE(solo.state().checked);
  solo.actionInterface()->doAction(toggle);
  EXPECT_EQ(controller().take().solo(), Solo::None);
  EXPECT_FALSE(solo.state().checked);
}

TEST_F(AccessibleTree, TheMenuIsOpenedWithoutWaitingForItsEnd) {
  QAccessibleInterface& button = *QAccessible::queryAccessibleInterface(view().player->btnMenu);
  EXPECT_EQ(button.role(), Role::ButtonMenu);
  EXPECT_TRUE(button.state().hasPopup);
  button.actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  EXPECT_FALSE(view().menu->isVisible()) << "not before what asks has its answer";
  bool wasOpen = false;
  QTimer::singleShot(0, [&] {
    wasOpen = view().menu->isVisible();
    view().menu->close();
  });
  QCoreApplication::processEvents();
  EXPECT_TRUE(wasOpen);
}

TEST_F(AccessibleTree, LabelsAndWhatTheyNameKnowEachOther) {
  int pairs = 0;
  for (const auto* const label : view().findChildren<QLabel*>()) {
    if (label->buddy() == nullptr) continue;
    QAccessibleInterface& named = *QAccessible::queryAccessibleInterface(label->buddy());
    QAccessibleInterface* const caption =
        QAccessible::queryAccessibleInterface(const_cast<QLabel*>(label));
    EXPECT_TRUE(named.relations(QAccessible::Label).contains({caption, QAccessible::Label}))
        << label->text().toStdString();
    EXPECT_TRUE(caption->relations(QAccessible::Labelled).contains({&named, QAccessible::Labelled}))
        << label->text().toStdString();
    ++pairs;
  }
  EXPECT_EQ(pairs, 8) << "width, image, gain, L, R, remaining, battery, auto power off";
}

TEST_F(AccessibleTree, OfTheExportDialogAndItsPanelIsWhole) {
  openExport();
  controller().take().setLoop(FrameLoop{96'000, 192'000});
  const Found found = walkThrough<ExportVC>();
  EXPECT_THAT(found.wrong, IsEmpty());
  EXPECT_EQ(found.count.at(Role::RadioButton), 2);
  press(shown<ExportVC>(), "Save");
  EXPECT_THAT(walkThrough<SavePanel>().wrong, IsEmpty());
  auto* const make = shown<SavePanel>()->findChild<QAbstractButton*>("newFolderButton");
  QTest::mouseClick(make, Qt::LeftButton);
  EXPECT_THAT(walkThrough<QInputDialog>().wrong, IsEmpty());
}

TEST_F(AccessibleTree, OfASelectionThatMayBeExportedIsWhole) {
  open("R0001.WAV");
  controller().take().setLoop(FrameLoop{96'000, 192'000});
  controller().btnExport_Click();
  const Found found = walkThrough<ExportVC>();
  EXPECT_THAT(found.wrong, IsEmpty());
  EXPECT_EQ(found.count.at(Role::CheckBox), 4) << "full scale, a loudness, the selection, time";
}

TEST_F(AccessibleTree, OfTheSmallDialogsIsWhole) {
  controller().btnAbout_Click();
  EXPECT_THAT(walkThrough<AboutVC>().wrong, IsEmpty());
  controller().showNoDevice();
  EXPECT_THAT(walkThrough<NodeviceVC>().wrong, IsEmpty());
  controller().showIntroduction();
  EXPECT_THAT(walkThrough<IntroductionVC>().wrong, IsEmpty());
  view().menu->actionKeys->trigger();
  EXPECT_THAT(walkThrough<HelpVC>().wrong, IsEmpty());
  controller().btnOpenFolder_Click();
  EXPECT_THAT(walkThrough<FolderPanel>().wrong, IsEmpty());
}

TEST_F(AccessibleTree, OfAnAlertIsWhole) {
  file("X1.WAV");
  refresh();
  waitForTake([&] { doubleClickRow("X1.WAV"); });
  const Found found = walkThrough<QMessageBox>();
  EXPECT_THAT(found.wrong, IsEmpty());
  closeAlert("File not supported.");
}

TEST_F(AccessibleTree, OfAProgressIsWhole) {
  ExportProgress progress("R0001.WAV", "R0001_Decode.WAV", &view());
  progress.show();
  EXPECT_THAT(walkThrough<ExportProgress>().wrong, IsEmpty());
}

// Or the walk above sees nothing.
TEST_F(AccessibleTree, WhatIsWrongInItIsFound) {
  view().player->btnLoop->setAccessibleName({});
  view().player->btnLoop->setText({});
  EXPECT_EQ(walkThroughWindow().wrong.size(), 1U);
  QWidget used(view().player);
  used.setFocusPolicy(Qt::TabFocus);
  used.show();
  EXPECT_GE(walkThroughWindow().wrong.size(), 2U);
}

}  // namespace
