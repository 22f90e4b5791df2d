// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
//
// What assistive software finds in every dialog, menu of a row and question, and what it can do
// there.

#include <QAbstractSpinBox>
#include <QAccessible>
#include <QBoxLayout>
#include <QClipboard>
#include <QComboBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QPushButton>
#include <QSignalSpy>
#include <QTreeWidget>
#include <memory>
#include <utility>
#include <vector>

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

using Beside = std::pair<const QWidget*, const QWidget*>;

QWidget* widgetOf(const QLayoutItem* item) {
  return item == nullptr ? nullptr : item->widget();
}

bool isField(const QWidget* widget) {
  return qobject_cast<const QComboBox*>(widget) != nullptr ||
         qobject_cast<const QLineEdit*>(widget) != nullptr ||
         qobject_cast<const QAbstractSpinBox*>(widget) != nullptr;
}

/// What stands beside, or under, what may be its caption.
std::vector<Beside> pairsIn(const QLayout& layout) {
  std::vector<Beside> all;
  if (const auto* const form = qobject_cast<const QFormLayout*>(&layout)) {
    for (int row = 0; row < form->rowCount(); ++row) {
      all.emplace_back(widgetOf(form->itemAt(row, QFormLayout::LabelRole)),
                       widgetOf(form->itemAt(row, QFormLayout::FieldRole)));
    }
  } else if (const auto* const grid = qobject_cast<const QGridLayout*>(&layout)) {
    for (int row = 0; row < grid->rowCount(); ++row) {
      const QLayoutItem* const first = grid->itemAtPosition(row, 0);
      const QLayoutItem* const second = grid->itemAtPosition(row, 1);
      if (first != second) all.emplace_back(widgetOf(first), widgetOf(second));
    }
  } else {
    for (int i = 1; i < layout.count(); ++i) {
      const QWidget* const field = widgetOf(layout.itemAt(i));
      if (isField(field)) all.emplace_back(widgetOf(layout.itemAt(i - 1)), field);
    }
  }
  return all;
}

/// The captions that do not know what they are beside.
QStringList unrelated(const QWidget& dialog) {
  QStringList all;
  for (const auto* const layout : dialog.findChildren<QLayout*>()) {
    for (const auto& [first, field] : pairsIn(*layout)) {
      const auto* const caption = qobject_cast<const QLabel*>(first);
      if (caption == nullptr || caption->text().isEmpty() || field == nullptr) continue;
      if (caption->buddy() != field) all << caption->text();
    }
  }
  return all;
}

TEST(Captions, AreKnownByWhatTheyAreBeside) {
  QWidget form;
  auto* const rows = new QFormLayout(&form);
  auto* const caption = new QLabel(QStringLiteral("Card"));
  auto* const button = new QPushButton;
  rows->addRow(caption, button);
  EXPECT_EQ(unrelated(form), QStringList("Card"));
  caption->setBuddy(button);
  EXPECT_EQ(unrelated(form), QStringList());
  QWidget row;
  auto* const line = new QHBoxLayout(&row);
  line->addWidget(new QLabel(QStringLiteral("Where an export exists")));
  line->addWidget(new QComboBox);
  EXPECT_EQ(unrelated(row).size(), 1);
  QWidget lines;
  auto* const grid = new QGridLayout(&lines);
  grid->addWidget(new QLabel(QStringLiteral("Keys")), 0, 0, 1, 2);
  grid->addWidget(new QLabel(QStringLiteral("Ctrl+E")), 1, 0);
  grid->addWidget(new QLabel(QStringLiteral("Export")), 1, 1);
  EXPECT_EQ(unrelated(lines), QStringList("Ctrl+E"));
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

TEST_F(AccessibleDialogs, EveryCaptionAndWhatItIsBesideKnowEachOther) {
  int pairs = 0;
  forEachDialog([&](QWidget& dialog) {
    EXPECT_EQ(unrelated(dialog).join(u'\n').toStdString(), "") << dialog.metaObject()->className();
    pairs += captionsOf(dialog);
  });
  EXPECT_GT(pairs, 50);
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
