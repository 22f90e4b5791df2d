// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
//
// The dialogs of what is under way.

#include <QLabel>
#include <QMessageBox>
#include <QSignalSpy>
#include <chrono>
#include <cstdint>
#include <string>
#include <thread>

#include "EveryDialog.h"
#include "app/CardDesk.h"
#include "app/RepairOffer.h"
#include "dialogs/TransferWork.h"
#include "support/SlowReads.h"

namespace {

constexpr std::chrono::seconds kElapsed(3);

QString translated(const char* context, const char* text) {
  return QCoreApplication::translate(context, text);
}

bool hasText(const QWidget& dialog, const char* name) {
  return !dialog.findChild<QLabel*>(QLatin1String(name))->text().isEmpty();
}

// Works until it is cancelled.
TransferJob::Work workUntilCancelled() {
  const QString line = translated("TransferWork", "%1: copied and verified").arg("R0001.WAV");
  const QString summary =
      translated("TransferWork", "%1 of %2 takes are there and verified").arg(1).arg(4);
  const QString complaint =
      translated("TransferWork", "Cancelled.") + u' ' +
      translated("TransferWork", "What was copied stays; the next copy goes on from there.");
  return [=](TransferJob::Desk& desk) {
    constexpr std::uint64_t kTake = 250'000'000;
    desk.tell({kTake, 4 * kTake, kTake, 1, 4});
    desk.add({line});
    while (!desk.cancel()) std::this_thread::sleep_for(std::chrono::milliseconds(1));
    return TransferJob::End{false, summary, complaint};
  };
}

}  // namespace

QWidget* EveryDialog::transferPanel(QAction& action) {
  action.trigger();
  return shown<TransferPanel>();
}

QWidget* EveryDialog::verifiedFolder() {
  QWidget* const panel = transferPanel(*view().menu->actionVerifyFolder);
  press(panel, translated("CardDesk", "Verify"));
  waitFor([this] { return !controller().cards().isBusy(); }, "the end of it");
  return panel;
}

TransferPanel& EveryDialog::copyPanel(const TransferJob::Work& work) {
  auto* const panel = new TransferPanel(
      {translated("CardDesk", "Copy card"), translated("CardDesk", "Copy"),
       translated("CardDesk", "Takes")},
      [work](const auto& /*places*/) { return work; }, &view());
  panel->setClock([now = kElapsed]() mutable { return now += kElapsed; });
  panel->addPlace(translated("CardDesk", "Card")).setFolder(folder("R0050"));
  panel->addPlace(translated("CardDesk", "Into")).setFolder(folder("R0051"));
  panel->show();
  press(panel, translated("CardDesk", "Copy"));
  return *panel;
}

QWidget* EveryDialog::copyUnderWay() {
  TransferPanel& panel = copyPanel(workUntilCancelled());
  waitFor([&] { return hasText(panel, "state"); }, "how far it is");
  return &panel;
}

QWidget* EveryDialog::cancelledCopy() {
  auto* const panel = qobject_cast<TransferPanel*>(copyUnderWay());
  panel->cancel();
  waitFor([&] { return !panel->isBusy(); }, "the end of it");
  return panel;
}

// One take is there already, and of another there is a shorter file.
QWidget* EveryDialog::differingCopy() {
  const auto card = folder("R0050");
  const auto home = folder("R0051");
  constexpr std::uint32_t kFrames = 480;
  std::filesystem::rename(take("R0041.WAV", kFrames / 2), home / "R0041.WAV");
  for (const char* const name : {"R0040.WAV", "R0041.WAV"}) {
    std::filesystem::rename(take(name, kFrames), card / name);
  }
  TransferPanel& panel = copyPanel(TransferWork::copy(card, home));
  waitFor([&] { return !panel.isBusy(); }, "the end of it");
  return &panel;
}

void EveryDialog::beginCopy() {
  CardDesk& cards = controller().cards();
  const QSignalSpy looked(&cards, &CardDesk::looked);
  cards.setFind([card = _card.path()] { return std::vector{card}; });
  cards.look();
  waitFor([&] { return !looked.empty(); }, "the card");
  press(transferPanel(*view().menu->actionCopyCard), translated("CardDesk", "Copy"));
  _behind = shown<TransferPanel>();
}

QWidget* EveryDialog::endQuestion(const UnderWay& work) {
  const auto broken = _card.path() / "R0030.WAV";
  const auto whole = _card.path() / "R0031.WAV";
  std::filesystem::rename(brokenTake("R0030.WAV"), broken);
  std::filesystem::rename(take("R0031.WAV"), whole);
  QWidget* const offer = work.isSalvaging ? salvageQuestion(broken) : nullptr;
  SlowReads::share(_card.path().string(), 0);
  if (work.isSalvaging) press(offer, translated("RepairOffer", "Salvage"));
  for (int i = 0; i < work.exports; ++i) {
    const auto target = takes.path() / ("export" + std::to_string(i) + ".WAV");
    controller().exportQueue().add({.source = whole, .target = target});
  }
  if (work.isCopying) beginCopy();
  EXPECT_FALSE(controller().mayEnd());
  return shown<QMessageBox>();
}

void EveryDialog::endAllWork() {
  auto& repair = *controller().findChild<RepairOffer*>();
  ExportQueue& exports = controller().exportQueue();
  CardDesk& cards = controller().cards();
  exports.cancelAll();
  cards.cancel();
  repair.cancel();
  SlowReads::reset();
  waitFor([&] { return !exports.isBusy() && !cards.isBusy() && !repair.isSalvaging(); },
          "the end of what was under way");
}

std::vector<EveryDialog::Maker> EveryDialog::transfers() {
  return {[this] { return transferPanel(*view().menu->actionCopyCard); },
          [this] { return transferPanel(*view().menu->actionVerifyFolder); },
          [this] { return verifiedFolder(); },
          [this] { return copyUnderWay(); },
          [this] { return cancelledCopy(); },
          [this] { return differingCopy(); }};
}

std::vector<EveryDialog::Maker> EveryDialog::endQuestions() {
  return {[this] { return endQuestion({.exports = 1}); },
          [this] { return endQuestion({.exports = 2}); },
          [this] { return endQuestion({.isCopying = true}); },
          [this] { return endQuestion({.isSalvaging = true}); },
          [this] {
            return endQuestion({2, true, true});
          }};
}
