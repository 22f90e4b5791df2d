// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/TakeInformant.h"

#include "dialogs/TakeInformation.h"

TakeInformant::TakeInformant(QWidget& window, const TakeSession& take, const MeasuredTake& measured,
                             QObject* parent)
    : QObject(parent), _window(window), _take(take), _measured(measured) {}

void TakeInformant::show(const std::filesystem::path& file) {
  TakeInformation::Subject subject{file, _measured.width(), _measured.gain()};
  if (_take.isOpen() && _take.file() == file) subject.analysis = _measured.analysis();
  auto* const information = new TakeInformation(subject, &_window);
  information->setParentFrame(_window.window()->frameGeometry());
  information->show();
}
