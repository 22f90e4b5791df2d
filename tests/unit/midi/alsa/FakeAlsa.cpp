// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "FakeAlsa.h"

#include <alsa/asoundlib.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <chrono>
#include <condition_variable>
#include <deque>
#include <map>
#include <mutex>

namespace {

constexpr int kOwnClient = 200;
constexpr std::chrono::seconds kKernelsPatience(10);

struct Event {
  snd_seq_event_t raw;
  std::vector<std::uint8_t> bytes;
};

struct Client {
  int descriptor = eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
  int portsMade = 0;
  std::atomic<bool> isSubscribed{false};
  std::map<int, int> heard;  // another client, and our port that listens to it
  std::deque<Event> waiting;
  Event read;  // the sequencer's until the next one is asked for
};

Client* newest = nullptr;
std::atomic<int> openClients{0};

std::mutex mutex;  // guards what follows
std::condition_variable released;
bool isHanging = false;
bool isBusy = false;  // someone is held up
std::vector<std::thread::id> held;

Client& clientOf(snd_seq_t* handle) {
  return *reinterpret_cast<Client*>(handle);
}

snd_seq_addr_t addressOf(int client, int port) {
  return {static_cast<unsigned char>(client), static_cast<unsigned char>(port)};
}

/// To whoever listens to the client that it is from.
void deliver(snd_seq_addr_t from, Event event) {
  const auto port = newest->heard.find(from.client);
  if (port == newest->heard.end()) return;
  event.raw.source = from;
  event.raw.dest = addressOf(kOwnClient, port->second);
  newest->waiting.push_back(std::move(event));
  eventfd_write(newest->descriptor, 1);
}

void waitForDevice(bool isEnding) {
  std::unique_lock lock(mutex);
  if (!isHanging || (!isEnding && !isBusy)) return;
  isBusy = true;
  held.push_back(std::this_thread::get_id());
  released.wait_for(lock, kKernelsPatience, [] { return !isHanging; });
}

}  // namespace

FakeAlsa& FakeAlsa::get() {
  static FakeAlsa only;
  return only;
}

void FakeAlsa::reset() {
  release();
  const std::lock_guard lock(mutex);
  held.clear();
  get() = FakeAlsa();
}

void FakeAlsa::hang() {
  const std::lock_guard lock(mutex);
  isHanging = true;
}

void FakeAlsa::release() {
  const std::lock_guard lock(mutex);
  isHanging = isBusy = false;
  released.notify_all();
}

std::vector<std::thread::id> FakeAlsa::heldUp() {
  const std::lock_guard lock(mutex);
  return held;
}

int FakeAlsa::open() {
  return openClients;
}

void FakeAlsa::fail(int error) {
  readError = error;
  eventfd_write(newest->descriptor, 1);
}

void FakeAlsa::mend() {
  readError = openError = firstPortError = announceError = 0;
  connectFromError = connectToError = 0;
}

void FakeAlsa::announce(int type, int client, int port) {
  Event event;
  snd_seq_ev_clear(&event.raw);
  event.raw.type = static_cast<snd_seq_event_type_t>(type);
  event.raw.data.addr = addressOf(client, port);
  deliver({SND_SEQ_CLIENT_SYSTEM, SND_SEQ_PORT_SYSTEM_ANNOUNCE}, std::move(event));
}

void FakeAlsa::send(int client, int port, const std::vector<std::uint8_t>& bytes) {
  Event event{{}, bytes};
  snd_seq_ev_clear(&event.raw);
  event.raw.type = SND_SEQ_EVENT_SYSEX;
  event.raw.flags = SND_SEQ_EVENT_LENGTH_VARIABLE;
  event.raw.data.ext.len = static_cast<unsigned>(bytes.size());
  deliver(addressOf(client, port), std::move(event));
}

std::size_t FakeAlsa::waiting() {
  return newest->waiting.size();
}

int snd_seq_open_lconf(snd_seq_t** to, const char*, int, int, snd_config_t*) {
  FakeAlsa& fake = FakeAlsa::get();
  if (fake.openError != 0) return fake.openError;
  ++fake.opened;
  ++openClients;
  newest = new Client;
  *to = reinterpret_cast<snd_seq_t*>(newest);
  return 0;
}

int snd_seq_close(snd_seq_t* handle) {
  Client& client = clientOf(handle);
  if (client.isSubscribed) waitForDevice(true);
  close(client.descriptor);
  delete &client;
  --openClients;
  return 0;
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

int snd_seq_poll_descriptors(snd_seq_t* handle, pollfd* to, unsigned, short) {
  to->fd = clientOf(handle).descriptor;
  return 1;
}

int snd_seq_create_simple_port(snd_seq_t* handle, const char*, unsigned caps, unsigned) {
  FakeAlsa& fake = FakeAlsa::get();
  const int error = clientOf(handle).portsMade > 0 ? fake.portError : fake.firstPortError;
  if (error < 0) return error;
  fake.capabilities.push_back(caps);
  return clientOf(handle).portsMade++;
}

int snd_seq_delete_simple_port(snd_seq_t* handle, int) {
  if (clientOf(handle).isSubscribed) waitForDevice(true);
  return 0;
}

int snd_seq_connect_from(snd_seq_t* handle, int port, int client, int) {
  FakeAlsa& fake = FakeAlsa::get();
  const bool isNews = client == SND_SEQ_CLIENT_SYSTEM;
  const int error = isNews ? fake.announceError : fake.connectFromError;
  if (error != 0) return error;
  clientOf(handle).heard[client] = port;
  if (!isNews) fake.heard.push_back(client);
  return 0;
}

int snd_seq_disconnect_from(snd_seq_t*, int, int, int) {
  return 0;
}

int snd_seq_connect_to(snd_seq_t* handle, int, int client, int) {
  FakeAlsa& fake = FakeAlsa::get();
  waitForDevice(false);
  if (fake.connectToError != 0) return fake.connectToError;
  fake.subscribed.push_back(client);
  clientOf(handle).isSubscribed = true;
  return 0;
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

int snd_seq_event_input(snd_seq_t* handle, snd_seq_event_t** event) {
  *event = nullptr;
  ++FakeAlsa::get().reads;
  const int error = FakeAlsa::get().readError;
  Client& client = clientOf(handle);
  if (error != 0 || client.waiting.empty()) return error != 0 ? error : -EAGAIN;
  client.read = std::move(client.waiting.front());
  client.waiting.pop_front();
  eventfd_t count = 0;
  if (client.waiting.empty()) eventfd_read(client.descriptor, &count);
  if (snd_seq_ev_is_variable(&client.read.raw)) {
    client.read.raw.data.ext.ptr = client.read.bytes.data();
  }
  *event = &client.read.raw;
  return 1;
}

int snd_seq_event_input_pending(snd_seq_t* handle, int) {
  return static_cast<int>(clientOf(handle).waiting.size());
}

int snd_seq_event_output_direct(snd_seq_t*, snd_seq_event_t*) {
  ++FakeAlsa::get().written;
  return 0;
}
