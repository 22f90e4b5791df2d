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

/// What crosses over. It goes by a lock of ours: the thread sanitizer does not see Qt's, by which
/// the event comes that wakes the event loop, and the one who receives it.
class Tasks {
 public:
  // Never destroyed, as the receiver.
  static Tasks& get() {
    static auto* const kOnly = new Tasks;
    return *kOnly;
  }

  void run(Task& task, QObject& receiver) {
    std::unique_lock lock(_mutex);
    _tasks.push_back(&task);
    QCoreApplication::postEvent(&receiver, new QEvent(QEvent::User));
    _done.wait(lock, [&task] { return task.isDone; });
  }
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

 private:
  std::mutex _mutex;  ///< guards the members below
  std::condition_variable _done;
  std::deque<Task*> _tasks;
};

/// Has nothing of its own, and does not look at the event.
class Receiver : public QObject {
  void customEvent(QEvent* /*event*/) override { Tasks::get().runNext(); }
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
  Tasks::get().run(waiting, receiver());
}
