// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>
#include <hwy/targets.h>

#include <span>
#include <vector>

#include "SampleInputs.h"
#include "dsp/Kernels.h"

namespace {

// A mix of ordinary, tiny, huge and special values; never two NaN in one frame.
std::vector<float> someFrames(std::size_t floats) {
  const std::vector<float> values{0.5F,  -0.25F, 0.0F,     -0.0F, 1.0F,
                                  -1.0F, 1e-40F, -3.0e38F, 0.1F,  __builtin_inff(),
                                  0.75F, 1e-7F,  3.0F};
  std::vector<float> frames(floats);
  for (std::size_t i = 0; i < floats; ++i) frames[i] = values[i * 5 % values.size()];
  if (floats > 6) frames[6] = __builtin_nanf("7");
  return frames;
}

void expectFusedAsInTwo(std::size_t floats, float left, float right) {
  std::vector<float> wanted = someFrames(floats);
  std::vector<float> fused = wanted;
  Kernels::decodeMidSide(wanted, 0.31622777F);
  Kernels::divide(wanted, left, right);
  Kernels::decodeAndDivide(fused, 0.31622777F, left, right);
  EXPECT_EQ(bitsOf(std::span<const float>(wanted)), bitsOf(std::span<const float>(fused)))
      << floats << " floats, divisors " << left << " and " << right;
}

// The fused kernel is its two halves, bit for bit, for every instruction set.
TEST(FusedKernel, EqualsDecodeThenDivide) {
  const auto targets = hwy::SupportedAndGeneratedTargets();
  ASSERT_FALSE(targets.empty());
  for (const auto target : targets) {
    hwy::SetSupportedTargetsForTest(target);
    hwy::GetChosenTarget().Update(target);
    for (std::size_t floats = 0; floats <= 100; floats += 2) {
      for (const float divisor : {1.0F, 0.5011872F, 1.9952623F, 0.0F}) {
        expectFusedAsInTwo(floats, divisor, 0.7F);
        expectFusedAsInTwo(floats, 0.7F, divisor);
      }
    }
  }
  hwy::SetSupportedTargetsForTest(0);
  hwy::GetChosenTarget().DeInit();
}

}  // namespace
