// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "desktop/AddressOpener.h"

#include <QProcess>
#include <QStringList>
#include <string>

void AddressOpener::open(const QString& address, const Failed& failed) {
  const auto fail = [failed](const std::string& /*why*/ = {}) {
    if (failed) failed();
  };
  const auto start = [address, fail]() -> Errand::Outcome {
    if (QProcess::startDetached(QStringLiteral("xdg-open"), {address})) return [] {};
    return [fail] { fail(); };
  };
  if (!_start.begin(start, fail)) fail();
}
