// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/RepairOffer.h"

#include <QMessageBox>
#include <QPushButton>
#include <cstdint>
#include <string>

#include "controls/NumberText.h"
#include "controls/Reason.h"
#include "dialogs/Alert.h"
#include "dialogs/PathText.h"
#include "transfer/TakeDiagnosis.h"
#include "transfer/TakeRepair.h"
#include "wav/WaveImage.h"

namespace {

// Seconds, cut to tenths: the list and the player cut theirs, and would tell another length.
QString lengthText(const TakeDiagnosis& diagnosis) {
  if (diagnosis.frameBytes == 0 || diagnosis.sampleRate == 0) return NumberText::of(0, 1);
  const std::uint64_t frames = diagnosis.keptBytes / diagnosis.frameBytes;
  const std::uint64_t tenths = 10 * frames / diagnosis.sampleRate;
  return NumberText::of(static_cast<double>(tenths) / 10, 1);
}

// A line for each thing that was found.
QString findingsText(const TakeDiagnosis& diagnosis) {
  QStringList lines(RepairOffer::tr("What was found:"));
  for (const std::string& finding : diagnosis.findings) {
    lines << QStringLiteral("• ") + Reason::text(finding);
  }
  return lines.join(u'\n');
}

TransferJob::End failed(const std::string& why) {
  return {.complaint = QString::fromStdString(why)};
}

// Neither right nor a complaint where it was given up.
TransferJob::End saved(const std::filesystem::path& take, const std::atomic<bool>& cancel) {
  std::string whyNot;
  const std::shared_ptr<const WaveImage> image = WaveImage::fromFile(take, whyNot);
  if (!image) return failed(whyNot);
  const TakeDiagnosis diagnosis = TakeDiagnosis::of(*image, &cancel);
  if (!image->failure().empty()) return failed(image->failure());
  if (diagnosis.state != TakeDiagnosis::State::Broken) return failed(diagnosis.whyHopeless);
  TakeRepair repair(image, diagnosis);
  repair.setCancelFlag(&cancel);
  const bool isSaved = repair.save(TakeRepair::nameFor(take), AtomicFile::Existing::Refuse);
  return {.isRight = isSaved, .complaint = QString::fromStdString(repair.failure())};
}

}  // namespace

RepairOffer::RepairOffer(const Place& place, QObject* parent)
    : QObject(parent),
      _window(place.window),
      _status(place.status),
      _take(place.take),
      _browser(place.browser) {
  connect(&_take, &TakeSession::opened, this, [this] { look(_take.file()); });
  connect(&_take, &TakeSession::failed, this, [this](TakeSession::Failure failure) {
    if (failure == TakeSession::Failure::Unsupported) look(_take.file());
  });
  connect(&_salvage, &TransferJob::ended, this, [this](const TransferJob::End& how) { end(how); });
  connect(&_take, &TakeSession::opening, this, [this] {
    _look.drop();
    if (_question) _question->close();
    if (!_salvage.isUnderWay()) _status.clear(StatusLine::Topic::Repair);
  });
}

void RepairOffer::look(const std::filesystem::path& take) {
  const auto work = [this, take](const std::atomic<bool>& cancel) -> Errand::Outcome {
    std::string whyNot;
    const auto image = WaveImage::fromFile(take, whyNot);
    const auto diagnosis = image ? TakeDiagnosis::of(*image, &cancel) : TakeDiagnosis();
    const bool isRead = image && image->failure().empty();
    return [this, take, diagnosis, isRead] {
      if (isRead && diagnosis.state == TakeDiagnosis::State::Broken) offer(take, diagnosis);
      emit looked();
    };
  };
  _look.ask(work, [this](const std::string& /*why*/) { emit looked(); });
}

void RepairOffer::offer(const std::filesystem::path& take, const TakeDiagnosis& diagnosis) {
  const QString offer =
      tr("The recording of %1 broke off. %2 s of sound can be salvaged into %3, beside it. The "
         "take itself stays as it is.")
          .arg(PathText::nameOf(take), lengthText(diagnosis),
               PathText::nameOf(TakeRepair::nameFor(take)));
  QMessageBox* const question =
      Alert::question(&_window, offer + QStringLiteral("\n\n") + findingsText(diagnosis));
  QPushButton* const salvages = question->addButton(tr("Salvage"), QMessageBox::ActionRole);
  QPushButton* const later = question->addButton(tr("Not now"), QMessageBox::ActionRole);
  question->setDefaultButton(later);
  question->setEscapeButton(later);
  connect(salvages, &QAbstractButton::clicked, this, [this, take] { salvage(take); });
  salvages->setEnabled(!isSalvaging());
  connect(this, &RepairOffer::ended, salvages, [salvages] { salvages->setEnabled(true); });
  question->open();
  _question = question;
}

QString RepairOffer::salvageText() const {
  return tr("%1 is being salvaged…").arg(PathText::nameOf(_salvaged));
}

void RepairOffer::salvage(const std::filesystem::path& take) {
  if (isSalvaging()) return;
  _salvaged = take;
  _status.say(StatusLine::Topic::Repair, salvageText());
  _salvage.begin([take](TransferJob::Desk& desk) { return saved(take, desk.cancel()); });
  emit began();
}

void RepairOffer::end(const TransferJob::End& how) {
  const std::filesystem::path target = TakeRepair::nameFor(_salvaged);
  _status.clear(StatusLine::Topic::Repair);
  if (how.complaint.isEmpty()) {
    _browser.wishFor(target);
    _browser.refresh();
  } else {
    _status.say(
        StatusLine::Topic::Repair,
        tr("%1 was not saved: %2.").arg(PathText::nameOf(target), Reason::text(how.complaint)));
    Alert::show(&_window, tr("Fail to save."));
  }
  if (how.isRight) {
    _status.say(
        StatusLine::Topic::Repair,
        tr("%1 is salvaged into %2.").arg(PathText::nameOf(_salvaged), PathText::nameOf(target)));
  }
  emit ended();
}
