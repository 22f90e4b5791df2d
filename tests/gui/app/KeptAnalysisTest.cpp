// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <filesystem>
#include <fstream>

#include "TakeFixture.h"
#include "app/MeasuredTake.h"

namespace {

/// What a take measures when it is opened for the second time.
class KeptAnalysis : public TakeFixture {
 protected:
  void TearDown() override {
    measured.reset();
    TakeFixture::TearDown();
  }
  /// Always the same file: one that was written anew counts as changed.
  void openTake() {
    if (path.empty()) path = take("a.WAV");
    openFile("a.WAV", path);
  }
  void measureAll() {
    ASSERT_TRUE(EventLoop::runUntil([this] { return measured->isComplete(); }));
  }
  [[nodiscard]] std::size_t kept() const { return folder.names().size(); }
  /// Opens it and waits for the first that is known of it.
  void openAndMeasure() {
    std::shared_ptr<const TakeAnalysis> first;
    const auto told = QObject::connect(measured.get(), &MeasuredTake::measured, [&] {
      if (!first) first = measured->analysis();
    });
    openTake();
    ASSERT_TRUE(EventLoop::runUntil([&] { return first != nullptr; }));
    QObject::disconnect(told);
    isWholeAtOnce = first->isComplete();
  }

  std::filesystem::path path;
  TemporaryFolder folder;
  std::unique_ptr<MeasuredTake> measured = std::make_unique<MeasuredTake>(
      *session, nullptr, std::make_shared<const AnalysisCache>(folder.path()));
  bool isWholeAtOnce = false;
};

TEST_F(KeptAnalysis, ASecondOpeningKnowsAllAtOnceAndTheSame) {
  openTake();
  measureAll();
  const auto first = measured->analysis();
  ASSERT_TRUE(EventLoop::runUntil([this] { return kept() == 1; }));
  openAndMeasure();
  EXPECT_TRUE(isWholeAtOnce);
  EXPECT_EQ(measured->progress(), 1.0);
  EXPECT_FALSE(measured->isRunning());
  EXPECT_NE(measured->analysis(), first) << "it is read, not remembered";
  EXPECT_TRUE(measured->analysis()->findings() == first->findings());
  EXPECT_EQ(measured->analysis()->at(90, 0).integratedLufs, first->at(90, 0).integratedLufs);
}

TEST_F(KeptAnalysis, ADamagedOneIsMadeAnew) {
  openTake();
  measureAll();
  const auto first = measured->analysis();
  ASSERT_TRUE(EventLoop::runUntil([this] { return kept() == 1; }));
  const auto entry = folder.path() / folder.names().at(0);
  const auto size = std::filesystem::file_size(entry);
  std::ofstream(entry) << std::string(size, 'x');
  openTake();
  measureAll();
  EXPECT_TRUE(measured->analysis()->findings() == first->findings());
  const auto isAnew = [&] {
    return kept() == 1 && TemporaryFolder::read(entry).back() != std::byte{'x'};
  };
  ASSERT_TRUE(EventLoop::runUntil(isAnew));
}

TEST_F(KeptAnalysis, SideAloneIsKeptBesideIt) {
  openTake();
  measureAll();
  session->setSolo(Solo::Side);
  ASSERT_TRUE(EventLoop::runUntil([this] { return kept() == 2; }));
}

TEST_F(KeptAnalysis, WhatIsGivenUpIsNotKept) {
  openTake();
  session->close();
  EXPECT_FALSE(measured->isRunning());
  EXPECT_FALSE(measured->analysis());
  openTake();
  measureAll();
  ASSERT_TRUE(EventLoop::runUntil([this] { return kept() == 1; }));
}

}  // namespace
