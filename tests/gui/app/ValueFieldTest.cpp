// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/ValueField.h"

#include <QContextMenuEvent>
#include <QTest>

#include "WindowFixture.h"

namespace {

/// Width and gain as they are typed, and the recorder in the dial.
class Typed : public WindowFixture {
 protected:
  void openTake(bool isRaw = true) {
    take("R0001.WAV", 480'000, isRaw);
    startOnTakes();
    open("R0001.WAV");
  }
  /// Clicks on the value and types in its place.
  QLineEdit* type(QLabel* value, const char* text) {
    QTest::mouseClick(value, Qt::LeftButton);
    auto* const field = stage().findChild<QLineEdit*>();
    if (field != nullptr) QTest::keyClicks(field, QString::fromUtf8(text));
    return field;
  }
  /// As the window system tells of it, whatever lies there.
  void doubleClickOn(const QWidget* widget) {
    const QPoint middle = widget->mapTo(&view(), widget->rect().center());
    QTest::mouseDClick(view().windowHandle(), Qt::LeftButton, {}, middle);
  }
  void enter(QLabel* value, const char* text) {
    QLineEdit* const field = type(value, text);
    ASSERT_NE(field, nullptr);
    QTest::keyClick(field, Qt::Key_Return);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(stage().findChild<QLineEdit*>(), nullptr) << "it closes";
  }
};

TEST(ValueFieldTest, ReadsNumbersAsPeopleWriteThem) {
  EXPECT_EQ(ValueField::numberIn("90"), 90.0);
  EXPECT_EQ(ValueField::numberIn("90°"), 90.0);
  EXPECT_EQ(ValueField::numberIn(" +6 dB "), 6.0);
  EXPECT_EQ(ValueField::numberIn("−6,5"), -6.5);
  EXPECT_EQ(ValueField::numberIn("-0.5 dB"), -0.5);
  for (const char* const none : {"", "x", "6 x", "--3", "nan", "inf", "1e3", "dB"}) {
    EXPECT_EQ(ValueField::numberIn(none), std::nullopt) << none;
  }
}

TEST_F(Typed, ValuesAreSet) {
  openTake();
  enter(stage().lblStereoValue, "96");
  EXPECT_EQ(player().angle(), 96);
  EXPECT_EQ(stage().lblStereoValue->text(), "96°");
  enter(stage().lblGainValue, "-7 dB");
  EXPECT_EQ(player().gain(), -7);
  EXPECT_EQ(stage().lblGainValue->text(), "−7 dB");
  EXPECT_EQ(controller().take().state(), TakeSession::State::Playing) << "Return opened nothing";
}

TEST_F(Typed, ValuesStayInTheirRange) {
  openTake();
  enter(stage().lblStereoValue, "400");
  EXPECT_EQ(player().angle(), 150);
  enter(stage().lblGainValue, "-99");
  EXPECT_EQ(player().gain(), -36);
}

TEST_F(Typed, FieldsBeginWithWhatIsThere) {
  openTake();
  setGain(6);
  QTest::mouseClick(stage().lblGainValue, Qt::LeftButton);
  auto* const field = stage().findChild<QLineEdit*>();
  ASSERT_NE(field, nullptr);
  EXPECT_EQ(field->text(), "6");
  EXPECT_EQ(field->selectedText(), "6");
  EXPECT_EQ(field->accessibleName(), "Type the gain");
  EXPECT_TRUE(stage().rect().contains(field->geometry()));
}

TEST_F(Typed, EscapeAndNonsenseChangeNothing) {
  openTake();
  controller().take().setLoop(FrameLoop{0, 48'000});
  QLineEdit* const field = type(stage().lblGainValue, "12");
  ASSERT_NE(field, nullptr);
  QTest::keyClick(field, Qt::Key_Escape);
  EXPECT_EQ(player().gain(), 0);
  EXPECT_TRUE(controller().take().loop().has_value()) << "Escape was the field's";
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  enter(stage().lblGainValue, "loud");
  EXPECT_EQ(player().gain(), 0);
}

TEST_F(Typed, LeavingTheFieldSetsTheValue) {
  openTake();
  ASSERT_NE(type(stage().lblGainValue, "3"), nullptr);
  view().browser->tableFile->setFocus();
  EXPECT_EQ(player().gain(), 3);
}

TEST_F(Typed, LeavingTheFieldKeepsWhatTheWheelSetMeanwhile) {
  openTake();
  enter(stage().lblStereoValue, "90");
  ASSERT_NE(type(stage().lblStereoValue, "60"), nullptr);
  Hands::wheel(*stage().imgDevice, 120);
  const auto turned = player().angle();
  ASSERT_NE(turned, 90);
  view().browser->tableFile->setFocus();
  EXPECT_EQ(player().angle(), turned);
}

TEST_F(Typed, TheFieldsOwnMenuDoesNotCloseIt) {
  openTake();
  QLineEdit* const field = type(stage().lblGainValue, "3");
  ASSERT_NE(field, nullptr);
  QContextMenuEvent asked(QContextMenuEvent::Mouse, {5, 5}, field->mapToGlobal(QPoint(5, 5)));
  QCoreApplication::sendEvent(field, &asked);
  QWidget* const menu = QApplication::activePopupWidget();
  ASSERT_NE(menu, nullptr);
  EXPECT_TRUE(field->isVisible());
  menu->close();
  EXPECT_TRUE(field->isVisible());
  QTest::keyClick(field, Qt::Key_Return);
  EXPECT_EQ(player().gain(), 3);
}

TEST_F(Typed, OtherButtonsOpenNoField) {
  openTake();
  for (const auto button : {Qt::RightButton, Qt::MiddleButton}) {
    QTest::mouseClick(stage().lblGainValue, button);
    EXPECT_EQ(stage().findChild<QLineEdit*>(), nullptr);
  }
}

TEST_F(Typed, LettersInTheFieldAreNoKeysOfTheWindow) {
  openTake();
  ASSERT_NE(type(stage().lblStereoValue, "sml[]"), nullptr);
  EXPECT_EQ(controller().take().solo(), Solo::None);
  EXPECT_EQ(player().angle(), 0);
}

TEST_F(Typed, NothingIsTypedWithoutATakeOrForOneThatIsStereo) {
  openTake(false);
  EXPECT_EQ(type(stage().lblStereoValue, "90"), nullptr);
  controller().take().close();
  EXPECT_EQ(type(stage().lblGainValue, "3"), nullptr);
  EXPECT_EQ(stage().sliderGain->value(), 0.0);
}

TEST_F(Typed, DoubleClickOnTheRecorderIsThePlainSumAndDifference) {
  openTake();
  doubleClickOn(stage().imgDevice);
  EXPECT_EQ(stage().sliderStereo->angle(), 120.0);
  EXPECT_EQ(player().angle(), 120);
  EXPECT_EQ(stage().lblStereoValue->text(), "120°");
}

TEST_F(Typed, DoubleClickOnTheRecorderIsForRawTakes) {
  openTake(false);
  doubleClickOn(stage().imgDevice);
  EXPECT_EQ(stage().sliderStereo->angle(), 0.0);
}

TEST_F(Typed, ThePointerIsOverWhatItWorksOn) {
  openTake();
  for (QWidget* const widget : std::initializer_list<QWidget*>{
           stage().lblStereoValue, stage().lblGainValue, stage().imgDevice}) {
    EXPECT_EQ(view().childAt(widget->mapTo(&view(), widget->rect().center())), widget);
  }
}

TEST_F(Typed, TheWheelTurnsTheDialOverTheRecorderToo) {
  openTake();
  stage().sliderStereo->setNewAngle(60);
  Hands::wheel(*stage().imgDevice, 120);
  EXPECT_EQ(player().angle(), 61);
}

}  // namespace
