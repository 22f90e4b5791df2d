// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <filesystem>
#include <memory>
#include <vector>

#include "app/WindowPanes.h"
#include "app/WindowWiring.h"
#include "base/NotificationCenter.h"
#include "midi/MIDIManagerDelegate.h"

/// The system's names for all that happens in the window. Each hands on to the class whose concern
/// it is; what is left here is what the system's names do to several at once, and that the
/// program's events and the recorder's link are told to it.
///
/// The view outlives it. After the constructor the owner calls `viewDidLoad` once and, when the
/// view is on the screen, `viewDidAppear` once. Interface thread.
class ViewController : public QObject, public MIDIManagerDelegate {
  Q_OBJECT

 public:
  explicit ViewController(MainView& view);
  ~ViewController() override;

  // Life cycle and browsing.

  void viewDidLoad();
  /// Opens the folder of the last time, or what `setStart` says; introduces the program where that
  /// is due.
  void viewDidAppear() { _panes.start.appear(); }
  /// A folder to begin with, or a recording to begin with in its folder.
  void setStart(const std::filesystem::path& path) { _panes.start.set({path}); }
  /// Opens the first of these, a folder or a recording, and selects with a recording those others
  /// that are in its folder.
  void open(const std::vector<std::filesystem::path>& files) { _panes.start.open(files); }
  bool mayEnd() { return _panes.ending.mayEnd(); }
  void notify(const Notification& event);

  void openFolder(const std::filesystem::path& folder) { _panes.browser.openFolder(folder); }
  void updateFileBrowser() { _panes.browser.refresh(); }
  void autoResizeColumn() { _panes.files.autoResizeColumn(); }
  void table_cell_double_click() { _panes.files.openSelected(); }
  void btnGoUp_Click() { _panes.browser.goUp(); }
  void txtFolder_Click() { _panes.files.askForFolder(); }
  void btnOpenFolder_Click() { txtFolder_Click(); }
  void btnAbout_Click() { _panes.commands.showAbout(); }
  void showIntroduction() { _panes.commands.showIntroduction(); }
  void showHelp() { _panes.commands.showHelp(); }
  void showNoDevice() { _panes.commands.showNoDevice(); }
  void keyDown(const QKeyEvent& event) { _panes.commands.keyDown(event); }
  void keyUp(const QKeyEvent& event) { _panes.commands.keyUp(event); }

  // Playback.

  void openWavFile(const WavItem& item) { _panes.take.open(item.fileName, item.fullPath); }
  void btnPlay_Click() { _panes.transport.playOrPause(); }
  void sliderVolValueChanged(AdjustCause cause) { _panes.sound.volumeAdjusted(cause); }
  void btnVolume_Click() { _panes.sound.toggleMute(); }
  void updateVolumeIcon(float volume) { _panes.sound.showVolume(volume); }
  void sliderTimeValueChanged(AdjustCause cause) { _panes.transport.positionAdjusted(cause); }
  void sliderGainValueChanged(J4GainSlider* slider) { _panes.sound.sliderGainValueChanged(slider); }
  void GainTickTitle(class GainTickTitle* scale, const QString& clickAt);
  void angleViewer(AngleViewer* dial, double angle) { _panes.sound.angleViewer(dial, angle); }
  void btnExport_Click() { _panes.commands.askForExport(); }

  void startCurrentTimeTimer();
  void stopCurrentTimeTimer();
  void refreshUIWhenPlay();
  void sliderTimerUpdate() { _panes.transport.refresh(); }
  void updateLevelMeter(double interval) { _panes.levels.update(interval); }
  void updatePlayStateUI();

  void WavePlayerStateChanged() { _panes.take.WavePlayerStateChanged(); }
  void WavePlayerLevelChanged(double left, double right);

  // Device.

  void MIDIManagerFound() override;
  void MIDIManagerConnected() override;
  void MIDIManagerDisconnected() override;
  void MIDIManagerReceivedData(const MIDIEventPacket& packet) override;
  void MIDIManagerReceivedData_iOS13(const MIDIPacket& packet, bool isLast) override;
  void MIDIManagerUpdateInfo(bool isConnected) { _panes.device.showRecorder(isConnected); }
  void popupBattery_SelectionChanged() { _panes.device.batteryChosen(); }
  void popupAutoPow_SelectionChanged() { _panes.device.autoPowerOffChosen(); }

  [[nodiscard]] MainView& view() const { return _view; }
  [[nodiscard]] TakeSession& take() { return _panes.take; }
  /// Fewer pictures, for a desktop that wants less motion.
  void reduceMotion(bool isReduced) { _panes.scope.reduceMotion(isReduced); }
  /// The take and its folder, for a desktop that controls them from afar.
  [[nodiscard]] RemotePlayer& remote() { return _panes.remote; }
  [[nodiscard]] const FolderBrowser& browser() const { return _panes.browser; }
  [[nodiscard]] const std::filesystem::path& urlOfFileList() const;
  /// Null until the first listing has come.
  [[nodiscard]] const std::shared_ptr<const FolderHelper>& folderHelper() const;
  [[nodiscard]] WavePlayer* wavPlayer() const { return _panes.take.player(); }
  /// The job of the loaded file; null without one.
  [[nodiscard]] const std::shared_ptr<Export>& exportJob() const { return _panes.take.job(); }
  /// The exports that run or wait.
  [[nodiscard]] ExportQueue& exportQueue() { return _panes.exports; }
  /// What is done between cards and disk.
  [[nodiscard]] CardDesk& cards() { return _panes.cards; }
  [[nodiscard]] const QString& versionString() const { return _panes.commands.versionString(); }
  [[nodiscard]] bool isMuteVolume() const { return _panes.sound.isMuted(); }

 signals:
  void endRequested();
  /// These files are to be shown in the desktop's file manager.
  void showFilesRequested(const std::vector<std::filesystem::path>& files);
  /// The list shows what the folder held a moment ago.
  void listed();

 private:
  void initMIDI();

  MainView& _view;
  WindowPanes _panes;
  WindowWiring _wiring{_panes};
};
