// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QTimer>
#include <filesystem>
#include <memory>
#include <string>

#include "app/BrowserPane.h"
#include "app/DevicePane.h"
#include "app/FolderBrowser.h"
#include "app/MainView.h"
#include "app/PlayerPane.h"
#include "base/NotificationCenter.h"
#include "dialogs/ExportDesk.h"
#include "export/Export.h"
#include "midi/MIDIManagerDelegate.h"
#include "playback/WavePlayer.h"
#include "queue/ExportQueue.h"

class DialogWindow;

/// The spine of the program: browses a folder, plays one recording, keeps the export job of it, and
/// shows the recorder that is connected.
///
/// Its operations stand in three sources: browsing, playback, device. The view outlives it. After
/// the constructor the owner calls `viewDidLoad` once and, when the view is on the screen,
/// `viewDidAppear` once. Interface thread.
class ViewController : public QObject,
                       public WavePlayerDelegate,
                       public AngleViewerDelegate,
                       public GainTickTitleDelegate,
                       public J4GainSliderParent,
                       public MIDIManagerDelegate {
  Q_OBJECT

 public:
  /// Where `showHelp` leads.
  static constexpr const char* kHelpAddress = "https://mixdeck.example/help";

  explicit ViewController(MainView& view);
  ~ViewController() override;

  // Life cycle and browsing.

  void viewDidLoad();
  /// Opens the folder of the last time, or what `setStart` says; lists it every five seconds from
  /// then on; introduces the program where that is due.
  void viewDidAppear();
  /// A folder to begin with, or a recording to begin with in its folder.
  void setStart(std::filesystem::path path) { _start = std::move(path); }
  /// True when the program may end. While an export runs it asks, and answers false; when the user
  /// wants the end, the export is cancelled and `endRequested` follows.
  bool mayEnd();

  void notify(const Notification& event);

  /// Remembers the folder and shows it.
  void openFolder(const std::filesystem::path& folder) { _browser.openFolder(folder); }
  /// Lists the folder again, in the background.
  void updateFileBrowser() { _browser.refresh(); }
  void autoResizeColumn() { _browserPane.autoResizeColumn(); }
  /// Opens what is selected: goes into a folder, plays a file. Also what Return does.
  void table_cell_double_click() { _browserPane.openSelected(); }
  void btnGoUp_Click() { _browser.goUp(); }
  void txtFolder_Click() { _browserPane.askForFolder(); }
  void btnOpenFolder_Click() { txtFolder_Click(); }
  void btnAbout_Click();
  void showIntroduction();
  void showHelp();
  void showNoDevice();
  /// Keys that no control has taken; all are taken here.
  void keyDown(const QKeyEvent& event);
  void keyUp(const QKeyEvent& event);

  // Playback.

  void openWavFile(const WavItem& item);
  /// Does nothing while the button is disabled, so that a key may call it too.
  void btnPlay_Click();
  void sliderVolValueChanged(AdjustCause cause);
  void btnVolume_Click();
  void updateVolumeIcon(float volume);
  void sliderTimeValueChanged(AdjustCause cause);
  void sliderGainValueChanged(J4GainSlider* slider) override;
  void GainTickTitle(class GainTickTitle* scale, const QString& clickAt) override;
  void angleViewer(AngleViewer* dial, double angleChanged) override;
  void btnExport_Click();

  void startCurrentTimeTimer();
  void stopCurrentTimeTimer();
  void refreshUIWhenPlay();
  void sliderTimerUpdate();
  /// Shows the levels of the next `interval` seconds, as far as they are loaded.
  void updateLevelMeter(double interval);
  void updatePlayStateUI();

  void WavePlayerStateChanged() override;
  void WavePlayerLevelChanged(double left, double right) override;
  void WavePlayerOutputLost(const std::string& message) override;

  // Device.

  void MIDIManagerFound() override;
  void MIDIManagerConnected() override;
  void MIDIManagerDisconnected() override;
  void MIDIManagerReceivedData(const MIDIEventPacket& packet) override;
  void MIDIManagerReceivedData_iOS13(const MIDIPacket& packet, bool isLast) override;
  void MIDIManagerUpdateInfo(bool isConnected);
  void popupBattery_SelectionChanged();
  void popupAutoPow_SelectionChanged();

  [[nodiscard]] MainView& view() const { return _view; }
  [[nodiscard]] const std::filesystem::path& urlOfFileList() const {
    return _browser.requestedFolder();
  }
  /// Null until the first listing has come.
  [[nodiscard]] const std::shared_ptr<const FolderHelper>& folderHelper() const {
    return _browser.listing();
  }
  [[nodiscard]] WavePlayer* wavPlayer() const { return _wavPlayer.get(); }
  /// The job of the loaded file; null without one.
  [[nodiscard]] const std::shared_ptr<Export>& exportJob() const { return _export; }
  /// The exports that run or wait.
  [[nodiscard]] ExportQueue& exportQueue() { return _exportQueue; }
  [[nodiscard]] const QString& versionString() const { return _versionString; }
  [[nodiscard]] bool isMuteVolume() const { return _isMuteVolume; }

 signals:
  void endRequested();
  /// The list shows what the folder held a moment ago.
  void listed();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void initUI();
  void initMIDI();
  void initSliders();
  void connectPlayback();
  void connectExports();
  void connectMenu();
  void present(DialogWindow* dialog) const;

  void showIdle();
  void showLoaded(const WavItem& item);
  void makePlayer(const WavItem& item);
  void dropFile();
  void unload();
  void rememberSound();
  void seekTo(double position);
  void showGain();
  void showFailures();

  MainView& _view;
  std::unique_ptr<WavePlayer> _wavPlayer;
  std::shared_ptr<Export> _export;
  std::shared_ptr<J4SliderCell> _sliderVolumeCell;
  std::shared_ptr<J4SliderCell> _sliderTimeCell;
  std::shared_ptr<J4SliderCell> _sliderGainCell;
  QTimer _timerUpdateCurrentTime{this};
  QTimer _timerLevel{this};
  double _lastVolume = 0.0;
  bool _isMuteVolume = false;
  bool _isSeeking = false;  ///< a seek was asked for and the player has not played since
  bool _firstIntroDialog = false;
  QString _versionString;
  double _gain_before_pause = 0.0;
  double _stereo_before_pause = 0.0;

  PlayerPane _pane;
  FolderBrowser _browser{this};
  BrowserPane _browserPane;
  DevicePane _device;
  std::filesystem::path _start;
  double _volumeBefore = 0.0;  ///< before the last movement of the slider
  bool _isSpaceDown = false;
  QString _fileName;  ///< of the loaded recording
  bool _isEnding = false;
  ExportQueue _exportQueue;
  ExportDesk _exportDesk{_exportQueue, _view};
  std::shared_ptr<ViewController> _self;  ///< owns nothing; delegates hold it weakly
};
