// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

// Preloaded into a player, keeps drains from the sound server, which answers everything else.

#include <pulse/stream.h>

pa_operation* pa_stream_drain(pa_stream* stream, pa_stream_success_cb_t /*answer*/,
                              void* /*userdata*/) {
  return pa_stream_update_timing_info(stream, nullptr, nullptr);
}
