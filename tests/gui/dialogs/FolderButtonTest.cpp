// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "dialogs/FolderButton.h"

#include <gtest/gtest.h>

#include <QTextDocument>

namespace {

TEST(FolderButton, NamesAreShownLetterByLetter) {
  FolderButton button("Folder", nullptr);
  button.setFolder("/takes/R&D");
  EXPECT_EQ(button.text(), "R&&D") << "which is drawn as one";
  EXPECT_EQ(button.toolTip(), "/takes/R&D");
  button.setFolder("/takes/<b>R&D");
  QTextDocument tip;
  tip.setHtml(button.toolTip());
  EXPECT_EQ(tip.toPlainText(), "/takes/<b>R&D");
}

}  // namespace
