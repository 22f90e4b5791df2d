// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "transfer/ManifestFolder.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "CardFixture.h"

namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class ManifestFolderTest : public CardFixture {
 protected:
  static Manifest of(const std::string& path, const std::string& hash) {
    Manifest manifest;
    manifest.createdAt = "2026-11-22T04:56:00+00:00";
    manifest.entries.push_back({path, 5, "2026-11-21T10:00:00+00:00", hash, "original", ""});
    return manifest;
  }
  /// A folder with this generation; what went wrong.
  std::string save(const fs::path& folder, const Manifest& manifest) {
    fs::create_directories(folder);
    ManifestFolder manifests(folder);
    std::string reason = manifests.save(manifest);
    return reason.empty() ? manifests.finish() : reason;
  }
  [[nodiscard]] std::vector<std::string> generations() const {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(home() / "ascmhl")) {
      if (entry.path().extension() == ".mhl") names.push_back(entry.path().filename());
    }
    std::sort(names.begin(), names.end());
    return names;
  }
  void replaceIn(const std::string& name, const std::string& from, const std::string& to) const {
    const fs::path path = home() / "ascmhl" / name;
    std::string text;
    std::getline(std::ifstream(path), text, '\0');
    const std::size_t at = text.find(from);
    ASSERT_NE(at, std::string::npos);
    std::ofstream(path, std::ios::trunc) << text.replace(at, from.size(), to);
  }
};

TEST_F(ManifestFolderTest, AnyNameOfAFolderMakesAChainThatCanBeRead) {
  std::string tooLong;
  for (int i = 0; i < 85; ++i) tooLong += "\u20AC";  // 255 bytes, and 100 cut a character
  for (const std::string& name : {std::string("R\xE9"), std::string("a\x01z"), tooLong}) {
    const fs::path folder = _folder.path() / name;
    EXPECT_EQ(save(folder, of("a.WAV", "aa")), "") << name;
    const ManifestFolder again(folder);
    EXPECT_THAT(again.problems(), IsEmpty()) << name;
    EXPECT_THAT(again.notInChain(), IsEmpty()) << name;
    EXPECT_THAT(again.files(), SizeIs(1)) << name;
  }
}

TEST_F(ManifestFolderTest, TheNameOfAFolderIsInThatOfAGeneration) {
  ASSERT_EQ(save(home(), of("a.WAV", "aa")), "");
  ASSERT_EQ(save(home() / ".", of("a.WAV", "aa")), "");
  EXPECT_THAT(generations(),
              ElementsAre("0001_home_2026-11-22_045600Z.mhl", "0002_home_2026-11-22_045600Z.mhl"));
}

TEST_F(ManifestFolderTest, TwoGenerationsOfOneNumberBothCount) {
  ASSERT_EQ(save(home(), of("a.WAV", "aa")), "");
  fs::create_directories(_folder.path() / "other");
  ASSERT_EQ(save(_folder.path() / "other", of("b.WAV", "bb")), "");
  fs::copy(_folder.path() / "other" / "ascmhl" / "0001_other_2026-11-22_045600Z.mhl",
           home() / "ascmhl");
  ManifestFolder both(home());
  EXPECT_THAT(both.files(), SizeIs(2));
  EXPECT_THAT(both.notInChain(),
              ElementsAre("0001_other_2026-11-22_045600Z.mhl: it is not in the chain"));
  EXPECT_THAT(both.problems(), IsEmpty());
  EXPECT_EQ(both.finish(), "");
  EXPECT_THAT(ManifestFolder(home()).notInChain(), IsEmpty());
}

TEST_F(ManifestFolderTest, AGenerationOfThatNameIsNotReplaced) {
  fs::create_directories(home());
  ManifestFolder first(home());
  ManifestFolder second(home());
  EXPECT_EQ(first.save(of("a.WAV", "aa")), "");
  EXPECT_EQ(second.save(of("b.WAV", "bb")), "File exists");
  EXPECT_EQ(first.save(of("a.WAV", "cc")), "") << "but its own is";
  EXPECT_EQ(first.finish(), "");
  EXPECT_EQ(ManifestFolder(home()).files().at("a.WAV").hash, "cc");
}

TEST_F(ManifestFolderTest, WhatIsMissingKeepsItsNumber) {
  ASSERT_EQ(save(home(), of("a.WAV", "aa")), "");
  fs::remove(home() / "ascmhl" / generations()[0]);
  ASSERT_EQ(save(home(), of("b.WAV", "bb")), "");
  EXPECT_THAT(generations(), ElementsAre("0002_home_2026-11-22_045600Z.mhl"));
  EXPECT_THAT(ManifestFolder(home()).problems(),
              ElementsAre("0001_home_2026-11-22_045600Z.mhl: it is missing"));
}

