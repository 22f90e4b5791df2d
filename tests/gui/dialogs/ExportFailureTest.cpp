// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <sys/resource.h>

#include <QMessageBox>
#include <QTest>
#include <csignal>

#include "DialogFixture.h"

namespace {

using testing::ElementsAre;
using testing::StartsWith;

class ExportFailureTest : public DialogFixture {
 protected:
  void expectAlert(const char* text) {
    auto* const alert = waitForShown<QMessageBox>();
    EXPECT_EQ(QMessageBox::NoIcon, alert->icon());
    EXPECT_EQ(QString(), alert->text());
    EXPECT_EQ(QString(text), alert->informativeText());
    click(*alert, "Ok");
    EXPECT_TRUE(waitUntil([] { return shown<QMessageBox>() == nullptr; }));
  }
  void expectSourceRefused(const std::string& name) {
    const auto before = TemporaryFolder::read(path("R0001.WAV"));
    const auto dialog = openExport(job());
    saveAs(*dialog, name);
    EXPECT_THAT(told(dialog),
                ElementsAre("EB_RELOAD_FILE_LIST",
                            "failed R0001.WAV was not exported: The target is the source itself."));
    expectAlert("Fail to open.");
    EXPECT_EQ(before, TemporaryFolder::read(path("R0001.WAV")));
  }
};

/// No file of this process grows past `bytes`, as on a full disk.
class FileSizeLimit {
 public:
  explicit FileSizeLimit(rlim_t bytes) {
    std::signal(SIGXFSZ, SIG_IGN);
    getrlimit(RLIMIT_FSIZE, &_before);
    const rlimit limit{bytes, _before.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  FileSizeLimit(const FileSizeLimit&) = delete;
  FileSizeLimit& operator=(const FileSizeLimit&) = delete;
  ~FileSizeLimit() { setrlimit(RLIMIT_FSIZE, &_before); }

 private:
  rlimit _before{};
};

TEST_F(ExportFailureTest, TheSourceIsNeverReplaced) {
  take("R0001.WAV");
  expectSourceRefused("R0001.WAV");
}

TEST_F(ExportFailureTest, NorThroughALink) {
  take("R0001.WAV");
  std::filesystem::create_symlink("R0001.WAV", path("link.WAV"));
  const auto dialog = openExport(job());
  saveAs(*dialog, "link.WAV");
  click(*waitForShown<QMessageBox>(), "Replace");
  EXPECT_THAT(told(dialog),
              ElementsAre("EB_RELOAD_FILE_LIST",
                          "failed R0001.WAV was not exported: The target is the source itself."));
  expectAlert("Fail to open.");
}

TEST_F(ExportFailureTest, AFolderThatCannotBeWritten) {
  const auto dialog = openExport(job());
  saveAs(*dialog, "/proc/out.WAV");  // not even by root
  EXPECT_THAT(told(dialog), ElementsAre("EB_RELOAD_FILE_LIST", StartsWith("failed ")));
  expectAlert("Fail to save.");
}

TEST_F(ExportFailureTest, AFolderThatIsNotThere) {
  const auto dialog = openExport(job());
  saveAs(*dialog, path("none/out.WAV").string());
  EXPECT_THAT(told(dialog), ElementsAre("EB_RELOAD_FILE_LIST", StartsWith("failed ")));
  expectAlert("Fail to save.");
}

TEST_F(ExportFailureTest, AFolderInPlaceOfAFile) {
  std::filesystem::create_directory(path("out.WAV"));
  const auto dialog = openExport(job());
  saveAs(*dialog, "out");
  EXPECT_THAT(told(dialog), ElementsAre("EB_RELOAD_FILE_LIST", StartsWith("failed ")));
  expectAlert("Fail to save.");
}

TEST_F(ExportFailureTest, ADiskThatFillsUp) {
  const auto dialog = openExport(job());
  const FileSizeLimit limit(4096);
  saveAs(*dialog, "out");
  EXPECT_THAT(told(dialog), ElementsAre("EB_RELOAD_FILE_LIST", StartsWith("failed ")));
  expectAlert("Fail to save.");
  EXPECT_THAT(_folder.names(), ElementsAre("R0001.WAV"));
}

TEST_F(ExportFailureTest, ASourceThatHasGone) {
  const auto dialog = openExport(job());
  std::filesystem::remove(path("R0001.WAV"));
  saveAs(*dialog, "out");
  EXPECT_THAT(told(dialog), ElementsAre("EB_RELOAD_FILE_LIST", StartsWith("failed ")));
  expectAlert("Fail to save.");
  EXPECT_TRUE(_folder.names().empty());
}

TEST_F(ExportFailureTest, WhyIsASentence) {
  const auto dialog = openExport(job());
  saveAs(*dialog, path("none/out.WAV").string());
  const std::string why = told(dialog).back();
  EXPECT_EQ('.', why.back());
  EXPECT_NE('.', why[why.size() - 2]);
}

}  // namespace
