// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "desktop/FileManager.h"

#include <gmock/gmock.h>

#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <vector>

#include "SessionBus.h"
#include "support/CoreApplication.h"
#include "support/EventLoop.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A desktop's file manager.
class FakeManager : public QDBusVirtualObject {
 public:
  [[nodiscard]] QString introspect(const QString& /*path*/) const override { return {}; }
  bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override {
    if (message.member() != QLatin1String("ShowItems")) return false;
    shown.push_back(message.arguments().front().toStringList());
    return bus.send(message.createReply());
  }

  std::vector<QStringList> shown;
};

class FileManagerTest : public testing::Test {
 protected:
  CoreApplication application;
  std::vector<std::string> opened;
  FileManager files{nullptr, [this](const QString& it) { opened.push_back(it.toStdString()); }};
};

TEST_F(FileManagerTest, ShowsFilesByTheirAddresses) {
  const SessionBus bus;
  FakeManager manager;
  ASSERT_TRUE(bus.desktop().registerVirtualObject(QStringLiteral("/org/freedesktop/FileManager1"),
                                                  &manager));
  ASSERT_TRUE(bus.desktop().registerService(QStringLiteral("org.freedesktop.FileManager1")));
  files.use(bus.program());
  files.show({"/takes/a b.WAV", "/takes/\xFF.WAV"});
  ASSERT_TRUE(EventLoop::runUntil([&] { return !manager.shown.empty(); }));
  EXPECT_EQ(manager.shown.front(),
            (QStringList{"file:///takes/a%20b.WAV", "file:///takes/%FF.WAV"}));
  EXPECT_THAT(opened, IsEmpty());
}

TEST_F(FileManagerTest, WithoutOneItsFolderIsOpened) {
  const SessionBus bus;
  files.use(bus.program());
  files.show({"/takes/a.WAV", "/other/b.WAV"});
  ASSERT_TRUE(EventLoop::runUntil([this] { return !opened.empty(); }));
  EXPECT_THAT(opened, ElementsAre("file:///takes"));
}

TEST_F(FileManagerTest, WithoutABusToo) {
  files.show({"/takes/a.WAV"});
  EXPECT_THAT(opened, ElementsAre("file:///takes"));
  files.show({});
  EXPECT_EQ(opened.size(), 1U);
}

}  // namespace
