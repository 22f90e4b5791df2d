// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "desktop/OneWindow.h"

#include <gmock/gmock.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <vector>

#include "support/CoreApplication.h"
#include "support/EnvironmentVariable.h"
#include "support/EventLoop.h"
#include "support/PrivateBus.h"
#include "support/TemporaryFolder.h"

namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr auto kLong = 60s;  // nothing is to depend on it

class OneWindowTest : public testing::Test {
 protected:
  /// Another window is there already.
  void beThere() {
    auto* const interface = new ApplicationInterface(&other);
    QObject::connect(interface, &ApplicationInterface::asked,
                     [this](const QStringList& addresses, const QString& token) {
                       told.push_back((addresses.join(u' ') + u'|' + token).toStdString());
                     });
    ASSERT_TRUE(bus.desktop->registerObject(QLatin1String(OneWindow::kPath), &other));
    ASSERT_TRUE(bus.desktop->registerService(QLatin1String(OneWindow::kName)));
  }
  void serve() {
    one.serve([this](const OneWindow::Wish& wish) {
      told.push_back((wish.addresses.join(u' ') + u'|' + wish.token).toStdString());
    });
  }
  /// As a desktop, or a second start, does; until it is answered.
  void ask(const QString& what, const QVariantList& arguments) const {
    QDBusMessage message = QDBusMessage::createMethodCall(
        QLatin1String(OneWindow::kName), QLatin1String(OneWindow::kPath),
        QStringLiteral("org.freedesktop.Application"), what);
    message.setArguments(arguments);
    bool isAnswered = false;
    QDBusPendingCallWatcher watcher(bus.desktop->asyncCall(message));
    QObject::connect(&watcher, &QDBusPendingCallWatcher::finished, [&] {
      isAnswered = true;
      EXPECT_FALSE(watcher.isError()) << watcher.error().message().toStdString();
    });
    ASSERT_TRUE(EventLoop::runUntil([&] { return isAnswered; }));
  }

  CoreApplication application;
  PrivateBus bus;
  EnvironmentVariable named{"DBUS_SESSION_BUS_ADDRESS", bus.address.toStdString()};
  QObject other;
  std::vector<std::string> told;
  BusLink link;
  OneWindow one{link};
};

TEST_F(OneWindowTest, FirstStartHasItsOwnWindow) {
  EXPECT_FALSE(one.isHandedOver({{QStringLiteral("file:///a")}, {}}, kLong));
}

TEST_F(OneWindowTest, SecondStartHandsItsFilesAndItsLeaveOver) {
  beThere();
  const QStringList files = {QStringLiteral("file:///a"), QStringLiteral("file:///b")};
  EXPECT_TRUE(one.isHandedOver({files, QStringLiteral("leave")}, kLong));
  EXPECT_THAT(told, ElementsAre("file:///a file:///b|leave"));
}

TEST_F(OneWindowTest, SecondStartWithoutFilesBringsTheWindowToTheFront) {
  beThere();
  EXPECT_TRUE(one.isHandedOver({}, kLong));
  EXPECT_THAT(told, ElementsAre("|"));
}

TEST_F(OneWindowTest, WhoHasTheNameButDoesNotListenIsNoWindow) {
  ASSERT_TRUE(bus.desktop->registerService(QLatin1String(OneWindow::kName)));
  EXPECT_FALSE(one.isHandedOver({}, kLong));
}

TEST_F(OneWindowTest, OthersAreServed) {
  ASSERT_FALSE(one.isHandedOver({}, kLong));
  serve();
  ask(QStringLiteral("Open"), {QStringList{QStringLiteral("file:///a")},
                               QVariantMap{{QStringLiteral("activation-token"), "leave"}}});
  ask(QStringLiteral("Activate"),
      {QVariantMap{{QStringLiteral("desktop-startup-id"), "start_TIME1"}}});
  EXPECT_THAT(told, ElementsAre("file:///a|leave", "|start_TIME1"));
}

TEST_F(OneWindowTest, WishesThatComeBeforeThereIsAWindowWait) {
  ASSERT_FALSE(one.isHandedOver({}, kLong));
  ask(QStringLiteral("Activate"), {QVariantMap()});
  EXPECT_THAT(told, IsEmpty());
  serve();
  EXPECT_THAT(told, ElementsAre("|"));
}

TEST_F(OneWindowTest, WithoutABusAStartHasItsOwnWindow) {
  for (const char* const nobody : {"", "unix:path=/nowhere/nobody"}) {
    const EnvironmentVariable gone("DBUS_SESSION_BUS_ADDRESS", nobody);
    BusLink noLink;
    OneWindow alone(noLink);
    EXPECT_FALSE(alone.isHandedOver({}, kLong)) << nobody;
  }
}

TEST_F(OneWindowTest, BusThatDoesNotAnswerIsNotWaitedForForLong) {
  const TemporaryFolder folder;
  const std::string path = folder.path() / "bus";
  sockaddr_un place{};
  place.sun_family = AF_UNIX;
  ASSERT_LT(path.size(), sizeof place.sun_path);
  path.copy(place.sun_path, path.size());
  const int socket = ::socket(AF_UNIX, SOCK_STREAM, 0);
  ASSERT_EQ(bind(socket, reinterpret_cast<const sockaddr*>(&place), sizeof place), 0);
  ASSERT_EQ(listen(socket, 1), 0);
  const EnvironmentVariable mute("DBUS_SESSION_BUS_ADDRESS", "unix:path=" + path);
  EXPECT_FALSE(one.isHandedOver({}, 1ms));
  close(socket);  // which ends the thread that waits for it
}

}  // namespace
