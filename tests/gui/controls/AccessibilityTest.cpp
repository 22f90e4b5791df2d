// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <gmock/gmock.h>

#include <QAbstractItemView>
#include <QAccessible>
#include <QComboBox>
#include <QTest>
#include <algorithm>
#include <limits>
#include <memory>
#include <vector>

#include "AccessibleEvents.h"
#include "Hands.h"
#include "controls/AngleViewer.h"
#include "controls/GainTickTitle.h"
#include "controls/J4GainSlider.h"
#include "controls/J4Slider.h"
#include "controls/LevelMeter.h"
#include "controls/PathViewer.h"
#include "controls/PopupAccessible.h"

namespace {

QAccessibleInterface& of(QObject& object) {
  QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(&object);
  if (interface == nullptr) qFatal("a control has no accessible interface");
  return *interface;
}

QString name(QObject& object) {
  return of(object).text(QAccessible::Name);
}
QString value(QObject& object) {
  return of(object).text(QAccessible::Value);
}

TEST(Accessibility, EveryControlHasRoleAndName) {
  AngleViewer dial;
  J4Slider position;
  J4GainSlider gain;
  PathViewer path;
  LevelMeter left;
  left.setAccessibleName("Level left");
  Slider volume;
  volume.setAccessibleName("Volume");
  EXPECT_EQ(QAccessible::Dial, of(dial).role());
  EXPECT_EQ("Stereo width", name(dial));
  EXPECT_EQ(QAccessible::Slider, of(position).role());
  EXPECT_EQ("Position", name(position));
  EXPECT_EQ(QAccessible::Slider, of(gain).role());
  EXPECT_EQ("Gain", name(gain));
  EXPECT_EQ(QAccessible::StaticText, of(path).role());
  EXPECT_EQ("Current folder", name(path));
  EXPECT_EQ(QAccessible::ProgressBar, of(left).role());
  EXPECT_EQ("Level left", name(left));
  EXPECT_EQ(QAccessible::Slider, of(volume).role());
  EXPECT_EQ("Volume", name(volume));
}

TEST(Accessibility, TheDialHasAValueToReadAndSet) {
  AngleViewer dial;
  dial.setEnable(true);
  dial.setNewAngle(90.5);
  QAccessibleValueInterface* values = of(dial).valueInterface();
  ASSERT_NE(nullptr, values);
  EXPECT_EQ(90.5, values->currentValue().toDouble());
  EXPECT_EQ(0.0, values->minimumValue().toDouble());
  EXPECT_EQ(150.0, values->maximumValue().toDouble());
  EXPECT_EQ(1.0, values->minimumStepSize().toDouble());
  EXPECT_EQ("90°", value(dial));
  values->setCurrentValue(120);
  EXPECT_EQ(120.0, dial.angle());
  values->setCurrentValue(500);
  EXPECT_EQ(150.0, dial.angle());
  values->setCurrentValue("wide");
  values->setCurrentValue(std::numeric_limits<double>::quiet_NaN());
  EXPECT_EQ(150.0, dial.angle());
}

TEST(Accessibility, TheDialIsDisabledWhileItIs) {
  AngleViewer dial;
  EXPECT_TRUE(of(dial).state().disabled);
  of(dial).valueInterface()->setCurrentValue(120);
  EXPECT_EQ(0.0, dial.angle());
  EXPECT_FALSE(of(dial).actionInterface()->actionNames().contains(
      QAccessibleActionInterface::increaseAction()));
  dial.setEnable(true);
  EXPECT_FALSE(of(dial).state().disabled);
  EXPECT_TRUE(of(dial).state().focusable);
}

TEST(Accessibility, SlidersReportWhatAssistiveSoftwareSets) {
  J4GainSlider gain;
  gain.setRange(-36.0, 36.0);
  std::vector<AdjustCause> causes;
  QObject::connect(&gain, &Slider::valueAdjusted,
                   [&causes](AdjustCause cause) { causes.push_back(cause); });
  of(gain).valueInterface()->setCurrentValue(6);
  EXPECT_EQ(6.0, gain.value());
  EXPECT_EQ("+6 dB", value(gain));
  EXPECT_EQ(-36.0, of(gain).valueInterface()->minimumValue().toDouble());
  EXPECT_EQ(36.0, of(gain).valueInterface()->maximumValue().toDouble());
  QAccessibleActionInterface* actions = of(gain).actionInterface();
  actions->doAction(QAccessibleActionInterface::increaseAction());
  actions->doAction(QAccessibleActionInterface::increaseAction());
  actions->doAction(QAccessibleActionInterface::decreaseAction());
  EXPECT_EQ(7.0, gain.value());
  EXPECT_EQ(std::vector<AdjustCause>(4, AdjustCause::Assistive), causes);
  gain.setEnabled(false);
  of(gain).valueInterface()->setCurrentValue(12);
  EXPECT_EQ(7.0, gain.value());
  EXPECT_TRUE(of(gain).state().disabled);
}

TEST(Accessibility, APositionIsReadInPerCent) {
  J4Slider position;
  position.setValue(0.374);
  EXPECT_EQ("37 %", value(position));
}

TEST(Accessibility, APositionInATakeIsReadAndSetInSeconds) {
  J4Slider position;
  position.setDuration(4000.0);
  position.setValue(0.25);
  QAccessibleValueInterface* values = of(position).valueInterface();
  ASSERT_NE(nullptr, values);
  EXPECT_EQ("00:16:40", value(position));
  EXPECT_EQ(1000.0, values->currentValue().toDouble());
  EXPECT_EQ(4000.0, values->maximumValue().toDouble());
  values->setCurrentValue(3000.0);
  EXPECT_EQ(0.75, position.value());
  of(position).actionInterface()->doAction(QAccessibleActionInterface::increaseAction());
  EXPECT_EQ("00:50:01", value(position));
}

TEST(Accessibility, ChangesAreTold) {
  AngleViewer dial;
  J4Slider position;
  LevelMeter meter;
  const AccessibleEvents events;
  dial.setEnable(true);
  EXPECT_EQ(1, AccessibleEvents::count(QAccessible::StateChanged));
  dial.setNewAngle(30.0);
  dial.setNewAngle(30.0);
  EXPECT_EQ(1, AccessibleEvents::count(QAccessible::ValueChanged));
  position.setValue(0.5);
  EXPECT_EQ(2, AccessibleEvents::count(QAccessible::ValueChanged));
  // Too little to be read differently, and meters keep quiet.
  position.setValue(0.5001);
  meter.setLevel(30);
  EXPECT_EQ(2, AccessibleEvents::count(QAccessible::ValueChanged));
}

TEST(Accessibility, MetersCanBeReadOnly) {
  LevelMeter meter;
  meter.setMaxValue(54);
  meter.setZero(48);
  meter.setLevel(30);
  QAccessibleValueInterface* values = of(meter).valueInterface();
  ASSERT_NE(nullptr, values);
  EXPECT_EQ(-18.0, values->currentValue().toDouble());
  EXPECT_EQ(-48.0, values->minimumValue().toDouble());
  EXPECT_EQ(6.0, values->maximumValue().toDouble());
  EXPECT_EQ("-18 dB", value(meter));
  values->setCurrentValue(10);
  EXPECT_EQ(30, meter.level());
  EXPECT_TRUE(of(meter).state().readOnly);
}

TEST(Accessibility, ThePathTellsItsFolder) {
  PathViewer path;
  path.setText("/SD/FOLDER01/");
  EXPECT_EQ("FOLDER01", value(path));
  EXPECT_TRUE(of(path).state().readOnly);
}

struct Heard : GainTickTitleDelegate {
  void GainTickTitle(class GainTickTitle* /*scale*/, const QString& clickAt) override {
    texts << clickAt;
  }
  QStringList texts;
};

struct ScaleAccessibility : testing::Test {
  ScaleAccessibility() {
    scale.setTexts({"+36", "0", "-36"});
    scale.initTick();
    scale.setEnable(true);
    Hands::show(scale, {40, 260});
  }
  GainTickTitle scale;
};

TEST_F(ScaleAccessibility, ItsLabelsAreTexts) {
  QAccessibleInterface& group = of(scale);
  EXPECT_EQ(QAccessible::Grouping, group.role());
  ASSERT_EQ(3, group.childCount());
  for (int i = 0; i < 3; ++i) {
    QAccessibleInterface* label = group.child(i);
    ASSERT_NE(nullptr, label);
    EXPECT_TRUE(label->isValid());
    EXPECT_EQ(QAccessible::StaticText, label->role());
    EXPECT_EQ(scale.texts()[i], label->text(QAccessible::Name));
    EXPECT_EQ(&group, label->parent());
    EXPECT_EQ(i, group.indexOfChild(label));
    EXPECT_EQ(label, group.child(i));
  }
  EXPECT_EQ(nullptr, group.child(3));
  EXPECT_EQ(nullptr, group.child(-1));
}

TEST_F(ScaleAccessibility, ItsLabelsAreWhereTheyAreDrawn) {
  const QPoint centre = scale.mapToGlobal(QPoint(35, 30));
  QAccessibleInterface* first = of(scale).childAt(centre.x(), centre.y());
  ASSERT_NE(nullptr, first);
  EXPECT_EQ("+36", first->text(QAccessible::Name));
  EXPECT_NEAR(centre.y(), first->rect().center().y(), 1);
  EXPECT_EQ(nullptr, of(scale).childAt(centre.x(), centre.y() + 40));
}

TEST_F(ScaleAccessibility, ItsLabelsCanBePressedWhereSomebodyListens) {
  QAccessibleInterface* label = of(scale).child(1);
  ASSERT_NE(nullptr, label);
  QAccessibleActionInterface* actions = label->actionInterface();
  ASSERT_NE(nullptr, actions);
  EXPECT_TRUE(actions->actionNames().isEmpty());
  const auto heard = std::make_shared<Heard>();
  scale.setDelegate(heard);
  EXPECT_EQ(QStringList{QAccessibleActionInterface::pressAction()}, actions->actionNames());
  EXPECT_EQ(QAccessible::Button, label->role()) << "and are buttons then";
  actions->doAction(QAccessibleActionInterface::pressAction());
  actions->doAction("something else");
  EXPECT_EQ(QStringList{"0"}, heard->texts);
}

TEST_F(ScaleAccessibility, LabelsThatAreGoneAreInvalid) {
  QAccessibleInterface* last = of(scale).child(2);
  ASSERT_NE(nullptr, last);
  scale.setTexts({"0"});
  scale.initTick();
  EXPECT_EQ(1, of(scale).childCount());
  EXPECT_FALSE(last->isValid());
  EXPECT_EQ(QString(), last->text(QAccessible::Name));
  EXPECT_EQ(QRect(), last->rect());
}

TEST(Accessibility, InterfacesGoWithTheirControls) {
  auto scale = std::make_unique<GainTickTitle>();
  scale->setTexts({"0"});
  scale->initTick();
  const QAccessible::Id group = QAccessible::uniqueId(&of(*scale));
  QAccessibleInterface* const child = of(*scale).child(0);
  ASSERT_NE(nullptr, child);
  const QAccessible::Id label = QAccessible::uniqueId(child);
  ASSERT_NE(nullptr, QAccessible::accessibleInterface(label));
  scale.reset();
  EXPECT_EQ(nullptr, QAccessible::accessibleInterface(group));
  EXPECT_EQ(nullptr, QAccessible::accessibleInterface(label));
}

TEST(Accessibility, APopUpKeepsItsNameAndTellsItsChoice) {
  QWidget window;
  PopupAccessible::install();
  auto* const popup = new QComboBox(&window);
  popup->setAccessibleName("Battery");
  popup->addItems({"Alkaline", "Lithium"});
  popup->setCurrentIndex(1);
  window.show();
  EXPECT_EQ(QAccessible::ComboBox, of(*popup).role());
  EXPECT_EQ(QString("Battery"), name(*popup));
  EXPECT_EQ(QString("Lithium"), value(*popup));
  EXPECT_EQ(QString("Lithium"), of(*popup).text(QAccessible::Description));
  QAccessibleInterface* const list = of(*popup).child(0);
  ASSERT_EQ(1, of(*popup).childCount());
  EXPECT_EQ(0, of(*popup).indexOfChild(list));
  EXPECT_EQ(2, list->childCount());
  QAccessibleActionInterface* const actions = of(*popup).actionInterface();
  EXPECT_TRUE(of(*popup).state().collapsed);
  actions->doAction(QAccessibleActionInterface::showMenuAction());
  EXPECT_TRUE(popup->view()->isVisible());
  EXPECT_TRUE(of(*popup).state().expanded);
  popup->hidePopup();
  popup->setEnabled(false);
  EXPECT_FALSE(actions->actionNames().contains(QAccessibleActionInterface::showMenuAction()));
  actions->doAction(QAccessibleActionInterface::showMenuAction());
  EXPECT_FALSE(popup->view()->isVisible());
}

}  // namespace
