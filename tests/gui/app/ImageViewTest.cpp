// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/ImageView.h"

#include <gtest/gtest.h>

#include <QPixmap>

#include "gui/controls/Hands.h"
#include "gui/controls/Repaints.h"

namespace {

TEST(ImageView, IsPaintedAgainForAnotherImageAndForWhetherItIsEnabled) {
  ImageView view;
  Hands::show(view, {40, 40});
  QPixmap image(40, 40);
  image.fill(Qt::red);
  EXPECT_FALSE(Repaints::of(view, [&] { view.setImage(QIcon(image)); }).isEmpty());
  EXPECT_EQ(Hands::colorAt(Hands::picture(view, 1), {20, 20}), QColor(Qt::red));
  EXPECT_FALSE(Repaints::of(view, [&] { view.setEnabled(false); }).isEmpty());
}

}  // namespace
