// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <QAccessible>
#include <QCursor>
#include <QEnterEvent>
#include <QScreen>
#include <QTest>
#include <array>
#include <tuple>
#include <vector>

#include "WindowFixture.h"
#include "app/AppDelegate.h"
#include "controls/Colors.h"

namespace {

class Window : public WindowFixture {
 protected:
  [[nodiscard]] QImage picture() const { return view().grab().toImage(); }
  [[nodiscard]] QColor colourAt(const QImage& image, const QWidget* widget, QPoint place) const {
    const QPoint at = widget->mapTo(&view(), place);
    return Hands::colorAt(image, QPointF(at) + QPointF(0.5, 0.5));
  }
  /// The pointer comes over the button.
  static void enter(QWidget& button, QPointF at) {
    QEnterEvent enter(at, at, button.mapToGlobal(at));
    QCoreApplication::sendEvent(&button, &enter);
    Hands::hover(button, at);
  }
};

TEST_F(Window, StandsInTheMiddleOfItsScreen) {
  EXPECT_EQ(WindowController::centredFrame({0, 0, 1920, 1080}), QRect(435, 206, 1050, 668));
  EXPECT_EQ(WindowController::centredFrame({100, 30, 1051, 669}), QRect(100, 30, 1050, 668));
  EXPECT_EQ(WindowController::centredFrame({}), QRect(-525, -334, 1050, 668));
  window = std::make_unique<WindowController>();
  EXPECT_EQ(view().windowTitle(), "TARN J4 Mixdeck");
}

TEST_F(Window, ComesBackAsLargeAsItWas) {
  window = std::make_unique<WindowController>();
  view().showMaximized();
  view().setWindowState(view().windowState() | Qt::WindowMinimized);
  ASSERT_TRUE(view().isMinimized());
  window->raise({});
  EXPECT_FALSE(view().isMinimized());
  EXPECT_TRUE(view().isMaximized());
}

TEST_F(Window, IsNeverLargerThanItsScreen) {
  constexpr int kTitle = 24;
  EXPECT_EQ(WindowController::startFrame({0, 0, 1920, 1080}, kTitle), QRect(435, 206, 1050, 668));
  EXPECT_EQ(WindowController::startFrame({0, 0, 1050, 692}, kTitle), QRect(0, 12, 1050, 668));
  EXPECT_EQ(WindowController::startFrame({0, 0, 1050, 691}, kTitle), QRect(0, 24, 1050, 655));
  EXPECT_EQ(WindowController::startFrame({0, 30, 700, 420}, kTitle), QRect(0, 54, 700, 396));
  EXPECT_EQ(WindowController::startFrame({}, kTitle), QRect(-525, -334, 1050, 668));
  window = std::make_unique<WindowController>();
  const QRect screen = view().screen()->availableGeometry();
  ASSERT_LT(screen.width(), WindowController::kSize.width()) << "or nothing is shown here";
  EXPECT_TRUE(screen.contains(view().geometry()));
  window->show();
  QCoreApplication::processEvents();
  const QSize most = screen.size().expandedTo(view().minimumSizeHint());
  EXPECT_EQ(view().size().boundedTo(most), view().size());
}

TEST_F(Window, ContentNeedsNoMoreRoomThanItHas) {
  startOnTakes();
  const QSize least = view().minimumSizeHint();
  EXPECT_LE(least.width(), 1050);
  EXPECT_LE(least.height(), 668);
}

TEST_F(Window, GroundsHaveTheirColours) {
  startOnTakes();
  const QImage image = picture();
  EXPECT_EQ(colourAt(image, &view(), {4, 4}), Colors::AppBG());
  EXPECT_EQ(colourAt(image, view().browser->viewPathBG, {3, 17}), Colors::ControlColor());
  EXPECT_EQ(colourAt(image, view().browser, {4, 100}), Colors::AppBGLight());
  EXPECT_EQ(colourAt(image, view().player, {4, 100}), Colors::AppBGLight());
  EXPECT_EQ(colourAt(image, view().player->btnExport, {8, 18}), Colors::ControlColor());
}

TEST_F(Window, PlayIsADarkTriangleOnAWhiteDisc) {
  take("R0001.WAV");
  startOnTakes();
  const QPoint beside(8, 24);
  const QToolButton& play = *view().player->btnPlayPause;
  EXPECT_EQ(colourAt(picture(), &play, beside), Colors::line()) << "without a take";
  open("R0001.WAV");
  controller().btnPlay_Click();
  ASSERT_EQ(play.accessibleName(), "Play");
  const QImage image = picture();
  EXPECT_EQ(colourAt(image, &play, beside), Colors::WHITE());
  EXPECT_EQ(colourAt(image, &play, {39, 24}), Colors::WHITE());
  EXPECT_EQ(colourAt(image, &play, {24, 24}), Colors::AppBG());
  for (const QPoint corner : {QPoint(1, 1), QPoint(46, 1), QPoint(1, 46), QPoint(46, 46)}) {
    EXPECT_EQ(colourAt(image, &play, corner), Colors::AppBGLight()) << "it is round";
  }
}

TEST_F(Window, ButtonsShowThatThePointerIsOverThem) {
  take("R0001.WAV");
  startOnTakes();
  open("R0001.WAV");
  const PlayerView& player = *view().player;
  const BrowserView& browser = *view().browser;
  const std::initializer_list<std::tuple<QAbstractButton*, QColor, QColor>> buttons = {
      {player.btnPlayPause, Colors::WHITE(), Colors::primaryHover()},
      {player.btnVolume, Colors::AppBGLight(), Colors::hover()},
      {player.btnMenu, Colors::AppBGLight(), Colors::hover()},
      {player.btnExport, Colors::ControlColor(), Colors::hover()},
      {player.btnLoop, Colors::ControlColor(), Colors::hover()},
      {player.btnSoloMid, Colors::ControlColor(), Colors::hover()},
      {player.btnSoloSide, Colors::ControlColor(), Colors::hover()},
      {browser.btnGoUp, Colors::ControlColor(), Colors::hover()},
      {browser.btnOpenFolder, Colors::ControlColor(), Colors::hover()}};
  for (const auto& [button, usual, pointedAt] : buttons) {
    const QPoint ground(button->width() / 2, 4);
    const std::string name = button->accessibleName().toStdString() + button->text().toStdString();
    EXPECT_EQ(button->cursor().shape(), Qt::PointingHandCursor) << name;
    EXPECT_TRUE(button->testAttribute(Qt::WA_Hover)) << name << " is drawn anew";
    EXPECT_EQ(colourAt(picture(), button, ground), usual) << name;
    enter(*button, ground);
    EXPECT_EQ(colourAt(picture(), button, ground), pointedAt) << name;
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(button, &leave);
    EXPECT_EQ(colourAt(picture(), button, ground), usual) << name << " and back";
  }
}

// The pointer has gone into the menu, and from there anywhere: nothing tells of it.
TEST_F(Window, MenuIsNotMarkedAnyMoreOnceThePointerLeftItForTheMenu) {
  startOnTakes();
  QWidget& button = *view().player->btnMenu;
  const QPoint ground(18, 4);
  const auto closeWithPointerAt = [&](QPoint place) {
    enter(button, ground);
    view().menu->popup({});
    QCursor::setPos(button.mapToGlobal(place));
    view().menu->hide();
    return colourAt(picture(), &button, ground);
  };
  EXPECT_EQ(closeWithPointerAt(ground), Colors::hover()) << "it is there yet";
  EXPECT_EQ(closeWithPointerAt({-40, 60}), Colors::AppBGLight());
}

TEST_F(Window, FiguresTellTheirNamesAndValuesToAssistiveSoftware) {
  startOnTakes();
  const FieldView& field = *stage().field;
  field.momentary->setFigure(-23.06);
  field.wholeTake->setFigure(-16.0);
  field.truePeak->setFigure(0.42);
  field.correlation->setValue(-0.534);
  const std::initializer_list<std::tuple<QWidget*, const char*, const char*>> figures = {
      {field.momentary, "Momentary loudness", "-23.1 LUFS"},
      {field.shortTerm, "Short-term loudness", "–"},
      {field.wholeTake, "Loudness of the take", "-16.0 LUFS"},
      {field.truePeak, "True peak", "+0.4 dBTP"},
      {field.correlation, "Correlation", "-0.53"}};
  for (const auto& [widget, name, value] : figures) {
    auto* const interface = QAccessible::queryAccessibleInterface(widget);
    ASSERT_NE(interface, nullptr) << name;
    EXPECT_EQ(interface->text(QAccessible::Name), QString::fromUtf8(name));
    EXPECT_EQ(interface->text(QAccessible::Value), QString::fromUtf8(value)) << name;
  }
  for (QWidget* const shown :
       {static_cast<QWidget*>(field.scope), static_cast<QWidget*>(view().player->waveform)}) {
    const QString name = shown == field.scope ? "Stereo scope" : "Waveform";
    EXPECT_EQ(QAccessible::queryAccessibleInterface(shown)->text(QAccessible::Name), name);
  }
}

TEST_F(Window, PeaksAndClipLampsTellTheirNamesAndValuesToAssistiveSoftware) {
  startOnTakes();
  PeakHold soft;
  soft.add(0.5);
  PeakHold loud;
  loud.add(1.5);
  stage().clipLeft->setPeak(soft);
  stage().clipRight->setPeak(loud);
  const std::initializer_list<std::array<const char*, 4>> sides = {
      {"Peak left", "-6.0 dBFS", "Clip left", "not over full scale"},
      {"Peak right", "+3.5 dBFS", "Clip right", "over full scale"}};
  ClipLamp* lamp = stage().clipLeft;
  for (const auto& [peak, value, clip, state] : sides) {
    auto* const figure = lamp->findChild<QAbstractButton*>();
    ASSERT_NE(figure, nullptr);
    EXPECT_EQ(figure->accessibleName(), peak);
    EXPECT_EQ(figure->accessibleDescription(), value);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(figure)->text(QAccessible::Value), value);
    auto* const interface = QAccessible::queryAccessibleInterface(lamp);
    EXPECT_EQ(interface->text(QAccessible::Name), clip);
    EXPECT_EQ(interface->text(QAccessible::Description), state);
    lamp = stage().clipRight;
  }
}

