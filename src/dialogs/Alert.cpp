// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "dialogs/Alert.h"

#include <QApplication>

QMessageBox* Alert::show(QWidget* parent, const QString& informativeText) {
  auto* const alert = new QMessageBox(parent);
  alert->setAttribute(Qt::WA_DeleteOnClose);
  alert->setWindowTitle(QStringLiteral("TARN J4 Mixdeck"));
  alert->setIcon(QMessageBox::NoIcon);
  alert->setText(QString());
  alert->setInformativeText(informativeText);
  alert->addButton(QApplication::translate("Alert", "Ok"), QMessageBox::AcceptRole);
  if (auto* const message = alert->findChild<QWidget*>("qt_msgbox_label")) message->hide();
  alert->open();
  return alert;
}
