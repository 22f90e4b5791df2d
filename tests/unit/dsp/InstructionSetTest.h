// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>
#include <hwy/targets.h>

#include <cstdint>
#include <string>
#include <vector>

/// A test that runs once for every instruction set that was compiled in and that this machine has.
class InstructionSetTest : public testing::TestWithParam<std::int64_t> {
 public:
  static std::vector<std::int64_t> all() {
    auto sets = hwy::SupportedAndGeneratedTargets();
    // Kernels built for one set alone are not chosen among others.
    if (sets.empty()) sets.push_back(HWY_STATIC_TARGET);
    return sets;
  }
  static std::string name(const testing::TestParamInfo<std::int64_t>& set) {
    return hwy::TargetName(set.param);
  }

 protected:
  void SetUp() override {
    hwy::SetSupportedTargetsForTest(GetParam());
    hwy::GetChosenTarget().Update(GetParam());
    ASSERT_EQ(hwy::SupportedTargets(), GetParam());
  }
  void TearDown() override {
    hwy::SetSupportedTargetsForTest(0);
    hwy::GetChosenTarget().DeInit();
  }
};
