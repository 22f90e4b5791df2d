// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "dialogs/TransferWork.h"

#include <QStringList>
#include <array>
#include <string>
#include <vector>

#include "base/Version.h"
#include "controls/Reason.h"
#include "dialogs/PathText.h"
#include "transfer/CardCopy.h"
#include "transfer/FolderCheck.h"

namespace fs = std::filesystem;

namespace {

using Desk = TransferJob::Desk;
using End = TransferJob::End;
using State = FolderCheck::State;

QString asSentence(const std::string& reason) {
  return reason.empty() ? QString() : Reason::text(reason) + u'.';
}

// Before anything was done.
End cancelled() {
  return {.complaint = TransferWork::tr("Cancelled.")};
}

// For who looks at the heading alone: it counts what is known of.
QString notListed() {
  return TransferWork::tr("Not everything could be listed.");
}

void tellGaps(const std::vector<FolderFiles::Gap>& gaps, const fs::path& folder, Desk& desk) {
  for (const FolderFiles::Gap& gap : gaps) {
    desk.add({.text = TransferWork::tr("%1 could not be listed: %2")
                          .arg(PathText::textOf(gap.in(folder)), Reason::text(gap.reason)),
              .isRight = false});
  }
}

void tellProblems(const std::vector<std::string>& problems, Desk& desk) {
  for (const std::string& problem : problems) {
    desk.add({.text = TransferWork::tr("The manifest is not right: %1").arg(Reason::text(problem)),
              .isRight = false});
  }
}

/// A copy that is under way, and what came of its takes.
class Copying {
 public:
  Copying(const fs::path& card, const fs::path& folder, Desk& desk)
      : _card(card), _folder(folder), _desk(desk), _job(card, folder) {
    _job.setVersion(kFullVersion);
    _job.setCancelFlag(&desk.cancel());
    _job.setResult([this](const CardCopy::Result& result) { tell(result); });
    _job.setProgress([this](const CardCopy::Progress& progress) {
      _desk.tell(
          {progress.done, progress.total, progress.worked, progress.takesDone, progress.takes});
    });
  }

  End run() {
    const std::string whyNot = _job.prepare();
    if (_job.wasCancelled()) return cancelled();
    if (!whyNot.empty()) return {.complaint = asSentence(whyNot)};
    tellGaps(_job.gaps(), _card, _desk);
    tellProblems(_job.problems(), _desk);
    const bool isAllThere = _job.run();
    return {isAllThere, summary(isAllThere), complaint()};
  }

 private:
  void tell(const CardCopy::Result& result) {
    const bool isThere =
        result.outcome == CardCopy::Outcome::Copied || result.outcome == CardCopy::Outcome::Kept;
    _there += isThere ? 1 : 0;
    _desk.add({lineOf(result), isThere, isThere ? _folder / result.take : fs::path()});
  }

  static QString lineOf(const CardCopy::Result& result) {
    const QString name = PathText::textOf(result.take);
    const QString reason = Reason::text(result.reason);
    switch (result.outcome) {
      case CardCopy::Outcome::Copied:
        return TransferWork::tr("%1: copied and verified").arg(name);
      case CardCopy::Outcome::Kept:
        return TransferWork::tr("%1: there already").arg(name);
      case CardCopy::Outcome::Differs:
        return TransferWork::tr("%1 differs: %2").arg(name, reason);
      default:
        return TransferWork::tr("%1 was not copied: %2").arg(name, reason);
    }
  }

  [[nodiscard]] QString summary(bool isAllThere) const {
    const auto takes = static_cast<int>(_job.takes().size());
    if (isAllThere) return TransferWork::tr("%n takes are there and verified", nullptr, takes);
    return TransferWork::tr("%1 of %2 takes are there and verified").arg(_there).arg(takes);
  }

  [[nodiscard]] QString complaint() const {
    QStringList sentences{asSentence(_job.failure()), asSentence(_job.manifestFailure())};
    if (_job.wasCancelled()) sentences << TransferWork::tr("Cancelled.");
    sentences.removeAll(QString());
    if (!sentences.empty()) {
      sentences << TransferWork::tr("What was copied stays; the next copy goes on from there.");
    }
    if (!_job.gaps().empty()) sentences.prepend(notListed());
    return sentences.join(u' ');
  }

  const fs::path& _card;
  const fs::path& _folder;
  Desk& _desk;
  CardCopy _job;
  int _there = 0;
};

QString lineOf(const FolderCheck::Finding& finding) {
  const QString name = PathText::textOf(finding.path);
  const QString detail = Reason::text(finding.detail);
  switch (finding.state) {
    case State::Right:
      return {};
    case State::Changed:
      return TransferWork::tr("%1 has changed: %2").arg(name, detail);
    case State::Missing:
      return TransferWork::tr("%1 is missing").arg(name);
    case State::Moved:
      return TransferWork::tr("%1 is now %2").arg(name, PathText::textOf(finding.detail));
    case State::New:
      return TransferWork::tr("%1 is new").arg(name);
    default:
      return TransferWork::tr("%1 cannot be read: %2").arg(name, detail);
  }
}

// The file that a finding is about, where there is one.
fs::path fileOf(const FolderCheck::Finding& finding, const fs::path& folder) {
  if (finding.state == State::Missing) return {};
  return folder / (finding.state == State::Moved ? finding.detail : finding.path);
}

QString complaintOf(const FolderCheck& check, const Desk& desk) {
  QStringList sentences;
  if (!check.gaps().empty()) sentences << notListed();
  if (!check.problems().empty()) sentences << TransferWork::tr("The manifest itself is not right.");
  if (desk.cancel()) sentences << TransferWork::tr("Cancelled.");
  return sentences.join(u' ');
}

End verified(const fs::path& folder, Desk& desk) {
  FolderCheck check(folder, [&desk] { return !desk.cancel(); });
  if (check.obstacle() == FolderCheck::Obstacle::Cancelled) return cancelled();
  if (!check.whyNot().empty()) return {.complaint = asSentence(check.whyNot())};
  tellProblems(check.problems(), desk);
  tellGaps(check.gaps(), folder, desk);
  TransferJob::Progress progress{.total = check.bytes()};
  std::array<int, 2> counts{};  // of what is not right, and of what is
  const auto tell = [&](const FolderCheck::Finding& finding) {
    const bool isRight = finding.state == State::Right;
    ++counts.at(isRight ? 1 : 0);
    if (!isRight) desk.add({lineOf(finding), false, fileOf(finding, folder)});
  };
  const auto step = [&](std::uint64_t bytes) {
    progress.done += bytes;
    progress.worked += bytes;
    desk.tell(progress);
    return !desk.cancel();
  };
  const bool isAllRight = check.run(tell, step);
  if (isAllRight) return {true, TransferWork::tr("%n files are right", nullptr, counts[1]), {}};
  return {false, TransferWork::tr("%1 right, %2 not").arg(counts[1]).arg(counts[0]),
          complaintOf(check, desk)};
}

}  // namespace

TransferJob::Work TransferWork::copy(const fs::path& card, const fs::path& folder) {
  return [card, folder](Desk& desk) { return Copying(card, folder, desk).run(); };
}

TransferJob::Work TransferWork::verify(const fs::path& folder) {
  return [folder](Desk& desk) { return verified(folder, desk); };
}
