// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "midi/alsa/AlsaSequencer.h"

#include <fmt/format.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "midi/alsa/AlsaWire.h"

namespace {

/// The most that a client may have (2,000 cells of 28 bytes): one event of some 55,000 bytes fits.
/// With the 200 that it has at first some 5,500 do, and a longer one is refused to its sender.
constexpr std::size_t kPoolCells = 2000;
constexpr std::size_t kInputBuffer = 65'536;

/// Ports of the kernel's that carry nothing at present; older headers do not know the bit.
constexpr unsigned kInactivePort = 1U << 8;

using Caps = unsigned;

Caps capsOf(AlsaSequencer::Use use) {
  constexpr Caps kIn = SND_SEQ_PORT_CAP_WRITE | SND_SEQ_PORT_CAP_SUBS_WRITE;
  constexpr Caps kOut = SND_SEQ_PORT_CAP_READ | SND_SEQ_PORT_CAP_SUBS_READ;
  switch (use) {
    case AlsaSequencer::Use::Receive:
      return kIn;
    case AlsaSequencer::Use::Send:
      return kOut;
    case AlsaSequencer::Use::Both:
      return kIn | kOut | SND_SEQ_PORT_CAP_DUPLEX;
    case AlsaSequencer::Use::Private:
      break;
  }
  return SND_SEQ_PORT_CAP_WRITE;
}

bool has(Caps caps, Caps all) {
  return (caps & all) == all && (caps & (SND_SEQ_PORT_CAP_NO_EXPORT | kInactivePort)) == 0;
}

AlsaPort describe(const snd_seq_client_info_t* client, const snd_seq_port_info_t* port) {
  const snd_seq_addr_t* address = snd_seq_port_info_get_addr(port);
  const Caps caps = snd_seq_port_info_get_capability(port);
  return {{address->client, address->port},
          snd_seq_client_info_get_name(const_cast<snd_seq_client_info_t*>(client)),
          snd_seq_port_info_get_name(port),
          has(caps, capsOf(AlsaSequencer::Use::Send)),
          has(caps, capsOf(AlsaSequencer::Use::Receive))};
}

std::string problemOf(const std::string& devicePath, int error) {
  if (error == ENOENT) return fmt::format("There is no ALSA sequencer here ({}).", devicePath);
  if (error == EACCES || error == EPERM) {
    return fmt::format("No permission to use the ALSA sequencer ({}).", devicePath);
  }
  return fmt::format("The ALSA sequencer cannot be used ({}: {}).", devicePath,
                     std::strerror(error));
}

/// 0, or why the node cannot be opened. Opening it to see would be announced to everybody.
int errorOf(const std::string& devicePath) {
  struct stat node {};
  if (stat(devicePath.c_str(), &node) != 0) return errno;
  if (!S_ISCHR(node.st_mode)) return ENODEV;
  return access(devicePath.c_str(), R_OK | W_OK) == 0 ? 0 : errno;
}

// A configuration of our own: the machine's may load plug-ins, which may wait for a sound server.
int openHandle(snd_seq_t** handle) {
  snd_config_t* configuration = nullptr;
  int status = snd_config_load_string(&configuration, "seq.hw { type hw }", 0);
  if (status < 0) return status;
  status = snd_seq_open_lconf(handle, "hw", SND_SEQ_OPEN_DUPLEX, SND_SEQ_NONBLOCK, configuration);
  snd_config_delete(configuration);
  return status;
}

void keepQuiet(const char* /*file*/, int /*line*/, const char* /*function*/, int /*error*/,
               const char* /*format*/, ...) {}

}  // namespace

AlsaSequencer::Opened AlsaSequencer::open(const std::string& devicePath,
                                          std::optional<MIDIPacketKind> kind) {
  if (const int error = errorOf(devicePath)) return {nullptr, problemOf(devicePath, error)};
  snd_seq_t* handle = nullptr;
  snd_lib_error_set_handler(&keepQuiet);
  const int status = openHandle(&handle);
  snd_lib_error_set_handler(nullptr);
  if (status < 0) return {nullptr, problemOf(devicePath, -status)};
  std::unique_ptr<AlsaSequencer> sequencer(new AlsaSequencer(handle));
  sequencer->makeRoom();
  sequencer->_wire = chooseAlsaWire(handle, kind);
  if (sequencer->_wire) return {std::move(sequencer), ""};
  return {nullptr, "This kernel or alsa-lib has no Universal MIDI Packets, which were asked for."};
}

