// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
//
// usage: library_meter FILE SIDE-GAIN
// The peer of `mixdeck-cli measure`: decodes a raw M/S file at one width and measures it with
// libebur128, true peak included.

#include <ebur128.h>
#include <sndfile.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <vector>

int main(int argc, char** argv) {
  if (argc != 3) return 2;
  SF_INFO info{};
  SNDFILE* const file = sf_open(argv[1], SFM_READ, &info);
  if (file == nullptr || info.channels != 2) return 1;
  const float gain = std::strtof(argv[2], nullptr);
  ebur128_state* state = ebur128_init(2, static_cast<unsigned long>(info.samplerate),
                                      EBUR128_MODE_I | EBUR128_MODE_LRA | EBUR128_MODE_TRUE_PEAK);
  std::vector<float> frames(2 * 4096);
  while (const sf_count_t count = sf_readf_float(file, frames.data(), 4096)) {
    for (std::size_t i = 0; i < 2 * static_cast<std::size_t>(count); i += 2) {
      const float side = frames[i + 1] * gain;
      frames[i + 1] = frames[i] - side;
      frames[i] += side;
    }
    ebur128_add_frames_float(state, frames.data(), static_cast<std::size_t>(count));
  }
  double loudness = 0;
  double range = 0;
  double left = 0;
  double right = 0;
  ebur128_loudness_global(state, &loudness);
  ebur128_loudness_range(state, &range);
  ebur128_true_peak(state, 0, &left);
  ebur128_true_peak(state, 1, &right);
  std::printf("%.2f LUFS, %.2f LU, %.2f dBTP\n", loudness, range,
              20 * std::log10(std::max(left, right)));
  ebur128_destroy(&state);
  sf_close(file);
  return 0;
}
