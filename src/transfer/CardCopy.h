// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include "transfer/FolderFiles.h"
#include "transfer/ManifestFolder.h"
#include "transfer/ManifestLock.h"
#include "transfer/TakeCopy.h"

/// Brings the takes of a card home into a folder, each verified, and writes a manifest of them.
///
/// The card is only ever read: where the folder, or one in it, leads back into the card's folder,
/// nothing is copied there. (Another folder of the same medium is not known to be the card's.) A
/// take that is there already is kept: without a look at its content where a manifest says that it
/// was verified and both have the length and the time of change that it states, else after its
/// content has been compared. One that is there with another content is kept, too, and told. What
/// was done by a break, a cancel or a failure stays done. One thread at a time, but for the cancel
/// flag, which any thread may set; waits for the media.
class CardCopy {
 public:
  enum class Outcome { Copied, Kept, Differs, Failed };
  struct Result {
    std::filesystem::path take;  ///< from the card on
    Outcome outcome;
    std::string reason;  ///< in words for people; empty unless it differs or failed
  };
  /// What kept the copy from beginning, or ended it: something of the card, or of the destination.
  enum class Obstacle {
    None,
    CardUnreadable,  ///< or no folder
    CardEmpty,
    CardGone,
    Inside,  ///< the destination is the card's folder, or in it, wherever links lead
    FolderUnwritable,
    FolderBusy,
    FolderFull,
    ManifestUnreadable,
    ManifestUnwritable
  };
  /// How far the work is. A byte is half done when it was read, and wholly when it was read back.
  struct Progress {
    std::uint64_t done = 0;  ///< bytes
    std::uint64_t total = 0;
    std::uint64_t worked = 0;  ///< of those done that were not just known: what takes the time
    std::size_t takesDone = 0;
    std::size_t takes = 0;
    std::filesystem::path take;  ///< that is worked on
  };

  CardCopy(std::filesystem::path card, std::filesystem::path destination);

  /// Told on the thread that copies.
  void setProgress(std::function<void(const Progress&)> tell) { _tellProgress = std::move(tell); }
  void setResult(std::function<void(const Result&)> tell) { _tellResult = std::move(tell); }
  /// What is under way, be it `prepare`, stops soon after `*cancel` becomes true.
  void setCancelFlag(const std::atomic<bool>* cancel) { _cancel = cancel; }
  /// How long it waits for a check of the folder to have looked.
  void setPatience(std::chrono::milliseconds most) { _patience = most; }
  /// The version of the program, for the manifest.
  void setVersion(std::string_view version) { _manifest.toolVersion = version; }

  /// Lists the card and makes the destination. Empty when the copy can begin, else why not: the
  /// card cannot be read, holds no takes, or holds the destination, another copy or a check is at
  /// work there, the manifests there cannot be read, or takes that are not there yet cannot be
  /// written: there is no right to, or not enough room for them and their manifest. Not empty
  /// either where it was cancelled.
  std::string prepare();
  /// Whether the whole card could be listed, and every take is there and verified in the end. After
  /// `prepare`.
  bool run();

  [[nodiscard]] bool wasCancelled() const { return _wasCancelled; }
  /// What ended the whole copy, or kept the manifest from being written; empty when nothing did.
  [[nodiscard]] const std::string& failure() const { return _failure; }
  /// Why the manifest lacks takes that were copied, where something else had ended the copy before;
  /// else empty.
  [[nodiscard]] const std::string& manifestFailure() const { return _manifestFailure; }
  /// What of both is meant by the reason of `prepare`, and by `failure`.
  [[nodiscard]] Obstacle obstacle() const { return _obstacle; }
  /// What of the card could not be listed. After `prepare`.
  [[nodiscard]] const std::vector<FolderFiles::Gap>& gaps() const { return _gaps; }
  /// What is wrong with the manifests that are there, a sentence each. After `prepare`.
  [[nodiscard]] const std::vector<std::string>& problems() const { return _manifests->problems(); }
  /// Takes of the card, and the bytes that were copied.
  [[nodiscard]] const std::vector<CardTake>& takes() const { return _takes; }
  [[nodiscard]] std::uint64_t copiedBytes() const { return _copiedBytes; }

 private:
  std::string meet(Obstacle obstacle, std::string reason);
  std::string unreadable(const std::string& reason);
  std::string cannotMake(const std::error_code& error);
  std::string findCard();
  std::string listCard();
  std::string openFolder();
  std::string lockFolder();
  std::string whyNoRoom();
  [[nodiscard]] std::uint64_t manifestRoom() const;
  void handle(const CardTake& take);
  [[nodiscard]] std::string whyNoPlace(const CardTake& take) const;
  [[nodiscard]] bool isKnown(const CardTake& take) const;
  void compare(const CardTake& take);
  void copy(const CardTake& take);
  void failToRead(const CardTake& take, const std::string& reason);
  void skip(const CardTake& take);
  void tellProgress() const;
  void record(const CardTake& take, const std::string& hash);
  void tell(const CardTake& take, Outcome outcome, const std::string& reason = {});
  void saveManifest();
  [[nodiscard]] std::error_code syncNames() const;
  void fallShort(const std::string& reason);
  void fail(Obstacle obstacle, const std::string& reason);
  bool goesOn();
  [[nodiscard]] bool hasEnded() const { return _wasCancelled || !_failure.empty(); }
  [[nodiscard]] MediumStep step();
  [[nodiscard]] std::filesystem::path targetOf(const CardTake& take) const {
    return _destination / take.path;
  }

  std::filesystem::path _card;
  std::filesystem::path _realCard;  ///< whole and without links; from `prepare` on
  std::filesystem::path _destination;
  std::function<void(const Progress&)> _tellProgress;
  std::function<void(const Result&)> _tellResult;
  const std::atomic<bool>* _cancel = nullptr;
  std::chrono::milliseconds _patience = ManifestLock::kPatience;
  std::vector<CardTake> _takes;
  std::vector<FolderFiles::Gap> _gaps;
  std::unique_ptr<ManifestLock> _lock;  ///< from `prepare` to the end of `run`
  std::unique_ptr<ManifestFolder> _manifests;
  Manifest _manifest;
  std::size_t _savedEntries = 0;
  std::uint64_t _unsavedBytes = 0;  ///< of the takes since then
  Progress _progress;               ///< with each byte twice: read, and read back
  std::uint64_t _doneBefore = 0;    ///< likewise, of the takes that are over
  std::uint64_t _copiedBytes = 0;
  bool _isAllThere = true;
  bool _wasCancelled = false;
  Obstacle _obstacle = Obstacle::None;
  std::string _failure;
  std::string _manifestFailure;
};
