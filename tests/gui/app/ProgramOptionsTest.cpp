// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/ProgramOptions.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <string>
#include <vector>

#include "support/TemporaryFolder.h"

namespace {

using testing::ElementsAre;

class Options : public testing::Test {
 protected:
  static ProgramOptions parse(std::vector<const char*> words) {
    words.insert(words.begin(), "mixdeck");
    return ProgramOptions::parse(static_cast<int>(words.size()), words.data());
  }
  /// What is said of words that are wrong.
  static std::string complaint(const std::vector<const char*>& words) {
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    const auto status = parse(words).status;
    const std::string said = testing::internal::GetCapturedStderr();
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    EXPECT_EQ(status, 2);
    return said;
  }
};

TEST_F(Options, TakeAFolderOrARecordingOrNothing) {
  const TemporaryFolder folder;
  const std::string path = folder.path().string();
  EXPECT_TRUE(parse({}).starts.empty());
  EXPECT_FALSE(parse({}).simulatesRecorder);
  EXPECT_THAT(parse({path.c_str()}).starts, ElementsAre(path));
  EXPECT_THAT(parse({path.c_str(), "/"}).starts, ElementsAre(path, "/"));
  EXPECT_THAT(parse({("file://" + path).c_str()}).starts, ElementsAre(path));
  EXPECT_EQ(parse({path.c_str()}).status, std::nullopt);
}

TEST_F(Options, AreThose) {
  EXPECT_EQ(parse({"--language", "fr"}).language, "fr");
  EXPECT_FALSE(parse({"/", "--language", "fr"}).isForItself());
  EXPECT_TRUE(parse({"--simulate-recorder"}).isForItself());
  EXPECT_TRUE(parse({"--simulate-recorder"}).simulatesRecorder);
  EXPECT_EQ(parse({"--help"}).status, 0);
  EXPECT_EQ(parse({"--version"}).status, 0);
}

TEST_F(Options, OfAPlaceThatIsNotThereItIsSaidWhyAndWhatToDo) {
  const TemporaryFolder folder;
  const std::string file = folder.file("R0001.WAV", {}).string();
  const std::string name(300, 'x');
  EXPECT_EQ(complaint({"/no/such/place"}),
            "mixdeck: /no/such/place: No such file or directory; check its name, and that its card "
            "or disk is there\n");
  EXPECT_EQ(complaint({"file:///no/such%20place"}),
            "mixdeck: /no/such place: No such file or directory; check its name, and that its card "
            "or disk is there\n");
  EXPECT_EQ(complaint({"/", (file + "/inside").c_str()}),
            "mixdeck: " + file + "/inside: Not a directory; check the folders in its name\n");
  EXPECT_EQ(complaint({name.c_str()}), "mixdeck: " + name + ": File name too long\n");
  EXPECT_EQ(complaint({""}), "mixdeck: FOLDER|FILE: is empty; see mixdeck --help\n");
}

TEST_F(Options, OfAnAddressElsewhereItIsSaidWhatToNameInstead) {
  EXPECT_EQ(
      complaint({"file://elsewhere.example/R0001.WAV"}),
      "mixdeck: file://elsewhere.example/R0001.WAV: Not a file on this machine; name a folder "
      "or a recording on it\n");
  EXPECT_EQ(complaint({"http://mixdeck.example/R0001.WAV"}),
            "mixdeck: http://mixdeck.example/R0001.WAV: Not a file on this machine; name a folder "
            "or a recording on it\n");
}

TEST_F(Options, OfWrongWordsALineNamesTheHelp) {
  for (const auto& words : std::vector<std::vector<const char*>>{
           {"--wrong"}, {"--language", "tlh"}, {"--language"}, {"--log=loud"}}) {
    EXPECT_THAT(complaint(words), testing::MatchesRegex("mixdeck: [^\n]+; see mixdeck --help\n"))
        << words.front();
  }
  EXPECT_THAT(complaint({"--wrong"}), testing::HasSubstr("--wrong"));
  EXPECT_THAT(complaint({"--language", "tlh"}), testing::HasSubstr("de,en,es,fr,ja,zh_CN"));
}

}  // namespace
