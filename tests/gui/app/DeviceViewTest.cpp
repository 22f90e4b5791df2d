// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/DeviceView.h"

#include <gmock/gmock.h>

#include <QApplication>
#include <QFontMetricsF>
#include <QImage>
#include <QLayout>
#include <QSignalSpy>
#include <QWheelEvent>

#include "controls/Appearance.h"

namespace {

class DeviceViewTest : public testing::Test {
 protected:
  DeviceViewTest() {
    Appearance::apply(*qobject_cast<QApplication*>(QCoreApplication::instance()));
    view = std::make_unique<DeviceView>();
  }

  void enlarge(int pixels) const {
    for (QWidget* const widget : view->findChildren<QWidget*>()) {
      QFont font = widget->font();
      font.setPixelSize(pixels);
      widget->setFont(font);
    }
  }

  void fill(const QString& connect, const QString& used) const {
    view->lblConnect->setText(connect);
    view->lblVersion->setText("Ver. 1.02");
    view->lblUsed->setText(used);
    view->lblRemain->setText("05:12:33");
    view->popupBattery->addItems({"Alkaline", "Ni-MH"});
    view->popupAutoPow->addItems({"10 minutes", "30 minutes"});
  }
  /// As large as it has to be; the window gives it no more.
  void layOut() const {
    view->show();
    QCoreApplication::processEvents();
    view->resize(view->sizeHint());
    view->layout()->activate();
  }
  void expectRoomForAllText() const {
    for (const QLabel* const label : view->findChildren<QLabel*>()) {
      const QFontMetricsF metrics(label->font());
      EXPECT_LE(metrics.horizontalAdvance(label->text()), label->width())
          << label->text().toStdString();
      EXPECT_LE(metrics.height(), label->contentsRect().height() + 1)
          << label->text().toStdString();
    }
    for (const QComboBox* const popup : {view->popupBattery, view->popupAutoPow}) {
      EXPECT_LE(popup->minimumSizeHint().width(), popup->width());
      EXPECT_LE(popup->sizeHint().height(), popup->height());
    }
  }
  void expectNoOverlap() const {
    const std::vector<const QWidget*> boxes = {
        view->imgJ4,   view->lblConnect, view->lblVersion,   view->lblSimulated, view->lblUsed,
        view->barUsed, view->lblRemain,  view->popupBattery, view->popupAutoPow};
    for (const QWidget* const one : boxes) {
      EXPECT_TRUE(view->rect().contains(one->geometry()));
      for (const QWidget* const other : boxes) {
        EXPECT_TRUE(one == other || !one->geometry().intersects(other->geometry()));
      }
    }
  }

  std::unique_ptr<DeviceView> view;
};

TEST_F(DeviceViewTest, HasItsUsualPlacesWithTheUsualFont) {
  fill("Connected", "7.45 GB / 29.7 GB Used");
  layOut();
  EXPECT_EQ(view->size(), QSize(318, 220));
  EXPECT_EQ(view->imgJ4->geometry(), QRect(16, 20, 51, 112));
  EXPECT_EQ(view->lblConnect->geometry().topLeft(), QPoint(86, 20));
  EXPECT_EQ(view->lblConnect->contentsRect().height(), 18);
  EXPECT_EQ(view->lblVersion->geometry().bottomRight(), QPoint(301, 39));
  EXPECT_EQ(view->lblSimulated->geometry(), QRect(86, 40, 216, 18));
  EXPECT_EQ(view->lblUsed->geometry(), QRect(86, 60, 216, 18));
  EXPECT_EQ(view->barUsed->geometry(), QRect(86, 84, 216, 6));
  EXPECT_EQ(view->lblRemain->geometry().bottomRight(), QPoint(301, 121));
  EXPECT_EQ(view->popupBattery->geometry(), QRect(126, 144, 176, 26));
  EXPECT_EQ(view->popupAutoPow->geometry(), QRect(126, 178, 176, 26));
}

TEST_F(DeviceViewTest, PictureBeginsWhereTheCaptionsDo) {
  layOut();
  const QImage picture = view->imgJ4->grab().toImage().convertToFormat(QImage::Format_RGB32);
  int left = 0;
  while (left < picture.width() && picture.pixel(left, picture.height() / 2) == picture.pixel(0, 0))
    ++left;
  EXPECT_LE(left / picture.devicePixelRatio(), 1);
}

TEST_F(DeviceViewTest, WheelOverAClosedPopUpChangesNothing) {
  fill("Connected", "7.45 GB / 29.7 GB Used");
  for (QComboBox* const popup : {view->popupBattery, view->popupAutoPow}) {
    popup->setCurrentIndex(0);
    const QSignalSpy activated(popup, &QComboBox::activated);
    QWheelEvent wheel(QPointF(5, 5), QPointF(5, 5), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(popup, &wheel);
    EXPECT_EQ(popup->currentIndex(), 0);
    EXPECT_EQ(activated.count(), 0) << "which would set the recorder";
  }
}

TEST_F(DeviceViewTest, SaysThatRecordersCannotBeFoundAndWhyInTheToolTip) {
  layOut();
  const QSize before = view->size();
  EXPECT_TRUE(view->lblUnavailable->isHidden());
  view->showUnavailable("The ALSA sequencer is not there (No such file or directory).");
  layOut();
  EXPECT_EQ(view->size(), before);
  EXPECT_TRUE(view->lblUnavailable->isVisible());
  EXPECT_EQ(view->lblUnavailable->text(), "No recorder can be found here.");
  EXPECT_THAT(view->lblUnavailable->toolTip().toStdString(), testing::HasSubstr("ALSA"));
  expectRoomForAllText();
  view->showUnavailable({});
  EXPECT_TRUE(view->lblUnavailable->isHidden());
}

TEST_F(DeviceViewTest, KeepsItsPlacesWhetherOrNotTheRecorderIsSimulated) {
  fill("Connected", "7.45 GB / 29.7 GB Used");
  layOut();
  const QRect before = view->lblUsed->geometry();
  view->lblSimulated->show();
  layOut();
  EXPECT_EQ(view->lblUsed->geometry(), before);
}

TEST_F(DeviceViewTest, CoversLieExactlyOverThePopUps) {
  enlarge(20);
  layOut();
  EXPECT_EQ(view->listBatteryCover->geometry(), view->popupBattery->geometry());
  EXPECT_EQ(view->listAutoPowOffCover->geometry(), view->popupAutoPow->geometry());
}

TEST_F(DeviceViewTest, GrowsWithALargerFont) {
  enlarge(26);
  fill("Connected", "7.45 GB / 29.7 GB Used");
  layOut();
  EXPECT_GT(view->height(), 220);
  expectRoomForAllText();
  expectNoOverlap();
}

TEST_F(DeviceViewTest, GrowsWithLongerTexts) {
  fill("Verbunden mit dem Aufnahmegerät", "7,45 GB von insgesamt 29,7 GB sind belegt");
  view->popupAutoPow->addItem("nach einer halben Stunde ohne Bedienung");
  layOut();
  EXPECT_GT(view->width(), 318);
  EXPECT_EQ(view->height(), 220);
  expectRoomForAllText();
  expectNoOverlap();
}

}  // namespace
