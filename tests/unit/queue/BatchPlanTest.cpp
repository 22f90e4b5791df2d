// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "queue/BatchPlan.h"

#include <gmock/gmock.h>

#include "support/TemporaryFolder.h"
#include "support/WaveBytes.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using Existing = BatchWish::Existing;
using Fate = BatchPlan::Fate;

class BatchPlanTest : public testing::Test {
 protected:
  std::filesystem::path take(const std::string& name, std::size_t frames = 1000) const {
    const auto data = WaveBytes::samples24(std::vector<std::int32_t>(2 * frames));
    std::filesystem::create_directories((_folder.path() / name).parent_path());
    return _folder.file(name, WaveBytes().format24().recorderBext().data(data).get());
  }
  std::filesystem::path path(const std::string& name) const { return _folder.path() / name; }
  static BatchWish wish(const std::vector<std::filesystem::path>& files,
                        Existing existing = Existing::Skip) {
    BatchWish wish;
    auto takes = std::make_shared<std::vector<BatchTake>>();
    for (const auto& file : files) takes->emplace_back(file);
    wish.takes = takes;
    wish.existing = existing;
    wish.how.angle = 90;
    return wish;
  }
  static BatchPlan plan(const BatchWish& wish) {
    const std::atomic<bool> cancel{false};
    return BatchPlan::make(wish, cancel);
  }
  static std::vector<Fate> fates(const BatchPlan& plan) {
    std::vector<Fate> fates;
    for (const BatchPlan::Item& item : plan.items) fates.push_back(item.fate);
    return fates;
  }
  static std::vector<std::string> targets(const BatchPlan& plan) {
    std::vector<std::string> names;
    for (const ExportOrder& order : plan.orders()) names.push_back(order.target.filename());
    return names;
  }

  TemporaryFolder _folder;
};

TEST_F(BatchPlanTest, NamesThatAreNoTextAreKeptToTheByte) {
  const BatchPlan plan =
      this->plan(wish({take("R\xFF"
                            "1.WAV")}));
  EXPECT_THAT(targets(plan), ElementsAre("R\xFF"
                                         "1_Decode.WAV"));
}

TEST_F(BatchPlanTest, TakesAreExportedBesideThemAllAlike) {
  BatchWish wish = this->wish({take("a.WAV"), take("Bells/b.WAV", 2000)});
  wish.how.gain = 6;
  wish.how.is24bit = false;
  const BatchPlan plan = this->plan(wish);
  const auto orders = plan.orders();
  ASSERT_EQ(2U, orders.size());
  EXPECT_EQ(path("a.WAV"), orders[0].source);
  EXPECT_EQ(path("a_Decode.WAV"), orders[0].target);
  EXPECT_EQ(path("Bells/b_Decode.WAV"), orders[1].target);
  for (const ExportOrder& order : orders) {
    EXPECT_EQ(90, order.angle);
    EXPECT_EQ(6, order.gain);
    EXPECT_FALSE(order.is24bit);
    EXPECT_TRUE(order.isOfBatch);
    EXPECT_EQ(AtomicFile::Existing::Refuse, order.existing);
  }
  EXPECT_EQ(orders[0].size + orders[1].size, plan.needed());
  EXPECT_EQ(orders[0].size + 8000, orders[1].size);
}

TEST_F(BatchPlanTest, OrIntoOneFolder) {
  std::filesystem::create_directory(path("out"));
  BatchWish wish = this->wish({take("a.WAV"), take("Bells/b.WAV")});
  wish.folder = path("out");
  EXPECT_EQ(path("out/a_Decode.WAV"), plan(wish).orders()[0].target);
  EXPECT_EQ(path("out/b_Decode.WAV"), plan(wish).orders()[1].target);
  wish.folder = path("none");
  EXPECT_THAT(fates(plan(wish)), ElementsAre(Fate::Refused, Fate::Refused));
  EXPECT_EQ("No such file or directory", plan(wish).items[0].why);
  EXPECT_EQ(0U, plan(wish).needed());
  EXPECT_EQ(nullptr, plan(wish).tightest());
}

