// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "midi/alsa/AlsaWire.h"

#include <array>
#include <cstdlib>
#include <string_view>

#include "midi/MIDIReceiveBuffer.h"

namespace {

constexpr std::size_t kLongestShortMessage = 32;

AlsaEvent::Announcement announcementOf(snd_seq_event_type_t type) {
  using enum AlsaEvent::Announcement;
  if (type == SND_SEQ_EVENT_CLIENT_EXIT) return ClientGone;
  if (type == SND_SEQ_EVENT_PORT_EXIT) return PortGone;
  const bool isOther = type == SND_SEQ_EVENT_CLIENT_START || type == SND_SEQ_EVENT_CLIENT_CHANGE ||
                       type == SND_SEQ_EVENT_PORT_START || type == SND_SEQ_EVENT_PORT_CHANGE;
  return isOther ? Other : None;
}

/// Whole, and no SysEx message or part of one.
bool isShortMessage(const std::vector<std::uint8_t>& bytes) {
  return !bytes.empty() && bytes[0] >= 0x80 && bytes[0] != MIDIReceiveBuffer::kSysExStart &&
         bytes[0] != MIDIReceiveBuffer::kSysExEnd && bytes.size() <= 3;
}

/// Carries pieces of a MIDI 1.0 byte stream.
class AlsaByteWire final : public AlsaWire {
 public:
  explicit AlsaByteWire(snd_seq_t* sequencer) : _sequencer(sequencer) {
    if (snd_midi_event_new(kLongestShortMessage, &_coder) < 0) _coder = nullptr;
    if (_coder != nullptr) snd_midi_event_no_status(_coder, 1);
  }
  ~AlsaByteWire() override {
    if (_coder != nullptr) snd_midi_event_free(_coder);
  }

  [[nodiscard]] MIDIPacketKind kind() const override { return MIDIPacketKind::BytePackets; }

  int read(AlsaEvent& event) override {
    snd_seq_event_t* raw = nullptr;
    const int status = snd_seq_event_input(_sequencer, &raw);
    if (status < 0) return status;
    if (raw == nullptr) return -EAGAIN;
    event = headOf(*raw);
    if (event.announcement == AlsaEvent::Announcement::None) event.payload.bytes = bytesOf(*raw);
    return status;
  }

  int write(std::uint8_t port, AlsaAddress to, const AlsaPayload& payload) override {
    snd_seq_event_t raw;
    snd_seq_ev_clear(&raw);
    isShortMessage(payload.bytes) ? encode(payload.bytes, raw) : refer(payload.bytes, raw);
    snd_seq_ev_set_source(&raw, port);
    snd_seq_ev_set_dest(&raw, to.client, to.port);
    snd_seq_ev_set_direct(&raw);
    return snd_seq_event_output_direct(_sequencer, &raw);
  }

 private:
  void encode(const std::vector<std::uint8_t>& bytes, snd_seq_event_t& raw) const {
    if (_coder == nullptr) return;
    snd_midi_event_reset_encode(_coder);
    snd_midi_event_encode(_coder, bytes.data(), static_cast<long>(bytes.size()), &raw);
  }

  static void refer(const std::vector<std::uint8_t>& bytes, snd_seq_event_t& raw) {
    raw.type = SND_SEQ_EVENT_SYSEX;
    raw.flags = SND_SEQ_EVENT_LENGTH_VARIABLE;
    raw.data.ext.len = static_cast<unsigned>(bytes.size());
    // Only read from: the sequencer's record has no other pointer.
    raw.data.ext.ptr = const_cast<std::uint8_t*>(bytes.data());
  }

  [[nodiscard]] std::vector<std::uint8_t> bytesOf(const snd_seq_event_t& raw) const {
    if (raw.type == SND_SEQ_EVENT_SYSEX) {
      const auto* bytes = static_cast<const std::uint8_t*>(raw.data.ext.ptr);
      return {bytes, bytes + raw.data.ext.len};
    }
    std::array<std::uint8_t, kLongestShortMessage> bytes{};
    if (_coder == nullptr || snd_seq_ev_is_variable(&raw)) return {};
    const long size = snd_midi_event_decode(_coder, bytes.data(), bytes.size(), &raw);
    return {bytes.begin(), bytes.begin() + std::max(size, 0L)};
  }

  snd_seq_t* _sequencer;
  snd_midi_event_t* _coder = nullptr;
};

}  // namespace

AlsaEvent AlsaWire::headOf(const snd_seq_event_t& raw) {
  AlsaEvent event;
  event.source = {raw.source.client, raw.source.port};
  event.port = raw.dest.port;
  if (raw.source.client != SND_SEQ_CLIENT_SYSTEM) return event;
  event.announcement = announcementOf(raw.type);
  event.subject = {raw.data.addr.client, raw.data.addr.port};
  return event;
}

std::unique_ptr<AlsaWire> makeAlsaByteWire(snd_seq_t* sequencer) {
  return std::make_unique<AlsaByteWire>(sequencer);
}

std::optional<MIDIPacketKind> alsaKindOfEnvironment() {
  const char* wanted = std::getenv("MIXDECK_MIDI");
  const std::string_view kind = wanted == nullptr ? "" : wanted;
  if (kind == "bytes") return MIDIPacketKind::BytePackets;
  if (kind == "ump") return MIDIPacketKind::EventLists;
  return std::nullopt;
}

std::unique_ptr<AlsaWire> chooseAlsaWire(snd_seq_t* sequencer, std::optional<MIDIPacketKind> kind) {
  std::unique_ptr<AlsaWire> wire;
  if (kind != MIDIPacketKind::BytePackets) wire = makeAlsaEventWire(sequencer);
  if (!wire && kind != MIDIPacketKind::EventLists) wire = makeAlsaByteWire(sequencer);
  return wire;
}
