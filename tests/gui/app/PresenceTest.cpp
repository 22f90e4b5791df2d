// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <xcb/xcb.h>

#include <QAbstractEventDispatcher>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDBusPendingCallWatcher>
#include <QDBusVariant>
#include <QImage>
#include <QMessageBox>
#include <QTimer>
#include <QVariant>
#include <algorithm>

#include "WindowFixture.h"
#include "app/DesktopPresence.h"
#include "app/PictureTimer.h"
#include "base/FileAddress.h"
#include "controls/Appearance.h"
#include "support/EnvironmentVariable.h"
#include "support/InhibitPortal.h"
#include "support/PrivateBus.h"

namespace {

using namespace std::chrono_literals;

/// The window on a session bus of its own, with a portal.
class Presence : public WindowFixture {
 protected:
  ~Presence() override {
    presence.reset();
    end();
    Appearance::setTextScale(*qApp, 1);
    Appearance::setHighContrast(*qApp, false);
  }
  void appear() {
    ASSERT_TRUE(portal.appear(*bus.desktop));
    startOnTakes();
    ASSERT_FALSE(one.isHandedOver({}, 60s));
    presence = std::make_unique<DesktopPresence>(*window, link, one);
    emit window->appeared();
  }
  void waitForPortal(std::size_t count) {
    waitFor([&] { return portal.told.size() >= count; }, "the portal");
  }
  /// The desktop tells of another setting.
  void tell(const char* group, const char* key, const QVariant& value) const {
    QDBusMessage signal = QDBusMessage::createSignal(
        InhibitPortal::root(), QStringLiteral("org.freedesktop.portal.Settings"),
        QStringLiteral("SettingChanged"));
    signal.setArguments(
        {QLatin1String(group), QLatin1String(key), QVariant::fromValue(QDBusVariant(value))});
    ASSERT_TRUE(bus.desktop->send(signal));
  }
  static void tellSight(WId window, std::uint8_t state) {
    xcb_visibility_notify_event_t event{};
    event.response_type = XCB_VISIBILITY_NOTIFY;
    event.window = static_cast<xcb_window_t>(window);
    event.state = state;
    qintptr result = 0;
    QAbstractEventDispatcher::instance()->filterNativeEvent("xcb_generic_event_t", &event, &result);
  }
  void animate(bool isAnimated) const {
    tell("org.gnome.desktop.interface", "enable-animations", isAnimated);
  }
  void scaleText(double scale) const {
    tell("org.gnome.desktop.interface", "text-scaling-factor", scale);
  }
  void raiseContrast(bool isHigh) const {
    tell("org.freedesktop.appearance", "contrast", isHigh ? 1U : 0U);
  }
  void ask(const std::vector<std::filesystem::path>& files) const {
    QStringList addresses;
    for (const auto& file : files) addresses << QString::fromStdString(FileAddress::of(file));
    QDBusMessage message = QDBusMessage::createMethodCall(
        QLatin1String(OneWindow::kName), QLatin1String(OneWindow::kPath),
        QStringLiteral("org.freedesktop.Application"), QStringLiteral("Open"));
    message.setArguments({addresses, QVariantMap()});
    ASSERT_TRUE(bus.desktop->send(message));
  }

  /// As a desktop has the player open it: the name of the error, empty for none.
  std::string openUri(const QString& address) {
    QDBusMessage message = QDBusMessage::createMethodCall(
        QStringLiteral("org.mpris.MediaPlayer2.mixdeck"), QStringLiteral("/org/mpris/MediaPlayer2"),
        QStringLiteral("org.mpris.MediaPlayer2.Player"), QStringLiteral("OpenUri"));
    message.setArguments({address});
    bool isAnswered = false;
    std::string error;
    QDBusPendingCallWatcher watcher(bus.desktop->asyncCall(message));
    QObject::connect(&watcher, &QDBusPendingCallWatcher::finished, [&] {
      isAnswered = true;
      error = watcher.error().name().toStdString();
    });
    waitFor([&] { return isAnswered; }, "the answer");
    return error;
  }
  /// The player has its name on the bus.
  [[nodiscard]] bool isPlayerThere() const {
    return bus.desktop->interface()->isServiceRegistered(
        QStringLiteral("org.mpris.MediaPlayer2.mixdeck"));
  }