TEST_F(BatchPlanTest, WhatIsNoRecordingIsRefusedWithTheReason) {
  const auto text = _folder.file("x.WAV", {std::byte{'x'}});
  const BatchPlan plan = this->plan(wish({text, path("gone.WAV"), take("a.WAV")}));
  EXPECT_THAT(fates(plan), ElementsAre(Fate::Refused, Fate::Refused, Fate::Export));
  EXPECT_THAT(plan.items[0].why, HasSubstr("Not a WAVE file"));
  EXPECT_THAT(plan.items[1].why, HasSubstr("No such file"));
}

TEST_F(BatchPlanTest, AnExportThatExistsIsSkippedReplacedOrNumbered) {
  const std::vector files = {take("a.WAV"), take("b.WAV")};
  _folder.file("a_Decode.WAV", {});
  _folder.file("a_Decode_2.WAV", {});
  const BatchPlan skipping = plan(wish(files, Existing::Skip));
  EXPECT_THAT(fates(skipping), ElementsAre(Fate::Exists, Fate::Export));
  EXPECT_THAT(targets(skipping), ElementsAre("b_Decode.WAV"));
  const BatchPlan replacing = plan(wish(files, Existing::Replace));
  EXPECT_THAT(targets(replacing), ElementsAre("a_Decode.WAV", "b_Decode.WAV"));
  EXPECT_EQ(AtomicFile::Existing::Replace, replacing.orders()[0].existing);
  const BatchPlan numbering = plan(wish(files, Existing::Number));
  EXPECT_THAT(targets(numbering), ElementsAre("a_Decode_3.WAV", "b_Decode.WAV"));
  EXPECT_EQ(AtomicFile::Existing::Refuse, numbering.orders()[0].existing);
}

TEST_F(BatchPlanTest, ATakeIsNeverReplacedByTheExportOfAnother) {
  const std::vector files = {take("a.WAV"), take("a_Decode.WAV")};
  EXPECT_THAT(fates(plan(wish(files, Existing::Replace))), ElementsAre(Fate::IsTake, Fate::Export));
  EXPECT_THAT(fates(plan(wish(files, Existing::Skip))), ElementsAre(Fate::Exists, Fate::Export));
  EXPECT_THAT(targets(plan(wish(files, Existing::Number))),
              ElementsAre("a_Decode_2.WAV", "a_Decode_Decode.WAV"));
}

TEST_F(BatchPlanTest, NorThroughALink) {
  const std::vector files = {take("a.WAV"), take("b.WAV")};
  std::filesystem::create_symlink("b.WAV", path("a_Decode.WAV"));
  EXPECT_THAT(fates(plan(wish(files, Existing::Replace))), ElementsAre(Fate::IsTake, Fate::Export));
}

TEST_F(BatchPlanTest, TwoWithOneNameAreNotWrittenOverEachOther) {
  std::filesystem::create_directory(path("out"));
  for (const auto existing : {Existing::Skip, Existing::Replace}) {
    BatchWish wish = this->wish({take("a.WAV"), take("Bells/a.WAV")}, existing);
    wish.folder = path("out");
    const BatchPlan plan = this->plan(wish);
    EXPECT_THAT(fates(plan), ElementsAre(Fate::Export, Fate::HasSameName));
    EXPECT_EQ(path("a.WAV"), plan.items[1].other);
  }
  BatchWish wish = this->wish({take("a.WAV"), take("Bells/a.WAV")}, Existing::Number);
  wish.folder = path("out");
  EXPECT_THAT(targets(plan(wish)), ElementsAre("a_Decode.WAV", "a_Decode_2.WAV"));
}

// They are one file on a card.
TEST_F(BatchPlanTest, NorTwoWhoseNamesDifferInTheCaseOfLetters) {
  std::filesystem::create_directory(path("out"));
  BatchWish wish = this->wish({take("a.WAV"), take("Bells/A.WAV")}, Existing::Replace);
  wish.folder = path("out");
  const BatchPlan plan = this->plan(wish);
  EXPECT_THAT(fates(plan), ElementsAre(Fate::Export, Fate::HasSameName));
  EXPECT_EQ(path("a.WAV"), plan.items[1].other);
  wish.existing = Existing::Number;
  EXPECT_THAT(targets(this->plan(wish)), ElementsAre("a_Decode.WAV", "A_Decode_2.WAV"));
  wish.awaited = {path("out/A_DECODE.WAV")};
  EXPECT_THAT(targets(this->plan(wish)), ElementsAre("a_Decode_2.WAV", "A_Decode_3.WAV"));
}

