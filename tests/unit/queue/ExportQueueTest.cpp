// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "queue/ExportQueue.h"

#include <gmock/gmock.h>

#include <QCoreApplication>
#include <algorithm>
#include <atomic>
#include <chrono>
#include <map>
#include <memory>
#include <new>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "base/EndPatience.h"
#include "base/SteadyTime.h"
#include "support/CoreApplication.h"
#include "support/EventLoop.h"
#include "support/HeldWork.h"
#include "support/TemporaryFolder.h"
#include "support/WaveBytes.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using namespace std::chrono_literals;
using End = ExportResult::End;

/// Takes down what a queue tells, each as a line such as "began 1 a".
class Record {
 public:
  explicit Record(ExportQueue& queue) {
    using Order = const ExportOrder&;
    QObject::connect(&queue, &ExportQueue::added, &_context,
                     [this](int id, Order order) { put("added", id, order); });
    QObject::connect(&queue, &ExportQueue::began, &_context,
                     [this](int id, Order order) { put("began", id, order); });
    QObject::connect(&queue, &ExportQueue::finished, &_context,
                     [this](int id, Order order, const ExportResult& result) {
                       put("finished", id, order);
                       results[id] = result;
                     });
    QObject::connect(&queue, &ExportQueue::progressed, &_context,
                     [this](int id, double done, std::chrono::milliseconds elapsed) {
                       progress[id].emplace_back(done, elapsed);
                     });
  }
  [[nodiscard]] bool has(const std::string& line) const {
    return std::ranges::find(lines, line) != lines.end();
  }

  std::vector<std::string> lines;
  std::map<int, ExportResult> results;
  std::map<int, std::vector<std::pair<double, std::chrono::milliseconds>>> progress;

 private:
  void put(const std::string& what, int id, const ExportOrder& order) {
    lines.push_back(what + " " + std::to_string(id) + " " + order.target.string());
  }

  QObject _context;
};

class ExportQueueTest : public testing::Test {
 protected:
  ~ExportQueueTest() override { queue.reset(); }

  static ExportResult write(const ExportOrder& /*order*/, ExportWorker::Control& control) {
    return {control.isCancelled ? End::Cancelled : End::Written, {}};
  }
  ExportQueue::Id add(const std::string& target) {
    return queue->add({.source = "in.wav", .target = target});
  }
  /// Lets one order go and waits until it has ended.
  void release(ExportQueue::Id id, const std::string& target) {
    held.release(target);
    waitForEnd(id);
  }
  void waitForEnd(ExportQueue::Id id) {
    EXPECT_TRUE(EventLoop::runUntil([&] { return told.results.contains(id); })) << id;
  }
  /// Waits until the queue has looked at what runs that often.
  void waitForLooks(ExportQueue::Id id, std::size_t count) {
    const std::size_t before = told.progress[id].size();
    EXPECT_TRUE(EventLoop::runUntil([&] { return told.progress[id].size() >= before + count; }));
  }
  void waitForBegun(std::size_t count) {
    EXPECT_TRUE(EventLoop::runUntil([&] { return held.begun().size() == count; }));
  }

  CoreApplication application;
  HeldWork held{write};
  std::chrono::milliseconds now{1000};
  std::unique_ptr<ExportQueue> queue =
      std::make_unique<ExportQueue>(held.work(), [this] { return now; });
  Record told{*queue};
};

TEST_F(ExportQueueTest, IsIdleAtFirst) {
  EXPECT_FALSE(queue->isBusy());
  EXPECT_THAT(queue->ids(), IsEmpty());
  EXPECT_EQ(1U, queue->atOnce());
  queue->cancelAll();
  queue->cancel(1);
  EXPECT_THAT(told.lines, IsEmpty());
}

TEST_F(ExportQueueTest, AnOrderIsAddedBeginsAndIsFinished) {
  const auto id = add("a");
  EXPECT_THAT(told.lines, ElementsAre("added 1 a", "began 1 a"));
  EXPECT_TRUE(queue->isBusy());
  EXPECT_TRUE(queue->isRunning(id));
  release(id, "a");
  EXPECT_THAT(told.lines, ElementsAre("added 1 a", "began 1 a", "finished 1 a"));
  EXPECT_EQ(End::Written, told.results[id].end);
  EXPECT_FALSE(queue->isBusy());
  EXPECT_FALSE(queue->isRunning(id));
}

TEST_F(ExportQueueTest, TheNextBeginsWhenTheOneBeforeHasEnded) {
  const auto first = add("a");
  const auto second = add("b");
  const auto third = add("c");
  EXPECT_THAT(queue->ids(), ElementsAre(first, second, third));
  waitForLooks(first, 2);
  EXPECT_THAT(told.lines, ElementsAre("added 1 a", "began 1 a", "added 2 b", "added 3 c"));
  EXPECT_THAT(held.begun(), ElementsAre("a"));
  told.lines.clear();
  held.release("c");  // it is not its turn
  release(first, "a");
  release(second, "b");
  waitForEnd(third);
  EXPECT_THAT(told.lines, ElementsAre("finished 1 a", "began 2 b", "finished 2 b", "began 3 c",
                                      "finished 3 c"));
  EXPECT_THAT(held.begun(), ElementsAre("a", "b", "c"));
}

