// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "folders/FileListModel.h"

#include <gmock/gmock.h>

#include <QAbstractItemModelTester>
#include <QIcon>
#include <QSignalSpy>
#include <algorithm>
#include <random>

#include "folders/FolderHelper.h"

namespace {

std::vector<WavItem> items(const std::vector<std::string>& names) {
  std::vector<WavItem> made;
  for (const std::string& name : names) {
    const bool isFolder = name.ends_with('/');
    made.push_back({isFolder, QString::fromStdString(name),
                    isFolder ? FolderHelper::kFolderIcon : FolderHelper::kFileIcon, "/x/" + name});
  }
  std::ranges::sort(made, FolderHelper::isBefore);
  return made;
}

class Model : public testing::Test {
 protected:
  FileListModel model;
  QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};
  QSignalSpy resets{&model, &QAbstractItemModel::modelReset};
  QSignalSpy inserted{&model, &QAbstractItemModel::rowsInserted};
  QSignalSpy removed{&model, &QAbstractItemModel::rowsRemoved};
};

TEST_F(Model, ShowsNameAndPictureOfEachEntry) {
  model.show(items({"Bells/", "a.wav"}));
  ASSERT_EQ(model.rowCount(), 2);
  EXPECT_EQ(model.index(0, 0).data().toString(), "Bells/");
  EXPECT_FALSE(model.index(1, 0).data(Qt::DecorationRole).value<QIcon>().isNull());
  EXPECT_EQ(model.index(0, 0).data(Qt::AccessibleDescriptionRole).toString(), "Folder");
  EXPECT_EQ(model.index(1, 0).data(Qt::AccessibleDescriptionRole).toString(), "Recording");
}

TEST_F(Model, MarksTheTakeThatIsLoadedWheneverItIsThere) {
  const QSignalSpy changes(&model, &QAbstractItemModel::dataChanged);
  model.setLoaded("/x/b.wav");
  model.show(items({"a.wav", "b.wav"}));
  const auto isMarked = [this](int row) {
    return model.index(row, 0).data(FileListModel::kLoadedRole).toBool();
  };
  EXPECT_FALSE(isMarked(0));
  EXPECT_TRUE(isMarked(1));
  EXPECT_EQ(model.index(1, 0).data(Qt::AccessibleDescriptionRole).toString(), "Recording, loaded");
  model.setLoaded("/x/a.wav");
  EXPECT_TRUE(isMarked(0));
  EXPECT_FALSE(isMarked(1));
  EXPECT_EQ(changes.count(), 1);
  model.setLoaded({});
  EXPECT_FALSE(isMarked(0));
}

TEST_F(Model, ChangesOnlyTheRowsThatChanged) {
  model.show(items({"a", "b", "c", "d"}));
  inserted.clear();
  model.show(items({"a", "bb", "c", "e"}));
  EXPECT_EQ(model.files(), items({"a", "bb", "c", "e"}));
  EXPECT_EQ(resets.count(), 0);
  EXPECT_EQ(removed.count(), 2);
  EXPECT_EQ(inserted.count(), 2);
}

TEST_F(Model, SaysNothingWhereNothingChanged) {
  model.show(items({"a", "b"}));
  inserted.clear();
  model.show(items({"a", "b"}));
  EXPECT_EQ(resets.count() + inserted.count() + removed.count(), 0);
}

TEST_F(Model, IsReplacedWhereMuchHasChanged) {
  std::vector<std::string> many;
  for (int i = 0; i < 100; ++i) many.push_back(std::to_string(i));
  model.show(items(many));
  EXPECT_EQ(resets.count(), 1);
  EXPECT_EQ(model.rowCount(), 100);
}

TEST_F(Model, HoldsWhatItWasGivenAfterAnyChange) {
  std::mt19937 random(7);
  for (int round = 0; round < 300; ++round) {
    std::vector<std::string> names;
    for (int i = 0; i < 60; ++i) {
      if (random() % 3 != 0) names.push_back(std::to_string(i) + (i % 7 == 0 ? "/" : ""));
    }
    model.show(items(names));
    ASSERT_EQ(model.files(), items(names));
  }
}

TEST_F(Model, HoldsNamesThatReadAlike) {
  auto files = items({"a", "a"});
  files[1].fullPath = "/x/other";
  model.show(files);
  std::swap(files[0], files[1]);
  model.show(files);
  EXPECT_EQ(model.files(), files);
}

}  // namespace