TEST_F(Window, ControlsHaveTheirNamesForAssistiveSoftware) {
  startOnTakes();
  const std::initializer_list<std::pair<QWidget*, const char*>> names = {
      {view().browser->tableFile, "Files"},
      {view().browser->lblFolder, "Current folder"},
      {view().browser->btnGoUp, "Go up"},
      {view().browser->btnOpenFolder, "Open folder"},
      {view().player->btnPlayPause, "Play"},
      {view().player->sliderTime, "Position"},
      {view().player->sliderVolume, "Volume"},
      {view().player->btnVolume, "Mute"},
      {stage().sliderGain, "Gain"},
      {stage().sliderStereo, "Stereo width"},
      {stage().lvlLeft, "Level left"},
      {stage().lvlRight, "Level right"},
      {view().player->btnLoop, "Loop"},
      {view().player->btnSoloMid, "Solo Mid"},
      {view().player->btnSoloSide, "Solo Side"},
      {view().player->btnExport, "Export"},
      {view().device->popupBattery, "Battery"},
      {view().device->popupAutoPow, "Auto power off"}};
  for (const auto& [widget, name] : names) {
    auto* const interface = QAccessible::queryAccessibleInterface(widget);
    ASSERT_NE(interface, nullptr) << name;
    EXPECT_EQ(interface->text(QAccessible::Name), QString::fromLatin1(name));
  }
}

