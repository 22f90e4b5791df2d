// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <gmock/gmock.h>

#include <QApplication>
#include <QFont>

#include "base/FreedMemory.h"
#include "controls/Language.h"

int main(int argc, char** argv) {
  FreedMemory::goesBack();  // as in the program
  qputenv("QT_QPA_PLATFORM", "offscreen");
  testing::InitGoogleMock(&argc, argv);
  const QApplication application(argc, argv);
  Language::use(QStringLiteral("en"));
  QFont font(QStringLiteral("Inter"));
  font.setPixelSize(13);
  QApplication::setFont(font);
  return RUN_ALL_TESTS();
}
