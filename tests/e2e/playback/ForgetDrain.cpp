// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

// Preloaded into a player, loses the sound server's answers to drains.

#include <dlfcn.h>
#include <pulse/stream.h>

pa_operation* pa_stream_drain(pa_stream* stream, pa_stream_success_cb_t /*answer*/,
                              void* /*userdata*/) {
  static const auto kReal =
      reinterpret_cast<decltype(&pa_stream_drain)>(dlsym(RTLD_NEXT, "pa_stream_drain"));
  return kReal(stream, nullptr, nullptr);
}
