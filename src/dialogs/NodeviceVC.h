// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include "dialogs/DialogWindow.h"

/// Tells that no recorder is connected. `open` shows it; it deletes itself when it is closed.
/// Interface thread.
class NodeviceVC : public DialogWindow {
  Q_OBJECT

 public:
  explicit NodeviceVC(QWidget* parent = nullptr);

  void btnOK_Click();

 protected:
  void initWindowUI() override;
};
