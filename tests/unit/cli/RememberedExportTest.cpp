// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "cli/ExportCommand.h"
#include "support/EnvironmentVariable.h"
#include "support/LockedMemory.h"
#include "support/NewerMemory.h"
#include "support/TemporaryFolder.h"
#include "support/WaveBytes.h"
#include "takes/TakeIdentity.h"
#include "takes/TakeMemory.h"

namespace {

/// `export` over what the window remembers.
class RememberedExport : public testing::Test {
 protected:
  std::filesystem::path take(const std::string& name, std::int32_t level, bool isRaw = true) {
    std::vector<std::int32_t> samples(9600, level);
    for (std::size_t i = 1; i < samples.size(); i += 2) samples[i] = level / 3;
    const auto data = WaveBytes::samples24(samples);
    return folder.file(name, WaveBytes().recorderBext(isRaw).format24().data(data).get());
  }
  static void remember(const std::filesystem::path& take, const RememberedSound& sound) {
    std::string whyNot;
    const auto reader = WaveFileReader::openFile(take, whyNot);
    EXPECT_TRUE(TakeMemory().remember(TakeIdentity::of(*reader), sound));
  }
  /// The samples of the export, and what was said on standard error.
  std::vector<std::byte> exported(const std::filesystem::path& take,
                                  std::vector<std::string> words) {
    const auto target = folder.path() / "out.wav";
    words.insert(words.end(), {"export", "--quiet", "--force", "--output", target.native()});
    std::rotate(words.begin(), words.end() - 5, words.end());
    words.push_back(take.native());
    std::ranges::reverse(words);
    CLI::App program;
    ExportCommand command;
    command.declare(program);
    testing::internal::CaptureStderr();
    program.parse(words);
    EXPECT_EQ(command.run(), Command::kDone);
    said = testing::internal::GetCapturedStderr();
    const auto bytes = TemporaryFolder::read(target);
    constexpr std::ptrdiff_t kFirstSample = 748;
    return {bytes.begin() + kFirstSample, bytes.end()};
  }

  TemporaryFolder folder;
  EnvironmentVariable data{"XDG_DATA_HOME", folder.path().string()};
  std::string said;
};

TEST_F(RememberedExport, EachTakeHasItsOwnWidthAndGain) {
  const auto first = take("a.wav", 900'000);
  const auto second = take("b.wav", 500'000);
  remember(first, {60.5, -6, FrameRange{100, 200}});
  remember(second, {30.0, 3, std::nullopt});
  EXPECT_EQ(exported(first, {"--remembered"}), exported(first, {"--angle", "60", "--gain", "-6"}));
  EXPECT_EQ(exported(second, {"--remembered"}), exported(second, {"--angle", "30", "--gain", "3"}));
  EXPECT_NE(exported(second, {"--remembered"}), exported(second, {}));
  EXPECT_EQ(said, "");
}

TEST_F(RememberedExport, ARenamedTakeIsKnownAndAnotherIsToldToBeUnknown) {
  const auto known = take("a.wav", 900'000);
  remember(known, {60.0, -6, std::nullopt});
  std::filesystem::rename(known, folder.path() / "renamed.wav");
  EXPECT_EQ(exported(folder.path() / "renamed.wav", {"--remembered"}),
            exported(folder.path() / "renamed.wav", {"--angle", "60", "--gain", "-6"}));
  const auto unknown = take("c.wav", 700'000);
  const auto plain = exported(unknown, {});
  EXPECT_EQ(exported(unknown, {"--remembered"}), plain);
  EXPECT_NE(said.find("Nothing is remembered of it; it is exported at 120 degrees and 0 dB"),
            std::string::npos)
      << said;
}

TEST_F(RememberedExport, WithNormalisingTheWidthCountsAlone) {
  const auto known = take("a.wav", 900'000);
  remember(known, {60.0, -6, std::nullopt});
  EXPECT_EQ(exported(known, {"--remembered", "--normalize"}),
            exported(known, {"--angle", "60", "--normalize"}));
}

TEST_F(RememberedExport, ATakeWithoutAWidthHasItsGain) {
  const auto plain = take("a.wav", 900'000, false);
  remember(plain, {std::nullopt, -12, std::nullopt});
  EXPECT_EQ(exported(plain, {"--remembered"}), exported(plain, {"--gain", "-12"}));
}

TEST_F(RememberedExport, ADamagedMemoryIsTold) {
  std::filesystem::create_directories(folder.path() / "mixdeck");
  std::ofstream(TakeMemory::defaultPath()) << std::string(10'000, 'x');
  const auto unknown = take("a.wav", 900'000);
  exported(unknown, {"--remembered"});
  EXPECT_NE(said.find("takes.db.damaged"), std::string::npos) << said;
}

TEST_F(RememberedExport, AMemoryOfANewerVersionIsToldAndTheExportIsWritten) {
  const auto known = take("a.wav", 900'000);
  remember(known, {60.0, -6, std::nullopt});
  const auto plain = exported(known, {});
  makeNewer(TakeMemory::defaultPath());
  EXPECT_EQ(exported(known, {"--remembered"}), plain);
  EXPECT_NE(said.find("What is remembered is of a newer version; it is exported at 120 degrees"),
            std::string::npos)
      << said;
}

TEST_F(RememberedExport, AMemoryThatAnotherProgramHasLockedIsToldAndTheExportIsWritten) {
  const auto known = take("a.wav", 900'000);
  remember(known, {60.0, -6, std::nullopt});
  const auto plain = exported(known, {});
  {
    const LockedMemory locked(TakeMemory::defaultPath());
    EXPECT_EQ(exported(known, {"--remembered"}), plain);
  }
  EXPECT_NE(said.find("What is remembered cannot be read; it is exported at 120 degrees and 0 dB"),
            std::string::npos)
      << said;
  EXPECT_NE(exported(known, {"--remembered"}), plain) << "nothing was lost";
}

TEST_F(RememberedExport, AWidthOrAGainBesideItIsWrongUsage) {
  for (const char* const other : {"--angle", "--gain"}) {
    CLI::App program;
    ExportCommand command;
    command.declare(program);
    std::vector<std::string> words{"a.wav", "1", other, "--remembered", "export"};
    EXPECT_THROW(program.parse(words), CLI::ExcludesError) << other;
  }
}

}  // namespace
