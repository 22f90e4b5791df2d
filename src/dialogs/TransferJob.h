// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QString>
#include <QTimer>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <mutex>
#include <vector>

#include "base/Errand.h"

/// Long work with the files of a medium, on a thread of its own, and what it tells meanwhile. With
/// the job the work is told to end, and waited for, but not for long: one whose medium hangs ends
/// by itself later, or with the program. Interface thread, which has an event loop; a desk is for
/// both threads.
class TransferJob : public QObject {
  Q_OBJECT

 public:
  /// What came of a file.
  struct Line {
    QString text;
    bool isRight = true;
    std::filesystem::path file = {};  ///< that can be shown; empty for none
  };
  /// How far the work is.
  struct Progress {
    std::uint64_t done = 0;  ///< bytes
    std::uint64_t total = 0;
    std::uint64_t worked = 0;  ///< of those done that took time
    std::size_t filesDone = 0;
    std::size_t files = 0;  ///< 0 where they are not counted
  };
  struct End {
    bool isRight = false;    ///< all of it
    QString summary = {};    ///< in a few words
    QString complaint = {};  ///< what went wrong, sentences; empty for nothing
  };

  /// Where the work tells of itself. Every operation from any thread.
  class Desk {
   public:
    void tell(const Progress& progress);
    void add(const Line& line);
    [[nodiscard]] const std::atomic<bool>& cancel() const { return _isCancelled; }

   private:
    friend class TransferJob;

    void end();
    void waitForEnd(std::chrono::milliseconds most);

    std::atomic<bool> _isCancelled{false};
    std::mutex _mutex;  ///< guards what follows
    std::condition_variable _ended;
    bool _hasEnded = false;
    Progress _progress;
    std::vector<Line> _lines;  ///< that have not been looked at
  };
  /// On the job's thread; ends soon after `cancel` becomes true.
  using Work = std::function<End(Desk& desk)>;

  /// How long the job's end waits for the work to stop, where `EndPatience` allows it.
  static constexpr std::chrono::milliseconds kPatience{300};

  explicit TransferJob(QObject* parent = nullptr);
  ~TransferJob() override;
  void setPatience(std::chrono::milliseconds most) { _patience = most; }

  /// Begins; nothing else is under way.
  void begin(const Work& work);
  void cancel();
  [[nodiscard]] bool isUnderWay() const { return _errand.isUnderWay(); }

 signals:
  /// Ten times a second, and before the end.
  void progressed(const TransferJob::Progress& progress);
  void told(const std::vector<TransferJob::Line>& lines);
  /// Nothing is under way any more.
  void ended(const TransferJob::End& end);

 private:
  void look();
  void finish(const End& end);

  std::shared_ptr<Desk> _desk;
  Errand _errand;
  QTimer _timer;
  std::chrono::milliseconds _patience = kPatience;
};
