// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
//
// What assistive software finds in every dialog, menu of a row and question, and what it can do
// there.

#include <QAccessible>
#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QListView>
#include <QMenu>
#include <QSignalSpy>
#include <QTreeWidget>
#include <memory>

#include "AccessibleWalk.h"
#include "EveryDialog.h"
#include "dialogs/QueuePanel.h"

namespace {

using Found = AccessibleWalk::Found;
using Role = AccessibleWalk::Role;
using testing::IsEmpty;

QAccessibleInterface& of(QObject& object) {
  QAccessibleInterface* const found = QAccessible::queryAccessibleInterface(&object);
  if (found == nullptr) qFatal("there is nothing to read");
  return *found;
}

void pressIt(QAccessibleInterface& item) {
  item.actionInterface()->doAction(QAccessibleActionInterface::pressAction());
}

class AccessibleDialogs : public EveryDialog {
 protected:
  void SetUp() override { startWithAll(); }
  std::unique_ptr<QWidget> opened(QWidget* dialog) {
    dialog->show();
    settle();
    return std::unique_ptr<QWidget>(dialog);
  }
  /// How many labels and what they are the label of know each other.
  static int captionsOf(const QWidget& dialog) {
    int pairs = 0;
    for (auto* const label : dialog.findChildren<QLabel*>()) {
      if (label->buddy() == nullptr) continue;
      QAccessibleInterface& named = of(*label->buddy());
      EXPECT_TRUE(named.relations(QAccessible::Label).contains({&of(*label), QAccessible::Label}))
          << label->text().toStdString();
      ++pairs;
    }
    return pairs;
  }
};

TEST_F(AccessibleDialogs, EachIsWhole) {
  forEachDialog([](QWidget& dialog) {
    const Found found = AccessibleWalk::through(dialog);
    EXPECT_THAT(found.wrong, IsEmpty()) << dialog.metaObject()->className();
    EXPECT_GE(found.count.size(), 2U) << dialog.metaObject()->className();
  });
}

TEST_F(AccessibleDialogs, FactsOfSeveralTakesAndTheirCaptionsKnowEachOther) {
  const auto dialog = opened(batchDialog());
  EXPECT_EQ(captionsOf(*dialog), 5) << "length, width, gain, room, what becomes of those there";
}

TEST_F(AccessibleDialogs, MenuOfARowIsAPartOfTheWindow) {
  const std::unique_ptr<QWidget> menu(rowMenu(1));
  EXPECT_EQ(of(*menu).parent(), &of(view()));
  const Found found = AccessibleWalk::through(view());
  EXPECT_THAT(found.wrong, IsEmpty());
  EXPECT_EQ(found.count.at(Role::MenuItem), 5);
}

TEST_F(AccessibleDialogs, AnEntryOfTheMenuOfARowThatIsPressedIsDone) {
  QWidget* const menu = rowMenu(1);
  QAccessibleInterface& copy = *of(*menu).child(4);
  EXPECT_EQ(AccessibleWalk::nameOf(copy), "Copy path");
  pressIt(copy);
  EXPECT_EQ(QGuiApplication::clipboard()->text().toStdString(), takes.path() / "R0001.WAV");
  EXPECT_EQ(shown<QMenu>(), nullptr);
}

TEST_F(AccessibleDialogs, AnExportOfTheQueueTellsHowFarItIsAndIsShownInItsFolder) {
  const auto dialog = opened(queuePanel());
  auto& panel = *qobject_cast<QueuePanel*>(dialog.get());
  QAccessibleInterface& list = of(*panel.findChild<QListView*>());
  EXPECT_EQ(list.role(), Role::List);
  EXPECT_EQ(AccessibleWalk::nameOf(list), "Exports");
  EXPECT_EQ(AccessibleWalk::nameOf(*list.child(1)), "R0001.WAV");
  EXPECT_EQ(list.child(1)->text(QAccessible::Description), "25 % · About 9 s left");
  const QSignalSpy wishes(&panel, &QueuePanel::showInFolderRequested);
  pressIt(*list.child(0));
  EXPECT_EQ(wishes.count(), 0) << "nothing is written yet";
  pressIt(*list.child(3));
  ASSERT_EQ(wishes.count(), 1);
  EXPECT_TRUE(list.child(3)->state().selected);
}

TEST_F(AccessibleDialogs, InformationIsReadByItsRows) {
  const auto dialog = opened(information(takes.path() / "R0001.WAV"));
  QAccessibleInterface& tree = of(*dialog->findChild<QTreeWidget*>());
  EXPECT_EQ(AccessibleWalk::nameOf(tree), "Information");
  QStringList names;
  for (int i = 0; i < tree.childCount(); ++i) names << AccessibleWalk::nameOf(*tree.child(i));
  const qsizetype peak = names.indexOf("True peak");
  ASSERT_GE(peak, 0) << names.join(u'\n').toStdString();
  EXPECT_TRUE(names[peak + 1].contains("dBTP")) << names[peak + 1].toStdString();
  EXPECT_FALSE(names[peak + 1].contains(u'−')) << "a plain minus is read";
}

TEST_F(AccessibleDialogs, QuestionWhetherToSalvageIsReadAndAnswered) {
  const auto dialog = opened(repairQuestion());
  const Found found = AccessibleWalk::through(*dialog);
  EXPECT_EQ(found.count.at(Role::Button), 2);
  EXPECT_TRUE(found.named.contains({Role::Button, "Salvage"}));
  EXPECT_TRUE(AccessibleWalk::nameOf(of(*dialog)).startsWith("TARN J4 Mixdeck"));
}

}  // namespace
