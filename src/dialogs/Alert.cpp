// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "dialogs/Alert.h"

#include <QApplication>
#include <QFontMetrics>
#include <QGridLayout>
#include <QLabel>
#include <algorithm>

#include "base/Version.h"
#include "controls/Appearance.h"

namespace {

constexpr int kLeastWidth = 210;  // of the text
constexpr int kMostWidth = 320;
constexpr int kOverButtons = 20;

// The toolkit indents the text, and keeps a line over it for a message, though there is none.
void layOut(QMessageBox& box) {
  auto* const grid = qobject_cast<QGridLayout*>(box.layout());
  if (grid == nullptr) return;
  if (grid->itemAt(0)->spacerItem() != nullptr) delete grid->takeAt(0);
  grid->setContentsMargins(28, 24, 28, 20);
  grid->setHorizontalSpacing(0);
  grid->setVerticalSpacing(kOverButtons);
  if (auto* const message = box.findChild<QWidget*>("qt_msgbox_label")) message->hide();
}

// As wide as its line, or wrapped.
void fit(QLabel& text) {
  text.setTextFormat(Qt::PlainText);  // names of files are no markup
  text.setContentsMargins(0, 0, 0, 0);
  text.ensurePolished();
  const int line = text.fontMetrics().horizontalAdvance(text.text()) + 1;
  text.setMinimumWidth(std::clamp(line, Appearance::lineWidth(kLeastWidth, text.font()),
                                  Appearance::lineWidth(kMostWidth, text.font())));
}

}  // namespace

QMessageBox* Alert::question(QWidget* parent, const QString& informativeText) {
  auto* const box = new QMessageBox(parent);
  box->setAttribute(Qt::WA_DeleteOnClose);
  box->setWindowTitle(QLatin1String(kProduct));
  box->setIcon(QMessageBox::NoIcon);
  box->setText(QString());
  box->setInformativeText(informativeText);
  layOut(*box);
  if (auto* const text = box->findChild<QLabel*>("qt_msgbox_informativelabel")) fit(*text);
  return box;
}

QMessageBox* Alert::show(QWidget* parent, const QString& informativeText) {
  QMessageBox* const alert = question(parent, informativeText);
  alert->addButton(QApplication::translate("Alert", "Ok"), QMessageBox::AcceptRole);
  alert->open();
  return alert;
}
