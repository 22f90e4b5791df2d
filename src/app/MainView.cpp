// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/MainView.h"

#include <QAccessibleWidget>
#include <QHBoxLayout>
#include <QMenu>
#include <QVBoxLayout>

#include "app/MainViewParts.h"
#include "controls/Artwork.h"
#include "controls/Colors.h"
#include "controls/ControlsAccessible.h"

namespace {

constexpr int kOuter = 16;
constexpr int kGap = 12;
constexpr int kLeftWidth = 318;
constexpr int kDeviceHeight = 220;

QString lookOfParts() {
  return QStringLiteral(
             "#viewPathBG { background: %1; border-radius: 3px; }"
             "#viewLeftBG, #viewRightBG, #viewDeviceBG { background: %2; border-radius: 2px; }"
             "FileList { background: transparent; border: none; }"
             "QToolButton { background: transparent; border: 2px solid transparent;"
             "  border-radius: 6px; padding: 0; }"
             "QToolButton:hover { background: %3; }"
             "QToolButton:pressed { background: %4; }"
             "QToolButton:focus { border-color: %5; }"
             "QToolButton::menu-indicator { image: none; }"
             "#btnPlayPause { background: %1; border-radius: 24px; }"
             "#btnPlayPause:hover { background: %3; }"
             "#btnPlayPause:pressed { background: %4; }"
             "#btnPlayPause:focus { border-color: %5; }"
             "#btnExport { background: %1; border-radius: 8px; padding: 0; min-height: 32px; }"
             "#btnExport:hover { background: %3; }"
             "#btnExport:pressed { background: %4; }"
             "#listBatteryCover, #listAutoPowOffCover { background: transparent;"
             "  border-radius: 4px; padding: 0; min-height: 22px; }"
             "#barUsed { background: %6; border: none; border-radius: 3px; }"
             "#barUsed::chunk { background: %7; border-radius: 3px; }")
      .arg(Colors::ControlColor().name(), Colors::AppBGLight().name(), Colors::hover().name(),
           Colors::pressed().name(), Colors::focusRing().name(), Colors::ControlColor().name(),
           Colors::accent().name());
}

// The toolkit takes a plain widget for a filler, also where it is the window.
QAccessibleInterface* makeInterface(const QString& /*className*/, QObject* object) {
  auto* const view = qobject_cast<MainView*>(object);
  return view == nullptr ? nullptr : new QAccessibleWidget(view, QAccessible::Window);
}

}  // namespace

MainView::MainView(QWidget* parent) : QWidget(parent) {
  ControlsAccessible::install();  // before the pop-ups, which are the toolkit's
  QAccessible::installFactory(makeInterface);
  setStyleSheet(lookOfParts());
  auto* const left = new QVBoxLayout;
  left->setSpacing(kGap);
  browser = new BrowserView(this);
  left->addWidget(browser, 1);
  left->addWidget(makeDevicePane());
  auto* const all = new QHBoxLayout(this);
  all->setContentsMargins(kOuter, kOuter, kOuter, kOuter);
  all->setSpacing(kGap);
  all->addLayout(left);
  all->addWidget(makePlayerPane(), 1);
  makeMenu();
  setTabOrders();
}

void MainView::setAlpha(QLabel& caption, double alpha) {
  QPalette palette = caption.palette();
  QColor colour = Colors::WHITE();
  colour.setAlphaF(static_cast<float>(alpha));
  palette.setColor(QPalette::WindowText, colour);
  caption.setPalette(palette);
}

QAction* MainView::addAction(const QString& text, const QKeySequence& keys) {
  auto* const action = new QAction(text, this);
  action->setShortcut(keys);
  QWidget::addAction(action);
  btnMenu->menu()->addAction(action);
  return action;
}

