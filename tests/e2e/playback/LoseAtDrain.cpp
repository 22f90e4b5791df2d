// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

// Preloaded into a player, tells of it and loses the sound server at the first drain.

#include <pulse/context.h>
#include <pulse/stream.h>

#include <cstdio>

pa_operation* pa_stream_drain(pa_stream* stream, pa_stream_success_cb_t /*answer*/,
                              void* /*userdata*/) {
  std::fputs("lost on purpose\n", stderr);
  pa_context_disconnect(pa_stream_get_context(stream));
  return nullptr;
}