TEST_F(ManifestFolderTest, AChangedGenerationIsNotTrustedAndCountsLessThanAnother) {
  ASSERT_EQ(save(home(), of("a.WAV", "aa")), "");
  ASSERT_EQ(save(home(), of("a.WAV", "bb")), "");
  ASSERT_EQ(save(home(), of("b.WAV", "cc")), "");
  replaceIn(generations()[1], "bb", "ff");
  replaceIn(generations()[2], "cc", "ee");
  const ManifestFolder read(home());
  EXPECT_THAT(read.problems(), SizeIs(2));
  EXPECT_EQ(read.files().at("a.WAV").hash, "aa");
  EXPECT_TRUE(read.isTrusted("a.WAV"));
  EXPECT_EQ(read.files().at("b.WAV").hash, "ee");
  EXPECT_FALSE(read.isTrusted("b.WAV"));
  ASSERT_EQ(save(home(), of("b.WAV", "dd")), "");
  EXPECT_TRUE(ManifestFolder(home()).isTrusted("b.WAV")) << "a later one is as it was";
}

// As of a program that verified, and found another content.
TEST_F(ManifestFolderTest, WhatFailedIsNotTrustedUntilItIsVerifiedAgain) {
  ASSERT_EQ(save(home(), of("a.WAV", "aa")), "");
  Manifest failed = of("a.WAV", "bb");
  failed.entries[0].action = "failed";
  ASSERT_EQ(save(home(), failed), "");
  EXPECT_EQ(ManifestFolder(home()).files().at("a.WAV").hash, "aa") << "which it should have";
  EXPECT_FALSE(ManifestFolder(home()).isTrusted("a.WAV"));
  ASSERT_EQ(save(home(), of("a.WAV", "cc")), "");
  replaceIn(generations()[2], "cc", "dd");
  EXPECT_EQ(ManifestFolder(home()).files().at("a.WAV").hash, "aa") << "a changed one counts less";
  EXPECT_FALSE(ManifestFolder(home()).isTrusted("a.WAV"));
  ASSERT_EQ(save(home(), of("a.WAV", "aa")), "");
  EXPECT_TRUE(ManifestFolder(home()).isTrusted("a.WAV"));
}

TEST_F(ManifestFolderTest, WhatFailedByAnotherHashIsNotTrusted) {
  ASSERT_EQ(save(home(), of("a.WAV", "aa")), "");
  ASSERT_EQ(save(home(), of("b.WAV", "bb")), "");
  ASSERT_EQ(save(home(), of("a.WAV", "cc")), "");
  replaceIn(generations()[2], "<xxh128 action=\"original\"", "<md5 action=\"failed\"");
  replaceIn(generations()[2], "</xxh128>", "</md5>");
  fs::remove(home() / "ascmhl" / "ascmhl_chain.xml");  // so that it counts as it is
  const ManifestFolder read(home());
  EXPECT_EQ(read.files().at("a.WAV").hash, "aa");
  EXPECT_FALSE(read.isTrusted("a.WAV"));
  EXPECT_TRUE(read.isTrusted("b.WAV"));
}

// As of a program that knows other hashes.
TEST_F(ManifestFolderTest, AGenerationWithoutAHashHidesNone) {
  ASSERT_EQ(save(home(), of("a.WAV", "aa")), "");
  ASSERT_EQ(save(home(), of("a.WAV", "")), "");
  EXPECT_EQ(ManifestFolder(home()).files().at("a.WAV").hash, "aa");
  ASSERT_EQ(save(home(), of("a.WAV", "bb")), "");
  EXPECT_EQ(ManifestFolder(home()).files().at("a.WAV").hash, "bb");
}

TEST_F(ManifestFolderTest, WhatCannotBeReadIsNotWrittenOver) {
  ASSERT_EQ(save(home(), of("a.WAV", "aa")), "");
  const fs::path chain = home() / "ascmhl" / "ascmhl_chain.xml";
  std::ofstream(chain, std::ios::trunc) << "<half";
  EXPECT_EQ(save(home(), of("b.WAV", "bb")), "ascmhl_chain.xml: it is not well-formed");
  EXPECT_EQ(fs::file_size(chain), 5U);
  EXPECT_THAT(generations(), SizeIs(1));
  EXPECT_EQ(CardCopy(card(), home()).prepare(),
            "The manifest cannot be read: ascmhl_chain.xml: it is not well-formed");
}

TEST_F(ManifestFolderTest, AFolderThatCannotBeListedIsNotOneWithoutManifests) {
  ASSERT_EQ(save(home(), of("a.WAV", "aa")), "");
  const std::string reason = "ascmhl: Permission denied";
  EXPECT_EQ(withoutRightsTo(home() / "ascmhl", [this] { return ManifestFolder(home()).whyNot(); }),
            "ascmhl: Permission denied");
  EXPECT_EQ(withoutRightsTo(home() / "ascmhl", [this] { return FolderCheck(home()).whyNot(); }),
            "The manifest cannot be read: ascmhl: Permission denied");
  fs::remove_all(home() / "ascmhl");
  put("home/ascmhl", Bytes(3));
  EXPECT_EQ(ManifestFolder(home()).whyNot(), "ascmhl: Not a directory");
}

}  // namespace
