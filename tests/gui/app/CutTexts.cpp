// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "CutTexts.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QStyle>
#include <QStyleOptionButton>
#include <QStyleOptionComboBox>
#include <QTreeView>
#include <algorithm>

#include "app/ElidedButton.h"
#include "app/StatusLine.h"
#include "app/TabularLabel.h"
#include "controls/ElidedLabel.h"
#include "controls/FigureLine.h"

namespace {

QString lack(const QString& text, QSize has, QSize needs) {
  if (needs.width() <= has.width() && needs.height() <= has.height()) return {};
  return QStringLiteral("“%1” has %2 × %3 of %4 × %5")
      .arg(text)
      .arg(has.width())
      .arg(has.height())
      .arg(needs.width())
      .arg(needs.height());
}

int widestWord(const QLabel& label) {
  int widest = 0;
  for (const QString& word : label.text().split(u' ')) {
    // Where words are not set apart, lines break between letters.
    const bool breaks = std::ranges::any_of(word, [](QChar c) { return c.unicode() >= 0x3000; });
    if (!breaks) widest = std::max(widest, label.fontMetrics().horizontalAdvance(word));
  }
  return widest;
}

QString lackOf(const QLabel& label) {
  const bool isShort = qobject_cast<const ElidedLabel*>(&label) != nullptr ||
                       qobject_cast<const StatusLine*>(&label) != nullptr;
  if (isShort || label.text().isEmpty()) return {};
  if (label.wordWrap()) {
    return lack(label.text(), label.size(),
                {widestWord(label), label.heightForWidth(label.width())});
  }
  return lack(label.text(), label.size(), label.sizeHint());
}

// Where the style writes the text: within its padding, beside an indicator.
QSize roomIn(const QAbstractButton& button) {
  if (qobject_cast<const ElidedButton*>(&button) != nullptr) return button.size();
  QStyle::SubElement part = QStyle::SE_PushButtonContents;
  if (qobject_cast<const QCheckBox*>(&button) != nullptr) {
    part = QStyle::SE_CheckBoxContents;
  } else if (qobject_cast<const QRadioButton*>(&button) != nullptr) {
    part = QStyle::SE_RadioButtonContents;
  } else if (qobject_cast<const QPushButton*>(&button) == nullptr) {
    constexpr int kFrame = 2;  // of a tool button
    return button.size() - QSize(2 * kFrame, 0);
  }
  QStyleOptionButton option;
  option.initFrom(&button);
  return button.style()->subElementRect(part, &option, &button).size();
}

QString lackOf(const QAbstractButton& button) {
  if (button.text().isEmpty()) return {};
  const QSize text = button.fontMetrics().size(Qt::TextShowMnemonic, button.text());
  return lack(button.text(), roomIn(button), text);
}

QString lackOf(const QComboBox& popup) {
  QStyleOptionComboBox option;
  option.initFrom(&popup);
  option.editable = popup.isEditable();
  const QSize field =
      popup.style()
          ->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, &popup)
          .size();
  for (int i = 0; i < popup.count(); ++i) {
    const QString item = popup.itemText(i);
    const QString lacks = lack(item, field, {popup.fontMetrics().horizontalAdvance(item), 0});
    if (!lacks.isEmpty()) return lacks;
  }
  return {};
}

// What a group is called has the whole line.
QString lackOf(const QTreeView& tree, const QModelIndex& item) {
  const bool isSpanned = tree.isFirstColumnSpanned(item.row(), item.parent());
  const QRect place = tree.visualRect(item);
  const int room = isSpanned ? tree.viewport()->width() - place.left() : place.width();
  return lack(item.data().toString(), {room, 0}, {tree.sizeHintForIndex(item).width(), 0});
}

QString lackIn(const QTreeView& tree, const QModelIndex& parent) {
  for (int row = 0; row < tree.model()->rowCount(parent); ++row) {
    const QModelIndex item = tree.model()->index(row, 0, parent);
    const QString own = lackOf(tree, item);
    const QString lacks = own.isEmpty() ? lackIn(tree, item) : own;
    if (!lacks.isEmpty()) return lacks;
  }
  return {};
}

// Names of lines; what they are may be longer, and is in the tool tip.
QString lackOf(const QTreeView& tree) {
  return lackIn(tree, {});
}

// Of each row all that it says, in as many lines as it has; a list that is not scrolled sideways
// has rows that are wider than itself.
QString lackOf(const QListWidget& list) {
  const int margin = list.style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, &list) + 1;
  const int flags = list.wordWrap() ? int{Qt::TextWordWrap} : 0;
  for (int row = 0; row < list.count(); ++row) {
    const QString text = list.item(row)->text();
    const QRect place = list.visualItemRect(list.item(row));
    const int width = std::min(place.right() + 1, list.viewport()->width()) - place.left();
    const QSize room(width - 2 * margin, place.height());
    const QRect most(0, 0, room.width(), QWIDGETSIZE_MAX);
    const QString lacks =
        lack(text, room, list.fontMetrics().boundingRect(most, flags, text).size());
    if (!lacks.isEmpty()) return lacks;
  }
  return {};
}

QString lackOf(const FigureLine& line) {
  return lack(line.accessibleName(), line.size(), line.sizeHint());
}

template <class Widget>
void add(QStringList& all, const QWidget& window) {
  for (const auto* const widget : window.findChildren<Widget*>()) {
    if (!widget->isVisibleTo(&window)) continue;
    if (const QString lacks = lackOf(*widget); !lacks.isEmpty()) all << lacks;
  }
}

}  // namespace

QStringList CutTexts::in(const QWidget& window) {
  QStringList all;
  add<QLabel>(all, window);
  add<QAbstractButton>(all, window);
  add<QComboBox>(all, window);
  add<FigureLine>(all, window);
  add<QTreeView>(all, window);
  add<QListWidget>(all, window);
  return all;
}