TEST_F(ExportQueueTest, AsManyRunAtOnceAsAreWished) {
  queue->setAtOnce(2);
  const auto first = add("a");
  const auto second = add("b");
  const auto third = add("c");
  EXPECT_TRUE(queue->isRunning(first) && queue->isRunning(second));
  EXPECT_FALSE(queue->isRunning(third));
  waitForBegun(2);
  release(second, "b");
  EXPECT_TRUE(queue->isRunning(first) && queue->isRunning(third));
  EXPECT_THAT(queue->ids(), ElementsAre(first, third));
  held.releaseAll();
  waitForEnd(first);
  waitForEnd(third);
  EXPECT_FALSE(queue->isBusy());
}

TEST_F(ExportQueueTest, MoreAtOnceBeginsWhatWaits) {
  add("a");
  add("b");
  add("c");
  queue->setAtOnce(3);
  waitForBegun(3);
  queue->setAtOnce(0);
  EXPECT_EQ(1U, queue->atOnce());
  EXPECT_EQ(3U, queue->ids().size());
  EXPECT_TRUE(queue->isRunning(3));  // what runs already runs on
  add("d");
  release(1, "a");
  release(2, "b");
  EXPECT_FALSE(queue->isRunning(4));
  release(3, "c");
  EXPECT_TRUE(queue->isRunning(4));
}

TEST_F(ExportQueueTest, TellsHowFarWhatRunsIsAndForHowLong) {
  held.setDone(0.25);
  const auto first = add("a");
  const auto second = add("b");
  now += 70ms;
  EXPECT_TRUE(EventLoop::runUntil(
      [&] { return !told.progress[first].empty() && told.progress[first].back().first > 0; }));
  EXPECT_EQ(std::pair(0.25, 70ms), told.progress[first].back());
  EXPECT_THAT(told.progress[second], IsEmpty());
  release(first, "a");
  now += 5ms;
  waitForLooks(second, 1);
  EXPECT_EQ(5ms, told.progress[second].back().second);
  const std::size_t looks = told.progress[first].size();
  waitForLooks(second, 2);
  EXPECT_EQ(looks, told.progress[first].size());
}

TEST_F(ExportQueueTest, WhatRunsIsCancelledSoonAndTheNextBegins) {
  const auto first = add("a");
  const auto second = add("b");
  queue->cancel(first);
  EXPECT_TRUE(queue->isRunning(first));
  waitForEnd(first);
  EXPECT_EQ(End::Cancelled, told.results[first].end);
  EXPECT_TRUE(queue->isRunning(second));
  queue->cancel(first);  // which is over
  release(second, "b");
  EXPECT_EQ(End::Written, told.results[second].end);
}

TEST_F(ExportQueueTest, WhatWaitsIsCancelledAtOnceAndNeverBegins) {
  const auto first = add("a");
  const auto second = add("b");
  const auto third = add("c");
  queue->cancel(second);
  EXPECT_EQ("finished 2 b", told.lines.back());
  EXPECT_EQ(End::Cancelled, told.results[second].end);
  EXPECT_THAT(queue->ids(), ElementsAre(first, third));
  held.releaseAll();
  waitForEnd(third);
  EXPECT_THAT(held.begun(), ElementsAre("a", "c"));
  EXPECT_FALSE(told.has("began 2 b"));
}

TEST_F(ExportQueueTest, EverythingIsCancelled) {
  queue->setAtOnce(2);
  for (const char* const target : {"a", "b", "c", "d"}) add(target);
  queue->cancelAll();
  EXPECT_THAT(queue->ids(), ElementsAre(1, 2));
  waitForEnd(1);
  waitForEnd(2);
  for (int id = 1; id <= 4; ++id) EXPECT_EQ(End::Cancelled, told.results[id].end) << id;
  EXPECT_FALSE(told.has("began 3 c"));
  EXPECT_FALSE(queue->isBusy());
}

TEST_F(ExportQueueTest, ASlotMayAddAndCancel) {
  QObject::connect(queue.get(), &ExportQueue::finished, queue.get(), [this](int id) {
    if (id == 1) add("again");
    if (id == 2) queue->cancelAll();
  });
  const auto first = add("a");
  release(first, "a");
  EXPECT_TRUE(queue->isRunning(2));
  add("c");
  queue->cancel(2);
  waitForEnd(3);
  EXPECT_EQ(End::Cancelled, told.results[3].end);
  EXPECT_FALSE(told.has("began 3 c"));
}

