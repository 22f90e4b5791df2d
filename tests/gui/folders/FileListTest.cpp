// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "folders/FileList.h"

#include <gtest/gtest.h>

#include <QStringListModel>
#include <QTest>

#include "../controls/Repaints.h"

namespace {

/// What is painted again, beside the rows that change themselves.
class FilesRedraw : public testing::Test {
 protected:
  FilesRedraw() {
    list.setModel(&model);
    list.setSeveral(true);
    list.resize(300, 300);
    list.show();
    list.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&list));
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, rowAt(0).center());
    list.grab();
  }
  [[nodiscard]] QRect rowAt(int row) const { return list.visualRect(model.index(row, 0)); }
  template <class Action>
  bool repaints(int row, const Action& action) {
    return Repaints::of(*list.viewport(), action).contains(rowAt(row));
  }
  void toggle(int row) {
    list.selectionModel()->select(model.index(row, 0), QItemSelectionModel::Toggle);
  }

  QStringListModel model{QStringList{"R0001.WAV", "R0002.WAV", "R0003.WAV", "R0004.WAV"}};
  FileList list;
};

TEST_F(FilesRedraw, OneOfSeveralHasAnotherGroundThanOneAlone) {
  ASSERT_EQ(list.selectedRows(), std::vector<int>{0});
  EXPECT_TRUE(repaints(0, [this] { toggle(1); }));
  EXPECT_FALSE(repaints(0, [this] { toggle(3); })) << "there were several before";
  toggle(3);
  EXPECT_TRUE(repaints(0, [this] { toggle(1); })) << "alone again";
}

TEST_F(FilesRedraw, TheRingComesWithAKeyThatMovesNothing) {
  ASSERT_TRUE(list.hasFocus());
  EXPECT_TRUE(repaints(0, [this] { QTest::keyClick(&list, Qt::Key_Up); }));
  EXPECT_EQ(list.selectedRow(), 0);
}

}  // namespace
