// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "dialogs/ExportFacts.h"

#include "DialogFixture.h"
#include "support/WaveBytes.h"

namespace {

class ExportFactsTest : public DialogFixture {};

TEST_F(ExportFactsTest, TakesDownWhatTheJobHolds) {
  const auto job = this->job();
  job->setDirPath("/tmp");
  const ExportFacts facts(*job);
  EXPECT_TRUE(facts.isValid);
  EXPECT_EQ(path("R0001.WAV"), facts.source);
  EXPECT_EQ("/tmp", facts.folder);
  EXPECT_EQ(6, facts.gain);
  EXPECT_EQ(90.7, facts.angle);
  EXPECT_EQ(748U + 3000 * 6, facts.size24);
  EXPECT_EQ(748U + 3000 * 8, facts.size32);
}

TEST_F(ExportFactsTest, OfAFileThatIsNoRecordingAreEmpty) {
  const ExportFacts facts(Export(_folder.file("x.wav", {})));
  EXPECT_FALSE(facts.isValid);
  EXPECT_EQ(0U, facts.size24);
}

TEST_F(ExportFactsTest, TheProposalDropsTheLastExtensionOnly) {
  ExportFacts facts;
  const std::pair<const char*, const char*> cases[] = {{"/a/R0001.WAV", "R0001_Decode.WAV"},
                                                       {"/a/b.c.wav", "b.c_Decode.WAV"},
                                                       {"/a/take 1.wav", "take 1_Decode.WAV"}};
  for (const auto& [source, name] : cases) {
    facts.source = source;
    facts.folder = "/b";
    EXPECT_EQ(std::filesystem::path("/b") / name, facts.proposal());
  }
}

TEST_F(ExportFactsTest, WarnsOfSamplesThatAreNoSound) {
  const auto samples = std::vector<std::byte>(64);
  const auto odd = _folder.file(
      "odd.WAV", WaveBytes().recorderBext(true).format(1, 2, 48000, 16).data(samples).get());
  EXPECT_EQ(QString("These 16-bit samples export as noise: the recorder writes 24 bits or 32-bit "
                    "float"),
            ExportFacts(Export(odd)).warning(true, std::nullopt));
  EXPECT_EQ(QString(), ExportFacts(*job()).warning(true, std::nullopt));
}

TEST_F(ExportFactsTest, GainHasItsSign) {
  ExportFacts facts;
  const std::pair<double, const char*> cases[] = {{0, "0 dB"}, {12, "+12 dB"}, {-36, "-36 dB"}};
  for (const auto& [gain, text] : cases) {
    facts.gain = gain;
    EXPECT_EQ(QString(text), facts.gainText(false));
    EXPECT_EQ(QString("To full scale"), facts.gainText(true));
  }
}

TEST_F(ExportFactsTest, WidthIsInWholeDegrees) {
  ExportFacts facts;
  facts.isRawMidSide = true;
  facts.angle = 150;
  EXPECT_EQ(QString("150°"), facts.widthText());
  facts.angle = 89.99;
  EXPECT_EQ(QString("89°"), facts.widthText());
}

TEST_F(ExportFactsTest, WarnsWhereItWillNotFit) {
  ExportFacts facts;
  facts.size24 = 20'000;
  facts.size32 = 4'294'967'296;
  EXPECT_EQ(QString(), facts.warning(true, std::nullopt));
  EXPECT_EQ(QString(), facts.warning(true, 20'000));
  EXPECT_EQ(QString("Only 20.0 kB free in this folder"), facts.warning(true, 19'999));
  EXPECT_EQ(QString("Only 0 bytes free in this folder"), facts.warning(true, 0));
  EXPECT_EQ(QString("Over 4 GiB: written as RF64, which not every program reads"),
            facts.warning(false, std::nullopt));
  EXPECT_EQ(QString("Only 4.3 GB free in this folder\n"
                    "Over 4 GiB: written as RF64, which not every program reads"),
            facts.warning(false, 4'294'967'295))
      << "another folder may have the room";
  EXPECT_EQ(QString(), facts.with(0).warning(true, 20'000));
  EXPECT_EQ(QString("Only 20.0 kB free in this folder"), facts.with(1).warning(true, 20'000));
}

TEST_F(ExportFactsTest, KnowsTheRoomOfAFolder) {
  EXPECT_GT(ExportFacts::freeIn(_folder.path()), 0U);
  EXPECT_EQ(ExportFacts::freeIn("/proc"), 0U);
  EXPECT_EQ(ExportFacts::freeIn(path("none")), std::nullopt);
}

TEST_F(ExportFactsTest, TheWarningIsShown) {
  const auto job = this->job();
  job->setDirPath("/proc");
  const auto dialog = openExport(job);
  EXPECT_TRUE(
      waitUntil([&] { return labels(*dialog).contains("Only 0 bytes free in this folder"); }));
  expectNothingCut(*dialog);
}

}  // namespace
