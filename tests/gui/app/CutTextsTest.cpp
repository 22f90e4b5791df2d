// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "CutTexts.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QToolButton>
#include <QTreeWidget>
#include <vector>

#include "controls/Appearance.h"

namespace {

TEST(CutTexts, TellsWhatIsCutInATree) {
  QWidget window;
  QTreeWidget tree(&window);
  tree.setColumnCount(2);
  auto* const group = new QTreeWidgetItem(&tree, {QStringLiteral("Stereobreite")});
  new QTreeWidgetItem(group, {QStringLiteral("Stereobreite"), QStringLiteral("a value")});
  group->setFirstColumnSpanned(true);
  group->setExpanded(true);
  tree.resize(600, 200);
  window.resize(600, 200);
  window.show();
  tree.header()->setStretchLastSection(false);
  tree.header()->resizeSection(0, 300);
  EXPECT_EQ(CutTexts::in(window).join(u'\n').toStdString(), "");
  tree.header()->resizeSection(0, 60);
  EXPECT_EQ(CutTexts::in(window).size(), 1) << "a group has the whole line";
}

TEST(CutTexts, TellsWhatIsCut) {
  QWidget window;
  const QFontMetrics metrics(window.font());
  const int width = metrics.horizontalAdvance(QStringLiteral("Stereobreite"));
  auto* const label = new QLabel(QStringLiteral("Stereobreite"), &window);
  auto* const button = new QToolButton(&window);
  button->setText(QStringLiteral("Stereobreite"));
  auto* const popup = new QComboBox(&window);
  popup->addItem(QStringLiteral("Stereobreite"));
  const std::vector<QWidget*> all = {label, button, popup};
  for (QWidget* const widget : all) widget->resize(2 * width + 40, 2 * metrics.height() + 10);
  EXPECT_EQ(CutTexts::in(window).join(u'\n').toStdString(), "");
  for (QWidget* const widget : all) {
    const QSize before = widget->size();
    widget->resize(width - 1, before.height());
    EXPECT_EQ(CutTexts::in(window).size(), 1) << widget->metaObject()->className();
    widget->resize(before);
  }
  label->setWordWrap(true);
  label->setText(
      QStringLiteral("Stereobreite Stereobreite Stereobreite Stereobreite Stereobreite"));
  EXPECT_EQ(CutTexts::in(window).size(), 1) << "there are more lines than it has room for";
}

// By what the style sheet has around its text: a text and no more fits none of them.
TEST(CutTexts, TellsWhatIsCutInAButton) {
  Appearance::apply(*qApp);
  QWidget window;
  const QString text = QStringLiteral("Stereobreite");
  const std::vector<QAbstractButton*> all = {new QPushButton(text, &window),
                                             new QCheckBox(text, &window),
                                             new QRadioButton(text, &window)};
  window.show();
  for (QAbstractButton* const button : all) button->resize(button->sizeHint());
  EXPECT_EQ(CutTexts::in(window).join(u'\n').toStdString(), "");
  for (QAbstractButton* const button : all) {
    const QSize whole = button->sizeHint();
    const int bare = button->fontMetrics().horizontalAdvance(text) + 4;
    for (const int width : {bare, whole.width() - 6}) {
      button->resize(width, whole.height());
      EXPECT_EQ(CutTexts::in(window).size(), 1)
          << button->metaObject()->className() << " " << width << " of " << whole.width();
    }
    button->resize(whole);
  }
}

TEST(CutTexts, TellsWhatIsCutInARowOfAList) {
  Appearance::apply(*qApp);
  QWidget window;
  QListWidget list(&window);
  list.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  list.addItem(QStringLiteral("R0001.WAV: copied"));
  list.addItem(QStringLiteral("R0002.WAV: was not copied, since there is no room for it any more"));
  const int width = list.sizeHintForColumn(0) + 40;
  list.resize(width, 200);
  window.resize(width, 200);
  window.show();
  QCoreApplication::processEvents();
  EXPECT_EQ(CutTexts::in(window).join(u'\n').toStdString(), "");
  list.resize(width / 2, 200);
  QCoreApplication::processEvents();
  EXPECT_EQ(CutTexts::in(window).size(), 1) << "it ends in dots";
  list.setWordWrap(true);
  QCoreApplication::processEvents();
  EXPECT_EQ(CutTexts::in(window).join(u'\n').toStdString(), "") << "it has two lines";
}

}  // namespace
