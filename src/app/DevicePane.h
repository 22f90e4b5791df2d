// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <cstdint>
#include <memory>

#include "app/DeviceView.h"
#include "midi/RecorderLink.h"

/// Shows the recorder that is connected, and changes its settings. It changes only when the
/// recorder has told what it is, tells more or goes, and when the user chooses. Interface thread.
class DevicePane : public QObject {
  Q_OBJECT

 public:
  /// The view outlives the pane.
  explicit DevicePane(DeviceView& view, QObject* parent = nullptr);

  /// What the transport tells goes here.
  [[nodiscard]] RecorderLink& link() { return _link; }

  /// Shows what is known of the recorder, or that there is none.
  void showRecorder(bool isConnected);
  /// The user has chosen an item. Its value is in the record before the recorder has acknowledged
  /// it; the value that is there already is not sent.
  void batteryChosen();
  void autoPowerOffChosen();

 signals:
  /// A setting was pressed while there is no recorder.
  void recorderMissing();
  /// A recorder has come, or the one that was there has gone.
  void connectionChanged(bool isConnected);

 private:
  void connectControls();
  void show();
  void showCard(const TARNDeviceInfo& info);
  void showSettings(const TARNDeviceInfo& info);
  void clear();

  DeviceView& _view;
  std::shared_ptr<TARNDeviceInfo> _info;
  bool _isConnected = false;
  RecorderLink _link;
};
