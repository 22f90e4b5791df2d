// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "playback/pulse/PulseConnection.h"

#include <fmt/format.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>
#include <utility>

#include "base/Version.h"

namespace {

using std::chrono::milliseconds;

constexpr milliseconds kPatience{1000};
// A server that its socket starts answers nobody before it is up.
constexpr milliseconds kStartPatience{10'000};
constexpr milliseconds kPingAfter{400};
constexpr milliseconds kLook{100};

void emptyEvent(pa_mainloop_api* /*api*/, pa_io_event* /*event*/, int file,
                pa_io_event_flags_t /*flags*/, void* /*data*/) {
  eventfd_t count = 0;
  eventfd_read(file, &count);
}

}  // namespace

PulseConnection::PulseConnection(std::shared_ptr<PulseControls> controls)
    : _controls(std::move(controls)),
      _wakeUp(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)),
      _stream(*_controls) {}

PulseConnection::~PulseConnection() {
  close(_wakeUp);
}

void PulseConnection::wake() const {
  eventfd_write(_wakeUp, 1);
}

// No server is started from here: that could take long, and desktops start theirs by themselves.
bool PulseConnection::connect() {
  pa_proplist* const properties = pa_proplist_new();
  pa_proplist_sets(properties, PA_PROP_APPLICATION_NAME, kProduct);
  pa_proplist_sets(properties, PA_PROP_APPLICATION_ID, "mixdeck");
  pa_proplist_sets(properties, PA_PROP_APPLICATION_ICON_NAME, "mixdeck");
  _context = pa_context_new_with_proplist(pa_mainloop_get_api(_loop), kProduct, properties);
  pa_proplist_free(properties);
  _stream.noteLife();
  return _context != nullptr &&
         pa_context_connect(_context, nullptr, PA_CONTEXT_NOAUTOSPAWN, nullptr) == 0;
}

void PulseConnection::run() {
  _loop = pa_mainloop_new();
  if (_loop == nullptr || _wakeUp < 0) return loseWithoutALoop();
  pa_mainloop_api* const api = pa_mainloop_get_api(_loop);
  api->io_new(api, _wakeUp, PA_IO_EVENT_INPUT, emptyEvent, nullptr);
  if (!_stream.isFormatTaken()) {
    lose(_stream.whyNotTaken());
  } else if (!connect()) {
    lose(because("No sound server was found"));
  }
  _lastRound = Clock::now();
  while (!_controls->isEnding.load()) round();
  _stream.disconnect();
  if (_context != nullptr) {
    pa_context_disconnect(_context);
    pa_context_unref(_context);
  }
  pa_mainloop_free(_loop);
}

void PulseConnection::loseWithoutALoop() {
  const std::string why = std::generic_category().message(EMFILE);
  _controls->lose(fmt::format("The sound output could not be started ({}).", why));
  if (_loop != nullptr) pa_mainloop_free(_loop);
}

void PulseConnection::round() {
  if (pa_mainloop_prepare(_loop, timeoutMicroseconds()) >= 0 && pa_mainloop_poll(_loop) >= 0) {
    pa_mainloop_dispatch(_loop);
  }
  if (_isGone) return;
  advance();
  if (!_isGone) watch();
}

int PulseConnection::timeoutMicroseconds() const {
  if (_isGone || !_stream.isBusy()) return -1;
  return static_cast<int>(std::chrono::microseconds(kLook).count());
}

std::string PulseConnection::because(const char* what) const {
  const int error = _context != nullptr ? pa_context_errno(_context) : PA_ERR_INTERNAL;
  return fmt::format("{} ({}).", what, pa_strerror(error));
}

void PulseConnection::advance() {
  const pa_context_state_t state = pa_context_get_state(_context);
  if (!PA_CONTEXT_IS_GOOD(state)) {
    return lose(because(_isUp ? "The sound server has gone" : "No sound server was found"));
  }
  if (state != PA_CONTEXT_READY) return;
  _isUp = true;
  const bool isRefused = !_stream.isConnected() && !_stream.connect(_context);
  if (isRefused || _stream.hasFailed()) return lose(because("The sound output was not there"));
  _stream.service();
}

// A pause of this whole program, as in a machine's sleep or by Ctrl-Z, is not the server's fault.
void PulseConnection::watch() {
  const Clock::time_point now = Clock::now();
  if (now - _lastRound > 3 * kLook) _stream.forgiveSilence();
  _lastRound = now;
  if (!_stream.isBusy()) return _stream.noteLife();
  const auto quiet = now - _stream.lastLife();
  if (quiet > (_isUp ? kPatience : kStartPatience)) return lose("The sound server did not answer.");
  if (_stream.isStuck()) return lose("The sound output has stopped.");
  if (quiet > kPingAfter && _stream.isReady()) _stream.ping();
}

void PulseConnection::lose(const std::string& why) {
  _isGone = true;
  _stream.stopClock();
  _stream.disconnect();  // should the server come to itself again, it is to play nothing
  if (_context != nullptr) pa_context_disconnect(_context);
  _controls->lose(why);
}