  PrivateBus bus;
  EnvironmentVariable named{"DBUS_SESSION_BUS_ADDRESS", bus.address.toStdString()};
  InhibitPortal portal;
  BusLink link;
  OneWindow one{link};
  std::unique_ptr<DesktopPresence> presence;
};

TEST_F(Presence, ExportsKeepTheMachineAwakeAndNothingElseDoes) {
  const auto source = take("R0001.WAV");
  appear();
  open("R0001.WAV");
  play(500);
  EXPECT_THAT(portal.told, testing::IsEmpty()) << "what plays does not";
  ExportQueue& exports = controller().exportQueue();
  exports.add({.source = source, .target = takes.path() / "one.WAV"});
  exports.add({.source = source, .target = takes.path() / "two.WAV"});
  waitForPortal(1);
  waitFor([&] { return !exports.isBusy(); }, "the exports");
  waitForPortal(2);
  EXPECT_THAT(portal.told, testing::ElementsAre("Inhibit /org/freedesktop/portal/desktop",
                                                "Close /org/freedesktop/portal/desktop/request/1"));
}

TEST_F(Presence, ACopyKeepsTheMachineAwake) {
  const TemporaryFolder card;
  std::filesystem::rename(take("R0001.WAV"), card.path() / "R0001.WAV");
  appear();
  CardDesk& cards = controller().cards();
  cards.setFind([path = card.path()] { return std::vector{path}; });
  cards.look();
  waitFor([&] { return !cards.card().empty(); }, "the card");
  view().menu->actionCopyCard->trigger();
  press(shown<TransferPanel>(), "Copy");
  waitForPortal(1);
  waitFor([&] { return !cards.isBusy(); }, "the copy");
  waitForPortal(2);
  EXPECT_THAT(portal.told, testing::ElementsAre("Inhibit /org/freedesktop/portal/desktop",
                                                "Close /org/freedesktop/portal/desktop/request/1"));
}

TEST_F(Presence, NeitherASalvageNorAVerifyKeepsTheMachineAwake) {
  brokenTake("R0001.WAV");
  const auto source = take("R0002.WAV");
  appear();
  waitForTake([this] { doubleClickRow("R0001.WAV"); });
  QMessageBox* offer = nullptr;
  const auto isOffered = [&] {
    const auto boxes = view().findChildren<QMessageBox*>();
    const auto asks = [](const QMessageBox* box) { return box->buttons().size() == 2; };
    const auto found = std::ranges::find_if(boxes, asks);
    offer = found == boxes.end() ? nullptr : *found;
    return offer != nullptr;
  };
  waitFor(isOffered, "the offer");
  press(offer, "Salvage");
  waitFor([this] { return selected() == "R0001_Repaired.WAV"; }, "the new file");
  CardDesk& cards = controller().cards();
  view().menu->actionVerifyFolder->trigger();
  press(shown<TransferPanel>(), "Verify");
  ASSERT_TRUE(cards.isBusy());
  waitFor([&] { return !cards.isBusy(); }, "the end of the verify");
  EXPECT_THAT(portal.told, testing::IsEmpty());
  // What was asked before is heard before.
  controller().exportQueue().add({.source = source, .target = takes.path() / "one.WAV"});
  waitForPortal(2);
  EXPECT_THAT(portal.told, testing::ElementsAre("Inhibit /org/freedesktop/portal/desktop",
                                                "Close /org/freedesktop/portal/desktop/request/1"));
}

TEST_F(Presence, TheDesktopsWishForLessMotionReachesTheScope) {
  take("R0001.WAV");
  appear();
  open("R0001.WAV");
  const auto* const timer = controller().findChild<PictureTimer*>("timerScope");
  ASSERT_NE(timer, nullptr);
  EXPECT_LT(timer->interval().count(), 50);
  animate(false);
  waitFor([&] { return timer->interval().count() > 200; }, "fewer pictures");
  animate(true);
  waitFor([&] { return timer->interval().count() < 50; }, "all of them");
}

TEST_F(Presence, TheDesktopsSizeOfTextReachesTheWindow) {
  appear();
  const QWidget& caption = *stage().lblGain;
  const int usual = caption.font().pixelSize();
  scaleText(2);
  waitFor([&] { return caption.font().pixelSize() == 2 * usual; }, "larger text");
  EXPECT_GE(caption.height(), caption.fontMetrics().height());
  scaleText(1);
  waitFor([&] { return caption.font().pixelSize() == usual; }, "the usual text");
}

TEST_F(Presence, TheDesktopsWishForMoreContrastReachesTheWindow) {
  appear();
  const auto ground = [this] { return view().grab().toImage().pixel(2, 2); };
  const QRgb usual = ground();
  ASSERT_NE(usual, qRgb(0, 0, 0));
  raiseContrast(true);
  waitFor([&] { return ground() == qRgb(0, 0, 0); }, "more contrast");
  raiseContrast(false);
  waitFor([&] { return ground() == usual; }, "the usual one");
}

// Minimised or hidden: pictures that nobody sees cost nothing; the peaks are kept all the same.
TEST_F(Presence, ScopeRestsWhileNobodySeesTheWindow) {
  take("R0001.WAV");
  appear();
  open("R0001.WAV");
  const StereoScope& scope = *view().player->stage->field->scope;
  letLevelsArrive();
  waitFor([&] { return !scope.isDark(); }, "the scope");
  view().hide();
  waitFor([&] { return scope.isDark(); }, "its rest");
  EXPECT_EQ(controller().take().state(), TakeSession::State::Playing);
  view().show();
  waitFor([&] { return !scope.isDark(); }, "the scope once more");
}

// As the server tells it where no compositor draws windows that lie behind others.
TEST_F(Presence, ScopeRestsWhileOthersCoverTheWindow) {
  take("R0001.WAV");
  appear();
  open("R0001.WAV");
  const StereoScope& scope = *view().player->stage->field->scope;
  letLevelsArrive();
  waitFor([&] { return !scope.isDark(); }, "the scope");
  tellSight(view().winId() + 1, XCB_VISIBILITY_FULLY_OBSCURED);
  EXPECT_TRUE(WindowSight::isSeen(scope)) << "that was another window";
  tellSight(view().winId(), XCB_VISIBILITY_PARTIALLY_OBSCURED);
  EXPECT_TRUE(WindowSight::isSeen(scope));
  tellSight(view().winId(), XCB_VISIBILITY_FULLY_OBSCURED);
  waitFor([&] { return scope.isDark(); }, "its rest");
  EXPECT_EQ(controller().take().state(), TakeSession::State::Playing);
  tellSight(view().winId(), XCB_VISIBILITY_UNOBSCURED);
  waitFor([&] { return !scope.isDark(); }, "the scope once more");
}

TEST_F(Presence, FilesThatOthersHandOverAreOpened) {
  take("R0001.WAV");
  const auto inner = folder("a folder");
  appear();
  std::filesystem::copy(take("R0002.WAV"), inner / "R0003.WAV");
  waitForTake([&] { ask({inner / "R0003.WAV", takes.path() / "R0001.WAV"}); });
  EXPECT_EQ(controller().take().file(), inner / "R0003.WAV");
  EXPECT_EQ(controller().urlOfFileList(), inner);
}

TEST_F(Presence, AnAddressThatThePlayerIsToOpenIsOpened) {
  take("R0001.WAV");
  const auto inner = folder("a folder");
  appear();
  std::filesystem::copy(take("R0002.WAV"), inner / "R0003.WAV");
  waitFor([this] { return isPlayerThere(); }, "the player");
  const QString address = QString::fromStdString(FileAddress::of(inner / "R0003.WAV"));
  waitForTake([&] { EXPECT_EQ(openUri(address), ""); });
  EXPECT_EQ(controller().take().file(), inner / "R0003.WAV");
  EXPECT_EQ(controller().urlOfFileList(), inner);
}

TEST_F(Presence, AnAddressThatIsNoFileIsAnErrorAndChangesNothing) {
  const auto path = take("R0001.WAV");
  appear();
  open("R0001.WAV");
  waitFor([this] { return isPlayerThere(); }, "the player");
  const auto number = controller().remote().take()->number;
  const QString address = QString::fromStdString(FileAddress::of(path));
  for (const QString& wrong :
       {QStringLiteral("http://mixdeck.example/R0001.WAV"), QString::fromStdString(path.native()),
        QStringLiteral("file://elsewhere/R0001.WAV"), address + "\n" + address, QString()}) {
    EXPECT_EQ(openUri(wrong), "org.freedesktop.DBus.Error.InvalidArgs") << wrong.toStdString();
  }
  for (const auto& gone : {takes.path() / "R0009.WAV", takes.path()}) {
    EXPECT_EQ(openUri(QString::fromStdString(FileAddress::of(gone))),
              "org.freedesktop.DBus.Error.FileNotFound");
  }
  EXPECT_EQ(controller().remote().take()->number, number);
  EXPECT_EQ(controller().urlOfFileList(), takes.path());
}

TEST_F(Presence, OfSeveralFilesThoseBesideTheFirstAreSelectedWithIt) {
  const auto inner = folder("a folder");
  for (const char* const name : {"R0001.WAV", "R0002.WAV", "R0003.WAV"}) {
    std::filesystem::copy(take(name), inner / name);
  }
  appear();
  waitForTake([&] { ask({inner / "R0003.WAV", inner / "R0001.WAV", takes.path() / "R0002.WAV"}); });
  EXPECT_EQ(controller().take().file(), inner / "R0003.WAV");
  waitFor([this] { return allSelected().size() == 2; }, "the rows");
  EXPECT_THAT(allSelected(), testing::ElementsAre("R0001.WAV", "R0003.WAV"));
  EXPECT_EQ(selected(), "R0003.WAV");
}

TEST_F(Presence, FolderThatOthersHandOverIsShown) {
  const auto inner = folder("a folder");
  appear();
  ask({inner});
  waitFor([&] { return controller().urlOfFileList() == inner; }, "the folder");
}

}  // namespace