TEST_F(Window, StaticTextsAreReadAsLabels) {
  startOnTakes();
  for (const QLabel* const label :
       {view().device->lblConnect, view().device->lblUsed,
        static_cast<QLabel*>(view().device->lblRemain),
        static_cast<QLabel*>(view().player->lblTimeCurrent), stage().lblStereo, stage().lblGain}) {
    auto* const interface = QAccessible::queryAccessibleInterface(const_cast<QLabel*>(label));
    EXPECT_EQ(interface->role(), QAccessible::StaticText);
    EXPECT_EQ(interface->text(QAccessible::Name), label->text());
  }
  auto* const folder = QAccessible::queryAccessibleInterface(view().browser->lblFolder);
  EXPECT_EQ(folder->text(QAccessible::Description), view().browser->lblFolder->text());
}

TEST_F(Window, TabReachesEverythingInOrder) {
  take("R0001.WAV");
  startOnTakes();
  open("R0001.WAV");
  view().browser->btnGoUp->setFocus();
  std::vector<QWidget*> reached;
  for (int i = 0; i < 20; ++i) {
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    reached.push_back(QApplication::focusWidget());
    if (reached.back() == view().browser->btnGoUp) break;
  }
  EXPECT_THAT(reached,
              testing::ElementsAre(
                  view().browser->lblFolder, view().browser->btnOpenFolder,
                  view().browser->tableFile, view().player->btnPlayPause, view().player->btnLoop,
                  view().player->btnSoloMid, view().player->btnSoloSide, view().player->waveform,
                  view().player->sliderTime, view().player->btnVolume, view().player->sliderVolume,
                  stage().sliderStereo, stage().sliderGain, stage().clipLeft, stage().clipRight,
                  view().player->btnExport, view().player->btnMenu, view().device->listBatteryCover,
                  view().device->listAutoPowOffCover, view().browser->btnGoUp));
}