TEST_F(BatchPlanTest, NorOverWhatIsStillToBeWritten) {
  BatchWish wish = this->wish({take("a.WAV")}, Existing::Number);
  wish.awaited = {path("a_Decode.WAV")};
  EXPECT_THAT(targets(plan(wish)), ElementsAre("a_Decode_2.WAV"));
  wish.existing = Existing::Replace;
  EXPECT_THAT(fates(plan(wish)), ElementsAre(Fate::HasSameName));
}

TEST_F(BatchPlanTest, RoomIsThatOfEachMedium) {
  const BatchPlan plan = this->plan(wish({take("a.WAV"), take("b.WAV")}));
  ASSERT_EQ(1U, plan.rooms.size());
  EXPECT_EQ(plan.needed(), plan.rooms[0].needed);
  EXPECT_GT(plan.rooms[0].free.value_or(0), 0U);
  BatchPlan two = plan;
  two.rooms = {{100, 50}, {100, std::nullopt}, {100, 20}};
  EXPECT_EQ(20U, two.tightest()->free);
  two.rooms = {{10, 50}, {10, 40}};
  EXPECT_EQ(50U, two.tightest()->free) << "none lacks any";
}

TEST_F(BatchPlanTest, WhatIsRememberedOfATakeCountsWhereThatIsWished) {
  auto takes = std::make_shared<std::vector<BatchTake>>();
  takes->emplace_back(take("a.WAV"), [](const WaveFileReader& reader) {
    EXPECT_EQ(1000U, reader.frameCount());
    return BatchTake::Sound{60, -4};
  });
  takes->emplace_back(take("b.WAV"), [](const WaveFileReader&) {
    return BatchTake::Sound{std::nullopt, 2};
  });
  takes->emplace_back(take("c.WAV"), [](const WaveFileReader&) { return std::nullopt; });
  BatchWish wish = this->wish({});
  wish.takes = takes;
  using Sound = std::pair<double, double>;
  const auto sounds = [&] {
    std::vector<Sound> all;
    for (const ExportOrder& order : plan(wish).orders()) all.emplace_back(order.angle, order.gain);
    return all;
  };
  EXPECT_THAT(sounds(), ElementsAre(Sound(90, 0), Sound(90, 0), Sound(90, 0)));
  wish.isAsRemembered = true;
  EXPECT_THAT(sounds(), ElementsAre(Sound(60, -4), Sound(90, 2), Sound(90, 0)));
}

TEST_F(BatchPlanTest, MetadataThatIsKeptNeedsRoomToo) {
  BatchWish wish = this->wish({take("a.WAV")});
  const std::uint64_t plain = plan(wish).needed();
  wish.how.keepsMetadata = true;
  EXPECT_EQ(plain + wish.takes->front().keptBytes, plan(wish).needed());
  EXPECT_TRUE(plan(wish).orders()[0].keepsMetadata);
}

TEST_F(BatchPlanTest, EndsEarlyWhereItIsCancelled) {
  const std::atomic<bool> cancel{true};
  EXPECT_TRUE(BatchPlan::make(wish({take("a.WAV")}), cancel).items.empty());
}

TEST_F(BatchPlanTest, ATakeTellsItsLengthAndSizes) {
  const BatchTake known(take("a.WAV", 48'000));
  EXPECT_EQ(1.0, known.seconds);
  EXPECT_EQ(known.size(false), known.size(true) + 2 * 48'000);
  EXPECT_GT(known.keptBytes, 0U);
  EXPECT_EQ(known.size(true) + known.keptBytes, known.size(true, true));
  EXPECT_FALSE(known.isNoise);
  const auto data = WaveBytes::Bytes(4000);
  const BatchTake odd(
      _folder.file("o.WAV", WaveBytes().format(1, 2, 48'000, 16).recorderBext().data(data).get()));
  EXPECT_TRUE(odd.isNoise);
  EXPECT_EQ("", odd.refusal);
}

}  // namespace
