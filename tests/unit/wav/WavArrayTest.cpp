// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "wav/WavArray.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <type_traits>
#include <utility>

namespace {

template <class Element>
HeapArray<Element> arrayOf(std::size_t count) {
  HeapArray<Element> array;
  array.bytes = static_cast<Element*>(std::calloc(count, sizeof(Element)));
  array.length = count;
  return array;
}

template <class Array>
class WavArrayTest : public testing::Test {};

using Arrays = testing::Types<WavArray, WavArrayFloat, WavArrayFloat32>;
TYPED_TEST_SUITE(WavArrayTest, Arrays);

}  // namespace

TYPED_TEST(WavArrayTest, StartsWithoutABlock) {
  const TypeParam array;
  EXPECT_EQ(array.bytes, nullptr);
  EXPECT_EQ(array.length, 0U);
}

TYPED_TEST(WavArrayTest, DisposeFreesTheBlockAndKeepsThePointer) {
  auto array = arrayOf<std::remove_pointer_t<decltype(TypeParam::bytes)>>(10);
  const auto* const block = array.bytes;
  array.dispose();
  EXPECT_EQ(array.length, 0U);
  EXPECT_EQ(array.bytes, block);
}

TYPED_TEST(WavArrayTest, DisposingTwiceOrWithoutABlockIsHarmless) {
  auto array = arrayOf<std::remove_pointer_t<decltype(TypeParam::bytes)>>(10);
  array.dispose();
  array.dispose();
  EXPECT_EQ(array.length, 0U);
  TypeParam empty;
  empty.dispose();
  EXPECT_EQ(empty.bytes, nullptr);
}

TYPED_TEST(WavArrayTest, AMoveTakesTheBlockAlong) {
  auto first = arrayOf<std::remove_pointer_t<decltype(TypeParam::bytes)>>(10);
  const auto* const block = first.bytes;
  TypeParam second = std::move(first);
  EXPECT_EQ(second.bytes, block);
  EXPECT_EQ(second.length, 10U);
  TypeParam third;
  third = std::move(second);
  EXPECT_EQ(third.bytes, block);
  EXPECT_EQ(third.length, 10U);
}

TEST(WavArrayElementsTest, AreBytesDoublesAndFloats) {
  EXPECT_EQ(sizeof(*WavArray::bytes), 1U);
  EXPECT_TRUE((std::is_same_v<decltype(WavArrayFloat::bytes), double*>));
  EXPECT_TRUE((std::is_same_v<decltype(WavArrayFloat32::bytes), float*>));
}
