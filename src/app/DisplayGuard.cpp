// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/DisplayGuard.h"

#include <QString>
#include <QtGlobal>
#include <cstdio>
#include <cstdlib>

namespace {

void endWithoutDisplay() {
  std::fputs("mixdeck: no display can be reached; the tool mixdeck-cli works without one\n",
             stderr);
  std::_Exit(EXIT_FAILURE);
}

// Warnings before the end only say the same in more words.
void onMessage(QtMsgType type, const QMessageLogContext& /*context*/, const QString& /*message*/) {
  if (type == QtFatalMsg) endWithoutDisplay();
}

bool isSet(const char* variable) {
  const char* const value = std::getenv(variable);
  return value != nullptr && *value != '\0';
}

}  // namespace

DisplayGuard::DisplayGuard() {
  if (!isSet("QT_QPA_PLATFORM") && !isSet("DISPLAY") && !isSet("WAYLAND_DISPLAY")) {
    endWithoutDisplay();
  }
  qInstallMessageHandler(onMessage);
}

DisplayGuard::~DisplayGuard() {
  qInstallMessageHandler(nullptr);
}
