// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "base/MainThreadQueue.h"

#include <QCoreApplication>
#include <QEvent>
#include <QObject>
#include <QThread>
#include <condition_variable>
#include <deque>
#include <mutex>

namespace {

struct Task {
  const std::function<void()>* work;
  bool isDone = false;
};

/// Tasks cross over in a list of their own; the event loop is only woken.
class Receiver : public QObject {
 public:
  void run(Task& task) {
    std::unique_lock lock(_mutex);
    _tasks.push_back(&task);
    QCoreApplication::postEvent(this, new QEvent(QEvent::User));
    _done.wait(lock, [&task] { return task.isDone; });
  }

 private:
  // The event itself is not looked at: it came by a lock of Qt's, which the thread sanitizer does
  // not see.
  void customEvent(QEvent* /*event*/) override { runNext(); }

  void runNext() {
    std::unique_lock lock(_mutex);
    if (_tasks.empty()) return;
    Task& task = *_tasks.front();
    _tasks.pop_front();
    lock.unlock();
    (*task.work)();
    lock.lock();
    task.isDone = true;
    _done.notify_all();
  }

  std::mutex _mutex;  ///< guards the members below
  std::condition_variable _done;
  std::deque<Task*> _tasks;
};

// Never destroyed: a worker may still come when the statics are gone.
Receiver& receiver() {
  static Receiver* const kReceiver = [] {
    auto* made = new Receiver;
    made->moveToThread(QCoreApplication::instance()->thread());
    return made;
  }();
  return *kReceiver;
}

bool isOnMainThread() {
  const QCoreApplication* application = QCoreApplication::instance();
  return application == nullptr || application->thread() == QThread::currentThread();
}

}  // namespace

void MainThreadQueue::run(const std::function<void()>& task) {
  if (isOnMainThread()) {
    task();
    return;
  }
  Task waiting{&task};
  receiver().run(waiting);
}
