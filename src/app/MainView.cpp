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

QString lookOfParts() {
  return QStringLiteral(
             "#viewPathBG { background: %1; border-radius: 3px; }"
             "#viewLeftBG, #viewRightBG { background: %2; border-radius: 2px; }"
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
             "#btnExport:pressed { background: %4; }")
      .arg(Colors::ControlColor().name(), Colors::AppBGLight().name(), Colors::hover().name(),
           Colors::pressed().name(), Colors::focusRing().name());
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
  device = new DeviceView(this);
  left->addWidget(device);
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
  order += {btnPlayPause, sliderTime, btnVolume, sliderVolume,
            sliderStereo, sliderGain, btnExport, btnMenu};
  order += device->tabOrder();
  for (qsizetype next = 1; next < order.size(); ++next) setTabOrder(order[next - 1], order[next]);
  browser->tableFile->setFocus();
}
