// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "folders/FileListModel.h"

#include <gmock/gmock.h>

#include <QAbstractItemModelTester>
#include <QIcon>
#include <QMimeData>
#include <QSignalSpy>
#include <QUrl>
#include <algorithm>
#include <memory>
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

/// Recordings whose names read alike, as names do that are no text.
std::vector<WavItem> alike(int count) {
  std::vector<WavItem> made;
  for (int i = 0; i < count; ++i) {
    made.push_back(items({"a"}).front());
    made.back().fullPath += std::to_string(i);
  }
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
  std::vector<WavItem> files = alike(4);
  files.push_back(items({"b"}).front());
  const std::vector<WavItem> first = files;
  do {
    model.show(first);
    model.show(files);
    ASSERT_EQ(model.files(), files);
    const std::vector<WavItem> fewer(files.begin() + 1, files.end() - 2);
    model.show(fewer);
    ASSERT_EQ(model.files(), fewer);
  } while (
      std::ranges::next_permutation(files.begin(), files.end() - 1, {}, &WavItem::fullPath).found);
  EXPECT_EQ(resets.count(), 0);
}

TEST_F(Model, SaysNothingOfNamesThatReadAlikeWhereNothingChanged) {
  const std::vector<WavItem> files = alike(40);
  model.show(files);
  resets.clear();
  model.show(files);
  EXPECT_EQ(resets.count() + inserted.count() + removed.count(), 0);
}

TEST_F(Model, TellsWhatIsKnownOfARecordingWheneverItIsThere) {
  RowFacts facts;
  facts.seconds = 192.9;
  model.addFacts({{"/x/b.wav", facts}});
  model.show(items({"Bells/", "a.wav", "b.wav"}));
  const auto at = [this](int row, int role) { return model.index(row, 0).data(role); };
  EXPECT_EQ(at(2, FileListModel::kDurationRole).toString(), "03:12");
  EXPECT_EQ(at(1, FileListModel::kDurationRole).toString(), "");
  EXPECT_FALSE(at(2, FileListModel::kExportedRole).toBool());
  EXPECT_EQ(at(2, Qt::ToolTipRole).toString(), "b.wav");
  facts.isExported = true;
  facts.exportNote = "Exported as c.wav";
  const QSignalSpy changes(&model, &QAbstractItemModel::dataChanged);
  model.addFacts({{"/x/b.wav", facts}});
  model.addFacts({{"/x/b.wav", facts}});
  EXPECT_EQ(changes.count(), 1) << "the second time nothing is new";
  EXPECT_TRUE(at(2, FileListModel::kExportedRole).toBool());
  EXPECT_EQ(at(2, Qt::ToolTipRole).toString(), "b.wav\nExported as c.wav");
  EXPECT_EQ(at(2, Qt::AccessibleDescriptionRole).toString(), "Recording, 03:12, exported");
}

TEST_F(Model, KnowsWhatItWasToldOfBeItNothing) {
  const auto files = items({"a.wav", "b.wav"});
  model.show(files);
  const QSignalSpy changes(&model, &QAbstractItemModel::dataChanged);
  EXPECT_FALSE(model.isKnown(files[0]));
  model.addFacts({{"/x/a.wav", {}}});
  EXPECT_TRUE(model.isKnown(files[0]));
  EXPECT_FALSE(model.isKnown(files[1]));
  EXPECT_EQ(changes.count(), 1);
}

TEST_F(Model, ForgetsWhatOtherFoldersHeldWhereThatIsMuch) {
  const auto here = items({"a.wav", "b.wav"});
  const auto there = items({"c.wav"});
  RowFactsByPath facts{{"/x/a.wav", {}}, {"/x/b.wav", {}}, {"/x/c.wav", {}}};
  model.show(here);
  model.addFacts(facts);
  model.show(there);
  EXPECT_TRUE(model.isKnown(here[0])) << "for whoever goes back";
  model.show(here);
  facts.clear();
  for (std::size_t i = 0; i < FileListModel::kMostUnshown; ++i) {
    facts.emplace("/y/" + std::to_string(i), RowFacts());
  }
  model.addFacts(facts);
  model.show(here);
  EXPECT_FALSE(model.isKnown(there[0]));
  EXPECT_TRUE(model.isKnown(here[0]));
  EXPECT_TRUE(model.isKnown(here[1]));
}

TEST_F(Model, StandsInTheOrderThatIsWished) {
  RowFacts facts;
  facts.seconds = 5;
  facts.recorded = "2026-05-04 10:00:00";
  model.addFacts({{"/x/a.wav", facts}});
  facts.seconds = 3;
  facts.recorded = "2026-05-05 10:00:00";
  model.addFacts({{"/x/c.wav", facts}, {"/x/b.wav", facts}});
  const auto shown = [this] {
    std::vector<std::string> names;
    for (const WavItem& item : model.files()) names.push_back(item.fileName.toStdString());
    return names;
  };
  const auto files = items({"Zoo/", "0.wav", "a.wav", "b.wav", "c.wav"});
  using testing::ElementsAre;
  model.show(files);
  EXPECT_THAT(shown(), ElementsAre("Zoo/", "0.wav", "a.wav", "b.wav", "c.wav"));
  model.setOrder(FileListModel::Order::Duration);
  EXPECT_TRUE(model.wouldMove(files));
  model.show(files);
  EXPECT_THAT(shown(), ElementsAre("Zoo/", "b.wav", "c.wav", "a.wav", "0.wav"));
  EXPECT_FALSE(model.wouldMove(files));
  model.setOrder(FileListModel::Order::Recorded);
  model.show(files);
  EXPECT_THAT(shown(), ElementsAre("Zoo/", "a.wav", "b.wav", "c.wav", "0.wav"));
  model.setOrder(FileListModel::Order::Name);
  model.show(files);
  EXPECT_THAT(shown(), ElementsAre("Zoo/", "0.wav", "a.wav", "b.wav", "c.wav"));
}

TEST(RowFactsTest, DurationsAreWholeSecondsAndHaveHoursWhereTheyNeedThem) {
  const auto textOf = [](std::optional<double> seconds) {
    RowFacts facts;
    facts.seconds = seconds;
    return facts.durationText().toStdString();
  };
  EXPECT_EQ(textOf(std::nullopt), "");
  EXPECT_EQ(textOf(0.0), "00:00");
  EXPECT_EQ(textOf(41.99), "00:41");
  EXPECT_EQ(textOf(3729.0), "01:02:09");
  EXPECT_EQ(textOf(360'000.0), "100:00:00");
}

TEST_F(Model, TakesAreDraggedAsFilesAndFoldersAreNot) {
  model.show(items({"Bells/", "b c.wav", "a.wav"}));
  EXPECT_FALSE(model.flags(model.index(0, 0)).testFlag(Qt::ItemIsDragEnabled));
  EXPECT_TRUE(model.flags(model.index(1, 0)).testFlag(Qt::ItemIsDragEnabled));
  EXPECT_EQ(model.supportedDragActions(), Qt::CopyAction);
  const std::unique_ptr<QMimeData> data(
      model.mimeData({model.index(2, 0), model.index(0, 0), model.index(1, 0)}));
  EXPECT_EQ(data->data("text/uri-list"), "file:///x/a.wav\r\nfile:///x/b%20c.wav\r\n");
  EXPECT_EQ(data->urls().size(), 2);
}

}  // namespace
