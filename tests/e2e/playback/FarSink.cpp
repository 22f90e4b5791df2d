// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

// Preloaded into a player, makes the sound device as far away as one in a network: it holds three
// seconds of sound, or FAR_SINK_SECONDS, and a drain takes as long.

#include <dlfcn.h>
#include <pulse/pulseaudio.h>

#include <cstdlib>

namespace {

pa_usec_t delay() {
  const char* const seconds = std::getenv("FAR_SINK_SECONDS");
  return (seconds == nullptr ? 3 : std::strtoull(seconds, nullptr, 10)) * PA_USEC_PER_SEC;
}

template <class Function>
Function next(const char* name) {
  return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

struct Drain {
  pa_stream_success_cb_t answer;
  void* userdata;
};
// There is one stream, which has one drain at a time.
Drain drain;
pa_stream* draining;

void answer(pa_mainloop_api* api, pa_time_event* event, const timeval* /*when*/, void* /*data*/) {
  api->time_free(event);
  drain.answer(draining, 1, drain.userdata);
}

void answerLater(pa_stream* stream, int /*success*/, void* api) {
  draining = stream;
  pa_context_rttime_new(pa_stream_get_context(stream), pa_rtclock_now() + delay(), answer, api);
}

}  // namespace

const pa_timing_info* pa_stream_get_timing_info(pa_stream* stream) {
  static const auto kReal = next<decltype(&pa_stream_get_timing_info)>("pa_stream_get_timing_info");
  static pa_timing_info info;
  const pa_timing_info* const real = kReal(stream);
  if (real == nullptr) return nullptr;
  info = *real;
  info.sink_usec += delay();
  return &info;
}

pa_operation* pa_stream_drain(pa_stream* stream, pa_stream_success_cb_t callback, void* userdata) {
  static const auto kReal = next<decltype(&pa_stream_drain)>("pa_stream_drain");
  drain = {callback, userdata};
  return kReal(stream, answerLater, nullptr);
}
