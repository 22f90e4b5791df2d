// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "folders/TypedName.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QStringListModel>
#include <QTest>

#include "folders/FileList.h"

namespace {

using namespace std::chrono_literals;

class Typed : public testing::Test {
 protected:
  int type(const char* letters, int current = 0) {
    return typed.type(QString::fromLatin1(letters), model, current);
  }

  std::chrono::milliseconds now{0};
  QStringListModel model{
      QStringList{"Ambience", "R0001.WAV", "R0002.WAV", "R0012.WAV", "Rain.WAV", "more rain.WAV"}};
  TypedName typed{[this] { return now; }};
};

TEST_F(Typed, LettersThatFollowEachOtherBelongTogether) {
  EXPECT_EQ(type("r"), 1);
  EXPECT_TRUE(typed.isUnderWay());
  EXPECT_EQ(type("a"), 4) << "Rain";
  now += 999ms;
  EXPECT_EQ(type("m"), -1) << "no ram";
  now += 1000ms;
  EXPECT_FALSE(typed.isUnderWay());
  EXPECT_EQ(type("m"), 5) << "anew";
}

TEST_F(Typed, ABeginningComesBeforeWhatIsHeldElsewhere) {
  EXPECT_EQ(type("rain"), 4);
  now += 2s;
  EXPECT_EQ(type("0012"), 3);
  now += 2s;
  EXPECT_EQ(type("2"), 2) << "held by R0002 first";
}

TEST_F(Typed, OneLetterOnceMoreGoesOnToTheNext) {
  EXPECT_EQ(type("R", 0), 1);
  EXPECT_EQ(type("R", 1), 2);
  EXPECT_EQ(type("R", 4), 1) << "round";
}

TEST_F(Typed, AnEmptyListHasNothing) {
  model.setStringList({});
  EXPECT_EQ(type("r"), -1);
}

TEST(TypedInTheList, GoesToTheRowAndTakesTheWindowsKeysOnTheWay) {
  QWidget window;
  QAction solo;
  solo.setShortcut(Qt::Key_M);
  window.addAction(&solo);
  int soloed = 0;
  QObject::connect(&solo, &QAction::triggered, [&] { ++soloed; });
  FileList list(&window);
  QStringListModel model{QStringList{"Ambience", "R0001.WAV", "Rome.WAV"}};
  list.setModel(&model);
  window.show();
  window.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  list.setFocus();
  QTest::keyClick(&list, Qt::Key_M);
  EXPECT_EQ(soloed, 1) << "the first letter is the window's";
  QTest::keyClicks(&list, "rom");
  EXPECT_EQ(soloed, 1);
  EXPECT_EQ(list.selectedRow(), 2);
}

}  // namespace
