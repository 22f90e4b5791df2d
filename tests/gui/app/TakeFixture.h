// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <gmock/gmock.h>

#include <QCoreApplication>
#include <algorithm>
#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include "app/TakeSession.h"
#include "base/EB.h"
#include "support/EventLoop.h"
#include "support/TemporaryFolder.h"
#include "unit/playback/PlaybackFixture.h"

/// A session without a window: its player plays ten seconds out of memory on a virtual clock, its
/// job has a small file of the recorder's.
class TakeFixture : public PlaybackFixture {
 protected:
  static constexpr int kFrames = 480'000;

  void SetUp() override {
    PlaybackFixture::SetUp();
    format = k24;
    packets.assign(std::size_t{kFrames} * k24.bytesPerPacket, std::byte{0x11});
    EB::SUBSCRIBE(this, &TakeFixture::notify, EB::kPlayFinish);
    record();
  }
  void TearDown() override {
    session.reset();
    NotificationCenter::defaultCenter().removeObserver(this);
    PlaybackFixture::TearDown();
  }
  void notify(const Notification& /*event*/) {
    if (session) session->playFinish();
  }

  /// A file of the recorder's, or what looks like one: Mid 0.5 and Side 0.25 for a second.
  std::filesystem::path take(const std::string& name, bool isRaw = true) const {
    std::vector<std::int32_t> samples(2 * std::size_t{kRate}, 0x400000);
    for (std::size_t i = 1; i < samples.size(); i += 2) samples[i] = 0x200000;
    const auto data = WaveBytes::samples24(samples);
    return takes.file(name, WaveBytes().recorderBext(isRaw).format24().data(data).get());
  }
  void open(const std::string& name, bool isRaw = true) { openFile(name, take(name, isRaw)); }
  /// Until it is known what came of it.
  void openFile(const std::string& name, const std::filesystem::path& file) {
    session->open(QString::fromStdString(name), file);
    waitForTake();
  }
  void waitForTake() const {
    ASSERT_TRUE(
        EventLoop::runUntil([this] { return session->state() != TakeSession::State::Opening; }));
  }
  /// Until what is measured next is at hand; the time limit of the test is the only one.
  void openAndLoad(const std::string& name, bool isRaw = true) {
    open(name, isRaw);
    const double time = session->playedTime();
    while (!session->job()->reader()->follow(time, time + 0.5)) std::this_thread::yield();
  }
  void play(int milliseconds) {
    constexpr int kStep = 20;
    for (int rest = milliseconds; rest > 0; rest -= kStep) {
      clock.advance(std::min(rest, kStep));
      QCoreApplication::processEvents();
    }
  }
  /// Writes down every signal of the session.
  void record() {
    TakeSession& from = *session;
    const auto note = [this](const char* what) {
      return [this, what] { told.emplace_back(what); };
    };
    QObject::connect(&from, &TakeSession::closing, &from, note("closing"));
    QObject::connect(&from, &TakeSession::closed, &from, note("closed"));
    QObject::connect(&from, &TakeSession::opening, &from, note("opening"));
    QObject::connect(&from, &TakeSession::opened, &from, note("opened"));
    QObject::connect(&from, &TakeSession::stateChanged, &from, note("state"));
    QObject::connect(&from, &TakeSession::failed, &from,
                     [this](TakeSession::Failure failure, const QString& why) {
                       told.emplace_back("failed");
                       failures.push_back(failure);
                       reasons.push_back(why.toStdString());
                     });
  }

  TemporaryFolder takes;
  std::unique_ptr<TakeSession> session = std::make_unique<TakeSession>();
  std::vector<std::string> told;
  std::vector<TakeSession::Failure> failures;
  std::vector<std::string> reasons;
};