TEST_F(Window, FocusCanBeSeenEverywhere) {
  take("R0001.WAV");
  startOnTakes();
  open("R0001.WAV");
  controller().btnPlay_Click();
  for (QWidget* const widget : std::initializer_list<QWidget*>{
           view().browser->btnGoUp, view().browser->lblFolder, view().browser->btnOpenFolder,
           view().browser->tableFile, view().player->btnPlayPause, view().player->waveform,
           view().player->sliderTime, view().player->btnVolume, view().player->sliderVolume,
           stage().sliderStereo, stage().sliderGain, view().player->btnExport,
           view().player->btnMenu, view().device->listBatteryCover}) {
    QWidget* const other = widget == stage().sliderGain
                               ? static_cast<QWidget*>(view().browser->btnGoUp)
                               : stage().sliderGain;
    other->setFocus(Qt::TabFocusReason);
    const QImage before = widget->grab().toImage();
    widget->setFocus(Qt::TabFocusReason);
    EXPECT_NE(widget->grab().toImage(), before) << widget->accessibleName().toStdString();
  }
}

TEST_F(Window, MenuIsThereForAssistiveSoftwareWhileItIsOpen) {
  startOnTakes();
  QAccessibleInterface& tree = *QAccessible::queryAccessibleInterface(&view());
  QAccessibleInterface* const menu = QAccessible::queryAccessibleInterface(view().menu);
  const int parts = tree.childCount();
  EXPECT_EQ(tree.indexOfChild(menu), -1);
  view().menu->popup({});
  ASSERT_EQ(tree.childCount(), parts + 1);
  EXPECT_EQ(tree.child(parts), menu);
  EXPECT_EQ(tree.indexOfChild(menu), parts);
  EXPECT_EQ(tree.child(0)->object(), view().browser);
  EXPECT_EQ(menu->role(), QAccessible::PopupMenu);
  view().menu->hide();
  EXPECT_EQ(tree.childCount(), parts);
}

TEST_F(Window, RunningTimeDoesNotJitter) {
  startOnTakes();
  TabularLabel& label = *view().player->lblTimeCurrent;
  label.setText("00:00:00");
  const double width = label.textWidth();
  for (int digit = 1; digit < 10; ++digit) {
    label.setText(QStringLiteral("%1%1:%1%1:%1%1").arg(digit));
    EXPECT_DOUBLE_EQ(label.textWidth(), width);
  }
}

TEST_F(Window, TextsHaveTheRoomThatTheyNeed) {
  take("R0001.WAV");
  startOnTakes();
  open("R0001.WAV");
  plugIn();
  QCoreApplication::processEvents();
  for (const QLabel* const label : view().findChildren<QLabel*>()) {
    if (!label->isVisible() || label->wordWrap() || label == view().player->lblFileName) continue;
    const double needed = QFontMetricsF(label->font()).horizontalAdvance(label->text());
    EXPECT_LE(needed, label->width()) << label->text().toStdString();
    EXPECT_LE(QFontMetricsF(label->font()).height(), label->height() + 1)
        << label->text().toStdString();
  }
}

TEST_F(Window, LongTextsTakeNoMoreRoomThanThereIs) {
  const std::string name = std::string(200, 'w') + ".WAV";
  take(name);
  startOnTakes();
  open(name);
  view().player->lblStatus->say(StatusLine::Topic::Export,
                                QString(60, u'm') + QString(" mm").repeated(90));
  QCoreApplication::processEvents();
  EXPECT_EQ(view().player->lblFileName->text().toStdString(), name) << "read whole";
  const QSize least = view().minimumSizeHint();
  EXPECT_LE(least.width(), 1050);
  EXPECT_LE(least.height(), 668);
  EXPECT_EQ(view().size(), QSize(1050, 668));
}

