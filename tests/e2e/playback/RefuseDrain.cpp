// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

// Preloaded into a player, has the sound server refuse each drain.

#include <pulse/stream.h>

namespace {

// There is one stream, which has one drain at a time.
pa_stream_success_cb_t answer;

void refuse(pa_stream* stream, int /*success*/, void* userdata) {
  answer(stream, 0, userdata);
}

}  // namespace

pa_operation* pa_stream_drain(pa_stream* stream, pa_stream_success_cb_t callback, void* userdata) {
  answer = callback;
  return pa_stream_update_timing_info(stream, refuse, userdata);
}
