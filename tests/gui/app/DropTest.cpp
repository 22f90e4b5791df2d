// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QTest>
#include <memory>

#include "WindowFixture.h"
#include "base/FileAddress.h"

namespace {

using testing::ElementsAre;

/// Files that another program drops on the window.
class Drop : public WindowFixture {
 protected:
  void drop(const std::string& list) {
    QMimeData data;
    data.setData(QStringLiteral("text/uri-list"), QByteArray::fromStdString(list));
    QDragEnterEvent enter({10, 10}, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(&view(), &enter);
    isTaken = enter.isAccepted();
    if (!isTaken) return;
    QDropEvent event(QPointF(10, 10), Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(&view(), &event);
    EXPECT_EQ(event.dropAction(), Qt::CopyAction) << "the files stay where they are";
  }
  void drop(const std::vector<std::filesystem::path>& files) { drop(FileAddress::listOf(files)); }

  bool isTaken = false;
};

TEST_F(Drop, AFolderIsOpened) {
  const auto inner = folder("two words");
  startOnTakes();
  drop(std::vector{inner});
  waitFor([&] { return controller().folderHelper()->folderPath() == inner; }, "the folder");
  EXPECT_EQ(controller().urlOfFileList(), inner);
}

TEST_F(Drop, ATakeIsSelectedInItsFolderAndOpened) {
  const auto inner = folder("Bells");
  std::filesystem::rename(take("a.WAV", 48'000), inner / "a.WAV");
  startOnTakes();
  waitForTake([&] { drop(std::vector{inner / "a.WAV"}); });
  EXPECT_EQ(controller().take().name(), "a.WAV");
  waitFor([this] { return selected() == "a.WAV"; }, "the row");
  EXPECT_EQ(controller().urlOfFileList(), inner);
}

TEST_F(Drop, SeveralTakesAreSelectedInTheirFolder) {
  const auto inner = folder("Bells");
  for (const char* const name : {"a.WAV", "b.WAV", "c.WAV"}) {
    std::filesystem::rename(take(name, 48'000), inner / name);
  }
  const auto elsewhere = take("b.WAV", 48'000);
  startOnTakes();
  drop({inner / "a.WAV", inner / "c.WAV", elsewhere});
  waitFor([this] { return allSelected().size() == 2; }, "the rows");
  EXPECT_THAT(allSelected(), ElementsAre("a.WAV", "c.WAV"));
  EXPECT_EQ(controller().wavPlayer(), nullptr);
}

TEST_F(Drop, WhatIsNoFileIsNotTaken) {
  startOnTakes();
  drop(std::string("https://mixdeck.example/R0001.WAV\r\n"));
  EXPECT_FALSE(isTaken);
  drop(std::string());
  EXPECT_FALSE(isTaken);
}

}  // namespace
