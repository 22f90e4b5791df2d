// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "support/Confinement.h"
#include "support/TemporaryFolder.h"
#include "transfer/CardCopy.h"
#include "transfer/FolderCheck.h"

/// A card with three takes, one of them in a folder below, and a place to bring them to.
class CardFixture : public testing::Test {
 protected:
  using Bytes = std::vector<std::byte>;
  using Outcome = CardCopy::Outcome;
  static constexpr std::size_t kLong = 3'000'001;  // some blocks, and no whole number of them

  CardFixture() {
    std::filesystem::create_directories(card() / "DAY2");
    put("card/R0001.WAV", Bytes(kLong, std::byte{1}));
    put("card/R0002.wav", {});
    put("card/DAY2/R0003.WAV", Bytes(1000, std::byte{3}));
    put("card/notes.txt", Bytes(10));
    put("card/.hidden.WAV", Bytes(10));
  }

  void put(const std::string& name, const Bytes& bytes) const { _folder.file(name, bytes); }
  [[nodiscard]] Bytes read(const std::string& name) const {
    return TemporaryFolder::read(_folder.path() / name);
  }
  [[nodiscard]] std::filesystem::path card() const { return _folder.path() / "card"; }
  [[nodiscard]] std::filesystem::path home() const { return _folder.path() / "home"; }

  /// Whether all was well.
  bool copy() {
    CardCopy job(card(), home());
    return run(job);
  }
  bool run(CardCopy& job) {
    _told.clear();
    job.setResult([this](const CardCopy::Result& result) {
      const std::string words[] = {"copied", "kept", "differs", "failed"};
      _told.push_back(result.take.native() + " " + words[static_cast<int>(result.outcome)]);
      _reasons.push_back(result.reason);
    });
    const std::string reason = job.prepare();
    EXPECT_EQ(reason, "");
    return job.run();
  }
  [[nodiscard]] bool isRight() const {
    FolderCheck check(home());
    return check.whyNot().empty() &&
           check.run([](const auto& /*finding*/) {}, [](auto /*bytes*/) { return true; });
  }
  /// What a user without rights to this folder gets of the work, which is done in a child.
  template <class Work>
  std::string withoutRightsTo(const std::filesystem::path& folder, const Work& work) const {
    using std::filesystem::perms;
    const std::filesystem::path said = _folder.file("said", {});
    std::filesystem::permissions(_folder.path(), perms::all);
    std::filesystem::permissions(said, perms::all);
    const perms before = std::filesystem::status(folder).permissions();
    std::filesystem::permissions(folder, perms::none);
    const int result = Confinement::run([&] {
      if (!Confinement::dropPrivileges()) return 1;
      return std::ofstream(said) << work() << std::flush ? 0 : 2;
    });
    std::filesystem::permissions(folder, before);
    EXPECT_EQ(result, 0);
    std::string text;
    for (const std::byte byte : TemporaryFolder::read(said)) text += static_cast<char>(byte);
    return text;
  }
  [[nodiscard]] std::vector<std::string> homeNames() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(home())) {
      if (entry.is_regular_file() && entry.path().extension() != ".mhl") {
        names.push_back(entry.path().lexically_relative(home()).native());
      }
    }
    std::sort(names.begin(), names.end());
    return names;
  }

  TemporaryFolder _folder;
  std::vector<std::string> _told;
  std::vector<std::string> _reasons;
};
