// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "cli/live/KeyReader.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

TEST(KeyReader, KnowsThePlayersKeys) {
  EXPECT_THAT(KeyReader().read(" q[]Q"),
              ElementsAre(Key::Space, Key::Quit, Key::Narrower, Key::Wider, Key::Quit));
  EXPECT_THAT(KeyReader().read("\x1b[A\x1b[B\x1b[C\x1b[D"),
              ElementsAre(Key::Up, Key::Down, Key::Right, Key::Left));
  EXPECT_THAT(KeyReader().read("\x1bOA\x1bOD"), ElementsAre(Key::Up, Key::Left));
}

TEST(KeyReader, PutsASequenceTogether) {
  KeyReader reader;
  EXPECT_THAT(reader.read("\x1b"), IsEmpty());
  EXPECT_THAT(reader.read("["), IsEmpty());
  EXPECT_THAT(reader.read("C "), ElementsAre(Key::Right, Key::Space));
}

TEST(KeyReader, TakesTheKeyAfterEscape) {
  EXPECT_THAT(KeyReader().read("\x1bq"), ElementsAre(Key::Quit));
  EXPECT_THAT(KeyReader().read("\x1b\x1b[C"), ElementsAre(Key::Right));
  KeyReader reader;
  EXPECT_THAT(reader.read("\x1b"), IsEmpty());
  EXPECT_THAT(reader.read(" "), ElementsAre(Key::Space));
}

TEST(KeyReader, PassesOverWhatItDoesNotKnow) {
  EXPECT_THAT(KeyReader().read("x\x1b[5~\x1b[1;2A\t "), ElementsAre(Key::Space));
}

}  // namespace