AlsaSequencer::AlsaSequencer(snd_seq_t* sequencer) : _sequencer(sequencer) {}

AlsaSequencer::~AlsaSequencer() {
  _wire.reset();
  snd_seq_close(_sequencer);
}

void AlsaSequencer::makeRoom() {
  snd_seq_set_client_pool_output(_sequencer, kPoolCells);
  snd_seq_set_client_pool_input(_sequencer, kPoolCells);
  snd_seq_set_input_buffer_size(_sequencer, kInputBuffer);
}

MIDIPacketKind AlsaSequencer::kind() const {
  return _wire->kind();
}

int AlsaSequencer::descriptor() const {
  pollfd descriptor{-1, 0, 0};
  snd_seq_poll_descriptors(_sequencer, &descriptor, 1, POLLIN);
  return descriptor.fd;
}

void AlsaSequencer::setName(const std::string& name) {
  snd_seq_set_client_name(_sequencer, name.c_str());
}

int AlsaSequencer::createPort(const std::string& name, Use use) {
  const bool isShown = use == Use::Both;
  const Caps caps = capsOf(use) | (isShown ? 0 : SND_SEQ_PORT_CAP_NO_EXPORT);
  return snd_seq_create_simple_port(_sequencer, name.c_str(), caps,
                                    SND_SEQ_PORT_TYPE_MIDI_GENERIC | SND_SEQ_PORT_TYPE_APPLICATION);
}

void AlsaSequencer::deletePort(int port) {
  snd_seq_delete_simple_port(_sequencer, port);
}

int AlsaSequencer::connectFrom(std::uint8_t port, AlsaAddress source) {
  return snd_seq_connect_from(_sequencer, port, source.client, source.port);
}

void AlsaSequencer::disconnectFrom(std::uint8_t port, AlsaAddress source) {
  snd_seq_disconnect_from(_sequencer, port, source.client, source.port);
}

int AlsaSequencer::connectTo(std::uint8_t port, AlsaAddress destination) {
  return snd_seq_connect_to(_sequencer, port, destination.client, destination.port);
}

int AlsaSequencer::connectAnnouncements() {
  if (_announcements < 0) _announcements = createPort("Announcements", Use::Private);
  if (_announcements < 0) return _announcements;
  return connectFrom(static_cast<std::uint8_t>(_announcements),
                     {SND_SEQ_CLIENT_SYSTEM, SND_SEQ_PORT_SYSTEM_ANNOUNCE});
}

AlsaAddress AlsaSequencer::subscribers() {
  return {SND_SEQ_ADDRESS_SUBSCRIBERS, SND_SEQ_ADDRESS_UNKNOWN};
}

std::vector<AlsaPort> AlsaSequencer::ports() const {
  std::vector<AlsaPort> found;
  snd_seq_client_info_t* client = nullptr;
  snd_seq_port_info_t* port = nullptr;
  snd_seq_client_info_alloca(&client);
  snd_seq_port_info_alloca(&port);
  snd_seq_client_info_set_client(client, SND_SEQ_CLIENT_SYSTEM);
  while (snd_seq_query_next_client(_sequencer, client) >= 0) {
    if (snd_seq_client_info_get_client(client) == snd_seq_client_id(_sequencer)) continue;
    snd_seq_port_info_set_client(port, snd_seq_client_info_get_client(client));
    snd_seq_port_info_set_port(port, -1);
    while (snd_seq_query_next_port(_sequencer, port) >= 0) found.push_back(describe(client, port));
  }
  return found;
}

int AlsaSequencer::read(AlsaEvent& event) {
  return _wire->read(event);
}

bool AlsaSequencer::hasMore() const {
  return snd_seq_event_input_pending(_sequencer, 0) > 0;
}

int AlsaSequencer::write(std::uint8_t port, AlsaAddress to, const AlsaPayload& payload) {
  return _wire->write(port, to, payload);
}
