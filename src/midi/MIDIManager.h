// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

#include "midi/MIDIClock.h"
#include "midi/MIDIManagerDelegate.h"
#include "midi/MIDIPacketListBuffer.h"
#include "midi/MIDISystem.h"

/// The connection to the recorder: finds its two endpoints by name, opens the ports, sends SysEx
/// messages and hands received packets to the delegate. What the bytes mean is not known here.
///
/// No error is reported but through the delegate. Interface thread only.
class MIDIManager final : private MIDISystemClient {
 public:
  enum State : std::int64_t {
    Disconnected = 0,
    Scan = 1,  ///< has a name, is never entered
    Found = 2,
    Connecting = 3,
    Waiting = 4,  ///< ports open, waiting for the connected timer
    Connected = 5
  };

  /// The one of the process, made on first use.
  static MIDIManager& get();

  /// A client of the installed platform; becomes the one of the process.
  MIDIManager();
  MIDIManager(const MIDIManager&) = delete;
  MIDIManager& operator=(const MIDIManager&) = delete;
  ~MIDIManager() override;

  /// Looks for the recorder: `MIDIManagerFound` when it is there and was not known yet,
  /// `DeviceDisconnected` when it is not.
  void scanTarnDevice();
  /// Opens the link to the recorder that was found; only in state 2.
  void connect();
  /// Closes the link, and tells, unless it was not open.
  void DeviceDisconnected();

  /// Sends one SysEx message from F0 to F7. With event lists, bytes that do not begin with F0 are
  /// not sent at all.
  void send(const std::uint8_t* bytes, std::int64_t size);

  [[nodiscard]] std::int64_t state() const { return _state; }
  void changeStateTo(std::int64_t state);

  /// One second from now: connected, if the state is still 4.
  void startTimerConnected();
  void stopTimerConnected();

  /// True when a destination (source) of the recorder is there; it is kept for `connect`.
  bool isHasWritingEndpoint();
  bool isHasReadingEndpoint();
  /// Makes the input port; 0 = success, else the system's code.
  std::int32_t buildPortForReadDataFromHW(MIDIObjectRef client);
  /// Closes both ports. Does nothing but stop the timer unless there are an input port and a
  /// source.
  void clean_up();
  /// Hands each packet to the delegate.
  void receiveForMacOS11(MIDIEventList events);

  /// Held weakly; none once it is gone.
  [[nodiscard]] MIDIManagerDelegate* delegate() const;
  void setDelegate(MIDIManagerDelegate* delegate);

  /// "DISCONNECTED", "SCAN", "FOUND", "CONNECTING", "CONNECTED", else "". No program calls it; the
  /// name is the system's interface's.
  static std::string_view stateToString(std::int64_t state);

 private:
  void setupChanged(std::int32_t messageID) override;
  void received(MIDIPacketList packets) override;
  void received(MIDIEventList events) override;

  [[nodiscard]] bool usesEventLists() const;
  bool findEndpoint(MIDIDirection direction, MIDIObjectRef& found) const;
  void closeLeftOverPort();
  void sendForMacOS11(const std::uint8_t* bytes, std::int64_t size);
  void sendForMacOS10(const std::uint8_t* bytes, std::int64_t size);
  void sendPacketBuffer();

  std::shared_ptr<MIDISystem> _system;
  MIDIObjectRef _client = 0;
  MIDIObjectRef _write_endpoint = 0;
  MIDIObjectRef _read_endpoint = 0;
  MIDIObjectRef _writePort = 0;
  MIDIObjectRef _readPort = 0;
  MIDIObjectRef _write_endpoint_tmp = 0;
  MIDIObjectRef _read_endpoint_tmp = 0;
  std::int64_t _state = Disconnected;
  std::unique_ptr<MIDITimer> _timer_connected;
  MIDIPacketListBuffer _packetBuffer;
  MIDIManagerDelegate* _delegate = nullptr;
  std::weak_ptr<const void> _delegateLife;
};
