// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <vector>

#include "folders/FolderHelper.h"

/// Lists folders on a thread of its own, so that nobody waits for a large folder or a slow medium.
/// Where no thread can be had the answer is what was known of the folder, or that it cannot be
/// read.
///
/// Interface thread only, which has an event loop. A medium that hangs holds up nothing but its own
/// answer: no thread is ever waited for.
class FolderLister {
 public:
  struct Answer {
    std::shared_ptr<const FolderHelper> listing;
    bool isSame = false;  ///< as the listing that was known
  };
  /// Told of each answer, from the event loop.
  using Done = std::function<void(const Answer& answer)>;
  /// What to list: `folder`, or where nothing is at it the first of `fallbacks` that is there, or
  /// the last of them. `known` may be null.
  struct Question {
    std::filesystem::path folder;
    std::vector<std::filesystem::path> fallbacks;
    std::shared_ptr<const FolderHelper> known;
  };

  /// How a folder is listed. On threads of its own, several at once. What it throws is the reason
  /// why the folder cannot be read.
  using Look = std::function<Answer(const Question& question)>;

  explicit FolderLister(Done done, Look look = answerTo);
  FolderLister(const FolderLister&) = delete;
  FolderLister& operator=(const FolderLister&) = delete;
  ~FolderLister();

  /// Asks for a listing. One that is under way for the same folder is followed by another one,
  /// since it may have missed what has just changed; that of another folder is given up.
  void list(Question question);
  /// Whether an answer is still to come; asked from inside an answer, another one.
  [[nodiscard]] bool isListing() const { return _desk != nullptr; }

  /// Lists the folder, or tells that nothing has changed in it.
  static Answer answerTo(const Question& question);

 private:
  class Desk;

  static Answer withoutLooking(const Question& question);
  void start();
  void collect();

  Done _done;
  Look _look;
  std::shared_ptr<Desk> _desk;  ///< null while nothing is under way
  Question _question;
  bool _isDueAgain = false;
};
