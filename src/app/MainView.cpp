// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/MainView.h"

#include <QAction>
#include <QHBoxLayout>
#include <QVBoxLayout>
#include <algorithm>

#include "app/WindowAccessible.h"
#include "controls/AccessibleFactory.h"
#include "controls/Appearance.h"
#include "controls/Colors.h"
#include "controls/PopupAccessible.h"

namespace {

constexpr int kOuter = 16;
constexpr int kPaneGap = 12;
constexpr int kTogglePixels = 12;

// What the list has in a window of the usual size, and at most.
constexpr int kUsualList = 318;
constexpr int kUsualRoom = 1006;
constexpr int kMostList = 480;

/// List and player: of what a larger window has more, the list gets a third.
class Columns : public QHBoxLayout {
 public:
  using QHBoxLayout::QHBoxLayout;

  void setGeometry(const QRect& rect) override {
    const int room = rect.width() - 2 * kOuter - kPaneGap;
    const int list = std::clamp(kUsualList + (room - kUsualRoom) / 3, kUsualList, kMostList);
    setStretch(0, list);
    setStretch(1, std::max(1, room - list));
    QHBoxLayout::setGeometry(rect);
  }
};

QString lookOfParts() {
  return QStringLiteral(
             "#viewPathBG, #viewSelectionBG { background: %1; border-radius: 3px; }"
             "#viewLeftBG, #viewRightBG { background: %2; border-radius: 2px; }"
             "FileList { background: transparent; border: none; }"
             "QScrollArea::corner { background: transparent; }"
             "QToolButton { background: transparent; border: 2px solid transparent;"
             "  border-radius: 6px; padding: 0; }"
             "QToolButton:hover { background: %3; }"
             "QToolButton:pressed { background: %4; }"
             "QToolButton:focus { border-color: %5; }"
             "QToolButton::menu-indicator { image: none; }"
             "#btnPlayPause { background: %6; border-radius: 24px; }"
             "#btnPlayPause:hover { background: %7; }"
             "#btnPlayPause:pressed { background: %8; }"
             "#btnPlayPause:disabled { background: %9; }"
             "#btnPlayPause:focus { border-color: %5; }"
             "QToolButton[role=\"toggle\"] { background: %1; color: %10; border-radius: 6px;"
             "  padding: 0 3px; font-size: %12px; font-weight: 600; }"
             "QToolButton[role=\"toggle\"]:hover { background: %3; }"
             "QToolButton[role=\"toggle\"]:disabled { color: %9; }"
             "QToolButton[role=\"toggle\"]:checked { background: %6; color: %11; }"
             "QToolButton[role=\"toggle\"]:focus { border-color: %5; }"
             "#btnExport { background: %1; border-radius: 8px; padding: 0 14px; min-height: 36px; }"
             "#btnExport[keys=\"true\"]:focus { padding: 0 12px; min-height: 32px; }"
             "#btnExport:hover { background: %3; }"
             "#btnExport:pressed { background: %4; }"
             "#btnExportSelected { background: transparent; border-radius: 4px; padding: 0 10px;"
             "  min-height: 30px; }"
             "#btnExportSelected[keys=\"true\"]:focus { padding: 0 8px; min-height: 26px; }"
             "#btnExportSelected:hover { background: %3; }"
             "#btnExportSelected:pressed { background: %4; }")
      .arg(Colors::ControlColor().name(), Colors::AppBGLight().name(), Colors::hover().name(),
           Colors::pressed().name(), Colors::focusRing().name(), Colors::WHITE().name(),
           Colors::primaryHover().name(), Colors::primaryPressed().name(), Colors::line().name(),
           Colors::dimText().name(), Colors::AppBG().name())
      .arg(Appearance::pixels(kTogglePixels));
}

QAccessibleInterface* makeViewInterface(MainView& view) {
  return new WindowAccessible(view);
}

}  // namespace

MainView::MainView(QWidget* parent) : QWidget(parent) {
  PopupAccessible::install();  // before the pop-ups, which are the toolkit's
  AccessibleFactory::install<MainView, makeViewInterface>();
  dress();
  auto* const left = new QVBoxLayout;
  left->setSpacing(kPaneGap);
  browser = new BrowserView(this);
  left->addWidget(browser, 1);
  device = new DeviceView(this);
  left->addWidget(device);
  auto* const all = new Columns(this);
  all->setContentsMargins(kOuter, kOuter, kOuter, kOuter);
  all->setSpacing(kPaneGap);
  all->addLayout(left);
  player = new PlayerView(this);
  all->addWidget(player);
  makeMenu();
  setTabOrders();
  announcer = new Announcer(this);
}

void MainView::dress() {
  const QString look = lookOfParts();
  if (look == styleSheet()) return;
  setStyleSheet(look);
  QPalette colors = palette();
  colors.setColor(QPalette::Window, Colors::AppBG());
  setPalette(colors);
}

void MainView::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  const QEvent::Type type = event->type();
  if (type == QEvent::FontChange || type == QEvent::PaletteChange) dress();
}

void MainView::makeMenu() {
  menu = new WindowMenu(*this);
  player->btnMenu->setPopup(*menu);
  auto* const open = new QAction(this);
  open->setShortcut(Qt::Key_F10);
  addAction(open);
  connect(open, &QAction::triggered, player->btnMenu, &QToolButton::showMenu);
}

void MainView::setTabOrders() {
  const QWidgetList order = browser->tabOrder() + player->tabOrder() + device->tabOrder();
  for (qsizetype next = 1; next < order.size(); ++next) setTabOrder(order[next - 1], order[next]);
  browser->tableFile->setFocus();
}