TEST_F(Window, NothingOverlapsNothing) {
  startOnTakes();
  const std::vector<const QWidget*> parts = {view().player->lblFileName,
                                             view().player->lblFormat,
                                             view().player->btnExport,
                                             view().player->btnMenu,
                                             stage().tickOfGain,
                                             stage().sliderGain,
                                             stage().lblGain,
                                             stage().lblGainValue,
                                             stage().tickOfLevel,
                                             stage().lvlLeft,
                                             stage().lvlRight,
                                             stage().lblStereo,
                                             stage().lblStereoValue,
                                             view().player->sliderTime,
                                             view().player->lblTimeCurrent,
                                             view().player->lblTimeTotal,
                                             view().player->btnVolume,
                                             view().player->sliderVolume,
                                             view().player->btnPlayPause,
                                             view().player->lblStatus};
  const auto frame = [this](const QWidget* widget) {
    return QRect(widget->mapTo(&view(), QPoint()), widget->size());
  };
  for (std::size_t i = 0; i < parts.size(); ++i) {
    EXPECT_TRUE(frame(view().player).contains(frame(parts[i]))) << i;
    for (std::size_t j = 0; j < i; ++j) {
      EXPECT_FALSE(frame(parts[i]).intersects(frame(parts[j]))) << i << " and " << j;
    }
  }
}

TEST_F(Window, LabelsMeetTheKnobAndTheMetersEnds) {
  startOnTakes();
  stage().sliderGain->setValue(0.0);
  const auto middleOf = [this](const QWidget* widget, double y) {
    return widget->mapTo(&view(), QPoint()).y() + y;
  };
  stage().tickOfGain->grab();
  const TickTextInfo& zero = stage().tickOfGain->textRectList()[3];
  const double label = stage().tickOfGain->height() - zero.frame().center().y();
  EXPECT_NEAR(middleOf(stage().tickOfGain, label),
              middleOf(stage().sliderGain, stage().sliderGain->height() / 2.0), 1.0);
  stage().tickOfLevel->grab();
  const auto& levels = stage().tickOfLevel->textRectList();
  const double top = stage().tickOfLevel->height() - levels.front().frame().center().y();
  EXPECT_NEAR(middleOf(stage().tickOfLevel, top), middleOf(stage().lvlLeft, 0.0), 1.0);
}

TEST_F(Window, DialHasTheRoomItNeeds) {
  startOnTakes();
  EXPECT_EQ(stage().sliderStereo->size(), stage().sliderStereo->sizeHint());
  const QRect dial(stage().sliderStereo->mapTo(&view(), QPoint()), stage().sliderStereo->size());
  EXPECT_TRUE(QRect(view().player->pos(), view().player->size()).contains(dial));
}

TEST_F(Window, EndsWithItsLastWindow) {
  EXPECT_TRUE(AppDelegate::applicationShouldTerminateAfterLastWindowClosed());
  EXPECT_TRUE(AppDelegate::applicationSupportsSecureRestorableState());
  startOnTakes();
  view().menu->actionQuit->trigger();
  EXPECT_FALSE(view().isVisible());
}

TEST_F(Window, StatusLineShowsTheNewestUntilItIsWellAgain) {
  StatusLine line;
  using Topic = StatusLine::Topic;
  line.say(Topic::Folder, "one");
  line.say(Topic::Sound, "two");
  line.say(Topic::Folder, "one");
  EXPECT_EQ(line.text(), "two") << "what was said before is not said again";
  line.clear(Topic::Sound);
  EXPECT_EQ(line.text(), "one");
  line.say(Topic::Folder, "three");
  EXPECT_EQ(line.text(), "three");
  line.clear(Topic::Folder);
  EXPECT_EQ(line.text(), "");
}

/// How high what is written is, line by line.
std::vector<int> inkOfLines(QWidget& widget) {
  const QImage picture = widget.grab().toImage();
  const auto hasInk = [&](int y) {
    for (int x = 0; x < picture.width(); ++x) {
      if (picture.pixel(x, y) != picture.pixel(0, 0)) return true;
    }
    return false;
  };
  std::vector<int> lines;
  for (int y = 0; y < picture.height(); ++y) {
    if (!hasInk(y)) continue;
    if (y == 0 || !hasInk(y - 1)) lines.push_back(0);
    ++lines.back();
  }
  return lines;
}

// Where letters are higher than those that its height was made for, as Japanese ones are.
TEST_F(Window, StatusLineShowsNoHalfLine) {
  StatusLine line;
  const QFontMetrics metrics(line.font());
  line.resize(metrics.horizontalAdvance(QStringLiteral("HHHH H")), 5 * metrics.height() / 2);
  line.say(StatusLine::Topic::Folder, "HHHH HHHH");
  ASSERT_EQ(inkOfLines(line).size(), 2U);
  line.say(StatusLine::Topic::Folder, "HHHH HHHH HHHH HHHH");
  const std::vector<int> lines = inkOfLines(line);
  ASSERT_EQ(lines.size(), 2U);
  EXPECT_EQ(lines[0], lines[1]);
}

}  // namespace
