// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

// Preloaded into a player, has its sink suspended right before a drain.

#include <dlfcn.h>
#include <pulse/context.h>
#include <pulse/introspect.h>
#include <pulse/stream.h>

pa_operation* pa_stream_drain(pa_stream* stream, pa_stream_success_cb_t answer, void* userdata) {
  static const auto kReal =
      reinterpret_cast<decltype(&pa_stream_drain)>(dlsym(RTLD_NEXT, "pa_stream_drain"));
  const char* const sink = pa_stream_get_device_name(stream);
  pa_operation_unref(
      pa_context_suspend_sink_by_name(pa_stream_get_context(stream), sink, 1, nullptr, nullptr));
  return kReal(stream, answer, userdata);
}
