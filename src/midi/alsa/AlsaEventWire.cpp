// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <alsa/asoundlib.h>

#include <algorithm>

#include "midi/alsa/AlsaWire.h"

namespace {

constexpr std::size_t kMostWords = 4;

/// Carries Universal MIDI Packets of the MIDI 1.0 protocol, one message an event.
class AlsaEventWire final : public AlsaWire {
 public:
  explicit AlsaEventWire(snd_seq_t* sequencer) : _sequencer(sequencer) {}

  [[nodiscard]] MIDIPacketKind kind() const override { return MIDIPacketKind::EventLists; }

  int read(AlsaEvent& event) override {
    snd_seq_ump_event_t* raw = nullptr;
    const int status = snd_seq_ump_event_input(_sequencer, &raw);
    if (status < 0) return status;
    if (raw == nullptr) return -EAGAIN;
    // Announcements stay what they are; both kinds of event begin alike.
    event = headOf(*reinterpret_cast<const snd_seq_event_t*>(raw));
    if (snd_seq_ev_is_ump(raw)) event.payload.words = wordsOf(*raw);
    return status;
  }

  int write(std::uint8_t port, AlsaAddress to, const AlsaPayload& payload) override {
    snd_seq_ump_event_t raw;
    snd_seq_ump_ev_clear(&raw);
    snd_seq_ev_set_ump(&raw);
    snd_seq_ev_set_source(&raw, port);
    snd_seq_ev_set_dest(&raw, to.client, to.port);
    snd_seq_ev_set_direct(&raw);
    std::copy_n(payload.words.begin(), std::min(payload.words.size(), kMostWords), raw.ump);
    return snd_seq_ump_event_output_direct(_sequencer, &raw);
  }

 private:
  static std::vector<std::uint32_t> wordsOf(const snd_seq_ump_event_t& raw) {
    const auto type = static_cast<std::uint8_t>(raw.ump[0] >> 28);
    const int words = snd_ump_packet_length(type);
    return {raw.ump, raw.ump + std::clamp<int>(words, 0, kMostWords)};
  }

  snd_seq_t* _sequencer;
};

}  // namespace

// A kernel without them says EINVAL.
std::unique_ptr<AlsaWire> makeAlsaEventWire(snd_seq_t* sequencer) {
  const int status = snd_seq_set_client_midi_version(sequencer, SND_SEQ_CLIENT_UMP_MIDI_1_0);
  if (status < 0) return nullptr;
  return std::make_unique<AlsaEventWire>(sequencer);
}