void MainView::makeMenu() {
  auto* const menu = new QMenu(btnMenu);
  btnMenu->setMenu(menu);
  btnMenu->setPopupMode(QToolButton::InstantPopup);
  actionOpenFolder = addAction(tr("&Open folder…"), QKeySequence::Open);
  actionExport = addAction(tr("&Export…"), Qt::CTRL | Qt::Key_E);
  menu->addSeparator();
  actionIntroduction = addAction(tr("&Introduction"), {});
  actionHelp = addAction(tr("Online &help"), QKeySequence::HelpContents);
  actionAbout = addAction(tr("&About"), {});
  menu->addSeparator();
  actionQuit = addAction(tr("&Quit"), QKeySequence::Quit);
  connect(menu, &QMenu::aboutToShow, this,
          [this] { actionExport->setEnabled(btnExport->isEnabled()); });
  connect(menu, &QMenu::aboutToHide, this, [this] { actionExport->setEnabled(true); });
  auto* const open = new QAction(this);
  open->setShortcut(Qt::Key_F10);
  QWidget::addAction(open);
  connect(open, &QAction::triggered, btnMenu, &QToolButton::showMenu);
}

void MainView::setTabOrders() {
  QWidgetList order = browser->tabOrder();
  order +=
      {btnPlayPause, sliderTime, btnVolume,    sliderVolume,     sliderStereo, sliderGain,
       btnExport,    btnMenu,    popupBattery, listBatteryCover, popupAutoPow, listAutoPowOffCover};
  for (qsizetype next = 1; next < order.size(); ++next) setTabOrder(order[next - 1], order[next]);
  browser->tableFile->setFocus();
}

QWidget* MainView::makeDevicePane() {
  QWidget* const pane = MainViewParts::ground(this, "viewDeviceBG");
  pane->setFixedSize(kLeftWidth, kDeviceHeight);
  placeDeviceState(pane);
  placeDeviceSettings(pane);
  return pane;
}

void MainView::placeDeviceState(QWidget* pane) {
  imgJ4 = new ImageView(pane);
  imgJ4->setImage(Artwork::icon(QStringLiteral("device_j4")));
  imgJ4->setGeometry(16, 20, 54, 112);
  lblConnect = MainViewParts::label(pane, "heading");
  lblConnect->setGeometry(86, 20, 140, 22);
  lblVersion = MainViewParts::label(pane, "dim");
  lblVersion->setGeometry(212, 20, 90, 22);
  lblVersion->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  lblSimulated = MainViewParts::label(pane, "dim", tr("Simulated recorder"));
  lblSimulated->setGeometry(86, 40, 216, 18);
  lblSimulated->hide();
  lblUsed = MainViewParts::label(pane, "");
  lblUsed->setGeometry(86, 60, 216, 18);
  barUsed = new QProgressBar(pane);
  barUsed->setObjectName(QStringLiteral("barUsed"));
  barUsed->setRange(0, 1000);
  barUsed->setTextVisible(false);
  barUsed->setAccessibleName(tr("Card used"));
  barUsed->setGeometry(86, 84, 216, 6);
  MainViewParts::label(pane, "dim", tr("Remaining"))->setGeometry(86, 102, 110, 20);
  lblRemain = MainViewParts::label<TabularLabel>(pane, "");
  lblRemain->setGeometry(202, 102, 100, 20);
  lblRemain->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
}

void MainView::placeDeviceSettings(QWidget* pane) {
  const auto place = [&](const QString& name, int y, QComboBox*& popup, QPushButton*& cover) {
    QLabel* const caption = MainViewParts::label(pane, "dim", name);
    caption->setGeometry(16, y, 106, 26);
    popup = new QComboBox(pane);
    popup->setAccessibleName(name);
    popup->setGeometry(126, y, 176, 26);
    caption->setBuddy(popup);
    cover = new QPushButton(pane);
    cover->setAccessibleName(tr("%1, no recorder connected").arg(name));
    cover->setGeometry(popup->geometry());
    cover->setFocusPolicy(Qt::TabFocus);
  };
  place(tr("Battery"), 144, popupBattery, listBatteryCover);
  place(tr("Auto power off"), 178, popupAutoPow, listAutoPowOffCover);
  listBatteryCover->setObjectName(QStringLiteral("listBatteryCover"));
  listAutoPowOffCover->setObjectName(QStringLiteral("listAutoPowOffCover"));
}
