// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
//
// What dialogs have in common to the eye: edges that are in line, and the same room around.

#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QSizeGrip>
#include <QTest>

#include "DialogFixture.h"
#include "controls/Colors.h"
#include "dialogs/Alert.h"
#include "dialogs/BatchDialog.h"
#include "dialogs/FolderPanel.h"

namespace {

constexpr int kSide = 28;
constexpr int kTop = 24;
constexpr int kBottom = 20;

class Look : public DialogFixture {
 protected:
  Look() { showMainWindow(); }

  /// Shown alone, of a size that anything fits into.
  template <class Widget>
  Widget& alone() {
    auto* const made = new Widget(_mainWindow.get());
    made->resize(120, 60);
    made->show();
    return *made;
  }
  static QRgb at(const QImage& picture, double x, double y) {
    return picture.pixel(static_cast<int>(x * (picture.width() - 1)),
                         static_cast<int>(y * (picture.height() - 1)));
  }
  /// In the middle of each edge, from the left clockwise.
  static std::vector<QRgb> edgesOf(QWidget& widget) {
    const QImage picture = widget.grab().toImage().convertToFormat(QImage::Format_RGB32);
    return {at(picture, 0, 0.5), at(picture, 0.5, 0), at(picture, 1, 0.5), at(picture, 0.5, 1)};
  }
  static bool hasRing(QWidget& widget) {
    return edgesOf(widget).front() == Colors::focusRing().rgb();
  }
  static QRect placeOf(const QWidget& part, const QWidget& in) {
    return {part.mapTo(&in, QPoint()), part.size()};
  }
  static const QLabel& textOf(const QMessageBox& box) {
    return *box.findChild<QLabel*>("qt_msgbox_informativelabel");
  }
  static void expectMarginsOfADialog(const QMessageBox& box) {
    const QRect text = placeOf(textOf(box), box);
    EXPECT_EQ(text.topLeft(), QPoint(kSide, kTop));
    EXPECT_EQ(text.right() + 1, box.width() - kSide);
    const QRect buttons = placeOf(*box.findChild<QDialogButtonBox*>(), box);
    EXPECT_EQ(buttons.left(), kSide);
    EXPECT_EQ(buttons.right() + 1, box.width() - kSide);
    EXPECT_EQ(buttons.bottom() + 1, box.height() - kBottom);
    for (const QAbstractButton* const button : box.buttons()) {
      EXPECT_TRUE(buttons.contains(placeOf(*button, box))) << button->text().toStdString();
    }
    EXPECT_EQ(placeOf(*box.buttons().back(), box).right(), buttons.right());
  }
};

TEST_F(Look, AButtonAFieldAndAListReachToTheirEdges) {
  const QRgb control = Colors::ControlColor().rgb();
  EXPECT_THAT(edgesOf(alone<QPushButton>()), testing::Each(control));
  EXPECT_THAT(edgesOf(alone<QComboBox>()), testing::Each(control));
  EXPECT_THAT(edgesOf(alone<QListWidget>()), testing::Each(Colors::AppBGLight().rgb()));
}

TEST_F(Look, TheRingTakesNoRoom) {
  auto& button = alone<QPushButton>();
  auto& field = alone<QComboBox>();
  field.addItem("10 minutes");
  button.setText("Save");
  const QSize ofButton = button.sizeHint();
  const QSize ofField = field.sizeHint();
  _mainWindow->activateWindow();
  for (QWidget* const widget : {static_cast<QWidget*>(&button), static_cast<QWidget*>(&field)}) {
    widget->setFocus(Qt::TabFocusReason);
    ASSERT_TRUE(waitUntil([&] { return widget->hasFocus(); }));
    EXPECT_THAT(edgesOf(*widget), testing::Each(Colors::focusRing().rgb()));
    EXPECT_EQ(widget->sizeHint(), widget == &button ? ofButton : ofField);
  }
}

TEST_F(Look, TheRingComesWithAKey) {
  QTest::mouseClick(_mainWindow.get(), Qt::LeftButton);  // as on what opens the dialog
  const QPointer<ExportVC> dialog = openExport(job());
  auto& first = *dialog->findChild<QRadioButton*>("radio24");
  ASSERT_TRUE(waitUntil([&] { return first.hasFocus(); }));
  EXPECT_FALSE(hasRing(first)) << "nobody has pressed a key";
  QTest::keyClick(&first, Qt::Key_Tab);
  QWidget& next = *QApplication::focusWidget();
  ASSERT_NE(&next, &first);
  EXPECT_TRUE(hasRing(next)) << "reached by key";
  EXPECT_FALSE(hasRing(first));
  QTest::mouseClick(&next, Qt::LeftButton);
  ASSERT_TRUE(next.hasFocus());
  EXPECT_FALSE(hasRing(next)) << "clicked";
  QTest::keyClick(&next, Qt::Key_Control);
  EXPECT_FALSE(hasRing(next)) << "a key that is only held";
  QTest::keyClick(&next, Qt::Key_Space);
  EXPECT_TRUE(hasRing(next)) << "used by key";
}

TEST_F(Look, AButtonThatTurnsGreyUnderAClickHandsNoRingOn) {
  auto& cancel = alone<QPushButton>();
  auto& close = alone<QPushButton>();
  QObject::connect(&cancel, &QPushButton::clicked, [&] { cancel.setEnabled(false); });
  _mainWindow->activateWindow();
  QTest::mouseClick(&cancel, Qt::LeftButton);
  ASSERT_TRUE(waitUntil([&] { return close.hasFocus(); }));
  EXPECT_FALSE(hasRing(close));
}

TEST_F(Look, ADialogThatAKeyOpensHasTheRing) {
  QTest::mouseClick(_mainWindow.get(), Qt::LeftButton);
  QTest::keyClick(_mainWindow.get(), Qt::Key_E, Qt::ControlModifier);
  const QPointer<ExportVC> dialog = openExport(job());
  auto& first = *dialog->findChild<QRadioButton*>("radio24");
  ASSERT_TRUE(waitUntil([&] { return first.hasFocus(); }));
  EXPECT_TRUE(hasRing(first));
}

TEST_F(Look, WhatReturnPressesInAQuestionIsAlwaysMarked) {
  QTest::mouseClick(_mainWindow.get(), Qt::LeftButton);
  QMessageBox& question = *Alert::question(_mainWindow.get(), "Replace it?");
  question.addButton("Replace", QMessageBox::ActionRole);
  QPushButton& cancel = *question.addButton("Cancel", QMessageBox::ActionRole);
  question.setDefaultButton(&cancel);
  question.open();
  QApplication::setActiveWindow(&question);
  ASSERT_TRUE(waitUntil([&] { return cancel.hasFocus(); }));
  EXPECT_TRUE(hasRing(cancel));
  question.close();
}

TEST_F(Look, AnAlertHasTheRoomOfADialog) {
  QMessageBox& alert = *Alert::show(_mainWindow.get(), "File not supported.");
  expectMarginsOfADialog(alert);
  EXPECT_EQ(textOf(alert).height(), textOf(alert).fontMetrics().height());
  alert.close();
}

TEST_F(Look, AQuestionHasItTooAndNoEmptyLine) {
  QMessageBox& question =
      *Alert::question(_mainWindow.get(),
                       "The recording of R0006.WAV broke off. 10.0 s of sound can be salvaged into "
                       "R0006_Repaired.WAV, beside it. The take itself stays as it is.");
  question.addButton("Salvage", QMessageBox::ActionRole);
  question.addButton("Not now", QMessageBox::ActionRole);
  question.open();
  expectMarginsOfADialog(question);
  EXPECT_EQ(textOf(question).height(), textOf(question).heightForWidth(textOf(question).width()));
  EXPECT_EQ(labels(question).size(), 1);
  question.close();
}

TEST_F(Look, ANameInAQuestionIsNoMarkup) {
  QMessageBox& question = *Alert::question(_mainWindow.get(), "“<b>a</b>.WAV” exists. Replace it?");
  EXPECT_EQ(textOf(question).textFormat(), Qt::PlainText);
  delete &question;
}

TEST_F(Look, PanelsForFoldersHaveTheRoomOfADialogAndTheirCornerFree) {
  auto* const panel = new FolderPanel(_mainWindow.get());
  panel->open();
  const auto& name = *panel->findChild<QLineEdit*>("fileNameEdit");
  const QRect choose = placeOf(*button(*panel, "Choose"), *panel);
  EXPECT_EQ(placeOf(name, *panel).left(), kSide);
  EXPECT_EQ(choose.right() + 1, panel->width() - kSide);
  EXPECT_EQ(choose.bottom() + 1, panel->height() - kBottom);
  const auto* const grip = panel->findChild<QSizeGrip*>();
  ASSERT_NE(grip, nullptr);
  EXPECT_FALSE(choose.intersects(placeOf(*grip, *panel)));
  panel->close();
}

// As in the dialog for one take.
TEST_F(Look, AHeadingStandsApartFromItsChoices) {
  BatchDialog dialog({{take("a.WAV")}, 0, 90, {}, {}}, _mainWindow.get());
  dialog.show();
  for (const QLabel* const label : dialog.findChildren<QLabel*>()) {
    if (label->text() != "Format" && label->text() != "Place") continue;
    const auto name = label->text() == "Format" ? "radio24" : "beside";
    const QRect choice = placeOf(*dialog.findChild<QWidget*>(QLatin1String(name)), dialog);
    EXPECT_GE(choice.top() - placeOf(*label, dialog).bottom(), 8) << name;
  }
}

}  // namespace
