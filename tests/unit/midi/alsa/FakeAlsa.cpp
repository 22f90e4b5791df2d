// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "FakeAlsa.h"

#include <alsa/asoundlib.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <cerrno>

namespace {

constexpr int kOwnClient = 200;

int descriptor = -1;
int portsMade = 0;

snd_seq_t* handle() {
  static int place = 0;
  return reinterpret_cast<snd_seq_t*>(&place);
}

}  // namespace

FakeAlsa& FakeAlsa::get() {
  static FakeAlsa only;
  return only;
}

void FakeAlsa::reset() {
  get() = FakeAlsa();
}

void FakeAlsa::fail(int error) {
  readError = error;
  eventfd_write(descriptor, 1);
}

void FakeAlsa::mend() {
  readError = openError = connectFromError = connectToError = 0;
}

int snd_seq_open_lconf(snd_seq_t** to, const char*, int, int, snd_config_t*) {
  FakeAlsa& fake = FakeAlsa::get();
  if (fake.openError != 0) return fake.openError;
  ++fake.opened;
  portsMade = 0;
  descriptor = eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
  *to = handle();
  return 0;
}

int snd_seq_close(snd_seq_t*) {
  return close(descriptor);
}

int snd_seq_set_client_pool_output(snd_seq_t*, size_t) {
  return 0;
}

int snd_seq_set_client_pool_input(snd_seq_t*, size_t) {
  return 0;
}

int snd_seq_set_input_buffer_size(snd_seq_t*, size_t) {
  return 0;
}

int snd_seq_set_client_name(snd_seq_t*, const char*) {
  return 0;
}

int snd_seq_client_id(snd_seq_t*) {
  return kOwnClient;
}

int snd_seq_poll_descriptors(snd_seq_t*, pollfd* to, unsigned, short) {
  to->fd = descriptor;
  return 1;
}

int snd_seq_create_simple_port(snd_seq_t*, const char*, unsigned, unsigned) {
  return portsMade++;
}

int snd_seq_delete_simple_port(snd_seq_t*, int) {
  return 0;
}

int snd_seq_connect_from(snd_seq_t*, int, int client, int) {
  FakeAlsa& fake = FakeAlsa::get();
  if (client == SND_SEQ_CLIENT_SYSTEM) return 0;
  if (fake.connectFromError == 0) fake.heard.push_back(client);
  return fake.connectFromError;
}

int snd_seq_disconnect_from(snd_seq_t*, int, int, int) {
  return 0;
}

int snd_seq_connect_to(snd_seq_t*, int, int client, int) {
  FakeAlsa& fake = FakeAlsa::get();
  if (fake.connectToError == 0) fake.subscribed.push_back(client);
  return fake.connectToError;
}

int snd_seq_query_next_client(snd_seq_t*, snd_seq_client_info_t* info) {
  for (const auto& port : FakeAlsa::get().ports) {
    if (port.client <= snd_seq_client_info_get_client(info)) continue;
    snd_seq_client_info_set_client(info, port.client);
    snd_seq_client_info_set_name(info, port.clientName.c_str());
    return 0;
  }
  return -ENOENT;
}

int snd_seq_query_next_port(snd_seq_t*, snd_seq_port_info_t* info) {
  constexpr unsigned kAll = SND_SEQ_PORT_CAP_READ | SND_SEQ_PORT_CAP_SUBS_READ |
                            SND_SEQ_PORT_CAP_WRITE | SND_SEQ_PORT_CAP_SUBS_WRITE;
  for (const auto& port : FakeAlsa::get().ports) {
    const bool isTheirs = port.client == snd_seq_port_info_get_client(info);
    // Before the first: -1, which the record holds as a byte.
    const auto before = static_cast<signed char>(snd_seq_port_info_get_port(info));
    if (!isTheirs || port.port <= before) continue;
    snd_seq_port_info_set_port(info, port.port);
    snd_seq_port_info_set_name(info, port.portName.c_str());
    snd_seq_port_info_set_capability(info, kAll);
    return 0;
  }
  return -ENOENT;
}

int snd_seq_event_input(snd_seq_t*, snd_seq_event_t** event) {
  *event = nullptr;
  const int error = FakeAlsa::get().readError;
  return error != 0 ? error : -EAGAIN;
}

int snd_seq_event_input_pending(snd_seq_t*, int) {
  return 0;
}

int snd_seq_event_output_direct(snd_seq_t*, snd_seq_event_t*) {
  ++FakeAlsa::get().written;
  return 0;
}
