// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/TakeInformant.h"

TakeInformant::TakeInformant(QWidget& window, const TakeSession& take, const MeasuredTake& measured,
                             QObject* parent)
    : QObject(parent), _window(window), _take(take), _measured(measured) {}

void TakeInformant::show(const std::filesystem::path& file) {
  TakeInformation::Subject subject{file, _measured.width(), _measured.gain()};
  if (_take.isOpen() && _take.file() == file) subject.analysis = _measured.analysis();
  std::erase_if(_shown, [](const auto& shown) { return shown.second.isNull(); });
  if (TakeInformation* const before = _shown[file]) {
    if (before->isAt(subject.width, subject.gain)) return before->bringUp();
    before->close();
  }
  auto* const information = new TakeInformation(subject, &_window);
  information->setParentFrame(_window.window()->frameGeometry());
  information->show();
  _shown[file] = information;
}
