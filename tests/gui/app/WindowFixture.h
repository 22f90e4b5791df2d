// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <gmock/gmock.h>

#include <QAbstractButton>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "app/WindowController.h"
#include "gui/controls/Hands.h"
#include "midi/MIDIManager.h"
#include "midi/MIDISequenceManager.h"
#include "midi/simulator/SimulatedLink.h"
#include "playback/memory/MemoryOutput.h"
#include "support/LogLines.h"
#include "support/OwnSettings.h"
#include "support/Screen.h"
#include "support/SteppedMIDIClock.h"
#include "support/TemporaryFolder.h"

/// The whole window with a home, settings and recordings of its own, an output on a virtual clock,
/// and a recorder that can be plugged in.
class WindowFixture : public testing::Test, protected Screen {
 protected:
  explicit WindowFixture(MIDIPacketKind kind = MIDIPacketKind::BytePackets);
  ~WindowFixture() override;

  /// Makes the window, shows it, and waits for the first listing.
  void start(const std::filesystem::path& path = {}) { startWith({path}); }
  /// As `start`, with several files on the command line.
  void startWith(const std::vector<std::filesystem::path>& files);
  /// As `start` on the folder of the takes, without the introduction.
  void startOnTakes();
  /// Ends the window, as a new start of the program would.
  void end();

  /// A recording of so many frames in the folder of the takes: 24 bits, or floats; raw Mid/Side or
  /// not. Mid is 0.5 and Side 0.25 throughout.
  std::filesystem::path take(const std::string& name, std::uint32_t frames = 480'000,
                             bool isRaw = true, bool isFloat = false) const;
  /// The same, broken off: the sizes of the file and of its sound are those of the beginning.
  std::filesystem::path brokenTake(const std::string& name) const;
  std::filesystem::path file(const std::string& name) const;
  std::filesystem::path folder(const std::string& name) const;

  /// Lets the event loop run until it holds; fails the test where it never does.
  static void waitFor(const std::function<bool()>& condition, const char* what);
  /// Until it is known whether what was asked for is there.
  void waitForLook();
  /// Lists again and waits for the answer.
  void refresh();
  [[nodiscard]] std::vector<std::string> rows() const;
  [[nodiscard]] int rowOf(const std::string& name) const;
  [[nodiscard]] std::string selected() const;
  /// Of several the names from the top.
  [[nodiscard]] std::vector<std::string> allSelected() const;
  /// Real clicks on the row with this name.
  void clickRow(const std::string& name);
  void doubleClickRow(const std::string& name);
  /// Opens the take by a double click, and waits until it plays.
  void open(const std::string& name);
  /// Does what opens a take, and waits until it is known what came of it.
  void waitForTake(const std::function<void()>& open);
  /// Lets music play; the timers of the window do not run by themselves meanwhile. Unless told that
  /// the medium is slow, time stands still until what is to be heard has been read.
  void play(int milliseconds);
  /// Until what the meters show next is at hand; the time limit of the test is the only one.
  void letLevelsArrive();

  void plugIn();
  void pullOut();

  /// Presses the button with this text in a dialog.
  static void press(QWidget* dialog, const QString& text);
  void closeAlert(const QString& text);

  [[nodiscard]] ViewController& controller() { return window->viewController(); }
  [[nodiscard]] MainView& view() const { return window->window(); }
  [[nodiscard]] StageView& stage() const { return *view().player->stage; }
  /// Moves the gain slider and tells of it, as a hand does.
  void setGain(double dB) {
    stage().sliderGain->setValue(dB);
    controller().sliderGainValueChanged(stage().sliderGain);
  }
  [[nodiscard]] WavePlayer& player() { return *controller().wavPlayer(); }
  [[nodiscard]] PlayState state() { return player().play_state(); }

  OwnSettings own;
  TemporaryFolder takes;
  LogLines log;
  VirtualClock clock;
  MemoryOutput* output = nullptr;
  int outputsMade = 0;
  bool isMediumFast = true;

  std::shared_ptr<SteppedMIDIClock> midiClock = std::make_shared<SteppedMIDIClock>();
  SimulatedLink link;
  std::unique_ptr<MIDIManager> manager;
  std::unique_ptr<MIDISequenceManager> sequences;
  std::unique_ptr<WindowController> window;
};