TEST_F(ExportQueueTest, NumbersAreNotUsedTwice) {
  held.releaseAll();
  waitForEnd(add("a"));
  EXPECT_EQ(2, add("a"));
  waitForEnd(2);
}

TEST_F(ExportQueueTest, ItsEndCancelsWithoutAWord) {
  add("a");
  add("b");
  waitForBegun(1);
  told.lines.clear();
  queue.reset();
  QCoreApplication::processEvents();
  EXPECT_THAT(told.lines, IsEmpty());
  EXPECT_THAT(held.begun(), ElementsAre("a"));
}

TEST_F(ExportQueueTest, WhatFailsIsToldAndTheNextBegins) {
  ExportQueue failing([](const ExportOrder& order, ExportWorker::Control&) -> ExportResult {
    if (order.target == "thrown") throw std::runtime_error("thrown away");
    if (order.target == "large") throw std::bad_alloc();
    return {End::Failed, "no room"};
  });
  Record record(failing);
  failing.add({.source = "in.wav", .target = "thrown"});
  failing.add({.source = "in.wav", .target = "told"});
  failing.add({.source = "in.wav", .target = "large"});
  EXPECT_TRUE(EventLoop::runUntil([&] { return !failing.isBusy(); }));
  EXPECT_EQ("thrown away", record.results[1].failure);
  EXPECT_EQ("no room", record.results[2].failure);
  EXPECT_EQ("There is not enough memory", record.results[3].failure);
  EXPECT_EQ(End::Failed, record.results[1].end);
  EXPECT_EQ(End::Failed, record.results[2].end);
  EXPECT_EQ(End::Failed, record.results[3].end);
}

TEST_F(ExportQueueTest, ManyShortOnesAllEndInTheirOrder) {
  held.releaseAll();
  std::vector<std::string> wanted;
  for (int i = 1; i <= 200; ++i) {
    add("x");
    wanted.push_back("finished " + std::to_string(i) + " x");
  }
  EXPECT_TRUE(EventLoop::runUntil([&] { return !queue->isBusy(); }));
  std::erase_if(told.lines, [](const std::string& line) { return line[0] != 'f'; });
  EXPECT_EQ(wanted, told.lines);
}

TEST_F(ExportQueueTest, WritesFilesAsItStands) {
  const TemporaryFolder folder;
  const std::vector<std::int32_t> samples(2 * 100, 1000);
  const auto source = folder.file(
      "in.wav", WaveBytes().format24().recorderBext().data(WaveBytes::samples24(samples)).get());
  ExportQueue real;
  Record record(real);
  for (const char* const target : {"a.WAV", "b.WAV", "in.wav"}) {
    real.add({.source = source, .target = folder.path() / target});
  }
  EXPECT_TRUE(EventLoop::runUntil([&] { return !real.isBusy(); }));
  EXPECT_EQ(End::Written, record.results[1].end);
  EXPECT_EQ(End::Written, record.results[2].end);
  EXPECT_EQ(End::TargetIsSource, record.results[3].end);
  EXPECT_THAT(folder.names(), testing::UnorderedElementsAre("a.WAV", "b.WAV", "in.wav"));
}

TEST_F(ExportQueueTest, ItsEndHasOnePatienceForAllThatHang) {
  constexpr int kMany = 8;
  static constexpr auto kPatience = 1s;
  const auto mayEnd = std::make_shared<std::atomic<bool>>(false);
  const auto hang = [mayEnd](const ExportOrder& /*order*/, ExportWorker::Control& /*control*/) {
    while (!*mayEnd) std::this_thread::sleep_for(1ms);
    return ExportResult{End::Cancelled, {}};
  };
  auto passing =
      std::make_unique<ExportQueue>(hang, [time = 0ms]() mutable { return time += kPatience; });
  passing->setPatience(kPatience);
  passing->setAtOnce(kMany);
  for (int i = 0; i < kMany; ++i) passing->add({.source = "in.wav", .target = "x"});
  const auto began = SteadyTime::now();
  passing.reset();
  EXPECT_LT(SteadyTime::now() - began, kPatience * kMany / 2);
  *mayEnd = true;
}

TEST_F(ExportQueueTest, ItsEndWaitsNoLongerThanThatOfTheProgram) {
  const auto mayEnd = std::make_shared<std::atomic<bool>>(false);
  const auto hang = [mayEnd](const ExportOrder& /*order*/, ExportWorker::Control& /*control*/) {
    while (!*mayEnd) std::this_thread::sleep_for(1ms);
    return ExportResult{End::Cancelled, {}};
  };
  auto hanging = std::make_unique<ExportQueue>(hang);
  hanging->setPatience(20s);
  hanging->add({.source = "in.wav", .target = "x"});
  auto now = 0ms;
  const EndPatience end([&now] { return now; });
  now = EndPatience::kWhole;
  const auto began = SteadyTime::now();
  hanging.reset();
  EXPECT_LT(SteadyTime::now() - began, 10s);
  *mayEnd = true;
}

}  // namespace
