// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

// A take on a medium that hangs while it is opened.

#include <QSignalSpy>
#include <QTest>
#include <atomic>
#include <thread>

#include "TakeFixture.h"
#include "app/SoundPane.h"
#include "app/TakeMessages.h"
#include "app/TransportPane.h"

namespace {

using testing::ElementsAre;
using State = TakeSession::State;

/// Opens when it is let go.
class HeldOpening : public MemoryAudioFile {
 public:
  HeldOpening(const AudioFormat& format, std::vector<std::byte> packets,
              std::shared_ptr<std::atomic<bool>> isHeld)
      : MemoryAudioFile(format, std::move(packets)), _isHeld(std::move(isHeld)) {}

  bool open(const std::string& path) override {
    while (*_isHeld) std::this_thread::yield();
    return MemoryAudioFile::open(path);
  }

 private:
  std::shared_ptr<std::atomic<bool>> _isHeld;
};

class Opening : public TakeFixture {
 protected:
  void SetUp() override {
    TakeFixture::SetUp();
    AudioBackends::addFile(
        "memory", [this] { return std::make_unique<HeldOpening>(format, packets, isHeld); });
  }
  void TearDown() override {
    *isHeld = false;
    TakeFixture::TearDown();
  }
  /// Begins to open a take that hangs until `isHeld` as it is now is let go.
  void begin(const std::string& name) {
    *isHeld = true;
    session->open(QString::fromStdString(name), take(name));
  }
  /// What is opened from now on does not hang; what hangs goes on to.
  std::shared_ptr<std::atomic<bool>> holdNoMore() {
    return std::exchange(isHeld, std::make_shared<std::atomic<bool>>(false));
  }
  void waitUntilSlow() {
    QSignalSpy slow(session.get(), &TakeSession::stillOpening);
    ASSERT_TRUE(slow.wait(60'000));
  }

  std::shared_ptr<std::atomic<bool>> isHeld = std::make_shared<std::atomic<bool>>(false);
};

TEST_F(Opening, IsUnderWayWhenTheCallReturns) {
  begin("a.WAV");
  EXPECT_THAT(told, ElementsAre("opening"));
  EXPECT_EQ(session->state(), State::Opening);
  EXPECT_EQ(session->name(), "a.WAV");
  EXPECT_FALSE(session->isOpen());
  session->play();
  session->seek(0.5);
  EXPECT_EQ(session->jobToExport(), nullptr);
  *isHeld = false;
  waitForTake();
  EXPECT_THAT(told, ElementsAre("opening", "opened", "state"));
}

TEST_F(Opening, IsVoidOnceAnotherTakeIsOpened) {
  begin("a.WAV");
  const auto first = holdNoMore();
  session->open("b.WAV", take("b.WAV"));
  waitForTake();
  *first = false;
  while (first.use_count() > 1) std::this_thread::yield();
  play(100);
  EXPECT_THAT(told, ElementsAre("opening", "opening", "opened", "state"));
  EXPECT_EQ(session->name(), "b.WAV");
}

TEST_F(Opening, OfTheSameTakeAgainIsAnsweredAtOnce) {
  begin("a.WAV");
  for (int i = 0; i < 5; ++i) session->open("a.WAV", session->file());
  EXPECT_EQ(session->state(), State::Opening);
  *isHeld = false;
  waitForTake();
  EXPECT_EQ(std::ranges::count(told, "opened"), 1);
}

TEST_F(Opening, IsGivenUpByClosing) {
  begin("a.WAV");
  session->close();
  EXPECT_THAT(told, ElementsAre("opening", "closed"));
  EXPECT_EQ(session->state(), State::Closed);
  *isHeld = false;
  while (isHeld.use_count() > 1) QCoreApplication::processEvents();
  EXPECT_THAT(told, ElementsAre("opening", "closed"));
}

TEST_F(Opening, IsNotWaitedForAtTheEnd) {
  begin("a.WAV");
  session.reset();
  *isHeld = false;
  while (isHeld.use_count() > 1) QCoreApplication::processEvents();
}

TEST_F(Opening, ClosesTheTakeBefore) {
  open("a.WAV");
  told.clear();
  begin("b.WAV");
  EXPECT_THAT(told, ElementsAre("closing", "opening"));
  EXPECT_FALSE(session->isOpen());
}

TEST_F(Opening, ShowsThatItGoesOnWhereItTakesLong) {
  PlayerView view;
  const TransportPane transport(view, *session);
  const SoundPane sound(view, *session);
  QWidget window;
  StatusLine status;
  const TakeMessages messages(window, status, *session);
  open("a.WAV");
  begin("b.WAV");
  EXPECT_EQ(view.lblFileName->text(), "a.WAV") << "it may be there in a moment";
  EXPECT_TRUE(view.btnPlayPause->isEnabled());
  waitUntilSlow();
  EXPECT_EQ(view.lblFileName->text(), "b.WAV");
  EXPECT_EQ(view.lblTimeTotal->text(), "--:--:--");
  EXPECT_FALSE(view.btnPlayPause->isEnabled());
  EXPECT_FALSE(view.stage->sliderGain->isEnabled());
  EXPECT_EQ(status.text(), "b.WAV is being opened… (Esc gives up)");
  *isHeld = false;
  waitForTake();
  EXPECT_EQ(status.text(), "");
  EXPECT_TRUE(view.btnPlayPause->isEnabled());
  EXPECT_TRUE(view.stage->sliderGain->isEnabled());
}

TEST_F(Opening, SlowOneThatIsGivenUpLeavesNothingShown) {
  PlayerView view;
  const TransportPane transport(view, *session);
  QWidget window;
  StatusLine status;
  const TakeMessages messages(window, status, *session);
  begin("a.WAV");
  waitUntilSlow();
  session->close();
  EXPECT_EQ(view.lblFileName->text(), "");
  EXPECT_EQ(status.text(), "");
}

}  // namespace
