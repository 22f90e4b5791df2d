// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>

#include "midi/MIDIClock.h"
#include "midi/MIDISystem.h"

class AlsaClosing;
class AlsaEndpointTable;
class AlsaOutput;
class AlsaSequencer;
class AlsaSettling;
class DeviceNodeWatch;
class QSocketNotifier;
struct AlsaEvent;
struct AlsaPayload;

/// The MIDI of Linux: the ALSA sequencer, with everything that can be played to or recorded from
/// as an endpoint. An endpoint's name is that of its client, then that of its port.
///
/// Universal MIDI Packets are carried where both alsa-lib and the kernel know them, byte packets
/// elsewhere. Where there is no sequencer there are no endpoints; it is tried again whenever the
/// device node changes, and each second after one was lost; what is plugged in when there is one is
/// told as an addition. Where the sequencer refuses to announce what comes and goes, that is a line
/// in the log, and it is asked again each second.
///
/// Interface thread only: the sequencer's descriptor is in the event loop of the thread that calls
/// `create`, which needs a QCoreApplication. Nothing waits for the kernel, which plays out what a
/// driver was still given: where that may be, the whole client is left to a thread that ends it,
/// and there is a new one. Only where no thread can be had is it ended here, for which the kernel
/// may take ten seconds. The end waits a tenth of a second for such threads. It must not be
/// destroyed while it calls. Set-up changes are reported when they have settled, some 150 ms after
/// the last of a burst.
class AlsaMIDISystem final : public MIDISystem {
 public:
  struct Options {
    /// The node whose coming and going is watched. Another than the default is for tests: the
    /// sequencer is opened only where this node can be.
    std::string devicePath = "/dev/snd/seq";
    /// None: the real time.
    std::shared_ptr<MIDIClock> clock;
    /// None: as the variable MIXDECK_MIDI says ("bytes" or "ump"), else the best there is. A kind
    /// that is asked for and not there means: no sequencer.
    std::optional<MIDIPacketKind> kind;
  };

  /// The library that leads to the sequencer, with its version. Any thread.
  static std::string library();

  /// Always gives a system.
  static std::shared_ptr<AlsaMIDISystem> create(Options options);
  static std::shared_ptr<AlsaMIDISystem> create() { return create(Options()); }
  ~AlsaMIDISystem() override;

  /// Why there is no sequencer, as a sentence for people; empty while there is one.
  [[nodiscard]] const std::string& unavailableReason() const { return _reason; }
  /// Called whenever the reason has changed; an empty one takes the observer away.
  void setAvailabilityObserver(std::function<void()> observer) { _observer = std::move(observer); }

  /// Settled when the sequencer is first there; byte packets until then.
  [[nodiscard]] MIDIPacketKind packetKind() const override;
  MIDIObjectRef createClient(std::string_view name, MIDISystemClient& client) override;
  [[nodiscard]] std::vector<MIDIEndpoint> endpoints(MIDIDirection direction) const override;
  MIDICreatedPort createPort(MIDIObjectRef client, MIDIDirection direction,
                             std::string_view name) override;
  void connectSource(MIDIObjectRef port, MIDIObjectRef source) override;
  void disconnectSource(MIDIObjectRef port, MIDIObjectRef source) override;
  void dispose(MIDIObjectRef object) override;
  void send(MIDIObjectRef port, MIDIObjectRef destination, MIDIPacketList packets) override;
  void send(MIDIObjectRef port, MIDIObjectRef destination, MIDIEventList events) override;
  void flushOutput(MIDIObjectRef endpoint) override;

 private:
  struct Client {
    std::string name;
    MIDISystemClient* told;
  };
  struct Port;

  explicit AlsaMIDISystem(Options options);
  void start();
  void open();
  void adopt(std::unique_ptr<AlsaSequencer> sequencer);
  void hearAnnouncements();
  void lose(int status);
  void setReason(std::string reason);

  void readable();
  void take(AlsaEvent& event);
  void announced(const AlsaEvent& event);
  void deliverBytes(const AlsaEvent& event);
  void deliverWords(const AlsaEvent& event);
  template <class List>
  void hand(const AlsaEvent& event, List list);
  void relist();
  void tell(std::int32_t messageID);
  [[nodiscard]] Port* listener(const AlsaEvent& event);
  [[nodiscard]] Port* find(MIDIObjectRef port, MIDIDirection direction);
  void enqueue(MIDIObjectRef port, MIDIObjectRef destination, AlsaPayload payload);
  void giveUpSequencer();
  void renewSequencer();
  /// 0, or the error of a port that was refused.
  int restore(Port& port);
  void closePort(const Port& port);
  [[nodiscard]] bool holdsDevice(const Port& port) const;
  void subscribe(Port& output, MIDIObjectRef destination);
  void hear(Port& input, MIDIObjectRef source);
  void tryAgainLater();
  void tryAgain();

  Options _options;
  std::string _reason;
  std::function<void()> _observer;
  MIDIObjectRef _last = 0;
  std::map<MIDIObjectRef, Client> _clients;
  std::map<MIDIObjectRef, std::unique_ptr<Port>> _ports;
  std::unique_ptr<AlsaEndpointTable> _table;
  std::unique_ptr<AlsaClosing> _closing;
  std::unique_ptr<AlsaSequencer> _sequencer;
  bool _isDeaf = false;  ///< to announcements, which were refused
  std::unique_ptr<AlsaOutput> _output;
  std::unique_ptr<AlsaSettling> _settling;
  std::unique_ptr<QSocketNotifier> _notifier;
  std::unique_ptr<DeviceNodeWatch> _watch;
  std::unique_ptr<MIDITimer> _again;
};
