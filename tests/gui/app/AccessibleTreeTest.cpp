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
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

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

using Role = QAccessible::Role;

QString nameOf(const QAccessibleInterface& item) {
  return item.text(QAccessible::Name);
}

// Holds others, and is nothing that one uses or reads.
bool holdsOnly(const QAccessibleInterface& item) {
  static const std::set<Role> kRoles = {Role::Client,   Role::Pane,      Role::Grouping,
                                        Role::Grip,     Role::ScrollBar, Role::Separator,
                                        Role::Indicator};
  return kRoles.contains(item.role());
}

// What one may do with a thing of this role; nothing is asked of others.
std::vector<QString> actionsOf(Role role) {
  using Action = QAccessibleActionInterface;
  static const std::map<Role, std::vector<QString>> kActions = {
      {Role::Button, {Action::pressAction()}},
      {Role::ButtonMenu, {Action::pressAction(), Action::showMenuAction()}},
      {Role::CheckBox, {Action::toggleAction()}},
      {Role::RadioButton, {Action::toggleAction()}},
      {Role::Slider, {Action::increaseAction(), Action::decreaseAction()}},
      {Role::Dial, {Action::increaseAction(), Action::decreaseAction()}},
      {Role::ListItem, {Action::pressAction(), Action::setFocusAction()}}};
  const auto found = kActions.find(role);
  return found == kActions.end() ? std::vector<QString>() : found->second;
}

bool hasValue(Role role) {
  return role == Role::Slider || role == Role::Dial || role == Role::ProgressBar;
}

/// What a walk has found: how many of each role, and what is wrong with any of them.
struct Found {
  std::map<Role, int> count;
  std::vector<std::string> wrong;
  std::set<std::pair<Role, QString>> named;
};

class Walk {
 public:
  static Found through(QAccessibleInterface& root) {
    Walk walk;
    walk.look(root, nameOf(root));
    return walk._found;
  }
  static Found through(QWidget& window) {
    return through(*QAccessible::queryAccessibleInterface(&window));
  }

 private:
  void look(QAccessibleInterface& item, const QString& way) {
    judge(item, way);
    for (int i = 0; i < item.childCount(); ++i) {
      QAccessibleInterface* const child = item.child(i);
      const QString place = way + u'/' + QString::number(i);
      if (child == nullptr || !child->isValid()) {
        wrong(place, "is no child");
        continue;
      }
      if (child->parent() != &item) wrong(place + nameOf(*child), "has another parent");
      if (item.indexOfChild(child) != i) wrong(place + nameOf(*child), "is at another place");
      if (!child->state().invisible) look(*child, place + u' ' + nameOf(*child));
    }
  }

  void judge(QAccessibleInterface& item, const QString& way) {
    const Role role = item.role();
    ++_found.count[role];
    if (holdsOnly(item)) return judgeHolder(item, way);
    if (role == Role::StaticText) return judgeText(item, way);
    const QString name = nameOf(item);
    if (name.trimmed().isEmpty()) wrong(way, "has no name");
    if (name.contains(u'\t') || name.contains(u'&')) wrong(way, "has a key in its name");
    if (role == Role::NoRole || role == Role::Client) wrong(way, "has no role");
    judgeUse(item, way);
  }

  // Who takes the keyboard, has a value or can be pressed is no mere holder.
  void judgeHolder(QAccessibleInterface& item, const QString& way) {
    if (item.role() == Role::ScrollBar || item.role() == Role::Separator) return;
    const auto* const widget = qobject_cast<const QWidget*>(item.object());
    const bool isUsed = widget != nullptr && widget->focusPolicy() != Qt::NoFocus;
    if (isUsed || item.valueInterface() != nullptr) wrong(way, "is used and only a holder");
    const bool isEmpty = item.childCount() == 0;
    if (isEmpty && nameOf(item).isEmpty() && !isDecoration(widget)) wrong(way, "is nothing");
  }

  // Whose meaning stands beside it in words, or which belongs to the toolkit.
  static bool isDecoration(const QWidget* widget) {
    static const std::set<QString> kNames = {"dotConnected"};
    return widget != nullptr && (kNames.contains(widget->objectName()) ||
                                 widget->metaObject()->className() == QByteArray("QSizeGrip"));
  }

  // A label that has nothing to say now is none.
  void judgeText(QAccessibleInterface& item, const QString& way) {
    const auto* const label = qobject_cast<const QLabel*>(item.object());
    const bool isSilent = label != nullptr && label->text().isEmpty() && label->pixmap().isNull();
    if (!isSilent && nameOf(item).trimmed().isEmpty()) wrong(way, "says nothing");
  }

  void judgeUse(QAccessibleInterface& item, const QString& way) {
    const Role role = item.role();
    if (!_found.named.insert({role, nameOf(item)}).second && isUnique(role)) {
      wrong(way, "has the name of another");
    }
    QAccessibleValueInterface* const value = item.valueInterface();
    if (hasValue(role) && value == nullptr) wrong(way, "has no value");
    if (value != nullptr && hasValue(role)) judgeValue(*value, way);
    if (role == Role::EditableText && item.editableTextInterface() == nullptr) {
      wrong(way, "cannot be written");
    }
    if (item.state().disabled) return;
    const QStringList actions =
        item.actionInterface() != nullptr ? item.actionInterface()->actionNames() : QStringList();
    const bool isReadOnly = item.state().readOnly;
    for (const QString& action : actionsOf(role)) {
      if (!isReadOnly && !actions.contains(action)) wrong(way, "has no action " + action);
    }
  }

  static bool isUnique(Role role) { return !actionsOf(role).empty() && role != Role::ListItem; }

  void judgeValue(QAccessibleValueInterface& value, const QString& way) {
    const double now = value.currentValue().toDouble();
    const bool isWithin =
        now >= value.minimumValue().toDouble() && now <= value.maximumValue().toDouble();
    if (!isWithin) wrong(way, "has a value out of its range");
  }

  void wrong(const QString& way, const QString& what) {
    _found.wrong.push_back((way + ": " + what).toStdString());
  }

  Found _found;
};

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
    const Found found = Walk::through(dialog);
    EXPECT_GE(found.count.size(), 2U) << "there is something in it";
    return found;
  }
  Found walkThroughWindow() { return Walk::through(view()); }
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
  EXPECT_EQ(nameOf(play), "Play or pause");
  EXPECT_EQ(play.text(QAccessible::Accelerator), "Space");
  EXPECT_EQ(play.parent()->role(), Role::PopupMenu);
  EXPECT_EQ(nameOf(*play.parent()), "Playing");
  EXPECT_EQ(nameOf(*play.parent()->parent()), "Playing") << "the entry that opens it";
  EXPECT_EQ(play.parent()->parent()->parent(), QAccessible::queryAccessibleInterface(view().menu));
  QAccessibleInterface& save = *QAccessible::queryAccessibleInterface(view().menu->actionExport);
  EXPECT_EQ(nameOf(save), "Export…");
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
  EXPECT_EQ(nameOf(row), "R0001.WAV");
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
  EXPECT_EQ(nameOf(*row), "R0002.WAV");
  take("R0000.WAV");
  refresh();
  EXPECT_EQ(nameOf(*row), "R0002.WAV");
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
  EXPECT_EQ(found.count.at(Role::CheckBox), 3) << "full scale, a loudness, the selection";
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
