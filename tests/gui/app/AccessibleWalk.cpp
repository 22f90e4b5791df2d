// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "AccessibleWalk.h"

#include <QLabel>

namespace {

using Role = QAccessible::Role;

// Holds others, and is nothing that one uses or reads.
bool holdsOnly(const QAccessibleInterface& item) {
  static const std::set<Role> kRoles = {Role::Client,   Role::Pane,      Role::Grouping,
                                        Role::Grip,     Role::ScrollBar, Role::Separator,
                                        Role::Indicator};
  return kRoles.contains(item.role());
}

// What one may do with a thing of this role; nothing is asked of others.
std::vector<QString> actionsOf(Role role) {
  using Action = QAccessibleActionInterface;
  static const std::map<Role, std::vector<QString>> kActions = {
      {Role::Button, {Action::pressAction()}},
      {Role::ButtonMenu, {Action::pressAction(), Action::showMenuAction()}},
      {Role::CheckBox, {Action::toggleAction()}},
      {Role::RadioButton, {Action::toggleAction()}},
      {Role::Slider, {Action::increaseAction(), Action::decreaseAction()}},
      {Role::Dial, {Action::increaseAction(), Action::decreaseAction()}},
      {Role::ListItem, {Action::pressAction(), Action::setFocusAction()}}};
  const auto found = kActions.find(role);
  return found == kActions.end() ? std::vector<QString>() : found->second;
}

bool hasValue(Role role) {
  return role == Role::Slider || role == Role::Dial || role == Role::ProgressBar;
}

}  // namespace

QString AccessibleWalk::nameOf(const QAccessibleInterface& item) {
  return item.text(QAccessible::Name);
}

AccessibleWalk::Found AccessibleWalk::through(QAccessibleInterface& root) {
  AccessibleWalk walk;
  walk.look(root, nameOf(root));
  return walk._found;
}

AccessibleWalk::Found AccessibleWalk::through(QWidget& window) {
  return through(*QAccessible::queryAccessibleInterface(&window));
}

void AccessibleWalk::look(QAccessibleInterface& item, const QString& way) {
  judge(item, way);
  for (int i = 0; i < item.childCount(); ++i) {
    QAccessibleInterface* const child = item.child(i);
    const QString place = way + u'/' + QString::number(i);
    if (child == nullptr || !child->isValid()) {
      wrong(place, "is no child");
      continue;
    }
    if (child->parent() != &item) wrong(place + nameOf(*child), "has another parent");
    if (item.indexOfChild(child) != i) wrong(place + nameOf(*child), "is at another place");
    if (!child->state().invisible) look(*child, place + u' ' + nameOf(*child));
  }
}

void AccessibleWalk::judge(QAccessibleInterface& item, const QString& way) {
  const Role role = item.role();
  ++_found.count[role];
  if (holdsOnly(item)) return judgeHolder(item, way);
  if (role == Role::StaticText) return judgeText(item, way);
  const QString name = nameOf(item);
  if (name.trimmed().isEmpty()) wrong(way, "has no name");
  if (name.contains(u'\t') || name.contains(u'&')) wrong(way, "has a key in its name");
  if (role == Role::NoRole || role == Role::Client) wrong(way, "has no role");
  judgeUse(item, way);
}

// Who takes the keyboard, has a value or can be pressed is no mere holder.
void AccessibleWalk::judgeHolder(QAccessibleInterface& item, const QString& way) {
  if (item.role() == Role::ScrollBar || item.role() == Role::Separator) return;
  const auto* const widget = qobject_cast<const QWidget*>(item.object());
  const bool isUsed = widget != nullptr && widget->focusPolicy() != Qt::NoFocus;
  if (isUsed || item.valueInterface() != nullptr) wrong(way, "is used and only a holder");
  const bool isEmpty = item.childCount() == 0;
  if (isEmpty && nameOf(item).isEmpty() && !isDecoration(widget)) wrong(way, "is nothing");
}

// Whose meaning stands beside it in words, or which belongs to the toolkit.
bool AccessibleWalk::isDecoration(const QWidget* widget) {
  static const std::set<QString> kNames = {"dotConnected"};
  return widget != nullptr && (kNames.contains(widget->objectName()) ||
                               widget->metaObject()->className() == QByteArray("QSizeGrip"));
}

// A label that has nothing to say now is none.
void AccessibleWalk::judgeText(QAccessibleInterface& item, const QString& way) {
  const auto* const label = qobject_cast<const QLabel*>(item.object());
  const bool isSilent = label != nullptr && label->text().isEmpty() && label->pixmap().isNull();
  if (!isSilent && nameOf(item).trimmed().isEmpty()) wrong(way, "says nothing");
}

void AccessibleWalk::judgeUse(QAccessibleInterface& item, const QString& way) {
  const Role role = item.role();
  if (!_found.named.insert({role, nameOf(item)}).second && isUnique(role)) {
    wrong(way, "has the name of another");
  }
  QAccessibleValueInterface* const value = item.valueInterface();
  if (hasValue(role) && value == nullptr) wrong(way, "has no value");
  if (value != nullptr && hasValue(role)) judgeValue(*value, way);
  if (role == Role::EditableText && item.editableTextInterface() == nullptr) {
    wrong(way, "cannot be written");
  }
  if (item.state().disabled) return;
  const QStringList actions =
      item.actionInterface() != nullptr ? item.actionInterface()->actionNames() : QStringList();
  const bool isReadOnly = item.state().readOnly;
  for (const QString& action : actionsOf(role)) {
    if (!isReadOnly && !actions.contains(action)) wrong(way, "has no action " + action);
  }
}

bool AccessibleWalk::isUnique(Role role) {
  return !actionsOf(role).empty() && role != Role::ListItem;
}

void AccessibleWalk::judgeValue(QAccessibleValueInterface& value, const QString& way) {
  const double now = value.currentValue().toDouble();
  const bool isWithin =
      now >= value.minimumValue().toDouble() && now <= value.maximumValue().toDouble();
  if (!isWithin) wrong(way, "has a value out of its range");
}

void AccessibleWalk::wrong(const QString& way, const QString& what) {
  _found.wrong.push_back((way + ": " + what).toStdString());
}
